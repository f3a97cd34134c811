//===- SCDataRenames.cpp - RENAMES --------------------------------------===//
//
// The items that a level 66 renames: one item, or a range. An item of a table cannot
// be renamed, and a range must not contain a table of variable length.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

namespace {

/// The places of entries in the source of one section. Entries of other sections and of other
/// programs have none.
class SectionOrder {
public:
  explicit SectionOrder(const DataDescription &entry)
      : division(currentDivision()), section(entry.getStorageType()) {}

  bool holds(const DataDescription &entry) const {
    if (!division || entry.getStorageType() != section || !entry.getDataName())
      return false;
    // A name that this program declares is never bound to an entry of another one.
    return division->findFirstItemByInternedName(&entry.getDataName()->getWordData());
  }

  /// The OCCURS DEPENDING ON tables after \p first and before \p last, in source order; all after
  /// \p first when \p last is null.
  llvm::SmallVector<DataDescription *, 4> tablesBetween(const DataDescription &first,
                                                        const DataDescription *last) const {
    llvm::ArrayRef<DataDescription *> tables = division->getVariableTables();
    auto isBefore = [](unsigned order, const DataDescription *table) {
      return order < table->getSourceOrder();
    };
    llvm::SmallVector<DataDescription *, 4> found;
    for (auto table = llvm::upper_bound(tables, first.getSourceOrder(), isBefore);
         table != tables.end() && (!last || (*table)->getSourceOrder() < last->getSourceOrder());
         ++table)
      if ((*table)->getStorageType() == section)
        found.push_back(*table);
    return found;
  }

private:
  DataDivision *division;
  StorageType section;
};

} // namespace

bool SemanticChecker::checkClauseRenames(DataDescription &entry) {
  bool ok = true;
  if (entry.getLevelNum() != 66)
    ok = report(ErrorCode::RenamesNotLevel66, &entry);
  const ClauseRenames &renames = *entry.getRenames();
  auto *from = llvm::dyn_cast_if_present<DataIdentifierExpression>(renames.getFromData());
  if (!from)
    return report(ErrorCode::RenamesScopeInvalid, &entry);
  if (!semanticCheck(*from))
    return false;
  DataDescription *first = from->getDataDescription();
  checkDataRenames(first);

  if (!renames.getToData())
    return ok;
  auto *thru = llvm::dyn_cast<DataIdentifierExpression>(renames.getToData());
  if (!thru)
    return report(ErrorCode::RenamesScopeInvalid, &entry);
  if (!semanticCheck(*thru))
    return false;
  DataDescription *last = thru->getDataDescription();
  // From here on only the range counts for the result. Errors in the items have been reported.
  checkDataRenames(last);
  if (last == first)
    return report(ErrorCode::RenamesThruSubordinate, thru);

  const SectionOrder order(entry);
  const bool hasFirst = order.holds(*first);
  const bool hasLast = order.holds(*last);
  const bool isInOrder = hasFirst && (!hasLast || first->getSourceOrder() < last->getSourceOrder());
  ok = true;
  if (isInOrder)
    for (DataDescription *table : order.tablesBetween(*first, hasLast ? last : nullptr))
      ok = report(ErrorCode::RenamesOccursDepending, table);
  if (!hasLast)
    return ok;
  if (!isInOrder)
    ok = report(ErrorCode::RenamesScopeInvalid, &entry);
  for (const DataDescription *group = last->getParent(); group; group = group->getParent())
    if (group == first)
      ok = report(ErrorCode::RenamesThruSubordinate, thru);
  return ok;
}

bool SemanticChecker::checkDataRenames(DataDescription *renamed) {
  bool ok = true;
  const unsigned level = renamed->getLevelNum();
  if (level == 1 || level == 66 || level == 77 || level == 88)
    ok = report(ErrorCode::RenamesLevelNumber, renamed);
  for (DataDescription *item = renamed; item; item = item->getParent())
    if (item->getOccurs())
      ok = report(ErrorCode::RenamesOccurs, item);
  return ok;
}

} // namespace tarka
