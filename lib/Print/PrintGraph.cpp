//===- PrintGraph.cpp - the graph as text and JSON ------------------------===//

#include "Print/PrintGraph.h"
#include "AST/Names.h"
#include "Print/GraphLayout.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

/// How control leaves a procedure: what the way is called, and the block that it leads to.
using ProcedureWays = llvm::SetVector<std::pair<llvm::StringRef, const CFGBlock *>>;

ProcedureWays waysOf(const GraphLayout &layout, const BlockGroup &group) {
  ProcedureWays ways;
  for (const CFGBlock *block : group.blocks) {
    for (const CFGElem *element : block->getElements())
      if (const Statement *statement = element->getStmt())
        for (const ProcedureTarget &target : targetsOf(*statement))
          if (target.start())
            ways.insert({target.how, target.start()});
    auto home = layout.groupOf[static_cast<std::size_t>(block->getPlace())];
    forEachWay(layout, block, [&](llvm::StringRef way, const CFGBlock *target) {
      if (layout.groupOf[static_cast<std::size_t>(target->getPlace())] != home)
        ways.insert({way, target});
    });
  }
  return ways;
}

//===----------------------------------------------------------------------===//
// Text
//===----------------------------------------------------------------------===//

class TextPrinter {
public:
  TextPrinter(llvm::raw_ostream &output, const GraphView &wanted) : os(output), view(wanted) {}

  void print(const GraphLayout &layout) {
    const CFGFunc &function = *layout.function;
    os << "function " << function.getName() << '\n';
    if (!function.getParams().empty())
      os << "  parameters " << function.getParams().size() << '\n';
    if (function.getReturning())
      os << "  returning\n";
    for (const CFGEntry *entry : function.getEntryList())
      os << "  entry " << entry->getIndex() << ' ' << entry->getName() << " at "
         << entry->getEntryBlock()->getPlace() << '\n';
    for (const BlockGroup &group : layout.groups) {
      if (!view.paragraph.empty() && !group.has(view.paragraph))
        continue;
      if (view.collapse)
        printCollapsed(layout, group);
      else
        printGroup(layout, group);
    }
  }

private:
  void printHeading(const BlockGroup &group) {
    if (group.paragraph)
      os << "  paragraph " << group.name();
    else if (group.section)
      os << "  section " << group.name();
    else
      os << "  " << group.name();
  }

  void printCollapsed(const GraphLayout &layout, const BlockGroup &group) {
    printHeading(group);
    os << ": " << countStatements(group) << " statements, blocks "
       << group.blocks.front()->getPlace() << " to " << group.blocks.back()->getPlace() << '\n';
    for (const auto &[way, target] : waysOf(layout, group))
      os << "       " << way << ' ' << target->getPlace() << ' ' << target->getName() << '\n';
  }

  void printGroup(const GraphLayout &layout, const BlockGroup &group) {
    if (group.section || group.paragraph) {
      printHeading(group);
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

  void print(const CFGModule &module, const FunctionSelection &selection,
             const ProcedureStarts &starts) {
    json.object([&] {
      text("name", module.getName());
      json.attributeArray("functions", [&] {
        for (const CFGFunc *function : selection.functions)
          printFunction(GraphLayout(*function, starts));
      });
      if (selection.reportDeclaratives) {
        json.attributeBegin("reportDeclaratives");
        printFunction(GraphLayout(*selection.reportDeclaratives, starts));
        json.attributeEnd();
      }
    });
  }

private:
  /// Text of the source may be in any encoding; JSON is UTF-8.
  void text(llvm::StringRef key, llvm::StringRef value) {
    json.attribute(key, llvm::json::isUTF8(value) ? value.str() : llvm::json::fixUTF8(value));
  }

  void printFunction(const GraphLayout &layout) {
    json.object([&] {
      text("name", layout.function->getName());
      json.attributeArray("entries", [&] {
        for (const CFGEntry *entry : layout.function->getEntryList())
          json.object([&] {
            text("name", entry->getName());
            json.attribute("index", entry->getIndex());
            json.attribute("block", entry->getEntryBlock()->getPlace());
          });
      });
      json.attributeArray("blocks", [&] {
        for (const BlockGroup &group : layout.groups)
          if (view.paragraph.empty() || group.has(view.paragraph))
            for (const CFGBlock *block : group.blocks)
              printBlock(block);
      });
    });
  }

  void printBlock(const CFGBlock *block) {
    json.object([&] {
      json.attribute("id", block->getPlace());
      text("name", block->getName());
      json.attribute("type", static_cast<int>(block->getBlockType()));
      json.attribute("terminator", block->getHaveTerminator());
      json.attributeArray("elements", [&] {
        for (const CFGElem *element : block->getElements())
          json.object([&] {
            ElementFacts facts = factsOf(*element);
            json.attribute("kind", static_cast<int>(element->getType()));
            json.attribute("class", facts.className);
            json.attribute("line", facts.node->getBeginLineNo());
          });
      });
      for (std::size_t link = 0; link < cfgLinkCount; ++link)
        if (const CFGBlock *target = block->getLink(static_cast<CFGLink>(link)))
          json.attribute(cfgLinkNames[link], target->getPlace());
    });
  }

  llvm::json::OStream json;
  const GraphView &view;
};

} // namespace

void printGraphText(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view) {
  ProcedureStarts starts = findProcedures(module);
  TextPrinter printer(os, view);
  const char *separator = "";
  for (const CFGFunc *function : FunctionSelection(module, view).all()) {
    os << std::exchange(separator, "\n");
    printer.print(GraphLayout(*function, starts));
  }
}

void printGraphJson(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view) {
  JsonPrinter(os, view).print(module, FunctionSelection(module, view), findProcedures(module));
  os << '\n';
}

} // namespace tarka
