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
  return new (allocateForever(sizeof(RoundedOperand), alignof(RoundedOperand)))
      RoundedOperand(operand, rounded);
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

  TARKA_LIST_ADD(ExceptionHandler, sizeErrorHandlers, SizeErrorHandler, SizeErrorHandler)

private:
  NodeList<ExceptionHandler> sizeErrorHandlers;

protected:
  using Statement::Statement;

  void setSizeErrorHandlers(GivenList<ExceptionHandler> handlers) {
    sizeErrorHandlers = handlers.take();
  }
};

/// ADD operand... TO {receiver [ROUNDED]}...
/// ADD operand... [TO operand] GIVING {receiver [ROUNDED]}...
/// ADD CORRESPONDING group TO group [ROUNDED]
class AddStatement : public StatementOf<StatementType::Add, ArithmeticStatement> {
public:
  AddStatement(const Node *at, AddStmtType format) : StatementOf(at), type(format) {}
  /// What does not belong to the format is null.
  AddStatement(const Node *at, AddStmtType format, GivenList<Expression> addends,
               GivenList<RoundedOperand> receivers, Expression *lastAddend,
               GivenList<RoundedOperand> results, Expression *corresponding,
               RoundedOperand *correspondingReceiver, GivenList<ExceptionHandler> handlers)
      : StatementOf(at), type(format), operands(addends.take()), toList(receivers.take()),
        givingList(results.take()), toOperand(lastAddend), correspondingExpr(corresponding),
        toRoundExpr(correspondingReceiver) {
    setSizeErrorHandlers(std::move(handlers));
  }

  TARKA_FIELD(AddStmtType, type, Type)
  TARKA_LIST_ADD(Expression, operands, OperandList, Operand)
  /// The receiving operands of the first format.
  TARKA_LIST_ADD(RoundedOperand, toList, ToList, To)
  void setToList(GivenList<RoundedOperand> receivers) { toList = receivers.take(); }
  TARKA_LIST_ADD(RoundedOperand, givingList, GivingList, Giving)
  /// The operand after TO with GIVING; null when TO is left out, and in the other formats.
  TARKA_FIELD(Expression *, toOperand, ToOperand)
  /// The groups of CORRESPONDING, the sending one and the receiving one; null in other formats.
  TARKA_FIELD(Expression *, correspondingExpr, CorrespondingExpr)
  TARKA_FIELD(RoundedOperand *, toRoundExpr, ToRoundExpr)

private:
  AddStmtType type = AddStmtType::To;
  NodeList<Expression> operands;
  NodeList<RoundedOperand> toList;
  NodeList<RoundedOperand> givingList;
  Expression *toOperand = nullptr;
  Expression *correspondingExpr = nullptr;
  RoundedOperand *toRoundExpr = nullptr;
};

/// SUBTRACT operand... FROM {receiver [ROUNDED]}...
/// SUBTRACT operand... FROM operand GIVING {receiver [ROUNDED]}...
/// SUBTRACT CORRESPONDING group FROM group [ROUNDED]
class SubtractStatement : public StatementOf<StatementType::Subtract, ArithmeticStatement> {
public:
  SubtractStatement(const Node *at, SubtractStmtType format) : StatementOf(at), type(format) {}

  TARKA_FIELD(SubtractStmtType, type, Type)
  TARKA_LIST_ADD(Expression, operands, OperandList, Operand)
  /// The receiving operands of the first format.
  TARKA_LIST_ADD(RoundedOperand, fromList, FromList, From)
  void setFromList(GivenList<RoundedOperand> receivers) { fromList = receivers.take(); }
  TARKA_LIST_ADD(RoundedOperand, givingList, GivingList, Giving)
  /// The minuend with GIVING; null in the other formats.
  TARKA_FIELD(Expression *, fromExpr, FromExpr)
  /// The groups of CORRESPONDING, the sending one and the receiving one; null in other formats.
  TARKA_FIELD(Expression *, corrExpr, CorrExpr)
  TARKA_FIELD(RoundedOperand *, fromRoundExpr, FromRoundExpr)

private:
  SubtractStmtType type = SubtractStmtType::From;
  NodeList<Expression> operands;
  NodeList<RoundedOperand> fromList;
  NodeList<RoundedOperand> givingList;
  Expression *fromExpr = nullptr;
  Expression *corrExpr = nullptr;
  RoundedOperand *fromRoundExpr = nullptr;
};

/// MULTIPLY operand BY {receiver [ROUNDED]}...
/// MULTIPLY operand BY operand GIVING {receiver [ROUNDED]}...
class MultiplyStatement : public StatementOf<StatementType::Multiply, ArithmeticStatement> {
public:
  MultiplyStatement(const Node *at, MultiplyStmtType format, Expression *multiplicand)
      : StatementOf(at), type(format), operand(multiplicand) {}

  TARKA_FIELD(MultiplyStmtType, type, Type)
  TARKA_FIELD(Expression *, operand, Operand)
  /// The multiplier with GIVING; null without.
  TARKA_FIELD(Expression *, byOperand, ByOperand)
  /// The receiving operands of the format without GIVING.
  TARKA_LIST_ADD(RoundedOperand, byList, ByList, By)
  void setByList(GivenList<RoundedOperand> receivers) { byList = receivers.take(); }
  TARKA_LIST_ADD(RoundedOperand, givingList, GivingList, Giving)

private:
  MultiplyStmtType type = MultiplyStmtType::By;
  Expression *operand = nullptr;
  Expression *byOperand = nullptr;
  NodeList<RoundedOperand> byList;
  NodeList<RoundedOperand> givingList;
};

/// DIVIDE operand INTO {receiver [ROUNDED]}...
/// DIVIDE operand {INTO | BY} operand GIVING {receiver [ROUNDED]}... [REMAINDER receiver]
class DivideStatement : public StatementOf<StatementType::Divide, ArithmeticStatement> {
public:
  DivideStatement(const Node *at, DivideStmtType format, Expression *first)
      : StatementOf(at), type(format), operand(first) {}

  TARKA_FIELD(DivideStmtType, type, Type)
  /// The operand written first: the divisor with INTO, the dividend with BY.
  TARKA_FIELD(Expression *, operand, Operand)
  /// The operand after INTO, with GIVING; null otherwise.
  TARKA_FIELD(Expression *, intoExpr, IntoExpr)
  /// The operand after BY; null with INTO.
  TARKA_FIELD(Expression *, byExpr, ByExpr)
  /// The receiving operands after INTO, without GIVING.
  TARKA_LIST_ADD(RoundedOperand, toList, ToList, To)
  void setToList(GivenList<RoundedOperand> receivers) { toList = receivers.take(); }
  TARKA_LIST_ADD(RoundedOperand, givingList, GivingList, Giving)
  /// Null without REMAINDER.
  TARKA_FIELD(Expression *, remainderExpr, RemainderExpr)

private:
  DivideStmtType type = DivideStmtType::Into;
  Expression *operand = nullptr;
  Expression *intoExpr = nullptr;
  Expression *byExpr = nullptr;
  NodeList<RoundedOperand> toList;
  NodeList<RoundedOperand> givingList;
  Expression *remainderExpr = nullptr;
};

/// COMPUTE {receiver [ROUNDED]}... = arithmetic-expression
class ComputeStatement : public StatementOf<StatementType::Compute, ArithmeticStatement> {
public:
  explicit ComputeStatement(const Node *at, Expression *value = nullptr)
      : StatementOf(at), arithmeticExpression(value) {}

  TARKA_LIST_ADD(RoundedOperand, operands, OperandList, Operand)
  TARKA_FIELD(Expression *, arithmeticExpression, ArithmeticExpression)

private:
  NodeList<RoundedOperand> operands;
  Expression *arithmeticExpression = nullptr;
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTARITHMETIC_H
