//===- Reporter.cpp - from what was found to what is printed --------------===//

#include "Report/Reporter.h"
#include "llvm/ADT/MapVector.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

void Reporter::take(FileReport report) {
  ++summary.files;
  summary.lines += report.lines;
  if (!report.failure.empty()) {
    sink.reportFailure(report.file, report.failure);
    return;
  }
  if (!options.record)
    sink.beginFile(report.file);
  for (Diagnostic &diagnostic : report.diagnostics) {
    if (options.record)
      options.record->add(diagnostic);
    else if (options.known && options.known->take(diagnostic))
      ++summary.known;
    else if (!merge(diagnostic, report.file))
      print(diagnostic);
  }
}

bool Reporter::merge(Diagnostic &diagnostic, llvm::StringRef file) {
  const SourceRange &place = diagnostic.place;
  if (!options.mergeCopybooks || place.file == 0 || fileNameOf(place.file) == file)
    return false;
  std::string key;
  llvm::raw_string_ostream(key) << place.file << ' ' << place.beginLine << ' ' << place.beginColumn
                                << ' ' << place.endLine << ' ' << place.endColumn << ' '
                                << diagnostic.number << ' ' << diagnostic.getMessage();
  auto [position, isNew] = copybookIndex.try_emplace(key, ofCopybooks.size());
  if (isNew)
    ofCopybooks.push_back(diagnostic);
  std::vector<std::string> &programs = ofCopybooks[position->second].programs;
  if (programs.empty() || programs.back() != file)
    programs.push_back(file.str());
  // Each program copies the text in another place.
  if (programs.size() > 1)
    ofCopybooks[position->second].copiedFrom.clear();
  return true;
}

void Reporter::print(const Diagnostic &diagnostic) {
  if (isFull())
    return;
  if (isError(diagnostic.severity))
    ++summary.errors;
  else if (diagnostic.severity == Severity::Warning)
    ++summary.warnings;
  ++summary.numbers[diagnostic.number];
  sink.report(diagnostic);
}

RunSummary &Reporter::finish() {
  // By copybook, each in the order found.
  llvm::MapVector<unsigned, std::vector<const Diagnostic *>> byFile;
  for (const Diagnostic &diagnostic : ofCopybooks)
    byFile[diagnostic.place.file].push_back(&diagnostic);
  for (const auto &[file, diagnostics] : byFile) {
    sink.beginFile(fileNameOf(file));
    for (const Diagnostic *diagnostic : diagnostics)
      print(*diagnostic);
  }
  if (options.known)
    summary.gone = static_cast<unsigned>(options.known->remaining().size());
  return summary;
}

} // namespace tarka
