//===- SCExpr.cpp - the dispatch of operands ------------------------------===//
//
// Every operand is checked through the dispatch here.
//
//===----------------------------------------------------------------------===//

#include "AST/ExpressionVisitor.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/Support/ErrorHandling.h"

namespace tarka {

namespace {

/// Hands an operand to the check of its class.
class ExpressionCheck : public ExpressionVisitor<ExpressionCheck, bool> {
public:
  explicit ExpressionCheck(SemanticChecker &semanticChecker) : checker(semanticChecker) {}

#define TARKA_EXPRESSION(Kind, Number, Class)                                                      \
  bool visit##Class(Class &expression) { return check(expression); }
#include "AST/Expressions.def"

  bool visitExpression(Expression &expression) {
    return checker.report(ErrorCode::IdentifierUndefined, &expression);
  }

private:
  template <typename Class> bool check(Class &expression) {
    return checker.semanticCheck(expression);
  }
  /// A report-name is not an operand; the statements that take one check it themselves.
  bool check(ReportIdentifierExpression &name) { return visitExpression(name); }

  SemanticChecker &checker;
};

} // namespace

bool SemanticChecker::semanticCheck(Expression &expression) {
  return ExpressionCheck(*this).visit(expression);
}

bool SemanticChecker::semanticCheck(LiteralExpression &literal) {
  return ExpressionCheck(*this).visit(literal);
}

bool SemanticChecker::semanticCheck(IdentifierExpression &identifier) {
  if (llvm::isa<ReportIdentifierExpression>(identifier))
    llvm_unreachable("Invalid Expression Type");
  return ExpressionCheck(*this).visit(identifier);
}

} // namespace tarka
