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
#include "lsp/Connection.h"
#include "lsp/CopybookSearch.h"
#include "lsp/Document.h"
#include "lsp/Features.h"
#include "lsp/Frames.h"
#include "lsp/ProgramUnit.h"
#include "lsp/Snapshot.h"
#include "lsp/SnapshotProcess.h"
#include "lsp/Uris.h"
#include "lsp/workspace/WorkspaceProcess.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/raw_ostream.h"
#include <cassert>
#include <csignal>
#include <fcntl.h>
#include <list>
#include <poll.h>
#include <unistd.h>

namespace tarka {

namespace lsp {

namespace {

using mlir::lsp::ErrorCode;

/// Whether JSON \p text is nested deeper than any message of the protocol, too deep for a parser
/// that calls itself.
bool isTooDeep(llvm::StringRef text) {
  constexpr int maxDepth = 200;
  int depth = 0;
  bool isInString = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (isInString) {
      at += c == '\\';
      isInString = c != '"';
    } else if (c == '"') {
      isInString = true;
    } else if (c == '[' || c == '{') {
      if (++depth > maxDepth)
        return true;
    } else if (c == ']' || c == '}') {
      --depth;
    }
  }
  return false;
}

/// A message of the editor. One without an id is a notification.
struct Message {
  std::string method;
  /// None of a notification.
  std::optional<llvm::json::Value> id;
  llvm::json::Object parameters;

  /// That of a request.
  const llvm::json::Value &getId() const {
    assert(id);
    return *id;
  }
};

/// A request that a snapshot answers.
struct ForwardedRequest {
  llvm::json::Value id;
  const Feature &feature;
  /// The program whose snapshots are asked.
  std::string program;
  /// What they are asked, see Frame::Question.
  llvm::json::Object question;
};

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
  void receive(const std::string &text);
  void handle(const Message &message);
  bool isWithoutDocument(const Message &message) const;
  void initialize(const Message &message);
  void shutdown(const Message &message);

  // Texts.
  void didOpen(const Message &message);
  void didChange(const Message &message);
  void didClose(const Message &message);
  void didSave(const Message &message);
  void didChangeFiles(const Message &message);

  // The programs that are not open.
  void startWorkspace(const Message &message);
  void refreshWorkspace(llvm::json::Array paths);
  void askWorkspace(const Message &message);
  void serveWorkspace();

  // Programs.
  ProgramUnit &unitOf(const std::string &program);
  void touch(const std::string &path);
  void dropEarlier(const std::string &path);
  void startAnalyses();
  void start(ProgramUnit &unit);
  void serveUnits();
  void serve(ProgramUnit &unit);
  void serveReady(ProgramUnit &unit);
  void take(ProgramUnit &unit, SnapshotAnalysis analysis);
  void judge(ProgramUnit &unit);
  void fail(ProgramUnit &unit, const std::string &reason);
  void adoptCopybooks(const ProgramUnit &unit);
  void searchPrograms(const std::string &copybook);
  void serveSearches();
  void tryNextProgram(const std::string &copybook);
  bool isNeeded(const ProgramUnit &unit) const;
  void removeUnused();
  void publish(ProgramUnit &unit, DiagnosticsByFile diagnostics);
  void publishFile(const std::string &path);

  // Requests.
  void ask(const Feature &feature, llvm::json::Value id, llvm::json::Object parameters);
  void executeCommand(const Message &message);
  bool hasOtherTexts(const ProgramUnit &unit) const;
  void forward(const std::shared_ptr<ForwardedRequest> &request);
  void finish(const ForwardedRequest &request, llvm::Expected<SnapshotAnswer> answer);
  void cancelRequest(const Message &message);

  // Waiting.
  bool wait();
  void retire(std::unique_ptr<SnapshotProcess> process);
  void log(const std::string &message);

  /// What the command line says, as for tarka check.
  Request commandLine;
  PositionEncoding encoding = PositionEncoding::Utf16;
  Connection editor;
  /// What snapshots print by mistake must not get among the messages.
  FileDescriptor nowhere;

  /// The directories that the editor works on.
  std::vector<std::string> folders;
  llvm::StringMap<OpenDocument> documents;
  llvm::StringMap<std::unique_ptr<ProgramUnit>> units;
  /// By file, then by program: what the program has found in the file.
  llvm::StringMap<DiagnosticsByFile> published;
  std::list<CopybookSearch> searches;
  /// What knows the programs of the folders, and the name by which snapshots reach it; null where
  /// there are no folders.
  std::unique_ptr<SnapshotProcess> workspace;
  std::string workspaceName;
  /// Snapshots that have been killed and have not ended yet.
  std::vector<std::unique_ptr<SnapshotProcess>> ending;
  /// The ids, as JSON, of the requests that have been forwarded and not answered.
  llvm::StringSet<> openRequests;
  bool isInitialized = false;
  bool isShutDown = false;
  bool isOver = false;
};

//===----------------------------------------------------------------------===//
// The session
//===----------------------------------------------------------------------===//

LanguageServer::LanguageServer(const Request &request)
    : commandLine(request), editor(STDIN_FILENO, STDOUT_FILENO),
      nowhere(open("/dev/null", O_WRONLY | O_CLOEXEC)) {
  commandLine.command = Command::Check;
}

int LanguageServer::run() {
  std::signal(SIGPIPE, SIG_IGN); // an editor that has ended is seen at the end of the input
  while (!isOver) {
    while (std::optional<std::string> text = isOver ? std::nullopt : editor.next())
      receive(*text);
    if (isOver || !wait())
      break;
  }
  editor.writeAll();
  return isOver && isShutDown ? ExitClean : ExitFindings;
}

void LanguageServer::log(const std::string &message) {
  editor.notify("window/logMessage",
                textOf(llvm::json::Object{{"type", 1}, {"message", llvm::json::fixUTF8(message)}}));
}

void LanguageServer::receive(const std::string &text) {
  if (isTooDeep(text))
    return editor.fail(nullptr, ErrorCode::ParseError, "the message is nested too deeply");
  llvm::Expected<llvm::json::Value> value = llvm::json::parse(text);
  if (!value)
    return editor.fail(nullptr, ErrorCode::ParseError, llvm::toString(value.takeError()));
  llvm::json::Object *object = value->getAsObject();
  if (!object)
    return editor.fail(nullptr, ErrorCode::InvalidRequest, "the message is not an object");
  const std::optional<llvm::StringRef> method = object->getString("method");
  if (!method)
    return; // an answer to a request, of which the server sends none
  Message message;
  message.method = method->str();
  if (const llvm::json::Value *id = object->get("id"))
    message.id = *id;
  if (llvm::json::Object *parameters = object->getObject("params"))
    message.parameters = std::move(*parameters);
  handle(message);
}

void LanguageServer::handle(const Message &message) {
  if (message.method == "exit") {
    isOver = true;
    return;
  }
  const bool isRequest = message.id.has_value();
  if (isShutDown || isInitialized == (message.method == "initialize")) {
    if (isRequest)
      editor.fail(message.getId(),
                  isShutDown || isInitialized ? ErrorCode::InvalidRequest
                                              : ErrorCode::ServerNotInitialized,
                  isShutDown      ? "the server is shut down"
                  : isInitialized ? "the server is initialized already"
                                  : "the server is not initialized");
    return;
  }
  using Member = void (LanguageServer::*)(const Message &);
  static const llvm::StringMap<Member> notifications = {
      {"textDocument/didOpen", &LanguageServer::didOpen},
      {"textDocument/didChange", &LanguageServer::didChange},
      {"initialized", &LanguageServer::startWorkspace},
      {"textDocument/didClose", &LanguageServer::didClose},
      {"textDocument/didSave", &LanguageServer::didSave},
      {"workspace/didChangeWatchedFiles", &LanguageServer::didChangeFiles},
      {"$/cancelRequest", &LanguageServer::cancelRequest},
  };
  static const llvm::StringMap<Member> requests = {
      {"initialize", &LanguageServer::initialize},
      {"shutdown", &LanguageServer::shutdown},
      {"workspace/executeCommand", &LanguageServer::executeCommand},
      {"workspace/symbol", &LanguageServer::askWorkspace},
  };
  const llvm::StringMap<Member> &members = isRequest ? requests : notifications;
  const Feature *feature = isRequest ? findFeature(message.method) : nullptr;
  if (auto member = members.find(message.method); member != members.end())
    (this->*member->getValue())(message);
  else if (feature && isWithoutDocument(message))
    askWorkspace(message);
  else if (feature && !feature->isCommand())
    ask(*feature, message.getId(), message.parameters);
  else if (isRequest)
    editor.fail(message.getId(), ErrorCode::MethodNotFound,
                "there is no request " + message.method);
}

/// Whether the request goes on from an item of a call hierarchy in a text that is not open.
bool LanguageServer::isWithoutDocument(const Message &message) const {
  if (!message.parameters.getObject("item"))
    return false;
  const std::optional<std::string> path = documentOf(message.parameters);
  return path && !documents.contains(*path);
}

void LanguageServer::initialize(const Message &message) {
  isInitialized = true;
  if (const llvm::json::Object *capabilities = message.parameters.getObject("capabilities"))
    if (const llvm::json::Object *general = capabilities->getObject("general"))
      if (const llvm::json::Array *offered = general->getArray("positionEncodings"))
        if (llvm::is_contained(*offered, llvm::json::Value("utf-8")))
          encoding = PositionEncoding::Utf8;
  if (const llvm::json::Array *given = message.parameters.getArray("workspaceFolders")) {
    for (const llvm::json::Value &folder : *given)
      if (const llvm::json::Object *one = folder.getAsObject())
        if (std::optional<std::string> path = documentOf(*one))
          folders.push_back(std::move(*path));
  } else if (std::optional<llvm::StringRef> root = message.parameters.getString("rootUri")) {
    if (std::optional<std::string> path = documentOf(llvm::json::Object{{"uri", *root}}))
      folders.push_back(std::move(*path));
  }
  llvm::json::Object capabilities{
      {"positionEncoding", encoding == PositionEncoding::Utf8 ? "utf-8" : "utf-16"},
      {"textDocumentSync", llvm::json::Object{{"openClose", true}, {"change", 2}, {"save", true}}},
      {"workspaceSymbolProvider", true}};
  for (const Feature &feature : allFeatures())
    if (!feature.capability.empty())
      capabilities[feature.capability] = llvm::cantFail(llvm::json::parse(feature.options));
  llvm::json::Array commands;
  for (const Feature &feature : allFeatures())
    if (feature.isCommand())
      commands.push_back(feature.method);
  capabilities["executeCommandProvider"] = llvm::json::Object{{"commands", std::move(commands)}};
  editor.reply(
      message.getId(),
      textOf(llvm::json::Object{
          {"capabilities", std::move(capabilities)},
          {"serverInfo", llvm::json::Object{{"name", "tarka"}, {"version", TARKA_VERSION}}}}));
}

void LanguageServer::shutdown(const Message &message) {
  isShutDown = true;
  units.clear();
  searches.clear();
  workspace.reset();
  editor.reply(message.getId(), "null");
}

//===----------------------------------------------------------------------===//
// Texts
//===----------------------------------------------------------------------===//

void LanguageServer::didOpen(const Message &message) {
  const std::optional<std::string> path = documentOf(message.parameters);
  const llvm::json::Object *document = message.parameters.getObject("textDocument");
  if (!path || !document)
    return;
  documents.erase(*path);
  dropEarlier(*path);
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

void LanguageServer::didChange(const Message &message) {
  const std::optional<std::string> path = documentOf(message.parameters);
  const llvm::json::Array *changes = message.parameters.getArray("contentChanges");
  if (!path || !changes)
    return;
  auto found = documents.find(*path);
  if (found == documents.end())
    return;
  const llvm::json::Object *document = message.parameters.getObject("textDocument");
  const std::optional<std::int64_t> version =
      document ? document->getInteger("version") : std::nullopt;
  Document &text = found->getValue().text;
  if (!text.change(*changes, version.value_or(text.getVersion() + 1), encoding))
    log("a change of " + *path + " is not understood");
  const std::string parameters = textOf(llvm::json::Object(message.parameters));
  for (auto &unit : units)
    if (unit.getKey() == *path || unit.getValue()->copies(*path))
      unit.getValue()->change(parameters);
  touch(*path);
}

void LanguageServer::didClose(const Message &message) {
  const std::optional<std::string> path = documentOf(message.parameters);
  if (!path || !documents.erase(*path))
    return;
  removeUnused();
  dropEarlier(*path);
  // From now on the file counts.
  touch(*path);
}

void LanguageServer::didSave(const Message &message) {
  if (const std::optional<std::string> path = documentOf(message.parameters))
    refreshWorkspace(llvm::json::Array{*path});
}

void LanguageServer::didChangeFiles(const Message &message) {
  const llvm::json::Array *changes = message.parameters.getArray("changes");
  if (!changes)
    return;
  llvm::json::Array paths;
  for (const llvm::json::Value &change : *changes)
    if (const llvm::json::Object *one = change.getAsObject())
      if (const std::optional<std::string> path = documentOf(*one)) {
        paths.push_back(*path);
        if (!documents.count(*path))
          touch(*path);
      }
  refreshWorkspace(std::move(paths));
  // Any new file can be a copybook that was missing, and any tarka.toml can say where it is.
  for (auto &unit : units)
    if (unit.getValue()->isIncomplete)
      unit.getValue()->isStale = true;
}

//===----------------------------------------------------------------------===//
// The workspace
//===----------------------------------------------------------------------===//

void LanguageServer::startWorkspace(const Message &) {
  if (folders.empty())
    return;
  workspaceName = "tarka-lsp-" + std::to_string(getpid());
  const WorkspaceInput given{commandLine, folders, encoding, workspaceName};
  WorkerOptions options;
  options.standardOutput = nowhere.get();
  llvm::Expected<std::unique_ptr<SnapshotProcess>> process =
      SnapshotProcess::start([&](int channel) { return runWorkspace(given, channel); }, options);
  if (process)
    workspace = std::move(*process);
  else
    log("the programs of the folders are not read: " + llvm::toString(process.takeError()));
}

void LanguageServer::refreshWorkspace(llvm::json::Array paths) {
  if (workspace)
    workspace->change(textOf(llvm::json::Object{{"paths", std::move(paths)}}));
}

/// Passes on a request that concerns all programs.
void LanguageServer::askWorkspace(const Message &message) {
  if (!workspace)
    return editor.reply(message.getId(), "null");
  openRequests.insert(textOf(message.getId()));
  workspace->ask(textOf(llvm::json::Object{{"method", message.method},
                                           {"params", llvm::json::Object(message.parameters)}}),
                 [this, id = message.getId()](llvm::Expected<SnapshotAnswer> answer) {
                   const std::string text = answer ? answer->text : "null";
                   llvm::consumeError(answer.takeError());
                   if (openRequests.erase(textOf(id)))
                     editor.reply(id, text);
                 });
}

void LanguageServer::serveWorkspace() {
  if (!workspace || (workspace->serve() && !workspace->isOverdue()))
    return;
  log("the programs of the folders are no longer known: " + workspace->describeEnd());
  workspace.reset();
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

/// Another text stands for \p path, so that places in the one before it mean nothing any more.
void LanguageServer::dropEarlier(const std::string &path) {
  for (auto &unit : units)
    if (unit.getKey() == path || unit.getValue()->copies(path))
      retire(std::move(unit.getValue()->understood));
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
  const SnapshotInput snapshot{commandLine, unit.path, texts, encoding, workspaceName};
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
  serveWorkspace();
  llvm::erase_if(ending,
                 [](std::unique_ptr<SnapshotProcess> &process) { return !process->serve(); });
}

/// Serves the snapshot that answers. What the analysis was worth is known before the first answer.
void LanguageServer::serveReady(ProgramUnit &unit) {
  bool isRunning = unit.ready->serve();
  if (!unit.isJudged && unit.ready->getReliability()) {
    judge(unit);
    isRunning = isRunning && unit.ready->serve();
  }
  if (isRunning && !unit.ready->isOverdue())
    return;
  const std::string reason = unit.ready->describeEnd();
  unit.ready.reset();
  log(unit.path + ": a request failed: " + reason);
  // The version can be analysed, so that the next request finds a snapshot.
  unit.isStale |= !unit.next;
}

void LanguageServer::serve(ProgramUnit &unit) {
  if (unit.understood && (!unit.understood->serve() || unit.understood->isOverdue())) {
    unit.understood->describeEnd();
    unit.understood.reset();
  }
  if (unit.ready)
    serveReady(unit);
  if (!unit.next)
    return;
  const bool isRunning = unit.next->serve() && !unit.next->isOverdue();
  if (std::optional<SnapshotAnalysis> analysis = unit.next->takeAnalysis()) {
    // One that has understood the text stays until it is known that the next one has too.
    if (unit.ready && unit.isJudged && !unit.understood)
      unit.understood = std::move(unit.ready);
    retire(std::move(unit.ready));
    unit.ready = std::move(unit.next);
    unit.isJudged = false;
    take(unit, std::move(*analysis));
  } else if (!isRunning) {
    const std::string reason = unit.next->describeEnd();
    unit.next.reset();
    fail(unit, reason);
  }
}

/// A snapshot has understood the text if it has found no more syntax errors than the last one that
/// has, which it then replaces. The first one of a program has, so that what is wrong all the time
/// does not count.
void LanguageServer::judge(ProgramUnit &unit) {
  unit.isJudged = true;
  if (!unit.understood)
    return;
  const std::optional<Reliability> now = unit.ready->getReliability();
  const std::optional<Reliability> before = unit.understood->getReliability();
  if (now && before && now->syntaxErrors <= before->syntaxErrors)
    retire(std::move(unit.understood));
}

/// Takes what a snapshot has found.
void LanguageServer::take(ProgramUnit &unit, SnapshotAnalysis analysis) {
  const llvm::json::Object &found = analysis.facts;
  if (std::optional<llvm::StringRef> failure = found.getString("failure"))
    return fail(unit, failure->str());
  unit.copybooks.clear();
  if (const llvm::json::Array *files = found.getArray("files"))
    for (const llvm::json::Value &file : *files)
      unit.copybooks.insert(file.getAsString().value_or(""));
  unit.isIncomplete = found.getBoolean("isIncomplete").value_or(false);
  // A text that changed during the first analysis was not known to be part of the program.
  for (const auto &document : documents)
    if (unit.copies(document.getKey().str()) &&
        unit.versions[document.getKey()] != document.getValue().text.getVersion())
      unit.isStale = true;
  adoptCopybooks(unit);
  // A program that was tried for a copybook in vain is removed without a word.
  if (isNeeded(unit))
    publish(unit, std::move(analysis.diagnostics));
  removeUnused();
}

/// The version cannot be analysed. What was known of the one before stays.
void LanguageServer::fail(ProgramUnit &unit, const std::string &reason) {
  log(unit.path + " is not analysed: " + reason);
  llvm::json::Object diagnostic{
      {"range", mlir::lsp::Range()},
      {"severity", 1},
      {"source", "tarka"},
      {"message", llvm::json::fixUTF8("this text is not analysed: " + reason)}};
  publish(unit, {{unit.path, {{"failure", textOf(std::move(diagnostic))}}}});
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
            Frame::Analysis,
            textOf(llvm::json::Object{{"programs", findProgramsWith(copybook, directories)}}));
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
    const std::optional<SnapshotAnalysis> found = search->process->takeAnalysis();
    auto document = documents.find(search->copybook);
    if (found && document != documents.end()) {
      if (const llvm::json::Array *programs = found->facts.getArray("programs"))
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
    for (std::unique_ptr<SnapshotProcess> *process : {&unit.understood, &unit.ready, &unit.next})
      retire(std::move(*process));
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
void LanguageServer::publish(ProgramUnit &unit, DiagnosticsByFile diagnostics) {
  const bool isOpen = documents.contains(unit.path);
  // The text of the program gets its version even if nothing changes.
  if (isOpen)
    diagnostics[unit.path];
  auto isShown = [&](llvm::StringRef path) { return isOpen || documents.contains(path); };
  std::vector<std::string> changed;
  for (auto &file : published) {
    const std::string path = file.getKey().str();
    if ((!diagnostics.count(path) || !isShown(path)) && file.getValue().erase(unit.path))
      changed.push_back(path);
  }
  for (auto &[path, found] : diagnostics) {
    if (!isShown(path))
      continue;
    std::vector<FileDiagnostic> &own = published[path][unit.path];
    if (own != found || path == unit.path)
      changed.push_back(path);
    own = std::move(found);
  }
  for (const std::string &path : changed)
    publishFile(path);
}

/// Several programs may have found the same in a copybook; the first one is named.
void LanguageServer::publishFile(const std::string &path) {
  std::string parameters = R"({"diagnostics":[)";
  llvm::StringSet<> known;
  for (const auto &[program, diagnostics] : published[path])
    for (const FileDiagnostic &diagnostic : diagnostics)
      if (known.insert(diagnostic.key).second || program == path) {
        parameters += diagnostic.text;
        parameters += ',';
      }
  if (parameters.back() == ',')
    parameters.pop_back();
  parameters += ']';
  auto open = documents.find(path);
  const std::string uri = open == documents.end() ? uriOfPath(path) : open->getValue().uri;
  parameters += ",\"uri\":" + textOf(uri);
  if (open != documents.end()) {
    // The version that the snapshot has read.
    auto unit = units.find(open->getValue().program);
    if (unit != units.end())
      if (auto version = unit->getValue()->versions.find(path);
          version != unit->getValue()->versions.end() && !unit->getValue()->next)
        parameters += ",\"version\":" + std::to_string(version->getValue());
  }
  parameters += '}';
  if (published[path].empty())
    published.erase(path);
  editor.notify("textDocument/publishDiagnostics", parameters);
}

//===----------------------------------------------------------------------===//
// Requests
//===----------------------------------------------------------------------===//

void LanguageServer::ask(const Feature &feature, llvm::json::Value id,
                         llvm::json::Object parameters) {
  const std::optional<std::string> path = documentOf(parameters);
  auto document = path ? documents.find(*path) : documents.end();
  if (document == documents.end())
    return editor.reply(id, "null");
  openRequests.insert(textOf(id));
  llvm::json::Object question{{"method", feature.method}, {"params", std::move(parameters)}};
  forward(std::make_shared<ForwardedRequest>(
      ForwardedRequest{std::move(id), feature, document->getValue().program, std::move(question)}));
}

/// Whether a text of the editor is another one than at the last analysis of \p unit, which need not
/// be part of it.
bool LanguageServer::hasOtherTexts(const ProgramUnit &unit) const {
  return unit.versions.size() != documents.size() ||
         llvm::any_of(documents, [&](const auto &document) {
           return unit.versions.lookup(document.getKey()) != document.getValue().text.getVersion();
         });
}

/// Asks the newest snapshot. Where it knows nothing, or has lost names because of what is being
/// typed, or dies, an earlier one is asked: the last one that has understood the text, or the one
/// that was ready until now.
void LanguageServer::forward(const std::shared_ptr<ForwardedRequest> &request) {
  ProgramUnit &asked = unitOf(request->program);
  if (asked.isStale || (request->feature.needs == TextNeeded::All && hasOtherTexts(asked)))
    start(asked);
  SnapshotProcess *newest = asked.next ? asked.next.get() : asked.ready.get();
  if (!newest)
    return finish(*request, SnapshotAnswer());
  const bool takesEarlier = request->feature.needs == TextNeeded::Understood;
  if (!takesEarlier && newest->isChanged())
    return finish(*request, llvm::make_error<mlir::lsp::LSPError>("the text is not analysed",
                                                                  ErrorCode::ContentModified));
  newest->ask(textOf(llvm::json::Object(request->question)),
              [=, this](llvm::Expected<SnapshotAnswer> answer) {
                auto unit = units.find(request->program);
                SnapshotProcess *earlier = takesEarlier && unit != units.end()
                                               ? unit->getValue()->earlierThan(newest)
                                               : nullptr;
                if (!earlier || (!answer && !newest->hasFailed()))
                  return finish(*request, std::move(answer));
                llvm::json::Object question = request->question;
                if (const auto reliability = newest->getReliability();
                    reliability && answer && !answer->isEmpty)
                  question["names"] = reliability->names;
                earlier->ask(textOf(std::move(question)),
                             [this, request, newer = std::move(answer)](
                                 llvm::Expected<SnapshotAnswer> other) mutable {
                               if (other && (!other->isEmpty || !newer))
                                 std::swap(newer, other);
                               finish(*request, std::move(newer));
                               llvm::consumeError(other.takeError());
                             });
              });
}

void LanguageServer::finish(const ForwardedRequest &request,
                            llvm::Expected<SnapshotAnswer> answer) {
  // What has been cancelled is answered already.
  const bool isOpen = openRequests.erase(textOf(request.id));
  if (answer && isOpen)
    editor.reply(request.id, answer->text);
  if (answer)
    return;
  llvm::handleAllErrors(answer.takeError(), [&](const mlir::lsp::LSPError &error) {
    if (isOpen)
      editor.fail(request.id, error.code, error.message);
  });
}

void LanguageServer::cancelRequest(const Message &message) {
  const llvm::json::Value *id = message.parameters.get("id");
  if (id && openRequests.erase(textOf(*id)))
    editor.fail(*id, ErrorCode::RequestCancelled, "the request is cancelled");
}

/// A command is a request whose document and other parameters are in its arguments.
void LanguageServer::executeCommand(const Message &message) {
  const std::optional<llvm::StringRef> name = message.parameters.getString("command");
  const Feature *feature = name ? findFeature(*name) : nullptr;
  const llvm::json::Array *arguments = message.parameters.getArray("arguments");
  if (!feature || !feature->isCommand() || !arguments || arguments->empty())
    return editor.fail(message.getId(), ErrorCode::InvalidParams,
                       "there is no command " + name.value_or("").str() + " with these arguments");
  llvm::json::Object parameters;
  if (arguments->size() > 1)
    if (const llvm::json::Object *what = (*arguments)[1].getAsObject())
      parameters = *what;
  parameters["textDocument"] = llvm::json::Object{{"uri", arguments->front()}};
  ask(*feature, message.getId(), std::move(parameters));
}

//===----------------------------------------------------------------------===//
// Waiting
//===----------------------------------------------------------------------===//

/// Waits for the editor and the snapshots, and serves what has something to say. False at the end
/// of the input.
bool LanguageServer::wait() {
  std::vector<pollfd> waiting{{editor.getInput(), POLLIN, 0}};
  auto add = [&](const std::unique_ptr<SnapshotProcess> &process) {
    if (process)
      waiting.push_back({process->getDescriptor(),
                         static_cast<short>(process->hasOutput() ? POLLIN | POLLOUT : POLLIN), 0});
  };
  for (const auto &unit : units) {
    add(unit.getValue()->understood);
    add(unit.getValue()->ready);
    add(unit.getValue()->next);
  }
  for (const CopybookSearch &search : searches)
    add(search.process);
  for (const std::unique_ptr<SnapshotProcess> &process : ending)
    add(process);
  add(workspace);
  const bool isBusy = waiting.size() > 1;
  if (editor.hasOutput())
    waiting.push_back({editor.getOutput(), POLLOUT, 0});

  const bool hasWork =
      llvm::any_of(units, [](const auto &unit) { return unit.getValue()->isStale; });
  constexpr int tick = 1000; // milliseconds; only to notice what takes too long
  if (poll(waiting.data(), waiting.size(), hasWork ? 0 : isBusy ? tick : -1) < 0)
    return true;
  if (editor.hasOutput())
    editor.write();
  if (waiting.front().revents)
    return editor.receive();
  // The editor has nothing more to say.
  startAnalyses();
  serveUnits();
  return true;
}

} // namespace

} // namespace lsp

int serveEditor(const Request &request) {
  return lsp::LanguageServer(request).run();
}

} // namespace tarka
