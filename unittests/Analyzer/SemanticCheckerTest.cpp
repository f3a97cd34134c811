//===- SemanticCheckerTest.cpp - the walk over a program ------------------===//

#include "Analyzer/CheckerState.h"
#include "CheckerFixture.h"
#include "llvm/IR/Module.h"

using namespace tarka;
using namespace tarka::test;

namespace {

TEST(TopLevel, EachCompilationStartsAnew) {
  TopLevel &first = TopLevel::beginCompilation("FIRST", {});
  EXPECT_EQ(TopLevel::getTopLevelInstance("OTHER")->getID(), "FIRST");
  first.setHaveUPSI(true);
  first.setIsDecimalPointComma(true);
  first.addColseq(nullptr);
  first.addPerformAfter(nullptr);
  first.addStmtToDummyListUsedMove(nullptr);
  const CompileOption &options = *CompileOption::getCompileOptionInstance();
  CompileOption::getCompileOptionInstance()->setOptionSeqEbcdic(true);
  CompileOption::getCompileOptionInstance()->setOptionInit(true);

  CompileSettings settings;
  settings.dual = true;
  TopLevel &second = TopLevel::beginCompilation("SECOND", settings);
  EXPECT_EQ(&second, &first);
  EXPECT_EQ(second.getID(), "SECOND");
  EXPECT_EQ(second.getModule()->getName(), "SECOND");
  EXPECT_FALSE(second.getHaveUPSI() || second.getIsDecimalPointComma());
  EXPECT_EQ(second.getColseqList(), nullptr);
  EXPECT_EQ(second.getDummyListUsedMove(), nullptr);
  EXPECT_TRUE(options.isOptionDual());
  EXPECT_FALSE(options.isOptionInit() || options.isOptionSeqEbcdic());
}

using WalkTest = CheckerTest;

TEST_F(WalkTest, ProgramWithoutUnitsPassesAndKeepsIndexNames) {
  DataDescription *table = entry(1, "T");
  DataDescription *index = entry(1, "I");
  index->setParent(table);
  checker.addIndexFreeList(index);
  Program empty("empty");
  EXPECT_TRUE(checker.semanticCheck(empty));
  EXPECT_EQ(index->getParent(), table);

  Program program("one");
  program.addSourceUnit(unit("ONE"));
  EXPECT_TRUE(checker.semanticCheck(program));
  EXPECT_EQ(index->getParent(), nullptr);
  EXPECT_EQ(context().getCurrentProgram(), nullptr);
}

TEST_F(WalkTest, SpecialRegistersByOption) {
  std::list<DataDescription *> registers;
  checker.createSpecialRegister(&registers);
  ASSERT_EQ(registers.size(), 15u);
  EXPECT_EQ(registers.back()->getDataName()->getWordData(), "XML-TEXT");
  EXPECT_EQ(checker.getState().xmlText.entry, registers.back());

  options.setOptionEnableRw(true);
  options.setOptionEnableOsvs(true);
  options.setOptionEnableCbltdli(true);
  options.setOptionEnableAertdli(true);
  registers.clear();
  checker.createSpecialRegister(&registers);

  std::string summary;
  for (const DataDescription *made : registers) {
    summary += made->getDataName()->getWordData() + (made->getGlobal() ? " global " : " ") +
               made->getPicture()->getCharStringWord()->getWordData();
    summary += made->getUsage() ? " usage " + std::to_string(int(made->getUsageType())) : "";
    summary += made->getValue() ? " value\n" : "\n";
  }
  EXPECT_EQ(summary, "RETURN-CODE global S9(4) usage 1 value\n"
                     "SHIFT-OUT global X(1) usage 8 value\n"
                     "SHIFT-IN global X(1) usage 8 value\n"
                     "SORT-CONTROL global X(8) usage 8 value\n"
                     "SORT-CORE-SIZE global S9(8) usage 1 value\n"
                     "SORT-FILE-SIZE global S9(8) usage 1 value\n"
                     "SORT-MESSAGE global X(8) usage 8 value\n"
                     "SORT-MODE-SIZE global S9(5) usage 1 value\n"
                     "SORT-RETURN global S9(4) usage 1 value\n"
                     "TALLY global 9(5) usage 1 value\n"
                     "WHEN-COMPILED global X(16) usage 8\n"
                     "XML-CODE S9(9) usage 1 value\n"
                     "XML-EVENT X(30) value\n"
                     "XML-INFORMATION S9(9) usage 1 value\n"
                     "XML-TEXT X(1) usage 8\n"
                     "PRINT-SWITCH global 9(9) usage 1 value\n"
                     "TARKA-CURRENT-DATE X(8) usage 8\n"
                     "TARKA-TIME-OF-DAY X(8) usage 8\n"
                     "TARKA-OSVS-TIME-OF-DAY X(6) usage 8\n"
                     "TARKA-OSVS-CURRENT-DATE X(8) usage 8\n"
                     "KORVALINE-CBLTDLI-PC S9(9) usage 1\n"
                     "KORVALINE-AERTDLI-PC S9(9) usage 1\n");
}

TEST_F(WalkTest, OutermostUnitsGetTheirRegistersAndXmlTextItsSize) {
  Program program("two");
  SourceUnit *first = unit("FIRST");
  SourceUnit *nested = unit("NESTED", first);
  SourceUnit *second = unit("SECOND");
  program.addSourceUnit(first);
  program.addSourceUnit(second);
  checker.getState().xmlText.size = 500;
  EXPECT_TRUE(checker.semanticCheck(program));
  EXPECT_EQ(nested->getDataDivision(), nullptr);
  auto xmlTextOf = [](SourceUnit *made) {
    const DataDescription *entry = made->getDataDivision()->findItemByName("XML-TEXT")->front();
    return entry->getPicture()->getCharStringWord()->getWordData();
  };
  ASSERT_EQ(first->getDataDivision()->getWorkSectionSize(), 15u);
  EXPECT_EQ(xmlTextOf(first), "X(500)");
  EXPECT_EQ(xmlTextOf(second), "X(1)");
}

TEST_F(WalkTest, CallablePrograms) {
  Program program("calls");
  SourceUnit *outer = unit("OUTER");
  SourceUnit *common = unit("COMMON-ONE", outer, ProgramIdType::Common);
  SourceUnit *sibling = unit("SIBLING", outer);
  SourceUnit *nephew = unit("NEPHEW", sibling);
  program.addSourceUnit(outer);
  EXPECT_TRUE(checker.semanticCheck(program));
  using Names = std::list<std::string>;
  EXPECT_EQ(outer->getCallableList(), (Names{"COMMON-ONE", "SIBLING"}));
  EXPECT_EQ(common->getCallableList(), Names{});
  EXPECT_EQ(sibling->getCallableList(), (Names{"COMMON-ONE", "NEPHEW"}));
  EXPECT_EQ(nephew->getCallableList(), Names{"COMMON-ONE"});
}

TEST_F(WalkTest, ProgramIdMustBeTheFileNameWhenAsked) {
  options.setCheckFileID(true);
  Program program("ids");
  SourceUnit *good = unit("src/PROG.1");
  SourceUnit *bad = unit("src/prog.1");
  SourceUnit *nested = unit("src/PROG.1", bad);
  program.addSourceUnit(good);
  program.addSourceUnit(bad);
  EXPECT_FALSE(checker.semanticCheck(program));
  EXPECT_EQ(numbers(), std::vector<int>{1001});
  EXPECT_NE(good->getDataDivision(), nullptr);
  // Such a program is not checked further, nor are the programs nested in it.
  EXPECT_EQ(bad->getDataDivision(), nullptr);
  EXPECT_TRUE(bad->getCallableList().empty());
  EXPECT_TRUE(nested->getCallableList().empty());
}

TEST_F(WalkTest, PriorityNumbers) {
  ProcedureDivision *division = currentUnit()->getProcDivision();
  for (const char *priority : {"0", "99", "100", "-1"}) {
    Section *made = section(priority);
    made->setPriorityNumExpr(number(priority));
    division->addSect(made);
  }
  EXPECT_FALSE(checker.semanticCheck(*division));
  EXPECT_EQ(numbers(), (std::vector<int>{3006, 3006}));
}

TEST_F(WalkTest, DeclarativesAreSortedByTheirUse) {
  SourceUnit *current = currentUnit();
  ProcedureDivision *division = current->getProcDivision();
  auto *sales = new ReportDescription(nullptr, word("SALES"));
  std::vector<ReportDataDescription *> groups;
  for (const char *groupName : {"G1", "G2"}) {
    auto *group = new ReportDataDescription(&nowhere);
    group->setLevelNum(1);
    group->setDataName(word(groupName));
    sales->addRecord(group);
    groups.push_back(group);
  }
  current->getDataDivision()->addReportSection(sales);

  std::vector<Declaratives *> made;
  auto add = [&](UseStatement *use) {
    made.push_back(new Declaratives(nullptr, section("D" + std::to_string(made.size())), use));
    division->addDeclaratives(made.back());
  };
  auto reporting = [&](const char *groupName) {
    auto *use = new UseStatement(nullptr, UseTimingType::BeforeReporting);
    use->addReport(reference({groupName}));
    return use;
  };
  add(nullptr); // in front of every USE: it belongs to nothing
  add(reporting("G2"));
  add(reporting("G1"));
  add(new UseStatement(nullptr, UseTimingType::AfterException));
  add(nullptr); // after one of each kind: it belongs to both

  EXPECT_TRUE(checker.semanticCheck(*division));
  EXPECT_EQ(division->getRptDeclElements(), (NodeList<Declaratives>{made[1], made[2], made[4]}));
  EXPECT_EQ(division->getBaseDeclElements(), (NodeList<Declaratives>{made[3], made[4]}));
  EXPECT_EQ(groups[0]->getDeclIndex(), 2);
  EXPECT_EQ(groups[1]->getDeclIndex(), 1);
  EXPECT_EQ(sales->getDeclIndexCnt(), 2);
  EXPECT_TRUE(made[0]->getSection()->isPerformThru());
  EXPECT_EQ(checker.getCurrentRD(), nullptr);
  EXPECT_EQ(checker.getOuterSection(), nullptr);

  // A USE BEFORE REPORTING that names nothing fails without a message.
  UseStatement empty(nullptr, UseTimingType::BeforeReporting);
  EXPECT_FALSE(checker.semanticCheck(empty));
  EXPECT_EQ(numbers(), std::vector<int>{});
}

TEST_F(WalkTest, DebuggingProceduresAreSectionsFirst) {
  ProcedureDivision *division = currentUnit()->getProcDivision();
  Paragraph *second = paragraph("P2");
  Section *first = section("P1", {paragraph("P1"), second});
  division->addSect(first);
  UseStatement use(nullptr, UseTimingType::ForDebugging);
  for (const char *procedure : {"P1", "NOWHERE", "P2"})
    use.addProcedure(word(procedure));
  EXPECT_FALSE(checker.semanticCheck(use));
  EXPECT_EQ(numbers(), std::vector<int>{3403});
  ASSERT_EQ(use.getUseProcedureList()->size(), 2u);
  EXPECT_EQ(use.getUseProcedureList()->front()->getSection(), first);
  EXPECT_EQ(use.getUseProcedureList()->back()->getParagraph(), second);
}

TEST_F(WalkTest, UsingAndReturningItems) {
  SourceUnit *current = currentUnit();
  DataDivision *data = current->getDataDivision();
  DataDescription *record = entry(1, "R");
  DataDescription *linked = entry(1, "L");
  entry(5, "R5", record, "X");
  entry(5, "L5", linked, "X");
  data->addWorkSection(record);
  data->addLinkSection(linked);
  ProcedureDivision *division = current->getProcDivision();
  for (const char *item : {"R", "R5", "L", "L5", "NONE"})
    division->addParameter(new Parameter(nullptr, ParameterType::Reference, reference({item})));
  EXPECT_FALSE(checker.semanticCheck(*division));
  EXPECT_EQ(numbers(), (std::vector<int>{3001, 3310}));

  EntryStatement entryPoint(nullptr, nullptr);
  for (const char *item : {"R", "R5", "L", "L5"})
    entryPoint.addParameter(new Parameter(nullptr, ParameterType::Reference, reference({item})));
  EXPECT_FALSE(checker.semanticCheck(entryPoint));
  EXPECT_EQ(numbers(), (std::vector<int>{3001, 3310, 3001, 3001, 3001, 3001}));
}

} // namespace
