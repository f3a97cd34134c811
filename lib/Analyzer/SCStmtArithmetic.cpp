//===- SCStmtArithmetic.cpp - the arithmetic statements -------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(AddStatement &statement) {
  return OperandCheck(*this)
      .all(statement.getOperandListElements())
      .one(statement.getToOperand())
      .receivers(statement.getToListElements())
      .receivers(statement.getGivingListElements())
      .one(statement.getCorrespondingExpr())
      .receiver(statement.getToRoundExpr())
      .all(statement.getSizeErrorHandlerElements());
}

bool SemanticChecker::semanticCheck(SubtractStatement &statement) {
  return OperandCheck(*this)
      .all(statement.getOperandListElements())
      .one(statement.getFromExpr())
      .receivers(statement.getFromListElements())
      .receivers(statement.getGivingListElements())
      .one(statement.getCorrExpr())
      .receiver(statement.getFromRoundExpr())
      .all(statement.getSizeErrorHandlerElements());
}

bool SemanticChecker::semanticCheck(MultiplyStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getOperand())
      .one(statement.getByOperand())
      .receivers(statement.getByListElements())
      .receivers(statement.getGivingListElements())
      .all(statement.getSizeErrorHandlerElements());
}

bool SemanticChecker::semanticCheck(DivideStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getOperand())
      .one(statement.getIntoExpr())
      .one(statement.getByExpr())
      .receivers(statement.getToListElements())
      .receivers(statement.getGivingListElements())
      .one(statement.getRemainderExpr())
      .all(statement.getSizeErrorHandlerElements());
}

bool SemanticChecker::semanticCheck(ComputeStatement &statement) {
  return OperandCheck(*this)
      .receivers(statement.getOperandListElements())
      .one(statement.getArithmeticExpression())
      .all(statement.getSizeErrorHandlerElements());
}

} // namespace tarka
