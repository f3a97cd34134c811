//===- FlowFacts.h - facts about a program for maintainers ------*- C++ -*-===//
//
// Which procedures are never reached and why, which performed ranges have a
// problem, and metrics of every procedure. They are computed from a flow graph in
// time proportional to its size.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_FLOW_FLOWFACTS_H
#define TARKA_FLOW_FLOWFACTS_H

#include "Flow/FlowGraph.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

/// Why control never reaches a procedure.
enum class DeadReason : std::uint8_t {
  None,           ///< it is reached
  NoWayIn,        ///< nothing names it, and the procedure before it only returns to performers
  BehindTransfer, ///< it follows a procedure that never reaches its end
  RangeNeverEnds, ///< it follows a PERFORM that never returns
  OnlyFromDead,   ///< everything that leads to it is itself not reached
};

/// The facts about one paragraph or section.
struct ProcedureFacts {
  std::uint32_t procedure = noFlow; ///< by its number in the module
  DeadReason dead = DeadReason::None;
  /// The node that is the cause: the PERFORM that never returns, the last node before the
  /// procedure, the node that is not reached; noFlow where there is none.
  std::uint32_t because = noFlow;
  unsigned statements = 0; ///< and conditions, as written
  unsigned complexity = 1; ///< McCabe: one more than the decisions
  unsigned depth = 0;      ///< the deepest nesting of statements
  unsigned loops = 0;      ///< inline PERFORMs and SEARCHes that may go round, and performed loops
  unsigned fanIn = 0;      ///< procedures elsewhere that name it
  unsigned fanOut = 0;     ///< procedures that it names, and CALLs
};

/// The facts about one performed range.
struct RangeFacts {
  std::uint32_t range = noFlow; ///< by its number in the module
  /// The statements that perform it, by their nodes.
  llvm::SmallVector<std::uint32_t, 2> performers;
  bool endsBeforeStart = false; ///< its last procedure is before its first one in the text
  bool neverReturns = false;    ///< control cannot reach its end
  bool recursive = false;       ///< it can be performed again while it is being performed
  /// A GO TO or EXIT SECTION that leads out of it; noFlow without one.
  std::uint32_t leftBy = noFlow;
  /// Another range that begins in this one and ends after it; noFlow without one.
  std::uint32_t overlapsWith = noFlow;
  /// The procedure above that control falls from into it; noFlow without one.
  std::uint32_t fallenIntoFrom = noFlow;

  /// Whether the range has one of these problems.
  bool isInTrouble() const {
    return endsBeforeStart || neverReturns || recursive || leftBy != noFlow ||
           overlapsWith != noFlow || fallenIntoFrom != noFlow;
  }
};

/// The facts about one program.
struct FlowFacts {
  const FlowGraph *graph = nullptr;
  std::vector<ProcedureFacts> procedures; ///< in the order of the text
  /// The ranges that are performed, in the order of the text of their first performers.
  std::vector<RangeFacts> ranges;
};

/// Computes the facts about the program of \p graph, which the result refers to.
FlowFacts collectFacts(const FlowGraph &graph);

} // namespace tarka

#endif // TARKA_FLOW_FLOWFACTS_H
