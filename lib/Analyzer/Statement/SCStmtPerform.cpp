//===- SCStmtPerform.cpp - PERFORM ----------------------------------------===//
//
// The procedures or the statements that PERFORM runs, and its phrases TIMES, UNTIL and
// VARYING.
//
//===----------------------------------------------------------------------===//

#include "AST/Statement.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/Statement/ProcedureName.h"
#include "llvm/Support/ErrorHandling.h"

namespace tarka {

namespace {

bool checkTimes(SemanticChecker &checker, Expression &times) {
  if (!checker.semanticCheck(times))
    return false;
  const auto *literal = llvm::dyn_cast<NumericLiteralExpression>(&times);
  if (!holdsInteger(times) || (literal && literal->getIntegerValue() < 1))
    return checker.report(ErrorCode::PerformTimesNotPositive, &times);
  return true;
}

bool isGroup(const Expression &operand) {
  const DataDescription *entry = entryOfDataIdentifier(operand);
  return entry && entry->isGroupItem();
}

/// Whether PERFORM VARYING can count with the operand.
bool isCountable(const Expression &operand) {
  if (isConditionName(operand))
    return false;
  switch (operand.getDataCategory()) {
  case DataCategory::Numeric:
  case DataCategory::Index:
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat:
    return true;
  default:
    return false;
  }
}

/// One VARYING or AFTER phrase.
bool checkVarying(SemanticChecker &checker, PerformVarying &phrase) {
  bool ok = true;
  Expression &varying = *phrase.getVaryingIdentifier();
  if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&varying)) {
    if (!checker.semanticCheck(*identifier))
      return false;
    if (isGroup(varying))
      ok = checker.report(ErrorCode::PerformIdentifierNotElementary, &varying);
  } else {
    ok = checker.report(ErrorCode::PerformIdentifierInvalid, &varying);
  }
  if (!isCountable(varying))
    ok = checker.report(ErrorCode::IdentifierNotNumericFloatOrIndex, &varying);

  for (Expression *operand : {phrase.getFromIdentifier(), phrase.getByIdentifier()}) {
    ok &= checker.semanticCheck(*operand);
    if (isGroup(*operand))
      ok = checker.report(ErrorCode::PerformIdentifierNotElementary, operand);
    if (!isCountable(*operand))
      ok = checker.report(ErrorCode::IdentifierNotNumericFloatOrIndex, operand);
  }
  return checker.semanticCheck(*phrase.getUntilCondition()) && ok;
}

} // namespace

bool SemanticChecker::semanticCheck(PerformStatement &statement) {
  bool ok = true;
  if (statement.getInlineStatementsSize() != 0) {
    for (Statement *inner : statement.getInlineStatementsElements())
      ok &= semanticCheck(*inner);
  } else if (statement.getProcedureName()) {
    PerformProcedure *procedures = statement.getProcedureName();
    if (!resolveRange(*this, *procedures, procedures->getProcedureName1(),
                      procedures->getProcedureName2(), statement))
      return false;
  } else {
    // An empty inline PERFORM contains a CONTINUE, so that no later stage meets an empty list.
    statement.addInlineStatement(generate<ContinueStatement>(nullptr));
  }

  switch (statement.getType()) {
  case PerformStmtType::Simple:
    return ok;
  case PerformStmtType::Times:
    return checkTimes(*this, *statement.getTimesInteger()) && ok;
  case PerformStmtType::Until:
    // UNTIL EXIT has no condition.
    return (!statement.getUntilCondition() || semanticCheck(*statement.getUntilCondition())) && ok;
  case PerformStmtType::Varying:
    for (PerformVarying *phrase : statement.getPhraseListElements())
      ok &= checkVarying(*this, *phrase);
    return ok;
  }
  llvm_unreachable("invalid perform statement");
}

} // namespace tarka
