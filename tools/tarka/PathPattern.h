//===- PathPattern.h - patterns of file names -------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_PATHPATTERN_H
#define TARKA_TOOLS_PATHPATTERN_H

#include "llvm/ADT/ArrayRef.h"
#include "llvm/Support/Error.h"
#include "llvm/Support/GlobPattern.h"
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarka {

/// A pattern as in "*.cbl", "batch/**", "**/old/*.{cbl,cob}": within a name, * stands for any text,
/// ? for one character, [a-z] for one of these, {a,b} for either; ** stands for any number of
/// directories. A pattern without a slash is one of the last name of a path.
class PathPattern {
public:
  static llvm::Expected<PathPattern> create(llvm::StringRef written);

  /// Whether the pattern is one of \p path, whose names have slashes between them.
  bool match(llvm::StringRef path) const;

private:
  /// A glob for each name; none for **.
  using Names = llvm::ArrayRef<std::optional<llvm::GlobPattern>>;
  static bool match(Names names, llvm::ArrayRef<llvm::StringRef> path);

  /// The globs refer to it.
  std::unique_ptr<const std::string> text;
  std::vector<std::optional<llvm::GlobPattern>> names;
  bool isOfLastName = false;
};

} // namespace tarka

#endif // TARKA_TOOLS_PATHPATTERN_H
