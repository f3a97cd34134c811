//===- Keywords.cpp - reserved words and the table of words ---------------===//

#include "Parse/Keywords.h"
#include "AST/Node.h"
#include "llvm/ADT/StringExtras.h"
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>

namespace tarka {

namespace {

constexpr llvm::StringLiteral keywordTexts[] = {
    "", // None
#define KEYWORD(Enumerator, Text, Flags) Text,
#include "Parse/Keywords.def"
};

constexpr uint32_t initialSlots = 1 << 10;

template <typename Chunk> uint64_t load(const char *from) {
  Chunk chunk;
  std::memcpy(&chunk, from, sizeof chunk);
  return chunk;
}

/// Hashes eight characters at a time, the last eight over again where they do not come out even.
/// Clearing bit 5 makes letters of both cases equal; what else it makes equal, the comparison
/// tells apart.
uint32_t hashFolded(llvm::StringRef text) {
  constexpr uint64_t fold = 0xDFDFDFDFDFDFDFDF;
  constexpr uint64_t multiplier = 0x9E3779B97F4A7C15;
  const char *data = text.data();
  size_t size = text.size();
  uint64_t hash = size * multiplier;
  auto mix = [&hash](uint64_t chunk) {
    hash = (hash ^ (chunk & fold)) * multiplier;
    hash ^= hash >> 32;
  };
  if (size >= 8) {
    for (size_t at = 0; at + 8 < size; at += 8)
      mix(load<uint64_t>(data + at));
    mix(load<uint64_t>(data + size - 8));
  } else if (size >= 4) {
    mix(load<uint32_t>(data) | load<uint32_t>(data + size - 4) << 32);
  } else if (size > 0) {
    mix(load<uint8_t>(data) | load<uint8_t>(data + size / 2) << 8 |
        load<uint8_t>(data + size - 1) << 16);
  }
  // The upper half of a product depends on all bits of its factors, the lower half does not. The
  // slots are chosen by the low bits of what is returned here.
  return static_cast<uint32_t>((hash * multiplier) >> 32);
}

/// The keywords by their hash.
class KeywordTable {
public:
  KeywordTable() {
    for (unsigned index = 1; index < std::size(keywordTexts); ++index) {
      const uint32_t hash = hashFolded(keywordTexts[index]);
      uint32_t slot = hash & mask;
      while (slots[slot].keyword != Keyword::None)
        slot = (slot + 1) & mask;
      slots[slot] = {hash, static_cast<Keyword>(index)};
    }
  }

  /// The keyword that \p word, whose hash is \p hash, is in upper or lower case; else None.
  Keyword find(llvm::StringRef word, uint32_t hash) const {
    uint32_t slot = hash & mask;
    for (; slots[slot].keyword != Keyword::None; slot = (slot + 1) & mask)
      if (slots[slot].hash == hash && textOf(slots[slot].keyword).equals_insensitive(word))
        return slots[slot].keyword;
    return Keyword::None;
  }

private:
  struct Slot {
    uint32_t hash = 0;
    Keyword keyword = Keyword::None;
  };
  static constexpr uint32_t mask = (1 << 11) - 1;
  static_assert(std::size(keywordTexts) * 2 <= mask + 1);

  Slot slots[mask + 1];
};

/// Whether two texts of at most sixteen characters and the same size are equal.
bool isEqualShort(llvm::StringRef left, llvm::StringRef right) {
  const size_t size = left.size();
  if (size >= 8)
    return load<uint64_t>(left.begin()) == load<uint64_t>(right.begin()) &&
           load<uint64_t>(left.end() - 8) == load<uint64_t>(right.end() - 8);
  if (size >= 4)
    return load<uint32_t>(left.begin()) == load<uint32_t>(right.begin()) &&
           load<uint32_t>(left.end() - 4) == load<uint32_t>(right.end() - 4);
  return left == right;
}

} // namespace

const uint16_t keywordFlags[] = {
    KF_None, // None
#define KEYWORD(Enumerator, Text, Flags) Flags,
#include "Parse/Keywords.def"
};

llvm::StringRef textOf(Keyword keyword) {
  return keywordTexts[static_cast<unsigned>(keyword)];
}

WordTable::WordTable(bool osvs)
    : slots(new Slot[initialSlots]), mask(initialSlots - 1), hasOsvsWords(osvs) {}

WordTable::~WordTable() = default;

WordLookup WordTable::lookup(llvm::StringRef spelling) {
  uint32_t hash = hashFolded(spelling);
  for (uint32_t index = hash & mask; slots[index].interned; index = (index + 1) & mask) {
    const Slot &slot = slots[index];
    if (slot.hash != hash)
      continue;
    if (slot.size == spelling.size() && slot.size > 0 &&
        isEqualShort({slot.text, slot.size}, spelling))
      return {slot.interned, true, slot.keyword};
    llvm::StringRef text = slot.size ? llvm::StringRef(slot.text, slot.size) : *slot.interned;
    if (!slot.size && text == spelling)
      return {slot.interned, true, slot.keyword};
    if (text.equals_insensitive(spelling))
      return {slot.interned, false, slot.keyword};
  }
  const Slot &slot = enter(spelling, hash);
  return {slot.interned, *slot.interned == spelling, slot.keyword};
}

/// Folds, interns and enters a word that is not in the table.
WordTable::Slot &WordTable::enter(llvm::StringRef spelling, uint32_t hash) {
  static const KeywordTable keywords;
  if (++used * 2 > mask)
    grow();
  Keyword keyword = keywords.find(spelling, hash);
  if (!hasOsvsWords && (flagsOf(keyword) & KF_OsvsOnly))
    keyword = Keyword::None;
  const std::string &text = internString(spelling.upper());
  Slot &slot = freeSlot(hash);
  slot.interned = &text;
  slot.hash = hash;
  slot.keyword = keyword;
  if (text.size() <= shortText) {
    slot.size = static_cast<uint16_t>(text.size());
    std::memcpy(slot.text, text.data(), text.size());
  }
  return slot;
}

WordTable::Slot &WordTable::freeSlot(uint32_t hash) {
  uint32_t index = hash & mask;
  while (slots[index].interned)
    index = (index + 1) & mask;
  return slots[index];
}

void WordTable::grow() {
  std::unique_ptr<Slot[]> old = std::move(slots);
  uint32_t oldMask = mask;
  mask = mask * 2 + 1;
  slots = std::make_unique<Slot[]>(size_t(mask) + 1);
  for (uint32_t index = 0; index <= oldMask; ++index)
    if (old[index].interned)
      freeSlot(old[index].hash) = old[index];
}

} // namespace tarka
