//===- ReportCache.h - the reports of unchanged programs --------*- C++ -*-===//
//
// A report is kept under the digest of what it was asked for: the program's name
// and size, the options, and this build of tarka. With it is kept what the
// compilation found in the file system, the contents of the program among them;
// the report is used again only while all of this is as it was. So a program is
// digested only if there is a report that may be its own.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_REPORTCACHE_H
#define TARKA_TOOLS_REPORTCACHE_H

#include "CommandLine.h"
#include "Parse/Dependencies.h"
#include "llvm/ADT/SmallString.h"

namespace tarka {

/// Several runs can use one directory at the same time. Where it cannot be read or written, and
/// where an entry is damaged, the program is analysed as if there were none.
class ReportCache {
public:
  explicit ReportCache(const Request &driverRequest);

  /// Whether reports are kept in a run of \p request: standard input and changed sources are not.
  static bool isWanted(const Request &request);

  /// The bytes that serialize() made of the report of \p file with the options of \p own, when it
  /// would be the same now.
  std::optional<std::string> find(const Request &own, const std::string &file);
  /// Keeps \p report, which is that report, with what its compilation read.
  void store(const Request &own, const std::string &file, DependencyRecorder &dependencies,
             llvm::StringRef report);
  /// Removes reports that were not used for long, if nobody did that recently.
  void prune();

private:
  /// The path of the entry of \p file in its present size; none when it is not a regular file.
  std::optional<std::string> pathOf(const Request &own, const std::string &file) const;

  const Request &request;
  bool isOn;
  llvm::SmallString<128> directory;
  /// Identifies this build of the program.
  std::string build;
  /// Copybooks and directories are looked at once in a run.
  llvm::IntrusiveRefCntPtr<llvm::vfs::FileSystem> fileSystem;
  DependencyChecker checker;
};

} // namespace tarka

#endif // TARKA_TOOLS_REPORTCACHE_H
