//===- SnapshotProcess.cpp - the server's end of a snapshot ---------------===//

#include "lsp/SnapshotProcess.h"
#include "mlir/Tools/lsp-server-support/Protocol.h"
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace tarka::lsp {

namespace {

constexpr std::size_t blockSize = 1 << 16;
/// No analysis and no answer takes this long.
constexpr std::chrono::seconds maxBusy(60);

llvm::Error failure(mlir::lsp::ErrorCode code, std::string message) {
  return llvm::make_error<mlir::lsp::LSPError>(std::move(message), code);
}

} // namespace

llvm::Expected<std::unique_ptr<SnapshotProcess>>
SnapshotProcess::start(Worker::Task task, const WorkerOptions &options) {
  llvm::Expected<Worker> worker = Worker::start(task, options);
  if (!worker)
    return worker.takeError();
  return std::unique_ptr<SnapshotProcess>(new SnapshotProcess(std::move(*worker)));
}

void SnapshotProcess::retire() {
  if (!hasEnded)
    worker.kill();
  for (auto &[number, question] : std::exchange(questions, {}))
    question.reply(failure(mlir::lsp::ErrorCode::ContentModified, "the text has changed"));
}

void SnapshotProcess::ask(llvm::StringRef question, Reply reply) {
  const std::uint32_t number = ++lastQuestion;
  questions.try_emplace(number, Question{std::move(reply), Clock::now()});
  appendFrame(output, Frame::Question, number, question);
  write();
}

void SnapshotProcess::change(llvm::StringRef parameters) {
  changed = true;
  appendFrame(output, Frame::Change, 0, parameters);
  write();
}

std::optional<SnapshotAnalysis> SnapshotProcess::takeAnalysis() {
  if (!std::exchange(hasAnalysis, false))
    return std::nullopt;
  return std::exchange(analysis, {});
}

bool SnapshotProcess::isOverdue() const {
  if (analysed && questions.empty())
    return false;
  const Clock::time_point since = analysed ? questions.begin()->second.asked : started;
  return Clock::now() - since > maxBusy;
}

void SnapshotProcess::write() {
  while (!output.empty()) {
    const ssize_t sent = ::send(getDescriptor(), output.data(), output.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR)
      continue;
    if (sent < 0 && errno != EAGAIN)
      output.clear(); // the process has ended, which read() notices
    if (sent <= 0)
      return;
    output.erase(0, static_cast<std::size_t>(sent));
  }
}

bool SnapshotProcess::serve() {
  write();
  char block[blockSize];
  while (true) {
    while (std::optional<Frame> message = reader.next()) {
      const bool isVerdict = message->kind == Frame::Reliability;
      take(std::move(*message));
      if (isVerdict)
        return true;
    }
    const ssize_t got = ::read(getDescriptor(), block, sizeof block);
    if (got < 0 && errno == EINTR)
      continue;
    if (got < 0 && errno == EAGAIN)
      return true;
    if (got <= 0)
      return false;
    reader.add({block, static_cast<std::size_t>(got)});
  }
}

/// A snapshot is a copy of this program: what it sends is well-formed, or it has lost its way.
void SnapshotProcess::take(Frame message) {
  auto parsed = [&]() -> llvm::json::Object {
    llvm::Expected<llvm::json::Value> value = llvm::json::parse(message.text);
    if (value && value->getAsObject())
      return std::move(*value->getAsObject());
    llvm::consumeError(value.takeError());
    worker.kill();
    return {};
  };
  switch (message.kind) {
  case Frame::Diagnostic: {
    const auto [path, rest] = llvm::StringRef(message.text).split('\n');
    const auto [key, text] = rest.split('\n');
    analysis.diagnostics[path.str()].push_back({key.str(), text.str()});
    return;
  }
  case Frame::Analysis:
    analysis.facts = parsed();
    analysed = hasAnalysis = true;
    return;
  case Frame::Reliability: {
    const llvm::json::Object facts = parsed();
    reliability = Reliability{facts.getInteger("syntaxErrors").value_or(0),
                              facts.getInteger("names").value_or(0)};
    return;
  }
  default:
    return takeAnswer(std::move(message));
  }
}

void SnapshotProcess::takeAnswer(Frame message) {
  auto found = questions.find(message.number);
  if (found == questions.end())
    return;
  Reply reply = std::move(found->second.reply);
  questions.erase(found);
  if (message.kind == Frame::Refusal)
    reply(failure(mlir::lsp::ErrorCode::RequestFailed, std::move(message.text)));
  else
    reply(SnapshotAnswer{std::move(message.text), message.kind == Frame::EmptyAnswer});
}

std::string SnapshotProcess::describeEnd() {
  const bool isTooSlow = isOverdue();
  worker.kill();
  const WorkerEnd end = worker.wait();
  hasEnded = true;
  const std::string reason = isTooSlow ? "it takes too long"
                             : end.kind == WorkerEnd::Signaled
                                 ? "internal failure (" + std::string(strsignal(end.value)) + ")"
                             : end.kind == WorkerEnd::OutOfMemory
                                 ? "it needs more memory than --memory-limit allows"
                                 : "its process has ended";
  for (auto &[number, question] : std::exchange(questions, {}))
    question.reply(failure(mlir::lsp::ErrorCode::InternalError, reason));
  return reason;
}

} // namespace tarka::lsp
