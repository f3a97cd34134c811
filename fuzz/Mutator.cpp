//===- Mutator.cpp - mutations that keep most of a program valid ----------===//
//
// Random changes of bytes hardly ever leave a program that parses beyond its
// first statement. Half of the mutations therefore move whole words and lines;
// the other half are those of the fuzzing library.
//
//===----------------------------------------------------------------------===//

#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringRef.h"
#include <algorithm>
#include <random>
#include <string>

extern "C" size_t LLVMFuzzerMutate(uint8_t *data, size_t size, size_t maxSize);

using llvm::StringRef;

namespace {

using Random = std::minstd_rand;

/// A number below \p bound, which is not 0.
size_t below(Random &random, size_t bound) {
  return random() % bound;
}

/// The lines of \p text with their ends.
llvm::SmallVector<StringRef, 0> linesOf(StringRef text) {
  llvm::SmallVector<StringRef, 0> lines;
  while (!text.empty()) {
    size_t end = text.find('\n');
    size_t size = end == StringRef::npos ? text.size() : end + 1;
    lines.push_back(text.take_front(size));
    text = text.drop_front(size);
  }
  return lines;
}

/// The words, numbers, literals and marks of \p text.
llvm::SmallVector<StringRef, 0> wordsOf(StringRef text) {
  llvm::SmallVector<StringRef, 0> words;
  auto isWordPart = [](char c) { return llvm::isAlnum(c) || c == '-' || c == '_'; };
  while (!(text = text.ltrim()).empty()) {
    size_t size = std::max<size_t>(text.take_while(isWordPart).size(), 1);
    if (text.front() == '"' || text.front() == '\'')
      size = std::min({text.find(text.front(), 1), text.find('\n'), text.size() - 1}) + 1;
    words.push_back(text.take_front(size));
    text = text.drop_front(size);
  }
  return words;
}

/// \p text with the part \p old replaced by \p replacement.
std::string replaced(StringRef text, StringRef old, StringRef replacement) {
  size_t begin = old.begin() - text.begin();
  return (text.take_front(begin) + replacement + text.drop_front(begin + old.size())).str();
}

/// A few neighbouring elements of \p pieces, as one piece.
StringRef spanOf(llvm::ArrayRef<StringRef> pieces, Random &random) {
  size_t first = below(random, pieces.size());
  size_t count = 1 + below(random, std::min<size_t>(pieces.size() - first, 6));
  return {pieces[first].begin(),
          static_cast<size_t>(pieces[first + count - 1].end() - pieces[first].begin())};
}

std::string changeWords(StringRef text, Random &random) {
  llvm::SmallVector<StringRef, 0> words = wordsOf(text);
  if (words.empty())
    return text.str();
  StringRef one = words[below(random, words.size())];
  StringRef other = words[below(random, words.size())];
  switch (below(random, 5)) {
  case 0: // another word in its place
    return replaced(text, one, other);
  case 1: // one word more
    return replaced(text, {one.begin(), 0}, (other + " ").str());
  case 2: // a phrase from elsewhere
    return replaced(text, {one.begin(), 0}, (spanOf(words, random) + " ").str());
  case 3: // one word less
    return replaced(text, one, "");
  default: // a phrase less
    return replaced(text, spanOf(words, random), "");
  }
}

std::string changeLines(StringRef text, StringRef from, Random &random) {
  llvm::SmallVector<StringRef, 0> lines = linesOf(text), others = linesOf(from);
  if (lines.empty() || others.empty())
    return text.str();
  StringRef one = lines[below(random, lines.size())];
  switch (below(random, 4)) {
  case 0: // lines from elsewhere in the place of one
    return replaced(text, one, spanOf(others, random));
  case 1: // lines less
    return replaced(text, spanOf(lines, random), "");
  default: // lines from elsewhere between two
    return replaced(text, {one.begin(), 0}, spanOf(others, random));
  }
}

size_t give(const std::string &result, uint8_t *data, size_t maxSize) {
  size_t size = std::min(result.size(), maxSize);
  std::copy_n(result.begin(), size, data);
  return size;
}

StringRef textIn(const uint8_t *data, size_t size) {
  return {reinterpret_cast<const char *>(data), size};
}

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maxSize,
                                          unsigned seed) {
  Random random(seed);
  if (below(random, 2) == 0)
    return LLVMFuzzerMutate(data, size, maxSize);
  std::string result = textIn(data, size).str();
  for (size_t changes = 1 + below(random, 3); changes > 0; --changes)
    result = below(random, 2) == 0 ? changeWords(result, random)
                                   : changeLines(result, std::string(result), random);
  return give(result, data, maxSize);
}

extern "C" size_t LLVMFuzzerCustomCrossOver(const uint8_t *first, size_t firstSize,
                                            const uint8_t *second, size_t secondSize, uint8_t *out,
                                            size_t maxOutSize, unsigned seed) {
  Random random(seed);
  std::string result = textIn(first, firstSize).str();
  for (size_t changes = 1 + below(random, 3); changes > 0; --changes)
    result = changeLines(result, textIn(second, secondSize), random);
  return give(result, out, maxOutSize);
}
