//===- SCStmtFile.cpp - the statements of files ---------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

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

} // namespace

bool SemanticChecker::semanticCheck(OpenStatement &statement) {
  OperandCheck check(*this);
  for (OpenItem *item : statement.getItemListElements())
    for (OpenFile *file : item->getFileListElements()) {
      check.one(file->getFileName());
      markDeclaratives(statement, describedBy(file->getFileName()), useModeOf(item->getType()));
    }
  return check;
}

bool SemanticChecker::semanticCheck(CloseStatement &statement) {
  OperandCheck check(*this);
  for (CloseFile *file : statement.getCloseFileListElements()) {
    check.one(file->getFileName());
    markDeclaratives(
        statement, describedBy(file->getFileName()),
        {UseFileMode::Input, UseFileMode::Output, UseFileMode::InputOutput, UseFileMode::Extend});
  }
  return check;
}

bool SemanticChecker::semanticCheck(ReadStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getFileName())
                    .one(statement.getIntoIdentifier())
                    .one(statement.getKeyName())
                    .all(statement.getErrorListElements());
  if (!statement.getErrorListSize())
    markDeclaratives(statement, describedBy(statement.getFileName()),
                     {UseFileMode::Input, UseFileMode::InputOutput});
  return result;
}

/// After ADVANCING, a name that is no data item is a mnemonic name.
bool SemanticChecker::semanticCheck(WriteStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getRecordName()).one(statement.getFromIdentifier());
  if (WriteAdvancing *advancing = statement.getAdvancing()) {
    auto *name = llvm::dyn_cast_if_present<DataIdentifierExpression>(advancing->getValue());
    if (!name)
      check.one(advancing->getValue());
    else if (!semanticCheck(*name, true, false)) {
      advancing->setMnemonicName(*name->getQualifiedWord()->getNamesBegin());
      advancing->setType(WriteAdvType::Mnemonic);
    }
  }
  if (WritePositioning *positioning = statement.getPositioning())
    check.one(positioning->getLineExpr());
  if (!statement.getExceptionHandlerListSize())
    markDeclaratives(statement, statement.getRecordName(),
                     {UseFileMode::Output, UseFileMode::InputOutput, UseFileMode::Extend});
  return check.all(statement.getExceptionHandlerListElements());
}

bool SemanticChecker::semanticCheck(RewriteStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getRecordName())
                    .one(statement.getFromIdentifier())
                    .all(statement.getInvalidKeyHandlerElements());
  if (!statement.getInvalidKeyHandlerSize())
    markDeclaratives(statement, statement.getRecordName(), UseFileMode::InputOutput);
  return result;
}

bool SemanticChecker::semanticCheck(DeleteStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getFileName())
                    .all(statement.getInvalidKeyHandlerElements());
  if (!statement.getInvalidKeyHandlerSize())
    markDeclaratives(statement, describedBy(statement.getFileName()), UseFileMode::InputOutput);
  return result;
}

bool SemanticChecker::semanticCheck(StartStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getFileName())
                    .one(statement.getKey() ? statement.getKey()->getDataName() : nullptr)
                    .all(statement.getInvalidKeyHandlerElements());
  if (!statement.getInvalidKeyHandlerSize())
    markDeclaratives(statement, describedBy(statement.getFileName()),
                     {UseFileMode::Input, UseFileMode::InputOutput});
  return result;
}

} // namespace tarka
