//===- FileMemory.h - files that many programs read -------------*- C++ -*-===//
//
// The programs of a run share copybooks, and look for each of them under many
// names and in many directories. A process that analyses one program after the
// other remembers what it has read and which names are in which directory.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_FILEMEMORY_H
#define TARKA_TOOLS_FILEMEMORY_H

#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/VirtualFileSystem.h"
#include <memory>

namespace tarka {

/// The real file system with a memory. A file is read again when its status has changed, and a
/// directory when its time has; both are looked at once for each program. Files of which there is
/// one reader, as of most programs, are not kept.
class FileMemory : public llvm::vfs::ProxyFileSystem {
public:
  FileMemory() : ProxyFileSystem(llvm::vfs::getRealFileSystem()) {}

  /// Looks at files and directories anew from here on.
  void beginProgram() { ++program; }

  llvm::ErrorOr<llvm::vfs::Status> status(const llvm::Twine &path) override;
  bool exists(const llvm::Twine &path) override { return static_cast<bool>(status(path)); }
  llvm::ErrorOr<std::unique_ptr<llvm::vfs::File>> openFileForRead(const llvm::Twine &path) override;

private:
  struct KnownFile {
    /// The program that the status is of.
    unsigned program = 0;
    llvm::ErrorOr<llvm::vfs::Status> status = std::error_code();
    /// The program that has read the file last.
    unsigned reader = 0;
    /// Null while only one program has read the file. Buffers of programs refer to it, so that it
    /// is replaced but never freed.
    const std::string *contents = nullptr;
    llvm::vfs::Status statusOfContents;
  };
  struct KnownDirectory {
    unsigned program = 0;
    llvm::sys::TimePoint<> time;
    /// Whether the names are all that there are.
    bool isListed = false;
    /// In lower case: the file system decides which spellings are the same.
    llvm::StringSet<> names;
  };

  const llvm::ErrorOr<llvm::vfs::Status> &statusOf(KnownFile &file, llvm::StringRef path);
  bool isMissing(llvm::StringRef path);
  void list(KnownDirectory &directory, llvm::StringRef path);

  unsigned program = 1;
  llvm::StringMap<KnownFile> files;
  llvm::StringMap<KnownDirectory> directories;
  std::size_t keptBytes = 0;
};

} // namespace tarka

#endif // TARKA_TOOLS_FILEMEMORY_H
