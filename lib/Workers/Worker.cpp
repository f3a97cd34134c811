//===- Worker.cpp - a process that works for this one ---------------------===//

#include "Workers/Worker.h"
#include "llvm/Support/ErrorHandling.h"
#include "llvm/Support/Signals.h"
#include "llvm/Support/raw_ostream.h"
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarka {

namespace {

/// The exit status of a worker that ran out of memory.
constexpr int exitOutOfMemory = 113;

/// The first descriptor behind the standard ones.
constexpr int workerChannel = 3;

llvm::Error lastError() {
  return llvm::errorCodeToError(std::error_code(errno, std::generic_category()));
}

/// The worker ends with its parent, however that ends.
void endWithParent(pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  // It may have ended before.
  if (getppid() != parent)
    _exit(0);
}

/// The parent's handlers are not for the worker: they would remove the parent's files.
void resetSignals() {
  llvm::sys::unregisterHandlers();
  for (int number : {SIGTERM, SIGPIPE, SIGUSR1, SIGUSR2})
    std::signal(number, SIG_DFL);
  for (int number : {SIGINT, SIGHUP})
    std::signal(number, SIG_IGN);
}

/// Gives the worker its channel and standard files, and nothing else: a copy of another worker's
/// channel would hide the end of the parent from that worker.
void setDescriptors(int channel, const WorkerOptions &options) {
  if (options.standardOutput >= 0)
    dup2(options.standardOutput, STDOUT_FILENO);
  if (options.standardError >= 0)
    dup2(options.standardError, STDERR_FILENO);
  if (channel != workerChannel)
    dup2(channel, workerChannel);
  close_range(workerChannel + 1, ~0u, 0);
}

/// The address space that this process has, in bytes.
std::uint64_t addressSpace() {
  unsigned long long pages = 0;
  if (std::FILE *file = std::fopen("/proc/self/statm", "r")) {
    if (std::fscanf(file, "%llu", &pages) != 1)
      pages = 0;
    std::fclose(file);
  }
  return pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

/// Ends this process, which is a worker, with WorkerEnd::OutOfMemory.
[[noreturn]] void endOutOfMemory() {
  _exit(exitOutOfMemory);
}

void limitMemory(const WorkerOptions &options) {
  if (options.maxBytes == 0)
    return;
  std::set_new_handler(endOutOfMemory);
  llvm::install_bad_alloc_error_handler([](void *, const char *, bool) { endOutOfMemory(); });
  rlimit limit;
  getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur =
      std::min<rlim_t>(limit.rlim_max, addressSpace() + options.reservedBytes + options.maxBytes);
  setrlimit(RLIMIT_AS, &limit);
}

} // namespace

void FileDescriptor::reset(int descriptor) {
  if (number >= 0)
    close(number);
  number = descriptor;
}

llvm::Expected<Worker> Worker::start(Task task, const WorkerOptions &options) {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
    return lastError();
  FileDescriptor ours(ends[0]), theirs(ends[1]);
  fcntl(ours.get(), F_SETFL, O_NONBLOCK);
  // What is in the buffers is the parent's to write.
  llvm::outs().flush();
  llvm::errs().flush();
  const pid_t parent = getpid();
  const pid_t child = fork();
  if (child < 0)
    return lastError();
  if (child == 0) {
    endWithParent(parent);
    resetSignals();
    setDescriptors(theirs.release(), options);
    limitMemory(options);
    const int status = task(workerChannel);
    llvm::outs().flush();
    llvm::errs().flush();
    _exit(status);
  }
  return Worker(child, std::move(ours));
}

Worker::Worker(Worker &&other) noexcept
    : pid(std::exchange(other.pid, 0)), channel(std::move(other.channel)) {}

Worker &Worker::operator=(Worker &&other) noexcept {
  std::swap(pid, other.pid);
  std::swap(channel, other.channel);
  return *this;
}

Worker::~Worker() {
  if (pid == 0)
    return;
  kill();
  wait();
}

void Worker::kill() const {
  ::kill(pid, SIGKILL);
}

WorkerEnd Worker::wait() {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  pid = 0;
  channel.reset();
  if (WIFSIGNALED(status))
    return {WorkerEnd::Signaled, WTERMSIG(status)};
  if (WEXITSTATUS(status) == exitOutOfMemory)
    return {WorkerEnd::OutOfMemory, 0};
  return {WorkerEnd::Exited, WEXITSTATUS(status)};
}

} // namespace tarka
