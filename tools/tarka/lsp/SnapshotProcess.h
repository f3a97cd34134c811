//===- SnapshotProcess.h - the server's end of a snapshot -------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_SNAPSHOTPROCESS_H
#define TARKA_TOOLS_LSP_SNAPSHOTPROCESS_H

#include "Workers/Worker.h"
#include "lsp/Frames.h"
#include "llvm/ADT/FunctionExtras.h"
#include <chrono>
#include <map>
#include <memory>

namespace tarka::lsp {

/// A process that analyses one version of a program and then answers questions on it.
class SnapshotProcess {
public:
  /// Takes an answer or what went wrong. Called exactly once.
  using Reply = llvm::unique_function<void(llvm::Expected<llvm::json::Value>)>;
  using Clock = std::chrono::steady_clock;

  /// Starts a process that carries out \p task, which sends the analysis and then answers.
  static llvm::Expected<std::unique_ptr<SnapshotProcess>> start(Worker::Task task,
                                                                const WorkerOptions &options);
  SnapshotProcess(const SnapshotProcess &) = delete;
  SnapshotProcess &operator=(const SnapshotProcess &) = delete;
  /// Kills the process and waits for its end, which retire() avoids.
  ~SnapshotProcess() { retire(); }

  /// Sends a request. It is answered after the analysis.
  void ask(llvm::StringRef method, const llvm::json::Value &parameters, Reply reply);

  /// Ends the process without waiting for it, after which serve() gives false before long. Who
  /// waits for an answer is told that the text has changed.
  void retire();

  /// For poll(): the socket, and whether there is something to be written.
  int getDescriptor() const { return worker.getChannel(); }
  bool hasOutput() const { return !output.empty(); }
  /// Sends and receives what is possible without waiting, and passes on the answers. False when
  /// the process has ended.
  bool serve();
  /// Whether the analysis has arrived.
  bool isAnalysed() const { return analysed; }
  /// What the process has found, once.
  std::optional<llvm::json::Value> takeAnalysis() { return std::exchange(analysis, std::nullopt); }
  /// Whether it owes something for longer than anything takes.
  bool isOverdue() const;
  /// After serve() has given false, or isOverdue() true: waits for its end, fails what it owes, and
  /// gives the reason in words.
  std::string describeEnd();

private:
  explicit SnapshotProcess(Worker process) : worker(std::move(process)) {}
  void write();
  void take(llvm::json::Value message);

  Worker worker;
  std::string output;
  FrameReader reader;
  struct Question {
    Reply reply;
    Clock::time_point asked;
  };
  std::map<std::int64_t, Question> questions;
  std::int64_t lastQuestion = 0;
  Clock::time_point started = Clock::now();
  bool analysed = false;
  bool hasEnded = false;
  std::optional<llvm::json::Value> analysis;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_SNAPSHOTPROCESS_H
