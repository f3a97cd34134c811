//===- StatementCheckTest.cpp - statements that no source can say ---------===//

#include "CheckerFixture.h"

namespace tarka::test {

namespace {

class StatementCheck : public CheckerTest {
protected:
  /// Empties a list of diagnostics by giving their numbers and starting from there.
  std::vector<int> newNumbers() {
    std::vector<int> all = numbers();
    std::vector<int> fresh(all.begin() + static_cast<std::ptrdiff_t>(seen), all.end());
    seen = all.size();
    return fresh;
  }

private:
  std::size_t seen = 0;
};

TEST_F(StatementCheck, EveryKindIsCheckedPassedOrRefused) {
  // Kinds that need no check pass, whatever their class.
  for (StatementType kind :
       {StatementType::Exit, StatementType::ExitProgram, StatementType::NextSentence,
        StatementType::ExitParagraph, StatementType::ExitSection, StatementType::Exec,
        StatementType::Trace, StatementType::ExitPerform}) {
    Statement statement(nullptr, kind);
    EXPECT_TRUE(checker.semanticCheck(statement)) << static_cast<int>(kind);
  }
  EXPECT_TRUE(newNumbers().empty());

  // Those that no statement of a sentence has are refused: gaps, USE, the graph's own, and beyond.
  for (int kind : {0, 12, 15, 16, 41, 48, 49, 50, 51, 52, 59, 65, 255}) {
    Statement statement(nullptr, static_cast<StatementType>(kind));
    EXPECT_FALSE(checker.semanticCheck(statement)) << kind;
    EXPECT_EQ(newNumbers(), std::vector<int>{3409}) << kind;
  }
}

TEST_F(StatementCheck, PhrasesNeedStatements) {
  ExceptionHandler empty(nullptr, ExceptionHandlerType::AtEnd, false);
  EXPECT_FALSE(checker.semanticCheck(empty));
  EXPECT_EQ(newNumbers(), std::vector<int>{3471});

  // All statements are looked at after one that fails.
  ExceptionHandler two(nullptr, ExceptionHandlerType::AtEnd, false);
  two.addImperStmt(new Statement(nullptr, StatementType::Use));
  two.addImperStmt(new Statement(nullptr, StatementType::Use));
  EXPECT_FALSE(checker.semanticCheck(two));
  EXPECT_EQ(newNumbers(), (std::vector<int>{3409, 3409}));
}

TEST_F(StatementCheck, MoveWithoutOperands) {
  currentUnit();
  MoveStatement nothing(nullptr, nullptr, nullptr, false);
  EXPECT_FALSE(checker.semanticCheck(nothing));
  EXPECT_EQ(newNumbers(), (std::vector<int>{3407, 3407}));
  ASSERT_TRUE(nothing.getMoveRuleList());
  EXPECT_TRUE(nothing.getMoveRuleList()->empty());
}

TEST_F(StatementCheck, ReceiversBehindAFailureGetNoRule) {
  SourceUnit *unit = currentUnit();
  unit->getDataDivision()->addWorkSection(entry(77, "A", nullptr, "9(3)"));
  unit->getDataDivision()->addWorkSection(entry(77, "B", nullptr, "9(3)"));
  std::list<IdentifierExpression *> receivers{reference({"A"}), reference({"NOWHERE"}),
                                              reference({"B"})};
  MoveStatement move(nullptr, number("1"), &receivers, false);
  EXPECT_FALSE(checker.semanticCheck(move));
  EXPECT_EQ(newNumbers(), std::vector<int>{3310});
  EXPECT_EQ(move.getMoveRuleList()->size(), 1u);
}

TEST_F(StatementCheck, OsvsSendersAreReplacedByRegisters) {
  options.setOptionEnableOsvs(true);
  SourceUnit *unit = currentUnit();
  auto *registers = makeList<DataDescription *>();
  checker.createSpecialRegister(registers);
  unit->getDataDivision()->setWorkSection(registers);
  unit->getDataDivision()->addWorkSection(entry(77, "A", nullptr, "X(8)"));

  std::list<IdentifierExpression *> receivers{reference({"A"})};
  MoveStatement move(nullptr, reference({"CURRENT-DATE"}), &receivers, false);
  EXPECT_TRUE(checker.semanticCheck(move));
  options.setOptionEnableOsvs(false);

  auto *sender = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(move.getSource());
  ASSERT_TRUE(sender);
  EXPECT_EQ(sender->getType(), SpecialRegisterType::OsvsCurrentDate);
  EXPECT_EQ(sender->getRegisterWord()->getWordData(), "TARKA-OSVS-CURRENT-DATE");
  ASSERT_TRUE(sender->getDataDescription());
  EXPECT_EQ(move.getMoveRuleList()->front(), MoveRule::Character);
}

TEST_F(StatementCheck, FunctionsByTheNumberOfTheirType) {
  auto check = [&](int type, std::initializer_list<Expression *> arguments) {
    auto *function = new FunctionIdentifierExpression(nullptr, static_cast<IntrinsicType>(type),
                                                      word("SOME-FUNCTION"));
    for (Expression *argument : arguments)
      function->addFunctionArg(argument);
    checker.semanticCheck(*function);
    return function->getDataCategory();
  };
  auto *text = new NonNumericLiteralExpression(nullptr, "\"A\"");

  EXPECT_EQ(check(1, {}), DataCategory::Numeric);
  EXPECT_EQ(check(2, {}), DataCategory::Alphanumeric);
  EXPECT_EQ(check(72, {}), DataCategory::National);
  EXPECT_EQ(check(60, {}), DataCategory::Numeric);
  EXPECT_EQ(check(61, {}), DataCategory::Alphanumeric);
  EXPECT_TRUE(newNumbers().empty());

  // The category of the last argument remains, also when the arguments disagree.
  EXPECT_EQ(check(47, {text, number("1"), text}), DataCategory::Alphanumeric);
  EXPECT_EQ(newNumbers(), std::vector<int>{3318});
  EXPECT_EQ(check(65, {}), DataCategory::Unclassified);
  EXPECT_EQ(newNumbers(), std::vector<int>{3317});
  EXPECT_EQ(check(0, {}), DataCategory::Unclassified);
  EXPECT_EQ(check(73, {}), DataCategory::Unclassified);
  EXPECT_EQ(newNumbers(), (std::vector<int>{3319, 3319}));
  EXPECT_EQ(check(44, {number("1")}), DataCategory::Numeric);
  EXPECT_EQ(newNumbers(), std::vector<int>{3527});
}

} // namespace

} // namespace tarka::test
