//===- SourceLines.cpp - the text of source lines -------------------------===//

#include "SourceLines.h"
#include "AST/Node.h"
#include "Parse/Encoding.h"
#include "Parse/SuppliedText.h"
#include "llvm/Support/Error.h"
#include "llvm/Support/FileSystem.h"
#include <algorithm>

namespace tarka {

/// The contents of the file; null when there is none. A copybook that an option supplies is not a
/// file, but has a text.
std::unique_ptr<llvm::MemoryBuffer> SourceLines::open(const std::string &name) const {
  llvm::StringRef supplied = name;
  if (supplied.consume_front("<supplied>/")) {
    const SuppliedCopybook *copybook = findSuppliedCopybook(supplied);
    return copybook ? llvm::MemoryBuffer::getMemBuffer(copybook->text) : nullptr;
  }
  // A pipe has been read, and opening it again might wait for ever.
  if (!options.fileSystem && !llvm::sys::fs::is_regular_file(name))
    return nullptr;
  auto buffer = options.fileSystem ? options.fileSystem->getBufferForFile(name)
                                   : llvm::MemoryBuffer::getFile(name);
  if (!buffer)
    return nullptr;
  if (options.encoding.empty())
    return std::move(*buffer);
  return llvm::MemoryBuffer::getMemBufferCopy(
      decodeText((*buffer)->getBuffer(), options.encoding).text);
}

SourceLines::File &SourceLines::read(unsigned number) {
  std::unique_ptr<File> &file = files[number];
  if (file)
    return *file;
  file = std::make_unique<File>();
  file->contents = open(fileNameOf(number));
  if (file->contents) {
    file->text = file->contents->getBuffer();
    file->text.consume_front("\xEF\xBB\xBF");
  }
  return *file;
}

/// Whether \p word is in \p text. It is looked for by its last character: that of a marker is a
/// colon, which is rare in COBOL text, and memchr() is fast.
static bool containsWord(llvm::StringRef text, llvm::StringRef word) {
  const std::size_t before = word.size() - 1;
  for (std::size_t at = text.find(word.back(), before); at != llvm::StringRef::npos;
       at = text.find(word.back(), at + 1))
    if (text.substr(at - before).starts_with(word))
      return true;
  return false;
}

bool SourceLines::contains(unsigned number, llvm::StringRef word) {
  const std::string &name = fileNameOf(number);
  const bool isPlain = !options.fileSystem && options.encoding.empty();
  if (!isPlain || files.contains(number) || !llvm::sys::fs::is_regular_file(name))
    return containsWord(textOf(number), word);
  llvm::Expected<llvm::sys::fs::file_t> opened = llvm::sys::fs::openNativeFileForRead(name);
  if (!opened) {
    llvm::consumeError(opened.takeError());
    return false;
  }
  // Blocks overlap by what may be the beginning of the word.
  std::string buffer(1 << 16, '\0');
  std::size_t kept = 0;
  bool isFound = false;
  while (!isFound) {
    llvm::Expected<std::size_t> got = llvm::sys::fs::readNativeFile(
        *opened, llvm::MutableArrayRef(buffer.data() + kept, buffer.size() - kept));
    if (!got)
      llvm::consumeError(got.takeError());
    else if (*got > 0) {
      const llvm::StringRef block(buffer.data(), kept + *got);
      isFound = containsWord(block, word);
      const llvm::StringRef tail = block.take_back(word.size() - 1);
      kept = tail.size();
      std::copy(tail.begin(), tail.end(), buffer.begin());
      continue;
    }
    break;
  }
  // It was only read: that it cannot be closed changes nothing.
  llvm::consumeError(llvm::errorCodeToError(llvm::sys::fs::closeFile(*opened)));
  return isFound;
}

/// Lines end with LF, CR or CR LF, as the front end reads them.
llvm::StringRef SourceLines::line(unsigned number, unsigned lineNumber) {
  File &file = read(number);
  if (file.starts.empty())
    for (std::size_t start = 0; start < file.text.size();) {
      file.starts.push_back(start);
      start = file.text.find_first_of("\r\n", start);
      if (start != llvm::StringRef::npos)
        start += file.text.substr(start).starts_with("\r\n") ? 2 : 1;
    }
  if (lineNumber == 0 || lineNumber > file.starts.size())
    return "";
  return file.text.substr(file.starts[lineNumber - 1]).take_until([](char c) {
    return c == '\n' || c == '\r';
  });
}

} // namespace tarka
