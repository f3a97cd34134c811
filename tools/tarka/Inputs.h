//===- Inputs.h - the programs of a run -------------------------*- C++ -*-===//
//
// From the operands of the command line to the programs: files, directories that
// are searched for programs, and lists of names. They are found one after the
// other while the run goes on, and what is kept does not grow with their number,
// except for the names in one directory.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_INPUTS_H
#define TARKA_TOOLS_INPUTS_H

#include "CommandLine.h"
#include "PathPattern.h"
#include "llvm/Support/MemoryBuffer.h"
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarka {

/// The operand that stands for standard input.
inline constexpr llvm::StringLiteral standardInput = "-";

/// The extensions of COBOL programs in directories, in lower case. Copybooks are read where a
/// program copies them.
llvm::ArrayRef<llvm::StringRef> programExtensions();

/// Whether \p operands can be more than one program.
bool namesSeveralPrograms(const std::vector<std::string> &operands);

/// The programs that a run is about, in order: operands as they were given, files of a directory by
/// name.
class Inputs {
public:
  /// Reports that nothing can be done with the file or directory \p name.
  using FaultHandler = std::function<void(const std::string &name, const std::string &message)>;

  /// \p request has patterns that are valid.
  Inputs(const Request &driverRequest, FaultHandler faultHandler);

  /// The name of the next program; none at the end.
  std::optional<std::string> next();

private:
  /// A list of names, read line by line.
  struct List {
    std::string path;
    std::unique_ptr<llvm::MemoryBuffer> buffer;
    llvm::StringRef rest;
  };
  /// The names in a directory that are still to come, in descending order.
  struct Directory {
    std::string path;
    std::vector<std::string> names;
  };

  std::optional<std::string> nextOperand();
  std::optional<std::string> nextOfDirectory();
  void openList(llvm::StringRef name);
  void openDirectory(std::string path);
  bool isProgram(llvm::StringRef relative) const;
  bool isExcluded(llvm::StringRef relative) const;
  /// \p path as the patterns see it: relative to the directory that the walk began with.
  llvm::StringRef relativeToRoot(llvm::StringRef path) const;

  const Request &request;
  FaultHandler fault;
  std::vector<PathPattern> include;
  std::vector<PathPattern> exclude;
  std::size_t operand = 0;
  bool tookStandardInput = false;
  /// The lists being read, each named by the one before.
  std::vector<List> lists;
  /// The operand whose directories are being walked, and the way down to the current one.
  std::string root;
  std::vector<Directory> directories;
  /// Whether a program was found in the root.
  bool isFruitful = false;
};

} // namespace tarka

#endif // TARKA_TOOLS_INPUTS_H
