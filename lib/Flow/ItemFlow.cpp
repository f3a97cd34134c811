//===- ItemFlow.cpp - reaching definitions and liveness of an item ---------===//
//
// The bytes of the item are divided into cells: bytes that the accesses of the
// program do not tell apart. A fact is a definition with one of the cells that it
// writes, or, for liveness, a cell. So accesses that overlap in part are followed
// exactly, and a large table costs no more than a single item.
//
//===----------------------------------------------------------------------===//

#include "Flow/ItemFlow.h"
#include "AST/Program.h"
#include "AST/Scope.h"
#include "AST/StatementBranch.h"
#include "Analyzer/CFG.h"
#include "Flow/DataFlow.h"
#include "llvm/ADT/STLExtras.h"
#include <map>
#include <memory>
#include <tuple>

namespace tarka {

namespace {

/// The cells of an item, and which of them a set of bytes covers.
class Cells {
public:
  /// \p sets are the bytes of the accesses.
  Cells(const ByteSet &item, llvm::ArrayRef<ByteSet> sets) {
    // The accesses that cover the bytes from one border to the next make the signature of a cell.
    struct Border {
      std::int64_t at;
      std::uint32_t set;
      bool isBegin;
    };
    constexpr std::uint32_t ofItem = ~0u;
    std::vector<Border> borders;
    auto note = [&](const ByteSet &bytes, std::uint32_t set) {
      for (const ByteSet::Range &range : bytes.ranges()) {
        borders.push_back({range.begin, set, true});
        borders.push_back({range.end, set, false});
      }
    };
    note(item, ofItem);
    for (std::uint32_t set = 0; set < sets.size(); ++set)
      note(sets[set], set);
    llvm::sort(borders, [](const Border &a, const Border &b) {
      return std::tie(a.at, a.set, a.isBegin) < std::tie(b.at, b.set, b.isBegin);
    });
    covered.resize(sets.size());
    std::map<std::vector<std::uint32_t>, unsigned> cellOf;
    std::vector<std::uint32_t> open; // sorted
    for (std::size_t at = 0; at < borders.size();) {
      const std::int64_t place = borders[at].at;
      for (; at < borders.size() && borders[at].at == place; ++at) {
        auto found = llvm::lower_bound(open, borders[at].set);
        const bool isOpen = found != open.end() && *found == borders[at].set;
        if (isOpen && !borders[at].isBegin)
          open.erase(found);
        else if (!isOpen && borders[at].isBegin)
          open.insert(found, borders[at].set);
      }
      if (open.empty() || open.back() != ofItem)
        continue;
      auto [cell, isNew] = cellOf.try_emplace(open, count);
      if (!isNew)
        continue;
      for (std::uint32_t set : open)
        if (set != ofItem)
          covered[set].push_back(count);
      ++count;
    }
  }

  unsigned size() const { return count; }
  llvm::ArrayRef<unsigned> of(std::uint32_t set) const { return covered[set]; }

private:
  unsigned count = 0;
  std::vector<llvm::SmallVector<unsigned, 2>> covered;
};

/// Gathers the accesses and solves the two problems.
class Follower {
public:
  Follower(const FlowGraph &program, DataDescription &item, const StorageAreas &storageAreas)
      : graph(program), flow(program.getModule()), areas(storageAreas) {
    result.graph = &graph;
    result.item = &item;
    result.bytes = bytesOf(item);
    area = areas.areaOf(item);
  }

  ItemFlow run() {
    isAddressTaken = takesAddress();
    collect();
    findWhoSees();
    makeCells();
    findReaching();
    findLive();
    return std::move(result);
  }

private:
  //===--------------------------------------------------------------------===//
  // Accesses
  //===--------------------------------------------------------------------===//

  /// Whether the program has the address of the item's area, by which others may reach it.
  bool takesAddress() const {
    bool isTaken = false;
    for (const FlowNode &node : flow.nodes()) {
      const Statement *statement = node.getStatement();
      if (!statement || statement->getType() != StatementType::Set)
        continue;
      forEachAccess(node, [&](const Access &access) {
        isTaken |= access.role == OperandRole::MayUpdate && areas.areaOf(*access.item) == area;
      });
    }
    return isTaken;
  }

  /// What an access means for the item.
  struct Meaning {
    ByteSet bytes;        ///< none where it does nothing to the item
    bool isWhole = false; ///< whether all of the bytes are accessed, and not some of them
  };
  Meaning meaningOf(const Access &access) {
    const DataDescription *itsArea = areas.areaOf(*access.item);
    if (itsArea == area) {
      ByteSet bytes = access.bytes();
      if (!bytes.overlaps(result.bytes))
        return {};
      return {std::move(bytes), access.isExact()};
    }
    // An item of the linkage section may lie anywhere whose address is known.
    if (isAddressTaken && access.item->getStorageType() == StorageType::Linkage)
      return {result.bytes};
    return {};
  }

  void collect() {
    llvm::SmallVector<Access, 4> outside;
    for (const auto &other : flow.graphs()) {
      for (const FlowNode &node : other->nodes()) {
        if (!node.isReached())
          continue;
        forEachAccess(node, [&](const Access &access) {
          Meaning meaning = meaningOf(access);
          if (meaning.bytes.empty())
            return;
          if (other.get() == &graph)
            add(node, access, std::move(meaning.bytes), meaning.isWhole);
          else if (!llvm::any_of(outside, [&](const Access &known) {
                     return known.item == access.item && known.role == access.role;
                   }))
            outside.push_back(access);
        });
      }
    }
    if (outside.empty())
      return;
    isUsedOutside = true;
    for (std::uint32_t node : leavingNodes()) {
      for (const Access &access : outside) {
        add(flow.node(node), access, meaningOf(access).bytes, /*isWhole=*/false).isElsewhere = true;
      }
    }
    // In the order of the text.
    llvm::sort(gathered, [](const Gathered &a, const Gathered &b) {
      return std::tie(a.use.node, a.place) < std::tie(b.use.node, b.place);
    });
  }

  ItemUse &add(const FlowNode &node, const Access &access, ByteSet bytes, bool isWhole) {
    gathered.emplace_back();
    Gathered &one = gathered.back();
    one.place = gathered.size();
    one.use.node = node.getId();
    one.use.item = access.item;
    one.use.isRead = isRead(access.role);
    one.use.isWritten = isWritten(access.role);
    one.replaces = isWhole && isReplaced(access.role);
    one.use.isWhole = one.replaces && bytes.contains(result.bytes);
    one.bytes = std::move(bytes);
    one.isUsedAtOnce = access.isUsedAtOnce;
    return one.use;
  }

  /// The nodes at which procedures of other programs run.
  std::vector<std::uint32_t> leavingNodes() const {
    std::vector<std::uint32_t> nodes;
    for (const FlowCall &call : flow.calls())
      if (flow.node(call.node).getParent() == &graph && call.kind == FlowCallKind::Call &&
          (call.target || call.isDynamic))
        nodes.push_back(call.node);
    for (const FlowPerform &perform : flow.performs())
      if (flow.node(perform.node).getParent() == &graph &&
          flow.ranges()[perform.range].graph != &graph)
        nodes.push_back(perform.node);
    llvm::sort(nodes);
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
    llvm::erase_if(nodes, [&](std::uint32_t node) { return !flow.node(node).isReached(); });
    return nodes;
  }

  /// Whether the value is of use to others when the program ends, and kept for the next time.
  void findWhoSees() {
    const DataDescription &root = *area;
    const SourceUnit *unit = graph.getSourceUnit();
    const FileDescription *file = root.getFileDescription();
    const StorageType storage = root.getStorageType();
    isExternal = root.getExternal() || (file && file->getExternal());
    const bool isShared = isExternal || isUsedOutside || storage == StorageType::Linkage ||
                          graph.isReportDeclaratives() || isGlobal(root);
    // A program that is called again finds its working-storage as it was.
    const ProcedureDivision *division = unit ? unit->getProcDivision() : nullptr;
    const bool isCalledAgain =
        unit && (unit->isNested() || (division && division->getParameterSize() > 0) ||
                 !graph.getFunction().getEntryList().empty());
    isKept = isCalledAgain && storage != StorageType::LocalStorage &&
             !unit->getIDDivision()->getProgramIDPara()->isInitial();
    result.isSeenAfterwards = isShared || isKept;
  }

  void makeCells() {
    std::vector<ByteSet> sets;
    for (Gathered &one : gathered) {
      result.uses.push_back(std::move(one.use));
      sets.push_back(std::move(one.bytes));
    }
    cells = std::make_unique<Cells>(result.bytes, sets);
    unsigned facts = cells->size(); // The first ones are the definitions of the beginning.
    for (std::uint32_t use = 0; use < result.uses.size(); ++use) {
      firstFact.push_back(facts);
      if (result.uses[use].isWritten)
        facts += static_cast<unsigned>(cells->of(use).size());
    }
    factCount = facts;
  }

  //===--------------------------------------------------------------------===//
  // The problems
  //===--------------------------------------------------------------------===//

  void findReaching() {
    // The definitions of a cell, by their facts.
    std::vector<llvm::SmallVector<unsigned, 4>> factsOf(cells->size());
    for (unsigned cell = 0; cell < cells->size(); ++cell)
      factsOf[cell].push_back(cell);
    for (std::uint32_t use = 0; use < result.uses.size(); ++use)
      if (result.uses[use].isWritten)
        for (auto [place, cell] : llvm::enumerate(cells->of(use)))
          factsOf[cell].push_back(firstFact[use] + static_cast<unsigned>(place));

    DataFlow reaching(graph, FlowDirection::Forward, factCount);
    for (unsigned cell = 0; cell < cells->size(); ++cell)
      reaching.generate(graph.firstNode(), cell);
    for (std::uint32_t use = 0; use < result.uses.size(); ++use) {
      if (!result.uses[use].isWritten)
        continue;
      for (auto [place, cell] : llvm::enumerate(cells->of(use))) {
        if (gathered[use].replaces)
          for (unsigned fact : factsOf[cell])
            reaching.kill(result.uses[use].node, fact);
        reaching.generate(result.uses[use].node, firstFact[use] + static_cast<unsigned>(place));
      }
    }
    reaching.solve();
    llvm::BitVector kept(factCount);
    if (isKept)
      for (const FlowNode &node : graph.nodes())
        for (const FlowEdge &edge : node.successors())
          if (edge.kind == FlowEdgeKind::Leave)
            kept |= reaching.after(node.getId());
    if (isKept && kept.any()) {
      for (unsigned fact : kept.set_bits())
        reaching.generate(graph.firstNode(), fact);
      reaching.solve();
    }

    for (std::uint32_t use = 0; use < result.uses.size(); ++use)
      if (result.uses[use].isRead)
        findSources(use, reaching.before(result.uses[use].node), factsOf);
  }

  void findSources(std::uint32_t read, const llvm::BitVector &holding,
                   llvm::ArrayRef<llvm::SmallVector<unsigned, 4>> factsOf) {
    for (unsigned cell : cells->of(read))
      for (unsigned fact : factsOf[cell]) {
        if (!holding.test(fact))
          continue;
        if (fact < cells->size()) {
          result.uses[read].findsInitial = true;
          continue;
        }
        const auto write =
            static_cast<std::uint32_t>(llvm::upper_bound(firstFact, fact) - firstFact.begin() - 1);
        if (llvm::is_contained(result.uses[read].from, write))
          continue;
        result.uses[read].from.push_back(write);
        result.uses[write].to.push_back(read);
      }
    if (result.uses[read].findsInitial)
      result.readsOfInitial.push_back(read);
    llvm::sort(result.uses[read].from);
  }

  void findLive() {
    DataFlow live(graph, FlowDirection::Backward, cells->size());
    for (std::uint32_t use = 0; use < result.uses.size(); ++use) {
      const ItemUse &one = result.uses[use];
      for (unsigned cell : cells->of(use)) {
        if (one.isRead)
          live.generate(one.node, cell);
        else if (gathered[use].replaces)
          live.kill(one.node, cell);
      }
    }
    if (result.isSeenAfterwards)
      for (unsigned cell = 0; cell < cells->size(); ++cell)
        live.generate(graph.getExit()->getId(), cell);
    live.solve();
    for (std::uint32_t use = 0; use < result.uses.size(); ++use) {
      ItemUse &one = result.uses[use];
      if (!one.isWritten)
        continue;
      const llvm::BitVector after = live.after(one.node);
      one.isLive = gathered[use].isUsedAtOnce ||
                   llvm::any_of(cells->of(use), [&](unsigned cell) { return after.test(cell); });
    }
  }

  const FlowGraph &graph;
  const FlowModule &flow;
  const StorageAreas &areas;
  const DataDescription *area;
  ItemFlow result;
  /// A use and what is needed of it here.
  struct Gathered {
    ItemUse use;
    ByteSet bytes;
    std::size_t place = 0;
    bool isUsedAtOnce = false;
    bool replaces = false; ///< all of its bytes
  };
  std::vector<Gathered> gathered;
  std::vector<unsigned> firstFact; ///< by use
  std::unique_ptr<Cells> cells;    ///< made when the accesses are known
  unsigned factCount = 0;
  bool isAddressTaken = false, isUsedOutside = false, isExternal = false, isKept = false;
};

} // namespace

ItemFlow followItem(const FlowGraph &graph, DataDescription &item, const StorageAreas &areas) {
  return Follower(graph, item, areas).run();
}

} // namespace tarka
