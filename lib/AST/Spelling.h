//===- Spelling.h - which word a misspelt one was meant to be ---*- C++ -*-===//

#ifndef TARKA_LIB_AST_SPELLING_H
#define TARKA_LIB_AST_SPELLING_H

#include "llvm/ADT/StringRef.h"

namespace tarka {

/// The maximum distance at which a word of this length counts as misspelt.
unsigned spellingTolerance(llvm::StringRef word);

/// The edit distance of \p word and \p wanted: characters deleted, inserted, replaced, or two
/// neighbours exchanged. Beyond \p limit it is any number above it.
unsigned spellingDistance(llvm::StringRef word, llvm::StringRef wanted, unsigned limit);

/// The candidate nearest to \p word within its tolerance, or one that differs in hyphens only; the
/// first of equally near ones, empty when none is near.
class SpellingMatch {
public:
  explicit SpellingMatch(llvm::StringRef word);
  /// Whether \p candidate is nearer than all before it.
  bool consider(llvm::StringRef candidate);
  llvm::StringRef getNearest() const { return nearest; }

private:
  llvm::StringRef word;
  llvm::StringRef nearest;
  unsigned limit; ///< a candidate farther away than this is not better than what was found
  bool isExact = false;
};

} // namespace tarka

#endif // TARKA_LIB_AST_SPELLING_H
