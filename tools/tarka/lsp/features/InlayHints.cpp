//===- InlayHints.cpp - offsets and sizes beside the entries --------------===//

#include "AST/DataDescription.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/Writing.h"

namespace tarka::lsp {

/// "@12 +30" behind an entry of a record: its offset from 0 and its bytes.
llvm::Error inlayHint(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  const llvm::json::Object *range = parameters.getObject("range");
  const llvm::json::Object *start = range ? range->getObject("start") : nullptr;
  const llvm::json::Object *end = range ? range->getObject("end") : nullptr;
  if (!file || !start || !end) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  const std::int64_t first = start->getInteger("line").value_or(0);
  const std::int64_t last = end->getInteger("line").value_or(0);
  out.arrayBegin();
  for (const Occurrence &occurrence : snapshot.getIndex().inFile(*file)) {
    const Symbol &symbol = snapshot.getIndex().getSymbol(occurrence.symbol);
    if (symbol.kind != SymbolKind::Item || occurrence.use != Use::Declaration || !symbol.node ||
        snapshot.isEdited(occurrence.getPlace()))
      continue;
    const auto &entry = static_cast<const DataDescription &>(*symbol.node);
    const SourceRange &place = entry.getRange();
    const mlir::lsp::Position position = snapshot.rangeOf(place).end;
    if (entry.getType() != DescType::Data || place.file != *file || entry.isTooLarge() ||
        position.line < first || position.line > last)
      continue;
    out.object([&] {
      out.attributeBegin("position");
      writePosition(out, position);
      out.attributeEnd();
      out.attribute("label", "@" + std::to_string(entry.getOffset()) + " +" +
                                 std::to_string(entry.getTotalAllocSize()));
      out.attribute("paddingLeft", true);
      out.attribute("tooltip", "offset in the record, bytes");
    });
  }
  out.arrayEnd();
  return llvm::Error::success();
}

} // namespace tarka::lsp
