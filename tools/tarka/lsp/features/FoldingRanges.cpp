//===- FoldingRanges.cpp - what can be folded -----------------------------===//

#include "lsp/features/Handlers.h"
#include "lsp/features/Statements.h"

namespace tarka::lsp {

namespace {

/// Adds the elements of an outline that take several lines.
void addOutline(const llvm::json::Array &outline, llvm::json::Array &ranges) {
  for (const llvm::json::Value &value : outline) {
    const llvm::json::Object &element = *value.getAsObject();
    const llvm::json::Object &range = *element.getObject("range");
    const std::int64_t first = range.getObject("start")->getInteger("line").value_or(0);
    const std::int64_t last = range.getObject("end")->getInteger("line").value_or(0);
    if (last > first)
      ranges.push_back(llvm::json::Object{{"startLine", first}, {"endLine", last}});
    if (const llvm::json::Array *children = element.getArray("children"))
      addOutline(*children, ranges);
  }
}

bool isComment(llvm::StringRef line) {
  return (line.size() > 6 && (line[6] == '*' || line[6] == '/')) || line.ltrim().starts_with("*>");
}

/// Adds the comments of several lines.
void addComments(Snapshot &snapshot, unsigned file, llvm::json::Array &ranges) {
  const llvm::StringRef text = snapshot.getCompilation().getLines().textOf(file);
  const unsigned lines = static_cast<unsigned>(text.count('\n')) + 1;
  unsigned first = 0;
  for (unsigned line = 1; line <= lines + 1; ++line) {
    const bool isPart = line <= lines && isComment(snapshot.lineOf(file, line));
    if (isPart && first == 0)
      first = line;
    if (isPart || first == 0)
      continue;
    if (line - first > 1)
      ranges.push_back(
          llvm::json::Object{{"startLine", first - 1}, {"endLine", line - 2}, {"kind", "comment"}});
    first = 0;
  }
}

} // namespace

Answer foldingRange(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  if (!file)
    return nullptr;
  llvm::json::Array ranges;
  Answer outline = documentSymbol(snapshot, parameters);
  if (!outline)
    return outline.takeError();
  if (const llvm::json::Array *elements = outline->getAsArray())
    addOutline(*elements, ranges);
  forEachStatement(*snapshot.getProgram(), [&](Statement &statement) {
    const SourceRange &place = statement.getRange();
    if (place.file == *file && place.endLine > place.beginLine + 1)
      ranges.push_back(
          llvm::json::Object{{"startLine", place.beginLine - 1}, {"endLine", place.endLine - 2}});
  });
  addComments(snapshot, *file, ranges);
  return ranges;
}

} // namespace tarka::lsp
