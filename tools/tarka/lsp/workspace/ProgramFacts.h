//===- ProgramFacts.h - what other programs want to know --------*- C++ -*-===//
//
// What the index of the workspace keeps of a program: the names that it declares,
// who calls whom, and where it uses the names of copybooks. The process that has
// analysed the program writes the facts, the one that keeps them reads them.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_WORKSPACE_PROGRAMFACTS_H
#define TARKA_TOOLS_LSP_WORKSPACE_PROGRAMFACTS_H

#include "lsp/Snapshot.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka::lsp {

/// Writes the facts about the program of \p snapshot as JSON:
///
/// - "files": the paths of the program and of its copybooks; places name them by their position
/// - "missing": the names of copybooks that were not found
/// - "programs": the outermost ones, each with "name", "symbol" and "using", see usingItems()
/// - "symbols": name, kind of the protocol, symbol of the program or -1, place
/// - "calls": symbol of the caller, symbol of what is called or the name of a program, place
/// - "uses" of the names that copybooks declare: file, line and character of the declaration, what
///   is done (see Use), place
///
/// A place is file, line, begin and end as the editor counts them, in one line of numbers.
void writeFacts(Snapshot &snapshot, llvm::raw_ostream &out);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_WORKSPACE_PROGRAMFACTS_H
