//===- WorkerPool.cpp - many tasks, several at a time ---------------------===//

#include "Workers/WorkerPool.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/raw_ostream.h"
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tarka {

namespace {

/// How many results, and how many bytes of them, wait for an earlier one at most.
constexpr std::size_t maxHeldResults = 4096;
constexpr std::size_t maxHeldBytes = 64u << 20;

/// What a worker sends when a task has ended; the answer and what was printed follow.
struct MessageHeader {
  std::int32_t status = 0;
  /// Whether the worker ends itself now.
  std::uint32_t isLast = 0;
  std::uint64_t answerSize = 0;
  std::uint64_t outSize = 0;
  std::uint64_t errSize = 0;
};

/// An empty file in memory, which everything that is written to it is appended to.
FileDescriptor makeCapture() {
  FileDescriptor file(memfd_create("tarka-output", MFD_CLOEXEC));
  if (file)
    fcntl(file.get(), F_SETFL, O_APPEND);
  return file;
}

/// The contents of a file in memory.
std::string contentsOf(int descriptor) {
  struct stat status;
  if (fstat(descriptor, &status) != 0 || status.st_size == 0)
    return "";
  std::string text(static_cast<std::size_t>(status.st_size), '\0');
  std::size_t size = 0;
  while (size < text.size()) {
    const ssize_t got =
        pread(descriptor, text.data() + size, text.size() - size, static_cast<off_t>(size));
    if (got < 0 && errno == EINTR)
      continue;
    if (got <= 0)
      break;
    size += static_cast<std::size_t>(got);
  }
  text.resize(size);
  return text;
}

/// What was printed since the last call.
std::string takeCapture(int descriptor) {
  std::string text = contentsOf(descriptor);
  if (!text.empty() && ftruncate(descriptor, 0) != 0)
    text.clear();
  return text;
}

/// Writes all of \p bytes, waiting where there is no room. False when the other end has gone.
bool writeAll(int descriptor, llvm::StringRef bytes) {
  while (!bytes.empty()) {
    const ssize_t written = send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (written >= 0) {
      bytes = bytes.drop_front(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN) {
      pollfd room = {descriptor, POLLOUT, 0};
      poll(&room, 1, -1);
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

/// Reads \p size bytes. False at the end of the stream.
bool readAll(int descriptor, char *bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t got = ::read(descriptor, bytes, size);
    if (got < 0 && errno == EINTR)
      continue;
    if (got <= 0)
      return false;
    bytes += got;
    size -= static_cast<std::size_t>(got);
  }
  return true;
}

/// The most memory that this process has had, in bytes.
std::uint64_t peakMemory() {
  rusage usage;
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::uint64_t>(usage.ru_maxrss) * 1024;
}

template <typename Value> llvm::StringRef bytesOf(const Value &value) {
  return {reinterpret_cast<const char *>(&value), sizeof value};
}

double secondsSince(WorkerPool::Clock::time_point start) {
  return std::chrono::duration<double>(WorkerPool::Clock::now() - start).count();
}

/// Appends what can be read now to \p text. False at the end of the stream.
bool readAvailable(int descriptor, std::string &text) {
  char buffer[1u << 16];
  while (true) {
    const ssize_t got = ::read(descriptor, buffer, sizeof buffer);
    if (got > 0)
      text.append(buffer, static_cast<std::size_t>(got));
    else if (got == 0 || (errno != EINTR && errno != EAGAIN))
      return false;
    else if (errno == EAGAIN)
      return true;
  }
}

WorkerResult::Kind kindOf(const WorkerEnd &end) {
  return end.kind == WorkerEnd::OutOfMemory ? WorkerResult::OutOfMemory : WorkerResult::Crashed;
}

} // namespace

WorkerPool::WorkerPool(WorkerPoolOptions poolOptions, Task poolTask)
    : options(std::move(poolOptions)), task(std::move(poolTask)) {
  if (options.jobs == 0)
    options.jobs = std::max(1u, std::thread::hardware_concurrency());
}

WorkerPool::~WorkerPool() {
  // All are ended before the first is waited for. One that has nothing to do ends by itself.
  for (const std::unique_ptr<Process> &process : processes)
    if (process->entry)
      process->worker->kill();
    else
      shutdown(process->worker->getChannel(), SHUT_WR);
  for (const std::unique_ptr<Process> &process : processes)
    process->worker->wait();
}

bool WorkerPool::hasRoom() const {
  return running < options.jobs && entries.size() - running < maxHeldResults &&
         heldBytes < maxHeldBytes;
}

//===----------------------------------------------------------------------===//
// The worker's side
//===----------------------------------------------------------------------===//

/// Carries out the tasks whose names come from the parent, until there are no more or the memory
/// that they have left behind is too much.
static int carryOutTasks(int channel, const WorkerPool::Task &task, std::uint64_t keptBytes) {
  const std::uint64_t before = peakMemory();
  std::uint64_t size;
  while (readAll(channel, reinterpret_cast<char *>(&size), sizeof size)) {
    std::string name(size, '\0');
    if (!readAll(channel, name.data(), size))
      break;
    std::string answer;
    llvm::raw_string_ostream stream(answer);
    MessageHeader header;
    header.status = task(name, stream);
    llvm::outs().flush();
    llvm::errs().flush();
    const std::string out = takeCapture(STDOUT_FILENO);
    const std::string err = takeCapture(STDERR_FILENO);
    header.isLast = peakMemory() - before > keptBytes;
    header.answerSize = answer.size();
    header.outSize = out.size();
    header.errSize = err.size();
    // One message is one system call where possible.
    const std::string message = (bytesOf(header) + answer + out + err).str();
    if (!writeAll(channel, message) || header.isLast)
      break;
  }
  return 0;
}

/// Starts a worker; null when that fails, with the reason in errno.
std::unique_ptr<WorkerPool::Process> WorkerPool::launch() {
  auto process = std::make_unique<Process>();
  process->out = makeCapture();
  process->err = makeCapture();
  if (!process->out || !process->err)
    return nullptr;
  WorkerOptions workerOptions;
  workerOptions.maxBytes = options.maxBytes;
  workerOptions.reservedBytes = options.reservedBytes;
  workerOptions.standardOutput = process->out.get();
  workerOptions.standardError = process->err.get();
  llvm::Expected<Worker> worker = Worker::start(
      [&](int channel) {
        int status = 0;
        auto work = [&] { status = carryOutTasks(channel, task, options.keptBytes); };
        if (options.surround)
          options.surround(work);
        else
          work();
        return status;
      },
      workerOptions);
  if (!worker) {
    errno = llvm::errorToErrorCode(worker.takeError()).value();
    return nullptr;
  }
  process->worker = std::make_unique<Worker>(std::move(*worker));
  return process;
}

//===----------------------------------------------------------------------===//
// The parent's side
//===----------------------------------------------------------------------===//

void WorkerPool::start(std::string name) {
  Entry &entry = entries.emplace_back();
  entry.result.name = std::move(name);
  while (!assign(entry, /*needsNewWorker=*/false)) {
    entry.result.value = errno;
    if (running == 0) {
      entry.result.kind = WorkerResult::NotStarted;
      ++endedTasks;
      return;
    }
    // There are too many processes or open files for now.
    wait();
  }
}

/// Gives \p entry to a worker. False when there is none, with the reason in errno.
bool WorkerPool::assign(Entry &entry, bool needsNewWorker) {
  auto idle = llvm::find_if(processes, [](const auto &process) {
    return process->worker && !process->entry && !process->isEnding;
  });
  Process *process = needsNewWorker || idle == processes.end() ? nullptr : idle->get();
  if (!process) {
    std::unique_ptr<Process> launched = launch();
    if (!launched)
      return false;
    process = processes.emplace_back(std::move(launched)).get();
  }
  entry.start = Clock::now();
  entry.process = process;
  process->entry = &entry;
  ++running;
  const std::uint64_t size = entry.result.name.size();
  // A worker that has gone is noticed when it is read from.
  writeAll(process->worker->getChannel(), (bytesOf(size) + entry.result.name).str());
  return true;
}

void WorkerPool::add(std::string name, std::string answer) {
  Entry &entry = entries.emplace_back();
  entry.result.name = std::move(name);
  entry.result.answer = std::move(answer);
  heldBytes += entry.result.answer.size();
  ++endedTasks;
}

void WorkerPool::close() {
  isClosed = true;
  endIdle();
}

/// A worker ends at the end of its channel.
void WorkerPool::endIdle() {
  for (const std::unique_ptr<Process> &process : processes)
    if (!process->entry && !std::exchange(process->isEnding, true))
      shutdown(process->worker->getChannel(), SHUT_WR);
}

void WorkerPool::endOverdue() {
  if (options.maxSeconds <= 0)
    return;
  for (const std::unique_ptr<Process> &process : processes)
    if (process->entry && !process->isOutOfTime &&
        secondsSince(process->entry->start) >= options.maxSeconds) {
      process->isOutOfTime = true;
      process->worker->kill();
    }
}

/// The milliseconds until something must be done: after \p seconds, or when the time of a task is
/// over. -1 for no bound.
int WorkerPool::pollTimeout(double seconds) const {
  if (options.maxSeconds > 0)
    for (const std::unique_ptr<Process> &process : processes)
      if (process->entry && !process->isOutOfTime) {
        const double left = std::max(0.0, options.maxSeconds - secondsSince(process->entry->start));
        seconds = seconds < 0 ? left : std::min(seconds, left);
      }
  return seconds < 0 ? -1 : static_cast<int>(std::ceil(std::min(seconds, 1e6) * 1000));
}

void WorkerPool::wait(int wakeUp, double seconds) {
  llvm::SmallVector<pollfd, 32> polled;
  llvm::SmallVector<Process *, 32> readable;
  for (const std::unique_ptr<Process> &process : processes) {
    polled.push_back({process->worker->getChannel(), POLLIN, 0});
    readable.push_back(process.get());
  }
  polled.push_back({wakeUp, POLLIN, 0}); // a negative one is passed over
  if (poll(polled.data(), polled.size(), running == 0 ? 0 : pollTimeout(seconds)) < 0)
    return;
  endOverdue();
  for (auto [process, state] : llvm::zip_first(readable, polled))
    if (state.revents)
      read(*process);
  llvm::erase_if(processes, [](const auto &process) { return !process->worker; });
  if (isClosed)
    endIdle();
}

void WorkerPool::read(Process &process) {
  const bool goesOn = readAvailable(process.worker->getChannel(), process.received);
  const bool isComplete = process.entry && takeMessage(process);
  if (!goesOn)
    finishWorker(process);
  else if (isComplete)
    process.isUsed = true;
}

/// Makes the message of a worker, when it is there as a whole, the result of its task.
bool WorkerPool::takeMessage(Process &process) {
  MessageHeader header;
  llvm::StringRef message = process.received;
  if (message.size() < sizeof header)
    return false;
  std::memcpy(&header, message.data(), sizeof header);
  message = message.drop_front(sizeof header);
  if (message.size() < header.answerSize + header.outSize + header.errSize)
    return false;
  WorkerResult &result = process.entry->result;
  result.answer = message.take_front(header.answerSize);
  message = message.drop_front(header.answerSize);
  result.out = message.take_front(header.outSize);
  result.err = message.drop_front(header.outSize);
  process.received.clear();
  process.isEnding = header.isLast;
  finish(process, WorkerResult::Done, header.status);
  return true;
}

/// The worker has ended, or its channel is of no more use: what ends a process that is ending
/// already does not change how it ends.
void WorkerPool::finishWorker(Process &process) {
  process.worker->kill();
  const WorkerEnd end = process.worker->wait();
  process.worker.reset();
  Entry *entry = process.entry;
  if (!entry)
    return;
  const bool isOutOfTime = process.isOutOfTime && end.kind == WorkerEnd::Signaled;
  // What the tasks before have left behind may be the cause. Time is each task's own.
  if (process.isUsed && !isOutOfTime) {
    process.entry = nullptr;
    --running;
    if (assign(*entry, /*needsNewWorker=*/true))
      return;
    process.entry = entry;
    ++running;
  }
  entry->result.out = contentsOf(process.out.get());
  entry->result.err = contentsOf(process.err.get());
  finish(process, isOutOfTime ? WorkerResult::OutOfTime : kindOf(end), end.value);
}

/// The task of \p process has a result.
void WorkerPool::finish(Process &process, WorkerResult::Kind kind, int value) {
  Entry &entry = *process.entry;
  process.entry = nullptr;
  entry.process = nullptr;
  --running;
  ++endedTasks;
  WorkerResult &result = entry.result;
  result.kind = kind;
  result.value = value;
  result.seconds = secondsSince(entry.start);
  heldBytes += result.answer.size() + result.out.size() + result.err.size();
  if (result.seconds > slowestSeconds) {
    slowestSeconds = result.seconds;
    slowestName = result.name;
  }
}

WorkerResult WorkerPool::remove(std::list<Entry>::iterator position) {
  WorkerResult result = std::move(position->result);
  entries.erase(position);
  heldBytes -= result.answer.size() + result.out.size() + result.err.size();
  return result;
}

std::optional<WorkerResult> WorkerPool::take() {
  if (entries.empty() || entries.front().process)
    return std::nullopt;
  return remove(entries.begin());
}

std::optional<WorkerResult> WorkerPool::takeEnded() {
  auto found = llvm::find_if(entries, [](const Entry &entry) { return !entry.process; });
  if (found == entries.end())
    return std::nullopt;
  return remove(found);
}

std::pair<llvm::StringRef, double> WorkerPool::getSlowest() {
  for (const std::unique_ptr<Process> &process : processes)
    if (const Entry *entry = process->entry)
      if (const double seconds = secondsSince(entry->start); seconds > slowestSeconds) {
        slowestSeconds = seconds;
        slowestName = entry->result.name;
      }
  return {slowestName, slowestSeconds};
}

} // namespace tarka
