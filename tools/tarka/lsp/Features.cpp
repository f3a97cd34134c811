//===- Features.cpp - the requests that a snapshot answers ----------------===//

#include "lsp/Features.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka::lsp {

llvm::ArrayRef<Feature> allFeatures() {
  return {};
}

const Feature *findFeature(llvm::StringRef method) {
  const Feature *found = llvm::find_if(
      allFeatures(), [&](const Feature &feature) { return feature.method == method; });
  return found == allFeatures().end() ? nullptr : found;
}

} // namespace tarka::lsp
