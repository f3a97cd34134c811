//===- StreamTest.h - token streams over files in memory --------*- C++ -*-===//

#ifndef TARKA_UNITTESTS_PARSE_STREAMTEST_H
#define TARKA_UNITTESTS_PARSE_STREAMTEST_H

#include "Parse/Preprocessor.h"
#include "llvm/Support/FormatVariadic.h"
#include "llvm/Support/VirtualFileSystem.h"
#include "gtest/gtest.h"
#include <string>
#include <vector>

namespace tarka {

/// A file system in memory and the stream that reads from it.
class StreamTest : public testing::Test {
protected:
  StreamTest() : memory(new llvm::vfs::InMemoryFileSystem) {
    options.fileSystem = memory;
    options.format = SourceFormat::Fixed;
  }

  void addFile(llvm::StringRef name, llvm::StringRef text) {
    memory->addFile(name, 0, llvm::MemoryBuffer::getMemBufferCopy(text));
  }

  /// Begins to read \p text as the file MAIN.CBL in the current directory.
  TokenStream &open(llvm::StringRef text) {
    files = std::make_unique<SourceManager>(options);
    const SourceFile &main = files->addText("MAIN.CBL", text);
    stream = std::make_unique<TokenStream>(main, *files, diagnostics);
    return *stream;
  }

  /// All tokens of \p text, each as its text, with one space between them.
  std::string tokens(llvm::StringRef text) {
    open(text);
    return rest();
  }
  std::string rest() {
    std::string all;
    while (!stream->atEnd()) {
      if (!all.empty())
        all += ' ';
      all += stream->next().text;
    }
    return all;
  }

  /// The place of \p token as line:column-line:column.
  static std::string placeOf(const Token &token) { return show(token.place); }
  static std::string show(const SourceRange &place) {
    return llvm::formatv("{0}:{1}-{2}:{3}", place.beginLine, place.beginColumn, place.endLine,
                         place.endColumn);
  }

  /// What was reported: number and line of each, with one space between them.
  std::string reported() const {
    std::string all;
    for (const DiagnosticEntry &entry : diagnostics.getEntries())
      all += llvm::formatv("{0}{1}@{2}", all.empty() ? "" : " ", entry.getNumber(),
                           entry.place.beginLine);
    return all;
  }

  llvm::IntrusiveRefCntPtr<llvm::vfs::InMemoryFileSystem> memory;
  ParseOptions options;
  FrontEndDiagnostics diagnostics;
  std::unique_ptr<SourceManager> files;
  std::unique_ptr<TokenStream> stream;
};

} // namespace tarka

#endif // TARKA_UNITTESTS_PARSE_STREAMTEST_H
