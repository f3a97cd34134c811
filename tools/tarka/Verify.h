//===- Verify.h - expectations in the source --------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_VERIFY_H
#define TARKA_TOOLS_VERIFY_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/ArrayRef.h"
#include <string>

namespace tarka {

/// Compares the report with the expectations that stand in comments of the source \p file and of
/// the copybooks that are reported on:
///
///     *> expect: 3106           a diagnostic that begins in this line
///     *> expect@+1: 3106 3118   diagnostics of the next line (@-2: of the one before the last)
///     *> expect: 3106:12-20     one that begins in column 12 and ends in column 20
///
/// Every diagnostic is to be expected once, and every expected one reported. Differences are
/// written to \p out; true when there is none.
/// \p encoding is that of the files; empty is UTF-8.
bool verifyReport(const std::string &file, const std::string &encoding,
                  llvm::ArrayRef<Diagnostic> findings, llvm::raw_ostream &out);

} // namespace tarka

#endif // TARKA_TOOLS_VERIFY_H
