//===- AlphabetTest.cpp - the collating tables of ALPHABET clauses --------===//

#include "AST/Environment.h"
#include "CheckerFixture.h"

namespace tarka::test {

namespace {

class Alphabet : public CheckerTest {
protected:
  ClauseAlphabet clause{nullptr, word("OWN"), AlphabetType::User};

  static NonNumericLiteralExpression *characters(llvm::StringRef text) {
    return new NonNumericLiteralExpression(nullptr, text);
  }

  PhrsAlphabet *add(LiteralExpression *literal, LiteralExpression *thru = nullptr) {
    auto *phrase = new PhrsAlphabet(nullptr, literal);
    phrase->setThruLiteral(thru);
    clause.addAlpha(phrase);
    return phrase;
  }

  /// The ordinals by character code, after a check that finds nothing wrong.
  const int *ordinals() {
    EXPECT_TRUE(checker.checkClauseAlphabet(clause));
    EXPECT_TRUE(numbers().empty());
    return context().getColseqList()->back();
  }
};

TEST_F(Alphabet, AlsoSharesAnOrdinal) {
  add(characters("A"))->addAlso(characters("B"));
  const int *table = ordinals();
  EXPECT_EQ(table['A'], 1);
  EXPECT_EQ(table['B'], 1);
  // Everything else follows in the order of the codes.
  EXPECT_EQ(table[0], 2);
  EXPECT_EQ(table['@'], 2 + '@');
  EXPECT_EQ(table['C'], 2 + 'A');
  EXPECT_EQ(table[255], 255);
  EXPECT_EQ(clause.getLowValue(), 'A');
  EXPECT_EQ(static_cast<unsigned char>(clause.getHighValue()), 255);
}

TEST_F(Alphabet, ThruCountsUpEitherWay) {
  add(characters("9"), characters("0"));
  add(characters("a"), characters("c"));
  const int *table = ordinals();
  EXPECT_EQ(table['9'], 1);
  EXPECT_EQ(table['0'], 10);
  EXPECT_EQ(table['a'], 11);
  EXPECT_EQ(table['c'], 13);
  EXPECT_EQ(table[0], 14);
}

TEST_F(Alphabet, SingleCharactersOnlyUseUpOrdinals) {
  add(characters("X"));
  add(characters("Y"));
  const int *table = ordinals();
  EXPECT_EQ(table[0], 3);
  EXPECT_EQ(table['X'], 3 + 'X');
  EXPECT_EQ(table['Y'], 3 + 'Y');
  EXPECT_EQ(clause.getLowValue(), 'X');
}

TEST_F(Alphabet, OrdinalPositionsCountFromOne) {
  add(number("256"), number("1"));
  const int *table = ordinals();
  EXPECT_EQ(table[255], 1);
  EXPECT_EQ(table[0], 256);
  // No character is left: the last one placed collates highest.
  EXPECT_EQ(clause.getHighValue(), 0);
}

TEST_F(Alphabet, OrdinalsBehindTheCharacterSetAreRefused) {
  add(number("257"));
  EXPECT_FALSE(checker.checkClauseAlphabet(clause));
  EXPECT_EQ(numbers(), std::vector<int>{3109});
}

TEST_F(Alphabet, SwitchesAreNotedBeyondTheOnesThatAreRight) {
  currentUnit();
  ClauseEnvName envName(nullptr, word("UPSI-8"));
  envName.setOnCondition(word("EIGHT-ON"));
  EXPECT_FALSE(checker.checkClauseEnvName(envName));
  EXPECT_EQ(numbers(), std::vector<int>{3105});
  EXPECT_TRUE(context().getHaveUPSI());
}

TEST_F(Alphabet, ClausesWithoutNamesAreReportedOrPass) {
  ParaSpecialNames names(nullptr);
  ClauseAlphabet alphabet(nullptr, nullptr, AlphabetType::Native);
  ClauseClass letters(nullptr, nullptr);
  ClauseEnvName device(nullptr, nullptr);
  names.addAlphabet(&alphabet);
  names.addClass(&letters);
  names.addEnvName(&device);
  EXPECT_FALSE(checker.semanticCheck(names));
  EXPECT_EQ(numbers(), std::vector<int>{3104});
}

} // namespace

} // namespace tarka::test
