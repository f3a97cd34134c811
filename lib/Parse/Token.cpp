//===- Token.cpp - one word, literal or mark of the source ----------------===//

#include "Parse/Token.h"
#include "llvm/ADT/Twine.h"
#include "llvm/Support/ErrorHandling.h"

namespace tarka {

llvm::StringRef describe(TokenKind kind) {
  switch (kind) {
  case TokenKind::EndOfFile:
    return "the end of the file";
  case TokenKind::Word:
    return "a word";
  case TokenKind::IntegerLiteral:
    return "an integer";
  case TokenKind::NumericLiteral:
    return "a numeric literal";
  case TokenKind::AlphanumericLiteral:
    return "a literal";
  case TokenKind::PictureString:
    return "a picture character-string";
  case TokenKind::Period:
    return "a period";
  case TokenKind::LParen:
    return "'('";
  case TokenKind::RParen:
    return "')'";
  case TokenKind::Colon:
    return "':'";
  case TokenKind::Plus:
    return "'+'";
  case TokenKind::Minus:
    return "'-'";
  case TokenKind::Star:
    return "'*'";
  case TokenKind::Slash:
    return "'/'";
  case TokenKind::Power:
    return "'**'";
  case TokenKind::Equal:
    return "'='";
  case TokenKind::Less:
    return "'<'";
  case TokenKind::Greater:
    return "'>'";
  case TokenKind::LessEqual:
    return "'<='";
  case TokenKind::GreaterEqual:
    return "'>='";
  case TokenKind::NotEqual:
    return "'<>'";
  case TokenKind::Ampersand:
    return "'&'";
  case TokenKind::Comma:
    return "','";
  case TokenKind::PseudoText:
    return "'=='";
  case TokenKind::EmbeddedText:
    return "embedded text";
  case TokenKind::Other:
    return "a character";
  }
  llvm_unreachable("not a kind of token");
}

std::string describe(const Token &token) {
  if (token.is(TokenKind::EndOfFile))
    return "the end of the file";
  if (token.is(TokenKind::Period))
    return "a period";
  // The minus of A- B.
  if (token.is(TokenKind::Minus) && !token.isPrecededBySpace() && !token.isFirstOnLine() &&
      !token.isJoinedToNext())
    return "a hyphen at the end of a word";
  // A token of a line of a megabyte is shown by its beginning.
  constexpr std::size_t shown = 60;
  std::string text = ("'" + token.spelling.take_front(shown)).str();
  if (token.spelling.size() > shown)
    text += "...";
  return text + "'";
}

} // namespace tarka
