//===- SymbolicCharacters.h - the characters behind symbolic names --------===//
//
// SYMBOLIC CHARACTERS gives names to places in the character set.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_SYMBOLICCHARACTERS_H
#define TARKA_LIB_ANALYZER_SYMBOLICCHARACTERS_H

#include "AST/Forward.h"
#include "llvm/ADT/DenseMap.h"
#include <string>

namespace tarka {

class ClauseSymbolic;
class ClauseValue;
class SemanticChecker;

/// The integers of the SYMBOLIC CHARACTERS clauses by name. A clause is indexed on its first use,
/// so that many characters can be referred to many times.
class SymbolicCharacters {
public:
  /// The integer that belongs to \p name in \p clause; null when it is missing.
  NumericLiteralExpression *findOrdinal(const ClauseSymbolic &clause, const Word &name);

private:
  using Ordinals = llvm::DenseMap<const std::string *, NumericLiteralExpression *>;
  llvm::DenseMap<const ClauseSymbolic *, Ordinals> clauses;
};

/// Replaces the symbolic characters of a VALUE by the literals that they stand for. All words are
/// tried, even after one has failed; false, with a diagnostic, for each that names no character.
bool convertSymbolicValues(SemanticChecker &checker, ClauseValue &clause);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_SYMBOLICCHARACTERS_H
