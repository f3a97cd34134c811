//===- Frames.h - messages between the server and a snapshot ----*- C++ -*-===//
//
// A message is a JSON value behind its length, over the socket of a worker.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_FRAMES_H
#define TARKA_TOOLS_LSP_FRAMES_H

#include "llvm/ADT/StringRef.h"
#include "llvm/Support/JSON.h"
#include <optional>
#include <string>

namespace tarka::lsp {

/// Appends \p message to \p bytes, which are to be sent.
void appendFrame(std::string &bytes, const llvm::json::Value &message);

/// Puts messages together from the bytes that arrive.
class FrameReader {
public:
  void add(llvm::StringRef bytes) { pending += bytes; }
  /// The next message; none while it is incomplete. A message that is not JSON is null.
  std::optional<llvm::json::Value> next();

private:
  std::string pending;
  std::size_t taken = 0;
};

/// The worker's end of the socket, which it waits for.
class FrameChannel {
public:
  explicit FrameChannel(int socket) : descriptor(socket) {}

  /// False when the server is gone.
  bool send(const llvm::json::Value &message) const;
  /// The next message; none when the server is gone.
  std::optional<llvm::json::Value> receive();

private:
  int descriptor;
  FrameReader reader;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FRAMES_H
