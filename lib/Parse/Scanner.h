//===- Scanner.h - from characters to tokens --------------------*- C++ -*-===//
//
// Makes tokens from the characters of one line. The scanner knows nothing about
// files and lines.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_SCANNER_H
#define TARKA_LIB_PARSE_SCANNER_H

#include "Parse/CharacterTable.h"
#include "Parse/Keywords.h"
#include "Parse/TextChunk.h"
#include "Parse/Token.h"
#include "llvm/Support/Compiler.h"

namespace tarka {

/// Makes tokens of a piece of text. It sets everything in a token but its place.
class Scanner {
public:
  /// Commas that separate nothing are tokens when \p keepsCommas.
  Scanner(WordTable &words, bool keepsCommas) : words(words), keepsCommas(keepsCommas) {}

  /// Begins with [\p begin, \p end). Bytes up to \p readableEnd may be looked at.
  void setText(const char *begin, const char *end, const char *readableEnd) {
    cursor = begin;
    textEnd = end;
    wideEnd = readableEnd - begin > TextChunk::size ? readableEnd - TextChunk::size : begin;
    previous = TokenKind::EndOfFile;
  }
  void setText(llvm::StringRef text) { setText(text.begin(), text.end(), text.end()); }
  void setKeepsCommas(bool on) { keepsCommas = on; }
  /// Takes tags like :PRE: for parts of words, as in a copybook that is read by itself.
  void setReadsTags(bool on) { readsTags = on; }
  void setDecimalPointIsComma(bool on) { decimalPoint = on ? ',' : '.'; }

  /// Makes the next token; false at the end of the text.
  LLVM_ATTRIBUTE_ALWAYS_INLINE bool scan(Token &token) {
    const char *begin = cursor;
    while (begin < textEnd && *begin == ' ')
      ++begin;
    token.flags = begin == cursor ? 0 : Token::PrecededBySpace;
    cursor = begin;
    return scanOrdinaryWord(token, begin) || scanAny(token);
  }

  const char *getCursor() const { return cursor; }
  const char *getEnd() const { return textEnd; }
  void setCursor(const char *at) { cursor = at; }
  /// Whether the literal scanned last had no closing quote.
  bool isLiteralOpen() const { return literalIsOpen; }

private:
  bool scanOrdinaryWord(Token &token, const char *begin);
  bool scanAny(Token &token);
  const char *skipWord(const char *at) const;
  void finish(Token &token, TokenKind kind, const char *begin);
  void finishWord(Token &token, const char *begin, const WordLookup &word);
  void scanWord(Token &token, const char *begin);
  void scanNumber(Token &token, const char *begin);
  void scanLiteral(Token &token, const char *begin);
  void scanMark(Token &token, const char *begin);
  bool beginsFraction(bool afterSpace) const;
  const char *skipTag() const;

  WordTable &words;
  const char *cursor = nullptr;
  const char *textEnd = nullptr;
  /// Before it, sixteen bytes, and one more, can be read.
  const char *wideEnd = nullptr;
  TokenKind previous = TokenKind::EndOfFile;
  char decimalPoint = '.';
  bool keepsCommas;
  bool readsTags = false;
  bool literalIsOpen = false;
};

inline void Scanner::finish(Token &token, TokenKind kind, const char *begin) {
  const llvm::StringRef spelling(begin, cursor - begin);
  token.kind = previous = kind;
  token.keyword = Keyword::None;
  token.interned = nullptr;
  token.spelling = spelling;
  token.text = spelling;
}

/// Finishes \p token, the word from \p begin to the cursor, as \p word.
inline void Scanner::finishWord(Token &token, const char *begin, const WordLookup &word) {
  token.kind = previous = TokenKind::Word;
  token.keyword = word.keyword;
  token.interned = word.interned;
  const llvm::StringRef spelling(begin, cursor - begin);
  token.spelling = spelling;
  token.text = word.isUpperCase ? spelling : llvm::StringRef(*word.interned);
}

/// Makes the word at \p begin if it begins with a letter and ends as most words do. False where the
/// next token may be something else; then nothing is taken.
LLVM_ATTRIBUTE_ALWAYS_INLINE bool Scanner::scanOrdinaryWord(Token &token, const char *begin) {
  if (begin >= wideEnd || classOf(*begin) != CharacterClass::Letter)
    return false;
  const TextChunk chunk(begin);
  const char *end = begin + TextChunk::countFirst(chunk.findWordCharacters());
  WordTable::Head head;
  chunk.storeHead(end - begin, &head);
  if (end - begin == TextChunk::size && (end = skipWord(end)) == textEnd)
    return false;
  // A literal may follow its prefix, a tag may be part of the word, and a hyphen does not end one.
  if (end > textEnd || classOf(*end) == CharacterClass::Quote || (readsTags && *end == ':') ||
      end[-1] == '-')
    return false;
  cursor = end;
  finishWord(token, begin, words.lookup(head, llvm::StringRef(begin, end - begin)));
  return true;
}

} // namespace tarka

#endif // TARKA_LIB_PARSE_SCANNER_H
