//===- StatementTest.cpp - kinds, room and lists of statements ------------===//

#include "AST/Statement.h"
#include "gtest/gtest.h"
#include <set>

using namespace tarka;
using llvm::isa;

namespace {

/// Calls \p visit with every kind and with the test of its class for a statement.
template <class Visitor> void forEachClass(Visitor visit) {
#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  visit(StatementType::Kind, [](const Statement &s) { return isa<Class>(s); });
#include "AST/Statements.def"
}

// The codes 12, 15, 16, 59 and 0 belong to no statement; every other one to exactly one class.
TEST(StatementTest, EveryKindHasOneClass) {
  const std::set<int> unused = {0, 12, 15, 16, 59};
  for (int code = 0; code <= 64; ++code) {
    const auto kind = static_cast<StatementType>(code);
    const Statement statement(nullptr, kind);
    int claims = 0;
    forEachClass([&](StatementType own, auto matches) {
      EXPECT_EQ(matches(statement), own == kind) << "code " << code;
      claims += matches(statement);
    });
    EXPECT_EQ(claims, unused.count(code) ? 0 : 1) << "code " << code;
  }
}

TEST(StatementTest, FamiliesKnowTheirMembers) {
  std::set<int> arithmetic, file;
  for (int code = 0; code <= 64; ++code) {
    const Statement statement(nullptr, static_cast<StatementType>(code));
    if (isa<ArithmeticStatement>(statement))
      arithmetic.insert(code);
    if (isa<FileStatement>(statement))
      file.insert(code);
  }
  EXPECT_EQ(arithmetic, (std::set<int>{2, 7, 11, 26, 39}));
  EXPECT_EQ(file, (std::set<int>{6, 9, 27, 29, 30, 31, 32, 36, 42}));
}

// A program has a million statements: the kind code, the format and the flags must fit in behind
// the position, in the space of one pointer.
TEST(StatementTest, SmallMembersShareOneWord) {
  constexpr std::size_t head = sizeof(Node) + sizeof(void *);
  EXPECT_EQ(sizeof(ContinueStatement), head);
  EXPECT_EQ(sizeof(ExitPerformStatement), head + sizeof(void *));
  EXPECT_EQ(sizeof(MoveStatement), head + 3 * sizeof(void *));
  EXPECT_EQ(sizeof(IfStatement), head + 3 * sizeof(void *));
  EXPECT_EQ(sizeof(ReadStatement), head + 4 * sizeof(void *));
}

TEST(StatementTest, ConstructorsTakeListsAndPosition) {
  SourceRange where;
  where.beginLine = 7;
  const Node at(where);
  ContinueStatement first(&at), second(&at);
  NodeList<Statement> then = {&first}, otherwise = {&second, &first};
  IfStatement both(&at, nullptr, &then, &otherwise);
  IfStatement neither(&at, nullptr, nullptr, nullptr);
  EXPECT_EQ(both.getBeginLineNo(), 7);
  EXPECT_EQ(both.getIfStmtListElements(), (NodeList<Statement>{&first}));
  EXPECT_EQ(both.getElseStmtListElements(), (NodeList<Statement>{&second, &first}));
  EXPECT_EQ(neither.getIfStmtListSize(), 0u);
  EXPECT_EQ(neither.getElseStmtListBegin(), neither.getElseStmtListEnd());
}

// A list has its elements in itself, or in a block that is replaced when it is full; copies and
// originals must not show each other's elements.
TEST(StatementTest, ListsKeepTheirElements) {
  ContinueStatement one(nullptr), two(nullptr);
  NodeList<Statement> list;
  std::vector<Statement *> expected;
  auto same = [&] { return std::vector<Statement *>(list.begin(), list.end()) == expected; };
  for (int i = 0; i < 100; ++i) {
    Statement *next = i % 7 == 0 ? nullptr : i % 2 ? &one : &two;
    list.push_back(next);
    expected.push_back(next);
    ASSERT_TRUE(same()) << i;
  }
  list.push_front(&two);
  expected.insert(expected.begin(), &two);
  EXPECT_TRUE(same());

  NodeList<Statement> copy = list, few{&one}, copyOfFew = few;
  copy.push_back(&one);
  copy.pop_back();
  copy.pop_back();
  copyOfFew.pop_back();
  EXPECT_TRUE(same());
  EXPECT_EQ(copy.size(), list.size() - 1);
  EXPECT_EQ(few, NodeList<Statement>{&one});
  EXPECT_TRUE(copyOfFew.empty());

  NodeList<Statement> taken = GivenList<Statement>(&list).take();
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(taken.size(), expected.size());
  std::list<Statement *> standard(taken.begin(), taken.end());
  EXPECT_EQ(GivenList<Statement>(&standard).take(), taken);
  EXPECT_TRUE(standard.empty());
}

// Inner tests have the elements of the lists of the EVALUATE, which must keep them.
TEST(StatementTest, InnerStatementsLeaveTheTreeWhole) {
  EvaluateStatement evaluate(nullptr);
  EvaluateSubject subject(nullptr, EvalSubjectType::True, nullptr, nullptr);
  EvaluateWhen when(nullptr, EvalWhenType::Other);
  ContinueStatement body(nullptr);
  EvaluateCase theCase(nullptr);
  evaluate.addSubject(&subject);
  theCase.addWhen(&when);
  theCase.addWhenStmt(&body);
  for (int round = 0; round < 2; ++round) {
    InnerWhenStatement inner(&evaluate, when.getType(), theCase.getWhenList(),
                             theCase.getWhenStmtList(), evaluate.getSubjectList());
    EXPECT_EQ(inner.getWhenStmtListSize(), 1u);
    EXPECT_EQ(inner.getSubjectListSize(), 1u);
    EXPECT_EQ(inner.getType(), EvalWhenType::Other);
  }
  EXPECT_EQ(theCase.getWhenStmtListSize(), 1u);
  EXPECT_EQ(evaluate.getSubjectListSize(), 1u);
}

// PERFORM paragraph THROUGH section: the section is the end although it is the first section.
TEST(StatementTest, RangesKeepTheirEndsApart) {
  Node place;
  auto *section = reinterpret_cast<Section *>(&place);
  auto *paragraph = reinterpret_cast<Paragraph *>(&place);
  PerformProcedure mixed(nullptr, nullptr, nullptr);
  mixed.addParagraph(paragraph);
  mixed.addSection(section);
  EXPECT_EQ(mixed.getBeginParagraph(), paragraph);
  EXPECT_EQ(mixed.getBeginSection(), nullptr);
  EXPECT_EQ(mixed.getThruSection(), section);
  EXPECT_EQ(mixed.getThruParagraph(), nullptr);

  SortIO single(nullptr, SortIOType::Procedure);
  single.addSection(section);
  EXPECT_EQ(single.getFromSection(), section);
  EXPECT_EQ(single.getToSection(), nullptr);
}

TEST(StatementTest, InitializeRemembersCategories) {
  InitializeStatement some(nullptr), all(nullptr);
  some.addValueCategory(InitializeReplacingType::Dbcs);
  some.addValueCategory(InitializeReplacingType::Alphabetic);
  all.setIsAllToValue(true);
  EXPECT_TRUE(some.hasValueCategory(InitializeReplacingType::Dbcs));
  EXPECT_TRUE(some.hasValueCategory(InitializeReplacingType::Alphabetic));
  EXPECT_FALSE(some.hasValueCategory(InitializeReplacingType::Numeric));
  EXPECT_TRUE(all.hasValueCategory(InitializeReplacingType::Numeric));
}

} // namespace
