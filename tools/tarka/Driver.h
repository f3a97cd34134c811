//===- Driver.h - carrying out a command ------------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_DRIVER_H
#define TARKA_TOOLS_DRIVER_H

#include "CommandLine.h"
#include "llvm/ADT/StringRef.h"

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

/// Carries out the request and gives the exit status. Reports go to standard error, what was asked
/// to be printed to standard output.
int carryOut(Request request);

/// Checks the first file of \p request and writes its report to \p out. Once in a process.
void writeReport(const Request &request, llvm::raw_ostream &out);

} // namespace tarka

#endif // TARKA_TOOLS_DRIVER_H
