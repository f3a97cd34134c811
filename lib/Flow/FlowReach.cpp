//===- FlowReach.cpp - what is reached, and which ranges end ---------------===//
//
// A procedure that is performed runs in a context: the range that is to end.
// At the end of a procedure control returns if the range ends there, and falls
// into the next procedure if it does not. What is reached within a piece of
// text does not depend on the context, so nodes are passed once; contexts are
// followed from piece to piece only.
//
// A program can leave a range by GO TO and come to the end of another one that
// is still open. Compilers differ in what happens then: some fall through, for
// the range that was performed last is the one that counts, and some return from
// the one that is open. Both ways are in the graph.
//
//===----------------------------------------------------------------------===//

#include "Flow/FlowBuilder.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/SCCIterator.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

void FlowReach::run() {
  indexEdges();
  state.resize(builder.pieces.size());
  waiting.resize(flow.rangeList.size());
  piecesOf.resize(flow.rangeList.size());
  started.resize(flow.rangeList.size());
  foreign.resize(flow.procedureList.size());
  endingAt.resize(flow.procedureList.size());
  for (std::uint32_t range = 0; range < flow.rangeList.size(); ++range)
    if (flow.rangeList[range].end != noFlow)
      endingAt[flow.rangeList[range].end].push_back(range);
  // Contexts that meet in many pieces are followed one by one up to this number; then they are
  // taken for one that may end everywhere, which finds too many ways but none too few.
  budget = 100'000 + 32 * builder.pieces.size();

  for (const auto &plan : builder.plans) {
    if (plan->graph->report || plan->graph->unit->isNested())
      continue;
    start(plan->mainRange);
  }
  drainAll();
  for (const auto &plan : builder.plans)
    plan->graph->called = plan->graph->report || flow.nodeList[plan->graph->nodeBegin].reached;
  for (const auto &plan : builder.plans)
    if (!plan->graph->called)
      start(plan->mainRange);
  drainAll();
  for (const auto &plan : builder.plans)
    for (std::uint32_t section : plan->reporting)
      if (flow.nodeList[flow.procedureList[section].entry].reached)
        flow.nodeList[plan->graph->nodeBegin].reached = true;
  addEdges();
  for (const auto &plan : builder.plans)
    markBlocks(*plan);
  findRecursion();
}

/// The edges that are there already, by the node that they lead from.
void FlowReach::indexEdges() {
  edgeBegin.assign(flow.nodeList.size() + 1, 0);
  for (const FlowEdge &edge : flow.edgeList)
    ++edgeBegin[edge.from + 1];
  for (std::size_t node = 0; node < flow.nodeList.size(); ++node)
    edgeBegin[node + 1] += edgeBegin[node];
  std::vector<FlowEdge> sorted(flow.edgeList.size());
  std::vector<std::uint32_t> next(edgeBegin.begin(), edgeBegin.end() - 1);
  for (const FlowEdge &edge : flow.edgeList)
    sorted[next[edge.from]++] = edge;
  flow.edgeList = std::move(sorted);
}

//===----------------------------------------------------------------------===//
// The walk
//===----------------------------------------------------------------------===//

void FlowReach::start(std::uint32_t range) {
  if (started[range])
    return;
  started[range] = true;
  FlowRange &begun = flow.rangeList[range];
  begun.reached = true;
  const std::uint32_t node =
      begun.begin == noFlow ? begun.graph->nodeBegin : flow.procedureList[begun.begin].entry;
  enter(range, builder.pieceOf[node]);
  reach(node);
  if (begun.begin == noFlow)
    for (const auto &plan : builder.plans)
      if (plan->graph == begun.graph)
        for (std::uint32_t section : plan->enteredBySystem)
          start(builder.rangeOf(section, section, plan->graph));
}

void FlowReach::drainAll() {
  drain();
  while (completeThroughOthers()) {
    drain();
    sitesOfPiece.clear();
  }
}

void FlowReach::drain() {
  while (!open.empty() || !events.empty()) {
    if (!events.empty()) {
      const Event event = events.back();
      events.pop_back();
      // The context is in the piece already; take it to where the piece leads.
      const PieceState &piece = state[event.piece];
      for (std::size_t at = 0; at < state[event.piece].leadsTo.size(); ++at)
        enter(event.context, builder.pieceOf[state[event.piece].leadsTo[at]]);
      if (piece.endReached)
        atEnd(event.context, builder.pieces[event.piece].procedure);
      continue;
    }
    const std::uint32_t node = open.back();
    open.pop_back();
    process(node);
  }
}

void FlowReach::reach(std::uint32_t node) {
  if (flow.nodeList[node].reached)
    return;
  flow.nodeList[node].reached = true;
  open.push_back(node);
}

/// The context that stands for all, once there are too many.
static constexpr std::uint32_t anyContext = noFlow;

void FlowReach::enter(std::uint32_t context, std::uint32_t piece) {
  PieceState &entered = state[piece];
  if (entered.anyContext)
    return;
  if (context != anyContext && budget == 0)
    context = anyContext;
  if (context == anyContext) {
    entered.anyContext = true;
  } else {
    if (!inPiece.insert(std::uint64_t(context) << 32 | piece).second)
      return;
    --budget;
    entered.contexts.push_back(context);
    piecesOf[context].push_back(piece);
  }
  events.push_back({context, piece});
}

/// From a piece that control is in to a node of another one.
void FlowReach::goOn(std::uint32_t fromPiece, std::uint32_t node) {
  const std::uint32_t piece = builder.pieceOf[node];
  reach(node);
  if (piece == fromPiece)
    return;
  if (!led.insert(std::uint64_t(fromPiece) << 32 | piece).second)
    return;
  state[fromPiece].leadsTo.push_back(node);
  if (state[fromPiece].anyContext)
    enter(anyContext, piece);
  for (std::uint32_t context : state[fromPiece].contexts)
    enter(context, piece);
}

void FlowReach::process(std::uint32_t node) {
  const std::uint32_t piece = builder.pieceOf[node];
  for (std::uint32_t edge = edgeBegin[node]; edge < edgeBegin[node + 1]; ++edge) {
    const FlowEdge &taken = flow.edgeList[edge];
    // A called program returns; the end of a run does not.
    if (taken.to == flow.nodeList[node].graph->nodeEnd - 1) {
      flow.nodeList[taken.to].reached = true;
      if (taken.kind != FlowEdgeKind::EndOfRun)
        leave(*flow.nodeList[node].graph);
      continue;
    }
    goOn(piece, taken.to);
  }
  for (std::uint32_t site = builder.firstSite[node]; site != noFlow;
       site = builder.sites[site].nextOfNode)
    enterSite(site);
  if (flow.nodeList[node].kind == FlowNodeKind::ProcedureEnd) {
    const std::uint32_t procedure = flow.nodeList[node].procedure;
    flow.procedureList[procedure].endReached = true;
    state[piece].endReached = true;
    if (state[piece].anyContext)
      atEnd(anyContext, procedure);
    // More contexts may come while these go on.
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (std::size_t at = 0; at < state[piece].contexts.size(); ++at)
      atEnd(state[piece].contexts[at], procedure);
  }
  if (auto targets = altered.find(node); targets != altered.end())
    for (std::uint32_t target : targets->second)
      goOn(piece, target);
  if (flow.nodeList[node].kind == FlowNodeKind::Statement) {
    callWhatIsHeld(node);
    if (auto *statement = llvm::dyn_cast<AlterStatement>(flow.nodeList[node].statement))
      alter(*statement);
  }
}

/// The GO TO of the paragraphs that are altered goes to the new places from now on.
void FlowReach::alter(const AlterStatement &statement) {
  for (const AlterItem *item : statement.getAlterListElements()) {
    auto jump = builder.alterable.find(item->getSrcParagraph());
    const std::uint32_t target = builder.entryOf(item->getDstSection(), item->getDstParagraph());
    if (jump == builder.alterable.end() || target == noFlow)
      continue;
    auto &targets = altered[jump->second];
    if (llvm::is_contained(targets, target))
      continue;
    targets.push_back(target);
    if (flow.nodeList[jump->second].reached)
      goOn(builder.pieceOf[jump->second], target);
  }
}

/// A CALL whose program is not known may be of any program that can be called from there.
void FlowReach::callWhatIsHeld(std::uint32_t node) {
  const Statement *statement = flow.nodeList[node].statement;
  const auto *call = llvm::dyn_cast<CallStatement>(statement);
  const bool isHeld = call ? !llvm::isa<NonNumericLiteralExpression>(call->getProcedureName())
                           : statement->getType() == StatementType::Set;
  SourceUnit *unit = flow.nodeList[node].graph->unit;
  if (!isHeld || !unit || !heldCalls.insert(unit).second)
    return;
  for (const std::string &name : unit->getCallableList())
    if (const FunctionPlan *plan = builder.findCallable(unit, name))
      start(plan->mainRange);
}

void FlowReach::enterSite(std::uint32_t number) {
  const FlowSite &site = builder.sites[number];
  waiting[site.range].push_back(number);
  start(site.range);
  if (flow.rangeList[site.range].completes)
    goOn(builder.pieceOf[site.node], site.returnsTo);
}

void FlowReach::leave(FlowGraph &graph) {
  for (const auto &plan : builder.plans)
    if (plan->graph == &graph && plan->mainRange != noFlow)
      complete(plan->mainRange);
}

void FlowReach::complete(std::uint32_t range) {
  if (flow.rangeList[range].completes)
    return;
  flow.rangeList[range].completes = true;
  for (std::uint32_t number : waiting[range]) {
    const FlowSite &site = builder.sites[number];
    if (site.returnsTo != noFlow)
      goOn(builder.pieceOf[site.node], site.returnsTo);
  }
}

/// Control is at the end of \p procedure in \p context.
void FlowReach::atEnd(std::uint32_t context, std::uint32_t procedure) {
  if (context != anyContext && flow.rangeList[context].end == procedure)
    return complete(context);
  if (context == anyContext)
    for (std::uint32_t range : endingAt[procedure])
      if (started[range])
        complete(range);
  if (!endingAt[procedure].empty() && context != anyContext)
    foreign[procedure].push_back(context);
  FlowProcedure &left = flow.procedureList[procedure];
  left.fallsThrough = true;
  if (left.fallsTo == noFlow)
    return;
  if (left.fallsTo == left.graph->nodeEnd - 1) {
    flow.nodeList[left.fallsTo].reached = true;
    return leave(*left.graph);
  }
  // Only this context goes on: the piece as a whole may be left by a return.
  reach(left.fallsTo);
  enter(context, builder.pieceOf[left.fallsTo]);
}

//===----------------------------------------------------------------------===//
// Ends of ranges that others come to
//===----------------------------------------------------------------------===//

/// Completes the ranges that are not left at their ends by themselves, but by what they perform:
/// that is how a GO TO out of a performed procedure to the exit of the one around it works. Gives
/// whether there was one.
bool FlowReach::completeThroughOthers() {
  bool isAny = false;
  for (std::uint32_t range = 0; range < flow.rangeList.size(); ++range) {
    const FlowRange &open1 = flow.rangeList[range];
    if (!started[range] || open1.completes || open1.end == noFlow || foreign[open1.end].empty())
      continue;
    if (isWithin(range, foreign[open1.end])) {
      complete(range);
      isAny = true;
    }
  }
  return isAny;
}

/// Whether one of \p inner is performed, directly or not, while \p outer is.
bool FlowReach::isWithin(std::uint32_t outer, llvm::ArrayRef<std::uint32_t> inner) {
  llvm::DenseSet<std::uint32_t> wanted(inner.begin(), inner.end());
  llvm::DenseSet<std::uint32_t> seen;
  llvm::SmallVector<std::uint32_t> next = {outer};
  while (!next.empty()) {
    const std::uint32_t range = next.pop_back_val();
    for (std::uint32_t performed : performedIn(range)) {
      if (wanted.contains(performed))
        return true;
      if (seen.insert(performed).second)
        next.push_back(performed);
    }
    // A search that takes too long counts as found, which adds a way and loses none.
    if (seen.size() > searchLimit)
      return true;
  }
  searchLimit -= std::min<std::size_t>(searchLimit, seen.size());
  return false;
}

/// The ranges that are performed from the pieces that \p range passes.
llvm::SmallVector<std::uint32_t> FlowReach::performedIn(std::uint32_t range) {
  if (sitesOfPiece.empty()) {
    sitesOfPiece.resize(builder.pieces.size());
    for (const FlowSite &site : builder.sites)
      if (flow.nodeList[site.node].reached)
        sitesOfPiece[builder.pieceOf[site.node]].push_back(site.range);
  }
  llvm::SmallVector<std::uint32_t> performed;
  for (std::uint32_t piece : piecesOf[range])
    performed.append(sitesOfPiece[piece].begin(), sitesOfPiece[piece].end());
  return performed;
}

//===----------------------------------------------------------------------===//
// What comes of it
//===----------------------------------------------------------------------===//

void FlowReach::addEdges() {
  auto add = [&](std::uint32_t from, std::uint32_t to, FlowEdgeKind kind) {
    if (from != noFlow && to != noFlow)
      flow.edgeList.push_back({from, to, kind});
  };
  // What is not reached keeps its ways, as far as they do not depend on a performer.
  for (const FlowProcedure &procedure : flow.procedureList)
    if (procedure.end != noFlow && procedure.fallsTo != noFlow &&
        (procedure.fallsThrough || !flow.nodeList[procedure.end].reached))
      add(procedure.end, procedure.fallsTo,
          procedure.fallsTo == procedure.graph->nodeEnd - 1 ? FlowEdgeKind::Leave
                                                            : FlowEdgeKind::FallsInto);
  for (const FlowSite &site : builder.sites) {
    const FlowRange &range = flow.rangeList[site.range];
    const FlowNode &node = flow.nodeList[site.node];
    if (range.begin == noFlow) {
      // A call; it has no edge into the other program's graph.
      if (range.completes || !node.reached)
        add(site.node, site.returnsTo, site.back);
      continue;
    }
    flow.performList.push_back({site.node, site.range, site.returnsTo, site.into});
    if (range.graph != node.graph)
      continue;
    // One node may perform a range with several ways back.
    bool isFirst = true;
    for (std::uint32_t other = site.nextOfNode; other != noFlow;
         other = builder.sites[other].nextOfNode)
      isFirst &= builder.sites[other].range != site.range || builder.sites[other].into != site.into;
    if (isFirst)
      add(site.node, flow.procedureList[range.begin].entry, site.into);
    // The loop's own way into the range shares the way back of the first one.
    if (range.completes && node.reached && site.into != FlowEdgeKind::Loop)
      add(flow.procedureList[range.end].end, site.returnsTo, site.back);
  }
  for (const auto &[jump, targets] : altered)
    for (std::uint32_t target : targets)
      add(jump, target, FlowEdgeKind::Altered);
  for (const auto &plan : builder.plans) {
    for (std::uint32_t section : plan->reporting)
      add(plan->graph->nodeBegin, flow.procedureList[section].entry, FlowEdgeKind::Declarative);
    for (std::uint32_t section : plan->enteredBySystem)
      add(plan->graph->nodeBegin, flow.procedureList[section].entry, FlowEdgeKind::Declarative);
  }
}

/// Marks the blocks that control passes, those without nodes included, and those that it falls
/// from.
void FlowReach::markBlocks(FunctionPlan &plan) {
  std::vector<bool> &passed = plan.graph->reachedBlocks;
  passed.assign(plan.blocks.size(), false);
  auto pass = [&](const CFGBlock *block) {
    while (block && !passed[static_cast<std::size_t>(block->getPlace())]) {
      const auto place = static_cast<std::size_t>(block->getPlace());
      passed[place] = true;
      block = plan.firstNode[place] == noFlow ? plan.passesTo[place] : nullptr;
    }
  };
  if (plan.graph->getStart()->isReached())
    pass(plan.blocks.front());
  for (const FlowNode &node : plan.graph->nodes())
    if (node.isReached())
      pass(node.getBlock());
  for (const auto &[from, block] : plan.edgesInto)
    if (flow.nodeList[from].reached)
      pass(block);
  for (const auto &[site, block] : plan.sitesInto)
    if (flow.nodeList[builder.sites[site].node].reached &&
        flow.rangeList[builder.sites[site].range].completes)
      pass(block);
  for (const auto &[procedure, block] : plan.fallsInto)
    if (flow.procedureList[procedure].fallsThrough &&
        flow.procedureList[procedure].fallsTo != noFlow)
      pass(block);
  for (const auto &[procedure, block] : plan.exitOf) {
    const FlowProcedure &left = flow.procedureList[procedure];
    if (left.endReached)
      passed[static_cast<std::size_t>(block->getPlace())] = true;
    if (left.fallsThrough && block->getSuccessorBlock())
      passed[static_cast<std::size_t>(block->getSuccessorBlock()->getPlace())] = true;
  }

  std::vector<bool> &falling = plan.graph->fallingBlocks;
  falling.assign(plan.blocks.size(), false);
  for (std::size_t place = 0; place + 1 < plan.blocks.size(); ++place) {
    const CFGBlock *block = plan.blocks[place];
    if (!passed[place] || block->getHaveTerminator() || block->getSuccessorBlock())
      continue;
    // A statement such as STOP RUN may stand last.
    const std::uint32_t last = plan.lastNode[place];
    if (last != noFlow && endsRun(last))
      continue;
    const std::uint32_t piece = plan.pieceOfBlock[place];
    const std::uint32_t procedure = builder.pieces[piece].procedure;
    const CFGBlock *next = nullptr;
    if (builder.fallOf(plan, block, next) == noFlow && next)
      falling[place] = true;
    else if (procedure != noFlow)
      falling[place] = flow.procedureList[procedure].fallsThrough &&
                       flow.procedureList[procedure].fallsTo != noFlow;
  }
}

/// Whether control never continues after \p node.
bool FlowReach::endsRun(std::uint32_t node) const {
  for (std::uint32_t edge = edgeBegin[node]; edge < edgeBegin[node + 1]; ++edge)
    if (flow.edgeList[edge].kind != FlowEdgeKind::EndOfRun)
      return false;
  return builder.firstSite[node] == noFlow;
}

namespace {

/// The ranges with those that they perform, for scc_iterator; the last one performs all others.
struct PerformGraph {
  struct Node {
    const std::vector<Node> *all;
    llvm::SmallVector<std::uint32_t> next;
    std::uint32_t number;
  };
  std::vector<Node> nodes;
};

} // namespace

} // namespace tarka

namespace llvm {

template <> struct GraphTraits<const tarka::PerformGraph *> {
  using NodeRef = const tarka::PerformGraph::Node *;
  struct ChildIteratorType : iterator_adaptor_base<ChildIteratorType, const std::uint32_t *,
                                                   std::random_access_iterator_tag, NodeRef,
                                                   std::ptrdiff_t, NodeRef *, NodeRef> {
    ChildIteratorType(const std::uint32_t *at, NodeRef of) : iterator_adaptor_base(at), from(of) {}
    NodeRef operator*() const { return &(*from->all)[*I]; }
    NodeRef from;
  };

  static NodeRef getEntryNode(const tarka::PerformGraph *graph) { return &graph->nodes.back(); }
  static ChildIteratorType child_begin(NodeRef node) { return {node->next.begin(), node}; }
  static ChildIteratorType child_end(NodeRef node) { return {node->next.end(), node}; }
};

} // namespace llvm

namespace tarka {

void FlowReach::findRecursion() {
  PerformGraph graph;
  const auto count = static_cast<std::uint32_t>(flow.rangeList.size());
  graph.nodes.resize(count + 1);
  sitesOfPiece.clear();
  for (std::uint32_t range = 0; range <= count; ++range) {
    graph.nodes[range].all = &graph.nodes;
    graph.nodes[range].number = range;
  }
  for (std::uint32_t range = 0; range < count; ++range) {
    if (!started[range])
      continue;
    graph.nodes[count].next.push_back(range);
    // Where a call leads is another matter; a program that begins performs what stands in it.
    graph.nodes[range].next = performedIn(range);
  }
  const PerformGraph *described = &graph;
  for (auto component = llvm::scc_begin(described); !component.isAtEnd(); ++component)
    if (component.hasCycle())
      for (const PerformGraph::Node *node : *component)
        if (node->number < count)
          flow.rangeList[node->number].recursive = true;
}

} // namespace tarka
