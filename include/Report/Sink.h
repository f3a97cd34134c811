//===- Sink.h - the forms that a report is printed in -----------*- C++ -*-===//
//
// One sink for each form. Each writes to the stream that it is made with, and has
// written everything after end(). docs/report.md describes the forms.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_REPORT_SINK_H
#define TARKA_REPORT_SINK_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include <functional>
#include <map>
#include <memory>

namespace tarka {

/// Describes a run.
struct RunInfo {
  /// The version of the program.
  std::string version;
  /// The words of the command line.
  std::vector<std::string> commandLine;
};

/// The result of a run.
struct RunSummary {
  unsigned files = 0;
  /// Lines of the source files, without copybooks; 0 when not requested.
  std::uint64_t lines = 0;
  unsigned errors = 0;
  unsigned warnings = 0;
  /// How often each number was reported.
  std::map<int, unsigned> numbers;
  /// Findings of the baseline that were found again, and those that are gone.
  unsigned known = 0;
  unsigned gone = 0;
  double seconds = 0;
  /// The exit status of the program.
  int exitStatus = 0;
};

/// Describes a number, for forms that list their rules.
struct RuleText {
  std::string name;    ///< an identifier that says what is wrong; may be empty
  std::string message; ///< the text of the table
  std::string rule;    ///< the explanation, one paragraph; may be empty
  Severity severity = Severity::Error;
};
/// Gives the description of a number.
using RuleLookup = std::function<RuleText(int number)>;

/// Prints diagnostics in one form. begin() and end() are called once each, around everything.
class Sink {
public:
  virtual ~Sink() = default;
  virtual void begin(const RunInfo &) {}
  /// The diagnostics that follow belong to the compilation of \p file, or are those of a copybook
  /// \p file that several compilations share.
  virtual void beginFile(llvm::StringRef) {}
  virtual void report(const Diagnostic &diagnostic) = 0;
  /// \p file could not be analysed, because of \p reason.
  virtual void reportFailure(llvm::StringRef /*file*/, llvm::StringRef /*reason*/) {}
  virtual void end(const RunSummary &) {}
};

/// The line of printReportLine() for each diagnostic.
std::unique_ptr<Sink> makeClassicSink(llvm::raw_ostream &out);

/// For a person at a terminal: the source line with the place marked, notes and fixes; what was
/// found in one line comes together. With \p color in color.
std::unique_ptr<Sink> makePrettySink(llvm::raw_ostream &out, bool color);

/// The form of GCC's messages, which editors and tools read:
/// FILE:LINE:COLUMN: error: TEXT [NUMBER]
std::unique_ptr<Sink> makeGccSink(llvm::raw_ostream &out);

/// Annotations of GitHub's workflows.
std::unique_ptr<Sink> makeGithubSink(llvm::raw_ostream &out);

/// One JSON document.
std::unique_ptr<Sink> makeJsonSink(llvm::raw_ostream &out);

/// One JSON object per line, one for each diagnostic.
std::unique_ptr<Sink> makeNdjsonSink(llvm::raw_ostream &out);

/// A test report in the XML of JUnit: a test case for each file.
std::unique_ptr<Sink> makeJunitSink(llvm::raw_ostream &out);

/// How many results a SARIF file has at most; readers of larger ones refuse them.
inline constexpr unsigned maxSarifResults = 20'000;

/// A log of SARIF 2.1.0 with one run. When it has more than \p maxResults results, it ends with
/// the first ones, and another one is written to the stream that \p nextStream opens. \p rules,
/// which must live as long as the sink, describes the numbers.
std::unique_ptr<Sink> makeSarifSink(llvm::raw_ostream &out, RuleLookup rules,
                                    std::function<llvm::raw_ostream *()> nextStream = {},
                                    unsigned maxResults = maxSarifResults);

/// Prints \p summary for a person: how much was read, what was found, by number with how often.
/// \p title gives the text of a number.
void printSummary(llvm::raw_ostream &out, const RunSummary &summary, bool color,
                  llvm::function_ref<std::string(int number)> title);

} // namespace tarka

#endif // TARKA_REPORT_SINK_H
