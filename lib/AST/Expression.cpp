//===- Expression.cpp - categories of operands ----------------------------===//

#include "AST/Expression.h"
#include "AST/ClausePicture.h"
#include "AST/DataDescription.h"
#include "AST/IntrinsicFunctions.h"

namespace tarka {

namespace {

/// Part of an item's characters: national for a national item, DBCS for a DBCS item, alphanumeric
/// for every other.
DataCategory categoryOfPart(const DataDescription &item) {
  switch (item.getUsageType()) {
  case UsageType::National:
    return DataCategory::National;
  case UsageType::Display1:
    return DataCategory::Dbcs;
  default:
    return DataCategory::Alphanumeric;
  }
}

/// Whether the entry can only hold integers.
bool holdsIntegers(const DataDescription &item) {
  switch (item.getDataCategory()) {
  case DataCategory::Index:
    return true;
  case DataCategory::Numeric:
    return !item.getPicture() || item.getPicture()->getScale() <= 0;
  default:
    return false;
  }
}

bool isFloat(DataCategory category) {
  return category == DataCategory::ExternalFloat || category == DataCategory::InternalFloat;
}

} // namespace

DataCategory ArithmeticExpression::getDataCategory() const {
  // Chains of operators lean to the left, so only the right side is a call.
  for (const Expression *operand = this; operand;) {
    const auto *arithmetic = llvm::dyn_cast<ArithmeticExpression>(operand);
    if (!arithmetic)
      return isFloat(operand->getDataCategory()) ? DataCategory::InternalFloat
                                                 : DataCategory::Numeric;
    if (arithmetic->operand2 && isFloat(arithmetic->operand2->getDataCategory()))
      return DataCategory::InternalFloat;
    operand = arithmetic->operand1;
  }
  return DataCategory::Numeric;
}

bool ArithmeticExpression::isInteger() const {
  for (const Expression *operand = this; operand;) {
    const auto *arithmetic = llvm::dyn_cast<ArithmeticExpression>(operand);
    if (!arithmetic)
      return operand->isInteger();
    // A quotient has decimal places, and so has a power with a negative exponent.
    if (arithmetic->getOperator() == ArithmeticExprType::Divide ||
        arithmetic->getOperator() == ArithmeticExprType::Power)
      return false;
    if (arithmetic->operand2 && !arithmetic->operand2->isInteger())
      return false;
    operand = arithmetic->operand1;
  }
  return true;
}

DataCategory DataIdentifierExpression::getDataCategory() const {
  if (!description)
    return DataCategory::Unclassified;
  return getReferenceMod() ? categoryOfPart(*description) : description->getDataCategory();
}

bool DataIdentifierExpression::isInteger() const {
  return description && !getReferenceMod() && holdsIntegers(*description);
}

bool FunctionIdentifierExpression::isInteger() const {
  switch (getIntrinsicType()) {
  case IntrinsicType::Abs:
  case IntrinsicType::Max:
  case IntrinsicType::Min:
  case IntrinsicType::Range:
  case IntrinsicType::Sum:
    // The results of these have the decimal places of their arguments.
    for (const Expression *argument : arguments)
      if (!argument->isInteger())
        return false;
    return true;
  default:
    const IntrinsicFunction *function = name ? findIntrinsicFunction(name->getWordData()) : nullptr;
    return function && function->isInteger;
  }
}

/// Whether a register of DEBUG-ITEM is a whole number: DEBUG-SUB-1 to DEBUG-SUB-3 hold subscripts,
/// everything else is characters.
static bool isDebugSubscript(const SpecialRegisterIdentifierExpression &reg) {
  const Word *name = reg.getRegisterWord();
  return name && llvm::StringRef(name->getWordData()).starts_with("DEBUG-SUB-") &&
         !reg.getReferenceMod();
}

DataCategory SpecialRegisterIdentifierExpression::getDataCategory() const {
  switch (getType()) {
  case SpecialRegisterType::AddressOf:
    return DataCategory::Pointer;
  case SpecialRegisterType::LengthOf:
  case SpecialRegisterType::LinageCounter:
  case SpecialRegisterType::PageCounter:
  case SpecialRegisterType::LineCounter:
    return DataCategory::Numeric;
  case SpecialRegisterType::XmlNText:
  case SpecialRegisterType::XmlNNamespace:
  case SpecialRegisterType::XmlNNamespacePrefix:
    return DataCategory::National;
  case SpecialRegisterType::XmlNamespace:
  case SpecialRegisterType::XmlNamespacePrefix:
    return DataCategory::Alphanumeric;
  case SpecialRegisterType::DebugItem:
    return isDebugSubscript(*this) ? DataCategory::Numeric : DataCategory::Alphanumeric;
  case SpecialRegisterType::JnienvPtr:
    return DataCategory::Pointer;
  case SpecialRegisterType::JsonCode:
  case SpecialRegisterType::JsonStatus:
    return DataCategory::Numeric;
  default:
    if (!description)
      return DataCategory::Unclassified;
    return referenceMod ? categoryOfPart(*description) : description->getDataCategory();
  }
}

bool SpecialRegisterIdentifierExpression::isInteger() const {
  switch (getType()) {
  case SpecialRegisterType::LengthOf:
  case SpecialRegisterType::LinageCounter:
  case SpecialRegisterType::PageCounter:
  case SpecialRegisterType::LineCounter:
    return true;
  case SpecialRegisterType::DebugItem:
    return isDebugSubscript(*this);
  default:
    return description && !referenceMod && holdsIntegers(*description);
  }
}

} // namespace tarka
