//===- LanguageServer.h - tarka lsp -----------------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_LANGUAGESERVER_H
#define TARKA_TOOLS_LSP_LANGUAGESERVER_H

#include "CommandLine.h"

namespace tarka {

/// Serves an editor over standard input and output until it ends the session. \p request has the
/// options of the command line, which hold for every program. Gives the exit status.
int serveEditor(const Request &request);

} // namespace tarka

#endif // TARKA_TOOLS_LSP_LANGUAGESERVER_H
