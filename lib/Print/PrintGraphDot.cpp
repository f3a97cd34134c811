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
#include "Report/Utf8.h"
#include "llvm/ADT/MapVector.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/GraphWriter.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"
#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

namespace tarka {

namespace {

/// The longest line of a label, in characters.
constexpr std::size_t labelWidth = 64;

//===----------------------------------------------------------------------===//
// Edges of the picture
//===----------------------------------------------------------------------===//

/// How an edge is drawn.
enum class EdgeStyle { Flow, FallsInto, Jump, Perform, Faint };

EdgeStyle styleOf(FlowEdgeKind kind) {
  switch (kind) {
  case FlowEdgeKind::FallsInto:
    return EdgeStyle::FallsInto;
  case FlowEdgeKind::GoTo:
  case FlowEdgeKind::Depending:
  case FlowEdgeKind::Altered:
  case FlowEdgeKind::Handler:
    return EdgeStyle::Jump;
  case FlowEdgeKind::Perform:
  case FlowEdgeKind::Declarative:
  case FlowEdgeKind::SortInput:
  case FlowEdgeKind::SortOutput:
    return EdgeStyle::Perform;
  default:
    return EdgeStyle::Flow;
  }
}

llvm::StringRef attributesOf(EdgeStyle style) {
  switch (style) {
  case EdgeStyle::Flow:
    return "";
  case EdgeStyle::FallsInto:
    return ", color=\"#999999\", fontcolor=\"#999999\"";
  case EdgeStyle::Jump:
    return ", color=\"#b03060\", fontcolor=\"#b03060\"";
  case EdgeStyle::Perform:
    return ", style=dashed, color=\"#2060b0\", fontcolor=\"#2060b0\"";
  case EdgeStyle::Faint:
    return ", style=dotted, color=\"#aaaaaa\", fontcolor=\"#aaaaaa\"";
  }
  return "";
}

/// The kinds of the edges from one box to another, which are drawn as one line for each style.
struct Line {
  std::string to;
  EdgeStyle style;
  llvm::SmallVector<llvm::StringRef, 2> labels;
  bool constrains = true;
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

  /// The condition of a loop test.
  std::string textOfTest(const FlowNode &node) {
    auto *perform = llvm::dyn_cast<PerformStatement>(node.getStatement());
    if (!perform)
      return "next entry of the table";
    if (const Expression *times = perform->getTimesInteger())
      return excerpts.excerpt(times->getRange(), labelWidth) + " TIMES";
    const Condition *until = perform->getUntilCondition();
    if (!until && !perform->getPhraseListElements().empty())
      until = perform->getPhraseListElements().front()->getUntilCondition();
    return until ? "UNTIL " + excerpts.excerpt(until->getRange(), labelWidth) : "again";
  }

private:
  struct Place {
    unsigned file, line, column;
    auto operator<=>(const Place &) const = default;
  };

  static Place beginOf(const SourceRange &range) {
    return {range.file, range.beginLine, range.beginColumn};
  }

  /// Whether the element is a statement of the source, not one that the graph builder made.
  static bool isWritten(const CFGElem &element) {
    const Statement *statement = element.getStmt();
    return statement && statement->isWritten();
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
    if (block->getRole() != CFGBlockRole::LaterWhen) {
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

std::string forHtml(llvm::StringRef text) {
  std::string result;
  llvm::raw_string_ostream stream(result);
  llvm::printHTMLEscaped(toUtf8(text), stream);
  return result;
}

std::string forQuotes(llvm::StringRef text) {
  return llvm::DOT::EscapeString(toUtf8(text));
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
  bool isWanted(GroupId id) const { return isWanted(groupAt(id)); }

  const FlowNode &nodeAt(std::uint32_t number) const { return flow->node(number); }
  std::size_t functionOf(const FlowNode &node) const { return numbers.lookup(node.getParent()); }
  GroupId groupOf(const FlowNode &node) const {
    const std::size_t function = functionOf(node);
    return {function, layouts[function].groupIndex(node)};
  }
  const BlockGroup &groupAt(GroupId id) const { return layouts[id.function].groups[id.group]; }

  std::string boxOf(const CFGBlock *block, std::size_t function) const {
    return ("f" + llvm::Twine(function) + "b" + llvm::Twine(block->getPlace())).str();
  }
  std::string boxOf(GroupId id) const {
    return ("f" + llvm::Twine(id.function) + "g" + llvm::Twine(id.group)).str();
  }
  /// Whether the end of a procedure is drawn: it is one of a performed range, and something leads
  /// to it.
  bool isDrawnEnd(const FlowNode &node) const {
    return node.getKind() == FlowNodeKind::ProcedureEnd && isEnd[node.getProcedure()] &&
           !node.predecessors().empty();
  }
  std::string endOf(std::uint32_t procedure) const {
    return ("end" + llvm::Twine(procedure)).str();
  }

  void printFunction(std::size_t number);
  void printGroup(GroupId id);
  void printBlock(const CFGBlock *block, const GraphLayout &layout, std::size_t function);
  void printProcedureBox(GroupId id, bool isNeighbour);
  std::string titleOf(GroupId id) const;
  std::string neighbour(GroupId id);

  void addLines(const FlowNode &node);
  void addLine(const FlowNode &node, const FlowNode &target, FlowEdgeKind kind,
               std::optional<EdgeStyle> drawnAs = std::nullopt);
  void addFall(const FlowNode &node, std::uint32_t procedure, FlowEdgeKind kind);
  void addExit(const FlowNode &node);
  void addLine(const std::string &from, const std::string &to, EdgeStyle style,
               llvm::StringRef label, bool constrains);
  void addCollapsedLines(std::size_t function);
  void printLines();

  llvm::raw_ostream &os;
  const GraphView &view;
  StatementText text;
  std::unique_ptr<FlowModule> flow;
  std::vector<GraphLayout> layouts;
  llvm::DenseMap<const FlowGraph *, std::size_t> numbers;
  /// The procedures that are not shown, with a line to one that is.
  std::set<GroupId> neighbours;
  /// What stands in a box in place of lines.
  llvm::StringMap<std::vector<std::string>> notes;
  /// The boxes in which the program ends.
  llvm::StringSet<> exits;
  /// By the boxes that they lead from.
  llvm::MapVector<std::string, std::vector<Line>, llvm::StringMap<unsigned>> lines;
  /// The procedures whose end is an end of something that is performed.
  std::vector<bool> isEnd, isPerformed;
  /// Where a statement that performs goes on.
  std::vector<std::vector<const FlowPerform *>> performsOf; ///< by node
};

void DotPrinter::print(const CFGModule &module, const std::vector<const CFGFunc *> &functions,
                       const ProcedureStarts &starts) {
  flow = createFlow(module);
  for (const CFGFunc *function : functions) {
    numbers[flow->graphOf(*function)] = layouts.size();
    layouts.emplace_back(*function, starts, *flow);
    text.addFunction(layouts.back());
  }
  isEnd.resize(flow->procedures().size());
  isPerformed.resize(flow->procedures().size());
  performsOf.resize(flow->nodes().size());
  for (const FlowPerform &perform : flow->performs()) {
    const FlowRange &range = flow->ranges()[perform.range];
    isEnd[range.end] = true;
    isPerformed[range.begin] = true;
    performsOf[perform.node].push_back(&perform);
  }

  os << "digraph \"" << forQuotes(module.getName()) << "\" {\n"
     << "  graph [fontname=\"Helvetica\", labeljust=l, nodesep=0.3, ranksep=0.35"
     << (view.collapse ? ", rankdir=LR" : "") << "];\n"
     << "  node [shape=box, fontname=\"Courier\", fontsize=10, margin=\"0.08,0.04\", height=0.2,"
        " color=\"#666666\"];\n"
     << "  edge [fontname=\"Helvetica\", fontsize=9, arrowsize=0.7];\n";
  // The lines tell which boxes there are beside those of the blocks.
  for (std::size_t number = 0; number < layouts.size(); ++number)
    if (view.collapse)
      addCollapsedLines(number);
    else
      for (const FlowNode &node : layouts[number].flow->nodes())
        addLines(node);
  for (std::size_t number = 0; number < layouts.size(); ++number)
    printFunction(number);
  for (GroupId id : neighbours)
    printProcedureBox(id, /*isNeighbour=*/true);
  printLines();
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
      printProcedureBox({number, index}, /*isNeighbour=*/false);
    else
      printGroup({number, index});
  }
  if (openSection)
    os << "    }\n";
  os << "  }\n";
}

void DotPrinter::printGroup(GroupId id) {
  const GraphLayout &layout = layouts[id.function];
  const BlockGroup &group = groupAt(id);
  if (group.paragraph)
    os << "      subgraph cluster_" << boxOf(id) << " {\n        label=<<b>"
       << forHtml(group.name()) << "</b>" << (layout.isDead(group) ? " (not reached)" : "")
       << ">; style=\"rounded,filled\"; color=\"#b8c4d8\"; fillcolor=\""
       << (layout.isDead(group) ? "#eeeeee" : "#f6f8fc") << "\";\n";
  for (const CFGBlock *block : group.blocks)
    if (!layout.nodesOf(block).empty())
      printBlock(block, layout, id.function);
  for (const FlowNode &node : layout.flow->nodes())
    if (isDrawnEnd(node) && groupOf(node) == id)
      os << "        " << endOf(node.getProcedure())
         << " [shape=plain, fontname=\"Helvetica\", fontsize=8, fontcolor=\"#2060b0\", label=\"end "
            "of "
         << forQuotes(node.getVerb()) << "\"];\n";
  if (group.paragraph)
    os << "      }\n";
}

/// The name of the block small above its statements.
void DotPrinter::printBlock(const CFGBlock *block, const GraphLayout &layout,
                            std::size_t function) {
  const bool isDead = !layout.flow->isReached(*block);
  os << "        " << boxOf(block, function) << " [style=filled, fillcolor=\""
     << (isDead ? "#eeeeee" : "#ffffff") << "\", label=<";
  std::string title = std::to_string(block->getPlace()) + " " + block->getName();
  if (isDead)
    title += " (not reached)";
  os << "<font point-size=\"7\" color=\"#888888\">" << forHtml(title) << "</font>";
  for (const FlowNode &node : layout.nodesOf(block))
    if (node.getKind() == FlowNodeKind::LoopTest)
      os << "<br align=\"left\"/>" << forHtml(text.textOfTest(node));
    else if (node.getKind() == FlowNodeKind::Entry)
      os << "<br align=\"left\"/>ENTRY";
  for (const CFGElem *element : block->getElements()) {
    const Statement *statement = element->getStmt();
    if (statement && statement->getType() == StatementType::InnerExit)
      continue;
    const bool isDeadHere =
        !isDead && statement && llvm::any_of(layout.nodesOf(block), [&](const FlowNode &node) {
          return node.getStatement() == statement && !node.isReached();
        });
    for (const std::string &line : text.linesOf(*element)) {
      os << "<br align=\"left\"/>";
      if (isDeadHere)
        os << "<font color=\"#999999\">" << forHtml(line) << " (not reached)</font>";
      else
        os << forHtml(line);
    }
  }
  os << "<br align=\"left\"/>>];\n";
  if (exits.contains(boxOf(block, function)))
    os << "        " << boxOf(block, function)
       << "x [shape=doublecircle, label=\"\", width=0.1, height=0.1];\n";
}

/// "CHECK-INPUT", "MAIN SECTION", "entry"
std::string DotPrinter::titleOf(GroupId id) const {
  const BlockGroup &group = groupAt(id);
  if (group.paragraph)
    return group.name();
  if (!group.section)
    return group.blocks.front()->getName();
  // After the last paragraph of a section comes a piece that is its own.
  const bool isBehind =
      id.group > 0 && layouts[id.function].groups[id.group - 1].section == group.section;
  return (isBehind ? "end of " : "") + group.name() + " SECTION";
}

void DotPrinter::printProcedureBox(GroupId id, bool isNeighbour) {
  const BlockGroup &group = groupAt(id);
  os << "      " << boxOf(id) << " [";
  if (isNeighbour) {
    os << "shape=box, style=\"rounded,dashed\", fontsize=8, label=\"" << forQuotes(titleOf(id))
       << "\"];\n";
    return;
  }
  const bool isDead = layouts[id.function].isDead(group);
  os << "style=\"rounded,filled\", fillcolor=\"" << (isDead ? "#eeeeee" : "#ffffff")
     << "\", label=<<b>" << forHtml(titleOf(id)) << "</b>";
  const std::size_t count = countStatements(group);
  if (count || isDead)
    os << "<br/><font point-size=\"8\" color=\"#888888\">" << count
       << (count == 1 ? " statement" : " statements") << (isDead ? ", not reached" : "")
       << "</font>";
  for (const std::string &note : notes[boxOf(id)])
    os << "<br/><font point-size=\"8\" color=\"#b03060\">" << forHtml(note) << "</font>";
  os << ">];\n";
}

/// The box of a procedure that is not shown itself.
std::string DotPrinter::neighbour(GroupId id) {
  neighbours.insert(id);
  return boxOf(id);
}

//===----------------------------------------------------------------------===//
// Lines
//===----------------------------------------------------------------------===//

void DotPrinter::addLine(const std::string &from, const std::string &to, EdgeStyle style,
                         llvm::StringRef label, bool constrains) {
  std::vector<Line> &drawn = lines[from];
  auto same =
      llvm::find_if(drawn, [&](const Line &line) { return line.to == to && line.style == style; });
  if (same == drawn.end()) {
    drawn.push_back({to, style, {}, constrains});
    same = std::prev(drawn.end());
  }
  if (!label.empty() && !llvm::is_contained(same->labels, label))
    same->labels.push_back(label);
}

void DotPrinter::printLines() {
  for (const auto &[from, drawn] : lines)
    for (const Line &line : drawn)
      os << "  " << from << " -> " << line.to << " [label=\"" << llvm::join(line.labels, ", ")
         << "\"" << attributesOf(line.style) << (line.constrains ? "" : ", constraint=false")
         << "];\n";
}

/// The line of an edge from a node in one box to one in another.
void DotPrinter::addLine(const FlowNode &node, const FlowNode &target, FlowEdgeKind kind,
                         std::optional<EdgeStyle> drawnAs) {
  const GroupId home = groupOf(node), other = groupOf(target);
  if (!isWanted(home) && (!isWanted(other) || !node.isReached()))
    return;
  const bool isPlain = kind == FlowEdgeKind::Next;
  const EdgeStyle style = drawnAs.value_or(styleOf(kind));
  llvm::StringRef label = isPlain ? llvm::StringRef() : flowEdgeKindName(kind);
  const bool isSame = home == other;
  if (isSame && node.getBlock() && node.getBlock() == target.getBlock() && isPlain)
    return;
  std::string from = !isWanted(home)                                ? neighbour(home)
                     : node.getKind() == FlowNodeKind::ProcedureEnd ? endOf(node.getProcedure())
                     : node.getBlock() ? boxOf(node.getBlock(), home.function)
                                       : "";
  std::string to = !isWanted(other)                                 ? neighbour(other)
                   : target.getKind() == FlowNodeKind::ProcedureEnd ? endOf(target.getProcedure())
                   : target.getBlock() ? boxOf(target.getBlock(), other.function)
                                       : "";
  // Nothing is drawn of the start and of handlers.
  if (from.empty() || to.empty())
    return;
  const bool isForward = target.getId() > node.getId();
  const bool isClose = style == EdgeStyle::Flow || style == EdgeStyle::FallsInto ||
                       (isSame && style == EdgeStyle::Jump);
  addLine(from, to, style, label, (isForward && isClose) || !isWanted(home) || !isWanted(other));
}

/// A way to the end of \p procedure. Where it is never performed, that is a way to what follows.
void DotPrinter::addFall(const FlowNode &node, std::uint32_t procedure, FlowEdgeKind kind) {
  const FlowProcedure &left = flow->procedure(procedure);
  if (isEnd[procedure])
    return addLine(node, nodeAt(left.end), kind);
  if (left.fallsTo == noFlow)
    return;
  const FlowNode &next = nodeAt(left.fallsTo);
  if (next.getKind() == FlowNodeKind::ProcedureEnd)
    return addFall(node, next.getProcedure(), kind);
  if (next.getKind() == FlowNodeKind::Exit) {
    if (isWanted(groupOf(node)) && node.getBlock())
      addExit(node);
    return;
  }
  // The outcome of a condition is shown too.
  addLine(node, next, kind == FlowEdgeKind::Next ? FlowEdgeKind::FallsInto : kind,
          EdgeStyle::FallsInto);
}

/// The end of the program, which every box has for itself.
void DotPrinter::addExit(const FlowNode &node) {
  std::string box = boxOf(node.getBlock(), functionOf(node));
  exits.insert(box);
  addLine(box, box + "x", EdgeStyle::Flow, "", true);
}

void DotPrinter::addLines(const FlowNode &node) {
  // What a procedure's end is drawn for: its ways are those of the text; returning is not drawn.
  if (node.getKind() == FlowNodeKind::ProcedureEnd && !isDrawnEnd(node))
    return;
  for (const FlowEdge &edge : node.successors()) {
    const FlowNode &target = nodeAt(edge.to);
    if (edge.kind == FlowEdgeKind::Return || edge.kind == FlowEdgeKind::DeclarativeEnd)
      continue;
    // Round again is drawn as a way from the test to itself.
    if (node.getKind() == FlowNodeKind::LoopTest && target.getKind() == FlowNodeKind::Procedure)
      continue;
    if (target.getKind() == FlowNodeKind::Handler) {
      // Straight to the labels: the handler has no box.
      for (const FlowEdge &toLabel : target.successors())
        addLine(node, nodeAt(toLabel.to), toLabel.kind);
    } else if (target.getKind() == FlowNodeKind::ProcedureEnd)
      addFall(node, target.getProcedure(), edge.kind);
    else if (target.getKind() == FlowNodeKind::Exit) {
      if (node.getBlock() && isWanted(groupOf(node)))
        addExit(node);
    } else
      addLine(node, target, edge.kind);
  }
  // After what is performed, if it comes to its end.
  for (const FlowPerform *perform : performsOf[node.getId()]) {
    if (!flow->ranges()[perform->range].completes || perform->returnsTo == noFlow)
      continue;
    const FlowNode &next = nodeAt(perform->returnsTo);
    const FlowEdgeKind kind =
        perform->kind == FlowEdgeKind::Loop ? FlowEdgeKind::Loop : FlowEdgeKind::Next;
    if (next.getKind() == FlowNodeKind::ProcedureEnd)
      addFall(node, next.getProcedure(), kind);
    else if (next.getKind() == FlowNodeKind::Exit)
      addExit(node);
    else
      addLine(node, next, kind);
  }
}

/// The ways from one procedure to others, which its blocks have in them.
void DotPrinter::addCollapsedLines(std::size_t function) {
  const GraphLayout &layout = layouts[function];
  const std::vector<ProcedureWays> ways = waysOfGroups(layout);
  // Lines from everywhere to one box are unreadable, and too many for Graphviz to draw: the
  // boxes name it instead.
  constexpr std::size_t manyGroups = 60, manyLines = 8;
  std::vector<std::size_t> incoming(layout.groups.size());
  for (const ProcedureWays &leaving : ways)
    for (const auto &[kind, target] : leaving)
      ++incoming[layout.groupIndex(target)];
  for (std::size_t index = 0; index < layout.groups.size(); ++index)
    for (const auto &[kind, target] : ways[index]) {
      const GroupId from{function, index}, to{function, layout.groupIndex(target)};
      if (!isWanted(from) && !isWanted(to))
        continue;
      const FlowNode &first = layout.nodesOf(target).front();
      const std::string source = isWanted(from) ? boxOf(from) : neighbour(from);
      const std::string goal = isWanted(to) ? boxOf(to) : neighbour(to);
      if (layout.groups.size() > manyGroups && incoming[to.group] > manyLines && isWanted(from)) {
        notes[source].push_back((flowEdgeKindName(kind) + " " + titleOf(to)).str());
        continue;
      }
      EdgeStyle style = styleOf(kind);
      llvm::StringRef label = kind == FlowEdgeKind::Next ? "" : flowEdgeKindName(kind);
      // Falling into a procedure that is performed says little about how the program is built.
      const bool isFaint = style == EdgeStyle::FallsInto && first.getProcedure() != noFlow &&
                           isPerformed[first.getProcedure()];
      if (kind == FlowEdgeKind::Loop)
        style = EdgeStyle::Perform;
      addLine(source, goal, isFaint ? EdgeStyle::Faint : style, isFaint ? "" : label, !isFaint);
    }
}

} // namespace

bool isTooLargeToDraw(const CFGModule &module, const GraphView &view) {
  // Graphviz takes more than a second for about as many boxes, and far more for larger graphs.
  constexpr std::size_t manyBlocks = 350;
  std::size_t blocks = 0;
  for (const CFGFunc *function : FunctionSelection(module, view).all())
    blocks += function->getBody()->getBlockList().size();
  return blocks > manyBlocks;
}

void printGraphDot(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view,
                   const ParseOptions &options) {
  DotPrinter(os, view, options)
      .print(module, FunctionSelection(module, view).all(), findProcedures(module));
}

} // namespace tarka
