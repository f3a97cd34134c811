//===- SourceLines.h - the text of source lines -----------------*- C++ -*-===//
//
// Reads the lines again that a report shows.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_SOURCELINES_H
#define TARKA_TOOLS_SOURCELINES_H

#include "Parse/ParseOptions.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/Support/MemoryBuffer.h"
#include <memory>
#include <string>
#include <vector>

namespace tarka {

class SourceLines {
public:
  /// \p parseOptions say where the files are and how they are read.
  explicit SourceLines(const ParseOptions &parseOptions) : options(parseOptions) {}

  /// The whole text of a file of the compilation, as UTF-8 without a byte-order mark; empty when
  /// it cannot be read again.
  llvm::StringRef textOf(unsigned file) { return read(file).text; }

  /// Whether \p word stands in the text. A file that was not asked for before is not kept in
  /// memory.
  bool contains(unsigned file, llvm::StringRef word);

  /// Line \p number, from 1, without its end; empty when there is none. It stays valid as long as
  /// this object.
  llvm::StringRef line(unsigned file, unsigned number);

private:
  struct File {
    std::unique_ptr<llvm::MemoryBuffer> contents;
    llvm::StringRef text;
    /// Where the lines begin; empty until a line is asked for.
    std::vector<std::size_t> starts;
  };
  File &read(unsigned file);
  std::unique_ptr<llvm::MemoryBuffer> open(const std::string &name) const;

  const ParseOptions &options;
  llvm::DenseMap<unsigned, std::unique_ptr<File>> files;
};

} // namespace tarka

#endif // TARKA_TOOLS_SOURCELINES_H
