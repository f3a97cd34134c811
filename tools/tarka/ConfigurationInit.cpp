//===- ConfigurationInit.cpp - a first tarka.toml -------------------------===//
//
// Looks at the sources below a directory: where the copybooks are, how the lines
// are laid out, what the programs are embedded in. What is found becomes a setting,
// with what speaks for it; all other options stand below as comments.
//
//===----------------------------------------------------------------------===//

#include "Configuration.h"
#include "Inputs.h"
#include "OutputFile.h"
#include "Parse/SourceFile.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/MemoryBuffer.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/raw_ostream.h"
#include <map>

namespace tarka {

namespace fs = llvm::sys::fs;
namespace path = llvm::sys::path;

namespace {

/// How many files are looked at, how many programs are read, and how much of each, in bytes.
constexpr unsigned maxFiles = 200'000;
constexpr unsigned maxPrograms = 500;
constexpr std::uint64_t maxRead = 1u << 18;

/// What a look at the sources has shown.
struct Survey {
  unsigned programs = 0;
  unsigned read = 0;
  unsigned fixed = 0;
  unsigned free = 0;
  unsigned cics = 0;
  unsigned sql = 0;
  unsigned dli = 0;
  /// The directories with copybooks, relative to the root, and how many each has.
  std::map<std::string, unsigned> copybooks;
};

void readProgram(const std::string &name, Survey &survey) {
  // Large files are mapped, so that only what is looked at is read.
  auto buffer = llvm::MemoryBuffer::getFile(name);
  if (!buffer)
    return;
  const std::string upper = (*buffer)->getBuffer().take_front(maxRead).upper();
  const llvm::StringRef text = upper;
  ++survey.read;
  survey.cics += text.contains("EXEC CICS");
  survey.sql += text.contains("EXEC SQL");
  survey.dli += text.contains("CBLTDLI");
  // Where the lines would do for either, neither is counted.
  const SourceFormat format = detectSourceFormat(text, SourceFormat::Auto);
  survey.fixed += format == SourceFormat::Fixed;
  survey.free += format == SourceFormat::Free;
}

Survey surveyDirectory(const std::string &root) {
  Survey survey;
  unsigned files = 0;
  std::error_code error;
  for (fs::recursive_directory_iterator entry(root, error, /*follow_symlinks=*/false), end;
       entry != end && !error && files < maxFiles; entry.increment(error), ++files) {
    const llvm::StringRef name = entry->path();
    if (path::filename(name).starts_with(".")) {
      entry.no_push();
      continue;
    }
    const std::string extension = path::extension(name).lower();
    if (hasCopybookExtension(name)) {
      llvm::StringRef directory = path::parent_path(name);
      directory.consume_front(root);
      directory = directory.ltrim('/');
      ++survey.copybooks[directory.empty() ? "." : directory.str()];
    } else if (llvm::is_contained(programExtensions(), llvm::StringRef(extension))) {
      if (survey.programs++ < maxPrograms)
        readProgram(name.str(), survey);
    }
  }
  return survey;
}

/// Writes the file, the options that the survey has values for first.
class ConfigurationWriter {
public:
  ConfigurationWriter(llvm::raw_ostream &stream, const Survey &shown)
      : out(stream), survey(shown) {}

  void write();

private:
  void set(llvm::StringRef name, const llvm::Twine &value, const llvm::Twine &reason);
  void setWhere(unsigned count, llvm::StringRef name, llvm::StringRef what);
  void setCopybookPath();
  void setFormat();
  void listOthers();

  llvm::raw_ostream &out;
  const Survey &survey;
  llvm::StringSet<> done;
};

void ConfigurationWriter::set(llvm::StringRef name, const llvm::Twine &value,
                              const llvm::Twine &reason) {
  out << "# " << findOption(name, Command::Check)->help << "; " << reason << ".\n"
      << name << " = " << value << "\n\n";
  done.insert(name);
}

void ConfigurationWriter::setWhere(unsigned count, llvm::StringRef name, llvm::StringRef what) {
  if (count)
    set(name, "true",
        llvm::Twine(count) + (count == 1 ? " program has " : " programs have ") + what);
}

void ConfigurationWriter::setCopybookPath() {
  if (survey.copybooks.empty())
    return;
  std::string list = "[";
  unsigned count = 0;
  for (const auto &[directory, files] : survey.copybooks) {
    list += (list.size() == 1 ? "\"" : ", \"") + directory + "\"";
    count += files;
  }
  set("copybook-path", list + "]",
      "relative to this file; " + llvm::Twine(count) +
          (count == 1 ? " copybook was found" : " copybooks were found"));
}

void ConfigurationWriter::setFormat() {
  // A program without columns 1 to 7 may be read in either form, so it does not speak against fixed
  // form. Free form has to be certain: what it would read as text, fixed form leaves out.
  if (survey.fixed && !survey.free)
    set("source-format", "\"fixed\"", "no program is in free form");
  if (survey.free && survey.free == survey.read)
    set("source-format", "\"free\"", "all programs are in free form");
}

/// All other options with what holds without them, as comments.
void ConfigurationWriter::listOthers() {
  out << "# The other options, with their defaults; `tarka config FILE` shows what holds for a "
         "file.\n";
  for (const Option &option : allOptions()) {
    if (!option.isOf(Command::Check) || !option.isConfigurable || done.contains(option.name))
      continue;
    out << "\n# " << option.help << "\n# " << option.name << " = ";
    if (option.type == OptionType::Flag)
      out << "false\n";
    else if (!option.fallback.empty())
      out << option.fallback << '\n';
    else
      out << (option.isList ? "[]" : option.value.str()) << '\n';
  }
  out << "\n# Options for some of the programs only:\n"
         "# [[for]]\n"
         "# path = \"batch/**\"\n"
         "# cics = false\n";
}

void ConfigurationWriter::write() {
  out << "# The options of Tarka for the programs in this directory and below, named as on the "
         "command\n"
         "# line. Written by `tarka init` after a look at "
      << survey.programs << (survey.programs == 1 ? " program" : " programs") << ".\n\n";
  setCopybookPath();
  setFormat();
  setWhere(survey.cics, "cics", "EXEC CICS");
  setWhere(survey.sql, "sql", "EXEC SQL");
  setWhere(survey.dli, "enable-cbltdli", "calls of CBLTDLI");
  listOthers();
}

} // namespace

int initializeConfiguration(const Request &request) {
  const std::string root = request.files.empty() ? "." : request.files.front();
  if (!fs::is_directory(root)) {
    llvm::errs() << "tarka: " << root << " is no directory\n";
    return ExitUnusable;
  }
  llvm::SmallString<128> name(root == "." ? "" : root);
  path::append(name, configurationName);
  if (fs::exists(name) && !request.force) {
    llvm::errs() << "tarka: " << name << " is there already; --force writes it anew\n";
    return ExitUnusable;
  }
  const Survey survey = surveyDirectory(root);
  OutputFile file{std::string(name)};
  if (file.stream()) {
    ConfigurationWriter(*file.stream(), survey).write();
    file.commit();
  }
  if (!file.getError().empty()) {
    llvm::errs() << "tarka: cannot write " << name << ": " << file.getError() << '\n';
    return ExitInternal;
  }
  llvm::errs() << "tarka: " << name << " is written; "
               << (survey.programs ? "look at it, then run tarka check "
                                   : "no programs were found in ")
               << root << '\n';
  return ExitClean;
}

} // namespace tarka
