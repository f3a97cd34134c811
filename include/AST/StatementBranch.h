//===- StatementBranch.h - statements that direct control -------*- C++ -*-===//
//
// CALL, CANCEL, ENTRY, GO TO, PERFORM, ALTER, the EXIT forms, GOBACK, STOP, IF,
// EVALUATE, SEARCH, ON, CONTINUE, NEXT SENTENCE, EXEC and TRACE.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENTBRANCH_H
#define TARKA_AST_STATEMENTBRANCH_H

#include "AST/StatementBase.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

/// One argument of CALL: [BY {REFERENCE | CONTENT | VALUE}] {operand | OMITTED}
class Argument : public Node {
public:
  /// \p operand is null when \p isLeftOut.
  Argument(const Node *at, ArgType how, Expression *operand, bool isLeftOut)
      : Node(at), type(how), omitted(isLeftOut), expr(operand) {}

  TARKA_FIELD(ArgType, type, Type)
  /// True for OMITTED.
  TARKA_FLAG(omitted, Omitted)
  TARKA_FIELD(Expression *, expr, Expr)

private:
  ArgType type = ArgType::Reference;
  bool omitted = false;
  Expression *expr = nullptr;
};

/// One item of USING in the PROCEDURE DIVISION header or in ENTRY: [BY {REFERENCE | VALUE}] item
class Parameter : public Node {
public:
  Parameter(const Node *at, ParameterType how, Expression *item)
      : Node(at), type(how), expr(item) {}

  TARKA_FIELD(ParameterType, type, Type)
  TARKA_FIELD(Expression *, expr, Expr)

private:
  ParameterType type = ParameterType::Reference;
  Expression *expr = nullptr;
};

/// CALL program [USING argument...] [RETURNING identifier]
///   [ON OVERFLOW statements] [[NOT] ON EXCEPTION statements]...
class CallStatement : public StatementOf<StatementType::Call> {
public:
  CallStatement(const Node *at, Expression *program) : StatementOf(at), procedureName(program) {}

  void addArgumentFront(Argument *argument) { arguments.push_front(argument); }
  void setExceptHandler(GivenList<ExceptionHandler> handlers) { exceptHandlers = handlers.take(); }

  /// The literal or identifier that names the program.
  TARKA_FIELD(Expression *, procedureName, ProcedureName)
  TARKA_LIST_ADD(Argument, arguments, ArgumentList, Argument)
  /// Null without RETURNING.
  TARKA_FIELD(IdentifierExpression *, returnItem, Return)
  TARKA_LIST_ADD(ExceptionHandler, exceptHandlers, ExceptHandler, ExceptHandler)
  /// Items that the check records for the called program beside the arguments.
  TARKA_LIST_ADD(IdentifierExpression, params, ParamList, Param)
  /// The MOVE that precedes the call of a DL/I interface; null for other calls.
  TARKA_FIELD(Statement *, moveStmt, MoveStmt)

private:
  Expression *procedureName = nullptr;
  NodeList<Argument> arguments;
  IdentifierExpression *returnItem = nullptr;
  NodeList<ExceptionHandler> exceptHandlers;
  NodeList<IdentifierExpression> params;
  Statement *moveStmt = nullptr;
};

/// CANCEL program...
class CancelStatement : public StatementOf<StatementType::Cancel> {
public:
  explicit CancelStatement(const Node *at) : StatementOf(at) {}

  TARKA_LIST_ADD(Expression, programs, ProgramList, Program)

private:
  NodeList<Expression> programs;
};

/// ENTRY literal [USING parameter...]
class EntryStatement : public StatementOf<StatementType::Entry> {
public:
  EntryStatement(const Node *at, LiteralExpression *name) : StatementOf(at), entryLiteral(name) {}

  TARKA_FIELD(LiteralExpression *, entryLiteral, EntryLiteral)
  TARKA_LIST_ADD(Parameter, parameters, Parameter, Parameter)

private:
  LiteralExpression *entryLiteral = nullptr;
  NodeList<Parameter> parameters;
};

/// EXIT PROGRAM
class ExitProgramStatement : public StatementOf<StatementType::ExitProgram> {
public:
  explicit ExitProgramStatement(const Node *at) : StatementOf(at) {}
};

/// GOBACK
class GobackStatement : public StatementOf<StatementType::Goback> {
public:
  explicit GobackStatement(const Node *at) : StatementOf(at) {}
};

/// STOP {RUN | literal}
class StopStatement : public StatementOf<StatementType::Stop> {
public:
  /// \p text is null for STOP RUN.
  StopStatement(const Node *at, StopType format, LiteralExpression *text = nullptr)
      : StatementOf(at), type(format), literal(text) {}

  TARKA_FIELD(StopType, type, Type)
  TARKA_FIELD(LiteralExpression *, literal, Literal)

private:
  StopType type = StopType::Run;
  LiteralExpression *literal = nullptr;
};

//===----------------------------------------------------------------------===//
// Procedures
//===----------------------------------------------------------------------===//

/// A target of GO TO, as resolved by the check; one of the two is null.
class GotoProcedure : public Node {
public:
  GotoProcedure(Section *targetSection, Paragraph *targetParagraph)
      : section(targetSection), paragraph(targetParagraph) {}

  TARKA_FIELD(Section *, section, Section)
  TARKA_FIELD(Paragraph *, paragraph, Paragraph)

private:
  Section *section = nullptr;
  Paragraph *paragraph = nullptr;
};

/// GO TO [procedure-name]
/// GO TO procedure-name... DEPENDING ON identifier
class GotoStatement : public StatementOf<StatementType::Goto> {
public:
  explicit GotoStatement(const Node *at) : StatementOf(at) {}

  /// Empty in a GO TO that ALTER is to set.
  TARKA_LIST_ADD(QualifiedWord, procedureNames, ProcedureNameList, ProcedureName)
  /// Null without DEPENDING ON.
  TARKA_FIELD(IdentifierExpression *, dependingName, DependingName)
  /// The procedures that the names refer to, in their order; set by the check.
  TARKA_LIST_ADD(GotoProcedure, procedures, ProcedureList, Procedure)
  void forgetProcedures() { procedures = {}; }

private:
  NodeList<QualifiedWord> procedureNames;
  IdentifierExpression *dependingName = nullptr;
  NodeList<GotoProcedure> procedures;
};

/// procedure-name-1 TO [PROCEED TO] procedure-name-2
class AlterItem : public Node {
public:
  AlterItem(const Node *at, QualifiedWord *source, QualifiedWord *destination)
      : Node(at), srcProcName(source), dstProcName(destination) {}

  TARKA_FIELD(QualifiedWord *, srcProcName, SrcProcName)
  TARKA_FIELD(QualifiedWord *, dstProcName, DstProcName)
  /// The procedures that the names refer to; null before the check, which sets one of the two
  /// destinations.
  TARKA_FIELD(Paragraph *, srcParagraph, SrcParagraph)
  TARKA_FIELD(Section *, dstSection, DstSection)
  TARKA_FIELD(Paragraph *, dstParagraph, DstParagraph)

private:
  QualifiedWord *srcProcName = nullptr;
  QualifiedWord *dstProcName = nullptr;
  Paragraph *srcParagraph = nullptr;
  Section *dstSection = nullptr;
  Paragraph *dstParagraph = nullptr;
};

/// ALTER {procedure-name TO [PROCEED TO] procedure-name}...
class AlterStatement : public StatementOf<StatementType::Alter> {
public:
  explicit AlterStatement(const Node *at) : StatementOf(at) {}

  TARKA_LIST_ADD(AlterItem, items, AlterList, AlterItem)

private:
  NodeList<AlterItem> items;
};

/// procedure-name-1 [THROUGH procedure-name-2], with the procedures that the names refer to.
class PerformProcedure : public Node, public ProcedureRange {
public:
  /// \p thru is null without THROUGH.
  PerformProcedure(const Node *at, QualifiedWord *begin, QualifiedWord *thru)
      : Node(at), procedureName1(begin), procedureName2(thru) {}

  TARKA_FIELD(QualifiedWord *, procedureName1, ProcedureName1)
  TARKA_FIELD(QualifiedWord *, procedureName2, ProcedureName2)

private:
  QualifiedWord *procedureName1 = nullptr;
  QualifiedWord *procedureName2 = nullptr;
};

/// WITH TEST {BEFORE | AFTER}
class PerformTest : public Node {
public:
  PerformTest(const Node *at, PerformTestType when) : Node(at), type(when) {}

  TARKA_FIELD(PerformTestType, type, Type)

private:
  PerformTestType type = PerformTestType::Before;
};

/// {VARYING | AFTER} identifier FROM operand BY operand UNTIL condition
class PerformVarying : public Node {
public:
  PerformVarying(const Node *at, Expression *varying, Expression *from, Expression *by,
                 Condition *until)
      : Node(at), varyingIdentifier(varying), fromIdentifier(from), byIdentifier(by),
        untilCondition(until) {}

  TARKA_FIELD(Expression *, varyingIdentifier, VaryingIdentifier)
  TARKA_FIELD(Expression *, fromIdentifier, FromIdentifier)
  TARKA_FIELD(Expression *, byIdentifier, ByIdentifier)
  TARKA_FIELD(Condition *, untilCondition, UntilCondition)

private:
  Expression *varyingIdentifier = nullptr;
  Expression *fromIdentifier = nullptr;
  Expression *byIdentifier = nullptr;
  Condition *untilCondition = nullptr;
};

/// PERFORM [procedure-name [THROUGH procedure-name]]
///   [operand TIMES | [WITH TEST {BEFORE | AFTER}] UNTIL condition
///    | [WITH TEST {BEFORE | AFTER}] VARYING phrase [AFTER phrase]...]
///   [statements END-PERFORM]
class PerformStatement : public StatementOf<StatementType::Perform> {
public:
  PerformStatement(const Node *at, PerformStmtType format) : StatementOf(at), type(format) {}
  /// The phrases that are not written are null.
  PerformStatement(const Node *at, PerformStmtType format, PerformProcedure *procedure,
                   GivenList<Statement> statements, Expression *times, PerformTest *test,
                   GivenList<PerformVarying> varying, Condition *until)
      : StatementOf(at), type(format), procedureName(procedure),
        inlineStatements(statements.take()), timesInteger(times), performTest(test),
        phrases(varying.take()), untilCondition(until) {}

  TARKA_FIELD(PerformStmtType, type, Type)
  /// Null in the inline form.
  TARKA_FIELD(PerformProcedure *, procedureName, ProcedureName)
  /// Empty in the out-of-line form.
  TARKA_LIST_ADD(Statement, inlineStatements, InlineStatements, InlineStatement)
  /// Null without TIMES.
  TARKA_FIELD(Expression *, timesInteger, TimesInteger)
  /// Null where WITH TEST is not written, which means BEFORE.
  TARKA_FIELD(PerformTest *, performTest, PerformTest)
  /// The VARYING phrase, then the AFTER phrases.
  TARKA_LIST_ADD(PerformVarying, phrases, PhraseList, Phrase)
  /// The condition of UNTIL without VARYING; null otherwise.
  TARKA_FIELD(Condition *, untilCondition, UntilCondition)

private:
  PerformStmtType type = PerformStmtType::Simple;
  PerformProcedure *procedureName = nullptr;
  NodeList<Statement> inlineStatements;
  Expression *timesInteger = nullptr;
  PerformTest *performTest = nullptr;
  NodeList<PerformVarying> phrases;
  Condition *untilCondition = nullptr;
};

/// EXIT, the end point of a procedure.
class ExitStatement : public StatementOf<StatementType::Exit> {
public:
  explicit ExitStatement(const Node *at) : StatementOf(at) {}
};

/// EXIT PARAGRAPH
class ExitParagraphStatement : public StatementOf<StatementType::ExitParagraph> {
public:
  explicit ExitParagraphStatement(const Node *at) : StatementOf(at) {}
};

/// EXIT SECTION
class ExitSectionStatement : public StatementOf<StatementType::ExitSection> {
public:
  explicit ExitSectionStatement(const Node *at) : StatementOf(at) {}
};

/// EXIT PERFORM [CYCLE]
class ExitPerformStatement : public StatementOf<StatementType::ExitPerform> {
public:
  ExitPerformStatement(const Node *at, bool isCycle) : StatementOf(at), cycle(isCycle) {}

  TARKA_FLAG(cycle, Cycle)
  /// Where control goes on after the innermost inline PERFORM around the statement; null before
  /// the graph is built.
  TARKA_FIELD(CFGBlock *, afterBlock, AfterBlock)

private:
  bool cycle = false;
  CFGBlock *afterBlock = nullptr;
};

//===----------------------------------------------------------------------===//
// Decisions
//===----------------------------------------------------------------------===//

/// CONTINUE
class ContinueStatement : public StatementOf<StatementType::Continue> {
public:
  explicit ContinueStatement(const Node *at) : StatementOf(at) {}
};

/// NEXT SENTENCE
class NextSentenceStatement : public StatementOf<StatementType::NextSentence> {
public:
  explicit NextSentenceStatement(const Node *at) : StatementOf(at) {}

  /// The first block of the sentence around the statement; its next field leads past the
  /// sentence. Null before the graph is built.
  TARKA_FIELD(CFGBlock *, sentenceBlock, SentenceBlock)

private:
  CFGBlock *sentenceBlock = nullptr;
};

/// IF condition [THEN] statements [ELSE statements]
class IfStatement : public StatementOf<StatementType::If> {
public:
  explicit IfStatement(const Node *at, Condition *test = nullptr)
      : StatementOf(at), condition(test) {}
  /// \p otherwise is null without ELSE.
  IfStatement(const Node *at, Condition *test, GivenList<Statement> then,
              GivenList<Statement> otherwise)
      : StatementOf(at), condition(test), ifStmts(then.take()), elseStmts(otherwise.take()) {}

  TARKA_FIELD(Condition *, condition, Condition)
  TARKA_LIST_ADD(Statement, ifStmts, IfStmtList, IfStmt)
  /// Empty without ELSE.
  TARKA_LIST_ADD(Statement, elseStmts, ElseStmtList, ElseStmt)

private:
  Condition *condition = nullptr;
  NodeList<Statement> ifStmts;
  NodeList<Statement> elseStmts;
};

/// A subject, after EVALUATE or ALSO: operand, condition, TRUE or FALSE.
class EvaluateSubject : public Node {
public:
  EvaluateSubject(const Node *at, EvalSubjectType which, Expression *operand, Condition *condition)
      : Node(at), type(which), expr(operand), cond(condition) {}

  TARKA_FIELD(EvalSubjectType, type, Type)
  /// Null unless the subject is an operand.
  TARKA_FIELD(Expression *, expr, Expr)
  /// Null unless the subject is a condition.
  TARKA_FIELD(Condition *, cond, Cond)

private:
  EvalSubjectType type = EvalSubjectType::Expression;
  Expression *expr = nullptr;
  Condition *cond = nullptr;
};

/// An object, after WHEN or ALSO: ANY, condition, TRUE, FALSE, or
/// [NOT] operand [THROUGH operand].
class EvaluateObject : public Node {
public:
  EvaluateObject(const Node *at, EvalObjectType which) : Node(at), type(which) {}

  TARKA_FIELD(EvalObjectType, type, Type)
  /// True when NOT is written before an operand or a range.
  TARKA_FLAG(notObject, Not)
  /// Null unless the object is a condition.
  TARKA_FIELD(Condition *, condition, Condition)
  /// The operand, or the first one of a range; null otherwise.
  TARKA_FIELD(Expression *, frontExpression, FrontExpression)
  /// The second operand of a range; null otherwise.
  TARKA_FIELD(Expression *, rearExpression, RearExpression)

private:
  EvalObjectType type = EvalObjectType::Any;
  bool notObject = false;
  Condition *condition = nullptr;
  Expression *frontExpression = nullptr;
  Expression *rearExpression = nullptr;
};

/// WHEN {object [ALSO object]... | OTHER}
class EvaluateWhen : public Node {
public:
  EvaluateWhen(const Node *at, EvalWhenType which) : Node(at), type(which) {}

  TARKA_FIELD(EvalWhenType, type, Type)
  /// Empty for OTHER.
  TARKA_LIST_ADD(EvaluateObject, whenObjs, WhenObjList, WhenObj)

private:
  EvalWhenType type = EvalWhenType::When;
  NodeList<EvaluateObject> whenObjs;
};

/// One or more WHEN phrases with the statements that they share.
class EvaluateCase : public Node {
public:
  explicit EvaluateCase(const Node *at) : Node(at) {}

  NodeList<EvaluateWhen> *getWhenList() { return &whens; }
  NodeList<Statement> *getWhenStmtList() { return &whenStmts; }

  TARKA_LIST_ADD(EvaluateWhen, whens, WhenList, When)
  TARKA_LIST_ADD(Statement, whenStmts, WhenStmtList, WhenStmt)

private:
  NodeList<EvaluateWhen> whens;
  NodeList<Statement> whenStmts;
};

/// EVALUATE subject [ALSO subject]... {{WHEN object [ALSO object]...}... statements}...
///   [WHEN OTHER statements]
class EvaluateStatement : public StatementOf<StatementType::Evaluate> {
public:
  explicit EvaluateStatement(const Node *at) : StatementOf(at) {}

  NodeList<EvaluateSubject> *getSubjectList() { return &subjects; }

  TARKA_LIST_ADD(EvaluateSubject, subjects, SubjectList, Subject)
  TARKA_LIST_ADD(EvaluateCase, cases, WhenCaseList, WhenCase)

private:
  NodeList<EvaluateSubject> subjects;
  NodeList<EvaluateCase> cases;
};

/// WHEN condition {statements | NEXT SENTENCE}
class SearchWhen : public Node {
public:
  SearchWhen(const Node *at, Condition *test) : Node(at), condition(test) {}

  NodeList<Statement> *getStatementList() { return &statements; }

  TARKA_FIELD(Condition *, condition, Condition)
  TARKA_LIST_ADD(Statement, statements, StatementList, Statement)

private:
  Condition *condition = nullptr;
  NodeList<Statement> statements;
};

/// SEARCH table [VARYING identifier] [AT END statements] {WHEN condition statements}...
/// SEARCH ALL table [AT END statements] WHEN condition statements
class SearchStatement : public StatementOf<StatementType::Search> {
public:
  SearchStatement(const Node *at, SearchType format, IdentifierExpression *table)
      : StatementOf(at), type(format), searchIdentifier(table) {}

  TARKA_FIELD(SearchType, type, Type)
  TARKA_FIELD(IdentifierExpression *, searchIdentifier, SearchIdentifier)
  /// Null without VARYING.
  TARKA_FIELD(IdentifierExpression *, varyingIdentifier, VaryingIdentifier)
  TARKA_LIST_ADD(ExceptionHandler, atHandlers, AtHandler, AtHandler)
  TARKA_LIST_ADD(SearchWhen, whens, WhenList, When)
  /// The conditions that step through a sorted table, made by the check.
  TARKA_LIST_ADD(Condition, conditions, CondList, CondList)
  /// The block that steps the index; null before the graph is built.
  TARKA_FIELD(CFGBlock *, indexChangeBlock, IndexChangeBlock)

private:
  SearchType type = SearchType::Serial;
  IdentifierExpression *searchIdentifier = nullptr;
  IdentifierExpression *varyingIdentifier = nullptr;
  NodeList<ExceptionHandler> atHandlers;
  NodeList<SearchWhen> whens;
  NodeList<Condition> conditions;
  CFGBlock *indexChangeBlock = nullptr;
};

/// ON integer [AND EVERY integer] [UNTIL integer] statements [{ELSE | OTHERWISE} statements]
class OnStatement : public StatementOf<StatementType::On> {
public:
  OnStatement(const Node *at, Expression *count) : StatementOf(at), onExpr(count) {}

  TARKA_FIELD(Expression *, onExpr, OnExpr)
  /// Null without EVERY.
  TARKA_FIELD(Expression *, everyExpr, EveryExpr)
  /// Null without UNTIL.
  TARKA_FIELD(Expression *, untilExpr, UntilExpr)
  /// The statements that are executed when the count is right.
  TARKA_LIST_ADD(Statement, untilStmts, UntilStmtList, UntilStmt)
  /// Empty without ELSE.
  TARKA_LIST_ADD(Statement, elseStmts, ElseStmtList, ElseStmt)
  /// The ADD that counts and the condition on the count, made by the check; null before.
  TARKA_FIELD(Statement *, addStmt, AddStmt)
  TARKA_FIELD(Condition *, condition, Condition)

private:
  Expression *onExpr = nullptr;
  Expression *everyExpr = nullptr;
  Expression *untilExpr = nullptr;
  NodeList<Statement> untilStmts;
  NodeList<Statement> elseStmts;
  Statement *addStmt = nullptr;
  Condition *condition = nullptr;
};

//===----------------------------------------------------------------------===//
// Other languages and tracing
//===----------------------------------------------------------------------===//

/// EXEC language text END-EXEC
class ExecStatement : public StatementOf<StatementType::Exec> {
public:
  /// \p body is the text between the name of the language and END-EXEC.
  ExecStatement(const Node *at, ExecType language, llvm::StringRef body)
      : StatementOf(at), type(language), text(&internString(body)) {}

  TARKA_FIELD(ExecType, type, Type)
  /// What the text says; null for a language that is not read, and for text that is not a command.
  TARKA_FIELD(EmbeddedCommand *, command, Command)

  const std::string &getText() const { return *text; }

private:
  ExecType type = ExecType::Other;
  EmbeddedCommand *command = nullptr;
  const std::string *text;
};

/// {READY | RESET} TRACE
class TraceStatement : public StatementOf<StatementType::Trace> {
public:
  TraceStatement(const Node *at, TraceType which) : StatementOf(at), type(which) {}

  TARKA_FIELD(TraceType, type, Type)

private:
  TraceType type = TraceType::Ready;
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTBRANCH_H
