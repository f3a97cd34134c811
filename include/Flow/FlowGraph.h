//===- FlowGraph.h - what can run after what --------------------*- C++ -*-===//
//
// The control flow of a checked program. createFlow() reads the blocks of a
// CFGModule and decides what can follow what: the nodes are statements and
// conditions, the kinds of the edges say why control continues there. docs/flow.md
// explains the model.
//
// A FlowModule holds everything in flat arrays, and a node is known by its place
// in them. LLVM's graph algorithms work on a FlowGraph through GraphTraits.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_FLOW_FLOWGRAPH_H
#define TARKA_FLOW_FLOWGRAPH_H

#include "AST/Node.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/GraphTraits.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringMap.h"
#include <cstdint>
#include <memory>
#include <vector>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

class CFGBlock;
class CFGEntry;
class CFGFunc;
class CFGModule;
class DataDescription;
class ExecStatement;
class FlowGraph;
class FlowModule;
class Paragraph;
class Section;
class SourceUnit;
class Statement;
class Word;

/// The kinds of nodes, see FlowKinds.def.
enum class FlowNodeKind : std::uint8_t {
#define FLOW_NODE(Enumerator, Name) Enumerator,
#include "Flow/FlowKinds.def"
};

/// Why control can go from one node to another, see FlowKinds.def.
enum class FlowEdgeKind : std::uint8_t {
#define FLOW_EDGE(Enumerator, Name) Enumerator,
#include "Flow/FlowKinds.def"
};

/// How a program or transaction is named, see FlowKinds.def.
enum class FlowCallKind : std::uint8_t {
#define FLOW_CALL(Enumerator, Name) Enumerator,
#include "Flow/FlowKinds.def"
};

/// The name of a kind in all printed forms, such as "loop end".
llvm::StringRef flowNodeKindName(FlowNodeKind kind);
llvm::StringRef flowEdgeKindName(FlowEdgeKind kind);
llvm::StringRef flowCallKindName(FlowCallKind kind);

/// Stands for no node, no procedure or no range where a number is expected.
inline constexpr std::uint32_t noFlow = ~0u;

/// An edge from one node to another of the same function. Nodes are numbered within the module.
struct FlowEdge {
  std::uint32_t from;
  std::uint32_t to;
  FlowEdgeKind kind;
};

/// A point of a program that control passes.
class FlowNode {
public:
  FlowNode(FlowGraph *owner, FlowNodeKind nodeKind, std::uint32_t number, std::uint32_t home,
           const CFGBlock *holder, const Statement *what)
      : graph(owner), statement(what), block(holder), id(number), procedure(home), kind(nodeKind) {}

  FlowNodeKind getKind() const { return kind; }
  /// The node's place in the module.
  std::uint32_t getId() const { return id; }
  /// The statement; of a condition, a loop test or a step the one that it belongs to. Null where
  /// there is none. For WHEN it is the statement that the graph builder made.
  const Statement *getStatement() const { return statement; }
  /// The block that holds the node; null for the start, the exit and the handlers.
  const CFGBlock *getBlock() const { return block; }
  /// The paragraph or section around the node by its place in the module; noFlow outside of any.
  std::uint32_t getProcedure() const { return procedure; }
  /// Whether control can reach the node.
  bool isReached() const { return reached; }
  /// Whether the programmer wrote the node: a statement, a condition or an ENTRY.
  bool isWritten() const;
  /// Its place in the source; all zero where nothing was written.
  SourceRange getRange() const;
  /// What was written, such as "IF", "WHEN" or "EXEC SQL FETCH"; the name of a procedure; otherwise
  /// the kind's name.
  llvm::StringRef getVerb() const;
  /// The class of the statement, such as "IfStatement"; empty without one.
  llvm::StringRef getClassName() const;
  /// The nesting of the statement within others, from 0.
  unsigned getDepth() const { return depth; }

  /// The graph of the function. LLVM's algorithms require this name.
  FlowGraph *getParent() const { return graph; }
  llvm::ArrayRef<FlowEdge> successors() const;
  /// The numbers of the edges that lead here.
  llvm::ArrayRef<std::uint32_t> predecessors() const;

  /// "12 MOVE", for LLVM's printers and verifiers.
  void printAsOperand(llvm::raw_ostream &os, bool withType = false) const;

private:
  friend class FlowBuilder;
  friend class FlowReach;

  FlowGraph *graph;
  const Statement *statement;
  const CFGBlock *block;
  std::uint32_t id;
  std::uint32_t procedure;
  std::uint16_t depth = 0;
  FlowNodeKind kind;
  bool reached = false;
};

/// A paragraph or a section.
struct FlowProcedure {
  FlowGraph *graph = nullptr;
  const Section *section = nullptr;     ///< of a section; null for a paragraph
  const Paragraph *paragraph = nullptr; ///< of a paragraph; null for a section
  std::uint32_t parent = noFlow;        ///< the section around a paragraph
  std::uint32_t entry = noFlow;         ///< its nodes of kind Procedure and ProcedureEnd
  std::uint32_t end = noFlow;
  /// What follows in the text when control passes the end; noFlow where nothing does.
  std::uint32_t fallsTo = noFlow;
  bool isDeclarative = false;
  /// Whether control can pass the end without returning to a performer.
  bool fallsThrough = false;
  /// Whether control can come to the end.
  bool endReached = false;

  /// The name of the paragraph or section.
  const Word *getName() const;
  /// Its place in the source.
  const SourceRange &getRange() const;
};

/// What is performed: a procedure, the procedures from one to another, or a whole nested program.
struct FlowRange {
  std::uint32_t begin = noFlow; ///< the first procedure; noFlow for a program
  std::uint32_t end = noFlow;   ///< the last one
  FlowGraph *graph = nullptr;
  bool reached = false;
  /// Whether control can come back to a performer.
  bool completes = false;
  /// Whether it can be performed again while it is being performed.
  bool recursive = false;
};

/// A node that performs a range, and the node that control returns to.
struct FlowPerform {
  std::uint32_t node = noFlow;
  std::uint32_t range = noFlow;
  /// The node that follows when the range is done.
  std::uint32_t returnsTo = noFlow;
  FlowEdgeKind kind = FlowEdgeKind::Perform;
};

/// A CALL of a program by name, or by what an identifier holds; also LINK and XCTL, and START and
/// RETURN with the name of a transaction.
struct FlowCall {
  std::uint32_t node = noFlow;
  FlowCallKind kind = FlowCallKind::Call;
  /// The program, when it belongs to the compilation and can be called from there; otherwise null.
  FlowGraph *target = nullptr;
  /// The name of the literal; of a dynamic call the name of the identifier.
  llvm::StringRef name;
  bool isDynamic = false;
  /// Of a dynamic call, the item that is named; null where the name is not bound.
  DataDescription *item = nullptr;
  /// Of a dynamic call, what the item holds: its VALUE, where no statement changes it. Otherwise
  /// empty.
  llvm::StringRef value;

  /// Whether a transaction is named, not a program.
  bool isOfTransaction() const {
    return kind == FlowCallKind::Start || kind == FlowCallKind::Return;
  }
};

/// The flow graph of one function: a source unit, or the report declaratives of one.
class FlowGraph {
public:
  FlowGraph(FlowModule *owner, const CFGFunc *described, SourceUnit *sourceUnit, bool isReport)
      : module(owner), function(described), unit(sourceUnit), report(isReport) {}

  const CFGFunc &getFunction() const { return *function; }
  const std::string &getName() const;
  SourceUnit *getSourceUnit() const { return unit; }
  bool isReportDeclaratives() const { return report; }
  FlowModule &getModule() const { return *module; }

  /// The nodes, by number from firstNode() on.
  llvm::MutableArrayRef<FlowNode> nodes() const;
  std::uint32_t firstNode() const { return nodeBegin; }
  std::size_t size() const { return nodeEnd - nodeBegin; }
  FlowNode *getStart() const { return &nodes().front(); }
  FlowNode *getExit() const { return &nodes().back(); }
  /// The paragraphs and sections in the order of the text, declaratives first.
  llvm::MutableArrayRef<FlowProcedure> procedures() const;
  std::uint32_t firstProcedure() const { return procedureBegin; }
  /// Whether the program can run: it is an outermost one, or a CALL that is reached may call it.
  /// For other programs the nodes tell what would be reached if they were called.
  bool isCalled() const { return called; }

  /// Whether control can come to \p block, one of the function; it may hold no node.
  bool isReached(const CFGBlock &block) const;
  /// Whether control can fall from the end of \p block into the block that follows it.
  bool fallsThrough(const CFGBlock &block) const;

private:
  friend class FlowBuilder;
  friend class FlowReach;

  FlowModule *module;
  const CFGFunc *function;
  SourceUnit *unit;
  bool report;
  bool called = false;
  std::uint32_t nodeBegin = 0, nodeEnd = 0;
  std::uint32_t procedureBegin = 0, procedureEnd = 0;
  /// By the places of blocks.
  std::vector<bool> reachedBlocks, fallingBlocks;
};

/// The flow graphs of a compilation.
class FlowModule {
public:
  /// Those of the source units in their order; the report declaratives of a unit follow it.
  llvm::ArrayRef<std::unique_ptr<FlowGraph>> graphs() const { return graphList; }
  FlowGraph *graphOf(const CFGFunc &function) const;

  llvm::ArrayRef<FlowNode> nodes() const { return nodeList; }
  const FlowNode &node(std::uint32_t number) const { return nodeList[number]; }
  /// Sorted by the node that they lead from.
  llvm::ArrayRef<FlowEdge> edges() const { return edgeList; }
  llvm::ArrayRef<FlowProcedure> procedures() const { return procedureList; }
  const FlowProcedure &procedure(std::uint32_t number) const { return procedureList[number]; }
  llvm::ArrayRef<FlowRange> ranges() const { return rangeList; }
  /// In the order of the text.
  llvm::ArrayRef<FlowPerform> performs() const { return performList; }
  llvm::ArrayRef<FlowCall> calls() const { return callList; }
  /// The DECLARE CURSOR of the cursor \p name, in upper case and without quotes; null without one.
  const ExecStatement *findCursor(llvm::StringRef name) const { return cursors.lookup(name); }

private:
  friend class FlowBuilder;
  friend class FlowReach;
  friend class FlowNode;
  friend class FlowGraph;

  std::vector<std::unique_ptr<FlowGraph>> graphList;
  std::vector<FlowNode> nodeList;
  std::vector<FlowEdge> edgeList;
  /// Where the edges of a node begin in edgeList, and in incoming; one more than there are nodes.
  std::vector<std::uint32_t> outBegin, inBegin;
  std::vector<std::uint32_t> incoming;
  std::vector<FlowProcedure> procedureList;
  std::vector<FlowRange> rangeList;
  std::vector<FlowPerform> performList;
  std::vector<FlowCall> callList;
  llvm::StringMap<const ExecStatement *> cursors;
};

/// Makes the flow graphs of a checked program, in time proportional to its size. \p module must
/// outlive the result. Names that the checks could not resolve have no edges.
std::unique_ptr<FlowModule> createFlow(const CFGModule &module);

/// Walks the edges of a node as pointers to the nodes at their other ends.
class FlowChildIterator
    : public llvm::iterator_adaptor_base<FlowChildIterator, const FlowEdge *,
                                         std::random_access_iterator_tag, FlowNode *,
                                         std::ptrdiff_t, FlowNode *, FlowNode *> {
public:
  FlowChildIterator(const FlowEdge *edge, const FlowNode *near)
      : iterator_adaptor_base(edge), origin(near) {}
  // Nodes lie in one array, so the other end is found from this one by its number.
  FlowNode *operator*() const { return const_cast<FlowNode *>(origin) + offset(); }

private:
  std::ptrdiff_t offset() const {
    return static_cast<std::ptrdiff_t>(I->to) - static_cast<std::ptrdiff_t>(origin->getId());
  }
  const FlowNode *origin;
};

class FlowParentIterator
    : public llvm::iterator_adaptor_base<FlowParentIterator, const std::uint32_t *,
                                         std::random_access_iterator_tag, FlowNode *,
                                         std::ptrdiff_t, FlowNode *, FlowNode *> {
public:
  FlowParentIterator(const std::uint32_t *edge, const FlowNode *near)
      : iterator_adaptor_base(edge), origin(near) {}
  FlowNode *operator*() const {
    const FlowEdge &edge = origin->getParent()->getModule().edges()[*I];
    return const_cast<FlowNode *>(origin) +
           (static_cast<std::ptrdiff_t>(edge.from) - static_cast<std::ptrdiff_t>(origin->getId()));
  }

private:
  const FlowNode *origin;
};

} // namespace tarka

namespace llvm {

template <> struct GraphTraits<tarka::FlowNode *> {
  using NodeRef = tarka::FlowNode *;
  using ChildIteratorType = tarka::FlowChildIterator;

  static NodeRef getEntryNode(NodeRef node) { return node; }
  static ChildIteratorType child_begin(NodeRef node) { return {node->successors().begin(), node}; }
  static ChildIteratorType child_end(NodeRef node) { return {node->successors().end(), node}; }
};

template <> struct GraphTraits<Inverse<tarka::FlowNode *>> {
  using NodeRef = tarka::FlowNode *;
  using ChildIteratorType = tarka::FlowParentIterator;

  static NodeRef getEntryNode(Inverse<NodeRef> node) { return node.Graph; }
  static ChildIteratorType child_begin(NodeRef node) {
    return {node->predecessors().begin(), node};
  }
  static ChildIteratorType child_end(NodeRef node) { return {node->predecessors().end(), node}; }
};

template <> struct GraphTraits<tarka::FlowGraph *> : GraphTraits<tarka::FlowNode *> {
  using nodes_iterator = pointer_iterator<tarka::FlowNode *>;

  static NodeRef getEntryNode(const tarka::FlowGraph *graph) { return graph->getStart(); }
  static nodes_iterator nodes_begin(const tarka::FlowGraph *graph) {
    return nodes_iterator(graph->nodes().begin());
  }
  static nodes_iterator nodes_end(const tarka::FlowGraph *graph) {
    return nodes_iterator(graph->nodes().end());
  }
  static unsigned size(const tarka::FlowGraph *graph) {
    return static_cast<unsigned>(graph->size());
  }
};

template <>
struct GraphTraits<Inverse<tarka::FlowGraph *>> : GraphTraits<Inverse<tarka::FlowNode *>> {
  static NodeRef getEntryNode(Inverse<tarka::FlowGraph *> graph) { return graph.Graph->getExit(); }
};

} // namespace llvm

#endif // TARKA_FLOW_FLOWGRAPH_H
