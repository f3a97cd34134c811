//===- StatementVisitor.h - one function for each kind of statement -*- C++ -*-===//
//
// The visitor of statements, made from Statements.def.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENTVISITOR_H
#define TARKA_AST_STATEMENTVISITOR_H

#include "AST/Statement.h"
#include <cassert>

namespace tarka {

/// Calls the function of \p Derived for the class of a statement:
///
///   class Counter : public StatementVisitor<Counter> {
///   public:
///     void visitMoveStatement(MoveStatement &move) { ... }
///     void visitArithmeticStatement(ArithmeticStatement &statement) { ... }
///     void visitStatement(Statement &) { ... }
///   };
///
/// A class for which \p Derived has no function is visited as its base class ArithmeticStatement or
/// FileStatement, where it has one, and then as a Statement, which by default does nothing and
/// gives Result(). The visitor does not go into nested statements; NestedStatements.h does.
template <typename Derived, typename Result = void> class StatementVisitor {
public:
  Result visit(Statement &statement) {
    switch (statement.getType()) {
#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  case StatementType::Kind:                                                                        \
    assert(llvm::isa<Class>(statement) && "dyn_cast failed");                                      \
    return derived().visit##Class(static_cast<Class &>(statement));
#include "AST/Statements.def"
    }
    return derived().visitStatement(statement);
  }

#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  Result visit##Class(Class &statement) { return visitBase(statement); }
#include "AST/Statements.def"

  Result visitArithmeticStatement(ArithmeticStatement &statement) {
    return derived().visitStatement(statement);
  }
  Result visitFileStatement(FileStatement &statement) {
    return derived().visitStatement(statement);
  }
  Result visitOperandStatement(OperandStatement &statement) {
    return derived().visitStatement(statement);
  }
  Result visitStatement(Statement &) { return Result(); }

private:
  friend Derived;
  StatementVisitor() = default;

  Derived &derived() { return static_cast<Derived &>(*this); }

  Result visitBase(ArithmeticStatement &statement) {
    return derived().visitArithmeticStatement(statement);
  }
  Result visitBase(FileStatement &statement) { return derived().visitFileStatement(statement); }
  Result visitBase(OperandStatement &statement) {
    return derived().visitOperandStatement(statement);
  }
  Result visitBase(Statement &statement) { return derived().visitStatement(statement); }
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTVISITOR_H
