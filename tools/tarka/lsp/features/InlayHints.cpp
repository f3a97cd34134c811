//===- InlayHints.cpp - what is said beside the text ----------------------===//

#include "AST/DataDescription.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/Statements.h"
#include "lsp/features/Writing.h"
#include "llvm/Support/Path.h"

namespace tarka::lsp {

namespace {

/// A statement of more lines than this begins out of sight of its END- word.
constexpr unsigned sightLines = 10;
constexpr std::size_t maxLabel = 40;

class HintWriter {
public:
  HintWriter(Snapshot &of, unsigned ofFile, std::int64_t begin, std::int64_t end,
             llvm::json::OStream &stream)
      : snapshot(of), file(ofFile), first(begin), last(end), out(stream) {}

  void write() {
    out.array([&] {
      writeLayout();
      writeEnds();
      writeCopybooks();
    });
  }

private:
  void writeHint(const SourceRange &place, llvm::StringRef label, llvm::StringRef tooltip) {
    const mlir::lsp::Position position = snapshot.rangeOf(place).end;
    if (place.file != file || position.line < first || position.line > last)
      return;
    out.object([&] {
      out.attributeBegin("position");
      writePosition(out, position);
      out.attributeEnd();
      out.attribute("label", label);
      out.attribute("paddingLeft", true);
      out.attribute("tooltip", tooltip);
    });
  }

  /// "@12 +30" behind an entry of a record: its offset from 0 and its bytes.
  void writeLayout() {
    for (const Occurrence &occurrence : snapshot.getIndex().inFile(file)) {
      const Symbol &symbol = snapshot.getIndex().getSymbol(occurrence.symbol);
      if (symbol.kind != SymbolKind::Item || occurrence.use != Use::Declaration || !symbol.node ||
          snapshot.isEdited(occurrence.getPlace()))
        continue;
      const auto &entry = static_cast<const DataDescription &>(*symbol.node);
      if (entry.getType() == DescType::Data && !entry.isTooLarge())
        writeHint(entry.getRange(),
                  "@" + std::to_string(entry.getOffset()) + " +" +
                      std::to_string(entry.getTotalAllocSize()),
                  "offset in the record, bytes");
    }
  }

  /// The beginning of a long statement behind its END- word.
  void writeEnds() {
    forEachStatement(*snapshot.getProgram(), [&](Statement &statement) {
      const SourceRange &place = statement.getRange();
      if (place.file != file || place.endLine - place.beginLine <= sightLines ||
          snapshot.isEdited({file, place.endLine, 1, place.endLine, place.endColumn}))
        return;
      const llvm::StringRef end =
          sliceColumns(snapshot.lineOf(file, place.endLine), 1, place.endColumn);
      const std::size_t word = end.find_last_of(' ') + 1;
      if (!end.drop_front(word).starts_with_insensitive("END-"))
        return;
      llvm::StringRef begin =
          sliceColumns(snapshot.lineOf(file, place.beginLine), place.beginColumn, lastColumn())
              .rtrim();
      std::string label = begin.take_front(maxLabel).rtrim().str();
      label += begin.size() > maxLabel ? "..." : "";
      writeHint(place, llvm::json::fixUTF8(label), "what ends here");
    });
  }

  /// The file behind the name of a copybook.
  void writeCopybooks() {
    const llvm::StringRef directory = llvm::sys::path::parent_path(snapshot.getPath());
    unsigned lastLine = 0;
    for (const CopyUse &use : snapshot.getCompilation().getExpansion().getCopies()) {
      if (use.place.file != file || use.outcome != CopyUse::Outcome::File ||
          use.place.beginLine == lastLine || snapshot.isEdited(use.place))
        continue;
      lastLine = use.place.beginLine;
      const std::string path = snapshot.pathOf(internFileName(use.file));
      llvm::StringRef shown = path;
      if (shown.consume_front(directory))
        shown = shown.ltrim('/');
      writeHint(use.place, llvm::json::fixUTF8(shown), "the file that is copied");
    }
  }

  unsigned lastColumn() {
    constexpr unsigned fixedEnd = 72;
    return snapshot.isFixedForm(file) ? fixedEnd : ~0u - 1;
  }

  Snapshot &snapshot;
  unsigned file;
  std::int64_t first, last;
  llvm::json::OStream &out;
};

} // namespace

llvm::Error inlayHint(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  const llvm::json::Object *range = parameters.getObject("range");
  const llvm::json::Object *start = range ? range->getObject("start") : nullptr;
  const llvm::json::Object *end = range ? range->getObject("end") : nullptr;
  if (!file || !start || !end) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  HintWriter(snapshot, *file, start->getInteger("line").value_or(0),
             end->getInteger("line").value_or(0), out)
      .write();
  return llvm::Error::success();
}

} // namespace tarka::lsp
