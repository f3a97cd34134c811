//===- SelectionRanges.cpp - from a word to the program -------------------===//

#include "lsp/features/Handlers.h"
#include "lsp/features/Outline.h"
#include "lsp/features/Statements.h"

namespace tarka::lsp {

namespace {

bool contains(const SourceRange &place, const SourcePoint &point) {
  return place.file == point.file &&
         std::tuple(place.beginLine, place.beginColumn) <= std::tuple(point.line, point.column) &&
         std::tuple(point.line, point.column) <= std::tuple(place.endLine, place.endColumn + 1u);
}

bool isWithin(const mlir::lsp::Range &inner, const mlir::lsp::Range &outer) {
  return outer.start <= inner.start && inner.end <= outer.end && !(inner == outer);
}

} // namespace

Answer selectionRange(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  const llvm::json::Array *positions = parameters.getArray("positions");
  if (!file || !positions)
    return nullptr;
  const std::vector<OutlineElement> outline = outlineOf(snapshot, *file);
  llvm::json::Array result;
  for (const llvm::json::Value &value : *positions) {
    mlir::lsp::Position position;
    llvm::json::Path::Root root;
    std::optional<SourcePoint> point =
        value.getAsObject() ? snapshot.pointOf(*file, *value.getAsObject()) : std::nullopt;
    if (!point || !fromJSON(value, position, root))
      return nullptr;
    std::vector<mlir::lsp::Range> ranges;
    for (const OutlineElement &element : outline)
      if (contains(element.whole, *point))
        ranges.push_back(snapshot.rangeOf(element.whole));
    forEachStatement(*snapshot.getProgram(), [&](Statement &statement) {
      if (contains(statement.getRange(), *point))
        ranges.push_back(snapshot.rangeOf(statement.getRange()));
    });
    for (const Occurrence &name : snapshot.getIndex().at(point->file, point->line, point->column))
      ranges.push_back(snapshot.rangeOf(name.getPlace()));
    // From the outside in; what does not lie within what is around it is left out.
    llvm::json::Value selection = nullptr;
    const mlir::lsp::Range *around = nullptr;
    for (const mlir::lsp::Range &range : ranges) {
      if (around && !isWithin(range, *around))
        continue;
      llvm::json::Object inner{{"range", range}};
      if (around)
        inner["parent"] = std::move(selection);
      selection = std::move(inner);
      around = &range;
    }
    if (!around)
      selection = llvm::json::Object{{"range", mlir::lsp::Range(position, position)}};
    result.push_back(std::move(selection));
  }
  return result;
}

} // namespace tarka::lsp
