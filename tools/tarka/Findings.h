//===- Findings.h - what was found in a compilation -------------*- C++ -*-===//

#ifndef TARKA_TOOLS_FINDINGS_H
#define TARKA_TOOLS_FINDINGS_H

#include "Analyzer/LanguageChecker.h"
#include "Report/Diagnostic.h"
#include "SourceLines.h"
#include <vector>

namespace tarka {

class ErrorHandler;
class FrontEndDiagnostics;
class Selection;

/// What the second pass finds in \p program after the front end and the checks, see
/// checkLanguage().
std::vector<ErrorEntry> checkLanguage(Program &program, const FrontEndDiagnostics &frontEnd,
                                      const ErrorHandler &handler);

/// The diagnostics of the front end, then those of the checks and of the second pass, in the order
/// found: with what they are about, the source lines that they show, and the fixes for the source
/// \p file itself.
std::vector<Diagnostic> collectFindings(llvm::StringRef file, const FrontEndDiagnostics &frontEnd,
                                        const ErrorHandler &handler,
                                        llvm::ArrayRef<ErrorEntry> secondPass, SourceLines &lines);

/// Adds the mistakes that the front end did not report because they follow from others.
void addSuppressed(std::vector<Diagnostic> &findings, llvm::StringRef file,
                   const FrontEndDiagnostics &frontEnd, SourceLines &lines);

/// Of \p findings those that comments in the source and \p selection leave, with the severity that
/// they give. Adds warnings for comments of \p file that turn nothing off, when \p isComplete says
/// that everything was checked.
void selectFindings(std::vector<Diagnostic> &findings, llvm::StringRef file, bool isComplete,
                    const Selection &selection, SourceLines &lines);

} // namespace tarka

#endif // TARKA_TOOLS_FINDINGS_H
