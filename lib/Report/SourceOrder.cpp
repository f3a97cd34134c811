//===- SourceOrder.cpp - diagnostics in the order of the source -----------===//

#include "Report/SourceOrder.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLExtras.h"
#include <algorithm>
#include <utility>

namespace tarka {

namespace {

/// The position of a place in the compiled text: its line and column, before them those of the
/// statements by which its file was copied, outermost first.
using Path = std::vector<std::pair<unsigned, unsigned>>;

class CopyChains {
public:
  CopyChains(unsigned mainFile, llvm::ArrayRef<CopiedFile> copies) : main(mainFile) {
    for (const CopiedFile &copy : copies)
      files[copy.file].push_back(copy.statement);
  }

  Path pathOf(const SourceRange &place) const {
    Path path;
    // A file is copied for the first time from one that was opened before it, so this ends.
    SourceRange at = place;
    while (true) {
      path.emplace_back(at.beginLine, static_cast<unsigned>(at.beginColumn));
      const auto copied = files.find(at.file);
      if (at.file == main || copied == files.end())
        break;
      at = copied->second.front();
    }
    std::reverse(path.begin(), path.end());
    return path;
  }

  /// Where the file of \p place was copied from; empty for the main file.
  std::string describe(const SourceRange &place) const {
    const auto copied = files.find(place.file);
    if (place.file == main || copied == files.end())
      return "";
    const SourceRange &first = copied->second.front();
    std::string text = fileNameOf(first.file) + ":" + std::to_string(first.beginLine);
    if (const std::size_t more = copied->second.size() - 1)
      text += " and " + std::to_string(more) + (more == 1 ? " more place" : " more places");
    return text;
  }

private:
  unsigned main;
  llvm::DenseMap<unsigned, std::vector<SourceRange>> files;
};

} // namespace

void orderBySource(std::vector<Diagnostic> &diagnostics, unsigned mainFile,
                   llvm::ArrayRef<CopiedFile> copies) {
  const CopyChains chains(mainFile, copies);
  std::vector<std::pair<Path, std::size_t>> order;
  order.reserve(diagnostics.size());
  for (auto [index, diagnostic] : llvm::enumerate(diagnostics)) {
    diagnostic.copiedFrom = chains.describe(diagnostic.place);
    order.emplace_back(chains.pathOf(diagnostic.place), index);
  }
  llvm::sort(order);
  std::vector<Diagnostic> sorted;
  sorted.reserve(diagnostics.size());
  for (const auto &[path, index] : order)
    sorted.push_back(std::move(diagnostics[index]));
  diagnostics = std::move(sorted);
}

} // namespace tarka
