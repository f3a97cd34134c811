//===- MoveRules.h - which kind of move fits two operands -------*- C++ -*-===//
//
// Decides for a sending and a receiving operand whether data may be moved between
// them and which kind of move it is. The decision itself reports nothing and leaves
// the tree as it is; checkMove() and SemanticChecker::getMoveRule() report it.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_MOVERULES_H
#define TARKA_LIB_ANALYZER_MOVERULES_H

#include "AST/Expression.h"
#include "AST/Kinds.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

class SemanticChecker;

/// Why a move is wrong.
enum class MoveFault {
  ConditionName,    ///< an operand is a condition-name
  DateToOther,      ///< the receiver of a date is not a date
  ConstantToFloat,  ///< a figurative constant other than ZERO goes to a floating-point item
  SenderCategory,   ///< nothing can be moved from operands of the sender's category
  ReceiverCategory, ///< the receiver has no move from operands of the sender's category
  NotDigits,        ///< a literal that goes to a number is not made of digits
  NotALiteral,      ///< a figurative constant other than ALL literal goes to a number
};

/// What is decided about one move.
struct MoveVerdict {
  /// A move that is wrong may have a rule all the same, which later stages rely on.
  MoveRule rule = MoveRule::Illegal;
  /// In the order in which they are found; a fault may be found several times.
  llvm::SmallVector<MoveFault, 2> faults;

  bool isLegal() const { return faults.empty(); }
};

/// The move from an operand of the category \p sender to \p receiver.
MoveVerdict decideMove(DataCategory sender, const IdentifierExpression &receiver);

/// The move from \p sender to \p receiver, which are bound.
MoveVerdict decideMove(const Expression &sender, const IdentifierExpression &receiver);

/// Decides about the move and reports each of its faults at \p receiver.
MoveVerdict checkMove(SemanticChecker &checker, const Expression &sender,
                      IdentifierExpression &receiver);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_MOVERULES_H
