//===- SCDataReference.cpp - the binding of data references ---------------===//
//
// A data reference is bound to exactly one entry of the data division by its name
// and qualifiers; then its subscripts and its reference modifier are checked.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Scope.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

namespace {

/// Binds the reference to the entry and sets what follows from it.
void bindTo(SemanticChecker &checker, DataIdentifierExpression &identifier,
            DataDescription *entry) {
  identifier.setDataDescription(entry);
  if (const ClausePicture *picture = entry->getPicture()) {
    identifier.setSrcDigitNum(static_cast<unsigned>(picture->getDigitNum()));
    identifier.setSrcScale(static_cast<unsigned>(picture->getScale()));
  }
  if (!checker.getInDeclaratives() && checker.getCurrentRD())
    entry->addUsedRD(checker.getCurrentRD());
  checker.checkDataAccessWayForRptDecl(identifier);
}

/// Binds the reference to the entry that its qualifiers fit. When several fit, it is the last one.
bool bindQualified(SemanticChecker &checker, DataIdentifierExpression &identifier,
                   const Homonyms &homonyms) {
  const NodeList<Word> &words = identifier.getQualifiedWord()->getNamesElements();
  const auto matches = matchQualified(homonyms, words);
  for (const QualifiedMatch &match : matches) {
    // A match through a file or report gives the entry only; compilers rely on this difference.
    if (match.isThroughOwner)
      identifier.setDataDescription(match.entry);
    else
      bindTo(checker, identifier, match.entry);
  }
  if (matches.empty())
    return checker.report(ErrorCode::IdentifierNotInScope, &identifier,
                          words.front()->getWordData().c_str());
  if (matches.size() > 1)
    return checker.report(ErrorCode::IdentifierNotUnique, &identifier,
                          words.front()->getWordData().c_str());
  return true;
}

/// Binds a name without qualifiers. One that is not unique is reported, but does not fail.
void bindUnqualified(SemanticChecker &checker, DataIdentifierExpression &identifier,
                     const Homonyms &homonyms, bool preferReportItem) {
  const bool usesReportWriter = CompileOption::getCompileOptionInstance()->isOptionEnableRw();
  const UnqualifiedMatch match = matchUnqualified(homonyms, preferReportItem && usesReportWriter);
  if (!match.isUnique)
    checker.report(ErrorCode::IdentifierNotUnique, &identifier,
                   match.entry->getDataName()->getWordData().c_str());
  bindTo(checker, identifier, match.entry);
}

/// Whether the reference is a name alone, of a data item outside of tables.
bool isPlain(const DataIdentifierExpression &identifier) {
  const DataDescription *entry = identifier.getDataDescription();
  return !identifier.getSubscriptMod() && !identifier.getReferenceMod() && entry &&
         entry->getLevelNum() != 88 && !entry->isInTable();
}

} // namespace

bool SemanticChecker::semanticCheck(DataIdentifierExpression &identifier, bool silentIfUndefined,
                                    bool preferReportItem) {
  const NodeList<Word> &words = identifier.getQualifiedWord()->getNamesElements();
  const std::string *name = &words.front()->getWordData();
  const Scope scope = currentScope();
  bool ok = true;
  if (DataDescription *only = words.size() == 1 ? scope.findOnlyOwnItem(name) : nullptr) {
    // Most references: a plain name that one entry of the program has.
    bindTo(*this, identifier, only);
  } else {
    const Homonyms homonyms = scope.findItems(name);
    if (!homonyms) {
      if (!silentIfUndefined)
        report(ErrorCode::IdentifierUndefined, &identifier);
      return false;
    }
    if (words.size() > 1)
      ok = bindQualified(*this, identifier, homonyms);
    else
      bindUnqualified(*this, identifier, homonyms, preferReportItem);
  }
  if (!isPlain(identifier))
    state->hasPlainOperands = false;
  // Errors in the modifiers are reported, but the name is bound.
  if (identifier.getSubscriptMod())
    checkSubscriptModifier(identifier);
  if (identifier.getReferenceMod())
    checkReferenceModifier(identifier);
  return ok;
}

//===----------------------------------------------------------------------===//
// Subscripts and reference modification
//===----------------------------------------------------------------------===//

namespace {

/// Whether \p operand can be a whole number. Only the running program knows the value of a
/// quotient, a power, a product or a numeric function; what is known to have decimal places cannot
/// be one.
bool canBeInteger(const Expression &operand) {
  const Expression *rest = &operand;
  while (const auto *arithmetic = llvm::dyn_cast<ArithmeticExpression>(rest)) {
    switch (arithmetic->getOperator()) {
    case ArithmeticExprType::Multiply:
    case ArithmeticExprType::Divide:
    case ArithmeticExprType::Power:
      return true;
    default:
      if (const Expression *second = arithmetic->getOperand2(); second && !canBeInteger(*second))
        return false;
      rest = arithmetic->getOperand1();
    }
  }
  bool isNumericFunction = llvm::isa<FunctionIdentifierExpression>(rest) &&
                           rest->getDataCategory() == DataCategory::Numeric;
  return isNumericFunction || rest->isInteger();
}

/// A subscript must be an integer or an index; for a data item its category decides.
bool isSubscript(const Expression &operand) {
  DataCategory category = operand.getDataCategory();
  switch (operand.getExprType()) {
  case ExpressionType::DataIdentifier:
    return category == DataCategory::Numeric || category == DataCategory::Index;
  case ExpressionType::FigurativeConstant:
    return category == DataCategory::Numeric;
  default:
    return canBeInteger(operand);
  }
}

} // namespace

/// The number of subscripts is not compared with the number of tables around the item.
bool SemanticChecker::checkSubscriptModifier(DataIdentifierExpression &identifier) {
  bool ok = true;
  const DataDescription *entry = identifier.getDataDescription();
  if (entry && !entry->isInTable())
    ok = report(ErrorCode::SubscriptOrModifierNotAllowed, &identifier);
  for (Expression *subscript : identifier.getSubscriptMod()->getSubscriptElements()) {
    // Of a relative subscript only the operands are checked.
    if (auto *relative = llvm::dyn_cast<ArithmeticExpression>(subscript)) {
      ok &= semanticCheck(*relative->getOperand1());
      if (relative->getOperand2())
        ok &= semanticCheck(*relative->getOperand2());
      continue;
    }
    if (!semanticCheck(*subscript)) {
      ok = false;
      continue;
    }
    if (!isSubscript(*subscript))
      ok = reportOperand(ErrorCode::IntegerExpressionInvalid, &identifier, *subscript);
    else if (auto *literal = llvm::dyn_cast<NumericLiteralExpression>(subscript);
             literal && literal->getIntegerValue() == 0) {
      warn(ErrorCode::SubscriptBelowOne, &identifier);
      literal->setData("1");
    }
  }
  return ok;
}

/// The result is false only for a modifier that is not allowed; wrong bounds are reported, but
/// pass.
bool SemanticChecker::checkReferenceModifier(Expression &expression) {
  bool ok = true;
  ReferenceModifier *modifier = nullptr;
  if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&expression)) {
    modifier = identifier->getReferenceMod();
    if (const DataDescription *entry = identifier->getDataDescription()) {
      UsageType usage = entry->getUsageType();
      if (usage != UsageType::Display && usage != UsageType::Display1 &&
          usage != UsageType::National)
        report(ErrorCode::SubscriptOrModifierNotAllowed, &expression);
    }
  } else if (auto *function = llvm::dyn_cast<FunctionIdentifierExpression>(&expression)) {
    modifier = function->getReferenceMod();
    DataCategory category = function->getDataCategory();
    const bool isText = category == DataCategory::Alphanumeric ||
                        category == DataCategory::National ||
                        (category == DataCategory::Alphabetic &&
                         followsEnterprise(EnterpriseRule::ModifiedAlphabeticFunction));
    if (!isText)
      ok = report(ErrorCode::ReferenceModifierNotAllowed, &expression);
  } else {
    return report(ErrorCode::SubscriptOrModifierNotAllowed, &expression);
  }

  if (Expression *from = modifier->getFromExpr()) {
    semanticCheck(*from);
    if (!canBeInteger(*from))
      report(ErrorCode::ReferenceModifierNotInteger, &expression);
  } else {
    report(ErrorCode::ReferenceModifierStartMissing, &expression);
  }
  if (Expression *count = modifier->getCountExpr()) {
    semanticCheck(*count);
    if (!canBeInteger(*count))
      report(ErrorCode::ReferenceModifierNotInteger, &expression);
  }
  return ok;
}

} // namespace tarka
