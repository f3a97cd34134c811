//===- SqlLexer.cpp - the tokens of SQL -----------------------------------===//

#include "Parse/Embedded/SqlLexer.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

namespace {

/// National characters belong to ordinary identifiers, and so do the letters of other alphabets.
bool isSqlWordCharacter(char c) {
  return llvm::isAlnum(c) || c == '_' || c == '#' || c == '@' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

/// Where the quoted text that begins at \p begin ends; a doubled quote is one of its characters.
std::size_t endOfQuoted(llvm::StringRef text, std::size_t begin) {
  const char quote = text[begin];
  for (std::size_t at = begin + 1; at < text.size(); ++at)
    if (text[at] == quote) {
      if (at + 1 == text.size() || text[at + 1] != quote)
        return at + 1;
      ++at;
    }
  return text.size();
}

/// Where the number that begins at \p begin ends: digits, a decimal point, an exponent.
std::size_t endOfNumber(llvm::StringRef text, std::size_t begin) {
  std::size_t at = begin;
  while (at < text.size() && (llvm::isDigit(text[at]) || text[at] == '.'))
    ++at;
  if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
    const std::size_t digits =
        at + 1 < text.size() && (text[at + 1] == '+' || text[at + 1] == '-') ? at + 2 : at + 1;
    if (digits < text.size() && llvm::isDigit(text[digits]))
      for (at = digits; at < text.size() && llvm::isDigit(text[at]);)
        ++at;
  }
  return at;
}

} // namespace

llvm::SmallVector<SqlToken, 64> readSqlTokens(llvm::StringRef text) {
  llvm::SmallVector<SqlToken, 64> tokens;
  auto add = [&](SqlTokenKind kind, std::size_t begin, std::size_t end) {
    tokens.push_back({kind, text.slice(begin, end)});
    return end;
  };
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    llvm::StringRef rest = text.substr(at);
    if (llvm::isSpace(c) || c == '\0') {
      ++at;
    } else if (rest.starts_with("--")) {
      at = std::min(text.size(), text.find('\n', at));
    } else if (rest.starts_with("/*")) {
      const std::size_t end = text.find("*/", at + 2);
      at = end == llvm::StringRef::npos ? text.size() : end + 2;
    } else if (c == '\'' || c == '"') {
      at = add(SqlTokenKind::Quoted, at, endOfQuoted(text, at));
    } else if (llvm::isDigit(c) || (c == '.' && rest.size() > 1 && llvm::isDigit(rest[1]))) {
      at = add(SqlTokenKind::Number, at, endOfNumber(text, at));
    } else if (isSqlWordCharacter(c)) {
      const std::size_t size = rest.take_while(isSqlWordCharacter).size();
      // A prefix of a string: X'0F', GX'...', N'...'.
      if (size <= 2 && rest.substr(size).starts_with("'"))
        at = add(SqlTokenKind::Quoted, at, endOfQuoted(text, at + size));
      else
        at = add(SqlTokenKind::Word, at, at + size);
    } else {
      at = add(c == ':' ? SqlTokenKind::Colon : SqlTokenKind::Mark, at, at + 1);
    }
  }
  tokens.push_back({SqlTokenKind::End, text.substr(text.size())});
  return tokens;
}

} // namespace tarka
