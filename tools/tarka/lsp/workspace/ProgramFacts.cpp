//===- ProgramFacts.cpp - what other programs want to know ----------------===//

#include "lsp/workspace/ProgramFacts.h"
#include "Print/LayoutModel.h"
#include "lsp/features/Describe.h"
#include "lsp/features/ProgramCalls.h"
#include "llvm/ADT/MapVector.h"

namespace tarka::lsp {

namespace {

bool isProcedure(SymbolKind kind) {
  return kind == SymbolKind::Section || kind == SymbolKind::Paragraph;
}

/// Whether a symbol is worth finding from elsewhere.
bool isListed(SymbolKind kind) {
  return kind == SymbolKind::Program || isProcedure(kind) || kind == SymbolKind::Item ||
         kind == SymbolKind::ConditionName || kind == SymbolKind::File;
}

class FactsWriter {
public:
  FactsWriter(Snapshot &of, llvm::raw_ostream &stream)
      : snapshot(of), index(of.getIndex()), out(stream) {}

  void write() {
    out.object([&] {
      numberSymbols();
      out.attributeArray("programs", [&] { writePrograms(); });
      out.attributeArray("symbols", [&] { writeSymbols(); });
      out.attributeArray("calls", [&] { writeCalls(); });
      out.attributeArray("uses", [&] { writeUses(); });
      out.attributeArray("missing", [&] {
        for (const CopyUse &use : snapshot.getCompilation().getExpansion().getCopies())
          if (use.outcome == CopyUse::Outcome::Missing)
            out.value(use.name);
      });
      // The last one, because the others number the files.
      fileOf(internFileName(snapshot.getPath()));
      for (const CopyUse &use : snapshot.getCompilation().getExpansion().getCopies())
        if (use.outcome == CopyUse::Outcome::File)
          fileOf(internFileName(use.file));
      out.attributeArray("files", [&] {
        for (const auto &[file, number] : files)
          out.value(llvm::json::fixUTF8(snapshot.pathOf(file)));
      });
    });
  }

private:
  unsigned fileOf(unsigned file) {
    return files.try_emplace(file, static_cast<unsigned>(files.size())).first->second;
  }

  void numberSymbols() {
    const llvm::ArrayRef<Symbol> symbols = index.getSymbols();
    for (SymbolId id = 0; id < symbols.size(); ++id)
      if (isListed(symbols[id].kind) && symbols[id].place.beginLine &&
          !snapshot.pathOf(symbols[id].place.file).empty())
        numbers.try_emplace(id, static_cast<unsigned>(numbers.size()));
  }
  int numberOf(std::optional<SymbolId> id) const {
    auto found = id ? numbers.find(*id) : numbers.end();
    return found == numbers.end() ? -1 : static_cast<int>(found->second);
  }

  void writePlace(const SourceRange &place) {
    const mlir::lsp::Range range = snapshot.rangeOf(place);
    out.value(fileOf(place.file));
    out.value(range.start.line);
    out.value(range.start.character);
    // What is continued ends with its line.
    out.value(range.end.line == range.start.line ? range.end.character : range.start.character + 1);
  }

  void writePrograms() {
    for (const auto &[id, number] : numbers) {
      const Symbol &symbol = index.getSymbol(id);
      // A nested program cannot be called from elsewhere.
      if (symbol.kind != SymbolKind::Program || symbol.unit->isNested())
        continue;
      out.object([&] {
        out.attribute("name", llvm::json::fixUTF8(programName(*symbol.unit).upper()));
        out.attribute("symbol", number);
        out.attributeArray("using", [&] {
          for (const std::string &item : usingItems(*symbol.unit))
            out.value(llvm::json::fixUTF8(item));
        });
      });
    }
  }

  void writeSymbols() {
    for (const auto &[id, number] : numbers) {
      const Symbol &symbol = index.getSymbol(id);
      out.array([&] {
        out.value(llvm::json::fixUTF8(*symbol.spelling));
        out.value(symbolKindOf(symbol));
        out.value(symbol.kind == SymbolKind::Program ? -1 : numberOf(index.symbolOf(*symbol.unit)));
        writePlace(symbol.place);
      });
    }
  }

  /// The procedure around a place, or the program where there is none.
  int callerAt(const SourceRange &place) {
    if (std::optional<SymbolId> around = procedureAround(snapshot, place))
      return numberOf(around);
    const SourceUnit *unit = unitAt(snapshot, {place.file, place.beginLine, place.beginColumn});
    return unit ? numberOf(index.symbolOf(*unit)) : -1;
  }

  void writeCalls() {
    for (const Occurrence &occurrence : index.getOccurrences()) {
      const SymbolKind kind = index.getSymbol(occurrence.symbol).kind;
      if (occurrence.use == Use::Declaration || (!isProcedure(kind) && kind != SymbolKind::Program))
        continue;
      out.array([&] {
        out.value(callerAt(occurrence.getPlace()));
        out.value(numberOf(occurrence.symbol));
        writePlace(occurrence.getPlace());
      });
    }
    for (const ProgramCall &call : programCalls(snapshot))
      if (!call.isInSource)
        out.array([&] {
          out.value(callerAt(call.place));
          out.value(llvm::json::fixUTF8(call.program));
          writePlace(call.place);
        });
  }

  void writeUses() {
    const unsigned main = internFileName(snapshot.getPath());
    for (const Occurrence &occurrence : index.getOccurrences()) {
      const Symbol &symbol = index.getSymbol(occurrence.symbol);
      if (symbol.place.file == main || symbol.place.beginLine == 0 ||
          occurrence.use == Use::Declaration || snapshot.pathOf(symbol.place.file).empty() ||
          snapshot.pathOf(occurrence.file).empty())
        continue;
      const mlir::lsp::Range declaration = snapshot.rangeOf(symbol.place);
      out.array([&] {
        out.value(fileOf(symbol.place.file));
        out.value(declaration.start.line);
        out.value(declaration.start.character);
        out.value(static_cast<int>(occurrence.use));
        writePlace(occurrence.getPlace());
      });
    }
  }

  Snapshot &snapshot;
  const OccurrenceIndex &index;
  llvm::json::OStream out;
  llvm::MapVector<unsigned, unsigned> files;
  llvm::MapVector<SymbolId, unsigned> numbers;
};

} // namespace

void writeFacts(Snapshot &snapshot, llvm::raw_ostream &out) {
  FactsWriter(snapshot, out).write();
}

} // namespace tarka::lsp
