//===- PrintFlow.cpp - what a maintainer asks about a program --------------===//

#include "Print/PrintFlow.h"
#include "AST/Names.h"
#include "AST/Program.h"
#include "Analyzer/CFG.h"
#include "Flow/FlowFacts.h"
#include "Print/JsonVersion.h"
#include "Report/Utf8.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/Twine.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"
#include <memory>

namespace tarka {

namespace {

/// What the two forms say about a graph.
class Wording {
public:
  explicit Wording(const FlowModule &described) : flow(described) {}

  std::string nameOf(std::uint32_t procedure) const {
    return toUtf8(flow.procedure(procedure).getName()->getDisplayName());
  }
  /// "P", "P THRU Q"
  std::string rangeName(std::uint32_t number) const {
    const FlowRange &range = flow.ranges()[number];
    std::string name = nameOf(range.begin);
    return range.end == range.begin ? name : name + " THRU " + nameOf(range.end);
  }
  unsigned lineOf(std::uint32_t node) const { return flow.node(node).getRange().beginLine; }
  /// "the GO TO of line 12", "paragraph P"
  std::string describe(std::uint32_t number) const {
    const FlowNode &node = flow.node(number);
    if (node.getKind() == FlowNodeKind::Procedure || node.getKind() == FlowNodeKind::ProcedureEnd)
      return toUtf8(node.getVerb());
    return ("the " + node.getVerb() + " of line " + llvm::Twine(lineOf(number))).str();
  }

  /// What performs a range: the verb, or the phrase of SORT and MERGE.
  std::string verbOf(std::uint32_t number, FlowEdgeKind kind) const {
    const FlowNode &node = flow.node(number);
    if (kind == FlowEdgeKind::SortInput)
      return "INPUT PROCEDURE";
    if (kind == FlowEdgeKind::SortOutput)
      return "OUTPUT PROCEDURE";
    return node.getKind() == FlowNodeKind::Step ? "XML PARSE" : node.getVerb().upper();
  }

  static llvm::StringRef keyOf(DeadReason reason) {
    switch (reason) {
    case DeadReason::None:
      return "";
    case DeadReason::NoWayIn:
      return "no way in";
    case DeadReason::BehindTransfer:
      return "behind a transfer";
    case DeadReason::RangeNeverEnds:
      return "range never ends";
    case DeadReason::OnlyFromDead:
      return "only from what is not reached";
    }
    return "";
  }
  std::string explain(const ProcedureFacts &facts) const {
    const std::string because = facts.because == noFlow ? std::string() : describe(facts.because);
    switch (facts.dead) {
    case DeadReason::None:
      return "";
    case DeadReason::NoWayIn:
      return "nothing leads to it";
    case DeadReason::BehindTransfer:
      return because.empty() ? "nothing runs into it"
                             : "nothing names it, and control never goes on behind " + because;
    case DeadReason::RangeNeverEnds:
      return because + " never returns";
    case DeadReason::OnlyFromDead:
      return because.empty() ? "what leads to it is not reached"
                             : because + " leads to it and is not reached";
    }
    return "";
  }
  std::vector<std::string> troublesOf(const RangeFacts &range) const {
    std::vector<std::string> troubles;
    if (range.endsBeforeStart)
      troubles.push_back("it ends before it begins");
    if (range.neverReturns)
      troubles.push_back("it never returns");
    if (range.recursive)
      troubles.push_back("it can be performed again before it has ended");
    if (range.leftBy != noFlow)
      troubles.push_back(describe(range.leftBy) + " leaves it");
    if (range.overlapsWith != noFlow)
      troubles.push_back("it overlaps with " + rangeName(range.overlapsWith));
    if (range.fallenIntoFrom != noFlow)
      troubles.push_back(nameOf(range.fallenIntoFrom) + " falls into it");
    return troubles;
  }

  const FlowModule &flow;
};

/// The performed ranges and called programs that a piece of text holds, in its order, without
/// repetitions.
struct PerformTree {
  struct Child {
    std::uint32_t node;
    std::uint32_t range; ///< noFlow for a CALL
    const FlowCall *call;
    FlowEdgeKind kind; ///< of the way into the range
  };
  PerformTree(const FlowGraph &graph) : flow(graph.getModule()), described(graph) {
    for (const FlowPerform &perform : flow.performs())
      if (perform.kind != FlowEdgeKind::Loop && perform.kind != FlowEdgeKind::Declarative &&
          flow.node(perform.node).getParent() == &graph)
        children.push_back({perform.node, perform.range, nullptr, perform.kind});
    for (const FlowCall &call : flow.calls())
      if (flow.node(call.node).getParent() == &graph)
        children.push_back({call.node, noFlow, &call, FlowEdgeKind::Call});
    llvm::sort(children, [](const Child &a, const Child &b) { return a.node < b.node; });
  }

  /// Those of the program itself: what control comes to without being performed.
  std::vector<Child> ofProgram() const {
    llvm::DenseMap<std::uint32_t, llvm::SmallVector<const FlowPerform *, 1>> performs;
    for (const FlowPerform &perform : flow.performs())
      performs[perform.node].push_back(&perform);
    std::vector<bool> seen(described.size());
    std::vector<std::uint32_t> open;
    auto pass = [&](std::uint32_t node) {
      if (node != noFlow && flow.node(node).getParent() == &described &&
          !seen[node - described.firstNode()]) {
        seen[node - described.firstNode()] = true;
        open.push_back(node);
      }
    };
    pass(described.firstNode());
    while (!open.empty()) {
      const std::uint32_t node = open.back();
      open.pop_back();
      auto performed = performs.find(node);
      const bool performsHere = performed != performs.end();
      for (const FlowEdge &edge : flow.node(node).successors()) {
        const bool isInto = performsHere &&
                            flow.node(edge.to).getKind() == FlowNodeKind::Procedure &&
                            edge.kind != FlowEdgeKind::FallsInto;
        if (!isInto && edge.kind != FlowEdgeKind::Return &&
            edge.kind != FlowEdgeKind::DeclarativeEnd)
          pass(edge.to);
      }
      if (performsHere)
        for (const FlowPerform *perform : performed->second)
          if (flow.ranges()[perform->range].completes)
            pass(perform->returnsTo);
    }
    std::vector<Child> own;
    for (const Child &child : children)
      if (seen[child.node - described.firstNode()])
        own.push_back(child);
    return own;
  }

  llvm::ArrayRef<Child> ofRange(std::uint32_t number) const {
    const FlowRange &range = flow.ranges()[number];
    const std::uint32_t first = flow.procedure(range.begin).entry;
    const std::uint32_t last = flow.procedure(range.end).end;
    auto begin =
        llvm::partition_point(children, [&](const Child &child) { return child.node < first; });
    auto end =
        llvm::partition_point(children, [&](const Child &child) { return child.node <= last; });
    return last < first ? llvm::ArrayRef<Child>()
                        : llvm::ArrayRef<Child>(children).slice(
                              static_cast<std::size_t>(begin - children.begin()),
                              static_cast<std::size_t>(end - begin));
  }

  const FlowModule &flow;
  const FlowGraph &described;
  std::vector<Child> children;
};

//===----------------------------------------------------------------------===//
// Text
//===----------------------------------------------------------------------===//

class TextForm {
public:
  TextForm(llvm::raw_ostream &output, const FlowModule &described)
      : os(output), flow(described), words(described) {}

  void print(const FlowFacts &facts) {
    const FlowGraph &graph = *facts.graph;
    os << "program " << toUtf8(graph.getName());
    if (!graph.isCalled())
      os << " (nothing calls it)";
    os << '\n';
    printDead(facts);
    printRanges(facts);
    printTree(graph);
    printFigures(facts);
    printCalls(graph);
  }

private:
  void heading(llvm::StringRef title) { os << "\n  " << title << '\n'; }

  void printDead(const FlowFacts &facts) {
    heading("procedures never reached");
    bool isAny = false;
    for (const ProcedureFacts &procedure : facts.procedures) {
      if (procedure.dead == DeadReason::None)
        continue;
      isAny = true;
      os << "    " << flow.procedure(procedure.procedure).getRange().beginLine << ' '
         << words.nameOf(procedure.procedure) << ": " << words.explain(procedure) << '\n';
    }
    if (!isAny)
      os << "    none\n";
  }

  void printRanges(const FlowFacts &facts) {
    heading("performed ranges in trouble");
    bool isAny = false;
    for (const RangeFacts &range : facts.ranges)
      for (const std::string &trouble : words.troublesOf(range)) {
        isAny = true;
        os << "    " << words.lineOf(range.performers.front()) << ' '
           << words.rangeName(range.range) << ": " << trouble << '\n';
      }
    if (!isAny)
      os << "    none\n";
  }

  void printTree(const FlowGraph &graph) {
    heading("what performs and calls what");
    const PerformTree tree(graph);
    llvm::DenseSet<std::uint32_t> shown;
    // A stack of its own: ranges may nest deeper than calls should.
    struct Level {
      std::vector<PerformTree::Child> children;
      std::size_t next = 0;
    };
    std::vector<Level> levels = {{tree.ofProgram(), 0}};
    bool isAny = false;
    while (!levels.empty()) {
      Level &level = levels.back();
      if (level.next == level.children.size()) {
        levels.pop_back();
        continue;
      }
      const PerformTree::Child child = level.children[level.next++];
      isAny = true;
      os.indent(static_cast<unsigned>(2 + 2 * levels.size())) << words.lineOf(child.node) << ' ';
      if (child.call) {
        os << llvm::StringRef(flowCallKindName(child.call->kind)).upper() << ' '
           << toUtf8(child.call->name) << (child.call->isDynamic ? " (identifier" : "");
        if (!child.call->value.empty())
          os << ", " << toUtf8(child.call->value);
        os << (child.call->isDynamic ? ")\n" : "\n");
        continue;
      }
      os << words.verbOf(child.node, child.kind) << ' ' << words.rangeName(child.range);
      llvm::ArrayRef<PerformTree::Child> inside = tree.ofRange(child.range);
      if (!inside.empty() && !shown.insert(child.range).second) {
        os << " (see above)\n";
        continue;
      }
      os << '\n';
      levels.push_back({{inside.begin(), inside.end()}, 0});
    }
    if (!isAny)
      os << "    nothing\n";
  }

  void printFigures(const FlowFacts &facts) {
    heading("procedures");
    if (facts.procedures.empty()) {
      os << "    none\n";
      return;
    }
    os << "    statements complexity depth loops fan-in fan-out\n";
    for (const ProcedureFacts &one : facts.procedures)
      os << llvm::format("    %10u %10u %5u %5u %6u %7u", one.statements, one.complexity, one.depth,
                         one.loops, one.fanIn, one.fanOut)
         << ' ' << words.nameOf(one.procedure)
         << (flow.procedure(one.procedure).section ? " SECTION\n" : "\n");
  }

  void printCalls(const FlowGraph &graph) {
    heading("calls");
    bool isAny = false;
    for (const FlowCall &call : flow.calls()) {
      if (flow.node(call.node).getParent() != &graph)
        continue;
      isAny = true;
      os << "    " << words.lineOf(call.node) << ' ' << toUtf8(call.name) << ": " << kindOf(call)
         << (call.value.empty() ? "" : ", holds ") << toUtf8(call.value) << '\n';
    }
    for (const CFGEntry *entry : graph.getFunction().getEntryList()) {
      isAny = true;
      os << "    ENTRY " << toUtf8(entry->getName()) << '\n';
    }
    if (!isAny)
      os << "    none\n";
  }

public:
  static llvm::StringRef kindOf(const FlowCall &call) {
    switch (call.kind) {
    case FlowCallKind::Call:
      break;
    case FlowCallKind::Link:
      return call.isDynamic ? "linked, dynamic" : "linked";
    case FlowCallKind::Transfer:
      return call.isDynamic ? "transferred to, dynamic" : "transferred to";
    case FlowCallKind::Start:
      return call.isDynamic ? "started transaction, dynamic" : "started transaction";
    case FlowCallKind::Return:
      return call.isDynamic ? "next transaction, dynamic" : "next transaction";
    }
    if (call.isDynamic)
      return "dynamic";
    if (!call.target)
      return "static, another compilation";
    return call.target->getSourceUnit()->isNested() ? "static, a nested program"
                                                    : "static, in this compilation";
  }

private:
  llvm::raw_ostream &os;
  const FlowModule &flow;
  Wording words;
};

//===----------------------------------------------------------------------===//
// JSON
//===----------------------------------------------------------------------===//

class JsonForm {
public:
  JsonForm(llvm::raw_ostream &output, const FlowModule &described)
      : json(output, /*IndentSize=*/1), flow(described), words(described) {}

  void print(const CFGModule &module) {
    json.object([&] {
      printVersion(json);
      json.attribute("name", toUtf8(module.getName()));
      json.attributeArray("programs", [&] {
        for (const auto &graph : flow.graphs())
          if (!graph->isReportDeclaratives())
            printProgram(collectFacts(*graph));
      });
    });
  }

private:
  void printPlace(std::uint32_t node) {
    const SourceRange range = flow.node(node).getRange();
    json.attribute("file", toUtf8(fileNameOf(range.file)));
    json.attribute("line", range.beginLine);
  }

  void printProgram(const FlowFacts &facts) {
    json.object([&] {
      json.attribute("name", toUtf8(facts.graph->getName()));
      json.attribute("called", facts.graph->isCalled());
      json.attributeArray("procedures", [&] {
        for (const ProcedureFacts &one : facts.procedures)
          printProcedure(one);
      });
      json.attributeArray("ranges", [&] {
        for (const RangeFacts &range : facts.ranges)
          printRange(range);
      });
      const PerformTree tree(*facts.graph);
      json.attributeArray("performs", [&] {
        for (const PerformTree::Child &child : tree.ofProgram())
          printChild(child);
      });
      json.attributeArray("calls", [&] {
        for (const FlowCall &call : flow.calls())
          if (flow.node(call.node).getParent() == facts.graph)
            json.object([&] {
              json.attribute(call.isDynamic           ? "identifier"
                             : call.isOfTransaction() ? "transaction"
                                                      : "program",
                             toUtf8(call.name));
              if (!call.value.empty())
                json.attribute("value", toUtf8(call.value));
              json.attribute("kind", flowCallKindName(call.kind));
              json.attribute("dynamic", call.isDynamic);
              json.attribute("inCompilation", call.target != nullptr);
              printPlace(call.node);
            });
      });
      json.attributeArray("entries", [&] {
        for (const CFGEntry *entry : facts.graph->getFunction().getEntryList())
          json.value(toUtf8(entry->getName()));
      });
    });
  }

  void printProcedure(const ProcedureFacts &one) {
    const FlowProcedure &procedure = flow.procedure(one.procedure);
    json.object([&] {
      json.attribute("name", words.nameOf(one.procedure));
      json.attribute("kind", procedure.section ? "section" : "paragraph");
      if (procedure.parent != noFlow)
        json.attribute("section", words.nameOf(procedure.parent));
      json.attribute("file", toUtf8(fileNameOf(procedure.getRange().file)));
      json.attribute("line", procedure.getRange().beginLine);
      json.attribute("reached", one.dead == DeadReason::None);
      if (one.dead != DeadReason::None) {
        json.attribute("reason", Wording::keyOf(one.dead));
        json.attribute("explanation", words.explain(one));
      }
      json.attribute("statements", one.statements);
      json.attribute("complexity", one.complexity);
      json.attribute("depth", one.depth);
      json.attribute("loops", one.loops);
      json.attribute("fanIn", one.fanIn);
      json.attribute("fanOut", one.fanOut);
    });
  }

  void printRange(const RangeFacts &range) {
    const FlowRange &described = flow.ranges()[range.range];
    json.object([&] {
      json.attribute("begin", words.nameOf(described.begin));
      json.attribute("end", words.nameOf(described.end));
      json.attribute("reached", described.reached);
      json.attribute("returns", described.completes);
      json.attributeArray("lines", [&] {
        for (std::uint32_t performer : range.performers)
          json.value(words.lineOf(performer));
      });
      json.attributeArray("troubles", [&] {
        for (const std::string &trouble : words.troublesOf(range))
          json.value(trouble);
      });
      const PerformTree &tree = treeOf(*described.graph);
      json.attributeArray("performs", [&] {
        for (const PerformTree::Child &child : tree.ofRange(range.range))
          printChild(child);
      });
    });
  }

  void printChild(const PerformTree::Child &child) {
    json.object([&] {
      if (child.call)
        json.attribute("call", toUtf8(child.call->name));
      else
        json.attribute("range", words.rangeName(child.range));
      printPlace(child.node);
    });
  }

  const PerformTree &treeOf(const FlowGraph &graph) {
    if (!lastTree || &lastTree->described != &graph)
      lastTree = std::make_unique<PerformTree>(graph);
    return *lastTree;
  }

  llvm::json::OStream json;
  const FlowModule &flow;
  Wording words;
  std::unique_ptr<PerformTree> lastTree;
};

} // namespace

void printFlowText(llvm::raw_ostream &os, const CFGModule &module) {
  const std::unique_ptr<FlowModule> flow = createFlow(module);
  TextForm form(os, *flow);
  const char *separator = "";
  for (const auto &graph : flow->graphs())
    if (!graph->isReportDeclaratives()) {
      os << std::exchange(separator, "\n");
      form.print(collectFacts(*graph));
    }
}

void printFlowJson(llvm::raw_ostream &os, const CFGModule &module) {
  const std::unique_ptr<FlowModule> flow = createFlow(module);
  JsonForm(os, *flow).print(module);
  os << '\n';
}

} // namespace tarka
