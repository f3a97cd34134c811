//===- CFGVerifier.h - is a graph whole -------------------------*- C++ -*-===//
//
// Checks that a finished graph keeps the promises that a code generator relies
// on. A failure is a fault of the builder, never of the program that is
// compiled.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_CFGVERIFIER_H
#define TARKA_ANALYZER_CFGVERIFIER_H

#include "Analyzer/CFG.h"
#include <vector>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

enum class CFGRule : std::uint8_t {
  /// Blocks stand once in the list of their graph, and links stay within it.
  BlockInGraph,
  /// An element has exactly the pointer that its type asks for, and knows its block.
  ElementPointer,
  /// Every statement of the tree stands in one element, unless others replace it or a copy of its
  /// section was made.
  StatementOnce,
  /// A block without terminator and successor falls into the beginning of a procedure, or off the
  /// end of its source unit, which ends the program.
  FallThrough,
  /// The end of a performed range has the two blocks that lead back and on.
  RangeExit,
  /// Where a statement sends control, there is a block to send it to.
  Target,
  /// A block that holds a statement is reachable from the beginning of a procedure, unless it
  /// follows an unconditional transfer of control.
  WayIn,
};

/// One broken promise.
struct CFGFailure {
  CFGRule rule;
  /// The name of the function.
  std::string function;
  /// Where it was found; null when no block is to blame.
  const CFGBlock *block;
  std::string message;
};

/// Looks at every function of \p module, and at those made of report declaratives. Takes time in
/// proportion to the size of the graph. Gives nothing for a graph that is whole.
std::vector<CFGFailure> verifyModule(CFGModule &module);

/// The name of a rule, as it stands in its enumerator.
llvm::StringRef ruleName(CFGRule rule);

/// One line: function, block with its place in the list, rule and message.
llvm::raw_ostream &operator<<(llvm::raw_ostream &os, const CFGFailure &failure);

} // namespace tarka

#endif // TARKA_ANALYZER_CFGVERIFIER_H
