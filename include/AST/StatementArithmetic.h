//===- StatementArithmetic.h - arithmetic statements ------------*- C++ -*-===//
//
// ADD, SUBTRACT, MULTIPLY, DIVIDE and COMPUTE.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENTARITHMETIC_H
#define TARKA_AST_STATEMENTARITHMETIC_H

#include "AST/StatementBase.h"

namespace tarka {

/// A receiving operand and its ROUNDED word; the word is null where ROUNDED is not written.
using RoundedOperand = std::pair<Expression *, Word *>;

/// A receiving operand in the memory of the nodes.
inline RoundedOperand *makeRoundedOperand(Expression *operand, Word *rounded) {
  return new (allocateForever(sizeof(RoundedOperand))) RoundedOperand(operand, rounded);
}

/// The base of the arithmetic statements: [[NOT] ON SIZE ERROR statements]...
class ArithmeticStatement : public Statement {
public:
  static bool classof(const Statement *s) {
    switch (s->getType()) {
    case StatementType::Add:
    case StatementType::Subtract:
    case StatementType::Multiply:
    case StatementType::Divide:
    case StatementType::Compute:
      return true;
    default:
      return false;
    }
  }

  TARKA_LAZY_LIST(ExceptionHandler, sizeErrorHandlers, SizeErrorHandler, SizeErrorHandler);

protected:
  using Statement::Statement;

  void setSizeErrorHandlers(std::list<ExceptionHandler *> *handlers) {
    sizeErrorHandlers = handlers;
  }
};

/// ADD operand... TO {receiver [ROUNDED]}...
/// ADD operand... [TO operand] GIVING {receiver [ROUNDED]}...
/// ADD CORRESPONDING group TO group [ROUNDED]
class AddStatement : public StatementOf<StatementType::Add, ArithmeticStatement> {
public:
  AddStatement(const Node *at, AddStmtType format) : StatementOf(at), type(format) {}
  /// What does not belong to the format is null.
  AddStatement(const Node *at, AddStmtType format, std::list<Expression *> *addends,
               std::list<RoundedOperand *> *receivers, Expression *lastAddend,
               std::list<RoundedOperand *> *results, Expression *corresponding,
               RoundedOperand *correspondingReceiver, std::list<ExceptionHandler *> *handlers)
      : StatementOf(at), type(format), operands(takeOver(addends)), toList(takeOver(receivers)),
        givingList(results), toOperand(lastAddend), correspondingExpr(corresponding),
        toRoundExpr(correspondingReceiver) {
    setSizeErrorHandlers(handlers);
  }

  TARKA_FIELD(AddStmtType, type, Type, AddStmtType::To);
  TARKA_LIST_ADD(Expression, operands, OperandList, Operand);
  /// The receiving operands of the first format.
  TARKA_LIST_ADD(RoundedOperand, toList, ToList, To);
  TARKA_LAZY_LIST(RoundedOperand, givingList, GivingList, Giving);
  /// The operand after TO with GIVING; null when TO is left out, and in the other formats.
  TARKA_FIELD(Expression *, toOperand, ToOperand, nullptr);
  /// The groups of CORRESPONDING, the sending one and the receiving one; null in other formats.
  TARKA_FIELD(Expression *, correspondingExpr, CorrespondingExpr, nullptr);
  TARKA_FIELD(RoundedOperand *, toRoundExpr, ToRoundExpr, nullptr);
};

/// SUBTRACT operand... FROM {receiver [ROUNDED]}...
/// SUBTRACT operand... FROM operand GIVING {receiver [ROUNDED]}...
/// SUBTRACT CORRESPONDING group FROM group [ROUNDED]
class SubtractStatement : public StatementOf<StatementType::Subtract, ArithmeticStatement> {
public:
  SubtractStatement(const Node *at, SubtractStmtType format) : StatementOf(at), type(format) {}

  TARKA_FIELD(SubtractStmtType, type, Type, SubtractStmtType::From);
  TARKA_LIST_ADD(Expression, operands, OperandList, Operand);
  /// The receiving operands of the first format.
  TARKA_LIST_ADD(RoundedOperand, fromList, FromList, From);
  TARKA_LAZY_LIST(RoundedOperand, givingList, GivingList, Giving);
  /// The minuend with GIVING; null in the other formats.
  TARKA_FIELD(Expression *, fromExpr, FromExpr, nullptr);
  /// The groups of CORRESPONDING, the sending one and the receiving one; null in other formats.
  TARKA_FIELD(Expression *, corrExpr, CorrExpr, nullptr);
  TARKA_FIELD(RoundedOperand *, fromRoundExpr, FromRoundExpr, nullptr);
};

/// MULTIPLY operand BY {receiver [ROUNDED]}...
/// MULTIPLY operand BY operand GIVING {receiver [ROUNDED]}...
class MultiplyStatement : public StatementOf<StatementType::Multiply, ArithmeticStatement> {
public:
  MultiplyStatement(const Node *at, MultiplyStmtType format, Expression *multiplicand)
      : StatementOf(at), type(format), operand(multiplicand) {}

  TARKA_FIELD(MultiplyStmtType, type, Type, MultiplyStmtType::By);
  TARKA_FIELD(Expression *, operand, Operand, nullptr);
  /// The multiplier with GIVING; null without.
  TARKA_FIELD(Expression *, byOperand, ByOperand, nullptr);
  /// The receiving operands of the format without GIVING.
  TARKA_LIST_ADD(RoundedOperand, byList, ByList, By);
  TARKA_LAZY_LIST(RoundedOperand, givingList, GivingList, Giving);
};

/// DIVIDE operand INTO {receiver [ROUNDED]}...
/// DIVIDE operand {INTO | BY} operand GIVING {receiver [ROUNDED]}... [REMAINDER receiver]
class DivideStatement : public StatementOf<StatementType::Divide, ArithmeticStatement> {
public:
  DivideStatement(const Node *at, DivideStmtType format, Expression *first)
      : StatementOf(at), type(format), operand(first) {}

  TARKA_FIELD(DivideStmtType, type, Type, DivideStmtType::Into);
  /// The operand written first: the divisor with INTO, the dividend with BY.
  TARKA_FIELD(Expression *, operand, Operand, nullptr);
  /// The operand after INTO, with GIVING; null otherwise.
  TARKA_FIELD(Expression *, intoExpr, IntoExpr, nullptr);
  /// The operand after BY; null with INTO.
  TARKA_FIELD(Expression *, byExpr, ByExpr, nullptr);
  /// The receiving operands after INTO, without GIVING.
  TARKA_LIST_ADD(RoundedOperand, toList, ToList, To);
  TARKA_LAZY_LIST(RoundedOperand, givingList, GivingList, Giving);
  /// Null without REMAINDER.
  TARKA_FIELD(Expression *, remainderExpr, RemainderExpr, nullptr);
};

/// COMPUTE {receiver [ROUNDED]}... = arithmetic-expression
class ComputeStatement : public StatementOf<StatementType::Compute, ArithmeticStatement> {
public:
  explicit ComputeStatement(const Node *at, Expression *value = nullptr)
      : StatementOf(at), arithmeticExpression(value) {}

  TARKA_LIST_ADD(RoundedOperand, operands, OperandList, Operand);
  TARKA_FIELD(Expression *, arithmeticExpression, ArithmeticExpression, nullptr);
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTARITHMETIC_H
