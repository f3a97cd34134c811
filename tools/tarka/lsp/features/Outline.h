//===- Outline.h - what a text declares, and what contains what -*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_FEATURES_OUTLINE_H
#define TARKA_TOOLS_LSP_FEATURES_OUTLINE_H

#include "lsp/Snapshot.h"
#include <vector>

namespace tarka::lsp {

/// A symbol in the outline of a text.
struct OutlineElement {
  const Symbol *symbol = nullptr;
  /// All of its text, with that of what is in it.
  SourceRange whole;
  /// The number of the first element behind those that are in it.
  std::size_t end = 0;
};

/// The elements of a file in the order of its text, each before those in it.
std::vector<OutlineElement> outlineOf(Snapshot &snapshot, unsigned file);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_OUTLINE_H
