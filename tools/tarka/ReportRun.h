//===- ReportRun.h - the report of one run ----------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_REPORTRUN_H
#define TARKA_TOOLS_REPORTRUN_H

#include "CommandLine.h"
#include "OutputFile.h"
#include "Report/Reporter.h"
#include <chrono>

namespace tarka {

/// Whether a summary is printed at the end: where it was asked for, and where a person reads the
/// report of `tarka check`.
bool showsSummary(const Request &request);

/// The report of one run in the form and at the place that the command line asks for.
class ReportRun {
public:
  explicit ReportRun(const Request &driverRequest);

  /// False, after a message, when the output or the baseline cannot be opened.
  bool isOpen() const { return reporter != nullptr; }
  /// The exit status so far.
  int getStatus() const { return status; }
  /// Takes what is to be reported of one file.
  void take(FileReport report);
  /// The same of a file whose worker did not come to an end.
  void takeCrash(const std::string &file, const std::string &reason);
  /// The same of a file, directory or list that cannot be read; \p reason names it.
  void takeUnreadable(const std::string &name, const std::string &reason);
  /// Whether the rest of the run is of no use.
  bool isFull() const { return reporter->isFull(); }
  /// Notes that \p signal has broken the run off.
  void interrupt(int signal);
  /// Ends the report and gives the exit status of the run.
  int finish();

private:
  bool openBaseline();
  bool writeBaseline();
  /// Opens one more file of a report that is split.
  llvm::raw_ostream *openNextFile();
  std::unique_ptr<Sink> makeSink(llvm::raw_ostream &out);
  /// Sends off what was printed; false when it cannot be written.
  bool flush();

  const Request &request;
  std::optional<CommandOutput> output;
  std::vector<std::unique_ptr<OutputFile>> furtherFiles;
  llvm::raw_ostream *out = nullptr;
  std::unique_ptr<Sink> sink;
  std::optional<Baseline> known;
  Baseline record;
  std::unique_ptr<Reporter> reporter;
  std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
  int status = ExitClean;
};

} // namespace tarka

#endif // TARKA_TOOLS_REPORTRUN_H
