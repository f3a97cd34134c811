//===- Driver.cpp - carrying out a command --------------------------------===//

#include "Driver.h"
#include "Compilation.h"
#include "Configuration.h"
#include "Depfile.h"
#include "Explain.h"
#include "FileMemory.h"
#include "Generate.h"
#include "Inputs.h"
#include "OutputFile.h"
#include "ProgramRun.h"
#include "Report/Reporter.h"
#include "ReportCache.h"
#include "ReportRun.h"
#include "Verify.h"
#include "Workers/Interrupt.h"
#include "lsp/LanguageServer.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

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
  const auto memory = llvm::makeIntrusiveRefCnt<FileMemory>();
  auto listOne = [&](const std::string &file, llvm::raw_ostream &answer) {
    const Request own = llvm::cantFail(configuration.requestFor(file));
    int result = ExitInternal;
    compile([&] {
      Compilation compilation(own, file);
      compilation.setFileMemory(*memory);
      result = compilation.listCopybooks(answer);
    });
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
  const auto memory = llvm::makeIntrusiveRefCnt<FileMemory>();
  auto checkOne = [&](const std::string &file, llvm::raw_ostream &answer) -> int {
    const Request own = llvm::cantFail(configuration.requestFor(file));
    compile([&] {
      Compilation compilation(own, file);
      compilation.setFileMemory(*memory);
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
  const auto memory = llvm::makeIntrusiveRefCnt<FileMemory>();
  auto verifyOne = [&](const std::string &file) {
    const Request own = llvm::cantFail(configuration.requestFor(file));
    int status = ExitInternal;
    compile([&] {
      Compilation compilation(own, file);
      compilation.setFileMemory(*memory);
      status = compilation.verify();
    });
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
  case Command::Lsp:
    return serveEditor(request);
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
