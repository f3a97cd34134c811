//===- SourceExcerpts.h - pieces of the source, one line each ---*- C++ -*-===//
//
// Reads the text at a place of the source again, to show it.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_SOURCEEXCERPTS_H
#define TARKA_TOOLS_SOURCEEXCERPTS_H

#include "AST/Node.h"
#include "Parse/ParseOptions.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/Support/MemoryBuffer.h"
#include <memory>
#include <string>
#include <vector>

namespace tarka {

class SourceExcerpts {
public:
  /// \p parseOptions say how the files were read.
  explicit SourceExcerpts(const ParseOptions &parseOptions) : options(parseOptions) {}

  /// The text of \p range in one line of UTF-8 without comments, each run of spaces outside of
  /// literals as one; what goes beyond \p width characters is cut off, which dots show. Empty when
  /// there is no such text.
  std::string excerpt(const SourceRange &range, std::size_t width);

private:
  struct File {
    std::unique_ptr<llvm::MemoryBuffer> contents;
    std::vector<llvm::StringRef> lines;
    bool isFixed = false;
  };
  const File &read(unsigned file);

  const ParseOptions &options;
  llvm::DenseMap<unsigned, std::unique_ptr<File>> files;
};

} // namespace tarka

#endif // TARKA_TOOLS_SOURCEEXCERPTS_H
