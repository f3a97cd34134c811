//===- Keywords.cpp - reserved words and the table of words ---------------===//

#include "Parse/Keywords.h"
#include "AST/Node.h"
#include "llvm/ADT/DenseMap.h"
#include <algorithm>
#include <cstring>

namespace tarka {

namespace {

constexpr llvm::StringLiteral keywordTexts[] = {
    "", // None
#define KEYWORD(Enumerator, Text, Flags) Text,
#include "Parse/Keywords.def"
};

constexpr uint32_t initialSlots = 1 << 10;

/// The keywords by their text in upper case.
using KeywordTable = llvm::DenseMap<llvm::StringRef, Keyword>;

const KeywordTable &keywordTable() {
  static const KeywordTable table = [] {
    KeywordTable keywords(std::size(keywordTexts));
    for (unsigned index = 1; index < std::size(keywordTexts); ++index)
      keywords.try_emplace(keywordTexts[index], static_cast<Keyword>(index));
    return keywords;
  }();
  return table;
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
  if (spelling.empty())
    return {&internString(""), true, Keyword::None};
  Head head;
  std::memcpy(&head, spelling.data(), std::min(spelling.size(), sizeof head));
  return lookup(head, spelling);
}

/// Mixes what follows the head into \p hash, the last sixteen characters over again where they do
/// not come out even.
uint64_t WordTable::hashTail(uint64_t hash, llvm::StringRef spelling) {
  for (size_t at = sizeof(Head); at < spelling.size(); at += sizeof(Head)) {
    Head next;
    std::memcpy(&next, spelling.data() + std::min(at, spelling.size() - sizeof next), sizeof next);
    hash = mix(hash ^ next.low, next.high);
  }
  return hash;
}

/// Finds a word that is long, new or not in the first slot for its \p hash.
WordLookup WordTable::find(const Head &head, llvm::StringRef spelling, uint32_t hash) {
  for (uint32_t index = hash & mask; slots[index].interned; index = (index + 1) & mask)
    if (holds(slots[index], head, spelling))
      return slots[index].getWord();
  return enter(head, spelling, hash);
}

/// Enters a word that is not in the table.
WordLookup WordTable::enter(const Head &head, llvm::StringRef spelling, uint32_t hash) {
  if (++used * 2 > mask)
    grow();
  const std::string &text = internString(spelling.upper());
  Slot &slot = freeSlot(hash);
  slot.head = head;
  slot.interned = &text;
  slot.isUpperCase = text == spelling;
  slot.keyword = keywordTable().lookup(text);
  if (!hasOsvsWords && (flagsOf(slot.keyword) & KF_OsvsOnly))
    slot.keyword = Keyword::None;
  if (!isShort(spelling)) {
    longSpellings.push_back(slot.isUpperCase ? text : internString(spelling));
    slot.longSpelling = static_cast<uint32_t>(longSpellings.size());
  }
  return slot.getWord();
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
    if (const Slot &slot = old[index]; slot.interned) {
      const llvm::StringRef spelling =
          slot.longSpelling ? longSpellings[slot.longSpelling - 1] : llvm::StringRef();
      freeSlot(hashOf(slot.head, spelling)) = slot;
    }
}

} // namespace tarka
