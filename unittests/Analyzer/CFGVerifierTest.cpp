//===- CFGVerifierTest.cpp - broken graphs are noticed --------------------===//
//
// Each case breaks one promise of a graph that is whole, and expects the rule
// that it broke and the block that is to blame.
//
//===----------------------------------------------------------------------===//

#include "CFGTree.h"
#include <gtest/gtest.h>

using namespace tarka;
using namespace tarka::test;

namespace {

/// IF CONTINUE, GO TO P, PERFORM P, an inline PERFORM that is left; paragraph P.
class CFGVerifier : public testing::Test {
protected:
  CFGVerifier() {
    fill(tree.division, {ifThen({nested}), jump, perform(3, PerformStmtType::Simple, p, p),
                         performInline(4, PerformStmtType::Simple, {leave})});
    tree.add(p);
    graph = tree.build()->getBody();
    EXPECT_EQ(failuresOf(*tree.module), "");
  }

  CFGBlock *block(llvm::StringRef name) {
    CFGBlock *found = graph->findBlock(name);
    EXPECT_TRUE(found) << name.str();
    return found;
  }

  /// Expects one failure at least, and only of \p rule, the first of them at \p place.
  void expectOnly(CFGRule rule, const CFGBlock *place) {
    std::vector<CFGFailure> failures = verifyModule(*tree.module);
    ASSERT_FALSE(failures.empty());
    for (const CFGFailure &failure : failures)
      EXPECT_EQ(ruleName(failure.rule), ruleName(rule)) << failuresOf(*tree.module);
    EXPECT_EQ(failures.front().block, place) << failuresOf(*tree.module);
    EXPECT_EQ(failures.front().function, "PROG");
  }

  Tree tree;
  Paragraph *p = paragraph("P");
  Statement *nested = plain(2);
  GotoStatement *jump = goTo(p);
  ExitPerformStatement *leave = make<ExitPerformStatement>(5, false);
  CFGGraph *graph;
};

} // namespace

TEST_F(CFGVerifier, LinkOutOfTheGraph) {
  CFGBlock *then = block("tkdummy_then");
  then->addSuccessorBlock(new CFGBlock("lost", graph));
  expectOnly(CFGRule::BlockInGraph, then);
}

TEST_F(CFGVerifier, BlockListedTwice) {
  CFGBlock *last = graph->getBlockList().back();
  graph->addBlock(last);
  std::vector<CFGFailure> failures = verifyModule(*tree.module);
  ASSERT_FALSE(failures.empty());
  EXPECT_EQ(failures.front().rule, CFGRule::BlockInGraph);
  EXPECT_EQ(failures.front().block, last);
}

TEST_F(CFGVerifier, ElementThatPointsAtNothing) {
  block("tkdummy_then")->addCFGElemStmt(nullptr);
  expectOnly(CFGRule::ElementPointer, block("tkdummy_then"));
}

TEST_F(CFGVerifier, StatementLostAndStatementDoubled) {
  // A statement that is added to the tree after building is missing from the graph.
  Statement *late = plain(9);
  p->getSentElements().front()->addStmt(late);
  expectOnly(CFGRule::StatementOnce, p->getStartBlock());
  // Given twice, it is there too often.
  block("P")->addCFGElemStmt(late);
  EXPECT_EQ(failuresOf(*tree.module), "");
  block("tkdummy_then")->addCFGElemStmt(late);
  expectOnly(CFGRule::StatementOnce, block("P"));
  EXPECT_EQ(failuresOf(*tree.module),
            "PROG: P (block 9): the CONTINUE of line 9 stands in 2 elements instead of 1 "
            "[StatementOnce]\n");
}

TEST_F(CFGVerifier, StatementThatIsNotInTheTree) {
  block("tkdummy_then")->addCFGElemStmt(perform(6, PerformStmtType::Simple, p, p));
  expectOnly(CFGRule::StatementOnce, block("tkdummy_then"));
}

TEST_F(CFGVerifier, BranchWithoutItsJoinFallsThrough) {
  block("tkdummy_then")->addSuccessorBlock(nullptr);
  expectOnly(CFGRule::FallThrough, block("tkdummy_then"));
}

TEST_F(CFGVerifier, RangeWithoutExit) {
  block("P_exit")->addSuccessorBlock(nullptr);
  expectOnly(CFGRule::RangeExit, block("P_exit"));
}

TEST_F(CFGVerifier, RangeThatWasNeverMarked) {
  Tree unmarked;
  Paragraph *q = paragraph("Q");
  PerformStatement *statement = perform(1, PerformStmtType::Simple, q, q);
  q->setIsPerformThru(false);
  fill(unmarked.division, {statement});
  unmarked.add(q);
  unmarked.build();
  EXPECT_EQ(failuresOf(*unmarked.module),
            "PROG: tkdummy_unnamed_sentence (block 1): the PERFORM of line 1 ends with Q, which "
            "has no exit block [RangeExit]\n");
}

TEST_F(CFGVerifier, TargetsWithoutStart) {
  jump->addProcedure(new GotoProcedure(nullptr, paragraph("NOWHERE")));
  expectOnly(CFGRule::Target, block("tkdummy_endif"));
}

TEST_F(CFGVerifier, ExitPerformOutsideOfPerform) {
  Tree outside({make<ExitPerformStatement>(5, false)});
  outside.build();
  EXPECT_EQ(failuresOf(*outside.module),
            "PROG: tkdummy_unnamed_sentence (block 1): the EXIT PERFORM of line 5 has no PERFORM "
            "to leave [Target]\n");
}

TEST_F(CFGVerifier, CopiedSectionsShareTheirStatements) {
  Tree tree2({plain()});
  Section *original = tree2.add("S", {paragraph("Q")});
  Section *copy = original->createCopySection(word("S"), word("S_tkcopy"));
  auto *declarative = new Declaratives(atLine(1), copy, nullptr);
  tree2.division->addDeclaratives(declarative);
  tree2.division->addBaseDeclaratives(declarative);
  tree2.build();
  EXPECT_EQ(failuresOf(*tree2.module), "");
}

/// The then branch is cut off from the IF; what follows a GO TO may be unreachable.
TEST_F(CFGVerifier, StatementWithoutAWayIn) {
  for (CFGBlock *start : block("tkdummy_then")->getGraph()->getBlockList())
    if (start->getThenBlock() == block("tkdummy_then"))
      start->addThenBlock(nullptr);
  expectOnly(CFGRule::WayIn, block("tkdummy_then"));
}
