//===- SCStmtInitialize.cpp - INITIALIZE ----------------------------------===//
//
// INITIALIZE stands for a series of MOVEs to the elementary items of its
// receivers, so that what REPLACING gives a category must be movable to it.
//
//===----------------------------------------------------------------------===//

#include "AST/ClausePicture.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/Statement/MoveRules.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Receivers
//===----------------------------------------------------------------------===//

/// Whether the item follows one of the OCCURS DEPENDING ON tables of \p division that is in
/// its record but does not contain it: then its offset changes with the size of the table.
static bool isBehindVariableTable(const DataDescription &item, DataDivision &division) {
  llvm::ArrayRef<DataDescription *> tables = division.getVariableTables();
  const auto *behind = llvm::partition_point(tables, [&](const DataDescription *table) {
    return table->getSourceOrder() < item.getSourceOrder();
  });
  // Of the tables before the item, the nearest first, those that it lies in do not count.
  for (const DataDescription *table : llvm::reverse(llvm::ArrayRef(tables.begin(), behind))) {
    const DataDescription *group = &item;
    while (group && group != table)
      group = group->getParent();
    if (!group)
      return table->getRootDesc() == item.getRootDesc();
  }
  return false;
}

/// The same for the division that describes the item, which may be that of a program around.
static bool isVariablyLocated(const DataDescription &item) {
  for (SourceUnit *unit = currentUnit(); unit; unit = unit->getParent())
    if (DataDivision *division = unit->getDataDivision())
      if (isBehindVariableTable(item, *division))
        return true;
  return false;
}

/// Whether elementary items of the category have an initial value that MOVE can give them.
static bool isInitialized(DataCategory category) {
  return category >= DataCategory::Alphabetic && category <= DataCategory::InternalFloat;
}

static bool checkReceiver(SemanticChecker &checker, IdentifierExpression &receiver) {
  if (!checker.semanticCheck(receiver))
    return false;
  if (llvm::isa<FunctionIdentifierExpression>(receiver))
    return checker.report(ErrorCode::FunctionInReceivingArea, &receiver);
  if (isUnknown(receiver))
    return true;
  if (isReadOnlyRegister(receiver) || isConditionName(receiver))
    return checker.report(ErrorCode::InitializeIdentifierInvalid, &receiver);
  const DataDescription *item = entryOf(receiver);
  if (item && item->getLevelNum() == 66)
    return checker.report(ErrorCode::InitializeReceiverRenames, &receiver);
  if (!isInitialized(receiver.getDataCategory()))
    return checker.report(ErrorCode::InitializeIdentifierInvalid, &receiver);
  // The text names every record with an OCCURS DEPENDING ON table. Such a record, and such a
  // table itself, is initialised at its present size; what follows the table cannot be.
  if (item && isVariablyLocated(*item))
    return checker.report(ErrorCode::InitializeReceiverOccursDepending, &receiver);
  return true;
}

//===----------------------------------------------------------------------===//
// REPLACING
//===----------------------------------------------------------------------===//

namespace {

/// An item of each category that REPLACING can name.
struct Sample {
  InitializeReplacingType category;
  const char *picture;
  UsageType usage;
};

constexpr Sample samples[] = {
    {InitializeReplacingType::Alphabetic, "A", UsageType::Display},
    {InitializeReplacingType::Alphanumeric, "X", UsageType::Display},
    {InitializeReplacingType::Numeric, "9", UsageType::Display},
    {InitializeReplacingType::AlphanumericEdited, "XB", UsageType::Display},
    {InitializeReplacingType::NumericEdited, "Z", UsageType::Display},
    {InitializeReplacingType::National, "N", UsageType::National},
    {InitializeReplacingType::NationalEdited, "NB", UsageType::National},
    {InitializeReplacingType::Dbcs, "G", UsageType::Display1},
};

DataIdentifierExpression *makeSample(InitializeReplacingType category) {
  const Sample &sample = *llvm::find_if(
      samples, [&](const Sample &candidate) { return candidate.category == category; });
  auto *item = generate<DataDescription>(nullptr);
  item->setLevelNum(77);
  item->setPicture(generate<ClausePicture>(nullptr, generate<Word>(nullptr, sample.picture, "")));
  item->setUsage(generate<ClauseUsage>(nullptr, sample.usage));
  auto *receiver = generate<DataIdentifierExpression>(nullptr, nullptr, nullptr, nullptr);
  receiver->setDataDescription(item);
  return receiver;
}

bool isSpace(const Expression &operand) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&operand);
  return constant && constant->getFigurativeType() == FigurativeType::Space;
}

/// Whether \p sender may be moved to an item of the category of which nothing else is known.
bool isMovable(const Expression &sender, InitializeReplacingType category) {
  // DBCS has a space character as well.
  if (category == InitializeReplacingType::Dbcs && isSpace(sender))
    return true;
  return decideMove(sender, *makeSample(category)).isLegal();
}

} // namespace

/// A group cannot be the value of one item, unless it is a national group, which is used as an
/// item.
static bool checkSender(SemanticChecker &checker, Expression &sender,
                        InitializeReplacingType category) {
  if (!checker.semanticCheck(sender))
    return false;
  if (isUnknown(sender))
    return true;
  if (isGroupItem(sender) && sender.getDataCategory() != DataCategory::National)
    return checker.report(ErrorCode::InitializeSenderGroup, &sender);
  if (isConditionName(sender) || !isInitialized(sender.getDataCategory()))
    return checker.report(ErrorCode::InitializeIdentifierInvalid, &sender);
  // A date may become the value of any item of its category.
  if (const DataDescription *item = entryOf(sender); item && item->getDateFormat())
    return true;
  return isMovable(sender, category) || checker.report(ErrorCode::MoveInvalid, &sender);
}

//===----------------------------------------------------------------------===//
// The statement
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(InitializeStatement &statement) {
  bool ok = true;
  for (IdentifierExpression *receiver : statement.getIdentifierListElements())
    ok &= checkReceiver(*this, *receiver);

  // The categories met so far, as bits.
  unsigned replaced = 0;
  for (InitializeReplacingItem *item : statement.getReplacingListElements()) {
    unsigned category = 1u << static_cast<unsigned>(item->getType());
    if (replaced & category)
      ok = report(ErrorCode::InitializeCategoryRepeated, item);
    replaced |= category;
    ok &= checkSender(*this, *item->getByExpr(), item->getType());
  }
  return ok;
}

} // namespace tarka
