//===- ItemFlow.h - where an item is written and read -----------*- C++ -*-===//
//
// Follows the values of one item through a program: which writes reach a read,
// and whether a written value is read at all. Both are problems of DataFlow,
// reaching definitions forward and liveness backward, on the bytes of the item.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_FLOW_ITEMFLOW_H
#define TARKA_FLOW_ITEMFLOW_H

#include "Flow/Accesses.h"

namespace tarka {

/// A write or a read of the item, or of something that shares bytes with it.
struct ItemUse {
  std::uint32_t node = noFlow;
  DataDescription *item = nullptr; ///< what is named, or meant
  bool isRead = false;
  bool isWritten = false;
  /// A write after which nothing is left of what the item held before.
  bool isWhole = false;
  /// A write whose value may be read: by one of the reads below, by the statement itself, or by
  /// whoever sees the item after the program.
  bool isLive = false;
  /// It happens out of sight, in a program that the node calls or a procedure of another program
  /// that it enters.
  bool isElsewhere = false;
  /// By their places in ItemFlow::uses: of a read, the writes whose values it may find.
  llvm::SmallVector<std::uint32_t, 2> from;
  /// Of a write, the reads that its value may come to.
  llvm::SmallVector<std::uint32_t, 2> to;
  /// Of a read: it may find what the item held when the program began.
  bool findsInitial = false;
};

/// What a program does with one item.
struct ItemFlow {
  const FlowGraph *graph = nullptr;
  DataDescription *item = nullptr;
  ByteSet bytes;             ///< of the item, in its area
  std::vector<ItemUse> uses; ///< in the order of the text, those that control comes to
  std::vector<std::uint32_t> readsOfInitial; ///< by their places
  /// Others may see the item when the program has ended: it is passed, external, global or in a
  /// program that may be called again.
  bool isSeenAfterwards = false;
};

/// Follows \p item through \p graph. Statements that control does not come to are left out.
/// Of a table all elements are followed together. Not known: storage that is reached by an address
/// from ADDRESS OF in another program, and two parameters that are passed the same storage.
ItemFlow followItem(const FlowGraph &graph, DataDescription &item, const StorageAreas &areas);

} // namespace tarka

#endif // TARKA_FLOW_ITEMFLOW_H
