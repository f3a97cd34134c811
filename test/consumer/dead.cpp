//===- dead.cpp - prints the paragraphs that are never reached -------------===//

#include "AST/Program.h"
#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/ErrorHandler.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/TopLevel.h"
#include "Flow/FlowGraph.h"
#include "Parse/Parse.h"
#include "llvm/Support/raw_ostream.h"

int main(int, char **argv) {
  using namespace tarka;
  TopLevel::beginCompilation(argv[1], CompileSettings());
  FrontEndDiagnostics messages;
  llvm::ErrorOr<Program *> program = parseProgram(argv[1], argv[1], ParseOptions(), messages);
  ErrorHandler handler;
  if (!program || messages.hasErrors() || !SemanticChecker(&handler).semanticCheck(**program))
    return 1;

  CFGModule *module = CFGBuilder().createModule(**program);
  std::unique_ptr<FlowModule> flow = createFlow(*module);
  for (const FlowProcedure &procedure : flow->procedures())
    if (!flow->node(procedure.entry).isReached())
      llvm::outs() << procedure.getRange().beginLine << ' ' << procedure.getName()->getDisplayName()
                   << '\n';
}
