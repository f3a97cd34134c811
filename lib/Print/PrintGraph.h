//===- PrintGraph.h - the graph as text, JSON and DOT -----------*- C++ -*-===//
//
// Prints the control-flow graph of a compilation. docs/cfg.md describes the forms.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_PRINTGRAPH_H
#define TARKA_TOOLS_PRINTGRAPH_H

#include "Analyzer/CFG.h"
#include "Parse/ParseOptions.h"
#include <optional>
#include <string>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

/// Which part of the graph to print, and in how much detail.
struct GraphView {
  /// Only the function of this name, whatever its case; all when empty.
  std::string function;
  /// Only the blocks of the paragraphs and sections of this name; all when empty.
  std::string paragraph;
  /// Show a procedure as one thing, with the ways that lead from it to others.
  bool collapse = false;
  /// Draw everything, however large the picture is.
  bool full = false;
};

/// What to tell a person when \p view names a function or a paragraph that is not there, with the
/// names that are near; nothing when it is all right.
std::optional<std::string> explainMissingProcedure(const CFGModule &module, const GraphView &view);

/// Whether Graphviz could not draw all blocks that \p view shows in reasonable time.
bool isTooLargeToDraw(const CFGModule &module, const GraphView &view);

// The function of the report declaratives comes last, when the compilation has one.

/// A few lines for a block: its place in the list and its name, its elements, its links.
void printGraphText(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view = {});
/// One object for the module; blocks refer to each other by their places.
void printGraphJson(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view = {});
/// A cluster for a function, with the procedures as named groups in it, for Graphviz. The text of
/// the statements comes from the source, which was read with \p options.
void printGraphDot(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view,
                   const ParseOptions &options);

} // namespace tarka

#endif // TARKA_TOOLS_PRINTGRAPH_H
