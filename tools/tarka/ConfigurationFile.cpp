//===- ConfigurationFile.cpp - reading a tarka.toml -----------------------===//

#include "AST/Spelling.h"
#include "Configuration.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/MemoryBuffer.h"
#include "llvm/Support/Path.h"
#define TOML_EXCEPTIONS 0
#define TOML_ENABLE_FORMATTERS 0
#include <toml++/toml.h>

namespace tarka {

namespace path = llvm::sys::path;

namespace {

const CommandInfo *findCommand(std::string_view name) {
  for (const CommandInfo &info : allCommands())
    if (info.name == llvm::StringRef(name))
      return &info;
  return nullptr;
}

/// The option that \p key is the name of, of \p command; null for one that is not configured.
const Option *findConfigurable(llvm::StringRef key, Command command) {
  const Option *option = findOption(key, command);
  return option && option->isConfigurable ? option : nullptr;
}

/// "; was NAME meant?" for the option near to \p key; empty when there is none.
std::string suggestion(llvm::StringRef key, Command command) {
  const std::string lower = key.lower();
  SpellingMatch match(lower);
  for (const Option &option : allOptions())
    if (option.isOf(command) && option.isConfigurable && !option.name.empty())
      match.consider(option.name);
  return match.getNearest().empty() ? "" : ("; was " + match.getNearest() + " meant?").str();
}

/// What a value of \p option must be.
llvm::StringRef describeType(const Option &option) {
  if (option.isList)
    return "a string or a list of strings";
  switch (option.type) {
  case OptionType::Flag:
    return "true or false";
  case OptionType::Number:
    return "a whole number";
  case OptionType::Seconds:
    return "a number";
  case OptionType::Choice:
  case OptionType::Text:
  case OptionType::Path:
    return "a string";
  }
  llvm_unreachable("not a type of options");
}

/// The text of a value that has the type of \p option; none when it has another one.
std::optional<std::string> textOf(const Option &option, const toml::node &node) {
  switch (option.type) {
  case OptionType::Flag:
    if (const auto *flag = node.as_boolean())
      return flag->get() ? "true" : "false";
    return std::nullopt;
  case OptionType::Seconds:
    if (const auto *seconds = node.as_floating_point())
      return std::to_string(seconds->get());
    [[fallthrough]];
  case OptionType::Number:
    if (const auto *number = node.as_integer())
      return std::to_string(number->get());
    return std::nullopt;
  case OptionType::Text:
    // Numbers of diagnostics need no quotes.
    if (const auto *number = node.as_integer(); number && option.isList)
      return std::to_string(number->get());
    [[fallthrough]];
  case OptionType::Choice:
  case OptionType::Path:
    if (const auto *text = node.as_string())
      return text->get();
    return std::nullopt;
  }
  llvm_unreachable("not a type of options");
}

} // namespace

/// Reads one file; the first fault ends it.
class ConfigurationReader {
public:
  explicit ConfigurationReader(const std::string &path) { file.path = path; }

  llvm::Expected<ConfigurationFile> read();

private:
  using Table = ConfigurationFile::Table;

  llvm::Error readTables(const toml::table &root);
  llvm::Error readOverride(const toml::node &node);
  llvm::Error readValue(const toml::key &key, const toml::node &node, Table &table);
  llvm::Error addValue(const Option &option, const toml::node &node, Table &table);
  llvm::Error fault(const toml::source_region &place, const llvm::Twine &message) const;

  ConfigurationFile file;
};

llvm::Error ConfigurationReader::fault(const toml::source_region &place,
                                       const llvm::Twine &message) const {
  return llvm::createStringError(file.path + ":" + llvm::Twine(place.begin.line) + ":" +
                                 llvm::Twine(place.begin.column) + ": " + message);
}

llvm::Expected<ConfigurationFile> ConfigurationReader::read() {
  auto buffer = llvm::MemoryBuffer::getFile(file.path, /*IsText=*/true);
  if (!buffer)
    return llvm::createStringError("cannot read " + file.path + ": " + buffer.getError().message());
  const llvm::StringRef text = (*buffer)->getBuffer();
  const toml::parse_result parsed = toml::parse(std::string_view(text.data(), text.size()));
  if (!parsed)
    return fault(parsed.error().source(), llvm::StringRef(parsed.error().description()));
  if (llvm::Error error = readTables(parsed.table()))
    return error;
  return std::move(file);
}

llvm::Error ConfigurationReader::readTables(const toml::table &root) {
  std::vector<const toml::node *> overrides;
  Table general;
  for (const auto &[key, node] : root) {
    const CommandInfo *command = findCommand(key.str());
    if (key.str() == "for") {
      const toml::array *tables = node.as_array();
      if (!tables || !tables->is_homogeneous(toml::node_type::table))
        return fault(key.source(), "the tables for some of the programs are written [[for]]");
      for (const toml::node &table : *tables)
        overrides.push_back(&table);
    } else if (command && node.is_table()) {
      Table &table = file.tables.emplace_back();
      table.command = command->command;
      for (const auto &[inner, value] : *node.as_table())
        if (llvm::Error error = readValue(inner, value, table))
          return error;
    } else if (llvm::Error error = readValue(key, node, general)) {
      return error;
    }
  }
  file.tables.insert(file.tables.begin(), std::move(general));
  for (const toml::node *node : overrides)
    if (llvm::Error error = readOverride(*node))
      return error;
  return llvm::Error::success();
}

llvm::Error ConfigurationReader::readOverride(const toml::node &node) {
  Table table;
  const toml::table &values = *node.as_table();
  const auto *pattern = values.get_as<std::string>("path");
  if (!pattern)
    return fault(node.source(), "[[for]] needs path = \"PATTERN\": which programs it is for");
  table.pattern = pattern->get();
  llvm::Expected<PathPattern> programs = PathPattern::create(table.pattern);
  if (!programs)
    return fault(pattern->source(),
                 "'" + table.pattern + "' is no pattern: " + llvm::toString(programs.takeError()));
  table.programs = std::move(*programs);
  for (const auto &[key, value] : values)
    if (key.str() != "path")
      if (llvm::Error error = readValue(key, value, table))
        return error;
  file.tables.push_back(std::move(table));
  return llvm::Error::success();
}

llvm::Error ConfigurationReader::readValue(const toml::key &key, const toml::node &node,
                                           Table &table) {
  const llvm::StringRef name(key.str());
  const Option *option = findConfigurable(name, table.command);
  if (!option && findOption(name, table.command))
    return fault(key.source(), "--" + name + " belongs on the command line only");
  if (!option)
    return fault(key.source(), "unknown key '" + name + "'" + suggestion(name, table.command));
  if (table.programs && option->scope == OptionScope::Run)
    return fault(key.source(), "'" + name + "' is for the whole run; it cannot stand in [[for]]");
  const toml::array *list = node.as_array();
  if (!list || !option->isList)
    return addValue(*option, node, table);
  for (const toml::node &element : *list)
    if (llvm::Error error = addValue(*option, element, table))
      return error;
  return llvm::Error::success();
}

llvm::Error ConfigurationReader::addValue(const Option &option, const toml::node &node,
                                          Table &table) {
  std::optional<std::string> text = textOf(option, node);
  if (!text)
    return fault(node.source(), "'" + option.name + "' must be " + describeType(option));
  if (option.type == OptionType::Path && path::is_relative(*text)) {
    llvm::SmallString<128> whole(path::parent_path(file.path));
    path::append(whole, *text);
    path::remove_dots(whole, /*remove_dot_dot=*/false);
    text = whole.empty() ? "." : whole.str();
  }
  Request scratch;
  if (std::string wrong = setOption(option, *text, scratch); !wrong.empty())
    return fault(node.source(), "'" + option.name + "': " + wrong);
  table.values.push_back({&option, std::move(*text), node.source().begin.line});
  return llvm::Error::success();
}

llvm::Expected<ConfigurationFile> ConfigurationFile::read(const std::string &path) {
  return ConfigurationReader(path).read();
}

/// \p name without what leads to the directory of \p file, both as absolute paths.
static std::string relativeTo(llvm::StringRef file, llvm::StringRef name) {
  llvm::SmallString<128> directory(file), whole(name);
  for (llvm::SmallString<128> *one : {&directory, &whole}) {
    if (llvm::sys::fs::make_absolute(*one))
      return name.str(); // the current directory is gone
    path::remove_dots(*one, /*remove_dot_dot=*/true);
  }
  llvm::StringRef relative = whole;
  relative.consume_front(path::parent_path(directory));
  return relative.ltrim('/').str();
}

std::vector<const ConfigurationFile::Table *> ConfigurationFile::tablesFor(llvm::StringRef program,
                                                                           Command command) const {
  const std::string relative = relativeTo(path, program);
  std::vector<const Table *> holding;
  for (const Table &table : tables)
    if ((table.command == Command::Check || table.command == command) &&
        (!table.programs || table.programs->match(relative)))
      holding.push_back(&table);
  return holding;
}

} // namespace tarka
