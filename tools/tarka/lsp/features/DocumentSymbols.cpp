//===- DocumentSymbols.cpp - the outline of a text ------------------------===//

#include "AST/DataDescription.h"
#include "AST/KindNames.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/Outline.h"
#include "lsp/features/Writing.h"

namespace tarka::lsp {

namespace {

std::string detailOf(const Symbol &symbol) {
  if (symbol.kind != SymbolKind::Item || !symbol.node)
    return "";
  const auto &entry = static_cast<const DataDescription &>(*symbol.node);
  std::string text = entry.getLevelNum() < 10 ? "0" : "";
  text += std::to_string(entry.getLevelNum());
  if (const ClausePicture *picture = entry.getPicture())
    text += " PIC " + picture->getCharStringWord()->getDisplayName();
  return text;
}

/// Writes the elements from \p next to \p end, each with those in it.
void write(llvm::json::OStream &out, Snapshot &snapshot, llvm::ArrayRef<OutlineElement> elements,
           std::size_t next, std::size_t end) {
  while (next < end) {
    const OutlineElement &element = elements[next];
    const Symbol &symbol = *element.symbol;
    out.object([&] {
      out.attribute("name", *symbol.spelling);
      out.attribute("kind", symbolKindOf(symbol));
      writeRange(out, "range", snapshot.rangeOf(element.whole));
      writeRange(out, "selectionRange", snapshot.rangeOf(symbol.place));
      if (const std::string detail = detailOf(symbol); !detail.empty())
        out.attribute("detail", detail);
      if (element.end > next + 1)
        out.attributeArray("children",
                           [&] { write(out, snapshot, elements, next + 1, element.end); });
    });
    next = element.end;
  }
}

} // namespace

llvm::Error documentSymbol(Snapshot &snapshot, const Parameters &parameters,
                           llvm::json::OStream &out) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  if (!file) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  const std::vector<OutlineElement> elements = outlineOf(snapshot, *file);
  out.array([&] { write(out, snapshot, elements, 0, elements.size()); });
  return llvm::Error::success();
}

} // namespace tarka::lsp
