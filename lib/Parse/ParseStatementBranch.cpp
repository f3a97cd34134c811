//===- ParseStatementBranch.cpp - statements that direct control ----------===//

#include "Parse/ParseStatementBranch.h"
#include "Parse/MisspeltWords.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

/// CALL program [USING argument...] [RETURNING identifier] [exception phrases] [END-CALL]
StatementResult BranchStatements::parseCall() {
  SourceRange begin = here();
  accept(Keyword::Call);
  Expression *program = parseOperand();
  if (!program)
    return nullptr;
  auto *call = make<CallStatement>(begin, program);
  if (accept(Keyword::Using) && !parseCallArguments(*call))
    return nullptr;
  if (accept(Keyword::Returning)) {
    IdentifierExpression *item = parseIdentifier();
    if (!item)
      return nullptr;
    call->setReturn(item);
  }
  return finish(call, &CallStatement::addExceptHandler);
}

/// {[[BY] {REFERENCE | CONTENT | VALUE}] {operand | OMITTED}...}... The way of passing holds until
/// another one is written.
bool BranchStatements::parseCallArguments(CallStatement &call) {
  ArgType type = ArgType::Reference;
  do {
    SourceRange begin = here();
    if (accept(Keyword::By) && !at(Keyword::Reference, Keyword::Content, Keyword::Value))
      return expected("REFERENCE, CONTENT or VALUE");
    if (accept(Keyword::Reference))
      type = ArgType::Reference;
    else if (accept(Keyword::Content))
      type = ArgType::Content;
    else if (accept(Keyword::Value))
      type = ArgType::Value;
    Argument *argument = parseCallArgument(type, begin);
    if (!argument)
      return false;
    call.addArgument(argument);
  } while (
      at(Keyword::By, Keyword::Reference, Keyword::Content, Keyword::Value, Keyword::Omitted) ||
      atOperand());
  return true;
}

/// One argument; \p begin is where it or the way of passing before it begins. A file is passed by
/// its name.
Argument *BranchStatements::parseCallArgument(ArgType type, const SourceRange &begin) {
  if (accept(Keyword::Omitted))
    return make<Argument>(begin, type, nullptr, /*isLeftOut=*/true);
  Expression *operand = nullptr;
  if (peek().isUserWord() && scope().isFileName(peek().getInternedText()))
    operand = parseFileName();
  else
    operand = parseOperand();
  return operand ? make<Argument>(begin, type, operand, /*isLeftOut=*/false) : nullptr;
}

/// INVOKE {identifier | class-name | SELF | SUPER} {operand | NEW} [USING argument...]
///   [RETURNING identifier] [exception phrases] [END-INVOKE]
///
/// Classes are declared outside of the program, so their names are not bound.
StatementResult BranchStatements::parseInvoke() {
  SourceRange begin = here();
  accept(Keyword::Invoke);
  auto *invoke = make<InvokeStatement>(begin);
  if (!acceptAny(Keyword::Self, Keyword::Super)) {
    if (peek().isUserWord() && !isNamed(peek()))
      stream.skip();
    else if (IdentifierExpression *object = parseIdentifier("an object or a class"))
      invoke->addSource(object);
    else
      return nullptr;
  }
  if (atWord("NEW") && !isNamed(peek())) {
    stream.skip();
  } else {
    Expression *method = parseOperand("the name of a method");
    if (!method)
      return nullptr;
    invoke->addSource(method);
  }
  if (accept(Keyword::Using)) {
    do {
      if (accept(Keyword::By) && !at(Keyword::Reference, Keyword::Content, Keyword::Value))
        return expected("REFERENCE, CONTENT or VALUE");
      acceptAny(Keyword::Reference, Keyword::Content, Keyword::Value);
      Expression *argument = parseOperand();
      if (!argument)
        return nullptr;
      invoke->addSource(argument);
    } while (at(Keyword::By, Keyword::Reference, Keyword::Content, Keyword::Value) || atOperand());
  }
  if (accept(Keyword::Returning)) {
    IdentifierExpression *item = parseIdentifier();
    if (!item)
      return nullptr;
    invoke->addReceiver(item);
  }
  return finish(invoke, &OperandStatement::addExceptHandler);
}

/// CANCEL program...
StatementResult BranchStatements::parseCancel() {
  SourceRange begin = here();
  accept(Keyword::Cancel);
  auto *cancel = make<CancelStatement>(begin);
  if (!parseOperands(*cancel, &CancelStatement::addProgram))
    return nullptr;
  return complete(cancel);
}

/// ENTRY literal [USING parameter...]
StatementResult BranchStatements::parseEntry() {
  SourceRange begin = here();
  accept(Keyword::Entry);
  LiteralExpression *name = parseLiteral();
  if (!name)
    return nullptr;
  auto *entry = make<EntryStatement>(begin, name);
  if (accept(Keyword::Using)) {
    NodeList<Parameter> parameters;
    if (!parseParameters(parameters))
      return nullptr;
    for (Parameter *parameter : parameters)
      entry->addParameter(parameter);
  }
  return complete(entry);
}

/// GOBACK
StatementResult BranchStatements::parseGoback() {
  SourceRange begin = here();
  accept(Keyword::Goback);
  return make<GobackStatement>(begin);
}

/// STOP {RUN | literal}
StatementResult BranchStatements::parseStop() {
  SourceRange begin = here();
  accept(Keyword::Stop);
  if (accept(Keyword::Run))
    return make<StopStatement>(begin, StopType::Run);
  if (!atLiteral())
    return expected("RUN or a literal");
  LiteralExpression *text = parseLiteral();
  return text ? make<StopStatement>(begin, StopType::Literal, text) : nullptr;
}

//===----------------------------------------------------------------------===//
// Procedures
//===----------------------------------------------------------------------===//

/// GO [TO] [procedure-name]
/// GO [TO] procedure-name... DEPENDING [ON] identifier
StatementResult BranchStatements::parseGoto() {
  SourceRange begin = here();
  accept(Keyword::Go);
  accept(Keyword::To);
  // The end of a label procedure, which is entered again for the next label.
  if (accept(Keyword::MoreLabels))
    return make<ExitSectionStatement>(begin);
  auto *jump = make<GotoStatement>(begin);
  auto atProcedureName = [&] { return at(TokenKind::IntegerLiteral) || peek().isUserWord(); };
  // In free form the first name may stand where the names of paragraphs do.
  auto canBeHeader = [&] { return peek().isInFixedForm() || jump->getProcedureNameListSize() > 0; };
  while (atProcedureName() && !(canBeHeader() && atProcedureHeader())) {
    QualifiedWord *name = parseProcedureName();
    if (!name)
      return nullptr;
    jump->addProcedureName(name);
  }
  if (accept(Keyword::Depending)) {
    accept(Keyword::On);
    IdentifierExpression *selector = parseIdentifier();
    if (!selector)
      return nullptr;
    jump->setDependingName(selector);
  } else if (jump->getProcedureNameListSize() > 1) {
    expect(Keyword::Depending);
    return nullptr;
  }
  // GO TO without a target, which ALTER sets, ends its sentence; anything else is a wrong target.
  if (jump->getProcedureNameListSize() == 0 && !at(TokenKind::Period) && !atResumption(false))
    return parseProcedureName(), nullptr;
  return complete(jump);
}

/// ALTER {procedure-name TO [PROCEED TO] procedure-name}...
StatementResult BranchStatements::parseAlter() {
  SourceRange begin = here();
  accept(Keyword::Alter);
  auto *alter = make<AlterStatement>(begin);
  auto atItem = [this] { return at(TokenKind::IntegerLiteral) || atName(); };
  if (!parseSeries(*alter, &AlterStatement::addAlterItem, &BranchStatements::parseAlterItem,
                   atItem))
    return nullptr;
  return complete(alter);
}

AlterItem *BranchStatements::parseAlterItem() {
  SourceRange begin = here();
  QualifiedWord *source = parseProcedureName();
  if (!source || !expect(Keyword::To))
    return nullptr;
  if (accept(Keyword::Proceed) && !expect(Keyword::To))
    return nullptr;
  QualifiedWord *destination = parseProcedureName();
  return destination ? make<AlterItem>(begin, source, destination) : nullptr;
}

/// EXIT [PROGRAM | PARAGRAPH | SECTION | PERFORM [CYCLE]]
StatementResult BranchStatements::parseExit() {
  SourceRange begin = here();
  accept(Keyword::Exit);
  if (accept(Keyword::Program))
    return make<ExitProgramStatement>(begin);
  if (accept(Keyword::Paragraph))
    return make<ExitParagraphStatement>(begin);
  if (accept(Keyword::Section))
    return make<ExitSectionStatement>(begin);
  if (accept(Keyword::Perform)) {
    bool isCycle = accept(Keyword::Cycle);
    if (recovery.canEndWith(Keyword::EndPerform))
      return make<ExitPerformStatement>(begin, isCycle);
    error(DiagnosticId::ExitPerformOutside, begin);
    return Outcome::Discarded;
  }
  if (at(Keyword::Method, Keyword::Function))
    return error(DiagnosticId::UnsupportedStatement, here(),
                 ("EXIT " + textOf(peek().keyword)).str());
  return make<ExitStatement>(begin);
}

//===----------------------------------------------------------------------===//
// PERFORM
//===----------------------------------------------------------------------===//

/// Whether an operand before TIMES is next. A name can also be that of a procedure; what follows
/// its qualifiers and subscripts decides.
bool BranchStatements::atTimesPhrase() {
  if (isSpecialRegister(peek().keyword) || at(Keyword::Function))
    return true;
  if (!peek().isUserWord() && !peek().isNumber() && !at(TokenKind::Plus, TokenKind::Minus) &&
      !peek().isFigurativeConstant())
    return false;
  unsigned n = at(TokenKind::Plus, TokenKind::Minus) ? 2 : 1;
  constexpr unsigned bound = TokenStream::lookAhead - 2;
  while (n < bound && peek(n).isOneOf(Keyword::Of, Keyword::In))
    n += 2;
  for (unsigned open = 0; n < bound; ++n) {
    if (peek(n).is(TokenKind::LParen))
      ++open;
    else if (open == 0)
      return peek(n).is(Keyword::Times);
    else if (peek(n).is(TokenKind::RParen))
      --open;
    else if (peek(n).isOneOf(TokenKind::Period, TokenKind::EndOfFile))
      return false;
  }
  // A procedure-name is not followed by so many tokens.
  return true;
}

/// Whether TIMES, UNTIL or VARYING with their operands is next.
bool BranchStatements::atPerformPhrase() {
  return at(Keyword::With, Keyword::Test, Keyword::Until, Keyword::Varying) || atTimesPhrase();
}

/// PERFORM procedure-name [THROUGH procedure-name] [phrase]
/// PERFORM [phrase] statements END-PERFORM
StatementResult BranchStatements::parsePerform() {
  SourceRange begin = here();
  accept(Keyword::Perform);
  static constexpr Keyword with[] = {Keyword::With};
  if (peek().isUserWord() && peek(1).is(Keyword::Test) &&
      nearestKeyword(peek().text, with) != Keyword::None) {
    error(DiagnosticId::MisspeltVerb, here(), describe(peek()), textOf(Keyword::With));
    stream.correct(Keyword::With);
  }
  auto *perform = make<PerformStatement>(begin, PerformStmtType::Simple);
  bool isOutOfLine = (at(TokenKind::IntegerLiteral) || peek().isUserWord()) && !atTimesPhrase();
  if (!isOutOfLine)
    return parsePerformInline(perform, !atPerformPhrase() || parsePerformPhrase(*perform));

  SourceRange nameBegin = here();
  QualifiedWord *name = parseProcedureName();
  if (!name)
    return nullptr;
  QualifiedWord *thru = nullptr;
  if (acceptAny(Keyword::Through, Keyword::Thru) && !(thru = parseProcedureName()))
    return nullptr;
  perform->setProcedureName(make<PerformProcedure>(nameBegin, name, thru));
  if (atPerformPhrase() && !parsePerformPhrase(*perform))
    return nullptr;
  return complete(perform);
}

/// The statements and END-PERFORM; they are read even where the phrase before them could not be, in
/// which case \p isComplete is false.
StatementResult BranchStatements::parsePerformInline(PerformStatement *perform, bool isComplete) {
  if (!isComplete)
    skipToStatement();
  // PERFORM PERFORM ...: the second one is too much, unless END-PERFORM shows otherwise.
  const Token first = peek();
  const bool isDoubled = first.is(Keyword::Perform) && !first.isFirstOnLine() &&
                         stream.getLastPlace().endLine == first.place.beginLine &&
                         perform->getRange().endLine == stream.getLastPlace().endLine &&
                         perform->getRange().endColumn == stream.getLastPlace().endColumn;
  NodeList<Statement> statements;
  parseStatements(statements);
  for (Statement *statement : statements)
    perform->addInlineStatement(statement);
  // One message is enough for a statement that did not get as far.
  if (!accept(Keyword::EndPerform)) {
    const bool isReported =
        !isComplete || recovery.getTornLine() != 0 || recovery.hasUnmatchedEnd();
    if (!isReported && isDoubled)
      error(DiagnosticId::ReservedWord, first.place, "a procedure-name", first.text);
    else if (!isReported)
      expect(Keyword::EndPerform, "END-PERFORM for the PERFORM in line " +
                                      std::to_string(perform->getRange().beginLine));
    isComplete = false;
  }
  return isComplete ? complete(perform) : StatementResult(Outcome::Discarded);
}

/// operand TIMES | [[WITH] TEST {BEFORE | AFTER}] {UNTIL condition | VARYING ... [AFTER ...]...}
bool BranchStatements::parsePerformPhrase(PerformStatement &perform) {
  SourceRange begin = here();
  if (at(Keyword::With, Keyword::Test)) {
    accept(Keyword::With);
    if (!expect(Keyword::Test))
      return false;
    bool isAfter = at(Keyword::After);
    if (!isAfter && !at(Keyword::Before))
      return expected("BEFORE or AFTER");
    stream.skip();
    perform.setPerformTest(
        make<PerformTest>(begin, isAfter ? PerformTestType::After : PerformTestType::Before));
    if (!at(Keyword::Until, Keyword::Varying))
      return expected("UNTIL or VARYING");
  }
  if (accept(Keyword::Until)) {
    perform.setType(PerformStmtType::Until);
    // UNTIL EXIT: only EXIT PERFORM and the like end the loop.
    if (at(Keyword::Exit)) {
      stream.skip();
      return true;
    }
    perform.setUntilCondition(parseCondition());
    return perform.getUntilCondition() != nullptr;
  }
  if (at(Keyword::Varying)) {
    perform.setType(PerformStmtType::Varying);
    return parseSeries(perform, &PerformStatement::addPhrase,
                       &BranchStatements::parsePerformVarying,
                       [this] { return at(Keyword::After); });
  }
  perform.setType(PerformStmtType::Times);
  perform.setTimesInteger(parseOperand());
  return perform.getTimesInteger() && expect(Keyword::Times);
}

/// {VARYING | AFTER} identifier FROM operand BY operand UNTIL condition
PerformVarying *BranchStatements::parsePerformVarying() {
  SourceRange begin = here();
  acceptAny(Keyword::Varying, Keyword::After);
  Expression *varying = parseIdentifier();
  if (!varying || !expect(Keyword::From))
    return nullptr;
  Expression *from = parseOperand();
  if (!from || !expect(Keyword::By))
    return nullptr;
  Expression *by = parseOperand();
  if (!by || !expect(Keyword::Until))
    return nullptr;
  Condition *until = parseCondition();
  return until ? make<PerformVarying>(begin, varying, from, by, until) : nullptr;
}

//===----------------------------------------------------------------------===//
// IF and ON
//===----------------------------------------------------------------------===//

/// CONTINUE
StatementResult BranchStatements::parseContinue() {
  SourceRange begin = here();
  accept(Keyword::Continue);
  return make<ContinueStatement>(begin);
}

/// NEXT SENTENCE
StatementResult BranchStatements::parseNextSentence() {
  SourceRange begin = here();
  accept(Keyword::Next);
  expect(Keyword::Sentence);
  return make<NextSentenceStatement>(begin);
}

/// The branch after ELSE, if there is one. Another ELSE belongs to an outer statement.
bool BranchStatements::parseElse(NodeList<Statement> &statements) {
  if (!acceptAny(Keyword::Else, Keyword::Otherwise))
    return true;
  recovery.getInnermost().hasElse = true;
  if (parseBranch(statements))
    return true;
  // ELSE ELSE is one mistake.
  if (acceptAny(Keyword::Else, Keyword::Otherwise))
    parseStatements(statements);
  return false;
}

/// IF condition [THEN] statements [ELSE statements] [END-IF]. The branches are read even where the
/// condition could not be.
StatementResult BranchStatements::parseIf() {
  SourceRange begin = here();
  accept(Keyword::If);
  Condition *condition = parseCondition();
  if (!condition)
    while (!at(Keyword::Then) && !atResumption(/*passesWhen=*/false))
      stream.skip();
  accept(Keyword::Then);
  NodeList<Statement> then;
  bool isComplete = parseBranch(then, /*isNeeded=*/condition) && condition;
  NodeList<Statement> otherwise;
  isComplete &= parseElse(otherwise);
  const bool isEnded = accept(Keyword::EndIf);
  if (!isComplete) {
    if (!isEnded)
      recovery.expectAbandonedEnd(Keyword::EndIf);
    return Outcome::Discarded;
  }
  auto *statement = make<IfStatement>(begin, condition, &then, nullptr);
  for (Statement *one : otherwise)
    statement->addElseStmt(one);
  return statement;
}

/// ON count [AND EVERY count] [UNTIL count] statements [{ELSE | OTHERWISE} statements]
StatementResult BranchStatements::parseOn() {
  SourceRange begin = here();
  accept(Keyword::On);
  Expression *count = parseOperand();
  if (!count)
    return nullptr;
  auto *statement = make<OnStatement>(begin, count);
  bool hasAnd = accept(Keyword::And);
  if (hasAnd && !at(Keyword::Every))
    return expected("EVERY");
  if (accept(Keyword::Every)) {
    statement->setEveryExpr(parseOperand());
    if (!statement->getEveryExpr())
      return nullptr;
  }
  if (accept(Keyword::Until)) {
    statement->setUntilExpr(parseOperand());
    if (!statement->getUntilExpr())
      return nullptr;
  }
  NodeList<Statement> then, otherwise;
  bool isComplete = parseBranch(then);
  isComplete &= parseElse(otherwise);
  if (!isComplete)
    return Outcome::Discarded;
  for (Statement *one : then)
    statement->addUntilStmt(one);
  for (Statement *one : otherwise)
    statement->addElseStmt(one);
  return complete(statement);
}

//===----------------------------------------------------------------------===//
// EVALUATE
//===----------------------------------------------------------------------===//

/// EVALUATE subject [ALSO subject]... {{WHEN object [ALSO object]...}... statements}...
///   [WHEN OTHER statements] [END-EVALUATE]. What could not be read does not keep the rest from
/// being read.
StatementResult BranchStatements::parseEvaluate() {
  SourceRange begin = here();
  accept(Keyword::Evaluate);
  auto *evaluate = make<EvaluateStatement>(begin);
  bool isComplete = parseSeries(*evaluate, &EvaluateStatement::addSubject,
                                &BranchStatements::parseEvaluateSubject,
                                [this] { return accept(Keyword::Also); });
  if (isComplete && !at(Keyword::When))
    isComplete = expect(Keyword::When);
  if (!isComplete)
    skipToStatement();
  if (!at(Keyword::When)) {
    // The statements of the WHEN that is missing.
    NodeList<Statement> dropped;
    parseStatements(dropped);
  }
  bool hasOther = false;
  while (at(Keyword::When)) {
    if (hasOther) {
      error(DiagnosticId::WhenAfterOther, here());
      isComplete = false;
    }
    EvaluateCase *branch = parseEvaluateCase(*evaluate, isComplete);
    evaluate->addWhenCase(branch);
    hasOther = llvm::any_of(branch->getWhenListElements(), [](const EvaluateWhen *when) {
      return when->getType() == EvalWhenType::Other;
    });
  }
  accept(Keyword::EndEvaluate);
  return isComplete ? complete(evaluate) : StatementResult(Outcome::Discarded);
}

EvaluateSubject *BranchStatements::parseEvaluateSubject() {
  SourceRange begin = here();
  if (accept(Keyword::True))
    return make<EvaluateSubject>(begin, EvalSubjectType::True, nullptr, nullptr);
  if (accept(Keyword::False))
    return make<EvaluateSubject>(begin, EvalSubjectType::False, nullptr, nullptr);
  Comparand subject = parseConditionOrExpression();
  if (!subject)
    return nullptr;
  EvalSubjectType type =
      subject.condition ? EvalSubjectType::Condition : EvalSubjectType::Expression;
  return make<EvaluateSubject>(begin, type, subject.expression, subject.condition);
}

/// The WHENs that share statements, and the statements. Clears \p isComplete after a message.
EvaluateCase *BranchStatements::parseEvaluateCase(EvaluateStatement &evaluate, bool &isComplete) {
  SourceRange begin = here();
  auto *branch = make<EvaluateCase>(begin);
  while (at(Keyword::When)) {
    if (EvaluateWhen *when = parseEvaluateWhen(evaluate)) {
      branch->addWhen(when);
      continue;
    }
    isComplete = false;
    skipToStatement();
  }
  isComplete &= parseBranch(*branch->getWhenStmtList());
  return complete(branch);
}

/// WHEN {OTHER | object [ALSO object]...}
EvaluateWhen *BranchStatements::parseEvaluateWhen(EvaluateStatement &evaluate) {
  SourceRange begin = here();
  accept(Keyword::When);
  if (accept(Keyword::Other))
    return make<EvaluateWhen>(begin, EvalWhenType::Other);
  auto *when = make<EvaluateWhen>(begin, EvalWhenType::When);
  auto subject = evaluate.getSubjectListBegin();
  do {
    bool hasSubject = subject != evaluate.getSubjectListEnd();
    EvaluateObject *object = parseEvaluateObject(hasSubject ? *subject : nullptr);
    if (!object)
      return nullptr;
    when->addWhenObj(object);
    if (hasSubject)
      ++subject;
  } while (accept(Keyword::Also));
  return complete(when);
}

/// ANY, TRUE, FALSE, a condition, or [NOT] operand [THROUGH operand]. What a name alone is, the
/// subject decides: beside an operand it is an operand, beside a truth value a condition.
EvaluateObject *BranchStatements::parseEvaluateObject(const EvaluateSubject *subject) {
  SourceRange begin = here();
  if (accept(Keyword::Any))
    return make<EvaluateObject>(begin, EvalObjectType::Any);
  if (accept(Keyword::True))
    return make<EvaluateObject>(begin, EvalObjectType::True);
  if (accept(Keyword::False))
    return make<EvaluateObject>(begin, EvalObjectType::False);
  const bool isTruthWanted = subject && subject->getType() != EvalSubjectType::Expression;
  return parseEvaluateOperand(begin, isTruthWanted);
}

EvaluateObject *BranchStatements::parseEvaluateCondition(const SourceRange &begin,
                                                         Condition *condition) {
  if (!condition)
    return nullptr;
  auto *object = make<EvaluateObject>(begin, EvalObjectType::Condition);
  object->setCondition(condition);
  return object;
}

/// Beside a truth value, NOT is part of a condition and a name alone is taken for that of one; an
/// operand of another kind is read all the same, for the checker to say that it does not fit.
EvaluateObject *BranchStatements::parseEvaluateOperand(const SourceRange &begin,
                                                       bool isTruthWanted) {
  bool isNot = !isTruthWanted && accept(Keyword::Not);
  Comparand front;
  if (isNot)
    front.expression = parseArithmeticExpression();
  else
    front = parseConditionOrExpression();
  if (!front)
    return nullptr;
  if (front.condition)
    return parseEvaluateCondition(begin, front.condition);
  if (auto *name = llvm::dyn_cast<DataIdentifierExpression>(front.expression);
      name && !name->getReferenceMod() && isTruthWanted && !at(Keyword::Through, Keyword::Thru))
    return parseEvaluateCondition(begin, namedCondition(name));
  Expression *rear = nullptr;
  bool isRange = acceptAny(Keyword::Through, Keyword::Thru);
  if (isRange && !(rear = parseArithmeticExpression()))
    return nullptr;
  auto *object =
      make<EvaluateObject>(begin, isRange ? EvalObjectType::Range : EvalObjectType::Expression);
  object->setIsNot(isNot);
  object->setFrontExpression(front.expression);
  object->setRearExpression(rear);
  return object;
}

//===----------------------------------------------------------------------===//
// SEARCH
//===----------------------------------------------------------------------===//

/// SEARCH [ALL] table [VARYING identifier] [[AT] END statements] {WHEN condition statements}...
///   [END-SEARCH]. What could not be read does not keep the rest from being read.
StatementResult BranchStatements::parseSearch() {
  SourceRange begin = here();
  accept(Keyword::Search);
  Recovery::ConstructScope construct(recovery);
  SearchType type = accept(Keyword::All) ? SearchType::Binary : SearchType::Serial;
  IdentifierExpression *table = parseIdentifier();
  auto *search = make<SearchStatement>(begin, type, table);
  bool isComplete = table != nullptr;
  if (isComplete && accept(Keyword::Varying)) {
    search->setVaryingIdentifier(parseIdentifier());
    isComplete = search->getVaryingIdentifier() != nullptr;
  }
  if (isComplete && !at(Keyword::When) && !atExceptionPhrase()) {
    expect(Keyword::When);
    isComplete = false;
  }
  if (!isComplete)
    skipToStatement();
  NodeList<ExceptionHandler> handlers;
  parseExceptionPhrases(handlers);
  for (ExceptionHandler *handler : handlers)
    search->addAtHandler(handler);
  if (!at(Keyword::When)) {
    if (isComplete && !construct.hasMistake())
      expect(Keyword::When);
    isComplete = false;
    // The statements of the WHEN that is missing.
    NodeList<Statement> dropped;
    parseStatements(dropped);
  }
  while (at(Keyword::When)) {
    SearchWhen *when = parseSearchWhen();
    if (when)
      search->addWhen(when);
    isComplete &= when != nullptr;
  }
  accept(Keyword::EndSearch);
  return isComplete ? complete(search) : StatementResult(Outcome::Discarded);
}

/// WHEN condition statements
SearchWhen *BranchStatements::parseSearchWhen() {
  SourceRange begin = here();
  accept(Keyword::When);
  Condition *condition = parseCondition();
  if (!condition)
    skipToStatement();
  NodeList<Statement> statements;
  if (!parseBranch(statements, /*isNeeded=*/condition) || !condition)
    return nullptr;
  auto *when = make<SearchWhen>(begin, condition);
  when->getStatementList()->swap(statements);
  return when;
}

//===----------------------------------------------------------------------===//
// Other languages and tracing
//===----------------------------------------------------------------------===//

/// {READY | RESET} TRACE
StatementResult BranchStatements::parseTrace() {
  SourceRange begin = here();
  TraceType type = at(Keyword::Ready) ? TraceType::Ready : TraceType::Reset;
  stream.skip();
  return expect(Keyword::Trace) ? make<TraceStatement>(begin, type) : nullptr;
}

} // namespace tarka
