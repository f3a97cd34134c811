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

namespace {

/// The entries of a data division that bear one name; none when there is no division.
struct Candidates {
  DataDivision *division = nullptr;
  std::list<DataDescription *> *entries = nullptr;
};

Candidates findIn(SourceUnit &unit, const Word &name) {
  DataDivision *division = unit.getDataDivision();
  std::list<DataDescription *> *found =
      division ? division->findItemByInternedName(&name.getWordData()) : nullptr;
  return found && !found->empty() ? Candidates{division, found} : Candidates{};
}

/// Whether the entry is part of a GLOBAL record; a condition-name is as its conditional variable.
bool isGlobal(DataDescription &entry) {
  DataDescription *item = entry.getLevelNum() == 88 ? entry.getCondNameParent() : &entry;
  return item && item->getRootDesc()->getGlobal();
}

/// The entry of the program itself that alone bears the name; null when there is none or another.
DataDescription *findOnlyItem(const Word &name) {
  DataDivision *division = currentDivision();
  return division ? division->findOnlyItemByInternedName(&name.getWordData()) : nullptr;
}

/// The entries that \p name can mean: those of the program itself, else those of the nearest
/// program around it whose first entry of the name is in a GLOBAL record. That only the first one
/// is asked is on purpose: its namesakes stay candidates whether they are GLOBAL or not.
Candidates findCandidates(const Word &name) {
  SourceUnit *unit = currentUnit();
  if (Candidates own = findIn(*unit, name); own.division)
    return own;
  for (SourceUnit *outer = unit->getParent(); outer; outer = outer->getParent())
    if (Candidates found = findIn(*outer, name); found.division)
      if (isGlobal(*found.entries->front()))
        return found;
  return {};
}

/// Of the entries that bear the first of \p words those that the qualifiers after it can mean: of
/// many the ones that stand below the qualifier that fewest of them stand below.
llvm::SmallVector<DataDescription *, 8> narrow(const Candidates &candidates,
                                               const std::list<Word *> &words) {
  constexpr std::size_t few = 8;
  if (candidates.entries->size() <= few)
    return {candidates.entries->begin(), candidates.entries->end()};
  DataDivision &division = *candidates.division;
  llvm::ArrayRef<DataDescription *> best;
  for (auto qualifier = std::next(words.begin()); qualifier != words.end(); ++qualifier) {
    const std::string &text = (*qualifier)->getWordData();
    llvm::ArrayRef<DataDescription *> below =
        division.findItemByQualifiedName(words.front()->getWordData(), text);
    if (qualifier == std::next(words.begin()) || below.size() < best.size())
      best = below;
    // What follows the name of a file or report need not fit.
    if (division.isFileOrReportName(text))
      break;
  }
  return {best.begin(), best.end()};
}

/// The name that qualifies a record of the file or report section from outside: of its FD or RD.
/// Null for entries of other sections.
const std::string *ownerName(const DataDescription &entry) {
  switch (entry.getStorageType()) {
  case StorageType::File:
    return &entry.getFileDescription()->getFileName()->getWordData();
  case StorageType::Report:
    return &entry.getReportDescription()->getReportName()->getWordData();
  default:
    return nullptr;
  }
}

/// How an entry fits the qualifiers of a reference.
enum class Match {
  None,
  Ancestors,   ///< the groups around it bear all of them
  Owner,       ///< groups, and in the end the file or report
  RecordOwner, ///< a record, whose first qualifier is the file or report
};

using WordIterator = std::list<Word *>::const_iterator;

/// Fits \p entry against the qualifiers in [\p qualifier, \p end), nearest first. Groups may be
/// left out; what follows the name of a file or report is not looked at.
Match matchQualifiers(const DataDescription &entry, WordIterator qualifier, WordIterator end) {
  const bool isConditionName = entry.getLevelNum() == 88;
  const DataDescription *group = isConditionName ? entry.getCondNameParent() : entry.getParent();
  if (!group && !isConditionName)
    if (const std::string *owner = ownerName(entry))
      return (*qualifier)->getWordData() == *owner ? Match::RecordOwner : Match::None;
  for (; group; group = group->getParent()) {
    if (group->getDataName() && group->getDataName()->getWordData() == (*qualifier)->getWordData())
      if (++qualifier == end)
        return Match::Ancestors;
  }
  const std::string *owner = ownerName(entry);
  return owner && (*qualifier)->getWordData() == *owner ? Match::Owner : Match::None;
}

bool isReportEntry(const DataDescription *entry) {
  return entry->getStorageType() == StorageType::Report;
}

} // namespace

bool SemanticChecker::semanticCheck(DataIdentifierExpression &identifier, bool silentIfUndefined,
                                    bool preferReportItem) {
  const std::list<Word *> &words = identifier.getQualifiedWord()->getNamesElements();
  bool ok = true;
  if (DataDescription *only = words.size() == 1 ? findOnlyItem(*words.front()) : nullptr) {
    // Most references: a plain name that one entry of the program bears.
    bindTo(identifier, only);
  } else {
    Candidates candidates = findCandidates(*words.front());
    if (!candidates.division) {
      if (!silentIfUndefined)
        report(ErrorCode::IdentifierUndefined, &identifier);
      return false;
    }
    ok = words.size() > 1 ? bindQualified(identifier, narrow(candidates, words))
                          : bindUnqualified(identifier, *candidates.entries, preferReportItem);
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

bool SemanticChecker::bindQualified(DataIdentifierExpression &identifier,
                                    llvm::ArrayRef<DataDescription *> candidates) {
  const std::list<Word *> &words = identifier.getQualifiedWord()->getNamesElements();
  int count = 0;
  for (DataDescription *candidate : candidates) {
    Match match = matchQualifiers(*candidate, std::next(words.begin()), words.end());
    if (match == Match::None)
      continue;
    ++count;
    // A match through a file or report gives the entry only; this difference is on purpose.
    if (match == Match::Ancestors)
      bindTo(identifier, candidate);
    else
      identifier.setDataDescription(candidate);
    if (match == Match::RecordOwner)
      break;
  }
  if (count == 0)
    return report(ErrorCode::IdentifierNotInScope, &identifier,
                  words.front()->getWordData().c_str());
  if (count > 1)
    return report(ErrorCode::IdentifierNotUnique, &identifier,
                  words.front()->getWordData().c_str());
  return true;
}

bool SemanticChecker::bindUnqualified(DataIdentifierExpression &identifier,
                                      const std::list<DataDescription *> &candidates,
                                      bool preferReportItem) {
  auto isOther = [](const DataDescription *entry) { return !isReportEntry(entry); };
  auto chosen = candidates.begin();
  if (candidates.size() > 1) {
    chosen = llvm::find_if(candidates, isOther);
    if (chosen == candidates.end()) {
      // Of items of the report section alone the last one is meant.
      chosen = std::prev(candidates.end());
    } else {
      bool (*isRival)(const DataDescription *) = isOther;
      if (preferReportItem && CompileOption::getCompileOptionInstance()->isOptionEnableRw()) {
        auto reportItem = llvm::find_if(candidates, isReportEntry);
        if (reportItem != candidates.end()) {
          chosen = reportItem;
          isRival = isReportEntry;
        }
      }
      // The first one is taken, and the check does not fail for it: on purpose.
      if (std::any_of(std::next(chosen), candidates.end(), isRival))
        report(ErrorCode::IdentifierNotUnique, &identifier,
               (*chosen)->getDataName()->getWordData().c_str());
    }
  }
  bindTo(identifier, *chosen);
  return true;
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

/// A subscript must be an integer or an index; for a data item its category tells.
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
  auto *receiver = generate<DataIdentifierExpression>(nullptr, nullptr, nullptr, nullptr);
  receiver->setDataDescription(target);
  std::list<IdentifierExpression *> receivers{receiver};
  auto *move = generate<MoveStatement>(nullptr, source, &receivers, /*isCorresponding=*/false);
  auto *rules = makeList<MoveRule>();
  rules->push_back(getMoveRule(source, receiver));
  move->setMoveRuleList(rules);
  context().addStmtToDummyListUsedMove(move);
}

} // namespace tarka
