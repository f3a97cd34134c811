//===- CFGVerifier.h - is a graph whole -------------------------*- C++ -*-===//
//
// Checks the invariants of a finished graph that code generators rely on. A
// failure is a fault of the builder, never of the program that is compiled.
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

/// The rules that a finished graph keeps.
enum class CFGRule : std::uint8_t {
  /// A block is in the list of its graph once, and links stay within the graph.
  BlockInGraph,
  /// An element has exactly the pointer that its type requires, and points to its block.
  ElementPointer,
  /// Every statement of the tree is in one element, unless others replace it or a copy of its
  /// section was made.
  StatementOnce,
  /// A block without terminator and successor falls into the beginning of a procedure, or off the
  /// end of its source unit, which ends the program.
  FallThrough,
  /// The end of a performed range has the two blocks that lead back and on.
  RangeExit,
  /// Wherever a statement transfers control, there is a block.
  Target,
  /// A block that holds a statement is reachable from the beginning of a procedure, unless it
  /// follows an unconditional transfer of control.
  WayIn,
};

/// One violation of a rule.
struct CFGFailure {
  CFGRule rule;
  /// The name of the function.
  std::string function;
  /// Where it was found; null when it does not concern a block.
  const CFGBlock *block;
  std::string message;
};

/// Checks every function of \p module and those of report declaratives, in time proportional to the
/// size of the graph. The result is empty for a correct graph.
std::vector<CFGFailure> verifyModule(CFGModule &module);

/// The name of a rule: its enumerator.
llvm::StringRef ruleName(CFGRule rule);

/// One line: function, block with its place in the list, rule and message.
llvm::raw_ostream &operator<<(llvm::raw_ostream &os, const CFGFailure &failure);

} // namespace tarka

#endif // TARKA_ANALYZER_CFGVERIFIER_H
