//===- GraphLayout.cpp - what the printed forms of a graph share ----------===//

#include "Print/GraphLayout.h"
#include "AST/Expression.h"
#include "AST/KindNames.h"
#include "AST/Program.h"
#include "AST/Statement.h"

#include "Analyzer/Graph/ProcedureEnds.h"
#include "Print/MissingName.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/raw_ostream.h"
#include <algorithm>

namespace tarka {

namespace {

void addSection(ProcedureStarts &starts, const Section &section) {
  starts[section.getStartBlock()] = {section.getSectionName(), true};
  for (const Paragraph *paragraph : section.getParaElements())
    starts[paragraph->getStartBlock()] = {paragraph->getParagraphName(), false};
}

} // namespace

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

bool BlockGroup::has(llvm::StringRef wanted) const {
  return (section && wanted.equals_insensitive(section->getWordData())) ||
         (paragraph && wanted.equals_insensitive(paragraph->getWordData()));
}

const std::string &BlockGroup::name() const {
  static const std::string outside = "(no procedure)";
  const Word *procedure = paragraph ? paragraph : section;
  return procedure ? procedure->getDisplayName() : outside;
}

GraphLayout::GraphLayout(const CFGFunc &described, const ProcedureStarts &starts,
                         const FlowModule &module)
    : function(&described), flow(module.graphOf(described)) {
  for (const CFGBlock *block : described.getBody()->getBlockList()) {
    openGroup(block, starts);
    groups.back().blocks.push_back(block);
    groupOf.push_back(groups.size() - 1);
    blocks.push_back(block);
  }
  nodesOfBlock.resize(blocks.size());
  std::size_t group = 0;
  for (const FlowNode &node : flow->nodes()) {
    if (const CFGBlock *block = node.getBlock()) {
      auto &[first, count] = nodesOfBlock[static_cast<std::size_t>(block->getPlace())];
      if (!count)
        first = node.getId() - flow->firstNode();
      ++count;
      group = groupIndex(block);
    }
    // The end of a procedure follows the last of its nodes.
    groupOfNode.push_back(group);
  }
}

llvm::ArrayRef<FlowNode> GraphLayout::nodesOf(const CFGBlock *block) const {
  const auto &[first, count] = nodesOfBlock[static_cast<std::size_t>(block->getPlace())];
  return flow->nodes().slice(first, count);
}

std::vector<ProcedureWays> waysOfGroups(const GraphLayout &layout) {
  std::vector<ProcedureWays> ways(layout.groups.size());
  for (const FlowNode &node : layout.flow->nodes())
    for (const FlowEdge &edge : node.successors()) {
      const FlowNode &target = layout.flow->getModule().node(edge.to);
      const bool isBack =
          edge.kind == FlowEdgeKind::Return || edge.kind == FlowEdgeKind::DeclarativeEnd;
      const bool isJump = target.getKind() == FlowNodeKind::Procedure;
      if (isBack || !target.getBlock() || !node.isReached() ||
          (!isJump && layout.groupIndex(node) == layout.groupIndex(target)))
        continue;
      ways[layout.groupIndex(node)].insert({edge.kind, target.getBlock()});
    }
  return ways;
}

const CFGBlock *GraphLayout::fallsInto(const CFGBlock *block) const {
  auto next = static_cast<std::size_t>(block->getPlace()) + 1;
  return flow->fallsThrough(*block) && next < blocks.size() ? blocks[next] : nullptr;
}

bool GraphLayout::isDead(const BlockGroup &group) const {
  return (group.section || group.paragraph) && !flow->isReached(*group.blocks.front());
}

void GraphLayout::openGroup(const CFGBlock *block, const ProcedureStarts &starts) {
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

std::optional<std::string> explainMissingProcedure(const CFGModule &module, const GraphView &view) {
  const FunctionSelection selection(module, view);
  if (selection.all().empty() && !view.function.empty()) {
    llvm::SmallVector<llvm::StringRef> names;
    for (const CFGFunc *function : module.getFuncList())
      names.push_back(function->getName());
    return explainMissing("function", view.function, names);
  }
  if (view.paragraph.empty())
    return std::nullopt;
  llvm::SetVector<llvm::StringRef> names;
  for (const auto &[block, start] : findProcedures(module)) {
    const bool isSelected =
        block &&
        llvm::any_of(selection.all(), [graph = block->getGraph()](const CFGFunc *function) {
          return function->getBody() == graph;
        });
    if (!isSelected)
      continue;
    if (llvm::StringRef(view.paragraph).equals_insensitive(start.name->getWordData()))
      return std::nullopt;
    names.insert(start.name->getDisplayName());
  }
  llvm::SmallVector<llvm::StringRef> sorted(names.begin(), names.end());
  llvm::sort(sorted);
  return explainMissing("paragraph or section", view.paragraph, sorted);
}

FunctionSelection::FunctionSelection(const CFGModule &module, const GraphView &view) {
  auto wanted = [&](const CFGFunc *function) {
    return view.function.empty() ||
           llvm::StringRef(view.function).equals_insensitive(function->getName());
  };
  for (const CFGFunc *function : module.getFuncList())
    if (wanted(function))
      functions.push_back(function);
  for (const CFGModule::ReportDeclaratives &report : module.getReportDeclaratives())
    if (wanted(report.function) || wanted(report.ofUnit))
      reportDeclaratives.push_back(report.function);
}

std::vector<const CFGFunc *> FunctionSelection::all() const {
  std::vector<const CFGFunc *> both = functions;
  both.insert(both.end(), reportDeclaratives.begin(), reportDeclaratives.end());
  return both;
}

//===----------------------------------------------------------------------===//
// What blocks hold
//===----------------------------------------------------------------------===//

llvm::StringRef ProcedureTarget::name() const {
  const Word *word = section     ? section->getSectionName()
                     : paragraph ? paragraph->getParagraphName()
                                 : nullptr;
  return word ? llvm::StringRef(word->getDisplayName()) : "";
}

llvm::SmallVector<ProcedureTarget, 1> targetsOf(const Statement &statement) {
  llvm::SmallVector<ProcedureTarget, 1> targets;
  if (auto *jump = llvm::dyn_cast<GotoStatement>(&statement)) {
    for (const GotoProcedure *procedure : jump->getProcedureListElements())
      targets.push_back({"go to", procedure->getSection(), procedure->getParagraph()});
  } else if (auto *perform = llvm::dyn_cast<PerformStatement>(&statement)) {
    if (const PerformProcedure *range = perform->getProcedureName())
      targets.push_back({"perform", range->getBeginSection(), range->getBeginParagraph()});
  }
  return targets;
}

llvm::StringRef calledProgram(const Statement &statement) {
  auto *call = llvm::dyn_cast<CallStatement>(&statement);
  if (!call)
    return "";
  if (auto *name = llvm::dyn_cast<NonNumericLiteralExpression>(call->getProcedureName()))
    return name->getData();
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(call->getProcedureName());
  if (!identifier || !identifier->getQualifiedWord() ||
      identifier->getQualifiedWord()->getNamesElements().empty())
    return "";
  return identifier->getQualifiedWord()->getNamesElements().front()->getDisplayName();
}

namespace {

/// What follows the verb where control goes on at a named place.
void printOperands(llvm::raw_ostream &os, const Statement &statement) {
  for (const ProcedureTarget &target : targetsOf(statement))
    os << ' ' << target.name();
  if (auto *perform = llvm::dyn_cast<PerformStatement>(&statement)) {
    if (const PerformProcedure *range = perform->getProcedureName()) {
      ProcedureTarget begin{"", range->getBeginSection(), range->getBeginParagraph()};
      ProcedureTarget thru{"", range->getThruSection(), range->getThruParagraph()};
      if (thru.start() && thru.start() != begin.start())
        os << " THRU " << thru.name();
    }
  } else if (auto *exit = llvm::dyn_cast<InnerExitStatement>(&statement)) {
    ProcedureTarget ended{"", exit->getSection(), exit->getParagraph()};
    if (ended.start())
      os << " of " << ended.name();
  } else if (auto *entered = llvm::dyn_cast<ExitPerformStatement>(&statement)) {
    if (const CFGBlock *after = entered->getAfterBlock())
      os << " to " << after->getPlace() << ' ' << after->getName();
  } else if (auto *registered = llvm::dyn_cast<InnerRegisterExceptionStatement>(&statement)) {
    os << ' ' << registered->getDeclaratives()->getSection()->getSectionName()->getDisplayName();
  }
}

} // namespace

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

void printElement(llvm::raw_ostream &os, const CFGElem &element) {
  if (const Statement *statement = element.getStmt()) {
    os << verbOf(statement->getType());
    printOperands(os, *statement);
    return;
  }
  ElementFacts facts = factsOf(element);
  os << facts.kind << ' ' << (facts.name ? facts.name->getDisplayName() : "FILLER");
}

std::size_t countStatements(const BlockGroup &group) {
  std::size_t count = 0;
  for (const CFGBlock *block : group.blocks)
    for (const CFGElem *element : block->getElements())
      count += element->getStmt() != nullptr;
  return count;
}

} // namespace tarka
