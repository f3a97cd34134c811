//===- SourceExcerpts.cpp - pieces of the source, one line each -----------===//

#include "Print/SourceExcerpts.h"
#include "Parse/SourceFile.h"
#include "Report/Utf8.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/JSON.h"

namespace tarka {

namespace {

// Fixed form: the indicator stands in column 7, the text from column 8 to 72.
constexpr std::size_t indicatorColumn = 7;
constexpr std::size_t lastTextColumn = 72;

/// Appends \p text to \p line, a run of spaces outside of literals as one space; stops at a
/// comment.
void appendSqueezed(std::string &line, llvm::StringRef text) {
  char quote = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (!quote && text.substr(at).starts_with("*>"))
      return;
    if (quote ? c == quote : c == '"' || c == '\'')
      quote = quote ? 0 : c;
    if (quote || !llvm::isSpace(c))
      line += llvm::isPrint(c) || (c & 0x80) ? c : ' ';
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
  }
}

} // namespace

const SourceExcerpts::File &SourceExcerpts::read(unsigned number) {
  std::unique_ptr<File> &file = files[number];
  if (file)
    return *file;
  file = std::make_unique<File>();
  auto buffer = llvm::MemoryBuffer::getFile(fileNameOf(number));
  if (!buffer)
    return *file;
  file->contents = std::move(*buffer);
  if (!options.encoding.empty())
    file->contents = llvm::MemoryBuffer::getMemBufferCopy(
        decodeText(file->contents->getBuffer(), options.encoding).text);
  llvm::StringRef rest = file->contents->getBuffer();
  rest.consume_front("\xEF\xBB\xBF");
  file->isFixed = (options.format == SourceFormat::Auto ? detectSourceFormat(rest)
                                                        : options.format) == SourceFormat::Fixed;
  while (!rest.empty()) {
    auto [line, tail] = rest.split('\n');
    file->lines.push_back(line.rtrim('\r'));
    rest = tail;
  }
  return *file;
}

std::string SourceExcerpts::excerpt(const SourceRange &range, std::size_t width) {
  std::string result;
  const File &file = read(range.file);
  for (unsigned number = range.beginLine; number <= range.endLine; ++number) {
    if (number == 0 || number > file.lines.size() || result.size() > width)
      break;
    llvm::StringRef line = file.lines[number - 1];
    const bool isFirst = number == range.beginLine;
    if (number == range.endLine)
      line = line.take_front(range.endColumn);
    if (file.isFixed)
      line = line.take_front(lastTextColumn);
    if (file.isFixed && !isFirst) {
      const char indicator = line.size() < indicatorColumn ? ' ' : line[indicatorColumn - 1];
      if (indicator == '*' || indicator == '/')
        continue;
      line = line.drop_front(std::min<std::size_t>(line.size(), indicatorColumn));
    }
    if (isFirst)
      line = line.drop_front(std::min<std::size_t>(line.size(), range.beginColumn - 1));
    else
      result += ' ';
    appendSqueezed(result, line.trim());
  }
  llvm::StringRef text = llvm::StringRef(result).trim();
  std::string shown =
      text.size() <= width ? text.str() : (text.take_front(width - 3) + "...").str();
  return toUtf8(shown);
}

} // namespace tarka
