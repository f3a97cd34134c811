//===- WorkersTest.cpp - workers, whatever becomes of them ----------------===//

#include "Workers/Interrupt.h"
#include "Workers/WorkerPool.h"
#include "llvm/Support/raw_ostream.h"
#include <csignal>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tarka;

namespace {

/// Runs the tasks that are named by their numbers.
std::vector<WorkerResult> runAll(WorkerPool &pool, int tasks) {
  std::vector<WorkerResult> results;
  for (int next = 0; next < tasks || !pool.isEmpty();) {
    for (; next < tasks && pool.hasRoom(); ++next)
      pool.start(std::to_string(next));
    pool.wait();
    while (std::optional<WorkerResult> result = pool.take())
      results.push_back(std::move(*result));
  }
  return results;
}

// What they print and answer is far larger than a pipe, and they end in another order.
TEST(WorkerPool, ResultsComeWholeAndInOrder) {
  const std::string large(1 << 20, 'x');
  WorkerPool pool({.jobs = 8}, [&](const std::string &name, llvm::raw_ostream &answer) {
    const int number = std::stoi(name);
    usleep(static_cast<unsigned>((60 - number) % 7) * 3000);
    llvm::outs() << "out " << number;
    llvm::errs() << "err " << number << large;
    answer << number << large;
    return number;
  });
  auto results = runAll(pool, 60);
  ASSERT_EQ(results.size(), 60u);
  for (int number = 0; number < 60; ++number) {
    const WorkerResult &result = results[static_cast<unsigned>(number)];
    EXPECT_EQ(result.kind, WorkerResult::Done);
    EXPECT_EQ(result.value, number);
    EXPECT_EQ(result.name, std::to_string(number));
    EXPECT_EQ(result.out, "out " + std::to_string(number));
    EXPECT_EQ(result.err, "err " + std::to_string(number) + large);
    EXPECT_EQ(result.answer, std::to_string(number) + large);
  }
  EXPECT_EQ(pool.getEnded(), 60u);
  EXPECT_GT(pool.getSlowest().second, 0.015);
}

// Workers have done other tasks before one of them fails.
TEST(WorkerPool, EachKindOfFailureCostsOneTask) {
  WorkerPoolOptions options{.jobs = 2, .maxSeconds = 0.3};
  // The sanitizer has the address space for itself.
  if (!LLVM_ADDRESS_SANITIZER_BUILD)
    options.maxBytes = 64u << 20;
  WorkerPool pool(options, [&](const std::string &name, llvm::raw_ostream &answer) -> int {
    const int number = std::stoi(name);
    answer << number;
    llvm::errs() << "begins";
    llvm::errs().flush();
    if (number == 11)
      raise(SIGABRT); // a signal that the sanitizers leave alone
    if (number == 12)
      pause();
    if (number == 13) {
      std::vector<std::string> memory;
      while (options.maxBytes != 0)
        memory.emplace_back(1u << 20, 'x');
    }
    if (number == 14) {
      close(3); // the answer ends, the worker does not
      pause();
    }
    return 7;
  });
  auto results = runAll(pool, 20);
  ASSERT_EQ(results.size(), 20u);
  for (int number : {0, 10, 15, 19}) {
    const WorkerResult &result = results[static_cast<unsigned>(number)];
    EXPECT_EQ(result.kind, WorkerResult::Done);
    EXPECT_EQ(result.value, 7);
    EXPECT_EQ(result.answer, std::to_string(number));
    EXPECT_EQ(result.err, "begins");
  }
  EXPECT_EQ(results[11].kind, WorkerResult::Crashed);
  EXPECT_EQ(results[11].value, SIGABRT);
  EXPECT_EQ(results[11].err, "begins");
  EXPECT_EQ(results[12].kind, WorkerResult::OutOfTime);
  EXPECT_GE(results[12].seconds, 0.3);
  EXPECT_EQ(results[13].kind, options.maxBytes ? WorkerResult::OutOfMemory : WorkerResult::Done);
  EXPECT_EQ(results[14].kind, WorkerResult::Crashed);
}

// What fails because of what earlier tasks have left behind is tried again without it.
TEST(WorkerPool, FailuresDoNotDependOnEarlierTasks) {
  static int carriedOut = 0;
  WorkerPool pool({.jobs = 1}, [](const std::string &name, llvm::raw_ostream &answer) {
    if (name == "5" && carriedOut > 0)
      raise(SIGABRT);
    answer << ++carriedOut;
    return 0;
  });
  std::string answers;
  for (const WorkerResult &result : runAll(pool, 8))
    answers += result.answer;
  EXPECT_EQ(answers, "12345123");
}

// A worker does not grow without end.
TEST(WorkerPool, LargeWorkersAreReplaced) {
  static int carriedOut = 0;
  static std::string left;
  WorkerPool pool({.jobs = 1, .keptBytes = 1u << 20},
                  [](const std::string &, llvm::raw_ostream &answer) {
                    left.assign(32u << 20, 'x');
                    answer << ++carriedOut;
                    return 0;
                  });
  for (const WorkerResult &result : runAll(pool, 5))
    EXPECT_EQ(result.answer, "1");
}

// When the run is broken off, what is ready can be had without waiting for the others.
TEST(WorkerPool, ResultsBehindARunningWorker) {
  WorkerPool pool({.jobs = 3}, [](const std::string &name, llvm::raw_ostream &) {
    return name == "slow" ? pause() : 0;
  });
  for (const char *name : {"slow", "a", "b"})
    pool.start(name);
  while (pool.getEnded() < 2)
    pool.wait();
  EXPECT_FALSE(pool.take());
  for (const char *name : {"a", "b"}) {
    const auto ended = pool.takeEnded();
    ASSERT_TRUE(ended);
    EXPECT_EQ(ended->name, name);
  }
  EXPECT_FALSE(pool.takeEnded());
}

/// Reads one answer of a worker that stays.
std::string ask(const Worker &worker, llvm::StringRef question) {
  EXPECT_EQ(write(worker.getChannel(), question.data(), question.size()),
            static_cast<ssize_t>(question.size()));
  pollfd channel = {worker.getChannel(), POLLIN, 0};
  poll(&channel, 1, 10'000);
  char buffer[100];
  const ssize_t size = read(worker.getChannel(), buffer, sizeof buffer);
  return std::string(buffer, size > 0 ? static_cast<std::size_t>(size) : 0);
}

/// Answers each question with itself in brackets, and ends with the questions.
int answerQuestions(int channel) {
  char buffer[100];
  int count = 0;
  for (ssize_t size; (size = read(channel, buffer, sizeof buffer)) > 0; ++count) {
    const std::string answer = "(" + std::string(buffer, static_cast<std::size_t>(size)) + ")";
    if (write(channel, answer.data(), answer.size()) < 0)
      return 100;
  }
  return count;
}

// Two workers that stay do not hold each other's channel open.
TEST(Worker, StaysAndAnswers) {
  llvm::Expected<Worker> first = Worker::start(answerQuestions);
  ASSERT_TRUE(!!first);
  std::optional<Worker> second(llvm::cantFail(Worker::start(answerQuestions)));
  EXPECT_EQ(ask(*first, "one"), "(one)");
  EXPECT_EQ(ask(*second, "two"), "(two)");
  EXPECT_EQ(ask(*first, "three"), "(three)");
  shutdown(first->getChannel(), SHUT_WR);
  const WorkerEnd end = first->wait();
  EXPECT_EQ(end.kind, WorkerEnd::Exited);
  EXPECT_EQ(end.value, 2);
  // The destructor ends what has not been waited for.
  const pid_t pid = second->getPid();
  second.reset();
  EXPECT_EQ(kill(pid, 0), -1);
}

// Workers that compute, sleep or wait for a question end when their parent is killed.
TEST(Worker, EndsWithItsParent) {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t parent = fork();
  if (parent == 0) {
    std::vector<Worker> workers;
    workers.push_back(llvm::cantFail(Worker::start([](int) { return pause(); })));
    workers.push_back(llvm::cantFail(Worker::start(answerQuestions)));
    workers.push_back(llvm::cantFail(Worker::start([](int) -> int {
      for (volatile bool goesOn = true; goesOn;) {
      }
      return 0;
    })));
    ask(workers[1], "ready?");
    [[maybe_unused]] const ssize_t written = write(ready[1], "", 1);
    pause();
  }
  char byte;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  kill(parent, SIGKILL);
  // Orphans become children of this process. They end, or this would wait for ever.
  alarm(20);
  int ended = 0;
  while (waitpid(-1, nullptr, 0) > 0)
    ++ended;
  alarm(0);
  EXPECT_EQ(ended, 4);
  prctl(PR_SET_CHILD_SUBREAPER, 0);
}

TEST(Interrupt, IsKeptOnceThenActsAsBefore) {
  const pid_t child = fork();
  if (child == 0) {
    Interrupt interrupt;
    raise(SIGTERM);
    pollfd descriptor = {interrupt.getDescriptor(), POLLIN, 0};
    if (interrupt.getSignal() != SIGTERM || poll(&descriptor, 1, 0) != 1)
      _exit(1);
    raise(SIGTERM);
    _exit(2);
  }
  int status;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
}

} // namespace
