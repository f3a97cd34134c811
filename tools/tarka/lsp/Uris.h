//===- Uris.h - URIs of the editor and paths of files -----------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_URIS_H
#define TARKA_TOOLS_LSP_URIS_H

#include "llvm/ADT/StringRef.h"
#include "llvm/Support/JSON.h"
#include <optional>
#include <string>

namespace tarka::lsp {

/// The absolute path of the file that \p uri names. A text that has no file, as
/// untitled:Untitled-1, gets a path of its own, at which no file is. None for what is no URI.
std::optional<std::string> pathOfUri(llvm::StringRef uri);

/// The other way round; empty for a path that is not absolute.
std::string uriOfPath(llvm::StringRef path);

/// The path of the document that the parameters of a request or notification name.
std::optional<std::string> documentOf(const llvm::json::Object &parameters);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_URIS_H
