//===- ProgramUnit.h - a program that is open, and its snapshots -*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_PROGRAMUNIT_H
#define TARKA_TOOLS_LSP_PROGRAMUNIT_H

#include "lsp/SnapshotProcess.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringSet.h"
#include <memory>
#include <string>

namespace tarka::lsp {

/// A program that is analysed because it, or a copybook of it, is open.
struct ProgramUnit {
  explicit ProgramUnit(std::string program) : path(std::move(program)) {}

  /// Whether the program copies \p file, as far as is known.
  bool copies(llvm::StringRef file) const { return copybooks.contains(file); }
  /// Tells its snapshots of a change of a text.
  void change(const std::string &parameters) {
    for (SnapshotProcess *process : {understood.get(), ready.get(), next.get()})
      if (process)
        process->change(parameters);
  }
  /// The snapshot that is asked where \p newest has no answer; null when there is none.
  SnapshotProcess *earlierThan(const SnapshotProcess *newest) const {
    return ready && ready.get() != newest ? ready.get() : understood.get();
  }

  /// The absolute path.
  std::string path;
  /// The text has changed since the last analysis was started.
  bool isStale = false;
  /// The snapshot that answers, and the one that is being made of a later version; null for none.
  std::unique_ptr<SnapshotProcess> ready;
  std::unique_ptr<SnapshotProcess> next;
  /// The last snapshot before the ready one that has understood the text; null when the ready one
  /// has. It is asked for what half-typed code makes the ready one lose.
  std::unique_ptr<SnapshotProcess> understood;
  /// Whether it is known how much of the text the ready one has understood.
  bool isJudged = false;
  /// The versions of the open texts that the latest snapshot has read, by path.
  llvm::StringMap<std::int64_t> versions;
  /// The absolute paths of the copybooks of the last analysis.
  llvm::StringSet<> copybooks;
  /// A copybook was missing in it.
  bool isIncomplete = false;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_PROGRAMUNIT_H
