//===- SCDataDescription.cpp - data description entries -----------------===//
//
// The order of the checks of one entry and everything below it, and what results
// for the whole record. Each clause has its own file, SCData*.cpp.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "AST/Usage.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/PartCheck.h"
#include "Analyzer/SemanticChecker.h"

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

/// Marks the tables around a SYNCHRONIZED item: their occurrences must keep its alignment.
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

/// A record with OCCURS DEPENDING ON gives its file variable-length records.
void settleVariableRecords(SemanticChecker &checker, DataDescription &entry) {
  if (!isRecord(entry) || entry.getLevelNum() != 1 || entry.getStorageType() != StorageType::File)
    return;
  FileDescription *file = entry.getFileDescription();
  if (!file || !entry.checkContainsOdo())
    return;
  ClauseRecordingMode *mode = file->getRecordingMode();
  if (!mode)
    file->setRecordingMode(generate<ClauseRecordingMode>(nullptr, RecordingModeType::Variable));
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
  return usage == UsageType::Display || isPackedDecimal(usage);
}

//===----------------------------------------------------------------------===//
// One entry
//===----------------------------------------------------------------------===//

/// Checks the entries below \p entry, or that it needs none. Of all this only a wrong USAGE of the
/// group counts for the result.
bool checkSubordinates(SemanticChecker &checker, DataDescription &entry) {
  if (!entry.isGroupItem()) {
    if (!entry.getPicture() && !entry.getUsage() && !entry.getRenames() &&
        entry.getLevelNum() != 88 && entry.getType() != DescType::Report)
      checker.report(ErrorCode::GroupWithoutChildren, &entry);
    return true;
  }
  const bool ok = !entry.getUsage() || checker.checkClauseGroupUsage(entry);
  // Checking a child may put slack bytes in front of it.
  for (DataDescription *child : entry.getChildrenElements()) {
    if (child->getSynchronized())
      markTablesAround(&entry);
    checker.semanticCheck(*child);
  }
  return ok;
}

} // namespace

bool SemanticChecker::semanticCheck(DataDescription &entry) {
  const PartCheck part(*this, CheckedPart::Entry, entry);
  // What these two find is reported, but does not count for the result.
  checkLevelNumber(entry);
  check88LevelDataDescription(entry);
  if (!entry.getDataName())
    entry.setDataName(generate<Word>(&entry, "FILLER", ""));

  bool ok = true;
  if (entry.getRedefines())
    ok &= checkClauseRedifines(entry);
  if (entry.getRenames())
    ok &= checkClauseRenames(entry);
  ok &= checkSubordinates(*this, entry);
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
  return part.done(ok);
}

} // namespace tarka
