//===- FlowGraph.cpp - nodes, edges, procedures ----------------------------===//

#include "Flow/FlowGraph.h"
#include "AST/Condition.h"
#include "AST/Embedded.h"
#include "AST/KindNames.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CFG.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

llvm::StringRef flowNodeKindName(FlowNodeKind kind) {
  static constexpr llvm::StringLiteral names[] = {
#define FLOW_NODE(Enumerator, Name) Name,
#include "Flow/FlowKinds.def"
  };
  return names[static_cast<std::size_t>(kind)];
}

llvm::StringRef flowEdgeKindName(FlowEdgeKind kind) {
  static constexpr llvm::StringLiteral names[] = {
#define FLOW_EDGE(Enumerator, Name) Name,
#include "Flow/FlowKinds.def"
  };
  return names[static_cast<std::size_t>(kind)];
}

llvm::StringRef flowCallKindName(FlowCallKind kind) {
  static constexpr llvm::StringLiteral names[] = {
#define FLOW_CALL(Enumerator, Name) Name,
#include "Flow/FlowKinds.def"
  };
  return names[static_cast<std::size_t>(kind)];
}

//===----------------------------------------------------------------------===//
// Nodes
//===----------------------------------------------------------------------===//

bool FlowNode::isWritten() const {
  switch (kind) {
  case FlowNodeKind::Entry:
  case FlowNodeKind::Statement:
  case FlowNodeKind::Condition:
  case FlowNodeKind::Evaluate:
    return true;
  default:
    return false;
  }
}

SourceRange FlowNode::getRange() const {
  if (kind == FlowNodeKind::Procedure)
    return graph->getModule().procedure(procedure).getRange();
  if (!statement)
    return {};
  if (kind == FlowNodeKind::Condition) {
    if (auto *when = llvm::dyn_cast<InnerWhenStatement>(statement)) {
      if (!when->getWhenListElements().empty())
        return when->getWhenListElements().front()->getRange();
    } else if (auto *test = llvm::dyn_cast<InnerSearchWhenStatement>(statement)) {
      if (test->getCondition())
        return test->getCondition()->getRange();
    }
  }
  return statement->getRange();
}

llvm::StringRef FlowNode::getVerb() const {
  switch (kind) {
  case FlowNodeKind::Procedure:
  case FlowNodeKind::ProcedureEnd:
    return graph->getModule().procedure(procedure).getName()->getDisplayName();
  case FlowNodeKind::Entry:
    return "ENTRY";
  case FlowNodeKind::Evaluate:
    return "EVALUATE";
  case FlowNodeKind::Condition:
    if (auto *when = llvm::dyn_cast<InnerWhenStatement>(statement))
      return when->getType() == EvalWhenType::Other ? "WHEN OTHER" : "WHEN";
    if (llvm::isa<InnerSearchWhenStatement>(statement))
      return "WHEN";
    [[fallthrough]];
  case FlowNodeKind::Statement:
    if (const auto *exec = llvm::dyn_cast<ExecStatement>(statement); exec && exec->getCommand())
      return internString("EXEC " + nameOf(exec->getType()).str() + " " +
                          exec->getCommand()->getName());
    return verbOf(statement->getType());
  default:
    return flowNodeKindName(kind);
  }
}

llvm::StringRef FlowNode::getClassName() const {
  if (kind == FlowNodeKind::Evaluate)
    return classNameOf(StatementType::Evaluate);
  return statement ? classNameOf(statement->getType()) : "";
}

llvm::ArrayRef<FlowEdge> FlowNode::successors() const {
  const FlowModule &module = graph->getModule();
  return llvm::ArrayRef(module.edgeList)
      .slice(module.outBegin[id], module.outBegin[id + 1] - module.outBegin[id]);
}

llvm::ArrayRef<std::uint32_t> FlowNode::predecessors() const {
  const FlowModule &module = graph->getModule();
  return llvm::ArrayRef(module.incoming)
      .slice(module.inBegin[id], module.inBegin[id + 1] - module.inBegin[id]);
}

void FlowNode::printAsOperand(llvm::raw_ostream &os, bool) const {
  const SourceRange range = getRange();
  if (range.beginLine)
    os << range.beginLine << ' ';
  os << getVerb();
  if (kind == FlowNodeKind::ProcedureEnd)
    os << " (end)";
}

//===----------------------------------------------------------------------===//
// Procedures and graphs
//===----------------------------------------------------------------------===//

const Word *FlowProcedure::getName() const {
  return section ? section->getSectionName() : paragraph->getParagraphName();
}

const SourceRange &FlowProcedure::getRange() const {
  return section ? section->getRange() : paragraph->getRange();
}

const std::string &FlowGraph::getName() const {
  return function->getName();
}

llvm::MutableArrayRef<FlowNode> FlowGraph::nodes() const {
  return llvm::MutableArrayRef(module->nodeList).slice(nodeBegin, nodeEnd - nodeBegin);
}

llvm::MutableArrayRef<FlowProcedure> FlowGraph::procedures() const {
  return llvm::MutableArrayRef(module->procedureList)
      .slice(procedureBegin, procedureEnd - procedureBegin);
}

bool FlowGraph::isReached(const CFGBlock &block) const {
  return reachedBlocks[static_cast<std::size_t>(block.getPlace())];
}

bool FlowGraph::fallsThrough(const CFGBlock &block) const {
  return fallingBlocks[static_cast<std::size_t>(block.getPlace())];
}

FlowGraph *FlowModule::graphOf(const CFGFunc &function) const {
  for (const auto &graph : graphList)
    if (&graph->getFunction() == &function)
      return graph.get();
  return nullptr;
}

} // namespace tarka
