//===- Depfile.h - the dependencies of a report, for Make and Ninja -*- C++ -*-===//

#ifndef TARKA_TOOLS_DEPFILE_H
#define TARKA_TOOLS_DEPFILE_H

#include "CommandLine.h"
#include "llvm/ADT/StringSet.h"

namespace tarka {

/// A rule in the syntax of Make that says on which files and directories the report of a run
/// depends. A copybook that was looked for in vain stands in it as the directory where it would
/// appear, which becomes newer then. Each path is a target of its own without a rule as well, so
/// that Make goes on when one of them has been deleted.
class Depfile {
public:
  /// Nothing is written unless \p request asks for it.
  explicit Depfile(const Request &request);

  bool isWanted() const { return wanted; }
  /// Adds what the report of one program depends on.
  void add(llvm::ArrayRef<std::string> paths);
  /// Writes the file. False after a message when that fails.
  bool write();

private:
  bool wanted;
  std::string file;
  std::vector<std::string> targets;
  llvm::StringSet<> inputs;
};

/// What is wrong with the options of the depfile; empty when nothing is.
std::string checkDepfileOptions(const Request &request);

} // namespace tarka

#endif // TARKA_TOOLS_DEPFILE_H
