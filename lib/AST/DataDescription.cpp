//===- DataDescription.cpp - data description entries ---------------------===//

#include "AST/DataDescription.h"
#include "AST/DataDivision.h"
#include "AST/DataTree.h"
#include "AST/Expression.h"
#include "AST/StorageLayout.h"
#include "llvm/ADT/DenseSet.h"
#include <new>

namespace tarka {

//===----------------------------------------------------------------------===//
// Clauses that compute
//===----------------------------------------------------------------------===//

std::int64_t ClauseOccurs::getMax() const {
  return maxExpr ? maxExpr->getIntegerValue() : 0;
}

std::int64_t ClauseOccurs::getMin() const {
  return minExpr ? minExpr->getIntegerValue() : 0;
}

std::int64_t ClauseOccurs::getMostOccurrences() const {
  return std::max<std::int64_t>(getMax(), 1);
}

std::int64_t ClauseOccurs::getLeastOccurrences() const {
  if (!isVariableTable())
    return getMostOccurrences();
  return minExpr ? std::clamp<std::int64_t>(getMin(), 0, getMostOccurrences()) : 1;
}

//===----------------------------------------------------------------------===//
// The entry and its place
//===----------------------------------------------------------------------===//

DataDescription::DataDescription(const DataDescription &entry, DescType descType)
    : Node(&entry), levelNum(entry.levelNum), type(descType), storage(entry.storage),
      dataName(entry.dataName), parent(entry.parent), picture(entry.picture), usage(entry.usage),
      occurs(entry.occurs), redefines(entry.redefines), value(entry.value) {
  if (!entry.rare)
    return;
  RareParts &parts = makeRareParts();
  parts = *entry.rare;
  parts.condNameParent = nullptr;
  parts.condNames = {};
  parts.redefineObject = nullptr;
  parts.redefineSubjects = {};
  parts.usedReports = {};
  parts.usedReportSet = nullptr;
  parts.reportItems = {};
}

DataDescription::RareParts &DataDescription::makeRareParts() {
  if (!rare)
    rare = new (allocateForever(sizeof(RareParts))) RareParts;
  return *rare;
}

void DataDescription::setDataName(Word *name) {
  if (division)
    division->unindexName(this);
  dataName = name;
  if (division)
    division->indexName(this);
}

const DataDescription *DataDescription::getRootDesc() const {
  const DataDescription *entry = this;
  while (entry->parent)
    entry = entry->parent;
  return entry;
}

DataDescription *DataDescription::getRootDesc() {
  return const_cast<DataDescription *>(std::as_const(*this).getRootDesc());
}

std::list<DataDescription *> *DataDescription::getChildrenList() {
  if (!children)
    children = makeList<DataDescription *>();
  subordinateData = Subordinates::Unknown;
  return children;
}

void DataDescription::setChildrenList(std::list<DataDescription *> *list) {
  children = list;
  childrenChanged();
}

void DataDescription::addChildren(DataDescription *child) {
  getChildrenList()->push_back(child);
  child->parent = this;
  subordinateData = Subordinates::Unknown;
  GroupLayout::childAdded(*this, nullptr);
  if (division)
    division->indexRecord(child);
}

void DataDescription::insertChildBefore(DataDescription *before, DataDescription *child) {
  getChildrenList()->insert(GroupLayout::placeOf(*this, *before), child);
  child->parent = this;
  subordinateData = Subordinates::Unknown;
  GroupLayout::childAdded(*this, before);
  if (division)
    division->indexRecord(child);
}

void DataDescription::childrenChanged() {
  subordinateData = Subordinates::Unknown;
  GroupLayout::listChanged(*this);
  if (division)
    division->indexRecord(this);
}

bool DataDescription::hasSubordinateData() const {
  // An item may have any number of condition names, and each of them looks up its item.
  if (subordinateData == Subordinates::Unknown) {
    auto isData = [](const DataDescription *child) { return child->levelNum != 88; };
    subordinateData = llvm::any_of(listOrEmpty(children), isData) ? Subordinates::Data
                                                                  : Subordinates::ConditionNames;
  }
  return subordinateData == Subordinates::Data;
}

bool DataDescription::isInTable() const {
  // Every reference asks, and most groups have many items.
  if (tableMembership == TableMembership::Unknown) {
    const DataDescription *owner = getOwner();
    const bool isInside = occurs || (owner && owner->isInTable());
    tableMembership = isInside ? TableMembership::Inside : TableMembership::Outside;
  }
  return tableMembership == TableMembership::Inside;
}

void DataDescription::findItemByName(std::list<DataDescription *> *found, const std::string &name) {
  forEachEntry(this, [&](DataDescription *entry) {
    if (entry->dataName && entry->dataName->getWordData() == name)
      found->push_back(entry);
  });
}

//===----------------------------------------------------------------------===//
// Clauses that affect storage
//===----------------------------------------------------------------------===//

/// Discards the layout of \p top and of the groups below it that inherit the changed clause of
/// \p top: not of those that have a clause of their own, for which \p hasOwn is true.
template <typename Predicate> static void renewInheritors(DataDescription *top, Predicate hasOwn) {
  forEachEntryIf(top, [&](DataDescription *entry) {
    if (entry != top && hasOwn(*entry))
      return false;
    if (entry->isGroupItem())
      GroupLayout::listChanged(*entry);
    return true;
  });
  GroupLayout::itemChanged(*top);
}

void DataDescription::clauseChanged() {
  renewInheritors(this, [](const DataDescription &) { return false; });
}

void DataDescription::setPicture(ClausePicture *clause) {
  picture = clause;
  GroupLayout::itemChanged(*this);
}

void DataDescription::setOccurs(ClauseOccurs *clause) {
  occurs = clause;
  tableMembership = TableMembership::Unknown;
  GroupLayout::itemChanged(*this);
}

void DataDescription::setRedefines(ClauseRedefines *clause) {
  redefines = clause;
  GroupLayout::itemChanged(*this);
}

void DataDescription::setRedefineObject(DataDescription *object) {
  setRare(&RareParts::redefineObject, object);
  GroupLayout::itemChanged(*this);
}

/// The USAGE of \p entry by its own clause or that of a group; None without any.
static UsageType writtenUsage(const DataDescription *entry) {
  for (; entry; entry = entry->getOwner()) {
    if (entry->getUsage())
      return entry->getUsage()->getType();
    if (entry->getGroupUsage())
      return UsageType::National;
  }
  return UsageType::None;
}

void DataDescription::setUsage(ClauseUsage *clause) {
  // Passing the clause of a group to its subordinates does not affect storage, and must not cost
  // another walk for every level.
  UsageType before = writtenUsage(this);
  usage = clause;
  if (writtenUsage(this) != before)
    renewInheritors(this, [](const DataDescription &entry) { return entry.usage != nullptr; });
}

void DataDescription::setGroupUsage(ClauseGroupUsage *clause) {
  UsageType before = writtenUsage(this);
  setRare(&RareParts::groupUsage, clause);
  if (writtenUsage(this) != before)
    renewInheritors(this, [](const DataDescription &entry) { return entry.usage != nullptr; });
}

/// SIGN ... SEPARATE applies to \p entry by its own clause or that of a group.
static bool writtenSeparate(const DataDescription *entry) {
  for (; entry; entry = entry->getOwner())
    if (entry->getSign())
      return entry->getSign()->isSeperate();
  return false;
}

void DataDescription::setSign(ClauseSign *clause) {
  bool before = writtenSeparate(this);
  setRare(&RareParts::sign, clause);
  if (writtenSeparate(this) != before)
    renewInheritors(this, [](const DataDescription &entry) { return entry.getSign() != nullptr; });
}

//===----------------------------------------------------------------------===//
// What follows from the clauses
//===----------------------------------------------------------------------===//

UsageType DataDescription::getUsageType() const {
  if (levelNum == 66) {
    const DataDescription *renamed = getSingleRenamed();
    bool isItem = renamed && !renamed->hasSubordinateData();
    return isItem ? renamed->getUsageType() : UsageType::Display;
  }
  const DataDescription *item = getStorageItem();
  if (UsageType written = writtenUsage(item); written != UsageType::None)
    return written;
  switch (item->picture ? item->picture->getDataCategory() : DataCategory::Unclassified) {
  case DataCategory::National:
  case DataCategory::NationalEdited:
    return UsageType::National;
  case DataCategory::Dbcs:
    return UsageType::Display1;
  default:
    return UsageType::Display;
  }
}

bool DataDescription::hasSeparateSign() const {
  if (!picture || !picture->isSigned() || !writtenSeparate(this))
    return false;
  UsageType usageType = getUsageType();
  return usageType == UsageType::Display || usageType == UsageType::National;
}

/// The category of an item that has a usage and no PICTURE.
static DataCategory categoryOfUsage(UsageType usage) {
  switch (usage) {
  case UsageType::Index:
    return DataCategory::Index;
  case UsageType::Pointer:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    return DataCategory::Pointer;
  case UsageType::Comp1:
  case UsageType::Comp2:
    return DataCategory::InternalFloat;
  default:
    return DataCategory::Unclassified;
  }
}

DataCategory DataDescription::getDataCategory() const {
  if (levelNum == 66) {
    const DataDescription *renamed = getSingleRenamed();
    return renamed ? renamed->getDataCategory() : DataCategory::Alphanumeric;
  }
  const DataDescription *item = getStorageItem();
  if (item->hasSubordinateData()) {
    // What is subordinate to a national group is national as well.
    for (const DataDescription *group = item; group; group = group->parent)
      if (group->getGroupUsage())
        return DataCategory::National;
    return DataCategory::Alphanumeric;
  }
  return item->picture ? item->picture->getDataCategory() : categoryOfUsage(item->getUsageType());
}

//===----------------------------------------------------------------------===//
// Condition names, redefinitions, sections
//===----------------------------------------------------------------------===//

void DataDescription::addCondNameChildren(DataDescription *conditionName) {
  makeRareParts().condNames.push_back(conditionName);
  if (division)
    division->indexRecord(conditionName);
}

void DataDescription::addRedefineSubject(DataDescription *subject) {
  makeRareParts().redefineSubjects.push_back(subject);
}

StorageType DataDescription::getStorageType() const {
  for (const DataDescription *entry = this; entry; entry = entry->getOwner()) {
    if (entry->storage != StorageType::None)
      return entry->storage;
    if (entry->rareParts().file)
      return StorageType::File;
    if (entry->rareParts().report)
      return StorageType::Report;
  }
  return StorageType::WorkingStorage;
}

FileDescription *DataDescription::getFileDescription() const {
  for (const DataDescription *entry = this; entry; entry = entry->getOwner())
    if (FileDescription *file = entry->rareParts().file)
      return file;
  return nullptr;
}

ReportDescription *DataDescription::getReportDescription() const {
  for (const DataDescription *entry = this; entry; entry = entry->getOwner())
    if (ReportDescription *report = entry->rareParts().report)
      return report;
  return nullptr;
}

//===----------------------------------------------------------------------===//
// Results of the checks
//===----------------------------------------------------------------------===//

bool DataDescription::checkContainsOdo() const {
  if (containsOdo)
    return true;
  bool found = false;
  forEachEntryIf(const_cast<DataDescription *>(this), [&](const DataDescription *entry) {
    if (entry != this && entry->occurs && entry->occurs->isVariableTable())
      found = true;
    return !found;
  });
  return found;
}

struct DataDescription::ReportSet : llvm::DenseSet<ReportDescription *> {
  using DenseSet::DenseSet;
};

void DataDescription::addUsedRD(ReportDescription *report) {
  constexpr std::size_t few = 16;
  RareParts &parts = makeRareParts();
  const bool isNew = parts.usedReportSet ? parts.usedReportSet->insert(report).second
                                         : !llvm::is_contained(parts.usedReports, report);
  if (!isNew)
    return;
  parts.usedReports.push_back(report);
  if (parts.usedReports.size() == few)
    parts.usedReportSet = makeOwner<ReportSet>(parts.usedReports.begin(), parts.usedReports.end());
}

void DataDescription::addGenDE(ReportDataDescription *item) {
  makeRareParts().reportItems.push_back(item);
}

} // namespace tarka
