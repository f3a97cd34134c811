//===- SourceOrder.h - diagnostics in the order of the source ---*- C++ -*-===//
//
// Puts the diagnostics of a compilation, which come from several passes, in the
// order of the text that was compiled: what stands in a copybook comes where the
// copybook was copied.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_REPORT_SOURCEORDER_H
#define TARKA_REPORT_SOURCEORDER_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/ArrayRef.h"

namespace tarka {

/// A file that was copied, and the statement that did.
struct CopiedFile {
  unsigned file = 0;
  SourceRange statement;
};

/// Sorts \p diagnostics by their places in the text of file number \p mainFile, in which \p copies
/// were made, in this order; several at one place stay in their order. A file that is copied
/// several times counts where it is copied first. Diagnostics in copied files get their copiedFrom.
void orderBySource(std::vector<Diagnostic> &diagnostics, unsigned mainFile,
                   llvm::ArrayRef<CopiedFile> copies);

} // namespace tarka

#endif // TARKA_REPORT_SOURCEORDER_H
