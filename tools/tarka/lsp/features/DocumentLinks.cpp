//===- DocumentLinks.cpp - from COPY to the copybook ----------------------===//

#include "lsp/features/Handlers.h"

namespace tarka::lsp {

Answer documentLink(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  if (!file)
    return nullptr;
  llvm::json::Array links;
  unsigned lastLine = 0;
  for (const CopyUse &use : snapshot.getCompilation().getExpansion().getCopies()) {
    if (use.place.file != *file || use.place.beginLine == lastLine)
      continue;
    if (std::string uri = snapshot.uriOf(internFileName(use.file)); !uri.empty()) {
      lastLine = use.place.beginLine;
      links.push_back(
          llvm::json::Object{{"range", snapshot.rangeOf(use.place)}, {"target", std::move(uri)}});
    }
  }
  return links;
}

} // namespace tarka::lsp
