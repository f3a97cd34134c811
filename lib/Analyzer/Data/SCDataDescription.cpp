//===- SCDataDescription.cpp - data description entries -------------------===//
//
// One entry and everything below it: level numbers, condition names, the
// clauses that are said in a line (BLANK WHEN ZERO, EXTERNAL, GLOBAL,
// JUSTIFIED), USAGE, and what follows for the record as a whole. The other
// clauses have files of their own, SCData*.cpp.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

const CompileOption &options() {
  return *CompileOption::getCompileOptionInstance();
}

bool isRecord(const DataDescription &entry) {
  return entry.getParent() == nullptr;
}

//===----------------------------------------------------------------------===//
// The record as a whole
//===----------------------------------------------------------------------===//

/// Notes in the tables around a SYNCHRONIZED item that their occurrences must keep its alignment.
void markTablesAround(DataDescription *group) {
  for (; group; group = group->getParent())
    if (group->getOccurs())
      group->setOccursSync(true);
}

/// Records of working-storage are chained for their initialisation: those with an initial value in
/// one chain, all others in another.
void chainRecord(DataDescription &entry) {
  DataDivision *division = currentDivision();
  if (!division || !isRecord(entry) || entry.getStorageType() != StorageType::WorkingStorage ||
      entry.getExternal() || entry.getLevelNum() == 88 || entry.getRedefines())
    return;
  if (entry.haveValue()) {
    if (division->getFirstDescWithValue())
      division->setLastDescWithValue(&entry);
    else
      division->setFirstDescWithValue(&entry);
  } else {
    if (division->getFirstDesc())
      division->setLastDesc(&entry);
    else
      division->setFirstDesc(&entry);
  }
}

/// A record with OCCURS DEPENDING ON makes its file one of variable-length records.
void settleVariableRecords(SemanticChecker &checker, DataDescription &entry) {
  if (!isRecord(entry) || entry.getLevelNum() != 1 || entry.getStorageType() != StorageType::File)
    return;
  FileDescription *file = entry.getFileDescription();
  if (!file || !entry.checkContainsOdo())
    return;
  ClauseRecordingMode *mode = file->getRecordingMode();
  if (!mode)
    file->setRecordingMode(new ClauseRecordingMode(nullptr, RecordingModeType::Variable));
  else if (mode->getRecordingType() == RecordingModeType::NotGiven)
    mode->setRecordingType(RecordingModeType::Variable);
  checker.determineRecordingModeV(entry, *file);
}

/// In dual mode an elementary numeric record in decimal digits is kept in binary as well.
bool isDualVariable(const DataDescription &entry) {
  if (!options().isOptionDual() || entry.getLevelNum() != 1 || entry.isGroupItem() ||
      entry.getDataCategory() != DataCategory::Numeric)
    return false;
  const UsageType usage = entry.getUsageType();
  return usage == UsageType::Display || usage == UsageType::PackedDecimal ||
         usage == UsageType::Comp3;
}

} // namespace

//===----------------------------------------------------------------------===//
// One entry
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(DataDescription &entry) {
  // What these two find is reported, but the entry does not fail for it: on purpose.
  checkLevelNumber(entry);
  check88LevelDataDescription(entry);
  if (!entry.getDataName())
    entry.setDataName(new Word(&entry, "FILLER", ""));

  bool ok = true;
  if (entry.getRedefines())
    ok &= checkClauseRedifines(entry);
  if (entry.getRenames())
    ok &= checkClauseRenames(entry);
  ok &= checkSubordinates(entry);
  if (entry.getBlankZero())
    ok &= checkClauseBlank(entry);
  if (entry.getExternal())
    ok &= checkClauseExternal(entry);
  if (entry.getGlobal())
    ok &= checkClauseGlobal(entry);
  if (entry.getJustified())
    ok &= checkClauseJustified(entry);
  if (entry.getOccurs())
    ok &= checkClauseOccurs(entry);
  if (entry.getPicture())
    ok &= checkClausePicture(entry);
  if (entry.getSign())
    ok &= checkClauseSign(entry);
  if (entry.getSynchronized())
    ok &= checkClauseSynchronized(entry);
  if (entry.getUsage())
    ok &= checkClauseUsage(entry);
  if (entry.getValue())
    ok &= checkClauseValue(entry);
  else if (options().isOptionInit())
    ok &= checkInitSpace(entry);

  chainRecord(entry);
  settleVariableRecords(*this, entry);
  if (entry.getOccursSync())
    ok &= addOccursSlackBytes(entry);
  if (entry.getDateFormat())
    ok &= checkClauseDateFormat(entry);
  // The offset is noted once the slack bytes in front of the item are there.
  if (entry.getOffsetSize() < 0)
    entry.setOffsetSize(entry.getOffset());
  if (isDualVariable(entry))
    entry.setIsDualVar(true);
  return ok;
}

/// What stands below an entry, or that nothing does. Neither makes the entry itself fail; only its
/// USAGE does.
bool SemanticChecker::checkSubordinates(DataDescription &entry) {
  if (!entry.isGroupItem()) {
    if (!entry.getPicture() && !entry.getUsage() && !entry.getRenames() &&
        entry.getLevelNum() != 88 && entry.getType() != DescType::Report)
      report(ErrorCode::GroupWithoutChildren, &entry);
    return true;
  }
  const bool ok = !entry.getUsage() || checkClauseGroupUsage(entry);
  // Checking a child may put slack bytes in front of it.
  for (DataDescription *child : entry.getChildrenElements()) {
    if (child->getSynchronized())
      markTablesAround(&entry);
    semanticCheck(*child);
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// Level numbers
//===----------------------------------------------------------------------===//

namespace {

bool isLevelNumber(unsigned level) {
  return (level >= 1 && level <= 49) || level == 66 || level == 77 || level == 88;
}

/// The clauses that neither a level 66 nor a level 88 can have.
bool hasClauseOfData(const DataDescription &entry) {
  return entry.getRedefines() || entry.getBlankZero() || entry.getExternal() || entry.getGlobal() ||
         entry.getJustified() || entry.getOccurs() || entry.getPicture() || entry.getSign() ||
         entry.getSynchronized() || entry.getUsage();
}

} // namespace

bool SemanticChecker::checkLevelNumber(DataDescription &entry) {
  bool ok = true;
  const unsigned level = entry.getLevelNum();
  if (!isLevelNumber(level))
    ok = report(ErrorCode::LevelNumberInvalid, &entry);
  if (level == 66 && (hasClauseOfData(entry) || entry.getValue()))
    ok = report(ErrorCode::Level66InvalidClause, &entry);
  if (level == 66 && entry.isGroupItem())
    ok = report(ErrorCode::LevelHierarchyIncorrect, &entry);
  // Index names are of level 01 and stand in the group of their table.
  if (entry.getParent() && (level == 1 || level == 77 || level == 88) &&
      entry.getUsageType() != UsageType::Index)
    ok = report(ErrorCode::TopLevelHasParent, &entry);

  if (!entry.isGroupItem())
    return ok;
  // That a later child may have a lower level than the first is on purpose.
  const auto &children = entry.getChildrenElements();
  const unsigned first = children.front()->getLevelNum();
  auto isDeeper = [&](const DataDescription *child) {
    return child->getLevelNum() != 66 && child->getLevelNum() > first;
  };
  if (llvm::any_of(llvm::drop_begin(children), isDeeper))
    ok = report(ErrorCode::LevelHierarchyIncorrect, &entry);
  return ok;
}

/// Condition names leave the children of their conditional variable for a list of their own. If one
/// of them is wrong, they stay among the children as well: on purpose.
bool SemanticChecker::check88LevelDataDescription(DataDescription &entry) {
  auto isConditionName = [](const DataDescription *child) { return child->getLevelNum() == 88; };
  if (llvm::none_of(entry.getChildrenElements(), isConditionName))
    return true;

  bool ok = true;
  std::list<DataDescription *> staying;
  for (DataDescription *child : entry.getChildrenElements()) {
    if (!isConditionName(child)) {
      staying.push_back(child);
    } else if (hasClauseOfData(*child) || child->getRenames() || !child->getValue()) {
      ok = report(ErrorCode::Level88InvalidClause, child);
    } else {
      entry.addCondNameChildren(child);
      child->setCondNameParent(&entry);
      child->removeParent();
      semanticCheck(*child);
    }
  }
  if (!ok)
    return false;
  std::list<DataDescription *> *children = nullptr;
  if (!staying.empty()) {
    children = makeList<DataDescription *>();
    children->swap(staying);
  }
  entry.setChildrenList(children);
  return true;
}

//===----------------------------------------------------------------------===//
// BLANK WHEN ZERO, EXTERNAL, GLOBAL, JUSTIFIED
//===----------------------------------------------------------------------===//

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

/// A GLOBAL name must be unique: each of several GLOBAL namesakes reports once for every one of
/// them, itself included. The items directly below a GLOBAL entry are GLOBAL as well.
bool SemanticChecker::checkClauseGlobal(DataDescription &entry) {
  bool ok = true;
  if (entry.getLevelNum() != 1)
    ok = report(ErrorCode::GlobalNotLevel01, &entry);
  if (DataDivision *division = currentDivision(); division && entry.getDataName()) {
    auto *namesakes = division->findItemByName(entry.getDataName()->getWordData());
    if (namesakes && namesakes->size() > 1)
      for (const DataDescription *namesake : *namesakes)
        if (namesake->getGlobal())
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

//===----------------------------------------------------------------------===//
// USAGE
//===----------------------------------------------------------------------===//

/// The USAGE of a group goes to what stands directly below it and then leaves the group: in the end
/// only elementary items have one.
bool SemanticChecker::checkClauseGroupUsage(DataDescription &entry) {
  bool ok = true;
  // The message speaks of level 88 too, but that only 66 is asked for is on purpose.
  if (entry.getLevelNum() == 66)
    ok = report(ErrorCode::UsageLevel66Or88, &entry);
  if (!entry.isGroupItem())
    return ok;
  ClauseUsage *usage = entry.getUsage();
  for (DataDescription *child : entry.getChildrenElements()) {
    if (!child->getUsage())
      child->setUsage(usage);
    else if (child->getUsageType() != entry.getUsageType())
      ok = report(ErrorCode::UsageDiffersFromGroup, &entry);
  }
  entry.setUsage(nullptr);
  return ok;
}

/// The size of these follows from the usage alone.
static bool needsNoPicture(UsageType usage) {
  switch (usage) {
  case UsageType::Comp1:
  case UsageType::Comp2:
  case UsageType::Index:
  case UsageType::Pointer:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    return true;
  default:
    return false;
  }
}

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
  ok &= checkUsageOfData(entry, usage);
  if (!entry.getPicture() && !needsNoPicture(usage))
    ok = report(ErrorCode::UsageNeedsPicture, &entry);
  return ok;
}

/// The usage against the category and the other clauses of the item.
bool SemanticChecker::checkUsageOfData(DataDescription &entry, UsageType usage) {
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
      return report(ErrorCode::UsageDataTypeMismatch, &entry);
    }
  case UsageType::Display1:
    if (entry.getDataCategory() != DataCategory::Dbcs)
      ok = report(ErrorCode::UsageDataTypeMismatch, &entry);
    return ok;
  case UsageType::Index:
    if (entry.getLevelNum() == 88)
      ok = report(ErrorCode::UsageDataTypeMismatch, &entry);
    if (entry.getJustified() || entry.getPicture() || entry.getBlankZero() || entry.getValue())
      ok = report(ErrorCode::UsageDataTypeMismatch, &entry);
    return ok;
  case UsageType::Pointer:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    if (entry.getLevelNum() == 88)
      ok = report(ErrorCode::UsageDataTypeMismatch, &entry);
    if (entry.isGroupItem())
      entry.setUsage(nullptr);
    return ok;
  default:
    return true;
  }
}

} // namespace tarka
