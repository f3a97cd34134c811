//===- SCStmtEntry.cpp - ENTRY --------------------------------------------===//

#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

void SemanticChecker::addEntryName(LiteralExpression *name) {
  state->entryTexts.insert(llvm::cast<NonNumericLiteralExpression>(name)->getData());
}

bool SemanticChecker::findEntryNames(LiteralExpression *name) {
  return state->entryTexts.contains(llvm::cast<NonNumericLiteralExpression>(name)->getData());
}

bool SemanticChecker::semanticCheck(EntryStatement &statement) {
  bool ok = true;
  SourceUnit *unit = currentUnit();
  if (unit->isNested())
    ok = report(ErrorCode::EntryInNestedProgram, &statement);
  if (unit->getProcDivision()->getReturning())
    ok = report(ErrorCode::EntryWithReturning, &statement);
  if (LiteralExpression *name = statement.getEntryLiteral()) {
    if (!semanticCheck(*name))
      return false;
    if (!llvm::isa<NonNumericLiteralExpression>(name))
      return report(ErrorCode::EntryLiteralNotAlphanumeric, name);
    if (findEntryNames(name))
      return report(ErrorCode::EntryNameNotUnique, name);
    addEntryName(name);
  }
  for (Parameter *parameter : statement.getParameterElements())
    ok &= semanticCheck(parameter);
  return ok;
}

/// An item of a wrong level in a wrong section is reported for each of the two.
bool SemanticChecker::semanticCheck(Parameter *parameter) {
  auto *item = llvm::dyn_cast_or_null<DataIdentifierExpression>(parameter->getExpr());
  if (!item)
    return report(ErrorCode::UsingItemNotLinkageRecord, parameter);
  if (!semanticCheck(*item))
    return false;
  bool ok = true;
  const DataDescription *entry = item->getDataDescription();
  if (entry->getLevelNum() != 1 && entry->getLevelNum() != 77)
    ok = report(ErrorCode::UsingItemNotLinkageRecord, parameter);
  if (entry->getStorageType() != StorageType::Linkage)
    ok = report(ErrorCode::UsingItemNotLinkageRecord, parameter);
  return ok;
}

} // namespace tarka
