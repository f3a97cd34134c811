//===- EnvironmentCheck.h - what the checks of the division share ---------===//
//
// Predicates that the checks of several paragraphs use.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_ENVIRONMENTCHECK_H
#define TARKA_LIB_ANALYZER_ENVIRONMENTCHECK_H

#include "AST/Expression.h"
#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"

namespace tarka {

/// Whether an ALPHABET clause of the current program defines \p name. Programs around it are not
/// searched.
inline bool isAlphabetOfProgram(const Word *name) {
  const ParaSpecialNames *specialNames = currentSpecialNames();
  return specialNames && specialNames->findClauseAlphabetByWord(name);
}

inline bool isSignedOrNotPositive(const NumericLiteralExpression &literal) {
  return literal.isSigned() || !literal.isPositive();
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_ENVIRONMENTCHECK_H
