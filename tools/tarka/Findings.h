//===- Findings.h - what was found in a compilation -------------*- C++ -*-===//

#ifndef TARKA_TOOLS_FINDINGS_H
#define TARKA_TOOLS_FINDINGS_H

#include "Report/Diagnostic.h"
#include <vector>

namespace tarka {

class ErrorHandler;
class FrontEndDiagnostics;
class Program;

/// The diagnostics of the front end, then those of the checks, in the order found. \p file is the
/// source file of the compilation.
std::vector<Diagnostic> collectFindings(llvm::StringRef file, const FrontEndDiagnostics &frontEnd,
                                        const ErrorHandler &handler);

/// Appends what the second pass finds in \p program, see checkLanguage(). \p findings hold what the
/// front end and the checks have found in it; \p isTreeComplete tells that the front end found no
/// error.
void addLanguageFindings(std::vector<Diagnostic> &findings, llvm::StringRef file, Program &program,
                         bool isTreeComplete);

} // namespace tarka

#endif // TARKA_TOOLS_FINDINGS_H
