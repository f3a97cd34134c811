//===- Dependencies.cpp - what a compilation was made of ------------------===//

#include "Parse/Dependencies.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/BLAKE3.h"
#include "llvm/Support/Path.h"

namespace tarka {

namespace {

namespace vfs = llvm::vfs;

/// A file whose contents are recorded when they are read.
class RecordedFile : public vfs::File {
public:
  RecordedFile(std::unique_ptr<vfs::File> source, std::string opened, DependencyRecorder &target)
      : file(std::move(source)), path(std::move(opened)), recorder(target) {}

  llvm::ErrorOr<vfs::Status> status() override { return file->status(); }
  llvm::ErrorOr<std::unique_ptr<llvm::MemoryBuffer>> getBuffer(const llvm::Twine &name,
                                                               std::int64_t size,
                                                               bool requiresNullTerminator,
                                                               bool isVolatile) override {
    auto buffer = file->getBuffer(name, size, requiresNullTerminator, isVolatile);
    if (buffer)
      recorder.addContents(path, (*buffer)->getBuffer());
    return buffer;
  }
  std::error_code close() override { return file->close(); }

private:
  std::unique_ptr<vfs::File> file;
  std::string path;
  DependencyRecorder &recorder;
};

/// The digest of the names in a directory; empty when it cannot be read.
std::string digestOfNames(llvm::StringRef path, vfs::FileSystem &fileSystem) {
  std::vector<std::string> names;
  std::error_code error;
  for (vfs::directory_iterator entry = fileSystem.dir_begin(path, error), end;
       !error && entry != end; entry.increment(error))
    names.push_back(llvm::sys::path::filename(entry->path()).str());
  if (error)
    return "";
  llvm::sort(names);
  return digestOf(llvm::join(names, "\n"));
}

} // namespace

std::string digestOf(llvm::StringRef bytes) {
  llvm::BLAKE3 hasher;
  hasher.update(bytes);
  return llvm::toHex(hasher.final(), /*LowerCase=*/true);
}

bool isUnchanged(const Dependency &dependency, vfs::FileSystem &fileSystem) {
  const llvm::ErrorOr<vfs::Status> status = fileSystem.status(dependency.path);
  switch (dependency.kind) {
  case Dependency::Missing:
    return !status;
  case Dependency::NoFile:
    return status && !status->isRegularFile();
  case Dependency::Directory:
    return digestOfNames(dependency.path, fileSystem) == dependency.digest;
  case Dependency::Contents: {
    // A pipe has been read once, and opening it again might wait for ever.
    if (!status || !status->isRegularFile())
      return false;
    auto buffer = fileSystem.getBufferForFile(dependency.path);
    return buffer && digestOf((*buffer)->getBuffer()) == dependency.digest;
  }
  }
  return false;
}

std::vector<std::string> watchedPaths(llvm::ArrayRef<Dependency> dependencies,
                                      vfs::FileSystem &fileSystem) {
  std::vector<std::string> paths;
  llvm::StringMap<std::string> nearest;
  auto nearestDirectory = [&](llvm::StringRef directory) {
    std::string &answer = nearest[directory];
    if (!answer.empty())
      return answer;
    llvm::StringRef candidate = directory;
    while (!candidate.empty() && !fileSystem.exists(candidate))
      candidate = llvm::sys::path::parent_path(candidate);
    return answer = candidate.empty() ? "." : candidate.str();
  };
  for (const Dependency &dependency : dependencies)
    switch (dependency.kind) {
    case Dependency::Contents:
      paths.push_back(dependency.path);
      break;
    case Dependency::Directory:
      paths.push_back(nearestDirectory(dependency.path));
      break;
    case Dependency::Missing:
    case Dependency::NoFile:
      paths.push_back(nearestDirectory(llvm::sys::path::parent_path(dependency.path)));
      break;
    }
  llvm::sort(paths);
  paths.erase(llvm::unique(paths), paths.end());
  return paths;
}

llvm::ErrorOr<vfs::Status> DependencyRecorder::status(const llvm::Twine &path) {
  auto result = ProxyFileSystem::status(path);
  if (!result && result.getError() == std::errc::no_such_file_or_directory)
    add(path.str(), Dependency::Missing);
  else if (!result && result.getError() == std::errc::not_a_directory)
    add(path.str(), Dependency::Missing);
  else if (!result)
    complete = false;
  else if (!result->isRegularFile())
    add(path.str(), Dependency::NoFile);
  return result;
}

llvm::ErrorOr<std::unique_ptr<vfs::File>>
DependencyRecorder::openFileForRead(const llvm::Twine &path) {
  auto file = ProxyFileSystem::openFileForRead(path);
  if (!file) {
    complete = false;
    return file;
  }
  return std::unique_ptr<vfs::File>(
      std::make_unique<RecordedFile>(std::move(*file), path.str(), *this));
}

vfs::directory_iterator DependencyRecorder::dir_begin(const llvm::Twine &path,
                                                      std::error_code &error) {
  const std::string name = path.str();
  const std::string digest = digestOfNames(name, getUnderlyingFS());
  if (digest.empty())
    add(name, Dependency::Missing);
  else
    add(name, Dependency::Directory, digest);
  return ProxyFileSystem::dir_begin(path, error);
}

void DependencyRecorder::addContents(llvm::StringRef path, llvm::StringRef bytes) {
  add(path, Dependency::Contents, digestOf(bytes));
}

void DependencyRecorder::add(llvm::StringRef path, Dependency::Kind kind, std::string digest) {
  auto [entry, isNew] = found.try_emplace(path, Dependency{kind, path.str(), digest});
  Dependency &known = entry->second;
  // A directory is looked at both as a name and for its names.
  if (kind == Dependency::Directory && known.kind == Dependency::NoFile) {
    known.kind = kind;
    known.digest = std::move(digest);
  } else if (!isNew && (known.kind != kind || known.digest != digest) &&
             !(known.kind == Dependency::Directory && kind == Dependency::NoFile)) {
    complete = false;
  }
}

std::vector<Dependency> DependencyRecorder::getDependencies() const {
  std::vector<Dependency> all;
  for (const auto &entry : found)
    all.push_back(entry.second);
  return all;
}

} // namespace tarka
