//===- Frames.cpp - messages between the server and a snapshot ------------===//

#include "lsp/Frames.h"
#include "llvm/Support/Endian.h"
#include "llvm/Support/Error.h"
#include "llvm/Support/raw_ostream.h"
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

namespace tarka::lsp {

namespace {

constexpr std::size_t headSize = sizeof(std::uint32_t);
constexpr std::size_t blockSize = 1 << 16;

} // namespace

void appendFrame(std::string &bytes, const llvm::json::Value &message) {
  const std::size_t head = bytes.size();
  bytes.append(headSize, '\0');
  llvm::raw_string_ostream(bytes) << message;
  const std::size_t size = bytes.size() - head - headSize;
  llvm::support::endian::write32le(&bytes[head], static_cast<std::uint32_t>(size));
}

std::optional<llvm::json::Value> FrameReader::next() {
  const llvm::StringRef rest = llvm::StringRef(pending).substr(taken);
  const std::size_t size =
      rest.size() < headSize ? 0 : llvm::support::endian::read32le(rest.data());
  if (rest.size() < headSize + size || rest.size() < headSize) {
    pending.erase(0, taken);
    taken = 0;
    return std::nullopt;
  }
  taken += headSize + size;
  llvm::Expected<llvm::json::Value> message = llvm::json::parse(rest.substr(headSize, size));
  if (message)
    return std::move(*message);
  llvm::consumeError(message.takeError());
  return nullptr;
}

bool FrameChannel::send(const llvm::json::Value &message) const {
  std::string bytes;
  appendFrame(bytes, message);
  for (llvm::StringRef rest = bytes; !rest.empty();) {
    const ssize_t sent = ::send(descriptor, rest.data(), rest.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR)
      continue;
    if (sent <= 0)
      return false;
    rest = rest.drop_front(static_cast<std::size_t>(sent));
  }
  return true;
}

std::optional<llvm::json::Value> FrameChannel::receive() {
  while (true) {
    if (std::optional<llvm::json::Value> message = reader.next())
      return message;
    char block[blockSize];
    const ssize_t got = ::read(descriptor, block, sizeof block);
    if (got < 0 && errno == EINTR)
      continue;
    if (got <= 0)
      return std::nullopt;
    reader.add({block, static_cast<std::size_t>(got)});
  }
}

} // namespace tarka::lsp
