//===- Generate.cpp - man pages and shell completions ---------------------===//

#include "Generate.h"
#include "Options.h"
#include "OutputFile.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/Path.h"

namespace tarka {

namespace {

/// The options of \p command that its help lists.
std::vector<const Option *> optionsOf(Command command) {
  std::vector<const Option *> options;
  for (const Option &option : allOptions())
    if (option.isOf(command) && !option.isHidden)
      options.push_back(&option);
  return options;
}

/// "--output" and "-o".
std::vector<std::string> spellingsOf(const Option &option) {
  std::vector<std::string> spellings;
  if (!option.name.empty())
    spellings.push_back("--" + option.name.str());
  if (option.letter)
    spellings.push_back(std::string("-") + option.letter);
  return spellings;
}

bool takesValue(const Option &option) {
  return option.type != OptionType::Flag;
}

/// The words that the value can be.
std::string choicesOf(const Option &option) {
  return llvm::join(
      llvm::map_range(option.choices, [](const OptionChoice &choice) { return choice.word; }), " ");
}

std::string commandNames() {
  return llvm::join(
      llvm::map_range(allCommands(), [](const CommandInfo &info) { return info.name; }), " ");
}

/// What stands for the operands of \p command.
llvm::StringRef operandsOf(Command command) {
  switch (command) {
  case Command::Check:
    return "FILE...";
  case Command::Explain:
    return "[NUMBER...]";
  case Command::Generate:
    return "bash|zsh|fish|man [DIRECTORY]";
  default:
    return "FILE";
  }
}

/// \p text with each of \p special after a backslash.
std::string escape(llvm::StringRef text, llvm::StringRef special) {
  std::string escaped;
  for (const char c : text) {
    if (special.contains(c))
      escaped += '\\';
    escaped += c;
  }
  return escaped;
}

/// \p text between apostrophes, for zsh.
std::string quote(llvm::StringRef text) {
  std::string quoted = "'";
  for (const char c : text)
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

/// \p text for a man page: hyphens stay as they are typed, and no line begins with a request.
std::string roff(llvm::StringRef text) {
  std::string escaped = text.starts_with(".") || text.starts_with("'") ? "\\&" : "";
  for (const char c : text)
    escaped += c == '-' ? "\\-" : c == '\\' ? "\\e" : std::string(1, c);
  return escaped;
}

void beginManPage(llvm::raw_ostream &os, llvm::StringRef name, llvm::StringRef help) {
  os << ".TH " << name.upper() << " 1 \"\" \"tarka " TARKA_VERSION "\" \"User Commands\"\n"
     << ".SH NAME\n"
     << roff(name) << " \\- " << roff(help) << "\n.SH SYNOPSIS\n";
}

void printManOption(llvm::raw_ostream &os, const Option &option) {
  os << ".TP\n";
  llvm::ListSeparator comma(", ");
  for (const std::string &spelling : spellingsOf(option))
    os << comma << "\\fB" << roff(spelling) << "\\fR";
  if (takesValue(option))
    os << (option.name.empty() ? "" : " ") << "\\fI" << roff(option.valueText()) << "\\fR";
  os << '\n' << roff(option.help) << '\n';
}

int fail(llvm::StringRef message) {
  llvm::errs() << "tarka: " << message << '\n';
  return ExitUnusable;
}

/// Writes all pages into \p directory.
int writeManPages(llvm::StringRef directory) {
  if (const std::error_code error = llvm::sys::fs::create_directories(directory)) {
    llvm::errs() << "tarka: cannot make " << directory << ": " << error.message() << '\n';
    return ExitInternal;
  }
  auto write = [&](llvm::StringRef name, llvm::function_ref<void(llvm::raw_ostream &)> print) {
    llvm::SmallString<128> path(directory);
    llvm::sys::path::append(path, name + ".1");
    CommandOutput output(std::string(path.str()));
    if (!output.isOpen())
      return false;
    print(output.stream());
    return output.finish("man page");
  };
  bool isWritten = write("tarka", [](llvm::raw_ostream &os) { printManPage(os); });
  for (const CommandInfo &info : allCommands())
    isWritten &=
        write(("tarka-" + info.name).str(), [&](llvm::raw_ostream &os) { printManPage(os, info); });
  return isWritten ? ExitClean : ExitInternal;
}

} // namespace

void printBashCompletion(llvm::raw_ostream &os) {
  os << R"(# bash completion of tarka, made by "tarka generate bash".
_tarka() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
  local command=check options values= word
  # An option and its value are three words where "=" is between them.
  if [[ $current == = ]]; then
    current=
  elif [[ $previous == = ]]; then
    previous=${COMP_WORDS[COMP_CWORD-2]}
  fi
  case ${COMP_WORDS[1]} in
)";
  os << "    " << llvm::join(llvm::split(commandNames(), " "), "|")
     << ") command=${COMP_WORDS[1]} ;;\n  esac\n"
        "  case $command in\n";
  for (const CommandInfo &info : allCommands()) {
    os << "    " << info.name << ")\n      options='";
    llvm::ListSeparator space(" ");
    for (const Option *option : optionsOf(info.command))
      for (const std::string &spelling : spellingsOf(*option))
        os << space << spelling;
    os << space << "--help'\n      case $previous in\n";
    for (const Option *option : optionsOf(info.command)) {
      if (!takesValue(*option))
        continue;
      os << "        " << llvm::join(spellingsOf(*option), "|") << ") ";
      if (!option->choices.empty())
        os << "values='" << choicesOf(*option) << "' ;;\n";
      else
        os << "COMPREPLY=(); return ;;\n";
    }
    os << "      esac\n      ;;\n";
  }
  os << "  esac\n"
        "  COMPREPLY=()\n"
        "  if [[ -n $values ]]; then\n"
        "    COMPREPLY=($(compgen -W \"$values\" -- \"$current\"))\n"
        "  elif [[ $current == -* ]]; then\n"
        "    [[ $COMP_CWORD -eq 1 ]] && options+=' --version'\n"
        "    COMPREPLY=($(compgen -W \"$options\" -- \"$current\"))\n"
        "  elif [[ $COMP_CWORD -eq 1 ]]; then\n"
        "    COMPREPLY=($(compgen -W '"
     << commandNames()
     << "' -- \"$current\") $(compgen -f -- \"$current\"))\n"
        "  elif [[ $command == generate && $COMP_CWORD -eq 2 ]]; then\n"
        "    COMPREPLY=($(compgen -W 'bash zsh fish man' -- \"$current\"))\n"
        "  fi\n"
        "}\n"
        "# Where there is nothing of the above to complete, files are.\n"
        "complete -o bashdefault -o default -F _tarka tarka\n";
}

void printZshCompletion(llvm::raw_ostream &os) {
  auto describe = [](llvm::StringRef help) { return escape(help, "[]:\\"); };
  os << "#compdef tarka\n"
        "# zsh completion of tarka, made by \"tarka generate zsh\".\n"
        "local -a commands\ncommands=(\n";
  for (const CommandInfo &info : allCommands())
    os << "  " << quote(info.name.str() + ":" + describe(info.help)) << '\n';
  os << ")\n"
        "if (( CURRENT == 2 )); then\n"
        "  _describe command commands\n"
        "  _files\n"
        "  return\n"
        "fi\n"
        "case $words[2] in\n";
  // Without a command it is the first one.
  std::vector<const CommandInfo *> order;
  for (const CommandInfo &info : allCommands())
    order.push_back(&info);
  std::rotate(order.begin(), order.begin() + 1, order.end());
  for (const CommandInfo *info : order) {
    os << "  " << (info == &allCommands().front() ? "*" : info->name.str()) << ")\n    _arguments";
    for (const Option *option : optionsOf(info->command)) {
      for (const std::string &spelling : spellingsOf(*option)) {
        std::string form = option->isList ? "*" : "";
        form += spelling;
        if (takesValue(*option))
          form += llvm::StringRef(spelling).starts_with("--") ? "=" : "+";
        form += "[" + describe(option->help) + "]";
        if (!option->choices.empty())
          form += ":value:(" + choicesOf(*option) + ")";
        else if (option->type == OptionType::Path)
          form += option->value == "DIR" ? ":directory:_files -/" : ":file:_files";
        else if (takesValue(*option))
          form += ":" + escape(option->valueText(), ":\\[]") + ": ";
        os << " \\\n      " << quote(form);
      }
    }
    if (info->command == Command::Generate)
      os << " \\\n      '2:what:(bash zsh fish man)'";
    os << " \\\n      '*:file:_files'\n    ;;\n";
  }
  os << "esac\n";
}

void printFishCompletion(llvm::raw_ostream &os) {
  auto quoted = [](llvm::StringRef text) { return "'" + escape(text, "'\\") + "'"; };
  os << "# fish completion of tarka, made by \"tarka generate fish\".\n";
  for (const CommandInfo &info : allCommands())
    os << "complete -c tarka -n __fish_use_subcommand -a " << info.name << " -d "
       << quoted(info.help) << '\n';
  for (const CommandInfo &info : allCommands()) {
    const std::string condition =
        info.command == Command::Check
            ? "not __fish_seen_subcommand_from " +
                  llvm::join(llvm::drop_begin(llvm::split(commandNames(), " ")), " ")
            : "__fish_seen_subcommand_from " + info.name.str();
    for (const Option *option : optionsOf(info.command)) {
      os << "complete -c tarka -n " << quoted(condition);
      if (!option->name.empty())
        os << " -l " << option->name;
      if (option->letter)
        os << " -s " << option->letter;
      if (!option->choices.empty())
        os << " -xa " << quoted(choicesOf(*option));
      else if (takesValue(*option))
        os << (option->type == OptionType::Path ? " -rF" : " -x");
      os << " -d " << quoted(option->help) << '\n';
    }
    if (info.command == Command::Generate)
      os << "complete -c tarka -n " << quoted(condition) << " -xa 'bash zsh fish man'\n";
  }
}

void printManPage(llvm::raw_ostream &os) {
  beginManPage(os, "tarka", "analyse COBOL source");
  for (const CommandInfo &info : allCommands())
    os << "\\fBtarka " << info.name << "\\fR [\\fIoptions\\fR] \\fI" << operandsOf(info.command)
       << "\\fR\n.br\n";
  os << "\\fBtarka\\fR \\fIFILE\\fR...\n"
        ".SH DESCRIPTION\n"
        "tarka reads COBOL source, reports what is wrong with it and where, shows where every byte "
        "of a record lies, and what can run after what. When only files are given, they are "
        "checked.\n"
        ".SH COMMANDS\n";
  for (const CommandInfo &info : allCommands())
    os << ".TP\n\\fB" << info.name << "\\fR\n"
       << roff(info.help) << "; see \\fBtarka\\-" << info.name << "\\fR(1)\n";
  os << ".SH OPTIONS\n"
        ".TP\n\\fB\\-\\-version\\fR\nprint the version\n"
        ".TP\n\\fB\\-\\-help\\fR\nprint a help; behind a command, its options\n"
        ".SH EXIT STATUS\n"
        ".TP\n0\nnothing wrong; warnings do not count\n"
        ".TP\n1\nan error was reported, or the checks did not succeed\n"
        ".TP\n2\nthe command line was wrong or a file could not be read\n"
        ".TP\n3 and more\nan internal failure\n"
        ".SH SEE ALSO\n";
  llvm::ListSeparator comma;
  for (const CommandInfo &info : allCommands())
    os << comma << "\\fBtarka\\-" << info.name << "\\fR(1)";
  os << '\n';
}

void printManPage(llvm::raw_ostream &os, const CommandInfo &command) {
  const std::string name = "tarka-" + command.name.str();
  beginManPage(os, name, command.help);
  os << "\\fBtarka " << command.name << "\\fR [\\fIoptions\\fR] \\fI"
     << roff(operandsOf(command.command)) << "\\fR\n"
     << ".SH DESCRIPTION\n"
     << roff(command.help) << ".\n";
  // By their headings, in the order of the first option of each.
  std::vector<llvm::StringRef> groups;
  for (const Option *option : optionsOf(command.command))
    if (!llvm::is_contained(groups, option->group))
      groups.push_back(option->group);
  for (const llvm::StringRef group : groups) {
    os << ".SH " << group.upper() << '\n';
    for (const Option *option : optionsOf(command.command))
      if (option->group == group)
        printManOption(os, *option);
  }
  os << ".SH SEE ALSO\n\\fBtarka\\fR(1)\n";
}

int generate(const Request &request) {
  const llvm::StringRef what = request.operands.front();
  if (what == "man") {
    if (request.operands.size() != 2)
      return fail("tarka generate man needs the directory to write the pages to");
    return writeManPages(request.operands[1]);
  }
  if (request.operands.size() > 1)
    return fail("only tarka generate man takes a directory; --output names a file");
  CommandOutput output(request.output);
  if (!output.isOpen())
    return ExitInternal;
  if (what == "bash")
    printBashCompletion(output.stream());
  else if (what == "zsh")
    printZshCompletion(output.stream());
  else if (what == "fish")
    printFishCompletion(output.stream());
  else
    return fail(("'" + what + "' is none of bash, zsh, fish, man" +
                 suggestWord(what, {"bash", "zsh", "fish", "man"}))
                    .str());
  return output.finish("completion") ? ExitClean : ExitInternal;
}

} // namespace tarka
