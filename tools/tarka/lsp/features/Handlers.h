//===- Handlers.h - the functions that answer requests ----------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_FEATURES_HANDLERS_H
#define TARKA_TOOLS_LSP_FEATURES_HANDLERS_H

#include "lsp/Snapshot.h"
#include "llvm/Support/Error.h"
#include "llvm/Support/JSON.h"

namespace tarka::lsp {

using Answer = llvm::Expected<llvm::json::Value>;
using Parameters = llvm::json::Object;

// Names.
Answer definition(Snapshot &snapshot, const Parameters &parameters);
Answer declaration(Snapshot &snapshot, const Parameters &parameters);
Answer typeDefinition(Snapshot &snapshot, const Parameters &parameters);
llvm::Error references(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out);
llvm::Error documentHighlight(Snapshot &snapshot, const Parameters &parameters,
                              llvm::json::OStream &out);
Answer prepareRename(Snapshot &snapshot, const Parameters &parameters);
llvm::Error rename(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out);
Answer hover(Snapshot &snapshot, const Parameters &parameters);
Answer completion(Snapshot &snapshot, const Parameters &parameters);
/// The operands of CALL of a known program, and of intrinsic functions.
Answer signatureHelp(Snapshot &snapshot, const Parameters &parameters);

// Calls.
Answer prepareCallHierarchy(Snapshot &snapshot, const Parameters &parameters);
Answer incomingCalls(Snapshot &snapshot, const Parameters &parameters);
Answer outgoingCalls(Snapshot &snapshot, const Parameters &parameters);

// The text as a whole.
llvm::Error documentSymbol(Snapshot &snapshot, const Parameters &parameters,
                           llvm::json::OStream &out);
/// The names by which a symbol is known beyond its source.
Answer moniker(Snapshot &snapshot, const Parameters &parameters);
Answer documentLink(Snapshot &snapshot, const Parameters &parameters);
llvm::Error foldingRange(Snapshot &snapshot, const Parameters &parameters,
                         llvm::json::OStream &out);
llvm::Error semanticTokens(Snapshot &snapshot, const Parameters &parameters,
                           llvm::json::OStream &out);
Answer selectionRange(Snapshot &snapshot, const Parameters &parameters);
llvm::Error inlayHint(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out);
Answer codeAction(Snapshot &snapshot, const Parameters &parameters);
/// Above procedures who uses them and their flow, above records their size and layout. The command
/// tarka.showReferences is one of the editor's: it gets the URI, and an object with "position" and
/// "places", which are Locations.
llvm::Error codeLens(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out);

/// The edits that put the lines of a document, or of a range of it, where they belong: headers and
/// records in area A, entries by their level, statements by their nesting, PICTURE clauses of a
/// record below each other. Only blanks change. Sequence numbers, text after column 72, comments,
/// continued lines and lines with tabs stay, and so does a line that would become too long.
llvm::Error format(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out);

// Commands that show something beside the source. Their parameters have the document and what of it
// is meant: "position", or "name", a record or a procedure. They give "title"; "kind", which is
// "text" or, for a graph in the language of Graphviz, "dot"; "language", which is "cobol" for
// source, "plaintext" for tables and "markdown" for explanations; and "content".

/// What there is to say of the diagnostics of "number", as Markdown.
Answer explain(Snapshot &snapshot, const Parameters &parameters);
/// The records with their offsets and sizes, or the one of that name.
Answer showLayout(Snapshot &snapshot, const Parameters &parameters);
/// The control flow of the procedure that is named or that the position is in; where there is none,
/// of the program with one box for each procedure.
Answer showFlow(Snapshot &snapshot, const Parameters &parameters);
/// The source after COPY and REPLACE.
Answer showExpanded(Snapshot &snapshot, const Parameters &parameters);

/// A request that cannot be carried out, because of \p reason.
llvm::Error refuse(const llvm::Twine &reason);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_HANDLERS_H
