//===- Driver.cpp - carrying out a command --------------------------------===//

#include "Driver.h"
#include "AST/Program.h"
#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CFGVerifier.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/ErrorHandler.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/TopLevel.h"
#include "Depfile.h"
#include "Explain.h"
#include "Findings.h"
#include "Generate.h"
#include "OutputFile.h"
#include "Parse/Dependencies.h"
#include "Parse/Expansion.h"
#include "Parse/Parse.h"
#include "Parse/SourceFile.h"
#include "Print/PrintExpansion.h"
#include "Print/PrintFlow.h"
#include "Print/PrintGraph.h"
#include "Print/PrintLayout.h"
#include "Print/PrintTree.h"
#include "Report/Consequences.h"
#include "Report/Fixes.h"
#include "Report/Reporter.h"
#include "ReportRun.h"
#include "SourceLines.h"
#include "Verify.h"
#include "Workers.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/raw_ostream.h"
#include "llvm/Support/thread.h"
#ifdef TARKA_MIMALLOC
#include <mimalloc.h>
#endif

namespace tarka {

namespace {

/// The tree is walked by recursion, as deep as the source nests and as long as its chains of
/// operators are; this much stack is reserved for it, and what is not used costs nothing.
constexpr unsigned stackSize = 1u << 30;

/// One file on its way through reading, checks and what is printed of it.
class Compilation {
public:
  Compilation(const Request &driverRequest, const std::string &source)
      : request(driverRequest), file(source), lines(driverRequest.parse),
        expansion(driverRequest.command == Command::Expand) {}

  /// Reads and checks the file and gives what is to be reported of it.
  FileReport check();
  /// The same for --verify: compares what was found with what the source expects.
  int verify();
  /// Prints what the program copies, as the report asks for; gives the exit status.
  int listCopybooks(llvm::raw_ostream &out);
  /// Prints what the command asks for, after check().
  int print();

private:
  /// False when the file cannot be read.
  bool analyse(std::string &failure);
  void applyFixes(std::vector<Diagnostic> &findings);
  int printGraph(CommandOutput &output);
  GraphView drawableView(const CFGModule &module) const;
  int printLayout(CommandOutput &output);
  int printTree(CommandOutput &output);
  int printExpansion(CommandOutput &output);
  bool hasErrors() const { return frontEnd.hasErrors() || handler.getErrorCount() > 0; }

  const Request &request;
  const std::string &file;
  SourceLines lines;
  FrontEndDiagnostics frontEnd;
  ErrorHandler handler;
  /// What the second pass has found; only check runs it.
  std::vector<ErrorEntry> secondPass;
  PartResults parts{handler};
  Expansion expansion;
  /// What the front end reads; null unless something asks for it.
  llvm::IntrusiveRefCntPtr<DependencyRecorder> dependencies;
  Program *program = nullptr;
  bool checksSucceeded = false;
};

bool Compilation::analyse(std::string &failure) {
  llvm::StringRef baseName = llvm::sys::path::filename(file);
  CompileSettings settings = request.compile;
  settings.enableOsvs = request.parse.osvs;
  TopLevel::beginCompilation(baseName.str(), settings);

  ParseOptions options = request.parse;
  if (!request.depfileTargets.empty() || request.writeDepfile || !request.depfile.empty()) {
    dependencies = llvm::makeIntrusiveRefCnt<DependencyRecorder>(
        options.fileSystem ? options.fileSystem : llvm::vfs::getRealFileSystem());
    options.fileSystem = dependencies;
  }
  const bool isExpanded = request.command == Command::Expand || request.listCopybooks;
  llvm::ErrorOr<Program *> parsed =
      parseProgram(file, baseName, options, frontEnd, isExpanded ? &expansion : nullptr);
  if (!parsed) {
    failure = "cannot read " + file + ": " + parsed.getError().message();
    return false;
  }
  program = *parsed;
  SemanticChecker checker(&handler);
  if (request.verify)
    checker.setListener(&parts);
  checksSucceeded = request.syntaxOnly || checker.semanticCheck(*program);
  if (request.command == Command::Check && !request.syntaxOnly)
    secondPass = checkLanguage(*program, frontEnd, handler);
  return true;
}

FileReport Compilation::check() {
  FileReport report;
  report.file = file;
  const bool isRead = analyse(report.failure);
  if (dependencies)
    report.inputs = watchedPaths(dependencies->getDependencies(), *llvm::vfs::getRealFileSystem());
  if (!isRead)
    return report;
  report.failedSilently =
      request.command == Command::Check && !checksSucceeded && !hasErrors() && secondPass.empty();
  if (showsSummary(request))
    report.lines = lines.textOf(internFileName(file)).count('\n');
  report.diagnostics = collectFindings(file, frontEnd, handler, secondPass, lines);
  const bool isComplete = !request.syntaxOnly && !frontEnd.hasFatalError();
  selectFindings(report.diagnostics, file, isComplete, request.selection, lines);
  if (!request.all)
    removeConsequences(report.diagnostics, *program, [&](unsigned source, unsigned number) {
      return lines.line(source, number);
    });
  if (request.fix)
    applyFixes(report.diagnostics);
  setFingerprints(report.diagnostics);
  return report;
}

int Compilation::verify() {
  std::string failure;
  if (!analyse(failure)) {
    llvm::errs() << "tarka: " << failure << '\n';
    return ExitUnusable;
  }
  std::vector<Diagnostic> findings = collectFindings(file, frontEnd, handler, secondPass, lines);
  const bool isComplete = !request.syntaxOnly && !frontEnd.hasFatalError();
  selectFindings(findings, file, isComplete, request.selection, lines);
  parts.finish(file, checksSucceeded);
  return verifyReport(file, request.parse.encoding, findings, request.syntaxOnly ? nullptr : &parts,
                      llvm::errs())
             ? ExitClean
             : ExitFindings;
}

/// Makes the changes that are certain, and takes what they correct out of \p findings.
void Compilation::applyFixes(std::vector<Diagnostic> &findings) {
  // What was decoded or has a mark could not be written back as it was.
  auto contents = llvm::MemoryBuffer::getFile(file);
  const llvm::StringRef text = lines.textOf(internFileName(file));
  if (!contents || (*contents)->getBuffer() != text)
    return;
  const SourceFormat format =
      request.parse.format == SourceFormat::Auto ? detectSourceFormat(text) : request.parse.format;
  FixedSource source(text, format == SourceFormat::Fixed);
  std::vector<Diagnostic> rest;
  const std::vector<Diagnostic> all = request.diff ? findings : std::vector<Diagnostic>();
  for (Diagnostic &diagnostic : findings)
    if (diagnostic.fix.empty() || !source.apply(diagnostic.fix))
      rest.push_back(std::move(diagnostic));
  const std::size_t fixes = findings.size() - rest.size();
  if (fixes == 0) {
    findings = std::move(rest);
    return;
  }
  if (request.diff) {
    // Nothing is changed, so everything is still to be reported.
    source.printDiff(llvm::outs(), file);
    llvm::outs().flush();
    findings = all;
    return;
  }
  OutputFile output(file);
  if (output.stream()) {
    *output.stream() << source.getText();
    output.commit();
  }
  if (!output.getError().empty()) {
    llvm::errs() << "tarka: " << file << " cannot be changed: " << output.getError() << '\n';
    return;
  }
  llvm::errs() << "tarka: " << file << ": " << fixes << (fixes == 1 ? " fix\n" : " fixes\n");
  findings = std::move(rest);
}

int Compilation::listCopybooks(llvm::raw_ostream &out) {
  std::string failure;
  if (!analyse(failure)) {
    llvm::errs() << "tarka: " << failure << '\n';
    return ExitUnusable;
  }
  if (request.reportForm == ReportForm::Json)
    printCopiesJson(out, file, expansion);
  else
    printCopiesText(out, file, expansion);
  const bool isMissing = llvm::any_of(expansion.getCopies(), [](const CopyUse &use) {
    return use.outcome == CopyUse::Outcome::Missing;
  });
  return isMissing ? ExitFindings : ExitClean;
}

int Compilation::printExpansion(CommandOutput &output) {
  output.stream().SetBuffered();
  if (request.format == OutputFormat::Json)
    printExpansionJson(output.stream(), expansion);
  else
    printExpansionText(output.stream(), expansion, request.expansion);
  if (!output.finish("text"))
    return ExitInternal;
  return hasErrors() ? ExitFindings : ExitClean;
}

int Compilation::print() {
  CommandOutput output(request.output);
  if (!output.isOpen())
    return ExitInternal;
  if (request.command == Command::Cfg || request.command == Command::Flow)
    return printGraph(output);
  if (request.command == Command::Expand)
    return printExpansion(output);
  return request.command == Command::Layout ? printLayout(output) : printTree(output);
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

int Compilation::printGraph(CommandOutput &output) {
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
      printFlowJson(output.stream(), *module);
    else
      printFlowText(output.stream(), *module);
    return !output.finish("flow") ? ExitInternal : failed ? ExitFindings : ExitClean;
  }

  switch (request.format) {
  case OutputFormat::Text:
    printGraphText(output.stream(), *module, request.view);
    break;
  case OutputFormat::Json:
    printGraphJson(output.stream(), *module, request.view);
    break;
  case OutputFormat::Dot:
    printGraphDot(output.stream(), *module, drawableView(*module), request.parse);
    break;
  case OutputFormat::Markdown:
    llvm_unreachable("not a form of the graph");
  }
  if (!output.finish("graph"))
    return ExitInternal;
  return failed ? ExitFindings : ExitClean;
}

/// The records are shown with whatever errors there are: most are in the procedure division and say
/// nothing against them.
int Compilation::printLayout(CommandOutput &output) {
  if (!request.layout.record.empty())
    if (auto missing = explainMissingRecord(*program, request.layout.record)) {
      llvm::errs() << "tarka: " << file << ": " << *missing << '\n';
      return ExitUnusable;
    }
  if (request.format == OutputFormat::Json)
    printLayoutJson(output.stream(), *program, request.layout);
  else
    printLayoutText(output.stream(), *program, request.layout);
  if (!output.finish("layout"))
    return ExitInternal;
  return hasErrors() || !checksSucceeded ? ExitFindings : ExitClean;
}

/// Like the layout; with errors in it the tree tells how far the checks came.
int Compilation::printTree(CommandOutput &output) {
  output.stream().SetBuffered();
  if (request.format == OutputFormat::Json)
    printTreeJson(output.stream(), *program, file);
  else
    printTreeText(output.stream(), *program, file);
  if (!output.finish("tree"))
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

/// Prints what each of the files copies.
int listCopybooks(const Request &given) {
  Request request = given;
  request.syntaxOnly = true;
  CommandOutput output(request.output);
  if (!output.isOpen())
    return ExitInternal;
  const bool isJson = request.reportForm == ReportForm::Json;
  if (isJson)
    output.stream() << "{\"version\":1,\"programs\":[";
  int status = ExitClean;
  bool isFirst = true;
  auto listOne = [&](const std::string &file, llvm::raw_ostream &answer) {
    int result = ExitInternal;
    compile([&] { result = Compilation(request, file).listCopybooks(answer); });
    return result;
  };
  runWorkers(request.files, request.jobs, listOne, [&](const WorkerResult &result) {
    if (!result.failure.empty())
      llvm::errs() << "tarka: " << result.file << ": " << result.failure << '\n';
    else if (!result.answer.empty())
      output.stream() << (isJson && !isFirst ? ",\n" : "") << result.answer;
    isFirst &= result.answer.empty();
    status = std::max(status, result.failure.empty() ? result.exitStatus : ExitInternal);
    return true;
  });
  if (isJson)
    output.stream() << "]}\n";
  return output.finish("list") ? status : ExitInternal;
}

/// Checks the files, one here or several in workers of their own, and reports.
int checkFiles(const Request &request) {
  ReportRun run(request);
  if (!run.isOpen())
    return run.getStatus();
  Depfile depfile(request);
  auto take = [&](FileReport report) {
    depfile.add(report.inputs);
    run.take(std::move(report));
  };
  auto finish = [&] {
    const int status = run.finish();
    return depfile.write() ? status : ExitInternal;
  };
  if (request.files.size() == 1) {
    compile([&] { take(Compilation(request, request.files.front()).check()); });
    return finish();
  }
  auto checkOne = [&](const std::string &file, llvm::raw_ostream &answer) -> int {
    compile([&] { serialize(answer, Compilation(request, file).check()); });
    return ExitClean;
  };
  runWorkers(request.files, request.jobs, checkOne, [&](const WorkerResult &result) {
    std::optional<FileReport> report = deserializeFileReport(result.answer);
    if (report && result.failure.empty())
      take(std::move(*report));
    else
      run.takeCrash(result.file,
                    result.failure.empty() ? "its worker did not answer" : result.failure);
    return !run.isFull();
  });
  return finish();
}

int verifyFiles(const Request &request) {
  auto verifyOne = [&](const std::string &file) {
    int status = ExitInternal;
    compile([&] { status = Compilation(request, file).verify(); });
    return status;
  };
  if (request.files.size() == 1)
    return verifyOne(request.files.front());
  int status = ExitClean;
  runWorkers(
      request.files, request.jobs,
      [&](const std::string &file, llvm::raw_ostream &) { return verifyOne(file); },
      [&](const WorkerResult &result) {
        if (!result.failure.empty())
          llvm::errs() << "tarka: " << result.file << ": " << result.failure << '\n';
        status = std::max(status, result.exitStatus);
        return true;
      });
  return status;
}

/// Reports what is wrong with the file, then prints what was asked for.
int printFile(const Request &given) {
  Request request = given;
  request.syntaxOnly = request.command == Command::Expand;
  int status = ExitInternal;
  compile([&] {
    Compilation compilation(request, request.files.front());
    ReportRun run(request);
    FileReport report = compilation.check();
    const bool isRead = report.failure.empty();
    run.take(std::move(report));
    status = run.finish();
    if (isRead && status <= ExitFindings)
      status = compilation.print();
  });
  return status;
}

} // namespace

void writeReport(const Request &request, llvm::raw_ostream &out) {
  compile([&] {
    std::unique_ptr<Sink> sink = makeClassicSink(out);
    Request complete = request;
    complete.all = true;
    for (const Diagnostic &diagnostic :
         Compilation(complete, complete.files.front()).check().diagnostics)
      sink->report(diagnostic);
  });
}

int carryOut(const Request &request) {
  if (request.command == Command::Explain)
    return explain(request);
  if (request.command == Command::Generate)
    return generate(request);
  if (request.command != Command::Check)
    return printFile(request);
  if (request.listCopybooks)
    return listCopybooks(request);
  return request.verify ? verifyFiles(request) : checkFiles(request);
}

} // namespace tarka
