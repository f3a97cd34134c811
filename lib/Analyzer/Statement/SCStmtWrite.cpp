//===- SCStmtWrite.cpp - WRITE and REWRITE --------------------------------===//
//
// The records that are written, and how far ADVANCING and POSITIONING move the paper.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Statement.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/ExceptionProcedures.h"
#include "Analyzer/Statement/FileOperands.h"
#include "Analyzer/Statement/OperandCheck.h"

namespace tarka {

namespace {

bool isIntegerItem(const IdentifierExpression &identifier) {
  return identifier.isInteger() && identifier.getDataCategory() == DataCategory::Numeric &&
         !llvm::isa<FunctionIdentifierExpression>(identifier) && !isConditionName(identifier);
}

/// A name that is not a data item is a mnemonic-name of SPECIAL-NAMES for a channel of the printer.
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
  // Channels of the printer cannot be used together with the logical pages of LINAGE.
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
    if (!currentScope().isItem(
            &name->getQualifiedWord()->getNamesElements().front()->getWordData()))
      return checkAdvancingMnemonic(checker, advancing, *name, file);
    if (!checker.semanticCheck(*name))
      return false;
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
  // Only sequential files can be printed.
  Node *phrase = advancing ? static_cast<Node *>(advancing) : positioning;
  if (phrase && file && file->getFileControl() && !isSequential(*file->getFileControl()))
    ok = report(ErrorCode::AdvancingWithKsdsOrRrds, phrase);

  markDeclaratives(*this, statement, &record,
                   {UseFileMode::Output, UseFileMode::InputOutput, UseFileMode::Extend});
  return OperandCheck(*this).all(statement.getExceptionHandlerListElements()) && ok;
}

bool SemanticChecker::semanticCheck(RewriteStatement &statement) {
  IdentifierExpression &record = *statement.getRecordName();
  const FileDescription *file = nullptr;
  bool ok = checkWritten(*this, record, statement.getFromIdentifier(), file);
  markDeclaratives(*this, statement, &record, UseFileMode::InputOutput);
  return OperandCheck(*this).all(statement.getInvalidKeyHandlerElements()) && ok;
}

} // namespace tarka
