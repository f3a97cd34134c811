//===- CFGPerformTest.cpp - loops and performed procedures ----------------===//

#include "CFGTree.h"
#include <gtest/gtest.h>

using namespace tarka;
using namespace tarka::test;

TEST(CFGPerform, OutOfLine) {
  Tree tree;
  Paragraph *p = paragraph("P");
  fill(tree.division, {perform(120, PerformStmtType::Simple, p, p),
                       perform(7, PerformStmtType::Times, p, p), plain()});
  tree.add(p);
  EXPECT_EQ(shapeOf(tree.build()->getBody()), R"(0 entry
1 tkdummy_unnamed_sentence! [PERFORM] successor=2 after=2 return=2
2 tkdummy_perform_120_line_after! [PERFORM] successor=4 after=4 return=3
3 tkdummy_perform_7_line_return!
4 tkdummy_perform_7_line_after [CONTINUE]
5 P* [CONTINUE] successor=6
6 P_exit! [return to performer] successor=7
7 P_exit_after
)");
  EXPECT_EQ(failuresOf(*tree.module), "");
}

TEST(CFGPerform, InlineLeadsPastItselfAndExitsTheInnermost) {
  auto *exitInner = make<ExitPerformStatement>(3, false);
  auto *cycleOuter = make<ExitPerformStatement>(4, true);
  auto *exitOuter = make<ExitPerformStatement>(5, false);
  auto *inner = performInline(2, PerformStmtType::Simple, {exitInner});
  Tree tree({performInline(1, PerformStmtType::Until, {inner, ifThen({cycleOuter}, {exitOuter})})});
  CFGFunc *function = tree.build();
  EXPECT_EQ(shapeOf(function->getBody()), R"(0 entry
1 tkdummy_unnamed_sentence! [PERFORM] inline=2 after=12 return=3
2 tkdummy_perform_inline! [PERFORM] successor=12 inline=4 after=6 return=6
3 tkdummy_perform_1_line_return!
4 tkdummy_perform_inline! [EXIT PERFORM] successor=6
5 tkdummy_after_exit_perform! [return to performer] successor=6
6 tkdummy_perform_2_line_after! [IF] then=7 else=9 end=11
7 tkdummy_then! [EXIT PERFORM]
8 tkdummy_after_exit_perform successor=11
9 tkdummy_else! [EXIT PERFORM]
10 tkdummy_after_exit_perform successor=11
11 tkdummy_endif! [return to performer] successor=12
12 tkdummy_perform_1_line_after
)");
  EXPECT_EQ(exitInner->getAfterBlock()->getPlace(), 6);
  EXPECT_EQ(cycleOuter->getAfterBlock()->getPlace(), 3);
  EXPECT_EQ(exitOuter->getAfterBlock()->getPlace(), 12);
  EXPECT_EQ(failuresOf(*tree.module), "");
}

static SortIO *procedurePhrase(Paragraph *procedure) {
  auto *made = make<SortIO>(1, SortIOType::Procedure);
  made->setFromParagraph(procedure);
  made->setToParagraph(procedure);
  procedure->setIsPerformThru(true);
  return made;
}

TEST(CFGPerform, SortAndMergeWithFiles) {
  auto *sort = make<SortStatement>(1, nullptr);
  sort->setInput(make<SortIO>(1, SortIOType::Files));
  sort->setOutput(make<SortIO>(1, SortIOType::Files));
  auto *merge = make<MergeStatement>(1, nullptr);
  merge->setInput(make<SortIO>(1, SortIOType::Files));
  merge->setOutput(make<SortIO>(1, SortIOType::Files));
  EXPECT_EQ(shapeOf({sort, merge}), R"(1 tkdummy_unnamed_sentence! [SORT] else=2 end=4
2 tkdummy_sort_after_input! then=3 else=3
3 tkdummy_sort_start! then=4
4 tkdummy_endsort! [MERGE] then=5 else=5 end=6
5 tkdummy_merge_start! then=6
6 tkdummy_endmerge
)");
}

TEST(CFGPerform, SortAndMergeWithProcedures) {
  Tree tree;
  Paragraph *p = paragraph("P");
  auto *sort = make<SortStatement>(30, nullptr);
  sort->setInput(procedurePhrase(p));
  sort->setOutput(procedurePhrase(p));
  auto *merge = make<MergeStatement>(40, nullptr);
  merge->setOutput(procedurePhrase(p));
  fill(tree.division, {sort, merge});
  tree.add(p);
  std::string shape = shapeOf(tree.build()->getBody());
  EXPECT_EQ(shape.substr(0, shape.find("13 P*")), R"(0 entry
1 tkdummy_unnamed_sentence! [SORT] then=2 else=4 end=8
2 tkdummy_sort_input! [PERFORM] successor=3 after=3 return=3
3 tkdummy_perform_30_line_after successor=4 end=4
4 tkdummy_sort_after_input! then=5 else=7
5 tkdummy_sort_output! [PERFORM] successor=6 after=6 return=6
6 tkdummy_perform_30_line_after successor=7
7 tkdummy_sort_start! then=8
8 tkdummy_endsort! [MERGE] then=9 else=11 end=12
9 tkdummy_merge_then! [PERFORM] successor=10 after=10 return=10
10 tkdummy_perform_40_line_after successor=11
11 tkdummy_merge_start! then=12
12 tkdummy_endmerge
)");
  EXPECT_EQ(failuresOf(*tree.module), "");
}

TEST(CFGPerform, XmlParseLoopsOverEvents) {
  Tree tree;
  Paragraph *p = paragraph("P");
  auto *parse = make<XMLParseStatement>(9, nullptr);
  parse->setBeginParagraph(p);
  parse->setThruParagraph(p);
  p->setIsPerformThru(true);
  parse->addOnExcpHandler(phrase(ExceptionHandlerType::OnException));
  fill(tree.division, {parse});
  tree.add(p);
  std::string shape = shapeOf(tree.build()->getBody());
  EXPECT_EQ(shape.substr(0, shape.find("10 P*")), R"(0 entry
1 tkdummy_unnamed_sentence! [XML PARSE] successor=2 end=9
2 tkdummy_xml_parser! then=3 else=7
3 tkdummy_xml_proc! [PERFORM] successor=4 after=4 return=4
4 tkdummy_perform_9_line_after successor=5
5 tkdummy_xml_proc_after successor=6
6 tarkka_xml_parse_result_cond! then=2 else=7
7 tkdummy_9_line_xml_exception_cond! then=8 else=9 end=9
8 tkdummy_xml_parse_on_exception [CONTINUE] successor=9
9 tkdummy_xml_parse_end
)");
  EXPECT_EQ(failuresOf(*tree.module), "");
}

static SearchStatement *search(SearchType type, unsigned whens) {
  auto *made = make<SearchStatement>(1, type, nullptr);
  for (unsigned count = 0; count < whens; ++count) {
    auto *when = make<SearchWhen>(1, nullptr);
    when->addStatement(plain());
    made->addWhen(when);
  }
  return made;
}

TEST(CFGPerform, SerialSearchStepsItsIndex) {
  SearchStatement *statement = search(SearchType::Serial, 2);
  statement->addAtHandler(phrase(ExceptionHandlerType::AtEnd));
  Tree tree({statement});
  EXPECT_EQ(shapeOf(tree.build()->getBody()), R"(0 entry
1 tkdummy_unnamed_sentence! [SEARCH] successor=2 end=9
2 tkdummy_search_index_cmp! then=3 else=8
3 tkdummy_search_when_cond! [search when] then=4 else=5 end=9
4 tkdummy_search_when_body [CONTINUE] successor=9
5 tkdummy_search_when_cond! [search when] then=6 else=7 end=9
6 tkdummy_search_when_body [CONTINUE] successor=9
7 tkdummy_index_inc successor=2
8 tkdummy_search_at_end [CONTINUE] successor=9
9 tkdummy_search_end
)");
  EXPECT_EQ(statement->getIndexChangeBlock()->getPlace(), 7);
  EXPECT_EQ(failuresOf(*tree.module), "");
}

TEST(CFGPerform, BinarySearchMovesItsBounds) {
  SearchStatement *statement = search(SearchType::Binary, 1);
  Tree tree({statement});
  EXPECT_EQ(shapeOf(tree.build()->getBody()), R"(0 entry
1 tkdummy_unnamed_sentence! [SEARCH] successor=2 end=9
2 tkdummy_search_loop_cmp! then=3 else=9
3 tkdummy_search_mid_index successor=4
4 tkdummy_search_when_cond! [search when] then=5 else=6 end=9
5 tkdummy_search_when_body [CONTINUE] successor=9
6 tkdummy_gt_cond! then=7 else=8
7 tkdummy_max_index_decrease successor=2
8 tkdummy_min_index_increase successor=2
9 tkdummy_search_end
)");
  EXPECT_EQ(statement->getIndexChangeBlock()->getPlace(), 3);
  EXPECT_EQ(failuresOf(*tree.module), "");
}
