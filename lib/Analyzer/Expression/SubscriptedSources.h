//===- SubscriptedSources.h - SOURCE operands by subscript ------*- C++ -*-===//
//
// When a report declarative uses an item, the report items whose SOURCE is
// subscripted by it must be found. Reading all of them every time would take
// quadratic time.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_SUBSCRIPTEDSOURCES_H
#define TARKA_LIB_ANALYZER_SUBSCRIPTEDSOURCES_H

#include "AST/Forward.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/SmallVector.h"
#include <cstddef>
#include <list>

namespace tarka {

class SubscriptedSources {
public:
  /// Of \p items, which have a SOURCE clause and bound operands, those with a SOURCE that is
  /// subscripted by \p entry. The list is always the same one, and may only grow.
  llvm::ArrayRef<ReportDataDescription *> find(const DataDescription *entry,
                                               const NodeList<ReportDataDescription> &items);

private:
  llvm::DenseMap<const DataDescription *, llvm::SmallVector<ReportDataDescription *, 1>>
      bySubscript;
  std::size_t read = 0; ///< how many items of the list are entered
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_SUBSCRIPTEDSOURCES_H
