//===- PrintItems.cpp - where an item is written and read ------------------===//

#include "Print/PrintItems.h"
#include "AST/DataDivision.h"
#include "AST/KindNames.h"
#include "AST/Program.h"
#include "Analyzer/CFG.h"
#include "Flow/ItemFlow.h"
#include "Print/JsonVersion.h"
#include "Print/MissingName.h"
#include "Report/Utf8.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SetVector.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"
#include <set>

namespace tarka {

namespace {

std::string nameOf(const DataDescription &entry) {
  return entry.isFiller() ? "FILLER" : toUtf8(entry.getDataName()->getDisplayName());
}

/// Whether \p entry stands in groups, or in a file, of the names \p qualifiers, the nearest first.
bool isQualifiedBy(const DataDescription &entry, llvm::ArrayRef<llvm::StringRef> qualifiers) {
  const DataDescription *root = entry.getRootDesc();
  for (const DataDescription *group = entry.getOwner(); group && !qualifiers.empty();
       group = group->getOwner())
    if (!group->isFiller() && qualifiers.front() == group->getDataName()->getWordData())
      qualifiers = qualifiers.drop_front();
  const FileDescription *file = root->getFileDescription();
  if (qualifiers.size() == 1 && file && qualifiers.front() == file->getFileName()->getWordData())
    return true;
  return qualifiers.empty();
}

/// An item with the program that declares it.
struct Found {
  const FlowGraph *graph;
  DataDescription *item;
};

std::vector<Found> findItems(const FlowModule &flow, llvm::StringRef name) {
  llvm::SmallVector<llvm::StringRef> words;
  const std::string upper = name.upper();
  llvm::SplitString(upper, words);
  llvm::erase_if(words, [](llvm::StringRef word) { return word == "OF" || word == "IN"; });
  std::vector<Found> found;
  if (words.empty())
    return found;
  for (const auto &graph : flow.graphs()) {
    SourceUnit *unit = graph->getSourceUnit();
    DataDivision *division = unit ? unit->getDataDivision() : nullptr;
    std::list<DataDescription *> *entries = division && !graph->isReportDeclaratives()
                                                ? division->findItemByName(words.front().str())
                                                : nullptr;
    if (entries)
      for (DataDescription *entry : *entries)
        if (isQualifiedBy(*entry, llvm::ArrayRef(words).drop_front()))
          found.push_back({graph.get(), entry});
  }
  return found;
}

/// The programs in which an item can be used: its own, and of a global one those nested in it.
/// Those that do not use it are left out, but for its own.
std::vector<ItemFlow> followEverywhere(const FlowModule &flow, const StorageAreas &areas,
                                       const Found &found) {
  std::vector<ItemFlow> flows;
  for (const auto &graph : flow.graphs()) {
    const SourceUnit *unit = graph->getSourceUnit();
    while (unit && unit != found.graph->getSourceUnit())
      unit = unit->getParent();
    if (!unit)
      continue;
    ItemFlow one = followItem(*graph, *found.item, areas);
    if (graph.get() == found.graph ||
        llvm::any_of(one.uses, [](const ItemUse &use) { return !use.isElsewhere; }))
      flows.push_back(std::move(one));
  }
  return flows;
}

/// "bytes 1-4 of REC", with the other elements of a table left unsaid.
std::string placeOf(const ItemFlow &flow, const StorageAreas &areas) {
  const ByteSet::Range range = flow.bytes.ranges().front();
  std::string text = "byte";
  if (range.end - range.begin > 1)
    text += "s " + llvm::itostr(range.begin + 1) + "-" + llvm::itostr(range.end);
  else
    text += " " + llvm::itostr(range.begin + 1);
  if (flow.bytes.ranges().size() > 1)
    text += " and " + llvm::itostr(static_cast<std::int64_t>(flow.bytes.ranges().size()) - 1) +
            " more elements";
  return text + " of " + nameOf(*areas.areaOf(*flow.item));
}

class Places {
public:
  explicit Places(const ItemFlow &described)
      : flow(described), module(described.graph->getModule()) {}

  SourceRange rangeOf(const ItemUse &use) const { return module.node(use.node).getRange(); }
  std::string verbOf(const ItemUse &use) const {
    const FlowNode &node = module.node(use.node);
    if (node.getStatement() && !node.isWritten())
      return tarka::verbOf(node.getStatement()->getType()).str() + " (" + node.getVerb().str() +
             ")";
    return node.getVerb().str();
  }
  /// The lines of \p uses, each once.
  std::string lines(llvm::ArrayRef<std::uint32_t> uses) const {
    llvm::SetVector<unsigned> seen;
    for (std::uint32_t use : uses)
      seen.insert(rangeOf(flow.uses[use]).beginLine);
    std::vector<unsigned> sorted(seen.begin(), seen.end());
    llvm::sort(sorted);
    std::string text;
    for (unsigned line : sorted)
      text += (text.empty() ? "" : ", ") + llvm::utostr(line);
    return text;
  }

private:
  const ItemFlow &flow;
  const FlowModule &module;
};

void printText(llvm::raw_ostream &os, const ItemFlow &flow, const StorageAreas &areas) {
  const Places places(flow);
  os << nameOf(*flow.item) << ", line " << flow.item->getRange().beginLine << ": "
     << placeOf(flow, areas) << ", in program " << toUtf8(flow.graph->getName()) << '\n';
  auto line = [&](const ItemUse &use) {
    os << "    " << places.rangeOf(use).beginLine << ' ' << places.verbOf(use);
    if (use.item != flow.item)
      os << " by way of " << nameOf(*use.item);
    if (use.isElsewhere)
      os << ", in another program";
  };
  auto readLines = [&](llvm::ArrayRef<std::uint32_t> reads) {
    return reads.empty() ? std::string() : "read in " + places.lines(reads);
  };

  os << "\n  written\n";
  if (!flow.readsOfInitial.empty())
    os << "    before the program begins: " << readLines(flow.readsOfInitial) << '\n';
  bool isAny = !flow.readsOfInitial.empty();
  for (const ItemUse &use : flow.uses) {
    if (!use.isWritten)
      continue;
    isAny = true;
    line(use);
    if (!use.isWhole)
      os << ", perhaps or in part";
    os << ": " << readLines(use.to);
    if (use.to.empty())
      os << (use.isLive ? flow.isSeenAfterwards ? "not read in the program" : "read by itself"
                        : "never read");
    os << '\n';
  }
  if (!isAny)
    os << "    nowhere\n";

  os << "\n  read\n";
  isAny = false;
  for (const ItemUse &use : flow.uses) {
    if (!use.isRead)
      continue;
    isAny = true;
    line(use);
    os << ": written ";
    if (use.findsInitial)
      os << "before the program begins" << (use.from.empty() ? "" : ", ");
    if (!use.from.empty())
      os << "in " << places.lines(use.from);
    else if (!use.findsInitial)
      os << "nowhere";
    os << '\n';
  }
  if (!isAny)
    os << "    nowhere\n";
}

void printJson(llvm::json::OStream &json, const ItemFlow &flow, const StorageAreas &areas) {
  const Places places(flow);
  auto place = [&](const ItemUse &use) {
    const SourceRange range = places.rangeOf(use);
    json.attribute("file", toUtf8(fileNameOf(range.file)));
    json.attribute("line", range.beginLine);
    json.attribute("column", range.beginColumn);
  };
  auto ids = [&](llvm::StringRef key, llvm::ArrayRef<std::uint32_t> uses) {
    json.attributeArray(key, [&] {
      for (std::uint32_t use : uses)
        json.value(use);
    });
  };
  json.object([&] {
    json.attribute("name", nameOf(*flow.item));
    json.attribute("program", toUtf8(flow.graph->getName()));
    json.attribute("file", toUtf8(fileNameOf(flow.item->getRange().file)));
    json.attribute("line", flow.item->getRange().beginLine);
    json.attribute("area", nameOf(*areas.areaOf(*flow.item)));
    json.attributeArray("bytes", [&] {
      for (const ByteSet::Range &range : flow.bytes.ranges())
        json.object([&] {
          json.attribute("offset", range.begin);
          json.attribute("size", range.end - range.begin);
        });
    });
    json.attribute("seenAfterwards", flow.isSeenAfterwards);
    json.attributeArray("uses", [&] {
      std::int64_t number = 0;
      for (const ItemUse &use : flow.uses)
        json.object([&] {
          json.attribute("id", number++);
          json.attribute("statement", places.verbOf(use));
          json.attribute("item", nameOf(*use.item));
          place(use);
          json.attribute("elsewhere", use.isElsewhere);
          json.attribute("reads", use.isRead);
          json.attribute("writes", use.isWritten);
          if (use.isRead) {
            json.attribute("initial", use.findsInitial);
            ids("from", use.from);
          }
          if (use.isWritten) {
            json.attribute("whole", use.isWhole);
            json.attribute("live", use.isLive);
            ids("to", use.to);
          }
        });
    });
  });
}

} // namespace

std::optional<std::string> explainMissingItem(const CFGModule &module, llvm::StringRef name) {
  const std::unique_ptr<FlowModule> flow = createFlow(module);
  if (!findItems(*flow, name).empty())
    return std::nullopt;
  std::set<std::string> names;
  for (const auto &graph : flow->graphs()) {
    SourceUnit *unit = graph->getSourceUnit();
    if (unit && unit->getDataDivision())
      for (const DataDescription *entry : *unit->getDataDivision()->getWorkFlatList())
        if (!entry->isFiller() && entry->getOrigin() != Origin::Supplied)
          names.insert(entry->getDataName()->getDisplayName());
  }
  llvm::SmallVector<llvm::StringRef> sorted(names.begin(), names.end());
  return explainMissing("item", name, sorted);
}

void printItemsText(llvm::raw_ostream &os, const CFGModule &module, llvm::StringRef name) {
  const std::unique_ptr<FlowModule> flow = createFlow(module);
  const StorageAreas areas(*flow);
  const char *separator = "";
  for (const Found &found : findItems(*flow, name))
    for (const ItemFlow &one : followEverywhere(*flow, areas, found)) {
      os << std::exchange(separator, "\n");
      printText(os, one, areas);
    }
}

void printItemsJson(llvm::raw_ostream &os, const CFGModule &module, llvm::StringRef name) {
  const std::unique_ptr<FlowModule> flow = createFlow(module);
  const StorageAreas areas(*flow);
  llvm::json::OStream json(os, /*IndentSize=*/1);
  json.object([&] {
    printVersion(json);
    json.attribute("name", toUtf8(module.getName()));
    json.attributeArray("items", [&] {
      for (const Found &found : findItems(*flow, name))
        for (const ItemFlow &one : followEverywhere(*flow, areas, found))
          printJson(json, one, areas);
    });
  });
  os << '\n';
}

} // namespace tarka
