//===- LanguageServer.cpp - tarka lsp -------------------------------------===//
//
// One thread, which waits for the editor and for the snapshots. It knows the
// texts that are open and which snapshot answers for which of them; what the
// texts say, only the snapshots know.
//
//===----------------------------------------------------------------------===//

#include "lsp/LanguageServer.h"
#include "Parse/SourceFile.h"
#include "ProgramRun.h"
#include "lsp/CopybookSearch.h"
#include "lsp/Document.h"
#include "lsp/Features.h"
#include "lsp/ProgramUnit.h"
#include "lsp/Snapshot.h"
#include "lsp/SnapshotProcess.h"
#include "mlir/Tools/lsp-server-support/Transport.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/raw_ostream.h"
#include <cstdio>
#include <fcntl.h>
#include <list>
#include <poll.h>
#include <unistd.h>

namespace tarka {

namespace lsp {

namespace {

using mlir::lsp::Callback;
using mlir::lsp::NoParams;
using mlir::lsp::URIForFile;

/// Parameters that are passed on, or read member by member.
struct RawParams {
  llvm::json::Value value = nullptr;
  const llvm::json::Object &object() const {
    static const llvm::json::Object none;
    const llvm::json::Object *own = value.getAsObject();
    return own ? *own : none;
  }
};
bool fromJSON(const llvm::json::Value &value, RawParams &result, llvm::json::Path) {
  result.value = value;
  return true;
}

/// The absolute path of the document that \p parameters name; none for one that is not a file.
std::optional<std::string> documentOf(const llvm::json::Object &parameters) {
  const llvm::json::Object *document = parameters.getObject("textDocument");
  if (!document)
    document = parameters.getObject("item");
  const std::optional<llvm::StringRef> text =
      document ? document->getString("uri") : parameters.getString("uri");
  if (!text)
    return std::nullopt;
  llvm::Expected<URIForFile> uri = URIForFile::fromURI(*text);
  if (uri)
    return uri->file().str();
  llvm::consumeError(uri.takeError());
  return std::nullopt;
}

/// A text that is open in the editor.
struct OpenDocument {
  Document text;
  /// The URI by which the editor knows it.
  std::string uri;
  /// The path of the program whose snapshot answers for it.
  std::string program;
  /// Of a copybook, the programs that may copy it and have not been tried, the next one last.
  std::vector<std::string> candidates;
};

/// A search for the programs of a copybook.
struct CopybookSearch {
  std::string copybook;
  std::unique_ptr<SnapshotProcess> process;
};

class LanguageServer {
public:
  explicit LanguageServer(const Request &request);

  int run();

private:
  // The session.
  void initialize(const RawParams &parameters, Callback<llvm::json::Value> reply);
  void initialized(const NoParams &) {}
  void shutdown(const NoParams &, Callback<std::nullptr_t> reply);

  // Texts.
  void didOpen(const RawParams &parameters);
  void didChange(const RawParams &parameters);
  void didClose(const RawParams &parameters);
  void didChangeFiles(const RawParams &parameters);
  void ignore(const RawParams &) {}

  // Programs.
  ProgramUnit &unitOf(const std::string &program);
  void touch(const std::string &path);
  void startAnalyses();
  void start(ProgramUnit &unit);
  void serveUnits();
  void serve(ProgramUnit &unit);
  void take(ProgramUnit &unit, llvm::json::Value analysis);
  void fail(ProgramUnit &unit, const std::string &reason);
  void adoptCopybooks(const ProgramUnit &unit);
  void searchPrograms(const std::string &copybook);
  void serveSearches();
  void tryNextProgram(const std::string &copybook);
  bool isNeeded(const ProgramUnit &unit) const;
  void removeUnused();
  void publish(ProgramUnit &unit, const llvm::json::Object &diagnostics);
  void publishFile(const std::string &path);

  // Requests.
  /// Passes the requests of one feature on to the snapshots.
  struct Forwarder {
    LanguageServer &server;
    const Feature &feature;
    void forward(const RawParams &parameters, Callback<llvm::json::Value> reply) {
      server.ask(feature, parameters, std::move(reply));
    }
  };
  void ask(const Feature &feature, const RawParams &parameters, Callback<llvm::json::Value> reply);
  void executeCommand(const RawParams &parameters, Callback<llvm::json::Value> reply);

  // Waiting.
  static ssize_t readInput(void *server, char *buffer, std::size_t size) {
    return static_cast<LanguageServer *>(server)->readInput(buffer, size);
  }
  ssize_t readInput(char *buffer, std::size_t size);
  void retire(std::unique_ptr<SnapshotProcess> process);

  /// What the command line says, as for tarka check.
  Request commandLine;
  PositionEncoding encoding = PositionEncoding::Utf16;
  std::FILE *input;
  mlir::lsp::JSONTransport transport;
  mlir::lsp::MessageHandler handler;
  std::list<Forwarder> forwarders;
  mlir::lsp::OutgoingNotification<llvm::json::Value> publishDiagnostics;
  mlir::lsp::OutgoingNotification<llvm::json::Value> logMessage;
  /// What snapshots print by mistake must not get among the messages.
  FileDescriptor nowhere;

  /// The directories that the editor works on.
  std::vector<std::string> folders;
  llvm::StringMap<OpenDocument> documents;
  llvm::StringMap<std::unique_ptr<ProgramUnit>> units;
  /// By file, then by program: what the program has found in the file.
  llvm::StringMap<std::map<std::string, llvm::json::Array>> published;
  std::list<CopybookSearch> searches;
  /// Snapshots that have been killed and have not ended yet.
  std::vector<std::unique_ptr<SnapshotProcess>> ending;
  bool isShutDown = false;
};

//===----------------------------------------------------------------------===//
// The session
//===----------------------------------------------------------------------===//

std::FILE *openInput(void *server, cookie_read_function_t *read) {
  cookie_io_functions_t functions{};
  functions.read = read;
  return fopencookie(server, "r", functions);
}

LanguageServer::LanguageServer(const Request &request)
    : commandLine(request), input(openInput(this, readInput)), transport(input, llvm::outs()),
      handler(transport), nowhere(open("/dev/null", O_WRONLY | O_CLOEXEC)) {
  commandLine.command = Command::Check;
  handler.method("initialize", this, &LanguageServer::initialize);
  handler.notification("initialized", this, &LanguageServer::initialized);
  handler.method("shutdown", this, &LanguageServer::shutdown);
  handler.notification("textDocument/didOpen", this, &LanguageServer::didOpen);
  handler.notification("textDocument/didChange", this, &LanguageServer::didChange);
  handler.notification("textDocument/didClose", this, &LanguageServer::didClose);
  handler.notification("workspace/didChangeWatchedFiles", this, &LanguageServer::didChangeFiles);
  for (llvm::StringLiteral method :
       {llvm::StringLiteral("textDocument/didSave"), llvm::StringLiteral("$/setTrace"),
        llvm::StringLiteral("$/cancelRequest"),
        llvm::StringLiteral("workspace/didChangeConfiguration")})
    handler.notification(method, this, &LanguageServer::ignore);
  for (const Feature &feature : allFeatures())
    if (!feature.isCommand())
      handler.method(feature.method, &forwarders.emplace_back(Forwarder{*this, feature}),
                     &Forwarder::forward);
  handler.method("workspace/executeCommand", this, &LanguageServer::executeCommand);
  publishDiagnostics =
      handler.outgoingNotification<llvm::json::Value>("textDocument/publishDiagnostics");
  logMessage = handler.outgoingNotification<llvm::json::Value>("window/logMessage");
}

int LanguageServer::run() {
  mlir::lsp::Logger::setLogLevel(mlir::lsp::Logger::Level::Error);
  // The transport ends without an error at "exit" only.
  llvm::Error end = transport.run(handler);
  const bool isAsked = !end;
  llvm::consumeError(std::move(end));
  std::fclose(input);
  return isAsked && isShutDown ? ExitClean : ExitFindings;
}

void LanguageServer::initialize(const RawParams &parameters, Callback<llvm::json::Value> reply) {
  if (const llvm::json::Object *capabilities = parameters.object().getObject("capabilities"))
    if (const llvm::json::Object *general = capabilities->getObject("general"))
      if (const llvm::json::Array *offered = general->getArray("positionEncodings"))
        if (llvm::is_contained(*offered, llvm::json::Value("utf-8")))
          encoding = PositionEncoding::Utf8;
  if (const llvm::json::Array *given = parameters.object().getArray("workspaceFolders")) {
    for (const llvm::json::Value &folder : *given)
      if (const llvm::json::Object *one = folder.getAsObject())
        if (std::optional<std::string> path = documentOf(*one))
          folders.push_back(std::move(*path));
  } else if (std::optional<llvm::StringRef> root = parameters.object().getString("rootUri")) {
    if (std::optional<std::string> path = documentOf(llvm::json::Object{{"uri", *root}}))
      folders.push_back(std::move(*path));
  }
  llvm::json::Object capabilities{
      {"positionEncoding", encoding == PositionEncoding::Utf8 ? "utf-8" : "utf-16"},
      {"textDocumentSync", llvm::json::Object{{"openClose", true}, {"change", 2}, {"save", true}}}};
  for (const Feature &feature : allFeatures())
    if (!feature.capability.empty())
      capabilities[feature.capability] = llvm::cantFail(llvm::json::parse(feature.options));
  llvm::json::Array commands;
  for (const Feature &feature : allFeatures())
    if (feature.isCommand())
      commands.push_back(feature.method);
  capabilities["executeCommandProvider"] = llvm::json::Object{{"commands", std::move(commands)}};
  reply(llvm::json::Object{
      {"capabilities", std::move(capabilities)},
      {"serverInfo", llvm::json::Object{{"name", "tarka"}, {"version", TARKA_VERSION}}}});
}

void LanguageServer::shutdown(const NoParams &, Callback<std::nullptr_t> reply) {
  isShutDown = true;
  for (auto &unit : units)
    unit.getValue()->stop();
  reply(nullptr);
}

//===----------------------------------------------------------------------===//
// Texts
//===----------------------------------------------------------------------===//

void LanguageServer::didOpen(const RawParams &parameters) {
  const std::optional<std::string> path = documentOf(parameters.object());
  const llvm::json::Object *document = parameters.object().getObject("textDocument");
  if (!path || !document)
    return;
  documents.erase(*path);
  OpenDocument &opened =
      documents
          .try_emplace(*path, OpenDocument{Document(document->getString("text").value_or(""),
                                                    document->getInteger("version").value_or(0)),
                                           document->getString("uri").value_or("").str(),
                                           *path,
                                           {}})
          .first->getValue();
  // A copybook belongs to a program that copies it.
  for (const auto &unit : units)
    if (unit.getValue()->copies(*path)) {
      opened.program = unit.getKey().str();
      break;
    }
  unitOf(opened.program);
  if (opened.program == *path && hasCopybookExtension(*path))
    searchPrograms(*path);
  touch(*path);
}

void LanguageServer::didChange(const RawParams &parameters) {
  const std::optional<std::string> path = documentOf(parameters.object());
  const llvm::json::Array *changes = parameters.object().getArray("contentChanges");
  if (!path || !changes)
    return;
  auto found = documents.find(*path);
  if (found == documents.end())
    return;
  const std::optional<std::int64_t> version =
      parameters.object().getObject("textDocument")->getInteger("version");
  Document &text = found->getValue().text;
  if (!text.change(*changes, version.value_or(text.getVersion() + 1), encoding))
    mlir::lsp::Logger::error("a change of {0} is not understood", *path);
  touch(*path);
}

void LanguageServer::didClose(const RawParams &parameters) {
  const std::optional<std::string> path = documentOf(parameters.object());
  if (!path || !documents.erase(*path))
    return;
  removeUnused();
  // From now on the file counts.
  touch(*path);
}

void LanguageServer::didChangeFiles(const RawParams &parameters) {
  const llvm::json::Array *changes = parameters.object().getArray("changes");
  if (!changes)
    return;
  for (const llvm::json::Value &change : *changes)
    if (const llvm::json::Object *one = change.getAsObject())
      if (const std::optional<std::string> path = documentOf(*one); path && !documents.count(*path))
        touch(*path);
  // Any new file can be a copybook that was missing, and any tarka.toml can say where it is.
  for (auto &unit : units)
    if (unit.getValue()->isIncomplete)
      unit.getValue()->isStale = true;
}

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

ProgramUnit &LanguageServer::unitOf(const std::string &program) {
  std::unique_ptr<ProgramUnit> &unit = units[program];
  if (!unit) {
    unit = std::make_unique<ProgramUnit>(program);
    unit->isStale = true;
  }
  return *unit;
}

/// The text of \p path has changed, and with it the programs that it is part of.
void LanguageServer::touch(const std::string &path) {
  const bool isConfiguration = llvm::StringRef(path).ends_with("tarka.toml");
  for (auto &unit : units)
    if (isConfiguration || unit.getKey() == path || unit.getValue()->copies(path))
      unit.getValue()->isStale = true;
}

/// Starts what has to be analysed, when everything that the editor has sent is known.
void LanguageServer::startAnalyses() {
  for (auto &unit : units)
    if (unit.getValue()->isStale)
      start(*unit.getValue());
}

void LanguageServer::retire(std::unique_ptr<SnapshotProcess> process) {
  if (!process)
    return;
  process->retire();
  ending.push_back(std::move(process));
}

void LanguageServer::start(ProgramUnit &unit) {
  unit.isStale = false;
  // A version that is typed over while it is analysed is of no use.
  retire(std::move(unit.next));
  OpenTexts texts;
  unit.versions.clear();
  for (const auto &document : documents) {
    texts[document.getKey()] = &document.getValue().text.getText();
    unit.versions[document.getKey()] = document.getValue().text.getVersion();
  }
  const SnapshotInput snapshot{commandLine, unit.path, texts, encoding};
  WorkerOptions options;
  options.standardOutput = nowhere.get();
  options.reservedBytes = compilationStack;
  options.maxBytes = std::uint64_t(commandLine.memoryLimit) << 20;
  llvm::Expected<std::unique_ptr<SnapshotProcess>> process =
      SnapshotProcess::start([&](int channel) { return runSnapshot(snapshot, channel); }, options);
  if (process)
    unit.next = std::move(*process);
  else
    fail(unit, "no process can be started: " + llvm::toString(process.takeError()));
}

void LanguageServer::serveUnits() {
  // A unit that is served may remove others.
  std::vector<std::string> names;
  for (const auto &unit : units)
    names.push_back(unit.getKey().str());
  for (const std::string &name : names)
    if (auto unit = units.find(name); unit != units.end())
      serve(*unit->getValue());
  serveSearches();
  llvm::erase_if(ending,
                 [](std::unique_ptr<SnapshotProcess> &process) { return !process->serve(); });
}

void LanguageServer::serve(ProgramUnit &unit) {
  if (unit.ready && (!unit.ready->serve() || unit.ready->isOverdue())) {
    const std::string reason = unit.ready->describeEnd();
    unit.ready.reset();
    logMessage(
        llvm::json::Object{{"type", 1}, {"message", unit.path + ": a request failed: " + reason}});
    // The version can be analysed, so that the next request finds a snapshot.
    unit.isStale |= !unit.next;
  }
  if (!unit.next)
    return;
  const bool isRunning = unit.next->serve() && !unit.next->isOverdue();
  if (std::optional<llvm::json::Value> analysis = unit.next->takeAnalysis()) {
    retire(std::move(unit.ready));
    unit.ready = std::move(unit.next);
    take(unit, std::move(*analysis));
  } else if (!isRunning) {
    const std::string reason = unit.next->describeEnd();
    unit.next.reset();
    fail(unit, reason);
  }
}

/// Takes what a snapshot has found.
void LanguageServer::take(ProgramUnit &unit, llvm::json::Value analysis) {
  const llvm::json::Object *found = analysis.getAsObject();
  if (!found)
    return;
  if (std::optional<llvm::StringRef> failure = found->getString("failure"))
    return fail(unit, failure->str());
  unit.copybooks.clear();
  if (const llvm::json::Array *files = found->getArray("files"))
    for (const llvm::json::Value &file : *files)
      unit.copybooks.insert(file.getAsString().value_or(""));
  unit.isIncomplete = found->getBoolean("isIncomplete").value_or(false);
  // A text that changed during the first analysis was not known to be part of the program.
  for (const auto &document : documents)
    if (unit.copies(document.getKey().str()) &&
        unit.versions[document.getKey()] != document.getValue().text.getVersion())
      unit.isStale = true;
  adoptCopybooks(unit);
  // A program that was tried for a copybook in vain is removed without a word.
  const llvm::json::Object *diagnostics = found->getObject("diagnostics");
  if (diagnostics && isNeeded(unit))
    publish(unit, *diagnostics);
  removeUnused();
}

/// The version cannot be analysed. What was known of the one before stays.
void LanguageServer::fail(ProgramUnit &unit, const std::string &reason) {
  logMessage(
      llvm::json::Object{{"type", 1}, {"message", unit.path + " is not analysed: " + reason}});
  llvm::json::Object diagnostic{{"range", mlir::lsp::Range()},
                                {"severity", 1},
                                {"source", "tarka"},
                                {"message", "this text is not analysed: " + reason}};
  publish(unit, llvm::json::Object{{unit.path, llvm::json::Array{std::move(diagnostic)}}});
}

/// \p unit now answers for the open copybooks that it copies and that were checked by themselves,
/// and no longer for one that it does not copy.
void LanguageServer::adoptCopybooks(const ProgramUnit &unit) {
  for (auto &document : documents) {
    const std::string path = document.getKey().str();
    std::string &program = document.getValue().program;
    if (path == unit.path)
      continue;
    if (program == path && unit.copies(path))
      program = unit.path;
    else if (program == unit.path && !unit.copies(path))
      tryNextProgram(path);
  }
}

/// Whether an open text is the program's, or that of a copybook that it answers for.
bool LanguageServer::isNeeded(const ProgramUnit &unit) const {
  return llvm::any_of(
      documents, [&](const auto &document) { return document.getValue().program == unit.path; });
}

/// Looks for a program below the folders of the editor that copies \p copybook, which is open and
/// until then is checked by itself.
void LanguageServer::searchPrograms(const std::string &copybook) {
  std::vector<std::string> directories = folders;
  if (directories.empty())
    directories.push_back(llvm::sys::path::parent_path(copybook).str());
  WorkerOptions options;
  options.standardOutput = nowhere.get();
  llvm::Expected<std::unique_ptr<SnapshotProcess>> process = SnapshotProcess::start(
      [&](int channel) {
        FrameChannel(channel).send(
            llvm::json::Object{{"programs", findProgramsWith(copybook, directories)}});
        return 0;
      },
      options);
  if (process)
    searches.push_back({copybook, std::move(*process)});
  else
    llvm::consumeError(process.takeError());
}

void LanguageServer::serveSearches() {
  for (auto search = searches.begin(); search != searches.end();) {
    const bool isRunning = search->process->serve() && !search->process->isOverdue();
    const std::optional<llvm::json::Value> found = search->process->takeAnalysis();
    auto document = documents.find(search->copybook);
    if (found && document != documents.end()) {
      if (const llvm::json::Object *result = found->getAsObject())
        if (const llvm::json::Array *programs = result->getArray("programs"))
          for (const llvm::json::Value &program : llvm::reverse(*programs))
            document->getValue().candidates.push_back(program.getAsString().value_or("").str());
      if (document->getValue().program == search->copybook)
        tryNextProgram(search->copybook);
    }
    if (isRunning && !found) {
      ++search;
      continue;
    }
    retire(std::move(search->process));
    search = searches.erase(search);
  }
}

/// Analyses the next program that may copy \p copybook; the copybook by itself when there is none.
void LanguageServer::tryNextProgram(const std::string &copybook) {
  OpenDocument &document = documents.find(copybook)->getValue();
  std::vector<std::string> &candidates = document.candidates;
  document.program = candidates.empty() ? copybook : candidates.back();
  if (!candidates.empty())
    candidates.pop_back();
  unitOf(document.program);
}

/// Removes the programs that no open text needs.
void LanguageServer::removeUnused() {
  std::vector<std::string> unused;
  for (const auto &unit : units)
    if (!isNeeded(*unit.getValue()))
      unused.push_back(unit.getKey().str());
  for (const std::string &program : unused) {
    ProgramUnit &unit = *units[program];
    publish(unit, {});
    retire(std::move(unit.ready));
    retire(std::move(unit.next));
    units.erase(program);
  }
  // A copybook that is still open goes on by itself.
  for (auto &document : documents)
    if (!units.count(document.getValue().program)) {
      document.getValue().program = document.getKey().str();
      unitOf(document.getValue().program);
    }
}

/// Publishes what \p unit has found by file, and withdraws what it had found before. Of a program
/// that is not open itself only what concerns open copybooks.
void LanguageServer::publish(ProgramUnit &unit, const llvm::json::Object &diagnostics) {
  const bool isOpen = documents.contains(unit.path);
  auto isShown = [&](llvm::StringRef path) { return isOpen || documents.contains(path); };
  std::vector<std::string> changed;
  for (auto &file : published) {
    auto own = file.getValue().find(unit.path);
    if (own == file.getValue().end() || (diagnostics.get(file.getKey()) && isShown(file.getKey())))
      continue;
    file.getValue().erase(own);
    changed.push_back(file.getKey().str());
  }
  for (const auto &[path, value] : diagnostics) {
    if (!isShown(path))
      continue;
    llvm::json::Array &own = published[path][unit.path];
    const bool isSame = own == *value.getAsArray();
    own = *value.getAsArray();
    // The text of the program gets its version even if nothing changes.
    if (!isSame || llvm::StringRef(path) == unit.path)
      changed.push_back(path.str());
  }
  for (const std::string &path : changed)
    publishFile(path);
}

/// Several programs may have found the same in a copybook; the first one is named.
void LanguageServer::publishFile(const std::string &path) {
  llvm::json::Array all;
  llvm::StringSet<> known;
  for (const auto &[program, diagnostics] : published[path])
    for (const llvm::json::Value &diagnostic : diagnostics) {
      const llvm::json::Object &one = *diagnostic.getAsObject();
      std::string key;
      llvm::raw_string_ostream(key)
          << *one.get("range") << (one.get("code") ? *one.get("code") : nullptr);
      if (known.insert(key).second || program == path)
        all.push_back(diagnostic);
    }
  llvm::json::Object parameters{{"diagnostics", std::move(all)}};
  auto open = documents.find(path);
  if (open != documents.end()) {
    parameters["uri"] = open->getValue().uri;
    // The version that the snapshot has read.
    auto unit = units.find(open->getValue().program);
    if (unit != units.end())
      if (auto version = unit->getValue()->versions.find(path);
          version != unit->getValue()->versions.end() && !unit->getValue()->next)
        parameters["version"] = version->getValue();
  } else {
    llvm::Expected<URIForFile> uri = URIForFile::fromFile(path);
    if (!uri)
      return llvm::consumeError(uri.takeError());
    parameters["uri"] = uri->uri().str();
  }
  publishDiagnostics(std::move(parameters));
}

//===----------------------------------------------------------------------===//
// Requests
//===----------------------------------------------------------------------===//

void LanguageServer::ask(const Feature &feature, const RawParams &parameters,
                         Callback<llvm::json::Value> reply) {
  const std::optional<std::string> path = documentOf(parameters.object());
  auto document = path ? documents.find(*path) : documents.end();
  if (document == documents.end())
    return reply(nullptr);
  ProgramUnit &unit = unitOf(document->getValue().program);
  if (unit.isStale)
    start(unit);
  SnapshotProcess *snapshot = unit.next ? unit.next.get() : unit.ready.get();
  if (!snapshot)
    return reply(nullptr);
  snapshot->ask(feature.method, parameters.value, std::move(reply));
}

/// A command is a request whose document and other parameters are in its arguments.
void LanguageServer::executeCommand(const RawParams &parameters,
                                    Callback<llvm::json::Value> reply) {
  const std::optional<llvm::StringRef> name = parameters.object().getString("command");
  const Feature *feature = name ? findFeature(*name) : nullptr;
  const llvm::json::Array *arguments = parameters.object().getArray("arguments");
  if (!feature || !feature->isCommand() || !arguments || arguments->empty())
    return reply(llvm::make_error<mlir::lsp::LSPError>(
        "there is no command " + name.value_or("").str() + " with these arguments",
        mlir::lsp::ErrorCode::InvalidParams));
  llvm::json::Object request;
  if (arguments->size() > 1)
    if (const llvm::json::Object *what = (*arguments)[1].getAsObject())
      request = *what;
  request["textDocument"] = llvm::json::Object{{"uri", arguments->front()}};
  ask(*feature, RawParams{std::move(request)}, std::move(reply));
}

//===----------------------------------------------------------------------===//
// Waiting
//===----------------------------------------------------------------------===//

/// Gives the transport what the editor has sent. Until there is something, the snapshots are
/// served.
ssize_t LanguageServer::readInput(char *buffer, std::size_t size) {
  while (true) {
    std::vector<pollfd> waiting{{STDIN_FILENO, POLLIN, 0}};
    auto add = [&](const SnapshotProcess &process) {
      waiting.push_back({process.getDescriptor(),
                         static_cast<short>(process.hasOutput() ? POLLIN | POLLOUT : POLLIN), 0});
    };
    for (const auto &unit : units)
      for (SnapshotProcess *process : {unit.getValue()->ready.get(), unit.getValue()->next.get()})
        if (process)
          add(*process);
    for (const CopybookSearch &search : searches)
      add(*search.process);
    for (const std::unique_ptr<SnapshotProcess> &process : ending)
      add(*process);

    const bool hasWork =
        llvm::any_of(units, [](const auto &unit) { return unit.getValue()->isStale; });
    constexpr int tick = 1000; // milliseconds; only to notice what takes too long
    const bool isBusy = waiting.size() > 1;
    if (poll(waiting.data(), waiting.size(), hasWork ? 0 : isBusy ? tick : -1) < 0)
      continue;
    if (waiting.front().revents)
      return ::read(STDIN_FILENO, buffer, size);
    startAnalyses();
    serveUnits();
  }
}

} // namespace

} // namespace lsp

int serveEditor(const Request &request) {
  return lsp::LanguageServer(request).run();
}

} // namespace tarka
