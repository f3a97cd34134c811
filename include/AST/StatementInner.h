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

/// A list that belongs to another node; null stands for an empty one.
template <typename Type> class ForeignList {
public:
  explicit ForeignList(std::list<Type *> *of) : list(of) {}

  typename std::list<Type *>::iterator begin() const { return beginOf(list); }
  typename std::list<Type *>::iterator end() const { return endOf(list); }
  std::size_t size() const { return list ? list->size() : 0; }

  friend const std::list<Type *> &elementsOf(const ForeignList &foreign) {
    return listOrEmpty(foreign.list);
  }

private:
  std::list<Type *> *list;
};

/// At the start of the declaratives: branch to the section of a registered exception declarative.
class InnerBranchStatement : public StatementOf<StatementType::InnerBranch> {
public:
  InnerBranchStatement(const Node *at, std::list<Section *> *declaratives)
      : StatementOf(at), sections(declaratives) {}

  TARKA_LIST(Section, sections, SectionList)

private:
  ForeignList<Section> sections;
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
  InnerWhenStatement(const Node *at, EvalWhenType which, std::list<EvaluateWhen *> *caseWhens,
                     std::list<Statement *> *caseStatements,
                     std::list<EvaluateSubject *> *caseSubjects)
      : StatementOf(at), type(which), whens(caseWhens), whenStmts(caseStatements),
        subjects(caseSubjects) {}

  TARKA_FIELD(EvalWhenType, type, Type)
  TARKA_LIST(EvaluateWhen, whens, WhenList)
  TARKA_LIST(Statement, whenStmts, WhenStmtList)
  TARKA_LIST(EvaluateSubject, subjects, SubjectList)

private:
  EvalWhenType type = EvalWhenType::When;
  ForeignList<EvaluateWhen> whens;
  ForeignList<Statement> whenStmts;
  ForeignList<EvaluateSubject> subjects;
};

/// One WHEN test of a SEARCH.
class InnerSearchWhenStatement : public StatementOf<StatementType::InnerSearchWhen> {
public:
  InnerSearchWhenStatement(const Node *at, Condition *test, std::list<Statement *> *statements)
      : StatementOf(at), condition(test), stmts(statements) {}

  TARKA_FIELD(Condition *, condition, Condition)
  TARKA_LIST(Statement, stmts, StmtList)

private:
  Condition *condition = nullptr;
  ForeignList<Statement> stmts;
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTINNER_H
