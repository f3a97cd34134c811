//===- Scanner.cpp - from characters to tokens ----------------------------===//

#include "Parse/Scanner.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include <algorithm>
#include <cstring>

namespace tarka {

/// The letters that make what follows a literal of a special kind.
static bool isLiteralPrefix(llvm::StringRef word) {
  static constexpr llvm::StringLiteral prefixes[] = {"X", "N",  "NX", "G", "Z",
                                                     "U", "UX", "B",  "BX"};
  return word.size() <= 2 && llvm::any_of(prefixes, [word](llvm::StringRef prefix) {
           return word.equals_insensitive(prefix);
         });
}

llvm::StringRef pictureIn(llvm::StringRef text) {
  if (!text.empty() && llvm::StringRef(".,;").contains(text.back()))
    text = text.drop_back();
  return text;
}

/// Makes the next token, whatever it is; false at the end of the text.
bool Scanner::scanAny(Token &token) {
  for (; cursor < textEnd; ++cursor) {
    const char *begin = cursor;
    switch (classOf(*cursor)) {
    case CharacterClass::Blank:
      token.flags |= Token::PrecededBySpace;
      while (cursor + 1 < textEnd && cursor[1] == ' ')
        ++cursor;
      continue;

    case CharacterClass::Separator:
      if (*cursor == decimalPoint && beginsFraction(token.isPrecededBySpace())) {
        scanNumber(token, begin);
        return true;
      }
      if (keepsCommas && cursor + 1 < textEnd && !isBlank(cursor[1])) {
        ++cursor;
        finish(token, TokenKind::Comma, begin);
        return true;
      }
      token.flags |= Token::PrecededBySpace | Token::AfterComma;
      continue;

    case CharacterClass::Letter:
      scanWord(token, begin);
      return true;

    case CharacterClass::Digit:
      scanNumber(token, begin);
      return true;

    case CharacterClass::Quote:
      scanLiteral(token, begin);
      return true;

    case CharacterClass::Mark:
      // A floating comment takes the rest of the line.
      if (*cursor == '*' && cursor + 1 < textEnd && cursor[1] == '>') {
        cursor = textEnd;
        return false;
      }
      if (*cursor == decimalPoint && beginsFraction(token.isPrecededBySpace()))
        scanNumber(token, begin);
      else if (skipTag() != cursor)
        scanWord(token, begin);
      else
        scanMark(token, begin);
      return true;

    case CharacterClass::Unknown:
    case CharacterClass::NotText:
      ++cursor;
      finish(token, TokenKind::Other, begin);
      return true;
    }
  }
  return false;
}

/// Whether the decimal point at the cursor begins a number: a digit follows it, and it does not
/// end something before it.
bool Scanner::beginsFraction(bool afterSpace) const {
  if (cursor + 1 >= textEnd || !isDigitCharacter(cursor[1]))
    return false;
  return afterSpace ||
         (previous != TokenKind::Word && previous != TokenKind::RParen &&
          previous != TokenKind::IntegerLiteral && previous != TokenKind::NumericLiteral &&
          previous != TokenKind::AlphanumericLiteral);
}

/// The end of the tag that begins at the cursor, such as :PRE:, for which COPY REPLACING puts a
/// part of a word; the cursor where there is none, or tags are not read.
const char *Scanner::skipTag() const {
  if (!readsTags || keepsCommas || cursor == textEnd || *cursor != ':')
    return cursor;
  const char *end = std::find_if_not(cursor + 1, textEnd, isWordCharacter);
  return end > cursor + 1 && end < textEnd && *end == ':' ? end + 1 : cursor;
}

/// The first character from \p at on that no word has, or the end of the text.
const char *Scanner::skipWord(const char *at) const {
  for (; at < wideEnd; at += TextChunk::size) {
    const auto count = TextChunk::countFirst(TextChunk(at).findWordCharacters());
    if (count < TextChunk::size)
      return std::min(at + count, textEnd);
  }
  while (at < textEnd && isWordCharacter(*at))
    ++at;
  return std::min(at, textEnd);
}

void Scanner::scanWord(Token &token, const char *begin) {
  const char *tagEnd = cursor;
  do {
    cursor = skipWord(tagEnd);
    tagEnd = skipTag();
  } while (tagEnd != cursor);
  if (cursor < textEnd && classOf(*cursor) == CharacterClass::Quote &&
      isLiteralPrefix(llvm::StringRef(begin, cursor - begin))) {
    scanLiteral(token, begin);
    return;
  }
  // A hyphen joins two parts of a word; it does not end one.
  while (cursor[-1] == '-')
    --cursor;
  finishWord(token, begin, words.lookup(llvm::StringRef(begin, cursor - begin)));
}

/// A number, or a word that begins with digits.
void Scanner::scanNumber(Token &token, const char *begin) {
  auto skipDigits = [this] {
    while (cursor < textEnd && isDigitCharacter(*cursor))
      ++cursor;
  };
  auto isDigitAt = [this](const char *at) { return at < textEnd && isDigitCharacter(*at); };

  skipDigits();
  if (cursor < textEnd && isWordCharacter(*cursor)) {
    const char *after = cursor;
    while (after < textEnd && *after == '-')
      ++after;
    if (after < textEnd && isWordCharacter(*after)) {
      scanWord(token, begin);
      return;
    }
  }
  if (cursor == textEnd || *cursor != decimalPoint || !isDigitAt(cursor + 1)) {
    finish(token, TokenKind::IntegerLiteral, begin);
    return;
  }
  ++cursor;
  skipDigits();
  // The exponent of a floating-point literal.
  if (cursor < textEnd && (*cursor == 'E' || *cursor == 'e')) {
    const char *digits = cursor + 1;
    if (digits < textEnd && (*digits == '+' || *digits == '-'))
      ++digits;
    if (isDigitAt(digits)) {
      cursor = digits;
      skipDigits();
    }
  }
  // What touches the number belongs to it; the checker reports that it is not a number then.
  while (cursor < textEnd && isWordCharacter(*cursor))
    ++cursor;
  while (cursor[-1] == '-')
    --cursor;
  finish(token, TokenKind::NumericLiteral, begin);
}

/// A literal in quotes; its prefix, if it has one, is scanned already. A quote inside is written
/// twice.
void Scanner::scanLiteral(Token &token, const char *begin) {
  char quote = *cursor++;
  literalIsOpen = false;
  for (;;) {
    const void *found = std::memchr(cursor, quote, textEnd - cursor);
    if (!found) {
      cursor = textEnd;
      literalIsOpen = true;
      break;
    }
    cursor = static_cast<const char *>(found) + 1;
    if (cursor == textEnd || *cursor != quote)
      break;
    ++cursor;
  }
  finish(token, TokenKind::AlphanumericLiteral, begin);
}

void Scanner::scanMark(Token &token, const char *begin) {
  char c = *cursor++;
  char following = cursor < textEnd ? *cursor : ' ';
  auto two = [this](TokenKind kind) {
    ++cursor;
    return kind;
  };
  // Whether an equal sign completes < or >. In pseudo-text, "==" after it closes the text.
  auto beforeEqualSign = [&] {
    const char *end = cursor;
    while (end < textEnd && *end == '=')
      ++end;
    return end != cursor && (!keepsCommas || (end - cursor) % 2 != 0);
  };
  TokenKind kind = TokenKind::Other;
  switch (c) {
  case '.':
    kind = TokenKind::Period;
    break;
  case '(':
    kind = TokenKind::LParen;
    break;
  case ')':
    kind = TokenKind::RParen;
    break;
  case ':':
    kind = TokenKind::Colon;
    break;
  case '&':
    kind = TokenKind::Ampersand;
    break;
  case '/':
    kind = TokenKind::Slash;
    break;
  case '+':
  case '-': {
    kind = c == '+' ? TokenKind::Plus : TokenKind::Minus;
    bool isFraction =
        following == decimalPoint && cursor + 1 < textEnd && isDigitCharacter(cursor[1]);
    if (isDigitCharacter(following) || isFraction)
      token.flags |= Token::JoinedToNext;
    break;
  }
  case '*':
    kind = following == '*' ? two(TokenKind::Power) : TokenKind::Star;
    break;
  case '=':
    kind = following == '=' ? two(TokenKind::PseudoText) : TokenKind::Equal;
    break;
  case '<':
    kind = following == '>'    ? two(TokenKind::NotEqual)
           : beforeEqualSign() ? two(TokenKind::LessEqual)
                               : TokenKind::Less;
    break;
  case '>':
    kind = beforeEqualSign() ? two(TokenKind::GreaterEqual) : TokenKind::Greater;
    break;
  default:
    break;
  }
  finish(token, kind, begin);
}

} // namespace tarka
