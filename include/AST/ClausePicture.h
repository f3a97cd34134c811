//===- ClausePicture.h - the PICTURE clause ---------------------*- C++ -*-===//
//
// A PICTURE clause and what its character string says about the item: category,
// digits, scale, size. Each string is decoded once in a process; the clauses
// point to the result.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_CLAUSEPICTURE_H
#define TARKA_AST_CLAUSEPICTURE_H

#include "AST/Forward.h"
#include "AST/Kinds.h"
#include "AST/Names.h"
#include "AST/Node.h"

namespace tarka {

/// What a PICTURE character string says. Counts are limited to the range of int.
struct PictureInfo {
  /// Unclassified when the string breaks a rule; the counts are then those of its valid part.
  DataCategory category = DataCategory::Unclassified;
  /// The string has an S.
  bool isSigned = false;
  /// Scaling positions are to the left of the digits, as in PP99.
  bool isPFront = false;
  /// A currency symbol other than "$" is used.
  bool isDiffCurrencySymbol = false;
  /// The currency symbol, or 0 when the string has none.
  char currencySymbol = 0;
  /// Digit positions, scaling positions included: 3 for 9PP. Of a floating string all positions
  /// but the first; of an external floating-point item the digits of the mantissa. 0 for items
  /// that are neither numeric, numeric-edited nor external floating-point.
  int digits = 0;
  /// The digits that are stored, without the scaling positions: 1 for 9PP.
  int storedDigits = 0;
  /// Digit positions to the right of the decimal point, never negative: 3 for PP9, 0 for 9PP.
  int scale = 0;
  /// Character positions. S, V and P have none, CR and DB have two; G and N count as one.
  int size = 0;
};

/// Takes the first character off \p text, which is not empty: the text of a PICTURE character
/// string or of a currency symbol. A character outside of ASCII, such as a pound sign, is given as
/// one byte from 0x80 on, the same for the same currency symbol; X'7F' is given for one that is
/// neither in Latin-1 nor a currency symbol.
char takePictureCharacter(llvm::StringRef &text);

/// The PICTURE clause.
class ClausePicture : public Node {
public:
  /// Decodes \p characterString, whose text is the string as written (lower case is upper case,
  /// but in a currency symbol it is not), with the period as decimal point.
  ClausePicture(const Node *at, Word *characterString);

  /// Decodes again; \p decimalPointIsComma means that comma and period swap roles. What
  /// setExtendedPicture() and setCurrencySymbolLiteral() have set is discarded.
  void decodePicture(bool decimalPointIsComma);

  /// The character string as written.
  Word *getCharStringWord() const { return charString; }

  /// Takes the symbol N for a DBCS character, as G is, and decodes the string again.
  void readNationalAsDbcs();

  /// The string with the repetition factors written out, letters in upper case except a currency
  /// symbol. A string of more than MaxWrittenOut positions keeps its repetition factors, and so
  /// does one whose repetition factors are wrong.
  const std::string &getExtendedPicture() const;
  void setExtendedPicture(llvm::StringRef text) { extended = &internString(text); }
  static constexpr unsigned MaxWrittenOut = 1u << 16;

  /// The currency sign that the symbol stands for; null for the default sign "$".
  LiteralExpression *getCurrencySymbolLiteral() const { return currencySign; }
  /// Sets the CURRENCY SIGN literal, whose length then counts in getSize().
  void setCurrencySymbolLiteral(LiteralExpression *sign) { currencySign = sign; }

  /// DataCategory::Unclassified when the string breaks a rule.
  DataCategory getDataCategory() const { return info->category; }
  /// Digit positions, scaling positions (P) included. The limit of 31 digits applies to them.
  int getDigitNum() const { return info->digits; }
  /// Digit positions that are stored, scaling positions not counted. The size of a binary or packed
  /// item depends on them.
  int getStoredDigitNum() const { return info->storedDigits; }
  /// Digit positions to the right of the decimal point, scaling positions included; 0 when the
  /// scaling positions are to the right of the digits. An item's value is its stored digits
  /// times ten to the power of getScalePower().
  int getScale() const { return info->scale; }
  int getScalePower() const {
    return info->scale ? -info->scale : info->digits - info->storedDigits;
  }
  /// Character positions of the item. The first currency symbol counts as many as its sign has
  /// characters, every other one counts one.
  int getSize() const;
  /// The string has an S. The sign of an edited or external floating-point item does not count.
  bool isSigned() const { return info->isSigned; }
  /// Scaling positions are to the left of the digits.
  bool isPFront() const { return info->isPFront; }
  bool isDiffCurrencySymbol() const { return info->isDiffCurrencySymbol; }

private:
  Word *charString;
  const PictureInfo *info = nullptr;
  /// Made on demand: most pictures do not need it.
  mutable const std::string *extended = nullptr;
  LiteralExpression *currencySign = nullptr;
};

} // namespace tarka

#endif // TARKA_AST_CLAUSEPICTURE_H
