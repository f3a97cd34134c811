//===- CommandLine.h - what the program was asked to do ---------*- C++ -*-===//

#ifndef TARKA_TOOLS_COMMANDLINE_H
#define TARKA_TOOLS_COMMANDLINE_H

#include "Analyzer/CompileOption.h"
#include "Parse/ParseOptions.h"
#include "Print/PrintExpansion.h"
#include "Print/PrintGraph.h"
#include "Print/PrintLayout.h"
#include "Report/Selection.h"
#include <optional>
#include <string>
#include <vector>

namespace tarka {

/// The exit status of the program. Above Unusable it is an internal failure.
enum ExitStatus : int {
  ExitClean = 0,    ///< nothing wrong
  ExitFindings = 1, ///< an error was reported, or the checks did not succeed
  ExitUnusable = 2, ///< the command line was wrong or a file could not be read
  ExitInternal = 3, ///< a worker crashed, or output could not be written
};

enum class Command { Check, Cfg, Flow, Layout, Ast, Explain, Config, Init, Expand, Generate, Lsp };
enum class OutputFormat { Text, Json, Dot, Markdown };

/// The forms of the report.
enum class ReportForm {
  Auto, ///< Pretty on a terminal, else Classic
  Classic,
  Pretty,
  Json,
  Ndjson,
  Sarif,
  Github,
  Junit,
  Gcc,
};
enum class ColorChoice { Auto, Always, Never };

struct Option;

/// An option that was given, with its value as written; "true" or "false" for a flag.
struct OptionSetting {
  const Option *option;
  std::string text;
};

/// What the command line asked for.
struct Request {
  Command command = Command::Check;
  /// Files, directories, @LISTs, and - for standard input.
  std::vector<std::string> files;
  /// Which files of a directory are programs, and which are left out: patterns as PathPattern reads
  /// them.
  std::vector<std::string> include;
  std::vector<std::string> exclude;
  /// What standard input is called.
  std::string stdinName = "<stdin>";
  ParseOptions parse;
  /// The words of the command line.
  std::vector<std::string> commandLine;
  /// Its options in their order.
  std::vector<OptionSetting> settings;

  /// The item that is followed through the program, which may be qualified; empty without one.
  std::string item;

  // The report.
  ReportForm reportForm = ReportForm::Auto;
  ColorChoice color = ColorChoice::Auto;
  Selection selection;
  /// Report the consequences of other errors too.
  bool all = false;
  /// Where the report or the result goes; empty for standard error or output.
  std::string output;

  CompileSettings compile;

  // check
  bool syntaxOnly = false;
  bool verify = false;
  unsigned jobs = 0;        ///< 0 is one for each processor
  double timeLimit = 0;     ///< seconds for each program; 0 for no limit
  unsigned memoryLimit = 0; ///< mebibytes for each program; 0 for no limit
  bool statistics = false;
  std::string baseline;
  std::string writeBaseline;
  bool exitZero = false;
  unsigned maxErrors = 0; ///< 0 for unlimited
  bool fix = false;
  bool diff = false;
  /// Keep reports, and use those that are kept; where, unless it is in the user's cache.
  bool cache = true;
  std::string cacheDirectory;
  /// Print what the programs copy instead of the report.
  bool listCopybooks = false;
  /// Write a depfile: under this name, or one made of the output's.
  bool writeDepfile = false;
  std::string depfile;
  std::vector<std::string> depfileTargets;

  // expand
  ExpansionView expansion;

  // cfg, layout, ast, explain
  OutputFormat format = OutputFormat::Text;
  bool keepGoing = false;
  GraphView view;
  LayoutView layout;

  // explain
  std::vector<std::string> numbers;

  // generate
  std::vector<std::string> operands;

  // Where options come from.
  std::string config;    ///< the configuration file; empty for those above the programs
  bool noConfig = false; ///< use none
  bool force = false;    ///< init overwrites

  /// The same with no option set.
  Request withoutOptions() const;
};

/// Reads the command line. Gives the request, or the exit status with which to end at once: after
/// --help and --version, and after a message to standard error when the command line is wrong.
struct CommandLineResult {
  std::optional<Request> request;
  int exitStatus = ExitClean;
};
CommandLineResult readCommandLine(int argc, char **argv);

} // namespace tarka

#endif // TARKA_TOOLS_COMMANDLINE_H
