//===- ExpressionVisitor.h - one function for each kind of operand -*- C++ -*-===//
//
// The visitors of operands and conditions, made from Expressions.def and
// Conditions.def.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_EXPRESSIONVISITOR_H
#define TARKA_AST_EXPRESSIONVISITOR_H

#include "AST/Condition.h"
#include "AST/Expression.h"
#include <cassert>

namespace tarka {

/// Calls visit<Class>() of \p Derived for the class of an operand. A class for which \p Derived has
/// no function is visited as its base class LiteralExpression or IdentifierExpression, where it has
/// one, and then as an Expression, which by default does nothing and gives Result().
template <typename Derived, typename Result = void> class ExpressionVisitor {
public:
  Result visit(Expression &expression) {
    switch (expression.getExprType()) {
#define TARKA_EXPRESSION(Kind, Number, Class)                                                      \
  case ExpressionType::Kind:                                                                       \
    return derived().visit##Class(static_cast<Class &>(expression));
#include "AST/Expressions.def"
    }
    return derived().visitExpression(expression);
  }

#define TARKA_EXPRESSION(Kind, Number, Class)                                                      \
  Result visit##Class(Class &expression) { return visitBase(expression); }
#include "AST/Expressions.def"

  Result visitLiteralExpression(LiteralExpression &literal) {
    return derived().visitExpression(literal);
  }
  Result visitIdentifierExpression(IdentifierExpression &identifier) {
    return derived().visitExpression(identifier);
  }
  Result visitExpression(Expression &) { return Result(); }

private:
  friend Derived;
  ExpressionVisitor() = default;

  Derived &derived() { return static_cast<Derived &>(*this); }

  Result visitBase(LiteralExpression &literal) { return derived().visitLiteralExpression(literal); }
  Result visitBase(IdentifierExpression &identifier) {
    return derived().visitIdentifierExpression(identifier);
  }
  Result visitBase(Expression &expression) { return derived().visitExpression(expression); }
};

/// Calls visit<Class>() of \p Derived for the class of a condition, or visitCondition(), which by
/// default does nothing and gives Result().
template <typename Derived, typename Result = void> class ConditionVisitor {
public:
  Result visit(Condition &condition) {
    switch (condition.getType()) {
#define TARKA_CONDITION(Kind, Number, Class)                                                       \
  case ConditionType::Kind:                                                                        \
    return derived().visit##Class(static_cast<Class &>(condition));
#include "AST/Conditions.def"
    }
    return derived().visitCondition(condition);
  }

#define TARKA_CONDITION(Kind, Number, Class)                                                       \
  Result visit##Class(Class &condition) { return derived().visitCondition(condition); }
#include "AST/Conditions.def"

  Result visitCondition(Condition &) { return Result(); }

private:
  friend Derived;
  ConditionVisitor() = default;

  Derived &derived() { return static_cast<Derived &>(*this); }
};

} // namespace tarka

#endif // TARKA_AST_EXPRESSIONVISITOR_H
