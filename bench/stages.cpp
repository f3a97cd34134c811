//===- stages.cpp - what each stage of a compilation takes -----------------===//
//
//   tarka-stages FILE
//
// Reads and checks FILE, makes its control-flow graph and its flow graph, and
// prints the milliseconds of each of the four.
//
//===----------------------------------------------------------------------===//

#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/ErrorHandler.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/TopLevel.h"
#include "Flow/FlowGraph.h"
#include "Parse/Diagnostics.h"
#include "Parse/Parse.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/raw_ostream.h"
#include "llvm/Support/thread.h"
#include <ctime>

using namespace tarka;

namespace {

/// Milliseconds of processor time since the last call.
double lap() {
  static std::clock_t last = std::clock();
  const std::clock_t now = std::clock();
  const double taken = 1000.0 * static_cast<double>(now - last) / CLOCKS_PER_SEC;
  last = now;
  return taken;
}

void measure(const char *file) {
  ErrorHandler handler;
  FrontEndDiagnostics frontEnd;
  TopLevel::beginCompilation(file, CompileSettings());
  lap();
  llvm::ErrorOr<Program *> program = parseProgram(file, file, ParseOptions(), frontEnd);
  if (!program) {
    llvm::errs() << "tarka-stages: cannot read " << file << '\n';
    return;
  }
  llvm::outs() << llvm::format("read %.1f", lap());
  SemanticChecker(&handler).semanticCheck(**program);
  llvm::outs() << llvm::format(" check %.1f", lap());
  CFGModule *module = CFGBuilder().createModule(**program);
  llvm::outs() << llvm::format(" cfg %.1f", lap());
  const std::unique_ptr<FlowModule> flow = createFlow(*module);
  llvm::outs() << llvm::format(" flow %.1f\n", lap());
}

} // namespace

int main(int argc, char **argv) {
  if (argc != 2)
    return 2;
  // The tree is walked by recursion, as deep as the source nests.
  llvm::thread worker(std::optional<unsigned>(1u << 30), [&] { measure(argv[1]); });
  worker.join();
}
