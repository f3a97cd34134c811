//===- Document.h - a text that an editor has open --------------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_DOCUMENT_H
#define TARKA_TOOLS_LSP_DOCUMENT_H

#include "lsp/EditMap.h"
#include "lsp/Positions.h"
#include "mlir/Tools/lsp-server-support/Protocol.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/Support/JSON.h"
#include <cstdint>
#include <string>
#include <vector>

namespace tarka::lsp {

/// The text of a document, which the editor changes piece by piece.
class Document {
public:
  Document(llvm::StringRef contents, std::int64_t number) : text(contents), version(number) {}

  const std::string &getText() const { return text; }
  std::int64_t getVersion() const { return version; }

  /// Makes \p changes, the contentChanges of a textDocument/didChange, one after the other, and
  /// adds them to \p edits unless that is null. False when one of them is not understood; the text
  /// is then that of the changes before it.
  bool change(const llvm::json::Array &changes, std::int64_t newVersion, PositionEncoding encoding,
              EditMap *edits = nullptr);

  /// The offset in bytes of a position, whose line and character are from 0. What lies behind the
  /// end of a line is its end, what lies behind the last line the end of the text.
  std::size_t offsetOf(std::int64_t line, std::int64_t character, PositionEncoding encoding);
  mlir::lsp::Position positionOf(std::size_t offset, PositionEncoding encoding);
  /// Line \p number, from 1, without its end; empty when there is none.
  llvm::StringRef lineOf(unsigned number);

private:
  void replace(std::size_t begin, std::size_t end, llvm::StringRef with, EditMap *edits);
  const std::vector<std::size_t> &getLines();

  std::string text;
  std::int64_t version;
  /// Where the lines begin; empty until a position is asked for.
  std::vector<std::size_t> lines;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_DOCUMENT_H
