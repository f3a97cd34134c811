//===- Formatting.h - the layout of the lines -------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_FEATURES_FORMATTING_H
#define TARKA_TOOLS_LSP_FEATURES_FORMATTING_H

#include "llvm/Support/Error.h"
#include "llvm/Support/JSON.h"

namespace tarka::lsp {

class Snapshot;

/// The edits that put the lines of a document, or of a range of it, where they belong: headers and
/// records in area A, entries by their level, statements by their nesting, PICTURE clauses of a
/// record below each other. Only blanks change. Sequence numbers, text after column 72, comments,
/// continued lines and lines with tabs stay, and so does a line that would become too long.
llvm::Expected<llvm::json::Value> format(Snapshot &snapshot, const llvm::json::Object &parameters);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_FORMATTING_H
