//===- CFGVerifier.cpp - is a graph whole ---------------------------------===//
//
// The verifier reads the tree independently: it determines which statements must be
// in the graph without using the builder, and then checks that they are.
//
//===----------------------------------------------------------------------===//

#include "Analyzer/CFGVerifier.h"
#include "AST/Expression.h"
#include "AST/KindNames.h"
#include "AST/NestedStatements.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CompileOption.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/MapVector.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/Twine.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

/// "the IF of line 12"
std::string nameOf(const Statement &statement) {
  return ("the " + verbOf(statement.getType()) + " of line " +
          llvm::Twine(statement.getBeginLineNo()))
      .str();
}

/// A procedure as the end of a range, or as a target; one of the two is null.
struct Procedure {
  Section *section = nullptr;
  Paragraph *paragraph = nullptr;

  explicit operator bool() const { return section || paragraph; }
  const Node *node() const {
    return section ? static_cast<const Node *>(section) : static_cast<const Node *>(paragraph);
  }
  const std::string &name() const {
    return (section ? section->getSectionName() : paragraph->getParagraphName())->getWordData();
  }
  CFGBlock *start() const {
    return section ? section->getStartBlock() : paragraph->getStartBlock();
  }
};

class Verifier {
public:
  explicit Verifier(CFGModule &checked) : module(checked) {}

  std::vector<CFGFailure> run();

private:
  /// A graph with the function that it is the body of.
  struct Body {
    CFGGraph *graph;
    const std::string &function;
    SourceUnit *unit;
    bool isReportDeclaratives;
  };
  struct Occurrence {
    unsigned expected = 0;
    unsigned found = 0;
    const CFGBlock *block = nullptr;
    const std::string *function = nullptr;
  };

  void fail(CFGRule rule, const CFGBlock *block, const llvm::Twine &message) {
    failures.push_back({rule, *function, block, message.str()});
  }

  void collectBodies();
  void indexBody(const Body &body);
  void checkBody(const Body &body);
  void checkElement(const CFGBlock *block, const CFGElem &element);
  void checkLinks(const CFGGraph *graph, const CFGBlock *block);
  void checkFallThrough(const Body &body, const CFGBlock *block, const CFGBlock *next,
                        const llvm::DenseSet<llvm::StringRef> &declaratives);

  void checkWaysIn(const Body &body, const llvm::DenseSet<llvm::StringRef> &declaratives);

  class TargetCheck;

  void expectUnit(SourceUnit &unit);
  void expectProcedure(Procedure procedure, bool isPerformThru);
  void expectSection(Section &section);
  void expectParagraphs(const NodeList<Paragraph> &paragraphs);
  void expectSentences(const NodeList<Sentence> &sentences);
  void expectList(const NodeList<Statement> &statements);
  void expect(Statement &statement);
  void expectMade(Statement *made);
  void expectNested(Statement &statement);
  bool expectCall(CallStatement &call);
  void checkOccurrences();

  CFGModule &module;
  std::vector<CFGFailure> failures;
  const std::string *function = nullptr;
  llvm::SmallVector<Body> bodies;
  llvm::DenseMap<const CFGBlock *, const CFGGraph *> listedIn;
  /// The blocks that return to a performer, by the section, paragraph or PERFORM that ends there.
  llvm::DenseMap<const Node *, const CFGBlock *> exits;
  llvm::DenseSet<const CFGBlock *> entryBlocks;
  /// The sections that the report writer calls, which have no exit.
  llvm::DenseSet<const Node *> reportSections;
  llvm::MapVector<const Statement *, Occurrence> occurrences;
  /// The procedure whose statements are being expected.
  const CFGBlock *procedureStart = nullptr;
};

std::vector<CFGFailure> Verifier::run() {
  collectBodies();
  for (const Body &body : bodies)
    indexBody(body);
  for (const Body &body : bodies)
    checkBody(body);
  for (CFGFunc *func : module.getFuncList()) {
    function = &func->getName();
    if (SourceUnit *unit = func->getSourceUnit())
      expectUnit(*unit);
  }
  checkOccurrences();
  return std::move(failures);
}

/// The compilation context knows the last function of report declaratives only, so their graphs are
/// found through the sections that they are made of.
void Verifier::collectBodies() {
  for (CFGFunc *func : module.getFuncList()) {
    function = &func->getName();
    SourceUnit *unit = func->getSourceUnit();
    for (const CFGEntry *entry : func->getEntryList())
      entryBlocks.insert(entry->getEntryBlock());
    if (func->getBody())
      bodies.push_back({func->getBody(), func->getName(), unit, false});
    else
      fail(CFGRule::BlockInGraph, nullptr, "the function has no graph");

    ProcedureDivision *division = unit ? unit->getProcDivision() : nullptr;
    if (!division || !division->getRptDeclSize())
      continue;
    for (Declaratives *declarative : division->getRptDeclElements())
      if (declarative->getUseStmt())
        reportSections.insert(declarative->getSection());
    CFGBlock *start = division->getRptDeclElements().front()->getSection()->getStartBlock();
    if (start && start->getGraph())
      bodies.push_back({start->getGraph(), internString("tkdummy_rpt_decl_func"), unit, true});
    else
      fail(CFGRule::Target, start, "the report declaratives have no graph");
  }
}

//===----------------------------------------------------------------------===//
// Blocks
//===----------------------------------------------------------------------===//

void Verifier::indexBody(const Body &body) {
  function = &body.function;
  for (CFGBlock *block : body.graph->getBlockList()) {
    if (!listedIn.try_emplace(block, body.graph).second)
      fail(CFGRule::BlockInGraph, block, "the block stands in a list twice");
    for (CFGElem *element : block->getElements())
      if (Statement *statement = element->getStmt())
        if (auto *exit = llvm::dyn_cast<InnerExitStatement>(statement)) {
          const Node *ended = exit->getPerformStmt();
          if (!ended)
            ended = Procedure{exit->getSection(), exit->getParagraph()}.node();
          exits[ended] = block;
        }
  }
}

void Verifier::checkBody(const Body &body) {
  function = &body.function;
  llvm::DenseSet<llvm::StringRef> declaratives;
  if (ProcedureDivision *division = body.unit ? body.unit->getProcDivision() : nullptr)
    for (Declaratives *declarative : division->getDeclElements())
      declaratives.insert(declarative->getSection()->getSectionName()->getWordData());

  const std::list<CFGBlock *> &blocks = body.graph->getBlockList();
  for (auto position = blocks.begin(); position != blocks.end();) {
    const CFGBlock *block = *position++;
    if (block->getGraph() != body.graph)
      fail(CFGRule::BlockInGraph, block, "the block names another graph as its own");
    for (const CFGElem *element : block->getElements())
      checkElement(block, *element);
    checkLinks(body.graph, block);
    checkFallThrough(body, block, position == blocks.end() ? nullptr : *position, declaratives);
  }
  checkWaysIn(body, declaratives);
}

void Verifier::checkLinks(const CFGGraph *graph, const CFGBlock *block) {
  for (std::size_t link = 0; link < cfgLinkCount; ++link)
    if (const CFGBlock *target = block->getLink(static_cast<CFGLink>(link)))
      if (listedIn.lookup(target) != graph)
        fail(CFGRule::BlockInGraph, block,
             "its " + cfgLinkNames[link] + " block " + target->getName() + " is not in the graph");
}

void Verifier::checkFallThrough(const Body &body, const CFGBlock *block, const CFGBlock *next,
                                const llvm::DenseSet<llvm::StringRef> &declaratives) {
  if (block->getHaveTerminator() || block->getSuccessorBlock())
    return;
  if (!next) {
    // Running off the end of a source unit ends the program; report declaratives have to return.
    if (body.isReportDeclaratives)
      fail(CFGRule::FallThrough, block, "there is no block to fall into");
    return;
  }
  if (next->getBlockType() != CFGBlockType::Procedure && next->getRole() != CFGBlockRole::Frame &&
      !declaratives.contains(next->getName()))
    fail(CFGRule::FallThrough, block,
         "it falls into " + next->getName() + ", which begins no procedure");
}

/// Whether control never continues after \p block, so that what follows may be unreachable.
static bool endsInTransfer(const CFGBlock *block) {
  if (!block->getHaveTerminator() || block->getElements().empty())
    return false;
  const Statement *last = block->getElements().back()->getStmt();
  if (!last)
    return false;
  switch (last->getType()) {
  case StatementType::Goto:
    return !llvm::cast<GotoStatement>(last)->getDependingName();
  case StatementType::Goback:
  case StatementType::NextSentence:
  case StatementType::ExitParagraph:
  case StatementType::ExitPerform:
  case StatementType::ExitProgram:
  case StatementType::ExitSection:
    return true;
  default:
    return false;
  }
}

/// Walks the links from where control can begin, and finds the blocks with statements that were not
/// visited.
void Verifier::checkWaysIn(const Body &body, const llvm::DenseSet<llvm::StringRef> &declaratives) {
  const std::vector<const CFGBlock *> blocks(body.graph->getBlockList().begin(),
                                             body.graph->getBlockList().end());
  llvm::DenseSet<const CFGBlock *> passed;
  llvm::SmallVector<const CFGBlock *> open;
  auto pass = [&](const CFGBlock *block) {
    if (block && passed.insert(block).second)
      open.push_back(block);
  };
  const CFGBlock *before = nullptr;
  for (const CFGBlock *block : blocks) {
    if (!before || block->getBlockType() == CFGBlockType::Procedure ||
        declaratives.contains(block->getName()) || entryBlocks.contains(block) ||
        endsInTransfer(before))
      pass(block);
    // The block at which an inline loop is controlled is in the body, after its first one.
    if (!block->getElements().empty() ||
        !llvm::StringRef(block->getName()).ends_with("_line_return"))
      before = block;
    while (!open.empty()) {
      const CFGBlock *from = open.pop_back_val();
      for (std::size_t link = 0; link < cfgLinkCount; ++link)
        pass(from->getLink(static_cast<CFGLink>(link)));
      const auto next = static_cast<std::size_t>(from->getPlace()) + 1;
      if (!from->getHaveTerminator() && !from->getSuccessorBlock() && next < blocks.size())
        pass(blocks[next]);
    }
  }
  for (const CFGBlock *block : blocks)
    if (!passed.contains(block) && llvm::any_of(block->getElements(), [](const CFGElem *element) {
          return element->getStmt() != nullptr;
        }))
      fail(CFGRule::WayIn, block, "no block leads to it");
}

//===----------------------------------------------------------------------===//
// Targets and ranges
//===----------------------------------------------------------------------===//

/// Checks that the procedures and blocks that a statement refers to are in the graph.
class Verifier::TargetCheck : public StatementVisitor<TargetCheck> {
public:
  TargetCheck(Verifier &owner, const CFGBlock *withStatement)
      : verifier(owner), block(withStatement) {}

  void visitGotoStatement(GotoStatement &jump) {
    for (GotoProcedure *target : jump.getProcedureListElements())
      checkTarget(jump, {target->getSection(), target->getParagraph()});
  }
  void visitAlterStatement(AlterStatement &alter) {
    for (AlterItem *item : alter.getAlterListElements()) {
      checkTarget(alter, {nullptr, item->getSrcParagraph()});
      checkTarget(alter, {item->getDstSection(), item->getDstParagraph()});
    }
  }
  void visitPerformStatement(PerformStatement &perform) {
    if (const PerformProcedure *range = perform.getProcedureName())
      checkRange(perform, *range);
    else if (perform.getInlineStatementsSize() && !verifier.exits.contains(&perform))
      verifier.fail(CFGRule::RangeExit, block, "the body of " + nameOf(perform) + " has no exit");
  }
  void visitSortStatement(SortStatement &sort) {
    checkSortPhrase(sort, sort.getInput());
    checkSortPhrase(sort, sort.getOutput());
  }
  void visitMergeStatement(MergeStatement &merge) { checkSortPhrase(merge, merge.getOutput()); }
  void visitXMLParseStatement(XMLParseStatement &parse) { checkRange(parse, parse); }
  void visitNextSentenceStatement(NextSentenceStatement &next) {
    const CFGBlock *sentence = next.getSentenceBlock();
    require(sentence && sentence->getNextBlock(), next, "block behind its sentence");
  }
  void visitExitPerformStatement(ExitPerformStatement &exit) {
    require(verifier.listedIn.contains(exit.getAfterBlock()), exit, "PERFORM to leave");
  }
  void visitExitParagraphStatement(ExitParagraphStatement &exit) { checkExit(exit); }
  void visitExitSectionStatement(ExitSectionStatement &exit) { checkExit(exit); }
  void visitSearchStatement(SearchStatement &search) {
    require(verifier.listedIn.contains(search.getIndexChangeBlock()), search,
            "block that steps the index");
  }

private:
  void require(bool holds, const Statement &statement, llvm::StringLiteral what) {
    if (!holds)
      verifier.fail(CFGRule::Target, block, nameOf(statement) + " has no " + what);
  }
  void checkExit(const Statement &exit) {
    require(block->getAfterBlock(), exit, "procedure to leave");
  }
  void checkTarget(const Statement &statement, Procedure target);
  void checkRange(const Statement &statement, const ProcedureRange &range);
  void checkSortPhrase(const Statement &statement, const SortIO *phrase) {
    if (phrase && phrase->getType() == SortIOType::Procedure)
      checkRange(statement, phrase->getProcedures());
  }

  Verifier &verifier;
  const CFGBlock *block;
};

void Verifier::TargetCheck::checkTarget(const Statement &statement, Procedure target) {
  if (!target)
    verifier.fail(CFGRule::Target, block, nameOf(statement) + " names no procedure that is known");
  else if (!verifier.listedIn.contains(target.start()))
    verifier.fail(CFGRule::Target, block,
                  nameOf(statement) + " leads to " + target.name() + ", which has no start block");
}

void Verifier::TargetCheck::checkRange(const Statement &statement, const ProcedureRange &range) {
  const Procedure begin{range.getBeginSection(), range.getBeginParagraph()};
  Procedure end{range.getThruSection(), range.getThruParagraph()};
  checkTarget(statement, begin);
  // Without THROUGH the range ends where it begins.
  if (!end)
    end = begin;
  else
    checkTarget(statement, end);
  if (end && !verifier.exits.contains(end.node()) && !verifier.reportSections.contains(end.node()))
    verifier.fail(CFGRule::RangeExit, block,
                  nameOf(statement) + " ends with " + end.name() + ", which has no exit block");
}

void Verifier::checkElement(const CFGBlock *block, const CFGElem &element) {
  const bool set[] = {element.getStmt() != nullptr, element.getData() != nullptr,
                      element.getFile() != nullptr, element.getReport() != nullptr};
  const auto wanted = static_cast<std::size_t>(element.getType());
  for (std::size_t type = 0; type < std::size(set); ++type)
    if (set[type] != (type == wanted)) {
      fail(CFGRule::ElementPointer, block, "the pointers of an element do not fit its type");
      break;
    }
  if (element.getBlock() != block)
    fail(CFGRule::ElementPointer, block, "an element names another block as its own");

  if (Statement *statement = element.getStmt()) {
    Occurrence &occurrence = occurrences[statement];
    ++occurrence.found;
    occurrence.block = block;
    occurrence.function = function;
    TargetCheck(*this, block).visit(*statement);
  }
}

//===----------------------------------------------------------------------===//
// What the tree requires
//===----------------------------------------------------------------------===//

void Verifier::expectUnit(SourceUnit &unit) {
  ProcedureDivision *division = unit.getProcDivision();
  if (!division)
    return;
  for (Declaratives *declarative : division->getRptDeclElements())
    expectSection(*declarative->getSection());
  for (Declaratives *declarative : division->getBaseDeclElements())
    expectSection(*declarative->getSection());
  procedureStart = nullptr;
  expectSentences(division->getSentElements());
  expectParagraphs(division->getParaElements());
  for (Section *section : division->getSectElements())
    expectSection(*section);
}

void Verifier::expectSection(Section &section) {
  expectProcedure({&section, nullptr}, section.isPerformThru());
  expectSentences(section.getSentElements());
  expectParagraphs(section.getParaElements());
}

void Verifier::expectParagraphs(const NodeList<Paragraph> &paragraphs) {
  for (Paragraph *paragraph : paragraphs) {
    expectProcedure({nullptr, paragraph}, paragraph->isPerformThru());
    expectSentences(paragraph->getSentElements());
  }
}

void Verifier::expectProcedure(Procedure procedure, bool isPerformThru) {
  procedureStart = procedure.start();
  if (!listedIn.contains(procedureStart))
    fail(CFGRule::Target, procedureStart, procedure.name() + " has no start block");
  if (!isPerformThru)
    return;
  const CFGBlock *exit = exits.lookup(procedure.node());
  const std::string exitName = procedure.name() + "_exit";
  if (!exit || exit->getName() != exitName || !exit->getHaveTerminator())
    return fail(CFGRule::RangeExit, procedureStart,
                procedure.name() + " ends a performed range and has no exit block");
  const CFGBlock *after = exit->getSuccessorBlock();
  if (!after || after->getName() != exitName + "_after")
    fail(CFGRule::RangeExit, exit, "the exit has no block to go on in");
}

void Verifier::expectSentences(const NodeList<Sentence> &sentences) {
  for (Sentence *sentence : sentences)
    expectList(sentence->getStmtElements());
}

/// A statement that the checks made; they may have made none.
void Verifier::expectMade(Statement *made) {
  if (made)
    expect(*made);
}

void Verifier::expectList(const NodeList<Statement> &statements) {
  for (Statement *statement : statements)
    expect(*statement);
}

/// The MOVEs in front of a CALL; false when the phrases of the CALL are not lowered.
bool Verifier::expectCall(CallStatement &call) {
  const CompileOption *options = CompileOption::getCompileOptionInstance();
  const auto *name = llvm::dyn_cast<NonNumericLiteralExpression>(call.getProcedureName());
  if (!name)
    return true;
  if (options->isOptionDebug() && llvm::StringRef(name->getData()).starts_with("TKDEBUG_START"))
    return false;
  for (bool enabled : {options->isOptionEnableCbltdli(), options->isOptionEnableAertdli()})
    if (enabled)
      expectMade(call.getMoveStmt());
  return true;
}

/// Expects \p statement once more, with what is nested in it.
void Verifier::expect(Statement &statement) {
  switch (statement.getType()) {
  // These are replaced: by an entry of the function, by statements that the checks made.
  case StatementType::Entry:
    return;
  case StatementType::Transform:
    return expectMade(llvm::cast<TransformStatement>(statement).getInspectStmt());
  case StatementType::Examine:
    expectMade(llvm::cast<ExamineStatement>(statement).getMoveStmt());
    return expectMade(llvm::cast<ExamineStatement>(statement).getInspectStmt());
  case StatementType::Exhibit:
    return expectList(llvm::cast<ExhibitStatement>(statement).getConvertStmtListElements());
  case StatementType::Evaluate:
    return expectNested(statement);
  default:
    break;
  }
  Occurrence &occurrence = occurrences[&statement];
  ++occurrence.expected;
  if (!occurrence.function) {
    occurrence.block = procedureStart;
    occurrence.function = function;
  }
  expectNested(statement);
}

void Verifier::expectNested(Statement &statement) {
  if (auto *on = llvm::dyn_cast<OnStatement>(&statement))
    expectMade(on->getAddStmt());
  if (auto *call = llvm::dyn_cast<CallStatement>(&statement); call && !expectCall(*call))
    return;
  forEachNestedList(statement, [this](NodeRange<Statement> nested) {
    for (Statement *one : nested)
      expect(*one);
  });
}

/// Whether \p statement was made by the builder, not by the parser or the checks.
bool isMadeByBuilder(const Statement &statement) {
  switch (statement.getType()) {
  case StatementType::InnerBranch:
  case StatementType::InnerExit:
  case StatementType::InnerRegisterException:
  case StatementType::InnerWhen:
  case StatementType::InnerSearchWhen:
    return true;
  case StatementType::Perform:
    return !statement.isWritten();
  default:
    return false;
  }
}

void Verifier::checkOccurrences() {
  for (const auto &[statement, occurrence] : occurrences) {
    unsigned expected = occurrence.expected;
    if (!expected && isMadeByBuilder(*statement))
      expected = 1;
    function = occurrence.function;
    if (occurrence.found != expected)
      fail(CFGRule::StatementOnce, occurrence.block,
           nameOf(*statement) + " stands in " + llvm::Twine(occurrence.found) +
               " elements instead of " + llvm::Twine(expected));
  }
}

} // namespace

std::vector<CFGFailure> verifyModule(CFGModule &module) {
  return Verifier(module).run();
}

llvm::StringRef ruleName(CFGRule rule) {
  switch (rule) {
  case CFGRule::BlockInGraph:
    return "BlockInGraph";
  case CFGRule::ElementPointer:
    return "ElementPointer";
  case CFGRule::StatementOnce:
    return "StatementOnce";
  case CFGRule::FallThrough:
    return "FallThrough";
  case CFGRule::RangeExit:
    return "RangeExit";
  case CFGRule::Target:
    return "Target";
  case CFGRule::WayIn:
    return "WayIn";
  }
  return "";
}

llvm::raw_ostream &operator<<(llvm::raw_ostream &os, const CFGFailure &failure) {
  os << failure.function << ": ";
  if (failure.block)
    os << failure.block->getName() << " (block " << failure.block->getPlace() << "): ";
  return os << failure.message << " [" << ruleName(failure.rule) << ']';
}

} // namespace tarka
