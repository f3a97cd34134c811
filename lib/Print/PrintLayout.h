//===- PrintLayout.h - records as a table and as JSON -----------*- C++ -*-===//
//
// Prints the layout in storage of the records and independent items of a
// compilation, after its checks. docs/commands/layout.md and docs/json.md describe
// the forms.
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
/// One object; subordinate entries are in the object of their entry.
void printLayoutJson(llvm::raw_ostream &os, const Program &program, const LayoutView &view = {});

/// The message for a record \p name that the compilation does not have: where the name is used
/// otherwise, or which names there are. Empty when there is such a record.
std::optional<std::string> explainMissingRecord(const Program &program, llvm::StringRef name);

} // namespace tarka

#endif // TARKA_TOOLS_PRINTLAYOUT_H
