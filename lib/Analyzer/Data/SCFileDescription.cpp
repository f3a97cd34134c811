//===- SCFileDescription.cpp - file description entries -------------------===//
//
// An FD or SD entry: its SELECT entry, its records, its clauses, and what the checks
// add to the source: the redefinition of the first record by the others, the record
// of a report file, the recording mode, the record lengths of variable-length files,
// and LINAGE-COUNTER.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/NamedReport.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/Twine.h"
#include <algorithm>
#include <limits>

namespace tarka {

namespace {

/// A literal made by the checks.
NumericLiteralExpression *makeLiteral(std::int64_t value) {
  return generate<NumericLiteralExpression>(nullptr, std::to_string(value));
}

/// A level-01 entry made by the checks.
DataDescription *makeRecord(llvm::StringRef name) {
  auto *record = generate<DataDescription>(nullptr);
  record->setLevelNum(1);
  record->setDataName(generate<Word>(nullptr, name, ""));
  return record;
}

/// A PICTURE of one symbol and its repetition factor.
ClausePicture *makePicture(llvm::StringRef symbol, llvm::StringRef count) {
  return generate<ClausePicture>(
      nullptr, generate<Word>(nullptr, (symbol + llvm::Twine("(") + count + ")").str(), ""));
}

} // namespace

//===----------------------------------------------------------------------===//
// Records
//===----------------------------------------------------------------------===//

namespace {

/// The clause REDEFINES \p first, placed in \p record.
ClauseRedefines *makeRedefines(DataDescription &record, DataDescription &first) {
  auto *name = generate<QualifiedWord>(&record);
  name->addNames(first.getDataName());
  auto *object = generate<DataIdentifierExpression>(&record, name, nullptr, nullptr);
  return generate<ClauseRedefines>(&record, object);
}

/// The record of a report file that declares none. Its length is that of the RECORD clause.
DataDescription *makeReportRecord(const FileDescription &file) {
  std::string length = "240";
  if (const ClauseRecord *clause = file.getRecord()) {
    if (clause->getMaxLength())
      length = clause->getMaxLength()->getData();
    else if (clause->getMinLength())
      length = clause->getMinLength()->getData();
  }
  DataDescription *record = makeRecord("TKDUMMY-FILE-VAR");
  record->setPicture(makePicture("X", length));
  record->setUsage(generate<ClauseUsage>(nullptr, UsageType::Display));
  return record;
}

} // namespace

/// All records of a file share one area: each but the first redefines the first.
static bool checkFileRecords(SemanticChecker &checker, FileDescription &file) {
  bool ok = true;
  if (file.getRecordDescSize() != 0) {
    // Once the first record has been checked it has a name, at least FILLER.
    DataDescription *first = *file.getDataRecordDescBegin();
    for (DataDescription *record : file.getRecordDescElements()) {
      if (record != first)
        record->setRedefines(makeRedefines(*record, *first));
      ok &= checker.semanticCheck(*record);
    }
  } else if (file.getReport()) {
    DataDescription *record = makeReportRecord(file);
    record->setFileDescription(&file);
    // What is wrong with its length is reported, but does not count for the result.
    checker.semanticCheck(*record);
    file.setRecordDesc({record});
  }
  return ok;
}

/// Lengths that the checks made grow with each record. Lengths from the source are kept for the
/// first record, whatever its size.
void SemanticChecker::determineRecordingModeV(DataDescription &record, FileDescription &file) {
  const std::int64_t max = record.getAllocSize();
  const std::int64_t min = record.checkContainsOdo() ? record.getMinAllocSize() : max;
  ClauseRecord *clause = file.getRecord();
  if (!clause) {
    clause = generate<ClauseRecord>(nullptr, makeLiteral(min), makeLiteral(max), false, nullptr);
    clause->setForDetermineV(true);
    file.setRecord(clause);
    return;
  }
  if (!clause->getForDetermineV()) {
    clause->setForDetermineV(true);
    return;
  }
  if (!clause->getMaxLength() || max > clause->getMaxLength()->getIntegerValue())
    clause->setMaxLength(makeLiteral(max));
  if (!clause->getMinLength() || min < clause->getMinLength()->getIntegerValue())
    clause->setMinLength(makeLiteral(min));
}

/// The recording mode that Enterprise COBOL gives a sequential file whose source names none: S when
/// the largest record does not fit into a block, V when the lengths of the records vary, else F. A
/// number of records as block size says that records do not span blocks, and 0 leaves the size to
/// the system.
static RecordingModeType recordingModeInEnterprise(const FileDescription &file) {
  std::int64_t largest = 0;
  std::int64_t smallest = std::numeric_limits<std::int64_t>::max();
  for (const DataDescription *entry : file.getRecordDescElements()) {
    largest = std::max(largest, entry->getAllocSize());
    smallest = std::min(smallest, entry->getAllocSize());
  }
  if (const ClauseBlock *block = file.getBlock();
      block && block->getUnit() != BlockUnit::Records && block->getMaxLength())
    if (const std::int64_t size = block->getMaxLength()->getIntegerValue();
        0 < size && size < largest)
      return RecordingModeType::Spanned;
  const ClauseRecord *record = file.getRecord();
  const bool isVariable =
      record ? record->getIsVarying() || record->getMaxLength() : smallest < largest;
  return isVariable ? RecordingModeType::Variable : RecordingModeType::Fixed;
}

static bool isSequential(const FileDescription &file) {
  const ParaFileControl *select = file.getFileControl();
  return select && select->getOrganizationType() == OrganizationType::Sequential;
}

/// The recording mode of a file whose source names none: V when the lengths of the records vary, S
/// when a record does not fit into a block, else F. Without a RECORD clause, or a block size for
/// records of one length, there is none.
static void settleRecordingMode(FileDescription &file) {
  auto setMode = [&](RecordingModeType mode) {
    file.setRecordingMode(generate<ClauseRecordingMode>(nullptr, mode));
  };
  if (followsEnterprise(EnterpriseRule::RecordingMode) && isSequential(file) &&
      file.getRecordDescSize() != 0) {
    setMode(recordingModeInEnterprise(file));
    return;
  }
  const ClauseRecord *record = file.getRecord();
  if (!record)
    return;
  if (record->getIsVarying() || record->getMaxLength()) {
    setMode(RecordingModeType::Variable);
    return;
  }
  if (file.getRecordDescSize() == 0 || !file.getBlock() || !file.getBlock()->getMaxLength())
    return;
  std::int64_t largest = 0;
  for (const DataDescription *entry : file.getRecordDescElements())
    largest = std::max(largest, entry->getAllocSize());
  const bool fits = file.getBlock()->getMaxLength()->getIntegerValue() >= largest;
  setMode(fits ? RecordingModeType::Fixed : RecordingModeType::Spanned);
}

//===----------------------------------------------------------------------===//
// Clauses without rules
//===----------------------------------------------------------------------===//

/// The records of a GLOBAL file are GLOBAL. They are marked after their own checks, which do not
/// allow a record to redefine a GLOBAL one.
bool SemanticChecker::checkClauseGlobalFile(FileDescription &file) {
  for (DataDescription *record : file.getRecordDescElements())
    if (!record->getGlobal())
      record->setGlobal(file.getGlobal());
  return true;
}

// EXTERNAL has no rule of its own.
bool SemanticChecker::checkClauseExternalFile(FileDescription &) {
  return true;
}

bool SemanticChecker::checkClauseRecordingMode(FileDescription &) {
  return true;
}

bool SemanticChecker::checkClauseDataRecord(FileDescription &) {
  return true;
}

//===----------------------------------------------------------------------===//
// BLOCK CONTAINS, RECORD
//===----------------------------------------------------------------------===//

/// The length of a block or of a record, which is an unsigned integer.
static bool checkFileLength(SemanticChecker &checker, NumericLiteralExpression *length,
                            ErrorCode notUnsigned) {
  if (!length)
    return true;
  if (!checker.semanticCheck(*length))
    return false;
  if (!length->isInteger() || length->isSigned())
    return checker.report(notUnsigned, length);
  return true;
}

bool SemanticChecker::checkClauseBlock(FileDescription &file) {
  NumericLiteralExpression *min = file.getBlock()->getMinLength();
  bool ok = checkFileLength(*this, min, ErrorCode::BlockContainsNotNonzeroUnsigned);
  // The minimum is checked twice and reported twice; the maximum has no rule.
  ok &= checkFileLength(*this, min, ErrorCode::BlockContainsNotNonzeroUnsigned);
  return ok;
}

/// RECORD IS VARYING DEPENDING ON.
static bool checkRecordDependingOn(SemanticChecker &checker, ClauseRecord &clause) {
  IdentifierExpression *size = clause.getDependingOn();
  if (!checker.semanticCheck(*size))
    return false;
  if (!llvm::isa<DataIdentifierExpression>(size))
    return checker.report(ErrorCode::RecordDependingNotDataItem, size);
  bool ok = true;
  const DataDescription &item = *size->getDataDescription();
  if (item.getChildrenSize() != 0)
    ok = checker.report(ErrorCode::RecordDependingNotUnsigned, size);
  if (!size->isInteger())
    ok = checker.report(ErrorCode::RecordDependingNotUnsigned, size);
  // Where the checks keep the lengths themselves, the sign does not matter.
  if (item.getPicture() && item.getPicture()->isSigned() && !clause.getForDetermineV())
    ok = checker.report(ErrorCode::RecordDependingNotUnsigned, size);
  return ok;
}

bool SemanticChecker::checkClauseRecord(FileDescription &file) {
  ClauseRecord &clause = *file.getRecord();
  NumericLiteralExpression *min = clause.getMinLength();
  bool ok = checkFileLength(*this, min, ErrorCode::RecordContainsNotUnsigned);
  // The minimum is checked twice and reported twice; the maximum has no rule.
  ok &= checkFileLength(*this, min, ErrorCode::RecordContainsNotUnsigned);
  if (clause.getDependingOn())
    ok &= checkRecordDependingOn(*this, clause);
  return ok;
}

//===----------------------------------------------------------------------===//
// LABEL RECORDS, VALUE OF, CODE-SET, REPORT
//===----------------------------------------------------------------------===//

bool SemanticChecker::checkClauseLabel(FileDescription &file) {
  bool ok = true;
  for (Expression *name : file.getLabel()->getDataNameListElements()) {
    ok &= semanticCheck(*name);
    if (!llvm::isa<DataIdentifierExpression>(name))
      ok = report(ErrorCode::LabelNotDataItem, name);
  }
  return ok;
}

static bool checkValueOfField(SemanticChecker &checker, Expression &value) {
  if (!checker.semanticCheck(value))
    return false;
  if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&value)) {
    const DataDescription &item = *identifier->getDataDescription();
    if (item.getStorageType() != StorageType::WorkingStorage ||
        item.getUsageType() == UsageType::Index)
      return checker.report(ErrorCode::ValueOfItemInvalid, &value);
    return true;
  }
  if (!llvm::isa<LiteralExpression>(value))
    return checker.report(ErrorCode::ValueOfNotDataOrLiteral, &value);
  bool ok = true;
  const DataCategory category = value.getDataCategory();
  if (category != DataCategory::Numeric && category != DataCategory::Alphanumeric)
    ok = checker.report(ErrorCode::ValueOfLiteralKind, &value);
  // A floating-point literal is reported twice.
  if (category == DataCategory::ExternalFloat)
    ok = checker.report(ErrorCode::ValueOfLiteralKind, &value);
  return ok;
}

bool SemanticChecker::checkClauseValueOf(FileDescription &file) {
  bool ok = true;
  for (const ValueOfElem *element : file.getValueOf()->getFileValueOfElemListElements())
    if (Expression *value = element->getFieldIdLiteral())
      ok &= checkValueOfField(*this, *value);
  return ok;
}

bool SemanticChecker::checkClauseCodeSet(FileDescription &file) {
  ParaSpecialNames *names = currentSpecialNames();
  if (!names || !names->findClauseAlphabetByWord(file.getCodeSet()->getAlphabetName()))
    return reportName(*this, ErrorCode::AlphabetNameRequired, &file,
                      file.getCodeSet()->getAlphabetName());
  return true;
}

/// Each report of the file has a description entry of its own, which refers to the file: of two
/// files that share a report, to the first.
bool SemanticChecker::checkClauseReport(FileDescription &file) {
  bool ok = true;
  for (ReportIdentifierExpression *name : file.getReport()->getReportNameListElements()) {
    ok &= semanticCheck(*name);
    ReportDescription *description = name->getReportDescription();
    if (description && !description->getFileDescription())
      description->setFileDescription(&file);
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// LINAGE
//===----------------------------------------------------------------------===//

bool SemanticChecker::checkUnsigendInteger(Expression *expression) {
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(expression);
  // An unresolved name has been reported.
  if (identifier && !identifier->getDataDescription())
    return false;
  bool ok = true;
  if (!expression->isInteger())
    ok = report(ErrorCode::LinageNotUnsigned, expression);
  if (identifier) {
    DataDescription *item = identifier->getDataDescription();
    if (!item->getPicture() || item->getPicture()->isSigned())
      ok = report(ErrorCode::LinageNotUnsigned, item);
    return ok;
  }
  auto *literal = llvm::dyn_cast<NumericLiteralExpression>(expression);
  if (!literal)
    return report(ErrorCode::LinageNotUnsigned, expression);
  if (!literal->isInteger())
    ok = report(ErrorCode::LinageNotInteger, expression);
  if (literal->isSigned())
    ok = report(ErrorCode::LinageNotUnsigned, expression);
  return ok;
}

/// Makes the LINAGE-COUNTER of a file, with the description of the number of lines.
static void createLinageCounter(FileDescription &file) {
  DataDescription *counter = makeRecord("LINAGE-COUNTER");
  counter->setGlobal(generate<ClauseGlobal>(nullptr));
  const Expression *lines = file.getLinage()->getNumOfLines();
  if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(lines)) {
    if (const DataDescription *item = identifier->getDataDescription()) {
      counter->setUsage(item->getUsage());
      counter->setPicture(item->getPicture());
    }
  } else if (auto *literal = llvm::dyn_cast<NumericLiteralExpression>(lines)) {
    counter->setPicture(makePicture("9", std::to_string(literal->getDigitsNum())));
    counter->setUsage(generate<ClauseUsage>(nullptr, UsageType::Binary));
  }
  counter->setFileDescription(&file);
  file.setLineageCounter(counter);

  SourceUnit &unit = *currentUnit();
  if (!unit.getDataDivision())
    unit.setDataDivision(generate<DataDivision>(nullptr));
  unit.getDataDivision()->addWorkSection(counter);
}

bool SemanticChecker::checkClauseLinage(FileDescription &file) {
  const ClauseLinage &clause = *file.getLinage();
  auto check = [this](Expression *count) {
    const bool isValid = semanticCheck(*count);
    return checkUnsigendInteger(count) && isValid;
  };
  bool ok = true;
  if (Expression *lines = clause.getNumOfLines()) {
    ok &= check(lines);
    createLinageCounter(file);
  }
  for (Expression *count :
       {clause.getWithFootingAt(), clause.getLineAtTop(), clause.getLineAtBottom()})
    if (count)
      ok &= check(count);
  return ok;
}

//===----------------------------------------------------------------------===//
// The entry
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(FileDescription &file) {
  InputOutputSection *inputOutput = currentUnit()->getInputOutputSection();
  // Without an INPUT-OUTPUT SECTION no file can be selected, and the entry is not checked.
  if (!inputOutput)
    return report(ErrorCode::FileNameNotSelected, file.getFileName());

  bool ok = true;
  if (ParaFileControl *selected = inputOutput->findFileControlByName(*file.getFileName()))
    file.setFileControl(selected);
  else
    ok = report(ErrorCode::FileNameNotSelected, file.getFileName());

  ok &= checkFileRecords(*this, file);
  if (file.getGlobal())
    ok &= checkClauseGlobalFile(file);
  if (file.getBlock())
    ok &= checkClauseBlock(file);
  if (file.getRecord())
    ok &= checkClauseRecord(file);
  if (file.getLabel())
    ok &= checkClauseLabel(file);
  if (file.getValueOf())
    ok &= checkClauseValueOf(file);
  if (file.getDataRecord())
    ok &= checkClauseDataRecord(file);
  if (file.getLinage())
    ok &= checkClauseLinage(file);
  if (file.getRecordingMode())
    ok &= checkClauseRecordingMode(file);
  else
    settleRecordingMode(file);
  if (file.getCodeSet())
    ok &= checkClauseCodeSet(file);
  if (file.getReport())
    ok &= checkClauseReport(file);
  return ok;
}

} // namespace tarka
