//===- CommandLine.cpp - reading the command line -------------------------===//

#include "CommandLine.h"
#include "AST/Spelling.h"
#include "Parse/Encoding.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/FileSystem.h"
#include <CLI/CLI.hpp>
#include <iostream>
#include <map>

namespace tarka {

namespace {

const std::map<std::string, SourceFormat> sourceFormats{
    {"auto", SourceFormat::Auto}, {"fixed", SourceFormat::Fixed}, {"free", SourceFormat::Free}};

const std::map<std::string, OutputFormat> graphFormats{
    {"text", OutputFormat::Text}, {"json", OutputFormat::Json}, {"dot", OutputFormat::Dot}};

const std::map<std::string, OutputFormat> textFormats{{"text", OutputFormat::Text},
                                                      {"json", OutputFormat::Json}};

const std::map<std::string, OutputFormat> explanationFormats{{"text", OutputFormat::Text},
                                                             {"json", OutputFormat::Json},
                                                             {"markdown", OutputFormat::Markdown}};

const std::map<std::string, ReportForm> reportForms{
    {"classic", ReportForm::Classic}, {"pretty", ReportForm::Pretty},
    {"json", ReportForm::Json},       {"ndjson", ReportForm::Ndjson},
    {"sarif", ReportForm::Sarif},     {"github", ReportForm::Github},
    {"junit", ReportForm::Junit},     {"gcc", ReportForm::Gcc}};

const std::map<std::string, ColorChoice> colorChoices{
    {"auto", ColorChoice::Auto}, {"always", ColorChoice::Always}, {"never", ColorChoice::Never}};

/// The one of \p candidates that \p word was probably meant to be; empty when none is near.
std::string nearestWord(llvm::StringRef word, llvm::ArrayRef<std::string> candidates) {
  const std::string lower = word.lower();
  SpellingMatch match(lower);
  for (const std::string &candidate : candidates)
    match.consider(candidate);
  return match.getNearest().str();
}

/// Turns one of \p names into its value, whatever its case.
template <typename Value> CLI::Validator oneOf(const std::map<std::string, Value> &names) {
  auto convert = [&names](std::string &text) -> std::string {
    std::string all;
    std::vector<std::string> words;
    for (const auto &[name, value] : names) {
      if (CLI::detail::to_lower(text) == name) {
        text = std::to_string(static_cast<int>(value));
        return "";
      }
      all += (all.empty() ? "" : ", ") + name;
      words.push_back(name);
    }
    const std::string near = nearestWord(text, words);
    return "'" + text + "' is none of " + all + (near.empty() ? "" : "; was " + near + " meant?");
  };
  return CLI::Validator(convert, "");
}

/// NAME=VALUE, or NAME alone.
void addDefinition(Request &request, const std::string &definition) {
  std::string::size_type equals = definition.find('=');
  if (equals == 0)
    throw CLI::ValidationError("-D", "a name is missing in '" + definition +
                                         "'; write -D NAME=VALUE or -D NAME");
  if (equals == std::string::npos)
    request.parse.defines.emplace_back(definition, "");
  else
    request.parse.defines.emplace_back(definition.substr(0, equals), definition.substr(equals + 1));
}

/// Lets pass what iconv can decode.
std::string checkEncoding(const std::string &name) {
  if (isKnownEncoding(name))
    return "";
  return "'" + name +
         "' is no encoding known here; UTF-8, ISO-8859-1, IBM-037, IBM-1047, IBM-1140, IBM-1141 "
         "and "
         "IBM-939 are examples, iconv -l lists them all";
}

/// Adds what --off, --warn and --error say of \p words.
void addRule(Request &request, const char *option, Selection::Action action,
             llvm::StringRef words) {
  const std::string unknown = request.selection.add(action, words);
  if (unknown.empty())
    return;
  std::vector<std::string> names;
  for (const DiagnosticGroup &group : diagnosticGroups())
    names.push_back(group.name.str());
  const std::string word = llvm::StringRef(unknown).trim().str();
  const std::string near = nearestWord(word, names);
  throw CLI::ValidationError(option, "'" + word +
                                         "' is neither a number, nor a range such as 3301-3399, "
                                         "nor the name of a group: " +
                                         llvm::join(names, ", ") +
                                         (near.empty() ? "" : "; was " + near + " meant?"));
}

/// -Wno-NUMBER, -Werror=NUMBER, -Wno-error=NUMBER.
void addWarningOption(Request &request, llvm::StringRef word) {
  if (word.consume_front("error="))
    addRule(request, "-W", Selection::Action::Error, word);
  else if (word.consume_front("no-error="))
    addRule(request, "-W", Selection::Action::Warn, word);
  else if (word.consume_front("no-"))
    addRule(request, "-W", Selection::Action::Off, word);
  else
    throw CLI::ValidationError("-W",
                               "'" + word.str() +
                                   "' is not understood; write -Wno-3310 to turn a diagnostic "
                                   "off, -Werror=3528 to make it an error");
}

/// What every command that reports takes.
void addReportOptions(CLI::App &app, Request &request) {
  const char *group = "Report";
  app.add_option_function<std::vector<std::string>>(
         "-W",
         [&request](const std::vector<std::string> &words) {
           for (const std::string &word : words)
             addWarningOption(request, word);
         },
         "turn diagnostics off, or into errors")
      ->option_text("no-NUMBERS|error=NUMBERS")
      ->allow_extra_args(false)
      ->trigger_on_parse()
      ->group(group);
  auto addRuleOption = [&](const char *name, Selection::Action action, const char *description) {
    app.add_option_function<std::vector<std::string>>(
           name,
           [&request, name, action](const std::vector<std::string> &lists) {
             for (const std::string &words : lists)
               addRule(request, name, action, words);
           },
           description)
        ->option_text("NUMBERS")
        ->allow_extra_args(false)
        ->trigger_on_parse()
        ->group(group);
  };
  addRuleOption("--off", Selection::Action::Off,
                "do not report these: numbers, ranges, groups, with commas between them");
  addRuleOption("--warn", Selection::Action::Warn, "report these as warnings");
  addRuleOption("--error", Selection::Action::Error, "report these as errors");
  app.add_option("--color", request.color, "color the report (auto: on a terminal)")
      ->option_text("auto|always|never")
      ->transform(oneOf(colorChoices))
      ->group(group);
  app.add_option("--output,-o", request.output, "write to FILE instead")
      ->option_text("FILE")
      ->group(group);
}

/// What check takes beyond that.
void addCheckReportOptions(CLI::App &app, Request &request) {
  const char *group = "Report";
  app.add_option("--format", request.reportForm,
                 "the form of the report (pretty on a terminal, else classic)")
      ->option_text("classic|pretty|json|ndjson|sarif|github|junit|gcc")
      ->transform(oneOf(reportForms))
      ->group(group);
  app.add_flag("--all", request.all, "report what follows from other errors too")->group(group);
  app.add_flag("--statistics", request.statistics, "print a summary at the end")->group(group);
  app.add_option("--baseline", request.baseline, "leave out the findings that FILE knows")
      ->option_text("FILE")
      ->group(group);
  app.add_option("--write-baseline", request.writeBaseline,
                 "write all findings to FILE, and report none")
      ->option_text("FILE")
      ->group(group);
  app.add_flag("--exit-zero", request.exitZero, "exit with 0 though errors are reported")
      ->group(group);
  app.add_option("--max-errors", request.maxErrors, "stop after N errors")
      ->option_text("N")
      ->check(CLI::Range(1u, ~0u).description(""))
      ->group(group);
  CLI::Option *fix =
      app.add_flag("--fix", request.fix, "change the sources where a fix is certain")->group(group);
  app.add_flag("--diff", request.diff, "with --fix: print the changes, and change nothing")
      ->needs(fix)
      ->group(group);
}

/// What every command takes: the files, how to read them, and the compile options.
void addCommonOptions(CLI::App &app, Request &request, bool severalFiles) {
  auto *files = app.add_option("FILE", request.files, "the source to read")->required();
  if (severalFiles)
    files->option_text("FILE...");
  else
    files->expected(1);
  app.add_option("-I", request.parse.includeDirectories,
                 "a directory with copybooks; may be given several times")
      ->option_text("DIR")
      ->allow_extra_args(false);
  app.add_option_function<std::vector<std::string>>(
         "-D",
         [&request](const std::vector<std::string> &definitions) {
           for (const std::string &definition : definitions)
             addDefinition(request, definition);
         },
         "a compilation variable for >>IF and >>EVALUATE")
      ->option_text("NAME[=VALUE]")
      ->allow_extra_args(false);
  app.add_option("--source-format", request.parse.format, "the layout of the lines (auto)")
      ->option_text("fixed|free|auto")
      ->transform(oneOf(sourceFormats));
  app.add_option("--encoding", request.parse.encoding, "the encoding of the source files (UTF-8)")
      ->option_text("NAME")
      ->check(CLI::Validator(checkEncoding, ""));
  app.add_flag("--cics", request.parse.cics,
               "supply what CICS does: the EIB, DFHRESP(...), DFHAID, DFHBMSCA");
  app.add_flag("--sql", request.parse.sql, "supply what DB2 does: SQLCA, SQLDA, SQL TYPE");

  addReportOptions(app, request);

  const char *group = "Compile options";
  app.add_flag("--check-file-id", request.compile.checkFileID,
               "PROGRAM-ID must be the name of the file")
      ->group(group);
  app.add_flag("--dateproc", request.compile.dateproc, "honour DATE FORMAT clauses")->group(group);
  app.add_flag("--debug", request.compile.debug, "debugging mode")->group(group);
  app.add_flag("--dual", request.compile.dual, "mark dual variables")->group(group);
  app.add_flag("--init", request.compile.init, "items without VALUE are initialised")->group(group);
  app.add_flag("--enable-cbltdli", request.compile.enableCbltdli, "calls of CBLTDLI are DL/I calls")
      ->group(group);
  app.add_flag("--enable-aertdli", request.compile.enableAertdli, "calls of AERTDLI are DL/I calls")
      ->group(group);
  app.add_flag("--enable-rw", request.compile.enableRw,
               "the report writer's registers and identifiers")
      ->group(group);
  app.add_flag("--enable-osvs", request.parse.osvs, "the words and statements of OS/VS COBOL")
      ->group(group);
  app.add_flag("--enterprise", request.compile.enterprise,
               "follow Enterprise COBOL where the checks are stricter; tarka explain enterprise")
      ->group(group);
}

/// The options of \p command without what is passed to them: "--format", "-I".
std::vector<std::string> optionNames(const CLI::App &command) {
  std::vector<std::string> names;
  for (const CLI::Option *option : command.get_options()) {
    for (const std::string &name : option->get_lnames())
      names.push_back("--" + name);
    for (const std::string &name : option->get_snames())
      names.push_back("-" + name);
  }
  return names;
}

/// What is wrong with \p word, an option that \p command does not have.
std::string describeUnknown(const CLI::App &command, const std::string &word) {
  // The value may be attached to the name; one dash is as good as two to guess by.
  const llvm::StringRef name = llvm::StringRef(word).split('=').first.ltrim('-');
  const std::string near = nearestWord(("--" + name).str(), optionNames(command));
  return command.get_name() + " has no option '--" + name.str() + "'" +
         (near.empty() ? "" : "; was " + near + " meant?");
}

/// One line: what is wrong, and what was probably meant, or where to look it up.
std::string describeFailure(const CLI::App *program, const CLI::Error &error) {
  const CLI::App *command = program;
  for (const CLI::App *chosen : program->get_subcommands())
    command = chosen;
  std::string message = error.what();
  if (const std::vector<std::string> extras = command->remaining();
      command != program && !extras.empty() &&
      error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError))
    message = describeUnknown(*command, extras.front());
  else if (llvm::StringRef(message).starts_with("FILE: At Most 1"))
    message = command->get_name() + " reads one file, and several are given";
  if (!llvm::StringRef(message).ends_with("?"))
    message += "; tarka " + (command == program ? "" : command->get_name() + " ") +
               "--help lists the options";
  return "tarka: " + message + "\n";
}

/// Whether \p word, with which the command line begins, looks like a command and is not a file.
bool isMisspeltCommand(llvm::StringRef word) {
  return llvm::all_of(word, llvm::isAlpha) && !llvm::sys::fs::exists(word);
}

} // namespace

CommandLineResult readCommandLine(int argc, char **argv) {
  CommandLineResult result;
  Request request;

  CLI::App app("Tarka analyses COBOL source.\n"
               "When only files are given, they are checked.",
               "tarka");
  app.set_version_flag("--version", "tarka " TARKA_VERSION);
  app.require_subcommand(1);
  app.failure_message(describeFailure);

  CLI::App *check = app.add_subcommand("check", "report what is wrong with each FILE");
  addCommonOptions(*check, request, true);
  addCheckReportOptions(*check, request);
  check->add_flag("--verify", request.verify,
                  "compare the report with the expectations in the source: *> expect: NUMBER");
  check->add_flag("--syntax-only", request.syntaxOnly,
                  "read the program only: what the front end reports, no checks");
  check->add_option("-j", request.jobs, "files to check at the same time (one a processor)")
      ->option_text("N")
      ->check(CLI::Range(1, 1024).description(""));

  CLI::App *cfg = app.add_subcommand("cfg", "print the control-flow graph of FILE");
  addCommonOptions(*cfg, request, false);
  cfg->add_option("--format", request.format, "how to print it (text)")
      ->option_text("text|json|dot")
      ->transform(oneOf(graphFormats));
  cfg->add_option("--function", request.view.function, "only this program's function")
      ->option_text("NAME");
  cfg->add_option("--paragraph", request.view.paragraph,
                  "only the blocks of the paragraphs and sections of this name")
      ->option_text("NAME");
  cfg->add_flag("--collapse", request.view.collapse, "one node for each procedure");
  cfg->add_flag("--full", request.view.full,
                "draw every block, however large the picture gets (dot)");
  cfg->add_flag("--keep-going", request.keepGoing, "build the graph though the checks failed");

  CLI::App *flow = app.add_subcommand(
      "flow", "print what is never reached in FILE, what is performed, and figures");
  addCommonOptions(*flow, request, false);
  flow->add_option("--format", request.format, "how to print it (text)")
      ->option_text("text|json")
      ->transform(oneOf(textFormats));
  flow->add_flag("--keep-going", request.keepGoing, "print it though the checks failed");

  CLI::App *layout =
      app.add_subcommand("layout", "print where the bytes of the records of FILE lie");
  addCommonOptions(*layout, request, false);
  layout->add_option("--format", request.format, "how to print it (text)")
      ->option_text("text|json")
      ->transform(oneOf(textFormats));
  layout->add_option("--record", request.layout.record, "only the records of this name")
      ->option_text("NAME")
      ->check([](const std::string &name) {
        return name.empty() ? std::string("a name is missing") : std::string();
      });
  layout->add_flag("--all", request.layout.all, "the special registers too");
  layout->add_flag("--keep-going", request.keepGoing,
                   "has no effect: the layout is always printed");

  CLI::App *ast =
      app.add_subcommand("ast", "print the tree of FILE with what the checks left in it");
  addCommonOptions(*ast, request, false);
  ast->add_option("--format", request.format, "how to print it (text)")
      ->option_text("text|json")
      ->transform(oneOf(textFormats));
  ast->add_flag("--keep-going", request.keepGoing, "has no effect: the tree is always printed");

  CLI::App *explain =
      app.add_subcommand("explain", "explain the diagnostic NUMBER with a program that draws it");
  explain
      ->add_option("NUMBER", request.numbers,
                   "the number; without one all are listed; enterprise: the rules of "
                   "--enterprise")
      ->option_text("NUMBER...");
  explain->add_option("--format", request.format, "how to print it (text)")
      ->option_text("text|json|markdown")
      ->transform(oneOf(explanationFormats));
  explain->add_option("--output,-o", request.output, "write to FILE instead")->option_text("FILE");

  // tarka FILE... is tarka check FILE...
  std::vector<std::string> arguments(argv + 1, argv + argc);
  std::vector<std::string> commands;
  for (const CLI::App *command : app.get_subcommands({}))
    commands.push_back(command->get_name());
  auto isForTheProgram = [&](const std::string &word) {
    return llvm::is_contained(commands, word) || word == "--help" || word == "-h" ||
           word == "--version";
  };
  if (!arguments.empty() && !isForTheProgram(arguments.front())) {
    if (isMisspeltCommand(arguments.front())) {
      const std::string near = nearestWord(arguments.front(), commands);
      std::cerr << "tarka: '" << arguments.front() << "' is no file and no command; "
                << (near.empty() ? "the commands are " + llvm::join(commands, ", ")
                                 : "was " + near + " meant?")
                << '\n';
      result.exitStatus = ExitUnusable;
      return result;
    }
    arguments.insert(arguments.begin(), "check");
  }
  std::reverse(arguments.begin(), arguments.end());

  try {
    app.parse(arguments);
  } catch (const CLI::ParseError &error) {
    result.exitStatus = app.exit(error) == 0 ? ExitClean : ExitUnusable;
    if (!std::cout.flush()) {
      std::cerr << "tarka: cannot write what was asked for\n";
      result.exitStatus = ExitInternal;
    }
    return result;
  }
  request.command = cfg->parsed()       ? Command::Cfg
                    : flow->parsed()    ? Command::Flow
                    : layout->parsed()  ? Command::Layout
                    : ast->parsed()     ? Command::Ast
                    : explain->parsed() ? Command::Explain
                                        : Command::Check;
  request.commandLine.assign(argv, argv + argc);
  result.request = std::move(request);
  return result;
}

} // namespace tarka
