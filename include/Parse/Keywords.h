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
  KF_ContextSensitive = 1,    ///< a user word except where the syntax asks for the keyword
  KF_OsvsOnly = 2,            ///< a keyword of OS/VS COBOL only, otherwise a user word
  KF_Verb = 4,                ///< begins a statement
  KF_FigurativeConstant = 8,  ///< ZERO, SPACES, ALL ...
  KF_SpecialRegister = 16,    ///< RETURN-CODE, TALLY ...
  KF_ScopeTerminator = 32,    ///< END-IF ...
  KF_Header = 64,             ///< a word that begins a division, section or paragraph header
  KF_CommentParagraph = 128,  ///< AUTHOR ...: what follows its period is a comment-entry
  KF_CompilerDirecting = 256, ///< COPY, REPLACE, EJECT ...
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

/// The words that a compilation has met. Words that differ only in case are one.
class WordTable {
public:
  /// A table in which words are keywords, those of OS/VS COBOL only when \p osvs.
  explicit WordTable(bool osvs);
  ~WordTable();
  WordTable(const WordTable &) = delete;
  WordTable &operator=(const WordTable &) = delete;

  /// Finds \p spelling, which is entered when it is not in the table yet.
  WordLookup lookup(llvm::StringRef spelling);

private:
  static constexpr std::size_t shortText = 16;

  /// Holds a short text itself, so that looking one up touches one cache line only.
  struct Slot {
    const std::string *interned = nullptr;
    uint32_t hash = 0;
    uint16_t size = 0; ///< 0 for a text that is not short
    Keyword keyword = Keyword::None;
    char text[shortText];
  };

  Slot &enter(llvm::StringRef spelling, uint32_t hash);
  Slot &freeSlot(uint32_t hash);
  void grow();

  std::unique_ptr<Slot[]> slots;
  uint32_t mask;
  uint32_t used = 0;
  bool hasOsvsWords;
};

} // namespace tarka

#endif // TARKA_PARSE_KEYWORDS_H
