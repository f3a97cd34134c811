//===- References.cpp - where a name is used ------------------------------===//

#include "lsp/features/Handlers.h"
#include "lsp/features/ProgramCalls.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka::lsp {

namespace {

/// All places of the name at \p point, with those of the other programs that copy its declaration.
llvm::SmallVector<Occurrence, 16> occurrencesAt(Snapshot &snapshot, const SourcePoint &point) {
  const llvm::SmallVector<SymbolId, 2> symbols = snapshot.symbolsAt(point);
  if (symbols.empty())
    return {};
  return snapshot.getIndex().relatedOccurrences(symbols.front());
}

/// The kinds of highlights of the protocol.
int highlightKind(Use use) {
  constexpr int text = 1, read = 2, write = 3;
  switch (use) {
  case Use::Declaration:
  case Use::Mention:
    return text;
  case Use::Read:
    return read;
  case Use::Write:
  case Use::ReadWrite:
    return write;
  }
  llvm_unreachable("not a use");
}

/// Adds the places in other programs: those that call the program at \p point, or that use the name
/// of a copybook.
void addOtherPrograms(Snapshot &snapshot, const SourcePoint &point, bool withDeclaration,
                      llvm::json::Array &places) {
  constexpr std::chrono::seconds patience(10);
  auto ask = [&](llvm::StringRef what, llvm::json::Object parameters) {
    std::optional<llvm::json::Value> answer =
        snapshot.askWorkspace(what, std::move(parameters), patience);
    llvm::json::Array *all = answer ? answer->getAsArray() : nullptr;
    return all ? std::move(*all) : llvm::json::Array();
  };
  auto addLocation = [&](llvm::json::Value location) {
    if (!llvm::is_contained(places, location))
      places.push_back(std::move(location));
  };
  if (const std::optional<std::string> name = programNamedAt(snapshot, point)) {
    if (withDeclaration)
      for (llvm::json::Value &program : ask("programs", llvm::json::Object{{"name", *name}}))
        addLocation(std::move(*program.getAsObject()->get("location")));
    for (const ProgramCall &call : programCalls(snapshot))
      if (call.program == *name)
        if (std::optional<llvm::json::Object> place = snapshot.locationOf(call.place))
          addLocation(std::move(*place));
    for (llvm::json::Value &call :
         ask("callers", llvm::json::Object{{"name", *name}, {"except", snapshot.getPath()}}))
      for (llvm::json::Value &range : *call.getAsObject()->getArray("fromRanges"))
        addLocation(llvm::json::Object{{"uri", *call.getAsObject()->getObject("from")->get("uri")},
                                       {"range", range}});
  }
  for (SymbolId id : snapshot.symbolsAt(point)) {
    const SourceRange &place = snapshot.getIndex().getSymbol(id).place;
    const std::string &path = snapshot.pathOf(place.file);
    if (place.beginLine == 0 || path.empty() || path == snapshot.getPath())
      continue;
    const mlir::lsp::Position begin = snapshot.rangeOf(place).start;
    for (llvm::json::Value &location :
         ask("uses", llvm::json::Object{{"path", path},
                                        {"line", begin.line},
                                        {"character", begin.character},
                                        {"except", snapshot.getPath()}})) {
      location.getAsObject()->erase("use");
      addLocation(std::move(location));
    }
  }
}

} // namespace

Answer references(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point)
    return nullptr;
  const llvm::json::Object *context = parameters.getObject("context");
  const bool withDeclaration = !context || context->getBoolean("includeDeclaration").value_or(true);
  llvm::json::Array places;
  if (const CopyUse *asked = snapshot.copyAt(*point))
    for (const CopyUse &use : snapshot.getCompilation().getExpansion().getCopies())
      if (use.file == asked->file && use.name == asked->name)
        if (std::optional<llvm::json::Object> place = snapshot.locationOf(use.place))
          places.push_back(std::move(*place));
  for (const Occurrence &occurrence : occurrencesAt(snapshot, *point))
    if (withDeclaration || occurrence.use != Use::Declaration)
      if (std::optional<llvm::json::Object> place = snapshot.locationOf(occurrence.getPlace()))
        places.push_back(std::move(*place));
  addOtherPrograms(snapshot, *point, withDeclaration, places);
  return places;
}

Answer documentHighlight(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point)
    return nullptr;
  llvm::json::Array highlights;
  for (const Occurrence &occurrence : occurrencesAt(snapshot, *point))
    if (occurrence.file == point->file)
      highlights.push_back(llvm::json::Object{{"range", snapshot.rangeOf(occurrence.getPlace())},
                                              {"kind", highlightKind(occurrence.use)}});
  return highlights;
}

} // namespace tarka::lsp
