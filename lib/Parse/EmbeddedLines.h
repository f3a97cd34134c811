//===- EmbeddedLines.h - where the text of a block stands -------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_EMBEDDEDLINES_H
#define TARKA_LIB_PARSE_EMBEDDEDLINES_H

#include "AST/Node.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/STLExtras.h"
#include <cstddef>
#include <cstdint>

namespace tarka {

/// A run of characters of an embedded block that stand side by side in the source.
struct EmbeddedRun {
  std::uint32_t offset; ///< of its first character in the text of the block
  unsigned line;
  unsigned column;
};

/// The places of the characters of one embedded block. Its text is put together of the lines of the
/// source, without sequence numbers, comments and what else is not program text.
class EmbeddedLines {
public:
  /// \p text is the whole text; \p allRuns are in the order of their offsets, which begin with 0,
  /// and stay in memory.
  EmbeddedLines(llvm::StringRef text, unsigned fileNumber, llvm::ArrayRef<EmbeddedRun> allRuns)
      : begin(text.data()), file(fileNumber), runs(allRuns) {}

  /// The place of \p part, a piece of the text that is not empty.
  SourceRange rangeOf(llvm::StringRef part) const {
    const auto first = static_cast<std::uint32_t>(part.data() - begin);
    const auto last = static_cast<std::uint32_t>(first + part.size() - 1);
    const EmbeddedRun &start = runOf(first);
    const EmbeddedRun &end = runOf(last);
    return {file, start.line, start.column + (first - start.offset), end.line,
            end.column + (last - end.offset)};
  }

private:
  const EmbeddedRun &runOf(std::uint32_t offset) const {
    return *std::prev(llvm::upper_bound(
        runs, offset, [](std::uint32_t at, const EmbeddedRun &run) { return at < run.offset; }));
  }

  const char *begin;
  unsigned file;
  llvm::ArrayRef<EmbeddedRun> runs;
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_EMBEDDEDLINES_H
