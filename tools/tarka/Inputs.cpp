//===- Inputs.cpp - the programs of a run ---------------------------------===//

#include "Inputs.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/Path.h"

namespace tarka {

namespace fs = llvm::sys::fs;
namespace path = llvm::sys::path;

namespace {

/// Lists in lists.
constexpr std::size_t maxListDepth = 100;

std::vector<PathPattern> compile(const std::vector<std::string> &texts) {
  std::vector<PathPattern> patterns;
  patterns.reserve(texts.size());
  for (const std::string &text : texts)
    patterns.push_back(llvm::cantFail(PathPattern::create(text)));
  return patterns;
}

bool matchesAny(const std::vector<PathPattern> &patterns, llvm::StringRef name) {
  return llvm::any_of(patterns, [&](const PathPattern &pattern) { return pattern.match(name); });
}

bool isList(llvm::StringRef operand) {
  return operand.starts_with("@");
}

} // namespace

bool namesSeveralPrograms(const std::vector<std::string> &operands) {
  return operands.size() != 1 || isList(operands.front()) || fs::is_directory(operands.front());
}

llvm::ArrayRef<llvm::StringRef> programExtensions() {
  static const llvm::StringRef extensions[] = {".cbl", ".cob", ".cobol", ".pco"};
  return extensions;
}

Inputs::Inputs(const Request &driverRequest, FaultHandler faultHandler)
    : request(driverRequest), fault(std::move(faultHandler)), include(compile(request.include)),
      exclude(compile(request.exclude)) {}

std::optional<std::string> Inputs::next() {
  while (true) {
    if (!directories.empty()) {
      if (std::optional<std::string> file = nextOfDirectory())
        return file;
      continue;
    }
    std::optional<std::string> name = nextOperand();
    if (!name)
      return std::nullopt;
    if (*name == standardInput) {
      if (!std::exchange(tookStandardInput, true))
        return request.stdinName;
      fault("-", "standard input can be read once only");
    } else if (isList(*name)) {
      openList(*name);
    } else if (fs::is_directory(*name)) {
      root = *name;
      isFruitful = false;
      openDirectory(root);
    } else {
      return name;
    }
  }
}

/// The next name of the innermost list, or of the command line.
std::optional<std::string> Inputs::nextOperand() {
  while (!lists.empty()) {
    List &list = lists.back();
    if (list.rest.empty()) {
      lists.pop_back();
      continue;
    }
    auto [line, rest] = list.rest.split('\n');
    list.rest = rest;
    line = line.trim();
    if (!line.empty() && !line.starts_with("#"))
      return line.str();
  }
  if (operand == request.files.size())
    return std::nullopt;
  return request.files[operand++];
}

/// Opens the list \p name, which has the @. A list in a list is named relative to that.
void Inputs::openList(llvm::StringRef name) {
  llvm::SmallString<128> file(name.drop_front());
  if (!lists.empty() && path::is_relative(file)) {
    file = path::parent_path(lists.back().path);
    path::append(file, name.drop_front());
  }
  if (lists.size() == maxListDepth) {
    fault(std::string(file), "the list " + std::string(file) + " is not read: it names itself");
    return;
  }
  auto buffer = llvm::MemoryBuffer::getFile(file, /*IsText=*/true);
  if (!buffer) {
    fault(std::string(file),
          "cannot read the list " + std::string(file) + ": " + buffer.getError().message());
    return;
  }
  const llvm::StringRef text = (*buffer)->getBuffer();
  lists.push_back({std::string(file), std::move(*buffer), text});
}

void Inputs::openDirectory(std::string name) {
  Directory directory{std::move(name), {}};
  std::error_code error;
  for (fs::directory_iterator entry(directory.path, error, /*follow_symlinks=*/false), end;
       entry != end && !error; entry.increment(error))
    directory.names.push_back(path::filename(entry->path()).str());
  if (error)
    fault(directory.path, "cannot read the directory " + directory.path + ": " + error.message());
  llvm::sort(directory.names, std::greater<>());
  directories.push_back(std::move(directory));
}

/// The next program of the directory being walked; none when the walk went up or down instead.
std::optional<std::string> Inputs::nextOfDirectory() {
  Directory &directory = directories.back();
  if (directory.names.empty()) {
    directories.pop_back();
    if (directories.empty() && !isFruitful)
      fault(root, "there is no program in " + root + "; " +
                      (request.include.empty()
                           ? "programs are files named *" + llvm::join(programExtensions(), ", *") +
                                 ", unless --include says otherwise"
                           : "--include is " + llvm::join(request.include, ", ")));
    return std::nullopt;
  }
  // The current directory is not shown.
  llvm::SmallString<128> name(directory.path == "." ? "" : directory.path);
  path::append(name, directory.names.back());
  // .git and the like hold no sources.
  const bool isHidden = llvm::StringRef(directory.names.back()).starts_with(".");
  directory.names.pop_back();
  const llvm::StringRef relative = relativeToRoot(name);
  if (isHidden || isExcluded(relative))
    return std::nullopt;
  fs::file_status status;
  // A link to a directory may lead back to where it stands, so it is not followed.
  const bool exists = !fs::status(name, status, /*follow=*/false);
  if (exists && status.type() == fs::file_type::directory_file) {
    openDirectory(std::string(name));
    return std::nullopt;
  }
  if (!isProgram(relative))
    return std::nullopt;
  // Only files and links to files count. A link to nothing is reported when it is read.
  if (!fs::status(name, status) && status.type() != fs::file_type::regular_file)
    return std::nullopt;
  isFruitful = true;
  return std::string(name);
}

llvm::StringRef Inputs::relativeToRoot(llvm::StringRef name) const {
  name.consume_front(root);
  return name.ltrim('/');
}

bool Inputs::isProgram(llvm::StringRef relative) const {
  if (!include.empty())
    return matchesAny(include, relative);
  return llvm::is_contained(programExtensions(), path::extension(relative).lower());
}

bool Inputs::isExcluded(llvm::StringRef relative) const {
  return matchesAny(exclude, relative);
}

} // namespace tarka
