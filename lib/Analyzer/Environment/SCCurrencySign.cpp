//===- SCCurrencySign.cpp - CURRENCY SIGN --------------------------------===//
//
// The characters that a currency sign and its PICTURE SYMBOL may consist of. What a
// picture makes of the symbol is in Data/SCDataPicture.cpp.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Program.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/StringRef.h"

namespace tarka {

namespace {

/// Characters that a currency sign without PICTURE SYMBOL, or a PICTURE SYMBOL, must not contain.
constexpr llvm::StringLiteral pictureCharacters =
    "0123456789ABCDEGNPRSVXZabcdegnprsvxz+-,.*/;()='\"";
/// Characters that a currency sign with PICTURE SYMBOL must not contain.
constexpr llvm::StringLiteral numberCharacters = "0123456789+-,.";

} // namespace

bool SemanticChecker::checkClauseCurrency(ClauseCurrency &clause) {
  LiteralExpression *sign = clause.getSignLiteral();
  LiteralExpression *symbol = clause.getSymbolLiteral();
  bool ok = semanticCheck(*sign);
  auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(sign);
  if (!text) {
    ok = report(ErrorCode::CurrencySignNotSingleCharacter, sign);
  } else {
    if (text->getNonNumericLiteralType() == NonNumericLiteralType::Dbcs)
      ok = report(ErrorCode::CurrencySignNotSingleCharacter, sign);
    const bool canBeLong =
        symbol && text->getLength() > 1 && followsEnterprise(EnterpriseRule::LongCurrencySign);
    if (text->getLength() != 1 && !canBeLong)
      ok = report(ErrorCode::CurrencySignNotSingleCharacter, sign);
    llvm::StringRef forbidden = symbol ? numberCharacters : pictureCharacters;
    // What a hexadecimal literal contains are the digits of a character, not the character.
    const bool isHexadecimal =
        text->getNonNumericLiteralType() == NonNumericLiteralType::Hexadecimal;
    if (!isHexadecimal &&
        llvm::StringRef(text->getData()).find_first_of(forbidden) != llvm::StringRef::npos)
      ok = report(ErrorCode::CurrencySignInvalidCharacter, sign);
  }
  if (!symbol)
    return ok;

  ok &= semanticCheck(*symbol);
  auto *symbolText = llvm::dyn_cast<NonNumericLiteralExpression>(symbol);
  if (!symbolText || symbolText->getLength() != 1)
    ok = report(ErrorCode::CurrencySignNotSingleCharacter, symbol);
  if (symbolText && llvm::StringRef(symbolText->getData()).find_first_of(pictureCharacters) !=
                        llvm::StringRef::npos)
    ok = report(ErrorCode::CurrencySignInvalidCharacter, symbol);
  return ok;
}

} // namespace tarka
