//===- DataDivision.h - the DATA DIVISION -----------------------*- C++ -*-===//
//
// The sections of a data division, the index that finds entries by name, and
// the chains of records that initialisation follows.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_DATADIVISION_H
#define TARKA_AST_DATADIVISION_H

#include "AST/FileDescription.h"
#include "AST/GrowingIndex.h"
#include "AST/ReportDescription.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/PointerUnion.h"
#include <memory>
#include <vector>

namespace tarka {

/// The DATA DIVISION of a source unit.
///
/// A section list may be appended to directly: the index reads the new entries at the next lookup.
/// Otherwise it must not be changed, only replaced as a whole.
class DataDivision : public Owning<DataDivision> {
public:
  explicit DataDivision(const Node *at) : Owning(at) {}

  // WORKING-STORAGE.

  std::list<DataDescription *>::iterator getWorkSectionBegin() { return beginOf(workSection); }
  std::list<DataDescription *>::iterator getWorkSectionEnd() { return endOf(workSection); }
  std::size_t getWorkSectionSize() const { return workSection ? workSection->size() : 0; }
  /// The list itself; null when the division has no working-storage.
  std::list<DataDescription *> *getWorkSection() const { return workSection; }
  /// \p list is kept, not copied.
  void setWorkSection(std::list<DataDescription *> *list);
  /// Appends a record and sets its storage type; makes the list when there is none.
  void addWorkSection(DataDescription *entry);
  /// All entries of working-storage in source order, subordinates and condition names included.
  /// Entries that were put between others after the first call are not in it; those appended to the
  /// section are. Never null.
  std::list<DataDescription *> *getWorkFlatList();

  // The other sections.

  /// Appends a record to the LOCAL-STORAGE section and sets its storage type.
  void addLocalSection(DataDescription *entry);
  /// Appends a record to the LINKAGE section and sets its storage type.
  void addLinkSection(DataDescription *entry);
  /// Appends an FD or SD entry to the FILE section.
  void addFileSection(FileDescription *file) { fileSection.push_back(file); }
  /// Appends an RD entry to the REPORT section.
  void addReportSection(ReportDescription *report) { reportSection.push_back(report); }

  TARKA_LIST_OF(std::list<DataDescription *>, localSection, LocalSection)
  TARKA_LIST_OF(std::list<DataDescription *>, linkSection, LinkSection)
  TARKA_LIST_OF(std::list<FileDescription *>, fileSection, FileSection)
  TARKA_LIST_OF(std::list<ReportDescription *>, reportSection, ReportSection)

  /// All entries with the name \p name, of every section and level: those of the file section
  /// first, then working-storage, local-storage, linkage and report section, each in source order;
  /// then those added after the first lookup, in the order of adding. Null when there is none.
  /// The list belongs to the index and grows with it.
  std::list<DataDescription *> *findItemByName(const std::string &name);
  /// The same for a name that is interned already, as the text of a Word is.
  std::list<DataDescription *> *findItemByInternedName(const std::string *name) {
    updateIndex();
    auto found = index.find(name);
    return found == index.end() ? nullptr : &listOf(found->second);
  }
  /// The entry with the interned name \p name when there is only one, else null.
  DataDescription *findOnlyItemByInternedName(const std::string *name) {
    updateIndex();
    auto found = index.find(name);
    return found == index.end() ? nullptr : onlyOf(found->second);
  }
  /// The first entry with the interned name \p name; null when there is none. Unlike
  /// findItemByInternedName() it makes no list, which costs time and memory for a name that one
  /// entry has.
  DataDescription *findFirstItemByInternedName(const std::string *name) {
    updateIndex();
    auto found = index.find(name);
    return found == index.end() ? nullptr : firstOf(found->second);
  }
  /// Those of these entries that are in a group, file or report named \p qualifier, at any depth,
  /// in the same order. Valid until the next lookup.
  llvm::ArrayRef<DataDescription *> findItemByQualifiedName(const std::string &name,
                                                            const std::string &qualifier);
  /// True when a file or report of the division is named \p name.
  bool isFileOrReportName(const std::string &name);

  /// The FD and SD entries with the name \p name, in source order.
  llvm::ArrayRef<FileDescription *> findFiles(const std::string &name);
  /// The RD entries with the name \p name, in source order.
  llvm::ArrayRef<ReportDescription *> findReports(const std::string &name);

  /// The OCCURS DEPENDING ON tables of the division by DataDescription::getSourceOrder().
  llvm::ArrayRef<DataDescription *> getVariableTables();

  // The chains of working-storage records that initialisation follows, one for the records without
  // an initial value and one for those with. setFirst... starts a chain with one record,
  // setLast... links one more to its end.

  /// Null while the chain is empty.
  DataDescription *getFirstDesc() const { return plain.empty() ? nullptr : plain.front(); }
  void setFirstDesc(DataDescription *record) { plain.assign(1, record); }
  void setLastDesc(DataDescription *record) { plain.push_back(record); }
  llvm::ArrayRef<DataDescription *> getDescChain() const { return plain; }
  /// Null while the chain is empty.
  DataDescription *getFirstDescWithValue() const {
    return withValue.empty() ? nullptr : withValue.front();
  }
  void setFirstDescWithValue(DataDescription *record) { withValue.assign(1, record); }
  void setLastDescWithValue(DataDescription *record) { withValue.push_back(record); }
  llvm::ArrayRef<DataDescription *> getDescChainWithValue() const { return withValue; }

private:
  std::list<DataDescription *> localSection;
  std::list<DataDescription *> linkSection;
  std::list<FileDescription *> fileSection;
  std::list<ReportDescription *> reportSection;
  friend class DataDescription;
  friend class FileDescription;
  friend class ReportDescription;

  /// The entries of one name: the only one, or, when there are several or somebody has asked for
  /// it, their list.
  using Homonyms = llvm::PointerUnion<DataDescription *, std::list<DataDescription *> *>;

  /// The list, which is made here if need be.
  static std::list<DataDescription *> &listOf(Homonyms &homonyms);
  /// Null when there is none any more.
  static DataDescription *firstOf(const Homonyms &homonyms);
  /// Null when there is not exactly one.
  static DataDescription *onlyOf(const Homonyms &homonyms);

  /// Reads the entries that were added since the last lookup, for most lookups none.
  void updateIndex() {
    const std::size_t roots = fileSection.size() + (workSection ? workSection->size() : 0) +
                              localSection.size() + linkSection.size() + reportSection.size();
    if (roots != indexedRoots) {
      indexNewRoots();
      indexedRoots = roots;
    }
  }
  void indexNewRoots();
  /// Clears the index; the next lookup builds it again.
  void forgetIndex();
  /// Enters \p root and everything below it that is not in the index yet.
  void indexRecord(DataDescription *root);
  void indexName(DataDescription *entry);
  void unindexName(DataDescription *entry);

  /// The entries of one name by every name that can qualify them. Few names need it.
  using QualifiedNames =
      GrowingIndex<DataDescription, DataDescription *, std::list<DataDescription *>>;

  std::list<DataDescription *> *workSection = nullptr;
  std::list<DataDescription *> workFlatList;
  ReadMark<std::list<DataDescription *>> flatWork;

  /// By the address of the interned name.
  llvm::DenseMap<const std::string *, Homonyms> index;
  llvm::DenseMap<const std::string *, std::unique_ptr<QualifiedNames>> qualifiedIndex;
  llvm::DenseSet<const std::string *> fileAndReportNames;
  std::vector<DataDescription *> variableTables;
  GrowingIndex<FileDescription, FileDescription *, std::list<FileDescription *>> fileIndex;
  GrowingIndex<ReportDescription, ReportDescription *, std::list<ReportDescription *>> reportIndex;
  unsigned indexedEntries = 0;
  /// How many records, files and reports the index has read.
  std::size_t indexedRoots = 0;
  ReadMark<std::list<DataDescription *>> indexedWork;
  ReadMark<std::list<DataDescription *>> indexedLocal;
  ReadMark<std::list<DataDescription *>> indexedLink;
  ReadMark<std::list<FileDescription *>> indexedFiles;
  ReadMark<std::list<ReportDescription *>> indexedReports;

  std::vector<DataDescription *> plain;
  std::vector<DataDescription *> withValue;
};

} // namespace tarka

#endif // TARKA_AST_DATADIVISION_H
