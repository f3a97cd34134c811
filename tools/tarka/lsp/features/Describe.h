//===- Describe.h - names in words ------------------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_FEATURES_DESCRIBE_H
#define TARKA_TOOLS_LSP_FEATURES_DESCRIBE_H

#include "lsp/Snapshot.h"
#include <string>
#include <vector>

namespace tarka::lsp {

/// What a symbol is, in one line: "05 PIC X(30), 30 bytes at offset 12 of CUSTOMER".
std::string describeInLine(Snapshot &snapshot, SymbolId symbol);

/// The same at length, as Markdown: the declaration, then what is known of it.
std::string describeAtLength(Snapshot &snapshot, SymbolId symbol);

/// The name as a statement refers to it: with as many of the groups that it is in as are needed to
/// tell it from other items of the name.
std::string qualifiedName(Snapshot &snapshot, SymbolId symbol);

/// The kind of a symbol by its number in the protocol.
int symbolKindOf(const Symbol &symbol);

/// The PICTURE and the USAGE of an elementary item: "PIC S9(4) COMP"; empty for a group.
std::string pictureOf(const DataDescription &entry);

/// The items of USING in the procedure division of \p unit with their pictures: "LK-COUNT PIC S9(4)
/// COMP"; "BY VALUE" before one that is passed so.
std::vector<std::string> usingItems(const SourceUnit &unit);

/// What a CALL of a program has to pass.
struct ProgramSignature {
  std::string name;
  /// See usingItems().
  std::vector<std::string> items;
  /// The file that the program is in; empty for one of the same source.
  std::string origin;
};

/// The signature of the program that a CALL of \p name reaches at \p point; none when it is not
/// known.
std::optional<ProgramSignature> signatureOf(Snapshot &snapshot, const SourcePoint &point,
                                            llvm::StringRef name);

/// The program whose text \p point is in; null for the text of a copybook by itself.
SourceUnit *unitAt(Snapshot &snapshot, const SourcePoint &point);

/// The procedure that \p place of the procedure division belongs to; none before the first.
std::optional<SymbolId> procedureAround(Snapshot &snapshot, const SourceRange &place);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_DESCRIBE_H
