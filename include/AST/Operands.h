//===- Operands.h - the operands of a statement -----------------*- C++ -*-===//
//
// Finds the operands and the conditions of one statement, and says what the
// statement does with each: the only place that knows where each statement keeps
// them.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_OPERANDS_H
#define TARKA_AST_OPERANDS_H

#include "AST/Condition.h"
#include "AST/Statement.h"
#include "llvm/ADT/STLFunctionalExtras.h"

namespace tarka {

/// What a statement does with an operand. Subscripts and reference modifiers of an operand are
/// read, whatever its role.
enum class OperandRole : std::uint8_t {
  Read,
  Write,       ///< its value is replaced as a whole
  MayWrite,    ///< it is replaced in part, or with some outcomes of the statement only
  Update,      ///< it is read, then replaced as a whole
  MayUpdate,   ///< it is read, and replaced in part or with some outcomes only
  Initialize,  ///< INITIALIZE sets those of its elementary items that the statement selects
  Corresponds, ///< the items of the group that have namesakes in the sending group are replaced
  SetAddress,  ///< the operand of ADDRESS OF is another piece of storage from now on
};

inline bool isRead(OperandRole role) {
  return role == OperandRole::Read || role == OperandRole::Update || role == OperandRole::MayUpdate;
}
inline bool isWritten(OperandRole role) {
  return role != OperandRole::Read;
}
/// Whether nothing is left of the old value.
inline bool isReplaced(OperandRole role) {
  return role == OperandRole::Write || role == OperandRole::Update;
}

/// Calls \p onOperand for every operand that \p statement has itself and \p onCondition for every
/// condition, in the order written. A condition is written by SET TO TRUE, and read otherwise. Not
/// for the operands of nested statements and of statements that the checks have made, nor for names
/// that are written without the subscripts of their tables by rule: the table of SEARCH, keys, and
/// the items that phrases of XML GENERATE name.
void forEachOperand(Statement &statement,
                    llvm::function_ref<void(Expression &, OperandRole)> onOperand,
                    llvm::function_ref<void(Condition &, OperandRole)> onCondition);

} // namespace tarka

#endif // TARKA_AST_OPERANDS_H
