//===- SCStmtOsvs.cpp - the statements of OS/VS COBOL ---------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(OnStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getOnExpr())
      .one(statement.getEveryExpr())
      .one(statement.getUntilExpr())
      .all(statement.getUntilStmtListElements())
      .all(statement.getElseStmtListElements());
}

bool SemanticChecker::semanticCheck(TransformStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getTransformExpr())
      .one(statement.getFromExpr())
      .one(statement.getToExpr());
}

bool SemanticChecker::semanticCheck(ExamineStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getExamineExpr())
      .one(statement.getOptExpr())
      .one(statement.getByExpr());
}

bool SemanticChecker::semanticCheck(ExhibitStatement &statement) {
  return OperandCheck(*this).all(statement.getExhibitExprListElements());
}

} // namespace tarka
