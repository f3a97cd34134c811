//===- Severity.cpp - how serious a diagnostic is -------------------------===//

#include "AST/Severity.h"
#include "llvm/Support/ErrorHandling.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

llvm::StringRef severityName(Severity severity) {
  switch (severity) {
  case Severity::Fatal:
    return "fatal";
  case Severity::Error:
    return "error";
  case Severity::Warning:
    return "warning";
  case Severity::Info:
    return "info";
  }
  llvm_unreachable("invalid Severity used");
}

void printReportLine(llvm::raw_ostream &out, const SourceRange &place, Severity severity,
                     int number, llvm::StringRef message) {
  out << fileNameOf(place.file) << ':' << place.beginLine << ':' << place.beginColumn << " - "
      << place.endLine << ':' << place.endColumn << ' ' << severityName(severity) << ' ' << number
      << " : " << message << '\n';
}

} // namespace tarka
