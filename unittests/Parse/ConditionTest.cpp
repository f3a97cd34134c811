//===- ConditionTest.cpp - conditions -------------------------------------===//

#include "ProcedureTest.h"

namespace tarka {
namespace {

class ConditionTest : public ProcedureTest {
protected:
  ConditionTest() {
    before = "IDENTIFICATION DIVISION. PROGRAM-ID. P. ENVIRONMENT DIVISION. CONFIGURATION SECTION. "
             "SPECIAL-NAMES. UPSI-0 IS SW ON IS SW-ON OFF SW-OFF "
             "CLASS VOWELS IS 'A' 'E'. DATA DIVISION. WORKING-STORAGE SECTION. "
             "01 A PIC 9. 88 A-FULL VALUE 9. 88 A-EMPTY VALUE 0. ";
  }
};

TEST_F(ConditionTest, RelationalOperators) {
  struct {
    const char *text;
    const char *relation;
  } const cases[] = {
      {"=", "="},
      {"IS EQUAL TO", "="},
      {"EQUAL", "="},
      {"IS NOT = ", "!="},
      {"NOT EQUAL TO", "!="},
      {"<>", "!="},
      {"NOT <>", "="},
      {">", ">"},
      {"IS GREATER THAN", ">"},
      {"GREATER", ">"},
      {"NOT >", "!>"},
      {"IS NOT GREATER THAN", "!>"},
      {"<", "<"},
      {"IS LESS THAN", "<"},
      {"NOT LESS", "!<"},
      {">=", ">="},
      {"GREATER THAN OR EQUAL TO", ">="},
      {"GREATER OR EQUAL", ">="},
      {"IS <=", "<="},
      {"LESS THAN OR EQUAL TO", "<="},
      {"NOT >=", "<"},
      {"IS NOT LESS THAN OR EQUAL TO", ">"},
  };
  for (const auto &one : cases)
    EXPECT_EQ(condition(std::string("A ") + one.text + " B"),
              std::string("(") + one.relation + " A B)")
        << one.text;
  EXPECT_EQ(reported(), "");
  options.osvs = true;
  EXPECT_EQ(condition("A EXCEEDS B OR A EQUALS C AND A IS UNEQUAL TO D"),
            "(or (> A B) (and (= A C) (!= A D)))");
  EXPECT_EQ(reported(), "");
}

TEST_F(ConditionTest, ClassAndSign) {
  EXPECT_EQ(condition("A IS NUMERIC"), "(is A numeric)");
  EXPECT_EQ(condition("A NOT ALPHABETIC-LOWER"), "(isnt A lower)");
  EXPECT_EQ(condition("A IS NOT KANJI OR B DBCS"), "(or (isnt A kanji) (is B dbcs))");
  EXPECT_EQ(condition("A IS NOT ALPHABETIC AND B ALPHABETIC-UPPER"),
            "(and (isnt A alphabetic) (is B upper))");
  EXPECT_EQ(condition("A VOWELS AND A IS NOT VOWELS"), "(and (is A VOWELS) (isnt A VOWELS))");
  EXPECT_EQ(condition("A IS NO-SUCH-CLASS"), "(is A NO-SUCH-CLASS)");
  EXPECT_EQ(condition("A + 1 IS POSITIVE"), "(is (+ A 1) positive)");
  EXPECT_EQ(condition("(A - B) * 2 NOT NEGATIVE"), "(isnt (* (- A B) 2) negative)");
  EXPECT_EQ(condition("A ZERO OR A NOT ZEROES"), "(or (is A zero) (isnt A zero))");
  EXPECT_EQ(reported(), "");
}

TEST_F(ConditionTest, NamesOfConditionsAndSwitches) {
  EXPECT_EQ(condition("A-FULL"), "name:A-FULL");
  EXPECT_EQ(condition("NOT A-FULL OF A (1)"), "(not name:A-FULL.A(1))");
  EXPECT_EQ(condition("SW-ON AND SW-OFF OF SW"), "(and switch:SW-ON switch:SW-OFF.SW)");
  EXPECT_EQ(condition("((A-FULL) OR NOT (SW-ON))"), "(or name:A-FULL (not switch:SW-ON))");
  // A name that is declared as something else is for the checker to refuse.
  EXPECT_EQ(condition("B"), "name:B");
  EXPECT_EQ(condition("A = B OR A-FULL OR A > 3"), "(or (or (= A B) name:A-FULL) (> A 3))");
  EXPECT_EQ(reported(), "");
}

TEST_F(ConditionTest, CombinedConditionsAndParentheses) {
  EXPECT_EQ(condition("A = 1 OR B = 2 AND C = 3 OR D = 4"),
            "(or (or (= A 1) (and (= B 2) (= C 3))) (= D 4))");
  EXPECT_EQ(condition("(A = 1 OR B = 2) AND NOT (C = 3)"),
            "(and (or (= A 1) (= B 2)) (not (= C 3)))");
  EXPECT_EQ(condition("NOT A = 1 AND NOT B > 2"), "(and (not (= A 1)) (not (> B 2)))");
  EXPECT_EQ(condition("(A) = (B)"), "(= A B)");
  EXPECT_EQ(condition("((A + 1)) * 2 > ((B) - 1)"), "(> (* (+ A 1) 2) (- B 1))");
  EXPECT_EQ(condition("((A + 1) > 2)"), "(> (+ A 1) 2)");
  EXPECT_EQ(condition("(((A) > B))"), "(> A B)");
  EXPECT_EQ(condition("NOT (NOT (A = B))"), "(not (not (= A B)))");
  EXPECT_EQ(reported(), "");
}

TEST_F(ConditionTest, AbbreviatedRelations) {
  EXPECT_EQ(condition("A = B OR C AND > D"), "(or (= A B) (and (_ = C) (_ w> D)))");
  EXPECT_EQ(condition("A > B AND NOT < C OR D"), "(or (and (> A B) (_ w!< C)) (_ !< D))");
  EXPECT_EQ(condition("A NOT EQUAL B OR C"), "(or (!= A B) (_ != C))");
  EXPECT_EQ(condition("NOT A = B OR C"), "(or (not (= A B)) (_ = C))");
  EXPECT_EQ(condition("NOT (A GREATER B OR < C)"), "(not (or (> A B) (_ w< C)))");
  // NOT before an object alone negates that object's relation only.
  EXPECT_EQ(condition("NOT (A NOT > B AND C AND NOT D AND E)"),
            "(not (and (and (and (!> A B) (_ !> C)) (_ > D)) (_ !> E)))");
  EXPECT_EQ(condition("A = 1 OR 2 OR B = 3 OR 4"),
            "(or (or (or (= A 1) (_ = 2)) (= B 3)) (_ = 4))");
  EXPECT_EQ(condition("A = B AND (C OR D) AND E"),
            "(and (and (= A B) (or (_ = C) (_ = D))) (_ = E))");
  EXPECT_EQ(condition("A = B OR C + 1 OR (D - 1) * 2"),
            "(or (or (= A B) (_ = (+ C 1))) (_ = (* (- D 1) 2)))");
  EXPECT_EQ(condition("A = B OR IS GREATER THAN C"), "(or (= A B) (_ w> C))");
  EXPECT_EQ(condition("A = B AND IS NOT < C OR D"), "(or (and (= A B) (_ w!< C)) (_ !< D))");
  EXPECT_EQ(condition("A GREATER THAN B OR EQUAL TO C"), "(or (> A B) (_ w= C))");
  EXPECT_EQ(reported(), "");
}

TEST_F(ConditionTest, ObjectsInParentheses) {
  EXPECT_EQ(condition("A = (B OR C)"), "(= A {B (or (_ = C))})");
  EXPECT_EQ(condition("A = (B OR C OR > D AND NOT E)"),
            "(= A {B (or (_ = C)) (or (_ w> D)) (and (_ !> E))})");
  EXPECT_EQ(condition("A NOT = (B AND (C + 1) * 2) OR D"),
            "(or (!= A {B (and (_ != (* (+ C 1) 2)))}) (_ != D))");
  EXPECT_EQ(condition("A = ((B AND C) OR NOT (D OR E))"),
            "(= A {{B (and (_ = C))} (or (not (_ = {D (or (_ = E))})))})");
  EXPECT_EQ(condition("A = ((B))"), "(= A B)");
  EXPECT_EQ(condition("A = B OR = (C OR D)"), "(or (= A B) (_ w= {C (or (_ = D))}))");
  EXPECT_EQ(reported(), "");
}

TEST_F(ConditionTest, MistakesHaveOneMessageEach) {
  const std::pair<const char *, const char *> cases[] = {
      {"IF A + 1 CONTINUE END-IF", "200@1:10"}, // neither relation nor name
      {"IF 'x' CONTINUE", "200@1:8"},
      {"IF A = CONTINUE END-IF", "201@1:8"},
      {"IF A IS CONTINUE", "200@1:9"},
      {"IF A NOT CONTINUE", "200@1:10"},
      {"IF NOT NOT A = B CONTINUE", "200@1:8"},
      {"IF (A = B CONTINUE", "200@1:11"},
      {"IF A = B AND CONTINUE", "200@1:14"},
      {"IF A = B) CONTINUE", "200@1:9"},
      {"IF AND A = B CONTINUE", "200@1:4"},
      {"IF A = (B OR) CONTINUE", "200@1:13"},
      {"IF (A = B AND C = D CONTINUE ELSE DISPLAY A END-IF", "200@1:21"},
  };
  for (const auto &[text, expected] : cases) {
    statement(text);
    EXPECT_EQ(reported(), expected) << text;
  }
}

TEST_F(ConditionTest, LongChainsAndDeepParentheses) {
  std::string chain = "A = 0";
  for (int i = 0; i < 10000; ++i)
    chain += i % 3 ? " AND B > 1" : i % 2 ? " OR 5" : " AND NOT C";
  parse("IF " + chain + " CONTINUE.");
  EXPECT_EQ(reported(), "");
  for (const char *open : {"(", "NOT (", "A = ("}) {
    std::string nested;
    for (int i = 0; i < 10000; ++i)
      nested += open;
    parse("IF " + nested + "A = B" + std::string(10000, ')') + " CONTINUE END-IF.");
    EXPECT_EQ(diagnostics.getEntries().size(), 1u) << open;
  }
  // Deep but within bounds, in either reading of the parentheses.
  std::string open(900, '('), close(900, ')');
  EXPECT_EQ(condition(open + "A" + close + " > " + open + "B" + close), "(> A B)");
  EXPECT_EQ(condition(open + "A > B" + close), "(> A B)");
  EXPECT_EQ(reported(), "");
}

} // namespace
} // namespace tarka
