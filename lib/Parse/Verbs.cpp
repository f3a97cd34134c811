//===- Verbs.cpp - the scopes of statements -------------------------------===//

#include "Parse/Verbs.h"
#include "llvm/ADT/STLExtras.h"
#include <array>

namespace tarka {

using enum ExceptionHandlerType;

static constexpr ScopedVerb verbs[] = {
#define VERB(Verb, Family, Function, EndWord, ...) {Keyword::Verb, Keyword::EndWord, {__VA_ARGS__}},
#include "Parse/Verbs.def"
};

static constexpr unsigned keywordCount = 1
#define KEYWORD(Enumerator, Text, Flags) +1
#include "Parse/Keywords.def"
    ;

/// For each keyword, where its verb is in the table; the size of the table for other keywords and
/// for verbs without END- word.
static constexpr auto scopeIndex = [] {
  static_assert(std::size(verbs) < UINT8_MAX);
  std::array<uint8_t, keywordCount> index{};
  index.fill(std::size(verbs));
  for (std::size_t i = 0; i < std::size(verbs); ++i)
    if (verbs[i].endWord != Keyword::None)
      index[static_cast<unsigned>(verbs[i].verb)] = static_cast<uint8_t>(i);
  return index;
}();

const ScopedVerb *scopeOf(Keyword verb) {
  const uint8_t index = scopeIndex[static_cast<unsigned>(verb)];
  return index == std::size(verbs) ? nullptr : &verbs[index];
}

const ScopedVerb *scopeOf(llvm::StringRef verb) {
  const auto *found =
      llvm::find_if(verbs, [verb](const ScopedVerb &one) { return textOf(one.verb) == verb; });
  return found == std::end(verbs) ? nullptr : scopeOf(found->verb);
}

Keyword verbOfEnd(Keyword endWord) {
  assert(endWord != Keyword::None && "no END- word");
  const auto *found =
      llvm::find_if(verbs, [endWord](const ScopedVerb &one) { return one.endWord == endWord; });
  return found == std::end(verbs) ? Keyword::None : found->verb;
}

} // namespace tarka
