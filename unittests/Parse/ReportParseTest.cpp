//===- ReportParseTest.cpp - report section into the tree -----------------===//

#include "ParserTest.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {
namespace {

class ReportParseTest : public ParserTest {
protected:
  /// Parses the report section of a program, in line 3 on, and gives its first report.
  ReportDescription &parseReport(llvm::StringRef text) {
    DataDivision &data = *parse("DATA DIVISION. REPORT SECTION.\n" + text.str())->getDataDivision();
    return *data.getReportSectionElements().front();
  }
  /// Parses one report group and gives its first entry.
  ReportDataDescription &parseGroup(llvm::StringRef text) {
    return *parseReport("RD R.\n" + text.str()).getRecordListElements().front();
  }
  /// The child of \p entry with this number, from 0.
  static ReportDataDescription &child(const DataDescription &entry, unsigned number = 0) {
    return llvm::cast<ReportDataDescription>(
        **std::next(entry.getChildrenElements().begin(), number));
  }

  /// A name, a number, or the class of anything else.
  static std::string show(const Expression *operand) {
    if (!operand)
      return "-";
    if (auto *number = llvm::dyn_cast<NumericLiteralExpression>(operand))
      return number->getData();
    if (auto *name = llvm::dyn_cast<DataIdentifierExpression>(operand))
      return name->getQualifiedWord()->getNamesElements().front()->getWordData();
    if (auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(operand))
      return "'" + text->getData() + "'";
    return "?";
  }
  template <typename Operand> static std::string show(const NodeList<Operand> &operands) {
    std::string text;
    for (const Operand *operand : operands)
      text += (text.empty() ? "" : " ") + show(operand);
    return text;
  }
};

TEST_F(ReportParseTest, reportDescription) {
  ReportDescription &report = parseReport(R"(RD R IS GLOBAL WITH CODE "AB"
   CONTROLS ARE FINAL, YEAR-NO MONTH-NO OF D
   PAGE LIMITS ARE 60 LINES 132 COLUMNS HEADING 1 FIRST DETAIL 5
        LAST CONTROL HEADING 50 LAST DE 55 FOOTING 58
   LINE LIMIT IS WIDTH-ITEM ALLOW NO SOURCE SUM CORR
   OVERFLOW PROCEDURE IS "?" STYLE UNDERLINE HIGHLIGHT.
RD S PAGE 66 CONTROL IS C1.
)");
  EXPECT_EQ(reported(), "");
  EXPECT_NE(report.getGlobal(), nullptr);
  EXPECT_EQ(show(report.getCodeClause()->getCodeExpr()), "'AB'");
  EXPECT_EQ(report.getControlClause()->getControlOption(), ControlOption::Final);
  EXPECT_EQ(show(report.getControlClause()->getControlIdListElements()), "YEAR-NO MONTH-NO");
  ClausePageLimit &page = *report.getPageLimitClause();
  EXPECT_EQ(show(page.getPageLimit()), "60");
  EXPECT_EQ(show(page.getColumns()), "132");
  EXPECT_EQ(show(page.getHeading()), "1");
  EXPECT_EQ(show(page.getFirstDetail()), "5");
  EXPECT_EQ(show(page.getLastControlHeading()), "50");
  EXPECT_EQ(show(page.getLastDetail()), "55");
  EXPECT_EQ(show(page.getFooting()), "58");
  EXPECT_EQ(show(report.getLineLimitClause()->getLineLimitExpr()), "WIDTH-ITEM");
  EXPECT_FALSE(report.getAllowClause()->isAllowed());
  EXPECT_EQ(show(report.getOverflowClause()->getLiteral()), "'?'");
  EXPECT_EQ(report.getRdStyleClause()->getStyleListSize(), 2u);

  ReportDescription &second = *unit->getDataDivision()->getReportSectionElements().back();
  EXPECT_EQ(show(second.getPageLimitClause()->getPageLimit()), "66");
  EXPECT_EQ(second.getControlClause()->getControlOption(), ControlOption::None);
}

TEST_F(ReportParseTest, groupTypes) {
  ReportDescription &report = parseReport(R"(RD R.
01 TYPE RH. 01 TYPE IS REPORT HEADING. 01 TYPE PAGE HEADING.
01 A TYPE CH FINAL. 01 TYPE CONTROL HEADING FOR YEAR-NO OR PAGE.
01 B TYPE DETAIL LINE PLUS 1. 01 C TYPE DE.
01 TYPE CF FOR Y, M LINE 3. 01 TYPE CF FOR ALL LINE 5. 01 TYPE CONTROL FOOTING FINAL. 01 TYPE PF. 01 TYPE REPORT FOOTING.
)");
  EXPECT_EQ(reported(), "");
  using enum ReportGroupType;
  const ReportGroupType types[] = {ReportHeading,  ReportHeading,  PageHeading, ControlHeading,
                                   ControlHeading, Detail,         Detail,      ControlFooting,
                                   ControlFooting, ControlFooting, PageFooting, ReportFooting};
  ASSERT_EQ(report.getRecordListSize(), std::size(types));
  auto group = report.getRecordListBegin();
  for (ReportGroupType type : types)
    EXPECT_EQ((*group++)->getTypeClause()->getTypeOption(), type);

  group = std::next(report.getRecordListBegin(), 3);
  EXPECT_TRUE((*group)->getTypeClause()->getReportFinal());
  EXPECT_EQ(show((*++group)->getTypeClause()->getControlIdListElements()), "YEAR-NO");
  EXPECT_TRUE((*group)->getTypeClause()->isOrPage());
  group = std::next(report.getRecordListBegin(), 7);
  EXPECT_EQ(show((*group)->getTypeClause()->getControlIdListElements()), "Y M");
  EXPECT_NE((*group)->getLineClause(), nullptr);
  EXPECT_FALSE((*group)->getTypeClause()->isAll());
  EXPECT_TRUE((*++group)->getTypeClause()->isAll());
  EXPECT_EQ((*group)->getReportDescription(), &report);
  EXPECT_EQ((*group)->getStorageType(), StorageType::Report);
}

TEST_F(ReportParseTest, linesAndColumns) {
  ReportDataDescription &group = parseGroup(R"(01 G TYPE DE NEXT GROUP IS PLUS 2 GROUP LIMIT 50.
  02 LINE NUMBER IS 5 ON NEXT PAGE NEXT GROUP NEXT PAGE.
    03 COLUMN NUMBER IS 10 PIC X(5) VALUE "A".
    03 COL + 3 PIC X. 03 COLUMN RIGHT 40 50, 60 PIC 9.
  02 LINES ARE 7
     9 11 OCCURS 3 TIMES STEP 2 VARYING I FROM 1 BY 2 J.
    03 COL 1 PIC X GROUP INDICATE.
  02 LINE PLUS 1
    03 COL 1 PIC X.
)");
  // A number at the beginning of a line goes on with a list, unless it looks like a level number.
  EXPECT_EQ(reported(), "220@12:5");
  ASSERT_EQ(group.getChildrenSize(), 3u);
  EXPECT_EQ(group.getNextGroupClause()->getType(), NextGroupType::Plus);
  EXPECT_EQ(show(group.getNextGroupClause()->getNumberExpr()), "2");
  EXPECT_EQ(show(group.getGroupLimitClause()->getLimitExpr()), "50");

  ReportDataDescription &line = child(group);
  EXPECT_TRUE(line.getLineClause()->getNextPage());
  EXPECT_FALSE(line.getLineClause()->isRelative());
  EXPECT_EQ(line.getNextGroupClause()->getType(), NextGroupType::NextPage);
  ASSERT_EQ(line.getChildrenSize(), 3u);
  EXPECT_NE(child(line, 0).getReportValueClause(), nullptr);
  EXPECT_TRUE(child(line, 1).getColumnClause()->isRelative());
  ClauseColumn &column = *child(line, 2).getColumnClause();
  EXPECT_EQ(column.getAlignment(), ColumnAlignment::Right);
  EXPECT_EQ(show(column.getNumbersListElements()), "40 50 60");

  ReportDataDescription &lines = child(group, 1);
  EXPECT_EQ(show(lines.getLineClause()->getNumbersListElements()), "7 9 11");
  ClauseReportOccurs &occurs = *lines.getReportOccursClause();
  EXPECT_EQ(show(occurs.getOccurs()->getMaxExpr()), "3");
  EXPECT_EQ(show(occurs.getStepExpr()), "2");
  ASSERT_EQ(occurs.getVaryingList()->size(), 2u);
  EXPECT_EQ(show(occurs.getVaryingList()->front()->getByExpr()), "2");
  EXPECT_TRUE(child(lines).isGroupIndicate());
  EXPECT_TRUE(child(group, 2).getLineClause()->isRelative());
}

TEST_F(ReportParseTest, whatItemsShow) {
  ReportDataDescription &line = parseGroup(R"(01 LINE 1.
  02 A COL 1 PIC 9(5) SOURCE IS AMOUNT OF R ROUNDED.
  02 B COL 9 PIC 9(5) SOURCE X + Y * 2.
  02 C COL 17 PIC 9(5) SOURCES ARE P 5 SUM Q.
  02 D COL 25 PIC 9(5) SUM A B UPON DET1 DET2 SUM OF C RESET ON FINAL ROUNDED.
  02 E COL 33 PIC 9 SUM A RESET YEAR-NO COUNT OF G1 G2.
  02 F COL 41 PIC X FUNCTION IS RTN (X 5).
  02 G COL 49 PIC S9 SIGN LEADING SEPARATE USAGE DISPLAY JUST BLANK ZERO SOURCE PAGE-COUNTER.
  02 H REPEATED 3 TIMES EVERY 40 COLUMNS MULTIPLE PAGES WRAP AFTER COLUMN 80 TO COL 5 STYLE BOLD.
)");
  EXPECT_EQ(reported(), "");
  ASSERT_EQ(line.getChildrenSize(), 8u);
  auto source = [&](unsigned item) {
    std::string text;
    for (SourceClauseExpr *operand :
         child(line, item).getSourceClause()->getSourceExprListElements())
      text += llvm::formatv("{0}{1} ", static_cast<int>(operand->getSourceExprType()),
                            show(operand->getExpr()));
    return text;
  };
  EXPECT_EQ(source(0), "1AMOUNT ");
  EXPECT_TRUE(child(line, 0).getSourceClause()->getRounded());
  EXPECT_EQ(source(1), "2? ");
  EXPECT_EQ(source(2), "1P 45 3- ");
  EXPECT_EQ(show(child(line, 2)
                     .getSourceClause()
                     ->getSourceExprListElements()
                     .back()
                     ->getSumExpr()
                     ->getNameListElements()),
            "Q");

  ClauseSum &sum = *child(line, 3).getSumClause();
  ASSERT_EQ(sum.getSumExprListSize(), 2u);
  EXPECT_EQ(show(sum.getSumExprListElements().front()->getNameListElements()), "A B");
  EXPECT_EQ(show(sum.getSumExprListElements().front()->getUponListElements()), "DET1 DET2");
  EXPECT_EQ(sum.getResetType(), ResetType::Final);
  EXPECT_TRUE(sum.getRounded());
  EXPECT_EQ(show(child(line, 4).getSumClause()->getResetControl()), "YEAR-NO");
  EXPECT_EQ(show(child(line, 4)
                     .getCountClause()
                     ->getCountExprListElements()
                     .front()
                     ->getNameListElements()),
            "G1 G2");
  EXPECT_EQ(show(child(line, 5).getFunctionClause()->getArgumentListElements()), "X 5");
  EXPECT_TRUE(child(line, 6).getReportSignClause()->getSign()->isSeperate());
  ReportDataDescription &last = child(line, 7);
  EXPECT_EQ(show(last.getRepeatedClause()->getEveryExpr()), "40");
  EXPECT_NE(last.getMultipleClause(), nullptr);
  EXPECT_EQ(show(last.getWrapClause()->getToColumn()), "5");
  EXPECT_EQ(last.getStyleClause()->getStyleListSize(), 1u);
}

TEST_F(ReportParseTest, presence) {
  ReportDataDescription &line = parseGroup(R"(01 LINE 1 PRESENT AFTER NEW PAGE.
  02 COL 1 PIC X SOURCE A PRESENT WHEN A = "X".
  02 COL 2 PIC X SOURCE A ABSENT WHEN A = "X".
  02 COL 3 PIC X PRESENT AFTER CTL OR PAGE VALUE "C" .
  02 COL 3 PIC X ABSENT AFTER PAGE VALUE "D".
  02 COL 4 PIC X VALUE "A" WHEN A = 1 SOURCE B WHEN A = 2 VALUE "Z" WHEN OTHER.
)");
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(line.getClausePresentAfterListElements().front()->getAfterType(), PresentType::NewPage);

  // One condition: it is the item that is there or not.
  ClausePresentWhen &when = *child(line, 0).getClausePresentWhenListElements().front();
  EXPECT_NE(when.getPresentCond(), nullptr);
  EXPECT_EQ(when.getSource(), nullptr);
  EXPECT_NE(child(line, 0).getSourceClause(), nullptr);
  EXPECT_TRUE(llvm::isa<NegatedCondition>(
      child(line, 1).getClausePresentWhenListElements().front()->getPresentCond()));
  ClausePresentAfter &after = *child(line, 2).getClausePresentAfterListElements().front();
  EXPECT_EQ(after.getAfterType(), PresentType::ControlOrPage);
  EXPECT_EQ(show(after.getControlId()), "CTL");
  EXPECT_FALSE(after.isAbsent());
  EXPECT_TRUE(child(line, 3).getClausePresentAfterListElements().front()->isAbsent());

  // Of several contents each belongs to the condition after it.
  ReportDataDescription &choice = child(line, 4);
  ASSERT_EQ(choice.getClausePresentWhenListSize(), 3u);
  auto option = choice.getClausePresentWhenListBegin();
  EXPECT_NE((*option)->getValue(), nullptr);
  EXPECT_NE((*++option)->getSource(), nullptr);
  EXPECT_NE((*++option)->getValue(), nullptr);
  EXPECT_EQ((*option)->getWhenType(), PresentType::None);
  EXPECT_EQ(choice.getSourceClause(), nullptr);
  EXPECT_EQ(choice.getReportValueClause(), nullptr);
}

TEST_F(ReportParseTest, mistakes) {
  ReportDescription &report = parseReport(R"(RD R PAGE LIMIT 60 HEADING 1 HEADING 2 KONTROL X.
01 TYPE IS DETIAL LINE 1.
  02 COL 1 PIC X SOURCE A SOURCE B.
  02 COL 2 PICTUR X SUM.
  02 LINE ON 5.
  02 COL PIC X.
  02 COL 3 GROUP PIC X.
RD.
01 TYPE DE.
)");
  EXPECT_EQ(reported(), "225@3:30 224@3:40 200@4:12 225@5:27 224@6:12 200@6:24 200@7:14 "
                        "200@9:18 200@10:3");
  ASSERT_EQ(report.getRecordListSize(), 1u);
  ReportDataDescription &group = *report.getRecordListElements().front();
  EXPECT_NE(group.getLineClause(), nullptr);
  EXPECT_EQ(group.getChildrenSize(), 5u);
  // COL followed by a PICTURE is a name.
  EXPECT_EQ(child(group, 3).getDataName()->getWordData(), "COL");

  parse("DATA DIVISION. REPORT SECTION.\n01 TYPE DE.\n01 TYPE DE.\nRD R.\n01 A TYPE DE.\n");
  EXPECT_EQ(reported(), "255@3:1");
}

} // namespace
} // namespace tarka
