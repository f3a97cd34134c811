//===- PublishedDiagnostics.h - the report as an editor shows it -*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_PUBLISHEDDIAGNOSTICS_H
#define TARKA_TOOLS_LSP_PUBLISHEDDIAGNOSTICS_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/Support/JSON.h"

namespace tarka::lsp {

class Snapshot;

/// \p diagnostic as the protocol has it.
llvm::json::Object publishedDiagnostic(Snapshot &snapshot, const Diagnostic &diagnostic);

/// Gives \p take the diagnostics of the program with the absolute path of the file that each is in.
/// What is in a copybook names the program, and stands at the COPY too.
void publishDiagnostics(
    Snapshot &snapshot,
    llvm::function_ref<void(llvm::StringRef path, const llvm::json::Object &diagnostic)> take);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_PUBLISHEDDIAGNOSTICS_H
