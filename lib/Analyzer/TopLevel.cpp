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

TopLevel *TopLevel::getTopLevelInstance(std::string id) {
  auto make = [&] {
    auto *module = new llvm::Module(id, globalContext());
    return new TopLevel(std::move(id), module);
  };
  static TopLevel *instance = make();
  return instance;
}

TopLevel &TopLevel::beginCompilation(std::string id, const CompileSettings &settings) {
  TopLevel &context = *getTopLevelInstance(id);
  context.module->setModuleIdentifier(id);
  context = TopLevel(std::move(id), context.module);
  CompileOption::getCompileOptionInstance()->apply(settings);
  return context;
}

void TopLevel::addPerformAfter(CFGBlock *block) {
  if (!performAfters)
    performAfters = std::make_unique<std::list<CFGBlock *>>();
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
    colseqs = std::make_unique<std::list<int *>>();
  colseqs->push_back(table);
}

void TopLevel::addStmtToDummyListUsedMove(Statement *statement) {
  if (!dummyListUsedMove)
    dummyListUsedMove = std::make_unique<std::list<Statement *>>();
  dummyListUsedMove->push_back(statement);
}

CompileOption *CompileOption::getCompileOptionInstance() {
  static CompileOption *instance = new CompileOption;
  return instance;
}

void CompileOption::apply(const CompileSettings &settings) {
  *this = CompileOption();
  checkFileID = settings.checkFileID;
  dateproc = settings.dateproc;
  debug = settings.debug;
  dual = settings.dual;
  init = settings.init;
  enableCbltdli = settings.enableCbltdli;
  enableAertdli = settings.enableAertdli;
  enableRw = settings.enableRw;
  enableOsvs = settings.enableOsvs;
  enterprise = settings.enterprise;
}

} // namespace tarka
