//===- InlayHints.cpp - offsets and sizes beside the entries --------------===//

#include "AST/DataDescription.h"
#include "lsp/features/Handlers.h"

namespace tarka::lsp {

/// "@12 +30" behind an entry of a record: its offset from 0 and its bytes.
Answer inlayHint(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  const llvm::json::Object *range = parameters.getObject("range");
  const llvm::json::Object *start = range ? range->getObject("start") : nullptr;
  const llvm::json::Object *end = range ? range->getObject("end") : nullptr;
  if (!file || !start || !end)
    return nullptr;
  const auto first = static_cast<unsigned>(start->getInteger("line").value_or(0)) + 1;
  const auto last = static_cast<unsigned>(end->getInteger("line").value_or(0)) + 1;
  llvm::json::Array hints;
  for (const Occurrence &occurrence : snapshot.getIndex().inFile(*file)) {
    const Symbol &symbol = snapshot.getIndex().getSymbol(occurrence.symbol);
    if (occurrence.line < first || occurrence.line > last || symbol.kind != SymbolKind::Item ||
        occurrence.use != Use::Declaration || !symbol.node)
      continue;
    const auto &entry = static_cast<const DataDescription &>(*symbol.node);
    const SourceRange &place = entry.getRange();
    if (entry.getType() != DescType::Data || place.file != *file || entry.isTooLarge())
      continue;
    const std::string label =
        "@" + std::to_string(entry.getOffset()) + " +" + std::to_string(entry.getTotalAllocSize());
    hints.push_back(llvm::json::Object{{"position", snapshot.rangeOf(place).end},
                                       {"label", label},
                                       {"paddingLeft", true},
                                       {"tooltip", "offset in the record, bytes"}});
  }
  return hints;
}

} // namespace tarka::lsp
