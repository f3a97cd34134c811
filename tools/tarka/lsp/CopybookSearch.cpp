//===- CopybookSearch.cpp - the programs that copy a copybook -------------===//

#include "lsp/CopybookSearch.h"
#include "Inputs.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/MemoryBuffer.h"
#include "llvm/Support/Path.h"
#include <chrono>

namespace tarka::lsp {

namespace fs = llvm::sys::fs;
namespace path = llvm::sys::path;

namespace {

constexpr std::size_t maxPrograms = 8;
constexpr std::chrono::seconds maxTime(5);

bool isProgram(llvm::StringRef name) {
  const std::string extension = path::extension(name).lower();
  return llvm::is_contained(programExtensions(), llvm::StringRef(extension));
}

/// Whether \p text has \p word, which is in upper case, as a word in any case.
bool hasWord(llvm::StringRef text, llvm::StringRef word) {
  auto isPart = [](char c) { return llvm::isAlnum(c) || c == '-' || c == '_'; };
  const char first[] = {word.front(), llvm::toLower(word.front()), '\0'};
  for (std::size_t at = 0; (at = text.find_first_of(first, at)) != llvm::StringRef::npos; ++at) {
    const llvm::StringRef rest = text.substr(at);
    if (rest.starts_with_insensitive(word) && (at == 0 || !isPart(text[at - 1])) &&
        (rest.size() == word.size() || !isPart(rest[word.size()])))
      return true;
  }
  return false;
}

/// How many directories the two paths have in common.
std::size_t nearness(llvm::StringRef left, llvm::StringRef right) {
  const auto [end, other] =
      std::mismatch(path::begin(left), path::end(left), path::begin(right), path::end(right));
  return static_cast<std::size_t>(std::distance(path::begin(left), end));
}

} // namespace

std::vector<std::string> findProgramsWith(llvm::StringRef copybook,
                                          llvm::ArrayRef<std::string> directories) {
  const std::string word = path::stem(copybook).upper();
  const auto start = std::chrono::steady_clock::now();
  std::vector<std::string> found;
  for (const std::string &directory : directories) {
    std::error_code error;
    for (fs::recursive_directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
      if (std::chrono::steady_clock::now() - start > maxTime || word.empty())
        break;
      if (path::filename(entry->path()).starts_with(".")) {
        entry.no_push();
        continue;
      }
      if (!isProgram(entry->path()) || !fs::is_regular_file(entry->path()))
        continue;
      auto contents = llvm::MemoryBuffer::getFile(entry->path());
      if (contents && hasWord((*contents)->getBuffer(), word))
        found.push_back(entry->path());
    }
  }
  llvm::sort(found, [&](const std::string &left, const std::string &right) {
    return std::pair(nearness(right, copybook), llvm::StringRef(left)) <
           std::pair(nearness(left, copybook), llvm::StringRef(right));
  });
  found.erase(std::unique(found.begin(), found.end()), found.end());
  found.resize(std::min(found.size(), maxPrograms));
  return found;
}

} // namespace tarka::lsp
