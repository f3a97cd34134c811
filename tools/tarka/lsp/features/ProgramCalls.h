//===- ProgramCalls.h - the programs that a program calls -------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_FEATURES_PROGRAMCALLS_H
#define TARKA_TOOLS_LSP_FEATURES_PROGRAMCALLS_H

#include "lsp/Snapshot.h"
#include <string>
#include <vector>

namespace tarka::lsp {

/// A place where a program is called: CALL, or LINK, XCTL and LOAD of CICS.
struct ProgramCall {
  /// In upper case.
  std::string program;
  /// The literal or the item that names it.
  SourceRange place;
  /// It is a program of the same source.
  bool isInSource = false;
};

/// The calls whose program is certain: named by a literal, or by an item with a VALUE that no
/// statement changes. In source order for each program.
std::vector<ProgramCall> programCalls(Snapshot &snapshot);

/// The program that is named at \p point: called there, declared there, or nothing.
std::optional<std::string> programNamedAt(Snapshot &snapshot, const SourcePoint &point);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_PROGRAMCALLS_H
