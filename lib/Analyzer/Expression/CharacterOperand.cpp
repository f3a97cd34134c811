//===- CharacterOperand.cpp - operands as characters and counters ---------===//

#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/SpecialRegisters.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// What the characters are
//===----------------------------------------------------------------------===//

namespace {

CharacterKind kindOfCategory(DataCategory category) {
  switch (category) {
  case DataCategory::Unclassified:
    return CharacterKind::Unknown;
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
  case DataCategory::AlphanumericEdited:
  case DataCategory::NumericEdited:
    return CharacterKind::Display;
  case DataCategory::National:
  case DataCategory::NationalEdited:
    return CharacterKind::National;
  case DataCategory::Dbcs:
    return CharacterKind::Dbcs;
  default:
    return CharacterKind::None;
  }
}

CharacterKind kindOfItem(const DataDescription &item) {
  const DataCategory category = item.getDataCategory();
  if (category == DataCategory::Unclassified || category == DataCategory::National)
    return kindOfCategory(category);
  // A group is characters, whatever its USAGE.
  if (item.hasSubordinateData())
    return CharacterKind::Display;
  switch (item.getUsageType()) {
  case UsageType::Display:
    return CharacterKind::Display;
  case UsageType::Display1:
    return CharacterKind::Dbcs;
  case UsageType::National:
    return CharacterKind::National;
  default:
    return CharacterKind::None;
  }
}

CharacterKind kindOfFigurative(const FigurativeLiteralExpression &constant) {
  if (constant.getFigurativeType() == FigurativeType::Null)
    return CharacterKind::None;
  if (isAllLiteral(constant) && constant.getLiteral())
    return characterKindOf(*constant.getLiteral());
  return CharacterKind::Any;
}

bool isAddressOrLength(const SpecialRegisterIdentifierExpression &specialRegister) {
  return specialRegister.getType() == SpecialRegisterType::AddressOf ||
         specialRegister.getType() == SpecialRegisterType::LengthOf;
}

} // namespace

CharacterKind characterKindOf(const Expression &operand) {
  switch (operand.getExprType()) {
  case ExpressionType::NonNumericLiteral:
  case ExpressionType::FunctionIdentifier:
    return kindOfCategory(operand.getDataCategory());
  case ExpressionType::FigurativeConstant:
    return kindOfFigurative(llvm::cast<FigurativeLiteralExpression>(operand));
  case ExpressionType::DataIdentifier:
    if (!llvm::cast<DataIdentifierExpression>(operand).getDataDescription())
      return CharacterKind::Unknown;
    [[fallthrough]];
  case ExpressionType::SpecialRegister:
    if (const DataDescription *item = dataItemOf(operand))
      return kindOfItem(*item);
    // Condition-names, and registers without an item.
    return llvm::isa<DataIdentifierExpression>(operand) ? CharacterKind::None
                                                        : kindOfCategory(operand.getDataCategory());
  default:
    return CharacterKind::None;
  }
}

bool areOfOneKind(CharacterKind left, CharacterKind right) {
  auto isOpen = [](CharacterKind kind) {
    return kind == CharacterKind::Unknown || kind == CharacterKind::Any;
  };
  return left == right || isOpen(left) || isOpen(right);
}

bool isText(const Expression &operand) {
  if (llvm::isa<FigurativeLiteralExpression>(operand) ||
      characterKindOf(operand) == CharacterKind::None)
    return false;
  switch (operand.getDataCategory()) {
  case DataCategory::Numeric:
  case DataCategory::NumericEdited:
  case DataCategory::ExternalFloat:
    return false;
  default:
    return true;
  }
}

bool isAllLiteral(const Expression &operand) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&operand);
  // A symbolic character has become ALL of its character, but keeps its name.
  return constant && constant->getFigurativeType() == FigurativeType::AllLiteral &&
         constant->getSymbolName().empty();
}

void adaptFigurative(Expression &operand, CharacterKind kind) {
  auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&operand);
  if (constant && kind == CharacterKind::National)
    constant->setIsNational(true);
}

//===----------------------------------------------------------------------===//
// How many there are
//===----------------------------------------------------------------------===//

namespace {

std::optional<std::int64_t> countOfLiteral(const NonNumericLiteralExpression &literal) {
  switch (literal.getNonNumericLiteralType()) {
  case NonNumericLiteralType::NullTerminated:
  case NonNumericLiteralType::Dbcs:
    return std::nullopt;
  default:
    // Of other characters the code page of the program decides how many bytes they are.
    if (!llvm::all_of(literal.getData(), [](char c) { return llvm::isASCII(c); }))
      return std::nullopt;
    return literal.getLength();
  }
}

std::optional<std::int64_t> countOfItem(const DataDescription &item) {
  // A group is as long as the counters of its tables say, XML-TEXT as the document that is parsed.
  const std::int64_t size = item.getAllocSize();
  if (item.getMinAllocSize() != size || item.isTooLarge() || isXmlTextRegister(item))
    return std::nullopt;
  // Of a number the digits count, not the sign.
  if (item.getDataCategory() == DataCategory::Numeric && item.getPicture())
    return item.getPicture()->getStoredDigitNum();
  CharacterKind kind = kindOfItem(item);
  const bool isWide = kind == CharacterKind::Dbcs || kind == CharacterKind::National;
  return isWide ? size / 2 : size;
}

std::optional<std::int64_t> valueOf(const Expression *expression) {
  const auto *literal = llvm::dyn_cast_if_present<NumericLiteralExpression>(expression);
  if (!literal || !literal->isInteger())
    return std::nullopt;
  return literal->getIntegerValue();
}

/// (leftmost position : length): the length, or else what follows from the position.
std::optional<std::int64_t> countOfPart(const ReferenceModifier &part,
                                        std::optional<std::int64_t> whole) {
  if (part.getCountExpr())
    return valueOf(part.getCountExpr());
  std::optional<std::int64_t> from = valueOf(part.getFromExpr());
  if (!from || !whole)
    return std::nullopt;
  return *whole - *from + 1;
}

} // namespace

std::optional<std::int64_t> characterCountOf(const Expression &operand) {
  if (const auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(&operand))
    return countOfLiteral(*literal);
  if (llvm::isa<FigurativeLiteralExpression>(operand))
    return isAllLiteral(operand) ? std::nullopt : std::optional<std::int64_t>(1);
  const DataDescription *item = dataItemOf(operand);
  if (!item)
    return std::nullopt;
  const ReferenceModifier *part = llvm::cast<IdentifierExpression>(operand).getReferenceMod();
  return part ? countOfPart(*part, countOfItem(*item)) : countOfItem(*item);
}

//===----------------------------------------------------------------------===//
// Items that count
//===----------------------------------------------------------------------===//

DataDescription *dataItemOf(const Expression &operand) {
  const auto *specialRegister = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&operand);
  if (!llvm::isa<DataIdentifierExpression>(operand) &&
      (!specialRegister || isAddressOrLength(*specialRegister)))
    return nullptr;
  DataDescription *item = llvm::cast<IdentifierExpression>(operand).getDataDescription();
  return item && item->getLevelNum() != 88 ? item : nullptr;
}

CounterFault counterFaultOf(const Expression &operand) {
  const DataDescription *item = dataItemOf(operand);
  if (!item)
    return characterKindOf(operand) == CharacterKind::Unknown ? CounterFault::None
                                                              : CounterFault::NotNumeric;
  if (item->getDataCategory() == DataCategory::Unclassified)
    return CounterFault::None;
  if (operand.getDataCategory() != DataCategory::Numeric)
    return CounterFault::NotNumeric;
  const ClausePicture *picture = item->getPicture();
  if (picture && picture->getDigitNum() != picture->getStoredDigitNum())
    return CounterFault::Scaled;
  return operand.isInteger() ? CounterFault::None : CounterFault::NotInteger;
}

bool checkCounter(SemanticChecker &checker, IdentifierExpression *counter,
                  CounterMessages messages) {
  if (!counter)
    return true;
  if (!checker.semanticCheck(*counter))
    return false;
  if (llvm::isa<FunctionIdentifierExpression>(counter))
    return checker.report(ErrorCode::FunctionInReceivingArea, counter);
  switch (counterFaultOf(*counter)) {
  case CounterFault::None:
    return true;
  case CounterFault::NotNumeric:
    return checker.report(messages.notNumeric, counter);
  case CounterFault::Scaled:
    return checker.report(messages.scaled, counter);
  case CounterFault::NotInteger:
    break;
  }
  return checker.report(ErrorCode::IntegerRequired, counter);
}

} // namespace tarka
