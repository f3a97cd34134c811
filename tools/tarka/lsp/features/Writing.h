//===- Writing.h - the parts of long answers --------------------*- C++ -*-===//
//
// What handlers that write their answers have in common. A tree of JSON values is
// made for short answers only: each object of it takes four kilobytes.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_FEATURES_WRITING_H
#define TARKA_TOOLS_LSP_FEATURES_WRITING_H

#include "lsp/Snapshot.h"
#include "mlir/Tools/lsp-server-support/Protocol.h"
#include "llvm/Support/JSON.h"

namespace tarka::lsp {

/// A Position as the value that \p out expects.
void writePosition(llvm::json::OStream &out, const mlir::lsp::Position &position);

/// The attribute \p name of the present object: a Range.
void writeRange(llvm::json::OStream &out, llvm::StringRef name, const mlir::lsp::Range &range);

/// A Location as the value that \p out expects. Nothing for a place in a text that is not in the
/// file system.
void writeLocation(llvm::json::OStream &out, Snapshot &snapshot, const SourceRange &place);

/// A TextEdit as the value that \p out expects.
void writeEdit(llvm::json::OStream &out, const mlir::lsp::Range &range, llvm::StringRef newText);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_WRITING_H
