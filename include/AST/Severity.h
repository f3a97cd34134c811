//===- Severity.h - how serious a diagnostic is -----------------*- C++ -*-===//
//
// The common parts of the diagnostics of the front end, of the checks and of later
// passes: severities, the line of the report, changes of the source.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_SEVERITY_H
#define TARKA_AST_SEVERITY_H

#include "AST/Node.h"
#include <cstdint>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

/// How serious a diagnostic is, most serious first.
enum class Severity : std::uint8_t {
  Fatal = 0,   ///< an error after which the text is not read further
  Error = 1,   ///< the program is wrong
  Warning = 2, ///< the program is accepted; the exit status does not change
  Info = 3,    ///< a note for the reader
};

/// The word that the report uses: "fatal", "error", "warning" or "info".
llvm::StringRef severityName(Severity severity);

/// Whether the severity affects the exit status.
inline bool isError(Severity severity) {
  return severity == Severity::Fatal || severity == Severity::Error;
}

/// Writes the line of one diagnostic, with its newline:
/// FILE:LINE:COLUMN - LINE:COLUMN severity NUMBER : message
void printReportLine(llvm::raw_ostream &out, const SourceRange &place, Severity severity,
                     int number, llvm::StringRef message);

/// A change of the source text.
struct TextEdit {
  /// The text to replace. An insertion has its end one column before its beginning.
  SourceRange place;
  /// The present text in upper case, without which the edit is not valid. Empty for an insertion.
  std::string oldText;
  /// The text that replaces it.
  std::string newText;
};

} // namespace tarka

#endif // TARKA_AST_SEVERITY_H
