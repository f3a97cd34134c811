//===- Configuration.cpp - what holds for a program -----------------------===//

#include "Configuration.h"
#include "OutputFile.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace fs = llvm::sys::fs;
namespace path = llvm::sys::path;

namespace {

/// The directory above \p directory, an absolute one above the current directory; empty at the top.
std::string parentOf(llvm::StringRef directory) {
  if (directory.empty() || directory == "." || path::filename(directory) == "..") {
    llvm::SmallString<128> absolute(directory);
    if (fs::make_absolute(absolute))
      return ""; // the current directory is gone
    path::remove_dots(absolute, /*remove_dot_dot=*/true);
    return path::parent_path(absolute).str();
  }
  const llvm::StringRef parent = path::parent_path(directory);
  if (parent.empty() && path::is_relative(directory))
    return ".";
  return parent.str();
}

std::string inDirectory(llvm::StringRef directory, llvm::StringRef name) {
  llvm::SmallString<128> whole(directory == "." ? "" : directory);
  path::append(whole, name);
  return std::string(whole);
}

} // namespace

llvm::Expected<const ConfigurationFile *> Configuration::load(const std::string &path) {
  auto [position, isNew] = files.try_emplace(path);
  if (isNew) {
    llvm::Expected<ConfigurationFile> file = ConfigurationFile::read(path);
    if (!file) {
      files.erase(position);
      return file.takeError();
    }
    position->second = std::make_unique<ConfigurationFile>(std::move(*file));
  }
  return position->second.get();
}

llvm::Expected<const ConfigurationFile *> Configuration::fileFor(llvm::StringRef path) {
  if (request.noConfig)
    return nullptr;
  if (!request.config.empty())
    return load(request.config);
  const bool isDirectory = fs::is_directory(path);
  const std::string own = isDirectory ? path.str() : parentOf(path);
  if (auto known = byDirectory.find(own); known != byDirectory.end())
    return known->second;
  const ConfigurationFile *found = nullptr;
  for (std::string directory = own; !directory.empty() && !found; directory = parentOf(directory)) {
    const std::string candidate = inDirectory(directory, configurationName);
    if (fs::exists(candidate)) {
      llvm::Expected<const ConfigurationFile *> file = load(candidate);
      if (!file)
        return file.takeError();
      found = *file;
    }
    if (directory == "/")
      break;
  }
  byDirectory[own] = found;
  return found;
}

llvm::Expected<std::vector<HoldingValue>> Configuration::valuesFor(llvm::StringRef path) {
  llvm::Expected<const ConfigurationFile *> file = fileFor(path);
  if (!file)
    return file.takeError();
  // From what is most general to what is most particular.
  std::vector<std::vector<HoldingValue>> layers;
  if (*file)
    for (const ConfigurationFile::Table *table : (*file)->tablesFor(path, request.command)) {
      std::vector<HoldingValue> &layer = layers.emplace_back();
      for (const ConfiguredValue &value : table->values)
        if (value.option->isOf(request.command))
          layer.push_back({value.option, value.text,
                           (*file)->getPath() + ":" + std::to_string(value.line) +
                               (table->programs ? ", for " + table->pattern : "")});
    }
  std::vector<HoldingValue> &last = layers.emplace_back();
  for (const OptionSetting &setting : request.settings)
    last.push_back({setting.option, setting.text, "the command line"});

  std::vector<HoldingValue> values;
  auto add = [&](const std::vector<HoldingValue> &layer, bool isSearched) {
    llvm::copy_if(layer, std::back_inserter(values), [&](const HoldingValue &value) {
      return value.option->isSearched == isSearched;
    });
  };
  for (const std::vector<HoldingValue> &layer : layers)
    add(layer, false);
  for (const std::vector<HoldingValue> &layer : llvm::reverse(layers))
    add(layer, true);
  return values;
}

llvm::Error Configuration::beginRun(llvm::StringRef path) {
  llvm::Expected<std::vector<HoldingValue>> values = valuesFor(path);
  if (!values)
    return values.takeError();
  runValues = std::move(*values);
  llvm::erase_if(runValues,
                 [](const HoldingValue &value) { return value.option->scope != OptionScope::Run; });
  return llvm::Error::success();
}

llvm::Expected<Request> Configuration::requestFor(llvm::StringRef path) {
  llvm::Expected<std::vector<HoldingValue>> values = valuesFor(path);
  if (!values)
    return values.takeError();
  Request result = request.withoutOptions();
  auto set = [&](const HoldingValue &value) {
    // Every value was read before.
    [[maybe_unused]] const std::string fault = setOption(*value.option, value.text, result);
    assert(fault.empty() && "a value is valid no longer");
  };
  llvm::for_each(runValues, set);
  for (const HoldingValue &value : *values)
    if (value.option->scope == OptionScope::File)
      set(value);
  return result;
}

//===----------------------------------------------------------------------===//
// tarka config
//===----------------------------------------------------------------------===//

namespace {

/// \p text as a value in tarka.toml.
std::string quote(const Option &option, llvm::StringRef text) {
  if (option.type == OptionType::Flag || option.type == OptionType::Number ||
      option.type == OptionType::Seconds)
    return text.str();
  std::string quoted = "\"";
  for (char character : text) {
    if (character == '"' || character == '\\')
      quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

void printLine(llvm::raw_ostream &out, const std::string &setting, llvm::StringRef origin) {
  out << setting;
  out.indent(setting.size() < 44 ? static_cast<unsigned>(44 - setting.size()) : 1)
      << "# " << origin << '\n';
}

/// Prints the values of \p option among \p values, or what holds without.
void printOption(llvm::raw_ostream &out, const Option &option,
                 llvm::ArrayRef<HoldingValue> values) {
  std::vector<const HoldingValue *> own;
  for (const HoldingValue &value : values)
    if (value.option == &option)
      own.push_back(&value);
  const std::string name = option.name.str();
  if (own.empty()) {
    if (option.type == OptionType::Flag)
      printLine(out, name + " = false", "default");
    else if (!option.fallback.empty())
      printLine(out, name + " = " + option.fallback.str(), "default");
    else
      printLine(out, "# " + name, "not set");
  } else if (!option.isList) {
    printLine(out, name + " = " + quote(option, own.back()->text), own.back()->origin);
  } else {
    out << name << " = [\n";
    for (const HoldingValue *value : own)
      printLine(out, "  " + quote(option, value->text) + ",", value->origin);
    out << "]\n";
  }
}

} // namespace

int printConfiguration(const Request &request) {
  CommandOutput output(request.output);
  if (!output.isOpen())
    return ExitInternal;
  // What check would do.
  Request asked = request;
  asked.command = Command::Check;
  Configuration configuration(asked);
  for (const std::string &file : request.files) {
    llvm::Expected<const ConfigurationFile *> configured = configuration.fileFor(file);
    if (!configured) {
      llvm::errs() << "tarka: " << llvm::toString(configured.takeError()) << '\n';
      return ExitUnusable;
    }
    const std::vector<HoldingValue> values = llvm::cantFail(configuration.valuesFor(file));
    llvm::raw_ostream &out = output.stream();
    out << "# What holds for " << file << "; "
        << (*configured ? "the configuration file is " + (*configured)->getPath()
                        : "there is no " + configurationName.str() + " above it")
        << ".\n";
    for (const Option &option : allOptions())
      if (option.isOf(Command::Check) && option.isConfigurable)
        printOption(out, option, values);
  }
  return output.finish("configuration") ? ExitClean : ExitInternal;
}

} // namespace tarka
