//===- LineWords.cpp - the words of source lines --------------------------===//

#include "lsp/features/LineWords.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka::lsp {

namespace {

/// How many lines before the place are looked at.
constexpr unsigned maxLines = 60;

bool isWordCharacter(char c) {
  return llvm::isAlnum(c) || c == '-' || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

/// The program text of a line with the offset that it begins at: without sequence number,
/// indicator, and what is behind column 72 in fixed form. Empty for a comment line.
std::pair<llvm::StringRef, unsigned> programText(llvm::StringRef line, bool isFixedForm) {
  constexpr std::size_t indicator = 6, textBegin = 7, textEnd = 72;
  if (!isFixedForm)
    return {line, 0};
  if (line.size() <= textBegin || line[indicator] == '*' || line[indicator] == '/')
    return {"", 0};
  return {line.take_front(textEnd).drop_front(textBegin), textBegin};
}

/// The length of the word that \p text begins with, and its kind.
std::pair<std::size_t, LineWord::Kind> measureWord(llvm::StringRef text) {
  std::size_t size = text.take_while(isWordCharacter).size();
  const llvm::StringRef rest = text.drop_front(size);
  if (!rest.empty() && (rest[0] == '\'' || rest[0] == '"') && size <= 2) {
    // A doubled quotation mark is one of the literal.
    for (std::size_t end = size + 1; (end = text.find(rest[0], end)) != llvm::StringRef::npos;
         end += 2)
      if (end + 1 >= text.size() || text[end + 1] != rest[0])
        return {end + 1, LineWord::Literal};
    return {text.size(), LineWord::OpenLiteral};
  }
  if (size) {
    // The point of a number.
    if (llvm::isDigit(text[size - 1]) && rest.size() > 1 && rest[0] == '.' &&
        llvm::isDigit(rest[1]))
      size += 1 + rest.drop_front().take_while(llvm::isDigit).size();
    return {size, LineWord::Word};
  }
  if (text.starts_with("==") || text.starts_with("**"))
    return {2, LineWord::Separator};
  const bool isPeriod = text[0] == '.' && (text.size() == 1 || llvm::isSpace(text[1]));
  return {1, isPeriod ? LineWord::Period : LineWord::Separator};
}

} // namespace

bool LineWord::isOneOf(std::initializer_list<llvm::StringRef> words) const {
  return llvm::any_of(words, [&](llvm::StringRef word) { return is(word); });
}

bool LineWord::isNumber() const {
  return kind == Word && llvm::all_of(text, [](char c) { return llvm::isDigit(c) || c == '.'; });
}

Keyword LineWord::keyword() const {
  static WordTable words(/*osvs=*/false);
  return kind == Word ? words.lookup(text).keyword : Keyword::None;
}

llvm::SmallVector<LineWord, 16> wordsOfLine(Snapshot &snapshot, unsigned file, unsigned line,
                                            unsigned column) {
  llvm::StringRef whole = snapshot.presentLineOf(file, line);
  if (column != ~0u)
    whole = sliceColumns(whole, 1, column - 1);
  const auto [text, begin] = programText(whole, snapshot.isFixedForm(file));
  llvm::SmallVector<LineWord, 16> words;
  for (std::size_t at = 0; at < text.size();) {
    const llvm::StringRef rest = text.drop_front(at);
    if (rest.starts_with("*>"))
      break;
    if (llvm::isSpace(rest[0])) {
      ++at;
      continue;
    }
    const auto [size, kind] = measureWord(rest);
    words.push_back({rest.take_front(size), kind, line, begin + static_cast<unsigned>(at)});
    at += size;
  }
  return words;
}

LineWord wordAt(Snapshot &snapshot, const SourcePoint &point) {
  const llvm::StringRef line = snapshot.presentLineOf(point.file, point.line);
  const std::size_t offset = sliceColumns(line, 1, point.column - 1).size();
  LineWord found;
  for (const LineWord &word : wordsOfLine(snapshot, point.file, point.line))
    if (word.offset <= offset && offset <= word.offset + word.text.size() &&
        (found.text.empty() || word.kind == LineWord::Word || word.kind == LineWord::Literal))
      found = word;
  return found;
}

TextBefore textBefore(Snapshot &snapshot, const SourcePoint &point) {
  TextBefore before;
  const unsigned first = point.line > maxLines ? point.line - maxLines : 1;
  for (unsigned line = first; line <= point.line; ++line)
    before.words.append(
        wordsOfLine(snapshot, point.file, line, line == point.line ? point.column : ~0u));
  if (before.words.empty())
    return before;
  const LineWord last = before.words.back();
  const llvm::StringRef typed =
      sliceColumns(snapshot.presentLineOf(point.file, point.line), 1, point.column - 1);
  if (last.line == point.line && last.kind == LineWord::Word &&
      last.offset + last.text.size() == typed.size()) {
    before.prefix = last.text;
    before.words.pop_back();
  }
  return before;
}

} // namespace tarka::lsp
