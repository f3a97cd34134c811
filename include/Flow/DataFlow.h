//===- DataFlow.h - facts that hold at the nodes of a program ---*- C++ -*-===//
//
// Solves data-flow problems on a flow graph. A problem is a number of facts,
// each of which may hold at a node or not, and what every node does to them: it
// makes some hold (generates them) and some others not (kills them). A fact holds
// at a node when it does on one of the ways there; a problem that asks for all
// ways is stated by the opposite facts.
//
// Performed ranges are followed as the language has it: what holds at the end of
// a range goes on to those performers from which it came. To that end each range
// is summarised by what it generates and what it lets through, to a fixpoint
// where ranges perform themselves. docs/flow.md explains the method.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_FLOW_DATAFLOW_H
#define TARKA_FLOW_DATAFLOW_H

#include "Flow/FlowGraph.h"
#include "llvm/ADT/BitVector.h"
#include "llvm/ADT/DenseMap.h"
#include <memory>

namespace tarka {

enum class FlowDirection : std::uint8_t {
  Forward,  ///< a fact of what has run, such as a definition that reaches a statement
  Backward, ///< a fact of what is still to run, such as a value that will be read
};

/// One data-flow problem on the nodes of one program.
///
///   DataFlow flow(graph, FlowDirection::Forward, definitions.size());
///   flow.generate(node, 3);
///   flow.kill(node, 4);
///   flow.solve();
///   if (flow.before(other).test(3)) ...
///
/// Time and memory: the nodes of the program times the facts, 64 facts a word, for every range that
/// passes a node; where ranges overlap in so many ways that this would be out of proportion, the
/// edges of the graph are followed without regard to the performers, which is still safe: facts may
/// hold in more places, but in none too few.
class DataFlow {
public:
  /// \p graph must outlive the solver.
  DataFlow(const FlowGraph &graph, FlowDirection direction, unsigned facts);
  ~DataFlow();
  DataFlow(const DataFlow &) = delete;
  DataFlow &operator=(const DataFlow &) = delete;

  /// States that \p fact holds after \p node, in the direction of the problem. A fact that a node
  /// both kills and generates holds after it.
  void generate(std::uint32_t node, unsigned fact);
  /// States that \p fact holds after \p node only if the node generates it.
  void kill(std::uint32_t node, unsigned fact);

  /// Finds where the facts hold, when all nodes are described; again when there is more to say.
  void solve();

  /// The facts that hold just before and just after \p node, before and after as the program runs.
  /// None at a node that control does not come to.
  llvm::BitVector before(std::uint32_t node) const;
  llvm::BitVector after(std::uint32_t node) const;

private:
  struct Effect {
    llvm::BitVector generated, killed;
  };
  class Solver;

  llvm::BitVector valueAt(std::uint32_t node) const;
  llvm::BitVector beyond(std::uint32_t node) const;

  const FlowGraph &graph;
  FlowDirection direction;
  unsigned factCount;
  llvm::DenseMap<std::uint32_t, Effect> effects;
  /// What holds where the direction of the problem enters a node, by node of the graph.
  std::vector<llvm::BitVector> values;
};

} // namespace tarka

#endif // TARKA_FLOW_DATAFLOW_H
