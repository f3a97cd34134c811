//===- FlowBuilder.h - from the blocks to the flow graph --------*- C++ -*-===//
//
// How createFlow() works. FlowBuilder gives every block its nodes and reads the
// links; FlowReach then finds out which ranges come to their ends and what is
// reached, and adds the edges that depend on it.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_FLOW_FLOWBUILDER_H
#define TARKA_LIB_FLOW_FLOWBUILDER_H

#include "AST/Embedded.h"
#include "AST/Program.h"
#include "AST/Scope.h"
#include "AST/Statement.h"
#include "Analyzer/CFG.h"
#include "Flow/FlowGraph.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

/// A performer of a range, for FlowReach: a FlowPerform, or a CALL of a nested program.
struct FlowSite {
  std::uint32_t node;
  std::uint32_t range;
  std::uint32_t returnsTo;
  FlowEdgeKind into;                 ///< of the edge to the range
  FlowEdgeKind back;                 ///< of the edge from its end
  std::uint32_t nextOfNode = noFlow; ///< the next site of the same node
};

/// Where a USE procedure may be entered from.
struct UseProcedures {
  /// The sections for each file, and those for the open modes, by their numbers.
  llvm::DenseMap<const FileDescription *, llvm::SmallVector<std::uint32_t, 2>> ofFile;
  llvm::SmallVector<std::uint32_t, 4> ofModes;
  llvm::DenseMap<const FileDescription *, llvm::SmallVector<std::uint32_t, 2>> globalOfFile;
  llvm::SmallVector<std::uint32_t, 4> globalOfModes;
};

/// What the builder knows of one function beyond its graph.
struct FunctionPlan {
  FlowGraph *graph = nullptr;
  const CFGGraph *body = nullptr;
  std::vector<const CFGBlock *> blocks;
  /// The first node of a block; noFlow where it has none.
  std::vector<std::uint32_t> firstNode, lastNode;
  /// The node that control comes to when it enters a block, where that is known already.
  std::vector<std::uint32_t> resolved;
  /// The block that control goes on to from a block without a node; null where there is none.
  std::vector<const CFGBlock *> passesTo;
  /// The blocks that edges and sites lead to by way of others.
  std::vector<std::pair<std::uint32_t, const CFGBlock *>> edgesInto, sitesInto;
  std::vector<std::pair<std::uint32_t, const CFGBlock *>> fallsInto; ///< by procedure
  llvm::DenseMap<std::uint32_t, const CFGBlock *> exitOf;            ///< by procedure
  std::vector<std::uint32_t> pieceOfBlock;
  UseProcedures use;
  /// Sections that the run time system enters: USE of labels and for debugging.
  llvm::SmallVector<std::uint32_t, 2> enteredBySystem;
  /// Sections of USE BEFORE REPORTING.
  llvm::SmallVector<std::uint32_t, 2> reporting;
  std::uint32_t mainRange = noFlow;
  FunctionPlan *outer = nullptr;
  FunctionPlan *reportPlan = nullptr;
  bool hasDynamicCall = false;
};

/// A run of nodes that control enters and leaves together: a paragraph, what stands in a section
/// before its first paragraph or after the last one, or text outside of procedures.
struct FlowPiece {
  std::uint32_t procedure = noFlow; ///< whose end it holds, or to which it belongs
};

/// What sends control to a label of HANDLE.
enum class HandlerKind : std::uint8_t { Condition, Aid, Abend };

/// One operand of HANDLE or IGNORE: from now on the condition, key or abend leads to the label.
struct HandlerSetting {
  HandlerKind kind;
  llvm::StringRef condition; ///< in upper case
  const EmbeddedOperand
      *label;     ///< that names it; null, or without a procedure, where none is named
  bool isIgnored; ///< the command that raises the condition goes on
};

/// What an EXEC block does to the flow of control.
struct ExecFlow {
  /// The task ends: RETURN, XCTL, ABEND.
  bool endsTask = false;
  /// It may fail and go on all the same, for it asks for the response itself.
  bool goesOn = true;
  /// The command can raise a condition, receive an attention key, or end abnormally, so that a
  /// label of HANDLE is entered.
  bool raisesCondition = false, receivesKey = false, mayAbend = false;
  /// The row of the command; null for one that is not in the table.
  const CicsCommandInfo *cics = nullptr;
  /// What HANDLE and IGNORE set.
  llvm::SmallVector<HandlerSetting, 2> settings;
  /// PUSH sets all labels aside; POP brings back those of before, HANDLE ABEND RESET that of the
  /// abend.
  bool pushesHandlers = false, popsHandlers = false, resetsAbend = false;
  /// The program or transaction that the command names; null where it names none.
  Expression *callee = nullptr;
  FlowCallKind callKind = FlowCallKind::Call;
  /// The labels of the WHENEVER statements that hold for an SQL statement.
  llvm::SmallVector<const EmbeddedOperand *, 3> wheneverLabels;

  /// Whether the event that \p setting is about may arise.
  bool mayEnter(const HandlerSetting &setting) const;
};

/// What the command of an EXEC block does; nothing for a block that is not understood.
ExecFlow classifyExec(const ExecStatement &exec);

class FlowBuilder;

/// The labels of HANDLE that commands may lead to.
struct ActiveHandlers {
  /// By their procedures, in ascending order.
  llvm::DenseMap<const ExecStatement *, llvm::SmallVector<std::uint32_t, 4>> labels;
  /// The commands that may raise a condition which IGNORE has set: they go on.
  llvm::DenseSet<const ExecStatement *> ignoring;
};

/// Follows the HANDLE commands through \p flow, in which every command leads to every label, as
/// \p builder has made it.
ActiveHandlers findActiveHandlers(const FlowModule &flow, const FlowBuilder &builder);

/// Finds out which identifiers of calls hold the VALUE of their items whenever the call runs, and
/// stores it in FlowCall::value.
void findHeldPrograms(FlowModule &flow, llvm::MutableArrayRef<FlowCall> calls);

class FlowBuilder {
public:
  /// \p active tells which labels of HANDLE hold at which command; null while that is not known.
  FlowBuilder(const CFGModule &described, const ActiveHandlers *active)
      : source(described), flow(*new FlowModule), activeHandlers(active) {}

  std::unique_ptr<FlowModule> build();
  static llvm::MutableArrayRef<FlowCall> callsOf(FlowModule &module) { return module.callList; }
  /// Whether HANDLE names a label in one of the programs, once they are read.
  bool namesHandlers() const { return hasHandlers; }
  /// The procedure that \p label is bound to; noFlow unless it is one of \p graph.
  std::uint32_t findProcedure(const FlowGraph &graph, const EmbeddedOperand &label) const;
  /// The handlers of abends, one for each program that has some, while it is not known which labels
  /// are active.
  llvm::ArrayRef<std::uint32_t> abendHandlers() const { return abendHandlerNodes; }

private:
  friend class FlowReach;

  // Nodes.
  void addFunction(const CFGFunc &function, SourceUnit *unit, bool isReport);
  void markProcedures(FunctionPlan &marked);
  void makeNodes(FunctionPlan &made);
  void makeElementNodes(const CFGBlock *block);
  std::uint32_t addNode(FlowNodeKind kind, const CFGBlock *block, const Statement *statement);
  void openPiece(std::uint32_t procedure);
  void closeParagraph();
  void closeSection();
  void closeProcedure(std::uint32_t procedure);

  // Edges.
  void makeEdges(FunctionPlan &linked);
  void linkBlock(const CFGBlock *block);
  void linkElement(std::uint32_t node, std::uint32_t next);
  void linkTerminator(const CFGBlock *block, std::uint32_t node);
  void linkLoopTest(const CFGBlock *block, std::uint32_t node);
  void linkStep(const CFGBlock *block, std::uint32_t node);
  static bool endsInExit(const CFGBlock *block);
  std::uint32_t resolveExit(std::uint32_t node, const CFGBlock *block);
  void linkGoTo(const CFGBlock *block, std::uint32_t node, const GotoStatement &jump);
  void linkPerform(const CFGBlock *block, std::uint32_t node, const PerformStatement &perform);
  void linkInlinePerform(const CFGBlock *block, std::uint32_t node,
                         const PerformStatement &perform);
  void linkCall(const CFGBlock *block, std::uint32_t node, const CallStatement &call);
  void linkPhrases(const CFGBlock *block, std::uint32_t node, const Statement &statement);
  void linkNextSentence(std::uint32_t node, const NextSentenceStatement &statement);
  void linkExec(std::uint32_t node, const ExecStatement &exec, std::uint32_t next);
  void noteCall(std::uint32_t node, const Expression &callee, FlowCallKind kind);
  void noteCursor(const ExecStatement &exec);
  void linkUse(std::uint32_t node, const Statement &statement, std::uint32_t next);
  void linkUse(std::uint32_t node, llvm::ArrayRef<const FileDescription *> files,
               std::uint32_t next);
  void linkReports(std::uint32_t node, std::uint32_t next);
  void linkExitProgram(const CFGBlock *block, std::uint32_t node);

  std::uint32_t resolve(const CFGBlock *block);
  /// An edge to the node that \p block leads to.
  void link(std::uint32_t from, const CFGBlock *block, FlowEdgeKind kind) {
    plan->edgesInto.push_back({from, block});
    addEdge(from, resolve(block), kind);
  }
  std::uint32_t fall(const CFGBlock *block, const CFGBlock *&next) const {
    return fallOf(*plan, block, next);
  }
  std::uint32_t fallOf(const FunctionPlan &of, const CFGBlock *block, const CFGBlock *&next) const;
  const CFGBlock *following(const CFGBlock *block) const;
  const CFGBlock *entryBehind(const CFGBlock *block) const;
  std::uint32_t wayOn(std::uint32_t node, const CFGBlock *block);
  std::uint32_t exitNode() const { return plan->graph->nodeEnd - 1; }
  std::uint32_t endOf(const Section *section, const Paragraph *paragraph) const;
  std::uint32_t entryOf(const Section *section, const Paragraph *paragraph) const;
  std::uint32_t procedureOf(const Section *section, const Paragraph *paragraph) const;
  std::uint32_t rangeOf(std::uint32_t begin, std::uint32_t end, FlowGraph *graph);
  void addEdge(std::uint32_t from, std::uint32_t to, FlowEdgeKind kind);
  void addSite(std::uint32_t node, std::uint32_t range, std::uint32_t returnsTo, FlowEdgeKind into,
               FlowEdgeKind back, const CFGBlock *block = nullptr);
  FunctionPlan *findCallable(const SourceUnit *caller, llvm::StringRef name) const {
    return planOfUnit.lookup(programNames.find(caller, name));
  }
  llvm::SmallVector<std::uint32_t, 4> useSectionsFor(const FileDescription *file,
                                                     bool &isSpecific) const;
  void collectUse(FunctionPlan &read);
  void noteHandlers(const ExecStatement &exec);
  llvm::SmallVector<std::uint32_t, 3> handlersAt(const ExecStatement &exec, const ExecFlow &effect);
  void sortEdges();

  const CFGModule &source;
  FlowModule &flow;
  std::vector<std::unique_ptr<FunctionPlan>> plans;
  llvm::DenseMap<const SourceUnit *, FunctionPlan *> planOfUnit;
  ProgramNames programNames;
  std::vector<FlowPiece> pieces;
  std::vector<std::uint32_t> pieceOf; ///< by node
  llvm::DenseMap<const Node *, std::uint32_t> procedureNumbers;
  llvm::DenseMap<std::uint64_t, std::uint32_t> rangeNumbers;
  std::vector<FlowSite> sites;
  std::vector<std::uint32_t> firstSite; ///< by node
  /// The GO TO that ALTER of a paragraph sends elsewhere.
  llvm::DenseMap<const Paragraph *, std::uint32_t> alterable;

  std::size_t linkedFunctions = 0;

  // What is being read.
  FunctionPlan *plan = nullptr;
  std::uint32_t openSection = noFlow, openParagraph = noFlow;
  std::uint32_t currentPiece = noFlow;
  const Statement *currentXmlParse = nullptr, *currentSort = nullptr;
  /// The statement whose loop is controlled in a block; the body that a block begins.
  llvm::DenseMap<const CFGBlock *, const Statement *> loopOfBlock;
  llvm::DenseMap<const PerformStatement *, const CFGBlock *> returnOfPerform;
  /// Depth: the joins of the statements that are open, by their places.
  llvm::SmallVector<int, 16> openJoins;

  // EXEC blocks.
  /// The labels that HANDLE sends control to from some of the commands, and their node.
  struct Handlers {
    llvm::SmallVector<std::uint32_t, 4> labels;
    std::uint32_t node = noFlow;
  };
  const ActiveHandlers *activeHandlers;
  /// Of the function being made, and of every one by its place. While it is not known which labels
  /// are active, one entry for each HandlerKind; then one for each set of labels.
  std::vector<Handlers> handlers;
  std::vector<std::vector<Handlers>> handlersOf;
  bool hasHandlers = false;
  llvm::SmallVector<std::uint32_t, 2> abendHandlerNodes;
  /// The block by which each procedure was closed, by function.
  std::vector<std::vector<std::pair<std::uint32_t, const CFGBlock *>>> closedByOf;
};

/// Finds out what is reached, which ranges come to their ends, and adds the edges that depend on
/// it.
class FlowReach {
public:
  explicit FlowReach(FlowBuilder &flowBuilder) : builder(flowBuilder), flow(flowBuilder.flow) {}

  void run();

private:
  struct PieceState {
    llvm::SmallVector<std::uint32_t, 2> contexts;
    llvm::SmallVector<std::uint32_t, 2> leadsTo; ///< nodes of other pieces
    bool anyContext = false;
    bool endReached = false;
  };
  struct Event {
    std::uint32_t context, piece;
  };

  void indexEdges();
  void reach(std::uint32_t node);
  void enter(std::uint32_t context, std::uint32_t piece);
  void goOn(std::uint32_t fromPiece, std::uint32_t node);
  void process(std::uint32_t node);
  void enterSite(std::uint32_t number);
  void callWhatIsHeld(std::uint32_t node);
  void alter(const AlterStatement &statement);
  void leave(FlowGraph &graph);
  void atEnd(std::uint32_t context, std::uint32_t procedure);
  void complete(std::uint32_t range);
  void start(std::uint32_t range);
  void drain();
  void drainAll();
  bool completeThroughOthers();
  bool isWithin(std::uint32_t outer, llvm::ArrayRef<std::uint32_t> inner);
  llvm::SmallVector<std::uint32_t> performedIn(std::uint32_t range);
  void addEdges();
  void markBlocks(FunctionPlan &plan);
  bool endsRun(std::uint32_t node) const;
  void findRecursion();

  FlowBuilder &builder;
  FlowModule &flow;
  std::vector<std::uint32_t> edgeBegin;
  std::vector<PieceState> state;
  /// Pairs: a context that is in a piece, a piece that leads to another one.
  llvm::DenseSet<std::uint64_t> inPiece, led;
  std::size_t budget = 0;
  std::size_t searchLimit = 10'000'000;
  std::vector<std::uint32_t> open; ///< nodes
  std::vector<Event> events;
  std::vector<llvm::SmallVector<std::uint32_t, 2>> waiting;  ///< sites, by range
  std::vector<llvm::SmallVector<std::uint32_t, 4>> piecesOf; ///< by range
  std::vector<llvm::SmallVector<std::uint32_t, 2>> foreign;  ///< contexts, by procedure
  std::vector<char> started;
  std::vector<llvm::SmallVector<std::uint32_t, 1>> endingAt;     ///< ranges, by procedure
  std::vector<llvm::SmallVector<std::uint32_t, 1>> sitesOfPiece; ///< ranges, by piece
  llvm::DenseSet<const SourceUnit *> heldCalls;
  /// Where the ALTER statements that are reached send a GO TO.
  llvm::DenseMap<std::uint32_t, llvm::SmallVector<std::uint32_t, 2>> altered;
};

} // namespace tarka

#endif // TARKA_LIB_FLOW_FLOWBUILDER_H
