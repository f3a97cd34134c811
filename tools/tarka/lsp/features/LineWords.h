//===- LineWords.h - the words of source lines ------------------*- C++ -*-===//
//
// The words of single lines, for requests about text that is being typed, of which
// the front end may have made nothing. Comments and the margins of fixed form are
// left out; a literal ends with its line. Points and lines are those of the text as
// it is in the editor: Snapshot::presentPointOf().
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_FEATURES_LINEWORDS_H
#define TARKA_TOOLS_LSP_FEATURES_LINEWORDS_H

#include "Parse/Keywords.h"
#include "lsp/Snapshot.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringRef.h"
#include <string>

namespace tarka::lsp {

/// A word as it is written.
struct LineWord {
  enum Kind : std::uint8_t {
    Word,        ///< a name, a keyword or a number
    Literal,     ///< with its quotation marks and what is before them
    OpenLiteral, ///< one that the line does not end
    Period,      ///< that of a sentence or entry
    Separator,   ///< another character, or "==" and "**"
  };

  llvm::StringRef text; ///< part of the text of the file
  Kind kind = Word;
  unsigned line = 0;
  unsigned offset = 0; ///< in bytes, from the beginning of the line

  /// Whether it is \p word, which is in upper case.
  bool is(llvm::StringRef word) const { return text.equals_insensitive(word); }
  bool isOneOf(std::initializer_list<llvm::StringRef> words) const;
  bool isNumber() const;
  /// The keyword that it is; Keyword::None for any other word.
  Keyword keyword() const;
  std::string upper() const { return text.upper(); }
};

/// The words of a line; those before \p column only when it is given.
llvm::SmallVector<LineWord, 16> wordsOfLine(Snapshot &snapshot, unsigned file, unsigned line,
                                            unsigned column = ~0u);

/// The word that \p point is in or directly behind; one with an empty text when there is none.
LineWord wordAt(Snapshot &snapshot, const SourcePoint &point);

/// What stands before a place.
struct TextBefore {
  /// The beginning of the word that is being written.
  llvm::StringRef prefix;
  /// The words before it, those of the line before first.
  llvm::SmallVector<LineWord, 32> words;

  /// The last word, or the one that is \p number words before it; one with an empty text when there
  /// are no more.
  LineWord last(std::size_t number = 0) const {
    return number < words.size() ? words[words.size() - 1 - number] : LineWord();
  }
};

/// The words before \p point, those of as many lines as the longest statement has.
TextBefore textBefore(Snapshot &snapshot, const SourcePoint &point);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_LINEWORDS_H
