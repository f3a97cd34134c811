//===- SCExprComposite.cpp - operands that are made of operands -----------===//
//
// Intrinsic functions, arithmetic expressions and abbreviated combined
// relations.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"
#include <optional>

namespace tarka {

//===----------------------------------------------------------------------===//
// Intrinsic functions
//===----------------------------------------------------------------------===//

namespace {

/// What decides the category of a function's result.
enum class FunctionResult { Numeric, Alphanumeric, National, OfArguments, Invalid };

FunctionResult resultOf(IntrinsicType function) {
  switch (function) {
  case IntrinsicType::Char:
  case IntrinsicType::CurrentDate:
  case IntrinsicType::DisplayOf:
  case IntrinsicType::FormattedCurrentDate:
  case IntrinsicType::FormattedDate:
  case IntrinsicType::FormattedDatetime:
  case IntrinsicType::FormattedTime:
  case IntrinsicType::WhenCompiled:
  case IntrinsicType::HexOf:
  case IntrinsicType::HexToChar:
  case IntrinsicType::BitOf:
  case IntrinsicType::BitToChar:
  case IntrinsicType::OtherAlphanumeric:
    return FunctionResult::Alphanumeric;
  case IntrinsicType::NationalOf:
    return FunctionResult::National;
  case IntrinsicType::Max:
  case IntrinsicType::Min:
  case IntrinsicType::LowerCase:
  case IntrinsicType::UpperCase:
  case IntrinsicType::Reverse:
  case IntrinsicType::Trim:
  case IntrinsicType::Concatenate:
  case IntrinsicType::Substitute:
  case IntrinsicType::OtherOfArguments:
    return FunctionResult::OfArguments;
  case IntrinsicType::None:
    return FunctionResult::Invalid;
  default:
    return function < IntrinsicType::NationalOf ? FunctionResult::Numeric : FunctionResult::Invalid;
  }
}

bool isNumberCategory(DataCategory category) {
  return category == DataCategory::Numeric || category == DataCategory::ExternalFloat ||
         category == DataCategory::InternalFloat;
}

bool isTextCategory(DataCategory category) {
  return category == DataCategory::Alphabetic || category == DataCategory::Alphanumeric ||
         category == DataCategory::AlphanumericEdited || category == DataCategory::NumericEdited;
}

/// The category of a function whose arguments are of the categories \p first and \p second, where
/// these can stand together in Enterprise COBOL: numbers with numbers, characters with characters.
/// Nothing where they cannot.
std::optional<DataCategory> commonCategory(DataCategory first, DataCategory second) {
  if (first == second)
    return first;
  if (isNumberCategory(first) && isNumberCategory(second))
    return DataCategory::InternalFloat;
  if (isTextCategory(first) && isTextCategory(second))
    return DataCategory::Alphanumeric;
  return std::nullopt;
}

} // namespace

bool SemanticChecker::semanticCheck(FunctionIdentifierExpression &function) {
  state->hasPlainOperands = false;
  bool ok = true;
  for (Expression *argument : function.getFunctionArgListElements())
    ok &= semanticCheck(*argument);
  ok &= checkAllowArgument(function);

  switch (resultOf(function.getIntrinsicType())) {
  case FunctionResult::Numeric:
    function.setDataCategory(DataCategory::Numeric);
    break;
  case FunctionResult::Alphanumeric:
    function.setDataCategory(DataCategory::Alphanumeric);
    break;
  case FunctionResult::National:
    function.setDataCategory(DataCategory::National);
    break;
  case FunctionResult::OfArguments: {
    if (function.getFunctionArgListSize() == 0) {
      ok = report(ErrorCode::FunctionArgumentMissing, &function);
      break;
    }
    DataCategory first = (*function.getFunctionArgListBegin())->getDataCategory();
    for (Expression *argument : function.getFunctionArgListElements()) {
      if (followsEnterprise(EnterpriseRule::NumericArguments))
        if (auto common = commonCategory(first, argument->getDataCategory())) {
          first = *common;
          function.setDataCategory(first);
          continue;
        }
      if (argument->getDataCategory() != first)
        ok = report(ErrorCode::FunctionArgumentCategoriesDiffer, &function);
      // The last argument decides in the end, also when the arguments disagree.
      function.setDataCategory(argument->getDataCategory());
    }
    break;
  }
  case FunctionResult::Invalid:
    ok = report(ErrorCode::FunctionInvalid, &function);
    break;
  }

  // Errors in the reference modifier are reported, but do not fail the function.
  if (function.getReferenceMod())
    checkReferenceModifier(function);
  return ok;
}

bool SemanticChecker::checkAllowArgument(FunctionIdentifierExpression &function) {
  return function.getIntrinsicType() != IntrinsicType::Numval || checkFunctionNumval(function);
}

/// NUMVAL converts characters to a number, so its argument cannot be a number.
bool SemanticChecker::checkFunctionNumval(FunctionIdentifierExpression &function) {
  if (function.getFunctionArgListSize() == 0)
    return report(ErrorCode::FunctionArgumentMissing, &function);
  bool ok = true;
  for (Expression *argument : function.getFunctionArgListElements())
    if (argument->getDataCategory() == DataCategory::Numeric)
      ok = report(ErrorCode::NumvalArgumentCategory, &function);
  return ok;
}

//===----------------------------------------------------------------------===//
// Arithmetic expressions
//===----------------------------------------------------------------------===//

namespace {

bool isArithmeticOperandKind(ExpressionType kind) {
  switch (kind) {
  case ExpressionType::NumericLiteral:
  case ExpressionType::FigurativeConstant:
  case ExpressionType::Arithmetic:
  case ExpressionType::DataIdentifier:
  case ExpressionType::FunctionIdentifier:
  case ExpressionType::SpecialRegister:
  case ExpressionType::ReportIdentifier:
    return true;
  default:
    return false;
  }
}

/// Numbers of all kinds; a numeric-edited item only in the report section, where it is the number
/// that is to be printed.
bool isArithmeticOperandCategory(const Expression &operand) {
  // The result of an operator is a number; getDataCategory() would walk its whole chain.
  if (llvm::isa<ArithmeticExpression>(operand))
    return true;
  if (isConditionName(operand))
    return false;
  switch (operand.getDataCategory()) {
  case DataCategory::Numeric:
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat:
    return true;
  case DataCategory::NumericEdited: {
    auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&operand);
    return identifier && identifier->getDataDescription() &&
           identifier->getDataDescription()->getStorageType() == StorageType::Report;
  }
  default:
    return false;
  }
}

} // namespace

/// Chains of operators lean to the left, so that side is walked by a loop. An operand that is
/// wrong by itself ends the check of the whole chain.
bool SemanticChecker::semanticCheck(ArithmeticExpression &expression) {
  llvm::SmallVector<ArithmeticExpression *, 8> chain{&expression};
  while (auto *left = llvm::dyn_cast<ArithmeticExpression>(chain.back()->getOperand1()))
    chain.push_back(left);

  // The result of the link below, which is the first operand of the next one; the innermost first
  // operand is not an arithmetic expression and has its own check.
  bool operand1Ok = semanticCheck(*chain.back()->getOperand1());
  for (ArithmeticExpression *link : llvm::reverse(chain)) {
    if (!operand1Ok)
      return false;
    bool ok = true;
    auto takeOperand = [&](Expression &operand) {
      if (!isArithmeticOperandKind(operand.getExprType()))
        ok = reportOperand(ErrorCode::ArithmeticOperandInvalid, link, operand);
      if (!isArithmeticOperandCategory(operand))
        ok = reportOperand(ErrorCode::ArithmeticOperandInvalid, link, operand);
      if (link->getSrcScale() < operand.getSrcScale()) {
        link->setSrcDigitNum(operand.getSrcDigitNum());
        link->setSrcScale(operand.getSrcScale());
      }
    };

    takeOperand(*link->getOperand1());
    if (Expression *second = link->getOperand2()) {
      if (!semanticCheck(*second))
        return false;
      takeOperand(*second);
      if (link->getOperator() == ArithmeticExprType::Divide && llvm::isa<LiteralExpression>(second))
        state->hasPlainOperands = false;
    }
    operand1Ok = ok;
  }
  return operand1Ok;
}

//===----------------------------------------------------------------------===//
// Abbreviated combined relations
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(AbbrRelationCombinedExpression &expression) {
  bool ok = !expression.getLeft() || semanticCheck(*expression.getLeft());
  for (AbbrRelationItem *item : expression.getRightAbbrListElements())
    if (item->getCond())
      ok &= semanticCheck(*item->getCond());
  return ok;
}

} // namespace tarka
