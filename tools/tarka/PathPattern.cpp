//===- PathPattern.cpp - patterns of file names ---------------------------===//

#include "PathPattern.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

/// How many patterns the braces of one name may stand for.
static constexpr std::size_t maxAlternatives = 1024;

llvm::Expected<PathPattern> PathPattern::create(llvm::StringRef written) {
  PathPattern pattern;
  pattern.text = std::make_unique<const std::string>(written);
  pattern.isOfLastName = !written.contains('/');
  llvm::SmallVector<llvm::StringRef, 8> parts;
  llvm::StringRef(*pattern.text).split(parts, '/', /*MaxSplit=*/-1, /*KeepEmpty=*/false);
  if (parts.empty())
    return llvm::createStringError("it is empty");
  for (llvm::StringRef part : parts) {
    if (part == "**") {
      pattern.names.emplace_back(std::nullopt);
      continue;
    }
    llvm::Expected<llvm::GlobPattern> glob = llvm::GlobPattern::create(part, maxAlternatives);
    if (!glob)
      return glob.takeError();
    pattern.names.emplace_back(std::move(*glob));
  }
  return pattern;
}

bool PathPattern::match(llvm::StringRef path) const {
  llvm::SmallVector<llvm::StringRef, 16> parts;
  path.split(parts, '/', /*MaxSplit=*/-1, /*KeepEmpty=*/false);
  if (parts.empty())
    return false;
  return match(names, isOfLastName ? llvm::ArrayRef(parts).take_back() : llvm::ArrayRef(parts));
}

bool PathPattern::match(Names names, llvm::ArrayRef<llvm::StringRef> path) {
  for (; !names.empty(); names = names.drop_front(), path = path.drop_front()) {
    const auto &name = names.front();
    if (!name) {
      // ** takes no directory, or one and then perhaps further ones; at the end it takes all.
      for (; !path.empty(); path = path.drop_front())
        if (names.size() == 1 || match(names.drop_front(), path))
          return true;
      return false;
    }
    if (path.empty() || !name->match(path.front()))
      return false;
  }
  return path.empty();
}

} // namespace tarka
