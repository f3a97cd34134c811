//===- WorkerPool.cpp - many tasks, several at a time ---------------------===//

#include "Workers/WorkerPool.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/raw_ostream.h"
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace tarka {

namespace {

/// How many results, and how many bytes of them, wait for an earlier one at most.
constexpr std::size_t maxHeldResults = 4096;
constexpr std::size_t maxHeldBytes = 64u << 20;

/// A pipe for what a worker prints: the end to read, which does not block, and the end to write.
bool openPipe(FileDescriptor &read, FileDescriptor &write) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0)
    return false;
  read.reset(ends[0]);
  write.reset(ends[1]);
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  return true;
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

WorkerResult::Kind kindOf(const WorkerEnd &end, bool isOutOfTime) {
  if (isOutOfTime)
    return WorkerResult::OutOfTime;
  switch (end.kind) {
  case WorkerEnd::Exited:
    return WorkerResult::Done;
  case WorkerEnd::Signaled:
    return WorkerResult::Crashed;
  case WorkerEnd::OutOfMemory:
    return WorkerResult::OutOfMemory;
  }
  llvm_unreachable("not a way to end");
}

} // namespace

WorkerPool::WorkerPool(const WorkerPoolOptions &poolOptions) : options(poolOptions) {
  if (options.jobs == 0)
    options.jobs = std::max(1u, std::thread::hardware_concurrency());
}

WorkerPool::~WorkerPool() {
  // All are killed before the first is waited for.
  for (Entry *entry : running)
    entry->worker->kill();
}

bool WorkerPool::hasRoom() const {
  return running.size() < options.jobs && entries.size() - running.size() < maxHeldResults &&
         heldBytes < maxHeldBytes;
}

void WorkerPool::start(std::string name, Task task) {
  Entry &entry = entries.emplace_back();
  entry.result.name = std::move(name);
  entry.start = Clock::now();
  while (!launch(entry, task)) {
    entry.result.value = errno;
    if (running.empty()) {
      entry.result.kind = WorkerResult::NotStarted;
      ++ended;
      return;
    }
    // There are too many processes or open files for now.
    wait();
  }
  running.push_back(&entry);
}

void WorkerPool::add(std::string name, std::string answer) {
  Entry &entry = entries.emplace_back();
  entry.result.name = std::move(name);
  entry.result.answer = std::move(answer);
  heldBytes += entry.result.answer.size();
  ++ended;
}

/// Sets errno when it fails.
bool WorkerPool::launch(Entry &entry, Task task) {
  FileDescriptor out, err;
  if (!openPipe(entry.out, out) || !openPipe(entry.err, err))
    return false;
  WorkerOptions workerOptions;
  workerOptions.maxBytes = options.maxBytes;
  workerOptions.reservedBytes = options.reservedBytes;
  workerOptions.standardOutput = out.get();
  workerOptions.standardError = err.get();
  llvm::Expected<Worker> worker = Worker::start(
      [&](int channel) {
        llvm::raw_fd_ostream answer(channel, /*shouldClose=*/false);
        const int status = task(answer);
        answer.flush();
        answer.clear_error(); // the parent has gone, and with it the interest
        return status;
      },
      workerOptions);
  if (!worker) {
    errno = llvm::errorToErrorCode(worker.takeError()).value();
    return false;
  }
  entry.worker = std::make_unique<Worker>(std::move(*worker));
  return true;
}

void WorkerPool::endOverdue() {
  if (options.maxSeconds <= 0)
    return;
  for (Entry *entry : running)
    if (!entry->isOutOfTime && secondsSince(entry->start) >= options.maxSeconds) {
      entry->isOutOfTime = true;
      entry->worker->kill();
    }
}

/// The milliseconds until something must be done: after \p seconds, or when the time of a worker is
/// over. -1 for no bound.
int WorkerPool::pollTimeout(double seconds) const {
  if (options.maxSeconds > 0)
    for (const Entry *entry : running)
      if (!entry->isOutOfTime) {
        const double left = std::max(0.0, options.maxSeconds - secondsSince(entry->start));
        seconds = seconds < 0 ? left : std::min(seconds, left);
      }
  return seconds < 0 ? -1 : static_cast<int>(std::ceil(std::min(seconds, 1e6) * 1000));
}

void WorkerPool::wait(int wakeUp, double seconds) {
  llvm::SmallVector<pollfd, 32> polled;
  for (const Entry *entry : running)
    for (int descriptor : {entry->channelEnded ? -1 : entry->worker->getChannel(), entry->out.get(),
                           entry->err.get()})
      polled.push_back({descriptor, POLLIN, 0}); // negative ones are passed over
  polled.push_back({wakeUp, POLLIN, 0});
  if (poll(polled.data(), polled.size(), running.empty() ? 0 : pollTimeout(seconds)) < 0)
    return;
  endOverdue();
  const pollfd *next = polled.begin();
  for (Entry *entry : running)
    for (unsigned descriptor = 0; descriptor < 3; ++descriptor, ++next)
      if (next->revents)
        read(*entry, next->fd);
  llvm::erase_if(running, [](const Entry *entry) { return !entry->isRunning(); });
}

void WorkerPool::read(Entry &entry, int descriptor) {
  WorkerResult &result = entry.result;
  std::string &text = descriptor == entry.out.get()   ? result.out
                      : descriptor == entry.err.get() ? result.err
                                                      : result.answer;
  const std::size_t before = text.size();
  const bool goesOn = readAvailable(descriptor, text);
  heldBytes += text.size() - before;
  if (goesOn)
    return;
  if (&text == &result.out)
    entry.out.reset();
  else if (&text == &result.err)
    entry.err.reset();
  else
    entry.channelEnded = true;
  if (!entry.out && !entry.err && entry.channelEnded)
    finish(entry);
}

/// The process has closed all its files, so that it ends now.
void WorkerPool::finish(Entry &entry) {
  const WorkerEnd end = entry.worker->wait();
  entry.worker.reset();
  ++ended;
  WorkerResult &result = entry.result;
  result.kind = kindOf(end, entry.isOutOfTime && end.kind == WorkerEnd::Signaled);
  result.value = end.value;
  result.seconds = secondsSince(entry.start);
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
  if (entries.empty() || entries.front().isRunning())
    return std::nullopt;
  return remove(entries.begin());
}

std::optional<WorkerResult> WorkerPool::takeEnded() {
  auto found = llvm::find_if(entries, [](const Entry &entry) { return !entry.isRunning(); });
  if (found == entries.end())
    return std::nullopt;
  return remove(found);
}

std::pair<llvm::StringRef, double> WorkerPool::getSlowest() {
  for (const Entry *entry : running)
    if (const double seconds = secondsSince(entry->start); seconds > slowestSeconds) {
      slowestSeconds = seconds;
      slowestName = entry->result.name;
    }
  return {slowestName, slowestSeconds};
}

} // namespace tarka
