//===- FlowLoops.h - dominators and loops of a flow graph -------*- C++ -*-===//
//
// LLVM's trees of dominators and of loops under names of their own:
//
//   FlowDominatorTree dominators;
//   dominators.recalculate(graph);
//   FlowLoopInfo loops;
//   loops.analyze(dominators);
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_FLOW_FLOWLOOPS_H
#define TARKA_FLOW_FLOWLOOPS_H

#include "Flow/FlowGraph.h"
#include "llvm/IR/Dominators.h"
#include "llvm/Support/GenericDomTreeConstruction.h"
#include "llvm/Support/GenericLoopInfoImpl.h"

namespace llvm {

template <>
struct GraphTraits<const DomTreeNodeBase<tarka::FlowNode> *>
    : DomTreeGraphTraitsBase<const DomTreeNodeBase<tarka::FlowNode>,
                             DomTreeNodeBase<tarka::FlowNode>::const_iterator> {};

template <>
struct GraphTraits<DomTreeNodeBase<tarka::FlowNode> *>
    : DomTreeGraphTraitsBase<DomTreeNodeBase<tarka::FlowNode>,
                             DomTreeNodeBase<tarka::FlowNode>::const_iterator> {};

} // namespace llvm

namespace tarka {

/// Which nodes all ways from the start pass before a node.
using FlowDominatorTree = llvm::DominatorTreeBase<FlowNode, /*IsPostDom=*/false>;
/// Which nodes all ways to the exit pass after a node.
using FlowPostDominatorTree = llvm::DominatorTreeBase<FlowNode, /*IsPostDom=*/true>;

/// A natural loop: its header dominates its nodes.
class FlowLoop : public llvm::LoopBase<FlowNode, FlowLoop> {
private:
  friend class llvm::LoopInfoBase<FlowNode, FlowLoop>;
  friend class llvm::LoopBase<FlowNode, FlowLoop>;
  explicit FlowLoop(FlowNode *header) : LoopBase(header) {}
  ~FlowLoop() = default;
};

/// The natural loops of a graph.
using FlowLoopInfo = llvm::LoopInfoBase<FlowNode, FlowLoop>;

} // namespace tarka

#endif // TARKA_FLOW_FLOWLOOPS_H
