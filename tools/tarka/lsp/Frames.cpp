//===- Frames.cpp - messages between the server and a snapshot ------------===//

#include "lsp/Frames.h"
#include "llvm/Support/Endian.h"
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

namespace tarka::lsp {

namespace {

using llvm::support::endian::read32le;
using llvm::support::endian::write32le;

/// The kind, the number, and the length of the text in bytes.
constexpr std::size_t numberAt = 1, lengthAt = 5, headSize = 9;
constexpr std::size_t blockSize = 1 << 16;

} // namespace

void appendFrame(std::string &bytes, Frame::Kind kind, std::uint32_t number, llvm::StringRef text) {
  char head[headSize] = {static_cast<char>(kind)};
  write32le(head + numberAt, number);
  write32le(head + lengthAt, static_cast<std::uint32_t>(text.size()));
  bytes.append(head, headSize);
  bytes += text;
}

std::optional<Frame> FrameReader::next() {
  const llvm::StringRef rest = llvm::StringRef(pending).substr(taken);
  const std::size_t size = rest.size() < headSize ? 0 : read32le(rest.data() + lengthAt);
  if (rest.size() < headSize || rest.size() < headSize + size) {
    pending.erase(0, taken);
    taken = 0;
    // A large answer does not leave its memory behind.
    if (pending.empty())
      pending.shrink_to_fit();
    else
      pending.reserve(headSize + size);
    return std::nullopt;
  }
  taken += headSize + size;
  return Frame{static_cast<Frame::Kind>(rest.front()), read32le(rest.data() + numberAt),
               rest.substr(headSize, size).str()};
}

bool FrameChannel::send(Frame::Kind kind, llvm::StringRef text, std::uint32_t number) const {
  std::string bytes;
  appendFrame(bytes, kind, number, text);
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

std::optional<Frame> FrameChannel::receive() {
  while (true) {
    if (std::optional<Frame> message = reader.next())
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
