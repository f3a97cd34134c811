//===- Driver.cpp - carrying out a command --------------------------------===//

#include "Driver.h"
#include "AST/Program.h"
#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CFGVerifier.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/ErrorHandler.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/TopLevel.h"
#include "Explain.h"
#include "Findings.h"
#include "Parse/Parse.h"
#include "Print/PrintFlow.h"
#include "Print/PrintGraph.h"
#include "Print/PrintLayout.h"
#include "Print/PrintTree.h"
#include "Report/Sink.h"
#include "Verify.h"
#include "Workers.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/raw_ostream.h"
#include "llvm/Support/thread.h"
#ifdef TARKA_MIMALLOC
#include <mimalloc.h>
#endif

namespace tarka {

bool flushOutput(llvm::StringRef what) {
  llvm::outs().flush();
  if (!llvm::outs().has_error())
    return true;
  llvm::errs() << "tarka: cannot write the " << what << ": " << llvm::outs().error().message()
               << '\n';
  llvm::outs().clear_error();
  return false;
}

namespace {

/// The tree is walked by recursion, as deep as the source nests and as long as its chains of
/// operators are; this much stack is reserved for it, and what is not used costs nothing.
constexpr unsigned stackSize = 1u << 30;

/// One file on its way through reading, checks and what is printed of it.
class Compilation {
public:
  Compilation(const Request &request, const std::string &file) : request(request), file(file) {}

  /// Carries out the command on the file and gives the exit status.
  int run();
  /// Reads and checks the file. False, after a message, when it cannot be read.
  bool check();
  /// What the front end found comes first, then what the checks found, in one form.
  void report(llvm::raw_ostream &out) const;

private:
  bool verify();
  int printGraph();
  GraphView drawableView(const CFGModule &module) const;
  int printLayout();
  int printTree();
  bool hasErrors() const { return frontEnd.hasErrors() || handler.getErrorCount() > 0; }

  const Request &request;
  const std::string &file;
  FrontEndDiagnostics frontEnd;
  ErrorHandler handler;
  PartResults parts{handler};
  std::vector<Diagnostic> findings;
  Program *program = nullptr;
  bool checksSucceeded = false;
};

bool Compilation::check() {
  llvm::StringRef baseName = llvm::sys::path::filename(file);
  CompileSettings settings = request.compile;
  settings.enableOsvs = request.parse.osvs;
  TopLevel::beginCompilation(baseName.str(), settings);

  llvm::ErrorOr<Program *> parsed = parseProgram(file, baseName, request.parse, frontEnd);
  if (!parsed) {
    llvm::errs() << "tarka: cannot read " << file << ": " << parsed.getError().message() << '\n';
    return false;
  }
  program = *parsed;
  SemanticChecker checker(&handler);
  if (request.verify)
    checker.setListener(&parts);
  checksSucceeded = request.syntaxOnly || checker.semanticCheck(*program);
  findings = collectFindings(file, frontEnd, handler);
  return true;
}

int Compilation::run() {
  if (!check())
    return ExitUnusable;
  if (request.verify)
    return verify() ? ExitClean : ExitFindings;
  llvm::errs().SetBuffered();
  report(llvm::errs());
  llvm::errs().flush();
  // Where the report cannot be written nothing else can be said either.
  if (llvm::errs().has_error()) {
    llvm::errs().clear_error();
    return ExitInternal;
  }
  if (request.command == Command::Cfg || request.command == Command::Flow)
    return printGraph();
  if (request.command == Command::Layout)
    return printLayout();
  if (request.command == Command::Ast)
    return printTree();
  return hasErrors() || !checksSucceeded ? ExitFindings : ExitClean;
}

bool Compilation::verify() {
  parts.finish(file, checksSucceeded);
  return verifyReport(file, request.parse.encoding, findings, request.syntaxOnly ? nullptr : &parts,
                      llvm::errs());
}

void Compilation::report(llvm::raw_ostream &out) const {
  std::unique_ptr<Sink> sink = makeClassicSink(out);
  for (const Diagnostic &diagnostic : findings)
    sink->report(diagnostic);
}

/// What is asked for, or one box for each procedure where all blocks would be too many to draw.
GraphView Compilation::drawableView(const CFGModule &module) const {
  GraphView view = request.view;
  if (view.full || view.collapse || !view.paragraph.empty() || !isTooLargeToDraw(module, view))
    return view;
  llvm::errs() << "tarka: " << file
               << " is too large to draw every block, so each procedure is one box; --paragraph "
                  "NAME draws one in full, --full everything\n";
  view.collapse = true;
  return view;
}

int Compilation::printGraph() {
  bool failed = hasErrors() || !checksSucceeded;
  if (failed && !request.keepGoing) {
    llvm::errs() << "tarka: no graph of " << file << " is printed: "
                 << (hasErrors() ? "the errors above come first"
                                 : "the checks did not succeed, though no message says why (an "
                                   "ALTER statement, for one, always makes them fail)")
                 << "; --keep-going prints it all the same\n";
    return ExitFindings;
  }

  CFGModule *module = CFGBuilder().createModule(*program);
  // Names that stand for nothing leave holes in the graph, which are no fault of its making.
  std::vector<CFGFailure> failures;
  if (!hasErrors())
    failures = verifyModule(*module);
  for (const CFGFailure &failure : failures)
    llvm::errs() << "tarka: the graph of " << file << " is wrong: " << failure << '\n';
  if (!failures.empty())
    return ExitInternal;
  if (auto missing = explainMissingProcedure(*module, request.view)) {
    llvm::errs() << "tarka: " << file << ": " << *missing << '\n';
    return ExitUnusable;
  }
  if (request.command == Command::Flow) {
    if (request.format == OutputFormat::Json)
      printFlowJson(llvm::outs(), *module);
    else
      printFlowText(llvm::outs(), *module);
    return !flushOutput("flow") ? ExitInternal : failed ? ExitFindings : ExitClean;
  }

  switch (request.format) {
  case OutputFormat::Text:
    printGraphText(llvm::outs(), *module, request.view);
    break;
  case OutputFormat::Json:
    printGraphJson(llvm::outs(), *module, request.view);
    break;
  case OutputFormat::Dot:
    printGraphDot(llvm::outs(), *module, drawableView(*module), request.parse);
    break;
  case OutputFormat::Markdown:
    llvm_unreachable("not a form of the graph");
  }
  if (!flushOutput("graph"))
    return ExitInternal;
  return failed ? ExitFindings : ExitClean;
}

/// Checks that fail without a message say nothing against the records, so only errors stand in the
/// way of the layout.
int Compilation::printLayout() {
  if (hasErrors() && !request.keepGoing) {
    llvm::errs() << "tarka: no layout of " << file
                 << " is printed: the errors above come first; --keep-going prints it all the "
                    "same\n";
    return ExitFindings;
  }
  if (!request.layout.record.empty())
    if (auto missing = explainMissingRecord(*program, request.layout.record)) {
      llvm::errs() << "tarka: " << file << ": " << *missing << '\n';
      return ExitUnusable;
    }
  if (request.format == OutputFormat::Json)
    printLayoutJson(llvm::outs(), *program, request.layout);
  else
    printLayoutText(llvm::outs(), *program, request.layout);
  if (!flushOutput("layout"))
    return ExitInternal;
  return hasErrors() || !checksSucceeded ? ExitFindings : ExitClean;
}

/// Like the layout; with errors in it the tree tells how far the checks came.
int Compilation::printTree() {
  if (hasErrors() && !request.keepGoing) {
    llvm::errs() << "tarka: no tree of " << file
                 << " is printed: the errors above come first; --keep-going prints it all the "
                    "same\n";
    return ExitFindings;
  }
  llvm::outs().SetBuffered();
  if (request.format == OutputFormat::Json)
    printTreeJson(llvm::outs(), *program, file);
  else
    printTreeText(llvm::outs(), *program, file);
  if (!flushOutput("tree"))
    return ExitInternal;
  return hasErrors() || !checksSucceeded ? ExitFindings : ExitClean;
}

/// Does \p work, which is one compilation, in a thread with stack enough.
void compile(llvm::function_ref<void()> work) {
#ifdef TARKA_MIMALLOC
  // The elements of lists lie on huge pages, as the tree itself does.
  mi_option_enable(mi_option_large_os_pages);
#endif
  llvm::thread worker(std::optional<unsigned>(stackSize), work);
  worker.join();
}

/// Carries out the command on one file in this process.
int runHere(const Request &request, const std::string &file) {
  int status = ExitInternal;
  compile([&] { status = Compilation(request, file).run(); });
  return status;
}

} // namespace

void writeReport(const Request &request, llvm::raw_ostream &out) {
  compile([&] {
    Compilation compilation(request, request.files.front());
    if (compilation.check())
      compilation.report(out);
  });
}

int carryOut(const Request &request) {
  if (request.command == Command::Explain)
    return explain(request);
  if (request.files.size() == 1)
    return runHere(request, request.files.front());
  return runWorkers(request.files, request.jobs,
                    [&](const std::string &file) { return runHere(request, file); });
}

} // namespace tarka
