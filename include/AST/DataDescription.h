//===- DataDescription.h - data description entries -------------*- C++ -*-===//
//
// One data description entry: what is written (level, name, clauses), its place
// in the record, and the results of the checks. Offsets and sizes come from the
// storage layout, which is kept with the groups (see StorageLayout.h).
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_DATADESCRIPTION_H
#define TARKA_AST_DATADESCRIPTION_H

#include "AST/DataClauses.h"

namespace tarka {

class GroupLayout;

/// One data description entry of level 01 to 49, 66, 77 or 88.
///
/// An entry belongs to its parent. Only the entries in the parent's list of children take part in
/// its storage: an index name has the parent of its table, but is not in that list.
class DataDescription : public Node {
public:
  explicit DataDescription(const Node *at) : Node(at) {}
  DataDescription(const DataDescription &) = delete;
  DataDescription &operator=(const DataDescription &) = delete;

  unsigned getLevelNum() const { return levelNum; }
  void setLevelNum(unsigned level) {
    levelNum = level;
    if (parent)
      parent->subordinateData = Subordinates::Unknown;
  }
  /// Null for an entry without a name, until the checks name it FILLER.
  Word *getDataName() const { return dataName; }
  /// Updates the index of the data division if the entry is in it.
  void setDataName(Word *name);
  /// Whether the entry cannot be referred to: it is FILLER, or has no name.
  bool isFiller() const { return !dataName || dataName->getWordData() == "FILLER"; }
  DescType getType() const { return type; }

  // The tree.

  /// Null for an entry of level 01 or 77, and for a condition name once it has left the children.
  DataDescription *getParent() const { return parent; }
  void setParent(DataDescription *group) {
    parent = group;
    tableMembership = TableMembership::Unknown;
  }
  void removeParent() { parent = nullptr; }
  /// The entry that this one inherits USAGE, SIGN and similar clauses from: its parent, or its
  /// conditional variable. Null for a record.
  const DataDescription *getOwner() const { return parent ? parent : getCondNameParent(); }
  /// The entry at the top: the last one that following getParent() leads to.
  DataDescription *getRootDesc();
  const DataDescription *getRootDesc() const;

  std::list<DataDescription *>::iterator getChildrenBegin() { return beginOf(children); }
  std::list<DataDescription *>::iterator getChildrenEnd() { return endOf(children); }
  std::size_t getChildrenSize() const { return children ? children->size() : 0; }
  const std::list<DataDescription *> &getChildrenElements() const { return listOrEmpty(children); }
  /// The list itself, never null. Code that changes it directly, and not with one of the functions
  /// below, sets the parent of new elements and then calls childrenChanged().
  std::list<DataDescription *> *getChildrenList();
  /// Replaces the list. \p list is kept, not copied; null stands for no children.
  void setChildrenList(std::list<DataDescription *> *list);
  /// Appends \p child and makes this entry its parent.
  void addChildren(DataDescription *child);
  /// Inserts \p child before \p before, one of the children, and makes this entry its parent. Takes
  /// constant time once the offset of \p before is known.
  void insertChildBefore(DataDescription *before, DataDescription *child);
  /// To be called after the list of children was changed directly.
  void childrenChanged();
  /// To be called after a clause of this entry was changed in place, for example when its PICTURE
  /// was decoded.
  void clauseChanged();

  /// True when there are children; condition names count while they are among them.
  bool isGroupItem() const { return children && !children->empty(); }
  /// True when there are children other than condition names.
  bool hasSubordinateData() const;
  /// Whether the entry, a group that it is in, or the variable of a condition-name has OCCURS; also
  /// true of the index-names of a table. To be asked when the record is complete.
  bool isInTable() const;

  // Clauses, null when absent. Setting one that affects storage invalidates the layout.

  ClausePicture *getPicture() const { return picture; }
  void setPicture(ClausePicture *clause);
  ClauseUsage *getUsage() const { return usage; }
  void setUsage(ClauseUsage *clause);
  ClauseOccurs *getOccurs() const { return occurs; }
  void setOccurs(ClauseOccurs *clause);
  ClauseRedefines *getRedefines() const { return redefines; }
  void setRedefines(ClauseRedefines *clause);
  ClauseValue *getValue() const { return value; }
  void setValue(ClauseValue *clause) { value = clause; }
  ClauseSign *getSign() const { return rareParts().sign; }
  void setSign(ClauseSign *clause);
  ClauseGroupUsage *getGroupUsage() const { return rareParts().groupUsage; }
  void setGroupUsage(ClauseGroupUsage *clause);
  ClauseRenames *getRenames() const { return rareParts().renames; }
  void setRenames(ClauseRenames *clause) { setRare(&RareParts::renames, clause); }
  ClauseBlankZero *getBlankZero() const { return rareParts().blankZero; }
  void setBlankZero(ClauseBlankZero *clause) { setRare(&RareParts::blankZero, clause); }
  ClauseExternal *getExternal() const { return rareParts().external; }
  void setExternal(ClauseExternal *clause) { setRare(&RareParts::external, clause); }
  ClauseGlobal *getGlobal() const { return rareParts().global; }
  void setGlobal(ClauseGlobal *clause) { setRare(&RareParts::global, clause); }
  ClauseJustified *getJustified() const { return rareParts().justified; }
  void setJustified(ClauseJustified *clause) { setRare(&RareParts::justified, clause); }
  ClauseSynchronized *getSynchronized() const { return rareParts().synchronized; }
  void setSynchronized(ClauseSynchronized *clause) { setRare(&RareParts::synchronized, clause); }
  ClauseDateFormat *getDateFormat() const { return rareParts().dateFormat; }
  void setDateFormat(ClauseDateFormat *clause) { setRare(&RareParts::dateFormat, clause); }
  ClauseVolatile *getVolatile() const { return rareParts().isVolatile; }
  void setVolatile(ClauseVolatile *clause) { setRare(&RareParts::isVolatile, clause); }

  // What follows from the clauses.

  /// The entry's own USAGE, or that of the nearest group that has one. Without any, NATIONAL for a
  /// national picture and in a GROUP-USAGE NATIONAL group, DISPLAY-1 for a DBCS picture, DISPLAY
  /// otherwise. A condition name has the usage of its conditional variable; a level 66 that of the
  /// renamed item, DISPLAY when it renames several items or a group.
  UsageType getUsageType() const;
  /// A group is alphanumeric, or national under GROUP-USAGE; an item with a PICTURE has the
  /// category of the PICTURE; without one the usage decides. Unclassified when neither decides. A
  /// condition name has the category of its conditional variable; a level 66 that of the renamed
  /// item, alphanumeric when it renames several items.
  DataCategory getDataCategory() const;
  /// True when SIGN IS SEPARATE holds for the item, by its own clause or that of the nearest group
  /// that has one, and the item is signed.
  bool hasSeparateSign() const;

  // Condition names.

  /// The conditional variable of a condition name; null for every other entry.
  DataDescription *getCondNameParent() const { return rareParts().condNameParent; }
  void setCondNameParent(DataDescription *variable) {
    setRare(&RareParts::condNameParent, variable);
  }
  /// Appends to the condition names of this conditional variable.
  void addCondNameChildren(DataDescription *conditionName);
  NodeList<DataDescription>::const_iterator getCondNameChildrenBegin() const {
    return rareParts().condNames.begin();
  }
  NodeList<DataDescription>::const_iterator getCondNameChildrenEnd() const {
    return rareParts().condNames.end();
  }
  std::size_t getCondNameChildrenSize() const { return getCondNameChildrenElements().size(); }
  const NodeList<DataDescription> &getCondNameChildrenElements() const {
    return rareParts().condNames;
  }

  // REDEFINES.

  /// The entry that this one redefines: never one that redefines another itself. Null when there is
  /// none or the checks have not linked it.
  DataDescription *getRedefineObject() const { return rareParts().redefineObject; }
  void setRedefineObject(DataDescription *object);
  /// Appends to the entries that redefine this one.
  void addRedefineSubject(DataDescription *subject);
  const NodeList<DataDescription> &getRedefineSubjectElements() const {
    return rareParts().redefineSubjects;
  }
  /// True when the entry redefines another one: it has a REDEFINES clause or an object.
  bool isRedefineSubject() const { return redefines || getRedefineObject(); }

  // The section of the entry.

  /// As set; else the file or report section for an entry with a file or report description; else
  /// that of the group; else working-storage, which holds the entries that the checks make.
  StorageType getStorageType() const;
  void setStorageType(StorageType storageType) { storage = storageType; }
  /// The FD or SD of a record, found from the entries below it too; null outside the file section.
  FileDescription *getFileDescription() const;
  void setFileDescription(FileDescription *file) { setRare(&RareParts::file, file); }
  /// The RD of a report group, found from the entries below it too; null outside the report
  /// section.
  ReportDescription *getReportDescription() const;
  void setReportDescription(ReportDescription *report) { setRare(&RareParts::report, report); }

  // Storage. All sizes and offsets are in bytes and limited to the range of the type, see
  // isTooLarge().

  /// From the start of the record, with every table before the entry at its largest; of an entry in
  /// a table, that of its first occurrence. 0 for a record itself.
  std::int64_t getOffset() const;
  /// One occurrence, with every table inside at its largest: of a record, its whole length.
  std::int64_t getAllocSize() const;
  /// All occurrences together.
  std::int64_t getTotalAllocSize() const;
  /// One occurrence of an elementary item; of a group the same as getAllocSize().
  std::int64_t getElemAllocSize() const;
  /// One occurrence, with every OCCURS DEPENDING ON table inside at its smallest.
  std::int64_t getMinAllocSize() const;
  /// The size of the entry is beyond what can be counted.
  bool isTooLarge() const;

  /// The offset that the checks recorded, in bytes; below 0 while they have not.
  std::int64_t getOffsetSize() const { return offsetSize; }
  void setOffsetSize(std::int64_t bytes) { offsetSize = bytes; }

  // Results of the checks.

  /// Whether the entry or a subordinate one has an initial value.
  bool haveValue() const { return haveValueFlag; }
  void setHaveValue(bool flag) { haveValueFlag = flag; }
  /// Whether the checks made the entry: an index name.
  bool getIsCompilerMade() const { return compilerMade; }
  void setIsCompilerMade(bool flag) { compilerMade = flag; }
  /// Whether the entry is a table with a SYNCHRONIZED item in it.
  bool getOccursSync() const { return occursSync; }
  void setOccursSync(bool flag) { occursSync = flag; }
  bool isDualVar() const { return dualVar; }
  void setIsDualVar(bool flag) { dualVar = flag; }
  /// Whether an OCCURS DEPENDING ON table is below the entry, whether or not the checks have marked
  /// the entry.
  bool checkContainsOdo() const;
  void setContainsOdo(bool flag) { containsOdo = flag; }
  /// How report declaratives use the item, see AccessWay.
  int getAccessWay() const { return accessWay; }
  void setAccessWay(int way) { accessWay = static_cast<std::uint8_t>(way); }

  /// The reports that use the item; each once, in the order of first use.
  NodeList<ReportDescription>::const_iterator getUsedRDListBegin() const {
    return rareParts().usedReports.begin();
  }
  NodeList<ReportDescription>::const_iterator getUsedRDListEnd() const {
    return rareParts().usedReports.end();
  }
  std::size_t getUsedRDListSize() const { return rareParts().usedReports.size(); }
  void addUsedRD(ReportDescription *report);
  /// The report items that take their value from this one.
  const NodeList<ReportDataDescription> &getGenDEElements() const {
    return rareParts().reportItems;
  }
  void addGenDE(ReportDataDescription *item);

  /// Appends to \p found this entry and those below it that are named \p name, in source order.
  void findItemByName(std::list<DataDescription *> *found, const std::string &name);

  // The division.

  /// The place of the entry among all entries of its data division, from 1, in source order; what
  /// the compiler makes comes after what the programmer wrote. 0 while the division's index does
  /// not know the entry.
  unsigned getSourceOrder() const { return sourceOrder; }

protected:
  DataDescription(const Node *at, DescType descType) : Node(at), type(descType) {}
  /// A copy of \p entry as written, in the same place; without children, condition names and
  /// results of the checks.
  DataDescription(const DataDescription &entry, DescType descType);

private:
  friend class DataDivision;
  friend class GroupLayout;

  struct ReportSet;

  /// What only few entries have.
  struct RareParts {
    ClauseSign *sign = nullptr;
    ClauseGroupUsage *groupUsage = nullptr;
    ClauseRenames *renames = nullptr;
    ClauseBlankZero *blankZero = nullptr;
    ClauseExternal *external = nullptr;
    ClauseGlobal *global = nullptr;
    ClauseJustified *justified = nullptr;
    ClauseSynchronized *synchronized = nullptr;
    ClauseDateFormat *dateFormat = nullptr;
    ClauseVolatile *isVolatile = nullptr;
    DataDescription *condNameParent = nullptr;
    NodeList<DataDescription> condNames;
    DataDescription *redefineObject = nullptr;
    NodeList<DataDescription> redefineSubjects;
    FileDescription *file = nullptr;
    ReportDescription *report = nullptr;
    NodeList<ReportDescription> usedReports;
    /// The same for looking up; null while there are only few.
    ReportSet *usedReportSet = nullptr;
    NodeList<ReportDataDescription> reportItems;
  };

  const RareParts &rareParts() const {
    static const RareParts none;
    return rare ? *rare : none;
  }
  RareParts &makeRareParts();
  template <typename Part> void setRare(Part *RareParts::*part, Part *what) {
    if (rare || what)
      makeRareParts().*part = what;
  }
  const DataDescription *getStorageItem() const;
  /// The item that decides what a level 66 holds: the renamed item when it renames one only.
  const DataDescription *getSingleRenamed() const;

  unsigned levelNum = 0;
  DescType type : 4 = DescType::Data;
  StorageType storage : 4 = StorageType::None;
  std::uint8_t accessWay = 0;
  bool haveValueFlag : 1 = false;
  bool compilerMade : 1 = false;
  bool occursSync : 1 = false;
  bool dualVar : 1 = false;
  bool containsOdo : 1 = false;
  /// The cached result of hasSubordinateData().
  enum class Subordinates : std::uint8_t { Unknown, ConditionNames, Data };
  mutable Subordinates subordinateData : 2 = Subordinates::Unknown;
  /// The cached result of isInTable().
  enum class TableMembership : std::uint8_t { Unknown, Outside, Inside };
  mutable TableMembership tableMembership : 2 = TableMembership::Unknown;
  unsigned sourceOrder = 0;
  /// The entry's index in the layout of its parent; the layout knows whether it is valid.
  mutable unsigned layoutIndex = 0;
  Word *dataName = nullptr;
  DataDescription *parent = nullptr;
  std::list<DataDescription *> *children = nullptr;
  ClausePicture *picture = nullptr;
  ClauseUsage *usage = nullptr;
  ClauseOccurs *occurs = nullptr;
  ClauseRedefines *redefines = nullptr;
  ClauseValue *value = nullptr;
  RareParts *rare = nullptr;
  /// The division whose index holds this entry; null while there is none.
  DataDivision *division = nullptr;
  /// The layout of the children; null for an entry without children and until it is needed.
  mutable GroupLayout *layout = nullptr;
  std::int64_t offsetSize = -1;
};

} // namespace tarka

#endif // TARKA_AST_DATADESCRIPTION_H
