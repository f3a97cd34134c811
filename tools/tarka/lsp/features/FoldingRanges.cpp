//===- FoldingRanges.cpp - what can be folded -----------------------------===//

#include "lsp/features/Handlers.h"
#include "lsp/features/Outline.h"
#include "lsp/features/Statements.h"
#include "lsp/features/Writing.h"

namespace tarka::lsp {

namespace {

/// Writes the folding range of lines \p first to \p last, from 1, if there are several.
void writeLines(llvm::json::OStream &out, Snapshot &snapshot, unsigned file, unsigned first,
                unsigned last, llvm::StringRef kind = "") {
  const mlir::lsp::Range lines = snapshot.rangeOf(SourceRange(file, first, 1, last, 1));
  if (lines.start.line < lines.end.line)
    out.object([&] {
      out.attribute("startLine", lines.start.line);
      out.attribute("endLine", lines.end.line);
      if (!kind.empty())
        out.attribute("kind", kind);
    });
}

bool isComment(llvm::StringRef line) {
  return (line.size() > 6 && (line[6] == '*' || line[6] == '/')) || line.ltrim().starts_with("*>");
}

/// Writes the comments of several lines.
void writeComments(llvm::json::OStream &out, Snapshot &snapshot, unsigned file) {
  const llvm::StringRef text = snapshot.getCompilation().getLines().textOf(file);
  const unsigned lines = static_cast<unsigned>(text.count('\n')) + 1;
  unsigned first = 0;
  for (unsigned line = 1; line <= lines + 1; ++line) {
    const bool isPart = line <= lines && isComment(snapshot.lineOf(file, line));
    if (isPart && first == 0)
      first = line;
    if (isPart || first == 0)
      continue;
    writeLines(out, snapshot, file, first, line - 1, "comment");
    first = 0;
  }
}

} // namespace

llvm::Error foldingRange(Snapshot &snapshot, const Parameters &parameters,
                         llvm::json::OStream &out) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  if (!file) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  out.array([&] {
    for (const OutlineElement &element : outlineOf(snapshot, *file))
      writeLines(out, snapshot, *file, element.whole.beginLine, element.whole.endLine);
    forEachStatement(*snapshot.getProgram(), [&](Statement &statement) {
      // The last line of a statement, which names what ends, stays to be seen.
      const SourceRange &place = statement.getRange();
      if (place.file == *file)
        writeLines(out, snapshot, *file, place.beginLine, place.endLine - 1);
    });
    writeComments(out, snapshot, *file);
  });
  return llvm::Error::success();
}

} // namespace tarka::lsp
