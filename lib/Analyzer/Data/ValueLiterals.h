//===- ValueLiterals.h - what the literal of a VALUE is -------------------===//

#ifndef TARKA_LIB_ANALYZER_VALUELITERALS_H
#define TARKA_LIB_ANALYZER_VALUELITERALS_H

#include "AST/DataDescription.h"
#include "AST/Expression.h"

namespace tarka {

inline bool isFigurative(const LiteralExpression &literal, FigurativeType type) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal);
  return constant && constant->getFigurativeType() == type;
}

inline bool isNull(const LiteralExpression &literal) {
  return isFigurative(literal, FigurativeType::Null);
}

/// Whether \p entry is numeric-edited where its VALUE and its condition-names are concerned: BLANK
/// WHEN ZERO edits a number, which may then be given as characters.
inline bool isEditedForValue(const DataDescription &entry) {
  return entry.getBlankZero() && entry.getDataCategory() == DataCategory::Numeric;
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_VALUELITERALS_H
