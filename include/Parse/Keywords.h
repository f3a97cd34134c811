//===- Keywords.h - reserved words and the table of words -------*- C++ -*-===//
//
// The words that have a meaning in the language (Keywords.def), and the table
// that every word of a program is looked up in once: the entry gives the word in
// upper case, interned, and the keyword that it is, if it is one.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_KEYWORDS_H
#define TARKA_PARSE_KEYWORDS_H

#include "llvm/ADT/StringRef.h"
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarka {

/// Every word of the table in Keywords.def. The name is the word in UpperCamelCase without its
/// hyphens: END-PERFORM is Keyword::EndPerform.
enum class Keyword : uint16_t {
  None = 0,
#define KEYWORD(Enumerator, Text, Flags) Enumerator,
#include "Parse/Keywords.def"
};

/// The properties of a keyword. A keyword without ContextSensitive is reserved.
enum KeywordFlag : uint16_t {
  KF_None = 0,
  KF_ContextSensitive = 1,   ///< a user word except where the syntax asks for the keyword
  KF_OsvsOnly = 2,           ///< a keyword of OS/VS COBOL only, otherwise a user word
  KF_Verb = 4,               ///< begins a statement
  KF_FigurativeConstant = 8, ///< ZERO, SPACES, ALL ...
  KF_SpecialRegister = 16,   ///< RETURN-CODE, TALLY ...
  KF_ScopeTerminator = 32,   ///< END-IF ...
  KF_Header = 64,            ///< a word that begins a division, section or paragraph header
  KF_CommentParagraph = 128, ///< AUTHOR ...: what follows its period is a comment-entry
  KF_TokenStream = 256,      ///< what the token stream acts on: COPY, PICTURE, EXEC ...
  KF_UnitHeader = 512,       ///< in the header of a division, or at an end of a program
};

/// The flags of each keyword, see Keywords.def.
extern const uint16_t keywordFlags[];

inline uint16_t flagsOf(Keyword keyword) {
  return keywordFlags[static_cast<unsigned>(keyword)];
}

/// The word in upper case; empty for None.
llvm::StringRef textOf(Keyword keyword);

inline bool isReserved(Keyword keyword) {
  return keyword != Keyword::None && !(flagsOf(keyword) & KF_ContextSensitive);
}
inline bool isVerb(Keyword keyword) {
  return flagsOf(keyword) & KF_Verb;
}
inline bool isFigurativeConstant(Keyword keyword) {
  return flagsOf(keyword) & KF_FigurativeConstant;
}
inline bool isSpecialRegister(Keyword keyword) {
  return flagsOf(keyword) & KF_SpecialRegister;
}
inline bool isScopeTerminator(Keyword keyword) {
  return flagsOf(keyword) & KF_ScopeTerminator;
}

/// The result of looking up a word.
struct WordLookup {
  const std::string *interned; ///< in upper case, see internString()
  bool isUpperCase;            ///< whether the text and the spelling looked up are equal
  Keyword keyword;
};

/// The words that a compilation has met, each in the spellings that it has met.
class WordTable {
public:
  /// The first sixteen characters of a word as two numbers, zero after its end.
  struct Head {
    uint64_t low = 0;
    uint64_t high = 0;

    bool operator==(const Head &) const = default;
  };

  /// A table in which words are keywords, those of OS/VS COBOL only when \p osvs.
  explicit WordTable(bool osvs);
  ~WordTable();
  WordTable(const WordTable &) = delete;
  WordTable &operator=(const WordTable &) = delete;

  /// Finds \p spelling, which is entered when it is not in the table yet. Words that differ only in
  /// case have the same interned text.
  WordLookup lookup(llvm::StringRef spelling);
  /// The same for a caller that has the \p head of \p spelling already.
  WordLookup lookup(const Head &head, llvm::StringRef spelling) {
    const uint32_t hash = hashOf(head, spelling);
    const Slot &slot = slots[hash & mask];
    if (slot.head == head && slot.longSpelling == 0 && isShort(spelling))
      return slot.getWord();
    return find(head, spelling, hash);
  }

private:
  /// Holds the head itself, and lies in one cache line: in a large program, finding a short word
  /// waits for memory once.
  struct alignas(32) Slot {
    WordLookup getWord() const { return {interned, isUpperCase, keyword}; }

    Head head;
    const std::string *interned = nullptr; ///< null in a slot that is free
    /// The number in longSpellings, from 1; 0 for a spelling that is its head.
    uint32_t longSpelling = 0;
    Keyword keyword = Keyword::None;
    bool isUpperCase = false;
  };
  static_assert(sizeof(Slot) == 32);

  static bool isShort(llvm::StringRef spelling) { return spelling.size() <= sizeof(Head); }
  static uint32_t hashOf(const Head &head, llvm::StringRef spelling) {
    const uint64_t hash = mix(head.low, head.high);
    return static_cast<uint32_t>(isShort(spelling) ? hash : hashTail(hash, spelling));
  }
  /// The upper half of a product depends on all bits of its factors, the lower half, which chooses
  /// the slot, does not.
  static uint64_t mix(uint64_t low, uint64_t high) {
    constexpr uint64_t multiplier = 0x9E3779B97F4A7C15;
    const uint64_t hash = (high * multiplier ^ low) * multiplier;
    return (hash ^ hash >> 32) * multiplier >> 32;
  }
  static uint64_t hashTail(uint64_t hash, llvm::StringRef spelling);
  bool holds(const Slot &slot, const Head &head, llvm::StringRef spelling) const {
    return slot.head == head &&
           (slot.longSpelling ? longSpellings[slot.longSpelling - 1] == spelling
                              : isShort(spelling));
  }
  WordLookup find(const Head &head, llvm::StringRef spelling, uint32_t hash);
  WordLookup enter(const Head &head, llvm::StringRef spelling, uint32_t hash);
  Slot &freeSlot(uint32_t hash);
  void grow();

  std::unique_ptr<Slot[]> slots;
  std::vector<llvm::StringRef> longSpellings;
  uint32_t mask;
  uint32_t used = 0;
  bool hasOsvsWords;
};

} // namespace tarka

#endif // TARKA_PARSE_KEYWORDS_H
