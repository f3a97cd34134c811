//===- ProgramRun.h - a run over many programs ------------------*- C++ -*-===//
//
// The programs of a run are analysed in processes other than this one, so that a
// crash or a runaway costs one program only.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_PROGRAMRUN_H
#define TARKA_TOOLS_PROGRAMRUN_H

#include "CommandLine.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/StringRef.h"

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

/// The tree is walked by recursion, as deep as the source nests and as long as its chains of
/// operators are; this much stack, in bytes, is reserved for it. What is not used costs nothing.
constexpr unsigned compilationStack = 1u << 30;

/// Gives the name of the next program; none at the end.
using ProgramSource = llvm::function_ref<std::optional<std::string>()>;

/// What a worker does with the program \p file: it may print, and writes an answer for the parent.
/// It returns an ExitStatus. The trees of one program are gone when the next one begins.
using ProgramTask = llvm::function_ref<int(const std::string &file, llvm::raw_ostream &answer)>;

/// What the task would answer for the program \p file, when that is known without it.
using KnownAnswer = llvm::function_ref<std::optional<std::string>(const std::string &file)>;

/// What came of a program.
struct ProgramResult {
  llvm::StringRef file;
  /// What the task answered; not to be relied on when it failed.
  llvm::StringRef answer;
  /// What the task returned.
  int exitStatus = ExitInternal;
  /// Why the task did not come to its end; empty when it did.
  std::string failure;
};

/// Runs \p task for each program that \p next gives, within the limits of \p request. In the order
/// of the programs, what a task printed is printed whole, and its result goes to \p take, which
/// says whether to go on. A signal that asks the program to end breaks the run off: the results
/// that are ready go to take, then the signal is returned. Else 0. There is no task for a program
/// whose answer \p known gives.
int runPrograms(const Request &request, ProgramSource next, ProgramTask task,
                llvm::function_ref<bool(const ProgramResult &)> take, KnownAnswer known = {});

} // namespace tarka

#endif // TARKA_TOOLS_PROGRAMRUN_H
