//===- Configuration.h - tarka.toml -----------------------------*- C++ -*-===//
//
// A file tarka.toml holds for the programs in its directory and below: the nearest
// one above a program counts. Its keys are the options of the command line. Those
// of tables [[for]] hold for the programs that a pattern matches, and what the
// command line says goes before both.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_CONFIGURATION_H
#define TARKA_TOOLS_CONFIGURATION_H

#include "CommandLine.h"
#include "Options.h"
#include "PathPattern.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/Support/Error.h"
#include <memory>
#include <string>
#include <vector>

namespace tarka {

/// The name of the file.
inline constexpr llvm::StringLiteral configurationName = "tarka.toml";

/// A value in a configuration file.
struct ConfiguredValue {
  const Option *option;
  std::string text; ///< as setOption() takes it; a path is relative to the current directory
  unsigned line;
};

/// What one tarka.toml says.
class ConfigurationFile {
public:
  /// Reads the file \p path. A fault comes with its place: "PATH:LINE:COLUMN: ...".
  static llvm::Expected<ConfigurationFile> read(const std::string &path);

  /// The values of one table.
  struct Table {
    /// Of [[for]]: which programs, as written and as a pattern.
    std::string pattern;
    std::optional<PathPattern> programs;
    /// The command whose options these are.
    Command command = Command::Check;
    std::vector<ConfiguredValue> values;
  };

  const std::string &getPath() const { return path; }
  /// The tables that hold for \p program when \p command reads it, the general ones first.
  std::vector<const Table *> tablesFor(llvm::StringRef program, Command command) const;

private:
  friend class ConfigurationReader;

  std::string path;
  std::vector<Table> tables;
};

/// A value that holds, and where it comes from.
struct HoldingValue {
  const Option *option;
  std::string text;
  std::string origin; ///< "tarka.toml:4", "the command line"
};

/// What holds for each program: the command line and the configuration files.
class Configuration {
public:
  /// \p commandLine must live as long.
  explicit Configuration(const Request &commandLine) : request(commandLine) {}

  /// The configuration file that holds for the file or directory \p path; null for none. A file
  /// that was read before is not read again.
  llvm::Expected<const ConfigurationFile *> fileFor(llvm::StringRef path);
  /// The values that hold for \p path, in the order in which they are set: a later one goes before
  /// an earlier one, except where it adds to it.
  llvm::Expected<std::vector<HoldingValue>> valuesFor(llvm::StringRef path);
  /// Takes what is for the run as a whole from what holds for \p path. Called first.
  llvm::Error beginRun(llvm::StringRef path);
  /// The request for \p path: its own values, and those of the run.
  llvm::Expected<Request> requestFor(llvm::StringRef path);

private:
  llvm::Expected<const ConfigurationFile *> load(const std::string &path);

  const Request &request;
  std::vector<HoldingValue> runValues;
  /// By directory the configuration file, null for none.
  llvm::StringMap<const ConfigurationFile *> byDirectory;
  llvm::StringMap<std::unique_ptr<ConfigurationFile>> files;
};

/// Carries out `tarka config FILE`: prints what holds for each file, and where it comes from.
int printConfiguration(const Request &request);

/// Carries out `tarka init [DIRECTORY]`: writes a tarka.toml after a look at the sources.
int initializeConfiguration(const Request &request);

} // namespace tarka

#endif // TARKA_TOOLS_CONFIGURATION_H
