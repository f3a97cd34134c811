//===- StatementInner.h - statements of the graph ---------------*- C++ -*-===//
//
// Statements that are not in the source text: the graph builder makes them for
// what the code generator must do between the programmer's statements. They
// point at lists of the tree, which they do not own.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENTINNER_H
#define TARKA_AST_STATEMENTINNER_H

#include "AST/StatementBase.h"

namespace tarka {

/// At the start of the declaratives: branch to the section of a registered exception declarative.
class InnerBranchStatement : public StatementOf<StatementType::InnerBranch> {
public:
  InnerBranchStatement(const Node *at, CopiedList<Section> declaratives)
      : StatementOf(at), sections(declaratives.take()) {}

  TARKA_LIST(Section, sections, SectionList)

private:
  NodeList<Section> sections;
};

/// The end of a procedure that ends a performed range, or of the body of an inline PERFORM:
/// return to the performer. One of the three is set, the others are null.
class InnerExitStatement : public StatementOf<StatementType::InnerExit> {
public:
  InnerExitStatement(const Node *at, Section *endOfSection, Paragraph *endOfParagraph,
                     PerformStatement *endOfPerform)
      : StatementOf(at), section(endOfSection), paragraph(endOfParagraph), perform(endOfPerform) {}

  TARKA_FIELD(Section *, section, Section)
  TARKA_FIELD(Paragraph *, paragraph, Paragraph)
  TARKA_FIELD(PerformStatement *, perform, PerformStmt)

private:
  Section *section = nullptr;
  Paragraph *paragraph = nullptr;
  PerformStatement *perform = nullptr;
};

/// Registers one USE AFTER EXCEPTION declarative.
class InnerRegisterExceptionStatement : public StatementOf<StatementType::InnerRegisterException> {
public:
  InnerRegisterExceptionStatement(const Node *at, Declaratives *declarative)
      : StatementOf(at), declaratives(declarative) {}

  TARKA_FIELD(Declaratives *, declaratives, Declaratives)

private:
  Declaratives *declaratives = nullptr;
};

/// One WHEN test of an EVALUATE.
class InnerWhenStatement : public StatementOf<StatementType::InnerWhen> {
public:
  InnerWhenStatement(const Node *at, EvalWhenType which, CopiedList<EvaluateWhen> caseWhens,
                     CopiedList<Statement> caseStatements, CopiedList<EvaluateSubject> caseSubjects)
      : StatementOf(at), type(which), whens(caseWhens.take()), whenStmts(caseStatements.take()),
        subjects(caseSubjects.take()) {}

  TARKA_FIELD(EvalWhenType, type, Type)
  TARKA_LIST(EvaluateWhen, whens, WhenList)
  TARKA_LIST(Statement, whenStmts, WhenStmtList)
  TARKA_LIST(EvaluateSubject, subjects, SubjectList)

private:
  EvalWhenType type = EvalWhenType::When;
  NodeList<EvaluateWhen> whens;
  NodeList<Statement> whenStmts;
  NodeList<EvaluateSubject> subjects;
};

/// One WHEN test of a SEARCH.
class InnerSearchWhenStatement : public StatementOf<StatementType::InnerSearchWhen> {
public:
  InnerSearchWhenStatement(const Node *at, Condition *test, CopiedList<Statement> statements)
      : StatementOf(at), condition(test), stmts(statements.take()) {}

  TARKA_FIELD(Condition *, condition, Condition)
  TARKA_LIST(Statement, stmts, StmtList)

private:
  Condition *condition = nullptr;
  NodeList<Statement> stmts;
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTINNER_H
