//===- References.cpp - where a name is used ------------------------------===//

#include "lsp/features/Handlers.h"

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
