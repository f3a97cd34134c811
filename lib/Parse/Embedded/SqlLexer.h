//===- SqlLexer.h - the tokens of SQL ---------------------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_SQLLEXER_H
#define TARKA_LIB_PARSE_SQLLEXER_H

#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringRef.h"
#include <cstdint>

namespace tarka {

enum class SqlTokenKind : std::uint8_t {
  End,
  Word,   ///< an ordinary identifier or a keyword
  Quoted, ///< a string or a delimited identifier
  Number,
  Colon, ///< before a host variable
  Mark,  ///< an operator or separator of one character
};

struct SqlToken {
  SqlTokenKind kind = SqlTokenKind::End;
  /// As written, a part of the text of the block.
  llvm::StringRef text;

  bool is(llvm::StringRef word) const {
    return kind == SqlTokenKind::Word && text.equals_insensitive(word);
  }
  template <typename... Words> bool isOneOf(Words... words) const { return (is(words) || ...); }
  bool isMark(char mark) const { return kind == SqlTokenKind::Mark && text.front() == mark; }
  bool isName() const { return kind == SqlTokenKind::Word || kind == SqlTokenKind::Quoted; }
  /// Whether nothing stands between this token and \p next.
  bool touches(const SqlToken &next) const { return text.end() == next.text.begin(); }
};

/// The tokens of \p text without its comments, and an End behind them.
llvm::SmallVector<SqlToken, 64> readSqlTokens(llvm::StringRef text);

} // namespace tarka

#endif // TARKA_LIB_PARSE_SQLLEXER_H
