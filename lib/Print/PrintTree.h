//===- PrintTree.h - the checked tree as text and JSON ----------*- C++ -*-===//
//
// Prints the tree of a compilation with what the checks have added. docs/json.md
// describes the JSON form; the text form has the same contents, one node per line.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_PRINTTREE_H
#define TARKA_TOOLS_PRINTTREE_H

#include "AST/Program.h"

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

/// \p file is the source file as it was given: places in it are printed without its name.
void printTreeText(llvm::raw_ostream &os, Program &program, llvm::StringRef file);
void printTreeJson(llvm::raw_ostream &os, Program &program, llvm::StringRef file);

} // namespace tarka

#endif // TARKA_TOOLS_PRINTTREE_H
