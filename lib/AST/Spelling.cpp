//===- Spelling.cpp - which word a misspelt one was meant to be -----------===//

#include "AST/Spelling.h"
#include "llvm/ADT/SmallVector.h"
#include <algorithm>

namespace tarka {

unsigned spellingTolerance(llvm::StringRef word) {
  // A word of two letters is similar to everything.
  return word.size() < 3 ? 0 : std::max<unsigned>(1, (static_cast<unsigned>(word.size()) + 1) / 4);
}

unsigned spellingDistance(llvm::StringRef word, llvm::StringRef wanted, unsigned limit) {
  size_t difference =
      word.size() > wanted.size() ? word.size() - wanted.size() : wanted.size() - word.size();
  if (difference > limit)
    return limit + 1;
  // Three rows of the table of distances between the beginnings of the two words.
  size_t width = wanted.size() + 1;
  llvm::SmallVector<unsigned, 32> beforeLast(width), last(width), row(width);
  for (size_t j = 0; j < width; ++j)
    last[j] = static_cast<unsigned>(j);
  for (size_t i = 1; i <= word.size(); ++i) {
    row[0] = static_cast<unsigned>(i);
    for (size_t j = 1; j < width; ++j) {
      bool isSame = word[i - 1] == wanted[j - 1];
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (isSame ? 0u : 1u)});
      bool isExchanged =
          i > 1 && j > 1 && word[i - 1] == wanted[j - 2] && word[i - 2] == wanted[j - 1];
      if (isExchanged)
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    std::swap(beforeLast, last);
    std::swap(last, row);
  }
  return last[wanted.size()];
}

SpellingMatch::SpellingMatch(llvm::StringRef misspelt)
    : word(misspelt), limit(spellingTolerance(misspelt)) {}

/// Whether the words are the same, or differ in hyphens only, as COMP3 and COMP-3.
static bool differInHyphens(llvm::StringRef one, llvm::StringRef other) {
  auto isHyphen = [](char c) { return c == '-'; };
  while (!one.empty() && !other.empty() && one.front() == other.front()) {
    one = one.drop_front().drop_while(isHyphen);
    other = other.drop_front().drop_while(isHyphen);
  }
  return one.empty() && other.empty();
}

bool SpellingMatch::consider(llvm::StringRef candidate) {
  if (isExact)
    return false;
  const unsigned distance =
      differInHyphens(word, candidate) ? 0 : spellingDistance(word, candidate, limit);
  if (distance > limit)
    return false;
  nearest = candidate;
  isExact = distance == 0;
  // From now on only a nearer one is of interest.
  limit = distance == 0 ? 0 : distance - 1;
  return true;
}

} // namespace tarka
