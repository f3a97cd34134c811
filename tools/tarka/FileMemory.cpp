//===- FileMemory.cpp - files that many programs read ---------------------===//

#include "FileMemory.h"
#include "llvm/Support/MemoryBuffer.h"
#include "llvm/Support/Path.h"
#include <chrono>

namespace tarka {

namespace {

namespace vfs = llvm::vfs;

/// How much text is kept, in bytes.
constexpr std::size_t maxKept = 64u << 20;
/// A directory with more names is not listed.
constexpr unsigned maxNames = 20'000;
/// How long a directory must have been unchanged when it is listed: the clock of a file system does
/// not tell changes apart that follow each other closely.
constexpr std::chrono::seconds settlingTime(1);

/// A file whose contents are known.
class RememberedFile : public vfs::File {
public:
  RememberedFile(const vfs::Status &fileStatus, llvm::StringRef contents)
      : known(fileStatus), text(contents) {}

  llvm::ErrorOr<vfs::Status> status() override { return known; }
  llvm::ErrorOr<std::unique_ptr<llvm::MemoryBuffer>> getBuffer(const llvm::Twine &name,
                                                               std::int64_t, bool, bool) override {
    return llvm::MemoryBuffer::getMemBuffer(text, name.str());
  }
  std::error_code close() override { return {}; }

private:
  vfs::Status known;
  llvm::StringRef text;
};

bool isSame(const vfs::Status &left, const vfs::Status &right) {
  return left.getUniqueID() == right.getUniqueID() && left.getSize() == right.getSize() &&
         left.getLastModificationTime() == right.getLastModificationTime();
}

} // namespace

const llvm::ErrorOr<vfs::Status> &FileMemory::statusOf(KnownFile &file, llvm::StringRef path) {
  if (file.program != program) {
    file.program = program;
    file.status = ProxyFileSystem::status(path);
  }
  return file.status;
}

llvm::ErrorOr<vfs::Status> FileMemory::status(const llvm::Twine &path) {
  llvm::SmallString<128> storage;
  const llvm::StringRef name = path.toStringRef(storage);
  auto known = files.find(name);
  if (known != files.end())
    return statusOf(known->second, name);
  if (isMissing(name))
    return std::make_error_code(std::errc::no_such_file_or_directory);
  llvm::ErrorOr<vfs::Status> found = ProxyFileSystem::status(name);
  // What is missing is looked for under too many names to remember each.
  if (found) {
    KnownFile &file = files[name];
    file.program = program;
    file.status = found;
  }
  return found;
}

/// Whether the directory that \p path names is known not to have such a name.
bool FileMemory::isMissing(llvm::StringRef path) {
  llvm::StringRef parent = llvm::sys::path::parent_path(path);
  if (parent.empty())
    parent = ".";
  KnownDirectory &directory = directories[parent];
  if (directory.program != program) {
    directory.program = program;
    list(directory, parent);
  }
  return directory.isListed && !directory.names.contains(llvm::sys::path::filename(path).lower());
}

/// Lists the directory unless it is listed and unchanged.
void FileMemory::list(KnownDirectory &directory, llvm::StringRef path) {
  const llvm::ErrorOr<vfs::Status> found = ProxyFileSystem::status(path);
  if (!found || !found->isDirectory()) {
    directory.isListed = false;
    return;
  }
  const llvm::sys::TimePoint<> time = found->getLastModificationTime();
  if (directory.isListed && directory.time == time)
    return;
  directory.isListed = false;
  if (std::chrono::system_clock::now() - time < settlingTime)
    return;
  directory.time = time;
  directory.names.clear();
  std::error_code error;
  for (vfs::directory_iterator entry = dir_begin(path, error), end; !error && entry != end;
       entry.increment(error)) {
    if (directory.names.size() == maxNames)
      return;
    directory.names.insert(llvm::sys::path::filename(entry->path()).lower());
  }
  directory.isListed = !error;
}

llvm::ErrorOr<std::unique_ptr<vfs::File>> FileMemory::openFileForRead(const llvm::Twine &path) {
  llvm::SmallString<128> storage;
  const llvm::StringRef name = path.toStringRef(storage);
  KnownFile &file = files[name];
  const llvm::ErrorOr<vfs::Status> found = statusOf(file, name);
  if (!found || !found->isRegularFile())
    return ProxyFileSystem::openFileForRead(name);
  if (file.contents && isSame(*found, file.statusOfContents))
    return std::make_unique<RememberedFile>(*found, *file.contents);
  const bool isShared = file.reader != 0 && file.reader != program;
  file.reader = program;
  auto opened = ProxyFileSystem::openFileForRead(name);
  if (!opened || !isShared || keptBytes + found->getSize() > maxKept)
    return opened;
  const llvm::ErrorOr<vfs::Status> ofOpened = (*opened)->status();
  auto contents = (*opened)->getBuffer(name);
  if (!ofOpened || !contents)
    return ProxyFileSystem::openFileForRead(name);
  file.contents = new std::string((*contents)->getBuffer());
  file.statusOfContents = *ofOpened;
  keptBytes += file.contents->size();
  return std::make_unique<RememberedFile>(*ofOpened, *file.contents);
}

} // namespace tarka
