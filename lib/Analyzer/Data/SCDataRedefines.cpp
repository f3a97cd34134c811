//===- SCDataRedefines.cpp - REDEFINES, RENAMES, SIGN, DATE FORMAT --------===//
//
// The clauses that look at other entries: what REDEFINES and RENAMES mean, and
// the SIGN that a group hands down to its items. And DATE FORMAT, which only
// names a pattern.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Program.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// REDEFINES: the object
//===----------------------------------------------------------------------===//

/// The list in which \p entry and what it can redefine stand; null when there is none.
static const std::list<DataDescription *> *listOf(const DataDescription &entry) {
  if (const DataDescription *group = entry.getParent())
    return &group->getChildrenElements();
  DataDivision *division = currentDivision();
  switch (entry.getStorageType()) {
  case StorageType::File:
    return entry.getFileDescription() ? &entry.getFileDescription()->getRecordDescElements()
                                      : nullptr;
  case StorageType::WorkingStorage:
    return division ? division->getWorkSection() : nullptr;
  case StorageType::LocalStorage:
    return division ? &division->getLocalSectionElements() : nullptr;
  case StorageType::Linkage:
    return division ? &division->getLinkSectionElements() : nullptr;
  default:
    return nullptr;
  }
}

/// The entries before \p subject in \p list; null when it is the first one or not in the list.
///
/// Subjects come in the order of the list, so each search goes on where the last one ended.
RedefinableEntries *SemanticChecker::findRedefinable(const DataDescription &subject,
                                                     const std::list<DataDescription *> &list) {
  std::unique_ptr<RedefinableEntries> &entries = state->redefinableEntries[&list];
  for (bool isFromStart : {false, true}) {
    if (!entries || isFromStart)
      entries = std::make_unique<RedefinableEntries>(list);
    for (auto &next = entries->next; next != list.end(); ++next) {
      if (*next == &subject)
        return next == list.begin() ? nullptr : entries.get();
      // No search leads back beyond an entry without a name.
      if (const Word *name = (*next)->getDataName())
        entries->byName[&name->getWordData()] = *next;
      else
        entries->byName.clear();
    }
  }
  return nullptr;
}

/// The entry called \p name that \p subject redefines: the nearest one before it, with nothing in
/// between but what redefines the same storage. Null, with a diagnostic, when there is none.
DataDescription *SemanticChecker::findRedefinedEntry(DataDescription &subject, const Word &name) {
  const std::list<DataDescription *> *list = listOf(subject);
  const RedefinableEntries *entries = list ? findRedefinable(subject, *list) : nullptr;
  if (!entries) {
    report(ErrorCode::RedefinesTargetMissing, &subject);
    return nullptr;
  }
  DataDescription *candidate = entries->byName.lookup(&name.getWordData());
  const DataDescription *before = *std::prev(entries->next);
  auto isReachable = [&] {
    if (!candidate)
      return false;
    if (candidate == before)
      return true;
    if (!before->getRedefines())
      return false;
    if (before->getRedefineObject() == candidate)
      return true;
    return candidate->getRedefines() &&
           before->getRedefineObject() == candidate->getRedefineObject();
  };
  if (!isReachable()) {
    report(ErrorCode::RedefinesWrongFieldOrHierarchy, &subject);
    return nullptr;
  }
  // What redefines is linked to the entry whose storage it is. If that could not be found, it has
  // been reported there.
  return candidate->getRedefines() ? candidate->getRedefineObject() : candidate;
}

//===----------------------------------------------------------------------===//
// REDEFINES: the rules
//===----------------------------------------------------------------------===//

/// The name of the operation is spelt so on purpose.
bool SemanticChecker::checkClauseRedifines(DataDescription &entry) {
  if (entry.getLevelNum() == 66 || entry.getLevelNum() == 88)
    return report(ErrorCode::RedefinesWrongFieldOrHierarchy, &entry);

  bool ok = true;
  auto *named =
      llvm::dyn_cast_if_present<DataIdentifierExpression>(entry.getRedefines()->getData());
  if (named && named->getQualifiedWord() && named->getQualifiedWord()->getNamesSize() != 0) {
    // Qualifiers say nothing here: the object stands beside the subject.
    const Word *word = *named->getQualifiedWord()->getNamesBegin();
    DataDescription *object = findRedefinedEntry(entry, *word);
    if (!object)
      return false;
    entry.setRedefineObject(object);
    object->addRedefineSubject(&entry);
    ok = checkRedefinition(entry, *object);
  } else {
    ok = report(ErrorCode::RedefinesTargetMissing, &entry);
  }

  // What is initialised with the object is then as long as the subject.
  if (CompileOption::getCompileOptionInstance()->isOptionInit())
    if (DataDescription *object = entry.getRedefineObject())
      if (entry.getAllocSize() > object->getAllocSize())
        object->getRootDesc()->setHaveValue(true);
  return ok;
}

/// A subject that is larger than its object is right, unless the object is EXTERNAL.
bool SemanticChecker::checkRedefinition(DataDescription &subject, const DataDescription &object) {
  bool ok = true;
  if (object.getLevelNum() == 66 || object.getLevelNum() == 88)
    ok = report(ErrorCode::RedefinesLevel66Or88, &subject);
  if ((subject.getOccurs() && subject.getOccurs()->isVariableTable()) || object.getOccurs())
    ok = report(ErrorCode::RedefinesObjectOccurs, &subject);
  if (subject.getExternal())
    ok = report(ErrorCode::RedefinesSubjectExternal, &subject);
  if (object.getGlobal())
    ok = report(ErrorCode::RedefinesObjectGlobal, &subject);
  if (object.getExternal() && subject.getAllocSize() > object.getAllocSize())
    ok = report(ErrorCode::RedefinesExternalObjectSmaller, &subject);
  return ok;
}

//===----------------------------------------------------------------------===//
// RENAMES
//===----------------------------------------------------------------------===//

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
    // What another program has declared is never found under the name of an entry of this one.
    const auto *namesakes = division->findItemByName(entry.getDataName()->getWordData());
    return namesakes && !namesakes->empty();
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
  // From here on the result is about the range only, on purpose.
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

//===----------------------------------------------------------------------===//
// SIGN
//===----------------------------------------------------------------------===//

/// The SIGN of a group goes down to every item that has none; one that can have it is enough.
bool SemanticChecker::checkClauseSign(DataDescription &entry) {
  if (!entry.isGroupItem()) {
    if (!checkSignElement(&entry, nullptr))
      return report(ErrorCode::SignUsageOrPicture, &entry);
    return true;
  }
  bool isUsed = false;
  for (DataDescription *child : entry.getChildrenElements())
    isUsed |= checkSignElement(child, entry.getSign());
  if (!isUsed)
    return report(ErrorCode::SignGroupWithoutSignedItem, &entry);
  return true;
}

bool SemanticChecker::checkSignElement(DataDescription *item, ClauseSign *inherited) {
  if (inherited) {
    // A clause of its own has been looked at with the item itself.
    if (item->getSign())
      return true;
    item->setSign(inherited);
  }
  const ClauseSign *sign = item->getSign();
  if (item->isGroupItem()) {
    bool isUsed = false;
    for (DataDescription *child : item->getChildrenElements())
      isUsed |= checkSignElement(child, item->getSign());
    return isUsed;
  }

  const ClausePicture *picture = item->getPicture();
  if (!picture)
    return report(ErrorCode::SignNeedsPicture, item);
  bool ok = true;
  const UsageType usage = item->getUsageType();
  if (!picture->isSigned())
    ok = report(ErrorCode::SignNotSignedNumeric, item);
  if (usage != UsageType::Display && usage != UsageType::National)
    ok = report(ErrorCode::SignUsageNotDisplayOrNational, item);
  if (sign && sign->isSeperate() && usage == UsageType::National)
    ok = report(ErrorCode::SignSeparateUsageNotDisplay, item);
  return ok;
}

//===----------------------------------------------------------------------===//
// DATE FORMAT
//===----------------------------------------------------------------------===//

/// In the order of PattenType, from 1.
static constexpr llvm::StringLiteral datePatterns[] = {
    "YY",      "YYX",      "YYXX",    "YYXXX", "YYXXXX", "YYYY",     "YYYYX", "YYYYXX",
    "YYYYXXX", "YYYYXXXX", "X",       "XYY",   "XYYYY",  "XX",       "XXYY",  "XXYYYY",
    "XXX",     "XXXYY",    "XXXYYYY", "XXXX",  "XXXXYY", "XXXXYYYY",
};
static_assert(std::size(datePatterns) == static_cast<std::size_t>(PattenType::XXXXYYYY));

/// Without date processing the clause says nothing and is taken away. A pattern that is none of
/// the known ones stays as it is, silently: on purpose.
bool SemanticChecker::checkClauseDateFormat(DataDescription &entry) {
  if (!CompileOption::getCompileOptionInstance()->isOptionDateproc()) {
    entry.setDateFormat(nullptr);
    return true;
  }
  ClauseDateFormat *format = entry.getDateFormat();
  const auto *pattern = llvm::find(datePatterns, format->getPatten()->getWordData());
  if (pattern != std::end(datePatterns))
    format->setPattenType(static_cast<PattenType>(pattern - std::begin(datePatterns) + 1));
  return true;
}

} // namespace tarka
