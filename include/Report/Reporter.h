//===- Reporter.h - from what was found to what is printed ------*- C++ -*-===//
//
// Passes the diagnostics of all compilations of a run to the sink. Those that are
// in the baseline are left out, those of a copybook that several programs share
// are merged, the rest is counted and printed.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_REPORT_REPORTER_H
#define TARKA_REPORT_REPORTER_H

#include "Report/Sink.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/Support/Error.h"
#include <optional>

namespace tarka {

/// What one compilation has to report.
struct FileReport {
  /// The source file, as it was named.
  std::string file;
  /// Why the file could not be analysed; empty when it could.
  std::string failure;
  /// In the order of the source, with fingerprints, without those that are turned off.
  std::vector<Diagnostic> diagnostics;
  std::uint64_t lines = 0;
  /// The checks did not succeed, but reported nothing.
  bool failedSilently = false;
  /// The files and directories of which one is newer when the report may have changed; only where
  /// they were asked for.
  std::vector<std::string> inputs;
};

/// Writes \p report for deserializeFileReport() in a process of the same program.
void serialize(llvm::raw_ostream &out, const FileReport &report);
/// Reads what serialize() wrote; nothing when \p bytes are incomplete.
std::optional<FileReport> deserializeFileReport(llvm::StringRef bytes);

/// Findings that are known and not reported again.
class Baseline {
public:
  /// Reads the file that write() wrote.
  static llvm::Expected<Baseline> read(const std::string &path);

  /// Adds \p diagnostic to the known findings.
  void add(const Diagnostic &diagnostic);
  /// Whether \p diagnostic is known. Each known finding matches one diagnostic.
  bool take(const Diagnostic &diagnostic);
  /// The lines of the findings that were not taken, sorted.
  std::vector<std::string> remaining() const;
  /// The number of known findings.
  std::size_t size() const;
  /// Writes the findings in the form that read() reads.
  void write(llvm::raw_ostream &out) const;

private:
  /// By fingerprint the lines of the file.
  llvm::StringMap<std::vector<std::string>> findings;
};

/// Selects, merges and counts the diagnostics of a run and passes them to a sink.
class Reporter {
public:
  /// What is done with the diagnostics besides printing them.
  struct Options {
    /// Findings to leave out; null for none.
    Baseline *known = nullptr;
    /// Takes everything that was found instead of the sink; null to report as usual.
    Baseline *record = nullptr;
    /// After this many errors nothing is printed; 0 for no bound.
    unsigned maxErrors = 0;
    /// There are several compilations: what they find in a copybook is reported once, at the end.
    bool mergeCopybooks = false;
    /// Such a diagnostic lists its programs. Without, they are only counted, which takes no memory.
    bool listPrograms = false;
  };

  /// \p target must outlive the reporter.
  Reporter(Sink &target, Options reporterOptions) : sink(target), options(reporterOptions) {}

  /// Begins the report.
  void begin(const RunInfo &run) { sink.begin(run); }
  /// Reports the diagnostics of one compilation.
  void take(FileReport report);
  /// How many compilations were taken.
  unsigned getFiles() const { return summary.files; }
  /// Whether the maximum of errors was reached, so that the rest of the run can be skipped.
  bool isFull() const { return options.maxErrors && summary.errors >= options.maxErrors; }
  /// Reports what belongs to several compilations. Then the counts are complete.
  RunSummary &finish();
  /// Ends the report, with what the caller added to the summary.
  void end() { sink.end(summary); }

private:
  void print(const Diagnostic &diagnostic);
  /// Whether \p diagnostic was kept for finish(), or repeats one that was.
  bool merge(Diagnostic &diagnostic, llvm::StringRef file);

  void printShared(unsigned index);

  Sink &sink;
  Options options;
  RunSummary summary;
  /// A diagnostic of a copybook, and the compilations that have it.
  struct Shared {
    Diagnostic diagnostic;
    unsigned lastFile = 0; ///< the latest of them, as summary.files counts
    /// Indexes in programNames, when they are listed.
    std::vector<unsigned> programs;
  };
  /// In the order found, and their indexes by their contents.
  std::vector<Shared> ofCopybooks;
  llvm::StringMap<unsigned> copybookIndex;
  /// The programs that have any of them, with the one of summary.files last.
  std::vector<std::string> programNames;
  unsigned namedFile = 0;
};

} // namespace tarka

#endif // TARKA_REPORT_REPORTER_H
