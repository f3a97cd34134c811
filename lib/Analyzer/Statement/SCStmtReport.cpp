//===- SCStmtReport.cpp - the statements of the report writer -------------===//
//
// INITIATE, GENERATE and TERMINATE drive a report from outside; SUPPRESS acts
// from within a procedure that runs before one of its groups is presented.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/ReportDescription.h"
#include "AST/Statement.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Statement/OperandCheck.h"

namespace tarka {

namespace {

/// A report is driven from outside: while it presents a group, it cannot generate the next one.
/// Copies of other sections that declaratives perform are not part of a USE BEFORE REPORTING.
bool checkDrivesReport(SemanticChecker &checker, Statement &statement) {
  const bool isPresenting = checker.getInDeclaratives() && checker.getCurrentRD();
  return !isPresenting || checker.report(ErrorCode::StatementInvalid, &statement);
}

/// Only a detail group can be generated.
bool isDetailGroup(const DataDescription &entry) {
  const auto *group = llvm::dyn_cast<ReportDataDescription>(&entry);
  if (!group || group->getParent())
    return false;
  const ClauseType *type = group->getTypeClause();
  return !type || type->getTypeOption() == ReportGroupType::Detail;
}

/// Whether several items have the name of \p group, which has no qualifiers. Such a name is bound
/// to one of them, and reported.
bool isAmbiguous(const DataIdentifierExpression &group) {
  const NodeList<Word> &words = group.getQualifiedWord()->getNamesElements();
  const Homonyms homonyms = currentScope().findItems(&words.front()->getWordData());
  const bool usesReportWriter = CompileOption::getCompileOptionInstance()->isOptionEnableRw();
  return words.size() == 1 && homonyms && !matchUnqualified(homonyms, usesReportWriter).isUnique;
}

} // namespace

bool SemanticChecker::semanticCheck(RwGenerateStatement &statement) {
  bool ok = checkDrivesReport(*this, statement);
  auto *group = llvm::dyn_cast_if_present<DataIdentifierExpression>(statement.getFileName());
  // A name without qualifiers is that of a report, or of a group of a report.
  if (auto *name = llvm::dyn_cast_if_present<ReportIdentifierExpression>(statement.getFileName())) {
    if (findReport(name->getReportName()->getWordData()))
      return semanticCheck(*name) && ok;
    NodeList<Word> words{name->getReportName()};
    group = generate<DataIdentifierExpression>(name, generate<QualifiedWord>(name, &words), nullptr,
                                               nullptr);
    statement.setFileName(group);
  }
  if (!group)
    return ok;
  if (!semanticCheck(*group, /*silentIfUndefined=*/false, /*preferReportItem=*/true))
    return false;
  // One message is enough for a name that several items have.
  if (!isAmbiguous(*group) && !isDetailGroup(*group->getDataDescription()))
    return report(ErrorCode::StatementInvalid, group);
  return ok;
}

bool SemanticChecker::semanticCheck(RwInitiateStatement &statement) {
  bool ok = checkDrivesReport(*this, statement);
  return OperandCheck(*this).all(statement.getInitiateNameListElements()) && ok;
}

bool SemanticChecker::semanticCheck(RwTerminateStatement &statement) {
  bool ok = checkDrivesReport(*this, statement);
  return OperandCheck(*this).all(statement.getTerminateNameListElements()) && ok;
}

/// There is a group to suppress in the procedures of USE BEFORE REPORTING only. The USE statements
/// of other declaratives set isDeclaratives; one whose group is not found does not.
bool SemanticChecker::semanticCheck(RwSuppressStatement &statement) {
  const bool isBeforeReporting = getInDeclaratives() && !getIsDeclaratives();
  return isBeforeReporting || report(ErrorCode::StatementInvalid, &statement);
}

} // namespace tarka
