//===- FlowBuilder.cpp - the nodes of a program ----------------------------===//
//
// Gives every block its nodes, and the nodes their procedures. The edges are in
// FlowLinks.cpp, what depends on whole ranges in FlowReach.cpp.
//
//===----------------------------------------------------------------------===//

#include "Flow/FlowBuilder.h"
#include "AST/Expression.h"
#include "Analyzer/Graph/ProcedureEnds.h"
#include "llvm/ADT/STLExtras.h"
#include <limits>

namespace tarka {

std::unique_ptr<FlowModule> createFlow(const CFGModule &module) {
  FlowBuilder builder(module, nullptr);
  std::unique_ptr<FlowModule> flow = builder.build();
  if (builder.namesHandlers()) {
    // Which labels of HANDLE are active at a command is a question about the flow. It is answered
    // on a graph in which all are, and then the graph is made with those that can be.
    const ActiveHandlers active = findActiveHandlers(*flow, builder);
    flow = FlowBuilder(module, &active).build();
  }
  findHeldPrograms(*flow, FlowBuilder::callsOf(*flow));
  return flow;
}

std::unique_ptr<FlowModule> FlowBuilder::build() {
  std::unique_ptr<FlowModule> result(&flow);
  std::size_t blockCount = 0;
  for (const CFGFunc *function : source.getFuncList())
    blockCount += function->getBody()->getBlockList().size();
  flow.nodeList.reserve(blockCount * 2);
  pieceOf.reserve(blockCount * 2);

  for (const CFGFunc *function : source.getFuncList()) {
    addFunction(*function, function->getSourceUnit(), /*isReport=*/false);
    for (const CFGModule::ReportDeclaratives &report : source.getReportDeclaratives())
      if (report.ofUnit == function) {
        FunctionPlan *ofUnit = plan;
        addFunction(*report.function, function->getSourceUnit(), /*isReport=*/true);
        ofUnit->reportPlan = plan;
      }
  }
  for (const auto &onePlan : plans) {
    SourceUnit *parent = onePlan->graph->unit ? onePlan->graph->unit->getParent() : nullptr;
    onePlan->outer = parent ? planOfUnit.lookup(parent) : nullptr;
    collectUse(*onePlan);
    onePlan->mainRange = rangeOf(noFlow, noFlow, onePlan->graph);
    for (std::uint32_t section : onePlan->enteredBySystem)
      rangeOf(section, section, onePlan->graph);
  }

  firstSite.assign(flow.nodeList.size(), noFlow);
  flow.edgeList.reserve(flow.nodeList.size() * 3 / 2);
  for (const auto &onePlan : plans)
    makeEdges(*onePlan);
  FlowReach(*this).run();
  sortEdges();
  return result;
}

//===----------------------------------------------------------------------===//
// Functions and their procedures
//===----------------------------------------------------------------------===//

void FlowBuilder::addFunction(const CFGFunc &function, SourceUnit *unit, bool isReport) {
  flow.graphList.push_back(std::make_unique<FlowGraph>(&flow, &function, unit, isReport));
  plans.push_back(std::make_unique<FunctionPlan>());
  plan = plans.back().get();
  plan->graph = flow.graphList.back().get();
  plan->body = function.getBody();
  plan->blocks.assign(plan->body->getBlockList().begin(), plan->body->getBlockList().end());
  if (unit && !isReport) {
    planOfUnit[unit] = plan;
    programNames.add(*unit);
    for (const ExecStatement *block : unit->getDataBlockElements())
      noteCursor(*block);
  }
  plan->graph->procedureBegin = static_cast<std::uint32_t>(flow.procedureList.size());
  markProcedures(*plan);
  plan->graph->procedureEnd = static_cast<std::uint32_t>(flow.procedureList.size());
  makeNodes(*plan);
}

/// Numbers the procedures of the function in the order of their blocks, which is that of the text.
void FlowBuilder::markProcedures(FunctionPlan &marked) {
  SourceUnit *unit = marked.graph->unit;
  ProcedureDivision *division = unit ? unit->getProcDivision() : nullptr;
  if (!division)
    return;
  auto belongs = [&](const CFGBlock *start) { return start && start->getGraph() == marked.body; };
  auto add = [&](const Section *section, const Paragraph *paragraph, std::uint32_t parent,
                 bool isDeclarative) {
    FlowProcedure procedure;
    procedure.graph = marked.graph;
    procedure.section = section;
    procedure.paragraph = paragraph;
    procedure.parent = parent;
    procedure.isDeclarative = isDeclarative;
    const auto number = static_cast<std::uint32_t>(flow.procedureList.size());
    procedureNumbers[section ? static_cast<const Node *>(section) : paragraph] = number;
    flow.procedureList.push_back(procedure);
    return number;
  };
  auto addSection = [&](const Section *section, bool isDeclarative) {
    if (!belongs(section->getStartBlock()))
      return;
    const std::uint32_t number = add(section, nullptr, noFlow, isDeclarative);
    for (const Paragraph *paragraph : section->getParaElements())
      add(nullptr, paragraph, number, isDeclarative);
  };
  for (const Declaratives *declarative :
       marked.graph->report ? division->getRptDeclElements() : division->getBaseDeclElements())
    addSection(declarative->getSection(), /*isDeclarative=*/true);
  if (marked.graph->report)
    return;
  for (const Paragraph *paragraph : division->getParaElements())
    add(nullptr, paragraph, noFlow, /*isDeclarative=*/false);
  for (const Section *section : division->getSectElements())
    addSection(section, /*isDeclarative=*/false);
}

std::uint32_t FlowBuilder::procedureOf(const Section *section, const Paragraph *paragraph) const {
  const Node *node = section ? static_cast<const Node *>(section) : paragraph;
  auto found = procedureNumbers.find(node);
  return found == procedureNumbers.end() ? noFlow : found->second;
}

std::uint32_t FlowBuilder::entryOf(const Section *section, const Paragraph *paragraph) const {
  const std::uint32_t procedure = procedureOf(section, paragraph);
  return procedure == noFlow ? noFlow : flow.procedureList[procedure].entry;
}

std::uint32_t FlowBuilder::endOf(const Section *section, const Paragraph *paragraph) const {
  const std::uint32_t procedure = procedureOf(section, paragraph);
  return procedure == noFlow ? noFlow : flow.procedureList[procedure].end;
}

//===----------------------------------------------------------------------===//
// Nodes
//===----------------------------------------------------------------------===//

std::uint32_t FlowBuilder::addNode(FlowNodeKind kind, const CFGBlock *block,
                                   const Statement *statement) {
  const auto number = static_cast<std::uint32_t>(flow.nodeList.size());
  flow.nodeList.emplace_back(plan->graph, kind, number, pieces[currentPiece].procedure, block,
                             statement);
  flow.nodeList.back().depth = static_cast<std::uint16_t>(
      std::min<std::size_t>(openJoins.size(), std::numeric_limits<std::uint16_t>::max()));
  pieceOf.push_back(currentPiece);
  if (block) {
    std::uint32_t &first = plan->firstNode[static_cast<std::size_t>(block->getPlace())];
    if (first == noFlow)
      first = number;
    plan->lastNode[static_cast<std::size_t>(block->getPlace())] = number;
  }
  return number;
}

void FlowBuilder::openPiece(std::uint32_t procedure) {
  currentPiece = static_cast<std::uint32_t>(pieces.size());
  pieces.push_back({procedure});
}

void FlowBuilder::closeProcedure(std::uint32_t procedure) {
  openJoins.clear();
  flow.procedureList[procedure].end = addNode(FlowNodeKind::ProcedureEnd, nullptr, nullptr);
}

void FlowBuilder::closeParagraph() {
  if (openParagraph != noFlow)
    closeProcedure(openParagraph);
  openParagraph = noFlow;
}

void FlowBuilder::closeSection() {
  const std::uint32_t lastParagraph = openParagraph;
  closeParagraph();
  if (openSection == noFlow)
    return;
  if (lastParagraph != noFlow)
    openPiece(openSection);
  closeProcedure(openSection);
  if (lastParagraph != noFlow)
    flow.procedureList[lastParagraph].fallsTo = flow.procedureList[openSection].end;
  openSection = noFlow;
}

namespace {

/// Whether something is decided in \p block, an empty one of XML PARSE.
bool isXmlDecision(const CFGBlock *block) {
  const CFGBlockRole role = block->getRole();
  return role == CFGBlockRole::XmlParser || role == CFGBlockRole::XmlResult ||
         role == CFGBlockRole::XmlException;
}

/// Whether SORT or MERGE writes the files of GIVING in its last phase.
bool writesFiles(const Statement *statement) {
  const SortIO *output = nullptr;
  if (const auto *sort = llvm::dyn_cast_or_null<SortStatement>(statement))
    output = sort->getOutput();
  else if (const auto *merge = llvm::dyn_cast_or_null<MergeStatement>(statement))
    output = merge->getOutput();
  return output && output->getType() == SortIOType::Files;
}

/// The place of the join of the statement in which \p block ends; 0 where nothing is nested in it.
int joinOf(const CFGBlock *block) {
  const CFGBlock *join = block->getEndBlock();
  if (!join && block->getInlineBlock())
    join = block->getAfterBlock();
  return join && join->getPlace() > block->getPlace() + 1 ? join->getPlace() : 0;
}

} // namespace

void FlowBuilder::makeNodes(FunctionPlan &made) {
  std::vector<std::uint32_t> startOf(made.blocks.size(), noFlow);
  for (std::uint32_t number = made.graph->procedureBegin; number < made.graph->procedureEnd;
       ++number) {
    const FlowProcedure &procedure = flow.procedureList[number];
    const CFGBlock *start = procedure.section ? procedure.section->getStartBlock()
                                              : procedure.paragraph->getStartBlock();
    if (start && start->getGraph() == made.body)
      startOf[static_cast<std::size_t>(start->getPlace())] = number;
  }
  llvm::DenseMap<const CFGBlock *, const CFGEntry *> entries;
  for (const CFGEntry *entry : made.graph->function->getEntryList())
    entries[entry->getEntryBlock()] = entry;

  made.firstNode.assign(made.blocks.size(), noFlow);
  made.lastNode.assign(made.blocks.size(), noFlow);
  made.pieceOfBlock.assign(made.blocks.size(), noFlow);
  made.graph->nodeBegin = static_cast<std::uint32_t>(flow.nodeList.size());
  handlers.assign(activeHandlers ? 0 : 3, {});
  openSection = openParagraph = noFlow;
  openJoins.clear();
  openPiece(noFlow);
  addNode(FlowNodeKind::Start, nullptr, nullptr);
  std::vector<std::pair<std::uint32_t, const CFGBlock *>> closedBy;
  auto noteClosing = [&](std::uint32_t procedure, const CFGBlock *by) {
    if (procedure != noFlow)
      closedBy.push_back({procedure, by});
  };

  for (const CFGBlock *block : made.blocks) {
    const auto place = static_cast<std::size_t>(block->getPlace());
    if (const std::uint32_t number = startOf[place]; number != noFlow) {
      const bool isSection = flow.procedureList[number].section != nullptr;
      noteClosing(openParagraph, block);
      if (isSection || flow.procedureList[number].parent != openSection) {
        noteClosing(openSection, block);
        closeSection();
      }
      closeParagraph();
      (isSection ? openSection : openParagraph) = number;
      openPiece(number);
      flow.procedureList[number].entry = addNode(FlowNodeKind::Procedure, block, nullptr);
    } else if (endsSection(block)) {
      noteClosing(openParagraph, block);
      noteClosing(openSection, block);
      closeSection();
      openPiece(noFlow);
    } else if (openParagraph != noFlow && endsParagraph(block)) {
      noteClosing(openParagraph, block);
      closeParagraph();
      openPiece(openSection);
    }
    made.pieceOfBlock[place] = currentPiece;
    while (!openJoins.empty() && openJoins.back() <= block->getPlace())
      openJoins.pop_back();

    if (auto entry = entries.find(block); entry != entries.end())
      addNode(FlowNodeKind::Entry, block, entry->second->getStatement());
    makeElementNodes(block);
    if (const int join = joinOf(block); join && (openJoins.empty() || openJoins.back() != join))
      openJoins.push_back(join);
  }
  noteClosing(openParagraph, nullptr);
  noteClosing(openSection, nullptr);
  closeSection();

  openJoins.clear();
  for (Handlers &set : handlers)
    if (!set.labels.empty()) {
      openPiece(noFlow);
      set.node = addNode(FlowNodeKind::Handler, nullptr, nullptr);
      for (std::uint32_t label : set.labels)
        addEdge(set.node, flow.procedureList[label].entry, FlowEdgeKind::Handler);
    }
  if (!activeHandlers)
    if (const std::uint32_t node = handlers[static_cast<std::size_t>(HandlerKind::Abend)].node;
        node != noFlow)
      abendHandlerNodes.push_back(node);
  openPiece(noFlow);
  addNode(FlowNodeKind::Exit, nullptr, nullptr);
  made.graph->nodeEnd = static_cast<std::uint32_t>(flow.nodeList.size());
  handlersOf.push_back(std::move(handlers));
  closedByOf.push_back(std::move(closedBy));
}

void FlowBuilder::makeElementNodes(const CFGBlock *block) {
  const auto loop = loopOfBlock.find(block);
  if (loop != loopOfBlock.end()) {
    addNode(FlowNodeKind::LoopTest, block, loop->second);
    return;
  }
  if (block->getElements().empty() && isXmlDecision(block)) {
    addNode(FlowNodeKind::Step, block, currentXmlParse);
    return;
  }
  if (block->getElements().empty() && block->getRole() == CFGBlockRole::LastPhase &&
      writesFiles(currentSort)) {
    addNode(FlowNodeKind::Step, block, currentSort);
    return;
  }
  for (const CFGElem *element : block->getElements()) {
    const Statement *statement = element->getStmt();
    if (!statement)
      continue;
    FlowNodeKind kind = FlowNodeKind::Statement;
    switch (statement->getType()) {
    case StatementType::InnerExit: {
      auto *exit = llvm::cast<InnerExitStatement>(statement);
      if (!exit->getPerformStmt())
        plan->exitOf[procedureOf(exit->getSection(), exit->getParagraph())] = block;
      continue;
    }
    case StatementType::InnerBranch:
    case StatementType::InnerRegisterException:
      continue;
    case StatementType::InnerWhen:
      if (block->getRole() != CFGBlockRole::LaterWhen)
        addNode(FlowNodeKind::Evaluate, block, statement);
      kind = FlowNodeKind::Condition;
      break;
    case StatementType::If:
    case StatementType::On:
    case StatementType::InnerSearchWhen:
      kind = FlowNodeKind::Condition;
      break;
    case StatementType::Perform: {
      auto *perform = llvm::cast<PerformStatement>(statement);
      // The graph has a PERFORM of its own for the procedures that SORT, MERGE and XML PARSE name.
      if (!perform->isWritten())
        kind = FlowNodeKind::Step;
      if (perform->getInlineStatementsSize())
        returnOfPerform[perform] = block->getReturnBlock();
      if (perform->getType() != PerformStmtType::Simple && block->getReturnBlock())
        loopOfBlock[block->getReturnBlock()] = statement;
      break;
    }
    case StatementType::Search:
      loopOfBlock[block->getThenBlock()] = statement;
      break;
    case StatementType::XmlParse:
      currentXmlParse = statement;
      break;
    case StatementType::Sort:
    case StatementType::Merge:
      currentSort = statement;
      break;
    case StatementType::Exec:
      noteHandlers(*llvm::cast<ExecStatement>(statement));
      noteCursor(*llvm::cast<ExecStatement>(statement));
      break;
    default:
      break;
    }
    addNode(kind, block, statement);
  }
}

/// Collects the labels that commands can lead to: while nothing is known of the way taken to a
/// command, all labels that HANDLE names anywhere in the program.
void FlowBuilder::noteHandlers(const ExecStatement &exec) {
  if (activeHandlers) {
    auto active = activeHandlers->labels.find(&exec);
    if (active == activeHandlers->labels.end() ||
        llvm::any_of(handlers,
                     [&](const Handlers &known) { return known.labels == active->second; }))
      return;
    handlers.push_back({active->second});
    return;
  }
  for (const HandlerSetting &setting : classifyExec(exec).settings) {
    hasHandlers |= setting.isIgnored;
    const std::uint32_t label =
        setting.label ? findProcedure(*plan->graph, *setting.label) : noFlow;
    auto &labels = handlers[static_cast<std::size_t>(setting.kind)].labels;
    if (label == noFlow || llvm::is_contained(labels, label))
      continue;
    labels.push_back(label);
    hasHandlers = true;
  }
}

/// The nodes of the handlers that the command may lead to.
llvm::SmallVector<std::uint32_t, 3> FlowBuilder::handlersAt(const ExecStatement &exec,
                                                            const ExecFlow &effect) {
  llvm::SmallVector<std::uint32_t, 3> nodes;
  if (activeHandlers) {
    auto active = activeHandlers->labels.find(&exec);
    for (const Handlers &set : handlers)
      if (active != activeHandlers->labels.end() && set.labels == active->second)
        nodes.push_back(set.node);
    return nodes;
  }
  const bool entered[] = {effect.raisesCondition, effect.receivesKey, effect.mayAbend};
  for (HandlerKind kind : {HandlerKind::Condition, HandlerKind::Aid, HandlerKind::Abend})
    if (entered[static_cast<std::size_t>(kind)])
      nodes.push_back(handlers[static_cast<std::size_t>(kind)].node);
  return nodes;
}

std::uint32_t FlowBuilder::findProcedure(const FlowGraph &graph,
                                         const EmbeddedOperand &label) const {
  const std::uint32_t procedure = procedureOf(label.getSection(), label.getParagraph());
  return procedure != noFlow && flow.procedureList[procedure].graph == &graph ? procedure : noFlow;
}

/// Cursors are known in the whole source file.
void FlowBuilder::noteCursor(const ExecStatement &exec) {
  const auto *sql = llvm::dyn_cast_if_present<SqlCommand>(exec.getCommand());
  if (sql && sql->getKind() == SqlKind::DeclareCursor && sql->getCursor())
    flow.cursors.try_emplace(withoutQuotes(sql->getCursor()->getWordData()), &exec);
}

//===----------------------------------------------------------------------===//
// USE procedures
//===----------------------------------------------------------------------===//

void FlowBuilder::collectUse(FunctionPlan &read) {
  SourceUnit *unit = read.graph->unit;
  ProcedureDivision *division = unit ? unit->getProcDivision() : nullptr;
  if (!division)
    return;
  for (const Declaratives *declarative : division->getDeclElements()) {
    const UseStatement *use = declarative->getUseStmt();
    const std::uint32_t section = procedureOf(declarative->getSection(), nullptr);
    if (!use || section == noFlow || flow.procedureList[section].graph != read.graph)
      continue;
    switch (use->getTimingType()) {
    case UseTimingType::AfterException:
      if (use->getFileMode() != UseFileMode::None) {
        read.use.ofModes.push_back(section);
        if (use->isGlobal())
          read.use.globalOfModes.push_back(section);
      }
      for (const IdentifierExpression *name : use->getFileListElements())
        if (auto *file = llvm::dyn_cast<FileIdentifierExpression>(name))
          if (const FileDescription *description = file->getFileDescription()) {
            read.use.ofFile[description].push_back(section);
            if (use->isGlobal())
              read.use.globalOfFile[description].push_back(section);
          }
      break;
    case UseTimingType::BeforeReporting:
      read.reporting.push_back(section);
      break;
    case UseTimingType::AfterLabel:
    case UseTimingType::BeforeLabel:
    case UseTimingType::ForDebugging:
      read.enteredBySystem.push_back(section);
      break;
    default:
      break;
    }
  }
}

/// The USE procedures that a failing operation on \p file may enter. In what mode the file is open
/// when it fails is known at run time only, and a status of 47 to 49 arises just where the mode
/// does not fit the statement, so a procedure for any mode counts. \p isSpecific: one of
/// them always runs.
llvm::SmallVector<std::uint32_t, 4> FlowBuilder::useSectionsFor(const FileDescription *file,
                                                                bool &isSpecific) const {
  isSpecific = true;
  if (auto own = plan->use.ofFile.find(file); own != plan->use.ofFile.end())
    return {own->second.begin(), own->second.end()};
  llvm::SmallVector<std::uint32_t, 4> sections = plan->use.ofModes;
  for (const FunctionPlan *outer = plan->outer; outer; outer = outer->outer) {
    if (auto global = outer->use.globalOfFile.find(file); global != outer->use.globalOfFile.end()) {
      sections.append(global->second.begin(), global->second.end());
      return sections;
    }
    sections.append(outer->use.globalOfModes.begin(), outer->use.globalOfModes.end());
  }
  isSpecific = false;
  return sections;
}

//===----------------------------------------------------------------------===//
// Ranges and sites
//===----------------------------------------------------------------------===//

/// The number of the range from one procedure to another; of the program when both are noFlow.
std::uint32_t FlowBuilder::rangeOf(std::uint32_t begin, std::uint32_t end, FlowGraph *graph) {
  if (begin != noFlow) {
    const std::uint64_t key = std::uint64_t(begin) << 32 | end;
    auto [position, isNew] =
        rangeNumbers.try_emplace(key, static_cast<std::uint32_t>(flow.rangeList.size()));
    if (!isNew)
      return position->second;
  }
  FlowRange range;
  range.begin = begin;
  range.end = end;
  range.graph = graph;
  flow.rangeList.push_back(range);
  return static_cast<std::uint32_t>(flow.rangeList.size() - 1);
}

/// Simply going on at the exit is leaving the program, and at a procedure falling into it.
void FlowBuilder::addEdge(std::uint32_t from, std::uint32_t to, FlowEdgeKind kind) {
  if (from == noFlow || to == noFlow)
    return;
  if (kind == FlowEdgeKind::Next && flow.nodeList[to].kind == FlowNodeKind::Exit)
    kind = FlowEdgeKind::Leave;
  else if (kind == FlowEdgeKind::Next && flow.nodeList[to].kind == FlowNodeKind::Procedure &&
           flow.nodeList[from].kind != FlowNodeKind::Start)
    kind = FlowEdgeKind::FallsInto;
  flow.edgeList.push_back({from, to, kind});
}

void FlowBuilder::addSite(std::uint32_t node, std::uint32_t range, std::uint32_t returnsTo,
                          FlowEdgeKind into, FlowEdgeKind back, const CFGBlock *block) {
  if (block)
    plan->sitesInto.push_back({static_cast<std::uint32_t>(sites.size()), block});
  sites.push_back({node, range, returnsTo, into, back, firstSite[node]});
  firstSite[node] = static_cast<std::uint32_t>(sites.size() - 1);
}

/// Sorts the edges by the nodes that they lead from, and indexes them both ways. The order of the
/// edges of a node stays that in which they were found.
void FlowBuilder::sortEdges() {
  const std::size_t nodeCount = flow.nodeList.size();
  flow.outBegin.assign(nodeCount + 1, 0);
  flow.inBegin.assign(nodeCount + 1, 0);
  for (const FlowEdge &edge : flow.edgeList) {
    ++flow.outBegin[edge.from + 1];
    ++flow.inBegin[edge.to + 1];
  }
  for (std::size_t node = 0; node < nodeCount; ++node) {
    flow.outBegin[node + 1] += flow.outBegin[node];
    flow.inBegin[node + 1] += flow.inBegin[node];
  }
  std::vector<FlowEdge> sorted(flow.edgeList.size());
  std::vector<std::uint32_t> next(flow.outBegin.begin(), flow.outBegin.end() - 1);
  for (const FlowEdge &edge : flow.edgeList)
    sorted[next[edge.from]++] = edge;
  flow.edgeList = std::move(sorted);
  flow.incoming.resize(flow.edgeList.size());
  next.assign(flow.inBegin.begin(), flow.inBegin.end() - 1);
  for (std::uint32_t number = 0; number < flow.edgeList.size(); ++number)
    flow.incoming[next[flow.edgeList[number].to]++] = number;
}

} // namespace tarka
