//===- StorageLayout.cpp - where the bytes of a record lie ----------------===//

#include "AST/StorageLayout.h"
#include "AST/Expression.h"
#include "AST/Usage.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/Support/MathExtras.h"
#include <algorithm>
#include <cassert>
#include <new>

namespace tarka {

namespace {

/// Entries without storage of their own that may be among the children of a group.
bool takesNoStorage(const DataDescription &entry) {
  return entry.getLevelNum() == 66 || entry.getLevelNum() == 88;
}

std::int64_t maxOccurrences(const DataDescription &entry) {
  return entry.getOccurs() ? entry.getOccurs()->getMostOccurrences() : 1;
}

std::int64_t minOccurrences(const DataDescription &entry) {
  return entry.getOccurs() ? entry.getOccurs()->getLeastOccurrences() : 1;
}

} // namespace

std::int64_t addSizes(std::int64_t left, std::int64_t right) {
  std::int64_t sum;
  return llvm::AddOverflow(left, right, sum) ? MaxStorageSize : sum;
}

std::int64_t multiplySizes(std::int64_t left, std::int64_t right) {
  std::int64_t product;
  return llvm::MulOverflow(left, right, product) ? MaxStorageSize : product;
}

//===----------------------------------------------------------------------===//
// Elementary items
//===----------------------------------------------------------------------===//

std::int64_t binarySize(int digits) {
  if (digits <= 4)
    return 2;
  if (digits <= 9)
    return 4;
  return digits <= 18 ? 8 : 16;
}

/// The bytes of an item that is stored as its PICTURE has positions.
static std::int64_t characterSize(const DataDescription &item, UsageType usage) {
  const ClausePicture &picture = *item.getPicture();
  std::int64_t positions = picture.getSize();
  if (item.hasSeparateSign())
    ++positions;
  switch (picture.getDataCategory()) {
  case DataCategory::National:
  case DataCategory::NationalEdited:
  case DataCategory::Dbcs:
    return 2 * positions;
  default:
    return usage == UsageType::Display ? positions : 2 * positions;
  }
}

std::int64_t elementarySize(const DataDescription &item) {
  UsageType usage = item.getUsageType();
  switch (usage) {
  case UsageType::Comp1:
  case UsageType::Index:
  case UsageType::Pointer:
  case UsageType::FunctionPointer:
    return 4;
  case UsageType::Comp2:
  case UsageType::ProcedurePointer:
    return 8;
  default:
    break;
  }
  // What lacks a PICTURE that it needs is reported elsewhere.
  const ClausePicture *picture = item.getPicture();
  if (!picture)
    return 0;
  if (isBinary(usage))
    return binarySize(picture->getStoredDigitNum());
  // Two digits per byte, and half a byte for the sign.
  if (isPackedDecimal(usage))
    return picture->getStoredDigitNum() / 2 + 1;
  return characterSize(item, usage);
}

//===----------------------------------------------------------------------===//
// Groups
//===----------------------------------------------------------------------===//

GroupLayout &GroupLayout::of(const DataDescription &group) {
  assert(group.children && "only an entry with children has a layout");
  if (!group.layout) {
    group.layout = makeOwner<GroupLayout>();
    group.layout->laid.reserve(group.children->size());
    group.layout->knownChildren = group.children->size();
  }
  GroupLayout &layout = *group.layout;
  // The list was changed without a call of childrenChanged().
  if (layout.knownChildren != group.children->size())
    listChanged(group);
  return layout;
}

GroupLayout::ChildList::iterator GroupLayout::next(const DataDescription &group) const {
  return laid.empty() ? group.children->begin() : std::next(laid.back().place);
}

bool GroupLayout::holds(const DataDescription &child) const {
  return child.layoutIndex < laid.size() && *laid[child.layoutIndex].place == &child;
}

/// Where \p child begins when it is the next to be laid out.
std::int64_t GroupLayout::nextBegin(const DataDescription &child) const {
  if (laid.empty())
    return 0;
  // What redefines begins with its object. While the checks have not linked the two, the object is
  // the child before: only other redefinitions of it may be in between.
  if (const DataDescription *object = child.getRedefineObject(); object && holds(*object))
    return laid[object->layoutIndex].begin;
  bool sharesPlace = child.getRedefines() || takesNoStorage(child);
  return sharesPlace ? laid.back().begin : laid.back().end;
}

void GroupLayout::append(ChildList::iterator place) {
  DataDescription &child = **place;
  std::int64_t begin = nextBegin(child);
  // What redefines may be shorter than its object, or longer.
  std::int64_t newEnd = std::max(end(), addSizes(begin, totalOf(child)));
  child.layoutIndex = static_cast<unsigned>(laid.size());
  laid.push_back({place, begin, newEnd});
}

void GroupLayout::truncate(std::size_t count) {
  laid.resize(count);
  minSize = -1;
}

std::int64_t GroupLayout::totalOf(const DataDescription &child) {
  if (takesNoStorage(child))
    return 0;
  std::int64_t size = child.hasSubordinateData() ? child.layout->end() : elementarySize(child);
  return multiplySizes(size, maxOccurrences(child));
}

/// Lays out the children of \p group that stand before \p upTo; all of them when it is null or not
/// among them.
void GroupLayout::layOut(const DataDescription &group, const DataDescription *upTo) {
  // The groups that wait for one of their children, outermost first.
  llvm::SmallVector<const DataDescription *, 16> waiting{&group};
  while (!waiting.empty()) {
    const DataDescription &current = *waiting.back();
    GroupLayout &layout = of(current);
    bool needsChild = false;
    auto place = layout.next(current);
    for (; place != current.children->end() && !needsChild; ++place) {
      DataDescription &child = **place;
      if (&child == upTo)
        return;
      if (!takesNoStorage(child) && child.hasSubordinateData() && !of(child).isComplete()) {
        waiting.push_back(&child);
        needsChild = true;
      } else {
        layout.append(place);
      }
    }
    if (!needsChild)
      waiting.pop_back();
  }
}

std::int64_t GroupLayout::beginOf(const DataDescription &group, const DataDescription &child) {
  GroupLayout &layout = of(group);
  if (layout.holds(child))
    return layout.laid[child.layoutIndex].begin;
  layOut(group, &child);
  auto place = layout.next(group);
  return place != group.children->end() && *place == &child ? layout.nextBegin(child) : 0;
}

GroupLayout::ChildList::iterator GroupLayout::placeOf(const DataDescription &group,
                                                      const DataDescription &child) {
  GroupLayout &layout = of(group);
  if (layout.holds(child))
    return layout.laid[child.layoutIndex].place;
  layOut(group, &child);
  return layout.next(group);
}

std::int64_t GroupLayout::sizeOf(const DataDescription &group) {
  layOut(group, nullptr);
  return of(group).end();
}

//===----------------------------------------------------------------------===//
// The smallest size
//===----------------------------------------------------------------------===//

/// A group whose smallest size is being added up.
struct GroupLayout::MinimumFrame {
  explicit MinimumFrame(const DataDescription &entry)
      : group(&entry), place(entry.children->begin()) {}

  const DataDescription *group;
  ChildList::iterator place;
  std::int64_t end = 0;
  /// Where the children passed begin, as they stand in the list.
  llvm::SmallVector<std::int64_t, 16> begins;
};

std::int64_t GroupLayout::minSizeOf(const DataDescription &group) {
  layOut(group, nullptr);
  if (of(group).minSize >= 0)
    return of(group).minSize;
  llvm::SmallVector<MinimumFrame, 4> frames{MinimumFrame(group)};
  while (!frames.empty()) {
    MinimumFrame &frame = frames.back();
    if (frame.place == frame.group->children->end()) {
      of(*frame.group).minSize = frame.end;
      frames.pop_back();
      continue;
    }
    const DataDescription &child = **frame.place;
    std::int64_t size = 0;
    if (!takesNoStorage(child)) {
      bool isGroup = child.hasSubordinateData();
      size = isGroup ? of(child).minSize : elementarySize(child);
      if (size < 0) {
        frames.emplace_back(child);
        continue;
      }
    }
    // The same places as in nextBegin().
    std::int64_t begin = frame.end;
    const DataDescription *object = child.getRedefineObject();
    if (object && of(*frame.group).holds(*object) && object->layoutIndex < frame.begins.size())
      begin = frame.begins[object->layoutIndex];
    else if ((child.getRedefines() || takesNoStorage(child)) && !frame.begins.empty())
      begin = frame.begins.back();
    frame.begins.push_back(begin);
    frame.end = std::max(frame.end, addSizes(begin, multiplySizes(size, minOccurrences(child))));
    ++frame.place;
  }
  return of(group).minSize;
}

//===----------------------------------------------------------------------===//
// Changes
//===----------------------------------------------------------------------===//

void GroupLayout::itemChanged(const DataDescription &item) {
  // A group that is laid out within its own group is complete. Where one is not, nothing further
  // out can rely on it.
  const DataDescription *child = &item;
  for (const DataDescription *group = child->parent; group; group = group->parent) {
    GroupLayout *layout = group->layout;
    if (!layout || !layout->holds(*child))
      return;
    layout->truncate(child->layoutIndex);
    child = group;
  }
}

void GroupLayout::listChanged(const DataDescription &group) {
  if (group.layout) {
    group.layout->truncate(0);
    group.layout->knownChildren = group.children ? group.children->size() : 0;
  }
  itemChanged(group);
}

void GroupLayout::childAdded(const DataDescription &group, const DataDescription *before) {
  if (GroupLayout *layout = group.layout) {
    if (before && layout->holds(*before))
      layout->truncate(before->layoutIndex);
    layout->minSize = -1;
    ++layout->knownChildren;
  }
  itemChanged(group);
}

//===----------------------------------------------------------------------===//
// Offsets and sizes of entries
//===----------------------------------------------------------------------===//

/// The entry that a clause's operand is bound to; null while it is not bound.
static DataDescription *boundEntry(Expression *operand) {
  auto *identifier = llvm::dyn_cast_if_present<IdentifierExpression>(operand);
  return identifier ? identifier->getDataDescription() : nullptr;
}

/// The first and the last entry that a level 66 renames; null ones while the names are not bound,
/// or when they name what cannot be renamed.
static std::pair<DataDescription *, DataDescription *>
renamedEntries(const DataDescription &entry) {
  ClauseRenames *renames = entry.getRenames();
  if (!renames)
    return {nullptr, nullptr};
  DataDescription *first = boundEntry(renames->getFromData());
  DataDescription *last = renames->getToData() ? boundEntry(renames->getToData()) : first;
  // A level 66 that renames itself or another one has no storage.
  if (!first || !last || first->getLevelNum() == 66 || last->getLevelNum() == 66)
    return {nullptr, nullptr};
  return {first, last};
}

const DataDescription *DataDescription::getSingleRenamed() const {
  auto [first, last] = renamedEntries(*this);
  return first == last ? first : nullptr;
}

/// The conditional variable of a condition name; every other entry itself.
const DataDescription *DataDescription::getStorageItem() const {
  const DataDescription *item = this;
  while (item->levelNum == 88 && item->getOwner())
    item = item->getOwner();
  return item;
}

std::int64_t DataDescription::getOffset() const {
  const DataDescription *item = getStorageItem();
  if (item->levelNum == 66) {
    item = renamedEntries(*item).first;
    item = item ? item->getStorageItem() : nullptr;
  }
  // An index name has storage of its own, outside the record of its table.
  if (!item || item->compilerMade)
    return 0;
  std::int64_t offset = 0;
  for (const DataDescription *group = item->parent; group; group = group->parent) {
    if (group->children)
      offset = addSizes(offset, GroupLayout::beginOf(*group, *item));
    item = group;
  }
  return offset;
}

std::int64_t DataDescription::getAllocSize() const {
  const DataDescription *item = getStorageItem();
  if (item->levelNum == 66) {
    auto [first, last] = renamedEntries(*item);
    if (!first)
      return 0;
    std::int64_t end = addSizes(last->getOffset(), last->getTotalAllocSize());
    return std::max<std::int64_t>(end - first->getOffset(), 0);
  }
  return item->hasSubordinateData() ? GroupLayout::sizeOf(*item) : elementarySize(*item);
}

std::int64_t DataDescription::getTotalAllocSize() const {
  return multiplySizes(getAllocSize(), maxOccurrences(*getStorageItem()));
}

std::int64_t DataDescription::getElemAllocSize() const {
  return getAllocSize();
}

std::int64_t DataDescription::getMinAllocSize() const {
  const DataDescription *item = getStorageItem();
  if (item->levelNum == 66 || !item->hasSubordinateData())
    return item->getAllocSize();
  return GroupLayout::minSizeOf(*item);
}

bool DataDescription::isTooLarge() const {
  return getTotalAllocSize() == MaxStorageSize;
}

} // namespace tarka
