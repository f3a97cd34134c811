//===- SCStmtReport.cpp - the statements of the report writer -------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

bool SemanticChecker::semanticCheck(RwGenerateStatement &statement) {
  // A name without qualifiers is that of a report, or of a group of a report.
  auto *name = llvm::dyn_cast_if_present<ReportIdentifierExpression>(statement.getFileName());
  if (!name)
    return OperandCheck(*this).one(statement.getFileName());
  if (findReport(name->getReportName()->getWordData()))
    return semanticCheck(*name);
  std::list<Word *> words{name->getReportName()};
  auto *group =
      new DataIdentifierExpression(name, new QualifiedWord(name, &words), nullptr, nullptr);
  statement.setFileName(group);
  return semanticCheck(*group, false, true);
}

bool SemanticChecker::semanticCheck(RwInitiateStatement &statement) {
  return OperandCheck(*this).all(statement.getInitiateNameListElements());
}

bool SemanticChecker::semanticCheck(RwTerminateStatement &statement) {
  return OperandCheck(*this).all(statement.getTerminateNameListElements());
}

bool SemanticChecker::semanticCheck(RwSuppressStatement &) {
  return true;
}

} // namespace tarka
