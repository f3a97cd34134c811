//===- Workers.h - a process for each file ----------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_WORKERS_H
#define TARKA_TOOLS_WORKERS_H

#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/StringRef.h"
#include <string>
#include <vector>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

/// What a worker does with one file: it may print, and gives an answer to the parent and the exit
/// status.
using WorkerTask = llvm::function_ref<int(const std::string &file, llvm::raw_ostream &answer)>;

/// How a worker ended.
struct WorkerResult {
  const std::string &file;
  /// What the task answered; not to be relied on when the worker failed.
  llvm::StringRef answer;
  int exitStatus = 0;
  /// Why the worker did not come to an end; empty when it did.
  std::string failure;
};

/// Runs \p task for each file in a process of its own, at most \p jobs at a time (0: one for each
/// processor). In the order of the files, what a worker printed comes out whole and its result
/// goes to \p take, which says whether to go on.
void runWorkers(const std::vector<std::string> &files, unsigned jobs, WorkerTask task,
                llvm::function_ref<bool(const WorkerResult &)> take);

} // namespace tarka

#endif // TARKA_TOOLS_WORKERS_H
