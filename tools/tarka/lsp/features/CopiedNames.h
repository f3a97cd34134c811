//===- CopiedNames.h - renaming what several programs copy ------*- C++ -*-===//
//
// A name of a copybook stands in all programs that copy it, and with REPLACING it
// can be another name in each of them. It is renamed where all these programs are
// known, and only if each of them means afterwards what it meant before, which a
// second analysis of all of them shows.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_FEATURES_COPIEDNAMES_H
#define TARKA_TOOLS_LSP_FEATURES_COPIEDNAMES_H

#include "lsp/Snapshot.h"
#include "mlir/Tools/lsp-server-support/Protocol.h"
#include "llvm/Support/Error.h"
#include <map>
#include <string>
#include <vector>

namespace tarka::lsp {

/// A line of a file with another text.
struct LineEdit {
  mlir::lsp::Range range;
  std::string newText;
};
/// By URI.
using FileEdits = std::map<std::string, std::vector<LineEdit>>;

/// The changes that give \p symbol, which stands in copybooks, the name \p newName, or the reason
/// for which that is not possible.
llvm::Expected<FileEdits> renameCopied(Snapshot &snapshot, SymbolId symbol,
                                       llvm::StringRef newName);

/// The edits that turn the lines \p numbers of \p before into those of \p after, each as a whole.
std::vector<LineEdit> lineEdits(llvm::StringRef before, llvm::StringRef after,
                                llvm::ArrayRef<unsigned> numbers, PositionEncoding encoding);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_COPIEDNAMES_H
