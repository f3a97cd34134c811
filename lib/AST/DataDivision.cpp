//===- DataDivision.cpp - sections and the name index ---------------------===//

#include "AST/DataDivision.h"
#include "AST/DataTree.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Sections
//===----------------------------------------------------------------------===//

void DataDivision::setWorkSection(std::list<DataDescription *> *list) {
  if (list == workSection)
    return;
  if (!indexedWork.isAtStart())
    forgetIndex();
  workSection = list;
  workFlatList.clear();
  flatWork = {};
}

void DataDivision::addWorkSection(DataDescription *entry) {
  if (!workSection)
    workSection = makeList<DataDescription *>();
  entry->setStorageType(StorageType::WorkingStorage);
  workSection->push_back(entry);
}

void DataDivision::addLocalSection(DataDescription *entry) {
  entry->setStorageType(StorageType::LocalStorage);
  localSection.push_back(entry);
}

void DataDivision::addLinkSection(DataDescription *entry) {
  entry->setStorageType(StorageType::Linkage);
  linkSection.push_back(entry);
}

std::list<DataDescription *> *DataDivision::getWorkFlatList() {
  flatWork.readOn(workSection, [this](DataDescription *record) {
    forEachEntry(record, [this](DataDescription *entry) { workFlatList.push_back(entry); });
  });
  return &workFlatList;
}

//===----------------------------------------------------------------------===//
// The name index
//===----------------------------------------------------------------------===//

std::list<DataDescription *> *DataDivision::findItemByName(const std::string &name) {
  return findItemByInternedName(&internString(name));
}

llvm::ArrayRef<DataDescription *>
DataDivision::findItemByQualifiedName(const std::string &name, const std::string &qualifier) {
  std::list<DataDescription *> *homonyms = findItemByName(name);
  if (!homonyms)
    return {};
  std::unique_ptr<QualifiedNames> &names = qualifiedIndex[&internString(name)];
  if (!names)
    names = std::make_unique<QualifiedNames>();
  names->readOn(*homonyms, [&](DataDescription *entry) {
    // The checks will name entries without a name FILLER.
    for (const DataDescription *group = entry->getOwner(); group; group = group->getOwner())
      names->addOnce(group->getDataName() ? group->getDataName()->getWordData()
                                          : internString("FILLER"),
                     entry);
    if (const FileDescription *file = entry->getFileDescription())
      names->addOnce(file->getFileName()->getWordData(), entry);
    if (const ReportDescription *report = entry->getReportDescription())
      names->addOnce(report->getReportName()->getWordData(), entry);
  });
  return names->find(qualifier);
}

bool DataDivision::isFileOrReportName(const std::string &name) {
  updateIndex();
  return fileAndReportNames.contains(&internString(name));
}

llvm::ArrayRef<DataDescription *> DataDivision::getVariableTables() {
  updateIndex();
  return variableTables;
}

void DataDivision::indexNewRoots() {
  auto readRecord = [this](DataDescription *record) { indexRecord(record); };
  indexedFiles.readOn(&fileSection, [&](FileDescription *file) {
    file->division = this;
    fileAndReportNames.insert(&file->getFileName()->getWordData());
    llvm::for_each(file->records, readRecord);
  });
  indexedWork.readOn(workSection, readRecord);
  indexedLocal.readOn(&localSection, readRecord);
  indexedLink.readOn(&linkSection, readRecord);
  indexedReports.readOn(&reportSection, [&](ReportDescription *report) {
    report->division = this;
    fileAndReportNames.insert(&report->getReportName()->getWordData());
    llvm::for_each(report->records, readRecord);
  });
}

void DataDivision::forgetIndex() {
  auto forgetRecord = [](DataDescription *record) {
    forEachEntry(record, [](DataDescription *entry) {
      entry->division = nullptr;
      entry->sourceOrder = 0;
    });
  };
  for (FileDescription *file : fileSection) {
    file->division = nullptr;
    llvm::for_each(file->records, forgetRecord);
  }
  llvm::for_each(listOrEmpty(workSection), forgetRecord);
  llvm::for_each(localSection, forgetRecord);
  llvm::for_each(linkSection, forgetRecord);
  for (ReportDescription *report : reportSection) {
    report->division = nullptr;
    llvm::for_each(report->records, forgetRecord);
  }
  index.clear();
  qualifiedIndex.clear();
  fileAndReportNames.clear();
  variableTables.clear();
  indexedEntries = 0;
  indexedRoots = 0;
  indexedWork = indexedLocal = indexedLink = {};
  indexedFiles = {};
  indexedReports = {};
}

void DataDivision::indexRecord(DataDescription *root) {
  forEachEntry(root, [this](DataDescription *entry) {
    if (entry->division)
      return;
    entry->division = this;
    entry->sourceOrder = ++indexedEntries;
    indexName(entry);
    if (entry->getOccurs() && entry->getOccurs()->isVariableTable())
      variableTables.push_back(entry);
  });
}

std::list<DataDescription *> &DataDivision::listOf(Homonyms &homonyms) {
  if (auto *only = llvm::dyn_cast<DataDescription *>(homonyms)) {
    homonyms = makeList<DataDescription *>();
    llvm::cast<std::list<DataDescription *> *>(homonyms)->push_back(only);
  }
  return *llvm::cast<std::list<DataDescription *> *>(homonyms);
}

DataDescription *DataDivision::firstOf(const Homonyms &homonyms) {
  if (auto *only = llvm::dyn_cast<DataDescription *>(homonyms))
    return only;
  auto *all = llvm::cast<std::list<DataDescription *> *>(homonyms);
  return all->empty() ? nullptr : all->front();
}

DataDescription *DataDivision::onlyOf(const Homonyms &homonyms) {
  if (auto *only = llvm::dyn_cast<DataDescription *>(homonyms))
    return only;
  auto *all = llvm::cast<std::list<DataDescription *> *>(homonyms);
  return all->size() == 1 ? all->front() : nullptr;
}

void DataDivision::indexName(DataDescription *entry) {
  if (!entry->getDataName())
    return;
  Homonyms &homonyms = index[&entry->getDataName()->getWordData()];
  if (homonyms.isNull())
    homonyms = entry;
  else
    listOf(homonyms).push_back(entry);
}

void DataDivision::unindexName(DataDescription *entry) {
  if (!entry->getDataName())
    return;
  auto found = index.find(&entry->getDataName()->getWordData());
  if (found != index.end())
    listOf(found->second).remove(entry);
  qualifiedIndex.erase(&entry->getDataName()->getWordData());
}

//===----------------------------------------------------------------------===//
// Files and reports
//===----------------------------------------------------------------------===//

void FileDescription::addRecordDesc(DataDescription *entry) {
  entry->setFileDescription(this);
  records.push_back(entry);
  if (division)
    division->indexRecord(entry);
}

void FileDescription::setRecordDesc(const std::list<DataDescription *> &list) {
  // Clear the index while the old records can still be found.
  if (division && !records.empty())
    division->forgetIndex();
  records.clear();
  for (DataDescription *entry : list)
    addRecordDesc(entry);
}

void ReportDescription::addRecord(ReportDataDescription *group) {
  group->setReportDescription(this);
  records.push_back(group);
  if (division)
    division->indexRecord(group);
}

void ReportDataDescription::swapLineDesc() {
  if (lineDescs.size() < 2)
    return;
  auto last = std::prev(lineDescs.end());
  std::iter_swap(std::prev(last), last);
}

llvm::ArrayRef<FileDescription *> DataDivision::findFiles(const std::string &name) {
  return fileIndex
      .readOn(fileSection,
              [this](FileDescription *file) {
                fileIndex.add(file->getFileName()->getWordData(), file);
              })
      .find(name);
}

llvm::ArrayRef<ReportDescription *> DataDivision::findReports(const std::string &name) {
  return reportIndex
      .readOn(reportSection,
              [this](ReportDescription *report) {
                reportIndex.add(report->getReportName()->getWordData(), report);
              })
      .find(name);
}

} // namespace tarka
