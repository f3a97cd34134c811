//===- SCStmtStop.cpp - STOP ----------------------------------------------===//

#include "AST/Statement.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// What STOP can show to the operator: a number without an exponent, alphanumeric characters, or a
/// figurative constant that is one. ALL before a figurative constant has no meaning and is already
/// removed.
static bool isStopLiteral(const LiteralExpression &literal) {
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&literal))
    return number->getLiteralType() != NumericLiteralType::FloatingPoint;
  if (const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal))
    return constant->getFigurativeType() != FigurativeType::Null && !isAllLiteral(*constant);
  return literal.getDataCategory() == DataCategory::Alphanumeric;
}

bool SemanticChecker::semanticCheck(StopStatement &statement) {
  LiteralExpression *literal = statement.getLiteral();
  if (!literal)
    return true;
  if (!semanticCheck(*literal))
    return false;
  return isStopLiteral(*literal) || report(ErrorCode::StopLiteralKind, literal);
}

} // namespace tarka
