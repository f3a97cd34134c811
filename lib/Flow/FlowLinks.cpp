//===- FlowLinks.cpp - the edges between statements ------------------------===//
//
// Reads the links of the blocks. What a link means depends on the statement in
// which its block ends; where the links say less than the language does, the
// statement in the tree decides.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/NestedStatements.h"
#include "Flow/FlowBuilder.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Where a block leads
//===----------------------------------------------------------------------===//

/// Where control goes that falls off \p block, the last one of a chain: a node, or a block that is
/// left in \p next.
std::uint32_t FlowBuilder::fallOf(const FunctionPlan &of, const CFGBlock *block,
                                  const CFGBlock *&next) const {
  const auto place = static_cast<std::size_t>(block->getPlace());
  const CFGBlock *following = place + 1 < of.blocks.size() ? of.blocks[place + 1] : nullptr;
  const std::uint32_t piece = of.pieceOfBlock[place];
  const std::uint32_t procedure = pieces[piece].procedure;
  const std::uint32_t followingPiece = following ? of.pieceOfBlock[place + 1] : noFlow;
  if (following && followingPiece == piece) {
    next = following;
    return noFlow;
  }
  if (procedure == noFlow) {
    next = following;
    return following || of.graph->report ? noFlow : of.graph->nodeEnd - 1;
  }
  // The sentences in front of the first paragraph of a section go on in that paragraph.
  if (flow.procedureList[procedure].section && following) {
    const std::uint32_t after = pieces[followingPiece].procedure;
    if (after != noFlow && flow.procedureList[after].parent == procedure) {
      next = following;
      return noFlow;
    }
  }
  return flow.procedureList[procedure].end;
}

/// The node that control comes to when it enters \p block: that of its first statement, or the one
/// that a chain of empty blocks leads to. noFlow where it leads nowhere.
std::uint32_t FlowBuilder::resolve(const CFGBlock *block) {
  llvm::SmallVector<std::size_t, 8> passed;
  std::uint32_t node = noFlow;
  while (block) {
    const auto place = static_cast<std::size_t>(block->getPlace());
    node = plan->firstNode[place] != noFlow ? plan->firstNode[place] : plan->resolved[place];
    if (node != noFlow || passed.size() > plan->blocks.size())
      break;
    passed.push_back(place);
    const CFGBlock *next = nullptr;
    const Statement *statement =
        block->getElements().empty() ? nullptr : block->getElements().back()->getStmt();
    if (auto *exit = llvm::dyn_cast_or_null<InnerExitStatement>(statement)) {
      if (const PerformStatement *perform = exit->getPerformStmt())
        next = returnOfPerform.lookup(perform);
      else
        node = endOf(exit->getSection(), exit->getParagraph());
    } else if (block->getHaveTerminator() && block->getThenBlock()) {
      next = block->getThenBlock();
    } else if (const CFGBlock *entry = block->getHaveTerminator() ? nullptr : entryBehind(block)) {
      next = entry;
    } else if (block->getSuccessorBlock()) {
      next = block->getSuccessorBlock();
    } else if (!block->getHaveTerminator()) {
      node = fall(block, next);
    }
    if (node != noFlow)
      break;
    plan->passesTo[place] = next;
    block = next;
  }
  for (std::size_t place : passed)
    plan->resolved[place] = node;
  return node;
}

/// The block that was made after \p block for the statements after it. Where a body begins, the
/// block at which the loop is controlled stands in between.
const CFGBlock *FlowBuilder::following(const CFGBlock *block) const {
  auto place = static_cast<std::size_t>(block->getPlace()) + 1;
  if (place < plan->blocks.size() && loopOfBlock.contains(plan->blocks[place]))
    ++place;
  return place < plan->blocks.size() ? plan->blocks[place] : nullptr;
}

/// The block of an ENTRY that stands directly after \p block; null without one. In the first block
/// of an inline PERFORM the successor that led to it is replaced.
const CFGBlock *FlowBuilder::entryBehind(const CFGBlock *block) const {
  const CFGBlock *behind = following(block);
  const std::uint32_t first =
      behind ? plan->firstNode[static_cast<std::size_t>(behind->getPlace())] : noFlow;
  return first != noFlow && flow.nodeList[first].getKind() == FlowNodeKind::Entry ? behind
                                                                                  : nullptr;
}

/// Where control continues after the last statement of \p block, which ends in no transfer.
std::uint32_t FlowBuilder::wayOn(std::uint32_t node, const CFGBlock *block) {
  if (const CFGBlock *entry = entryBehind(block))
    return resolve(entry);
  const CFGBlock *next = block->getSuccessorBlock();
  const std::uint32_t end = next ? noFlow : fall(block, next);
  if (!next)
    return end;
  plan->edgesInto.push_back({node, next});
  return resolve(next);
}

//===----------------------------------------------------------------------===//
// Functions and blocks
//===----------------------------------------------------------------------===//

void FlowBuilder::makeEdges(FunctionPlan &linked) {
  plan = &linked;
  plan->resolved.assign(plan->blocks.size(), noFlow);
  plan->passesTo.assign(plan->blocks.size(), nullptr);
  const std::size_t number = linkedFunctions++;
  handlers = std::move(handlersOf[number]);

  if (!plan->graph->report)
    link(plan->graph->nodeBegin, plan->blocks.front(), FlowEdgeKind::Next);
  for (const CFGEntry *entry : plan->graph->function->getEntryList())
    link(plan->graph->nodeBegin, entry->getEntryBlock(), FlowEdgeKind::Entry);
  for (const CFGBlock *block : plan->blocks)
    linkBlock(block);

  // What follows the end of a procedure.
  for (const auto &[procedure, block] : closedByOf[number]) {
    FlowProcedure &closed = flow.procedureList[procedure];
    if (block)
      plan->fallsInto.push_back({procedure, block});
    if (closed.fallsTo != noFlow)
      continue;
    if (closed.isDeclarative) {
      // The last section of the declaratives does not run into the main line.
      const bool isMore =
          block &&
          pieces[plan->pieceOfBlock[static_cast<std::size_t>(block->getPlace())]].procedure !=
              noFlow;
      if (isMore)
        closed.fallsTo = resolve(block);
    } else {
      closed.fallsTo = block ? resolve(block) : exitNode();
    }
  }
}

void FlowBuilder::linkBlock(const CFGBlock *block) {
  std::uint32_t node = plan->firstNode[static_cast<std::size_t>(block->getPlace())];
  if (node == noFlow)
    return;
  // The nodes of a block are numbered in their order.
  const std::uint32_t last = plan->lastNode[static_cast<std::size_t>(block->getPlace())];
  const bool isTransfer = block->getHaveTerminator();
  for (; node < last; ++node) {
    const FlowNodeKind kind = flow.nodeList[node].kind;
    if (kind == FlowNodeKind::Procedure || kind == FlowNodeKind::Entry ||
        kind == FlowNodeKind::Evaluate)
      addEdge(node, node + 1, FlowEdgeKind::Next);
    else
      linkElement(node, node + 1);
  }
  const FlowNodeKind kind = flow.nodeList[last].kind;
  if (kind == FlowNodeKind::LoopTest)
    return linkLoopTest(block, last);
  if (kind == FlowNodeKind::Step && block->getElements().empty())
    return linkStep(block, last);
  if (kind == FlowNodeKind::Procedure || kind == FlowNodeKind::Entry)
    return addEdge(last, endsInExit(block) ? resolveExit(last, block) : wayOn(last, block),
                   FlowEdgeKind::Next);
  if (isTransfer && !endsInExit(block))
    return linkTerminator(block, last);
  linkElement(last, endsInExit(block) ? resolveExit(last, block) : wayOn(last, block));
}

/// Whether the end of an inline PERFORM's body, or of a procedure, is the last element of \p block.
bool FlowBuilder::endsInExit(const CFGBlock *block) {
  const Statement *statement =
      block->getElements().empty() ? nullptr : block->getElements().back()->getStmt();
  return statement && statement->getType() == StatementType::InnerExit;
}

std::uint32_t FlowBuilder::resolveExit(std::uint32_t node, const CFGBlock *block) {
  auto *exit = llvm::cast<InnerExitStatement>(block->getElements().back()->getStmt());
  if (const PerformStatement *perform = exit->getPerformStmt()) {
    plan->edgesInto.push_back({node, returnOfPerform.lookup(perform)});
    return resolve(returnOfPerform.lookup(perform));
  }
  return endOf(exit->getSection(), exit->getParagraph());
}

/// Stores in \p call the identifier that holds the name of what is called.
static void setIdentifier(FlowCall &call, const Expression &operand) {
  const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&operand);
  if (!identifier || !identifier->getQualifiedWord() ||
      identifier->getQualifiedWord()->getNamesElements().empty())
    return;
  call.name = identifier->getQualifiedWord()->getNamesElements().front()->getDisplayName();
  if (!identifier->getReferenceMod() && !identifier->getSubscriptMod())
    call.item = identifier->getDataDescription();
}

//===----------------------------------------------------------------------===//
// Statements that stand among others
//===----------------------------------------------------------------------===//

/// A statement that does not end its block; control goes on at \p next.
void FlowBuilder::linkElement(std::uint32_t node, std::uint32_t next) {
  const Statement &statement = *flow.nodeList[node].statement;
  switch (statement.getType()) {
  case StatementType::Stop:
    if (llvm::cast<StopStatement>(statement).getType() == StopType::Run)
      return addEdge(node, exitNode(), FlowEdgeKind::EndOfRun);
    return addEdge(node, next, FlowEdgeKind::Next);
  case StatementType::NextSentence:
    // Its block stays the current one, so that more may follow it.
    return linkNextSentence(node, llvm::cast<NextSentenceStatement>(statement));
  case StatementType::Exec:
    return linkExec(node, llvm::cast<ExecStatement>(statement), next);
  case StatementType::RwGenerate:
  case StatementType::RwTerminate:
  case StatementType::RwInitiate:
    addEdge(node, next, FlowEdgeKind::Next);
    return linkReports(node, next);
  case StatementType::Set:
    // A procedure pointer may be called later.
    plan->hasDynamicCall = true;
    return addEdge(node, next, FlowEdgeKind::Next);
  default:
    addEdge(node, next, FlowEdgeKind::Next);
    linkUse(node, statement, next);
  }
}

void FlowBuilder::linkNextSentence(std::uint32_t node, const NextSentenceStatement &statement) {
  if (const CFGBlock *sentence = statement.getSentenceBlock())
    link(node, sentence->getNextBlock(), FlowEdgeKind::Next);
}

void FlowBuilder::linkExec(std::uint32_t node, const ExecStatement &exec, std::uint32_t next) {
  const ExecFlow effect = classifyExec(exec);
  if (effect.goesOn || (activeHandlers && activeHandlers->ignoring.contains(&exec)))
    addEdge(node, next, FlowEdgeKind::Next);
  if (effect.endsTask)
    addEdge(node, exitNode(), FlowEdgeKind::EndOfRun);
  for (std::uint32_t handler : handlersAt(exec, effect))
    addEdge(node, handler, FlowEdgeKind::Handler);
  if (effect.callee)
    noteCall(node, *effect.callee, effect.callKind);
  llvm::SmallVector<std::uint32_t, 3> labels;
  for (const EmbeddedOperand *label : effect.wheneverLabels)
    if (const std::uint32_t procedure = findProcedure(*plan->graph, *label);
        procedure != noFlow && !llvm::is_contained(labels, procedure)) {
      labels.push_back(procedure);
      addEdge(node, flow.procedureList[procedure].entry, FlowEdgeKind::Handler);
    }
}

/// Notes that \p callee is called, or run as a transaction. What CICS links to is a program of its
/// own, so that control simply goes on.
void FlowBuilder::noteCall(std::uint32_t node, const Expression &callee, FlowCallKind kind) {
  FlowCall call;
  call.node = node;
  call.kind = kind;
  if (const auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(&callee)) {
    call.name = llvm::StringRef(literal->getData()).trim();
    const FunctionPlan *program =
        call.isOfTransaction() ? nullptr : findCallable(nullptr, call.name);
    call.target = program ? program->graph : nullptr;
  } else {
    call.isDynamic = true;
    setIdentifier(call, callee);
  }
  flow.callList.push_back(call);
}

/// The files that \p statement works on.
static llvm::SmallVector<const FileDescription *, 2> filesOf(const Statement &statement) {
  llvm::SmallVector<const FileDescription *, 2> files;
  auto add = [&](const FileIdentifierExpression *name) {
    if (name && name->getFileDescription() &&
        !llvm::is_contained(files, name->getFileDescription()))
      files.push_back(name->getFileDescription());
  };
  auto addRecord = [&](const IdentifierExpression *record) {
    const DataDescription *entry = record ? record->getDataDescription() : nullptr;
    if (entry && entry->getFileDescription())
      files.push_back(entry->getFileDescription());
  };
  switch (statement.getType()) {
  case StatementType::Open:
    for (const OpenItem *item : llvm::cast<OpenStatement>(statement).getItemListElements())
      for (const OpenFile *file : item->getFileListElements())
        add(file->getFileName());
    break;
  case StatementType::Close:
    for (const CloseFile *file : llvm::cast<CloseStatement>(statement).getCloseFileListElements())
      add(file->getFileName());
    break;
  case StatementType::Read:
    add(llvm::cast<ReadStatement>(statement).getFileName());
    break;
  case StatementType::Delete:
    add(llvm::cast<DeleteStatement>(statement).getFileName());
    break;
  case StatementType::Start:
    add(llvm::cast<StartStatement>(statement).getFileName());
    break;
  case StatementType::Write:
    addRecord(llvm::cast<WriteStatement>(statement).getRecordName());
    break;
  case StatementType::Rewrite:
    addRecord(llvm::cast<RewriteStatement>(statement).getRecordName());
    break;
  default:
    break;
  }
  return files;
}

/// The files of USING, or those of GIVING, of SORT and MERGE.
static llvm::SmallVector<const FileDescription *, 2> sortFilesOf(const Statement &statement,
                                                                 bool isOutput) {
  const SortIO *phrase;
  if (const auto *sort = llvm::dyn_cast<SortStatement>(&statement))
    phrase = isOutput ? sort->getOutput() : sort->getInput();
  else
    phrase = isOutput ? llvm::cast<MergeStatement>(statement).getOutput()
                      : llvm::cast<MergeStatement>(statement).getInput();
  llvm::SmallVector<const FileDescription *, 2> files;
  if (phrase && phrase->getType() == SortIOType::Files)
    for (const FileIdentifierExpression *name : phrase->getFileNameListElements())
      if (name->getFileDescription())
        files.push_back(name->getFileDescription());
  return files;
}

/// The ways into the USE procedures of the files of \p statement, and back to \p next.
void FlowBuilder::linkUse(std::uint32_t node, const Statement &statement, std::uint32_t next) {
  linkUse(node, filesOf(statement), next);
}

void FlowBuilder::linkUse(std::uint32_t node, llvm::ArrayRef<const FileDescription *> files,
                          std::uint32_t next) {
  llvm::SmallVector<std::uint32_t, 4> sections;
  for (const FileDescription *file : files) {
    bool isSpecific;
    for (std::uint32_t section : useSectionsFor(file, isSpecific))
      if (!llvm::is_contained(sections, section))
        sections.push_back(section);
  }
  for (std::uint32_t section : sections)
    addSite(node, rangeOf(section, section, flow.procedureList[section].graph), next,
            FlowEdgeKind::Declarative, FlowEdgeKind::DeclarativeEnd);
}

/// The report writer calls the declaratives of a report, and writes its file.
void FlowBuilder::linkReports(std::uint32_t node, std::uint32_t next) {
  auto enter = [&](llvm::ArrayRef<std::uint32_t> sections) {
    for (std::uint32_t section : sections)
      addSite(node, rangeOf(section, section, flow.procedureList[section].graph), next,
              FlowEdgeKind::Declarative, FlowEdgeKind::DeclarativeEnd);
  };
  if (plan->reportPlan)
    enter(plan->reportPlan->reporting);
  enter(plan->use.ofModes);
  for (const auto &[file, sections] : plan->use.ofFile)
    if (file->getReport())
      enter(sections);
}

//===----------------------------------------------------------------------===//
// Statements that end their block
//===----------------------------------------------------------------------===//

void FlowBuilder::linkTerminator(const CFGBlock *block, std::uint32_t node) {
  const Statement &statement = *flow.nodeList[node].statement;
  switch (statement.getType()) {
  case StatementType::If:
  case StatementType::On:
    link(node, block->getThenBlock(), FlowEdgeKind::True);
    return link(node, block->getElseBlock() ? block->getElseBlock() : block->getEndBlock(),
                FlowEdgeKind::False);
  case StatementType::InnerWhen:
    if (llvm::cast<InnerWhenStatement>(statement).getType() == EvalWhenType::Other)
      return link(node, block->getThenBlock(), FlowEdgeKind::Otherwise);
    [[fallthrough]];
  case StatementType::InnerSearchWhen:
    link(node, block->getThenBlock(), FlowEdgeKind::When);
    return link(node, block->getElseBlock(), FlowEdgeKind::False);
  case StatementType::Goto:
    return linkGoTo(block, node, llvm::cast<GotoStatement>(statement));
  case StatementType::Goback:
    return addEdge(node, exitNode(), FlowEdgeKind::Leave);
  case StatementType::ExitProgram:
    return linkExitProgram(block, node);
  case StatementType::NextSentence:
    return linkNextSentence(node, llvm::cast<NextSentenceStatement>(statement));
  case StatementType::ExitParagraph:
  case StatementType::ExitSection:
    return link(node, block->getAfterBlock(), FlowEdgeKind::Next);
  case StatementType::ExitPerform:
    return link(node, llvm::cast<ExitPerformStatement>(statement).getAfterBlock(),
                FlowEdgeKind::Next);
  case StatementType::Perform: {
    auto &perform = llvm::cast<PerformStatement>(statement);
    if (perform.getInlineStatementsSize())
      return linkInlinePerform(block, node, perform);
    return linkPerform(block, node, perform);
  }
  case StatementType::Call:
    return linkCall(block, node, llvm::cast<CallStatement>(statement));
  case StatementType::Search:
  case StatementType::XmlParse:
    return link(node, block->getThenBlock(), FlowEdgeKind::Next);
  case StatementType::Sort:
  case StatementType::Merge: {
    const CFGBlock *first = block->getThenBlock() ? block->getThenBlock() : block->getElseBlock();
    link(node, first, FlowEdgeKind::Next);
    // The files of USING are read before the next phase begins. After a failure that a USE
    // procedure has dealt with, the sort goes on or is given up.
    const auto files = sortFilesOf(statement, /*isOutput=*/false);
    linkUse(node, files, resolve(first));
    if (resolve(first) != resolve(block->getEndBlock()))
      linkUse(node, files, resolve(block->getEndBlock()));
    return;
  }
  default:
    return linkPhrases(block, node, statement);
  }
}

/// A called program returns from EXIT PROGRAM; in the program that the run began with it does
/// nothing, and an outermost program may be either.
void FlowBuilder::linkExitProgram(const CFGBlock *block, std::uint32_t node) {
  addEdge(node, exitNode(), FlowEdgeKind::Leave);
  const SourceUnit *unit = plan->graph->unit;
  const CFGBlock *behind = following(block);
  if (unit && !unit->isNested() && behind)
    link(node, behind, FlowEdgeKind::Next);
}

void FlowBuilder::linkGoTo(const CFGBlock *block, std::uint32_t node, const GotoStatement &jump) {
  const FlowEdgeKind kind = jump.getDependingName() ? FlowEdgeKind::Depending : FlowEdgeKind::GoTo;
  for (const GotoProcedure *target : jump.getProcedureListElements())
    addEdge(node, entryOf(target->getSection(), target->getParagraph()), kind);
  if (jump.getDependingName()) {
    const CFGBlock *next = block->getEndBlock() ? block->getEndBlock() : block->getSuccessorBlock();
    return link(node, next, FlowEdgeKind::Next);
  }
  const std::uint32_t procedure = flow.nodeList[node].procedure;
  if (procedure == noFlow || !flow.procedureList[procedure].paragraph)
    return;
  alterable[flow.procedureList[procedure].paragraph] = node;
}

namespace {

/// How often the body of a PERFORM runs, as far as its text tells.
struct Repetition {
  bool maybeNever = false;
  bool maybeAgain = false;
};

Repetition repetitionOf(const PerformStatement &perform) {
  switch (perform.getType()) {
  case PerformStmtType::Simple:
    return {};
  case PerformStmtType::Times:
    if (auto *times = llvm::dyn_cast_or_null<NumericLiteralExpression>(perform.getTimesInteger()))
      return {times->getIntegerValue() < 1, times->getIntegerValue() > 1};
    return {true, true};
  case PerformStmtType::Until:
  case PerformStmtType::Varying: {
    // UNTIL EXIT has no condition.
    if (perform.getType() == PerformStmtType::Until && !perform.getUntilCondition())
      return {false, true};
    const PerformTest *test = perform.getPerformTest();
    return {!test || test->getType() == PerformTestType::Before, true};
  }
  }
  return {true, true};
}

} // namespace

void FlowBuilder::linkPerform(const CFGBlock *block, std::uint32_t node,
                              const PerformStatement &perform) {
  const CFGBlock *afterBlock = block->getAfterBlock();
  const std::uint32_t after = resolve(afterBlock);
  const PerformProcedure *names = perform.getProcedureName();
  const std::uint32_t begin =
      names ? procedureOf(names->getBeginSection(), names->getBeginParagraph()) : noFlow;
  std::uint32_t end =
      names ? procedureOf(names->getThruSection(), names->getThruParagraph()) : noFlow;
  if (end == noFlow)
    end = begin;
  // What the name stands for is not known: continue after the statement.
  if (begin == noFlow)
    return link(node, afterBlock, FlowEdgeKind::Next);

  FlowEdgeKind kind = FlowEdgeKind::Perform;
  if (flow.nodeList[node].kind == FlowNodeKind::Step)
    kind = block->getRole() == CFGBlockRole::SortInput      ? FlowEdgeKind::SortInput
           : block->getRole() == CFGBlockRole::XmlProcedure ? FlowEdgeKind::Perform
                                                            : FlowEdgeKind::SortOutput;
  const std::uint32_t range = rangeOf(begin, end, plan->graph);
  const Repetition repetition = repetitionOf(perform);
  if (perform.getType() == PerformStmtType::Simple)
    return addSite(node, range, after, kind, FlowEdgeKind::Return, afterBlock);

  const std::uint32_t test = resolve(block->getReturnBlock());
  addSite(node, range, test, kind, FlowEdgeKind::Return);
  if (repetition.maybeNever)
    link(node, block->getAfterBlock(), FlowEdgeKind::ZeroTimes);
  if (repetition.maybeAgain)
    addSite(test, range, test, FlowEdgeKind::Loop, FlowEdgeKind::Return);
  link(test, block->getAfterBlock(), FlowEdgeKind::LoopEnd);
}

void FlowBuilder::linkInlinePerform(const CFGBlock *block, std::uint32_t node,
                                    const PerformStatement &perform) {
  if (perform.getType() == PerformStmtType::Simple)
    return link(node, block->getInlineBlock(), FlowEdgeKind::Next);
  const std::uint32_t test = resolve(block->getReturnBlock());
  const Repetition repetition = repetitionOf(perform);
  link(node, block->getInlineBlock(), FlowEdgeKind::Loop);
  if (repetition.maybeNever)
    link(node, block->getAfterBlock(), FlowEdgeKind::ZeroTimes);
  if (repetition.maybeAgain)
    link(test, block->getInlineBlock(), FlowEdgeKind::Loop);
  link(test, block->getAfterBlock(), FlowEdgeKind::LoopEnd);
}

/// The test of a SEARCH: the table goes on, or it is exhausted. That of a PERFORM is linked with
/// the statement.
void FlowBuilder::linkLoopTest(const CFGBlock *block, std::uint32_t node) {
  if (flow.nodeList[node].statement->getType() != StatementType::Search)
    return;
  link(node, block->getThenBlock(), FlowEdgeKind::Loop);
  link(node, block->getElseBlock(), FlowEdgeKind::AtEnd);
}

/// A step that the language makes within a statement: the parser of XML PARSE and what is decided
/// after it, or the last phase of a sort, which writes its files.
void FlowBuilder::linkStep(const CFGBlock *block, std::uint32_t node) {
  const Statement &statement = *flow.nodeList[node].statement;
  if (statement.getType() != StatementType::XmlParse) {
    link(node, block->getThenBlock(), FlowEdgeKind::Next);
    return linkUse(node, sortFilesOf(statement, /*isOutput=*/true), resolve(block->getThenBlock()));
  }
  const CFGBlock *whenThen = block->getThenBlock(), *whenElse = block->getElseBlock();
  if (block->getRole() == CFGBlockRole::XmlParser) {
    link(node, whenThen, FlowEdgeKind::Loop);
    link(node, whenElse, FlowEdgeKind::LoopEnd);
  } else if (block->getRole() == CFGBlockRole::XmlResult) {
    link(node, whenThen, FlowEdgeKind::Next);
    link(node, whenElse, FlowEdgeKind::Exception);
  } else {
    link(node, whenThen, FlowEdgeKind::Exception);
    link(node, whenElse, FlowEdgeKind::Next);
  }
}

void FlowBuilder::linkCall(const CFGBlock *block, std::uint32_t node, const CallStatement &call) {
  bool hasException = false, hasNotException = false;
  for (const ExceptionHandler *phrase : call.getExceptHandlerElements())
    (phrase->isNotOn() ? hasNotException : hasException) = true;
  const CFGBlock *found = block->getThenBlock()->getSuccessorBlock();
  const auto *name = llvm::dyn_cast<NonNumericLiteralExpression>(call.getProcedureName());
  if (hasException || hasNotException) {
    const CFGBlock *notFound = block->getElseBlock();
    // A literal is looked for in a second place.
    if (notFound->getElseBlock())
      notFound = notFound->getElseBlock();
    link(node, notFound->getSuccessorBlock(), FlowEdgeKind::Exception);
  }

  FlowCall record;
  record.node = node;
  FunctionPlan *callee = nullptr;
  if (name) {
    record.name = name->getData();
    callee = findCallable(plan->graph->unit, record.name);
    record.target = callee ? callee->graph : nullptr;
  } else {
    record.isDynamic = true;
    plan->hasDynamicCall = true;
    setIdentifier(record, *call.getProcedureName());
  }
  flow.callList.push_back(record);
  if (callee)
    addSite(node, callee->mainRange, resolve(found), FlowEdgeKind::Call, FlowEdgeKind::Next, found);
  else
    link(node, found, FlowEdgeKind::Next);
}

namespace {

/// The phrases of a statement, and the exception that they are for.
struct Phrases {
  FlowEdgeKind kind = FlowEdgeKind::Exception;
  bool hasException = false;
  bool hasNot = false;
};

FlowEdgeKind edgeOf(ExceptionHandlerType phrase) {
  switch (phrase) {
  case ExceptionHandlerType::AtEnd:
    return FlowEdgeKind::AtEnd;
  case ExceptionHandlerType::SizeError:
    return FlowEdgeKind::SizeError;
  case ExceptionHandlerType::InvalidKey:
    return FlowEdgeKind::InvalidKey;
  case ExceptionHandlerType::Overflow:
    return FlowEdgeKind::Overflow;
  case ExceptionHandlerType::EndOfPage:
    return FlowEdgeKind::PageEnd;
  case ExceptionHandlerType::OnException:
    return FlowEdgeKind::Exception;
  }
  return FlowEdgeKind::Exception;
}

Phrases readPhrases(const Statement &statement) {
  // The second phrase of STRING and UNSTRING is the NOT form, whatever its flag says.
  const bool secondIsNot = llvm::isa<StringStatement, UnstringStatement>(statement);
  Phrases phrases;
  bool isSecond = false;
  for (const ExceptionHandler *handler : phrasesOf(statement)) {
    const bool isNot = handler->isNotOn() || (secondIsNot && isSecond);
    (isNot ? phrases.hasNot : phrases.hasException) = true;
    if (handler->getType() != ExceptionHandlerType::OnException)
      phrases.kind = edgeOf(handler->getType());
    isSecond = true;
  }
  return phrases;
}

} // namespace

/// A statement that may end in one of two ways, for each of which there may be a phrase.
void FlowBuilder::linkPhrases(const CFGBlock *block, std::uint32_t node,
                              const Statement &statement) {
  const Phrases phrases = readPhrases(statement);
  const CFGBlock *end = block->getEndBlock()     ? block->getEndBlock()
                        : block->getAfterBlock() ? block->getAfterBlock()
                                                 : block->getSuccessorBlock();
  const CFGBlock *onException =
      block->getOnSizeBlock() ? block->getOnSizeBlock() : block->getThenBlock();
  const CFGBlock *onNone =
      block->getNotOnSizeBlock() ? block->getNotOnSizeBlock() : block->getElseBlock();
  const std::uint32_t behind = resolve(end);
  if (phrases.hasException && onException)
    link(node, onException, phrases.kind);
  else if (phrases.hasNot)
    link(node, end, phrases.kind);
  link(node, phrases.hasNot && onNone ? onNone : end, FlowEdgeKind::Next);

  if (!llvm::isa<FileStatement>(statement) || statement.getType() == StatementType::Return)
    return;
  // A failure that none of the phrases is about takes neither.
  bool isSpecific = false;
  if (auto files = filesOf(statement); !files.empty())
    useSectionsFor(files.front(), isSpecific);
  if (phrases.hasException && phrases.hasNot && !isSpecific)
    link(node, end, FlowEdgeKind::Exception);
  linkUse(node, statement, behind);
}

} // namespace tarka
