//===- SCStmtSet.cpp - SET ------------------------------------------------===//
//
// SET gives indexes, pointers, switches and condition-names their values: all
// that MOVE cannot. What may be set to what is a table.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "llvm/ADT/SmallVector.h"
#include <optional>
#include <utility>

namespace tarka {

namespace {

//===----------------------------------------------------------------------===//
// Kinds of operands
//===----------------------------------------------------------------------===//

/// The kinds of operands that SET ... TO distinguishes.
enum Operand : unsigned {
  IndexName,
  IndexItem,
  Integer,
  DataPointer,    ///< also ADDRESS OF, and the value NULL
  ProgramPointer, ///< to a procedure or a function, also the value ENTRY
  Other,
};

Operand kindOf(const DataDescription &entry) {
  if (entry.hasSubordinateData())
    return Other;
  switch (entry.getUsageType()) {
  case UsageType::Index:
    return isIndexName(entry) ? IndexName : IndexItem;
  case UsageType::Pointer:
    return DataPointer;
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    return ProgramPointer;
  default:
    return Other;
  }
}

Operand kindOf(const Expression &operand) {
  if (isConditionName(operand))
    return Other;
  if (operand.isInteger() && operand.getDataCategory() == DataCategory::Numeric)
    return Integer;
  if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&operand))
    return identifier->getReferenceMod() ? Other : kindOf(*identifier->getDataDescription());
  return operand.getDataCategory() == DataCategory::Pointer ? DataPointer : Other;
}

SpecialRegisterIdentifierExpression *asAddressOf(Expression &operand) {
  auto *specialRegister = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&operand);
  bool isAddress = specialRegister && specialRegister->getType() == SpecialRegisterType::AddressOf;
  return isAddress ? specialRegister : nullptr;
}

//===----------------------------------------------------------------------===//
// What may be set to what
//===----------------------------------------------------------------------===//

using Verdict = std::optional<ErrorCode>;

constexpr Verdict Right = std::nullopt;
constexpr Verdict NoIndex = ErrorCode::SetIndexSenderNotInteger;
constexpr Verdict NoPointer = ErrorCode::SetSenderNotPointer;
constexpr Verdict Sender = ErrorCode::SetSenderInvalid;
constexpr Verdict Receiver = ErrorCode::SetPointerReceiverInvalid;

/// By receiver, then by sender. Of the operands of SET only an index-name is converted between
/// occurrence number and offset: an index data item takes over an offset as it is, and an integer
/// item takes an occurrence number; neither accepts the other. A pointer to a program takes
/// over what a pointer holds, but not the other way round.
constexpr Verdict verdicts[][Other + 1] = {
    // clang-format off
    //                  IndexName  IndexItem  Integer    DataPointer ProgramPointer Other
    /* IndexName */     {Right,     Right,     Right,     Receiver,   NoIndex,       NoIndex},
    /* IndexItem */     {Right,     Right,     Sender,    Receiver,   NoIndex,       NoIndex},
    /* Integer */       {Right,     Sender,    Sender,    Receiver,   NoIndex,       NoIndex},
    /* DataPointer */   {NoPointer, NoPointer, NoPointer, Right,      NoPointer,     NoPointer},
    /* ProgramPointer*/ {Sender,    Sender,    Sender,    Right,      Right,         Sender},
    // clang-format on
};

//===----------------------------------------------------------------------===//
// One item of SET
//===----------------------------------------------------------------------===//

/// Checks one list of receivers with what they are set to.
class SetItemCheck {
public:
  SetItemCheck(SemanticChecker &checkerOfAll, SetItem &itemOfSet)
      : checker(checkerOfAll), item(itemOfSet), value(*itemOfSet.getToValue()) {}

  bool check() {
    switch (item.getType()) {
    case SetItemType::Switch:
      return checkSwitches();
    case SetItemType::Condition:
      return checkConditions();
    case SetItemType::UpBy:
    case SetItemType::DownBy:
      return checkAdjustment();
    case SetItemType::To:
      return checkAssignment();
    }
    return true;
  }

private:
  bool checkSwitches();
  bool checkConditions();
  bool checkAdjustment();
  bool checkAmount(Expression &amount);
  bool checkAssignment();
  std::optional<Operand> checkSender();
  bool checkEntry(Expression &operand);
  std::optional<Operand> checkReceiver(Expression &receiver);
  bool checkPair(Expression &receiver, Operand kind, Operand sender);
  bool checkAddress(SpecialRegisterIdentifierExpression &receiver);

  SemanticChecker &checker;
  SetItem &item;
  SetToValue &value;
  bool isSenderReported = false;
};

/// mnemonic-name... TO {ON | OFF}: each name is that of a switch in SPECIAL-NAMES.
bool SetItemCheck::checkSwitches() {
  bool ok = true;
  // A SET in a section that was copied into the declaratives has its switches already.
  const bool isFirst = item.getMnemonicNameListSize() == 0;
  for (Expression *operand : item.getSetListElements()) {
    auto *name = llvm::dyn_cast<DataIdentifierExpression>(operand);
    if (!name || name->getQualifiedWord()->getNamesSize() != 1 || name->getSubscriptMod() ||
        name->getReferenceMod()) {
      ok = checker.report(ErrorCode::SetStatementInvalid, operand);
      continue;
    }
    ClauseEnvName *clause = currentScope().findMnemonicName(
        &(*name->getQualifiedWord()->getNamesBegin())->getWordData());
    if (!clause)
      ok = checker.report(ErrorCode::MnemonicNameUndefined, operand);
    else if (clause->getEnvNameType() != EnvNameType::Switch)
      ok = checker.report(ErrorCode::MnemonicNameInvalid, operand);
    else if (isFirst)
      item.addMnemonicName(clause->getMnemonicName());
  }
  return ok;
}

/// condition-name... TO {TRUE | FALSE}: FALSE requires WHEN SET TO FALSE.
bool SetItemCheck::checkConditions() {
  bool ok = true;
  for (Condition *condition : item.getCondListElements()) {
    DataIdentifierExpression *name =
        llvm::cast<ConditionNameCondition>(condition)->getConditionName();
    if (!checker.semanticCheck(*name)) {
      ok = false;
      continue;
    }
    const DataDescription &entry = *name->getDataDescription();
    if (!isConditionName(entry))
      ok = checker.report(ErrorCode::SetConditionNotConditionName, condition);
    else if (value.getType() == SetToValueType::False &&
             !(entry.getValue() && entry.getValue()->getFalseValue()))
      ok = checker.report(ErrorCode::SetSenderInvalid, condition);
  }
  return ok;
}

/// {index-name}... {UP BY | DOWN BY} amount. A pointer moves by bytes in the same way.
bool SetItemCheck::checkAdjustment() {
  bool ok = true;
  for (Expression *receiver : item.getSetListElements()) {
    if (!checker.semanticCheck(*receiver)) {
      ok = false;
      continue;
    }
    Operand kind = llvm::isa<LiteralExpression>(receiver) ? Other : kindOf(*receiver);
    if (kind != IndexName && kind != DataPointer)
      ok = checker.report(ErrorCode::SetReceiverInvalid, receiver);
  }
  return checkAmount(*value.getToExpr()) && ok;
}

/// An integer other than 0, or an item that holds integers.
bool SetItemCheck::checkAmount(Expression &amount) {
  if (!checker.semanticCheck(amount))
    return false;
  if (auto *literal = llvm::dyn_cast<NumericLiteralExpression>(&amount)) {
    if (!literal->isInteger())
      return checker.report(ErrorCode::SetUpDownOperandInvalid, &amount);
    return literal->getIntegerValue() != 0 ||
           checker.report(ErrorCode::SetUpDownSenderInvalid, &amount);
  }
  if (auto *figurative = llvm::dyn_cast<FigurativeLiteralExpression>(&amount);
      figurative && figurative->getFigurativeType() == FigurativeType::Zero)
    return checker.report(ErrorCode::SetUpDownSenderInvalid, &amount);
  if (llvm::isa<LiteralExpression>(amount))
    return checker.report(ErrorCode::SetUpDownOperandInvalid, &amount);
  return kindOf(amount) == Integer || checker.report(ErrorCode::SetUpDownSenderInvalid, &amount);
}

/// {identifier | ADDRESS OF identifier}... TO value
bool SetItemCheck::checkAssignment() {
  llvm::SmallVector<std::pair<Expression *, Operand>, 4> receivers;
  for (Expression *receiver : item.getSetListElements())
    if (std::optional<Operand> kind = checkReceiver(*receiver))
      receivers.emplace_back(receiver, *kind);
  bool ok = receivers.size() == item.getSetListSize();
  std::optional<Operand> sender = checkSender();
  if (!sender)
    return false;
  for (auto [receiver, kind] : receivers)
    ok &= checkPair(*receiver, kind, *sender);
  return ok;
}

/// The kind of the value after TO; none when it has been reported.
std::optional<Operand> SetItemCheck::checkSender() {
  if (value.getType() == SetToValueType::Null)
    return DataPointer;
  Expression &sender = *value.getToExpr();
  if (!checker.semanticCheck(sender))
    return std::nullopt;
  if (value.getType() == SetToValueType::Entry)
    return checkEntry(sender) ? std::optional(ProgramPointer) : std::nullopt;
  if (SpecialRegisterIdentifierExpression *address = asAddressOf(sender))
    if (unsigned level = address->getDataDescription()->getLevelNum(); level == 66 || level == 88) {
      checker.report(ErrorCode::SetAddressSenderLevel, &sender);
      return std::nullopt;
    }
  return kindOf(sender);
}

/// ENTRY is followed by the name of a program: characters, as in CALL.
bool SetItemCheck::checkEntry(Expression &operand) {
  DataCategory category = operand.getDataCategory();
  bool isName = (category == DataCategory::Alphabetic || category == DataCategory::Alphanumeric) &&
                !llvm::isa<FigurativeLiteralExpression>(operand) && !isConditionName(operand);
  return isName || checker.report(ErrorCode::SetEntryNotAlphanumeric, &operand);
}

/// The kind of a receiver; none when it has been reported.
std::optional<Operand> SetItemCheck::checkReceiver(Expression &receiver) {
  if (llvm::isa<FunctionIdentifierExpression>(receiver)) {
    checker.report(ErrorCode::FunctionInReceivingArea, &receiver);
    return std::nullopt;
  }
  if (!checker.semanticCheck(receiver))
    return std::nullopt;
  if (SpecialRegisterIdentifierExpression *address = asAddressOf(receiver))
    return checkAddress(*address) ? std::optional(DataPointer) : std::nullopt;
  if (!llvm::isa<DataIdentifierExpression>(receiver)) {
    checker.report(ErrorCode::SetReceiverInvalid, &receiver);
    return std::nullopt;
  }
  return kindOf(receiver);
}

bool SetItemCheck::checkPair(Expression &receiver, Operand kind, Operand sender) {
  // Only what can hold the address of a program takes an entry point.
  if (value.getType() == SetToValueType::Entry)
    return kind == ProgramPointer || checker.report(ErrorCode::SetReceiverInvalid, &receiver);
  if (kind == Other)
    return checker.report(sender == DataPointer ? ErrorCode::SetPointerReceiverInvalid
                                                : ErrorCode::SetToIdentifierInvalid,
                          &receiver);
  Verdict verdict = verdicts[kind][sender];
  if (!verdict)
    return true;
  if (verdict == Receiver)
    return checker.report(*verdict, &receiver);
  // A sender that does not fit is reported once, however many receivers there are.
  if (!isSenderReported)
    checker.report(*verdict, value.getToExpr());
  isSenderReported = true;
  return false;
}

/// Only a record of the linkage section has no storage of its own, and so an address to be set.
bool SetItemCheck::checkAddress(SpecialRegisterIdentifierExpression &receiver) {
  const DataDescription &entry = *receiver.getDataDescription();
  bool ok = true;
  if (entry.getLevelNum() != 1 && entry.getLevelNum() != 77)
    ok = checker.report(ErrorCode::SetAddressNotLevel01Or77, &receiver);
  else if (entry.getStorageType() != StorageType::Linkage)
    ok = checker.report(ErrorCode::SetPointerReceiverInvalid, &receiver);
  auto *record = llvm::dyn_cast<IdentifierExpression>(receiver.getIdent());
  if (record && record->getReferenceMod())
    ok = checker.report(ErrorCode::SetAddressReferenceModified, &receiver);
  return ok;
}

} // namespace

bool SemanticChecker::semanticCheck(SetStatement &statement) {
  bool ok = true;
  for (SetItem *item : statement.getItemListElements())
    ok &= SetItemCheck(*this, *item).check();
  return ok;
}

} // namespace tarka
