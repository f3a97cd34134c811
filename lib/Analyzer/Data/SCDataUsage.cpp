//===- SCDataUsage.cpp - USAGE ------------------------------------------===//
//
// How an item is stored: what a group passes to its items, and which usages are
// allowed for which categories and clauses.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "Analyzer/Data/PictureRules.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// Moves the USAGE of a group to the entries directly below it. In the end only elementary items
/// have one.
bool SemanticChecker::checkClauseGroupUsage(DataDescription &entry) {
  bool ok = true;
  // The message names level 88 as well; only 66 is tested.
  if (entry.getLevelNum() == 66)
    ok = report(ErrorCode::UsageLevel66Or88, &entry);
  if (!entry.isGroupItem())
    return ok;
  ClauseUsage *usage = entry.getUsage();
  for (DataDescription *child : entry.getChildrenElements()) {
    if (child->getLevelNum() == 66 && followsEnterprise(EnterpriseRule::GroupUsageWithRenames))
      continue;
    if (!child->getUsage())
      child->setUsage(usage);
    else if (child->getUsageType() != entry.getUsageType())
      ok = report(ErrorCode::UsageDiffersFromGroup, &entry);
  }
  entry.setUsage(nullptr);
  return ok;
}

namespace {

/// Checks the usage against the category and the other clauses of the item.
bool checkUsageOfData(SemanticChecker &checker, DataDescription &entry, UsageType usage) {
  bool ok = true;
  switch (usage) {
  case UsageType::Display:
    switch (entry.getDataCategory()) {
    case DataCategory::Alphabetic:
    case DataCategory::Alphanumeric:
    case DataCategory::Numeric:
    case DataCategory::AlphanumericEdited:
    case DataCategory::NumericEdited:
    case DataCategory::ExternalFloat:
      return true;
    default:
      return checker.report(ErrorCode::UsageDataTypeMismatch, &entry);
    }
  case UsageType::Display1:
    if (entry.getDataCategory() != DataCategory::Dbcs)
      ok = checker.report(ErrorCode::UsageDataTypeMismatch, &entry);
    return ok;
  case UsageType::Index:
    if (entry.getLevelNum() == 88)
      ok = checker.report(ErrorCode::UsageDataTypeMismatch, &entry);
    if (entry.getJustified() || entry.getPicture() || entry.getBlankZero() || entry.getValue())
      ok = checker.report(ErrorCode::UsageDataTypeMismatch, &entry);
    return ok;
  case UsageType::Pointer:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    if (entry.getLevelNum() == 88)
      ok = checker.report(ErrorCode::UsageDataTypeMismatch, &entry);
    if (entry.isGroupItem())
      entry.setUsage(nullptr);
    return ok;
  default:
    return true;
  }
}

} // namespace

bool SemanticChecker::checkClauseUsage(DataDescription &entry) {
  bool ok = true;
  const UsageType usage = entry.getUsageType();
  if (entry.getLevelNum() == 66)
    ok = report(ErrorCode::UsageLevel66Or88, &entry);
  const DataDescription *group = entry.getParent();
  if (group && group->getUsage() && !entry.getIsCompilerMade() && usage != group->getUsageType())
    ok = report(ErrorCode::UsageDiffersFromGroup, &entry);
  // A line of a report, and an item that shows a literal, need no PICTURE.
  if (entry.getType() == DescType::Report && !entry.getPicture())
    return ok;
  ok &= checkUsageOfData(*this, entry, usage);
  if (!entry.getPicture() && !excludesPicture(usage))
    ok = report(ErrorCode::UsageNeedsPicture, &entry);
  return ok;
}

} // namespace tarka
