//===- OperandTest.cpp - binding of data references, literals -------------===//

#include "CheckerFixture.h"

using namespace tarka;
using namespace tarka::test;

namespace {

class BindingTest : public CheckerTest {
protected:
  SourceUnit *current = currentUnit();
  DataDivision *data = current->getDataDivision();

  FileDescription *file(llvm::StringRef fileName) {
    auto *made = new FileDescription(nullptr, FileDescType::File, word(fileName));
    data->addFileSection(made);
    return made;
  }

  ReportDataDescription *reportItem(ReportDescription *report, llvm::StringRef itemName) {
    auto *made = new ReportDataDescription(&nowhere);
    made->setLevelNum(1);
    made->setDataName(word(itemName));
    report->addRecord(made);
    return made;
  }

  /// What \p texts is bound to; null when the check fails.
  DataDescription *bind(std::initializer_list<const char *> texts) {
    DataIdentifierExpression *made = reference(texts);
    return checker.semanticCheck(*made) ? made->getDataDescription() : nullptr;
  }
};

TEST_F(BindingTest, QualifiersMaySkipLevelsAndMustKeepTheirOrder) {
  DataDescription *c = entry(1, "C");
  DataDescription *b = entry(5, "B", c);
  DataDescription *a = entry(10, "A", b, "S9(5)V99");
  DataDescription *d = entry(1, "D");
  DataDescription *other = entry(5, "A", d, "X");
  data->addWorkSection(c);
  data->addWorkSection(d);

  DataIdentifierExpression *skipping = reference({"A", "C"});
  EXPECT_TRUE(checker.semanticCheck(*skipping));
  EXPECT_EQ(skipping->getDataDescription(), a);
  EXPECT_EQ(skipping->getSrcDigitNum(), 7u);
  EXPECT_EQ(skipping->getSrcScale(), 2u);
  EXPECT_EQ(bind({"A", "B", "C"}), a);
  EXPECT_EQ(bind({"A", "D"}), other);
  EXPECT_EQ(bind({"A", "C", "B"}), nullptr);
  // Without a qualifier the first one is used; the message reports that there are more.
  EXPECT_EQ(bind({"A"}), a);
  EXPECT_EQ(bind({"NONE"}), nullptr);
  EXPECT_FALSE(checker.semanticCheck(*reference({"NONE"}), /*silentIfUndefined=*/true, false));
  EXPECT_EQ(numbers(), (std::vector<int>{3312, 3311, 3310}));
}

TEST_F(BindingTest, FileNamesQualify) {
  DataDescription *record = entry(1, "X");
  FileDescription *first = file("F1");
  first->addRecordDesc(record);
  DataDescription *inner = entry(5, "Y", record, "9(4)");
  DataDescription *second = entry(1, "X");
  file("F1")->addRecordDesc(second);

  // The scan ends at the first record whose first qualifier is its file.
  EXPECT_EQ(bind({"X", "F1"}), record);
  EXPECT_EQ(bind({"X", "F1", "WHATEVER"}), record);
  // Through the file name the digits are not taken over.
  DataIdentifierExpression *viaFile = reference({"Y", "F1"});
  EXPECT_TRUE(checker.semanticCheck(*viaFile));
  EXPECT_EQ(viaFile->getDataDescription(), inner);
  EXPECT_EQ(viaFile->getSrcDigitNum(), 0u);
  EXPECT_EQ(numbers(), std::vector<int>{});
}

TEST_F(BindingTest, CommonNamesAreFoundThroughTheIndexAsByTheScan) {
  std::vector<DataDescription *> items;
  for (int i = 0; i < 40; ++i) {
    DataDescription *record = entry(1, "R" + std::to_string(i));
    DataDescription *group = entry(5, i % 2 ? "ODD" : "EVEN", record);
    items.push_back(entry(10, "ID", group, "9(3)"));
    data->addWorkSection(record);
  }
  FileDescription *filed = file("R7");
  DataDescription *record = entry(1, "ID");
  filed->addRecordDesc(record);

  EXPECT_EQ(bind({"ID", "R8"}), items[8]);
  EXPECT_EQ(bind({"ID", "ODD", "R9"}), items[9]);
  EXPECT_EQ(bind({"ID", "EVEN", "R9"}), nullptr);
  EXPECT_EQ(bind({"ID", "ODD"}), nullptr);
  EXPECT_EQ(bind({"ID", "NONE"}), nullptr);
  EXPECT_EQ(numbers(), (std::vector<int>{3312, 3311, 3312}));
  // R7 is a record and a file; the search ends at a file.
  EXPECT_EQ(bind({"ID", "R7"}), record);
  EXPECT_EQ(bind({"ID", "R7", "NONE"}), record);

  // Entries that come later are found as well.
  DataDescription *late = entry(1, "LATE");
  DataDescription *lateItem = entry(5, "ID", late, "9");
  data->addWorkSection(late);
  EXPECT_EQ(bind({"ID", "LATE"}), lateItem);
}

TEST_F(BindingTest, OuterProgramsGiveTheirGlobalRecords) {
  SourceUnit *middle = unit("MIDDLE", current);
  SourceUnit *inner = unit("INNER", middle);
  middle->setDataDivision(new DataDivision(nullptr));
  DataDescription *local = entry(1, "SHARED", nullptr, "X");
  middle->getDataDivision()->addWorkSection(local);
  DataDescription *global = entry(1, "SHARED");
  global->setGlobal(new ClauseGlobal(nullptr));
  DataDescription *below = entry(5, "BELOW", global, "X");
  // The namesake is a candidate although it is not GLOBAL.
  DataDescription *notGlobal = entry(1, "OTHER");
  DataDescription *namesake = entry(5, "BELOW", notGlobal, "X");
  data->addWorkSection(global);
  data->addWorkSection(notGlobal);

  context().setCurrentSourceUnit(inner);
  EXPECT_EQ(bind({"SHARED"}), global);
  EXPECT_EQ(bind({"BELOW", "SHARED"}), below);
  EXPECT_EQ(bind({"BELOW", "OTHER"}), namesake);
  EXPECT_EQ(bind({"OTHER"}), nullptr);
  EXPECT_EQ(numbers(), std::vector<int>{3310});
}

TEST_F(BindingTest, ReportItemsAndOthersOfOneName) {
  auto *sales = new ReportDescription(nullptr, word("SALES"));
  reportItem(sales, "TOTAL");
  ReportDataDescription *item = reportItem(sales, "TOTAL");
  data->addReportSection(sales);
  EXPECT_EQ(bind({"TOTAL"}), item);
  EXPECT_EQ(numbers(), std::vector<int>{});

  ReportDataDescription *line = reportItem(sales, "LINE-1");
  DataDescription *work = entry(1, "LINE-1", nullptr, "X");
  data->addWorkSection(work);
  EXPECT_EQ(bind({"LINE-1"}), work);
  options.setOptionEnableRw(true);
  DataIdentifierExpression *generated = reference({"LINE-1"});
  EXPECT_TRUE(checker.semanticCheck(*generated, false, /*preferReportItem=*/true));
  EXPECT_EQ(generated->getDataDescription(), line);
  EXPECT_EQ(numbers(), std::vector<int>{});
}

TEST_F(BindingTest, SubscriptsAndReferenceModifiers) {
  DataDescription *record = entry(1, "R");
  DataDescription *table = entry(5, "T", record, "X(4)");
  table->setOccurs(new ClauseOccurs(nullptr));
  entry(5, "C", record, "9(4)")->setUsage(new ClauseUsage(nullptr, UsageType::Binary));
  entry(5, "F", record, "9V9");
  data->addWorkSection(record);

  auto subscripted = [&](const char *item, Expression *by) {
    auto *subscripts = new SubscriptModifier(nullptr);
    subscripts->addSubscript(by);
    EXPECT_TRUE(checker.semanticCheck(*reference({item}, subscripts)));
  };
  NumericLiteralExpression *zero = number("0");
  subscripted("T", zero);
  EXPECT_EQ(zero->getData(), "1");
  EXPECT_EQ(handler.getWarningCount(), 1);
  subscripted("T", number("-1"));
  subscripted("T", reference({"F"})); // any numeric item is accepted
  EXPECT_EQ(numbers(), std::vector<int>{3528});
  subscripted("T", number("1.5"));
  subscripted("T", reference({"T"}));
  subscripted("C", number("1"));
  EXPECT_EQ(numbers(), (std::vector<int>{3528, 3301, 3301, 3316}));

  auto modified = [&](const char *item, Expression *from, Expression *count) {
    auto *modifier = new ReferenceModifier(nullptr, from, count);
    EXPECT_TRUE(checker.semanticCheck(*reference({item}, nullptr, modifier)));
  };
  modified("T", number("1"), nullptr);
  modified("T", number("2"), number("1"));
  EXPECT_EQ(handler.getErrorList().size(), 4u);
  modified("C", nullptr, number("1.5"));
  EXPECT_EQ(numbers(), (std::vector<int>{3528, 3301, 3301, 3316, 3316, 3313, 3314}));
}

TEST_F(BindingTest, ReportDeclarativesTellWhatTheyUse) {
  DataDescription *record = entry(1, "R");
  DataDescription *table = entry(5, "T", record, "9(4)");
  table->setOccurs(new ClauseOccurs(nullptr));
  DataDescription *index = entry(5, "N", record, "9(4)");
  DataDescription *unused = entry(5, "U", record, "9(4)");
  data->addWorkSection(record);
  auto *sales = new ReportDescription(nullptr, word("SALES"));
  ReportDataDescription *item = reportItem(sales, "ITEM");
  item->setPicture(new ClausePicture(nullptr, word("9(4)")));
  data->addReportSection(sales);

  // ITEM is the SOURCE T(N).
  auto *subscripts = new SubscriptModifier(nullptr);
  subscripts->addSubscript(reference({"N"}));
  auto *source = new ClauseSource(nullptr);
  DataIdentifierExpression *operand = reference({"T"}, subscripts);
  source->addSourceExpr(new SourceClauseExpr(nullptr, SourceExprType::Identifier, operand));
  item->setSourceClause(source);
  checker.setCurrentRD(sales);
  EXPECT_TRUE(checker.semanticCheck(*operand));
  EXPECT_NE(bind({"U"}), nullptr);
  checker.addUsedSrc(item);
  EXPECT_EQ(index->getUsedRDListSize(), 1u);

  // In a declarative of the report the subscript is used, so the item must be moved again.
  checker.setInDeclaratives(true);
  std::size_t before = listOrEmpty(context().getDummyListUsedMove()).size();
  EXPECT_NE(bind({"N"}), nullptr);
  EXPECT_EQ(index->getAccessWay(), 1);
  EXPECT_EQ(table->getAccessWay(), 1);
  EXPECT_EQ(item->getAccessWay(), 2);
  ASSERT_EQ(context().getDummyListUsedMove()->size(), before + 1);
  auto *move = llvm::cast<MoveStatement>(context().getDummyListUsedMove()->back());
  EXPECT_EQ(move->getSource(), operand);
  EXPECT_EQ(move->getMoveRules()->size(), 1u);
  EXPECT_NE(bind({"U"}), nullptr);
  EXPECT_EQ(unused->getAccessWay(), 1);
  EXPECT_EQ(context().getDummyListUsedMove()->size(), before + 1);

  // In a declarative of another report it is not.
  checker.setCurrentRD(new ReportDescription(nullptr, word("OTHER")));
  unused->setAccessWay(0);
  EXPECT_NE(bind({"U"}), nullptr);
  EXPECT_EQ(unused->getAccessWay(), 0);
}

using LiteralTest = CheckerTest;

TEST_F(LiteralTest, NumericLimits) {
  const std::string digits31(31, '9');
  for (const std::string &text : {digits31, std::string("-12"), std::string("-12.5"),
                                  std::string("1.234567890123456E+99"), std::string("1.5E-99")})
    EXPECT_TRUE(checker.semanticCheck(*number(text))) << text;
  EXPECT_FALSE(checker.semanticCheck(*number(digits31 + "1")));
  EXPECT_FALSE(checker.semanticCheck(*number("1.2345678901234567E1")));
  EXPECT_FALSE(checker.semanticCheck(*number("1.5E100")));
  EXPECT_FALSE(checker.semanticCheck(*number("1.5E-100")));
  EXPECT_EQ(numbers(), (std::vector<int>{3306, 3304, 3305, 3305}));

  NumericLiteralExpression *measured = number("12.345");
  EXPECT_TRUE(checker.semanticCheck(*measured));
  EXPECT_EQ(measured->getSrcDigitNum(), 5u);
  EXPECT_EQ(measured->getSrcScale(), 3u);

  context().setIsDecimalPointComma(true);
  NumericLiteralExpression *comma = number("1,5");
  comma->convertDecimalPoint("1,5"); // as the parser leaves it
  EXPECT_TRUE(checker.semanticCheck(*comma));
  EXPECT_EQ(comma->getSrcScale(), 1u);
}

TEST_F(LiteralTest, HexadecimalDigits) {
  NonNumericLiteralExpression good(nullptr, "X\"0G\""), bad(nullptr, "X'G0'"),
      text(nullptr, "'G0'");
  EXPECT_TRUE(checker.semanticCheck(good)); // the last one is not checked
  EXPECT_TRUE(checker.semanticCheck(text));
  EXPECT_FALSE(checker.semanticCheck(bad));
  ASSERT_EQ(numbers(), std::vector<int>{3307});
  EXPECT_EQ(handler.getErrorList().front()->getMessage(),
            "The hexa literal contains an invalid character - 'G0'");
}

TEST_F(LiteralTest, FigurativeConstants) {
  auto constant = [](FigurativeType type, LiteralExpression *literal = nullptr) {
    return new FigurativeLiteralExpression(nullptr, type, literal);
  };
  auto *text = new NonNumericLiteralExpression(nullptr, "\"X\"");
  FigurativeLiteralExpression *allText = constant(FigurativeType::AllLiteral, text);
  EXPECT_TRUE(checker.semanticCheck(*allText));
  EXPECT_EQ(allText->getLiteral(), text);

  FigurativeLiteralExpression *allSpace =
      constant(FigurativeType::AllLiteral, constant(FigurativeType::Space));
  EXPECT_TRUE(checker.semanticCheck(*allSpace));
  EXPECT_EQ(allSpace->getFigurativeType(), FigurativeType::Space);
  EXPECT_EQ(allSpace->getLiteral(), nullptr);

  EXPECT_FALSE(checker.semanticCheck(*constant(FigurativeType::AllLiteral, allText)));
  EXPECT_FALSE(checker.semanticCheck(*constant(FigurativeType::AllLiteral, number("5"))));
  EXPECT_FALSE(checker.semanticCheck(*constant(FigurativeType::AllLiteral)));
  EXPECT_FALSE(checker.semanticCheck(*constant(FigurativeType::Zero, text)));
  EXPECT_EQ(numbers(), (std::vector<int>{3326, 3308, 3308, 3309}));
}

} // namespace
