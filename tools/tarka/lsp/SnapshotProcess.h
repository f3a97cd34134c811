//===- SnapshotProcess.h - the server's end of a snapshot -------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_SNAPSHOTPROCESS_H
#define TARKA_TOOLS_LSP_SNAPSHOTPROCESS_H

#include "Workers/Worker.h"
#include "lsp/Frames.h"
#include "llvm/ADT/FunctionExtras.h"
#include "llvm/Support/JSON.h"
#include <chrono>
#include <map>
#include <memory>

namespace tarka::lsp {

/// A diagnostic of one file as a snapshot sends it.
struct FileDiagnostic {
  /// The same for two diagnostics of which only one is to be shown.
  std::string key;
  /// As the protocol has it, JSON.
  std::string text;
  bool operator==(const FileDiagnostic &) const = default;
};
/// By the absolute path of the file.
using DiagnosticsByFile = std::map<std::string, std::vector<FileDiagnostic>>;

/// What a snapshot has found.
struct SnapshotAnalysis {
  llvm::json::Object facts;
  DiagnosticsByFile diagnostics;
};

/// The result of a question, JSON.
struct SnapshotAnswer {
  std::string text = "null";
  /// There is nothing at the place, or nothing in the text.
  bool isEmpty = true;
};

/// How much of the text a snapshot has understood.
struct Reliability {
  std::int64_t syntaxErrors = 0;
  /// The places at which there is a name whose meaning is known.
  std::int64_t names = 0;
};

/// A process that analyses one version of a program and then answers questions on it.
class SnapshotProcess {
public:
  /// Takes an answer or what went wrong. Called exactly once.
  using Reply = llvm::unique_function<void(llvm::Expected<SnapshotAnswer>)>;
  using Clock = std::chrono::steady_clock;

  /// Starts a process that carries out \p task, which sends the analysis and then answers.
  static llvm::Expected<std::unique_ptr<SnapshotProcess>> start(Worker::Task task,
                                                                const WorkerOptions &options);
  SnapshotProcess(const SnapshotProcess &) = delete;
  SnapshotProcess &operator=(const SnapshotProcess &) = delete;
  /// Kills the process and waits for its end, which retire() avoids.
  ~SnapshotProcess() { retire(); }

  /// Sends a question, see Frame. It is answered after the analysis.
  void ask(llvm::StringRef question, Reply reply);
  /// Sends a change of a text that the editor has open: places in questions and answers are those
  /// of the changed text.
  void change(llvm::StringRef parameters);
  /// Whether a text of the program has been changed after the process was started.
  bool isChanged() const { return changed; }

  /// Ends the process without waiting for it, after which serve() gives false before long. Who
  /// waits for an answer is told that the text has changed.
  void retire();

  /// For poll(): the socket, and whether there is something to be written.
  int getDescriptor() const { return worker.getChannel(); }
  bool hasOutput() const { return !output.empty(); }
  /// Sends and receives what is possible without waiting, and passes on the answers. Returns early
  /// when the reliability has arrived, which decides who is asked. False when the process has
  /// ended.
  bool serve();
  /// Whether the analysis has arrived.
  bool isAnalysed() const { return analysed; }
  /// What the process has found, once.
  std::optional<SnapshotAnalysis> takeAnalysis();
  /// None until it is known, which is before any answer arrives.
  const std::optional<Reliability> &getReliability() const { return reliability; }
  /// Whether it has ended by itself, and owes what it was asked.
  bool hasFailed() const { return hasEnded; }
  /// Whether it owes something for longer than anything takes.
  bool isOverdue() const;
  /// After serve() has given false, or isOverdue() true: waits for its end, fails what it owes, and
  /// gives the reason in words.
  std::string describeEnd();

private:
  explicit SnapshotProcess(Worker process) : worker(std::move(process)) {}
  void write();
  void take(Frame message);
  void takeAnswer(Frame message);

  Worker worker;
  std::string output;
  FrameReader reader;
  struct Question {
    Reply reply;
    Clock::time_point asked;
  };
  std::map<std::uint32_t, Question> questions;
  std::uint32_t lastQuestion = 0;
  Clock::time_point started = Clock::now();
  bool analysed = false;
  bool changed = false;
  bool hasEnded = false;
  SnapshotAnalysis analysis;
  bool hasAnalysis = false;
  std::optional<Reliability> reliability;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_SNAPSHOTPROCESS_H
