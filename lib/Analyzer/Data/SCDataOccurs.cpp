//===- SCDataOccurs.cpp - OCCURS ------------------------------------------===//
//
// The bounds of a table, its keys, its index names, and the object of DEPENDING
// ON. On the way keys are qualified, and every index name gets an entry.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

bool SemanticChecker::checkClauseOccurs(DataDescription &table) {
  bool ok = true;
  if (table.getLevelNum() == 66 || table.getLevelNum() == 77 || table.getLevelNum() == 88)
    ok = report(ErrorCode::OccursLevelNumber, &table);
  ok &= checkOccursBounds(table);
  switch (checkOccursKeys(table)) {
  case KeyResult::OutsideTable:
    // The rest of the clause is not looked at, on purpose: it has no index names then either.
    return false;
  case KeyResult::Wrong:
    ok = false;
    break;
  case KeyResult::Right:
    break;
  }
  createIndexNames(table);
  if (table.getOccurs()->getOdoName())
    ok &= checkOccursDepending(table);
  return ok;
}

//===----------------------------------------------------------------------===//
// Bounds
//===----------------------------------------------------------------------===//

/// OCCURS max, or OCCURS min TO max with max above min.
bool SemanticChecker::checkOccursBounds(DataDescription &table) {
  bool ok = true;
  const ClauseOccurs &occurs = *table.getOccurs();
  if (NumericLiteralExpression *max = occurs.getMaxExpr()) {
    ok &= semanticCheck(*max);
    if (!max->isInteger())
      ok = report(ErrorCode::OccursRangeNotInteger, &table);
    // The message speaks of the minimum, on purpose.
    if (occurs.getMax() < 1)
      ok = report(ErrorCode::OccursMinimumNotPositive, &table);
  } else {
    ok = report(ErrorCode::OccursNotInteger, &table);
  }
  if (NumericLiteralExpression *min = occurs.getMinExpr()) {
    ok &= semanticCheck(*min);
    if (!min->isInteger())
      ok = report(ErrorCode::OccursRangeNotInteger, &table);
    if (occurs.getMin() < 0)
      ok = report(ErrorCode::OccursMinimumNegative, &table);
    if (occurs.getMax() <= occurs.getMin())
      ok = report(ErrorCode::OccursMaximumNotAboveMinimum, &table);
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// Keys
//===----------------------------------------------------------------------===//

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

} // namespace

SemanticChecker::KeyResult SemanticChecker::checkOccursKeys(DataDescription &table) {
  KeyResult result = KeyResult::Right;
  std::size_t count = 0;
  for (const Key *phrase : table.getOccurs()->getKeysElements()) {
    // Once too many, every further phrase reports as well.
    count += phrase->getDataListSize();
    if (count > MaxKeys) {
      report(ErrorCode::OccursTooManyKeys, &table);
      result = KeyResult::Wrong;
    }
    for (Expression *key : phrase->getDataListElements()) {
      KeyResult one = checkOccursKey(table, key);
      if (one == KeyResult::OutsideTable)
        return one;
      if (one == KeyResult::Wrong)
        result = one;
    }
  }
  return result;
}

/// A key is the table itself or an item below it, and no table lies on the way.
SemanticChecker::KeyResult SemanticChecker::checkOccursKey(DataDescription &table,
                                                           Expression *key) {
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(key);
  if (!identifier) {
    report(ErrorCode::OccursKeyNotDataIdentifier, &table);
    return KeyResult::Wrong;
  }
  qualifyKey(*identifier, table);
  if (!semanticCheck(*identifier)) {
    report(ErrorCode::OccursKeyUnresolved, identifier);
    return KeyResult::Wrong;
  }
  KeyResult result = KeyResult::Right;
  auto fail = [&](ErrorCode code, KeyResult how) {
    report(code, &table);
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

//===----------------------------------------------------------------------===//
// Index names
//===----------------------------------------------------------------------===//

/// Every index name becomes an entry of level 01 at the end of working-storage. It has the parent
/// of its table as long as the program is being checked, so that it can be qualified.
void SemanticChecker::createIndexNames(DataDescription &table) {
  DataDivision *division = currentDivision();
  for (DataIdentifierExpression *name : table.getOccurs()->getIndexListElements()) {
    auto *entry = new DataDescription(nullptr);
    entry->setLevelNum(1);
    entry->setUsage(new ClauseUsage(nullptr, UsageType::Index));
    entry->setDataName(*name->getQualifiedWord()->getNamesBegin());
    entry->setIsCompilerMade(true);
    if (DataDescription *group = table.getParent()) {
      entry->setParent(group);
      addIndexFreeList(entry);
    }
    if (division)
      division->addWorkSection(entry);
    name->setDataDescription(entry);
  }
}

//===----------------------------------------------------------------------===//
// DEPENDING ON
//===----------------------------------------------------------------------===//

/// The object of DEPENDING ON is an integer item outside the table, and GLOBAL if the table is.
bool SemanticChecker::checkOccursDepending(DataDescription &table) {
  bool isGlobal = false;
  for (DataDescription *group = table.getParent(); group; group = group->getParent()) {
    group->setContainsOdo(true);
    isGlobal |= group->getGlobal() != nullptr;
  }
  auto *name = llvm::dyn_cast<DataIdentifierExpression>(table.getOccurs()->getOdoName());
  if (!name)
    return report(ErrorCode::OccursDependingNotInteger, &table);
  if (!semanticCheck(*name))
    return false;

  bool ok = true;
  const DataDescription *object = name->getDataDescription();
  // The clause of the object itself counts, on purpose, not that of its record.
  if (isGlobal && !object->getGlobal())
    ok = report(ErrorCode::OccursDependingNotGlobal, name);
  if (object->getDataCategory() != DataCategory::Numeric || !name->isInteger())
    ok = report(ErrorCode::OccursDependingNotInteger, &table);
  for (const DataDescription *item = object; item; item = item->getParent())
    if (item == &table)
      ok = report(ErrorCode::OccursDependingInTable, &table);
  return ok;
}

} // namespace tarka
