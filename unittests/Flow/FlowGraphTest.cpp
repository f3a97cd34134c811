//===- FlowGraphTest.cpp - LLVM's algorithms on the flow graph -------------===//

#include "../Analyzer/CFGTree.h"
#include "Flow/FlowLoops.h"
#include "llvm/ADT/DepthFirstIterator.h"
#include "llvm/ADT/PostOrderIterator.h"
#include "llvm/ADT/SCCIterator.h"
#include <gtest/gtest.h>

using namespace tarka;
using namespace tarka::test;

namespace {

/// MAIN performs P until something holds and ends; in P one of two branches is taken. Q is dead.
class FlowGraphOf : public testing::Test {
protected:
  FlowGraphOf() {
    Paragraph *p = paragraph("P", {ifThen({plain(11)}, {plain(12)}), plain(13)});
    Paragraph *q = paragraph("Q", {plain(20)});
    fill(tree.division, {perform(2, PerformStmtType::Until, p, p), make<GobackStatement>(3)});
    tree.add(p);
    tree.add(q);
    tree.build();
    flow = createFlow(*tree.module);
    graph = flow->graphs().front().get();
  }

  FlowNode *at(unsigned line, FlowNodeKind kind = FlowNodeKind::Statement) {
    for (FlowNode &node : graph->nodes())
      if (node.getRange().beginLine == line && node.getKind() == kind)
        return &node;
    return nullptr;
  }

  Tree tree;
  std::unique_ptr<FlowModule> flow;
  FlowGraph *graph;
};

} // namespace

TEST_F(FlowGraphOf, DominatorsAndPostDominators) {
  FlowDominatorTree dominators;
  dominators.recalculate(*graph);
  EXPECT_TRUE(dominators.dominates(at(2), at(13)));
  EXPECT_FALSE(dominators.dominates(at(11), at(13)));
  EXPECT_FALSE(dominators.isReachableFromEntry(at(20)));

  FlowPostDominatorTree after;
  after.recalculate(*graph);
  EXPECT_TRUE(after.dominates(at(3), at(2)));
  EXPECT_TRUE(after.dominates(at(13), at(11)));
  EXPECT_FALSE(after.dominates(at(11), at(13)));
}

TEST_F(FlowGraphOf, TheLoopOfAPerformRunsThroughItsRange) {
  FlowDominatorTree dominators;
  dominators.recalculate(*graph);
  FlowLoopInfo loops;
  loops.analyze(dominators);
  ASSERT_NE(loops.getLoopFor(at(13)), nullptr);
  EXPECT_EQ(loops.getLoopFor(at(13)), loops.getLoopFor(at(2, FlowNodeKind::LoopTest)));
  EXPECT_EQ(loops.getLoopFor(at(3)), nullptr);
}

TEST_F(FlowGraphOf, Iterators) {
  const auto reached =
      llvm::count_if(graph->nodes(), [](const FlowNode &node) { return node.isReached(); });
  EXPECT_EQ(std::distance(llvm::df_begin(graph), llvm::df_end(graph)), reached);
  llvm::ReversePostOrderTraversal<FlowGraph *> order(graph);
  EXPECT_EQ(std::distance(order.begin(), order.end()), reached);
  EXPECT_EQ(*order.begin(), graph->getStart());

  std::size_t cycles = 0;
  for (auto component = llvm::scc_begin(graph); !component.isAtEnd(); ++component)
    cycles += component.hasCycle();
  EXPECT_EQ(cycles, 1u);
}

TEST_F(FlowGraphOf, DeadProcedure) {
  EXPECT_TRUE(flow->node(graph->procedures().front().entry).isReached());
  EXPECT_FALSE(graph->procedures().front().fallsThrough);
  EXPECT_FALSE(flow->node(graph->procedures().back().entry).isReached());
}
