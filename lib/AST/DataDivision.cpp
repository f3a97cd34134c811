//===- DataDivision.cpp - sections and the name index ---------------------===//

#include "AST/DataDivision.h"
#include "AST/DataTree.h"
#include <cassert>

namespace tarka {

//===----------------------------------------------------------------------===//
// Sections
//===----------------------------------------------------------------------===//

void DataDivision::setWorkSection(std::list<DataDescription *> *list) {
  if (list == workSection)
    return;
  if (indexedWork.count)
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

/// Gives \p read what \p list holds beyond \p progress.
template <typename Element, typename Reader>
void DataDivision::readOn(std::list<Element *> &list, Progress<Element> &progress, Reader read) {
  assert(progress.count <= list.size() && "a section may only grow");
  while (progress.count < list.size()) {
    progress.last = progress.count ? std::next(progress.last) : list.begin();
    ++progress.count;
    read(*progress.last);
  }
}

std::list<DataDescription *> *DataDivision::getWorkFlatList() {
  readOn(listOrEmpty(workSection), flatWork, [this](DataDescription *record) {
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
  readOn(*homonyms, names->read, [&](DataDescription *entry) {
    auto note = [&](const std::string &text) {
      std::vector<DataDescription *> &entries = names->byQualifier[&text];
      if (entries.empty() || entries.back() != entry)
        entries.push_back(entry);
    };
    // What has no name yet will be called FILLER by the checks.
    for (const DataDescription *group = entry->getOwner(); group; group = group->getOwner())
      note(group->getDataName() ? group->getDataName()->getWordData() : internString("FILLER"));
    if (const FileDescription *file = entry->getFileDescription())
      note(file->getFileName()->getWordData());
    if (const ReportDescription *report = entry->getReportDescription())
      note(report->getReportName()->getWordData());
  });
  auto found = names->byQualifier.find(&internString(qualifier));
  if (found == names->byQualifier.end())
    return {};
  return found->second;
}

bool DataDivision::isFileOrReportName(const std::string &name) {
  updateIndex();
  return fileAndReportNames.contains(&internString(name));
}

llvm::ArrayRef<DataDescription *> DataDivision::getVariableTables() {
  updateIndex();
  return variableTables;
}

void DataDivision::updateIndex() {
  auto readRecord = [this](DataDescription *record) { indexRecord(record); };
  readOn(fileSection, indexedFiles, [&](FileDescription *file) {
    file->division = this;
    fileAndReportNames.insert(&file->getFileName()->getWordData());
    llvm::for_each(file->records, readRecord);
  });
  readOn(listOrEmpty(workSection), indexedWork, readRecord);
  readOn(localSection, indexedLocal, readRecord);
  readOn(linkSection, indexedLink, readRecord);
  readOn(reportSection, indexedReports, [&](ReportDescription *report) {
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

void DataDivision::indexName(DataDescription *entry) {
  if (!entry->getDataName())
    return;
  Homonyms &homonyms = index[&entry->getDataName()->getWordData()];
  if (!homonyms.all)
    homonyms.all = makeList<DataDescription *>();
  homonyms.all->push_back(entry);
  homonyms.only = homonyms.all->size() == 1 ? entry : nullptr;
}

void DataDivision::unindexName(DataDescription *entry) {
  if (!entry->getDataName())
    return;
  auto found = index.find(&entry->getDataName()->getWordData());
  if (found != index.end()) {
    Homonyms &homonyms = found->second;
    homonyms.all->remove(entry);
    homonyms.only = homonyms.all->size() == 1 ? homonyms.all->front() : nullptr;
  }
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
  // The index forgets the old records while they can still be found.
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
  readOn(fileSection, fileIndex.read, [this](FileDescription *file) {
    fileIndex.byName[&file->getFileName()->getWordData()].push_back(file);
  });
  auto found = fileIndex.byName.find(&internString(name));
  if (found == fileIndex.byName.end())
    return {};
  return found->second;
}

llvm::ArrayRef<ReportDescription *> DataDivision::findReports(const std::string &name) {
  readOn(reportSection, reportIndex.read, [this](ReportDescription *report) {
    reportIndex.byName[&report->getReportName()->getWordData()].push_back(report);
  });
  auto found = reportIndex.byName.find(&internString(name));
  if (found == reportIndex.byName.end())
    return {};
  return found->second;
}

} // namespace tarka
