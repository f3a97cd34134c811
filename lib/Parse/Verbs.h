//===- Verbs.h - the scopes of statements -----------------------*- C++ -*-===//
//
// Which statements have an END- word, and which exception phrases they take, from
// the table of verbs in Verbs.def.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_VERBS_H
#define TARKA_LIB_PARSE_VERBS_H

#include "AST/Statement.h"
#include "Parse/Keywords.h"
#include "llvm/ADT/StringRef.h"
#include <initializer_list>

namespace tarka {

/// The first words of an exception phrase: [NOT] ON SIZE ERROR and the like.
struct PhraseStart {
  ExceptionHandlerType type;
  bool isNot;
  unsigned length; ///< the number of tokens that introduce the phrase
};

/// A set of exception phrases. A phrase and its NOT form are two members.
class PhraseSet {
public:
  constexpr PhraseSet() = default;
  /// The phrases of \p types without their NOT forms.
  constexpr PhraseSet(std::initializer_list<ExceptionHandlerType> types) {
    for (ExceptionHandlerType type : types)
      bits |= bitOf(type, /*isNot=*/false);
  }

  /// Whether a phrase of \p type is a member, in its form without NOT.
  constexpr bool contains(ExceptionHandlerType type) const { return bits & bitOf(type, false); }
  constexpr bool contains(const PhraseStart &phrase) const {
    return bits & bitOf(phrase.type, phrase.isNot);
  }
  constexpr void insert(const PhraseStart &phrase) { bits |= bitOf(phrase.type, phrase.isNot); }
  constexpr bool empty() const { return bits == 0; }

private:
  static constexpr unsigned bitOf(ExceptionHandlerType type, bool isNot) {
    return 1u << (static_cast<unsigned>(type) + (isNot ? 8 : 0));
  }

  unsigned bits = 0;
};

/// A statement that has an END- word, and the exception phrases that it takes.
struct ScopedVerb {
  Keyword verb;
  Keyword endWord;
  PhraseSet phrases;
};

/// The scope of \p verb; null for a verb without END- word and for a word that is not a verb.
const ScopedVerb *scopeOf(Keyword verb);
const ScopedVerb *scopeOf(llvm::StringRef verb);
/// The verb that \p endWord ends; None when it is not the END- word of a statement.
Keyword verbOfEnd(Keyword endWord);

} // namespace tarka

#endif // TARKA_LIB_PARSE_VERBS_H
