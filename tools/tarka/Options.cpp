//===- Options.cpp - the table of all options -----------------------------===//

#include "Options.h"
#include "AST/Spelling.h"
#include "Parse/Encoding.h"
#include "PathPattern.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include <type_traits>

namespace tarka {

namespace {

template <typename Enumeration> constexpr int valueOf(Enumeration enumerator) {
  return static_cast<int>(enumerator);
}

constexpr OptionChoice sourceFormats[] = {{"fixed", valueOf(SourceFormat::Fixed)},
                                          {"free", valueOf(SourceFormat::Free)},
                                          {"auto", valueOf(SourceFormat::Auto)}};

constexpr OptionChoice reportForms[] = {
    {"auto", valueOf(ReportForm::Auto)},     {"classic", valueOf(ReportForm::Classic)},
    {"pretty", valueOf(ReportForm::Pretty)}, {"json", valueOf(ReportForm::Json)},
    {"ndjson", valueOf(ReportForm::Ndjson)}, {"sarif", valueOf(ReportForm::Sarif)},
    {"github", valueOf(ReportForm::Github)}, {"junit", valueOf(ReportForm::Junit)},
    {"gcc", valueOf(ReportForm::Gcc)}};

constexpr OptionChoice graphFormats[] = {{"text", valueOf(OutputFormat::Text)},
                                         {"json", valueOf(OutputFormat::Json)},
                                         {"dot", valueOf(OutputFormat::Dot)}};

constexpr OptionChoice textFormats[] = {{"text", valueOf(OutputFormat::Text)},
                                        {"json", valueOf(OutputFormat::Json)}};

constexpr OptionChoice explanationFormats[] = {{"text", valueOf(OutputFormat::Text)},
                                               {"json", valueOf(OutputFormat::Json)},
                                               {"markdown", valueOf(OutputFormat::Markdown)}};

constexpr OptionChoice colorChoices[] = {{"auto", valueOf(ColorChoice::Auto)},
                                         {"always", valueOf(ColorChoice::Always)},
                                         {"never", valueOf(ColorChoice::Never)}};

/// The commands that read a program.
constexpr CommandSet readers = setOf(Command::Check) | setOf(Command::Cfg) | setOf(Command::Flow) |
                               setOf(Command::Layout) | setOf(Command::Ast) |
                               setOf(Command::Expand);
constexpr CommandSet check = setOf(Command::Check);
/// The same and the language server, which reads many.
constexpr CommandSet analysers = readers | setOf(Command::Lsp);

constexpr llvm::StringLiteral reportGroup = "Report";
constexpr llvm::StringLiteral cacheGroup = "Cache";
constexpr llvm::StringLiteral dependencyGroup = "Dependencies";
constexpr llvm::StringLiteral compileGroup = "Compile options";

/// Sets the field that the members of \p Path lead to.
template <auto... Path> std::string assign(Request &request, const OptionValue &value) {
  auto &field = (request.*....*Path);
  using Field = std::remove_reference_t<decltype(field)>;
  if constexpr (std::is_same_v<Field, bool>)
    field = value.on;
  else if constexpr (std::is_same_v<Field, double>)
    field = value.seconds;
  else if constexpr (std::is_arithmetic_v<Field> || std::is_enum_v<Field>)
    field = static_cast<Field>(value.number);
  else if constexpr (std::is_same_v<Field, std::string>)
    field = value.text;
  else
    field.push_back(value.text);
  return "";
}

/// NAME=VALUE, or NAME alone.
std::string addDefinition(Request &request, const OptionValue &value) {
  auto [name, text] = llvm::StringRef(value.text).split('=');
  if (name.empty())
    return "a name is missing in '" + value.text + "'; write NAME=VALUE or NAME";
  request.parse.defines.emplace_back(name, text);
  return "";
}

/// Accepts what iconv can decode.
std::string setEncoding(Request &request, const OptionValue &value) {
  if (!isKnownEncoding(value.text))
    return "'" + value.text +
           "' is not a known encoding; UTF-8, ISO-8859-1, IBM-037, IBM-1047, IBM-1140, IBM-1141 "
           "and IBM-939 are examples, iconv -l lists them all";
  request.parse.encoding = value.text;
  return "";
}

/// Adds what --off, --warn and --error say of \p words.
std::string addRule(Request &request, Selection::Action action, llvm::StringRef words) {
  const std::string unknown = request.selection.add(action, words);
  if (unknown.empty())
    return "";
  std::vector<std::string> names;
  for (const DiagnosticGroup &group : diagnosticGroups())
    names.push_back(group.name.str());
  const llvm::StringRef word = llvm::StringRef(unknown).trim();
  return "'" + word.str() +
         "' is neither a number, nor a range such as 3301-3399, nor the name of a group: " +
         llvm::join(names, ", ") + suggestWord(word, names);
}

template <Selection::Action Chosen>
std::string addRules(Request &request, const OptionValue &value) {
  return addRule(request, Chosen, value.text);
}

/// -Wno-NUMBER, -Werror=NUMBER, -Wno-error=NUMBER.
std::string addWarningOption(Request &request, const OptionValue &value) {
  llvm::StringRef word = value.text;
  if (word.consume_front("error="))
    return addRule(request, Selection::Action::Error, word);
  if (word.consume_front("no-error="))
    return addRule(request, Selection::Action::Warn, word);
  if (word.consume_front("no-"))
    return addRule(request, Selection::Action::Off, word);
  return "'" + word.str() +
         "' is not understood; write -Wno-3310 to turn a diagnostic off, -Werror=3528 to make it "
         "an error";
}

/// Adds a pattern to one of the lists of the request.
template <auto List> std::string addPattern(Request &request, const OptionValue &value) {
  if (llvm::Error fault = PathPattern::create(value.text).takeError())
    return "'" + value.text + "' is not a valid pattern: " + llvm::toString(std::move(fault));
  (request.*List).push_back(value.text);
  return "";
}

std::string setRecord(Request &request, const OptionValue &value) {
  request.layout.record = value.text;
  return value.text.empty() ? "a name is missing" : "";
}

std::string setItem(Request &request, const OptionValue &value) {
  request.item = value.text;
  return value.text.empty() ? "a name is missing" : "";
}

// clang-format off
constexpr Option table[] = {
    // How the source is read.
    {.name = "copybook-path", .letter = 'I', .type = OptionType::Path, .isList = true,
     .isSearched = true, .scope = OptionScope::File, .commands = analysers, .value = "DIR",
     .help = "a directory with copybooks; may be given several times",
     .set = assign<&Request::parse, &ParseOptions::includeDirectories>},
    {.name = "define", .letter = 'D', .type = OptionType::Text, .isList = true,
     .scope = OptionScope::File, .commands = analysers, .value = "NAME[=VALUE]",
     .help = "a compilation variable for >>IF and >>EVALUATE", .set = addDefinition},
    {.name = "source-format", .type = OptionType::Choice, .scope = OptionScope::File,
     .commands = analysers, .choices = sourceFormats, .fallback = "\"auto\"",
     .help = "the layout of the lines (auto)",
     .set = assign<&Request::parse, &ParseOptions::format>},
    {.name = "encoding", .type = OptionType::Text, .scope = OptionScope::File, .commands = analysers,
     .value = "NAME", .fallback = "\"UTF-8\"",
     .help = "the encoding of the source files (UTF-8)", .set = setEncoding},
    {.name = "cics", .scope = OptionScope::File, .commands = analysers,
     .help = "supply what CICS does: the EIB, DFHRESP(...), DFHAID, DFHBMSCA",
     .set = assign<&Request::parse, &ParseOptions::cics>},
    {.name = "sql", .scope = OptionScope::File, .commands = analysers,
     .help = "supply what DB2 does: SQLCA, SQLDA, SQL TYPE",
     .set = assign<&Request::parse, &ParseOptions::sql>},

    // Which programs.
    {.name = "include", .type = OptionType::Text, .isList = true, .commands = check,
     .value = "PATTERN", .help = "the programs in directories (*.cbl, *.cob, *.cobol, *.pco)",
     .set = addPattern<&Request::include>},
    {.name = "exclude", .type = OptionType::Text, .isList = true, .commands = check,
     .value = "PATTERN", .help = "what to leave out of directories: files and directories",
     .set = addPattern<&Request::exclude>},
    {.name = "stdin-name", .type = OptionType::Text, .isConfigurable = false, .commands = readers,
     .value = "NAME", .help = "the file that standard input, given as -, stands for",
     .set = assign<&Request::stdinName>},

    // Configuration files.
    {.name = "config", .type = OptionType::Path, .isConfigurable = false, .commands = analysers,
     .value = "FILE", .help = "use FILE instead of the tarka.toml above each program",
     .set = assign<&Request::config>},
    {.name = "no-config", .isConfigurable = false, .commands = analysers,
     .help = "use no tarka.toml", .set = assign<&Request::noConfig>},
    {.name = "force", .isConfigurable = false, .commands = setOf(Command::Init),
     .help = "overwrite a tarka.toml that is there", .set = assign<&Request::force>},

    // What check does.
    {.name = "verify", .isConfigurable = false, .commands = check,
     .help = "compare the report with the expectations in the source: *> expect: NUMBER",
     .set = assign<&Request::verify>},
    {.name = "syntax-only", .commands = check,
     .help = "read the program only: what the front end reports, no checks",
     .set = assign<&Request::syntaxOnly>},
    {.name = "jobs", .letter = 'j', .type = OptionType::Number, .commands = check, .value = "N",
     .min = 1, .max = 1024, .help = "how many files to check at the same time (one per processor)",
     .set = assign<&Request::jobs>},
    {.name = "time-limit", .type = OptionType::Seconds, .commands = check, .value = "SECONDS",
     .help = "stop analysing a program after this time", .set = assign<&Request::timeLimit>},
    {.name = "memory-limit", .type = OptionType::Number, .commands = check | setOf(Command::Lsp), .value = "MIB",
     .min = 1, .max = 1u << 20, .help = "stop analysing a program that needs more memory",
     .set = assign<&Request::memoryLimit>},

    // The language server.
    {.name = "stdio", .isConfigurable = false, .isHidden = true, .commands = setOf(Command::Lsp),
     .help = "use standard input and output, as it always does",
     .set = [](Request &, const OptionValue &) { return std::string(); }},

    // What the other commands print.
    {.name = "format", .type = OptionType::Choice, .commands = setOf(Command::Cfg),
     .choices = graphFormats, .fallback = "\"text\"", .help = "how to print it (text)",
     .set = assign<&Request::format>},
    {.name = "format", .type = OptionType::Choice,
     .commands = setOf(Command::Flow) | setOf(Command::Layout) | setOf(Command::Ast) |
                 setOf(Command::Expand),
     .choices = textFormats, .fallback = "\"text\"", .help = "how to print it (text)",
     .set = assign<&Request::format>},
    {.name = "format", .type = OptionType::Choice, .commands = setOf(Command::Explain),
     .choices = explanationFormats, .fallback = "\"text\"", .help = "how to print it (text)",
     .set = assign<&Request::format>},
    {.name = "item", .type = OptionType::Text, .commands = setOf(Command::Flow),
     .value = "NAME", .help = "instead, where this item is written and what can read that",
     .set = setItem},
    {.name = "function", .type = OptionType::Text, .commands = setOf(Command::Cfg),
     .value = "NAME", .help = "only this program's function",
     .set = assign<&Request::view, &GraphView::function>},
    {.name = "paragraph", .type = OptionType::Text, .commands = setOf(Command::Cfg),
     .value = "NAME", .help = "only the blocks of the paragraphs and sections of this name",
     .set = assign<&Request::view, &GraphView::paragraph>},
    {.name = "collapse", .commands = setOf(Command::Cfg), .help = "one node for each procedure",
     .set = assign<&Request::view, &GraphView::collapse>},
    {.name = "full", .commands = setOf(Command::Cfg),
     .help = "draw every block, however large the picture gets (dot)",
     .set = assign<&Request::view, &GraphView::full>},
    {.name = "keep-going", .commands = setOf(Command::Cfg) | setOf(Command::Flow),
     .help = "print it even if the checks failed", .set = assign<&Request::keepGoing>},
    {.name = "record", .type = OptionType::Text, .commands = setOf(Command::Layout),
     .value = "NAME", .help = "only the records of this name", .set = setRecord},
    {.name = "all", .commands = setOf(Command::Layout), .help = "the special registers too",
     .set = assign<&Request::layout, &LayoutView::all>},
    {.name = "keep-going", .commands = setOf(Command::Layout) | setOf(Command::Ast),
     .help = "has no effect: it is always printed", .set = assign<&Request::keepGoing>},
    {.name = "line-markers", .commands = setOf(Command::Expand),
     .help = "comments that say where the lines come from: *> line 12 \"FILE\"",
     .set = assign<&Request::expansion, &ExpansionView::lineMarkers>},

    // The report.
    {.name = "", .letter = 'W', .type = OptionType::Text, .isList = true,
     .scope = OptionScope::File, .isConfigurable = false, .commands = analysers,
     .value = "no-NUMBERS|error=NUMBERS", .group = reportGroup,
     .help = "turn diagnostics off, or into errors", .set = addWarningOption},
    {.name = "off", .type = OptionType::Text, .isList = true, .scope = OptionScope::File,
     .commands = analysers, .value = "NUMBERS", .group = reportGroup,
     .help = "do not report these: numbers, ranges, groups, with commas between them",
     .set = addRules<Selection::Action::Off>},
    {.name = "warn", .type = OptionType::Text, .isList = true, .scope = OptionScope::File,
     .commands = analysers, .value = "NUMBERS", .group = reportGroup,
     .help = "report these as warnings", .set = addRules<Selection::Action::Warn>},
    {.name = "error", .type = OptionType::Text, .isList = true, .scope = OptionScope::File,
     .commands = analysers, .value = "NUMBERS", .group = reportGroup,
     .help = "report these as errors", .set = addRules<Selection::Action::Error>},
    {.name = "color", .type = OptionType::Choice, .commands = readers, .choices = colorChoices,
     .fallback = "\"auto\"", .group = reportGroup, .help = "color the report (auto: on a terminal)",
     .set = assign<&Request::color>},
    {.name = "output", .letter = 'o', .type = OptionType::Path, .isConfigurable = false,
     .commands = readers | setOf(Command::Explain) | setOf(Command::Generate), .value = "FILE",
     .group = reportGroup, .help = "write to FILE instead", .set = assign<&Request::output>},
    {.name = "format", .type = OptionType::Choice, .commands = check, .choices = reportForms,
     .fallback = "\"auto\"", .group = reportGroup,
     .help = "the form of the report (auto: pretty on a terminal, else classic)",
     .set = assign<&Request::reportForm>},
    {.name = "all", .commands = check, .group = reportGroup,
     .help = "also report errors that follow from others", .set = assign<&Request::all>},
    {.name = "statistics", .commands = check, .group = reportGroup,
     .help = "print a summary at the end", .set = assign<&Request::statistics>},
    {.name = "baseline", .type = OptionType::Path, .commands = check, .value = "FILE",
     .group = reportGroup, .help = "leave out the findings that are in FILE",
     .set = assign<&Request::baseline>},
    {.name = "write-baseline", .type = OptionType::Path, .isConfigurable = false,
     .commands = check, .value = "FILE", .group = reportGroup,
     .help = "write all findings to FILE, and report none",
     .set = assign<&Request::writeBaseline>},
    {.name = "exit-zero", .commands = check, .group = reportGroup,
     .help = "exit with 0 even if errors are reported", .set = assign<&Request::exitZero>},
    {.name = "max-errors", .type = OptionType::Number, .commands = check, .value = "N", .min = 1,
     .group = reportGroup, .help = "stop after N errors", .set = assign<&Request::maxErrors>},
    {.name = "fix", .isConfigurable = false, .commands = check, .group = reportGroup,
     .help = "change the sources where a fix is certain", .set = assign<&Request::fix>},
    {.name = "diff", .isConfigurable = false, .commands = check, .needs = "fix",
     .group = reportGroup, .help = "with --fix: print the changes, and change nothing",
     .set = assign<&Request::diff>},

    // What is kept from run to run.
    {.name = "cache", .commands = check, .fallback = "true", .group = cacheGroup,
     .help = "use the reports that are kept of unchanged programs (on; --no-cache for off)",
     .set = assign<&Request::cache>},
    {.name = "cache-dir", .type = OptionType::Path, .commands = check, .value = "DIR",
     .group = cacheGroup, .help = "keep them in DIR instead of $XDG_CACHE_HOME/tarka",
     .set = assign<&Request::cacheDirectory>},

    // What the programs depend on.
    {.name = "list-copybooks", .isConfigurable = false, .commands = check, .group = dependencyGroup,
     .help = "print what each program copies, and from where (--format=json too)",
     .set = assign<&Request::listCopybooks>},
    {.name = "depfile", .isConfigurable = false, .commands = check, .group = dependencyGroup,
     .help = "write what the report depends on as a rule for Make and Ninja (-MD)",
     .set = assign<&Request::writeDepfile>},
    {.name = "depfile-output", .type = OptionType::Path, .isConfigurable = false,
     .commands = check, .value = "FILE", .group = dependencyGroup,
     .help = "the name of the depfile: that of the output with .d unless given (-MF)",
     .set = assign<&Request::depfile>},
    {.name = "depfile-target", .type = OptionType::Text, .isList = true, .isConfigurable = false,
     .commands = check, .value = "NAME", .group = dependencyGroup,
     .help = "the target of the rule: the output unless given (-MT)",
     .set = assign<&Request::depfileTargets>},

    // How it is compiled.
    {.name = "check-file-id", .scope = OptionScope::File, .commands = analysers,
     .group = compileGroup, .help = "PROGRAM-ID must be the name of the file",
     .set = assign<&Request::compile, &CompileSettings::checkFileID>},
    {.name = "dateproc", .scope = OptionScope::File, .commands = analysers, .group = compileGroup,
     .help = "honour DATE FORMAT clauses",
     .set = assign<&Request::compile, &CompileSettings::dateproc>},
    {.name = "debug", .scope = OptionScope::File, .commands = analysers, .group = compileGroup,
     .help = "debugging mode", .set = assign<&Request::compile, &CompileSettings::debug>},
    {.name = "dual", .scope = OptionScope::File, .commands = analysers, .group = compileGroup,
     .help = "mark dual variables", .set = assign<&Request::compile, &CompileSettings::dual>},
    {.name = "init", .scope = OptionScope::File, .commands = analysers, .group = compileGroup,
     .help = "items without VALUE are initialised",
     .set = assign<&Request::compile, &CompileSettings::init>},
    {.name = "enable-cbltdli", .scope = OptionScope::File, .commands = analysers,
     .group = compileGroup, .help = "calls of CBLTDLI are DL/I calls",
     .set = assign<&Request::compile, &CompileSettings::enableCbltdli>},
    {.name = "enable-aertdli", .scope = OptionScope::File, .commands = analysers,
     .group = compileGroup, .help = "calls of AERTDLI are DL/I calls",
     .set = assign<&Request::compile, &CompileSettings::enableAertdli>},
    {.name = "enable-rw", .scope = OptionScope::File, .commands = analysers, .group = compileGroup,
     .help = "the report writer's registers and identifiers",
     .set = assign<&Request::compile, &CompileSettings::enableRw>},
    {.name = "enable-osvs", .scope = OptionScope::File, .commands = analysers, .group = compileGroup,
     .help = "the words and statements of OS/VS COBOL",
     .set = assign<&Request::parse, &ParseOptions::osvs>},
    {.name = "enterprise", .scope = OptionScope::File, .commands = analysers, .group = compileGroup,
     .help = "follow Enterprise COBOL where the checks are stricter; tarka explain enterprise",
     .set = assign<&Request::compile, &CompileSettings::enterprise>},
};

constexpr CommandInfo commandTable[] = {
    {Command::Check, "check", "report what is wrong with each FILE"},
    {Command::Cfg, "cfg", "print the control-flow graph of FILE"},
    {Command::Flow, "flow",
     "print what is never reached in FILE, what is performed, and figures"},
    {Command::Layout, "layout", "print where the bytes of the records of FILE lie"},
    {Command::Ast, "ast", "print the tree of FILE with what the checks left in it"},
    {Command::Expand, "expand", "print FILE as it stands after COPY and REPLACE"},
    {Command::Init, "init", "write a tarka.toml after a look at the sources"},
    {Command::Config, "config", "print what holds for each FILE, and where it comes from"},
    {Command::Explain, "explain", "explain the diagnostic NUMBER with a program that causes it"},
    {Command::Lsp, "lsp", "serve an editor: the Language Server Protocol over standard input"},
    {Command::Generate, "generate", "print a shell completion, or write the man pages"},
};
// clang-format on

std::string readFlag(llvm::StringRef text, OptionValue &value) {
  value.on = text == "true";
  return value.on || text == "false" ? "" : "'" + text.str() + "' is neither true nor false";
}

std::string readNumber(const Option &option, llvm::StringRef text, OptionValue &value) {
  if (!text.getAsInteger(10, value.number) && value.number >= option.min &&
      value.number <= option.max)
    return "";
  std::string range = " from " + std::to_string(option.min);
  if (option.max != ~0u)
    range += " to " + std::to_string(option.max);
  return "'" + text.str() + "' is not a whole number" + range;
}

std::string readSeconds(llvm::StringRef text, OptionValue &value) {
  if (!text.getAsDouble(value.seconds) && value.seconds >= 0 && value.seconds < 1e9)
    return "";
  return "'" + text.str() + "' is not a number of seconds";
}

std::string readChoice(const Option &option, llvm::StringRef text, OptionValue &value) {
  for (const OptionChoice &choice : option.choices)
    if (text.equals_insensitive(choice.word)) {
      value.text = choice.word;
      value.number = static_cast<unsigned>(choice.value);
      return "";
    }
  std::vector<std::string> words;
  for (const OptionChoice &choice : option.choices)
    words.push_back(choice.word.str());
  return "'" + text.str() + "' is none of " + llvm::join(words, ", ") + suggestWord(text, words);
}

} // namespace

std::string Option::valueText() const {
  if (choices.empty())
    return value.str();
  std::vector<llvm::StringRef> words;
  for (const OptionChoice &choice : choices)
    words.push_back(choice.word);
  return llvm::join(words, "|");
}

llvm::ArrayRef<Option> allOptions() {
  return table;
}

const Option *findOption(llvm::StringRef name, Command command) {
  for (const Option &option : table)
    if (!name.empty() && option.name == name && option.isOf(command))
      return &option;
  return nullptr;
}

std::string setOption(const Option &option, llvm::StringRef text, Request &request) {
  OptionValue value;
  value.text = text;
  std::string fault;
  switch (option.type) {
  case OptionType::Flag:
    fault = readFlag(text, value);
    break;
  case OptionType::Number:
    fault = readNumber(option, text, value);
    break;
  case OptionType::Seconds:
    fault = readSeconds(text, value);
    break;
  case OptionType::Choice:
    fault = readChoice(option, text, value);
    break;
  case OptionType::Text:
  case OptionType::Path:
    break;
  }
  return fault.empty() ? option.set(request, value) : fault;
}

std::string nearestWord(llvm::StringRef word, llvm::ArrayRef<std::string> candidates) {
  const std::string lower = word.lower();
  SpellingMatch match(lower);
  for (const std::string &candidate : candidates)
    match.consider(candidate);
  return match.getNearest().str();
}

std::string suggestWord(llvm::StringRef word, llvm::ArrayRef<std::string> candidates) {
  const std::string near = nearestWord(word, candidates);
  return near.empty() ? "" : "; was " + near + " meant?";
}

llvm::ArrayRef<CommandInfo> allCommands() {
  return commandTable;
}

} // namespace tarka
