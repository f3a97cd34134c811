//===- SCReportDescription.cpp - checks of report descriptions ------------===//

#include "AST/Condition.h"
#include "AST/DataTree.h"
#include "AST/ReportDescription.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// Binds the names in one SOURCE clause.
bool SemanticChecker::checkClauseSource(ClauseSource &clause) {
  bool result = true;
  for (SourceClauseExpr *source : clause.getSourceExprListElements())
    if (source->getExpr())
      result &= semanticCheck(*source->getExpr());
  return result;
}

/// Binds the names in the clauses of one entry of a report group.
bool SemanticChecker::checkReportEntry(ReportDataDescription &entry) {
  bool result = true;
  if (ClauseSource *source = entry.getSourceClause()) {
    result &= checkClauseSource(*source);
    addUsedSrc(&entry);
  }
  if (ClauseSum *sum = entry.getSumClause())
    for (SumClauseExpr *operand : sum->getSumExprListElements())
      for (Expression *name : operand->getNameListElements())
        result &= semanticCheck(*name);
  if (ClauseType *type = entry.getTypeClause())
    for (IdentifierExpression *control : type->getControlIdListElements())
      result &= semanticCheck(*control);
  for (ClausePresentWhen *clause : entry.getClausePresentWhenListElements()) {
    if (clause->getPresentCond())
      result &= semanticCheck(*clause->getPresentCond());
    if (clause->getSource())
      result &= checkClauseSource(*clause->getSource());
  }
  for (ClausePresentAfter *clause : entry.getClausePresentAfterListElements())
    if (clause->getSource())
      result &= checkClauseSource(*clause->getSource());
  return result;
}

/// Every data item that the description names is noted as used by this report.
bool SemanticChecker::semanticCheck(ReportDescription &description) {
  bool result = true;
  setCurrentRD(&description);
  if (ClauseControl *control = description.getControlClause())
    for (IdentifierExpression *name : control->getControlIdListElements())
      result &= semanticCheck(*name);
  for (ReportDataDescription *group : description.getRecordListElements()) {
    result &= semanticCheck(static_cast<DataDescription &>(*group));
    forEachEntry(group, [&](DataDescription *entry) {
      if (auto *reportEntry = llvm::dyn_cast<ReportDataDescription>(entry))
        result &= checkReportEntry(*reportEntry);
    });
  }
  setCurrentRD(nullptr);
  return result;
}

} // namespace tarka
