//===- Analyzer.cpp - fuzzes the checks, the graph and the printers -------===//

#include "AST/Program.h"
#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CFGVerifier.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/ErrorHandler.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/TopLevel.h"
#include "Input.h"
#include "Parse/Parse.h"
#include "Print/PrintGraph.h"
#include "Print/PrintLayout.h"
#include "Print/PrintTree.h"
#include "Process.h"
#include "llvm/Support/raw_ostream.h"

using namespace tarka;

static CompileSettings settingsFor(llvm::StringRef input) {
  CompileSettings settings;
  settings.checkFileID = fuzz::hasOption(input, "--check-file-id");
  settings.dateproc = fuzz::hasOption(input, "--dateproc");
  settings.debug = fuzz::hasOption(input, "--debug");
  settings.dual = fuzz::hasOption(input, "--dual");
  settings.init = fuzz::hasOption(input, "--init");
  settings.enableCbltdli = fuzz::hasOption(input, "--enable-cbltdli");
  settings.enableAertdli = fuzz::hasOption(input, "--enable-aertdli");
  settings.enableRw = fuzz::hasOption(input, "--enable-rw");
  settings.enableOsvs = fuzz::hasOption(input, "--enable-osvs");
  settings.enterprise = fuzz::hasOption(input, "--enterprise");
  return settings;
}

/// What every command of the program does with one compilation, whatever the checks say of it.
static void analyze(llvm::StringRef input) {
  TopLevel::beginCompilation("MAIN", settingsFor(input));
  ParseOptions options = fuzz::optionsFor(input);
  FrontEndDiagnostics diagnostics;
  llvm::ErrorOr<Program *> parsed = parseProgram(fuzz::mainFile, "MAIN", options, diagnostics);
  if (!parsed)
    return;
  Program &program = **parsed;

  ErrorHandler handler;
  SemanticChecker(&handler).semanticCheck(program);
  for (const ErrorEntry *entry : handler.getErrorList())
    entry->print(llvm::nulls());
  printLayoutText(llvm::nulls(), program);
  printLayoutJson(llvm::nulls(), program);
  printTreeText(llvm::nulls(), program, "MAIN");
  printTreeJson(llvm::nulls(), program, "MAIN");

  CFGModule *module = CFGBuilder().createModule(program);
  // The graph of a program without errors is whole.
  if (!diagnostics.hasErrors() && handler.getErrorCount() == 0) {
    std::vector<CFGFailure> failures = verifyModule(*module);
    for (const CFGFailure &failure : failures)
      llvm::errs() << "the graph is wrong: " << failure << '\n';
    if (!failures.empty())
      abort();
  }
  printGraphText(llvm::nulls(), *module);
  printGraphJson(llvm::nulls(), *module);
  printGraphDot(llvm::nulls(), *module, {}, options);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzz::Run run;
  analyze({reinterpret_cast<const char *>(data), size});
  return 0;
}
