//===- TarkaCFGPerform.cpp - loops and performed procedures ---------------===//
//
// The lowering of PERFORM and EXIT PERFORM, of SEARCH, and of SORT, MERGE and
// XML PARSE, whose procedures run as if a PERFORM named them.
//
// In the comments S is the block in which a statement began.
//
//===----------------------------------------------------------------------===//

#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CurrentUnit.h"
#include "llvm/ADT/Twine.h"
#include <cassert>
#include <iterator>

namespace tarka {

/// A name made from the line of a statement: two statements of one line have the same.
const std::string *CFGBuilder::makeLineName(llvm::StringRef prefix, const Node *statement,
                                            llvm::StringRef suffix) {
  return makeName(prefix + llvm::Twine(statement->getBeginLineNo()) + suffix);
}

/// Links \p start to the chain of blocks that a statement consists of. An inline PERFORM replaces
/// the successor of the first block of its body, so the chain hangs on a second link too.
static void leadInto(CFGBlock *start, CFGBlock *chain) {
  start->addSuccessorBlock(chain);
  start->addThenBlock(chain);
}

//===----------------------------------------------------------------------===//
// PERFORM
//===----------------------------------------------------------------------===//

/// The block to which the performed statements return: without a loop that is where control goes on
/// after the PERFORM, otherwise a block of its own, where the code generator controls the loop.
CFGBlock *CFGBuilder::makePerformReturn(PerformStatement *statement, CFGBlock *after) {
  switch (statement->getType()) {
  case PerformStmtType::Simple:
    return after;
  case PerformStmtType::Times:
  case PerformStmtType::Until:
  case PerformStmtType::Varying:
    return makeTerminatorBlock(makeLineName("tkdummy_perform_", statement, "_line_return"));
  }
  assert(0 && "Unreachable");
  return after;
}

void CFGBuilder::analysisPerformStmt(PerformStatement *statement) {
  CFGBlock *start = appendTerminator(statement);
  if (statement->getInlineStatementsSize())
    return lowerInlinePerform(statement, start);

  // The range stays where it is; its last procedure has the exit that leads back.
  CFGBlock *after = new CFGBlock(makeLineName("tkdummy_perform_", statement, "_line_after"), graph);
  start->addAfterBlock(after);
  start->addSuccessorBlock(after);
  start->addReturnBlock(makePerformReturn(statement, after));
  graph->addBlock(after);
  continueOn(after);
}

void CFGBuilder::lowerInlinePerform(PerformStatement *statement, CFGBlock *start) {
  CFGBlock *body = graph->createBlock("tkdummy_perform_inline");
  start->addInlineBlock(body);
  CFGBlock *after = new CFGBlock(makeLineName("tkdummy_perform_", statement, "_line_after"), graph);
  start->addAfterBlock(after);
  start->addReturnBlock(makePerformReturn(statement, after));

  context().addPerformAfter(after);
  performReturns.push_back(start->getReturnBlock());
  continueOn(body);
  lowerList(statement->getInlineStatementsElements());
  performReturns.pop_back();
  context().removePerformAfter();

  // The end of the body returns as the end of a performed range does.
  appendTerminator(generate<InnerExitStatement>(statement, nullptr, nullptr, statement));
  currentBlock->addSuccessorBlock(after);
  // The body's first block leads past the PERFORM too; this replaces its earlier successor.
  body->addSuccessorBlock(after);
  graph->addBlock(after);
  continueOn(after);
}

void CFGBuilder::analysisExitPerformStmt(ExitPerformStatement *statement) {
  appendTerminator(statement);
  // Outside of an inline PERFORM there is nothing to leave, and no block to record.
  if (!performReturns.empty())
    statement->setAfterBlock(statement->isCycle() ? performReturns.back()
                                                  : *std::prev(context().getPerformAfterEnd()));
  continueInNewBlock("tkdummy_after_exit_perform");
}

//===----------------------------------------------------------------------===//
// SORT and MERGE
//===----------------------------------------------------------------------===//

/// Performs \p procedure in the current block, on behalf of the statement at \p position.
void CFGBuilder::lowerSynthesisedPerform(Node *position, PerformProcedure *procedure) {
  analysisStatement(*generate<PerformStatement>(position, PerformStmtType::Simple, procedure,
                                                nullptr, nullptr, nullptr, nullptr, nullptr));
}

/// INPUT PROCEDURE or OUTPUT PROCEDURE.
void CFGBuilder::lowerProcedurePhrase(Node *position, SortIO *phrase) {
  auto *procedure = generate<PerformProcedure>(position, phrase->getFromProcedureName(),
                                               phrase->getToProcedureName());
  static_cast<ProcedureRange &>(*procedure) = phrase->getProcedures();
  lowerSynthesisedPerform(position, procedure);
}

static bool isProcedurePhrase(const SortIO *phrase) {
  return phrase && phrase->getType() == SortIOType::Procedure;
}

void CFGBuilder::analysisSortStmt(SortStatement *statement) {
  CFGBlock *start = appendTerminator(statement);

  CFGBlock *inputEnd = nullptr;
  if (isProcedurePhrase(statement->getInput())) {
    start->addThenBlock(continueInNewBlock("tkdummy_sort_input"));
    currentBlock->setRole(CFGBlockRole::SortInput);
    lowerProcedurePhrase(statement, statement->getInput());
    inputEnd = currentBlock;
  }
  CFGBlock *afterInput = continueOn(makeTerminatorBlock("tkdummy_sort_after_input"));
  if (inputEnd) {
    inputEnd->addSuccessorBlock(afterInput);
    inputEnd->addEndBlock(afterInput);
  }
  start->addElseBlock(afterInput);

  CFGBlock *outputEnd = nullptr;
  if (isProcedurePhrase(statement->getOutput())) {
    afterInput->addThenBlock(continueInNewBlock("tkdummy_sort_output"));
    lowerProcedurePhrase(statement, statement->getOutput());
    outputEnd = currentBlock;
  }
  // The code generator knows the block by this name, although it comes after the output.
  CFGBlock *sort = makeTerminatorBlock("tkdummy_sort_start");
  sort->setRole(CFGBlockRole::LastPhase);
  if (outputEnd)
    outputEnd->addSuccessorBlock(sort);
  else
    afterInput->addThenBlock(sort);
  afterInput->addElseBlock(sort);

  CFGBlock *end = continueInNewBlock("tkdummy_endsort");
  start->addEndBlock(end);
  sort->addThenBlock(end);
}

void CFGBuilder::analysisMergeStmt(MergeStatement *statement) {
  CFGBlock *start = appendTerminator(statement);

  CFGBlock *outputEnd = nullptr;
  if (isProcedurePhrase(statement->getOutput())) {
    start->addThenBlock(continueInNewBlock("tkdummy_merge_then"));
    lowerProcedurePhrase(statement, statement->getOutput());
    outputEnd = currentBlock;
  }
  CFGBlock *merge = makeTerminatorBlock("tkdummy_merge_start");
  merge->setRole(CFGBlockRole::LastPhase);
  if (outputEnd)
    outputEnd->addSuccessorBlock(merge);
  else
    start->addThenBlock(merge);
  start->addElseBlock(merge);

  CFGBlock *end = continueInNewBlock("tkdummy_endmerge");
  merge->addThenBlock(end);
  start->addEndBlock(end);
}

//===----------------------------------------------------------------------===//
// XML PARSE
//===----------------------------------------------------------------------===//

/// A loop over the events of the document: the parser delivers one, the processing procedure is
/// performed for it, the result decides whether the parser goes on. After the loop the exception
/// condition selects a phrase.
void CFGBuilder::analysisXmlParseStmt(XMLParseStatement *statement) {
  CFGBlock *start = appendTerminator(statement);
  CFGBlock *parser = makeTerminatorBlock("tkdummy_xml_parser");
  parser->setRole(CFGBlockRole::XmlParser);
  leadInto(start, parser);

  parser->addThenBlock(continueInNewBlock("tkdummy_xml_proc"));
  currentBlock->setRole(CFGBlockRole::XmlProcedure);
  auto *procedure = generate<PerformProcedure>(statement, statement->getParseProcedure(),
                                               statement->getThruProcedure());
  static_cast<ProcedureRange &>(*procedure) = *statement;
  lowerSynthesisedPerform(statement, procedure);
  CFGBlock *performed = currentBlock;
  CFGBlock *afterProcedure = continueInNewBlock("tkdummy_xml_proc_after");
  performed->addSuccessorBlock(afterProcedure);

  // The code generator expects this spelling of the first part of the name.
  CFGBlock *result = makeTerminatorBlock("tarkka_xml_parse_result_cond");
  result->setRole(CFGBlockRole::XmlResult);
  afterProcedure->addSuccessorBlock(result);
  CFGBlock *exception =
      makeTerminatorBlock(makeLineName("tkdummy_", statement, "_line_xml_exception_cond"));
  exception->setRole(CFGBlockRole::XmlException);
  parser->addElseBlock(exception);
  result->addThenBlock(parser);
  result->addElseBlock(exception);

  static constexpr BranchNames names = {"tkdummy_xml_parse_on_exception",
                                        "tkdummy_xml_parse_on_not_exception"};
  BlockList ends;
  for (ExceptionHandler *phrase : statement->getOnExcpHandlerElements())
    if (phrase->getType() == ExceptionHandlerType::OnException)
      lowerPhrase(exception, phrase, phrase->isNotOn(), names, ends);
  joinAt("tkdummy_xml_parse_end", start, ends);

  // Without the phrase that the condition selects, control goes on after the statement.
  CFGBlock *end = currentBlock;
  exception->addEndBlock(end);
  if (!exception->getThenBlock())
    exception->addThenBlock(end);
  if (!exception->getElseBlock())
    exception->addElseBlock(end);
}

//===----------------------------------------------------------------------===//
// SEARCH
//===----------------------------------------------------------------------===//

void CFGBuilder::analysisSearchStmt(SearchStatement *statement) {
  if (statement->getType() == SearchType::Binary)
    lowerBinarySearch(statement);
  else
    lowerSerialSearch(statement);
}

/// Lowers the chain of WHEN tests with their bodies. The else branch of the last test is left to
/// the caller, and so is the way to the first one.
void CFGBuilder::lowerSearchWhens(SearchStatement *statement, BlockList &tests, BlockList &ends) {
  for (SearchWhen *when : statement->getWhenListElements()) {
    CFGBlock *test = continueInNewBlock("tkdummy_search_when_cond");
    appendTerminator(generate<InnerSearchWhenStatement>(statement, when->getCondition(),
                                                        when->getStatementList()));
    if (!tests.empty())
      tests.back()->addElseBlock(test);
    tests.push_back(test);
    test->addThenBlock(lowerBranch("tkdummy_search_when_body", when->getStatementListElements()));
    ends.push_back(currentBlock);
  }
  assert(!tests.empty() && "SEARCH has at least one WHEN phrase");
}

/// AT END, entered from \p compare when the table is exhausted, and the end of the statement.
void CFGBuilder::lowerSearchEnd(SearchStatement *statement, CFGBlock *start, CFGBlock *compare,
                                const BlockList &tests, BlockList &ends) {
  if (statement->getAtHandlerSize()) {
    compare->addElseBlock(continueInNewBlock("tkdummy_search_at_end"));
    for (ExceptionHandler *phrase : statement->getAtHandlerElements())
      lowerList(phrase->getImperStmtListElements());
    ends.push_back(currentBlock);
  }
  joinAt("tkdummy_search_end", start, ends);
  CFGBlock *end = currentBlock;
  if (!statement->getAtHandlerSize())
    compare->addElseBlock(end);
  for (CFGBlock *test : tests)
    test->addEndBlock(end);
}

/// The table is walked from the index on: compare the index with the size of the table, try the
/// conditions in order, step the index.
void CFGBuilder::lowerSerialSearch(SearchStatement *statement) {
  CFGBlock *start = appendTerminator(statement);
  CFGBlock *compare = makeTerminatorBlock("tkdummy_search_index_cmp");
  leadInto(start, compare);

  BlockList tests, ends;
  lowerSearchWhens(statement, tests, ends);
  compare->addThenBlock(tests.front());

  CFGBlock *step = graph->createBlock("tkdummy_index_inc");
  statement->setIndexChangeBlock(step);
  tests.back()->addElseBlock(step);
  step->addSuccessorBlock(compare);

  lowerSearchEnd(statement, start, compare, tests, ends);
}

/// The table is halved: while the bounds have not met, set the index to their middle and test it;
/// where the entry is not the one sought, move the upper or the lower bound.
void CFGBuilder::lowerBinarySearch(SearchStatement *statement) {
  CFGBlock *start = appendTerminator(statement);
  CFGBlock *compare = makeTerminatorBlock("tkdummy_search_loop_cmp");
  leadInto(start, compare);
  CFGBlock *middle = graph->createBlock("tkdummy_search_mid_index");
  statement->setIndexChangeBlock(middle);
  compare->addThenBlock(middle);

  BlockList tests, ends;
  lowerSearchWhens(statement, tests, ends);
  middle->addSuccessorBlock(tests.front());

  CFGBlock *greater = makeTerminatorBlock("tkdummy_gt_cond");
  tests.back()->addElseBlock(greater);
  CFGBlock *decrease = graph->createBlock("tkdummy_max_index_decrease");
  CFGBlock *increase = graph->createBlock("tkdummy_min_index_increase");
  greater->addThenBlock(decrease);
  greater->addElseBlock(increase);
  decrease->addSuccessorBlock(compare);
  increase->addSuccessorBlock(compare);

  lowerSearchEnd(statement, start, compare, tests, ends);
}

} // namespace tarka
