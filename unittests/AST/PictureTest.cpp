//===- PictureTest.cpp - decoding of PICTURE strings ----------------------===//

#include "AST/ClausePicture.h"
#include "AST/Expression.h"
#include "llvm/ADT/StringRef.h"
#include "gtest/gtest.h"
#include <climits>
#include <random>
#include <string>

using namespace tarka;

namespace {

using enum DataCategory;

ClausePicture *picture(llvm::StringRef text, bool decimalPointIsComma = false) {
  auto *clause = new ClausePicture(nullptr, new Word(nullptr, text, ""));
  if (decimalPointIsComma)
    clause->decodePicture(true);
  return clause;
}

struct Expected {
  const char *text;
  DataCategory category;
  int digits;
  int scale;
  int size;
  bool isSigned = false;
};

void check(const Expected &want, bool decimalPointIsComma = false) {
  SCOPED_TRACE(want.text);
  ClausePicture *clause = picture(want.text, decimalPointIsComma);
  EXPECT_EQ(int(clause->getDataCategory()), int(want.category));
  EXPECT_EQ(clause->getDigitNum(), want.digits);
  EXPECT_EQ(clause->getScale(), want.scale);
  EXPECT_EQ(clause->getSize(), want.size);
  EXPECT_EQ(clause->isSigned(), want.isSigned);
  EXPECT_FALSE(clause->isDiffCurrencySymbol());
}

TEST(Picture, CategoriesAndCounts) {
  const Expected table[] = {
      // text, category, digits, scale, size, signed
      {"A(5)", Alphabetic, 0, 0, 5},
      {"aaa", Alphabetic, 0, 0, 3},
      {"X", Alphanumeric, 0, 0, 1},
      {"X(0010)", Alphanumeric, 0, 0, 10},
      {"AX9", Alphanumeric, 0, 0, 3},
      {"99A", Alphanumeric, 0, 0, 3},
      {"ABA", AlphanumericEdited, 0, 0, 3},
      {"XX/9(2)0X", AlphanumericEdited, 0, 0, 7},
      {"BX", AlphanumericEdited, 0, 0, 2},
      {"N(8)", National, 0, 0, 8},
      {"NN/NNBN0", NationalEdited, 0, 0, 8},
      {"G(4)", Dbcs, 0, 0, 4},
      {"GGBG", Dbcs, 0, 0, 4},

      {"9", Numeric, 1, 0, 1},
      {"S9(4)", Numeric, 4, 0, 4, true},
      {"s9(7)v99", Numeric, 9, 2, 9, true},
      {"V9(3)", Numeric, 3, 3, 3},
      {"999V", Numeric, 3, 0, 3},
      {"S9(31)", Numeric, 31, 0, 31, true},
      {"9(5)9(3)V9", Numeric, 9, 1, 9},

      {"99.99", NumericEdited, 4, 2, 5},
      {"ZZ,ZZ9.99", NumericEdited, 7, 2, 9},
      {"ZZZV99", NumericEdited, 5, 2, 5},
      {"Z(3).ZZ", NumericEdited, 5, 2, 6},
      {".ZZ", NumericEdited, 2, 2, 3},
      {"**,***.99CR", NumericEdited, 7, 2, 11},
      {"9(3)DB", NumericEdited, 3, 0, 5},
      {"+999.99", NumericEdited, 5, 2, 7},
      {"999-", NumericEdited, 3, 0, 4},
      {"99/99/9999", NumericEdited, 8, 0, 10},
      {"9B9B9", NumericEdited, 3, 0, 5},
      {"090", NumericEdited, 1, 0, 3},
      {"$999.99", NumericEdited, 5, 2, 7},
      {"+$99", NumericEdited, 2, 0, 4},
      {"$ZZ9-", NumericEdited, 3, 0, 5},
      {"$B*,***,***.99BCR", NumericEdited, 9, 2, 17},
      {"9.", NumericEdited, 1, 0, 2},
  };
  for (const Expected &row : table)
    check(row);
}

TEST(Picture, FloatingInsertion) {
  const Expected table[] = {
      {"$$", NumericEdited, 1, 0, 2},       {"$$$,$$9.99", NumericEdited, 7, 2, 10},
      {"$(4).$$", NumericEdited, 5, 2, 7},  {".$$", NumericEdited, 1, 1, 3},
      {"+.++", NumericEdited, 2, 2, 4},     {"--,---,--9", NumericEdited, 7, 0, 10},
      {"+(6).99", NumericEdited, 7, 2, 9},  {"$+++9", NumericEdited, 3, 0, 5},
      {"-$$$.$$CR", Unclassified, 4, 2, 9}, {"+$$$9", NumericEdited, 3, 0, 5},
      {"$$$9DB", NumericEdited, 3, 0, 6},
  };
  for (const Expected &row : table)
    check(row);
}

TEST(Picture, ScalingPositions) {
  struct {
    const char *text;
    DataCategory category;
    int digits, stored, scale, power, size;
    bool isPFront;
  } const table[] = {
      {"9PP", Numeric, 3, 1, 0, 2, 1, false},
      {"S99P(3)V", Numeric, 5, 2, 0, 3, 2, false},
      {"PP9", Numeric, 3, 1, 3, -3, 1, true},
      {"SVP(4)99", Numeric, 6, 2, 6, -6, 2, true},
      {"PP99BB", NumericEdited, 4, 2, 4, -4, 4, true},
      {"ZZPP", NumericEdited, 4, 2, 0, 2, 2, false},
      {"$99PP-", NumericEdited, 4, 2, 0, 2, 4, false},
      {"VPPZZ", NumericEdited, 4, 2, 4, -4, 2, true},
      {"9(3)V99", Numeric, 5, 5, 2, -2, 5, false},
  };
  for (const auto &row : table) {
    SCOPED_TRACE(row.text);
    ClausePicture *clause = picture(row.text);
    EXPECT_EQ(int(clause->getDataCategory()), int(row.category));
    EXPECT_EQ(clause->getDigitNum(), row.digits);
    EXPECT_EQ(clause->getStoredDigitNum(), row.stored);
    EXPECT_EQ(clause->getScale(), row.scale);
    EXPECT_EQ(clause->getScalePower(), row.power);
    EXPECT_EQ(clause->getSize(), row.size);
    EXPECT_EQ(clause->isPFront(), row.isPFront);
  }
}

TEST(Picture, ExternalFloatingPoint) {
  check({"+9.9(3)E+99", ExternalFloat, 4, 3, 10});
  check({"-9(5)VE+99", ExternalFloat, 5, 0, 10});
  check({"+.99e-9(2)", ExternalFloat, 2, 2, 8});
  check({"-9,99E-99", ExternalFloat, 3, 2, 9}, /*decimalPointIsComma=*/true);
  for (const char *text : {"9.9E+99", "+9.9E99", "+9.9E+9", "+9.9E+999", "+99E+99", "+.E+99",
                           "+9V.9E+99", "++9.9E+99", "+9.9E+99E", "+9B.9E+99", "+9.9E(1)+99"}) {
    EXPECT_EQ(int(picture(text)->getDataCategory()), int(Unclassified)) << text;
    EXPECT_FALSE(picture(text)->isDiffCurrencySymbol()) << text;
  }
}

TEST(Picture, DecimalPointIsComma) {
  check({"ZZ.ZZ9,99", NumericEdited, 7, 2, 9}, true);
  check({"$$$.$$$,$$", NumericEdited, 7, 2, 10}, true);
  check({"9V99", Numeric, 3, 2, 3}, true);
  check({"9,99.9", NumericEdited, 4, 1, 6}, false);
  check({"9,99.9", NumericEdited, 4, 3, 6}, true);
  // Decoding goes back and forth, and the string stays as written.
  ClausePicture *clause = picture("Z.ZZ9,99");
  EXPECT_EQ(clause->getDataCategory(), Unclassified);
  clause->decodePicture(true);
  EXPECT_EQ(clause->getScale(), 2);
  EXPECT_EQ(clause->getExtendedPicture(), "Z.ZZ9,99");
  clause->decodePicture(false);
  EXPECT_EQ(clause->getDataCategory(), Unclassified);
}

TEST(Picture, InvalidStrings) {
  const char *const table[] = {
      // Not a string of symbols.
      "",
      " ",
      "9 9",
      "X(",
      "X()",
      "X(5",
      "X(A)",
      "X(-1)",
      "X(0)",
      "(5)",
      "X(2)(3)",
      "X)",
      "9;",
      "1",
      "9=",
      "\"X\"",
      "X(5)8",
      // Symbols that are allowed once, and have no factor.
      "SS9",
      "S(1)9",
      "9V9V9",
      "9V(1)9",
      "9.9.9",
      "9V.9",
      "9.(1)9",
      "9CRCR",
      "9CR(1)",
      "99DBCR",
      // No digit at all, or none that is stored.
      "S",
      "V",
      "P",
      "SPPP",
      "B",
      "0/",
      ",",
      ".",
      "+",
      "-",
      "$",
      "CR",
      "+$",
      "$.",
      "*B+CR",
      // Order.
      "9S",
      "VS9",
      "S9B9",
      "S99.9",
      "SZ9",
      "SX",
      "9Z",
      "9*",
      "Z9Z",
      "9.ZZ",
      "Z.Z9",
      "Z.9Z",
      "ZZ++",
      "++ZZ",
      "++$",
      "9+9",
      "+9+",
      "9$",
      "$9$",
      "9+CR",
      "+9CR",
      "++9-",
      "+-9",
      "--++9",
      "9CR9",
      "Z*9",
      "$$9.$$",
      "$$.$9",
      "B$99",
      "$+9",
      "+9-",
      "99$-",
      "B+9",
      // Scaling positions are at one end of the digits, and not next to a decimal point.
      "9P9",
      "P9P",
      "PPV9",
      "9VP",
      "PP9V",
      "9PP.",
      ".PP9",
      "P,P9",
      "9P,P",
      "PP9.9",
      "99PPB",
      "PX",
      // Categories that do not mix.
      "X,X",
      "XV9",
      "X.",
      "AZ",
      "ZX",
      "+X",
      "NX",
      "N9",
      "9N",
      "NG",
      "G9",
      "G/",
      "G0G",
      "N,N",
      "AG",
  };
  for (const char *text : table) {
    ClausePicture *clause = picture(text);
    EXPECT_EQ(int(clause->getDataCategory()), int(Unclassified)) << text;
    EXPECT_FALSE(clause->isDiffCurrencySymbol()) << text;
  }
}

TEST(Picture, CurrencySymbols) {
  for (const char *text : {"F99", "f99", "#99", "@ZZ9.99", "+u99",
                           "\xA3"
                           "99",
                           "FF,FF9"}) {
    EXPECT_EQ(int(picture(text)->getDataCategory()), int(NumericEdited)) << text;
    EXPECT_TRUE(picture(text)->isDiffCurrencySymbol()) << text;
  }
  // Upper and lower case are two symbols, and a string has only one.
  for (const char *text : {"Ff9", "$F9", "F9F", "9F"}) {
    EXPECT_EQ(int(picture(text)->getDataCategory()), int(Unclassified)) << text;
    EXPECT_TRUE(picture(text)->isDiffCurrencySymbol()) << text;
  }
  // Letters that are not a symbol at their position are treated as a currency symbol, which no
  // CURRENCY SIGN clause can introduce.
  for (const char *text : {"E99", "EE9", "d(3)9", "RZ9", "CC,CC9.99"}) {
    EXPECT_EQ(int(picture(text)->getDataCategory()), int(NumericEdited)) << text;
    EXPECT_TRUE(picture(text)->isDiffCurrencySymbol()) << text;
  }

  // A sign of several characters widens the item by all but the one that the symbol counts.
  ClausePicture *clause = picture("FFF9.99");
  EXPECT_EQ(clause->getDigitNum(), 5);
  EXPECT_EQ(clause->getSize(), 7);
  clause->setExtendedPicture("$$$9.99");
  clause->setCurrencySymbolLiteral(new NonNumericLiteralExpression(nullptr, "\"EUR\""));
  EXPECT_EQ(clause->getExtendedPicture(), "$$$9.99");
  EXPECT_EQ(clause->getSize(), 9);
  // Decoding starts from the string as written.
  clause->decodePicture(false);
  EXPECT_EQ(clause->getExtendedPicture(), "FFF9.99");
  EXPECT_EQ(clause->getSize(), 7);
}

TEST(Picture, WrittenOut) {
  EXPECT_EQ(picture("s9(3)v9(02)")->getExtendedPicture(), "S999V99");
  EXPECT_EQ(picture("zz(2)9db")->getExtendedPicture(), "ZZZ9DB");
  EXPECT_EQ(picture("f(2)9.9cr")->getExtendedPicture(), "ff9.9CR");
  EXPECT_EQ(picture("s9(0)x(2)")->getExtendedPicture(), "S9(0)X(2)");
  EXPECT_EQ(picture("x(65536)")->getExtendedPicture(), std::string(65536, 'X'));
}

TEST(Picture, HugeRepetition) {
  check({"X(999999999)", Alphanumeric, 0, 0, 999999999});
  check({"X(2147483648)", Alphanumeric, 0, 0, INT_MAX});
  check({"9(99999999999999999999999)V9(99999999999999999999999)", Numeric, INT_MAX, INT_MAX,
         INT_MAX});
  check({"9(18446744073709551615)9CR", NumericEdited, INT_MAX, 0, INT_MAX});
  check({"9(2147483647)P(9)", Numeric, INT_MAX, 0, INT_MAX});
  EXPECT_EQ(picture("b(4000000000)x(3)")->getExtendedPicture(), "B(4000000000)X(3)");
  // A long string of many runs is read in one go.
  std::string text;
  for (int i = 0; i < 200000; ++i)
    text += "+,";
  EXPECT_EQ(picture(text)->getDigitNum(), 199999);
}

// Strings made of symbols in any order: no crash, and what is accepted is consistent.
TEST(Picture, AnyString) {
  using namespace std::string_literals;
  const std::string alphabet = "ABCDEGNPRSVXZabcdegnprsvxz90/,.+-*$F()123; \0\xE2"s;
  std::mt19937 random(20240607);
  int accepted = 0;
  for (int i = 0; i < 100000; ++i) {
    std::string text;
    for (unsigned length = random() % 9; length; --length)
      text += alphabet[random() % alphabet.size()];
    for (bool isComma : {false, true}) {
      ClausePicture *clause = picture(text, isComma);
      if (clause->getDataCategory() == Unclassified)
        continue;
      ++accepted;
      EXPECT_GT(clause->getSize(), 0) << text;
      EXPECT_GE(clause->getDigitNum(), clause->getStoredDigitNum()) << text;
      EXPECT_GE(clause->getDigitNum(), clause->getScale()) << text;
      // Writing out changes nothing but the length of the string.
      ClausePicture *again = picture(clause->getExtendedPicture(), isComma);
      EXPECT_EQ(int(again->getDataCategory()), int(clause->getDataCategory())) << text;
      EXPECT_EQ(again->getSize(), clause->getSize()) << text;
      EXPECT_EQ(again->getDigitNum(), clause->getDigitNum()) << text;
    }
  }
  EXPECT_GT(accepted, 1000);
}

} // namespace
