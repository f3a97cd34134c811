//===- CopybookSearch.h - the programs that copy a copybook -----*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_COPYBOOKSEARCH_H
#define TARKA_TOOLS_LSP_COPYBOOKSEARCH_H

#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"
#include <string>
#include <vector>

namespace tarka::lsp {

/// The absolute paths of programs below \p directories whose text has the name of \p copybook as a
/// word; only their analysis says whether they copy it. Those nearest to it come first. The search
/// takes a few seconds at most and then gives what it has found.
std::vector<std::string> findProgramsWith(llvm::StringRef copybook,
                                          llvm::ArrayRef<std::string> directories);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_COPYBOOKSEARCH_H
