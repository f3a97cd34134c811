//===- Dependencies.cpp - what a compilation was made of ------------------===//

#include "Parse/Dependencies.h"
#include "Parse/SourceFile.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/xxhash.h"

namespace tarka {

namespace {

namespace vfs = llvm::vfs;
namespace path = llvm::sys::path;

/// A file whose contents are recorded when they are read.
class RecordedFile : public vfs::File {
public:
  RecordedFile(std::unique_ptr<vfs::File> source, std::string opened, DependencyRecorder &target)
      : file(std::move(source)), name(std::move(opened)), recorder(target) {}

  llvm::ErrorOr<vfs::Status> status() override { return file->status(); }
  llvm::ErrorOr<std::unique_ptr<llvm::MemoryBuffer>> getBuffer(const llvm::Twine &shown,
                                                               std::int64_t size,
                                                               bool requiresNullTerminator,
                                                               bool isVolatile) override {
    auto buffer = file->getBuffer(shown, size, requiresNullTerminator, isVolatile);
    if (buffer)
      recorder.addContents(name, (*buffer)->getBuffer());
    return buffer;
  }
  std::error_code close() override { return file->close(); }

private:
  std::unique_ptr<vfs::File> file;
  std::string name;
  DependencyRecorder &recorder;
};

std::string stemOf(llvm::StringRef name) {
  return name.split('.').first.lower();
}

std::string directoryOf(llvm::StringRef name) {
  const llvm::StringRef directory = path::parent_path(name);
  return directory.empty() ? "." : directory.str();
}

} // namespace

std::string digestOf(llvm::StringRef bytes) {
  const llvm::XXH128_hash_t hash = llvm::xxh3_128bits(llvm::arrayRefFromStringRef(bytes));
  return llvm::utohexstr(hash.high64, /*LowerCase=*/true, /*Width=*/16) +
         llvm::utohexstr(hash.low64, /*LowerCase=*/true, /*Width=*/16);
}

bool DependencyChecker::isUnchanged(const Dependency &dependency) {
  switch (dependency.kind) {
  case Dependency::Contents:
    return digestOfFile(dependency.path) == dependency.digest;
  case Dependency::Names:
    return digestOfNames(dependency.path, dependency.stems) == dependency.digest;
  case Dependency::Missing:
    return !fileSystem.status(dependency.path);
  case Dependency::NoFile: {
    const llvm::ErrorOr<vfs::Status> status = fileSystem.status(dependency.path);
    return status && !status->isRegularFile();
  }
  }
  return false;
}

const std::string &DependencyChecker::digestOfFile(llvm::StringRef file) {
  auto [entry, isNew] = files.try_emplace(file);
  if (!isNew)
    return entry->second;
  // A pipe has been read once, and opening it again might wait for ever.
  const llvm::ErrorOr<vfs::Status> status = fileSystem.status(file);
  if (status && status->isRegularFile())
    if (auto buffer = fileSystem.getBufferForFile(file))
      entry->second = digestOf((*buffer)->getBuffer());
  return entry->second;
}

const DependencyChecker::Directory &DependencyChecker::read(llvm::StringRef directory) {
  auto [entry, isNew] = directories.try_emplace(directory);
  Directory &result = entry->second;
  if (!isNew)
    return result;
  std::error_code error;
  for (vfs::directory_iterator file = fileSystem.dir_begin(directory, error), end;
       !error && file != end; file.increment(error)) {
    const llvm::StringRef name = path::filename(file->path());
    result.names[stemOf(name)].insert(name.str());
    if (isMapFileName(name))
      result.maps.insert(name.str());
  }
  result.exists = !error;
  return result;
}

bool DependencyChecker::hasName(llvm::StringRef directory, llvm::StringRef name) {
  const Directory &known = read(directory);
  const auto found = known.names.find(stemOf(name));
  return found != known.names.end() && found->second.count(name.str()) > 0;
}

std::string DependencyChecker::digestOfNames(llvm::StringRef directory,
                                             llvm::ArrayRef<std::string> stems) {
  const Directory &known = read(directory);
  std::string names = known.exists ? "+" : "-";
  auto add = [&](const std::set<std::string> &some) {
    for (const std::string &name : some) {
      names += '\0';
      names += name;
    }
  };
  if (stems.empty())
    add(known.maps);
  for (const std::string &stem : stems)
    if (const auto found = known.names.find(stem); found != known.names.end())
      add(found->second);
  return digestOf(names);
}

std::vector<std::string> watchedPaths(llvm::ArrayRef<Dependency> dependencies,
                                      vfs::FileSystem &fileSystem) {
  std::set<std::string> paths;
  for (const Dependency &dependency : dependencies) {
    if (dependency.kind == Dependency::Contents) {
      paths.insert(dependency.path);
      continue;
    }
    std::string nearest =
        dependency.kind == Dependency::Names ? dependency.path : directoryOf(dependency.path);
    while (nearest != "." && !fileSystem.exists(nearest))
      nearest = directoryOf(nearest);
    paths.insert(nearest);
  }
  return {paths.begin(), paths.end()};
}

llvm::ErrorOr<vfs::Status> DependencyRecorder::status(const llvm::Twine &name) {
  auto result = ProxyFileSystem::status(name);
  if (result && !result->isRegularFile())
    otherThanFiles.insert(name.str());
  else if (!result && (result.getError() == std::errc::no_such_file_or_directory ||
                       result.getError() == std::errc::not_a_directory))
    missing.insert(name.str());
  else if (!result)
    complete = false;
  return result;
}

llvm::ErrorOr<std::unique_ptr<vfs::File>>
DependencyRecorder::openFileForRead(const llvm::Twine &name) {
  auto file = ProxyFileSystem::openFileForRead(name);
  if (!file) {
    complete = false;
    return file;
  }
  return std::unique_ptr<vfs::File>(
      std::make_unique<RecordedFile>(std::move(*file), name.str(), *this));
}

vfs::directory_iterator DependencyRecorder::dir_begin(const llvm::Twine &directory,
                                                      std::error_code &error) {
  // The one reader of directories looks for maps. The names are noted before it sees them, so that
  // one that appears meanwhile counts as a change.
  const std::string name = directory.str();
  listed.try_emplace(name, DependencyChecker(getUnderlyingFS()).digestOfNames(name, {}));
  return ProxyFileSystem::dir_begin(directory, error);
}

void DependencyRecorder::addContents(llvm::StringRef file, llvm::StringRef bytes) {
  const std::string digest = digestOf(bytes);
  const std::string &known = contents.try_emplace(file.str(), digest).first->second;
  complete &= known == digest;
}

std::vector<Dependency> DependencyRecorder::getDependencies() {
  std::vector<Dependency> all;
  all.reserve(contents.size() + otherThanFiles.size());
  for (const auto &[file, digest] : contents)
    all.push_back({Dependency::Contents, file, digest, {}});
  for (const std::string &name : otherThanFiles)
    all.push_back({Dependency::NoFile, name, "", {}});

  DependencyChecker checker(getUnderlyingFS());
  std::map<std::string, std::set<std::string>> stems;
  for (const std::string &name : missing) {
    const std::string directory = directoryOf(name);
    // A link that leads nowhere has a name, and what it leads to may appear.
    if (checker.hasName(directory, path::filename(name)))
      all.push_back({Dependency::Missing, name, "", {}});
    else
      stems[directory].insert(stemOf(path::filename(name)));
  }
  for (const auto &[directory, digest] : listed)
    all.push_back({Dependency::Names, directory, digest, {}});
  for (const auto &[directory, names] : stems) {
    const std::vector<std::string> sorted(names.begin(), names.end());
    all.push_back({Dependency::Names, directory, checker.digestOfNames(directory, sorted), sorted});
  }
  return all;
}

} // namespace tarka
