//===- Workers.h - a process for each file ----------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_WORKERS_H
#define TARKA_TOOLS_WORKERS_H

#include "llvm/ADT/STLFunctionalExtras.h"
#include <string>
#include <vector>

namespace tarka {

/// Runs \p work for each file in a process of its own, at most \p jobs at a time (0: one for each
/// processor). What the workers print comes out whole and in the order of the files. A worker that
/// dies is told of by its file. Gives the highest exit status of all.
int runWorkers(const std::vector<std::string> &files, unsigned jobs,
               llvm::function_ref<int(const std::string &)> work);

} // namespace tarka

#endif // TARKA_TOOLS_WORKERS_H
