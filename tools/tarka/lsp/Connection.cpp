//===- Connection.cpp - JSON-RPC messages to and from the editor ----------===//

#include "lsp/Connection.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/raw_ostream.h"
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarka::lsp {

namespace {

constexpr std::size_t blockSize = 1 << 16;
/// More than any editor sends. What is longer is not headers, or not a message.
constexpr std::size_t maxHeaders = 1 << 14;
constexpr std::size_t maxMessage = std::size_t(1) << 30;

/// The length that the headers give; none when they give none that makes sense. The name may stand
/// behind the rest of a message whose own headers were wrong.
std::optional<std::size_t> contentLength(llvm::StringRef headers) {
  constexpr llvm::StringLiteral name = "content-length:";
  const std::size_t at = headers.find_insensitive(name);
  std::size_t length = 0;
  if (at == llvm::StringRef::npos ||
      headers.substr(at + name.size()).ltrim(" \t").consumeInteger(10, length) ||
      length > maxMessage)
    return std::nullopt;
  return length;
}

/// The headers at the beginning of \p text with the empty line behind them; empty while that is
/// missing.
llvm::StringRef headersOf(llvm::StringRef text) {
  const std::size_t end = text.find("\n\r\n");
  const std::size_t bareEnd = text.find("\n\n");
  if (end == llvm::StringRef::npos && bareEnd == llvm::StringRef::npos)
    return "";
  return end < bareEnd ? text.take_front(end + 3) : text.take_front(bareEnd + 2);
}

/// A file is always written at once; where someone reads at the other end, writing must not wait.
void setNonBlocking(int descriptor) {
  struct stat status;
  if (fstat(descriptor, &status) == 0 && (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode)))
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
}

} // namespace

Connection::Connection(int in, int out) : input(in), outputDescriptor(out) {
  setNonBlocking(out);
}

//===----------------------------------------------------------------------===//
// Reading
//===----------------------------------------------------------------------===//

bool Connection::receive() {
  char block[blockSize];
  const ssize_t got = ::read(input, block, sizeof block);
  if (got < 0 && (errno == EINTR || errno == EAGAIN))
    return true;
  if (got <= 0)
    return false;
  pending.append(block, static_cast<std::size_t>(got));
  return true;
}

std::optional<std::string> Connection::next() {
  while (true) {
    const llvm::StringRef headers = headersOf(pending);
    if (headers.empty()) {
      if (pending.size() > maxHeaders)
        pending.erase(0, pending.size() - maxHeaders / 2);
      return std::nullopt;
    }
    const std::size_t begin = headers.size();
    const std::optional<std::size_t> length = contentLength(headers);
    if (!length) {
      pending.erase(0, begin);
      continue;
    }
    if (pending.size() < begin + *length) {
      pending.reserve(begin + *length);
      return std::nullopt;
    }
    std::string message = pending.substr(begin, *length);
    pending.erase(0, begin + *length);
    // A large text does not leave its memory behind.
    pending.shrink_to_fit();
    return message;
  }
}

//===----------------------------------------------------------------------===//
// Writing
//===----------------------------------------------------------------------===//

void Connection::reply(const llvm::json::Value &id, llvm::StringRef result) {
  std::string body;
  llvm::raw_string_ostream(body) << R"({"jsonrpc":"2.0","id":)" << id << R"(,"result":)" << result
                                 << '}';
  send(body);
}

void Connection::fail(const llvm::json::Value &id, mlir::lsp::ErrorCode code,
                      llvm::StringRef message) {
  std::string body;
  llvm::raw_string_ostream(body) << llvm::json::Value(
      llvm::json::Object{{"jsonrpc", "2.0"},
                         {"id", id},
                         {"error", llvm::json::Object{{"code", static_cast<int>(code)},
                                                      {"message", llvm::json::fixUTF8(message)}}}});
  send(body);
}

void Connection::notify(llvm::StringRef method, llvm::StringRef parameters) {
  send((R"({"jsonrpc":"2.0","method":")" + method + R"(","params":)" + parameters + "}").str());
}

void Connection::send(llvm::StringRef body) {
  if (written > output.size() / 2) {
    output.erase(0, written);
    written = 0;
  }
  output += "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n";
  output += body;
  write();
}

void Connection::write() {
  while (hasOutput()) {
    const ssize_t count =
        ::write(outputDescriptor, output.data() + written, output.size() - written);
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0 && errno == EAGAIN)
      return;
    if (count < 0)
      break; // nobody reads any more; the end of the input follows
    written += static_cast<std::size_t>(count);
  }
  output = {};
  written = 0;
}

void Connection::writeAll() {
  for (write(); hasOutput(); write()) {
    pollfd waiting{outputDescriptor, POLLOUT, 0};
    poll(&waiting, 1, -1);
  }
}

} // namespace tarka::lsp
