//===- SCStmtInspect.cpp - INSPECT ----------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(InspectStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getIdentifier());
  for (TallyingItem *item : statement.getTallyingListElements()) {
    check.one(item->getIdentifier());
    for (TallyingItemFor *phrase : item->getTallyingForListElements()) {
      check.regions(phrase->getInspectRegionListElements());
      for (TallyingRegion *tallied : phrase->getTallyingRegionListElements())
        check.one(tallied->getExpr()).regions(tallied->getRegionPhraseListElements());
    }
  }
  for (ReplacingItem *item : statement.getReplacingListElements()) {
    check.one(item->getExpr()).regions(item->getInspectRegionListElements());
    for (ReplacingRegion *replaced : item->getReplacingRegionListElements())
      check.one(replaced->getExpr())
          .one(replaced->getByExpr())
          .regions(replaced->getRegionListElements());
  }
  if (ConvertingItem *converting = statement.getConverting())
    check.one(converting->getExpr())
        .one(converting->getToExpr())
        .regions(converting->getRegionListElements());
  return check;
}

} // namespace tarka
