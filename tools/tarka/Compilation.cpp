//===- Compilation.cpp - one program from its source to a report ----------===//

#include "Compilation.h"
#include "AST/Program.h"
#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CFGVerifier.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/TopLevel.h"
#include "Depfile.h"
#include "FileMemory.h"
#include "Findings.h"
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
#include "Report/Repairs.h"
#include "Report/SourceOrder.h"
#include "ReportCache.h"
#include "ReportRun.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/VirtualFileSystem.h"
#include "llvm/Support/raw_ostream.h"
#include "llvm/Support/thread.h"

namespace tarka {

bool Compilation::analyse(std::string &failure) {
  llvm::StringRef baseName = llvm::sys::path::filename(file);
  CompileSettings settings = request.compile;
  settings.enableOsvs = request.parse.osvs;
  TopLevel::beginCompilation(baseName.str(), settings);

  ParseOptions options = request.parse;
  if (memory && !options.fileSystem) {
    memory->beginProgram();
    options.fileSystem = memory;
  }
  if (ReportCache::isWanted(request) || Depfile(request).isWanted()) {
    dependencies = llvm::makeIntrusiveRefCnt<DependencyRecorder>(
        options.fileSystem ? options.fileSystem : llvm::vfs::getRealFileSystem());
    options.fileSystem = dependencies;
  }
  llvm::ErrorOr<Program *> parsed =
      parseProgram(file, baseName, options, frontEnd, recordsExpansion ? &expansion : nullptr);
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
  if (request.all)
    addSuppressed(report.diagnostics, file, frontEnd, lines);
  const bool isComplete = !isFrontEndOnly() && !frontEnd.hasFatalError();
  selectFindings(report.diagnostics, file, isComplete, request.selection, lines);
  if (!request.all)
    hideConsequences(report.diagnostics);
  if (request.fix)
    applyFixes(report.diagnostics);
  setFingerprints(report.diagnostics);
  orderBySource(report.diagnostics, internFileName(file), frontEnd.getCopies());
  const bool isReport = request.command == Command::Check && !recordsExpansion;
  if (isReport && !request.all && !request.fix)
    explainByRepairs(report.diagnostics);
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

/// \p request with \p text in the place of what the file has in \p files.
static Request withText(const Request &request, llvm::StringRef file, llvm::StringRef text,
                        llvm::IntrusiveRefCntPtr<llvm::vfs::FileSystem> files) {
  auto memory = llvm::makeIntrusiveRefCnt<llvm::vfs::InMemoryFileSystem>();
  auto overlay = llvm::makeIntrusiveRefCnt<llvm::vfs::OverlayFileSystem>(std::move(files));
  llvm::SmallString<128> path(file);
  overlay->makeAbsolute(path);
  // The text was decoded, whatever the encoding of the files is.
  const std::string mark = request.parse.encoding.empty() ? "" : byteOrderMark.str();
  memory->addFile(path, 0, llvm::MemoryBuffer::getMemBufferCopy(mark + text.str()));
  overlay->pushOverlay(memory);
  Request changed = request;
  changed.parse.fileSystem = overlay;
  changed.cache = changed.writeDepfile = false;
  return changed;
}

/// All that was found, whatever is selected, without consequences.
std::vector<Diagnostic> Compilation::collectCauses() {
  std::vector<Diagnostic> findings = collectFindings(file, frontEnd, handler, secondPass, lines);
  hideConsequences(findings);
  return findings;
}

/// Where a small change of the source leaves only part of \p findings, keeps one of those that are
/// gone. The work is bounded, because most wrong programs have several mistakes.
void Compilation::explainByRepairs(std::vector<Diagnostic> &findings) {
  constexpr std::size_t maxFindings = 30;
  constexpr std::size_t maxLines = 60000; // of all changed sources together
  const auto isWrong = [](const Diagnostic &one) { return isError(one.severity); };
  if (findings.size() < 2 || findings.size() > maxFindings || llvm::none_of(findings, isWrong))
    return;
  const unsigned number = internFileName(file);
  const llvm::StringRef text = lines.textOf(number);
  const SourceFormat format =
      request.parse.format == SourceFormat::Auto ? detectSourceFormat(text) : request.parse.format;
  llvm::IntrusiveRefCntPtr<llvm::vfs::FileSystem> files = request.parse.fileSystem;
  if (!files && memory)
    files = memory;
  if (!files)
    files = llvm::vfs::getRealFileSystem();

  // A change must not cause what the user does not want to see, either.
  const std::vector<Diagnostic> causes = collectCauses();
  std::size_t linesLeft = maxLines;
  const std::size_t size = text.count('\n') + 1;
  const Repair *best = nullptr;
  std::vector<Diagnostic> leastFindings;
  std::size_t mostExplained = 1;
  const std::vector<Repair> repairs =
      likelyRepairs(text, format == SourceFormat::Fixed, number, findings);
  for (const Repair &repair : repairs) {
    if (linesLeft < size)
      break;
    linesLeft -= size;
    const Request changed = withText(request, file, repair.text, files);
    Compilation trial(changed, file);
    std::string failure;
    if (!trial.analyse(failure))
      continue;
    std::vector<Diagnostic> remaining = trial.collectCauses();
    const std::size_t explained = countExplained(causes, remaining);
    if (explained <= mostExplained)
      continue;
    mostExplained = explained;
    best = &repair;
    leastFindings = std::move(remaining);
    if (leastFindings.empty())
      break;
  }
  if (best)
    explainBy(*best, findings, leastFindings);
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

void compile(llvm::function_ref<void()> work) {
  static thread_local bool hasStack = false;
  if (hasStack) {
    work();
    return;
  }
  llvm::thread thread(std::optional<unsigned>(compilationStack), [work] {
    hasStack = true;
    work();
  });
  thread.join();
}

} // namespace tarka
