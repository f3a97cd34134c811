//===- TarkaCFGStatements.cpp - branches and conditional phrases ----------===//
//
// The lowering of the statements that split control: IF, EVALUATE, ON, the
// statements with ON SIZE ERROR, ON OVERFLOW, AT END, INVALID KEY and
// ON EXCEPTION phrases, and CALL.
//
// In the comments S is the block in which a statement began.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CompileOption.h"
#include <cassert>

namespace tarka {

//===----------------------------------------------------------------------===//
// IF, ON, EVALUATE
//===----------------------------------------------------------------------===//

/// The condition stays in the statement: the code generator evaluates it at the end of S.
void CFGBuilder::lowerTwoWay(Statement *statement, const StatementList &thenStatements,
                             const StatementList &elseStatements, llvm::StringRef endName) {
  CFGBlock *start = appendTerminator(statement);
  BlockList ends;
  start->addThenBlock(lowerBranch("tkdummy_then", thenStatements));
  ends.push_back(currentBlock);
  if (!elseStatements.empty()) {
    start->addElseBlock(lowerBranch("tkdummy_else", elseStatements));
    ends.push_back(currentBlock);
  }
  joinAt(endName, start, ends);
}

void CFGBuilder::analysisIfStmt(IfStatement *statement) {
  lowerTwoWay(statement, statement->getIfStmtListElements(), statement->getElseStmtListElements(),
              "tkdummy_endif");
}

void CFGBuilder::analysisOnStmt(OnStatement *statement) {
  // Count first; the condition looks at the count.
  if (Statement *count = statement->getAddStmt())
    analysisStatement(*count);
  lowerTwoWay(statement, statement->getUntilStmtListElements(),
              statement->getElseStmtListElements(), "tkdummy_endon");
}

/// A chain of tests, each with its body. EVALUATE itself is not an element: its tests represent it.
void CFGBuilder::analysisEvaluateStmt(EvaluateStatement *statement) {
  BlockList tests, ends;
  for (EvaluateCase *evaluateCase : statement->getWhenCaseListElements()) {
    // The first test is made in S.
    if (!tests.empty()) {
      CFGBlock *test = continueInNewBlock("tkdummy_evaluate_when_cond");
      test->setRole(CFGBlockRole::LaterWhen);
      tests.back()->addSuccessorBlock(test);
      tests.back()->addElseBlock(test);
    }
    CFGBlock *test = appendTerminator(generate<InnerWhenStatement>(
        statement, evaluateCase->getWhenListElements().front()->getType(),
        evaluateCase->getWhenList(), evaluateCase->getWhenStmtList(), statement->getSubjectList()));
    tests.push_back(test);

    CFGBlock *body =
        lowerBranch("tkdummy_evaluate_when_body", evaluateCase->getWhenStmtListElements());
    test->addThenBlock(body);
    ends.push_back(currentBlock);
  }
  if (tests.empty())
    return;

  CFGBlock *end = continueInNewBlock("tkdummy_evaluate_end");
  tests.back()->addSuccessorBlock(end);
  tests.back()->addElseBlock(end);
  for (CFGBlock *test : tests)
    test->addEndBlock(end);
  for (CFGBlock *bodyEnd : ends) {
    bodyEnd->addSuccessorBlock(end);
    bodyEnd->addThenBlock(end);
  }
}

//===----------------------------------------------------------------------===//
// ON SIZE ERROR
//===----------------------------------------------------------------------===//

void CFGBuilder::lowerSizeError(ArithmeticStatement *statement) {
  CFGBlock *start = appendTerminator(statement);
  // The join comes after the phrases in the list, so it is made without being appended yet.
  CFGBlock *join = new CFGBlock("tkdummy_end_on_size", nullptr);
  start->addEndBlock(join);
  if (!statement->getSizeErrorHandlerSize())
    start->addSuccessorBlock(join);
  for (ExceptionHandler *phrase : statement->getSizeErrorHandlerElements()) {
    const StatementList &statements = phrase->getImperStmtListElements();
    if (phrase->isNotOn())
      start->addNotOnSizeBlock(lowerBranch("tkdummy_not_on_size", statements));
    else
      start->addOnSizeBlock(lowerBranch("tkdummy_on_size", statements));
    currentBlock->addSuccessorBlock(join);
  }
  graph->addBlock(join);
  continueOn(join);
}

void CFGBuilder::analysisAddStmt(AddStatement *statement) {
  lowerSizeError(statement);
}

void CFGBuilder::analysisComputeStmt(ComputeStatement *statement) {
  lowerSizeError(statement);
}

void CFGBuilder::analysisDivideStmt(DivideStatement *statement) {
  lowerSizeError(statement);
}

void CFGBuilder::analysisMultiplyStmt(MultiplyStatement *statement) {
  lowerSizeError(statement);
}

void CFGBuilder::analysisSubtractStmt(SubtractStatement *statement) {
  lowerSizeError(statement);
}

//===----------------------------------------------------------------------===//
// Phrases that are the then and the else of their statement
//===----------------------------------------------------------------------===//

/// Lowers one phrase into the then branch of \p start, or its NOT form into the else branch, and
/// adds the block in which the phrase ends to \p ends.
void CFGBuilder::lowerPhrase(CFGBlock *start, ExceptionHandler *phrase, bool isNot,
                             const BranchNames &names, BlockList &ends) {
  const StatementList &statements = phrase->getImperStmtListElements();
  if (isNot)
    start->addElseBlock(lowerBranch(names.notException, statements));
  else
    start->addThenBlock(lowerBranch(names.exception, statements));
  ends.push_back(currentBlock);
}

void CFGBuilder::lowerOverflow(Statement *statement, const HandlerList &phrases) {
  if (phrases.empty()) {
    currentBlock->addCFGElemStmt(statement);
    return;
  }
  static constexpr BranchNames names = {"tkdummy_overflow", "tkdummy_not_overflow"};
  CFGBlock *start = appendTerminator(statement);
  BlockList ends;
  ExceptionHandler *first = phrases.front();
  lowerPhrase(start, first, first->isNotOn(), names, ends);
  // The second of two phrases counts as the NOT form whichever it is: the code
  // generator expects the order in which the language defines them.
  if (phrases.size() == 2)
    lowerPhrase(start, phrases.back(), /*isNot=*/true, names, ends);
  joinAt("tkdummy_end", start, ends);
}

void CFGBuilder::analysisStringStmt(StringStatement *statement) {
  lowerOverflow(statement, statement->getOverflowHandlerElements());
}

void CFGBuilder::analysisUnstringStmt(UnstringStatement *statement) {
  lowerOverflow(statement, statement->getOverflowHandlerElements());
}

//===----------------------------------------------------------------------===//
// Input and output
//===----------------------------------------------------------------------===//

/// How one input-output statement differs from the others.
struct CFGBuilder::InputOutputShape {
  BranchNames branches;
  llvm::StringLiteral end;
  /// Whether INVALID KEY is the only phrase that the statement can have.
  bool invalidKeyOnly;
};

void CFGBuilder::lowerInputOutput(FileStatement *statement, const HandlerList &phrases,
                                  const InputOutputShape &shape) {
  if (phrases.empty() && !statement->getIsDeclaratives()) {
    currentBlock->addCFGElemStmt(statement);
    return;
  }
  CFGBlock *start = appendTerminator(statement);
  if (phrases.empty()) {
    // A USE procedure may run: it is entered from S and returns after it.
    CFGBlock *after = new CFGBlock("tkdummy_declarative_after", graph);
    start->addAfterBlock(after);
    start->addReturnBlock(after);
    start->addSuccessorBlock(after);
    graph->addBlock(after);
    continueOn(after);
    return;
  }

  BlockList ends;
  for (ExceptionHandler *phrase : phrases) {
    if (shape.invalidKeyOnly && phrase->getType() != ExceptionHandlerType::InvalidKey)
      assert(0 && "not allow");
    lowerPhrase(start, phrase, phrase->isNotOn(), shape.branches, ends);
  }
  joinAt(shape.end, start, ends);
}

void CFGBuilder::analysisReadStmt(ReadStatement *statement) {
  static constexpr InputOutputShape shape = {
      {"tkdummy_read_exception", "tkdummy_read_notexception"}, "tkdummy_read_end", false};
  lowerInputOutput(statement, statement->getErrorListElements(), shape);
}

void CFGBuilder::analysisReturnStmt(ReturnStatement *statement) {
  static constexpr InputOutputShape shape = {
      {"tkdummy_return_exception", "tkdummy_return_notexception"}, "tkdummy_return_end", false};
  lowerInputOutput(statement, statement->getEndHandlerElements(), shape);
}

void CFGBuilder::analysisWriteStmt(WriteStatement *statement) {
  static constexpr InputOutputShape shape = {
      {"tkdummy_write_exception", "tkdummy_write_notexception"}, "tkdummy_write_end", false};
  lowerInputOutput(statement, statement->getExceptionHandlerListElements(), shape);
}

void CFGBuilder::analysisStartStmt(StartStatement *statement) {
  static constexpr InputOutputShape shape = {
      {"tkdummy_start_exception", "tkdummy_start_notexception"}, "tkdummy_start_end", true};
  lowerInputOutput(statement, statement->getInvalidKeyHandlerElements(), shape);
}

void CFGBuilder::analysisRewriteStmt(RewriteStatement *statement) {
  static constexpr InputOutputShape shape = {
      {"tkdummy_rewrite_exception", "tkdummy_rewrite_notexception"}, "tkdummy_rewrite_end", true};
  lowerInputOutput(statement, statement->getInvalidKeyHandlerElements(), shape);
}

void CFGBuilder::analysisDeleteStmt(DeleteStatement *statement) {
  // Both branches have one name: the code generator distinguishes them by then and else.
  static constexpr InputOutputShape shape = {
      {"tkdummy_delete_exception", "tkdummy_delete_exception"}, "tkdummy_delete_end", true};
  lowerInputOutput(statement, statement->getInvalidKeyHandlerElements(), shape);
}

//===----------------------------------------------------------------------===//
// XML GENERATE
//===----------------------------------------------------------------------===//

void CFGBuilder::analysisXmlGenerateStmt(XMLGenerateStatement *statement) {
  static constexpr BranchNames names = {"tkdummy_xml_on_exception", "tkdummy_xml_on_not_exception"};
  CFGBlock *start = appendTerminator(statement);
  BlockList ends;
  for (ExceptionHandler *phrase : statement->getOnExcpHandlerElements())
    if (phrase->getType() == ExceptionHandlerType::OnException)
      lowerPhrase(start, phrase, phrase->isNotOn(), names, ends);
  if (ends.empty())
    ends.push_back(start);
  joinAt("tkdummy_xml_generate_end", start, ends);
}

//===----------------------------------------------------------------------===//
// JSON and INVOKE
//===----------------------------------------------------------------------===//

/// ON EXCEPTION is the then branch, NOT ON EXCEPTION the else branch.
void CFGBuilder::lowerException(OperandStatement *statement) {
  if (statement->getExceptHandlerSize() == 0) {
    currentBlock->addCFGElemStmt(statement);
    return;
  }
  static constexpr BranchNames names = {"tkdummy_on_exception", "tkdummy_on_not_exception"};
  CFGBlock *start = appendTerminator(statement);
  BlockList ends;
  for (ExceptionHandler *phrase : statement->getExceptHandlerElements())
    lowerPhrase(start, phrase, phrase->isNotOn(), names, ends);
  joinAt("tkdummy_exception_end", start, ends);
}

void CFGBuilder::analysisJsonGenerateStmt(JsonGenerateStatement *statement) {
  lowerException(statement);
}

void CFGBuilder::analysisJsonParseStmt(JsonParseStatement *statement) {
  lowerException(statement);
}

void CFGBuilder::analysisInvokeStmt(InvokeStatement *statement) {
  lowerException(statement);
}

//===----------------------------------------------------------------------===//
// CALL
//===----------------------------------------------------------------------===//

/// ON EXCEPTION, and ON OVERFLOW, which is an older way to write it.
static bool isCallException(const ExceptionHandler *phrase) {
  return phrase->getType() == ExceptionHandlerType::Overflow ||
         (phrase->getType() == ExceptionHandlerType::OnException && !phrase->isNotOn());
}

/// Lowers the phrases of a CALL: ON EXCEPTION follows \p notFound, NOT ON EXCEPTION every block of
/// \p found. Adds to \p ends what leads to the end of the CALL.
void CFGBuilder::lowerCallPhrases(CallStatement *statement, CFGBlock *notFound,
                                  llvm::ArrayRef<CFGBlock *> found, BlockList &ends) {
  bool hasException = false, hasNotException = false;
  for (ExceptionHandler *phrase : statement->getExceptHandlerElements()) {
    const StatementList &statements = phrase->getImperStmtListElements();
    if (isCallException(phrase)) {
      notFound->addSuccessorBlock(lowerBranch("tkdummy_call_exception", statements));
      hasException = true;
    } else if (phrase->getType() == ExceptionHandlerType::OnException) {
      CFGBlock *branch = lowerBranch("tkdummy_call_not_exception", statements);
      for (CFGBlock *block : found)
        block->addSuccessorBlock(branch);
      hasNotException = true;
    } else {
      assert(0 && "not allow");
      continue;
    }
    ends.push_back(currentBlock);
  }
  if (!hasException)
    ends.push_back(notFound);
  if (!hasNotException)
    ends.append(found.begin(), found.end());
}

/// One lookup of the program, whose name is known at run time only.
void CFGBuilder::lowerCallOfIdentifier(CallStatement *statement) {
  CFGBlock *start = appendTerminator(statement);
  CFGBlock *found = graph->createBlock("tkdummy_call_find");
  start->addThenBlock(found);
  CFGBlock *notFound = continueInNewBlock("tkdummy_call_find_not");
  start->addElseBlock(notFound);
  if (!statement->getExceptHandlerSize())
    notFound->setHaveTerminator(true);

  BlockList ends;
  lowerCallPhrases(statement, notFound, found, ends);
  joinAt("tkdummy_call_end", start, ends);
}

/// The program is looked up twice, in two places; the second lookup is made where the first one
/// found nothing.
void CFGBuilder::lowerCallOfLiteral(CallStatement *statement) {
  CompileOption *options = CompileOption::getCompileOptionInstance();
  const auto *program = llvm::cast<NonNumericLiteralExpression>(statement->getProcedureName());
  // The hook of the debugger always returns, so it splits nothing.
  if (options->isOptionDebug() &&
      llvm::StringRef(program->getData()).starts_with("TKDEBUG_START")) {
    currentBlock->addCFGElemStmt(statement);
    return;
  }
  if (Statement *move = statement->getMoveStmt()) {
    // Lowered twice when both interfaces are enabled: each has its own preparation.
    if (options->isOptionEnableCbltdli())
      analysisStatement(*move);
    if (options->isOptionEnableAertdli())
      analysisStatement(*move);
  }

  CFGBlock *start = appendTerminator(statement);
  CFGBlock *found = graph->createBlock("tkdummy_when_find");
  start->addThenBlock(found);
  CFGBlock *notFound = makeTerminatorBlock("tkdummy_not_find");
  start->addElseBlock(notFound);
  CFGBlock *found2 = graph->createBlock("tkdummy_when_2find");
  notFound->addThenBlock(found2);
  CFGBlock *notFound2 = continueInNewBlock("tkdummy_not_2find");
  notFound->addElseBlock(notFound2);
  if (!statement->getExceptHandlerSize())
    notFound2->setHaveTerminator(true);

  BlockList ends;
  lowerCallPhrases(statement, notFound2, {found2, found}, ends);
  joinAt("tkdummy_call_end", start, ends);
}

void CFGBuilder::analysisCallStmt(CallStatement *statement) {
  if (llvm::isa<NonNumericLiteralExpression>(statement->getProcedureName()))
    lowerCallOfLiteral(statement);
  else
    lowerCallOfIdentifier(statement);
}

} // namespace tarka
