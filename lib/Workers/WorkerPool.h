//===- WorkerPool.h - many tasks, several at a time -------------*- C++ -*-===//
//
// A pool has a worker for each task, some of them at a time, and gives the results
// in the order in which the tasks were started. What it holds does not grow with
// the number of tasks: new ones wait while too many results wait for their turn.
//
//     while (true) {
//       while (more tasks && pool.hasRoom())
//         pool.start(name, task);
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
  /// How long each may run, in seconds on the clock; 0 for no limit.
  double maxSeconds = 0;
  /// The limits of their memory, see WorkerOptions.
  std::uint64_t maxBytes = 0;
  std::uint64_t reservedBytes = 0;
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
  /// What a worker does: it may print, writes to \p answer, and returns a status from 0 to 100.
  using Task = llvm::function_ref<int(llvm::raw_ostream &answer)>;

  explicit WorkerPool(const WorkerPoolOptions &poolOptions);
  WorkerPool(const WorkerPool &) = delete;
  WorkerPool &operator=(const WorkerPool &) = delete;
  /// Kills the workers that still run.
  ~WorkerPool();

  /// Whether a further task can be started now.
  bool hasRoom() const;
  /// Whether every result has been taken.
  bool isEmpty() const { return entries.empty(); }
  /// Forks a worker for \p task. \p name is for the result.
  void start(std::string name, Task task);
  /// Adds a result that needs no worker, in its turn.
  void add(std::string name, std::string answer);
  /// Waits until something has happened: a worker has written or ended, \p wakeUp can be read, or
  /// \p seconds are over. Both may be negative for none.
  void wait(int wakeUp = -1, double seconds = -1);
  /// The next result in the order of the tasks; none while its worker runs.
  std::optional<WorkerResult> take();
  /// The next result of those whose workers have ended, others left out.
  std::optional<WorkerResult> takeEnded();

  /// How many workers have ended.
  std::size_t getEnded() const { return ended; }
  /// The task that took longest so far, and its seconds; it may still run. Empty at first.
  std::pair<llvm::StringRef, double> getSlowest();

private:
  /// A task whose result has not been taken.
  struct Entry {
    WorkerResult result;
    std::unique_ptr<Worker> worker;
    FileDescriptor out;
    FileDescriptor err;
    Clock::time_point start;
    bool channelEnded = false;
    bool isOutOfTime = false;

    bool isRunning() const { return worker != nullptr; }
  };

  bool launch(Entry &entry, Task task);
  void endOverdue();
  int pollTimeout(double seconds) const;
  void read(Entry &entry, int descriptor);
  void finish(Entry &entry);
  WorkerResult remove(std::list<Entry>::iterator position);

  WorkerPoolOptions options;
  /// In the order started.
  std::list<Entry> entries;
  llvm::SmallVector<Entry *, 8> running;
  /// What the results hold that have not been taken, in bytes.
  std::size_t heldBytes = 0;
  std::size_t ended = 0;
  std::string slowestName;
  double slowestSeconds = 0;
};

} // namespace tarka

#endif // TARKA_WORKERS_WORKERPOOL_H
