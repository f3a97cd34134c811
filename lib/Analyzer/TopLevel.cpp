//===- TopLevel.cpp - the compilation context and the options -------------===//

#include "Analyzer/TopLevel.h"
#include "Analyzer/CompileOption.h"
#include "llvm/IR/LLVMContext.h"
#include "llvm/IR/Module.h"
#include <cassert>

namespace tarka {

llvm::LLVMContext &globalContext() {
  static llvm::LLVMContext *context = new llvm::LLVMContext;
  return *context;
}

TopLevel::TopLevel(std::string compilation)
    : id(std::move(compilation)), module(new llvm::Module(id, globalContext())) {}

TopLevel *TopLevel::getTopLevelInstance(std::string id) {
  static TopLevel *instance = new TopLevel(std::move(id));
  return instance;
}

void TopLevel::addPerformAfter(CFGBlock *block) {
  if (!performAfters)
    performAfters = new std::list<CFGBlock *>;
  performAfters->push_back(block);
}

void TopLevel::removePerformAfter() {
  assert(performAfters && !performAfters->empty() && "no PERFORM is being lowered");
  performAfters->pop_back();
}

std::list<CFGBlock *>::iterator TopLevel::getPerformAfterEnd() {
  assert(performAfters && "no PERFORM was lowered");
  return performAfters->end();
}

void TopLevel::addColseq(int *table) {
  if (!colseqs)
    colseqs = new std::list<int *>;
  colseqs->push_back(table);
}

void TopLevel::addStmtToDummyListUsedMove(Statement *statement) {
  if (!dummyListUsedMove)
    dummyListUsedMove = new std::list<Statement *>;
  dummyListUsedMove->push_back(statement);
}

CompileOption *CompileOption::getCompileOptionInstance() {
  static CompileOption *instance = new CompileOption;
  return instance;
}

} // namespace tarka
