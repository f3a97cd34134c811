//===- DocumentSymbols.cpp - the outline of a text ------------------------===//

#include "AST/DataDescription.h"
#include "AST/KindNames.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Handlers.h"
#include "mlir/Tools/lsp-server-support/Protocol.h"

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

/// Builds the outline of the symbols of one text in their order.
class Outline {
public:
  Outline(Snapshot &of, unsigned number) : snapshot(of), file(number) {}

  llvm::json::Array make() {
    llvm::SmallVector<const Symbol *> symbols;
    for (const Occurrence &occurrence : snapshot.getIndex().inFile(file)) {
      const Symbol &symbol = snapshot.getIndex().getSymbol(occurrence.symbol);
      const bool isNew = symbols.empty() || pointOf(*symbols.back()) != pointOf(symbol);
      if (occurrence.use == Use::Declaration && symbol.place.file == file && isNew &&
          symbol.place.beginLine == occurrence.line &&
          symbol.place.beginColumn == occurrence.column)
        symbols.push_back(&symbol);
    }
    llvm::json::Array result;
    std::size_t next = 0;
    while (next < symbols.size())
      result.push_back(element(symbols, next));
    return result;
  }

private:
  static std::pair<unsigned, unsigned> pointOf(const Symbol &symbol) {
    return {symbol.place.beginLine, symbol.place.beginColumn};
  }

  /// The element of symbol \p next with all below it; \p next is moved behind them.
  llvm::json::Object element(llvm::ArrayRef<const Symbol *> symbols, std::size_t &next) {
    const Symbol &symbol = *symbols[next++];
    const unsigned depth = depthOf(snapshot.getIndex(), symbol);
    llvm::json::Array children;
    SourceRange whole = symbol.place;
    if (symbol.node && symbol.node->getRange().file == file &&
        symbol.node->getRange().endLine >= whole.endLine) {
      whole.endLine = symbol.node->getRange().endLine;
      whole.endColumn = symbol.node->getRange().endColumn;
    }
    while (next < symbols.size() && depthOf(snapshot.getIndex(), *symbols[next]) > depth)
      children.push_back(element(symbols, next));
    // What an element covers ends before the next one that is not in it.
    const bool hasBody = symbol.kind == SymbolKind::Program || symbol.kind == SymbolKind::Section ||
                         symbol.kind == SymbolKind::Paragraph || !children.empty();
    if (hasBody) {
      whole.endLine = next < symbols.size()
                          ? std::max(symbols[next]->place.beginLine - 1, whole.endLine)
                          : std::max(lastLine(), whole.endLine);
      whole.endColumn = columnsOf(whole.endLine);
    }
    whole.beginColumn = 1;
    llvm::json::Object result{{"name", *symbol.spelling},
                              {"kind", symbolKindOf(symbol)},
                              {"range", snapshot.rangeOf(whole)},
                              {"selectionRange", snapshot.rangeOf(symbol.place)}};
    if (std::string detail = detailOf(symbol); !detail.empty())
      result["detail"] = std::move(detail);
    if (!children.empty())
      result["children"] = std::move(children);
    return result;
  }

  unsigned lastLine() {
    const llvm::StringRef text = snapshot.getCompilation().getLines().textOf(file);
    return static_cast<unsigned>(text.count('\n')) + (text.ends_with("\n") ? 0 : 1);
  }
  unsigned columnsOf(unsigned line) {
    return static_cast<unsigned>(snapshot.lineOf(file, line).size());
  }

  Snapshot &snapshot;
  unsigned file;
};

} // namespace

Answer documentSymbol(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  if (!file)
    return nullptr;
  return Outline(snapshot, *file).make();
}

} // namespace tarka::lsp
