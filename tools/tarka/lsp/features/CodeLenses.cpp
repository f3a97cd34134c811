//===- CodeLenses.cpp - what is said above procedures and records ---------===//

#include "AST/DataDescription.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/Writing.h"

namespace tarka::lsp {

namespace {

/// Writes lenses: what is said above a range, with the command that shows more.
class LensWriter {
public:
  LensWriter(Snapshot &of, unsigned number, llvm::json::OStream &stream)
      : snapshot(of), uri(of.uriOf(number)), out(stream) {}

  /// How many places name the procedure; the command shows them.
  void writeUsers(const mlir::lsp::Range &range, SymbolId symbol) {
    llvm::SmallVector<SourceRange, 16> places;
    for (const Occurrence &occurrence : snapshot.getIndex().occurrencesOf(symbol))
      if (occurrence.use != Use::Declaration && !snapshot.pathOf(occurrence.file).empty())
        places.push_back(occurrence.getPlace());
    const std::string title = places.empty()       ? "no uses"
                              : places.size() == 1 ? "1 use"
                                                   : std::to_string(places.size()) + " uses";
    write(range, title, "tarka.showReferences", [&] {
      out.attributeBegin("position");
      writePosition(out, range.start);
      out.attributeEnd();
      out.attributeArray("places", [&] {
        for (const SourceRange &place : places)
          writeLocation(out, snapshot, place);
      });
    });
  }

  void writeFlow(const mlir::lsp::Range &range) {
    write(range, "flow", "tarka.showFlow", [&] {
      out.attributeBegin("position");
      writePosition(out, range.start);
      out.attributeEnd();
    });
  }

  void writeLayout(const mlir::lsp::Range &range, const DataDescription &record,
                   const std::string &name) {
    write(range, std::to_string(record.getTotalAllocSize()) + " bytes", "tarka.showLayout",
          [&] { out.attribute("name", name); });
  }

private:
  /// The arguments of the command are the document and an object with \p attributes.
  void write(const mlir::lsp::Range &range, llvm::StringRef title, llvm::StringRef command,
             llvm::function_ref<void()> attributes) {
    out.object([&] {
      writeRange(out, "range", range);
      out.attributeObject("command", [&] {
        out.attribute("title", title);
        out.attribute("command", command);
        out.attributeArray("arguments", [&] {
          out.value(uri);
          out.object(attributes);
        });
      });
    });
  }

  Snapshot &snapshot;
  std::string uri;
  llvm::json::OStream &out;
};

} // namespace

llvm::Error codeLens(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  if (!file) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  LensWriter writer(snapshot, *file, out);
  out.arrayBegin();
  std::uint32_t lastLine = 0;
  for (const Occurrence &occurrence : snapshot.getIndex().inFile(*file)) {
    // A text that is copied twice declares two symbols on a line.
    if (occurrence.use != Use::Declaration || occurrence.isReplaced ||
        occurrence.line == lastLine || snapshot.isEdited(occurrence.getPlace()))
      continue;
    lastLine = occurrence.line;
    const Symbol &symbol = snapshot.getIndex().getSymbol(occurrence.symbol);
    const mlir::lsp::Range range = snapshot.rangeOf(occurrence.getPlace());
    if (symbol.kind == SymbolKind::Paragraph || symbol.kind == SymbolKind::Section) {
      writer.writeUsers(range, occurrence.symbol);
      writer.writeFlow(range);
    } else if (symbol.kind == SymbolKind::Item && symbol.node) {
      const auto &entry = static_cast<const DataDescription &>(*symbol.node);
      // A record of one item has nothing to lay out.
      if (entry.getType() == DescType::Data && entry.getLevelNum() == 1 && entry.isGroupItem() &&
          !entry.isTooLarge())
        writer.writeLayout(range, entry, *symbol.name);
    }
  }
  out.arrayEnd();
  return llvm::Error::success();
}

} // namespace tarka::lsp
