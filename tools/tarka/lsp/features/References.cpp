//===- References.cpp - where a name is used ------------------------------===//

#include "lsp/features/Handlers.h"
#include "lsp/features/Writing.h"

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

llvm::Error references(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  const llvm::json::Object *context = parameters.getObject("context");
  const bool withDeclaration = !context || context->getBoolean("includeDeclaration").value_or(true);
  out.array([&] {
    if (const CopyUse *asked = snapshot.copyAt(*point))
      for (const CopyUse &use : snapshot.getCompilation().getExpansion().getCopies())
        if (use.file == asked->file && use.name == asked->name)
          writeLocation(out, snapshot, use.place);
    for (const Occurrence &occurrence : occurrencesAt(snapshot, *point))
      if ((withDeclaration || occurrence.use != Use::Declaration) &&
          !snapshot.isEdited(occurrence.getPlace()))
        writeLocation(out, snapshot, occurrence.getPlace());
  });
  return llvm::Error::success();
}

llvm::Error documentHighlight(Snapshot &snapshot, const Parameters &parameters,
                              llvm::json::OStream &out) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  out.array([&] {
    for (const Occurrence &occurrence : occurrencesAt(snapshot, *point))
      if (occurrence.file == point->file && !snapshot.isEdited(occurrence.getPlace()))
        out.object([&] {
          writeRange(out, "range", snapshot.rangeOf(occurrence.getPlace()));
          out.attribute("kind", highlightKind(occurrence.use));
        });
  });
  return llvm::Error::success();
}

} // namespace tarka::lsp
