//===- Document.h - a text that an editor has open --------------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_DOCUMENT_H
#define TARKA_TOOLS_LSP_DOCUMENT_H

#include "lsp/Positions.h"
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

  /// Makes \p changes, the contentChanges of a textDocument/didChange, one after the other. False
  /// when one of them is not understood; the text is then that of the changes before it.
  bool change(const llvm::json::Array &changes, std::int64_t newVersion, PositionEncoding encoding);

private:
  void replace(std::size_t begin, std::size_t end, llvm::StringRef with);
  void findLines();
  std::size_t offsetOf(const llvm::json::Object &position, PositionEncoding encoding) const;

  std::string text;
  std::int64_t version;
  /// Where the lines begin; empty until a position is asked for.
  std::vector<std::size_t> lines;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_DOCUMENT_H
