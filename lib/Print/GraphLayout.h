//===- GraphLayout.h - what the printed forms of a graph share --*- C++ -*-===//
//
// The places of the blocks of a graph in the source, their contents, and the ways
// that lead from them.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_GRAPHLAYOUT_H
#define TARKA_TOOLS_GRAPHLAYOUT_H

#include "AST/Procedure.h"
#include "Analyzer/CFG.h"
#include "Flow/FlowGraph.h"
#include "Print/PrintGraph.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/SetVector.h"
#include "llvm/ADT/SmallVector.h"
#include <utility>
#include <vector>

namespace tarka {

class Word;

/// A procedure that begins in some block.
struct ProcedureStart {
  const Word *name = nullptr;
  bool isSection = false;
};
using ProcedureStarts = llvm::DenseMap<const CFGBlock *, ProcedureStart>;

ProcedureStarts findProcedures(const CFGModule &module);

/// A run of blocks that stand in one procedure, or outside of any.
struct BlockGroup {
  const Word *section = nullptr;
  const Word *paragraph = nullptr;
  std::vector<const CFGBlock *> blocks;

  /// Whether it belongs to a section or paragraph of that name, whatever its case.
  bool has(llvm::StringRef name) const;
  const std::string &name() const;
};

/// The blocks of a function by their place and by procedure.
struct GraphLayout {
  const CFGFunc *function;
  std::vector<const CFGBlock *> blocks;
  std::vector<BlockGroup> groups;
  /// The group of every block, by place.
  std::vector<std::size_t> groupOf;

  /// What can run after what in the function.
  const FlowGraph *flow;

  GraphLayout(const CFGFunc &described, const ProcedureStarts &starts, const FlowModule &module);

  /// The group of every node of the flow graph, by its number within the function.
  std::vector<std::size_t> groupOfNode;

  std::size_t groupIndex(const CFGBlock *block) const {
    return groupOf[static_cast<std::size_t>(block->getPlace())];
  }
  std::size_t groupIndex(const FlowNode &node) const {
    return groupOfNode[node.getId() - flow->firstNode()];
  }
  /// The nodes that stand in \p block, in their order.
  llvm::ArrayRef<FlowNode> nodesOf(const CFGBlock *block) const;
  /// The block into which control falls from \p block; null where it does not.
  const CFGBlock *fallsInto(const CFGBlock *block) const;
  /// Whether the group is a procedure that control never reaches.
  bool isDead(const BlockGroup &group) const;

private:
  void openGroup(const CFGBlock *block, const ProcedureStarts &starts);

  /// The first node of every block, within the function, and how many there are.
  std::vector<std::pair<std::size_t, std::size_t>> nodesOfBlock;
};

/// How control leaves a procedure for others: the kind of the way, and the block that it leads to.
/// Returning to a performer does not count.
using ProcedureWays = llvm::SetVector<std::pair<FlowEdgeKind, const CFGBlock *>>;

/// The ways of every group of a function.
std::vector<ProcedureWays> waysOfGroups(const GraphLayout &layout);

/// The functions to print: those of the module, then those of the report declaratives.
struct FunctionSelection {
  std::vector<const CFGFunc *> functions;
  std::vector<const CFGFunc *> reportDeclaratives;

  FunctionSelection(const CFGModule &module, const GraphView &view);
  std::vector<const CFGFunc *> all() const;
};

/// A procedure to which a statement sends control.
struct ProcedureTarget {
  llvm::StringLiteral how;
  const Section *section;
  const Paragraph *paragraph;

  const CFGBlock *start() const {
    return section ? section->getStartBlock() : paragraph ? paragraph->getStartBlock() : nullptr;
  }
  llvm::StringRef name() const;
};

llvm::SmallVector<ProcedureTarget, 1> targetsOf(const Statement &statement);

/// How an element is called in JSON, and what it points at.
struct ElementFacts {
  llvm::StringRef kind;
  llvm::StringRef className;
  const Node *node;
  const Word *name; ///< null for statements
};

ElementFacts factsOf(const CFGElem &element);

/// Prints "MOVE", "GO TO NEXT-STEP", "data AMOUNT".
void printElement(llvm::raw_ostream &os, const CFGElem &element);

/// The program that \p statement calls by a literal, or the name of what identifies it; empty where
/// it calls none.
llvm::StringRef calledProgram(const Statement &statement);

/// Calls \p visit(way, target) for every link of \p block that is set, and for falling through.
template <typename Visitor>
void forEachWay(const GraphLayout &layout, const CFGBlock *block, Visitor visit) {
  for (std::size_t link = 0; link < cfgLinkCount; ++link)
    if (const CFGBlock *target = block->getLink(static_cast<CFGLink>(link)))
      visit(cfgLinkNames[link], target);
  if (const CFGBlock *next = layout.fallsInto(block))
    visit(llvm::StringLiteral("falls into"), next);
}

std::size_t countStatements(const BlockGroup &group);

} // namespace tarka

#endif // TARKA_TOOLS_GRAPHLAYOUT_H
