//===- WorkerPool.h - many tasks, several at a time -------------*- C++ -*-===//
//
// A pool has some workers, each of which carries out one task after the other, and
// gives the results in the order in which the tasks were started. A task whose
// worker ends is tried again in a new worker that has done nothing else, so that
// what comes of it does not depend on the tasks before. What the pool holds does
// not grow with the number of tasks: new ones wait while too many results wait for
// their turn.
//
//     WorkerPool pool(options, task);
//     while (true) {
//       while (more tasks && pool.hasRoom())
//         pool.start(name);
//       if (pool.isEmpty())
//         break;
//       pool.wait();
//       while (std::optional<WorkerResult> result = pool.take())
//         ...
//     }
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_WORKERS_WORKERPOOL_H
#define TARKA_WORKERS_WORKERPOOL_H

#include "Workers/Worker.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringRef.h"
#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

struct WorkerPoolOptions {
  /// How many workers run at a time; 0 for one per processor.
  unsigned jobs = 0;
  /// How long each task may take, in seconds on the clock; 0 for no limit.
  double maxSeconds = 0;
  /// The limits of their memory, see WorkerOptions.
  std::uint64_t maxBytes = 0;
  std::uint64_t reservedBytes = 0;
  /// A worker is replaced by a new one when it has this much more memory, in bytes, after a task
  /// than it began with.
  std::uint64_t keptBytes = 256u << 20;
  /// Called once in each worker with the function that does all its work: it makes what the tasks
  /// need, calls the function, and returns. Empty where they need nothing.
  std::function<void(llvm::function_ref<void()> work)> surround = {};
};

/// What came of a task.
struct WorkerResult {
  enum Kind : std::uint8_t {
    Done,        ///< the task came to its end
    Crashed,     ///< a signal ended the worker
    OutOfTime,   ///< it was ended after WorkerPoolOptions::maxSeconds
    OutOfMemory, ///< it ended at WorkerPoolOptions::maxBytes
    NotStarted,  ///< no process could be made
  };
  Kind kind = Done;
  /// Of Done what the task returned, of Crashed the signal, of NotStarted the errno.
  int value = 0;
  /// The name that the task was started with.
  std::string name;
  /// What the task wrote to its stream; not to be relied on unless Done.
  std::string answer;
  /// What the worker printed on standard output and standard error.
  std::string out;
  std::string err;
  double seconds = 0;
};

class WorkerPool {
public:
  using Clock = std::chrono::steady_clock;
  /// What a worker does with the task \p name: it may print, writes to \p answer, and returns a
  /// status from 0 to 100. What a task leaves behind in the process, those after it find.
  using Task = std::function<int(const std::string &name, llvm::raw_ostream &answer)>;

  WorkerPool(WorkerPoolOptions poolOptions, Task poolTask);
  WorkerPool(const WorkerPool &) = delete;
  WorkerPool &operator=(const WorkerPool &) = delete;
  /// Kills the workers that still run.
  ~WorkerPool();

  /// Whether a further task can be started now.
  bool hasRoom() const;
  /// Whether every result has been taken.
  bool isEmpty() const { return entries.empty(); }
  /// Gives the task \p name to a worker.
  void start(std::string name);
  /// Says that no further task comes, so that a worker without one ends.
  void close();
  /// Adds a result that needs no worker, in its turn.
  void add(std::string name, std::string answer);
  /// Waits until something has happened: a worker has written or ended, \p wakeUp can be read, or
  /// \p seconds are over. Both may be negative for none.
  void wait(int wakeUp = -1, double seconds = -1);
  /// The next result in the order of the tasks; none while its worker runs.
  std::optional<WorkerResult> take();
  /// The next result of those that are there, those of running tasks left out.
  std::optional<WorkerResult> takeEnded();

  /// How many tasks have ended.
  std::size_t getEnded() const { return endedTasks; }
  /// The task that took longest so far, and its seconds; it may still run. Empty at first.
  std::pair<llvm::StringRef, double> getSlowest();

private:
  struct Process;

  /// A task whose result has not been taken.
  struct Entry {
    WorkerResult result;
    Clock::time_point start;
    /// The worker that carries it out; null when there is a result.
    Process *process = nullptr;
  };

  /// A worker, and what has come from it of the task that it carries out.
  struct Process {
    std::unique_ptr<Worker> worker;
    /// The files that its standard output and standard error go to.
    FileDescriptor out;
    FileDescriptor err;
    /// Null while it has nothing to do.
    Entry *entry = nullptr;
    /// The part of its message that has been read.
    std::string received;
    /// Whether it has carried out another task before.
    bool isUsed = false;
    bool isOutOfTime = false;
    /// Whether it takes no further task.
    bool isEnding = false;
  };

  bool assign(Entry &entry, bool needsNewWorker);
  std::unique_ptr<Process> launch();
  void endIdle();
  void endOverdue();
  int pollTimeout(double seconds) const;
  void read(Process &process);
  bool takeMessage(Process &process);
  void finishWorker(Process &process);
  void finish(Process &process, WorkerResult::Kind kind, int value);
  WorkerResult remove(std::list<Entry>::iterator position);

  WorkerPoolOptions options;
  Task task;
  /// In the order started.
  std::list<Entry> entries;
  llvm::SmallVector<std::unique_ptr<Process>, 8> processes;
  std::size_t running = 0;
  bool isClosed = false;
  /// What the results hold that have not been taken, in bytes.
  std::size_t heldBytes = 0;
  std::size_t endedTasks = 0;
  std::string slowestName;
  double slowestSeconds = 0;
};

} // namespace tarka

#endif // TARKA_WORKERS_WORKERPOOL_H
