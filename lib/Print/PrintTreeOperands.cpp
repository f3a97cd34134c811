//===- PrintTreeOperands.cpp - operands and conditions of the tree --------===//

#include "AST/DataDescription.h"
#include "AST/Environment.h"
#include "AST/ExpressionVisitor.h"
#include "AST/FileDescription.h"
#include "AST/KindNames.h"
#include "AST/ReportDescription.h"
#include "Print/LayoutModel.h"
#include "Print/TreePrinter.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"

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

/// Prints what an operand consists of, by its class.
class TreePrinter::OperandFields : public ExpressionVisitor<OperandFields> {
public:
  explicit OperandFields(TreePrinter &treePrinter) : printer(treePrinter) {}

#define TARKA_EXPRESSION(Kind, Number, Class)                                                      \
  void visit##Class(Class &expression) { printer.fields(expression); }
#include "AST/Expressions.def"

private:
  TreePrinter &printer;
};

void TreePrinter::print(llvm::StringRef role, Expression &expression) {
  Open node(sink, role, classNameOf(expression.getExprType()), expression.getRange());
  OperandFields(*this).visit(expression);
}

void TreePrinter::fields(LiteralExpression &literal) {
  sink.text("value", literalText(literal));
  common(literal);
}

void TreePrinter::fields(FigurativeLiteralExpression &constant) {
  fields(static_cast<LiteralExpression &>(constant));
  flag("national", constant.isNational());
}

void TreePrinter::fields(FileIdentifierExpression &file) {
  name("name", file.getFileName());
  if (FileDescription *entry = file.getFileDescription())
    sink.target("boundTo", {entry->getFileName()->getDisplayName(), entry->getRange()});
}

void TreePrinter::fields(ReportIdentifierExpression &report) {
  name("name", report.getReportName());
  if (ReportDescription *entry = report.getReportDescription())
    sink.target("boundTo", {entry->getReportName()->getDisplayName(), entry->getRange()});
}

void TreePrinter::fields(AbbrRelationCombinedExpression &objects) {
  one("left", objects.getLeft());
  all("right", objects.getRightAbbrListElements());
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
void TreePrinter::fields(ArithmeticExpression &expression) {
  llvm::SmallVector<ArithmeticExpression *, 8> chain{&expression};
  while (auto *left = llvm::dyn_cast<ArithmeticExpression>(chain.back()->getOperand1())) {
    if (!chain.back()->getOperand2() || !left->getOperand2())
      break;
    chain.push_back(left);
  }
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

/// Prints what a condition consists of, by its class.
class TreePrinter::ConditionFields : public ConditionVisitor<ConditionFields> {
public:
  explicit ConditionFields(TreePrinter &treePrinter) : printer(treePrinter) {}

#define TARKA_CONDITION(Kind, Number, Class)                                                       \
  void visit##Class(Class &condition) { printer.fields(condition); }
#include "AST/Conditions.def"

private:
  TreePrinter &printer;
};

void TreePrinter::print(llvm::StringRef role, Condition &condition) {
  Open node(sink, role, classNameOf(condition.getType()), condition.getRange());
  ConditionFields(*this).visit(condition);
}

void TreePrinter::fields(ConditionNameCondition &condition) {
  operand("name", condition.getConditionName());
}

void TreePrinter::fields(SwitchCondition &status) {
  sink.text("name", nameText(*status.getSwitchName()));
  name("mnemonicName", status.getMnemonicName());
  if (ClauseEnvName *clause = status.getEnvClause()) {
    sink.text("status", status.isOnCond() ? "ON" : "OFF");
    sink.target("clause", {clause->getEnvironmentName()->getDisplayName(), clause->getRange()});
  }
}

void TreePrinter::fields(RelationalCondition &relation) {
  sink.text("relation", nameOf(relation.getConditionType()));
  flag("sameGroup", relation.isSameGroup());
  one("left", relation.getLeft());
  one("right", relation.getRight());
}

void TreePrinter::fields(ClassCondition &condition) {
  sink.text("class", nameOf(condition.getClassType()));
  name("className", condition.getClassName());
  if (ClauseClass *clause = condition.getClauseClass())
    sink.target("clause", {condition.getClassName()->getDisplayName(), clause->getRange()});
  one("operand", condition.getLeft());
}

void TreePrinter::fields(SignCondition &condition) {
  sink.text("sign", nameOf(condition.getSignType()));
  one("operand", condition.getOperand());
}

void TreePrinter::fields(NegatedCondition &condition) {
  one("operand", condition.getOperand());
}

void TreePrinter::fields(AbbrRelationalCondition &relation) {
  sink.text("relation", nameOf(relation.getConditionType()));
  flag("takenOver", !relation.isRelationWritten());
  one("right", relation.getRight());
}

/// Like chains of arithmetic operators.
void TreePrinter::fields(CombinedCondition &condition) {
  llvm::SmallVector<CombinedCondition *, 8> chain{&condition};
  while (auto *left = llvm::dyn_cast_if_present<CombinedCondition>(chain.back()->getLeft()))
    chain.push_back(left);
  one("first", chain.back()->getLeft());
  for (CombinedCondition *link : llvm::reverse(chain))
    one(nameOf(link->getOpTy()), link->getRight());
}

} // namespace tarka
