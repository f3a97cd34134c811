//===- PublishedDiagnostics.h - the report as an editor shows it -*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_PUBLISHEDDIAGNOSTICS_H
#define TARKA_TOOLS_LSP_PUBLISHEDDIAGNOSTICS_H

#include "Report/Diagnostic.h"
#include "llvm/Support/JSON.h"

namespace tarka::lsp {

class Snapshot;

/// \p diagnostic as the protocol has it.
llvm::json::Object publishedDiagnostic(Snapshot &snapshot, const Diagnostic &diagnostic);

/// The diagnostics of the program by the absolute path of the file that they are in. What is in a
/// copybook names the program, and stands at the COPY too. The program itself is always there.
llvm::json::Object publishedDiagnostics(Snapshot &snapshot);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_PUBLISHEDDIAGNOSTICS_H
