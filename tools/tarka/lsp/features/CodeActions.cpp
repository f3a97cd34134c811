//===- CodeActions.cpp - what can be done about a diagnostic --------------===//

#include "Parse/Diagnostics.h"
#include "lsp/PublishedDiagnostics.h"
#include "lsp/features/Handlers.h"

namespace tarka::lsp {

namespace {

using mlir::lsp::Position;
using mlir::lsp::Range;

llvm::json::Object edit(const Range &range, std::string text) {
  return llvm::json::Object{{"range", range}, {"newText", std::move(text)}};
}

llvm::json::Object action(Snapshot &snapshot, const Diagnostic &diagnostic, std::string title,
                          llvm::json::Array edits, bool isPreferred) {
  llvm::json::Object changes;
  changes[snapshot.uriOf(diagnostic.place.file)] = std::move(edits);
  return llvm::json::Object{
      {"title", std::move(title)},
      {"kind", "quickfix"},
      {"isPreferred", isPreferred},
      {"diagnostics", llvm::json::Array{publishedDiagnostic(snapshot, diagnostic)}},
      {"edit", llvm::json::Object{{"changes", std::move(changes)}}}};
}

/// The edits that the report proposes, or the name that was probably meant.
void addFixes(Snapshot &snapshot, const Diagnostic &diagnostic, llvm::json::Array &actions) {
  if (!diagnostic.fix.empty()) {
    llvm::json::Array edits;
    for (const TextEdit &change : diagnostic.fix)
      edits.push_back(edit(snapshot.rangeOf(change.place), change.newText));
    const TextEdit &first = diagnostic.fix.front();
    std::string title = first.oldText.empty()   ? "Insert " + first.newText
                        : first.newText.empty() ? "Remove " + first.oldText
                                                : "Change to " + first.newText;
    actions.push_back(
        action(snapshot, diagnostic, std::move(title), std::move(edits), /*isPreferred=*/true));
    return;
  }
  const SourceRange &place = diagnostic.place;
  const llvm::StringRef line = snapshot.lineOf(place.file, place.beginLine);
  const llvm::StringRef name = llvm::StringRef(diagnostic.subject).split(' ').first;
  if (diagnostic.suggestion.empty() || name.empty() || place.beginLine != place.endLine ||
      !sliceColumns(line, place.beginColumn, place.endColumn).starts_with_insensitive(name))
    return;
  SourceRange word = place;
  word.endColumn = place.beginColumn + static_cast<unsigned>(name.size()) - 1;
  actions.push_back(action(snapshot, diagnostic, "Change to " + diagnostic.suggestion,
                           llvm::json::Array{edit(snapshot.rangeOf(word), diagnostic.suggestion)},
                           /*isPreferred=*/false));
}

/// A comment before the line that turns the diagnostic off there.
void addSuppression(Snapshot &snapshot, const Diagnostic &diagnostic, llvm::json::Array &actions) {
  if (diagnostic.severity == Severity::Fatal)
    return;
  const std::string number = std::to_string(diagnostic.number);
  const Position before(static_cast<int>(diagnostic.place.beginLine) - 1, 0);
  const std::string comment = "       *> tarka: off " + number + " (say here why it is right)\n";
  actions.push_back(action(snapshot, diagnostic, "Turn " + number + " off for this line",
                           llvm::json::Array{edit(Range(before, before), comment)},
                           /*isPreferred=*/false));
}

} // namespace

Answer codeAction(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  Range asked;
  llvm::json::Path::Root root;
  const llvm::json::Value *range = parameters.get("range");
  if (!file || !range || !fromJSON(*range, asked, root))
    return nullptr;
  llvm::json::Array actions;
  for (const Diagnostic &diagnostic : snapshot.getDiagnostics()) {
    if (diagnostic.place.file != *file || diagnostic.place.beginLine == 0)
      continue;
    const Range place = snapshot.rangeOf(diagnostic.place);
    if (place.end < asked.start || asked.end < place.start)
      continue;
    addFixes(snapshot, diagnostic, actions);
    addSuppression(snapshot, diagnostic, actions);
  }
  return actions;
}

} // namespace tarka::lsp
