//===- CallHierarchy.cpp - who performs whom ------------------------------===//

#include "Print/LayoutModel.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/ProgramCalls.h"
#include "llvm/ADT/MapVector.h"

namespace tarka::lsp {

namespace {

bool isProcedure(SymbolKind kind) {
  return kind == SymbolKind::Section || kind == SymbolKind::Paragraph;
}

llvm::json::Value itemOf(Snapshot &snapshot, SymbolId id) {
  const Symbol &symbol = snapshot.getIndex().getSymbol(id);
  std::optional<llvm::json::Object> item = snapshot.locationOf(symbol.place);
  if (!item)
    return nullptr;
  (*item)["selectionRange"] = snapshot.rangeOf(symbol.place);
  (*item)["name"] = *symbol.spelling;
  (*item)["detail"] = describeInLine(snapshot, id);
  (*item)["kind"] = static_cast<int>(isProcedure(symbol.kind) ? mlir::lsp::SymbolKind::Function
                                                              : mlir::lsp::SymbolKind::Module);
  return std::move(*item);
}

/// The symbol of an item that itemOf() has made.
std::optional<SymbolId> symbolOfItem(Snapshot &snapshot, const Parameters &parameters) {
  const llvm::json::Object *item = parameters.getObject("item");
  const llvm::json::Object *range = item ? item->getObject("selectionRange") : nullptr;
  const llvm::json::Object *start = range ? range->getObject("start") : nullptr;
  if (!start)
    return std::nullopt;
  const std::optional<unsigned> file = snapshot.fileOf(
      llvm::json::Object{{"textDocument", llvm::json::Object{{"uri", *item->get("uri")}}}});
  const std::optional<SourcePoint> point = file ? snapshot.pointOf(*file, *start) : std::nullopt;
  if (!point)
    return std::nullopt;
  const llvm::SmallVector<SymbolId, 2> symbols = snapshot.symbolsAt(*point);
  return symbols.empty() ? std::nullopt : std::optional(symbols.front());
}

using CallsBySymbol = llvm::MapVector<SymbolId, llvm::json::Array>;

llvm::json::Array callsOf(Snapshot &snapshot, CallsBySymbol calls, llvm::StringRef role) {
  llvm::json::Array result;
  for (auto &[symbol, ranges] : calls)
    if (llvm::json::Value item = itemOf(snapshot, symbol); item.getAsObject())
      result.push_back(
          llvm::json::Object{{role, std::move(item)}, {"fromRanges", std::move(ranges)}});
  return result;
}

/// The procedure around a place, or where there is none the program.
std::optional<SymbolId> callerAt(Snapshot &snapshot, const SourceRange &place) {
  if (std::optional<SymbolId> around = procedureAround(snapshot, place))
    return around;
  const SourceUnit *unit = unitAt(snapshot, {place.file, place.beginLine, place.beginColumn});
  return unit ? snapshot.getIndex().symbolOf(*unit) : std::nullopt;
}

/// What the workspace knows of the programs of that name: "item" and others.
std::vector<llvm::json::Object> knownPrograms(Snapshot &snapshot, llvm::StringRef name) {
  std::vector<llvm::json::Object> programs;
  std::optional<llvm::json::Value> answer =
      snapshot.askWorkspace("programs", llvm::json::Object{{"name", name}});
  if (llvm::json::Array *all = answer ? answer->getAsArray() : nullptr)
    for (llvm::json::Value &program : *all)
      programs.push_back(std::move(*program.getAsObject()));
  return programs;
}

} // namespace

Answer prepareCallHierarchy(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point)
    return nullptr;
  llvm::json::Array items;
  for (SymbolId id : snapshot.symbolsAt(*point)) {
    const SymbolKind kind = snapshot.getIndex().getSymbol(id).kind;
    if (isProcedure(kind) || kind == SymbolKind::Program)
      if (llvm::json::Value item = itemOf(snapshot, id); item.getAsObject())
        items.push_back(std::move(item));
  }
  // A program of another source that is called here.
  if (const std::optional<std::string> name =
          items.empty() ? programNamedAt(snapshot, *point) : std::nullopt)
    for (llvm::json::Object &program : knownPrograms(snapshot, *name))
      items.push_back(std::move(*program.get("item")));
  return items;
}

Answer incomingCalls(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SymbolId> called = symbolOfItem(snapshot, parameters);
  if (!called)
    return nullptr;
  CallsBySymbol calls;
  for (const Occurrence &occurrence : snapshot.getIndex().occurrencesOf(*called))
    if (occurrence.use != Use::Declaration)
      calls[callerAt(snapshot, occurrence.getPlace()).value_or(occurrence.symbol)].push_back(
          snapshot.rangeOf(occurrence.getPlace()));
  llvm::json::Array result = callsOf(snapshot, std::move(calls), "from");
  const Symbol &symbol = snapshot.getIndex().getSymbol(*called);
  if (symbol.kind == SymbolKind::Program && !symbol.unit->isNested()) {
    std::optional<llvm::json::Value> others = snapshot.askWorkspace(
        "callers", llvm::json::Object{{"name", programName(*symbol.unit).upper()},
                                      {"except", snapshot.getPath()}});
    if (llvm::json::Array *all = others ? others->getAsArray() : nullptr)
      for (llvm::json::Value &call : *all)
        result.push_back(std::move(call));
  }
  return result;
}

Answer outgoingCalls(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SymbolId> caller = symbolOfItem(snapshot, parameters);
  if (!caller)
    return nullptr;
  const OccurrenceIndex &index = snapshot.getIndex();
  const SourceRange &begin = index.getSymbol(*caller).place;
  CallsBySymbol calls;
  bool isInside = false;
  for (const Occurrence &occurrence : index.inFile(begin.file)) {
    const SymbolKind kind = index.getSymbol(occurrence.symbol).kind;
    if (!isProcedure(kind) && kind != SymbolKind::Program)
      continue;
    if (occurrence.use == Use::Declaration)
      isInside = occurrence.symbol == *caller;
    else if (isInside)
      calls[occurrence.symbol].push_back(snapshot.rangeOf(occurrence.getPlace()));
  }
  llvm::json::Array result = callsOf(snapshot, std::move(calls), "to");
  llvm::MapVector<llvm::StringRef, llvm::json::Array> others;
  const std::vector<ProgramCall> all = programCalls(snapshot);
  for (const ProgramCall &call : all)
    if (!call.isInSource && callerAt(snapshot, call.place) == caller)
      others[call.program].push_back(snapshot.rangeOf(call.place));
  for (auto &[name, ranges] : others)
    for (llvm::json::Object &program : knownPrograms(snapshot, name))
      result.push_back(llvm::json::Object{{"to", std::move(*program.get("item"))},
                                          {"fromRanges", llvm::json::Array(ranges)}});
  return result;
}

} // namespace tarka::lsp
