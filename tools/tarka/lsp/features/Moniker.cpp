//===- Moniker.cpp - names that hold beyond a source ----------------------===//

#include "AST/DataDescription.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/ProgramCalls.h"
#include "llvm/Support/Path.h"

namespace tarka::lsp {

namespace {

llvm::json::Object monikerOf(const std::string &identifier, llvm::StringRef unique,
                             llvm::StringRef kind) {
  return llvm::json::Object{
      {"scheme", "cobol"}, {"identifier", identifier}, {"unique", unique}, {"kind", kind}};
}

/// EXTERNAL storage is that of the run, and what a copybook declares that of all who copy it.
llvm::json::Object monikerOf(Snapshot &snapshot, const Symbol &symbol) {
  const bool isItem = symbol.kind == SymbolKind::Item || symbol.kind == SymbolKind::ConditionName;
  const auto *entry = isItem ? static_cast<const DataDescription *>(symbol.node) : nullptr;
  const DataDescription *record = entry ? entry->getRootDesc() : nullptr;
  if (record && record->getExternal() && !record->isFiller())
    return monikerOf("external/" + record->getDataName()->getWordData() +
                         (record == entry ? "" : "/" + *symbol.name),
                     "scheme", "export");
  const std::string &path = snapshot.pathOf(symbol.place.file);
  const std::string file = llvm::sys::path::stem(path).upper();
  if (path != snapshot.getPath() && !path.empty())
    return monikerOf("copybook/" + file + "/" + *symbol.name, "project", "import");
  return monikerOf(file + "/" + *symbol.name, "document", "local");
}

} // namespace

Answer moniker(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point)
    return nullptr;
  llvm::json::Array monikers;
  for (SymbolId id : snapshot.symbolsAt(*point)) {
    const Symbol &symbol = snapshot.getIndex().getSymbol(id);
    if (symbol.kind != SymbolKind::SpecialRegister && symbol.kind != SymbolKind::Program)
      monikers.push_back(monikerOf(snapshot, symbol));
  }
  if (const std::optional<std::string> name = programNamedAt(snapshot, *point)) {
    const llvm::SmallVector<SymbolId, 2> symbols = snapshot.symbolsAt(*point);
    monikers.push_back(
        monikerOf("program/" + *name, "scheme", symbols.empty() ? "import" : "export"));
  }
  return monikers;
}

} // namespace tarka::lsp
