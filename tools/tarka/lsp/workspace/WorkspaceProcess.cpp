//===- WorkspaceProcess.cpp - the process that knows all programs ---------===//

#include "lsp/workspace/WorkspaceProcess.h"
#include "AST/Storage.h"
#include "Configuration.h"
#include "Inputs.h"
#include "ProgramRun.h"
#include "Workers/WorkerPool.h"
#include "lsp/Frames.h"
#include "lsp/workspace/ProgramFacts.h"
#include "lsp/workspace/WorkspaceIndex.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/Threading.h"
#include "llvm/Support/raw_ostream.h"
#include <cerrno>
#include <cstddef>
#include <deque>
#include <list>
#include <sys/epoll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarka::lsp {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t blockSize = 1 << 16;
/// No program takes this long.
constexpr double maxSeconds = 30;
/// What is analysed in the background gives way to what the user waits for.
constexpr int niceness = 10;

/// An abstract socket is in no directory, and ends with the process.
std::pair<sockaddr_un, socklen_t> addressOf(const std::string &name) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::size_t size = std::min(name.size(), sizeof(address.sun_path) - 1);
  std::copy_n(name.begin(), size, address.sun_path + 1);
  return {address, static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + size)};
}

/// Whether the other end is a process of the same user.
bool isOwn(int descriptor) {
  ucred peer{};
  socklen_t size = sizeof peer;
  return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
         peer.uid == geteuid();
}

FileDescriptor openSocket() {
  return FileDescriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

class WorkspaceProcess {
public:
  WorkspaceProcess(const WorkspaceInput &given, int channel);

  int run();

private:
  /// Someone who asks.
  struct Connection {
    FileDescriptor owned;
    int descriptor = -1;
    FrameReader reader;
  };
  struct Question {
    int descriptor;
    std::uint32_t number;
    std::string method;
    llvm::json::Object parameters;
    Clock::time_point deadline;
  };

  void watch(int descriptor);
  void listenTo(const std::string &name);
  void findPrograms();
  void startMore();
  int analyse(const std::string &program, llvm::raw_ostream &answer) const;
  std::optional<std::string> nextProgram();
  void enqueue(const std::string &program);
  void refresh(llvm::StringRef path);
  double secondsToWait() const;
  bool serve();
  void accept();
  bool receive(Connection &connection);
  void take(Connection &connection, const Frame &frame);
  void answerQuestions();
  bool isComplete() const { return hasAll && queue.empty() && !pool; }

  const WorkspaceInput &input;
  Request request;
  std::unique_ptr<Inputs> programs;
  /// Whether all programs of the folders have been found.
  bool hasAll = false;
  std::deque<std::string> queue;
  llvm::StringSet<> queued;
  WorkspaceIndex index;
  /// Null while there is nothing to analyse.
  std::unique_ptr<WorkerPool> pool;

  FileDescriptor events;
  FileDescriptor listener;
  Connection server;
  std::list<Connection> snapshots;
  std::list<Question> questions;
};

Request requestFor(const WorkspaceInput &input) {
  Request request = input.commandLine;
  request.files = input.folders;
  return request;
}

WorkspaceProcess::WorkspaceProcess(const WorkspaceInput &given, int channel)
    : input(given), request(requestFor(given)), index(given.folders),
      events(epoll_create1(EPOLL_CLOEXEC)) {
  server.descriptor = channel;
  watch(channel);
  findPrograms();
  listenTo(input.name);
}

void WorkspaceProcess::watch(int descriptor) {
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.fd = descriptor;
  epoll_ctl(events.get(), EPOLL_CTL_ADD, descriptor, &event);
}

void WorkspaceProcess::listenTo(const std::string &name) {
  constexpr int backlog = 16;
  listener = openSocket();
  const auto [address, size] = addressOf(name);
  if (listener && bind(listener.get(), reinterpret_cast<const sockaddr *>(&address), size) == 0 &&
      listen(listener.get(), backlog) == 0)
    watch(listener.get());
}

int WorkspaceProcess::run() {
  setpriority(PRIO_PROCESS, 0, niceness);
  // The server needs nothing of it, but is told that the process answers.
  FrameChannel(server.descriptor).send(Frame::Analysis, "{}");
  do {
    startMore();
    answerQuestions();
    if (pool) {
      pool->wait(events.get(), secondsToWait());
      while (std::optional<WorkerResult> result = pool->take())
        index.set(result->name, result->kind == WorkerResult::Done ? result->answer : "");
    } else {
      epoll_event event;
      const double seconds = secondsToWait();
      epoll_wait(events.get(), &event, 1, seconds < 0 ? -1 : static_cast<int>(seconds * 1000) + 1);
    }
  } while (serve());
  return 0;
}

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

/// Begins with all programs of the folders. What cannot be read is not among them.
void WorkspaceProcess::findPrograms() {
  programs = std::make_unique<Inputs>(request, [](const std::string &, const std::string &) {});
  hasAll = false;
}

void WorkspaceProcess::enqueue(const std::string &program) {
  if (queued.insert(program).second)
    queue.push_back(program);
}

/// What has changed goes first.
std::optional<std::string> WorkspaceProcess::nextProgram() {
  if (!queue.empty()) {
    std::string program = std::move(queue.front());
    queue.pop_front();
    queued.erase(program);
    return program;
  }
  std::optional<std::string> program = hasAll ? std::nullopt : programs->next();
  hasAll |= !program;
  return program;
}

void WorkspaceProcess::startMore() {
  while (!pool || pool->hasRoom()) {
    std::optional<std::string> program = nextProgram();
    if (!program)
      break;
    if (!pool)
      pool = std::make_unique<WorkerPool>(
          WorkerPoolOptions{
              .jobs = std::max(1u, llvm::hardware_concurrency().compute_thread_count() / 2),
              .maxSeconds = maxSeconds,
              .maxBytes = std::uint64_t(request.memoryLimit) << 20,
              .reservedBytes = compilationStack,
              .surround = [](llvm::function_ref<void()> work) { compile(work); }},
          [this](const std::string &name, llvm::raw_ostream &answer) {
            return analyse(name, answer);
          });
    pool->start(std::move(*program));
  }
  // Its workers would keep what they have learnt.
  if (pool && pool->isEmpty())
    pool.reset();
}

int WorkspaceProcess::analyse(const std::string &program, llvm::raw_ostream &answer) const {
  {
    const OpenTexts none;
    const SnapshotInput snapshotInput{input.commandLine, program, none, input.encoding, ""};
    Snapshot snapshot(snapshotInput);
    snapshot.analyse();
    if (snapshot.getProgram())
      writeFacts(snapshot, answer);
  }
  releaseStorage();
  return 0;
}

void WorkspaceProcess::refresh(llvm::StringRef path) {
  const std::string extension = llvm::sys::path::extension(path).lower();
  if (llvm::sys::path::filename(path) == configurationName) {
    findPrograms();
  } else if (index.has(path.str()) ||
             llvm::is_contained(programExtensions(), llvm::StringRef(extension))) {
    if (llvm::sys::fs::exists(path))
      enqueue(path.str());
    else
      index.remove(path.str());
  }
  for (const std::string &program : index.programsWith(path))
    if (program != path)
      enqueue(program);
}

//===----------------------------------------------------------------------===//
// Questions
//===----------------------------------------------------------------------===//

double WorkspaceProcess::secondsToWait() const {
  if (questions.empty())
    return -1;
  Clock::time_point first = Clock::time_point::max();
  for (const Question &question : questions)
    first = std::min(first, question.deadline);
  return std::max(0.0, std::chrono::duration<double>(first - Clock::now()).count());
}

/// Takes what has arrived. False when the server is gone.
bool WorkspaceProcess::serve() {
  constexpr int maxEvents = 16;
  epoll_event ready[maxEvents];
  const int count = epoll_wait(events.get(), ready, maxEvents, 0);
  for (int number = 0; number < count; ++number) {
    const int descriptor = ready[number].data.fd;
    if (descriptor == listener.get()) {
      accept();
      continue;
    }
    if (descriptor == server.descriptor) {
      if (!receive(server))
        return false;
      continue;
    }
    auto snapshot = llvm::find_if(
        snapshots, [&](const Connection &one) { return one.descriptor == descriptor; });
    if (snapshot == snapshots.end() || receive(*snapshot))
      continue;
    questions.remove_if(
        [&](const Question &question) { return question.descriptor == descriptor; });
    snapshots.erase(snapshot);
  }
  return true;
}

void WorkspaceProcess::accept() {
  FileDescriptor end(::accept4(listener.get(), nullptr, nullptr, SOCK_CLOEXEC));
  if (!end || !isOwn(end.get()))
    return;
  Connection &connection = snapshots.emplace_back();
  connection.descriptor = end.get();
  connection.owned = std::move(end);
  watch(connection.descriptor);
}

/// False at the end of the connection.
bool WorkspaceProcess::receive(Connection &connection) {
  char block[blockSize];
  const ssize_t got = ::read(connection.descriptor, block, sizeof block);
  if (got < 0 && (errno == EINTR || errno == EAGAIN))
    return true;
  if (got <= 0)
    return false;
  connection.reader.add({block, static_cast<std::size_t>(got)});
  while (std::optional<Frame> frame = connection.reader.next())
    take(connection, *frame);
  return true;
}

void WorkspaceProcess::take(Connection &connection, const Frame &frame) {
  llvm::Expected<llvm::json::Value> message = llvm::json::parse(frame.text);
  if (!message)
    return llvm::consumeError(message.takeError());
  const llvm::json::Object *object = message->getAsObject();
  if (!object)
    return;
  if (frame.kind == Frame::Change) {
    if (const llvm::json::Array *paths = object->getArray("paths"))
      for (const llvm::json::Value &path : *paths)
        refresh(path.getAsString().value_or(""));
    return;
  }
  constexpr std::int64_t usualPatience = 2000;
  const llvm::json::Object *parameters = object->getObject("params");
  questions.push_back(
      {connection.descriptor, frame.number, object->getString("method").value_or("").str(),
       parameters ? *parameters : llvm::json::Object(),
       Clock::now() +
           std::chrono::milliseconds(object->getInteger("patience").value_or(usualPatience))});
}

/// Answers what has waited for the last program, or long enough.
void WorkspaceProcess::answerQuestions() {
  for (auto question = questions.begin(); question != questions.end();) {
    if (!isComplete() && Clock::now() < question->deadline) {
      ++question;
      continue;
    }
    llvm::json::Value result = index.answer(question->method, question->parameters);
    if (llvm::json::Object *object = result.getAsObject())
      (*object)["isComplete"] = isComplete();
    // An end that is gone is seen when it is read.
    FrameChannel(question->descriptor).send(Frame::Answer, textOf(result), question->number);
    question = questions.erase(question);
  }
}

} // namespace

int runWorkspace(const WorkspaceInput &input, int channel) {
  return WorkspaceProcess(input, channel).run();
}

std::optional<llvm::json::Value> askWorkspace(const std::string &name, llvm::StringRef method,
                                              llvm::json::Object parameters,
                                              std::chrono::milliseconds patience) {
  const FileDescriptor end = openSocket();
  const auto [address, size] = addressOf(name);
  if (name.empty() || !end ||
      connect(end.get(), reinterpret_cast<const sockaddr *>(&address), size) != 0 ||
      !isOwn(end.get()))
    return std::nullopt;
  FrameChannel channel(end.get());
  if (!channel.send(Frame::Question, textOf(llvm::json::Object{{"method", method},
                                                               {"params", std::move(parameters)},
                                                               {"patience", patience.count()}})))
    return std::nullopt;
  const std::optional<Frame> frame = channel.receive();
  llvm::Expected<llvm::json::Value> answer = llvm::json::parse(frame ? frame->text : "");
  if (answer)
    return std::move(*answer);
  llvm::consumeError(answer.takeError());
  return std::nullopt;
}

} // namespace tarka::lsp
