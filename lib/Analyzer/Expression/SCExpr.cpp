//===- SCExpr.cpp - the dispatch of operands ------------------------------===//
//
// Every operand is checked through the dispatch here.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/Support/ErrorHandling.h"

namespace tarka {

bool SemanticChecker::semanticCheck(Expression &expression) {
  switch (expression.getExprType()) {
  case ExpressionType::NumericLiteral:
  case ExpressionType::NonNumericLiteral:
  case ExpressionType::FigurativeConstant:
    return semanticCheck(llvm::cast<LiteralExpression>(expression));
  case ExpressionType::Arithmetic:
    return semanticCheck(llvm::cast<ArithmeticExpression>(expression));
  case ExpressionType::DataIdentifier:
  case ExpressionType::FileIdentifier:
  case ExpressionType::FunctionIdentifier:
  case ExpressionType::SpecialRegister:
    return semanticCheck(llvm::cast<IdentifierExpression>(expression));
  case ExpressionType::AbbrRelationCombined:
    return semanticCheck(llvm::cast<AbbrRelationCombinedExpression>(expression));
  case ExpressionType::ReportIdentifier:
    break;
  }
  return report(ErrorCode::IdentifierUndefined, &expression);
}

bool SemanticChecker::semanticCheck(LiteralExpression &literal) {
  switch (literal.getExprType()) {
  case ExpressionType::NumericLiteral:
    return semanticCheck(llvm::cast<NumericLiteralExpression>(literal));
  case ExpressionType::NonNumericLiteral:
    return semanticCheck(llvm::cast<NonNumericLiteralExpression>(literal));
  case ExpressionType::FigurativeConstant:
    return semanticCheck(llvm::cast<FigurativeLiteralExpression>(literal));
  default:
    llvm_unreachable("Invalid Expression Type");
  }
}

bool SemanticChecker::semanticCheck(IdentifierExpression &identifier) {
  switch (identifier.getExprType()) {
  case ExpressionType::DataIdentifier:
    return semanticCheck(llvm::cast<DataIdentifierExpression>(identifier));
  case ExpressionType::FileIdentifier:
    return semanticCheck(llvm::cast<FileIdentifierExpression>(identifier));
  case ExpressionType::FunctionIdentifier:
    return semanticCheck(llvm::cast<FunctionIdentifierExpression>(identifier));
  case ExpressionType::SpecialRegister:
    return semanticCheck(llvm::cast<SpecialRegisterIdentifierExpression>(identifier));
  default:
    llvm_unreachable("Invalid Expression Type");
  }
}

} // namespace tarka
