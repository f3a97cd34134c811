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

void SnapshotProcess::ask(llvm::StringRef method, const llvm::json::Value &parameters,
                          Reply reply) {
  const std::int64_t number = ++lastQuestion;
  questions.try_emplace(number, Question{std::move(reply), Clock::now()});
  appendFrame(output,
              llvm::json::Object{{"id", number}, {"method", method}, {"params", parameters}});
  write();
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
    const ssize_t got = ::read(getDescriptor(), block, sizeof block);
    if (got < 0 && errno == EINTR)
      continue;
    if (got < 0 && errno == EAGAIN)
      return true;
    if (got <= 0)
      return false;
    reader.add({block, static_cast<std::size_t>(got)});
    while (std::optional<llvm::json::Value> message = reader.next())
      take(std::move(*message));
  }
}

void SnapshotProcess::take(llvm::json::Value message) {
  llvm::json::Object *object = message.getAsObject();
  if (!object)
    return worker.kill(); // it has lost its way
  const std::optional<std::int64_t> number = object->getInteger("id");
  if (!number) {
    analysed = true;
    analysis = std::move(message);
    return;
  }
  auto found = questions.find(*number);
  if (found == questions.end())
    return;
  Reply reply = std::move(found->second.reply);
  questions.erase(found);
  if (std::optional<llvm::StringRef> error = object->getString("error"))
    reply(failure(mlir::lsp::ErrorCode::RequestFailed, error->str()));
  else if (llvm::json::Value *result = object->get("result"))
    reply(std::move(*result));
  else
    reply(nullptr);
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
  for (auto &[number, question] : questions)
    question.reply(failure(mlir::lsp::ErrorCode::InternalError, reason));
  questions.clear();
  return reason;
}

} // namespace tarka::lsp
