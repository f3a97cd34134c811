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
  auto [position, isNew] =
      copybookIndex.try_emplace(key, static_cast<unsigned>(ofCopybooks.size()));
  if (isNew)
    ofCopybooks.push_back({std::move(diagnostic), 0, {}});
  Shared &shared = ofCopybooks[position->second];
  if (shared.lastFile == summary.files)
    return true;
  shared.lastFile = summary.files;
  // Each program copies the text in another place.
  if (++shared.diagnostic.programCount > 1)
    shared.diagnostic.copiedFrom.clear();
  if (options.listPrograms) {
    if (namedFile != summary.files)
      programNames.push_back(file.str());
    namedFile = summary.files;
    shared.programs.push_back(static_cast<unsigned>(programNames.size() - 1));
  }
  return true;
}

/// Prints the diagnostic number \p index of the copybooks, with its programs.
void Reporter::printShared(unsigned index) {
  Shared &shared = ofCopybooks[index];
  std::vector<std::string> &names = shared.diagnostic.programs;
  for (unsigned program : shared.programs)
    names.push_back(programNames[program]);
  print(shared.diagnostic);
  names = {};
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
  llvm::MapVector<unsigned, std::vector<unsigned>> byFile;
  for (unsigned index = 0; index < ofCopybooks.size(); ++index)
    byFile[ofCopybooks[index].diagnostic.place.file].push_back(index);
  for (const auto &[file, indexes] : byFile) {
    sink.beginFile(fileNameOf(file));
    for (unsigned index : indexes)
      printShared(index);
  }
  if (options.known)
    summary.gone = static_cast<unsigned>(options.known->remaining().size());
  return summary;
}

} // namespace tarka
