//===- Worker.h - a process that works for this one -------------*- C++ -*-===//
//
// A compilation is a process: its state is global, it may crash, run away or have
// to be cancelled. The parent forks a worker, exchanges bytes with it over a
// socket, and outlives whatever happens to it. The worker never outlives the
// parent.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_WORKERS_WORKER_H
#define TARKA_WORKERS_WORKER_H

#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/Support/Error.h"
#include <cstdint>
#include <sys/types.h>

namespace tarka {

/// A file descriptor that is closed with its owner.
class FileDescriptor {
public:
  FileDescriptor() = default;
  explicit FileDescriptor(int descriptor) : number(descriptor) {}
  FileDescriptor(FileDescriptor &&other) noexcept : number(other.release()) {}
  FileDescriptor &operator=(FileDescriptor &&other) noexcept {
    reset(other.release());
    return *this;
  }
  ~FileDescriptor() { reset(); }

  /// -1 when there is none.
  int get() const { return number; }
  explicit operator bool() const { return number >= 0; }
  int release() {
    const int released = number;
    number = -1;
    return released;
  }
  void reset(int descriptor = -1);

private:
  int number = -1;
};

/// How a worker ended.
struct WorkerEnd {
  enum Kind : std::uint8_t {
    Exited,      ///< the task came to its end; value is what it returned
    Signaled,    ///< a signal ended it; value is the signal
    OutOfMemory, ///< it needed more than WorkerOptions::maxBytes
  };
  Kind kind = Exited;
  int value = 0;
};

struct WorkerOptions {
  /// How much memory, in bytes of address space, the worker may take in addition to what the
  /// process has; 0 for no limit.
  std::uint64_t maxBytes = 0;
  /// Address space in bytes that the task reserves and is not to be counted: large stacks.
  std::uint64_t reservedBytes = 0;
  /// What standard output and standard error of the worker are; -1 for those of this process.
  int standardOutput = -1;
  int standardError = -1;
};

/// A running worker. Destroying it kills the process, if it has not been waited for.
class Worker {
public:
  /// What the worker does. \p channel is its end of the socket: a stream in both directions, which
  /// is at its end when the parent is gone or has closed the other end. What it returns, from 0 to
  /// 100, is the exit status.
  using Task = llvm::function_ref<int(int channel)>;

  /// Forks a worker that carries out \p task. The worker has no other open files than the three
  /// standard ones and the channel, and does not see SIGINT and SIGHUP, which a terminal sends to
  /// all processes: the parent decides. It is killed when the thread that called start() ends, so
  /// that must be one that lasts, normally the main thread. Fails when no process can be made.
  static llvm::Expected<Worker> start(Task task, const WorkerOptions &options = {});

  Worker(Worker &&other) noexcept;
  Worker &operator=(Worker &&other) noexcept;
  ~Worker();

  pid_t getPid() const { return pid; }
  /// This end of the socket, which does not block. At its end, the worker has ended or is about to.
  int getChannel() const { return channel.get(); }
  /// Ends the worker at once. It must still be waited for.
  void kill() const;
  /// Waits until the worker has ended. Called once; afterwards the object is empty.
  WorkerEnd wait();

private:
  Worker(pid_t process, FileDescriptor end) : pid(process), channel(std::move(end)) {}

  /// 0 when it has been waited for.
  pid_t pid = 0;
  FileDescriptor channel;
};

} // namespace tarka

#endif // TARKA_WORKERS_WORKER_H
