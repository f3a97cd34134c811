//===- SCStmtFile.cpp - the statements of files ---------------------------===//
//
// OPEN, CLOSE, READ, WRITE, REWRITE, DELETE and START: which phrases fit the
// organization and the access of a file, the records, the keys, and how far the
// paper moves. Any of them may run a USE procedure, whatever phrases it has:
// these handle one condition each, and there are errors beside it.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Statement.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/FileOperands.h"
#include "Analyzer/Statement/OperandCheck.h"

namespace tarka {

namespace {

/// The SELECT entry that a bound file-name leads to; null when the file has none.
const ParaFileControl *controlOf(const FileIdentifierExpression &name) {
  return name.getFileDescription()->getFileControl();
}

bool isSequential(const ParaFileControl &control) {
  return control.getOrganizationType() == OrganizationType::Sequential ||
         control.getOrganizationType() == OrganizationType::LineSequential;
}

AccessType accessOf(const ParaFileControl &control) {
  return control.getAccess() ? control.getAccess()->getType() : AccessType::Sequential;
}

} // namespace

//===----------------------------------------------------------------------===//
// OPEN and CLOSE
//===----------------------------------------------------------------------===//

namespace {

UseFileMode useModeOf(OpenType mode) {
  switch (mode) {
  case OpenType::Input:
    return UseFileMode::Input;
  case OpenType::Output:
    return UseFileMode::Output;
  case OpenType::InputOutput:
    return UseFileMode::InputOutput;
  case OpenType::Extend:
    return UseFileMode::Extend;
  }
  return UseFileMode::None;
}

/// REVERSED and NO REWIND say where on its reel a file begins.
bool checkOpenOption(SemanticChecker &checker, OpenFile &file, OpenType mode,
                     const ParaFileControl &control) {
  bool ok = true;
  switch (file.getOption()) {
  case OpenOption::None:
    break;
  case OpenOption::Reversed:
    if (mode != OpenType::Input)
      ok = checker.report(ErrorCode::OpenReversedMode, &file);
    if (!isSequential(control))
      ok = checker.report(ErrorCode::OpenReversedNotSequential, &file);
    break;
  case OpenOption::NoRewind:
    if (mode != OpenType::Input && mode != OpenType::Output)
      ok = checker.report(ErrorCode::OpenNoRewindMode, &file);
    if (!isSequential(control))
      ok = checker.report(ErrorCode::OpenNoRewindNotSequential, &file);
    break;
  }
  return ok;
}

bool checkOpenFile(SemanticChecker &checker, OpenFile &file, OpenType mode) {
  FileIdentifierExpression &name = *file.getFileName();
  if (!checkFileName(checker, name, FileDescType::File))
    return false;
  bool ok = checkFileHasRecord(checker, name);
  const ParaFileControl *control = controlOf(name);
  if (!control)
    return ok;
  ok &= checkOpenOption(checker, file, mode, *control);
  // The message speaks of sequential files. Indexed and relative ones can be extended as well, as
  // long as they are accessed sequentially: only then is there an end to write behind.
  if (mode == OpenType::Extend && !isSequential(*control) &&
      accessOf(*control) != AccessType::Sequential)
    ok = checker.report(ErrorCode::OpenExtendNotSequential, &name);
  return ok;
}

} // namespace

bool SemanticChecker::semanticCheck(OpenStatement &statement) {
  bool ok = true;
  for (OpenItem *item : statement.getItemListElements())
    for (OpenFile *file : item->getFileListElements()) {
      ok &= checkOpenFile(*this, *file, item->getType());
      markDeclaratives(statement, describedBy(file->getFileName()), useModeOf(item->getType()));
    }
  return ok;
}

bool SemanticChecker::semanticCheck(CloseStatement &statement) {
  bool ok = true;
  for (CloseFile *file : statement.getCloseFileListElements()) {
    ok &= checkFileName(*this, *file->getFileName(), FileDescType::File);
    markDeclaratives(
        statement, describedBy(file->getFileName()),
        {UseFileMode::Input, UseFileMode::Output, UseFileMode::InputOutput, UseFileMode::Extend});
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// Keys of READ and START
//===----------------------------------------------------------------------===//

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
    return checker.report(ErrorCode::KeyNotOfFile, &name);
  return true;
}

/// Whether a READ goes to the next record: always where the access is sequential, and where it is
/// dynamic when the end of the file is what it looks out for.
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
  markDeclaratives(statement, describedBy(&file), {UseFileMode::Input, UseFileMode::InputOutput});
  return OperandCheck(*this).all(statement.getErrorListElements()) && ok;
}

bool SemanticChecker::semanticCheck(StartStatement &statement) {
  FileIdentifierExpression &file = *statement.getFileName();
  bool ok = checkFileName(*this, file, FileDescType::File);
  if (StartKey *key = statement.getKey())
    ok &= checkKey(*this, *key->getDataName(), file, isStartKey);
  markDeclaratives(statement, describedBy(&file), {UseFileMode::Input, UseFileMode::InputOutput});
  return OperandCheck(*this).all(statement.getInvalidKeyHandlerElements()) && ok;
}

bool SemanticChecker::semanticCheck(DeleteStatement &statement) {
  bool ok = checkFileName(*this, *statement.getFileName(), FileDescType::File);
  markDeclaratives(statement, describedBy(statement.getFileName()), UseFileMode::InputOutput);
  return OperandCheck(*this).all(statement.getInvalidKeyHandlerElements()) && ok;
}

//===----------------------------------------------------------------------===//
// How far WRITE moves the paper
//===----------------------------------------------------------------------===//

namespace {

bool isIntegerItem(const IdentifierExpression &identifier) {
  return identifier.isInteger() && identifier.getDataCategory() == DataCategory::Numeric &&
         !llvm::isa<FunctionIdentifierExpression>(identifier) && !isConditionName(identifier);
}

/// A name that stands for no data item names a channel of the printer, by way of SPECIAL-NAMES.
bool checkAdvancingMnemonic(SemanticChecker &checker, WriteAdvancing &advancing,
                            DataIdentifierExpression &name, const FileDescription *file) {
  if (name.getQualifiedWord()->getNamesSize() > 1 || name.getSubscriptMod())
    return checker.report(ErrorCode::WriteAdvancingInvalid, &name);
  Word *word = *name.getQualifiedWord()->getNamesBegin();
  const ClauseEnvName *clause = currentScope().findMnemonicName(&word->getWordData());
  if (!clause)
    return checker.report(ErrorCode::WriteAdvancingInvalid, &name);
  advancing.setMnemonicName(word);
  advancing.setType(WriteAdvType::Mnemonic);
  // The channels of a printer know nothing of the pages that LINAGE counts.
  if (clause->getEnvNameType() != EnvNameType::Carriage || (file && file->getLinage()))
    return checker.report(ErrorCode::MnemonicNameInvalid, &name);
  return true;
}

bool checkLineCount(SemanticChecker &checker, LiteralExpression &lines) {
  if (!checker.semanticCheck(lines))
    return false;
  const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&lines);
  if (!lines.isInteger() || (number && number->isSigned()))
    return checker.report(ErrorCode::WriteAdvancingNotInteger, &lines);
  return true;
}

/// \p file is that of the record, or null.
bool checkAdvancing(SemanticChecker &checker, WriteAdvancing &advancing,
                    const FileDescription *file) {
  Expression *lines = advancing.getValue();
  if (!lines)
    return true;
  if (auto *literal = llvm::dyn_cast<LiteralExpression>(lines))
    return checkLineCount(checker, *literal);
  auto *identifier = llvm::cast<IdentifierExpression>(lines);
  if (auto *name = llvm::dyn_cast<DataIdentifierExpression>(identifier)) {
    const int errorsBefore = checker.getErrorHandler()->getErrorCount();
    if (!checker.semanticCheck(*name, true, false))
      return checker.getErrorHandler()->getErrorCount() == errorsBefore &&
             checkAdvancingMnemonic(checker, advancing, *name, file);
  } else if (!checker.semanticCheck(*identifier)) {
    return false;
  }
  if (!isIntegerItem(*identifier))
    return checker.report(ErrorCode::WriteAdvancingInvalid, identifier);
  return true;
}

/// POSITIONING counts lines with a number, or with an item of one character: a control character
/// of the printer.
bool checkPositioning(SemanticChecker &checker, WritePositioning &positioning) {
  Expression *lines = positioning.getLineExpr();
  if (auto *literal = llvm::dyn_cast<LiteralExpression>(lines))
    return checkLineCount(checker, *literal);
  auto *identifier = llvm::cast<IdentifierExpression>(lines);
  if (!checker.semanticCheck(*identifier))
    return false;
  const DataDescription *item = identifier->getDataDescription();
  if (!isIntegerItem(*identifier) && !(item && item->getAllocSize() == 1))
    return checker.report(ErrorCode::WriteAdvancingInvalid, identifier);
  return true;
}

} // namespace

//===----------------------------------------------------------------------===//
// WRITE and REWRITE
//===----------------------------------------------------------------------===//

namespace {

/// The record that is written and what FROM moves to it first; \p from may be null. \p file becomes
/// that of the record, null when the record's name is wrong.
bool checkWritten(SemanticChecker &checker, IdentifierExpression &record,
                  IdentifierExpression *from, const FileDescription *&file) {
  const bool isRecordRight =
      checkRecordName(checker, record, FileDescType::File, ErrorCode::WriteRecordNotDataIdentifier);
  file = isRecordRight ? fileOfItem(*record.getDataDescription()) : nullptr;
  bool ok = isRecordRight;
  if (from)
    ok &= checkFrom(checker, *from, record, isRecordRight, ErrorCode::WriteRecordDiffersFromFrom);
  return ok;
}

} // namespace

bool SemanticChecker::semanticCheck(WriteStatement &statement) {
  IdentifierExpression &record = *statement.getRecordName();
  const FileDescription *file = nullptr;
  bool ok = checkWritten(*this, record, statement.getFromIdentifier(), file);
  WriteAdvancing *advancing = statement.getAdvancing();
  WritePositioning *positioning = statement.getPositioning();
  if (advancing)
    ok &= checkAdvancing(*this, *advancing, file);
  if (positioning)
    ok &= checkPositioning(*this, *positioning);
  // Only what is written one record after the other can be printed.
  Node *phrase = advancing ? static_cast<Node *>(advancing) : positioning;
  if (phrase && file && file->getFileControl() && !isSequential(*file->getFileControl()))
    ok = report(ErrorCode::AdvancingWithKsdsOrRrds, phrase);

  markDeclaratives(statement, &record,
                   {UseFileMode::Output, UseFileMode::InputOutput, UseFileMode::Extend});
  return OperandCheck(*this).all(statement.getExceptionHandlerListElements()) && ok;
}

bool SemanticChecker::semanticCheck(RewriteStatement &statement) {
  IdentifierExpression &record = *statement.getRecordName();
  const FileDescription *file = nullptr;
  bool ok = checkWritten(*this, record, statement.getFromIdentifier(), file);
  markDeclaratives(statement, &record, UseFileMode::InputOutput);
  return OperandCheck(*this).all(statement.getInvalidKeyHandlerElements()) && ok;
}

} // namespace tarka
