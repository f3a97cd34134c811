//===- ReportCache.cpp - the reports of unchanged programs ----------------===//

#include "ReportCache.h"
#include "OutputFile.h"
#include "Report/Reporter.h"
#include "ReportRun.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/CachePruning.h"
#include "llvm/Support/EndianStream.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/Path.h"
#include <cstring>
#include <link.h>

namespace tarka {

namespace {

namespace fs = llvm::sys::fs;

/// Entries begin with this; the number rises when what follows is laid out differently.
constexpr llvm::StringLiteral magic = "tarka report 2\n";
/// LLVM's pruning looks at files with this prefix only.
constexpr llvm::StringLiteral prefix = "llvmcache-";
constexpr std::size_t digestSize = 32;

/// Puts values into a string so that different values give different strings.
class KeyWriter {
public:
  void add(llvm::StringRef text) {
    key += std::to_string(text.size());
    key += ':';
    key += text;
  }
  void add(std::uint64_t number) { add(llvm::StringRef(std::to_string(number))); }
  std::string take() { return std::move(key); }

private:
  std::string key;
};

/// The linker's digest of the program or library \p info; empty when it has none.
llvm::StringRef buildIdOf(const dl_phdr_info &info) {
  for (const ElfW(Phdr) & segment : llvm::ArrayRef(info.dlpi_phdr, info.dlpi_phnum)) {
    if (segment.p_type != PT_NOTE)
      continue;
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    llvm::StringRef notes(reinterpret_cast<const char *>(info.dlpi_addr + segment.p_vaddr),
                          segment.p_memsz);
    const std::uint64_t alignment = std::max<std::uint64_t>(segment.p_align, 4);
    ElfW(Nhdr) header;
    while (notes.size() > sizeof header) {
      std::memcpy(&header, notes.data(), sizeof header);
      const std::size_t begin = llvm::alignTo(sizeof header + header.n_namesz, alignment);
      if (header.n_type == NT_GNU_BUILD_ID &&
          notes.substr(sizeof header, header.n_namesz) == llvm::StringRef("GNU", 4))
        return notes.substr(begin, header.n_descsz);
      notes = notes.substr(llvm::alignTo(begin + header.n_descsz, alignment));
    }
  }
  return "";
}

/// Adds which build of the program this is: the digests of the files that its code comes from, or
/// where the linker makes none, what distinguishes the files themselves.
void addBuild(KeyWriter &key) {
  key.add(TARKA_VERSION);
  auto addFile = [](dl_phdr_info *info, std::size_t, void *writer) {
    llvm::StringRef name = info->dlpi_name;
    if (!name.empty() && !llvm::sys::path::filename(name).starts_with("libtarka"))
      return 0;
    auto &target = *static_cast<KeyWriter *>(writer);
    const llvm::StringRef buildId = buildIdOf(*info);
    fs::file_status status;
    if (!buildId.empty()) {
      target.add(buildId);
    } else if (!fs::status(name.empty() ? "/proc/self/exe" : name, status)) {
      target.add(status.getSize());
      target.add(
          static_cast<std::uint64_t>(status.getLastModificationTime().time_since_epoch().count()));
      target.add(status.getUniqueID().getFile());
    }
    return 0;
  };
  dl_iterate_phdr(addFile, &key);
}

/// Adds all options that a report depends on. A new field of the options does not compile until it
/// is named here.
void addOptions(KeyWriter &key, const Request &request) {
  // The program does not change the limits, and what files hold is looked at one by one.
  const auto &[directories, format, encoding, defines, debuggingLines, reservesOsvs, cics, sql,
               fileSystem, limits] = request.parse;
  key.add(directories.size());
  for (const std::string &path : directories)
    key.add(path);
  key.add(defines.size());
  for (const auto &[name, value] : defines) {
    key.add(name);
    key.add(value);
  }
  key.add(static_cast<std::uint64_t>(format));
  key.add(encoding);
  const auto &[checkFileID, dateproc, debug, dual, init, cbltdli, aertdli, rw, osvs, enterprise] =
      request.compile;
  for (const bool flag :
       {debuggingLines, reservesOsvs, cics, sql, checkFileID, dateproc, debug, dual, init, cbltdli,
        aertdli, rw, osvs, enterprise, request.all, request.syntaxOnly, showsSummary(request)})
    key.add(flag ? 1 : 0);
  key.add(request.selection.describe());
}

// An entry is the magic word, the digest of what follows, the dependencies, and the report.

void writeText(llvm::support::endian::Writer &out, llvm::StringRef text) {
  out.write(static_cast<std::uint32_t>(text.size()));
  out.OS << text;
}

class EntryReader {
public:
  explicit EntryReader(llvm::StringRef given) : bytes(given) {}

  std::uint32_t takeNumber() {
    const llvm::StringRef four = take(sizeof(std::uint32_t));
    return ok ? llvm::support::endian::read32le(four.data()) : 0;
  }
  llvm::StringRef takeText() { return take(takeNumber()); }
  bool isOk() const { return ok; }

private:
  llvm::StringRef take(std::size_t size) {
    ok = ok && size <= bytes.size();
    const llvm::StringRef taken = ok ? bytes.take_front(size) : "";
    bytes = bytes.drop_front(taken.size());
    return taken;
  }

  llvm::StringRef bytes;
  bool ok = true;
};

std::string makeEntry(llvm::ArrayRef<Dependency> dependencies, llvm::StringRef report) {
  std::string body;
  llvm::raw_string_ostream stream(body);
  llvm::support::endian::Writer out(stream, llvm::endianness::little);
  out.write(static_cast<std::uint32_t>(dependencies.size()));
  for (const Dependency &dependency : dependencies) {
    out.write(static_cast<std::uint32_t>(dependency.kind));
    writeText(out, dependency.path);
    writeText(out, dependency.digest);
    out.write(static_cast<std::uint32_t>(dependency.stems.size()));
    for (const std::string &stem : dependency.stems)
      writeText(out, stem);
  }
  writeText(out, report);
  return magic.str() + digestOf(body) + body;
}

/// Reads what makeEntry() made. Gives the report; none when \p bytes are something else.
std::optional<llvm::StringRef> readEntry(llvm::StringRef bytes,
                                         std::vector<Dependency> &dependencies) {
  if (!bytes.consume_front(magic) || bytes.size() < digestSize ||
      digestOf(bytes.drop_front(digestSize)) != bytes.take_front(digestSize))
    return std::nullopt;
  EntryReader reader(bytes.drop_front(digestSize));
  for (std::uint32_t count = reader.takeNumber(); count > 0 && reader.isOk(); --count) {
    Dependency &dependency = dependencies.emplace_back();
    dependency.kind = static_cast<Dependency::Kind>(reader.takeNumber());
    dependency.path = reader.takeText();
    dependency.digest = reader.takeText();
    for (std::uint32_t stems = reader.takeNumber(); stems > 0 && reader.isOk(); --stems)
      dependency.stems.push_back(reader.takeText().str());
  }
  const llvm::StringRef report = reader.takeText();
  if (!reader.isOk())
    return std::nullopt;
  return report;
}

/// Writes \p entry so that it appears whole at \p path or not at all.
///
/// An OutputFile is removed by signals, of which LLVM keeps a list that never shrinks: a worker
/// that stores many reports would go through it for each of them. What a signal leaves over here
/// has the name of an entry and is pruned as one.
void writeEntry(const std::string &path, llvm::StringRef entry) {
  int descriptor = -1;
  llvm::SmallString<128> temporary;
  if (fs::createUniqueFile(path + ".%%%%%%", descriptor, temporary))
    return;
  llvm::raw_fd_ostream out(descriptor, /*shouldClose=*/true);
  out << entry;
  out.close();
  const bool isWritten = !out.has_error();
  out.clear_error();
  if (!isWritten || fs::rename(temporary, path))
    fs::remove(temporary);
}

/// Makes the directory, and marks it as one that needs no backup.
bool makeDirectory(llvm::StringRef directory) {
  if (fs::exists(directory))
    return true;
  if (fs::create_directories(directory))
    return false;
  llvm::SmallString<128> path(directory);
  llvm::sys::path::append(path, "CACHEDIR.TAG");
  OutputFile tag(std::string(path.str()));
  if (tag.stream()) {
    *tag.stream() << "Signature: 8a477f597d28d172789f06886806bc55\n"
                     "# Reports of tarka on programs that have not changed. It can be deleted.\n";
    tag.commit();
  }
  return true;
}

} // namespace

bool ReportCache::isWanted(const Request &request) {
  return request.command == Command::Check && request.cache && !request.fix && !request.verify &&
         !request.listCopybooks && !request.parse.fileSystem;
}

ReportCache::ReportCache(const Request &driverRequest)
    : request(driverRequest), isOn(isWanted(driverRequest)), directory(request.cacheDirectory),
      fileSystem(llvm::vfs::getRealFileSystem()), checker(*fileSystem) {
  if (!isOn)
    return;
  if (directory.empty()) {
    isOn = llvm::sys::path::cache_directory(directory);
    llvm::sys::path::append(directory, "tarka");
  }
  KeyWriter key;
  addBuild(key);
  build = key.take();
}

std::optional<std::string> ReportCache::pathOf(const Request &own, const std::string &file) const {
  fs::file_status status;
  if (fs::status(file, status) || !fs::is_regular_file(status))
    return std::nullopt;
  KeyWriter key;
  key.add(build);
  addOptions(key, own);
  key.add(file);
  key.add(status.getSize());
  llvm::SmallString<128> path(directory);
  llvm::sys::path::append(path, prefix + digestOf(key.take()));
  return std::string(path);
}

std::optional<std::string> ReportCache::find(const Request &own, const std::string &file) {
  const std::optional<std::string> path = isOn ? pathOf(own, file) : std::nullopt;
  if (!path)
    return std::nullopt;
  auto entry = llvm::MemoryBuffer::getFile(*path);
  if (!entry)
    return std::nullopt;
  std::vector<Dependency> dependencies;
  const std::optional<llvm::StringRef> bytes = readEntry((*entry)->getBuffer(), dependencies);
  if (!bytes)
    return std::nullopt;
  for (const Dependency &dependency : dependencies)
    if (!checker.isUnchanged(dependency))
      return std::nullopt;
  if (!request.writeDepfile && request.depfile.empty())
    return bytes->str();
  // Which directories are there now is not part of what is kept.
  std::optional<FileReport> report = deserializeFileReport(*bytes);
  if (!report)
    return std::nullopt;
  report->inputs = watchedPaths(dependencies, *fileSystem);
  std::string answer;
  llvm::raw_string_ostream stream(answer);
  serialize(stream, *report);
  return answer;
}

void ReportCache::store(const Request &own, const std::string &file,
                        DependencyRecorder &dependencies, llvm::StringRef report) {
  if (!isOn)
    return;
  const std::vector<Dependency> found = dependencies.getDependencies();
  const bool hasSource = llvm::any_of(found, [&](const Dependency &dependency) {
    return dependency.kind == Dependency::Contents && dependency.path == file;
  });
  const std::optional<std::string> path = pathOf(own, file);
  if (!path || !hasSource || !dependencies.isComplete() || !makeDirectory(directory))
    return;
  writeEntry(*path, makeEntry(found, report));
}

void ReportCache::prune() {
  if (!isOn)
    return;
  llvm::CachePruningPolicy policy;
  policy.Expiration = std::chrono::hours(30 * 24);
  policy.MaxSizePercentageOfAvailableSpace = 0;
  policy.MaxSizeBytes = std::uint64_t(1) << 30;
  llvm::pruneCache(directory, policy);
}

} // namespace tarka
