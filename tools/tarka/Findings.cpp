//===- Findings.cpp - what was found in a compilation ---------------------===//

#include "Findings.h"
#include "Analyzer/LanguageChecker.h"
#include "Parse/Diagnostics.h"
#include "llvm/Support/Path.h"

namespace tarka {

namespace {

Diagnostic convert(const DiagnosticEntry &entry) {
  Diagnostic diagnostic;
  diagnostic.number = static_cast<int>(entry.getNumber());
  diagnostic.severity = entry.severity;
  diagnostic.text = entry.message;
  diagnostic.place = entry.place;
  diagnostic.fix = entry.fix;
  return diagnostic;
}

Diagnostic convert(const ErrorEntry &entry) {
  Diagnostic diagnostic;
  diagnostic.number = entry.getNumber();
  diagnostic.severity = static_cast<Severity>(entry.getSeverity());
  diagnostic.text = entry.getMessage();
  diagnostic.subject = entry.getSubject();
  diagnostic.place = entry.getNode()->getRange();
  for (const ErrorNote &note : entry.getNotes())
    diagnostic.notes.push_back({note.text, note.place, ""});
  return diagnostic;
}

} // namespace

std::vector<Diagnostic> collectFindings(llvm::StringRef file, const FrontEndDiagnostics &frontEnd,
                                        const ErrorHandler &handler) {
  std::vector<Diagnostic> findings;
  findings.reserve(frontEnd.getEntries().size() + handler.getErrorList().size());
  for (const DiagnosticEntry &entry : frontEnd.getEntries())
    findings.push_back(convert(entry));
  for (const ErrorEntry *entry : handler.getErrorList())
    findings.push_back(convert(*entry));
  for (Diagnostic &diagnostic : findings)
    diagnostic.program = llvm::sys::path::filename(file);
  return findings;
}

void addLanguageFindings(std::vector<Diagnostic> &findings, llvm::StringRef file, Program &program,
                         bool isTreeComplete) {
  EarlierDiagnostics earlier;
  earlier.isTreeComplete = isTreeComplete;
  earlier.places.reserve(findings.size());
  for (const Diagnostic &diagnostic : findings)
    earlier.places.push_back(diagnostic.place);
  for (const ErrorEntry &entry : checkLanguage(program, earlier)) {
    findings.push_back(convert(entry));
    findings.back().program = llvm::sys::path::filename(file);
  }
}

} // namespace tarka
