//===- SCStmtConditional.cpp - IF and EVALUATE ----------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(IfStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getCondition())
      .all(statement.getIfStmtListElements())
      .all(statement.getElseStmtListElements());
}

bool SemanticChecker::semanticCheck(EvaluateStatement &statement) {
  OperandCheck check(*this);
  for (EvaluateSubject *subject : statement.getSubjectListElements())
    check.one(subject->getExpr()).one(subject->getCond());
  for (EvaluateCase *oneCase : statement.getWhenCaseListElements()) {
    for (EvaluateWhen *when : oneCase->getWhenListElements())
      for (EvaluateObject *object : when->getWhenObjListElements())
        check.one(object->getCondition())
            .one(object->getFrontExpression())
            .one(object->getRearExpression());
    check.all(oneCase->getWhenStmtListElements());
  }
  return check;
}

} // namespace tarka
