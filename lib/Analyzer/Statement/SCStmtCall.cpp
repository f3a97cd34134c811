//===- SCStmtCall.cpp - CALL and CANCEL -----------------------------------===//
//
// What names a program, and what RETURNING names. CallCheck.h has the other parts of
// the check.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/CallCheck.h"

namespace tarka {

namespace {

/// A program is named by letters, characters or digits that can be read as characters.
bool holdsProgramName(const DataIdentifierExpression &identifier) {
  const DataDescription &entry = *identifier.getDataDescription();
  if (isConditionName(entry))
    return false;
  switch (identifier.getDataCategory()) {
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
    return true;
  case DataCategory::Numeric:
    return entry.getUsageType() == UsageType::Display;
  default:
    return false;
  }
}

bool isAlphanumericLiteral(const Expression &operand) {
  return llvm::isa<NonNumericLiteralExpression>(operand) &&
         operand.getDataCategory() == DataCategory::Alphanumeric;
}

/// CALL also takes a pointer to the program.
bool isCallable(const Expression &program) {
  if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&program)) {
    UsageType usage = identifier->getDataDescription()->getUsageType();
    bool isPointer = usage == UsageType::ProcedurePointer || usage == UsageType::FunctionPointer;
    return isPointer || holdsProgramName(*identifier);
  }
  return isAlphanumericLiteral(program);
}

/// Checks what names the program. A word that is not a data item is the name itself.
bool checkProgramName(SemanticChecker &checker, CallStatement &call) {
  Expression *program = call.getProcedureName();
  auto *word = llvm::dyn_cast<DataIdentifierExpression>(program);
  if (word && !word->getSubscriptMod() && !word->getReferenceMod() &&
      word->getQualifiedWord()->getNamesSize() == 1) {
    if (!checker.semanticCheck(*word, /*silentIfUndefined=*/true)) {
      call.setProcedureName(generate<NonNumericLiteralExpression>(
          word, (*word->getQualifiedWord()->getNamesBegin())->getDisplayName()));
      return true;
    }
  } else if (!checker.semanticCheck(*program)) {
    return false;
  }
  return isCallable(*program) || checker.report(ErrorCode::CallIdentifierType, program);
}

} // namespace

namespace {

/// RETURNING names an item that the program can give a value to.
bool checkReturningItem(SemanticChecker &checker, IdentifierExpression &item) {
  if (llvm::isa<FunctionIdentifierExpression>(item))
    return checker.report(ErrorCode::FunctionInReceivingArea, &item);
  if (!checker.semanticCheck(item))
    return false;
  auto *specialRegister = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&item);
  if (specialRegister && specialRegister->getType() == SpecialRegisterType::LengthOf)
    return checker.report(ErrorCode::MoveReceiverInvalid, &item);
  const DataDescription *entry = entryOfDataIdentifier(item);
  if (entry && isConditionName(*entry))
    return checker.report(ErrorCode::MoveReceiverInvalid, &item);
  if (entry && isIndexName(*entry))
    return checker.report(ErrorCode::PointerOrIndexNotAllowed, &item);
  return true;
}

} // namespace

bool SemanticChecker::semanticCheck(CallStatement &statement) {
  bool ok = checkProgramName(*this, statement);
  RefusedArguments refused;
  for (Argument *argument : statement.getArgumentListElements())
    if (!checkArgument(*this, *argument))
      refused.insert(argument);
  ok &= refused.empty();
  if (IdentifierExpression *item = statement.getReturn())
    ok &= checkReturningItem(*this, *item);
  if (auto *name = llvm::dyn_cast<NonNumericLiteralExpression>(statement.getProcedureName())) {
    if (isDliCall(name->getData()))
      ok &= prepareDliCall(*this, statement, name->getData(), refused);
    else if (SourceUnit *program = findProgram(*this, name->getData()))
      ok &= checkPrototype(*this, statement, *program, refused);
  }
  for (ExceptionHandler *handler : statement.getExceptHandlerElements())
    ok &= semanticCheck(*handler);
  return ok;
}

/// A literal or an item that names the program.
static bool checkCancelled(SemanticChecker &checker, Expression &program) {
  if (!checker.semanticCheck(program))
    return false;
  if (auto *item = llvm::dyn_cast<DataIdentifierExpression>(&program))
    return holdsProgramName(*item) || checker.report(ErrorCode::CancelIdentifierType, &program);
  if (llvm::isa<LiteralExpression>(program) && !llvm::isa<FigurativeLiteralExpression>(program))
    return isAlphanumericLiteral(program) ||
           checker.report(ErrorCode::CancelLiteralNotAlphanumeric, &program);
  return checker.report(ErrorCode::CancelOperandInvalid, &program);
}

bool SemanticChecker::semanticCheck(CancelStatement &statement) {
  bool ok = true;
  for (Expression *program : statement.getProgramListElements())
    ok &= checkCancelled(*this, *program);
  return ok;
}

} // namespace tarka
