//===- PrintLayout.h - records as a table and as JSON -----------*- C++ -*-===//
//
// Prints where the bytes of every record and independent item of a compilation
// lie, after its checks. docs/command-line.md and docs/json.md tell what each
// form shows.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_PRINTLAYOUT_H
#define TARKA_TOOLS_PRINTLAYOUT_H

#include "AST/Program.h"
#include <optional>
#include <string>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

/// Which records to print.
struct LayoutView {
  /// Only the records and independent items of this name, whatever its case; all when empty.
  std::string record;
  /// The special registers too.
  bool all = false;
};

/// A table for each section, at most 100 columns wide, and the totals of the sections.
void printLayoutText(llvm::raw_ostream &os, const Program &program, const LayoutView &view = {});
/// One object; what is subordinate to an entry stands in the entry.
void printLayoutJson(llvm::raw_ostream &os, const Program &program, const LayoutView &view = {});

/// What to tell whoever asks for the record \p name when the compilation has none: where the name
/// is used otherwise, or which names there are. Nothing when there is such a record.
std::optional<std::string> explainMissingRecord(const Program &program, llvm::StringRef name);

} // namespace tarka

#endif // TARKA_TOOLS_PRINTLAYOUT_H
