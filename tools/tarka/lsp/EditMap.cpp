//===- EditMap.cpp - where text is after it has been edited ---------------===//

#include "lsp/EditMap.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka::lsp {

void EditMap::add(std::size_t begin, std::size_t end, std::size_t length) {
  // The hunks that the edit overlaps or touches become one with it.
  const auto first =
      llvm::partition_point(hunks, [&](const Hunk &hunk) { return hunk.laterEnd < begin; });
  const auto last = std::partition_point(first, hunks.end(),
                                         [&](const Hunk &hunk) { return hunk.laterBegin <= end; });
  // How far the unchanged text before and behind them has moved, modulo the size of a word.
  const std::size_t before =
      first == hunks.begin() ? 0 : std::prev(first)->laterEnd - std::prev(first)->end;
  const std::size_t behind =
      last == hunks.begin() ? 0 : std::prev(last)->laterEnd - std::prev(last)->end;
  Hunk merged{begin - before, end - behind, begin, end};
  if (first != last) {
    merged.begin = std::min(merged.begin, first->begin);
    merged.laterBegin = std::min(begin, first->laterBegin);
    // An end within the last hunk is that of the hunk.
    if (std::prev(last)->laterEnd >= end)
      merged.end = std::prev(last)->end;
    merged.laterEnd = std::max(end, std::prev(last)->laterEnd);
  }
  const std::size_t growth = length - (end - begin);
  merged.laterEnd += growth;
  for (auto next = last; next != hunks.end(); ++next) {
    next->laterBegin += growth;
    next->laterEnd += growth;
  }
  hunks.insert(hunks.erase(first, last), merged);
}

std::pair<std::size_t, std::size_t> EditMap::toLater(std::size_t begin, std::size_t end) const {
  // Text that stands before the first byte or behind the last one is outside.
  const auto atBegin =
      llvm::partition_point(hunks, [&](const Hunk &hunk) { return hunk.begin <= begin; });
  std::size_t laterBegin = begin;
  if (atBegin != hunks.begin()) {
    const Hunk &hunk = *std::prev(atBegin);
    laterBegin = hunk.laterEnd + (std::max(begin, hunk.end) - hunk.end);
  }
  const auto atEnd =
      llvm::partition_point(hunks, [&](const Hunk &hunk) { return hunk.begin < end; });
  std::size_t laterEnd = end;
  if (atEnd != hunks.begin()) {
    const Hunk &hunk = *std::prev(atEnd);
    laterEnd = end < hunk.end ? hunk.laterBegin : hunk.laterEnd + (end - hunk.end);
  }
  return {laterBegin, std::max(laterBegin, laterEnd)};
}

bool EditMap::isEdited(std::size_t begin, std::size_t end) const {
  const auto hunk = llvm::partition_point(hunks, [&](const Hunk &one) { return one.end <= begin; });
  return hunk != hunks.end() && hunk->begin < end;
}

std::optional<std::size_t> EditMap::toEarlier(std::size_t offset) const {
  const auto behind =
      llvm::partition_point(hunks, [&](const Hunk &hunk) { return hunk.laterBegin <= offset; });
  if (behind == hunks.begin())
    return offset;
  const Hunk &hunk = *std::prev(behind);
  if (offset >= hunk.laterEnd)
    return hunk.end + (offset - hunk.laterEnd);
  if (offset == hunk.laterBegin)
    return hunk.begin;
  return std::nullopt;
}

} // namespace tarka::lsp
