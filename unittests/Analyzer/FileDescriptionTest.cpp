//===- FileDescriptionTest.cpp - what no source can say of a file ---------===//

#include "CheckerFixture.h"

namespace tarka::test {

namespace {

class FileDescriptionTest : public CheckerTest {
protected:
  /// A file of the current unit, with its SELECT.
  FileDescription *file(llvm::StringRef fileName) {
    SourceUnit *program = unit("PROG");
    context().setCurrentSourceUnit(program);
    auto *inputOutput = new InputOutputSection(nullptr);
    selected = new ParaFileControl(nullptr, word(fileName));
    inputOutput->addFileControl(selected);
    auto *environment = new EnvironmentDivision(nullptr);
    environment->setInputOutputSection(inputOutput);
    program->setEnvironmentDivision(environment);
    return new FileDescription(nullptr, FileDescType::File, word(fileName));
  }

  FunctionIdentifierExpression *function() {
    return new FunctionIdentifierExpression(nullptr, IntrinsicType::Random, word("RANDOM"));
  }

  ParaFileControl *selected = nullptr;
};

// The parser lets nothing but data names and literals through, and another front end may do less.
TEST_F(FileDescriptionTest, OperandsOfOtherKinds) {
  FileDescription *made = file("F");
  made->setRecord(new ClauseRecord(nullptr, nullptr, nullptr, true, function()));
  auto *label = new ClauseLabel(nullptr, LabelType::DataName);
  label->addDataName(number("1"));
  made->setLabel(label);
  auto *valueOf = new ClauseValueOf(nullptr);
  valueOf->addFileValueOfElem(new ValueOfElem(nullptr, word("FIELD"), function()));
  valueOf->addFileValueOfElem(new ValueOfElem(nullptr, word("NAME-ONLY"), nullptr));
  made->setValueOf(valueOf);
  auto *linage = new ClauseLinage(nullptr);
  linage->setWithFootingAt(new FigurativeLiteralExpression(nullptr, FigurativeType::Zero, nullptr));
  made->setLinage(linage);

  EXPECT_FALSE(checker.semanticCheck(*made));
  EXPECT_EQ(numbers(), (std::vector<int>{3155, 3161, 3157, 3159}));
  EXPECT_EQ(made->getFileControl(), selected);
  // The mode is settled though the clause is wrong.
  ASSERT_TRUE(made->getRecordingMode());
  EXPECT_EQ(made->getRecordingMode()->getRecordingType(), RecordingModeType::Variable);
  // Without a number of lines there is no counter.
  EXPECT_FALSE(made->getLineageCounter());
}

TEST_F(FileDescriptionTest, LinageCounterOfProgramWithoutDataDivision) {
  FileDescription *made = file("F");
  auto *linage = new ClauseLinage(nullptr);
  linage->setNumOfLines(number("066"));
  made->setLinage(linage);

  EXPECT_TRUE(checker.semanticCheck(*made));
  DataDivision *division = context().getCurrentSourceUnit()->getDataDivision();
  ASSERT_TRUE(division);
  ASSERT_EQ(division->getWorkSectionSize(), 1u);
  DataDescription *counter = *division->getWorkSectionBegin();
  EXPECT_EQ(counter, made->getLineageCounter());
  EXPECT_EQ(counter->getPicture()->getCharStringWord()->getWordData(), "9(3)");
  EXPECT_TRUE(counter->getGlobal());
}

// A clause of the programmer keeps its lengths for the first variable record, which only marks it.
TEST_F(FileDescriptionTest, LengthsOfVariableRecords) {
  FileDescription *made = file("F");
  DataDescription *record = entry(1, "R");
  DataDescription *table = entry(5, "T", record, "X(10)");
  auto *occurs = new ClauseOccurs(nullptr);
  occurs->setMinExpr(number("2"));
  occurs->setMaxExpr(number("4"));
  occurs->setOdoName(reference({"N"}));
  table->setOccurs(occurs);

  auto *written = new ClauseRecord(nullptr, number("25"), nullptr, false, nullptr);
  made->setRecord(written);
  checker.determineRecordingModeV(*record, *made);
  EXPECT_TRUE(written->getForDetermineV());
  EXPECT_EQ(written->getMinLength()->getData(), "25");
  EXPECT_FALSE(written->getMaxLength());
  checker.determineRecordingModeV(*record, *made);
  EXPECT_EQ(made->getRecord(), written);
  EXPECT_EQ(written->getMinLength()->getData(), "20");
  EXPECT_EQ(written->getMaxLength()->getData(), "40");
}

} // namespace

} // namespace tarka::test
