//===- main.cpp - a program that uses Tarka and LLVM -----------------------===//

#include "AST/Node.h"
#include "llvm/IR/LLVMContext.h"
#include "llvm/IR/Module.h"
#include "llvm/Support/raw_ostream.h"
#include "llvm/TargetParser/Host.h"

int main() {
  llvm::LLVMContext context;
  llvm::Module module(tarka::internString("PAYROLL"), context);
  module.setTargetTriple(llvm::sys::getDefaultTargetTriple());
  llvm::outs() << module.getName() << " for " << module.getTargetTriple() << '\n';
}
