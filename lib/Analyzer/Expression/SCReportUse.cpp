//===- SCReportUse.cpp - what report declaratives use ---------------------===//
//
// The report writer must know which items to move into report items before a USE
// BEFORE REPORTING procedure runs.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/StatementData.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"
#include <iterator>

namespace tarka {

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

llvm::ArrayRef<ReportDataDescription *>
SubscriptedSources::find(const DataDescription *entry,
                         const NodeList<ReportDataDescription> &items) {
  auto next = std::prev(items.end(), static_cast<std::ptrdiff_t>(items.size() - read));
  for (; next != items.end(); ++next, ++read)
    forEachSource(**next, [&](DataIdentifierExpression &source) {
      forEachSubscript(source, [&](DataDescription *subscript) {
        auto &found = bySubscript[subscript];
        if (found.empty() || found.back() != *next)
          found.push_back(*next);
      });
    });
  auto found = bySubscript.find(entry);
  return found == bySubscript.end() ? llvm::ArrayRef<ReportDataDescription *>() : found->second;
}

/// Notes the items that the procedure uses, and the SOURCE items that these are subscripts of.
bool SemanticChecker::checkDataAccessWayForRptDecl(DataIdentifierExpression &identifier) {
  DataDescription *entry = identifier.getDataDescription();
  if (!getInDeclaratives() || entry->getUsedRDListSize() == 0)
    return true;
  for (auto used = entry->getUsedRDListBegin(); used != entry->getUsedRDListEnd(); ++used)
    if (checkCurrentRD(*used))
      entry->setAccessWay(static_cast<int>(AccessWay::Used));
  for (ReportDataDescription *item : state->subscriptedSources.find(entry, state->usedSources))
    findUsedSrc(entry, item);
  return true;
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
  NodeList<IdentifierExpression> receivers{receiver};
  auto *move = generate<MoveStatement>(nullptr, source, &receivers, /*isCorresponding=*/false);
  move->setMoveRules(getMoveRule(source, receiver));
  context().addStmtToDummyListUsedMove(move);
}

} // namespace tarka
