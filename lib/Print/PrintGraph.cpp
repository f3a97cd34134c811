//===- PrintGraph.cpp - the graph as text and JSON ------------------------===//

#include "Print/PrintGraph.h"
#include "AST/Names.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Print/GraphLayout.h"
#include "Print/JsonVersion.h"
#include "Report/Utf8.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

//===----------------------------------------------------------------------===//
// Text
//===----------------------------------------------------------------------===//

class TextPrinter {
public:
  TextPrinter(llvm::raw_ostream &output, const GraphView &wanted) : os(output), view(wanted) {}

  void print(const GraphLayout &layout) {
    const CFGFunc &function = *layout.function;
    os << "function " << function.getName() << (layout.flow->isCalled() ? "" : " [not called]")
       << '\n';
    if (!function.getParams().empty())
      os << "  parameters " << function.getParams().size() << '\n';
    if (function.getReturning())
      os << "  returning\n";
    for (const CFGEntry *entry : function.getEntryList())
      os << "  entry " << entry->getIndex() << ' ' << entry->getName() << " at "
         << entry->getEntryBlock()->getPlace() << '\n';
    std::vector<ProcedureWays> ways;
    if (view.collapse)
      ways = waysOfGroups(layout);
    for (std::size_t index = 0; index < layout.groups.size(); ++index) {
      const BlockGroup &group = layout.groups[index];
      if (!view.paragraph.empty() && !group.has(view.paragraph))
        continue;
      if (view.collapse)
        printCollapsed(layout, group, ways[index]);
      else
        printGroup(layout, group);
    }
  }

private:
  void printHeading(const GraphLayout &layout, const BlockGroup &group) {
    if (group.paragraph)
      os << "  paragraph " << group.name();
    else if (group.section)
      os << "  section " << group.name();
    else
      os << "  " << group.name();
    if (layout.isDead(group))
      os << notReached;
  }

  void printCollapsed(const GraphLayout &layout, const BlockGroup &group,
                      const ProcedureWays &ways) {
    printHeading(layout, group);
    os << ": " << countStatements(group) << " statements, blocks "
       << group.blocks.front()->getPlace() << " to " << group.blocks.back()->getPlace() << '\n';
    for (const auto &[way, target] : ways)
      os << "       " << flowEdgeKindName(way) << ' ' << target->getPlace() << ' '
         << target->getName() << '\n';
  }

  void printGroup(const GraphLayout &layout, const BlockGroup &group) {
    if (group.section || group.paragraph) {
      printHeading(layout, group);
      os << '\n';
    }
    for (const CFGBlock *block : group.blocks)
      printBlock(layout, block);
  }

  void printBlock(const GraphLayout &layout, const CFGBlock *block) {
    os << llvm::format("%5d: ", block->getPlace()) << block->getName();
    if (block->getBlockType() == CFGBlockType::Procedure)
      os << " [procedure]";
    if (block->getHaveTerminator())
      os << " [terminator]";
    os << '\n';
    for (const CFGElem *element : block->getElements()) {
      os << "         ";
      os << factsOf(*element).node->getBeginLineNo() << ' ';
      printElement(os, *element);
      if (isDead(layout, *element))
        os << notReached;
      os << '\n';
    }
    llvm::StringRef separator = "       -> ";
    bool leadsSomewhere = false;
    forEachWay(layout, block, [&](llvm::StringRef way, const CFGBlock *target) {
      os << std::exchange(separator, ", ") << way << ' ' << target->getPlace() << ' '
         << target->getName();
      leadsSomewhere = true;
    });
    if (leadsSomewhere)
      os << '\n';
  }

  static bool isDead(const GraphLayout &layout, const CFGElem &element) {
    const Statement *statement = element.getStmt();
    return statement && llvm::any_of(layout.nodesOf(element.getBlock()), [&](const FlowNode &node) {
             return node.getStatement() == statement && !node.isReached();
           });
  }

  static constexpr llvm::StringLiteral notReached = " [not reached]";
  llvm::raw_ostream &os;
  const GraphView &view;
};

//===----------------------------------------------------------------------===//
// JSON
//===----------------------------------------------------------------------===//

class JsonPrinter {
public:
  JsonPrinter(llvm::raw_ostream &output, const GraphView &wanted)
      : json(output, /*IndentSize=*/1), view(wanted) {}

  void print(const CFGModule &module, const FlowModule &flow) {
    const FunctionSelection selection(module, view);
    const ProcedureStarts starts = findProcedures(module);
    json.object([&] {
      printVersion(json);
      text("name", module.getName());
      json.attributeArray("functions", [&] {
        for (const CFGFunc *function : selection.functions)
          printFunction(GraphLayout(*function, starts, flow));
      });
      if (selection.reportDeclaratives.empty())
        return;
      json.attributeBegin("reportDeclaratives");
      printFunction(GraphLayout(*selection.reportDeclaratives.back(), starts, flow));
      json.attributeEnd();
      json.attributeArray("reportDeclarativesOfPrograms", [&] {
        for (const CFGFunc *function : selection.reportDeclaratives)
          printFunction(GraphLayout(*function, starts, flow));
      });
    });
  }

private:
  /// Text of the source may be in any encoding; JSON is UTF-8.
  void text(llvm::StringRef key, llvm::StringRef value) { json.attribute(key, toUtf8(value)); }

  bool isShown(const BlockGroup &group) const {
    return view.paragraph.empty() || group.has(view.paragraph);
  }

  void printFunction(const GraphLayout &layout) {
    json.object([&] {
      text("name", layout.function->getName());
      if (layout.flow->isReportDeclaratives() && layout.flow->getSourceUnit())
        text("program", layout.flow->getSourceUnit()->getSourceUnitName());
      json.attribute("called", layout.flow->isCalled());
      json.attributeArray("entries", [&] {
        for (const CFGEntry *entry : layout.function->getEntryList())
          json.object([&] {
            text("name", entry->getName());
            json.attribute("index", entry->getIndex());
            json.attribute("block", entry->getEntryBlock()->getPlace());
          });
      });
      if (view.collapse)
        return printProcedures(layout);
      json.attributeArray("blocks", [&] {
        for (const BlockGroup &group : layout.groups)
          if (isShown(group))
            for (const CFGBlock *block : group.blocks)
              printBlock(layout, block);
      });
      printProcedureList(layout);
      printNodes(layout);
      printEdges(layout);
      printCalls(layout);
    });
  }

  void printPlace(const SourceRange &range) {
    if (!range.beginLine)
      return;
    text("file", fileNameOf(range.file));
    json.attribute("line", range.beginLine);
    json.attribute("column", range.beginColumn);
    json.attribute("endLine", range.endLine);
    json.attribute("endColumn", range.endColumn);
  }

  void printBlock(const GraphLayout &layout, const CFGBlock *block) {
    json.object([&] {
      json.attribute("id", block->getPlace());
      text("name", block->getName());
      json.attribute("type", static_cast<int>(block->getBlockType()));
      json.attribute("terminator", block->getHaveTerminator());
      json.attribute("reached", layout.flow->isReached(*block));
      json.attributeArray("elements", [&] {
        for (const CFGElem *element : block->getElements())
          printElementOf(layout, *element);
      });
      for (std::size_t link = 0; link < cfgLinkCount; ++link)
        if (const CFGBlock *target = block->getLink(static_cast<CFGLink>(link)))
          json.attribute(cfgLinkNames[link], target->getPlace());
      if (const CFGBlock *next = layout.fallsInto(block))
        json.attribute("fallsInto", next->getPlace());
    });
  }

  void printElementOf(const GraphLayout &layout, const CFGElem &element) {
    json.object([&] {
      ElementFacts facts = factsOf(element);
      json.attribute("kind", static_cast<int>(element.getType()));
      json.attribute("class", facts.className);
      const SourceRange &range = facts.node->getRange();
      if (!range.beginLine)
        json.attribute("line", 0);
      printPlace(range);
      const Statement *statement = element.getStmt();
      if (!statement)
        return;
      const BlockGroup &group = layout.groups[layout.groupIndex(element.getBlock())];
      if (group.section || group.paragraph)
        text("procedure", group.name());
      for (const FlowNode &node : layout.nodesOf(element.getBlock()))
        if (node.getStatement() == statement && node.getKind() != FlowNodeKind::Evaluate)
          json.attribute("node", idOf(layout, node));
      auto targets = targetsOf(*statement);
      if (!targets.empty())
        json.attributeArray("targets", [&] {
          for (const ProcedureTarget &target : targets)
            json.value(toUtf8(target.name()));
        });
      if (llvm::StringRef program = calledProgram(*statement); !program.empty())
        text("program", program);
    });
  }

  static std::int64_t idOf(const GraphLayout &layout, const FlowNode &node) {
    return node.getId() - layout.flow->firstNode();
  }
  bool isShown(const GraphLayout &layout, const FlowNode &node) const {
    return isShown(layout.groups[layout.groupIndex(node)]);
  }

  void printProcedureList(const GraphLayout &layout) {
    const FlowModule &flow = layout.flow->getModule();
    json.attributeArray("procedures", [&] {
      for (const FlowProcedure &procedure : layout.flow->procedures()) {
        const FlowNode &entry = flow.node(procedure.entry);
        if (!isShown(layout, entry))
          continue;
        json.object([&] {
          text("name", procedure.getName()->getDisplayName());
          json.attribute("kind", procedure.section ? "section" : "paragraph");
          if (procedure.parent != noFlow)
            text("section", flow.procedure(procedure.parent).getName()->getDisplayName());
          json.attribute("entry", idOf(layout, entry));
          json.attribute("end", idOf(layout, flow.node(procedure.end)));
          json.attribute("reached", entry.isReached());
          json.attribute("fallsThrough", procedure.fallsThrough);
          if (procedure.isDeclarative)
            json.attribute("declarative", true);
          printPlace(procedure.getRange());
        });
      }
    });
  }

  void printNodes(const GraphLayout &layout) {
    const FlowModule &flow = layout.flow->getModule();
    json.attributeArray("nodes", [&] {
      for (const FlowNode &node : layout.flow->nodes()) {
        if (!isShown(layout, node))
          continue;
        json.object([&] {
          json.attribute("id", idOf(layout, node));
          json.attribute("kind", flowNodeKindName(node.getKind()));
          if (node.getBlock())
            json.attribute("block", node.getBlock()->getPlace());
          if (!node.getClassName().empty())
            json.attribute("class", node.getClassName());
          text("verb", node.getVerb());
          if (node.getProcedure() != noFlow)
            text("procedure", flow.procedure(node.getProcedure()).getName()->getDisplayName());
          json.attribute("reached", node.isReached());
          printPlace(node.getRange());
        });
      }
    });
  }

  void printEdges(const GraphLayout &layout) {
    const FlowModule &flow = layout.flow->getModule();
    json.attributeArray("edges", [&] {
      for (const FlowNode &node : layout.flow->nodes())
        for (const FlowEdge &edge : node.successors()) {
          const FlowNode &target = flow.node(edge.to);
          if (!isShown(layout, node) && !isShown(layout, target))
            continue;
          json.object([&] {
            json.attribute("from", idOf(layout, node));
            json.attribute("to", idOf(layout, target));
            json.attribute("kind", flowEdgeKindName(edge.kind));
          });
        }
      // Into other functions: a nested program, a GLOBAL declarative, a report's declarative.
      for (const FlowPerform &perform : flow.performs()) {
        const FlowNode &node = flow.node(perform.node);
        const FlowRange &range = flow.ranges()[perform.range];
        if (node.getParent() == layout.flow && range.graph != layout.flow && isShown(layout, node))
          printEdgeOut(layout, node, *range.graph, flow.procedure(range.begin).entry, perform.kind);
      }
      for (const FlowCall &call : flow.calls()) {
        const FlowNode &node = flow.node(call.node);
        if (node.getParent() == layout.flow && call.target && isShown(layout, node))
          printEdgeOut(layout, node, *call.target, call.target->firstNode(), FlowEdgeKind::Call);
      }
    });
  }

  void printEdgeOut(const GraphLayout &layout, const FlowNode &node, const FlowGraph &graph,
                    std::uint32_t target, FlowEdgeKind kind) {
    json.object([&] {
      json.attribute("from", idOf(layout, node));
      json.attribute("to", target - graph.firstNode());
      text("function", graph.getName());
      json.attribute("kind", flowEdgeKindName(kind));
    });
  }

  void printCalls(const GraphLayout &layout) {
    json.attributeArray("calls", [&] {
      for (const FlowCall &call : layout.flow->getModule().calls()) {
        const FlowNode &node = layout.flow->getModule().node(call.node);
        if (node.getParent() != layout.flow || !isShown(layout, node))
          continue;
        json.object([&] {
          json.attribute("from", idOf(layout, node));
          text(call.isDynamic           ? "identifier"
               : call.isOfTransaction() ? "transaction"
                                        : "program",
               call.name);
          if (!call.value.empty())
            text("value", call.value);
          json.attribute("kind", flowCallKindName(call.kind));
          json.attribute("dynamic", call.isDynamic);
          json.attribute("inCompilation", call.target != nullptr);
        });
      }
    });
  }

  /// With --collapse: a procedure is one thing, with its ways to others.
  void printProcedures(const GraphLayout &layout) {
    const std::vector<ProcedureWays> ways = waysOfGroups(layout);
    json.attributeArray("procedures", [&] {
      for (std::size_t index = 0; index < layout.groups.size(); ++index) {
        const BlockGroup &group = layout.groups[index];
        if (!isShown(group))
          continue;
        json.object([&] {
          json.attribute("id", static_cast<std::int64_t>(index));
          if (group.section || group.paragraph)
            text("name", group.name());
          json.attribute("kind", group.paragraph ? "paragraph"
                                 : group.section ? "section"
                                                 : "outside");
          if (group.section && group.paragraph)
            text("section", group.section->getDisplayName());
          json.attribute("reached", !layout.isDead(group));
          json.attribute("statements", static_cast<std::int64_t>(countStatements(group)));
          json.attribute("firstBlock", group.blocks.front()->getPlace());
          json.attribute("lastBlock", group.blocks.back()->getPlace());
          json.attributeArray("ways", [&] {
            for (const auto &[kind, target] : ways[index])
              json.object([&] {
                json.attribute("to", static_cast<std::int64_t>(layout.groupIndex(target)));
                json.attribute("kind", flowEdgeKindName(kind));
              });
          });
        });
      }
    });
  }

  llvm::json::OStream json;
  const GraphView &view;
};

} // namespace

void printGraphText(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view) {
  const std::unique_ptr<FlowModule> flow = createFlow(module);
  const ProcedureStarts starts = findProcedures(module);
  TextPrinter printer(os, view);
  const char *separator = "";
  for (const CFGFunc *function : FunctionSelection(module, view).all()) {
    os << std::exchange(separator, "\n");
    printer.print(GraphLayout(*function, starts, *flow));
  }
}

void printGraphJson(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view) {
  JsonPrinter(os, view).print(module, *createFlow(module));
  os << '\n';
}

} // namespace tarka
