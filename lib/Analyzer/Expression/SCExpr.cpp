//===- SCExpr.cpp - operands, and the binding of data references ----------===//
//
// Every operand passes through here. A data reference is bound to exactly one
// entry of the data division by its name and qualifiers; then its subscripts
// and its reference modifier are checked.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Program.h"
#include "AST/StatementData.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/ErrorHandling.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Dispatch
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(Expression &expression) {
  switch (expression.getExprType()) {
  case ExpressionType::NumericLiteral:
  case ExpressionType::NonNumericLiteral:
  case ExpressionType::FigurativeConstant:
    return semanticCheck(llvm::cast<LiteralExpression>(expression));
  case ExpressionType::Arithmetic:
    return semanticCheck(llvm::cast<ArithmeticExpression>(expression));
  case ExpressionType::DataIdentifier:
  case ExpressionType::FileIdentifier:
  case ExpressionType::FunctionIdentifier:
  case ExpressionType::SpecialRegister:
    return semanticCheck(llvm::cast<IdentifierExpression>(expression));
  case ExpressionType::AbbrRelationCombined:
    return semanticCheck(llvm::cast<AbbrRelationCombinedExpression>(expression));
  case ExpressionType::ReportIdentifier:
    break;
  }
  return report(ErrorCode::IdentifierUndefined, &expression);
}

bool SemanticChecker::semanticCheck(LiteralExpression &literal) {
  switch (literal.getExprType()) {
  case ExpressionType::NumericLiteral:
    return semanticCheck(llvm::cast<NumericLiteralExpression>(literal));
  case ExpressionType::NonNumericLiteral:
    return semanticCheck(llvm::cast<NonNumericLiteralExpression>(literal));
  case ExpressionType::FigurativeConstant:
    return semanticCheck(llvm::cast<FigurativeLiteralExpression>(literal));
  default:
    llvm_unreachable("Invalid Expression Type");
  }
}

bool SemanticChecker::semanticCheck(IdentifierExpression &identifier) {
  switch (identifier.getExprType()) {
  case ExpressionType::DataIdentifier:
    return semanticCheck(llvm::cast<DataIdentifierExpression>(identifier));
  case ExpressionType::FileIdentifier:
    return semanticCheck(llvm::cast<FileIdentifierExpression>(identifier));
  case ExpressionType::FunctionIdentifier:
    return semanticCheck(llvm::cast<FunctionIdentifierExpression>(identifier));
  case ExpressionType::SpecialRegister:
    return semanticCheck(llvm::cast<SpecialRegisterIdentifierExpression>(identifier));
  default:
    llvm_unreachable("Invalid Expression Type");
  }
}

//===----------------------------------------------------------------------===//
// Data references
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(DataIdentifierExpression &identifier, bool silentIfUndefined,
                                    bool preferReportItem) {
  const std::list<Word *> &words = identifier.getQualifiedWord()->getNamesElements();
  const std::string *name = &words.front()->getWordData();
  const Scope scope = currentScope();
  bool ok = true;
  if (DataDescription *only = words.size() == 1 ? scope.findOnlyOwnItem(name) : nullptr) {
    // Most references: a plain name that one entry of the program has.
    bindTo(identifier, only);
  } else {
    const Homonyms homonyms = scope.findItems(name);
    if (!homonyms) {
      if (!silentIfUndefined)
        report(ErrorCode::IdentifierUndefined, &identifier);
      return false;
    }
    if (words.size() > 1)
      ok = bindQualified(identifier, homonyms);
    else
      bindUnqualified(identifier, homonyms, preferReportItem);
  }
  // What is wrong with the modifiers is reported, but the name is bound all the same.
  if (identifier.getSubscriptMod())
    checkSubscriptModifier(identifier);
  if (identifier.getReferenceMod())
    checkReferenceModifier(identifier);
  return ok;
}

/// Binds the reference and takes over what the entry says about it.
void SemanticChecker::bindTo(DataIdentifierExpression &identifier, DataDescription *entry) {
  identifier.setDataDescription(entry);
  if (const ClausePicture *picture = entry->getPicture()) {
    identifier.setSrcDigitNum(static_cast<unsigned>(picture->getDigitNum()));
    identifier.setSrcScale(static_cast<unsigned>(picture->getScale()));
  }
  if (!getInDeclaratives() && getCurrentRD())
    entry->addUsedRD(getCurrentRD());
  checkDataAccessWayForRptDecl(identifier);
}

/// Binds the reference to the entry that its qualifiers fit. When several fit, it is the last one.
bool SemanticChecker::bindQualified(DataIdentifierExpression &identifier,
                                    const Homonyms &homonyms) {
  const std::list<Word *> &words = identifier.getQualifiedWord()->getNamesElements();
  const auto matches = matchQualified(homonyms, words);
  for (const QualifiedMatch &match : matches) {
    // A match through a file or report gives the entry only; compilers rely on this difference.
    if (match.isThroughOwner)
      identifier.setDataDescription(match.entry);
    else
      bindTo(identifier, match.entry);
  }
  if (matches.empty())
    return report(ErrorCode::IdentifierNotInScope, &identifier,
                  words.front()->getWordData().c_str());
  if (matches.size() > 1)
    return report(ErrorCode::IdentifierNotUnique, &identifier,
                  words.front()->getWordData().c_str());
  return true;
}

/// Binds a name without qualifiers. One that is not unique is reported, but does not fail.
void SemanticChecker::bindUnqualified(DataIdentifierExpression &identifier,
                                      const Homonyms &homonyms, bool preferReportItem) {
  const bool usesReportWriter = CompileOption::getCompileOptionInstance()->isOptionEnableRw();
  const UnqualifiedMatch match = matchUnqualified(homonyms, preferReportItem && usesReportWriter);
  if (!match.isUnique)
    report(ErrorCode::IdentifierNotUnique, &identifier,
           match.entry->getDataName()->getWordData().c_str());
  bindTo(identifier, match.entry);
}

//===----------------------------------------------------------------------===//
// Subscripts and reference modification
//===----------------------------------------------------------------------===//

namespace {

bool isInTable(const DataDescription &entry) {
  if (entry.getOccurs())
    return true;
  const DataDescription *group =
      entry.getLevelNum() == 88 ? entry.getCondNameParent() : entry.getParent();
  for (; group; group = group->getParent())
    if (group->getOccurs())
      return true;
  return false;
}

/// A subscript must be an integer or an index; for a data item its category tells.
bool isSubscript(const Expression &operand) {
  DataCategory category = operand.getDataCategory();
  switch (operand.getExprType()) {
  case ExpressionType::DataIdentifier:
    return category == DataCategory::Numeric || category == DataCategory::Index;
  case ExpressionType::FigurativeConstant:
    return category == DataCategory::Numeric;
  default:
    return operand.isInteger();
  }
}

} // namespace

/// The number of subscripts is not compared with the number of tables around the item.
bool SemanticChecker::checkSubscriptModifier(DataIdentifierExpression &identifier) {
  bool ok = true;
  const DataDescription *entry = identifier.getDataDescription();
  if (entry && !isInTable(*entry))
    ok = report(ErrorCode::SubscriptOrModifierNotAllowed, &identifier);
  for (Expression *subscript : identifier.getSubscriptMod()->getSubscriptElements()) {
    // Of a relative subscript the operands are looked at, nothing else.
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
      ok = report(ErrorCode::IntegerExpressionInvalid, &identifier);
    else if (auto *literal = llvm::dyn_cast<NumericLiteralExpression>(subscript);
             literal && literal->getIntegerValue() == 0) {
      warn(ErrorCode::SubscriptBelowOne, &identifier);
      literal->setData("1");
    }
  }
  return ok;
}

/// Only a modifier where none can be makes the result false; the bounds are reported and pass.
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
    if (category != DataCategory::Alphanumeric && category != DataCategory::National)
      ok = report(ErrorCode::ReferenceModifierNotAllowed, &expression);
  } else {
    return report(ErrorCode::SubscriptOrModifierNotAllowed, &expression);
  }

  if (Expression *from = modifier->getFromExpr()) {
    semanticCheck(*from);
    if (!from->isInteger())
      report(ErrorCode::ReferenceModifierNotInteger, &expression);
  } else {
    report(ErrorCode::ReferenceModifierStartMissing, &expression);
  }
  if (Expression *count = modifier->getCountExpr()) {
    semanticCheck(*count);
    if (!count->isInteger())
      report(ErrorCode::ReferenceModifierNotInteger, &expression);
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// What report declaratives use
//===----------------------------------------------------------------------===//

/// The report writer must know what to move into report items before a USE BEFORE REPORTING
/// procedure runs: the items that the procedure uses, and what these items are subscripts of.
bool SemanticChecker::checkDataAccessWayForRptDecl(DataIdentifierExpression &identifier) {
  DataDescription *entry = identifier.getDataDescription();
  if (!getInDeclaratives() || entry->getUsedRDListSize() == 0)
    return true;
  for (auto used = entry->getUsedRDListBegin(); used != entry->getUsedRDListEnd(); ++used)
    if (checkCurrentRD(*used))
      entry->setAccessWay(static_cast<int>(AccessWay::Used));
  for (ReportDataDescription *item : findSourcesSubscriptedBy(entry))
    findUsedSrc(entry, item);
  return true;
}

namespace {

/// Calls \p use for every data identifier among the operands of SOURCE.
template <typename Use> void forEachSource(ReportDataDescription &item, Use use) {
  for (SourceClauseExpr *operand : item.getSourceClause()->getSourceExprListElements())
    if (operand->getSourceExprType() == SourceExprType::Identifier)
      if (auto *source = llvm::dyn_cast<DataIdentifierExpression>(operand->getExpr()))
        use(*source);
}

/// Calls \p use for every entry that is a subscript of \p identifier.
template <typename Use> void forEachSubscript(DataIdentifierExpression &identifier, Use use) {
  if (!identifier.getSubscriptMod())
    return;
  for (Expression *subscript : identifier.getSubscriptMod()->getSubscriptElements())
    if (auto *index = llvm::dyn_cast<DataIdentifierExpression>(subscript))
      if (DataDescription *entry = index->getDataDescription())
        use(entry);
}

} // namespace

/// The report items with a SOURCE that is subscripted by \p entry. The report section has been
/// checked, so its operands are bound, when a declarative asks.
llvm::ArrayRef<ReportDataDescription *>
SemanticChecker::findSourcesSubscriptedBy(DataDescription *entry) {
  auto next = std::prev(listOrEmpty(usedSrcList).end(),
                        static_cast<std::ptrdiff_t>(getUsedSrcListSize() - state->usedSrcRead));
  for (; next != listOrEmpty(usedSrcList).end(); ++next, ++state->usedSrcRead)
    forEachSource(**next, [&](DataIdentifierExpression &source) {
      forEachSubscript(source, [&](DataDescription *subscript) {
        auto &items = state->usedSrcBySubscript[subscript];
        if (items.empty() || items.back() != *next)
          items.push_back(*next);
      });
    });
  auto found = state->usedSrcBySubscript.find(entry);
  return found == state->usedSrcBySubscript.end() ? llvm::ArrayRef<ReportDataDescription *>()
                                                  : found->second;
}

bool SemanticChecker::findUsedSrc(DataDescription *entry, ReportDataDescription *item) {
  bool found = false;
  DataIdentifierExpression *last = nullptr;
  forEachSource(*item, [&](DataIdentifierExpression &source) {
    last = &source;
    forEachSubscript(source,
                     [&](const DataDescription *subscript) { found |= subscript == entry; });
  });
  // Of several operands of SOURCE the last one stands for the item.
  if (found && last->getDataDescription()) {
    last->getDataDescription()->setAccessWay(static_cast<int>(AccessWay::Used));
    item->setAccessWay(static_cast<int>(AccessWay::Moved));
    addDummyStmtForReportDeclaratives(last, item);
  }
  return found;
}

void SemanticChecker::addDummyStmtForReportDeclaratives(DataIdentifierExpression *source,
                                                        DataDescription *target) {
  auto *receiver = new DataIdentifierExpression(nullptr, nullptr, nullptr, nullptr);
  receiver->setDataDescription(target);
  std::list<IdentifierExpression *> receivers{receiver};
  auto *move = new MoveStatement(nullptr, source, &receivers, /*isCorresponding=*/false);
  auto *rules = makeList<MoveRule>();
  rules->push_back(getMoveRule(source, receiver));
  move->setMoveRuleList(rules);
  context().addStmtToDummyListUsedMove(move);
}

} // namespace tarka
