//===- CFGStatementTest.cpp - branches and conditional phrases ------------===//

#include "Analyzer/CompileOption.h"
#include "CFGTree.h"
#include <gtest/gtest.h>

using namespace tarka;
using namespace tarka::test;

using Phrase = ExceptionHandlerType;

TEST(CFGStatement, NestedIfJoinsInsideOut) {
  EXPECT_EQ(shapeOf({ifThen({ifThen({plain()})}, {plain()}), plain()}),
            R"(1 tkdummy_unnamed_sentence! [IF] then=2 else=5 end=6
2 tkdummy_then! [IF] then=3 end=4
3 tkdummy_then [CONTINUE] successor=4
4 tkdummy_endif successor=6
5 tkdummy_else [CONTINUE] successor=6
6 tkdummy_endif [CONTINUE]
)");
}

TEST(CFGStatement, OnCountsFirst) {
  auto *on = make<OnStatement>(1, nullptr);
  on->setAddStmt(make<AddStatement>(1, AddStmtType::To));
  on->addUntilStmt(plain());
  EXPECT_EQ(shapeOf({on}), R"(1 tkdummy_unnamed_sentence! [ADD] successor=2 end=2
2 tkdummy_end_on_size! [ON] then=3 end=4
3 tkdummy_then [CONTINUE] successor=4
4 tkdummy_endon
)");
}

static EvaluateCase *evaluateCase(EvalWhenType type, const Statements &statements) {
  auto *made = make<EvaluateCase>(1);
  made->addWhen(make<EvaluateWhen>(1, type));
  for (Statement *statement : statements)
    made->addWhenStmt(statement);
  return made;
}

TEST(CFGStatement, EvaluateChainsItsTests) {
  auto *evaluate = make<EvaluateStatement>(7);
  evaluate->addWhenCase(evaluateCase(EvalWhenType::When, {ifThen({plain()})}));
  evaluate->addWhenCase(evaluateCase(EvalWhenType::Other, {plain()}));
  Tree tree({plain(), evaluate});
  CFGFunc *function = tree.build();
  EXPECT_EQ(shapeOf(function->getBody()), R"(0 entry
1 tkdummy_unnamed_sentence! [CONTINUE] [when] successor=5 then=2 else=5 end=7
2 tkdummy_evaluate_when_body! [IF] then=3 end=4
3 tkdummy_then [CONTINUE] successor=4
4 tkdummy_endif successor=7 then=7
5 tkdummy_evaluate_when_cond! [when] successor=7 then=6 else=7 end=7
6 tkdummy_evaluate_when_body [CONTINUE] successor=7 then=7
7 tkdummy_evaluate_end
)");
  auto *test = llvm::cast<InnerWhenStatement>(function->getBody()
                                                  ->findBlock("tkdummy_evaluate_when_cond")
                                                  ->getElements()
                                                  .front()
                                                  ->getStmt());
  EXPECT_EQ(test->getType(), EvalWhenType::Other);
  EXPECT_EQ(test->getBeginLineNo(), 7);
  EXPECT_EQ(failuresOf(*tree.module), "");
}

TEST(CFGStatement, SizeErrorJoinsBehindItsPhrases) {
  auto *both = make<ComputeStatement>(1);
  both->addSizeErrorHandler(phrase(Phrase::SizeError));
  both->addSizeErrorHandler(phrase(Phrase::SizeError, true));
  auto *onlyNot = make<DivideStatement>(1, DivideStmtType::Into, nullptr);
  onlyNot->addSizeErrorHandler(phrase(Phrase::SizeError, true, {ifThen({plain()})}));
  EXPECT_EQ(shapeOf({both, onlyNot}),
            R"(1 tkdummy_unnamed_sentence! [COMPUTE] end=4 onSize=2 notOnSize=3
2 tkdummy_on_size [CONTINUE] successor=4
3 tkdummy_not_on_size [CONTINUE] successor=4
4 tkdummy_end_on_size! [DIVIDE] end=8 notOnSize=5
5 tkdummy_not_on_size! [IF] then=6 end=7
6 tkdummy_then [CONTINUE] successor=7
7 tkdummy_endif successor=8
8 tkdummy_end_on_size
)");
}

TEST(CFGStatement, OverflowTakesTheSecondPhraseForTheNotForm) {
  auto *without = make<StringStatement>(1);
  auto *both = make<UnstringStatement>(1, nullptr);
  both->addOverflowHandler(phrase(Phrase::Overflow));
  both->addOverflowHandler(phrase(Phrase::Overflow));
  EXPECT_EQ(shapeOf({without, both}),
            R"(1 tkdummy_unnamed_sentence! [STRING] [UNSTRING] then=2 else=3 end=4
2 tkdummy_overflow [CONTINUE] successor=4
3 tkdummy_not_overflow [CONTINUE] successor=4
4 tkdummy_end
)");
}

TEST(CFGStatement, InputOutputEntersDeclarativesOnlyWithoutPhrases) {
  auto *quiet = make<WriteStatement>(1, nullptr);
  auto *declared = make<ReadStatement>(1, nullptr);
  declared->setIsDeclaratives(true);
  auto *handled = make<ReturnStatement>(1, nullptr);
  handled->setIsDeclaratives(true);
  handled->addEndHandler(phrase(Phrase::AtEnd));
  auto *deleted = make<DeleteStatement>(1, nullptr);
  deleted->addInvalidKeyHandler(phrase(Phrase::InvalidKey));
  deleted->addInvalidKeyHandler(phrase(Phrase::InvalidKey, true));
  EXPECT_EQ(shapeOf({quiet, declared, handled, deleted}),
            R"(1 tkdummy_unnamed_sentence! [WRITE] [READ] successor=2 after=2 return=2
2 tkdummy_declarative_after! [RETURN] then=3 end=4
3 tkdummy_return_exception [CONTINUE] successor=4
4 tkdummy_return_end! [DELETE] then=5 else=6 end=7
5 tkdummy_delete_exception [CONTINUE] successor=7
6 tkdummy_delete_exception [CONTINUE] successor=7
7 tkdummy_delete_end
)");
}

TEST(CFGStatement, NamesOfTheInputOutputBranches) {
  auto *read = make<ReadStatement>(1, nullptr);
  read->addError(phrase(Phrase::AtEnd));
  read->addError(phrase(Phrase::AtEnd, true));
  auto *write = make<WriteStatement>(1, nullptr);
  write->addExceptionHandler(phrase(Phrase::EndOfPage, true));
  auto *start = make<StartStatement>(1, nullptr);
  start->addInvalidKeyHandler(phrase(Phrase::InvalidKey));
  auto *rewrite = make<RewriteStatement>(1, nullptr);
  rewrite->addInvalidKeyHandler(phrase(Phrase::InvalidKey, true));
  EXPECT_EQ(shapeOf({read, write, start, rewrite}),
            R"(1 tkdummy_unnamed_sentence! [READ] then=2 else=3 end=4
2 tkdummy_read_exception [CONTINUE] successor=4
3 tkdummy_read_notexception [CONTINUE] successor=4
4 tkdummy_read_end! [WRITE] else=5 end=6
5 tkdummy_write_notexception [CONTINUE] successor=6
6 tkdummy_write_end! [START] then=7 end=8
7 tkdummy_start_exception [CONTINUE] successor=8
8 tkdummy_start_end! [REWRITE] else=9 end=10
9 tkdummy_rewrite_notexception [CONTINUE] successor=10
10 tkdummy_rewrite_end
)");
}

TEST(CFGStatement, XmlGenerateIgnoresForeignPhrases) {
  auto *without = make<XMLGenerateStatement>(1, nullptr, nullptr);
  without->addOnExcpHandler(phrase(Phrase::Overflow));
  auto *onlyNot = make<XMLGenerateStatement>(1, nullptr, nullptr);
  onlyNot->addOnExcpHandler(phrase(Phrase::OnException, true));
  EXPECT_EQ(shapeOf({without, onlyNot}),
            R"(1 tkdummy_unnamed_sentence! [XML GENERATE] successor=2 end=2
2 tkdummy_xml_generate_end! [XML GENERATE] else=3 end=4
3 tkdummy_xml_on_not_exception [CONTINUE] successor=4
4 tkdummy_xml_generate_end
)");
}

static CallStatement *callLiteral(llvm::StringRef program) {
  return make<CallStatement>(1, make<NonNumericLiteralExpression>(1, program));
}

TEST(CFGStatement, CallOfIdentifierLooksOnce) {
  auto *call = make<CallStatement>(1, make<DataIdentifierExpression>(1, nullptr, nullptr, nullptr));
  call->addExceptHandler(phrase(Phrase::Overflow));
  EXPECT_EQ(shapeOf({call}), R"(1 tkdummy_unnamed_sentence! [CALL] then=2 else=3 end=5
2 tkdummy_call_find successor=5
3 tkdummy_call_find_not successor=4
4 tkdummy_call_exception [CONTINUE] successor=5
5 tkdummy_call_end
)");
}

TEST(CFGStatement, CallOfLiteralLooksTwice) {
  CallStatement *both = callLiteral("'SUB'");
  both->addExceptHandler(phrase(Phrase::OnException));
  both->addExceptHandler(phrase(Phrase::OnException, true));
  EXPECT_EQ(shapeOf({callLiteral("'SUB'"), both}),
            R"(1 tkdummy_unnamed_sentence! [CALL] then=2 else=3 end=6
2 tkdummy_when_find successor=6
3 tkdummy_not_find! then=4 else=5
4 tkdummy_when_2find successor=6
5 tkdummy_not_2find! successor=6
6 tkdummy_call_end! [CALL] then=7 else=8 end=13
7 tkdummy_when_find successor=12
8 tkdummy_not_find! then=9 else=10
9 tkdummy_when_2find successor=12
10 tkdummy_not_2find successor=11
11 tkdummy_call_exception [CONTINUE] successor=13
12 tkdummy_call_not_exception [CONTINUE] successor=13
13 tkdummy_call_end
)");
}

TEST(CFGStatement, CallUnderOptions) {
  CompileOption *options = CompileOption::getCompileOptionInstance();
  options->setOptionDebug(true);
  EXPECT_EQ(shapeOf({callLiteral("'TKDEBUG_START1'")}), "1 tkdummy_unnamed_sentence [CALL]\n");
  options->setOptionDebug(false);

  CallStatement *dli = callLiteral("'CBLTDLI'");
  dli->setMoveStmt(plain());
  options->setOptionEnableCbltdli(true);
  options->setOptionEnableAertdli(true);
  Tree tree({dli});
  std::string shape = shapeOf(tree.build()->getBody());
  std::string failures = failuresOf(*tree.module);
  options->setOptionEnableCbltdli(false);
  options->setOptionEnableAertdli(false);
  EXPECT_NE(shape.find("1 tkdummy_unnamed_sentence! [CONTINUE] [CONTINUE] [CALL] then=2"),
            std::string::npos)
      << shape;
  EXPECT_EQ(failures, "");
}

TEST(CFGStatementDeathTest, WhatTheChecksKeepAwayStopsTheBuilder) {
  testing::GTEST_FLAG(death_test_style) = "fast";
  auto *rewrite = make<RewriteStatement>(1, nullptr);
  rewrite->addInvalidKeyHandler(phrase(Phrase::AtEnd));
  EXPECT_DEATH(shapeOf({rewrite}), "0 && \"not allow\"");
  CallStatement *call = callLiteral("'SUB'");
  call->addExceptHandler(phrase(Phrase::AtEnd));
  EXPECT_DEATH(shapeOf({call}), "0 && \"not allow\"");
  auto *loop = make<PerformStatement>(1, static_cast<PerformStmtType>(5));
  EXPECT_DEATH(shapeOf({loop}), "0 && \"Unreachable\"");
  EXPECT_DEATH(shapeOf({make<Statement>(1, static_cast<StatementType>(16))}),
               "0 && \"not implemented\"");
  EXPECT_DEATH(shapeOf({make<UseStatement>(1, UseTimingType::AfterException)}),
               "0 && \"not implemented\"");
}
