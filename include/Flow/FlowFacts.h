//===- FlowFacts.h - what a maintainer asks about a program -----*- C++ -*-===//
//
// Which procedures are never reached and why, which performed ranges are in
// trouble, and figures for every procedure: read off a flow graph in time
// proportional to it.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_FLOW_FLOWFACTS_H
#define TARKA_FLOW_FLOWFACTS_H

#include "Flow/FlowGraph.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

/// Why control never comes to a procedure.
enum class DeadReason : std::uint8_t {
  None,           ///< it does
  NoWayIn,        ///< nothing names it, and what stands before it only returns to performers
  BehindTransfer, ///< it follows a procedure that never reaches its end
  RangeNeverEnds, ///< it follows a PERFORM that never returns
  OnlyFromDead,   ///< whatever leads to it is not reached itself
};

struct ProcedureFacts {
  std::uint32_t procedure = noFlow; ///< by its number in the module
  DeadReason dead = DeadReason::None;
  /// The statement or procedure to blame: the PERFORM that never returns, the last thing in front,
  /// the node that is not reached; noFlow where there is none.
  std::uint32_t because = noFlow;
  unsigned statements = 0; ///< and conditions, as written
  unsigned complexity = 1; ///< McCabe: one more than the decisions
  unsigned depth = 0;      ///< the deepest nesting of statements
  unsigned loops = 0;      ///< inline PERFORMs and SEARCHes that may go round, and performed loops
  unsigned fanIn = 0;      ///< procedures elsewhere that name it
  unsigned fanOut = 0;     ///< procedures that it names, and CALLs
};

struct RangeFacts {
  std::uint32_t range = noFlow;
  /// The statements that perform it, by their nodes.
  llvm::SmallVector<std::uint32_t, 2> performers;
  bool endsBeforeStart = false;
  bool neverReturns = false;
  bool recursive = false;
  /// A GO TO that leads out of it; noFlow without one.
  std::uint32_t leftBy = noFlow;
  /// Another range that begins in this one and ends behind it; noFlow without one.
  std::uint32_t overlapsWith = noFlow;
  /// The procedure above that control falls from into it; noFlow without one.
  std::uint32_t fallenIntoFrom = noFlow;

  bool isInTrouble() const {
    return endsBeforeStart || neverReturns || recursive || leftBy != noFlow ||
           overlapsWith != noFlow || fallenIntoFrom != noFlow;
  }
};

struct FlowFacts {
  const FlowGraph *graph = nullptr;
  std::vector<ProcedureFacts> procedures; ///< in the order of the text
  /// The ranges that are performed, in the order of the text of their first performers.
  std::vector<RangeFacts> ranges;
};

/// The facts about one program.
FlowFacts collectFacts(const FlowGraph &graph);

} // namespace tarka

#endif // TARKA_FLOW_FLOWFACTS_H
