//===- Definition.cpp - where a name is declared --------------------------===//

#include "AST/DataDescription.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/ProgramCalls.h"

namespace tarka::lsp {

namespace {

/// Adds the place of the name of \p symbol, each place once.
void addPlace(Snapshot &snapshot, SymbolId symbol, llvm::json::Array &places) {
  std::optional<llvm::json::Object> place =
      snapshot.locationOf(snapshot.getIndex().getSymbol(symbol).place);
  if (place && !llvm::is_contained(places, llvm::json::Value(llvm::json::Object(*place))))
    places.push_back(std::move(*place));
}

/// Adds the places of the programs of other sources that are called at \p point.
void addProgram(Snapshot &snapshot, const SourcePoint &point, llvm::json::Array &places) {
  const std::optional<std::string> name = programNamedAt(snapshot, point);
  std::optional<llvm::json::Value> programs =
      name ? snapshot.askWorkspace("programs", llvm::json::Object{{"name", *name}}) : std::nullopt;
  if (llvm::json::Array *all = programs ? programs->getAsArray() : nullptr)
    for (llvm::json::Value &program : *all)
      places.push_back(std::move(*program.getAsObject()->get("location")));
}

/// What says what kind of thing \p id is: the conditional variable of a condition-name, the table
/// of an index-name, the record of an item, the section of a paragraph.
SymbolId typeOf(const OccurrenceIndex &index, SymbolId id) {
  const Symbol &symbol = index.getSymbol(id);
  if ((symbol.kind != SymbolKind::Item && symbol.kind != SymbolKind::ConditionName) || !symbol.node)
    return symbol.around;
  const auto &entry = static_cast<const DataDescription &>(*symbol.node);
  const DataDescription *variable = entry.getCondNameParent();
  return index.symbolOf(variable ? *variable : *entry.getRootDesc()).value_or(id);
}

} // namespace

Answer definition(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point)
    return nullptr;
  llvm::json::Array places;
  for (SymbolId symbol : snapshot.symbolsAt(*point))
    addPlace(snapshot, symbol, places);
  if (places.empty())
    addProgram(snapshot, *point, places);
  if (const CopyUse *use = snapshot.copyAt(*point))
    if (std::string uri = snapshot.uriOf(internFileName(use->file)); !uri.empty())
      places.push_back(llvm::json::Object{{"uri", std::move(uri)}, {"range", mlir::lsp::Range()}});
  return places;
}

/// A file is declared by its SELECT entry, and defined by its FD.
Answer declaration(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point)
    return nullptr;
  llvm::json::Array places;
  for (SymbolId symbol : snapshot.symbolsAt(*point))
    if (snapshot.getIndex().getSymbol(symbol).kind == SymbolKind::File)
      for (const Occurrence &occurrence : snapshot.getIndex().occurrencesOf(symbol))
        if (occurrence.use == Use::Declaration)
          if (std::optional<llvm::json::Object> place = snapshot.locationOf(occurrence.getPlace()))
            places.push_back(std::move(*place));
  if (places.empty())
    return definition(snapshot, parameters);
  return places;
}

Answer typeDefinition(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point)
    return nullptr;
  llvm::json::Array places;
  for (SymbolId symbol : snapshot.symbolsAt(*point))
    addPlace(snapshot, typeOf(snapshot.getIndex(), symbol), places);
  return places;
}

} // namespace tarka::lsp
