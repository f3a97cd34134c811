//===- SCStmtAcceptDisplay.cpp - ACCEPT, DISPLAY and STOP -----------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(StopStatement &statement) {
  return OperandCheck(*this).one(statement.getLiteral());
}

bool SemanticChecker::semanticCheck(AcceptStatement &statement) {
  return OperandCheck(*this).one(statement.getVariable());
}

bool SemanticChecker::semanticCheck(DisplayStatement &statement) {
  return OperandCheck(*this).all(statement.getIdenLiterListElements());
}

} // namespace tarka
