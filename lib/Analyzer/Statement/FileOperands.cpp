//===- FileOperands.cpp - the operands that statements of files share -----===//

#include "Analyzer/Statement/FileOperands.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/Statement/MoveRules.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Files and their records
//===----------------------------------------------------------------------===//

// LINAGE-COUNTER has a file as well, but is outside of the record area.
const FileDescription *fileOfItem(const DataDescription &item) {
  return item.getStorageType() == StorageType::File ? item.getFileDescription() : nullptr;
}

bool hasVariableRecords(const FileDescription &file) {
  if (const ClauseRecord *record = file.getRecord();
      record && (record->getIsVarying() || record->getMaxLength()))
    return true;
  const ClauseRecordingMode *mode = file.getRecordingMode();
  return mode && mode->getRecordingType() != RecordingModeType::Fixed;
}

bool checkFileName(SemanticChecker &checker, FileIdentifierExpression &name, FileDescType type) {
  if (!checker.semanticCheck(name))
    return false;
  if (name.getFileDescription()->getType() != type)
    return checker.report(type == FileDescType::File ? ErrorCode::FileNotFd : ErrorCode::FileNotSd,
                          &name);
  return true;
}

/// The record of a report file is made by the checks.
bool checkFileHasRecord(SemanticChecker &checker, FileIdentifierExpression &name) {
  const FileDescription &file = *name.getFileDescription();
  auto hasSize = [](const DataDescription *record) { return record->getAllocSize() > 0; };
  if (!file.getReport() && llvm::none_of(file.getRecordDescElements(), hasSize))
    return checker.report(ErrorCode::FileRecordMissing, &name);
  return true;
}

bool checkRecordName(SemanticChecker &checker, IdentifierExpression &name, FileDescType type,
                     ErrorCode notRecord) {
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&name);
  if (!identifier)
    return checker.report(notRecord, &name);
  if (!checker.semanticCheck(*identifier))
    return false;
  const DataDescription &entry = *identifier->getDataDescription();
  const FileDescription *file = fileOfItem(entry);
  if (!file || file->getType() != type)
    return checker.report(type == FileDescType::File ? ErrorCode::FileNotFd : ErrorCode::FileNotSd,
                          &name);
  // Records are written whole: neither an item of the record nor a part of it will do.
  if (entry.getLevelNum() != 1 || identifier->getReferenceMod())
    return checker.report(notRecord, &name);
  return true;
}

//===----------------------------------------------------------------------===//
// FROM and INTO
//===----------------------------------------------------------------------===//

namespace {

/// Whether an item can be moved from and to at all.
bool isMovable(const DataDescription &item) {
  return item.getLevelNum() != 88 && item.getDataCategory() != DataCategory::Pointer &&
         item.getDataCategory() != DataCategory::Index;
}

/// Data items, and functions that give characters.
bool isFromItem(const IdentifierExpression &from) {
  if (llvm::isa<FunctionIdentifierExpression>(from))
    return from.getDataCategory() == DataCategory::Alphanumeric ||
           from.getDataCategory() == DataCategory::National;
  // ADDRESS OF and LENGTH OF are not items, but have the description of their operand.
  if (auto *specialRegister = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&from);
      specialRegister && (specialRegister->getType() == SpecialRegisterType::AddressOf ||
                          specialRegister->getType() == SpecialRegisterType::LengthOf))
    return false;
  const DataDescription *item = from.getDataDescription();
  return !item || isMovable(*item);
}

/// Whether the operand is in the record area of \p file.
bool isInRecordArea(const SemanticChecker &checker, const IdentifierExpression &operand,
                    const FileDescription *file) {
  const DataDescription *item = operand.getDataDescription();
  const FileDescription *other = item ? fileOfItem(*item) : nullptr;
  return other && checker.getState().sharedAreas.isShared(other, file);
}

/// The MOVE between two operands; nothing is known of one whose entry is in error.
bool checkImplicitMove(SemanticChecker &checker, const Expression &sender,
                       IdentifierExpression &receiver) {
  if (sender.getDataCategory() == DataCategory::Unclassified ||
      receiver.getDataCategory() == DataCategory::Unclassified)
    return true;
  return checkMove(checker, sender, receiver).isLegal();
}

/// The record that INTO moves, as far as its description decides how: the only one, or the longest
/// when all have its length. Records that differ in length move as groups, for which this gives
/// null.
DataDescription *recordToMove(const FileDescription &file) {
  const std::list<DataDescription *> &records = file.getRecordDescElements();
  if (records.empty() || (records.size() > 1 && hasVariableRecords(file)))
    return nullptr;
  // The first of those of the same length.
  auto isShorter = [](const DataDescription *left, const DataDescription *right) {
    return left->getAllocSize() < right->getAllocSize();
  };
  return *llvm::max_element(records, isShorter);
}

} // namespace

bool checkFrom(SemanticChecker &checker, IdentifierExpression &from, IdentifierExpression &record,
               bool isRecordRight, ErrorCode sameStorage) {
  if (!checker.semanticCheck(from))
    return false;
  if (!isFromItem(from))
    return checker.report(ErrorCode::WriteFromInvalid, &from);
  if (!isRecordRight)
    return true;
  if (isInRecordArea(checker, from, fileOfItem(*record.getDataDescription())))
    return checker.report(sameStorage, &from, record);
  return checkImplicitMove(checker, from, record);
}

bool checkInto(SemanticChecker &checker, IdentifierExpression &into, FileIdentifierExpression &file,
               bool isFileRight, ErrorCode sameStorage, ErrorCode notReceiver) {
  if (llvm::isa<FunctionIdentifierExpression>(into))
    return checker.report(ErrorCode::FunctionInReceivingArea, &into);
  if (!checker.semanticCheck(into))
    return false;
  if (!llvm::isa<DataIdentifierExpression>(into) || !isMovable(*into.getDataDescription()))
    return checker.report(notReceiver, &into);
  if (!isFileRight)
    return true;
  if (isInRecordArea(checker, into, file.getFileDescription()))
    return checker.report(sameStorage, &into, file);
  DataDescription *record = recordToMove(*file.getFileDescription());
  if (!record)
    return true;
  auto *sender = generate<DataIdentifierExpression>(&file, nullptr, nullptr, nullptr);
  sender->setDataDescription(record);
  return checkImplicitMove(checker, *sender, into);
}

//===----------------------------------------------------------------------===//
// Keys
//===----------------------------------------------------------------------===//

DataDescription *checkKeyName(SemanticChecker &checker, IdentifierExpression &name) {
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&name);
  if (!identifier) {
    checker.report(ErrorCode::RecordOrKeyNotDataIdentifier, &name);
    return nullptr;
  }
  // A key is an item of every record: the name alone says which.
  if (identifier->getSubscriptMod() || identifier->getReferenceMod()) {
    checker.report(ErrorCode::KeySubscripted, &name);
    return nullptr;
  }
  return checker.semanticCheck(*identifier) ? identifier->getDataDescription() : nullptr;
}

} // namespace tarka
