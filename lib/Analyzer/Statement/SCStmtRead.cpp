//===- SCStmtRead.cpp - READ, START and DELETE ----------------------------===//
//
// The statements that find a record: by its key, or as the next one.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Statement.h"
#include "Analyzer/Statement/ExceptionProcedures.h"
#include "Analyzer/Statement/FileOperands.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

namespace {

/// The keys of an indexed file: the record key, then the alternate ones. Null stands for a key
/// whose name has already been refused.
llvm::SmallVector<const DataDescription *, 4> recordKeysOf(const ParaFileControl &control) {
  llvm::SmallVector<const DataDescription *, 4> keys;
  if (control.getRecordKey())
    keys.push_back(control.getRecordKey()->getDataName()->getDataDescription());
  for (const ClauseAlternate *alternate : control.getAlternateListElements())
    keys.push_back(alternate->getDataName()->getDataDescription());
  return keys;
}

/// Whether \p item begins where \p key does in the records of the file, and ends no later.
bool isLeadingPartOf(const DataDescription &item, const DataDescription &key) {
  return fileOfItem(item) && fileOfItem(item) == fileOfItem(key) &&
         item.getOffset() == key.getOffset() && item.getAllocSize() <= key.getAllocSize();
}

/// READ finds records of an indexed file by a key as a whole.
bool isReadKey(const DataDescription &item, const ParaFileControl &control) {
  return control.getOrganizationType() == OrganizationType::Indexed &&
         llvm::any_of(recordKeysOf(control),
                      [&](const DataDescription *key) { return !key || key == &item; });
}

/// START also by the first characters of a key; of a relative file by its relative key.
bool isStartKey(const DataDescription &item, const ParaFileControl &control) {
  switch (control.getOrganizationType()) {
  case OrganizationType::Indexed:
    return llvm::any_of(recordKeysOf(control), [&](const DataDescription *key) {
      return !key || key == &item || isLeadingPartOf(item, *key);
    });
  case OrganizationType::Relative: {
    const ClauseRelativeKey *clause = control.getRelativeKey();
    const DataDescription *key = clause ? clause->getDataName()->getDataDescription() : nullptr;
    return clause && (!key || key == &item);
  }
  default:
    return false;
  }
}

bool checkKey(SemanticChecker &checker, IdentifierExpression &name,
              const FileIdentifierExpression &file,
              bool (*isKey)(const DataDescription &, const ParaFileControl &)) {
  const DataDescription *item = checkKeyName(checker, name);
  if (!item)
    return false;
  const FileDescription *description = file.getFileDescription();
  const ParaFileControl *control = description ? description->getFileControl() : nullptr;
  if (control && !isKey(*item, *control))
    return checker.report(ErrorCode::KeyNotOfFile, &name, file);
  return true;
}

/// Whether a READ goes to the next record: always with sequential access, and with dynamic access
/// when it has AT END and no KEY.
bool readsNextRecord(const ReadStatement &statement, const ParaFileControl &control) {
  if (accessOf(control) != AccessType::Dynamic)
    return accessOf(control) == AccessType::Sequential;
  return !statement.getKeyName() &&
         llvm::any_of(statement.getErrorListElements(), [](const ExceptionHandler *phrase) {
           return phrase->getType() == ExceptionHandlerType::AtEnd;
         });
}

} // namespace

bool SemanticChecker::semanticCheck(ReadStatement &statement) {
  FileIdentifierExpression &file = *statement.getFileName();
  const bool isFileRight = checkFileName(*this, file, FileDescType::File);
  bool ok = isFileRight;
  if (isFileRight && controlOf(file) && readsNextRecord(statement, *controlOf(file)))
    statement.setIsNextRecord(true);
  if (IdentifierExpression *into = statement.getIntoIdentifier())
    ok &= checkInto(*this, *into, file, isFileRight, ErrorCode::ReadIntoSameStorage,
                    ErrorCode::MoveReceiverInvalid);
  if (IdentifierExpression *key = statement.getKeyName())
    ok &= checkKey(*this, *key, file, isReadKey);
  markDeclaratives(*this, statement, describedBy(&file),
                   {UseFileMode::Input, UseFileMode::InputOutput});
  return OperandCheck(*this).all(statement.getErrorListElements()) && ok;
}

bool SemanticChecker::semanticCheck(StartStatement &statement) {
  FileIdentifierExpression &file = *statement.getFileName();
  bool ok = checkFileName(*this, file, FileDescType::File);
  if (StartKey *key = statement.getKey())
    ok &= checkKey(*this, *key->getDataName(), file, isStartKey);
  markDeclaratives(*this, statement, describedBy(&file),
                   {UseFileMode::Input, UseFileMode::InputOutput});
  return OperandCheck(*this).all(statement.getInvalidKeyHandlerElements()) && ok;
}

bool SemanticChecker::semanticCheck(DeleteStatement &statement) {
  bool ok = checkFileName(*this, *statement.getFileName(), FileDescType::File);
  markDeclaratives(*this, statement, describedBy(statement.getFileName()),
                   UseFileMode::InputOutput);
  return OperandCheck(*this).all(statement.getInvalidKeyHandlerElements()) && ok;
}

} // namespace tarka
