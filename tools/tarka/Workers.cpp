//===- Workers.cpp - a process for each file ------------------------------===//

#include "Workers.h"
#include "CommandLine.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/Support/Errno.h"
#include "llvm/Support/raw_ostream.h"
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tarka {

namespace {

/// One file's worker: the memory files that take what it prints and answers, and how it ended.
struct Worker {
  int out = -1;
  int err = -1;
  int answer = -1;
  int waitStatus = 0;
  bool started = false;
  bool ended = false;
};

/// How many workers may have been started without having been printed.
constexpr std::size_t maxUnprinted = 200;

/// Copies what a worker printed to \p target. False when it cannot be written.
bool copyOut(int memoryFile, int target) {
  if (memoryFile < 0)
    return true;
  char buffer[1 << 16];
  off_t offset = 0;
  bool written = true;
  for (ssize_t got; (got = pread(memoryFile, buffer, sizeof buffer, offset)) > 0; offset += got)
    for (ssize_t done = 0; written && done < got;) {
      ssize_t count = write(target, buffer + done, got - done);
      if (count < 0 && errno == EINTR)
        continue;
      written = count > 0;
      done += count;
    }
  close(memoryFile);
  return written;
}

/// Takes the answer out of its memory file.
std::string readAnswer(int memoryFile) {
  std::string answer;
  const off_t size = memoryFile < 0 ? 0 : lseek(memoryFile, 0, SEEK_END);
  if (size > 0) {
    answer.resize(static_cast<std::size_t>(size));
    off_t offset = 0;
    for (ssize_t got; (got = pread(memoryFile, answer.data() + offset, size - offset, offset)) > 0;)
      offset += got;
    answer.resize(static_cast<std::size_t>(offset));
  }
  if (memoryFile >= 0)
    close(memoryFile);
  return answer;
}

/// Passes on what the worker printed, and gives its result to \p take.
bool finish(Worker &worker, const std::string &file,
            llvm::function_ref<bool(const WorkerResult &)> take) {
  bool written = copyOut(worker.out, STDOUT_FILENO);
  written &= copyOut(worker.err, STDERR_FILENO);
  const std::string answer = readAnswer(worker.answer);
  WorkerResult result{file, answer, ExitInternal, ""};
  if (!written)
    result.failure = "what was printed for it cannot be written";
  else if (!worker.started)
    result.failure = "no process could be started for it";
  else if (WIFSIGNALED(worker.waitStatus))
    result.failure =
        "internal failure (" + std::string(strsignal(WTERMSIG(worker.waitStatus))) + ")";
  else
    result.exitStatus = WEXITSTATUS(worker.waitStatus);
  return take(result);
}

} // namespace

void runWorkers(const std::vector<std::string> &files, unsigned jobs, WorkerTask task,
                llvm::function_ref<bool(const WorkerResult &)> take) {
  if (jobs == 0)
    jobs = std::max(1u, std::thread::hardware_concurrency());

  std::vector<Worker> workers(files.size());
  llvm::DenseMap<pid_t, std::size_t> running;
  std::size_t next = 0, printed = 0;
  bool goOn = true;

  while (goOn && printed < files.size()) {
    // Start workers while there is room. Those that have ended keep what they printed until it is
    // their turn, which is bounded by how many files may be open.
    while (next < files.size() && running.size() < jobs && next - printed < maxUnprinted) {
      Worker &worker = workers[next];
      worker.out = memfd_create("out", MFD_CLOEXEC);
      worker.err = memfd_create("err", MFD_CLOEXEC);
      worker.answer = memfd_create("answer", MFD_CLOEXEC);
      // What is in the buffers is the parent's to write.
      llvm::outs().flush();
      llvm::errs().flush();
      pid_t child = fork();
      if (child == 0) {
        dup2(worker.out, STDOUT_FILENO);
        dup2(worker.err, STDERR_FILENO);
        llvm::raw_fd_ostream answer(worker.answer, /*shouldClose=*/false);
        int result = task(files[next], answer);
        answer.flush();
        llvm::outs().flush();
        _exit(result);
      }
      worker.started = child > 0;
      worker.ended = !worker.started;
      if (child > 0)
        running[child] = next;
      ++next;
    }

    // Take one that has ended.
    int waitStatus;
    pid_t ended = running.empty() ? 0 : waitpid(-1, &waitStatus, 0);
    if (auto found = running.find(ended); ended > 0 && found != running.end()) {
      workers[found->second].waitStatus = waitStatus;
      workers[found->second].ended = true;
      running.erase(found);
    }

    // Pass on what is complete, in the order of the files.
    for (; goOn && printed < files.size() && workers[printed].ended; ++printed)
      goOn = finish(workers[printed], files[printed], take);
  }
  for (const auto &[child, index] : running) {
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
}

} // namespace tarka
