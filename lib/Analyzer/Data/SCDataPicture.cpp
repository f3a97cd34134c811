//===- SCDataPicture.cpp - PICTURE and the currency sign ------------------===//
//
// Checks a decoded PICTURE against the usage and the other clauses of its entry, and
// applies the currency symbols of SPECIAL-NAMES.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Data/PictureRules.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallString.h"
#include <algorithm>

namespace tarka {

namespace {

constexpr std::size_t MaxPictureCharacters = 50;
constexpr int MaxEditedPositions = 249;

/// Usages in which the digits of a numeric item can be stored.
bool storesDigits(UsageType usage) {
  switch (usage) {
  case UsageType::Binary:
  case UsageType::Comp:
  case UsageType::Comp3:
  case UsageType::Comp4:
  case UsageType::Comp5:
  case UsageType::PackedDecimal:
  case UsageType::Display:
  case UsageType::National:
    return true;
  default:
    return false;
  }
}

bool isDisplayOrNational(UsageType usage) {
  return usage == UsageType::Display || usage == UsageType::National;
}

/// The usages that each category can have, and the limits of its size.
bool checkPictureCategory(SemanticChecker &checker, DataDescription &entry,
                          const ClausePicture &picture) {
  bool ok = true;
  const UsageType usage = entry.getUsageType();
  switch (picture.getDataCategory()) {
  case DataCategory::Alphabetic:
    if (usage != UsageType::Display)
      ok = checker.report(ErrorCode::PictureUsageMismatch, &entry);
    return ok;

  case DataCategory::Alphanumeric:
  case DataCategory::AlphanumericEdited:
    if (usage != UsageType::Display)
      ok = checker.report(ErrorCode::PictureStringInvalid, &entry);
    return ok;

  case DataCategory::Numeric:
    if (!storesDigits(usage))
      ok = checker.report(ErrorCode::PictureStringInvalid, &entry);
    if (picture.getDigitNum() > MaxDigits)
      ok = checker.report(ErrorCode::PictureTooManyDigits, &entry);
    return ok;

  case DataCategory::NumericEdited:
    if (!isDisplayOrNational(usage))
      ok = checker.report(ErrorCode::PictureStringInvalid, &entry);
    if (picture.getSize() > MaxEditedPositions)
      ok = checker.report(ErrorCode::PictureEditedTooLong, &entry);
    if (picture.getDigitNum() > MaxDigits)
      ok = checker.report(ErrorCode::PictureTooManyDigits, &entry);
    return ok;

  case DataCategory::National:
  case DataCategory::NationalEdited:
    if (!isDisplayOrNational(usage))
      ok = checker.report(ErrorCode::PictureStringInvalid, &entry);
    return ok;

  case DataCategory::Dbcs:
    if (!entry.getUsage())
      entry.setUsage(generate<ClauseUsage>(nullptr, UsageType::Display1));
    else if (entry.getUsage()->getType() != UsageType::Display1)
      ok = checker.report(ErrorCode::PictureStringInvalid, &entry);
    return ok;

  case DataCategory::ExternalFloat:
    if (!isDisplayOrNational(usage))
      ok = checker.report(ErrorCode::PictureStringInvalid, &entry);
    if (entry.getBlankZero() || entry.getJustified() || entry.getValue())
      ok = checker.report(ErrorCode::ExternalFloatClause, &entry);
    // The picture itself fixes the sign and the form, so both clauses are dropped.
    entry.setSynchronized(nullptr);
    entry.setSign(nullptr);
    return ok;

  default:
    return true;
  }
}

/// A currency symbol other than "$" needs a CURRENCY SIGN clause, and exactly one. Every clause is
/// tried even after one has matched, so that a picture may be converted more than once: a clause
/// for the symbol "$" then converts what another one has converted. Enterprise COBOL takes the
/// first.
bool checkCurrencySymbol(SemanticChecker &checker, ClausePicture &picture) {
  ParaSpecialNames *specialNames = currentSpecialNames();
  if (!specialNames || specialNames->getCurrencyListSize() == 0)
    return checker.report(ErrorCode::PictureCurrencyWithoutClause, &picture);
  auto converts = [&](ClauseCurrency *clause) {
    return checker.convertCurrencyString(&picture, clause);
  };
  const auto clauses = specialNames->getCurrencyListElements();
  const bool isConverted = followsEnterprise(EnterpriseRule::LongCurrencySign)
                               ? llvm::any_of(clauses, converts)
                               : llvm::count_if(clauses, converts) == 1;
  if (!isConverted)
    return checker.report(ErrorCode::CurrencyClauseInvalid, &picture);
  return true;
}

} // namespace

bool SemanticChecker::checkClausePicture(DataDescription &entry) {
  bool ok = true;
  ClausePicture &picture = *entry.getPicture();
  if (context().getIsDecimalPointComma()) {
    picture.decodePicture(/*decimalPointIsComma=*/true);
    entry.clauseChanged();
  }
  if (followsEnterprise(EnterpriseRule::PictureNOfDisplay1) &&
      entry.getUsageType() == UsageType::Display1) {
    picture.readNationalAsDbcs();
    entry.clauseChanged();
  }
  if (entry.isGroupItem())
    ok = report(ErrorCode::GroupWithPicture, &entry);
  if (entry.getRenames() || excludesPicture(entry.getUsageType()))
    ok = report(ErrorCode::UsageTypeInvalid, &entry);
  const std::string &characters = picture.getCharStringWord()->getWordData();
  if (characters.empty() || characters.size() > MaxPictureCharacters)
    ok = report(ErrorCode::PictureStringInvalid, &entry);
  if (picture.getDataCategory() == DataCategory::Unclassified)
    ok = report(ErrorCode::PictureStringInvalid, &entry);
  if (picture.isDiffCurrencySymbol()) {
    ok &= checkCurrencySymbol(*this, picture);
    // The sign that was found may be longer than one character.
    entry.clauseChanged();
  }
  ok &= checkPictureCategory(*this, entry, picture);
  return ok;
}

//===----------------------------------------------------------------------===//
// Currency symbols
//===----------------------------------------------------------------------===//

/// The text of a literal that can be a currency sign or symbol.
static llvm::StringRef textOf(const LiteralExpression *literal) {
  if (const auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(literal))
    return text->getData();
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(literal))
    return number->getData();
  return {};
}

bool SemanticChecker::convertCurrencyString(ClausePicture *picture, ClauseCurrency *currency) {
  // Without PICTURE SYMBOL the sign is its own symbol.
  LiteralExpression *symbolLiteral = currency->getSymbolLiteral();
  if (!symbolLiteral) {
    symbolLiteral = currency->getSignLiteral();
    if (!llvm::isa_and_nonnull<NonNumericLiteralExpression>(symbolLiteral))
      return false;
  }
  // Of a longer symbol only the first character counts; the sign is kept whole.
  llvm::StringRef text = textOf(symbolLiteral);
  if (text.empty())
    return false;
  const char symbol = takePictureCharacter(text);
  if (!checkValidString(symbol, symbolLiteral))
    return false;
  llvm::SmallString<64> extended = llvm::StringRef(picture->getExtendedPicture());
  if (!llvm::is_contained(extended, symbol))
    return false;
  std::replace(extended.begin(), extended.end(), symbol, '$');
  picture->setCurrencySymbolLiteral(currency->getSignLiteral());
  picture->setExtendedPicture(extended);
  return true;
}

bool SemanticChecker::checkValidString(char symbol, Expression *literal) {
  // Digits and the space pass: the CURRENCY SIGN clause has its own rule for them.
  constexpr llvm::StringLiteral invalid = "AaBbCcDdEeGgNnPpRrSsVvXxZz+-,.*/;()=\"'";
  if (invalid.contains(symbol))
    return report(ErrorCode::CurrencyCharacterInvalid, literal);
  return true;
}

} // namespace tarka
