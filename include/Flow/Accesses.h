//===- Accesses.h - what a statement reads and writes -----------*- C++ -*-===//
//
// The items that each node of the flow graph reads and writes, and the bytes of
// storage that these are. Items that share storage, by REDEFINES, groups, RENAMES,
// the records of a file or SAME AREA, lie in one area and are compared by their
// bytes.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_FLOW_ACCESSES_H
#define TARKA_FLOW_ACCESSES_H

#include "AST/Operands.h"
#include "Flow/FlowGraph.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

/// Bytes of an area, counted from 0: disjoint ranges in ascending order that do not touch.
class ByteSet {
public:
  struct Range {
    std::int64_t begin, end; ///< the end is not included
  };

  void add(std::int64_t begin, std::int64_t end);
  llvm::ArrayRef<Range> ranges() const { return list; }
  bool empty() const { return list.empty(); }
  bool overlaps(const ByteSet &other) const;
  bool contains(const ByteSet &other) const;

private:
  llvm::SmallVector<Range, 1> list;
};

/// One item that a node reads or writes.
struct Access {
  DataDescription *item;
  /// The operand as it is written, with its subscripts and reference modifier; null where the
  /// statement means the item without naming it, such as the record of READ.
  const IdentifierExpression *operand;
  OperandRole role;
  /// The statement itself uses what it has written: WRITE FROM and READ INTO go by the record.
  bool isUsedAtOnce;

  /// The bytes that may be meant: of a table element, those of every occurrence unless all
  /// subscripts are literals.
  ByteSet bytes() const;
  /// Whether exactly these bytes are meant.
  bool isExact() const;
};

/// Calls \p visit for every item that the node reads or writes, operands of operands included.
/// Statements in which others are nested stand for themselves alone. What a called program or an
/// entered USE procedure does is not included.
void forEachAccess(const FlowNode &node, llvm::function_ref<void(const Access &)> visit);

/// The bytes of an entry within its area, every occurrence included. Of a condition-name those of
/// its conditional variable.
ByteSet bytesOf(const DataDescription &entry);

/// Which entries share storage.
class StorageAreas {
public:
  explicit StorageAreas(const FlowModule &flow);

  /// The entry that stands for the area in which \p entry lies: the same one for all of them.
  const DataDescription *areaOf(const DataDescription &entry) const;

private:
  /// The first file of a SAME AREA or SAME RECORD AREA, by the others.
  llvm::DenseMap<const FileDescription *, const FileDescription *> sharedFiles;
};

} // namespace tarka

#endif // TARKA_FLOW_ACCESSES_H
