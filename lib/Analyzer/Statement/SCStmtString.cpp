//===- SCStmtString.cpp - STRING and UNSTRING -----------------------------===//
//
// Both move characters, so the operands of one statement are all characters of
// one kind: single-byte, DBCS or national.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

namespace {

bool isEdited(DataCategory category) {
  return category == DataCategory::AlphanumericEdited || category == DataCategory::NumericEdited ||
         category == DataCategory::NationalEdited;
}

} // namespace

//===----------------------------------------------------------------------===//
// STRING
//===----------------------------------------------------------------------===//

namespace {

/// What is sent, or what ends it: characters. A number must be an integer, whose digits then are
/// its characters.
bool checkStringSender(SemanticChecker &checker, Expression &sender) {
  if (!checker.semanticCheck(sender))
    return false;
  if (characterKindOf(sender) == CharacterKind::None || isAllLiteral(sender))
    return checker.report(ErrorCode::StringIdentifierType, &sender);
  if (!dataItemOf(sender) || sender.getDataCategory() != DataCategory::Numeric)
    return true;
  switch (counterFaultOf(sender)) {
  case CounterFault::Scaled:
    return checker.report(ErrorCode::StringScaledPicture, &sender);
  case CounterFault::NotInteger:
    return checker.report(ErrorCode::StringIdentifierType, &sender);
  default:
    return true;
  }
}

/// What receives characters keeps them as they come: it neither edits nor aligns.
bool checkStringReceiver(SemanticChecker &checker, IdentifierExpression &receiver) {
  if (!checker.semanticCheck(receiver))
    return false;
  if (llvm::isa<FunctionIdentifierExpression>(receiver))
    return checker.report(ErrorCode::FunctionInReceivingArea, &receiver);
  const DataCategory category = receiver.getDataCategory();
  if (characterKindOf(receiver) == CharacterKind::None || isEdited(category) || isFloat(receiver))
    return checker.report(ErrorCode::StringReceiverType, &receiver);
  const DataDescription *item = dataItemOf(receiver);
  if (item && item->getJustified())
    return checker.report(ErrorCode::StringReceiverJustified, &receiver);
  return true;
}

} // namespace

bool SemanticChecker::semanticCheck(StringStatement &statement) {
  bool ok = true;
  llvm::SmallVector<Expression *, 8> senders;
  auto checkSender = [&](Expression &sender) {
    if (checkStringSender(*this, sender))
      senders.push_back(&sender);
    else
      ok = false;
  };
  for (StringItem *item : statement.getItemListElements()) {
    for (Expression *sender : item->getStringNameListElements())
      checkSender(*sender);
    if (item->getDelimitedName())
      checkSender(*item->getDelimitedName());
  }

  // The receiver determines the kind of the characters.
  IdentifierExpression &receiver = *statement.getIntoIdentifier();
  if (checkStringReceiver(*this, receiver)) {
    const CharacterKind kind = characterKindOf(receiver);
    for (Expression *sender : senders) {
      if (!areOfOneKind(characterKindOf(*sender), kind))
        ok = report(ErrorCode::StringIdentifierType, sender);
      adaptFigurative(*sender, kind);
    }
  } else {
    ok = false;
  }

  ok &= checkCounter(*this, statement.getWithPointerIdentifier(),
                     {ErrorCode::StringPointerNotNumeric, ErrorCode::StringScaledPicture});
  return OperandCheck(*this).all(statement.getOverflowHandlerElements()) && ok;
}

//===----------------------------------------------------------------------===//
// UNSTRING
//===----------------------------------------------------------------------===//

namespace {

/// Checks one UNSTRING, operand by operand in the order in which they are written.
class UnstringCheck {
public:
  UnstringCheck(SemanticChecker &checkerOfAll, UnstringStatement &unstring)
      : checker(checkerOfAll), statement(unstring) {}

  bool check();

private:
  bool checkSource();
  bool checkDelimiter(Expression &delimiter);
  bool checkInto(UnstringIntoItem &item);
  bool checkTarget(IdentifierExpression &target);
  bool checkDelimiterTarget(IdentifierExpression &delimiter, const IdentifierExpression &target);
  bool checkIsDelimited(IdentifierExpression *item);

  SemanticChecker &checker;
  UnstringStatement &statement;
  CharacterKind sourceKind = CharacterKind::Unknown;
  /// That of the first receiving item, which the others must have too.
  CharacterKind targetKind = CharacterKind::Unknown;
};

constexpr CounterMessages unstringPointer = {ErrorCode::StringPointerNotNumeric,
                                             ErrorCode::IntegerWithScaledPicture};

bool UnstringCheck::check() {
  bool ok = checkSource();
  for (UnstringDelimitedItem *item : statement.getDelimiterListElements())
    ok &= checkDelimiter(*item->getDelimiter());
  for (UnstringIntoItem *item : statement.getIntoListElements())
    ok &= checkInto(*item);
  ok &= checkCounter(checker, statement.getWithPointerId(), unstringPointer);
  return checkCounter(checker, statement.getTallyingId(), integerCounter) && ok;
}

bool UnstringCheck::checkSource() {
  IdentifierExpression &source = *statement.getSourceIdentifier();
  if (!checker.semanticCheck(source))
    return false;
  if (!isText(source))
    return checker.report(ErrorCode::UnstringSourceType, &source);
  sourceKind = characterKindOf(source);
  return true;
}

/// ALL belongs to the phrase, so ALL literal would repeat it.
bool UnstringCheck::checkDelimiter(Expression &delimiter) {
  if (!checker.semanticCheck(delimiter))
    return false;
  const bool isConstant = llvm::isa<FigurativeLiteralExpression>(delimiter);
  if ((!isConstant && !isText(delimiter)) || isAllLiteral(delimiter) ||
      characterKindOf(delimiter) == CharacterKind::None ||
      !areOfOneKind(characterKindOf(delimiter), sourceKind))
    return checker.report(ErrorCode::UnstringDelimiterInvalid, &delimiter);
  adaptFigurative(delimiter, sourceKind);
  return true;
}

bool UnstringCheck::checkInto(UnstringIntoItem &item) {
  bool ok = checkTarget(*item.getTargetIdentifier());
  if (IdentifierExpression *delimiter = item.getDelimiter())
    ok &= checkDelimiterTarget(*delimiter, *item.getTargetIdentifier());
  ok &= checkCounter(checker, item.getCountIdentifier(), integerCounter);
  ok &= checkIsDelimited(item.getDelimiter());
  return checkIsDelimited(item.getCountIdentifier()) && ok;
}

/// What receives a part of the source: text, or a number in characters, into which it is moved.
bool UnstringCheck::checkTarget(IdentifierExpression &target) {
  if (!checker.semanticCheck(target))
    return false;
  const CharacterKind kind = characterKindOf(target);
  if (kind == CharacterKind::Unknown)
    return true;
  const DataDescription *item = dataItemOf(target);
  if (!item)
    return checker.report(ErrorCode::UnstringIntoNotDataItem, &target);
  const DataCategory category = target.getDataCategory();
  if (kind == CharacterKind::None || isEdited(category) || isFloat(target))
    return checker.report(ErrorCode::StringReceiverType, &target);
  if (category == DataCategory::Numeric && counterFaultOf(target) == CounterFault::Scaled)
    return checker.report(ErrorCode::IntegerWithScaledPicture, &target);

  if (targetKind == CharacterKind::Unknown) {
    targetKind = kind;
    if (!areOfOneKind(sourceKind, kind))
      return checker.report(ErrorCode::UnstringTypeDiffersFromInto,
                            statement.getSourceIdentifier());
  }
  if (kind != targetKind)
    return checker.report(ErrorCode::UnstringIntoUsageDiffers, &target);
  return true;
}

/// DELIMITER IN: text of the kind that is received beside it.
bool UnstringCheck::checkDelimiterTarget(IdentifierExpression &delimiter,
                                         const IdentifierExpression &target) {
  if (!checker.semanticCheck(delimiter))
    return false;
  if (llvm::isa<FunctionIdentifierExpression>(delimiter))
    return checker.report(ErrorCode::FunctionInReceivingArea, &delimiter);
  if (!isText(delimiter) || isEdited(delimiter.getDataCategory()))
    return checker.report(ErrorCode::StringReceiverType, &delimiter);
  CharacterKind kind = characterKindOf(target);
  if (kind != CharacterKind::None && !areOfOneKind(characterKindOf(delimiter), kind))
    return checker.report(ErrorCode::UnstringTypeDiffersFromInto, &delimiter);
  return true;
}

/// DELIMITER IN and COUNT IN refer to what DELIMITED BY found.
bool UnstringCheck::checkIsDelimited(IdentifierExpression *item) {
  if (item && statement.getDelimiterListSize() == 0)
    return checker.report(ErrorCode::UnstringStatementInvalid, item);
  return true;
}

} // namespace

bool SemanticChecker::semanticCheck(UnstringStatement &statement) {
  bool ok = UnstringCheck(*this, statement).check();
  return OperandCheck(*this).all(statement.getOverflowHandlerElements()) && ok;
}

} // namespace tarka
