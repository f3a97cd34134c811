//===- PrintGraph.cpp - the graph as text, JSON and DOT -------------------===//

#include "PrintGraph.h"
#include "AST/Expression.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "AST/StatementNames.h"
#include "Analyzer/TopLevel.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/MapVector.h"
#include "llvm/ADT/SetVector.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/GraphWriter.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"
#include <tuple>
#include <utility>
#include <vector>

namespace tarka {

namespace {

//===----------------------------------------------------------------------===//
// Where the blocks stand: functions, sections, paragraphs
//===----------------------------------------------------------------------===//

/// A procedure that begins in some block.
struct ProcedureStart {
  const Word *name = nullptr;
  bool isSection = false;
};
using ProcedureStarts = llvm::DenseMap<const CFGBlock *, ProcedureStart>;

void addSection(ProcedureStarts &starts, const Section &section) {
  starts[section.getStartBlock()] = {section.getSectionName(), true};
  for (const Paragraph *paragraph : section.getParaElements())
    starts[paragraph->getStartBlock()] = {paragraph->getParagraphName(), false};
}

ProcedureStarts findProcedures(const CFGModule &module) {
  ProcedureStarts starts;
  for (const CFGFunc *function : module.getFuncList()) {
    const SourceUnit *unit = function->getSourceUnit();
    const ProcedureDivision *division = unit ? unit->getProcDivision() : nullptr;
    if (!division)
      continue;
    for (const Declaratives *declarative : division->getDeclElements())
      addSection(starts, *declarative->getSection());
    for (const Paragraph *paragraph : division->getParaElements())
      starts[paragraph->getStartBlock()] = {paragraph->getParagraphName(), false};
    for (const Section *section : division->getSectElements())
      addSection(starts, *section);
  }
  return starts;
}

/// A run of blocks that stand in one procedure, or outside of any.
struct Group {
  const Word *section = nullptr;
  const Word *paragraph = nullptr;
  std::vector<const CFGBlock *> blocks;

  bool has(llvm::StringRef name) const {
    return (section && name.equals_insensitive(section->getWordData())) ||
           (paragraph && name.equals_insensitive(paragraph->getWordData()));
  }
  const std::string &name() const {
    static const std::string &outside = internString("(no procedure)");
    const Word *procedure = paragraph ? paragraph : section;
    return procedure ? procedure->getDisplayName() : outside;
  }
};

/// Whether \p block belongs to its section as a whole, so that the paragraph before it is over.
bool endsParagraph(const CFGBlock *block) {
  if (block->getName() == "tkdummy_end_section")
    return true;
  if (block->getElements().empty() || !block->getElements().front()->getStmt())
    return false;
  auto *exit = llvm::dyn_cast<InnerExitStatement>(block->getElements().front()->getStmt());
  return exit && exit->getSection();
}

/// Whether \p block stands outside of procedures, behind those before it.
bool endsSection(const CFGBlock *block) {
  return block->getName() == "tkdummy_end_declaratives" ||
         block->getName() == "tkdummy_rpt_declaratives_end";
}

/// The blocks of a function by their place and by procedure.
struct Layout {
  const CFGFunc *function;
  std::vector<const CFGBlock *> blocks;
  std::vector<Group> groups;
  /// The group of every block, by place.
  std::vector<std::size_t> groupOf;

  Layout(const CFGFunc &described, const ProcedureStarts &starts) : function(&described) {
    for (const CFGBlock *block : described.getBody()->getBlockList()) {
      openGroup(block, starts);
      groups.back().blocks.push_back(block);
      groupOf.push_back(groups.size() - 1);
      blocks.push_back(block);
    }
  }

  /// The block into which \p block falls; null when it leads somewhere, or nowhere.
  const CFGBlock *fallsInto(const CFGBlock *block) const {
    auto next = static_cast<std::size_t>(block->getPlace()) + 1;
    if (block->getHaveTerminator() || block->getSuccessorBlock() || next == blocks.size())
      return nullptr;
    return blocks[next];
  }

private:
  void openGroup(const CFGBlock *block, const ProcedureStarts &starts) {
    auto start = starts.find(block);
    if (start != starts.end() && start->second.isSection)
      groups.push_back({start->second.name, nullptr, {}});
    else if (start != starts.end())
      groups.push_back({groups.empty() ? nullptr : groups.back().section, start->second.name, {}});
    else if (groups.empty() || (groups.back().section && endsSection(block)))
      groups.push_back({});
    else if (groups.back().paragraph && endsParagraph(block))
      groups.push_back({groups.back().section, nullptr, {}});
  }
};

/// The functions to print: those of the module, then that of the report declaratives.
struct Selection {
  std::vector<const CFGFunc *> functions;
  const CFGFunc *reportDeclaratives = nullptr;

  Selection(const CFGModule &module, const GraphView &view) {
    auto wanted = [&](const CFGFunc *function) {
      return view.function.empty() ||
             llvm::StringRef(view.function).equals_insensitive(function->getName());
    };
    for (const CFGFunc *function : module.getFuncList())
      if (wanted(function))
        functions.push_back(function);
    const CFGFunc *report = TopLevel::getTopLevelInstance("")->getRptDeclCFGFunction();
    if (report && report->getModule() == &module && wanted(report))
      reportDeclaratives = report;
  }

  std::vector<const CFGFunc *> all() const {
    std::vector<const CFGFunc *> both = functions;
    if (reportDeclaratives)
      both.push_back(reportDeclaratives);
    return both;
  }
};

//===----------------------------------------------------------------------===//
// What blocks hold
//===----------------------------------------------------------------------===//

/// The procedures to which a statement sends control.
struct Target {
  llvm::StringLiteral how;
  const Section *section;
  const Paragraph *paragraph;

  const CFGBlock *start() const {
    return section ? section->getStartBlock() : paragraph ? paragraph->getStartBlock() : nullptr;
  }
  llvm::StringRef name() const {
    const Word *word = section     ? section->getSectionName()
                       : paragraph ? paragraph->getParagraphName()
                                   : nullptr;
    return word ? llvm::StringRef(word->getDisplayName()) : "";
  }
};

llvm::SmallVector<Target, 1> targetsOf(const Statement &statement) {
  llvm::SmallVector<Target, 1> targets;
  if (auto *jump = llvm::dyn_cast<GotoStatement>(&statement)) {
    for (const GotoProcedure *procedure : jump->getProcedureListElements())
      targets.push_back({"go to", procedure->getSection(), procedure->getParagraph()});
  } else if (auto *perform = llvm::dyn_cast<PerformStatement>(&statement)) {
    if (const PerformProcedure *range = perform->getProcedureName())
      targets.push_back({"perform", range->getBeginSection(), range->getBeginParagraph()});
  }
  return targets;
}

/// What follows the verb where control goes on at a named place.
void printOperands(llvm::raw_ostream &os, const Statement &statement) {
  for (const Target &target : targetsOf(statement))
    os << ' ' << target.name();
  if (auto *perform = llvm::dyn_cast<PerformStatement>(&statement)) {
    if (const PerformProcedure *range = perform->getProcedureName()) {
      Target begin{"", range->getBeginSection(), range->getBeginParagraph()};
      Target thru{"", range->getThruSection(), range->getThruParagraph()};
      if (thru.start() && thru.start() != begin.start())
        os << " THRU " << thru.name();
    }
  } else if (auto *exit = llvm::dyn_cast<InnerExitStatement>(&statement)) {
    Target ended{"", exit->getSection(), exit->getParagraph()};
    if (ended.start())
      os << " of " << ended.name();
  } else if (auto *entered = llvm::dyn_cast<ExitPerformStatement>(&statement)) {
    if (const CFGBlock *after = entered->getAfterBlock())
      os << " to " << after->getPlace() << ' ' << after->getName();
  } else if (auto *registered = llvm::dyn_cast<InnerRegisterExceptionStatement>(&statement)) {
    os << ' ' << registered->getDeclaratives()->getSection()->getSectionName()->getDisplayName();
  }
}

/// How an element is called in JSON, and what it points at.
struct ElementFacts {
  llvm::StringRef kind;
  llvm::StringRef className;
  const Node *node;
  const Word *name; ///< null for statements
};

ElementFacts factsOf(const CFGElem &element) {
  switch (element.getType()) {
  case CFGElem::ElemType::Statement:
    return {"statement", classNameOf(element.getStmt()->getType()), element.getStmt(), nullptr};
  case CFGElem::ElemType::DataDeclaration:
    return {"data", "DataDescription", element.getData(), element.getData()->getDataName()};
  case CFGElem::ElemType::FileDeclaration:
    return {"file", "FileDescription", element.getFile(), element.getFile()->getFileName()};
  case CFGElem::ElemType::ReportDeclaration:
    return {"report", "ReportDescription", element.getReport(),
            element.getReport()->getReportName()};
  }
  llvm_unreachable("an element is of one of four types");
}

/// "12 MOVE", "7 data AMOUNT"
void printElement(llvm::raw_ostream &os, const CFGElem &element) {
  ElementFacts facts = factsOf(element);
  os << facts.node->getBeginLineNo() << ' ';
  if (const Statement *statement = element.getStmt()) {
    os << verbOf(statement->getType());
    printOperands(os, *statement);
  } else {
    os << facts.kind << ' ' << (facts.name ? facts.name->getDisplayName() : "FILLER");
  }
}

/// Calls \p visit(way, target) for every link of \p block that is set, and for falling through.
template <typename Visitor>
void forEachWay(const Layout &layout, const CFGBlock *block, Visitor visit) {
  for (std::size_t link = 0; link < cfgLinkCount; ++link)
    if (const CFGBlock *target = block->getLink(static_cast<CFGLink>(link)))
      visit(cfgLinkNames[link], target);
  if (const CFGBlock *next = layout.fallsInto(block))
    visit(llvm::StringLiteral("falls into"), next);
}

/// How control leaves a procedure: what the way is called, and the block that it leads to.
using ProcedureWays = llvm::SetVector<std::pair<llvm::StringRef, const CFGBlock *>>;

ProcedureWays waysOf(const Layout &layout, const Group &group) {
  ProcedureWays ways;
  for (const CFGBlock *block : group.blocks) {
    for (const CFGElem *element : block->getElements())
      if (const Statement *statement = element->getStmt())
        for (const Target &target : targetsOf(*statement))
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

std::size_t countStatements(const Group &group) {
  std::size_t count = 0;
  for (const CFGBlock *block : group.blocks)
    for (const CFGElem *element : block->getElements())
      count += element->getStmt() != nullptr;
  return count;
}

//===----------------------------------------------------------------------===//
// Text
//===----------------------------------------------------------------------===//

class TextPrinter {
public:
  TextPrinter(llvm::raw_ostream &output, const GraphView &wanted) : os(output), view(wanted) {}

  void print(const Layout &layout) {
    const CFGFunc &function = *layout.function;
    os << "function " << function.getName() << '\n';
    if (!function.getParams().empty())
      os << "  parameters " << function.getParams().size() << '\n';
    if (function.getReturning())
      os << "  returning\n";
    for (const CFGEntry *entry : function.getEntryList())
      os << "  entry " << entry->getIndex() << ' ' << entry->getName() << " at "
         << entry->getEntryBlock()->getPlace() << '\n';
    for (const Group &group : layout.groups) {
      if (!view.paragraph.empty() && !group.has(view.paragraph))
        continue;
      if (view.collapse)
        printCollapsed(layout, group);
      else
        printGroup(layout, group);
    }
  }

private:
  void printHeading(const Group &group) {
    if (group.paragraph)
      os << "  paragraph " << group.name();
    else if (group.section)
      os << "  section " << group.name();
    else
      os << "  " << group.name();
  }

  void printCollapsed(const Layout &layout, const Group &group) {
    printHeading(group);
    os << ": " << countStatements(group) << " statements, blocks "
       << group.blocks.front()->getPlace() << " to " << group.blocks.back()->getPlace() << '\n';
    for (const auto &[way, target] : waysOf(layout, group))
      os << "       " << way << ' ' << target->getPlace() << ' ' << target->getName() << '\n';
  }

  void printGroup(const Layout &layout, const Group &group) {
    if (group.section || group.paragraph) {
      printHeading(group);
      os << '\n';
    }
    for (const CFGBlock *block : group.blocks)
      printBlock(layout, block);
  }

  void printBlock(const Layout &layout, const CFGBlock *block) {
    os << llvm::format("%5d: ", block->getPlace()) << block->getName();
    if (block->getBlockType() == CFGBlockType::Procedure)
      os << " [procedure]";
    if (block->getHaveTerminator())
      os << " [terminator]";
    os << '\n';
    for (const CFGElem *element : block->getElements()) {
      os << "         ";
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

  void print(const CFGModule &module, const Selection &selection, const ProcedureStarts &starts) {
    json.object([&] {
      text("name", module.getName());
      json.attributeArray("functions", [&] {
        for (const CFGFunc *function : selection.functions)
          printFunction(Layout(*function, starts));
      });
      if (selection.reportDeclaratives) {
        json.attributeBegin("reportDeclaratives");
        printFunction(Layout(*selection.reportDeclaratives, starts));
        json.attributeEnd();
      }
    });
  }

private:
  /// Text of the source may be in any encoding; JSON is UTF-8.
  void text(llvm::StringRef key, llvm::StringRef value) {
    json.attribute(key, llvm::json::isUTF8(value) ? value.str() : llvm::json::fixUTF8(value));
  }

  void printFunction(const Layout &layout) {
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
        for (const Group &group : layout.groups)
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

//===----------------------------------------------------------------------===//
// DOT
//===----------------------------------------------------------------------===//

class DotPrinter {
public:
  DotPrinter(llvm::raw_ostream &output, const GraphView &wanted) : os(output), view(wanted) {}

  void print(const CFGModule &module, const std::vector<const CFGFunc *> &functions,
             const ProcedureStarts &starts) {
    os << "digraph \"" << escaped(module.getName()) << "\" {\n"
       << "  compound=true;\n  node [shape=box, fontname=monospace];\n  edge [fontsize=10];\n";
    std::vector<Layout> layouts;
    for (const CFGFunc *function : functions) {
      numbers[function->getBody()] = layouts.size();
      layouts.emplace_back(*function, starts);
    }
    for (const Layout &layout : layouts)
      printCluster(layout);
    for (const Layout &layout : layouts)
      for (const Group &group : layout.groups)
        if (isWanted(group))
          view.collapse ? printCollapsedEdges(layout, layouts, group) : printEdges(layout, group);
    os << "}\n";
  }

private:
  static std::string escaped(llvm::StringRef text) { return llvm::DOT::EscapeString(text.str()); }

  bool isWanted(const Group &group) const {
    return view.paragraph.empty() || group.has(view.paragraph);
  }

  /// Names a block, as "f0b12".
  std::string nodeOf(const CFGBlock *block) const {
    return ("f" + llvm::Twine(numbers.lookup(block->getGraph())) + "b" +
            llvm::Twine(block->getPlace()))
        .str();
  }

  void printCluster(const Layout &layout) {
    auto number = numbers.lookup(layout.function->getBody());
    os << "  subgraph cluster_f" << number << " {\n    label=\""
       << escaped(layout.function->getName()) << "\";\n";
    const Word *openSection = nullptr;
    for (std::size_t index = 0; index < layout.groups.size(); ++index) {
      const Group &group = layout.groups[index];
      if (!isWanted(group))
        continue;
      // A section holds the groups of its paragraphs.
      if (group.section != openSection) {
        if (openSection)
          os << "    }\n";
        openSection = group.section;
        if (openSection)
          os << "    subgraph cluster_f" << number << "s" << index << " {\n      label=\""
             << escaped(openSection->getDisplayName()) << " SECTION\";\n";
      }
      if (view.collapse)
        printCollapsedNode(group);
      else
        printGroup(group, number, index);
    }
    if (openSection)
      os << "    }\n";
    os << "  }\n";
  }

  void printGroup(const Group &group, std::size_t number, std::size_t index) {
    if (group.paragraph)
      os << "      subgraph cluster_f" << number << "p" << index << " {\n        label=\""
         << escaped(group.name()) << "\";\n";
    for (const CFGBlock *block : group.blocks) {
      shown.insert(block);
      os << "        " << nodeOf(block) << " [label=\"" << escaped(block->getName()) << "\\l";
      for (const CFGElem *element : block->getElements()) {
        llvm::SmallString<64> line;
        llvm::raw_svector_ostream lineStream(line);
        printElement(lineStream, *element);
        os << escaped(line) << "\\l";
      }
      os << "\"];\n";
    }
    if (group.paragraph)
      os << "      }\n";
  }

  /// One edge for all the links that lead to the same block.
  void printEdges(const Layout &layout, const Group &group) {
    for (const CFGBlock *block : group.blocks) {
      llvm::MapVector<const CFGBlock *, std::string> labels;
      auto add = [&](llvm::StringRef way, const CFGBlock *target) {
        std::string &label = labels[target];
        label += (label.empty() ? "" : ", ") + way.str();
      };
      forEachWay(layout, block, add);
      for (const CFGElem *element : block->getElements())
        if (const Statement *statement = element->getStmt())
          for (const Target &target : targetsOf(*statement))
            if (target.start())
              add(target.how, target.start());
      for (const auto &[target, label] : labels) {
        printOutsider(target);
        os << "  " << nodeOf(block) << " -> " << nodeOf(target) << " [label=\"" << label << '"'
           << (isFlow(label) ? "" : ", style=dashed, constraint=false") << "];\n";
      }
    }
  }

  /// Whether control takes an edge, which the other links only accompany.
  static bool isFlow(llvm::StringRef label) {
    return label != "end" && label != "next" && label != "return" && label != "perform";
  }

  /// A block that is not shown, at the end of an edge from one that is.
  void printOutsider(const CFGBlock *block) {
    if (shown.insert(block).second)
      os << "  " << nodeOf(block) << " [label=\"" << escaped(block->getName())
         << "\", style=dotted];\n";
  }

  void printCollapsedNode(const Group &group) {
    shown.insert(group.blocks.front());
    os << "      " << nodeOf(group.blocks.front()) << " [label=\"" << escaped(group.name()) << "\\l"
       << countStatements(group) << " statements\\l\"];\n";
  }

  void printCollapsedEdges(const Layout &layout, const std::vector<Layout> &layouts,
                           const Group &group) {
    llvm::SetVector<std::tuple<llvm::StringRef, const CFGBlock *>> edges;
    for (const auto &[way, target] : waysOf(layout, group)) {
      // The node of a procedure is its first block.
      const CFGBlock *node = target;
      if (auto number = numbers.find(target->getGraph()); number != numbers.end()) {
        const Layout &home = layouts[number->second];
        auto place = static_cast<std::size_t>(target->getPlace());
        node = home.groups[home.groupOf[place]].blocks.front();
      }
      edges.insert({way, node});
    }
    for (const auto &[way, target] : edges) {
      printOutsider(target);
      os << "  " << nodeOf(group.blocks.front()) << " -> " << nodeOf(target) << " [label=\"" << way
         << '"' << (isFlow(way) ? "" : ", style=dashed") << "];\n";
    }
  }

  llvm::raw_ostream &os;
  const GraphView &view;
  llvm::DenseMap<const CFGGraph *, std::size_t> numbers;
  llvm::DenseSet<const CFGBlock *> shown;
};

} // namespace

void printGraphText(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view) {
  ProcedureStarts starts = findProcedures(module);
  TextPrinter printer(os, view);
  const char *separator = "";
  for (const CFGFunc *function : Selection(module, view).all()) {
    os << std::exchange(separator, "\n");
    printer.print(Layout(*function, starts));
  }
}

void printGraphJson(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view) {
  JsonPrinter(os, view).print(module, Selection(module, view), findProcedures(module));
  os << '\n';
}

void printGraphDot(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view) {
  DotPrinter(os, view).print(module, Selection(module, view).all(), findProcedures(module));
}

} // namespace tarka
