//===- DataTree.h - walking through a record --------------------*- C++ -*-===//
//
// Visits the entries of a record in source order, however deep they lie.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_DATATREE_H
#define TARKA_AST_DATATREE_H

#include "AST/DataDescription.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

/// Calls \p visit for \p top and everything below it in source order, the condition names of an
/// entry right after it. Where \p visit gives false, what is below that entry is left out.
template <typename Visitor> void forEachEntryIf(DataDescription *top, Visitor visit) {
  llvm::SmallVector<DataDescription *, 32> pending{top};
  while (!pending.empty()) {
    DataDescription *entry = pending.pop_back_val();
    if (!visit(entry))
      continue;
    for (DataDescription *child : llvm::reverse(entry->getChildrenElements()))
      pending.push_back(child);
    for (DataDescription *conditionName : llvm::reverse(entry->getCondNameChildrenElements()))
      pending.push_back(conditionName);
  }
}

/// The same for all entries, without exception.
template <typename Visitor> void forEachEntry(DataDescription *top, Visitor visit) {
  forEachEntryIf(top, [&](DataDescription *entry) {
    visit(entry);
    return true;
  });
}

} // namespace tarka

#endif // TARKA_AST_DATATREE_H
