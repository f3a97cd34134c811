//===- JsonVersion.h - the version of the printed JSON ----------*- C++ -*-===//

#ifndef TARKA_PRINT_JSONVERSION_H
#define TARKA_PRINT_JSONVERSION_H

#include "llvm/Support/JSON.h"

namespace tarka {

/// The version of the JSON that graph, flow, layout, tree and expansion are printed in; the first
/// attribute of each document. It is raised when a field is removed or changes its meaning, not
/// when one is added.
inline constexpr int printedJsonVersion = 1;

/// Writes the attribute into the outermost object of \p json.
inline void printVersion(llvm::json::OStream &json) {
  json.attribute("version", printedJsonVersion);
}

} // namespace tarka

#endif // TARKA_PRINT_JSONVERSION_H
