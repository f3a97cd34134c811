//===- SCDataValue.cpp - which entries can have VALUE ---------------------===//
//
// The VALUE clause of items, groups and condition names. Which initial value fits
// which item is in SCDataInitialValue.cpp.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "Analyzer/Data/SymbolicCharacters.h"
#include "Analyzer/Data/ValueLiterals.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"
#include <iterator>

namespace tarka {

namespace {

/// The first part of a VALUE clause that only condition names can have: the end of a range, a
/// second value, or the value of FALSE. Null when there is none, and for items of a report, which
/// can have a value for each of their lines.
Node *surplusValue(const DataDescription &entry, const ClauseValue &clause) {
  if (entry.getType() == DescType::Report || clause.getPhraseValSize() == 0)
    return nullptr;
  if (LiteralExpression *end = clause.getPhraseValElements().front()->getLiteral2())
    return end;
  if (clause.isListValue())
    return *std::next(clause.getPhraseValElements().begin());
  return clause.getFalseValue();
}

//===----------------------------------------------------------------------===//
// Groups
//===----------------------------------------------------------------------===//

/// The VALUE of a group is one literal of characters.
bool checkGroupLiteral(SemanticChecker &checker, DataDescription &group,
                       const ClauseValue &clause) {
  bool ok = true;
  if (clause.isListValue() || surplusValue(group, clause))
    ok = checker.report(ErrorCode::GroupValueInvalid, &group);
  const LiteralExpression *literal =
      clause.getPhraseValSize() ? clause.getPhraseValElements().front()->getLiteral1() : nullptr;
  if (literal && (isNull(*literal) || llvm::isa<NumericLiteralExpression>(literal)))
    ok = checker.report(ErrorCode::GroupValueInvalid, &group);
  for (DataDescription *child : group.getChildrenElements())
    ok &= checker.checkGroupValue(child);
  return ok;
}

//===----------------------------------------------------------------------===//
// Condition names
//===----------------------------------------------------------------------===//

/// Whether the conditional variable can have the value, by categories.
bool isValueByCategory(const LiteralExpression &value, const DataDescription &entry) {
  const DataCategory category = value.getDataCategory();
  const DataCategory variable =
      isEditedForValue(entry) ? DataCategory::NumericEdited : entry.getDataCategory();
  if (category == variable)
    return true;
  if (llvm::isa<FigurativeLiteralExpression>(value) && variable == DataCategory::Alphanumeric)
    return isFigurative(value, FigurativeType::Zero);
  switch (category) {
  case DataCategory::Alphanumeric:
    return variable == DataCategory::Alphabetic || variable == DataCategory::AlphanumericEdited ||
           variable == DataCategory::NumericEdited;
  case DataCategory::Numeric:
    return variable == DataCategory::NumericEdited;
  default:
    return false;
  }
}

/// Whether a figurative constant other than ALL can be compared with the conditional variable.
bool isFigurativeOf(FigurativeType constant, const DataDescription &variable,
                    DataCategory category) {
  switch (category) {
  case DataCategory::Numeric:
    // Digits compare with characters as characters.
    return constant == FigurativeType::Zero || variable.getUsageType() == UsageType::Display ||
           variable.getUsageType() == UsageType::National;
  case DataCategory::InternalFloat:
  case DataCategory::ExternalFloat:
    return constant == FigurativeType::Zero;
  case DataCategory::Dbcs:
    return constant == FigurativeType::Space;
  case DataCategory::Alphabetic:
    return constant != FigurativeType::Zero;
  case DataCategory::Alphanumeric:
  case DataCategory::AlphanumericEdited:
  case DataCategory::NumericEdited:
  case DataCategory::National:
  case DataCategory::NationalEdited:
    return true;
  default:
    return false;
  }
}

/// Whether the conditional variable can be compared with the value, which makes it a value of a
/// condition-name.
bool isComparableValue(LiteralExpression &value, const DataDescription &variable) {
  const DataCategory category =
      isEditedForValue(variable) ? DataCategory::NumericEdited : variable.getDataCategory();
  if (auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&value);
      constant && constant->getFigurativeType() != FigurativeType::AllLiteral &&
      constant->getFigurativeType() != FigurativeType::Null) {
    if (category == DataCategory::National || category == DataCategory::NationalEdited)
      constant->setIsNational(true);
    return isFigurativeOf(constant->getFigurativeType(), variable, category);
  }
  const bool isNumber = llvm::isa<NumericLiteralExpression>(value);
  if (category == DataCategory::InternalFloat || category == DataCategory::ExternalFloat)
    return isNumber;
  return isValueByCategory(value, variable) || (category == DataCategory::NationalEdited &&
                                                value.getDataCategory() == DataCategory::National);
}

bool isValueOf(LiteralExpression &value, const DataDescription &variable) {
  return followsEnterprise(EnterpriseRule::ConditionNameValue) ? isComparableValue(value, variable)
                                                               : isValueByCategory(value, variable);
}

/// Whether \p through can end a range of values that starts with \p value.
bool isEndOfRange(LiteralExpression &through, const LiteralExpression &value,
                  const DataDescription *variable) {
  if (followsEnterprise(EnterpriseRule::ConditionNameValue))
    return !variable || isComparableValue(through, *variable);
  return through.getDataCategory() == value.getDataCategory();
}

/// \p ok is the result so far. Each value overwrites it, so a correct value after a wrong one makes
/// the result true; the wrong one has been reported.
bool checkConditionValues(SemanticChecker &checker, DataDescription &conditionName,
                          ClauseValue &clause, bool ok) {
  const DataDescription *variable = conditionName.getOwner();
  for (const PhraseValue *phrase : clause.getPhraseValElements()) {
    LiteralExpression *value = phrase->getLiteral1();
    if (!value)
      return checker.report(ErrorCode::Level88NeedsValue, &conditionName);
    ok = checker.semanticCheck(*value);
    if (!ok)
      return false;
    if (variable && !isValueOf(*value, *variable))
      ok = checker.report(ErrorCode::ConditionNameValueType, &conditionName, *value);
    if (LiteralExpression *through = phrase->getLiteral2()) {
      ok = checker.semanticCheck(*through);
      if (!ok)
        return false;
      if (!isEndOfRange(*through, *value, variable))
        ok = checker.report(ErrorCode::ValueThroughTypesDiffer, &conditionName, *through);
    }
  }
  if (LiteralExpression *whenFalse = clause.getFalseValue()) {
    ok &= checker.semanticCheck(*whenFalse);
    if (variable && !isValueOf(*whenFalse, *variable))
      ok = checker.report(ErrorCode::ConditionNameValueType, &conditionName, *whenFalse);
  }
  return ok;
}

} // namespace

bool SemanticChecker::checkGroupValue(DataDescription *subordinate) {
  bool ok = true;
  for (DataDescription *child : subordinate->getChildrenElements())
    ok &= checkGroupValue(child);
  const bool allowsSynchronized = followsEnterprise(EnterpriseRule::GroupValueWithSynchronized);
  if (subordinate->getJustified() || (subordinate->getSynchronized() && !allowsSynchronized))
    ok = report(ErrorCode::GroupValueJustifiedOrSynchronized, subordinate);
  if (subordinate->getUsageType() != UsageType::Display)
    ok = report(ErrorCode::GroupValueUsageNotDisplay, subordinate);
  if (subordinate->getValue())
    ok = report(ErrorCode::GroupValueSubordinateValue, subordinate);
  return ok;
}

//===----------------------------------------------------------------------===//
// The clause
//===----------------------------------------------------------------------===//

bool SemanticChecker::checkClauseValue(ClauseValue *clause) {
  bool ok = convertSymbolicValues(*this, *clause);
  for (PhraseValue *phrase : clause->getPhraseValElements()) {
    if (phrase->getLiteral1())
      ok &= semanticCheck(*phrase->getLiteral1());
    if (phrase->getLiteral2())
      ok &= semanticCheck(*phrase->getLiteral2());
  }
  return ok;
}

bool SemanticChecker::checkClauseValue(DataDescription &entry) {
  ClauseValue &clause = *entry.getValue();
  if (!convertSymbolicValues(*this, clause))
    return false;

  // Storage that is owned elsewhere is not initialised, but the clause is still checked.
  const bool isConditionName = entry.getLevelNum() == 88;
  const StorageType storage = entry.getStorageType();
  if (storage == StorageType::Linkage || storage == StorageType::File) {
    if (isConditionName)
      return true;
    entry.setValue(nullptr);
  }

  // EXTERNAL storage is not initialised either, which is an error; for redefined storage the clause
  // is dropped without a report.
  bool ok = true;
  if (entry.getExternal())
    ok = report(ErrorCode::ValueWithExternalOrRedefines, &entry);
  if (entry.getRedefines()) {
    entry.setValue(nullptr);
    return true;
  }
  for (const DataDescription *group = entry.getParent(); group; group = group->getParent()) {
    if (group->getExternal()) {
      ok = report(ErrorCode::ValueWithExternalOrRedefines, &entry);
      break;
    }
    if (group->getRedefines()) {
      entry.setValue(nullptr);
      return true;
    }
  }

  if (isConditionName)
    return checkConditionValues(*this, entry, clause, ok);
  if (entry.isGroupItem())
    ok &= checkGroupLiteral(*this, entry, clause);
  else if (Node *surplus = surplusValue(entry, clause))
    ok = report(ErrorCode::ValueDoesNotFitPicture, surplus);
  // What is wrong with the literal is reported, but does not count for the result.
  if (clause.getPhraseValSize() != 0)
    checkLiteralValue(&entry, clause.getPhraseValElements().front()->getLiteral1());
  return ok;
}

} // namespace tarka
