//===- SCStmtInitialize.cpp - INITIALIZE ----------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(InitializeStatement &statement) {
  OperandCheck check(*this);
  check.all(statement.getIdentifierListElements());
  for (InitializeReplacingItem *item : statement.getReplacingListElements())
    check.one(item->getByExpr());
  return check;
}

} // namespace tarka
