//===- SCStmtSearch.cpp - SEARCH ------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(SearchStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getSearchIdentifier())
      .one(statement.getVaryingIdentifier())
      .all(statement.getAtHandlerElements());
  for (SearchWhen *when : statement.getWhenListElements())
    check.one(when->getCondition()).all(when->getStatementListElements());
  return check;
}

} // namespace tarka
