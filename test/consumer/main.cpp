//===- main.cpp - a program that uses Tarka and LLVM -----------------------===//

#include "Analyzer/TopLevel.h"
#include "llvm/IR/DerivedTypes.h"
#include "llvm/IR/Module.h"
#include "llvm/IR/Verifier.h"
#include "llvm/Support/raw_ostream.h"
#include "llvm/TargetParser/Host.h"

/// Adds to the module that Tarka made, with LLVM called from both sides.
int main() {
  llvm::Module &module = *tarka::TopLevel::getTopLevelInstance("PAYROLL")->getModule();
  module.setTargetTriple(llvm::sys::getDefaultTargetTriple());
  module.getOrInsertFunction("MAIN", llvm::Type::getVoidTy(tarka::globalContext()));
  llvm::outs() << module;
  return llvm::verifyModule(module, &llvm::errs());
}
