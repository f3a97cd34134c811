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
Answer references(Snapshot &snapshot, const Parameters &parameters);
Answer documentHighlight(Snapshot &snapshot, const Parameters &parameters);
Answer prepareRename(Snapshot &snapshot, const Parameters &parameters);
Answer rename(Snapshot &snapshot, const Parameters &parameters);
Answer hover(Snapshot &snapshot, const Parameters &parameters);
Answer completion(Snapshot &snapshot, const Parameters &parameters);

// Calls.
Answer prepareCallHierarchy(Snapshot &snapshot, const Parameters &parameters);
Answer incomingCalls(Snapshot &snapshot, const Parameters &parameters);
Answer outgoingCalls(Snapshot &snapshot, const Parameters &parameters);

// The text as a whole.
Answer documentSymbol(Snapshot &snapshot, const Parameters &parameters);
Answer documentLink(Snapshot &snapshot, const Parameters &parameters);
Answer foldingRange(Snapshot &snapshot, const Parameters &parameters);
Answer semanticTokens(Snapshot &snapshot, const Parameters &parameters);
Answer selectionRange(Snapshot &snapshot, const Parameters &parameters);
Answer inlayHint(Snapshot &snapshot, const Parameters &parameters);
Answer codeAction(Snapshot &snapshot, const Parameters &parameters);

/// A request that cannot be carried out, because of \p reason.
llvm::Error refuse(const llvm::Twine &reason);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_HANDLERS_H
