//===- SCStmtAcceptDisplay.cpp - ACCEPT and DISPLAY -----------------------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/OperandCheck.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Devices
//===----------------------------------------------------------------------===//

namespace {

/// The environment name that \p name stands for, or is itself; null unless it is a device for which
/// \p isKnown holds.
Word *findDevice(Word &name, bool (*isKnown)(llvm::StringRef)) {
  ClauseEnvName *clause = currentScope().findMnemonicName(&name.getWordData());
  Word *device = clause ? clause->getEnvironmentName() : &name;
  return isKnown(device->getWordData()) ? device : nullptr;
}

} // namespace

//===----------------------------------------------------------------------===//
// ACCEPT
//===----------------------------------------------------------------------===//

namespace {

/// Characters come from the device as they are, so that the receiver must hold characters.
bool checkDeviceReceiver(SemanticChecker &checker, IdentifierExpression &receiver) {
  switch (receiver.getDataCategory()) {
  case DataCategory::Unclassified:
  case DataCategory::Pointer:
  case DataCategory::Index:
    return checker.report(ErrorCode::AcceptIdentifierType, &receiver);
  default:
    break;
  }
  const DataDescription *entry = receiver.getDataDescription();
  if (entry->hasSubordinateData())
    return true;
  switch (entry->getUsageType()) {
  case UsageType::Display:
  case UsageType::Display1:
  case UsageType::National:
    return true;
  default:
    return checker.report(ErrorCode::AcceptUsage, &receiver);
  }
}

/// Date and time are unsigned integers, and moved as such.
bool checkDateReceiver(SemanticChecker &checker, IdentifierExpression &receiver) {
  switch (receiver.getDataCategory()) {
  case DataCategory::Alphanumeric:
  case DataCategory::AlphanumericEdited:
  case DataCategory::Numeric:
  case DataCategory::NumericEdited:
  case DataCategory::National:
  case DataCategory::NationalEdited:
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat:
    return true;
  default:
    return checker.report(ErrorCode::AcceptDateIdentifierType, &receiver);
  }
}

bool checkAcceptReceiver(SemanticChecker &checker, IdentifierExpression &receiver,
                         AcceptFromType from) {
  if (llvm::isa<FunctionIdentifierExpression>(receiver))
    return checker.report(ErrorCode::FunctionInReceivingArea, &receiver);
  if (!checker.semanticCheck(receiver))
    return false;
  // LENGTH OF, ADDRESS OF and the counters are kept by the system.
  if (llvm::isa<SpecialRegisterIdentifierExpression>(receiver))
    return checker.report(ErrorCode::AcceptStatementInvalid, &receiver);
  if (isConditionName(receiver))
    return checker.report(ErrorCode::IdentifierRequired, &receiver);
  return from == AcceptFromType::None || from == AcceptFromType::Device
             ? checkDeviceReceiver(checker, receiver)
             : checkDateReceiver(checker, receiver);
}

} // namespace

/// A mnemonic name after FROM is replaced by the device that it stands for.
bool SemanticChecker::semanticCheck(AcceptStatement &statement) {
  AcceptFrom *from = statement.getFromType();
  bool ok = checkAcceptReceiver(*this, *statement.getVariable(),
                                from ? from->getType() : AcceptFromType::None);
  if (from && from->getType() == AcceptFromType::Device) {
    Word *device = findDevice(*from->getFromName(), isInputDevice);
    if (!device)
      return report(ErrorCode::AcceptMnemonicInvalid, from->getFromName());
    from->setFromName(device);
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// DISPLAY
//===----------------------------------------------------------------------===//

namespace {

/// Everything that can be written as characters can be displayed.
bool checkDisplayed(SemanticChecker &checker, Expression &operand) {
  if (!checker.semanticCheck(operand))
    return false;
  if (auto *figurative = llvm::dyn_cast<FigurativeLiteralExpression>(&operand))
    return figurative->getFigurativeType() != FigurativeType::Null ||
           checker.report(ErrorCode::DisplayNull, &operand);
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&operand);
  if (!identifier)
    return true;
  const DataDescription &entry = *identifier->getDataDescription();
  if (isConditionName(entry))
    return checker.report(ErrorCode::IdentifierOrLiteralRequired, &operand);
  switch (entry.getUsageType()) {
  case UsageType::Index:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    // A group under such a USAGE is characters all the same.
    return entry.hasSubordinateData() || checker.report(ErrorCode::DisplayPointerOrIndex, &operand);
  default:
    return true;
  }
}

} // namespace

/// A mnemonic name after UPON is replaced by the device that it stands for.
bool SemanticChecker::semanticCheck(DisplayStatement &statement) {
  bool ok = true;
  for (Expression *operand : statement.getIdenLiterListElements())
    ok &= checkDisplayed(*this, *operand);
  if (Word *name = statement.getUponName()) {
    Word *device = findDevice(*name, isOutputDevice);
    if (!device)
      return report(ErrorCode::DisplayMnemonicInvalid, name);
    statement.setUponName(device);
  }
  return ok;
}

} // namespace tarka
