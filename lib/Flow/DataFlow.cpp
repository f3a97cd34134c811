//===- DataFlow.cpp - data-flow problems with performed ranges -------------===//
//
// A context is a performed range, or the program itself, with the nodes that
// control passes while it runs. Within a context a statement that performs a
// range is one step, whose effect is the summary of the range.
//
// First, every context is solved for an unknown value at its entry: the value at
// a node is then "what was generated on a way from the entry, and what is kept of
// the value there". At the exit this is the summary. Contexts are solved from the
// inner ones outwards, again when a summary in them changes. Then the values at
// the entries are found from the program inwards, which gives the facts.
//
// A backward problem is the same on the ways reversed.
//
//===----------------------------------------------------------------------===//

#include "Flow/DataFlow.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"
#include <tuple>

namespace tarka {

namespace {

using llvm::BitVector;

/// out = generated | (in & kept)
struct Transfer {
  BitVector generated, kept;

  explicit Transfer(unsigned facts = 0) : generated(facts), kept(facts) {}

  /// Adds the ways of \p other; gives whether that was something new.
  bool join(const Transfer &other) {
    const bool isMore = add(generated, other.generated);
    return add(kept, other.kept) || isMore;
  }
  /// This, and \p next after it.
  Transfer then(const Transfer &next) const {
    Transfer both = *this;
    both.generated &= next.kept;
    both.generated |= next.generated;
    both.kept &= next.kept;
    return both;
  }
  BitVector applyTo(const BitVector &value) const {
    BitVector result = value;
    result &= kept;
    result |= generated;
    return result;
  }
  static bool add(BitVector &to, const BitVector &more) {
    if (!more.test(to))
      return false;
    to |= more;
    return true;
  }
};

/// The number of a context that is not there.
constexpr std::uint32_t noContext = ~0u;

/// A way from one node of a context to another, by their places in it. With a callee, the range
/// that is performed on the way.
struct Way {
  std::uint32_t from, to;
  std::uint32_t callee;
};

/// A range or the program. Nodes are in reverse post-order, so that most ways lead onwards.
struct Context {
  std::uint32_t range = noFlow; ///< noFlow for the program
  std::vector<std::uint32_t> nodes;
  std::vector<Way> ways; ///< sorted by the places that they lead from
  std::uint32_t entry = 0, exit = noContext;
  /// The ends of other ranges around that control comes to here: a GO TO has left this one.
  llvm::SmallVector<std::uint32_t, 0> foreignEnds;
  llvm::SmallVector<std::uint32_t, 4> performers; ///< contexts
  std::vector<Transfer> solution;                 ///< by place
  Transfer summary;                               ///< of a range
  BitVector value;                                ///< at the entry
  bool isSolved = false, isQueued = false;
};

} // namespace

class DataFlow::Solver {
public:
  explicit Solver(DataFlow &dataFlow)
      : problem(dataFlow), graph(dataFlow.graph), module(graph.getModule()),
        isForward(dataFlow.direction == FlowDirection::Forward) {}

  void run() {
    findSites();
    if (!makeContexts())
      makeOneContext();
    findForeignEnds();
    orderContexts();
    // What comes to the end of another range that is open goes to the performers of that one. This
    // hardly ever happens, so it is a value of its own, found by repetition.
    do {
      solveContexts();
      spreadValues();
    } while (collectEscapes());
    for (const Context &context : contexts)
      for (std::size_t at = 0; at < context.nodes.size(); ++at)
        problem.values[context.nodes[at] - graph.firstNode()] |=
            context.solution[at].applyTo(context.value);
  }

private:
  //===--------------------------------------------------------------------===//
  // Contexts
  //===--------------------------------------------------------------------===//

  void findSites() {
    llvm::ArrayRef<FlowPerform> performs = module.performs();
    for (std::uint32_t number = 0; number < performs.size(); ++number) {
      const FlowPerform &perform = performs[number];
      const FlowNode &performer = module.node(perform.node);
      if (performer.getParent() != &graph || !performer.isReached() ||
          module.ranges()[perform.range].graph != &graph)
        continue;
      sites[perform.node].push_back(number);
      contextOf.try_emplace(perform.range, noContext);
    }
  }

  /// Calls \p visit(to, range) for every way on from \p node in the context of \p range.
  template <typename Visit> void forEachWay(std::uint32_t node, std::uint32_t range, Visit visit) {
    const FlowNode &from = module.node(node);
    const bool isEnd = from.getKind() == FlowNodeKind::ProcedureEnd;
    if (isEnd && range != noFlow && module.ranges()[range].end == from.getProcedure())
      return;
    auto found = sites.find(node);
    for (const FlowEdge &edge : from.successors()) {
      const bool isReturn =
          isEnd && edge.kind != FlowEdgeKind::FallsInto && edge.kind != FlowEdgeKind::Leave;
      if (!isReturn && (found == sites.end() || !leadsIntoRange(edge, found->second)))
        visit(edge.to, noFlow);
    }
    if (found != sites.end())
      for (std::uint32_t number : found->second) {
        const FlowPerform &perform = module.performs()[number];
        if (perform.returnsTo != noFlow && module.ranges()[perform.range].completes)
          visit(perform.returnsTo, perform.range);
        else
          visit(noFlow, perform.range);
      }
  }

  bool leadsIntoRange(const FlowEdge &edge, llvm::ArrayRef<std::uint32_t> numbers) const {
    return llvm::any_of(numbers, [&](std::uint32_t number) {
      const FlowPerform &perform = module.performs()[number];
      return edge.kind == perform.kind &&
             edge.to == module.procedure(module.ranges()[perform.range].begin).entry;
    });
  }

  /// Gives false where the contexts hold too many nodes together.
  bool makeContexts() {
    std::size_t budget = 200'000 + 16 * graph.size();
    placeOf.assign(graph.size(), noContext);
    contexts.emplace_back();
    if (!fill(contexts.front(), graph.firstNode(), budget))
      return false;
    for (auto &[range, number] : contextOf) {
      number = static_cast<std::uint32_t>(contexts.size());
      contexts.emplace_back();
      contexts.back().range = range;
      const FlowRange &described = module.ranges()[range];
      if (!fill(contexts.back(), module.procedure(described.begin).entry, budget))
        return false;
    }
    for (std::uint32_t number = 0; number < contexts.size(); ++number)
      for (Way &way : contexts[number].ways)
        if (way.callee != noFlow) {
          way.callee = contextOf.lookup(way.callee);
          if (!llvm::is_contained(contexts[way.callee].performers, number))
            contexts[way.callee].performers.push_back(number);
        }
    return true;
  }

  /// Every edge as it stands, in one context.
  void makeOneContext() {
    contexts.clear();
    sites.clear();
    contextOf.clear();
    isOneContext = true;
    placeOf.assign(graph.size(), noContext);
    std::size_t budget = ~std::size_t(0);
    contexts.emplace_back();
    fill(contexts.front(), graph.firstNode(), budget);
  }

  bool fill(Context &context, std::uint32_t entry, std::size_t &budget) {
    // Depth first; the nodes come out in post-order.
    struct Frame {
      std::uint32_t node;
      llvm::SmallVector<std::uint32_t, 4> next;
    };
    constexpr std::uint32_t isOpen = noContext - 1;
    std::vector<Frame> frames;
    std::vector<std::uint32_t> order;
    auto open = [&](std::uint32_t node) {
      std::uint32_t &place = placeOf[node - graph.firstNode()];
      if (place != noContext)
        return;
      place = isOpen;
      frames.push_back({node, {}});
      llvm::SmallVectorImpl<std::uint32_t> &next = frames.back().next;
      auto note = [&](std::uint32_t to, std::uint32_t) {
        if (to != noFlow)
          next.push_back(to);
      };
      isOneContext ? forEachEdge(node, note) : forEachWay(node, context.range, note);
    };
    open(entry);
    while (!frames.empty()) {
      if (frames.back().next.empty()) {
        order.push_back(frames.back().node);
        frames.pop_back();
        continue;
      }
      const std::uint32_t next = frames.back().next.pop_back_val();
      open(next);
    }
    const bool fits = order.size() <= budget;
    budget -= std::min(budget, order.size());
    // A backward problem goes the other way.
    if (isForward)
      std::reverse(order.begin(), order.end());
    for (std::uint32_t at = 0; at < order.size(); ++at)
      placeOf[order[at] - graph.firstNode()] = at;
    const std::uint32_t endOfRange =
        context.range == noFlow ? noFlow : module.procedure(module.ranges()[context.range].end).end;
    context.entry = placeOf[entry - graph.firstNode()];
    for (std::uint32_t at = 0; at < order.size(); ++at) {
      if (order[at] == endOfRange)
        context.exit = at;
      auto add = [&](std::uint32_t to, std::uint32_t callee) {
        // A range that never ends has no way back, but what runs in it is performed from here.
        const std::uint32_t place = to == noFlow ? noContext : placeOf[to - graph.firstNode()];
        context.ways.push_back(isForward ? Way{at, place, callee} : Way{place, at, callee});
      };
      isOneContext ? forEachEdge(order[at], add) : forEachWay(order[at], context.range, add);
    }
    if (!isForward)
      std::swap(context.entry, context.exit);
    llvm::sort(context.ways, [](const Way &a, const Way &b) {
      return std::tie(a.from, a.to, a.callee) < std::tie(b.from, b.to, b.callee);
    });
    for (std::uint32_t node : order)
      placeOf[node - graph.firstNode()] = noContext;
    context.nodes = std::move(order);
    return fits;
  }

  template <typename Visit> void forEachEdge(std::uint32_t node, Visit visit) {
    for (const FlowEdge &edge : module.node(node).successors())
      visit(edge.to, noFlow);
  }

  /// The ends of ranges around a context that control passes in it.
  void findForeignEnds() {
    llvm::DenseMap<std::uint32_t, llvm::SmallVector<std::uint32_t, 1>> endingAt;
    for (std::uint32_t number = 0; number < contexts.size(); ++number)
      if (contexts[number].range != noFlow)
        endingAt[module.procedure(module.ranges()[contexts[number].range].end).end].push_back(
            number);
    std::size_t budget = 1'000'000;
    for (std::uint32_t number = 0; number < contexts.size(); ++number) {
      Context &context = contexts[number];
      if (context.range == noFlow)
        continue;
      const std::uint32_t own = module.procedure(module.ranges()[context.range].end).end;
      llvm::SmallVector<std::uint32_t> passed;
      for (std::uint32_t at = 0; at < context.nodes.size(); ++at)
        if (context.nodes[at] != own && endingAt.contains(context.nodes[at]))
          passed.push_back(at);
      if (passed.empty())
        continue;
      std::vector<bool> around(contexts.size());
      llvm::SmallVector<std::uint32_t> open = {number};
      while (!open.empty() && budget > 0)
        for (std::uint32_t performer : contexts[open.pop_back_val()].performers)
          if (!around[performer]) {
            around[performer] = true;
            open.push_back(performer);
            budget -= std::min<std::size_t>(budget, 1);
          }
      for (std::uint32_t at : passed)
        if (budget == 0 || llvm::any_of(endingAt[context.nodes[at]],
                                        [&](std::uint32_t outer) { return around[outer]; })) {
          context.foreignEnds.push_back(at);
          escaped.try_emplace(context.nodes[at], BitVector(problem.factCount));
        }
    }
  }

  /// From the inner contexts outwards, as far as none performs itself.
  void orderContexts() {
    std::vector<char> seen(contexts.size());
    struct Frame {
      std::uint32_t context;
      std::size_t next = 0;
    };
    for (std::uint32_t root = 0; root < contexts.size(); ++root) {
      if (seen[root])
        continue;
      seen[root] = 1;
      std::vector<Frame> frames = {{root, 0}};
      while (!frames.empty()) {
        const std::uint32_t number = frames.back().context;
        const std::vector<Way> &ways = contexts[number].ways;
        std::size_t &next = frames.back().next;
        while (next < ways.size() && (ways[next].callee == noFlow || seen[ways[next].callee]))
          ++next;
        if (next == ways.size()) {
          innerFirst.push_back(number);
          frames.pop_back();
          continue;
        }
        seen[ways[next].callee] = 1;
        frames.push_back({ways[next].callee, 0});
      }
    }
  }

  //===--------------------------------------------------------------------===//
  // Solving
  //===--------------------------------------------------------------------===//

  void solveContexts() {
    for (Context &context : contexts)
      context.isQueued = true;
    for (bool isAny = true; isAny;) {
      isAny = false;
      for (std::uint32_t number : innerFirst) {
        if (!contexts[number].isQueued)
          continue;
        contexts[number].isQueued = false;
        if (!solve(contexts[number]))
          continue;
        for (std::uint32_t performer : contexts[number].performers)
          isAny |= contexts[performer].isQueued = true;
      }
    }
  }

  /// The summary of a range; null while control is not known to come to its end.
  const Transfer *summaryOf(std::uint32_t number) const {
    const Context &context = contexts[number];
    return context.isSolved && context.exit != noContext ? &context.summary : nullptr;
  }

  /// Gives whether the summary changed.
  bool solve(Context &context) {
    const unsigned facts = problem.factCount;
    if (!context.isSolved) {
      context.solution.assign(context.nodes.size(), Transfer(facts));
      context.value.resize(facts);
      context.summary = Transfer(facts);
      // Backward, a range that never ends has no entry but the ends of the run in it.
      if (context.entry != noContext)
        context.solution[context.entry].kept.set();
      context.isSolved = true;
    }
    for (bool isChanged = true; isChanged;) {
      isChanged = false;
      for (std::size_t way = 0; way < context.ways.size();) {
        const std::uint32_t at = context.ways[way].from;
        const Transfer out = at == noContext ? Transfer(facts) : behind(context, at);
        for (; way < context.ways.size() && context.ways[way].from == at; ++way) {
          const Way &taken = context.ways[way];
          if (taken.to == noContext)
            continue;
          Transfer &target = context.solution[taken.to];
          const bool isLater = at != noContext && taken.to > at;
          bool isNew = false;
          if (taken.callee == noFlow) {
            isNew = target.join(out);
          } else {
            if (const Transfer *summary = summaryOf(taken.callee))
              isNew = target.join(out.then(*summary));
            isNew |= joinEscapes(taken, target);
          }
          isChanged |= isNew && !isLater;
        }
      }
    }
    return context.exit != noContext && context.summary.join(behind(context, context.exit));
  }

  Transfer behind(const Context &context, std::uint32_t at) const {
    Transfer out = context.solution[at];
    auto effect = problem.effects.find(context.nodes[at]);
    if (effect == problem.effects.end())
      return out;
    for (BitVector *bits : {&out.generated, &out.kept})
      bits->reset(effect->second.killed);
    // Nothing is generated where control does not come; backward problems begin anywhere.
    out.generated |= effect->second.generated;
    return out;
  }

  /// What came to the end of the performed range from contexts within it.
  bool joinEscapes(const Way &taken, Transfer &target) {
    if (escaped.empty() || !isForward)
      return false;
    const std::uint32_t range = contexts[taken.callee].range;
    auto found = escaped.find(module.procedure(module.ranges()[range].end).end);
    return found != escaped.end() && Transfer::add(target.generated, found->second);
  }

  /// The values at the entries of the ranges, from the program inwards.
  void spreadValues() {
    for (bool isAny = true; isAny;) {
      isAny = false;
      for (std::uint32_t number : llvm::reverse(innerFirst)) {
        const Context &context = contexts[number];
        for (const Way &way : context.ways) {
          if (way.callee == noFlow || way.from == noContext)
            continue;
          isAny |= Transfer::add(contexts[way.callee].value,
                                 behind(context, way.from).applyTo(context.value));
        }
      }
    }
  }

  /// Gives whether something new came to the ends of ranges from within.
  bool collectEscapes() {
    bool isAny = false;
    for (Context &context : contexts)
      for (std::uint32_t at : context.foreignEnds)
        if (isForward) {
          isAny |= Transfer::add(escaped[context.nodes[at]],
                                 context.solution[at].applyTo(context.value));
        } else {
          // What holds where the outer range goes on holds at its end, which this context passes.
          for (const Context &outer : contexts)
            if (outer.range != noFlow && outer.entry != noContext &&
                outer.nodes[outer.entry] == context.nodes[at])
              isAny |= Transfer::add(context.solution[at].generated, outer.value);
        }
    return isAny;
  }

  DataFlow &problem;
  const FlowGraph &graph;
  const FlowModule &module;
  const bool isForward;
  bool isOneContext = false;
  llvm::DenseMap<std::uint32_t, llvm::SmallVector<std::uint32_t, 2>> sites; ///< by node
  llvm::DenseMap<std::uint32_t, std::uint32_t> contextOf;                   ///< by range
  std::vector<Context> contexts;
  std::vector<std::uint32_t> placeOf; ///< by node, of the context being made
  std::vector<std::uint32_t> innerFirst;
  /// What has come to the end of a procedure while a range that ends there was open, by node.
  llvm::DenseMap<std::uint32_t, BitVector> escaped;
};

//===----------------------------------------------------------------------===//
// The problem
//===----------------------------------------------------------------------===//

DataFlow::DataFlow(const FlowGraph &ofProgram, FlowDirection way, unsigned facts)
    : graph(ofProgram), direction(way), factCount(facts) {}

DataFlow::~DataFlow() = default;

void DataFlow::generate(std::uint32_t node, unsigned fact) {
  Effect &effect = effects[node];
  effect.generated.resize(factCount);
  effect.killed.resize(factCount);
  effect.generated.set(fact);
}

void DataFlow::kill(std::uint32_t node, unsigned fact) {
  Effect &effect = effects[node];
  effect.generated.resize(factCount);
  effect.killed.resize(factCount);
  effect.killed.set(fact);
}

void DataFlow::solve() {
  values.assign(graph.size(), llvm::BitVector(factCount));
  Solver(*this).run();
}

llvm::BitVector DataFlow::valueAt(std::uint32_t node) const {
  return values[node - graph.firstNode()];
}

llvm::BitVector DataFlow::beyond(std::uint32_t node) const {
  llvm::BitVector value = valueAt(node);
  if (auto effect = effects.find(node); effect != effects.end()) {
    value.reset(effect->second.killed);
    value |= effect->second.generated;
  }
  return value;
}

llvm::BitVector DataFlow::before(std::uint32_t node) const {
  return direction == FlowDirection::Forward ? valueAt(node) : beyond(node);
}

llvm::BitVector DataFlow::after(std::uint32_t node) const {
  return direction == FlowDirection::Forward ? beyond(node) : valueAt(node);
}

} // namespace tarka
