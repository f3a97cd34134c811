//===- CFGStructureTest.cpp - functions, procedures, sentences ------------===//

#include "AST/DataDivision.h"
#include "Analyzer/TopLevel.h"
#include "CFGTree.h"
#include <gtest/gtest.h>

using namespace tarka;
using namespace tarka::test;

TEST(CFGModel, FindBlockGivesTheEarliest) {
  CFGGraph graph;
  CFGBlock *first = graph.createBlock("P");
  graph.createBlock("P");
  EXPECT_EQ(graph.findBlock("P"), first);
  EXPECT_EQ(graph.findBlock("p"), nullptr);
  // Blocks that come after a lookup are found too, and do not hide earlier ones.
  CFGBlock loose("Q", nullptr);
  graph.createBlock("P");
  graph.addBlock(&loose);
  EXPECT_EQ(graph.findBlock("Q"), &loose);
  EXPECT_EQ(graph.findBlock("P"), first);
  EXPECT_EQ(loose.getGraph(), &graph);
}

TEST(CFGStructure, FunctionsOfAllUnitsInSourceOrder) {
  Tree tree;
  SourceUnit *inner = sourceUnit("'INNER'", tree.unit);
  sourceUnit("\"DEEP\"", inner);
  sourceUnit("'HALF", tree.unit);
  tree.program.addSourceUnit(sourceUnit("'MIXED\""));
  tree.build();
  std::list<std::string> names;
  for (CFGFunc *function : tree.module->getFuncList())
    names.push_back(function->getName());
  EXPECT_EQ(names, (std::list<std::string>{"PROG", "INNER", "DEEP", "'HALF", "'MIXED\""}));
}

TEST(CFGStructure, DeclarationsGoToTheEntryBlockAndTheModule) {
  Tree tree;
  tree.unit->setProcDivision(nullptr);
  auto *data = new DataDivision(atLine(1));
  auto entry = [] { return new DataDescription(atLine(1)); };
  data->addWorkSection(entry());
  DataDescription *local = entry(), *linkage = entry();
  data->addLinkSection(linkage);
  data->addLocalSection(local);
  tree.unit->setDataDivision(data);
  CFGFunc *function = tree.build();
  EXPECT_EQ(tree.module->getGlobalVars().size(), 1u);
  EXPECT_EQ(shapeOf(function->getBody()), "0 entry [declaration] [declaration]\n");
  const CFGBlock *block = function->getBody()->getBlockList().front();
  EXPECT_EQ(block->getElements().front()->getData(), local);
  EXPECT_EQ(block->getElements().back()->getData(), linkage);
}

TEST(CFGStructure, ProceduresFollowEachOtherWithoutLinks) {
  Tree tree({plain()});
  Paragraph *p = tree.add(paragraph("P"));
  Paragraph *q = paragraph("Q");
  Section *s = tree.add("S", {q});
  p->setIsPerformThru(true);
  q->setIsPerformThru(true);
  s->setIsPerformThru(true);
  EXPECT_EQ(shapeOf(tree.build()->getBody()), R"(0 entry
1 tkdummy_unnamed_sentence [CONTINUE]
2 P* [CONTINUE] successor=3
3 P_exit! [return to performer] successor=4
4 P_exit_after
5 S*
6 Q* [CONTINUE] successor=7
7 Q_exit! [return to performer] successor=8
8 Q_exit_after successor=9
9 S_exit! [return to performer] successor=10
10 S_exit_after
)");
  EXPECT_EQ(p->getStartBlock()->getPlace(), 2);
  EXPECT_EQ(s->getStartBlock()->getPlace(), 5);
  EXPECT_EQ(failuresOf(*tree.module), "");
}

TEST(CFGStructure, NextSentenceOfOneSentenceShareOneEnd) {
  auto *first = make<NextSentenceStatement>(1);
  auto *second = make<NextSentenceStatement>(1);
  Tree tree({plain(), ifThen({first}, {second, plain()})});
  fill(tree.division, {plain()});
  CFGFunc *function = tree.build();
  EXPECT_EQ(shapeOf(function->getBody()), R"(0 entry
1 tkdummy_unnamed_sentence! [CONTINUE] [IF] then=2 else=3 end=4 next=5
2 tkdummy_then! [NEXT SENTENCE] successor=4
3 tkdummy_else! [NEXT SENTENCE] [CONTINUE] successor=4
4 tkdummy_endif successor=5
5 tkdummy_end_sentence [CONTINUE]
)");
  EXPECT_EQ(first->getSentenceBlock()->getPlace(), 1);
  EXPECT_EQ(second->getSentenceBlock(), first->getSentenceBlock());
}

TEST(CFGStructure, TransfersEndTheirBlocks) {
  auto *target = paragraph("P");
  Tree tree({goTo(target), make<ExitProgramStatement>(1), make<GobackStatement>(1),
             make<StopStatement>(1, StopType::Run), plain()});
  tree.add(target);
  EXPECT_EQ(shapeOf(tree.build()->getBody()), R"(0 entry
1 tkdummy_unnamed_sentence! [GO TO] successor=2
2 tkdummy_after_goto! [EXIT PROGRAM]
3 tkdummy_after_exit_program! [GOBACK]
4 tkdummy_after_goback [STOP] [CONTINUE]
5 P* [CONTINUE]
)");
}

TEST(CFGStructure, ExitParagraphAndSectionLeadToTheEndOfTheirProcedure) {
  Tree tree;
  Paragraph *p = paragraph("P", {ifThen({make<ExitParagraphStatement>(1)}), plain()});
  Paragraph *q = paragraph("Q", {ifThen({make<ExitSectionStatement>(1)})});
  p->setIsPerformThru(true);
  Section *s = tree.add("S", {p, q});
  s->setIsPerformThru(true);
  EXPECT_EQ(shapeOf(tree.build()->getBody()), R"(0 entry
1 S*
2 P*! [IF] then=3 end=5
3 tkdummy_then! [EXIT PARAGRAPH] after=6
4 tkdummy_after_exit_paragraph successor=5
5 tkdummy_endif [CONTINUE] successor=6
6 tkdummy_end_paragraph successor=7
7 P_exit! [return to performer] successor=8
8 P_exit_after
9 Q*! [IF] then=10 end=12
10 tkdummy_then! [EXIT SECTION] after=13
11 tkdummy_after_exit_section successor=12
12 tkdummy_endif successor=13
13 tkdummy_end_section successor=14
14 S_exit! [return to performer] successor=15
15 S_exit_after
)");
  EXPECT_EQ(failuresOf(*tree.module), "");
}

TEST(CFGStructure, EntriesAreNumberedAndEnteredFromAbove) {
  auto *second = make<EntryStatement>(1, make<NonNumericLiteralExpression>(1, "'E2'"));
  second->addParameter(make<Parameter>(1, ParameterType::Reference, nullptr));
  Tree tree({make<EntryStatement>(1, make<NonNumericLiteralExpression>(1, "'E1'")), plain(), second,
             plain()});
  tree.division->setReturning(new Returning(atLine(1), nullptr));
  CFGFunc *function = tree.build();
  EXPECT_EQ(shapeOf(function->getBody()), R"(0 entry
1 tkdummy_unnamed_sentence successor=2
2 E1_entry [CONTINUE] successor=3
3 E2_entry [CONTINUE]
)");
  ASSERT_EQ(function->getEntryListSize(), 2u);
  const CFGEntry *entry = function->getEntryList().back();
  EXPECT_EQ(entry->getName(), "E2");
  EXPECT_EQ(entry->getFuncName(), "PROG");
  EXPECT_EQ(entry->getIndex(), 2);
  EXPECT_EQ(entry->getFunc(), function);
  EXPECT_EQ(entry->getReturning(), tree.division->getReturning());
  EXPECT_EQ(entry->getParams().size(), 1u);
  EXPECT_EQ(entry->getEntryBlock()->getPlace(), 3);
}

static Declaratives *declarative(Tree &tree, llvm::StringRef name, UseStatement *use) {
  auto *section = new Section(atLine(1), word(name));
  section->addPara(paragraph("P-" + name.str()));
  auto *made = new Declaratives(atLine(1), section, use);
  tree.division->addDeclaratives(made);
  return made;
}

TEST(CFGStructure, BaseDeclarativesAreRegisteredAndBranchedTo) {
  Tree tree({plain()});
  auto *error = declarative(tree, "ERR", make<UseStatement>(1, UseTimingType::AfterException));
  auto *debug = declarative(tree, "DBG", make<UseStatement>(1, UseTimingType::ForDebugging));
  error->getSection()->setIsPerformThru(true);
  tree.division->addBaseDeclaratives(error);
  tree.division->addBaseDeclaratives(debug);
  EXPECT_EQ(shapeOf(tree.build()->getBody()), R"(0 entry
1 tkdummy_register_use [register declarative]
2 tkdummy_declaratives! [branch to declarative] successor=9
3 ERR
4 P-ERR* [CONTINUE] successor=5
5 ERR_exit! [return to performer] successor=6
6 ERR_exit_after
7 DBG
8 P-DBG* [CONTINUE]
9 tkdummy_end_declaratives
10 tkdummy_unnamed_sentence [CONTINUE]
)");
  EXPECT_EQ(failuresOf(*tree.module), "");
}

TEST(CFGStructure, ReportDeclarativesAreAFunctionOfTheirOwn) {
  Tree tree({plain()});
  auto *first = declarative(tree, "R1", make<UseStatement>(1, UseTimingType::BeforeReporting));
  auto *helper = declarative(tree, "H", nullptr);
  first->getSection()->setIsPerformThru(true);
  tree.division->addRptDeclaratives(first);
  tree.division->addRptDeclaratives(helper);
  CFGFunc *main = tree.build();
  EXPECT_EQ(tree.module->getFuncList().size(), 1u);
  EXPECT_EQ(shapeOf(main->getBody()), "0 entry\n1 tkdummy_unnamed_sentence [CONTINUE]\n");

  CFGFunc *report = TopLevel::getTopLevelInstance("")->getRptDeclCFGFunction();
  ASSERT_TRUE(report);
  EXPECT_EQ(report->getName(), "tkdummy_rpt_decl_func");
  EXPECT_EQ(report->getSourceUnit(), nullptr);
  EXPECT_EQ(*report->getSectionList(), std::list<Section *>{first->getSection()});
  EXPECT_EQ(shapeOf(report->getBody()), R"(0 tkdummy_rpt_declaratives! successor=5 end=5
1 R1
2 P-R1* [CONTINUE] successor=5
3 H
4 P-H* [CONTINUE]
5 tkdummy_rpt_declaratives_end!
)");
  EXPECT_EQ(failuresOf(*tree.module), "");
}
