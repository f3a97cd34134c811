//===- SCDataAttributes.cpp - BLANK WHEN ZERO, EXTERNAL, GLOBAL, JUSTIFIED ===//
//
// BLANK WHEN ZERO, EXTERNAL, GLOBAL and JUSTIFIED.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

bool SemanticChecker::checkClauseBlank(DataDescription &entry) {
  bool ok = true;
  if (entry.isGroupItem())
    ok = report(ErrorCode::BlankZeroNotElementary, &entry);
  const UsageType usage = entry.getUsageType();
  if (usage != UsageType::Display && usage != UsageType::National)
    ok = report(ErrorCode::BlankZeroUsage, &entry);
  const DataCategory category = entry.getDataCategory();
  if (category != DataCategory::Numeric && category != DataCategory::NumericEdited)
    ok = report(ErrorCode::BlankZeroNotNumeric, &entry);
  const ClausePicture *picture = entry.getPicture();
  if (!picture)
    ok = report(ErrorCode::BlankZeroPictureMissing, &entry);
  else if (llvm::StringRef(picture->getExtendedPicture()).find_first_of("S*") !=
           llvm::StringRef::npos)
    ok = report(ErrorCode::BlankZeroPictureString, &entry);
  return ok;
}

bool SemanticChecker::checkClauseExternal(DataDescription &entry) {
  bool ok = true;
  if (entry.getLevelNum() != 1)
    ok = report(ErrorCode::ExternalNotLevel01, &entry);
  if (entry.getStorageType() != StorageType::WorkingStorage)
    ok = report(ErrorCode::ExternalNotWorkingStorage, &entry);
  return ok;
}

/// A GLOBAL name must be unique: each of several GLOBAL entries of one name reports once for every
/// one of them, itself included. The items directly below a GLOBAL entry are GLOBAL as well.
bool SemanticChecker::checkClauseGlobal(DataDescription &entry) {
  bool ok = true;
  if (entry.getLevelNum() != 1)
    ok = report(ErrorCode::GlobalNotLevel01, &entry);
  if (DataDivision *division = currentDivision(); division && entry.getDataName()) {
    auto *namesakes = division->findItemByName(entry.getDataName()->getWordData());
    const bool allowsItems = followsEnterprise(EnterpriseRule::GlobalRecordName);
    auto excludes = [&](const DataDescription &namesake) {
      if (!allowsItems)
        return namesake.getGlobal() != nullptr;
      return namesake.getGlobal() && &namesake != &entry && !namesake.getParent();
    };
    if (namesakes && namesakes->size() > 1)
      for (const DataDescription *namesake : *namesakes)
        if (excludes(*namesake))
          ok = report(ErrorCode::GlobalNameNotUnique, &entry);
  }
  for (DataDescription *child : entry.getChildrenElements())
    child->setGlobal(entry.getGlobal());
  return ok;
}

bool SemanticChecker::checkClauseJustified(DataDescription &entry) {
  bool ok = true;
  if (entry.isGroupItem())
    ok = report(ErrorCode::JustifiedNotElementary, &entry);
  switch (entry.getDataCategory()) {
  case DataCategory::Numeric:
  case DataCategory::AlphanumericEdited:
  case DataCategory::NumericEdited:
  case DataCategory::NationalEdited:
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat:
  case DataCategory::Pointer:
  case DataCategory::Index:
    ok = report(ErrorCode::JustifiedPictureOrUsage, &entry);
    break;
  default:
    break;
  }
  if (entry.getLevelNum() == 66 || entry.getLevelNum() == 88)
    ok = report(ErrorCode::JustifiedLevel66Or88, &entry);
  return ok;
}

} // namespace tarka
