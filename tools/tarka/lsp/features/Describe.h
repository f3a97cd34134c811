//===- Describe.h - names in words ------------------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_FEATURES_DESCRIBE_H
#define TARKA_TOOLS_LSP_FEATURES_DESCRIBE_H

#include "lsp/Snapshot.h"
#include <string>

namespace tarka::lsp {

/// What a symbol is, in one line: "05 PIC X(30), 30 bytes at offset 12 of CUSTOMER".
std::string describeInLine(Snapshot &snapshot, SymbolId symbol);

/// The same at length, as Markdown: the declaration, then what is known of it.
std::string describeAtLength(Snapshot &snapshot, SymbolId symbol);

/// The procedure that \p place of the procedure division belongs to; none before the first.
std::optional<SymbolId> procedureAround(Snapshot &snapshot, const SourceRange &place);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_DESCRIBE_H
