//===- ReportRun.cpp - the report of one run ------------------------------===//

#include "ReportRun.h"
#include "Explanations.h"
#include "Inputs.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/Process.h"

namespace tarka {

namespace {

/// Whether standard error is a terminal that shows colors; TERM=dumb is none.
bool isTerminal() {
  return llvm::sys::Process::StandardErrIsDisplayed();
}

ReportForm formOf(const Request &request) {
  if (request.reportForm != ReportForm::Auto)
    return request.reportForm;
  return isTerminal() && (request.output.empty() || request.command != Command::Check)
             ? ReportForm::Pretty
             : ReportForm::Classic;
}

bool isForMachines(ReportForm form) {
  return form != ReportForm::Classic && form != ReportForm::Pretty;
}

/// Whether the report of \p request is the result of the command and no message beside it.
bool goesToFile(const Request &request) {
  return request.command == Command::Check && !request.output.empty();
}

bool usesColor(const Request &request) {
  if (request.color != ColorChoice::Auto)
    return request.color == ColorChoice::Always;
  const std::optional<std::string> noColor = llvm::sys::Process::GetEnv("NO_COLOR");
  return !goesToFile(request) && (!noColor || noColor->empty()) &&
         llvm::sys::Process::StandardErrHasColors();
}

std::string titleOf(int number) {
  const DiagnosticRow *row = findDiagnosticRow(static_cast<unsigned>(number));
  return row ? row->shownMessage() : "";
}

RuleText ruleOf(int number) {
  RuleText rule;
  if (const DiagnosticRow *row = findDiagnosticRow(static_cast<unsigned>(number))) {
    rule.name = row->enumerator;
    rule.message = row->shownMessage();
    rule.severity = row->severity;
    if (std::optional<Explanation> explanation = explanationOf(row->name))
      rule.rule = explanation->rule;
  }
  return rule;
}

} // namespace

bool showsSummary(const Request &request) {
  if (request.command != Command::Check)
    return false;
  return request.statistics || (formOf(request) == ReportForm::Pretty && isTerminal());
}

ReportRun::ReportRun(const Request &driverRequest) : request(driverRequest) {
  if (goesToFile(request)) {
    output.emplace(request.output);
    if (!output->isOpen()) {
      status = ExitInternal;
      return;
    }
    out = &output->stream();
  } else if (isForMachines(formOf(request))) {
    out = &output.emplace("").stream();
  } else {
    out = &llvm::errs();
    out->SetBuffered();
  }
  if (!openBaseline())
    return;
  sink = makeSink(*out);
  Reporter::Options options;
  options.known = known ? &*known : nullptr;
  options.record = request.writeBaseline.empty() ? nullptr : &record;
  options.maxErrors = request.maxErrors;
  options.mergeCopybooks = namesSeveralPrograms(request.files);
  options.listPrograms = isForMachines(formOf(request));
  reporter = std::make_unique<Reporter>(*sink, options);
  reporter->begin({TARKA_VERSION, request.commandLine});
}

bool ReportRun::openBaseline() {
  if (request.baseline.empty())
    return true;
  llvm::Expected<Baseline> baseline = Baseline::read(request.baseline);
  if (!baseline) {
    llvm::errs() << "tarka: " << llvm::toString(baseline.takeError()) << '\n';
    llvm::errs().flush();
    status = ExitUnusable;
    return false;
  }
  known = std::move(*baseline);
  return true;
}

std::unique_ptr<Sink> ReportRun::makeSink(llvm::raw_ostream &stream) {
  switch (formOf(request)) {
  case ReportForm::Auto:
  case ReportForm::Classic:
    return makeClassicSink(stream);
  case ReportForm::Pretty:
    return makePrettySink(stream, usesColor(request));
  case ReportForm::Json:
    return makeJsonSink(stream);
  case ReportForm::Ndjson:
    return makeNdjsonSink(stream);
  case ReportForm::Sarif:
    // Standard output cannot be split.
    if (goesToFile(request))
      return makeSarifSink(stream, ruleOf, [this] { return openNextFile(); });
    return makeSarifSink(stream, ruleOf);
  case ReportForm::Github:
    return makeGithubSink(stream);
  case ReportForm::Junit:
    return makeJunitSink(stream);
  case ReportForm::Gcc:
    return makeGccSink(stream);
  }
  llvm_unreachable("not a form of the report");
}

/// report.sarif is followed by report-2.sarif.
llvm::raw_ostream *ReportRun::openNextFile() {
  llvm::SmallString<128> path(request.output);
  const std::string extension = llvm::sys::path::extension(path).str();
  llvm::sys::path::replace_extension(path, "");
  path += "-" + std::to_string(furtherFiles.size() + 2) + extension;
  furtherFiles.push_back(std::make_unique<OutputFile>(std::string(path)));
  llvm::raw_ostream *stream = furtherFiles.back()->stream();
  if (!stream) {
    llvm::errs() << "tarka: cannot write " << path << ": " << furtherFiles.back()->getError()
                 << '\n';
    furtherFiles.pop_back();
    status = ExitInternal;
  }
  return stream;
}

void ReportRun::take(FileReport report) {
  const bool isReported = request.writeBaseline.empty();
  if (!report.failure.empty()) {
    flush();
    llvm::errs() << "tarka: " << report.failure << '\n';
    status = std::max<int>(status, ExitUnusable);
  }
  if (report.failedSilently && isReported) {
    flush();
    llvm::errs() << "tarka: " << report.file
                 << ": the checks failed without finding anything; this is a fault of tarka\n";
    status = std::max<int>(status, ExitFindings);
  }
  reporter->take(std::move(report));
  flush();
}

void ReportRun::takeCrash(const std::string &file, const std::string &reason) {
  flush();
  llvm::errs() << "tarka: " << file << ": " << reason << '\n';
  FileReport report;
  report.file = file;
  report.failure = reason;
  status = ExitInternal;
  reporter->take(std::move(report));
  flush();
}

void ReportRun::interrupt(int signal) {
  flush();
  llvm::errs() << "tarka: stopped; only " << reporter->getFiles()
               << (reporter->getFiles() == 1 ? " program is" : " programs are") << " reported\n";
  // What a shell makes of a program that the signal ends.
  status = 128 + signal;
}

void ReportRun::takeUnreadable(const std::string &name, const std::string &reason) {
  FileReport report;
  report.file = name;
  report.failure = reason;
  take(std::move(report));
}

bool ReportRun::flush() {
  if (out != &llvm::errs())
    return true;
  out->flush();
  if (!llvm::errs().has_error())
    return true;
  // Where the report cannot be written nothing else can be said either.
  llvm::errs().clear_error();
  status = ExitInternal;
  return false;
}

bool ReportRun::writeBaseline() {
  OutputFile file(request.writeBaseline);
  if (file.stream()) {
    record.write(*file.stream());
    file.commit();
  }
  if (!file.getError().empty()) {
    llvm::errs() << "tarka: cannot write " << request.writeBaseline << ": " << file.getError()
                 << '\n';
    return false;
  }
  llvm::errs() << "tarka: " << record.size() << (record.size() == 1 ? " finding" : " findings")
               << " written to " << request.writeBaseline << '\n';
  return true;
}

int ReportRun::finish() {
  RunSummary &summary = reporter->finish();
  if (summary.errors > 0)
    status = std::max<int>(status, ExitFindings);
  if (request.exitZero && status == ExitFindings)
    status = ExitClean;
  summary.exitStatus = status;
  summary.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  const bool isFull = reporter->isFull();
  reporter->end();
  flush();

  if (isFull)
    llvm::errs() << "tarka: " << request.maxErrors
                 << (request.maxErrors == 1 ? " error" : " errors")
                 << " reported, the rest is not shown\n";
  if (known && summary.gone) {
    llvm::errs() << "tarka: these findings of the baseline no longer occur:\n";
    for (const std::string &line : known->remaining())
      llvm::errs() << "  " << line << '\n';
  }
  if (showsSummary(request)) {
    if (formOf(request) == ReportForm::Pretty && !summary.numbers.empty())
      llvm::errs() << '\n';
    printSummary(llvm::errs(), summary, usesColor(request), titleOf);
  }
  if (!request.writeBaseline.empty() && !writeBaseline())
    status = ExitInternal;
  llvm::errs().flush();
  if (output && !output->finish("report"))
    status = ExitInternal;
  for (const std::unique_ptr<OutputFile> &file : furtherFiles)
    if (!file->commit()) {
      llvm::errs() << "tarka: cannot write the report: " << file->getError() << '\n';
      status = ExitInternal;
    }
  llvm::errs().flush();
  return status;
}

} // namespace tarka
