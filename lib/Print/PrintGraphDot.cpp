//===- PrintGraphDot.cpp - the graph as a picture -------------------------===//
//
// The graph in the language of Graphviz, for people: the statements are shown as
// they stand in the source, links that go together share an edge, and what only
// accompanies the flow of control is drawn faintly or left out.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/Expression.h"
#include "AST/Names.h"
#include "AST/Statement.h"
#include "Print/GraphLayout.h"
#include "Print/SourceExcerpts.h"
#include "llvm/ADT/MapVector.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/GraphWriter.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"
#include <algorithm>
#include <optional>

namespace tarka {

namespace {

/// The longest line of a label, in characters.
constexpr std::size_t labelWidth = 64;

//===----------------------------------------------------------------------===//
// Which way control takes
//===----------------------------------------------------------------------===//

enum class EdgeKind { Flow, FallThrough, GoTo, Perform, Accompanying };

/// A way that leads from a block. Where several lead to the same place they are one.
struct Way {
  EdgeKind kind = EdgeKind::Accompanying;
  llvm::SmallVector<llvm::StringRef, 3> names;
};
using Ways = llvm::MapVector<const CFGBlock *, Way>;

const Statement *lastStatement(const CFGBlock *block) {
  return block->getElements().empty() ? nullptr : block->getElements().back()->getStmt();
}

/// Whether control never goes on behind the last statement of \p block.
bool neverGoesOn(const CFGBlock *block) {
  const Statement *last = lastStatement(block);
  if (!last)
    return false;
  switch (last->getType()) {
  case StatementType::Goto:
    return !llvm::cast<GotoStatement>(last)->getDependingName();
  case StatementType::Stop:
    return !llvm::cast<StopStatement>(last)->getLiteral();
  case StatementType::Goback:
  case StatementType::NextSentence:
  case StatementType::ExitParagraph:
  case StatementType::ExitPerform:
  case StatementType::ExitProgram:
  case StatementType::ExitSection:
    return true;
  default:
    return false;
  }
}

/// Whether \p block leads to its successor, which some blocks have only for company.
bool takesSuccessor(const CFGBlock *block) {
  const CFGBlock *successor = block->getSuccessorBlock();
  if (neverGoesOn(block))
    return false;
  for (CFGLink branch : {CFGLink::Then, CFGLink::OnSize, CFGLink::NotOnSize, CFGLink::Inline})
    if (block->getLink(branch))
      return false;
  return !block->getAfterBlock() || block->getAfterBlock() == successor;
}

/// Whether control goes from \p block to its end block: where the branch for the one of two results
/// is not written.
bool takesEnd(const CFGBlock *block) {
  const Statement *last = lastStatement(block);
  if (last && (last->getType() == StatementType::Sort || last->getType() == StatementType::Merge))
    return false;
  auto isSet = [&](CFGLink link) { return block->getLink(link) != nullptr; };
  return isSet(CFGLink::Then) != isSet(CFGLink::Else) ||
         isSet(CFGLink::OnSize) != isSet(CFGLink::NotOnSize);
}

EdgeKind kindOf(const CFGBlock *block, CFGLink link) {
  switch (link) {
  case CFGLink::Successor:
    return takesSuccessor(block) ? EdgeKind::Flow : EdgeKind::Accompanying;
  case CFGLink::End:
    return takesEnd(block) ? EdgeKind::Flow : EdgeKind::Accompanying;
  case CFGLink::Next:
  case CFGLink::Return:
    return EdgeKind::Accompanying;
  default:
    return EdgeKind::Flow;
  }
}

void addWay(Ways &ways, const CFGBlock *target, EdgeKind kind, llvm::StringRef name) {
  if (!target)
    return;
  Way &way = ways[target];
  way.kind = std::min(way.kind, kind);
  if (!llvm::is_contained(way.names, name))
    way.names.push_back(name);
}

/// The ways to which the last statement of \p block knows the target.
void addStatementWays(Ways &ways, const CFGBlock *block) {
  for (const CFGElem *element : block->getElements()) {
    const Statement *statement = element->getStmt();
    if (!statement)
      continue;
    for (const ProcedureTarget &target : targetsOf(*statement))
      addWay(ways, target.start(),
             statement->getType() == StatementType::Goto ? EdgeKind::GoTo : EdgeKind::Perform,
             target.how);
    if (auto *next = llvm::dyn_cast<NextSentenceStatement>(statement)) {
      if (const CFGBlock *sentence = next->getSentenceBlock())
        addWay(ways, sentence->getNextBlock(), EdgeKind::Flow, "next sentence");
    } else if (auto *exit = llvm::dyn_cast<ExitPerformStatement>(statement)) {
      addWay(ways, exit->getAfterBlock(), EdgeKind::Flow, "exit");
    }
  }
}

Ways waysFrom(const GraphLayout &layout, const CFGBlock *block) {
  Ways ways;
  for (std::size_t number = 0; number < cfgLinkCount; ++number) {
    const auto link = static_cast<CFGLink>(number);
    const bool isExit = link == CFGLink::After && neverGoesOn(block);
    addWay(ways, block->getLink(link), kindOf(block, link),
           isExit ? llvm::StringLiteral("exit") : cfgLinkNames[number]);
  }
  if (!neverGoesOn(block))
    addWay(ways, layout.fallsInto(block), EdgeKind::FallThrough, "fall through");
  addStatementWays(ways, block);
  return ways;
}

/// What is written at an edge: the names that say more than the others. Simply going on has none.
std::string labelOf(const Way &way) {
  auto has = [&](llvm::StringRef name) { return llvm::is_contained(way.names, name); };
  std::string label;
  for (llvm::StringRef name : way.names) {
    const bool isSaid = name == "successor" || (name == "return" && has("after")) ||
                        (name == "end" && way.names.size() > 1) ||
                        // The body of a WHEN has both, though nothing is decided at its end.
                        (name == "then" && has("successor"));
    if (!isSaid)
      label += (label.empty() ? "" : ", ") + name.str();
  }
  return label;
}

/// Whether \p way is drawn. Of the links that only accompany the flow, that is the one to the block
/// where a loop is controlled.
bool isDrawn(const Way &way) {
  return way.kind != EdgeKind::Accompanying || llvm::is_contained(way.names, "return");
}

/// The blocks that control can reach from the beginnings of procedures, entries and of the
/// function.
class ReachableBlocks {
public:
  void addFunction(const GraphLayout &layout, const ProcedureStarts &starts) {
    llvm::SmallVector<const CFGBlock *> open;
    auto reach = [&](const CFGBlock *block) {
      if (reached.insert(block).second)
        open.push_back(block);
    };
    reach(layout.blocks.front());
    for (const CFGEntry *entry : layout.function->getEntryList())
      reach(entry->getEntryBlock());
    for (const CFGBlock *block : layout.blocks)
      if (starts.contains(block))
        reach(block);
    while (!open.empty()) {
      const CFGBlock *block = open.pop_back_val();
      for (const auto &[target, way] : waysFrom(layout, block))
        if (target->getGraph() == block->getGraph() && isDrawn(way))
          reach(target);
    }
  }
  bool contains(const CFGBlock *block) const { return reached.contains(block); }

private:
  llvm::DenseSet<const CFGBlock *> reached;
};

//===----------------------------------------------------------------------===//
// Statements as they are written
//===----------------------------------------------------------------------===//

class StatementText {
public:
  explicit StatementText(const ParseOptions &options) : excerpts(options) {}

  /// Takes note of where the statements of \p layout begin: the text of the one around them ends
  /// there.
  void addFunction(const GraphLayout &layout) {
    for (const CFGBlock *block : layout.blocks)
      for (const CFGElem *element : block->getElements())
        if (const Statement *statement = element->getStmt())
          begins.push_back(beginOf(statement->getRange()));
    llvm::sort(begins);
    begins.erase(std::unique(begins.begin(), begins.end()), begins.end());
  }

  /// The lines of the label for \p element.
  llvm::SmallVector<std::string, 1> linesOf(const CFGElem &element) {
    llvm::SmallVector<std::string, 1> lines;
    if (auto *when = llvm::dyn_cast_or_null<InnerWhenStatement>(element.getStmt())) {
      addWhen(lines, *when, element.getBlock());
    } else if (auto *test = llvm::dyn_cast_or_null<InnerSearchWhenStatement>(element.getStmt())) {
      add(lines, "WHEN " + excerpts.excerpt(test->getCondition()->getRange(), labelWidth),
          test->getCondition()->getRange());
    } else if (isWritten(element)) {
      const SourceRange &range = element.getStmt()->getRange();
      add(lines, excerpts.excerpt(untilNextStatement(range), labelWidth), range);
    }
    if (lines.empty()) {
      std::string line;
      llvm::raw_string_ostream stream(line);
      printElement(stream, element);
      add(lines, line, factsOf(element).node->getRange());
    }
    return lines;
  }

private:
  struct Place {
    unsigned file, line, column;
    auto operator<=>(const Place &) const = default;
  };

  static Place beginOf(const SourceRange &range) {
    return {range.file, range.beginLine, range.beginColumn};
  }

  /// Whether the element stands in the source itself, and not for a part of something there.
  static bool isWritten(const CFGElem &element) {
    const Statement *statement = element.getStmt();
    if (!statement || !statement->getRange().beginLine)
      return false;
    switch (statement->getType()) {
    case StatementType::InnerBranch:
    case StatementType::InnerExit:
    case StatementType::InnerRegisterException:
      return false;
    case StatementType::Perform: {
      // The PERFORM of a procedure that another statement names has that statement's place.
      llvm::StringRef block = element.getBlock()->getName();
      return block != "tkdummy_sort_input" && block != "tkdummy_sort_output" &&
             block != "tkdummy_merge_then" && block != "tkdummy_xml_proc";
    }
    default:
      return true;
    }
  }

  SourceRange untilNextStatement(SourceRange range) const {
    auto next = std::upper_bound(begins.begin(), begins.end(), beginOf(range));
    if (next != begins.end() && next->file == range.file &&
        std::pair(next->line, next->column) <= std::pair(range.endLine, unsigned(range.endColumn)))
      endBefore(range, next->line, next->column);
    return range;
  }

  static void endBefore(SourceRange &range, unsigned line, unsigned column) {
    range.endLine = line;
    range.endColumn = column - 1;
  }

  /// The EVALUATE with its subjects before the first test, then each WHEN of the case.
  void addWhen(llvm::SmallVector<std::string, 1> &lines, const InnerWhenStatement &when,
               const CFGBlock *block) {
    if (when.getWhenListElements().empty())
      return;
    const SourceRange &first = when.getWhenListElements().front()->getRange();
    if (block->getName() != "tkdummy_evaluate_when_cond") {
      SourceRange head = when.getRange();
      endBefore(head, first.beginLine, first.beginColumn);
      add(lines, excerpts.excerpt(head, labelWidth), head);
    }
    for (const EvaluateWhen *one : when.getWhenListElements())
      add(lines, excerpts.excerpt(untilNextStatement(one->getRange()), labelWidth),
          one->getRange());
  }

  static void add(llvm::SmallVector<std::string, 1> &lines, llvm::StringRef text,
                  const SourceRange &range) {
    if (text.empty())
      return;
    std::string line = text.str();
    if (range.beginLine)
      line = std::to_string(range.beginLine) + " " + line;
    lines.push_back(line);
  }

  SourceExcerpts excerpts;
  std::vector<Place> begins;
};

//===----------------------------------------------------------------------===//
// The picture
//===----------------------------------------------------------------------===//

/// Text of the source may be in any encoding; Graphviz wants UTF-8.
std::string inUtf8(llvm::StringRef text) {
  return llvm::json::isUTF8(text) ? text.str() : llvm::json::fixUTF8(text);
}

std::string forHtml(llvm::StringRef text) {
  std::string result;
  llvm::raw_string_ostream stream(result);
  llvm::printHTMLEscaped(inUtf8(text), stream);
  return result;
}

std::string forQuotes(llvm::StringRef text) {
  return llvm::DOT::EscapeString(inUtf8(text));
}

/// The attributes of an edge by its kind.
llvm::StringRef styleOf(EdgeKind kind) {
  switch (kind) {
  case EdgeKind::Flow:
    return "";
  case EdgeKind::FallThrough:
    return ", color=\"#999999\", fontcolor=\"#999999\"";
  case EdgeKind::GoTo:
    return ", color=\"#b03060\", fontcolor=\"#b03060\"";
  case EdgeKind::Perform:
    return ", style=dashed, color=\"#2060b0\", fontcolor=\"#2060b0\"";
  case EdgeKind::Accompanying:
    return ", style=dotted, color=\"#aaaaaa\", fontcolor=\"#aaaaaa\"";
  }
  return "";
}

class DotPrinter {
public:
  DotPrinter(llvm::raw_ostream &output, const GraphView &wanted, const ParseOptions &options)
      : os(output), view(wanted), text(options) {}

  void print(const CFGModule &module, const std::vector<const CFGFunc *> &functions,
             const ProcedureStarts &starts);

private:
  /// A group of blocks of some function, by their numbers.
  struct GroupId {
    std::size_t function, group;
    auto operator<=>(const GroupId &) const = default;
  };

  bool isWanted(const BlockGroup &group) const {
    return view.paragraph.empty() || group.has(view.paragraph);
  }
  bool isShown(const CFGBlock *block) const {
    return reachable.contains(block) || !block->getElements().empty();
  }

  std::optional<GroupId> groupOf(const CFGBlock *block) const {
    auto number = numbers.find(block->getGraph());
    if (number == numbers.end())
      return std::nullopt;
    return GroupId{number->second, layouts[number->second].groupIndex(block)};
  }
  const BlockGroup &groupAt(GroupId id) const { return layouts[id.function].groups[id.group]; }
  std::string nodeOf(const CFGBlock *block) const {
    return ("f" + llvm::Twine(numbers.lookup(block->getGraph())) + "b" +
            llvm::Twine(block->getPlace()))
        .str();
  }
  static std::string nodeOf(GroupId id) {
    return ("f" + llvm::Twine(id.function) + "g" + llvm::Twine(id.group)).str();
  }

  void printFunction(std::size_t number);
  void printGroup(GroupId id);
  void printBlock(const CFGBlock *block);
  void printProcedureNode(GroupId id, bool isNeighbour);
  void printBlockEdges(GroupId id);
  void printEdgesFromNeighbours();
  void printCollapsedEdges(GroupId id);
  void printEdge(const std::string &from, const std::string &to, llvm::StringRef label,
                 EdgeKind kind, bool constrains);
  std::string titleOf(GroupId id) const;
  std::string neighbour(GroupId id);

  llvm::raw_ostream &os;
  const GraphView &view;
  StatementText text;
  std::unique_ptr<FlowModule> flow;
  std::vector<GraphLayout> layouts;
  llvm::DenseMap<const CFGGraph *, std::size_t> numbers;
  ReachableBlocks reachable;
  llvm::StringSet<> neighbours;
  llvm::StringSet<> edges;
  /// The first blocks of the procedures that are performed.
  llvm::DenseSet<const CFGBlock *> performed;
};

void DotPrinter::print(const CFGModule &module, const std::vector<const CFGFunc *> &functions,
                       const ProcedureStarts &starts) {
  flow = createFlow(module);
  for (const CFGFunc *function : functions) {
    numbers[function->getBody()] = layouts.size();
    layouts.emplace_back(*function, starts, *flow);
    reachable.addFunction(layouts.back(), starts);
    text.addFunction(layouts.back());
  }
  for (const GraphLayout &layout : layouts)
    for (const CFGBlock *block : layout.blocks)
      for (const auto &[target, way] : waysFrom(layout, block))
        if (way.kind == EdgeKind::Perform)
          performed.insert(target);

  os << "digraph \"" << forQuotes(module.getName()) << "\" {\n"
     << "  graph [fontname=\"Helvetica\", labeljust=l, nodesep=0.3, ranksep=0.35"
     << (view.collapse ? ", rankdir=LR" : "") << "];\n"
     << "  node [shape=box, fontname=\"Courier\", fontsize=10, margin=\"0.08,0.04\", height=0.2,"
        " color=\"#666666\"];\n"
     << "  edge [fontname=\"Helvetica\", fontsize=9, arrowsize=0.7];\n";
  for (std::size_t number = 0; number < layouts.size(); ++number)
    printFunction(number);
  for (std::size_t number = 0; number < layouts.size(); ++number)
    for (std::size_t group = 0; group < layouts[number].groups.size(); ++group)
      if (isWanted(layouts[number].groups[group]))
        view.collapse ? printCollapsedEdges({number, group}) : printBlockEdges({number, group});
  if (!view.paragraph.empty())
    printEdgesFromNeighbours();
  os << "}\n";
}

/// A cluster for the function, in it one for each section, in that one for each paragraph.
void DotPrinter::printFunction(std::size_t number) {
  const GraphLayout &layout = layouts[number];
  os << "  subgraph cluster_f" << number << " {\n    label=<<b>"
     << forHtml(layout.function->getName()) << "</b>>; color=\"#666666\";\n";
  const Word *openSection = nullptr;
  for (std::size_t index = 0; index < layout.groups.size(); ++index) {
    const BlockGroup &group = layout.groups[index];
    if (!isWanted(group))
      continue;
    if (group.section != openSection) {
      if (openSection)
        os << "    }\n";
      openSection = group.section;
      if (openSection)
        os << "    subgraph cluster_f" << number << "s" << index << " {\n      label=<<b>"
           << forHtml(openSection->getDisplayName())
           << " SECTION</b>>; style=filled; color=\"#e8ecf4\";\n";
    }
    if (view.collapse)
      printProcedureNode({number, index}, /*isNeighbour=*/false);
    else
      printGroup({number, index});
  }
  if (openSection)
    os << "    }\n";
  os << "  }\n";
}

void DotPrinter::printGroup(GroupId id) {
  const BlockGroup &group = groupAt(id);
  if (group.paragraph)
    os << "      subgraph cluster_" << nodeOf(id) << " {\n        label=<<b>"
       << forHtml(group.name())
       << "</b>>; style=\"rounded,filled\"; color=\"#b8c4d8\"; fillcolor=\"#f6f8fc\";\n";
  for (const CFGBlock *block : group.blocks)
    if (isShown(block))
      printBlock(block);
  if (group.paragraph)
    os << "      }\n";
}

/// The name of the block small above its statements; alone when there are none.
void DotPrinter::printBlock(const CFGBlock *block) {
  const bool isDead = !reachable.contains(block);
  os << "        " << nodeOf(block) << " [style=filled, fillcolor=\""
     << (isDead ? "#eeeeee" : "#ffffff") << "\", label=<";
  std::string title = std::to_string(block->getPlace()) + " " + block->getName();
  if (isDead)
    title += " (not reached)";
  os << "<font point-size=\"7\" color=\"#888888\">" << forHtml(title) << "</font>";
  for (const CFGElem *element : block->getElements())
    for (const std::string &line : text.linesOf(*element))
      os << "<br align=\"left\"/>" << forHtml(line);
  os << "<br align=\"left\"/>>];\n";
}

/// "CHECK-INPUT", "MAIN SECTION", "entry"
std::string DotPrinter::titleOf(GroupId id) const {
  const BlockGroup &group = groupAt(id);
  if (group.paragraph)
    return group.name();
  if (!group.section)
    return group.blocks.front()->getName();
  // Behind the last paragraph of a section comes a piece that is its own.
  const bool isBehind =
      id.group > 0 && layouts[id.function].groups[id.group - 1].section == group.section;
  return (isBehind ? "end of " : "") + group.name() + " SECTION";
}

void DotPrinter::printProcedureNode(GroupId id, bool isNeighbour) {
  const BlockGroup &group = groupAt(id);
  os << "      " << nodeOf(id) << " [";
  if (isNeighbour) {
    os << "shape=box, style=\"rounded,dashed\", fontsize=8, label=\"" << forQuotes(titleOf(id))
       << "\"];\n";
    return;
  }
  os << "style=\"rounded,filled\", fillcolor=\"#ffffff\", label=<<b>" << forHtml(titleOf(id))
     << "</b>";
  const std::size_t count = countStatements(group);
  if (count)
    os << "<br/><font point-size=\"8\" color=\"#888888\">" << count
       << (count == 1 ? " statement" : " statements") << "</font>";
  os << ">];\n";
}

/// The node of a procedure that is not shown itself.
std::string DotPrinter::neighbour(GroupId id) {
  std::string node = nodeOf(id);
  if (neighbours.insert(node).second)
    printProcedureNode(id, /*isNeighbour=*/true);
  return node;
}

void DotPrinter::printEdge(const std::string &from, const std::string &to, llvm::StringRef label,
                           EdgeKind kind, bool constrains) {
  std::string edge = from + " -> " + to + " [label=\"" + label.str() + "\"" + styleOf(kind).str() +
                     (constrains ? "" : ", constraint=false");
  if (edges.insert(edge).second)
    os << "  " << edge << "];\n";
}

void DotPrinter::printBlockEdges(GroupId id) {
  const GraphLayout &layout = layouts[id.function];
  for (const CFGBlock *block : groupAt(id).blocks) {
    if (!isShown(block))
      continue;
    for (const auto &[target, way] : waysFrom(layout, block)) {
      std::optional<GroupId> home = groupOf(target);
      if (!home || !isDrawn(way) || (isWanted(groupAt(*home)) && !isShown(target)))
        continue;
      std::string label = labelOf(way);
      const bool isWithin = home == id;
      if (isWanted(groupAt(*home)))
        printEdge(
            nodeOf(block), nodeOf(target), label, way.kind,
            way.kind == EdgeKind::Flow || way.kind == EdgeKind::FallThrough ||
                (isWithin && way.kind == EdgeKind::GoTo && target->getPlace() > block->getPlace()));
      else
        printEdge(nodeOf(block), neighbour(*home), label, way.kind, /*constrains=*/true);
    }
  }
}

/// The ways from procedures that are not shown to those that are.
void DotPrinter::printEdgesFromNeighbours() {
  for (std::size_t number = 0; number < layouts.size(); ++number)
    for (std::size_t group = 0; group < layouts[number].groups.size(); ++group) {
      if (isWanted(layouts[number].groups[group]))
        continue;
      for (const CFGBlock *block : layouts[number].groups[group].blocks) {
        if (!reachable.contains(block))
          continue;
        for (const auto &[target, way] : waysFrom(layouts[number], block)) {
          std::optional<GroupId> home = groupOf(target);
          if (!home || !isWanted(groupAt(*home)) || way.kind == EdgeKind::Accompanying)
            continue;
          std::string to = view.collapse ? nodeOf(*home) : nodeOf(target);
          if (view.collapse || isShown(target))
            printEdge(neighbour({number, group}), to, labelOf(way), way.kind, true);
        }
      }
    }
}

/// The ways from one procedure to others, which its blocks have in them.
void DotPrinter::printCollapsedEdges(GroupId id) {
  for (const CFGBlock *block : groupAt(id).blocks) {
    if (!reachable.contains(block))
      continue;
    for (const auto &[target, way] : waysFrom(layouts[id.function], block)) {
      std::optional<GroupId> home = groupOf(target);
      const bool isJump = way.kind == EdgeKind::GoTo || way.kind == EdgeKind::Perform;
      if (!home || (home == id && !isJump) || way.kind == EdgeKind::Accompanying)
        continue;
      std::string to = isWanted(groupAt(*home)) ? nodeOf(*home) : neighbour(*home);
      if (isJump)
        printEdge(nodeOf(id), to, labelOf(way), way.kind, /*constrains=*/true);
      else if (performed.contains(target))
        // Falling into a procedure that is performed says little about how the program is built.
        printEdge(nodeOf(id), to, "", EdgeKind::Accompanying, /*constrains=*/false);
      else
        printEdge(nodeOf(id), to, "fall through", EdgeKind::FallThrough, /*constrains=*/true);
    }
  }
}

} // namespace

void printGraphDot(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view,
                   const ParseOptions &options) {
  DotPrinter(os, view, options)
      .print(module, FunctionSelection(module, view).all(), findProcedures(module));
}

} // namespace tarka
