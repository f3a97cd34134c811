//===- FlowFacts.cpp - what a maintainer asks about a program --------------===//

#include "Flow/FlowFacts.h"
#include "AST/Statement.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

class FactCollector {
public:
  explicit FactCollector(const FlowGraph &described)
      : graph(described), flow(described.getModule()) {}

  FlowFacts collect();

private:
  void countNodes();
  void countWays();
  void explainDead(ProcedureFacts &facts);
  void collectRanges();
  void findLeaving();
  void findOverlaps();
  void findFallenInto();

  const FlowNode &node(std::uint32_t number) const { return flow.node(number); }
  ProcedureFacts *factsOf(std::uint32_t procedure) {
    return procedure == noFlow ? nullptr : &facts.procedures[procedure - graph.firstProcedure()];
  }
  /// The text of a range, as numbers of nodes; empty where it ends before it begins.
  std::pair<std::uint32_t, std::uint32_t> textOf(const RangeFacts &range) const {
    const FlowRange &described = flow.ranges()[range.range];
    return {flow.procedure(described.begin).entry, flow.procedure(described.end).end};
  }

  const FlowGraph &graph;
  const FlowModule &flow;
  FlowFacts facts;
  llvm::DenseSet<std::uint32_t> neverReturning; ///< statements that perform, by their nodes
};

FlowFacts FactCollector::collect() {
  facts.graph = &graph;
  for (const FlowPerform &perform : flow.performs())
    if (!flow.ranges()[perform.range].completes && perform.kind != FlowEdgeKind::Declarative)
      neverReturning.insert(perform.node);
  facts.procedures.resize(graph.procedures().size());
  for (std::uint32_t at = 0; at < facts.procedures.size(); ++at)
    facts.procedures[at].procedure = graph.firstProcedure() + at;
  countNodes();
  countWays();
  for (ProcedureFacts &procedure : facts.procedures)
    explainDead(procedure);
  collectRanges();
  findLeaving();
  findOverlaps();
  findFallenInto();
  return std::move(facts);
}

/// A PERFORM has its condition counted at the loop test, and what EXIT PROGRAM does is not decided
/// in the program.
static bool decidesNothing(const FlowNode &one) {
  if (one.getKind() == FlowNodeKind::ProcedureEnd || one.getKind() == FlowNodeKind::Start)
    return true;
  return one.getKind() == FlowNodeKind::Statement &&
         (one.getStatement()->getType() == StatementType::Perform ||
          one.getStatement()->getType() == StatementType::ExitProgram);
}

void FactCollector::countNodes() {
  for (const FlowNode &one : graph.nodes()) {
    ProcedureFacts *procedure = factsOf(one.getProcedure());
    if (!procedure)
      continue;
    if (one.isWritten()) {
      ++procedure->statements;
      procedure->depth = std::max(procedure->depth, one.getDepth());
    }
    if (one.getKind() == FlowNodeKind::LoopTest)
      ++procedure->loops;
    // The outcomes of a statement other than the first each make a decision.
    unsigned outcomes = 0;
    for (const FlowEdge &edge : one.successors())
      switch (edge.kind) {
      case FlowEdgeKind::Return:
      case FlowEdgeKind::DeclarativeEnd:
      case FlowEdgeKind::Declarative:
      case FlowEdgeKind::FallsInto:
      case FlowEdgeKind::Handler:
        break;
      default:
        ++outcomes;
      }
    if (!decidesNothing(one) && outcomes > 1)
      procedure->complexity += outcomes - 1;
  }
}

/// Fan-in and fan-out: GO TO, PERFORM and the like, each pair of procedures once.
void FactCollector::countWays() {
  llvm::DenseSet<std::uint64_t> seen;
  auto count = [&](std::uint32_t from, std::uint32_t to) {
    if (from == to || !seen.insert(std::uint64_t(from) << 32 | to).second)
      return;
    if (ProcedureFacts *source = factsOf(from))
      ++source->fanOut;
    if (ProcedureFacts *target = factsOf(to))
      ++target->fanIn;
  };
  for (const FlowNode &one : graph.nodes())
    for (const FlowEdge &edge : one.successors())
      if (edge.kind != FlowEdgeKind::FallsInto && one.getKind() != FlowNodeKind::Start &&
          node(edge.to).getKind() == FlowNodeKind::Procedure)
        count(one.getProcedure(), node(edge.to).getProcedure());
  for (const FlowCall &call : flow.calls())
    if (node(call.node).getParent() == &graph && !call.isOfTransaction())
      if (ProcedureFacts *caller = factsOf(node(call.node).getProcedure()))
        ++caller->fanOut;
}

void FactCollector::explainDead(ProcedureFacts &procedure) {
  const FlowProcedure &described = flow.procedure(procedure.procedure);
  if (node(described.entry).isReached())
    return;
  // What leads here is not reached either, or it would be.
  procedure.dead = DeadReason::NoWayIn;
  std::uint32_t above = noFlow;
  for (std::uint32_t number : node(described.entry).predecessors()) {
    const FlowEdge &edge = flow.edges()[number];
    if (edge.kind == FlowEdgeKind::FallsInto)
      above = edge.from;
    else if (procedure.dead == DeadReason::NoWayIn) {
      procedure.dead = DeadReason::OnlyFromDead;
      procedure.because = edge.from;
    }
  }
  if (procedure.dead == DeadReason::OnlyFromDead || above == noFlow)
    return;
  // Control does not come to the end of what stands above: because of a PERFORM that never returns,
  // or of a transfer.
  const std::uint32_t before = node(above).getProcedure();
  if (before == noFlow || !node(flow.procedure(before).entry).isReached()) {
    procedure.dead = DeadReason::OnlyFromDead;
    procedure.because = before == noFlow ? noFlow : flow.procedure(before).entry;
    return;
  }
  procedure.dead = DeadReason::BehindTransfer;
  for (std::uint32_t at = above; at > flow.procedure(before).entry; --at)
    if (node(at).isReached() && node(at).isWritten()) {
      procedure.because = at;
      break;
    }
  if (neverReturning.contains(procedure.because))
    procedure.dead = DeadReason::RangeNeverEnds;
}

void FactCollector::collectRanges() {
  llvm::DenseMap<std::uint32_t, std::size_t> places;
  for (const FlowPerform &perform : flow.performs()) {
    const FlowNode &performer = node(perform.node);
    if (performer.getParent() != &graph || flow.ranges()[perform.range].graph != &graph ||
        perform.kind == FlowEdgeKind::Loop || perform.kind == FlowEdgeKind::Declarative)
      continue;
    auto [place, isNew] = places.try_emplace(perform.range, facts.ranges.size());
    if (isNew) {
      RangeFacts range;
      range.range = perform.range;
      const FlowRange &described = flow.ranges()[perform.range];
      range.neverReturns = described.reached && !described.completes;
      range.recursive = described.recursive;
      const auto [first, last] = textOf(range);
      range.endsBeforeStart = last < first;
      facts.ranges.push_back(range);
    }
    facts.ranges[place->second].performers.push_back(perform.node);
  }
}

/// GO TO and EXIT SECTION out of a range, of those that are reached.
void FactCollector::findLeaving() {
  struct Jump {
    std::uint32_t from, to;
  };
  std::vector<Jump> jumps;
  for (const FlowNode &one : graph.nodes()) {
    const bool isExit =
        one.getStatement() && one.getStatement()->getType() == StatementType::ExitSection;
    for (const FlowEdge &edge : one.successors())
      if (one.isReached() &&
          (isExit || edge.kind == FlowEdgeKind::GoTo || edge.kind == FlowEdgeKind::Depending ||
           edge.kind == FlowEdgeKind::Altered))
        jumps.push_back({edge.from, edge.to});
  }
  // The jumps are sorted. Ranges within ranges would be searched again and again, so the search is
  // bounded.
  std::size_t budget = 64 * (jumps.size() + facts.ranges.size()) + 100'000;
  for (RangeFacts &range : facts.ranges) {
    const auto [first, last] = textOf(range);
    if (!flow.ranges()[range.range].reached || last < first)
      continue;
    auto jump =
        llvm::partition_point(jumps, [begin = first](const Jump &j) { return j.from < begin; });
    for (; jump != jumps.end() && jump->from <= last && budget; ++jump, --budget)
      if (jump->to < first || jump->to > last) {
        range.leftBy = jump->from;
        break;
      }
  }
}

/// Ranges of which one begins within the other and ends after it.
void FactCollector::findOverlaps() {
  std::vector<RangeFacts *> sorted;
  for (RangeFacts &range : facts.ranges)
    if (!range.endsBeforeStart && flow.ranges()[range.range].reached)
      sorted.push_back(&range);
  llvm::sort(sorted, [&](const RangeFacts *a, const RangeFacts *b) {
    const auto [firstA, lastA] = textOf(*a);
    const auto [firstB, lastB] = textOf(*b);
    return firstA != firstB ? firstA < firstB : lastA > lastB;
  });
  std::vector<RangeFacts *> open;
  for (RangeFacts *range : sorted) {
    const auto [first, last] = textOf(*range);
    while (!open.empty() && textOf(*open.back()).second < first)
      open.pop_back();
    if (!open.empty() && textOf(*open.back()).second < last)
      open.back()->overlapsWith = range->range;
    open.push_back(range);
  }
}

/// Procedures that are performed and fallen into as well, except where a range around both is.
void FactCollector::findFallenInto() {
  std::vector<std::pair<std::uint32_t, std::uint32_t>> texts;
  texts.reserve(facts.ranges.size());
  for (const RangeFacts &range : facts.ranges)
    texts.push_back(textOf(range));
  llvm::sort(texts);
  std::vector<std::uint32_t> farthest;
  farthest.reserve(texts.size());
  for (const auto &[first, last] : texts)
    farthest.push_back(std::max(last, farthest.empty() ? 0 : farthest.back()));
  for (RangeFacts &range : facts.ranges) {
    if (!flow.ranges()[range.range].reached)
      continue;
    const std::uint32_t entry = textOf(range).first;
    for (std::uint32_t number : node(entry).predecessors()) {
      const FlowEdge &edge = flow.edges()[number];
      if (edge.kind != FlowEdgeKind::FallsInto || !node(edge.from).isReached() ||
          node(edge.from).getProcedure() == noFlow)
        continue;
      const auto around = llvm::partition_point(
          texts, [from = edge.from](const auto &text) { return text.first <= from; });
      const bool isWithin = around != texts.begin() &&
                            farthest[static_cast<std::size_t>(around - texts.begin()) - 1] >= entry;
      if (!isWithin)
        range.fallenIntoFrom = node(edge.from).getProcedure();
    }
  }
}

} // namespace

FlowFacts collectFacts(const FlowGraph &graph) {
  return FactCollector(graph).collect();
}

} // namespace tarka
