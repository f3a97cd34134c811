//===- Token.h - one word, literal or mark of the source --------*- C++ -*-===//
//
// Tokens are small values that point into the source text, which stays in memory
// until the process ends.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_TOKEN_H
#define TARKA_PARSE_TOKEN_H

#include "AST/Node.h"
#include "Parse/Keywords.h"
#include "llvm/ADT/StringRef.h"
#include <cstdint>
#include <string>

namespace tarka {

class EmbeddedLines;

enum class TokenKind : uint8_t {
  EndOfFile,
  Word,                ///< a user word or a keyword
  IntegerLiteral,      ///< digits only: a number, a level number, a numeric procedure-name
  NumericLiteral,      ///< unsigned, with a decimal point or an exponent
  AlphanumericLiteral, ///< any literal in quotes, the text as written with prefix and quotes
  PictureString,       ///< the character-string after PICTURE
  Period,
  LParen,
  RParen,
  Colon,
  Plus,
  Minus,
  Star,
  Slash,
  Power, ///< **
  Equal,
  Less,
  Greater,
  LessEqual,
  GreaterEqual,
  NotEqual, ///< <>
  Ampersand,
  Comma,        ///< only while text is replaced; a parser never sees one
  PseudoText,   ///< ==, which only COPY and REPLACE have a use for
  EmbeddedText, ///< what stands between EXEC xxx and END-EXEC
  Other         ///< a character that COBOL has no use for at its place
};

/// What an error message calls a token of \p kind: "a word", "'('", "the end of the file" ...
llvm::StringRef describe(TokenKind kind);

/// One token. A sign before a number is a token of its own: where the syntax wants a literal, the
/// parser joins Plus or Minus with the number after it when the sign isJoinedToNext().
struct Token {
  enum Flag : uint8_t {
    AreaA = 1,           ///< begins in area A; in free form: is the first token of its line
    PrecededBySpace = 2, ///< white space, a separator or a line's beginning stands before it
    FirstOnLine = 4,     ///< the first token of its line
    FromReplacement = 8, ///< was put there by REPLACE or REPLACING
    JoinedToNext = 16,   ///< the next character is not a space (only for Plus and Minus)
    Continued = 32,      ///< stands on more than one line
    AfterComma = 64,     ///< a separator comma or semicolon stands before it
    FixedForm = 128      ///< stands on a line of fixed form
  };

  /// A word in upper case, interned; the text as written of anything else, put together where it
  /// is continued on another line.
  llvm::StringRef text;
  /// The text as written.
  llvm::StringRef spelling;
  union {
    /// The text of a word at its interned address, null for everything but an EmbeddedText.
    const std::string *interned = nullptr;
    /// Where the characters of an EmbeddedText stand in the source.
    const EmbeddedLines *embedded;
  };
  SourceRange place;
  /// Keyword::None for everything that is not a word, and for user words.
  Keyword keyword = Keyword::None;
  TokenKind kind = TokenKind::EndOfFile;
  uint8_t flags = 0;

  bool is(TokenKind other) const { return kind == other; }
  bool is(Keyword other) const { return keyword == other; }
  template <typename First, typename... Rest> bool isOneOf(First first, Rest... rest) const {
    return (is(first) || ... || is(rest));
  }

  bool has(Flag flag) const { return flags & flag; }
  bool isInAreaA() const { return has(AreaA); }
  bool isPrecededBySpace() const { return has(PrecededBySpace); }
  bool isFirstOnLine() const { return has(FirstOnLine); }
  bool isFromReplacement() const { return has(FromReplacement); }
  bool isJoinedToNext() const { return has(JoinedToNext); }
  bool isAfterComma() const { return has(AfterComma); }
  bool isInFixedForm() const { return has(FixedForm); }

  bool isWord() const { return kind == TokenKind::Word; }
  /// A word that can name something of the programmer's: no keyword, or one that is a keyword
  /// only where the syntax asks for it.
  bool isUserWord() const { return isWord() && !isReserved(keyword); }
  /// A word that begins a statement.
  bool isVerb() const { return tarka::isVerb(keyword); }
  bool isNumber() const {
    return kind == TokenKind::IntegerLiteral || kind == TokenKind::NumericLiteral;
  }
  bool isFigurativeConstant() const { return tarka::isFigurativeConstant(keyword); }

  /// The interned text of a word, as the constructor of Word wants it.
  const std::string *getInternedText() const {
    return isWord() && interned ? interned : &internString(text);
  }
  /// The interned spelling of a word; the same address as the text where the two are equal.
  const std::string *getInternedSpelling() const {
    // Of most words the text is the spelling itself.
    const bool isSame = text.data() == spelling.data() && text.size() == spelling.size();
    return isWord() && interned && isSame ? interned : &internString(spelling);
  }
};

/// How a message shows \p token to a person: its text in quotes, or what it is called.
std::string describe(const Token &token);

static_assert(sizeof(Token) <= 64, "a token is to fit in a cache line");

} // namespace tarka

#endif // TARKA_PARSE_TOKEN_H
