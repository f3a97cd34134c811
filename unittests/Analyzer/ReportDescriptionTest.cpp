//===- ReportDescriptionTest.cpp - what the checks make of a report -------===//
//
// The lists and links for later stages, which no diagnostic depends on.
//
//===----------------------------------------------------------------------===//

#include "CheckerFixture.h"

using namespace tarka;
using namespace tarka::test;

namespace {

class ReportDescriptionTest : public CheckerTest {
protected:
  using Items = NodeList<ReportDataDescription>;

  SourceUnit *current = currentUnit();
  DataDivision *data = current->getDataDivision();
  ReportDescription *report = new ReportDescription(nullptr, word("R"));

  ReportDescriptionTest() { data->addReportSection(report); }

  static ReportDataDescription *item(unsigned level, llvm::StringRef dataName,
                                     DataDescription *parent = nullptr,
                                     const char *picture = nullptr) {
    return entry<ReportDataDescription>(level, dataName, parent, picture);
  }

  ReportDataDescription *group(llvm::StringRef dataName, ReportGroupType type) {
    ReportDataDescription *made = item(1, dataName);
    made->setTypeClause(new ClauseType(nullptr, type));
    report->addRecord(made);
    return made;
  }

  static ReportDataDescription *line(DataDescription *parent, const char *lineNumber,
                                     bool isRelative = false) {
    ReportDataDescription *made = item(5, "LINE-OF-GROUP", parent);
    auto *clause = new ClauseLine(nullptr);
    clause->addNumbers(number(lineNumber));
    clause->setIsRelative(isRelative);
    made->setLineClause(clause);
    return made;
  }

  static ReportDataDescription *column(DataDescription *parent, const char *picture) {
    ReportDataDescription *made = item(10, "COLUMN-OF-LINE", parent, picture);
    auto *clause = new ClauseColumn(nullptr);
    clause->addNumbers(number("1"));
    made->setColumnClause(clause);
    return made;
  }

  static ClauseSum *sum(Expression *operand) {
    auto *operands = new SumClauseExpr(nullptr);
    operands->addName(operand);
    auto *clause = new ClauseSum(nullptr);
    clause->addSumExpr(operands);
    return clause;
  }

  void addAmount() {
    DataDescription *amount = entry(1, "AMOUNT", nullptr, "S9(5)V99");
    data->addWorkSection(amount);
  }
};

TEST_F(ReportDescriptionTest, GroupsStandByTheirType) {
  using enum ReportGroupType;
  ReportDataDescription *heading = group("A", PageHeading);
  ReportDataDescription *detail = group("B", Detail);
  ReportDataDescription *second = group("C", Detail);
  ReportDataDescription *title = group("D", ReportHeading);
  ReportDataDescription *end = group("E", ReportFooting);
  ReportDataDescription *bottom = group("F", PageFooting);
  EXPECT_TRUE(checker.semanticCheck(*report));
  EXPECT_EQ(report->getPHDescListElements(), Items{heading});
  EXPECT_EQ(report->getDEDescListElements(), (Items{detail, second}));
  EXPECT_EQ(report->getRHDescListElements(), Items{title});
  EXPECT_EQ(report->getRFDescListElements(), Items{end});
  EXPECT_EQ(report->getPFDescListElements(), Items{bottom});
  EXPECT_EQ(report->getCHDescListSize() + report->getCFDescListSize(), 0u);
  EXPECT_EQ(checker.getCurrentRD(), nullptr);
}

TEST_F(ReportDescriptionTest, ControlsThatAreNotNamed) {
  using enum ReportGroupType;
  addAmount();
  data->addWorkSection(entry(1, "BRANCH", nullptr, "X"));
  auto *controls = new ClauseControl(nullptr, ControlOption::Final);
  controls->addControlId(reference({"BRANCH"}));
  report->setControlClause(controls);
  // Of several controls an unnamed one is none of them, and ALL is all.
  ClauseType &unnamed = *group("A", ControlHeading)->getTypeClause();
  ClauseType &all = *group("B", ControlFooting)->getTypeClause();
  all.setIsAll(true);
  EXPECT_TRUE(checker.semanticCheck(*report));
  EXPECT_FALSE(unnamed.getReportFinal());
  EXPECT_EQ(unnamed.getControlIdListSize(), 0u);
  EXPECT_TRUE(all.getReportFinal());
  ASSERT_EQ(all.getControlIdListSize(), 1u);
  EXPECT_NE(all.getControlIdListElements().front()->getDataDescription(), nullptr);

  auto *other = new ReportDescription(nullptr, word("S"));
  data->addReportSection(other);
  auto *single = new ClauseControl(nullptr, ControlOption::None);
  single->addControlId(reference({"AMOUNT"}));
  other->setControlClause(single);
  report = other;
  ClauseType &only = *group("C", ControlFooting)->getTypeClause();
  EXPECT_TRUE(checker.semanticCheck(*other));
  EXPECT_EQ(only.getControlIdListSize(), 1u);
  EXPECT_FALSE(only.getReportFinal());
  EXPECT_EQ(numbers(), std::vector<int>{});
}

TEST_F(ReportDescriptionTest, LinesAndColumns) {
  ReportDataDescription *detail = group("A", ReportGroupType::Detail);
  ReportDataDescription *third = line(detail, "3");
  ReportDataDescription *first = line(detail, "1");
  ReportDataDescription *next = line(detail, "2", /*isRelative=*/true);
  ReportDataDescription *left = column(third, "X");
  ReportDataDescription *right = column(third, "X");
  ReportDataDescription *inGroup = column(item(10, "G", first), "X");
  EXPECT_TRUE(checker.semanticCheck(*report));
  EXPECT_EQ(detail->getLineDescListElements(), (Items{first, third, next}));
  EXPECT_EQ(third->getColDescListElements(), (Items{left, right}));
  EXPECT_EQ(first->getColDescListElements(), Items{inGroup});
  EXPECT_EQ(inGroup->getCurrLineDesc(), first);
  EXPECT_EQ(right->getCurrHeadDesc(), third);
  EXPECT_EQ(next->getCurrHeadDesc(), next);
  EXPECT_EQ(next->getPrevHeadDesc(), third);
}

TEST_F(ReportDescriptionTest, SumsAndCounts) {
  addAmount();
  ReportDataDescription *detail = group("D", ReportGroupType::Detail);
  ReportDataDescription *foot = group("F", ReportGroupType::ControlFooting);
  ReportDataDescription *total = column(line(foot, "1"), "Z(6)9.99-");
  total->setSumClause(sum(reference({"AMOUNT"})));
  ReportDataDescription *times = column(line(foot, "2"), "ZZ9");
  auto *counted = new CountClauseExpr(nullptr);
  DataIdentifierExpression *name = reference({"D"});
  counted->addName(name);
  auto *count = new ClauseCount(nullptr);
  count->addCountExpr(counted);
  times->setCountClause(count);
  EXPECT_TRUE(checker.semanticCheck(*report));

  // The sum is kept with its sign, in the digits that are shown.
  const DataDescription *counter = total->getSumClause()->getSumDesc();
  ASSERT_NE(counter, nullptr);
  EXPECT_EQ(counter->getPicture()->getDigitNum(), 9);
  EXPECT_EQ(counter->getPicture()->getScale(), 2);
  EXPECT_TRUE(counter->getPicture()->isSigned());
  DataDescription *amount = data->findItemByName("AMOUNT")->front();
  EXPECT_EQ(amount->getGenDEElements(), Items{total});
  EXPECT_EQ(amount->getUsedRDListSize(), 1u);
  EXPECT_EQ(detail->getCountExprListElements(), NodeList<Expression>{name});
  EXPECT_EQ(count->getCountDataListSize(), 1u);
}

} // namespace
