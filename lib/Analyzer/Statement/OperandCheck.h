//===- OperandCheck.h - checks the parts of a statement one by one --------===//
//
// Most statement checks begin with their operands, in the order in which they
// are written, so that every name in a program is bound.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_OPERANDCHECK_H
#define TARKA_LIB_ANALYZER_OPERANDCHECK_H

#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/SemanticChecker.h"
#include <list>

namespace tarka {

/// Checks one part of a statement after the other and keeps the result of all. Null parts, phrases
/// that are not written, are right.
class OperandCheck {
public:
  explicit OperandCheck(SemanticChecker &checkerOfAll) : checker(checkerOfAll) {}

  template <typename Part> OperandCheck &one(Part *part) {
    if (part)
      ok &= checker.semanticCheck(*part);
    return *this;
  }
  template <typename Part> OperandCheck &all(const NodeList<Part> &parts) {
    for (Part *part : parts)
      one(part);
    return *this;
  }
  operator bool() const { return ok; }

private:
  SemanticChecker &checker;
  bool ok = true;
};

/// The description that a file-name was bound to; null when there is none.
inline const FileDescription *describedBy(const FileIdentifierExpression *name) {
  return name ? name->getFileDescription() : nullptr;
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_OPERANDCHECK_H
