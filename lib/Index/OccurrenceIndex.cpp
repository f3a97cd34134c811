//===- OccurrenceIndex.cpp - where names are declared and used ------------===//

#include "Index/OccurrenceIndex.h"
#include "Index/IndexBuilder.h"
#include "llvm/ADT/STLExtras.h"
#include <tuple>

namespace tarka {

namespace {

auto keyOf(const Occurrence &occurrence) {
  return std::tuple(occurrence.file, occurrence.line, occurrence.column);
}

bool isBefore(const Occurrence &left, const Occurrence &right) {
  return keyOf(left) < keyOf(right);
}

Occurrence pointAt(unsigned file, unsigned line, unsigned column) {
  Occurrence point;
  point.file = file;
  point.line = line;
  point.column = column;
  return point;
}

} // namespace

OccurrenceIndex::OccurrenceIndex(Program &program, const Expansion &expansion) {
  IndexBuilder(*this).build(program, expansion);
  // Symbols have numbers in the order of the text.
  llvm::sort(occurrences, [](const Occurrence &left, const Occurrence &right) {
    return std::pair(keyOf(left), left.symbol) < std::pair(keyOf(right), right.symbol);
  });
  // A counting sort by symbol keeps the order of the places.
  starts.assign(symbols.size() + 1, 0);
  for (const Occurrence &occurrence : occurrences)
    ++starts[occurrence.symbol + 1];
  for (std::size_t symbol = 1; symbol < starts.size(); ++symbol)
    starts[symbol] += starts[symbol - 1];
  std::vector<std::uint32_t> next = starts;
  bySymbol.resize(occurrences.size());
  for (std::uint32_t number = 0; number < occurrences.size(); ++number)
    bySymbol[next[occurrences[number].symbol]++] = number;
}

std::optional<SymbolId> OccurrenceIndex::symbolOf(const Node &node) const {
  auto found = byNode.find(&node);
  return found == byNode.end() ? std::nullopt : std::optional(found->second);
}

llvm::ArrayRef<Occurrence> OccurrenceIndex::inFile(unsigned file) const {
  auto first = llvm::lower_bound(occurrences, pointAt(file, 0, 0), isBefore);
  auto last = std::lower_bound(first, occurrences.end(), pointAt(file + 1, 0, 0), isBefore);
  return llvm::ArrayRef(occurrences).slice(first - occurrences.begin(), last - first);
}

llvm::ArrayRef<Occurrence> OccurrenceIndex::at(unsigned file, unsigned line,
                                               unsigned column) const {
  // The last name that begins before the place; of several at one place, all.
  auto end = llvm::upper_bound(occurrences, pointAt(file, line, column), isBefore);
  if (end == occurrences.begin())
    return {};
  auto begin = std::prev(end);
  const bool covers = begin->file == file &&
                      std::tuple(begin->line, begin->column) <= std::tuple(line, column) &&
                      std::tuple(line, column) <= std::tuple(begin->endLine, begin->endColumn + 1u);
  if (!covers)
    return {};
  while (begin != occurrences.begin() && keyOf(*std::prev(begin)) == keyOf(*begin))
    --begin;
  return llvm::ArrayRef(occurrences).slice(begin - occurrences.begin(), end - begin);
}

llvm::SmallVector<Occurrence, 16> OccurrenceIndex::occurrencesOf(SymbolId symbol) const {
  llvm::SmallVector<Occurrence, 16> result;
  for (std::uint32_t position = starts[symbol]; position < starts[symbol + 1]; ++position)
    result.push_back(occurrences[bySymbol[position]]);
  return result;
}

llvm::SmallVector<Occurrence, 16> OccurrenceIndex::relatedOccurrences(SymbolId symbol) const {
  llvm::SmallVector<SymbolId, 4> related{symbol};
  llvm::SmallVector<Occurrence, 16> result;
  for (std::size_t next = 0; next < related.size(); ++next)
    for (const Occurrence &own : occurrencesOf(related[next])) {
      result.push_back(own);
      for (const Occurrence &other : at(own.file, own.line, own.column))
        if (keyOf(other) == keyOf(own) && !llvm::is_contained(related, other.symbol) &&
            symbols[other.symbol].name == symbols[symbol].name)
          related.push_back(other.symbol);
    }
  llvm::sort(result, isBefore);
  result.erase(std::unique(result.begin(), result.end(),
                           [](const Occurrence &left, const Occurrence &right) {
                             return keyOf(left) == keyOf(right);
                           }),
               result.end());
  return result;
}

} // namespace tarka
