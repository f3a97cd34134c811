//===- PrintFlow.h - what a maintainer asks about a program -----*- C++ -*-===//
//
// Prints the facts of the flow graph as text and as JSON; docs/flow.md explains
// them.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PRINT_PRINTFLOW_H
#define TARKA_PRINT_PRINTFLOW_H

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

class CFGModule;

/// For each program: dead procedures, ranges in trouble, the tree of PERFORMs, figures, calls.
void printFlowText(llvm::raw_ostream &os, const CFGModule &module);
/// The same as one JSON object.
void printFlowJson(llvm::raw_ostream &os, const CFGModule &module);

} // namespace tarka

#endif // TARKA_PRINT_PRINTFLOW_H
