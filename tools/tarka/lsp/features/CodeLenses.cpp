//===- CodeLenses.cpp - what is said above procedures and records ---------===//

#include "AST/DataDescription.h"
#include "lsp/features/Handlers.h"

namespace tarka::lsp {

namespace {

/// A lens that runs \p command with the URI of the document and \p argument.
llvm::json::Object lensOf(const mlir::lsp::Range &range, const std::string &title,
                          llvm::StringRef command, llvm::StringRef uri,
                          llvm::json::Value argument) {
  return llvm::json::Object{
      {"range", range},
      {"command", llvm::json::Object{{"title", title},
                                     {"command", command},
                                     {"arguments", llvm::json::Array{uri, std::move(argument)}}}}};
}

/// How many places name the procedure; the command shows them.
void addUsers(llvm::json::Array &lenses, Snapshot &snapshot, SymbolId symbol,
              const mlir::lsp::Range &range, llvm::StringRef uri) {
  llvm::json::Array places;
  for (const Occurrence &occurrence : snapshot.getIndex().occurrencesOf(symbol))
    if (occurrence.use != Use::Declaration)
      if (std::optional<llvm::json::Object> place = snapshot.locationOf(occurrence.getPlace()))
        places.push_back(std::move(*place));
  const std::size_t count = places.size();
  const std::string title = count == 0   ? "no uses"
                            : count == 1 ? "1 use"
                                         : std::to_string(count) + " uses";
  lenses.push_back(
      lensOf(range, title, "tarka.showReferences", uri,
             llvm::json::Object{{"position", range.start}, {"places", std::move(places)}}));
}

} // namespace

Answer codeLens(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  if (!file)
    return nullptr;
  const std::string uri = snapshot.uriOf(*file);
  llvm::json::Array lenses;
  std::uint32_t lastLine = 0;
  for (const Occurrence &occurrence : snapshot.getIndex().inFile(*file)) {
    // A text that is copied twice declares two symbols on a line.
    if (occurrence.use != Use::Declaration || occurrence.isReplaced || occurrence.line == lastLine)
      continue;
    lastLine = occurrence.line;
    const Symbol &symbol = snapshot.getIndex().getSymbol(occurrence.symbol);
    const mlir::lsp::Range range = snapshot.rangeOf(occurrence.getPlace());
    if (symbol.kind == SymbolKind::Paragraph || symbol.kind == SymbolKind::Section) {
      addUsers(lenses, snapshot, occurrence.symbol, range, uri);
      lenses.push_back(lensOf(range, "flow", "tarka.showFlow", uri,
                              llvm::json::Object{{"position", range.start}}));
    } else if (symbol.kind == SymbolKind::Item && symbol.node) {
      const auto &entry = static_cast<const DataDescription &>(*symbol.node);
      // A record of one item has nothing to lay out.
      if (entry.getType() == DescType::Data && entry.getLevelNum() == 1 && entry.isGroupItem() &&
          !entry.isTooLarge())
        lenses.push_back(lensOf(range, std::to_string(entry.getTotalAllocSize()) + " bytes",
                                "tarka.showLayout", uri,
                                llvm::json::Object{{"name", *symbol.name}}));
    }
  }
  return lenses;
}

} // namespace tarka::lsp
