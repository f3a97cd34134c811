//===- SCStmtString.cpp - STRING and UNSTRING -----------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(StringStatement &statement) {
  OperandCheck check(*this);
  for (StringItem *item : statement.getItemListElements())
    check.all(item->getStringNameListElements()).one(item->getDelimitedName());
  return check.one(statement.getIntoIdentifier())
      .one(statement.getWithPointerIdentifier())
      .all(statement.getOverflowHandlerElements());
}

bool SemanticChecker::semanticCheck(UnstringStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getSourceIdentifier());
  for (UnstringDelimitedItem *item : statement.getDelimiterListElements())
    check.one(item->getDelimiter());
  for (UnstringIntoItem *item : statement.getIntoListElements())
    check.one(item->getTargetIdentifier())
        .one(item->getDelimiter())
        .one(item->getCountIdentifier());
  return check.one(statement.getWithPointerId())
      .one(statement.getTallyingId())
      .all(statement.getOverflowHandlerElements());
}

} // namespace tarka
