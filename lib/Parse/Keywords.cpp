//===- Keywords.cpp - reserved words and the table of words ---------------===//

#include "Parse/Keywords.h"
#include "AST/Node.h"
#include "llvm/ADT/StringExtras.h"
#include <cstring>
#include <new>

namespace tarka {

namespace {

struct KeywordInfo {
  llvm::StringLiteral text;
  uint16_t flags;
};

constexpr KeywordInfo keywordTable[] = {
    {"", KF_None}, // None
#define KEYWORD(Enumerator, Text, Flags) {Text, Flags},
#include "Parse/Keywords.def"
};

constexpr uint32_t initialSlots = 1 << 12;

/// Hashes eight characters at a time. Clearing bit 5 makes letters of both cases equal; what else
/// it makes equal, the comparison tells apart.
uint32_t hashFolded(llvm::StringRef text) {
  constexpr uint64_t fold = 0xDFDFDFDFDFDFDFDF;
  constexpr uint64_t multiplier = 0x9E3779B97F4A7C15;
  uint64_t hash = text.size() * multiplier;
  const char *data = text.data();
  size_t rest = text.size();
  for (; rest >= 8; data += 8, rest -= 8) {
    uint64_t chunk;
    std::memcpy(&chunk, data, 8);
    hash = (hash ^ (chunk & fold)) * multiplier;
    hash ^= hash >> 32;
  }
  uint64_t chunk = 0;
  std::memcpy(&chunk, data, rest);
  hash = (hash ^ (chunk & fold)) * multiplier;
  return static_cast<uint32_t>(hash >> 32);
}

} // namespace

uint16_t flagsOf(Keyword keyword) {
  return keywordTable[static_cast<unsigned>(keyword)].flags;
}

llvm::StringRef textOf(Keyword keyword) {
  return keywordTable[static_cast<unsigned>(keyword)].text;
}

WordTable::WordTable(bool osvs) : slots(new Slot[initialSlots]), mask(initialSlots - 1) {
  for (unsigned index = 1; index < std::size(keywordTable); ++index) {
    const KeywordInfo &info = keywordTable[index];
    if ((info.flags & KF_OsvsOnly) && !osvs)
      continue;
    find(info.text).keyword = static_cast<Keyword>(index);
  }
}

WordTable::~WordTable() = default;

WordEntry &WordTable::find(llvm::StringRef spelling) {
  uint32_t hash = hashFolded(spelling);
  uint32_t index = hash & mask;
  for (; slots[index].entry; index = (index + 1) & mask) {
    if (slots[index].hash != hash)
      continue;
    const std::string &text = *slots[index].entry->text;
    if (text == spelling || spelling.equals_insensitive(text))
      return *slots[index].entry;
  }
  // A new word: fold it, intern it, enter it.
  const std::string &text = internString(spelling.upper());
  auto *entry = new (allocateForever(sizeof(WordEntry))) WordEntry{&text, Keyword::None};
  slots[index] = {hash, entry};
  if (++used * 2 > mask)
    grow();
  return *entry;
}

void WordTable::grow() {
  uint32_t newMask = mask * 2 + 1;
  auto larger = std::make_unique<Slot[]>(size_t(newMask) + 1);
  for (uint32_t old = 0; old <= mask; ++old) {
    if (!slots[old].entry)
      continue;
    uint32_t index = slots[old].hash & newMask;
    while (larger[index].entry)
      index = (index + 1) & newMask;
    larger[index] = slots[old];
  }
  slots = std::move(larger);
  mask = newMask;
}

} // namespace tarka
