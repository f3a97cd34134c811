//===- SCStmtSort.cpp - SORT, MERGE, RELEASE and RETURN -------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Statement.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Statement/ExceptionProcedures.h"
#include "Analyzer/Statement/FileOperands.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "Analyzer/Statement/ProcedureName.h"
#include <optional>

namespace tarka {

//===----------------------------------------------------------------------===//
// RETURN and RELEASE
//===----------------------------------------------------------------------===//

/// The records of a sort file come as from a file that is open for input.
bool SemanticChecker::semanticCheck(ReturnStatement &statement) {
  FileIdentifierExpression &file = *statement.getFileName();
  const bool isFileRight = checkFileName(*this, file, FileDescType::SortMerge);
  bool ok = isFileRight;
  if (IdentifierExpression *into = statement.getIntoIdentifier())
    ok &= checkInto(*this, *into, file, isFileRight, ErrorCode::ReturnIntoSameStorage,
                    ErrorCode::ReturnIntoInvalid);
  markDeclaratives(*this, statement, describedBy(&file), UseFileMode::Input);
  return OperandCheck(*this).all(statement.getEndHandlerElements()) && ok;
}

/// The records of a sort file go as to a file that is open for output.
bool SemanticChecker::semanticCheck(ReleaseStatement &statement) {
  IdentifierExpression &record = *statement.getRecordName();
  const bool isRecordRight = checkRecordName(*this, record, FileDescType::SortMerge,
                                             ErrorCode::RecordOrKeyNotDataIdentifier);
  bool ok = isRecordRight;
  if (IdentifierExpression *from = statement.getFromIdentifier())
    ok &= checkFrom(*this, *from, record, isRecordRight, ErrorCode::ReleaseFromSameStorage);
  markDeclaratives(*this, statement, &record, UseFileMode::Output);
  return ok;
}

//===----------------------------------------------------------------------===//
// Keys
//===----------------------------------------------------------------------===//

namespace {

/// Whether the item, a group around it or a table of variable length in it occurs more than once.
bool isInOrHoldsTable(const DataDescription &item) {
  for (const DataDescription *entry = &item; entry; entry = entry->getParent())
    if (entry->getOccurs())
      return true;
  return item.checkContainsOdo();
}

/// What records can be ordered by.
bool isSortable(const DataDescription &item) {
  switch (item.getDataCategory()) {
  case DataCategory::Dbcs:
  case DataCategory::Pointer:
  case DataCategory::Index:
    return false;
  default:
    return item.getLevelNum() != 88;
  }
}

/// \p file is the sort file, or null when its name is wrong.
bool checkSortKey(SemanticChecker &checker, IdentifierExpression &key,
                  const FileDescription *file) {
  const DataDescription *item = checkKeyName(checker, key);
  if (!item)
    return false;
  if (file && fileOfItem(*item) != file)
    return checker.report(ErrorCode::KeyNotOfFile, &key, *file);
  if (isInOrHoldsTable(*item))
    return checker.report(ErrorCode::SortKeyOccurs, &key);
  const bool isNumber = item->getDataCategory() == DataCategory::Numeric ||
                        item->getDataCategory() == DataCategory::ExternalFloat;
  if (isNumber && item->getUsageType() == UsageType::National)
    return checker.report(ErrorCode::SortKeyNumericNational, &key);
  if (!isSortable(*item))
    return checker.report(ErrorCode::SortKeyCategory, &key);
  return true;
}

} // namespace

//===----------------------------------------------------------------------===//
// Lengths of records
//===----------------------------------------------------------------------===//

namespace {

/// The lengths of the records of a file, in bytes.
struct RecordLengths {
  std::int64_t smallest;
  std::int64_t largest;
  bool isVariable;
};

/// The lengths that the RECORD clause gives, else those of the record descriptions. Nothing when
/// they are not known before the program runs.
std::optional<RecordLengths> recordLengthsOf(const FileDescription &file) {
  if (file.getRecordDescSize() == 0)
    return std::nullopt;
  const DataDescription &first = *file.getRecordDescElements().front();
  RecordLengths lengths{first.getMinAllocSize(), first.getAllocSize(), hasVariableRecords(file)};
  for (const DataDescription *record : file.getRecordDescElements()) {
    lengths.smallest = std::min(lengths.smallest, record->getMinAllocSize());
    lengths.largest = std::max(lengths.largest, record->getAllocSize());
  }
  if (const ClauseRecord *clause = file.getRecord()) {
    if (clause->getMinLength())
      lengths.smallest = clause->getMinLength()->getIntegerValue();
    if (clause->getMaxLength())
      lengths.largest = clause->getMaxLength()->getIntegerValue();
    else if (!clause->getIsVarying())
      lengths.largest = lengths.smallest;
  }
  const ClauseRecordingMode *mode = file.getRecordingMode();
  if (mode && mode->getRecordingType() == RecordingModeType::Fixed)
    lengths.smallest = lengths.largest;
  lengths.isVariable |= lengths.smallest != lengths.largest;
  // RECORD CONTAINS 0 leaves the length to the data set.
  if (lengths.largest <= 0)
    return std::nullopt;
  return lengths;
}

/// The records of \p from go to \p to: none may be longer than the longest there, and where lengths
/// vary none shorter than the shortest. The two messages state what is true of the receiving
/// file: the first that its records vary; the second, whatever its text says, that they do not.
bool checkRecordLengths(SemanticChecker &checker, const FileDescription &from,
                        const FileDescription &to, FileIdentifierExpression &name) {
  std::optional<RecordLengths> sent = recordLengthsOf(from);
  std::optional<RecordLengths> held = recordLengthsOf(to);
  if (!sent || !held)
    return true;
  const bool isTooLarge = sent->largest > held->largest;
  if (held->isVariable && (isTooLarge || sent->smallest < held->smallest))
    return checker.report(ErrorCode::SortRecordSizeOutOfRange, &name);
  if (!held->isVariable && isTooLarge)
    return checker.report(ErrorCode::SortRecordTooLarge, &name);
  return true;
}

} // namespace

//===----------------------------------------------------------------------===//
// SORT and MERGE
//===----------------------------------------------------------------------===//

namespace {

/// Whether a name written where a file-name belongs is that of a data item.
bool isDataName(const FileIdentifierExpression &name) {
  DataDivision *division = currentDivision();
  return division && division->findFirstItemByInternedName(&name.getFileName()->getWordData());
}

/// A file of USING or GIVING; \p sortFile is the file that is sorted, or null when its name is
/// wrong.
bool checkSortedFile(SemanticChecker &checker, FileIdentifierExpression &name,
                     const FileDescription *sortFile, bool isInput) {
  if (isInput && currentScope().findFiles(&name.getFileName()->getWordData()).empty() &&
      isDataName(name))
    return checker.report(ErrorCode::SortUsingNotFileName, &name);
  if (!checkFileName(checker, name, FileDescType::File) || !checkFileHasRecord(checker, name))
    return false;
  if (!sortFile)
    return true;
  const FileDescription &file = *name.getFileDescription();
  return isInput ? checkRecordLengths(checker, file, *sortFile, name)
                 : checkRecordLengths(checker, *sortFile, file, name);
}

/// Where the records come from or go to. An input or output procedure is run like a performed
/// range.
bool checkSortIO(SemanticChecker &checker, SortIO &phrase, const FileDescription *sortFile,
                 bool isInput, Statement &statement) {
  if (phrase.getType() == SortIOType::Procedure)
    return resolveRange(checker, phrase.getProcedures(), phrase.getFromProcedureName(),
                        phrase.getToProcedureName(), statement);
  bool ok = true;
  for (FileIdentifierExpression *name : phrase.getFileNameListElements())
    ok &= checkSortedFile(checker, *name, sortFile, isInput);
  return ok;
}

/// What SORT and MERGE have in common: the file, its keys, their order, and where records come from
/// and go to.
template <typename SortOrMerge>
bool checkSort(SemanticChecker &checker, SortOrMerge &statement, const NodeList<SortKey> &keys) {
  FileIdentifierExpression &name = *statement.getFileName();
  bool ok = checkFileName(checker, name, FileDescType::SortMerge);
  const FileDescription *file = ok ? name.getFileDescription() : nullptr;
  if (file)
    ok &= checkFileHasRecord(checker, name);
  for (SortKey *key : keys)
    for (IdentifierExpression *keyName : key->getKeyNameListElements())
      ok &= checkSortKey(checker, *keyName, file);

  if (Word *alphabet = statement.getSeqAlphaName()) {
    statement.setAlphabetClause(currentScope().findAlphabet(&alphabet->getWordData()));
    if (!statement.getAlphabetClause())
      ok = checker.report(ErrorCode::CollatingAlphabetUndefined, alphabet);
  }
  if (statement.getInput())
    ok &= checkSortIO(checker, *statement.getInput(), file, true, statement);
  if (statement.getOutput())
    ok &= checkSortIO(checker, *statement.getOutput(), file, false, statement);
  return ok;
}

} // namespace

bool SemanticChecker::semanticCheck(SortStatement &statement) {
  return checkSort(*this, statement, statement.getKeyListElements());
}

bool SemanticChecker::semanticCheck(MergeStatement &statement) {
  return checkSort(*this, statement, statement.getKeySeqElements());
}

} // namespace tarka
