//===- SCLiteral.cpp - limits of literals, figurative constants -----------===//

#include "AST/Expression.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

namespace {

constexpr int MaxDigits = 31;
constexpr int MaxMantissaDigits = 16;
constexpr int MaxExponent = 99;

/// True when there is a sign inside the literal: neither at its beginning nor that of an exponent.
bool hasInnerSign(llvm::StringRef text) {
  std::size_t sign = text.find_last_of("+-");
  if (sign == llvm::StringRef::npos || sign == 0)
    return false;
  return text[sign - 1] != 'E' && text[sign - 1] != 'e';
}

} // namespace

bool SemanticChecker::semanticCheck(NumericLiteralExpression &literal) {
  bool ok = true;
  if (literal.getLiteralType() == NumericLiteralType::Unclassified)
    ok = report(ErrorCode::NumericExpressionInvalid, &literal);
  const std::string text = literal.getData();
  if (context().getIsDecimalPointComma())
    literal.convertDecimalPoint(text);

  // The messages about limits do not quote the literal, and this one mentions an exponent even
  // where there is none.
  if (literal.getDigitsNum() > MaxDigits)
    ok = report(ErrorCode::NumericLiteralTooManyDigits, &literal);
  // Two decimal points in one literal pass.
  if (!literal.isInteger() && hasInnerSign(text))
    ok = report(ErrorCode::LiteralInvalidCharacter, &literal);
  if (literal.getLiteralType() == NumericLiteralType::FloatingPoint) {
    if (literal.getDigitsNum() > MaxMantissaDigits)
      ok = report(ErrorCode::FloatLiteralTooManyDigits, &literal);
    if (literal.getExponent() > MaxExponent || literal.getExponent() < -MaxExponent)
      ok = report(ErrorCode::FloatLiteralExponentRange, &literal);
  }
  literal.setSrcDigitNum(static_cast<unsigned>(literal.getDigitsNum()));
  literal.setSrcScale(static_cast<unsigned>(literal.getScale()));
  return ok;
}

bool SemanticChecker::semanticCheck(NonNumericLiteralExpression &literal) {
  if (literal.getNonNumericLiteralType() != NonNumericLiteralType::Hexadecimal)
    return true;
  // The last character is not checked; compilers rely on it.
  llvm::StringRef digits = llvm::StringRef(literal.getData()).drop_back(!literal.getData().empty());
  if (!llvm::all_of(digits, llvm::isHexDigit))
    return report(ErrorCode::HexLiteralInvalidCharacter, &literal, literal.getData().c_str());
  return true;
}

namespace {

/// A symbolic character becomes the constant that SPECIAL-NAMES defines for it.
bool resolveSymbolicCharacter(SemanticChecker &checker, FigurativeLiteralExpression &literal) {
  auto *name = generate<Word>(literal.getNode(), literal.getSymbolName(), "");
  auto *meaning =
      llvm::dyn_cast_or_null<FigurativeLiteralExpression>(checker.convertSymbolicValue(name));
  if (!meaning)
    return false;
  literal.setFigurativeType(meaning->getFigurativeType());
  literal.setLiteral(meaning->getLiteral());
  return true;
}

/// ALL before a figurative constant has no meaning and is removed; ALL "text" stays.
bool checkAllLiteral(SemanticChecker &checker, FigurativeLiteralExpression &literal) {
  LiteralExpression *inner = literal.getLiteral();
  if (!inner)
    return checker.report(ErrorCode::AllNeedsLiteral, &literal);
  auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(inner);
  // A symbolic character turns into another kind of constant when it is checked.
  const bool isSymbolic =
      constant && constant->getFigurativeType() == FigurativeType::SymbolicCharacter;
  bool ok = checker.semanticCheck(*inner);
  if (llvm::isa<NumericLiteralExpression>(inner))
    return checker.report(ErrorCode::AllNeedsLiteral, &literal);
  if (!constant)
    return ok;
  FigurativeType type = constant->getFigurativeType();
  if (!isSymbolic && (type == FigurativeType::AllLiteral || type == FigurativeType::Null))
    ok = checker.report(ErrorCode::AllFigurativeConstant, &literal);
  literal.setFigurativeType(type);
  literal.setLiteral(isSymbolic ? constant->getLiteral() : nullptr);
  return ok;
}

} // namespace

bool SemanticChecker::semanticCheck(FigurativeLiteralExpression &literal) {
  switch (literal.getFigurativeType()) {
  case FigurativeType::SymbolicCharacter:
    return resolveSymbolicCharacter(*this, literal);
  case FigurativeType::AllLiteral:
    return checkAllLiteral(*this, literal);
  default:
    if (literal.getLiteral())
      return report(ErrorCode::AllOfAll, &literal);
    return true;
  }
}

} // namespace tarka
