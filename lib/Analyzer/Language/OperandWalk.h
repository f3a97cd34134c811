//===- OperandWalk.h - the operands of a statement --------------*- C++ -*-===//
//
// Finds the operands and the conditions of one statement: the only place that
// knows where each statement keeps them.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_OPERANDWALK_H
#define TARKA_LIB_ANALYZER_OPERANDWALK_H

#include "AST/Condition.h"
#include "AST/Statement.h"
#include "llvm/ADT/STLFunctionalExtras.h"

namespace tarka {

/// Calls \p onOperand for every operand that \p statement has itself and \p onCondition for every
/// condition, in the order written. Not for the operands of nested statements and of statements
/// that the checks have made, nor for names that are written without the subscripts of their tables
/// by rule: the table of SEARCH, keys, and the items that phrases of XML GENERATE name.
void forEachOperand(Statement &statement, llvm::function_ref<void(Expression &)> onOperand,
                    llvm::function_ref<void(Condition &)> onCondition);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_OPERANDWALK_H
