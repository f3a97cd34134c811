//===- Views.h - what commands show beside the source -----------*- C++ -*-===//
//
// A command takes the URI of a document and, after it, an object that says what
// of the program is meant: "position", a place in the document, or "name", a
// record or a procedure. It gives what an editor shows in a view of its own:
//
//   title    the name of the view
//   kind     "text", or "dot" for a graph in the language of Graphviz
//   language of text: "cobol" for source, "plaintext" for tables
//   content
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_FEATURES_VIEWS_H
#define TARKA_TOOLS_LSP_FEATURES_VIEWS_H

#include "llvm/Support/Error.h"
#include "llvm/Support/JSON.h"

namespace tarka::lsp {

class Snapshot;

/// The records with their offsets and sizes, or the one of that name.
llvm::Expected<llvm::json::Value> showLayout(Snapshot &snapshot,
                                             const llvm::json::Object &parameters);
/// The control flow of the procedure that is named or that the position is in; where there is none,
/// of the program with one box for each procedure.
llvm::Expected<llvm::json::Value> showFlow(Snapshot &snapshot,
                                           const llvm::json::Object &parameters);
/// The source after COPY and REPLACE.
llvm::Expected<llvm::json::Value> showExpanded(Snapshot &snapshot,
                                               const llvm::json::Object &parameters);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_VIEWS_H
