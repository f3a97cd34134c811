//===- RecordAlignment.cpp - slack bytes as in Enterprise COBOL -----------===//
//
// Slack bytes stand directly after the elementary item that precedes the
// synchronized one, with its level number, and belong to its group. What redefines
// other storage starts where that starts, so nothing is inserted in front of it. Each
// occurrence of a table is padded to a multiple of the largest boundary in it, so
// that all occurrences are aligned as the first one is.
//
// A record is walked once, from the left. Slack bytes change only what follows them.
//
//===----------------------------------------------------------------------===//

#include "Analyzer/Data/RecordAlignment.h"
#include "AST/DataDescription.h"
#include "AST/StorageLayout.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"
#include <algorithm>

namespace tarka {

namespace {

bool hasStorage(const DataDescription &entry) {
  return entry.getLevelNum() != 66 && entry.getLevelNum() != 88;
}

/// Whether what is put into \p group at its end would be repeated, or shared with other entries.
bool isRepeatedOrShared(const DataDescription &group) {
  return group.getOccurs() || group.getRedefines() || !group.getRedefineSubjectElements().empty();
}

class RecordAlignment {
public:
  /// Aligns what is in \p group. Returns the largest boundary in it, 1 when there is none.
  int align(DataDescription &group);
  bool hasInserted() const { return inserted; }

private:
  /// An entry on the path from the record to the current item, with the entry before it in its
  /// group; null when it is the first one.
  struct Step {
    DataDescription *entry;
    DataDescription *before;
  };

  DataDescription *entryBefore() const;
  void alignItem(const DataDescription &item, int boundary);
  void padOccurrence(DataDescription &table, int boundary);

  llvm::SmallVector<Step, 8> path;
  bool inserted = false;
};

int RecordAlignment::align(DataDescription &group) {
  int largest = 1;
  DataDescription *before = nullptr;
  for (DataDescription *child : group.getChildrenElements()) {
    if (!hasStorage(*child))
      continue;
    path.push_back({child, before});
    int boundary = 1;
    if (child->isGroupItem()) {
      boundary = align(*child);
      if (child->getOccurs())
        padOccurrence(*child, boundary);
    } else if (child->getSynchronized()) {
      boundary = std::max(boundaryOf(*child), 1);
      alignItem(*child, boundary);
    }
    largest = std::max(largest, boundary);
    path.pop_back();
    before = child;
  }
  return largest;
}

/// The entry that stands before the current item, or before the outermost group that starts with
/// it. Null at the start of the record, and when the item starts a redefinition.
DataDescription *RecordAlignment::entryBefore() const {
  for (const Step &step : llvm::reverse(path)) {
    if (step.entry->getRedefines())
      return nullptr;
    if (step.before)
      return step.before;
  }
  return nullptr;
}

/// The last entry with storage in \p group; null when there is none.
DataDescription *lastOf(const DataDescription &group) {
  for (DataDescription *child : llvm::reverse(group.getChildrenElements()))
    if (hasStorage(*child))
      return child;
  return nullptr;
}

/// Puts \p slack directly after \p entry.
void insertAfter(const DataDescription &entry, DataDescription *slack) {
  DataDescription *group = entry.getParent();
  auto next = std::next(GroupLayout::placeOf(*group, entry));
  if (next == group->getChildrenElements().end())
    group->addChildren(slack);
  else
    group->insertChildBefore(*next, slack);
}

void RecordAlignment::alignItem(const DataDescription &item, int boundary) {
  const std::int64_t rest = item.getOffset() % boundary;
  DataDescription *before = rest == 0 ? nullptr : entryBefore();
  if (!before)
    return;
  while (!isRepeatedOrShared(*before)) {
    DataDescription *last = lastOf(*before);
    if (!last)
      break;
    before = last;
  }
  insertAfter(*before, makeSlackEntry(before->getLevelNum(), boundary - rest));
  inserted = true;
}

void RecordAlignment::padOccurrence(DataDescription &table, int boundary) {
  const std::int64_t rest = table.getAllocSize() % boundary;
  if (rest == 0)
    return;
  const unsigned level = table.getChildrenElements().back()->getLevelNum();
  table.addChildren(makeSlackEntry(level, boundary - rest));
  inserted = true;
}

/// Calls \p visit for every entry with storage below \p group.
template <typename Visit> void forEachBelow(DataDescription &group, Visit visit) {
  for (DataDescription *child : group.getChildrenElements()) {
    if (!hasStorage(*child))
      continue;
    visit(*child);
    forEachBelow(*child, visit);
  }
}

} // namespace

void synchronizeItems(DataDescription &record) {
  forEachBelow(record, [&](DataDescription &item) {
    if (!item.isGroupItem() && !item.getSynchronized())
      item.setSynchronized(record.getSynchronized());
  });
}

void alignRecord(DataDescription &record) {
  RecordAlignment alignment;
  alignment.align(record);
  if (alignment.hasInserted())
    forEachBelow(record, [](DataDescription &item) { item.setOffsetSize(item.getOffset()); });
}

} // namespace tarka
