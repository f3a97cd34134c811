//===- SCDataOccurs.cpp - OCCURS ----------------------------------------===//
//
// The bounds of a table, its keys, its index names, and the object of DEPENDING
// ON. On the way keys are qualified, and every index name gets an entry.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

namespace {

constexpr std::size_t MaxKeys = 12;

bool isKeyUsage(UsageType usage) {
  switch (usage) {
  case UsageType::None:
  case UsageType::Index:
  case UsageType::Pointer:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    return false;
  default:
    return true;
  }
}

/// A key that is written without qualifiers is an item of this very table, so it is qualified by
/// the table, unless it is the table itself, and by all groups around it.
void qualifyKey(DataIdentifierExpression &key, const DataDescription &table) {
  QualifiedWord *name = key.getQualifiedWord();
  if (name->getNamesSize() != 1)
    return;
  auto isName = [&](const Word *word) {
    return word && (*name->getNamesBegin())->getWordData() == word->getWordData();
  };
  if (table.getDataName() && !isName(table.getDataName()))
    name->addNames(table.getDataName());
  for (const DataDescription *group = table.getParent(); group; group = group->getParent())
    if (group->getDataName())
      name->addNames(group->getDataName());
  key.setQualifiedWord(name);
}

/// The only item called \p name in \p table, which may be the table itself; null when there is none
/// or more than one.
DataDescription *findOnlyItemOf(DataDescription &table, const Word &name) {
  DataDescription *found = nullptr;
  unsigned count = 0;
  llvm::SmallVector<DataDescription *, 16> rest{&table};
  while (!rest.empty()) {
    DataDescription *item = rest.pop_back_val();
    if (item->getDataName() && item->getDataName()->getWordData() == name.getWordData()) {
      found = item;
      ++count;
    }
    rest.append(item->getChildrenElements().begin(), item->getChildrenElements().end());
  }
  return count == 1 ? found : nullptr;
}

/// The check of one OCCURS clause.
class OccursCheck {
public:
  OccursCheck(SemanticChecker &theChecker, DataDescription &subject)
      : checker(theChecker), table(subject), occurs(*subject.getOccurs()) {}

  bool check();

private:
  enum class KeyResult { Right, Wrong, OutsideTable };

  bool checkBounds();
  /// Whether the keys are right; OutsideTable as soon as one is not an item of the table.
  KeyResult checkKeys();
  KeyResult checkKey(Expression *operand);
  bool bindKey(DataIdentifierExpression &key);
  void createIndexNames();
  bool checkDepending();

  SemanticChecker &checker;
  DataDescription &table;
  const ClauseOccurs &occurs;
};

bool OccursCheck::check() {
  bool ok = true;
  if (table.getLevelNum() == 66 || table.getLevelNum() == 77 || table.getLevelNum() == 88)
    ok = checker.report(ErrorCode::OccursLevelNumber, &table);
  ok &= checkBounds();
  switch (checkKeys()) {
  case KeyResult::OutsideTable:
    // The rest of the clause is not checked: the table has no index names then either.
    return false;
  case KeyResult::Wrong:
    ok = false;
    break;
  case KeyResult::Right:
    break;
  }
  createIndexNames();
  if (occurs.getOdoName())
    ok &= checkDepending();
  return ok;
}

/// OCCURS max, or OCCURS min TO max with max above min.
bool OccursCheck::checkBounds() {
  bool ok = true;
  if (NumericLiteralExpression *max = occurs.getMaxExpr()) {
    ok &= checker.semanticCheck(*max);
    if (!max->isInteger())
      ok = checker.report(ErrorCode::OccursRangeNotInteger, &table);
    // A maximum of 0 shares the message of the minimum.
    if (occurs.getMax() < 1)
      ok = checker.report(ErrorCode::OccursMinimumNotPositive, &table);
  } else {
    ok = checker.report(ErrorCode::OccursNotInteger, &table);
  }
  if (NumericLiteralExpression *min = occurs.getMinExpr()) {
    ok &= checker.semanticCheck(*min);
    if (!min->isInteger())
      ok = checker.report(ErrorCode::OccursRangeNotInteger, &table);
    if (occurs.getMin() < 0)
      ok = checker.report(ErrorCode::OccursMinimumNegative, &table);
    if (occurs.getMax() <= occurs.getMin())
      ok = checker.report(ErrorCode::OccursMaximumNotAboveMinimum, &table);
  }
  return ok;
}

OccursCheck::KeyResult OccursCheck::checkKeys() {
  KeyResult result = KeyResult::Right;
  std::size_t count = 0;
  for (const Key *phrase : occurs.getKeysElements()) {
    // Once there are too many, every further phrase is reported as well.
    count += phrase->getDataListSize();
    if (count > MaxKeys) {
      checker.report(ErrorCode::OccursTooManyKeys, &table);
      result = KeyResult::Wrong;
    }
    for (Expression *operand : phrase->getDataListElements()) {
      KeyResult one = checkKey(operand);
      if (one == KeyResult::OutsideTable)
        return one;
      if (one == KeyResult::Wrong)
        result = one;
    }
  }
  return result;
}

/// Qualification cannot tell the keys of tables without a name apart; the table itself can.
bool OccursCheck::bindKey(DataIdentifierExpression &key) {
  DataDescription *item = nullptr;
  if (followsEnterprise(EnterpriseRule::KeyOfTable) && key.getQualifiedWord()->getNamesSize() == 1)
    item = findOnlyItemOf(table, **key.getQualifiedWord()->getNamesBegin());
  qualifyKey(key, table);
  if (!item)
    return checker.semanticCheck(key);
  key.setDataDescription(item);
  return true;
}

/// A key is the table itself or an item below it, with no other table in between.
OccursCheck::KeyResult OccursCheck::checkKey(Expression *operand) {
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(operand);
  if (!identifier) {
    checker.report(ErrorCode::OccursKeyNotDataIdentifier, &table, *operand);
    return KeyResult::Wrong;
  }
  if (!bindKey(*identifier)) {
    checker.report(ErrorCode::OccursKeyUnresolved, identifier);
    return KeyResult::Wrong;
  }
  KeyResult result = KeyResult::Right;
  auto fail = [&](ErrorCode code, KeyResult how) {
    checker.report(code, &table, *identifier);
    result = how;
  };
  const DataDescription *item = identifier->getDataDescription();
  if (!isKeyUsage(item->getUsageType()))
    fail(ErrorCode::OccursKeyUsage, KeyResult::Wrong);
  if (item == &table)
    return result;

  const DataDescription *tableBetween = nullptr;
  const DataDescription *group = item->getParent();
  for (; group && group != &table; group = group->getParent())
    if (!tableBetween && group->getOccurs())
      tableBetween = group;
  if (!group) {
    fail(ErrorCode::OccursKeyNotSubordinate, KeyResult::OutsideTable);
    return result;
  }
  if (item->getOccurs())
    fail(ErrorCode::OccursKeyHasOccurs, KeyResult::Wrong);
  if (tableBetween)
    fail(ErrorCode::OccursKeyHasOccurs, KeyResult::Wrong);
  return result;
}

/// Every index name becomes an entry of level 01 at the end of working-storage. It has the parent
/// of its table as long as the program is being checked, so that it can be qualified.
void OccursCheck::createIndexNames() {
  DataDivision *division = currentDivision();
  for (DataIdentifierExpression *name : occurs.getIndexListElements()) {
    auto *entry = generate<DataDescription>(nullptr);
    entry->setLevelNum(1);
    entry->setUsage(generate<ClauseUsage>(nullptr, UsageType::Index));
    entry->setDataName(*name->getQualifiedWord()->getNamesBegin());
    entry->setIsCompilerMade(true);
    if (DataDescription *group = table.getParent()) {
      entry->setParent(group);
      checker.addIndexFreeList(entry);
    }
    if (division)
      division->addWorkSection(entry);
    name->setDataDescription(entry);
  }
}

/// The object of DEPENDING ON is an integer item outside the table, and GLOBAL if the table is.
bool OccursCheck::checkDepending() {
  bool isGlobal = false;
  for (DataDescription *group = table.getParent(); group; group = group->getParent()) {
    group->setContainsOdo(true);
    isGlobal |= group->getGlobal() != nullptr;
  }
  auto *name = llvm::dyn_cast<DataIdentifierExpression>(occurs.getOdoName());
  if (!name)
    return checker.report(ErrorCode::OccursDependingNotInteger, &table);
  if (!checker.semanticCheck(*name))
    return false;

  bool ok = true;
  const DataDescription *object = name->getDataDescription();
  // The GLOBAL clause of the object itself counts, not that of its record.
  const bool isObjectGlobal =
      object->getGlobal() || (followsEnterprise(EnterpriseRule::DependingInGlobalRecord) &&
                              object->getRootDesc()->getGlobal());
  if (isGlobal && !isObjectGlobal)
    ok = checker.report(ErrorCode::OccursDependingNotGlobal, name);
  if (object->getDataCategory() != DataCategory::Numeric || !name->isInteger())
    ok = checker.report(ErrorCode::OccursDependingNotInteger, &table, *name);
  for (const DataDescription *item = object; item; item = item->getParent())
    if (item == &table)
      ok = checker.report(ErrorCode::OccursDependingInTable, &table);
  return ok;
}

} // namespace

bool SemanticChecker::checkClauseOccurs(DataDescription &table) {
  return OccursCheck(*this, table).check();
}

} // namespace tarka
