//===- CommandLine.cpp - reading the command line -------------------------===//

#include "CommandLine.h"
#include "Depfile.h"
#include "Options.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/FileSystem.h"
#include <CLI/CLI.hpp>
#include <iostream>

namespace tarka {

namespace {

/// Takes \p text, which the command line gives for \p option.
void take(Request &request, const Option &option, const std::string &text) {
  const std::string fault = setOption(option, text, request);
  if (!fault.empty())
    throw CLI::ValidationError(
        option.name.empty() ? std::string("-") + option.letter : "--" + option.name.str(), fault);
  request.settings.push_back({&option, text});
}

/// The names of \p option as CLI11 takes them: "-I,--copybook-path".
std::string namesOf(const Option &option) {
  std::string names;
  if (option.letter)
    names = std::string("-") + option.letter;
  if (!option.name.empty())
    names += (names.empty() ? "--" : ",--") + option.name.str();
  return names;
}

CLI::Option *addFlag(CLI::App &app, Request &request, const Option &option) {
  // What tarka.toml turns on can be turned off.
  if (option.isConfigurable)
    app.add_flag_function("--no-" + option.name.str(),
                          [&](std::int64_t) { take(request, option, "false"); })
        ->group("");
  return app.add_flag_function(
      namesOf(option), [&](std::int64_t) { take(request, option, "true"); }, option.help.str());
}

CLI::Option *addValue(CLI::App &app, Request &request, const Option &option) {
  CLI::Option *added;
  if (option.isList)
    added = app.add_option_function<std::vector<std::string>>(
                   namesOf(option),
                   [&](const std::vector<std::string> &texts) {
                     for (const std::string &text : texts)
                       take(request, option, text);
                   },
                   option.help.str())
                ->allow_extra_args(false)
                ->trigger_on_parse(); // the order of different options counts
  else
    added = app.add_option_function<std::string>(
        namesOf(option), [&](const std::string &text) { take(request, option, text); },
        option.help.str());
  return added->option_text(option.valueText());
}

/// Adds the options that \p command takes. \p request must live as long as \p app.
void addOptions(CLI::App &app, Request &request, Command command) {
  for (const Option &option : allOptions()) {
    if (!option.isOf(command))
      continue;
    CLI::Option *added = option.type == OptionType::Flag ? addFlag(app, request, option)
                                                         : addValue(app, request, option);
    added->group(option.isHidden ? "" : option.group.str());
    if (!option.needs.empty())
      added->needs(app.get_option("--" + option.needs.str()));
  }
}

/// Adds what stands on the command line without a name.
void addOperands(CLI::App &app, Request &request, Command command) {
  if (command == Command::Explain) {
    app.add_option("NUMBER", request.numbers,
                   "the number; without one all are listed; enterprise: the rules of --enterprise")
        ->option_text("NUMBER...");
    return;
  }
  if (command == Command::Generate) {
    app.add_option("WHAT", request.operands, "a shell, or man and the directory for the pages")
        ->option_text("bash|zsh|fish|man [DIRECTORY]")
        ->required();
    return;
  }
  if (command == Command::Init) {
    app.add_option("DIRECTORY", request.files, "where the file is written (.)")->expected(1);
    return;
  }
  if (command == Command::Lsp)
    return;
  auto *files = app.add_option("FILE", request.files,
                               command == Command::Check
                                   ? "files, directories, @LISTs of names; - is standard input"
                                   : "the source to read; - is standard input")
                    ->required();
  if (command == Command::Check || command == Command::Config)
    files->option_text("FILE...");
  else
    files->expected(1);
}

/// What is wrong with \p word, an option that \p command does not have.
std::string describeUnknown(const CLI::App &command, const std::string &word) {
  std::vector<std::string> names;
  for (const CLI::Option *option : command.get_options())
    for (const std::string &name : option->get_lnames())
      names.push_back(name);
  // The value may be attached to the name; one dash is as good as two to guess by.
  const llvm::StringRef name = llvm::StringRef(word).split('=').first.ltrim('-');
  const std::string near = nearestWord(name, names);
  return command.get_name() + " has no option '" + (name.size() > 1 ? "--" : "-") + name.str() +
         "'" + (near.empty() ? "" : "; was --" + near + " meant?");
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
  else if (command == program &&
           error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError))
    message = "a command, or the files to check, are missing";
  if (!llvm::StringRef(message).ends_with("?"))
    message += "; tarka " + (command == program ? "" : command->get_name() + " ") +
               (command == program ? "--help lists the commands" : "--help lists the options");
  return "tarka: " + message + "\n";
}

/// Puts the long names of options in the place of those that compilers have for depfiles: -MD,
/// -MF FILE, -MT NAME. CLI11 has no short names of two letters.
void translateDepfileOptions(std::vector<std::string> &arguments) {
  for (std::string &word : arguments) {
    if (word == "--")
      return;
    llvm::StringRef value = word;
    if (value == "-MD")
      word = "--depfile";
    else if (value.consume_front("-MF"))
      word = ("--depfile-output" + (value.empty() ? "" : "=" + value)).str();
    else if (value.consume_front("-MT"))
      word = ("--depfile-target" + (value.empty() ? "" : "=" + value)).str();
  }
}

/// Whether \p word, with which the command line begins, looks like a command and is not a file.
bool isMisspeltCommand(llvm::StringRef word) {
  return llvm::all_of(word, llvm::isAlpha) && !llvm::sys::fs::exists(word);
}

} // namespace

Request Request::withoutOptions() const {
  Request result;
  result.command = command;
  result.files = files;
  result.numbers = numbers;
  result.operands = operands;
  result.commandLine = commandLine;
  result.settings = settings;
  result.parse.fileSystem = parse.fileSystem;
  return result;
}

CommandLineResult readCommandLine(int argc, char **argv) {
  CommandLineResult result;
  Request request;

  // tarka FILE... is tarka check FILE...
  std::vector<std::string> arguments(argv + 1, argv + argc);
  auto isForTheProgram = [&](llvm::StringRef word) {
    return word == "--help" || word == "-h" || word == "--version" ||
           llvm::any_of(allCommands(), [&](const CommandInfo &info) { return info.name == word; });
  };
  if (!arguments.empty() && !isForTheProgram(arguments.front())) {
    if (isMisspeltCommand(arguments.front())) {
      std::vector<std::string> names;
      for (const CommandInfo &info : allCommands())
        names.push_back(info.name.str());
      const std::string near = nearestWord(arguments.front(), names);
      std::cerr << "tarka: '" << arguments.front() << "' is neither a command nor a file; "
                << (near.empty() ? "the commands are " + llvm::join(names, ", ")
                                 : "was " + near + " meant?")
                << '\n';
      result.exitStatus = ExitUnusable;
      return result;
    }
    arguments.insert(arguments.begin(), "check");
  }
  CLI::App app("Tarka analyses COBOL source.\n"
               "When only files are given, they are checked.",
               "tarka");
  app.set_version_flag("--version", "tarka " TARKA_VERSION);
  app.require_subcommand(1);
  app.failure_message(describeFailure);
  for (const CommandInfo &info : allCommands()) {
    CLI::App *command = app.add_subcommand(info.name.str(), info.help.str());
    command->callback([&request, &info] { request.command = info.command; });
    // Making options takes time; only those of the command that is carried out are needed.
    if (arguments.empty() || arguments.front() != info.name)
      continue;
    addOperands(*command, request, info.command);
    // `tarka config` shows what check would do.
    addOptions(*command, request, info.command == Command::Config ? Command::Check : info.command);
  }

  translateDepfileOptions(arguments);
  std::reverse(arguments.begin(), arguments.end());

  try {
    app.parse(arguments);
    if (const std::string fault = checkDepfileOptions(request); !fault.empty())
      throw CLI::ValidationError(fault);
  } catch (const CLI::ParseError &error) {
    result.exitStatus = app.exit(error) == 0 ? ExitClean : ExitUnusable;
    if (!std::cout.flush()) {
      std::cerr << "tarka: cannot write to standard output\n";
      result.exitStatus = ExitInternal;
    }
    return result;
  }
  request.commandLine.assign(argv, argv + argc);
  result.request = std::move(request);
  return result;
}

} // namespace tarka
