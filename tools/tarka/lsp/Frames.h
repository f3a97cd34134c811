//===- Frames.h - messages between the server and a snapshot ----*- C++ -*-===//
//
// A message is a kind, a number and a text, over the socket of a worker. The
// server passes texts on without reading them, however large they are.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_FRAMES_H
#define TARKA_TOOLS_LSP_FRAMES_H

#include "llvm/ADT/StringRef.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"
#include <cstdint>
#include <optional>
#include <string>

namespace tarka::lsp {

struct Frame {
  enum Kind : std::uint8_t {
    // From the server.
    /// A JSON object with "method" and "params", and "names" where there is no answer unless more
    /// names than that are known. The number is that of the answer.
    Question,
    Change, ///< the parameters of a textDocument/didChange
    // From a snapshot.
    Diagnostic,  ///< one diagnostic of the program: see PublishedDiagnostic
    Analysis,    ///< what else the analysis has found, a JSON object; after the diagnostics
    Reliability, ///< how much of the text was understood, a JSON object; after the analysis
    Answer,      ///< the result of a question, JSON
    EmptyAnswer, ///< the same, where there is nothing at the place or in the text
    Refusal,     ///< the reason, in words, for which a question has no result
  };
  Kind kind = Question;
  std::uint32_t number = 0;
  std::string text;
};

/// The text of \p value, as messages have it.
inline std::string textOf(const llvm::json::Value &value) {
  std::string text;
  llvm::raw_string_ostream(text) << value;
  return text;
}

/// Appends a message to \p bytes, which are to be sent.
void appendFrame(std::string &bytes, Frame::Kind kind, std::uint32_t number, llvm::StringRef text);

/// Puts messages together from the bytes that arrive.
class FrameReader {
public:
  void add(llvm::StringRef bytes) { pending += bytes; }
  /// The next message; none while it is incomplete.
  std::optional<Frame> next();

private:
  std::string pending;
  std::size_t taken = 0;
};

/// The worker's end of the socket, which it waits for.
class FrameChannel {
public:
  explicit FrameChannel(int socket) : descriptor(socket) {}

  /// False when the server is gone.
  bool send(Frame::Kind kind, llvm::StringRef text, std::uint32_t number = 0) const;
  /// The next message; none when the server is gone.
  std::optional<Frame> receive();

private:
  int descriptor;
  FrameReader reader;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FRAMES_H
