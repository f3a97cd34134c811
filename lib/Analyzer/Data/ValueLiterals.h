//===- ValueLiterals.h - what the literal of a VALUE is -------------------===//

#ifndef TARKA_LIB_ANALYZER_VALUELITERALS_H
#define TARKA_LIB_ANALYZER_VALUELITERALS_H

#include "AST/Expression.h"

namespace tarka {

inline bool isFigurative(const LiteralExpression &literal, FigurativeType type) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal);
  return constant && constant->getFigurativeType() == type;
}

inline bool isNull(const LiteralExpression &literal) {
  return isFigurative(literal, FigurativeType::Null);
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_VALUELITERALS_H
