//===- Connection.h - JSON-RPC messages to and from the editor --*- C++ -*-===//
//
// Messages stand behind headers, as the protocol has it. Neither reading nor
// writing waits, so that an editor that is busy does not hold up the server.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_CONNECTION_H
#define TARKA_TOOLS_LSP_CONNECTION_H

#include "mlir/Tools/lsp-server-support/Protocol.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/Support/JSON.h"
#include <optional>
#include <string>

namespace tarka::lsp {

class Connection {
public:
  /// Reads from the descriptor \p in and writes to \p out, neither of which it closes.
  Connection(int in, int out);

  // Reading.

  /// Reads what has arrived. False at the end of the input.
  bool receive();
  /// The text of the next message; none while it is incomplete. Headers without a length are
  /// passed over.
  std::optional<std::string> next();

  // Writing. Texts are JSON.

  void reply(const llvm::json::Value &id, llvm::StringRef result);
  void fail(const llvm::json::Value &id, mlir::lsp::ErrorCode code, llvm::StringRef message);
  void notify(llvm::StringRef method, llvm::StringRef parameters);
  /// Writes what is possible without waiting, or everything.
  void write();
  void writeAll();
  bool hasOutput() const { return written < output.size(); }

  int getInput() const { return input; }
  int getOutput() const { return outputDescriptor; }

private:
  void send(llvm::StringRef body);

  int input;
  int outputDescriptor;
  std::string pending;
  std::string output;
  /// How much of the output has been written.
  std::size_t written = 0;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_CONNECTION_H
