//===- SCStmtCall.cpp - CALL and CANCEL -----------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

/// A name that is no data item is the name of the program itself.
bool SemanticChecker::semanticCheck(CallStatement &statement) {
  OperandCheck check(*this);
  auto *name = llvm::dyn_cast_if_present<DataIdentifierExpression>(statement.getProcedureName());
  if (name && !name->getSubscriptMod() && !name->getReferenceMod() &&
      name->getQualifiedWord()->getNamesSize() == 1) {
    if (!semanticCheck(*name, true, false))
      statement.setProcedureName(new NonNumericLiteralExpression(
          name, (*name->getQualifiedWord()->getNamesBegin())->getDisplayName()));
  } else {
    check.one(statement.getProcedureName());
  }
  for (Argument *argument : statement.getArgumentListElements())
    check.one(argument->getExpr());
  return check.one(statement.getReturn()).all(statement.getExceptHandlerElements());
}

bool SemanticChecker::semanticCheck(CancelStatement &statement) {
  return OperandCheck(*this).all(statement.getProgramListElements());
}

} // namespace tarka
