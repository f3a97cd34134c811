//===- StorageLayout.h - where the bytes of a record lie --------*- C++ -*-===//
//
// The layout of the children of one group. It is worked out from the left as far
// as it has been asked for and kept until the tree or a clause changes. A change
// discards what stands to the right of it, so that a walk through a record that
// inserts slack bytes on the way takes constant time for each entry.
//
// DataDescription gives the offsets and sizes; only the additions of sizes are of
// use elsewhere.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STORAGELAYOUT_H
#define TARKA_AST_STORAGELAYOUT_H

#include "AST/DataDescription.h"
#include <limits>
#include <vector>

namespace tarka {

/// The largest size: sizes beyond it are set to it.
inline constexpr std::int64_t MaxStorageSize = std::numeric_limits<std::int64_t>::max();

/// The sum and the product of sizes, which are never negative; what does not fit is MaxStorageSize.
std::int64_t addSizes(std::int64_t left, std::int64_t right);
std::int64_t multiplySizes(std::int64_t left, std::int64_t right);

/// The bytes of one occurrence of the elementary item \p item.
std::int64_t elementarySize(const DataDescription &item);

/// The bytes that a binary item of \p digits stored digits takes: 2, 4, 8, or 16 beyond 18 digits.
std::int64_t binarySize(int digits);

/// The layout of one group.
class GroupLayout {
public:
  using ChildList = std::list<DataDescription *>;

  /// Bytes from the start of \p group to the start of \p child; 0 when it is not in the list.
  static std::int64_t beginOf(const DataDescription &group, const DataDescription &child);
  /// Bytes of one occurrence of \p group.
  static std::int64_t sizeOf(const DataDescription &group);
  /// The same with every OCCURS DEPENDING ON table at its smallest.
  static std::int64_t minSizeOf(const DataDescription &group);
  /// The place of \p child in the list of \p group; the end of the list when it is not there.
  static ChildList::iterator placeOf(const DataDescription &group, const DataDescription &child);

  /// To be called when the size or the place of \p item may have changed.
  static void itemChanged(const DataDescription &item);
  /// To be called when the list of \p group was changed in any way.
  static void listChanged(const DataDescription &group);
  /// To be called when a child was added at the end of the list of \p group, or before the child
  /// \p before.
  static void childAdded(const DataDescription &group, const DataDescription *before);

private:
  /// A child that is laid out.
  struct Slot {
    ChildList::iterator place;
    /// Bytes from the start of the group to the child. A child without storage has the value of the
    /// child before it.
    std::int64_t begin;
    /// Bytes from the start of the group to the end of what is laid out so far.
    std::int64_t end;
  };
  struct MinimumFrame;

  /// The layout of \p group, made at the first call.
  static GroupLayout &of(const DataDescription &group);
  static void layOut(const DataDescription &group, const DataDescription *upTo);
  /// Bytes of all occurrences of \p child, which must be elementary or laid out.
  static std::int64_t totalOf(const DataDescription &child);

  ChildList::iterator next(const DataDescription &group) const;
  bool holds(const DataDescription &child) const;
  bool isComplete() const { return laid.size() == knownChildren; }
  std::int64_t end() const { return laid.empty() ? 0 : laid.back().end; }
  std::int64_t nextBegin(const DataDescription &child) const;
  void append(ChildList::iterator place);
  void truncate(std::size_t count);

  std::vector<Slot> laid;
  /// The number of children when the list was last read.
  std::size_t knownChildren = 0;
  /// Below 0 while it is not known, and always when the group is not laid out to its end.
  std::int64_t minSize = -1;
};

} // namespace tarka

#endif // TARKA_AST_STORAGELAYOUT_H
