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

#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/Support/VirtualFileSystem.h"
#include <string>
#include <vector>

namespace tarka {

/// One file or directory, and what the compilation found there.
struct Dependency {
  enum Kind : std::uint8_t {
    Contents,  ///< a file was read
    Missing,   ///< there was nothing of this name
    NoFile,    ///< there was something that is not a regular file
    Directory, ///< the names in a directory were read
  };
  Kind kind = Missing;
  std::string path;
  /// The BLAKE3 digest, in hexadecimal digits, of the contents or of the names.
  std::string digest;
};

/// The BLAKE3 digest of \p bytes in hexadecimal digits.
std::string digestOf(llvm::StringRef bytes);

/// Whether \p dependency still is what was found.
bool isUnchanged(const Dependency &dependency, llvm::vfs::FileSystem &fileSystem);

/// The files and directories of which one is newer whenever one of \p dependencies has changed: the
/// files that were read, and for a name that was looked for in vain the directory where it would
/// appear, or the nearest one that is there. Sorted, each once.
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

  /// What was recorded, in no particular order.
  std::vector<Dependency> getDependencies() const;
  /// Whether the record determines the result. It does not when a file could not be opened, or
  /// changed while it was read.
  bool isComplete() const { return complete; }

private:
  void add(llvm::StringRef path, Dependency::Kind kind, std::string digest = "");

  llvm::StringMap<Dependency> found;
  bool complete = true;
};

} // namespace tarka

#endif // TARKA_PARSE_DEPENDENCIES_H
