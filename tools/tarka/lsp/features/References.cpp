//===- References.cpp - where a name is used ------------------------------===//

#include "lsp/Uris.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/ProgramCalls.h"
#include "lsp/features/Writing.h"
#include "llvm/ADT/StringSet.h"

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

/// Writes Locations, each place once.
class LocationWriter {
public:
  LocationWriter(Snapshot &of, llvm::json::OStream &stream) : snapshot(of), out(stream) {}

  void add(const SourceRange &place) {
    const mlir::lsp::Position begin = snapshot.rangeOf(place).start;
    if (isNew(snapshot.pathOf(place.file), begin.line, begin.character))
      writeLocation(out, snapshot, place);
  }
  /// A Location of another program.
  void add(const llvm::json::Object &location) {
    const llvm::json::Object *range = location.getObject("range");
    const llvm::json::Object *begin = range ? range->getObject("start") : nullptr;
    const std::optional<std::string> path = pathOfUri(location.getString("uri").value_or(""));
    if (begin && path &&
        isNew(*path, begin->getInteger("line").value_or(0),
              begin->getInteger("character").value_or(0)))
      out.value(llvm::json::Object(location));
  }

  void add(llvm::StringRef path, const mlir::lsp::Range &range) {
    if (!isNew(path, range.start.line, range.start.character))
      return;
    out.object([&] {
      out.attribute("uri", uriOfPath(path));
      writeRange(out, "range", range);
    });
  }

private:
  bool isNew(llvm::StringRef path, std::int64_t line, std::int64_t character) {
    const std::string place = std::to_string(line) + ":" + std::to_string(character);
    return known.insert((path + ":" + place).str()).second;
  }

  Snapshot &snapshot;
  llvm::json::OStream &out;
  llvm::StringSet<> known;
};

/// Adds places that are given as four numbers each: which path, line, begin and end.
void addUses(const llvm::json::Array &paths, const llvm::json::Array &numbers,
             LocationWriter &places) {
  auto number = [&](std::size_t at) {
    return static_cast<int>(numbers[at].getAsInteger().value_or(0));
  };
  for (std::size_t at = 0; at + 3 < numbers.size(); at += 4) {
    const llvm::StringRef path =
        paths[static_cast<std::size_t>(number(at))].getAsString().value_or("");
    const int line = number(at + 1);
    places.add(path, {mlir::lsp::Position(line, number(at + 2)),
                      mlir::lsp::Position(line, number(at + 3))});
  }
}

/// Adds the places in other programs: those that call the program at \p point, or that use the name
/// of a copybook.
void addOtherPrograms(Snapshot &snapshot, const SourcePoint &point, bool withDeclaration,
                      LocationWriter &places) {
  // Until all programs are known, other requests wait behind this one.
  constexpr std::chrono::seconds patience(3);
  auto ask = [&](llvm::StringRef what, llvm::json::Object parameters) {
    std::optional<llvm::json::Value> answer =
        snapshot.askWorkspace(what, std::move(parameters), patience);
    llvm::json::Array *all = answer ? answer->getAsArray() : nullptr;
    return all ? std::move(*all) : llvm::json::Array();
  };
  if (const std::optional<std::string> name = programNamedAt(snapshot, point)) {
    if (withDeclaration)
      for (llvm::json::Value &program : ask("programs", llvm::json::Object{{"name", *name}}))
        places.add(*program.getAsObject()->getObject("location"));
    for (const ProgramCall &call : programCalls(snapshot))
      if (call.program == *name)
        places.add(call.place);
    for (llvm::json::Value &call :
         ask("callers", llvm::json::Object{{"name", *name}, {"except", snapshot.getPath()}}))
      for (llvm::json::Value &range : *call.getAsObject()->getArray("fromRanges"))
        places.add(llvm::json::Object{{"uri", *call.getAsObject()->getObject("from")->get("uri")},
                                      {"range", range}});
  }
  for (SymbolId id : snapshot.symbolsAt(point)) {
    const SourceRange &place = snapshot.getIndex().getSymbol(id).place;
    const std::string &path = snapshot.pathOf(place.file);
    if (place.beginLine == 0 || path.empty() || path == snapshot.getPath())
      continue;
    const mlir::lsp::Position begin = snapshot.rangeOf(place).start;
    const std::optional<llvm::json::Value> answer =
        snapshot.askWorkspace("uses",
                              llvm::json::Object{{"path", path},
                                                 {"line", begin.line},
                                                 {"character", begin.character},
                                                 {"except", snapshot.getPath()}},
                              patience);
    const llvm::json::Object *uses = answer ? answer->getAsObject() : nullptr;
    if (const llvm::json::Array *numbers = uses ? uses->getArray("places") : nullptr)
      addUses(*uses->getArray("paths"), *numbers, places);
  }
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
    LocationWriter places(snapshot, out);
    if (const CopyUse *asked = snapshot.copyAt(*point))
      for (const CopyUse &use : snapshot.getCompilation().getExpansion().getCopies())
        if (use.file == asked->file && use.name == asked->name)
          places.add(use.place);
    for (const Occurrence &occurrence : occurrencesAt(snapshot, *point))
      if ((withDeclaration || occurrence.use != Use::Declaration) &&
          !snapshot.isEdited(occurrence.getPlace()))
        places.add(occurrence.getPlace());
    addOtherPrograms(snapshot, *point, withDeclaration, places);
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
