//===- SCDataInitialValue.cpp - initial values ----------------------------===//
//
// Which literals fit which category: characters, national and DBCS characters,
// numbers with their digits and scaling positions, pointers.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/StorageLayout.h"
#include "Analyzer/Data/PictureRules.h"
#include "Analyzer/Data/ValueLiterals.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/APInt.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/ADT/StringExtras.h"
#include <algorithm>

namespace tarka {

namespace {

/// Checks one literal against the category and size of the item that it initialises.
class InitialValueCheck {
public:
  InitialValueCheck(SemanticChecker &theChecker, const DataDescription &item,
                    LiteralExpression &value)
      : checker(theChecker), entry(item), literal(value) {}

  bool check();

private:
  bool report(ErrorCode code) { return checker.report(code, &literal, entry); }
  bool checkCharacters();
  bool checkNational();
  bool checkDbcs();
  bool checkNumber();
  bool checkScaled(const ClausePicture &picture, llvm::StringRef integer, llvm::StringRef decimals);
  bool checkLength();

  SemanticChecker &checker;
  const DataDescription &entry;
  LiteralExpression &literal;
};

/// The rule for each category. What has none has been reported with its PICTURE or its USAGE.
bool InitialValueCheck::check() {
  const DataCategory category = entry.getDataCategory();
  switch (category) {
  case DataCategory::Unclassified:
    return true;
  case DataCategory::Index:
    return report(ErrorCode::ValueWithIndex);
  case DataCategory::ExternalFloat:
    return report(ErrorCode::ValueWithExternalFloat);
  case DataCategory::Pointer:
    return checker.checkHaveNullValue(&entry, &literal);
  default:
    if (isNull(literal))
      return checker.checkHaveNullValue(&entry, &literal);
  }

  switch (category) {
  case DataCategory::Numeric:
    // BLANK WHEN ZERO edits the item, so that its value may be characters as well.
    if (isEditedForValue(entry) && !llvm::isa<NumericLiteralExpression>(literal))
      return entry.getUsageType() == UsageType::National ? checkNational() : checkCharacters();
    return checkNumber();
  case DataCategory::InternalFloat:
    if (!llvm::isa<NumericLiteralExpression>(literal) &&
        !isFigurative(literal, FigurativeType::Zero))
      return report(ErrorCode::ValueInternalFloatLiteral);
    return true;
  case DataCategory::Dbcs:
    return checkDbcs();
  case DataCategory::National:
  case DataCategory::NationalEdited:
    return checkNational();
  default:
    if (entry.getUsageType() == UsageType::National)
      return checkNational();
    return checkCharacters();
  }
}

//===----------------------------------------------------------------------===//
// Characters
//===----------------------------------------------------------------------===//

/// The literal of ALL, otherwise the literal itself.
const LiteralExpression &innerLiteral(const LiteralExpression &literal) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal);
  return constant && constant->getLiteral() ? *constant->getLiteral() : literal;
}

/// A literal may be shorter than the item, never longer.
bool InitialValueCheck::checkLength() {
  const auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(&literal);
  if (!text)
    return true;
  std::int64_t positions = 0;
  if (!entry.isGroupItem())
    positions = entry.getPicture()->getSize();
  else if (entry.getDataCategory() == DataCategory::National)
    positions = entry.getAllocSize() / 2;
  else
    positions = entry.getAllocSize();
  std::int64_t length = text->getLength();
  if (text->getNonNumericLiteralType() == NonNumericLiteralType::NullTerminated)
    ++length;
  if (length > positions)
    return report(ErrorCode::ValueTooLong);
  return true;
}

/// Alphabetic, alphanumeric and edited items, and groups: an alphanumeric literal or a figurative
/// constant. Editing is not applied to initial values.
bool InitialValueCheck::checkCharacters() {
  const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&literal);
  const bool isFloat = number && number->getLiteralType() == NumericLiteralType::FloatingPoint;
  if (entry.getDataCategory() == DataCategory::Alphabetic &&
      (isFloat || isFigurative(literal, FigurativeType::Zero)))
    return report(ErrorCode::FloatOrZeroIdentifier);
  if (isFigurative(literal, FigurativeType::Zero))
    return true;
  if (innerLiteral(literal).getDataCategory() != DataCategory::Alphanumeric)
    return report(ErrorCode::ValueDoesNotFitPicture);
  return checkLength();
}

bool InitialValueCheck::checkNational() {
  if (auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal)) {
    // Figurative constants stand for the characters that the item has.
    if (constant->getFigurativeType() != FigurativeType::AllLiteral) {
      constant->setIsNational(true);
      return true;
    }
  }
  if (innerLiteral(literal).getDataCategory() != DataCategory::National)
    return report(ErrorCode::ValueNationalLiteral);
  return checkLength();
}

bool InitialValueCheck::checkDbcs() {
  if (isFigurative(literal, FigurativeType::Space))
    return true;
  if (innerLiteral(literal).getDataCategory() != DataCategory::Dbcs)
    return report(ErrorCode::ValueDbcsLiteral);
  return checkLength();
}

//===----------------------------------------------------------------------===//
// Numbers
//===----------------------------------------------------------------------===//

/// The digits of a fixed-point literal on both sides of its decimal point.
struct FixedPointDigits {
  explicit FixedPointDigits(const NumericLiteralExpression &literal) {
    for (char c : literal.getData())
      if (llvm::isDigit(c))
        integer.push_back(c);
    const std::size_t scale = std::min<std::size_t>(literal.getScale(), integer.size());
    decimals = integer.str().take_back(scale);
    integer.resize(integer.size() - scale);
  }

  /// Without zeros in front.
  llvm::StringRef significantInteger() const { return integer.str().ltrim('0'); }
  /// Without zeros at the end.
  llvm::StringRef significantDecimals() const { return decimals.str().rtrim('0'); }
  bool isZero() const { return significantInteger().empty() && significantDecimals().empty(); }

  llvm::SmallString<40> integer;
  llvm::SmallString<40> decimals;
};

/// Whether the value fits the digits of the picture without losing significant digits.
bool fitsDigits(const FixedPointDigits &value, const ClausePicture &picture) {
  const std::size_t scale = picture.getScale();
  const std::size_t integerDigits = picture.getDigitNum() - picture.getScale();
  return value.significantInteger().size() <= integerDigits &&
         value.significantDecimals().size() <= scale;
}

/// Whether the value fits the bytes of a COMP-5 item, whose range does not depend on the digits of
/// its picture.
bool fitsBytes(const FixedPointDigits &value, bool isNegative, const ClausePicture &picture) {
  const std::size_t scale = picture.getScale();
  if (value.significantDecimals().size() > scale)
    return false;
  llvm::SmallString<64> digits = value.significantInteger();
  digits += value.significantDecimals();
  digits.append(scale - value.significantDecimals().size(), '0');
  // More bits than any number of the language needs.
  const llvm::APInt number(256, digits.empty() ? "0" : digits.str(), 10);
  const unsigned bits = 8 * static_cast<unsigned>(binarySize(picture.getStoredDigitNum()));
  if (!picture.isSigned())
    return number.getActiveBits() <= bits;
  // The negative range is larger by one.
  return (isNegative ? number - 1 : number).getActiveBits() < bits || number.isZero();
}

/// A numeric item: ZERO, or a fixed-point literal that fits the sign and digits of the PICTURE.
bool InitialValueCheck::checkNumber() {
  if (llvm::isa<FigurativeLiteralExpression>(literal)) {
    if (isFigurative(literal, FigurativeType::Zero))
      return true;
    return report(ErrorCode::ValueFigurativeConstant);
  }
  const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&literal);
  if (!number || number->getLiteralType() == NumericLiteralType::FloatingPoint)
    return report(ErrorCode::ValueDoesNotFitPicture);

  bool ok = true;
  const ClausePicture &picture = *entry.getPicture();
  if (number->isSigned() && !picture.isSigned())
    ok = report(ErrorCode::ValueSignedForUnsigned);
  // A picture with too many digits has been reported, and any literal fits it.
  if (picture.getDigitNum() > MaxDigits)
    return ok;
  const FixedPointDigits value(*number);
  const bool isScaled = picture.getDigitNum() != picture.getStoredDigitNum();
  if (isScaled)
    ok &= checkScaled(picture, value.significantInteger(), value.decimals);
  else if (entry.getUsageType() == UsageType::Comp5
               ? !fitsBytes(value, llvm::StringRef(number->getData()).starts_with("-"), picture)
               : !fitsDigits(value, picture))
    ok = report(ErrorCode::ValueTooLong);
  return ok;
}

/// Scaling positions hold zeros only. An item 99PPP is zero or lies between 1000 and 99000, an item
/// PPP99 between 0.00000 and 0.00099.
bool InitialValueCheck::checkScaled(const ClausePicture &picture, llvm::StringRef integer,
                                    llvm::StringRef decimals) {
  const std::size_t digits = picture.getDigitNum();
  const std::size_t scaling = digits - picture.getStoredDigitNum();
  const bool hasDecimals = !decimals.rtrim('0').empty();
  if (integer.empty() && !hasDecimals)
    return true;
  bool isInRange;
  bool losesDigits;
  if (picture.isPFront()) {
    isInRange = integer.empty() && decimals.take_front(scaling).ltrim('0').empty();
    losesDigits = decimals.rtrim('0').size() > digits;
  } else {
    isInRange = integer.size() > scaling && integer.size() <= digits;
    losesDigits = hasDecimals || !integer.take_back(scaling).trim('0').empty();
  }
  if (!isInRange)
    return report(ErrorCode::ValueRangeWithScaledPicture);
  if (losesDigits)
    return report(ErrorCode::ValueWithScaledPicture);
  return true;
}

} // namespace

//===----------------------------------------------------------------------===//
// Items
//===----------------------------------------------------------------------===//

/// Notes that \p entry and the groups around it have an initial value.
static void noteInitialValue(DataDescription &entry) {
  const StorageType storage = entry.getStorageType();
  if (storage == StorageType::Linkage || storage == StorageType::File)
    return;
  for (DataDescription *item = &entry; item; item = item->getParent())
    item->setHaveValue(true);
}

bool SemanticChecker::checkLiteralValue(DataDescription *entry, LiteralExpression *literal) {
  // A level 66 has no storage; its VALUE has been reported.
  if (entry->getLevelNum() == 66)
    return false;
  noteInitialValue(*entry);
  if (!literal)
    return report(ErrorCode::Level88NeedsValue, entry);
  if (!semanticCheck(*literal))
    return false;
  // For a group this has been reported.
  if (entry->isGroupItem() && (isNull(*literal) || llvm::isa<NumericLiteralExpression>(literal)))
    return false;
  return InitialValueCheck(*this, *entry, *literal).check();
}

bool SemanticChecker::checkHaveNullValue(const DataDescription *entry, LiteralExpression *literal) {
  if ((entry->getDataCategory() == DataCategory::Pointer) == isNull(*literal))
    return true;
  return report(llvm::isa<FigurativeLiteralExpression>(literal) ? ErrorCode::ValueFigurativeConstant
                                                                : ErrorCode::ValueDoesNotFitPicture,
                literal);
}

/// INIT gives an initial value to every item of the program's own storage.
bool SemanticChecker::checkInitSpace(DataDescription &entry) {
  const StorageType storage = entry.getStorageType();
  if (storage != StorageType::WorkingStorage && storage != StorageType::LocalStorage)
    return true;
  if (entry.isGroupItem() || entry.getLevelNum() == 66 || entry.getLevelNum() == 88 ||
      entry.getIsCompilerMade())
    return true;
  for (const DataDescription *item = &entry; item; item = item->getParent())
    if (item->getExternal() || item->getRedefines())
      return true;
  noteInitialValue(entry);
  return true;
}

} // namespace tarka
