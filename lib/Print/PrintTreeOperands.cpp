//===- PrintTreeOperands.cpp - operands and conditions of the tree --------===//

#include "AST/DataDescription.h"
#include "AST/Environment.h"
#include "AST/FileDescription.h"
#include "AST/KindNames.h"
#include "AST/ReportDescription.h"
#include "Print/LayoutModel.h"
#include "Print/TreePrinter.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/Support/ErrorHandling.h"

namespace tarka {

namespace {

std::string nameText(const QualifiedWord &words) {
  std::string text;
  for (const Word *word : words.getNamesElements())
    text += (text.empty() ? "" : " OF ") + word->getDisplayName();
  return text;
}

} // namespace

//===----------------------------------------------------------------------===//
// Operands
//===----------------------------------------------------------------------===//

void TreePrinter::print(llvm::StringRef role, QualifiedWord &words) {
  Open node(sink, role, "QualifiedWord", words.getRange());
  sink.text("name", nameText(words));
}

static bool hasDigits(const Expression &expression) {
  return expression.getSrcDigitNum() || expression.getSrcScale();
}

/// What all operands have: their category, and the digits that the checks noted.
void TreePrinter::common(Expression &expression) {
  if (llvm::StringRef category = nameOf(expression.getDataCategory()); !category.empty())
    sink.text("category", category);
  if (hasDigits(expression)) {
    sink.number("digits", expression.getSrcDigitNum());
    sink.number("scale", expression.getSrcScale());
  }
}

void TreePrinter::print(llvm::StringRef role, Expression &expression) {
  if (auto *arithmetic = llvm::dyn_cast<ArithmeticExpression>(&expression))
    return printArithmetic(role, *arithmetic);
  Open node(sink, role, classNameOf(expression.getExprType()), expression.getRange());
  switch (expression.getExprType()) {
  case ExpressionType::NumericLiteral:
  case ExpressionType::NonNumericLiteral:
  case ExpressionType::FigurativeConstant:
    sink.text("value", literalText(llvm::cast<LiteralExpression>(expression)));
    common(expression);
    if (auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&expression))
      flag("national", constant->isNational());
    break;
  case ExpressionType::DataIdentifier:
    fields(llvm::cast<DataIdentifierExpression>(expression));
    break;
  case ExpressionType::FileIdentifier: {
    auto &file = llvm::cast<FileIdentifierExpression>(expression);
    name("name", file.getFileName());
    if (FileDescription *entry = file.getFileDescription())
      sink.target("boundTo", {entry->getFileName()->getDisplayName(), entry->getRange()});
    break;
  }
  case ExpressionType::FunctionIdentifier:
    fields(llvm::cast<FunctionIdentifierExpression>(expression));
    break;
  case ExpressionType::SpecialRegister:
    fields(llvm::cast<SpecialRegisterIdentifierExpression>(expression));
    break;
  case ExpressionType::AbbrRelationCombined: {
    auto &objects = llvm::cast<AbbrRelationCombinedExpression>(expression);
    one("left", objects.getLeft());
    all("right", objects.getRightAbbrListElements());
    break;
  }
  case ExpressionType::ReportIdentifier: {
    auto &report = llvm::cast<ReportIdentifierExpression>(expression);
    name("name", report.getReportName());
    if (ReportDescription *entry = report.getReportDescription())
      sink.target("boundTo", {entry->getReportName()->getDisplayName(), entry->getRange()});
    break;
  }
  case ExpressionType::Arithmetic:
    llvm_unreachable("printed above");
  }
}

void TreePrinter::fields(DataIdentifierExpression &identifier) {
  if (identifier.getQualifiedWord())
    sink.text("name", nameText(*identifier.getQualifiedWord()));
  entry("boundTo", identifier.getDataDescription());
  common(identifier);
  if (SubscriptModifier *subscripts = identifier.getSubscriptMod())
    all("subscript", subscripts->getSubscriptElements());
  one("part", identifier.getReferenceMod());
}

void TreePrinter::print(llvm::StringRef role, ReferenceModifier &modifier) {
  Open node(sink, role, "ReferenceModifier", modifier.getRange());
  one("from", modifier.getFromExpr());
  one("count", modifier.getCountExpr());
}

void TreePrinter::fields(FunctionIdentifierExpression &function) {
  name("name", function.getFunctionName());
  common(function);
  name("keyword", function.getArgKeyword());
  all("argument", function.getFunctionArgListElements());
  one("part", function.getReferenceMod());
}

void TreePrinter::fields(SpecialRegisterIdentifierExpression &specialRegister) {
  if (specialRegister.getType() == SpecialRegisterType::AddressOf)
    sink.text("name", "ADDRESS OF");
  else if (specialRegister.getType() == SpecialRegisterType::LengthOf)
    sink.text("name", "LENGTH OF");
  else
    name("name", specialRegister.getRegisterWord());
  name("qualifier", specialRegister.getQualifierWord());
  entry("boundTo", specialRegister.getDataDescription());
  common(specialRegister);
  one("operand", specialRegister.getIdent());
  one("file", static_cast<Expression *>(specialRegister.getFileExpr()));
  one("report", static_cast<Expression *>(specialRegister.getReportExpr()));
  one("part", specialRegister.getReferenceMod());
}

/// The digits of a chain after each of its operators, in the order in which they are worked in.
void TreePrinter::steps(llvm::ArrayRef<ArithmeticExpression *> chain) {
  if (chain.size() < 2 || llvm::none_of(chain, [](auto *link) { return hasDigits(*link); }))
    return;
  llvm::SmallVector<std::int64_t, 8> digits;
  llvm::SmallVector<std::int64_t, 8> scales;
  for (const ArithmeticExpression *link : llvm::reverse(chain)) {
    digits.push_back(link->getSrcDigitNum());
    scales.push_back(link->getSrcScale());
  }
  sink.numbers("stepDigits", digits);
  sink.numbers("stepScales", scales);
}

/// Chains of operators lean to the left. Such a chain is one node: its first operand, and after it
/// the others in the order in which they are worked in, each under its operator.
void TreePrinter::printArithmetic(llvm::StringRef role, ArithmeticExpression &expression) {
  llvm::SmallVector<ArithmeticExpression *, 8> chain{&expression};
  while (auto *left = llvm::dyn_cast<ArithmeticExpression>(chain.back()->getOperand1())) {
    if (!chain.back()->getOperand2() || !left->getOperand2())
      break;
    chain.push_back(left);
  }
  Open node(sink, role, "ArithmeticExpression", expression.getRange());
  common(expression);
  steps(chain);
  flag("parenthesised", expression.isParenthesised());
  if (!expression.getOperand2())
    return print(nameOf(expression.getOperator()), *expression.getOperand1());
  print("first", *chain.back()->getOperand1());
  for (ArithmeticExpression *link : llvm::reverse(chain))
    print(nameOf(link->getOperator()), *link->getOperand2());
}

//===----------------------------------------------------------------------===//
// Conditions
//===----------------------------------------------------------------------===//

void TreePrinter::print(llvm::StringRef role, AbbrRelationItem &item) {
  Open node(sink, role, "AbbrRelationItem", item.getRange());
  sink.text("operator", nameOf(item.getOpTy()));
  one("condition", item.getCond());
}

void TreePrinter::print(llvm::StringRef role, Condition &condition) {
  if (auto *combined = llvm::dyn_cast<CombinedCondition>(&condition))
    return printCombined(role, *combined);
  Open node(sink, role, classNameOf(condition.getType()), condition.getRange());
  if (auto *conditionName = llvm::dyn_cast<ConditionNameCondition>(&condition)) {
    one("name", static_cast<Expression *>(conditionName->getConditionName()));
  } else if (auto *status = llvm::dyn_cast<SwitchCondition>(&condition)) {
    sink.text("name", nameText(*status->getSwitchName()));
    name("mnemonicName", status->getMnemonicName());
    if (ClauseEnvName *clause = status->getEnvClause()) {
      sink.text("status", status->isOnCond() ? "ON" : "OFF");
      sink.target("clause", {clause->getEnvironmentName()->getDisplayName(), clause->getRange()});
    }
  } else if (auto *relation = llvm::dyn_cast<RelationalCondition>(&condition)) {
    sink.text("relation", nameOf(relation->getConditionType()));
    flag("sameGroup", relation->isSameGroup());
    one("left", relation->getLeft());
    one("right", relation->getRight());
  } else if (auto *ofClass = llvm::dyn_cast<ClassCondition>(&condition)) {
    sink.text("class", nameOf(ofClass->getClassType()));
    name("className", ofClass->getClassName());
    if (ClauseClass *clause = ofClass->getClauseClass())
      sink.target("clause", {ofClass->getClassName()->getDisplayName(), clause->getRange()});
    one("operand", ofClass->getLeft());
  } else if (auto *sign = llvm::dyn_cast<SignCondition>(&condition)) {
    sink.text("sign", nameOf(sign->getSignType()));
    one("operand", sign->getOperand());
  } else if (auto *negated = llvm::dyn_cast<NegatedCondition>(&condition)) {
    one("operand", negated->getOperand());
  } else if (auto *abbreviated = llvm::dyn_cast<AbbrRelationalCondition>(&condition)) {
    sink.text("relation", nameOf(abbreviated->getConditionType()));
    flag("takenOver", !abbreviated->isRelationWritten());
    one("right", abbreviated->getRight());
  }
}

/// Like chains of arithmetic operators.
void TreePrinter::printCombined(llvm::StringRef role, CombinedCondition &condition) {
  llvm::SmallVector<CombinedCondition *, 8> chain{&condition};
  while (auto *left = llvm::dyn_cast_if_present<CombinedCondition>(chain.back()->getLeft()))
    chain.push_back(left);
  Open node(sink, role, "CombinedCondition", condition.getRange());
  one("first", chain.back()->getLeft());
  for (CombinedCondition *link : llvm::reverse(chain))
    one(nameOf(link->getOpTy()), link->getRight());
}

} // namespace tarka
