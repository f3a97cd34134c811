//===- Dependencies.h - what a compilation was made of ----------*- C++ -*-===//
//
// A compilation is determined by its options and by the files that it reads: the
// source, the copybooks, and those that were looked for in vain, because where
// one of them appears the result changes. All of it is read through a file
// system, which is where it is recorded.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_DEPENDENCIES_H
#define TARKA_PARSE_DEPENDENCIES_H

#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/Support/VirtualFileSystem.h"
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tarka {

/// One thing that a compilation found in the file system.
struct Dependency {
  enum Kind : std::uint8_t {
    Contents, ///< a file was read
    Names,    ///< a directory was searched
    Missing,  ///< there was nothing of this name
    NoFile,   ///< there was something that is not a regular file
  };
  Kind kind = Missing;
  std::string path;
  /// Of Contents and Names: the digest of what was there.
  std::string digest;
  /// Of Names: which names count, by what stands before their first dot, in lower case and sorted.
  /// Empty for the files that may define mapsets.
  std::vector<std::string> stems;
};

/// The 128-bit XXH3 digest of \p bytes in 32 hexadecimal digits. It tells texts apart, and takes a
/// tenth of the time of a cryptographic one.
std::string digestOf(llvm::StringRef bytes);

/// Looks at files and directories, at each of them once.
class DependencyChecker {
public:
  explicit DependencyChecker(llvm::vfs::FileSystem &source) : fileSystem(source) {}

  /// Whether what \p dependency says is so.
  bool isUnchanged(const Dependency &dependency);
  /// The digest of the names in \p directory that have one of \p stems, or where \p stems is empty
  /// of the names that isMapFileName(). That of a directory that is not there differs from that of
  /// an empty one.
  std::string digestOfNames(llvm::StringRef directory, llvm::ArrayRef<std::string> stems);
  /// Whether \p directory has the name \p name.
  bool hasName(llvm::StringRef directory, llvm::StringRef name);

private:
  struct Directory {
    bool exists = false;
    /// The names by what stands before their first dot, in lower case.
    std::map<std::string, std::set<std::string>, std::less<>> names;
    std::set<std::string> maps;
  };
  const Directory &read(llvm::StringRef directory);
  /// Empty when the file cannot be read.
  const std::string &digestOfFile(llvm::StringRef path);

  llvm::vfs::FileSystem &fileSystem;
  llvm::StringMap<Directory> directories;
  llvm::StringMap<std::string> files;
};

/// The files and directories of which one is newer whenever one of \p dependencies has changed: the
/// files that were read, and for a directory that was searched the directory itself, or where it is
/// missing the nearest one around it. Sorted, each once.
std::vector<std::string> watchedPaths(llvm::ArrayRef<Dependency> dependencies,
                                      llvm::vfs::FileSystem &fileSystem);

/// A file system that records what is read from another one.
class DependencyRecorder : public llvm::vfs::ProxyFileSystem {
public:
  explicit DependencyRecorder(llvm::IntrusiveRefCntPtr<llvm::vfs::FileSystem> source)
      : ProxyFileSystem(std::move(source)) {}

  llvm::ErrorOr<llvm::vfs::Status> status(const llvm::Twine &path) override;
  bool exists(const llvm::Twine &path) override { return static_cast<bool>(status(path)); }
  llvm::ErrorOr<std::unique_ptr<llvm::vfs::File>> openFileForRead(const llvm::Twine &path) override;
  llvm::vfs::directory_iterator dir_begin(const llvm::Twine &path, std::error_code &error) override;

  /// Records that \p bytes were read from \p path.
  void addContents(llvm::StringRef path, llvm::StringRef bytes);

  /// What was recorded, by path. Names that were looked for in vain are put together by directory.
  std::vector<Dependency> getDependencies();
  /// Whether the record determines the result. It does not when a file could not be opened, or
  /// changed while it was read.
  bool isComplete() const { return complete; }

private:
  std::map<std::string, std::string> contents;
  std::set<std::string> missing;
  std::set<std::string> otherThanFiles;
  /// The directories whose maps were looked for, with the digests of the names of those.
  std::map<std::string, std::string> listed;
  bool complete = true;
};

} // namespace tarka

#endif // TARKA_PARSE_DEPENDENCIES_H
