//===- Outline.cpp - what a text declares, and what contains what ---------===//

#include "lsp/features/Outline.h"
#include "AST/DataDescription.h"

namespace tarka::lsp {

namespace {

/// How deep a symbol stands in the outline, so that one that stands deeper than the one before
/// belongs to it. A nested program stands beside what the program around it declares.
unsigned depthOf(const OccurrenceIndex &index, const Symbol &symbol) {
  constexpr unsigned perProgram = 100;
  unsigned depth = symbol.kind == SymbolKind::Program ? 1 : perProgram + 1;
  for (const SourceUnit *unit = symbol.unit->getParent(); unit; unit = unit->getParent())
    depth += perProgram;
  switch (symbol.kind) {
  case SymbolKind::Paragraph:
    return depth + (&index.getSymbol(symbol.around) == &symbol ? 0 : 1);
  case SymbolKind::IndexName: // within its table, however deep that is
    return depth + perProgram / 2;
  case SymbolKind::Item:
  case SymbolKind::ConditionName: {
    const auto *entry = static_cast<const DataDescription *>(symbol.node);
    // Records are below their file or report.
    if (entry && (entry->getFileDescription() || entry->getReportDescription()))
      ++depth;
    for (entry = entry ? entry->getOwner() : nullptr; entry; entry = entry->getOwner())
      ++depth;
    return depth;
  }
  default:
    return depth;
  }
}

std::pair<unsigned, unsigned> beginOf(const SourceRange &place) {
  return {place.beginLine, place.beginColumn};
}

/// The symbols that are declared in the text, each place once.
std::vector<OutlineElement> declarationsIn(Snapshot &snapshot, unsigned file) {
  const OccurrenceIndex &index = snapshot.getIndex();
  std::vector<OutlineElement> elements;
  for (const Occurrence &occurrence : index.inFile(file)) {
    const Symbol &symbol = index.getSymbol(occurrence.symbol);
    const SourceRange place = occurrence.getPlace();
    const bool isNew =
        elements.empty() || beginOf(elements.back().symbol->place) != beginOf(symbol.place);
    // A program without PROGRAM-ID has no name, and an editor accepts no element without one.
    if (occurrence.use == Use::Declaration && symbol.place.file == file && isNew &&
        beginOf(symbol.place) == beginOf(place) && !symbol.spelling->empty() &&
        !snapshot.isEdited(place))
      elements.push_back({&symbol, symbol.place, 0});
  }
  return elements;
}

/// Where the text of an element ends that has a body: before the next one that is not in it.
void extendBody(Snapshot &snapshot, SourceRange &whole, unsigned lastLine) {
  whole.endLine = std::max(lastLine, whole.endLine);
  whole.endColumn = static_cast<unsigned>(snapshot.lineOf(whole.file, whole.endLine).size());
}

} // namespace

std::vector<OutlineElement> outlineOf(Snapshot &snapshot, unsigned file) {
  std::vector<OutlineElement> elements = declarationsIn(snapshot, file);
  const llvm::StringRef text = snapshot.getCompilation().getLines().textOf(file);
  const auto lastLine = static_cast<unsigned>(text.count('\n')) + (text.ends_with("\n") ? 0 : 1);
  // The elements that the present one may be in, the innermost last.
  std::vector<std::pair<std::size_t, unsigned>> open;
  auto close = [&](std::size_t end) {
    OutlineElement &element = elements[open.back().first];
    const SymbolKind kind = element.symbol->kind;
    element.end = end;
    if (kind == SymbolKind::Program || kind == SymbolKind::Section ||
        kind == SymbolKind::Paragraph || end > open.back().first + 1)
      extendBody(snapshot, element.whole,
                 end < elements.size() ? elements[end].symbol->place.beginLine - 1 : lastLine);
    open.pop_back();
  };
  for (std::size_t number = 0; number < elements.size(); ++number) {
    OutlineElement &element = elements[number];
    const unsigned depth = depthOf(snapshot.getIndex(), *element.symbol);
    while (!open.empty() && open.back().second >= depth)
      close(number);
    open.emplace_back(number, depth);
    if (const Node *node = element.symbol->node;
        node && node->getRange().file == file &&
        node->getRange().endLine >= element.whole.endLine) {
      element.whole.endLine = node->getRange().endLine;
      element.whole.endColumn = node->getRange().endColumn;
    }
    element.whole.beginColumn = 1;
  }
  while (!open.empty())
    close(elements.size());
  return elements;
}

} // namespace tarka::lsp
