//===- Reporter.h - from what was found to what is printed ------*- C++ -*-===//
//
// The diagnostics of all compilations of a run on their way to the sink: those
// that a baseline knows stay silent, those of a copybook that several programs
// share become one, the rest is counted and printed.
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
  /// Why nothing could be found out about it; empty when something could.
  std::string failure;
  /// In the order found, with fingerprints, without those that are turned off.
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
/// Reads what serialize() wrote; none when \p bytes are not whole.
std::optional<FileReport> deserializeFileReport(llvm::StringRef bytes);

/// Findings that are known and not reported again.
class Baseline {
public:
  /// Reads the file that write() wrote.
  static llvm::Expected<Baseline> read(const std::string &path);

  void add(const Diagnostic &diagnostic);
  /// Whether \p diagnostic is known. Each known finding answers for one diagnostic.
  bool take(const Diagnostic &diagnostic);
  /// The lines of the findings that were not taken, sorted.
  std::vector<std::string> remaining() const;
  std::size_t size() const;
  void write(llvm::raw_ostream &out) const;

private:
  /// By fingerprint the lines of the file.
  llvm::StringMap<std::vector<std::string>> findings;
};

class Reporter {
public:
  struct Options {
    /// Findings to leave out; null for none.
    Baseline *known = nullptr;
    /// Takes everything that was found instead of the sink; null to report as usual.
    Baseline *record = nullptr;
    /// After this many errors nothing is printed; 0 for no bound.
    unsigned maxErrors = 0;
    /// There are several compilations: what they find in a copybook is reported once, at the end.
    bool mergeCopybooks = false;
  };

  Reporter(Sink &target, Options reporterOptions) : sink(target), options(reporterOptions) {}

  void begin(const RunInfo &run) { sink.begin(run); }
  void take(FileReport report);
  /// Whether the bound of errors was reached and the rest of the run is of no use.
  bool isFull() const { return options.maxErrors && summary.errors >= options.maxErrors; }
  /// Reports what belongs to several compilations. Then the counts are complete.
  RunSummary &finish();
  /// Ends the report, with what the caller added to the summary.
  void end() { sink.end(summary); }

private:
  void print(const Diagnostic &diagnostic);
  /// Whether \p diagnostic was kept for finish(), or repeats one that was.
  bool merge(Diagnostic &diagnostic, llvm::StringRef file);

  Sink &sink;
  Options options;
  RunSummary summary;
  /// Diagnostics of copybooks in the order found, and their indexes by what they say.
  std::vector<Diagnostic> ofCopybooks;
  llvm::StringMap<std::size_t> copybookIndex;
};

} // namespace tarka

#endif // TARKA_REPORT_REPORTER_H
