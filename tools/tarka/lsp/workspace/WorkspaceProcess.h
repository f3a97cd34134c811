//===- WorkspaceProcess.h - the process that knows all programs -*- C++ -*-===//
//
// Analyses the programs of the editor's folders in the background, keeps an index
// of them and answers questions about it: those of the server over the socket of a
// worker, those of snapshots over connections of their own, so that the server
// neither keeps the index nor passes on what is asked.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_WORKSPACE_WORKSPACEPROCESS_H
#define TARKA_TOOLS_LSP_WORKSPACE_WORKSPACEPROCESS_H

#include "CommandLine.h"
#include "lsp/Positions.h"
#include "llvm/Support/JSON.h"
#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace tarka::lsp {

struct WorkspaceInput {
  /// What the command line of the server says.
  const Request &commandLine;
  /// Absolute paths.
  const std::vector<std::string> &folders;
  PositionEncoding encoding;
  /// The name at which snapshots reach the process: that of an abstract socket.
  std::string name;
};

/// Begins with the programs of the folders and answers what WorkspaceIndex answers, until the other
/// end of \p channel is closed. A Change with "paths" says that files have changed. An answer waits
/// until all programs are known, but no longer than its "patience" in milliseconds. Gives the exit
/// status of the process.
int runWorkspace(const WorkspaceInput &input, int channel);

/// Asks the process of that \p name, for a snapshot. None when there is no such process.
std::optional<llvm::json::Value> askWorkspace(const std::string &name, llvm::StringRef method,
                                              llvm::json::Object parameters,
                                              std::chrono::milliseconds patience);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_WORKSPACE_WORKSPACEPROCESS_H
