//===- ProgramRun.cpp - a run over many programs --------------------------===//

#include "ProgramRun.h"
#include "AST/Storage.h"
#include "Compilation.h"
#include "Progress.h"
#include "Workers/Interrupt.h"
#include "Workers/WorkerPool.h"
#include "llvm/Support/ErrorHandling.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/raw_ostream.h"
#include <cstring>
#include <system_error>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace tarka {

namespace {

constexpr std::uint64_t megabyte = 1u << 20;

/// Prints what a worker printed. False when it cannot be written.
bool print(llvm::raw_ostream &out, llvm::StringRef text) {
  if (text.empty())
    return true;
  out << text;
  out.flush();
  auto &file = static_cast<llvm::raw_fd_ostream &>(out);
  const bool isWritten = !file.has_error();
  file.clear_error();
  return isWritten;
}

/// Lets the worker keep the memory that a program has freed for the next one, and gives it the
/// stack of compilations.
void prepareWorker(llvm::function_ref<void()> work) {
#ifdef __GLIBC__
  mallopt(M_ARENA_MAX, 1);
  mallopt(M_TRIM_THRESHOLD, 64 << 20);
  mallopt(M_MMAP_THRESHOLD, 1 << 20);
#endif
  compile(work);
}

/// Why \p result is none; empty when the task came to its end.
std::string describeFailure(const WorkerResult &result, const Request &request) {
  std::string text;
  llvm::raw_string_ostream out(text);
  switch (result.kind) {
  case WorkerResult::Done:
    break;
  case WorkerResult::Crashed:
    out << "not analysed: internal failure (" << strsignal(result.value) << ")";
    break;
  case WorkerResult::OutOfTime:
    out << "not analysed: it takes longer than " << llvm::format("%g", request.timeLimit)
        << " s (--time-limit)";
    break;
  case WorkerResult::OutOfMemory:
    out << "not analysed: it needs more than " << request.memoryLimit
        << " MiB of memory (--memory-limit)";
    break;
  case WorkerResult::NotStarted:
    out << "not analysed: no process can be started: "
        << std::generic_category().message(result.value);
    break;
  }
  return text;
}

class ProgramRun {
public:
  ProgramRun(const Request &driverRequest, ProgramSource source, ProgramTask programTask,
             llvm::function_ref<bool(const ProgramResult &)> taker, KnownAnswer knownAnswer)
      : request(driverRequest), next(source), task(programTask), take(taker), known(knownAnswer),
        pool({.jobs = request.jobs,
              .maxSeconds = request.timeLimit,
              .maxBytes = request.memoryLimit * megabyte,
              .reservedBytes = compilationStack,
              .surround = prepareWorker},
             [this](const std::string &file, llvm::raw_ostream &answer) {
               const int status = task(file, answer);
               releaseStorage();
               return status;
             }),
        progress(request) {}

  int run();

private:
  void startMore();
  bool pass(const WorkerResult &result);

  const Request &request;
  ProgramSource next;
  ProgramTask task;
  llvm::function_ref<bool(const ProgramResult &)> take;
  KnownAnswer known;
  WorkerPool pool;
  Progress progress;
  bool hasMore = true;
};

int ProgramRun::run() {
  Interrupt interrupt;
  startMore();
  while (!pool.isEmpty() && !interrupt.getSignal()) {
    pool.wait(interrupt.getDescriptor(), progress.untilUpdate());
    while (std::optional<WorkerResult> result = pool.take())
      if (!pass(*result))
        return 0;
    startMore();
    const auto [slowest, seconds] = pool.getSlowest();
    progress.update(pool.getEnded(), slowest, seconds);
  }
  if (interrupt.getSignal())
    while (std::optional<WorkerResult> result = pool.takeEnded())
      if (!pass(*result))
        break;
  return interrupt.getSignal();
}

void ProgramRun::startMore() {
  while (hasMore && pool.hasRoom()) {
    std::optional<std::string> file = next();
    hasMore = file.has_value();
    if (!file) {
      pool.close();
      break;
    }
    if (std::optional<std::string> kept = known ? known(*file) : std::nullopt)
      pool.add(*file, std::move(*kept));
    else
      pool.start(*file);
  }
}

/// Passes on what a worker printed and answered; false when the run is not to go on.
bool ProgramRun::pass(const WorkerResult &result) {
  progress.clear();
  bool isWritten = print(llvm::outs(), result.out);
  isWritten &= print(llvm::errs(), result.err);
  ProgramResult program{result.name, result.answer, result.value, describeFailure(result, request)};
  if (!isWritten)
    program.failure = "what was printed for it cannot be written";
  return take(program);
}

} // namespace

int runPrograms(const Request &request, ProgramSource next, ProgramTask task,
                llvm::function_ref<bool(const ProgramResult &)> take, KnownAnswer known) {
  return ProgramRun(request, next, task, take, known).run();
}

} // namespace tarka
