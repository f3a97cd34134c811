//===- NestedStatements.h - the statements within a statement ---*- C++ -*-===//
//
// The one walk over the lists of statements that are written within a statement:
// branches, phrases, WHENs and the body of an inline PERFORM.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_NESTEDSTATEMENTS_H
#define TARKA_AST_NESTEDSTATEMENTS_H

#include "AST/StatementVisitor.h"
#include "llvm/ADT/iterator_range.h"

namespace tarka {

/// Elements of a list of nodes, which can be replaced through it.
template <typename Type> using NodeRange = llvm::iterator_range<typename NodeList<Type>::iterator>;

/// The statements of one part of a statement.
inline NodeRange<Statement> statementsOf(ExceptionHandler &phrase) {
  return {phrase.getImperStmtListBegin(), phrase.getImperStmtListEnd()};
}
inline NodeRange<Statement> statementsOf(EvaluateCase &oneCase) {
  return {oneCase.getWhenStmtListBegin(), oneCase.getWhenStmtListEnd()};
}
inline NodeRange<Statement> statementsOf(SearchWhen &when) {
  return {when.getStatementListBegin(), when.getStatementListEnd()};
}

/// Calls \p visit for everything in \p statement that holds statements, in the order of the source:
/// with a NodeRange<Statement> for each list of statements that the statement has itself, with a
/// NodeRange of ExceptionHandler, EvaluateCase or SearchWhen for each list of parts, whose
/// statements statementsOf() gives. Statements that the checks have made are not nested ones.
template <typename Visit> void forEachNestedPart(Statement &statement, Visit visit);

/// The phrases of \p statement: ON SIZE ERROR, AT END, INVALID KEY and the like with their NOT
/// forms, in the order of the source. Empty for a statement that can have none.
inline NodeRange<ExceptionHandler> phrasesOf(const Statement &statement);

/// Calls \p visit with a NodeRange<Statement> for each list of statements within \p statement, in
/// the order of the source; not for the lists within those statements.
template <typename Visit> void forEachNestedList(Statement &statement, Visit visit) {
  forEachNestedPart(statement, [&](auto parts) {
    if constexpr (std::is_same_v<decltype(parts), NodeRange<Statement>>)
      visit(parts);
    else
      for (auto *part : parts)
        visit(statementsOf(*part));
  });
}

namespace detail {

template <typename Visit> class NestedParts : public StatementVisitor<NestedParts<Visit>> {
public:
  explicit NestedParts(Visit &callback) : call(callback) {}

  void visitArithmeticStatement(ArithmeticStatement &s) {
    phrases(s.getSizeErrorHandlerBegin(), s.getSizeErrorHandlerEnd());
  }
  void visitCallStatement(CallStatement &s) {
    phrases(s.getExceptHandlerBegin(), s.getExceptHandlerEnd());
  }
  void visitDeleteStatement(DeleteStatement &s) {
    phrases(s.getInvalidKeyHandlerBegin(), s.getInvalidKeyHandlerEnd());
  }
  void visitEvaluateStatement(EvaluateStatement &s) {
    call(NodeRange<EvaluateCase>(s.getWhenCaseListBegin(), s.getWhenCaseListEnd()));
  }
  void visitIfStatement(IfStatement &s) {
    call(NodeRange<Statement>(s.getIfStmtListBegin(), s.getIfStmtListEnd()));
    call(NodeRange<Statement>(s.getElseStmtListBegin(), s.getElseStmtListEnd()));
  }
  void visitOnStatement(OnStatement &s) {
    call(NodeRange<Statement>(s.getUntilStmtListBegin(), s.getUntilStmtListEnd()));
    call(NodeRange<Statement>(s.getElseStmtListBegin(), s.getElseStmtListEnd()));
  }
  void visitOperandStatement(OperandStatement &s) {
    phrases(s.getExceptHandlerBegin(), s.getExceptHandlerEnd());
  }
  void visitPerformStatement(PerformStatement &s) {
    call(NodeRange<Statement>(s.getInlineStatementsBegin(), s.getInlineStatementsEnd()));
  }
  void visitReadStatement(ReadStatement &s) { phrases(s.getErrorListBegin(), s.getErrorListEnd()); }
  void visitReturnStatement(ReturnStatement &s) {
    phrases(s.getEndHandlerBegin(), s.getEndHandlerEnd());
  }
  void visitRewriteStatement(RewriteStatement &s) {
    phrases(s.getInvalidKeyHandlerBegin(), s.getInvalidKeyHandlerEnd());
  }
  void visitSearchStatement(SearchStatement &s) {
    phrases(s.getAtHandlerBegin(), s.getAtHandlerEnd());
    call(NodeRange<SearchWhen>(s.getWhenListBegin(), s.getWhenListEnd()));
  }
  void visitStartStatement(StartStatement &s) {
    phrases(s.getInvalidKeyHandlerBegin(), s.getInvalidKeyHandlerEnd());
  }
  void visitStringStatement(StringStatement &s) {
    phrases(s.getOverflowHandlerBegin(), s.getOverflowHandlerEnd());
  }
  void visitUnstringStatement(UnstringStatement &s) {
    phrases(s.getOverflowHandlerBegin(), s.getOverflowHandlerEnd());
  }
  void visitWriteStatement(WriteStatement &s) {
    phrases(s.getExceptionHandlerListBegin(), s.getExceptionHandlerListEnd());
  }
  void visitXMLGenerateStatement(XMLGenerateStatement &s) {
    phrases(s.getOnExcpHandlerBegin(), s.getOnExcpHandlerEnd());
  }
  void visitXMLParseStatement(XMLParseStatement &s) {
    phrases(s.getOnExcpHandlerBegin(), s.getOnExcpHandlerEnd());
  }

private:
  using Phrase = NodeList<ExceptionHandler>::iterator;
  void phrases(Phrase begin, Phrase end) { call(NodeRange<ExceptionHandler>(begin, end)); }

  Visit &call;
};

} // namespace detail

template <typename Visit> void forEachNestedPart(Statement &statement, Visit visit) {
  detail::NestedParts<Visit>(visit).visit(statement);
}

inline NodeRange<ExceptionHandler> phrasesOf(const Statement &statement) {
  NodeRange<ExceptionHandler> phrases{{}, {}};
  // The walk only reads the statement. The lists of a tree hold nodes that can be changed, however
  // they are reached.
  forEachNestedPart(const_cast<Statement &>(statement), [&](auto parts) {
    if constexpr (std::is_same_v<decltype(parts), NodeRange<ExceptionHandler>>)
      phrases = parts;
  });
  return phrases;
}

} // namespace tarka

#endif // TARKA_AST_NESTEDSTATEMENTS_H
