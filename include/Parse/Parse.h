//===- Parse.h - from a source file to a tree -------------------*- C++ -*-===//
//
// The entry point of the front end: reads one compilation and builds its tree.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_PARSE_H
#define TARKA_PARSE_PARSE_H

#include "Parse/Diagnostics.h"
#include "Parse/ParseOptions.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/Support/ErrorOr.h"

namespace tarka {

class Expansion;
class Program;

/// Reads the compilation in file \p path and builds its tree. Errors in the source are
/// reported to \p diagnostics; constructs that could not be parsed are left out of the tree, so
/// that the checker gets a complete tree. \p inputName is the name of the compilation, by which its
/// graph will be named.
///
/// \p diagnostics also has the text and the names that the errors make unreliable (getDamage()).
///
/// What COPY and REPLACE make of the source is recorded in \p expansion, where that is not null.
///
/// Fails only when the file itself cannot be read. The tree lives until the process ends.
llvm::ErrorOr<Program *> parseProgram(llvm::StringRef path, llvm::StringRef inputName,
                                      const ParseOptions &options, FrontEndDiagnostics &diagnostics,
                                      Expansion *expansion = nullptr);

} // namespace tarka

#endif // TARKA_PARSE_PARSE_H
