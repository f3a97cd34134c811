//===- Findings.h - what was found in a compilation -------------*- C++ -*-===//

#ifndef TARKA_TOOLS_FINDINGS_H
#define TARKA_TOOLS_FINDINGS_H

#include "Report/Diagnostic.h"
#include <vector>

namespace tarka {

class ErrorHandler;
class FrontEndDiagnostics;

/// The diagnostics of the front end, then those of the checks, in the order found. \p file is the
/// source file of the compilation.
std::vector<Diagnostic> collectFindings(llvm::StringRef file, const FrontEndDiagnostics &frontEnd,
                                        const ErrorHandler &handler);

} // namespace tarka

#endif // TARKA_TOOLS_FINDINGS_H
