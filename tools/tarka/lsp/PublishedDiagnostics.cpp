//===- PublishedDiagnostics.cpp - the report as an editor shows it --------===//

#include "lsp/PublishedDiagnostics.h"
#include "lsp/Snapshot.h"
#include "llvm/ADT/MapVector.h"
#include "llvm/Support/Path.h"

namespace tarka::lsp {

namespace {

using mlir::lsp::DiagnosticSeverity;

DiagnosticSeverity severityOf(Severity severity) {
  switch (severity) {
  case Severity::Info:
    return DiagnosticSeverity::Information;
  case Severity::Warning:
    return DiagnosticSeverity::Warning;
  default:
    return DiagnosticSeverity::Error;
  }
}

llvm::json::Object related(llvm::json::Object where, std::string message) {
  return llvm::json::Object{{"location", std::move(where)}, {"message", std::move(message)}};
}

/// The notes, and the further uses of a name that is not declared.
llvm::json::Array relatedPlaces(Snapshot &snapshot, const Diagnostic &diagnostic) {
  llvm::json::Array places;
  for (const DiagnosticNote &note : diagnostic.notes)
    if (std::optional<llvm::json::Object> where = snapshot.locationOf(note.place))
      places.push_back(related(std::move(*where), note.text));
  for (const SourceRange &place : diagnostic.furtherPlaces)
    if (std::optional<llvm::json::Object> where = snapshot.locationOf(place))
      places.push_back(related(std::move(*where), "used here too"));
  return places;
}

/// What the diagnostics of one copybook are for the program: one diagnostic at the COPY.
struct CopiedDiagnostics {
  std::vector<const Diagnostic *> all;
  Severity worst = Severity::Info;
};

llvm::json::Object diagnosticAtCopy(Snapshot &snapshot, const CopyUse &use,
                                    const CopiedDiagnostics &copied) {
  const Diagnostic &first = *copied.all.front();
  std::string message = use.name + ": " + first.getMessage();
  if (copied.all.size() > 1)
    message += "; " + std::to_string(copied.all.size() - 1) + " more in the copybook";
  llvm::json::Array places;
  for (const Diagnostic *diagnostic : copied.all)
    if (std::optional<llvm::json::Object> where = snapshot.locationOf(diagnostic->place))
      places.push_back(related(std::move(*where), diagnostic->getMessage()));
  return llvm::json::Object{{"range", snapshot.rangeOf(use.place)},
                            {"severity", static_cast<int>(severityOf(copied.worst))},
                            {"code", first.number},
                            {"source", "tarka"},
                            {"message", std::move(message)},
                            {"relatedInformation", std::move(places)},
                            {"data", llvm::json::Object{{"copybook", use.name}}}};
}

} // namespace

llvm::json::Object publishedDiagnostic(Snapshot &snapshot, const Diagnostic &diagnostic) {
  llvm::json::Object result{{"range", snapshot.rangeOf(diagnostic.place)},
                            {"severity", static_cast<int>(severityOf(diagnostic.severity))},
                            {"code", diagnostic.number},
                            {"source", "tarka"},
                            {"message", diagnostic.getMessage()}};
  if (llvm::json::Array places = relatedPlaces(snapshot, diagnostic); !places.empty())
    result["relatedInformation"] = std::move(places);
  return result;
}

void publishDiagnostics(
    Snapshot &snapshot,
    llvm::function_ref<void(llvm::StringRef path, const llvm::json::Object &diagnostic)> take) {
  const unsigned main = internFileName(snapshot.getPath());
  auto publish = [&](unsigned file, const llvm::json::Object &diagnostic) {
    if (const std::string &path = snapshot.pathOf(file); !path.empty())
      take(path, diagnostic);
  };
  llvm::MapVector<unsigned, CopiedDiagnostics> byCopybook;
  for (const Diagnostic &diagnostic : snapshot.getDiagnostics()) {
    llvm::json::Object published = publishedDiagnostic(snapshot, diagnostic);
    if (diagnostic.place.file != main) {
      published["message"] = diagnostic.getMessage() + " (in " +
                             llvm::sys::path::filename(snapshot.getPath()).str() + ")";
      CopiedDiagnostics &copied = byCopybook[diagnostic.place.file];
      copied.all.push_back(&diagnostic);
      copied.worst = copied.all.size() == 1 ? diagnostic.severity
                                            : std::min(copied.worst, diagnostic.severity);
    }
    publish(diagnostic.place.file, published);
  }
  // At the statement of the program that brings the copybook in, through other copybooks or not.
  const Expansion &expansion = snapshot.getCompilation().getExpansion();
  llvm::SmallVector<unsigned> reported;
  for (const ExpandedText &text : expansion.getTexts().drop_front()) {
    auto copied = byCopybook.find(text.file ? text.file->getNumber() : 0);
    if (copied == byCopybook.end() || llvm::is_contained(reported, copied->first))
      continue;
    reported.push_back(copied->first);
    const CopyUse *use = &expansion.getCopies()[text.copy];
    while (use->from != 0)
      use = &expansion.getCopies()[expansion.getTexts()[use->from].copy];
    publish(main, diagnosticAtCopy(snapshot, *use, copied->second));
  }
}

} // namespace tarka::lsp
