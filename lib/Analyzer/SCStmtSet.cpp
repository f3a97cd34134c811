//===- SCStmtSet.cpp - SET ------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(SetStatement &statement) {
  OperandCheck check(*this);
  for (SetItem *item : statement.getItemListElements()) {
    // The names of switches are mnemonic names, not data.
    if (item->getType() != SetItemType::Switch)
      check.all(item->getSetListElements());
    check.all(item->getCondListElements());
    if (item->getToValue())
      check.one(item->getToValue()->getToExpr());
  }
  return check;
}

} // namespace tarka
