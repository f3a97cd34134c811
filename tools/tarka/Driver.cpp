//===- Driver.cpp - carrying out a command --------------------------------===//

#include "Driver.h"
#include "AST/Program.h"
#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CFGVerifier.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/ErrorHandler.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/TopLevel.h"
#include "Configuration.h"
#include "Depfile.h"
#include "Explain.h"
#include "Findings.h"
#include "Generate.h"
#include "Inputs.h"
#include "OutputFile.h"
#include "Parse/Dependencies.h"
#include "Parse/Expansion.h"
#include "Parse/Parse.h"
#include "Parse/SourceFile.h"
#include "Print/PrintExpansion.h"
#include "Print/PrintFlow.h"
#include "Print/PrintGraph.h"
#include "Print/PrintItems.h"
#include "Print/PrintLayout.h"
#include "Print/PrintTree.h"
#include "ProgramRun.h"
#include "Report/Consequences.h"
#include "Report/Fixes.h"
#include "Report/Reporter.h"
#include "Report/SourceOrder.h"
#include "ReportCache.h"
#include "ReportRun.h"
#include "SourceLines.h"
#include "Verify.h"
#include "Workers/Interrupt.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/raw_ostream.h"
#include "llvm/Support/thread.h"
#ifdef TARKA_MIMALLOC
#include <mimalloc.h>
#endif

namespace tarka {

namespace {

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
  /// What the front end has read; null where nothing asks for it.
  DependencyRecorder *getDependencies() { return dependencies.get(); }
  /// Prints what the program copies, as the report asks for; gives the exit status.
  int listCopybooks(llvm::raw_ostream &out);
  /// Prints what the command asks for, after check().
  int print();

private:
  /// False when the file cannot be read.
  bool analyse(std::string &failure);
  void hideConsequences(std::vector<Diagnostic> &findings);
  void applyFixes(std::vector<Diagnostic> &findings);
  int printGraph(CommandOutput &output);
  GraphView drawableView(const CFGModule &module) const;
  int printLayout(CommandOutput &output);
  int printTree(CommandOutput &output);
  int printExpansion(CommandOutput &output);
  /// Whether the program is read and not checked.
  bool isFrontEndOnly() const {
    return request.syntaxOnly || request.command == Command::Expand || request.listCopybooks;
  }
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
  if (ReportCache::isWanted(request) || Depfile(request).isWanted()) {
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
  checksSucceeded = isFrontEndOnly() || checker.semanticCheck(*program);
  if (request.command == Command::Check && !isFrontEndOnly())
    secondPass = checkLanguage(*program, frontEnd, handler);
  return true;
}

FileReport Compilation::check() {
  FileReport report;
  report.file = file;
  const bool isRead = analyse(report.failure);
  if (Depfile(request).isWanted())
    report.inputs = watchedPaths(dependencies->getDependencies(), *llvm::vfs::getRealFileSystem());
  if (!isRead)
    return report;
  report.failedSilently =
      request.command == Command::Check && !checksSucceeded && !hasErrors() && secondPass.empty();
  if (showsSummary(request))
    report.lines = lines.textOf(internFileName(file)).count('\n');
  report.diagnostics = collectFindings(file, frontEnd, handler, secondPass, lines);
  const bool isComplete = !isFrontEndOnly() && !frontEnd.hasFatalError();
  selectFindings(report.diagnostics, file, isComplete, request.selection, lines);
  if (!request.all)
    hideConsequences(report.diagnostics);
  if (request.fix)
    applyFixes(report.diagnostics);
  setFingerprints(report.diagnostics);
  orderBySource(report.diagnostics, internFileName(file), frontEnd.getCopies());
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

void Compilation::hideConsequences(std::vector<Diagnostic> &findings) {
  const SourceDamage &damage = frontEnd.getDamage();
  auto contains = [&](const SourceRange &place) { return damage.contains(place); };
  auto findName = [&](llvm::StringRef name) { return damage.findName(name); };
  removeConsequences(findings, *program, {contains, findName},
                     [&](unsigned source, unsigned number) { return lines.line(source, number); });
}

/// Makes the changes that are certain, and takes what they correct out of \p findings.
void Compilation::applyFixes(std::vector<Diagnostic> &findings) {
  // Standard input has no place to write to. What was decoded or has a mark could not be written
  // back as it was.
  auto contents = llvm::MemoryBuffer::getFile(file);
  const llvm::StringRef text = lines.textOf(internFileName(file));
  const bool isStandardInput = request.parse.fileSystem && file == request.stdinName;
  if (isStandardInput || !contents || (*contents)->getBuffer() != text)
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
  // Names that stand for nothing leave holes in the graph, which are not faults of the builder.
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
    if (!request.item.empty()) {
      if (auto missing = explainMissingItem(*module, request.item)) {
        llvm::errs() << "tarka: " << file << ": " << *missing << '\n';
        return ExitUnusable;
      }
      if (request.format == OutputFormat::Json)
        printItemsJson(output.stream(), *module, request.item);
      else
        printItemsText(output.stream(), *module, request.item);
    } else if (request.format == OutputFormat::Json)
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
  llvm::thread worker(std::optional<unsigned>(compilationStack), work);
  worker.join();
}

/// The programs of a run whose configuration can be read.
class ConfiguredInputs {
public:
  ConfiguredInputs(const Request &request, Configuration &configured, Inputs::FaultHandler handler)
      : configuration(configured), fault(handler), inputs(request, std::move(handler)) {}

  std::optional<std::string> next() {
    while (std::optional<std::string> file = inputs.next()) {
      llvm::Expected<const ConfigurationFile *> configured = configuration.fileFor(*file);
      if (configured)
        return file;
      const std::string reason = llvm::toString(configured.takeError());
      if (reported.insert(reason).second)
        fault(*file, reason + "; the programs below it are not analysed");
    }
    return std::nullopt;
  }

private:
  Configuration &configuration;
  Inputs::FaultHandler fault;
  Inputs inputs;
  llvm::StringSet<> reported;
};

/// Prints what each of the programs copies.
int listCopybooks(const Request &request, Configuration &configuration) {
  CommandOutput output(request.output);
  if (!output.isOpen())
    return ExitInternal;
  const bool isJson = request.reportForm == ReportForm::Json;
  if (isJson)
    output.stream() << "{\"version\":1,\"programs\":[";
  int status = ExitClean;
  llvm::ListSeparator comma(",\n");
  auto listOne = [&](const std::string &file, llvm::raw_ostream &answer) {
    const Request own = llvm::cantFail(configuration.requestFor(file));
    int result = ExitInternal;
    compile([&] { result = Compilation(own, file).listCopybooks(answer); });
    return result;
  };
  ConfiguredInputs inputs(request, configuration,
                          [&](const std::string &, const std::string &reason) {
                            llvm::errs() << "tarka: " << reason << '\n';
                            status = std::max<int>(status, ExitUnusable);
                          });
  auto next = [&] { return inputs.next(); };
  const int signal = runPrograms(request, next, listOne, [&](const ProgramResult &result) {
    if (!result.failure.empty())
      llvm::errs() << "tarka: " << result.file << ": " << result.failure << '\n';
    else if (isJson && !result.answer.empty())
      output.stream() << comma << result.answer;
    else
      output.stream() << result.answer;
    status = std::max(status, result.failure.empty() ? result.exitStatus : ExitInternal);
    return true;
  });
  if (signal)
    endBySignal(signal);
  if (isJson)
    output.stream() << "]}\n";
  return output.finish("list") ? status : ExitInternal;
}

/// Checks the programs and reports.
int checkFiles(const Request &request, Configuration &configuration) {
  ReportRun run(request);
  if (!run.isOpen())
    return run.getStatus();
  Depfile depfile(request);
  ReportCache cache(request);
  auto checkOne = [&](const std::string &file, llvm::raw_ostream &answer) -> int {
    const Request own = llvm::cantFail(configuration.requestFor(file));
    compile([&] {
      Compilation compilation(own, file);
      const FileReport report = compilation.check();
      std::string bytes;
      llvm::raw_string_ostream stream(bytes);
      serialize(stream, report);
      if (DependencyRecorder *dependencies = compilation.getDependencies())
        cache.store(own, file, *dependencies, bytes);
      answer << bytes;
    });
    return ExitClean;
  };
  ConfiguredInputs inputs(request, configuration,
                          [&](const std::string &name, const std::string &reason) {
                            run.takeUnreadable(name, reason);
                          });
  auto next = [&] { return inputs.next(); };
  const int signal = runPrograms(
      request, next, checkOne,
      [&](const ProgramResult &result) {
        std::optional<FileReport> report = deserializeFileReport(result.answer);
        if (report && result.failure.empty()) {
          depfile.add(report->inputs);
          if (const ConfigurationFile *used = llvm::cantFail(configuration.fileFor(report->file)))
            depfile.add(used->getPath());
          run.take(std::move(*report));
        } else {
          run.takeCrash(result.file.str(),
                        result.failure.empty() ? "its worker did not answer" : result.failure);
        }
        return !run.isFull();
      },
      [&](const std::string &file) {
        return cache.find(llvm::cantFail(configuration.requestFor(file)), file);
      });
  if (signal)
    run.interrupt(signal);
  cache.prune();
  const int status = depfile.write() ? run.finish() : std::max<int>(run.finish(), ExitInternal);
  if (signal)
    endBySignal(signal);
  return status;
}

int verifyFiles(const Request &request, Configuration &configuration) {
  auto verifyOne = [&](const std::string &file) {
    const Request own = llvm::cantFail(configuration.requestFor(file));
    int status = ExitInternal;
    compile([&] { status = Compilation(own, file).verify(); });
    return status;
  };
  int status = ExitClean;
  ConfiguredInputs inputs(request, configuration,
                          [&](const std::string &, const std::string &reason) {
                            llvm::errs() << "tarka: " << reason << '\n';
                            status = std::max<int>(status, ExitUnusable);
                          });
  const int signal = runPrograms(
      request, [&] { return inputs.next(); },
      [&](const std::string &file, llvm::raw_ostream &) { return verifyOne(file); },
      [&](const ProgramResult &result) {
        if (!result.failure.empty())
          llvm::errs() << "tarka: " << result.file << ": " << result.failure << '\n';
        status = std::max(status, result.failure.empty() ? result.exitStatus : ExitInternal);
        return true;
      });
  if (signal)
    endBySignal(signal);
  return status;
}

/// Reports what is wrong with the file, then prints what was asked for.
int printFile(const Request &request) {
  int status = ExitInternal;
  compile([&] {
    const std::string &operand = request.files.front();
    const std::string file = operand == standardInput ? request.stdinName : operand;
    Compilation compilation(request, file);
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

/// Reads standard input, when an operand stands for it, into a file system of \p request that has
/// it under its name. False, after a message, when it cannot be read.
static bool readStandardInput(Request &request) {
  if (!llvm::is_contained(request.files, standardInput))
    return true;
  auto buffer = llvm::MemoryBuffer::getSTDIN();
  if (!buffer) {
    llvm::errs() << "tarka: cannot read standard input: " << buffer.getError().message() << '\n';
    return false;
  }
  llvm::SmallString<128> path(request.stdinName);
  auto memory = llvm::makeIntrusiveRefCnt<llvm::vfs::InMemoryFileSystem>();
  auto files =
      llvm::makeIntrusiveRefCnt<llvm::vfs::OverlayFileSystem>(llvm::vfs::getRealFileSystem());
  if (llvm::sys::fs::make_absolute(path))
    path = request.stdinName; // the current directory is gone
  memory->addFile(path, 0, std::move(*buffer));
  files->pushOverlay(memory);
  request.parse.fileSystem = files;
  return true;
}

/// Where the search begins for the configuration of a run: its first operand.
static std::string placeOfRun(const Request &request) {
  const std::string &operand = request.files.front();
  if (operand == standardInput)
    return request.stdinName;
  return llvm::StringRef(operand).starts_with("@") ? "." : operand;
}

int carryOut(Request request) {
  switch (request.command) {
  case Command::Explain:
    return explain(request);
  case Command::Generate:
    return generate(request);
  case Command::Config:
    return printConfiguration(request);
  case Command::Init:
    return initializeConfiguration(request);
  default:
    break;
  }
  if (!readStandardInput(request))
    return ExitUnusable;
  Configuration configuration(request);
  const std::string place = placeOfRun(request);
  if (llvm::Error error = configuration.beginRun(place)) {
    llvm::errs() << "tarka: " << llvm::toString(std::move(error)) << '\n';
    return ExitUnusable;
  }
  const Request configured = llvm::cantFail(configuration.requestFor(place));
  if (configured.command != Command::Check)
    return printFile(configured);
  if (configured.listCopybooks)
    return listCopybooks(configured, configuration);
  return configured.verify ? verifyFiles(configured, configuration)
                           : checkFiles(configured, configuration);
}

} // namespace tarka
