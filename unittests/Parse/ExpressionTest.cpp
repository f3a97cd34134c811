//===- ExpressionTest.cpp - operands and arithmetic expressions -----------===//

#include "ProcedureTest.h"

namespace tarka {
namespace {

using ExpressionTest = ProcedureTest;

TEST_F(ExpressionTest, RankAndDirectionOfOperators) {
  EXPECT_EQ(expression("B + C * D ** E"), "(+ B (* C (** D E)))");
  EXPECT_EQ(expression("B - C - D / E / F"), "(- (- B C) (/ (/ D E) F))");
  EXPECT_EQ(expression("B ** C ** D"), "(** (** B C) D)");
  EXPECT_EQ(expression("(B + C) * (D - (E))"), "(* (+ B C) (- D E))");
  EXPECT_EQ(expression("- B ** 2 + - (C)"), "(+ (** (neg B) 2) (neg C))");
  EXPECT_EQ(reported(), "");
}

TEST_F(ExpressionTest, SignsOfNumbersAndOperators) {
  EXPECT_EQ(expression("B -1"), "(- B 1)");
  EXPECT_EQ(expression("B * -1 - -2.5"), "(- (* B -1) -2.5)");
  EXPECT_EQ(expression("- 1"), "(neg 1)");
  EXPECT_EQ(expression("+1"), "+1");
  EXPECT_EQ(expression("T(I -1)"), "T((- I 1))");
  EXPECT_EQ(expression("T(I, -1)"), "T(I -1)");
  EXPECT_EQ(expression("T(-1 I)"), "T(-1 I)");
  EXPECT_EQ(expression("FUNCTION MAX(B -1)"), "MAX{(- B 1)}");
  EXPECT_EQ(expression("FUNCTION MAX(B,\n -1; - C)"), "MAX{B -1 (neg C)}");
  EXPECT_EQ(reported(), "");
  statement("IF A = - - B CONTINUE");
  EXPECT_EQ(reported(), DiagnosticId::Expected + "@1:10");
}

TEST_F(ExpressionTest, SubscriptsAndReferenceModifiers) {
  EXPECT_EQ(expression("T(1)"), "T(1)");
  EXPECT_EQ(expression("T (I J + 1, K * 2 L)"), "T(I (+ J 1) (* K 2) L)");
  EXPECT_EQ(expression("T OF G IN H (U(I) V OF W(1 2))"), "T.G.H(U(I) V.W(1 2))");
  EXPECT_EQ(expression("X(1:2)"), "X[1:2]");
  EXPECT_EQ(expression("X(I)(N + 1 :)"), "X(I)[(+ N 1):]");
  EXPECT_EQ(expression("X (T(1) : LENGTH OF Y)"), "X[T(1):%LENGTH Y]");
  EXPECT_EQ(expression("X(:3)"), "X[:3]");
  EXPECT_EQ(expression("T((I + 1) * 2)"), "T((* (+ I 1) 2))");
  EXPECT_EQ(reported(), "");
  expression("X(1)(2)");
  EXPECT_EQ(reported(), DiagnosticId::Expected + "@1:14");
  expression("V(1) OF X");
  EXPECT_EQ(reported(), DiagnosticId::NotAStatement + "@1:13");
  expression("X()");
  EXPECT_EQ(reported(), DiagnosticId::Expected + "@1:10");
  expression("X(1 2");
  EXPECT_EQ(reported(), DiagnosticId::Expected + "@1:14");
}

TEST_F(ExpressionTest, SpecialRegisters) {
  EXPECT_EQ(expression("RETURN-CODE"), "RETURN-CODE");
  EXPECT_EQ(expression("XML-TEXT(1:3)"), "XML-TEXT[1:3]");
  EXPECT_EQ(expression("LENGTH OF X(1)"), "%LENGTH X(1)");
  EXPECT_EQ(expression("LENGTH 'abc'"), "%LENGTH 'abc'");
  EXPECT_EQ(expression("ADDRESS OF X"), "%ADDRESS X");
  EXPECT_EQ(expression("LINAGE-COUNTER"), "%LINAGE-COUNTER");
  EXPECT_EQ(expression("LINAGE-COUNTER OF F"), "%LINAGE-COUNTER F");
  EXPECT_EQ(expression("PAGE-COUNTER IN R"), "%PAGE-COUNTER R");
  EXPECT_EQ(expression("DEBUG-NAME"), "%DEBUG-NAME");
  EXPECT_EQ(expression("XML-NTEXT(2:1)"), "%XML-NTEXT[2:1]");
  EXPECT_EQ(expression("CURRENT-DATE"), "CURRENT-DATE");
  EXPECT_EQ(reported(), "");
  expression("XML-NTEXT(2)");
  EXPECT_EQ(reported(), DiagnosticId::SubscriptedRegister + "@1:17");
  expression("ADDRESS X");
  EXPECT_EQ(reported(), DiagnosticId::Expected + "@1:16");
}

TEST_F(ExpressionTest, Functions) {
  EXPECT_EQ(expression("FUNCTION PI"), "PI{}");
  EXPECT_EQ(expression("FUNCTION max (B C + 1, FUNCTION MIN(D E) 'x')"),
            "MAX{B (+ C 1) MIN{D E} 'x'}");
  EXPECT_EQ(expression("FUNCTION MAX(B, (C + D), T(I))"), "MAX{B (+ C D) T(I)}");
  EXPECT_EQ(expression("FUNCTION MAX(T(ALL, 1))"), "MAX{T(ALL 1)}");
  EXPECT_EQ(expression("FUNCTION CURRENT-DATE(1:4)"), "CURRENT-DATE{}[1:4]");
  EXPECT_EQ(expression("FUNCTION UPPER-CASE(B)(2:)"), "UPPER-CASE{B}[2:]");
  EXPECT_EQ(expression("FUNCTION TRIM(B LEADING)"), "TRIM{B LEADING}");
  EXPECT_EQ(expression("FUNCTION LENGTH(B) / FUNCTION SUM(C D)"), "(/ LENGTH{B} SUM{C D})");
  EXPECT_EQ(expression("FUNCTION RANDOM()"), "RANDOM{}");
  EXPECT_EQ(reported(), "");
  expression("FUNCTION UPER-CASE(B)");
  EXPECT_EQ(reported(), DiagnosticId::MisspeltFunction + "@1:17");
  EXPECT_EQ(message(), "there is no intrinsic function UPER-CASE; was UPPER-CASE meant?");
  expression("FUNCTION FROBNICATE(B)");
  EXPECT_EQ(reported(), DiagnosticId::UnknownFunction + "@1:17");
  expression("FUNCTION MAX(B 1:2)");
  EXPECT_EQ(reported(), DiagnosticId::Expected + "@1:24");
}

TEST_F(ExpressionTest, PlacesRunFromFirstToLastToken) {
  parse("IF A = (B + C) * T (I, 1) CONTINUE.");
  auto *test = llvm::cast<IfStatement>(parse("IF A = (B + C) * T (I, 1) CONTINUE.")
                                           .getSentElements()
                                           .front()
                                           ->getStmtElements()
                                           .front());
  auto *product = llvm::cast<ArithmeticExpression>(
      llvm::cast<RelationalCondition>(test->getCondition())->getRight());
  int shift = test->getBeginCharPos() - 1;
  auto columns = [&](const Node *node) {
    return std::make_pair(node->getBeginCharPos() - shift, node->getEndCharPos() - shift);
  };
  EXPECT_EQ(columns(product), std::make_pair(8, 25));
  EXPECT_EQ(columns(product->getOperand1()), std::make_pair(8, 14));
  EXPECT_TRUE(llvm::cast<ArithmeticExpression>(product->getOperand1())->isParenthesised());
  EXPECT_FALSE(product->isParenthesised());
  EXPECT_EQ(columns(product->getOperand2()), std::make_pair(18, 25));
  EXPECT_EQ(columns(test->getCondition()), std::make_pair(4, 25));
}

TEST_F(ExpressionTest, LongChainsAndDeepParentheses) {
  std::string chain = "B";
  for (int i = 0; i < 10000; ++i)
    chain += i % 2 ? " + B" : " * B";
  parse("IF A = " + chain + " CONTINUE.");
  EXPECT_EQ(reported(), "");
  for (int depth : {500, 10000}) {
    for (const char *open : {"(", "T(", "FUNCTION MAX(", "- ("}) {
      std::string nested;
      for (int i = 0; i < depth; ++i)
        nested += open;
      nested += "B" + std::string(depth, ')');
      parse("IF A = " + nested + " CONTINUE.\nIF A = B CONTINUE.\nMVOE A TO B.");
      std::string all = reported();
      llvm::StringRef messages = all;
      EXPECT_EQ(messages.consume_front("202@1:"), depth > 1000) << open;
      EXPECT_TRUE(messages.ends_with("421@3:1")) << open;
      EXPECT_EQ(diagnostics.getEntries().size(), depth > 1000 ? 2u : 1u) << open;
    }
  }
}

} // namespace
} // namespace tarka
