//===- Uris.cpp - URIs of the editor and paths of files -------------------===//

#include "lsp/Uris.h"
#include "mlir/Tools/lsp-server-support/Protocol.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Error.h"

namespace tarka::lsp {

namespace {

/// The directory of the texts that have no file. Their URI is the name in it, with the characters
/// escaped that would make several names of it.
constexpr llvm::StringLiteral noFiles = "/no-file:/";

std::string escape(llvm::StringRef uri) {
  std::string name;
  for (char c : uri)
    if (c == '%')
      name += "%25";
    else if (c == '/')
      name += "%2F";
    else
      name += c;
  return name;
}

std::string unescape(llvm::StringRef name) {
  std::string uri;
  while (!name.empty()) {
    const auto [before, escaped] = name.split('%');
    uri += before;
    if (before.size() < name.size())
      uri += escaped.starts_with("25") ? '%' : '/';
    name = escaped.drop_front(std::min<std::size_t>(2, escaped.size()));
  }
  return uri;
}

bool isScheme(llvm::StringRef text) {
  return text.size() > 1 && llvm::isAlpha(text.front()) && llvm::all_of(text, [](char c) {
           return llvm::isAlnum(c) || c == '+' || c == '-' || c == '.';
         });
}

} // namespace

std::optional<std::string> pathOfUri(llvm::StringRef uri) {
  const auto [scheme, rest] = uri.split(':');
  if (rest.empty() || !isScheme(scheme))
    return std::nullopt;
  if (!scheme.equals_insensitive("file"))
    return noFiles.str() + escape(uri);
  llvm::Expected<mlir::lsp::URIForFile> file = mlir::lsp::URIForFile::fromURI(uri);
  if (file)
    return file->file().str();
  llvm::consumeError(file.takeError());
  return std::nullopt;
}

std::string uriOfPath(llvm::StringRef path) {
  if (path.starts_with(noFiles))
    return unescape(path.drop_front(noFiles.size()));
  llvm::Expected<mlir::lsp::URIForFile> uri = mlir::lsp::URIForFile::fromFile(path);
  if (uri)
    return uri->uri().str();
  llvm::consumeError(uri.takeError());
  return "";
}

std::optional<std::string> documentOf(const llvm::json::Object &parameters) {
  const llvm::json::Object *document = parameters.getObject("textDocument");
  if (!document)
    document = parameters.getObject("item");
  const std::optional<llvm::StringRef> uri =
      document ? document->getString("uri") : parameters.getString("uri");
  return uri ? pathOfUri(*uri) : std::nullopt;
}

} // namespace tarka::lsp
