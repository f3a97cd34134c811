//===- TarkaCFG.cpp - the records of the control-flow graph ---------------===//

#include "Analyzer/CFG.h"
#include <iterator>

namespace tarka {

void CFGBlock::addElement(CFGElem::ElemType type, DataDescription *data, FileDescription *file,
                          Statement *statement, ReportDescription *report) {
  elements.push_back(new CFGElem(type, data, file, statement, this, report));
}

void CFGBlock::addCFGElemStmt(Statement *statement) {
  addElement(CFGElem::ElemType::Statement, nullptr, nullptr, statement, nullptr);
}

void CFGBlock::addCFGElemDecl(DataDescription *data) {
  addElement(CFGElem::ElemType::DataDeclaration, data, nullptr, nullptr, nullptr);
}

void CFGBlock::addCFGElemFileDecl(FileDescription *file) {
  addElement(CFGElem::ElemType::FileDeclaration, nullptr, file, nullptr, nullptr);
}

void CFGBlock::addCFGElemReportDecl(ReportDescription *report) {
  addElement(CFGElem::ElemType::ReportDeclaration, nullptr, nullptr, nullptr, report);
}

CFGBlock *CFGGraph::createBlock(const std::string &name) {
  CFGBlock *block = new CFGBlock(name, this);
  addBlock(block);
  return block;
}

void CFGGraph::addBlock(CFGBlock *block) {
  block->graph = this;
  block->place = static_cast<int>(blocks.size());
  blocks.push_back(block);
}

CFGBlock *CFGGraph::findBlock(const std::string &name) {
  // Take up the blocks that were made since the last lookup; of equal names the first one stays.
  auto unindexed = lastIndexed == blocks.end() ? blocks.begin() : std::next(lastIndexed);
  for (; unindexed != blocks.end(); ++unindexed) {
    firstOfName.try_emplace((*unindexed)->getName(), *unindexed);
    lastIndexed = unindexed;
  }
  return firstOfName.lookup(name);
}

} // namespace tarka
