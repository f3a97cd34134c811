//===- Features.cpp - the requests that a snapshot answers ----------------===//

#include "lsp/Features.h"
#include "lsp/features/Formatting.h"
#include "lsp/features/Views.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka::lsp {

llvm::ArrayRef<Feature> allFeatures() {
  static constexpr Feature features[] = {
      {"textDocument/formatting", "documentFormattingProvider", "true", format},
      {"textDocument/rangeFormatting", "documentRangeFormattingProvider", "true", format},
      // Commands, see workspace/executeCommand.
      {"tarka.showExpanded", "", "", showExpanded},
      {"tarka.showFlow", "", "", showFlow},
      {"tarka.showLayout", "", "", showLayout},
  };
  return features;
}

const Feature *findFeature(llvm::StringRef method) {
  const Feature *found = llvm::find_if(
      allFeatures(), [&](const Feature &feature) { return feature.method == method; });
  return found == allFeatures().end() ? nullptr : found;
}

} // namespace tarka::lsp
