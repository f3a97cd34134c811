//===- StatementBase.h - what all statements share --------------*- C++ -*-===//
//
// The base of all statements, and the phrases that hold imperative statements.
//
// A list that is passed to a constructor of a statement belongs to the statement
// from then on. Members of one byte come first in every class: they fill the
// space between the kind code and the first pointer.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENTBASE_H
#define TARKA_AST_STATEMENTBASE_H

#include "AST/Forward.h"
#include "AST/Kinds.h"
#include "AST/Names.h"
#include "llvm/Support/Casting.h"
#include <list>
#include <utility>

namespace tarka {

/// A statement. The kind code identifies the class.
///
/// Many statements have formats, which their own getType() gives. It hides this one, so the kind of
/// such a statement is obtained through a Statement.
class Statement : public Node {
public:
  Statement(const Node *at, StatementType type) : Node(at), kind(type) {}

  StatementType getType() const { return kind; }

  /// Whether the checks have found that the statement's own operands, with all that they are made
  /// of, name only items outside of tables, unmodified and none of them a condition-name, and that
  /// they hold no class condition and no division by a constant value. False where the checks have
  /// not looked.
  bool hasPlainOperands() const { return plainOperands; }
  void setHasPlainOperands(bool plain) { plainOperands = plain; }

private:
  StatementType kind;
  bool plainOperands = false;
};

/// The base of the class for the one kind \p Code: it sets the kind code and tests for it.
template <StatementType Code, class Base = Statement> class StatementOf : public Base {
public:
  static constexpr StatementType Kind = Code;

  static bool classof(const Statement *s) { return s->getType() == Code; }

protected:
  explicit StatementOf(const Node *at) : Base(at, Code) {}
};

/// [NOT] ON EXCEPTION, AT END, ON SIZE ERROR, INVALID KEY, ON OVERFLOW or AT END-OF-PAGE, with
/// its imperative statements.
class ExceptionHandler : public Node {
public:
  ExceptionHandler(const Node *at, ExceptionHandlerType which, bool isNot,
                   GivenList<Statement> statements = nullptr)
      : Node(at), type(which), notOn(isNot), imperStmts(statements.take()) {}

  TARKA_FIELD(ExceptionHandlerType, type, Type)
  /// True for the NOT form.
  TARKA_FLAG(notOn, NotOn)
  TARKA_LIST_ADD(Statement, imperStmts, ImperStmtList, ImperStmt)

private:
  ExceptionHandlerType type = ExceptionHandlerType::OnException;
  bool notOn = false;
  NodeList<Statement> imperStmts;
};

/// A statement of which the tree has the operands, by what becomes of them, and the ON EXCEPTION
/// phrases. The checks bind the names; there are no further rules about the operands.
class OperandStatement : public Statement {
public:
  /// The operands that are read, in the order written.
  TARKA_LIST_ADD(Expression, sources, SourceList, Source)
  /// The operands that receive a value.
  TARKA_LIST_ADD(Expression, receivers, ReceiverList, Receiver)
  /// The items that are named without subscripts, such as a table to be sorted and its keys.
  TARKA_LIST_ADD(Expression, parts, PartList, Part)
  TARKA_LIST_ADD(ExceptionHandler, handlers, ExceptHandler, ExceptHandler)

  static bool classof(const Statement *s) {
    return s->getType() >= StatementType::JsonGenerate && s->getType() <= StatementType::Invoke;
  }

protected:
  OperandStatement(const Node *at, StatementType type) : Statement(at, type) {}

private:
  NodeList<Expression> sources;
  NodeList<Expression> receivers;
  NodeList<Expression> parts;
  NodeList<ExceptionHandler> handlers;
};

/// The procedures that a procedure-name, or two with THROUGH, refer to. Set by the check; all null
/// before. At each end, at most one of section and paragraph is set.
class ProcedureRange {
public:
  /// Records what procedure-name-1 refers to, and at the second call what procedure-name-2 does.
  void addSection(Section *section) { (hasBegin() ? thruSection : beginSection) = section; }
  void addParagraph(Paragraph *paragraph) {
    (hasBegin() ? thruParagraph : beginParagraph) = paragraph;
  }

  TARKA_FIELD(Section *, beginSection, BeginSection)
  TARKA_FIELD(Paragraph *, beginParagraph, BeginParagraph)
  TARKA_FIELD(Section *, thruSection, ThruSection)
  TARKA_FIELD(Paragraph *, thruParagraph, ThruParagraph)

private:
  Section *beginSection = nullptr;
  Paragraph *beginParagraph = nullptr;
  Section *thruSection = nullptr;
  Paragraph *thruParagraph = nullptr;
  bool hasBegin() const { return beginSection || beginParagraph; }
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTBASE_H
