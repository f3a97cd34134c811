//===- TarkaCFG.cpp - records of the graph, functions and procedures ------===//
//
// The records of the graph, and the part of the builder that lowers source
// units, declaratives, sections, paragraphs and sentences, hands statements to
// their handlers, and lowers the simple transfers of control.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/StatementVisitor.h"
#include "Analyzer/CFG.h"
#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CurrentUnit.h"
#include "llvm/ADT/Twine.h"
#include <cassert>
#include <iterator>
#include <type_traits>

namespace tarka {

//===----------------------------------------------------------------------===//
// Records
//===----------------------------------------------------------------------===//

void CFGBlock::addElement(CFGElem::ElemType type, DataDescription *data, FileDescription *file,
                          Statement *statement, ReportDescription *report) {
  elements.push_back(new CFGElem(type, data, file, statement, this, report));
}

void CFGBlock::addCFGElemStmt(Statement *statement) {
  addElement(CFGElem::ElemType::Statement, nullptr, nullptr, statement, nullptr);
}

void CFGBlock::addCFGElemDecl(DataDescription *data) {
  addElement(CFGElem::ElemType::DataDeclaration, data, nullptr, nullptr, nullptr);
}

void CFGBlock::addCFGElemFileDecl(FileDescription *file) {
  addElement(CFGElem::ElemType::FileDeclaration, nullptr, file, nullptr, nullptr);
}

void CFGBlock::addCFGElemReportDecl(ReportDescription *report) {
  addElement(CFGElem::ElemType::ReportDeclaration, nullptr, nullptr, nullptr, report);
}

CFGBlock *CFGGraph::createBlock(const std::string *name) {
  CFGBlock *block = new CFGBlock(name, this);
  addBlock(block);
  return block;
}

void CFGGraph::addBlock(CFGBlock *block) {
  block->graph = this;
  block->place = static_cast<int>(blocks.size());
  blocks.push_back(block);
}

CFGBlock *CFGGraph::findBlock(llvm::StringRef name) {
  // Enter the blocks that were made since the last lookup; of equal names the first one stays.
  auto unindexed = lastIndexed == blocks.end() ? blocks.begin() : std::next(lastIndexed);
  for (; unindexed != blocks.end(); ++unindexed) {
    firstOfName.try_emplace((*unindexed)->getName(), *unindexed);
    lastIndexed = unindexed;
  }
  return firstOfName.lookup(name);
}

//===----------------------------------------------------------------------===//
// What every lowering is made of
//===----------------------------------------------------------------------===//

CFGBlock *CFGBuilder::continueOn(CFGBlock *block) {
  currentBlock = block;
  return block;
}

CFGBlock *CFGBuilder::continueInNewBlock(llvm::StringRef name) {
  return continueOn(graph->createBlock(name));
}

/// A composed name lives in the arena: it is hardly ever made twice, so looking
/// for an equal one would not pay.
const std::string *CFGBuilder::makeName(const llvm::Twine &name) {
  return new (allocateForever(sizeof(std::string))) std::string(name.str());
}

/// Appends \p statement, which ends its block; gives that block.
CFGBlock *CFGBuilder::appendTerminator(Statement *statement) {
  currentBlock->addCFGElemStmt(statement);
  currentBlock->setHaveTerminator(true);
  return currentBlock;
}

CFGBlock *CFGBuilder::makeTerminatorBlock(const std::string *name) {
  CFGBlock *block = graph->createBlock(name);
  block->setHaveTerminator(true);
  return block;
}

void CFGBuilder::lowerList(const StatementList &statements) {
  for (Statement *statement : statements)
    analysisStatement(*statement);
}

/// Lowers \p statements from a new block on, which it gives; the last block is the current one.
CFGBlock *CFGBuilder::lowerBranch(llvm::StringRef name, const StatementList &statements) {
  CFGBlock *first = continueInNewBlock(name);
  lowerList(statements);
  return first;
}

/// Ends a statement that began in \p start in a new block, to which all \p ends lead.
void CFGBuilder::joinAt(llvm::StringRef name, CFGBlock *start, const BlockList &ends) {
  CFGBlock *join = continueInNewBlock(name);
  start->addEndBlock(join);
  for (CFGBlock *end : ends)
    end->addSuccessorBlock(join);
}

//===----------------------------------------------------------------------===//
// Module and functions
//===----------------------------------------------------------------------===//

CFGModule *CFGBuilder::createModule(Program &program) {
  module = new CFGModule(program.getInputName());
  lowerSourceUnits(program.getSourceUnitListElements());
  return module;
}

void CFGBuilder::lowerSourceUnits(const NodeList<SourceUnit> &units) {
  for (SourceUnit *unit : units) {
    analysisSourceUnit(*unit);
    lowerSourceUnits(unit->getNestedListElements());
  }
}

void CFGBuilder::analysisSourceUnit(SourceUnit &unit) {
  CFGFunc *function = new CFGFunc(withoutQuotes(unit.getSourceUnitName()).str(), module, nullptr);
  function->setSourceUnit(&unit);
  context().setCurrentCFGFunction(function);
  function->setBody(createCFG(function, unit));
  module->addFunc(function);
}

CFGGraph *CFGBuilder::createCFG(CFGFunc *function, SourceUnit &unit) {
  graph = new CFGGraph;
  continueInNewBlock("entry");
  if (DataDivision *data = unit.getDataDivision())
    analysisDecl(*data);
  ProcedureDivision *division = unit.getProcDivision();
  if (!division)
    return graph;

  function->insertParams(division->getParameterBegin(), division->getParameterEnd());
  if (Returning *returning = division->getReturning())
    function->setReturning(returning);
  if (division->getDeclSize()) {
    if (division->getRptDeclSize())
      analysisRptDeclaratives(division);
    if (division->getBaseDeclSize())
      analysisBaseDeclaratives(division);
  }

  // The blocks of the procedures are not linked: each falls through to the next.
  if (division->getSentSize()) {
    continueInNewBlock("tkdummy_unnamed_sentence")->setRole(CFGBlockRole::Frame);
    lowerSentences(division->getSentElements());
  }
  lowerParagraphs(division->getParaElements());
  joinExits(sectionExits, "tkdummy_end_section");
  for (Section *section : division->getSectElements()) {
    startProcedure(section->getSectionName(), *section, CFGBlockType::Procedure);
    analysisSection(*section);
  }
  return graph;
}

bool CFGBuilder::analysisDecl(DataDivision &division) {
  module->insertGlobalVar(division.getWorkSectionBegin(), division.getWorkSectionEnd());
  for (DataDescription *entry : division.getLocalSectionElements())
    currentBlock->addCFGElemDecl(entry);
  for (DataDescription *entry : division.getLinkSectionElements())
    currentBlock->addCFGElemDecl(entry);
  for (FileDescription *file : division.getFileSectionElements())
    currentBlock->addCFGElemFileDecl(file);
  for (ReportDescription *report : division.getReportSectionElements())
    currentBlock->addCFGElemReportDecl(report);
  return true;
}

//===----------------------------------------------------------------------===//
// Declaratives
//===----------------------------------------------------------------------===//

void CFGBuilder::analysisRptDeclaratives(ProcedureDivision *division) {
  CFGFunc *savedFunction = context().getCurrentCFGFunction();
  CFGGraph *savedGraph = graph;
  CFGBlock *savedBlock = currentBlock;

  CFGFunc *function = new CFGFunc("tkdummy_rpt_decl_func", module, nullptr);
  context().setCurrentCFGFunction(function);
  graph = new CFGGraph;
  CFGBlock *start = makeTerminatorBlock("tkdummy_rpt_declaratives");
  continueOn(start);

  auto *sections = makeList<Section *>();
  BlockList ends;
  for (Declaratives *declarative : division->getRptDeclElements()) {
    Section *section = declarative->getSection();
    bool hasUse = declarative->getUseStmt() != nullptr;
    // The report writer calls such a section as a whole, so it has no exit of a performed range.
    if (hasUse) {
      sections->push_back(section);
      section->setIsPerformThru(false);
    }
    startProcedure(section->getSectionName(), *section, CFGBlockType::Ordinary);
    analysisSection(*section);
    if (hasUse)
      ends.push_back(currentBlock);
  }

  CFGBlock *end = continueOn(makeTerminatorBlock("tkdummy_rpt_declaratives_end"));
  end->setRole(CFGBlockRole::Frame);
  start->addSuccessorBlock(end);
  for (CFGBlock *block : ends)
    block->addSuccessorBlock(end);
  start->addEndBlock(end);
  function->setSectionList(sections);
  function->setBody(graph);
  context().setRptDeclCFGFunction(function);
  module->addReportDeclaratives(function, savedFunction);

  context().setCurrentCFGFunction(savedFunction);
  graph = savedGraph;
  continueOn(savedBlock);
}

void CFGBuilder::analysisBaseDeclaratives(ProcedureDivision *division) {
  // Register the exception declaratives, so that input-output statements can enter them.
  continueInNewBlock("tkdummy_register_use")->setRole(CFGBlockRole::Frame);
  NodeList<Section> registered;
  for (Declaratives *declarative : division->getBaseDeclElements()) {
    UseStatement *use = declarative->getUseStmt();
    if (!use || use->getTimingType() != UseTimingType::AfterException)
      continue;
    currentBlock->addCFGElemStmt(
        generate<InnerRegisterExceptionStatement>(declarative, declarative));
    registered.push_back(declarative->getSection());
  }

  continueInNewBlock("tkdummy_declaratives")->setRole(CFGBlockRole::Frame);
  Node nowhere;
  CFGBlock *start = appendTerminator(generate<InnerBranchStatement>(&nowhere, &registered));
  for (Declaratives *declarative : division->getBaseDeclElements()) {
    Section *section = declarative->getSection();
    startProcedure(section->getSectionName(), *section, CFGBlockType::Ordinary);
    analysisSection(*section);
  }

  // The main line begins here.
  CFGBlock *mainLine = continueInNewBlock("tkdummy_end_declaratives");
  mainLine->setRole(CFGBlockRole::Frame);
  start->addSuccessorBlock(mainLine);
}

//===----------------------------------------------------------------------===//
// Sections, paragraphs, sentences
//===----------------------------------------------------------------------===//

void CFGBuilder::startProcedure(Word *name, Section &section, CFGBlockType type) {
  continueOn(graph->createBlock(&name->getWordData()))->setBlockType(type);
  section.setStartBlock(currentBlock);
}

void CFGBuilder::startProcedure(Word *name, Paragraph &paragraph) {
  continueOn(graph->createBlock(&name->getWordData()))->setBlockType(CFGBlockType::Procedure);
  paragraph.setStartBlock(currentBlock);
}

void CFGBuilder::analysisSection(Section &section) {
  lowerSentences(section.getSentElements());
  lowerParagraphs(section.getParaElements());
  joinExits(sectionExits, "tkdummy_end_section");
  if (section.isPerformThru())
    lowerProcedureExit(section.getSectionName()->getWordData(), &section, &section, nullptr);
}

void CFGBuilder::lowerParagraphs(const NodeList<Paragraph> &paragraphs) {
  for (Paragraph *paragraph : paragraphs) {
    startProcedure(paragraph->getParagraphName(), *paragraph);
    analysisParagraph(*paragraph);
  }
}

void CFGBuilder::analysisParagraph(Paragraph &paragraph) {
  lowerSentences(paragraph.getSentElements());
  if (paragraph.isPerformThru())
    lowerProcedureExit(paragraph.getParagraphName()->getWordData(), &paragraph, nullptr,
                       &paragraph);
}

/// The sentences of one paragraph, or those that stand before the first one.
void CFGBuilder::lowerSentences(const NodeList<Sentence> &sentences) {
  for (Sentence *sentence : sentences)
    analysisSentence(*sentence);
  joinExits(paragraphExits, "tkdummy_end_paragraph");
}

/// The end of a procedure from which control may return to a performer: a block that returns, and
/// one where control goes on that came here by falling through.
void CFGBuilder::lowerProcedureExit(const std::string &name, Node *position, Section *section,
                                    Paragraph *paragraph) {
  const std::string *exitName = makeName(name + "_exit");
  CFGBlock *last = currentBlock;
  last->addSuccessorBlock(continueOn(graph->createBlock(exitName)));
  CFGBlock *exit =
      appendTerminator(generate<InnerExitStatement>(position, section, paragraph, nullptr));
  exit->addSuccessorBlock(continueOn(graph->createBlock(makeName(*exitName + "_after"))));
}

void CFGBuilder::analysisSentence(Sentence &sentence) {
  CFGBlock *first = currentBlock;
  context().setCurrentSentenceCFGBlock(first);
  lowerList(sentence.getStmtElements());
  if (!context().getHaveNextSentence())
    return;
  CFGBlock *last = currentBlock;
  CFGBlock *end = continueInNewBlock("tkdummy_end_sentence");
  last->addSuccessorBlock(end);
  first->addNextBlock(end);
  context().setHaveNextSentence(false);
}

//===----------------------------------------------------------------------===//
// Statements
//===----------------------------------------------------------------------===//

namespace {

/// Hands a statement to the handler of its kind. A statement without one is an element like any
/// other, STOP RUN among them.
class Lowering : public StatementVisitor<Lowering> {
public:
  Lowering(CFGBuilder &graphBuilder, CFGBlock *block)
      : builder(graphBuilder), currentBlock(block) {}

#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  void visit##Class(Class &statement) {                                                            \
    lower(statement,                                                                               \
          [](auto &handlers, auto *which) -> decltype(handlers.analysis##Kind##Stmt(which)) {      \
            handlers.analysis##Kind##Stmt(which);                                                  \
          });                                                                                      \
  }
#include "AST/Statements.def"

  void visitStatement(Statement &statement) { currentBlock->addCFGElemStmt(&statement); }

private:
  template <typename Class, typename Handler> void lower(Class &statement, Handler handler) {
    if constexpr (std::is_invocable_v<Handler, CFGBuilder &, Class *>)
      handler(builder, &statement);
    else
      visitStatement(statement);
  }

  CFGBuilder &builder;
  CFGBlock *currentBlock;
};

} // namespace

void CFGBuilder::analysisStatement(Statement &statement) {
  // A kind that no statement of the language has, and USE, which stands in front of its section
  // only.
  constexpr auto unusedKind = static_cast<StatementType>(16);
  if (statement.getType() == unusedKind || statement.getType() == StatementType::Use) {
    assert(0 && "not implemented");
    return;
  }

  Lowering(*this, currentBlock).visit(statement);
}

//===----------------------------------------------------------------------===//
// Simple transfers of control
//===----------------------------------------------------------------------===//

void CFGBuilder::analysisNextSentenceStmt(NextSentenceStatement *statement) {
  appendTerminator(statement);
  context().setHaveNextSentence(true);
  statement->setSentenceBlock(context().getCurrentSentenceCFGBlock());
}

void CFGBuilder::analysisGotoStmt(GotoStatement *statement) {
  CFGBlock *start = appendTerminator(statement);
  CFGBlock *after = continueInNewBlock("tkdummy_after_goto");
  start->addSuccessorBlock(after);
  // A value out of range continues after the statement. In the first block of an inline PERFORM the
  // successor is replaced, so the way has a link of its own.
  if (statement->getDependingName())
    start->addEndBlock(after);
}

// These have no link, unlike GO TO: the statement that follows is never reached from them.

void CFGBuilder::analysisExitProgramStmt(ExitProgramStatement *statement) {
  appendTerminator(statement);
  continueInNewBlock("tkdummy_after_exit_program");
}

void CFGBuilder::analysisGobackStmt(GobackStatement *statement) {
  appendTerminator(statement);
  continueInNewBlock("tkdummy_after_goback");
}

void CFGBuilder::analysisExitParagraphStmt(ExitParagraphStatement *statement) {
  lowerExitTo(statement, paragraphExits, "tkdummy_after_exit_paragraph");
}

void CFGBuilder::analysisExitSectionStmt(ExitSectionStatement *statement) {
  lowerExitTo(statement, sectionExits, "tkdummy_after_exit_section");
}

/// A statement that leaves its procedure: its block is kept in \p exits until the end of the
/// procedure is known, which then becomes the block's after.
void CFGBuilder::lowerExitTo(Statement *statement, BlockList &exits, llvm::StringRef nameAfter) {
  exits.push_back(appendTerminator(statement));
  continueInNewBlock(nameAfter);
}

/// The end of a procedure that some statements leave: a block of its own, in front of the exit of a
/// performed range, so that leaving the procedure returns to the performer.
void CFGBuilder::joinExits(BlockList &exits, llvm::StringRef name) {
  if (exits.empty())
    return;
  CFGBlock *last = currentBlock;
  CFGBlock *end = continueInNewBlock(name);
  last->addSuccessorBlock(end);
  for (CFGBlock *exit : exits)
    exit->addAfterBlock(end);
  exits.clear();
}

/// ENTRY is not an element: control that comes from above runs into the entry point.
void CFGBuilder::analysisEntryStmt(EntryStatement *statement) {
  CFGFunc *function = context().getCurrentCFGFunction();
  // A literal of another kind has been reported and cannot be an entry name.
  const auto *literal =
      llvm::dyn_cast_if_present<NonNumericLiteralExpression>(statement->getEntryLiteral());
  if (!literal)
    return;
  const std::string &name = literal->getData();
  CFGEntry *entry =
      new CFGEntry(name, function->getName(), static_cast<int>(function->getEntryListSize()) + 1);
  entry->setReturning(function->getReturning());
  entry->insertParams(statement->getParameterBegin(), statement->getParameterEnd());
  entry->setFunc(function);
  entry->setStatement(statement);
  function->addEntry(entry);

  CFGBlock *before = currentBlock;
  CFGBlock *block = continueInNewBlock(name + "_entry");
  entry->setEntryBlock(block);
  before->addSuccessorBlock(block);
}

//===----------------------------------------------------------------------===//
// OS/VS COBOL: the statements that the checks made stand for these
//===----------------------------------------------------------------------===//

/// Lowers a statement that the checks made; one that was rejected has none.
void CFGBuilder::lowerMade(Statement *made) {
  if (made)
    analysisStatement(*made);
}

void CFGBuilder::analysisTransformStmt(TransformStatement *statement) {
  lowerMade(statement->getInspectStmt());
}

void CFGBuilder::analysisExamineStmt(ExamineStatement *statement) {
  lowerMade(statement->getMoveStmt());
  lowerMade(statement->getInspectStmt());
}

void CFGBuilder::analysisExhibitStmt(ExhibitStatement *statement) {
  lowerList(statement->getConvertStmtListElements());
}

} // namespace tarka
