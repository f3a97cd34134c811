//===- PublishedDiagnostics.cpp - the report as an editor shows it --------===//

#include "lsp/PublishedDiagnostics.h"
#include "Analyzer/LanguageChecker.h"
#include "Explain.h"
#include "Parse/Diagnostics.h"
#include "lsp/Snapshot.h"
#include "llvm/ADT/MapVector.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/FileUtilities.h"
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

/// The page that explains the diagnostics of \p number, as a URI that any editor can open: a file
/// in the cache directory of the user, which is written when it is needed. Empty where that is not
/// possible.
std::string explanationUri(int number) {
  llvm::SmallString<128> path;
  if (!llvm::sys::path::cache_directory(path))
    return "";
  llvm::sys::path::append(path, "tarka", TARKA_VERSION, "explain");
  const llvm::SmallString<128> directory(path);
  llvm::sys::path::append(path, std::to_string(number) + ".md");
  const std::string page = explanationPage(static_cast<unsigned>(number));
  std::uint64_t size = 0;
  if (page.empty())
    return "";
  // Several analyses write at a time: each file of its own, which then takes the name.
  if ((llvm::sys::fs::file_size(path, size) || size != page.size()) &&
      (llvm::sys::fs::create_directories(directory) ||
       llvm::errorToBool(llvm::writeToOutput(path, [&](llvm::raw_ostream &out) {
         out << page;
         return llvm::Error::success();
       }))))
    return "";
  llvm::Expected<mlir::lsp::URIForFile> uri = mlir::lsp::URIForFile::fromFile(path);
  if (uri)
    return uri->uri().str();
  llvm::consumeError(uri.takeError());
  return "";
}

/// How editors show a diagnostic beside its severity: text that does nothing is faded, elements of
/// older standards are struck out.
llvm::json::Array tagsOf(int number) {
  constexpr int unnecessary = 1, deprecated = 2;
  auto is = [&](DiagnosticId id) { return number == static_cast<int>(id); };
  auto isRule = [&](LanguageRule rule) {
    return number == languageRules()[static_cast<std::size_t>(rule)].number;
  };
  llvm::json::Array tags;
  if (is(DiagnosticId::NoEffect) || is(DiagnosticId::UnusedSuppression))
    tags.push_back(unnecessary);
  if (is(DiagnosticId::NoEffect) || isRule(LanguageRule::AlterNotAnalysed))
    tags.push_back(deprecated);
  return tags;
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
  // Of a copybook, the COPY that brings it in first, with those around it.
  const Expansion &expansion = snapshot.getCompilation().getExpansion();
  const llvm::ArrayRef<ExpandedText> texts = expansion.getTexts();
  const auto text = llvm::find_if(texts.drop_front(), [&](const ExpandedText &one) {
    return one.file && one.file->getNumber() == diagnostic.place.file;
  });
  for (const ExpandedText *one = text == texts.end() ? &texts.front() : text;
       one != &texts.front();) {
    const CopyUse &use = expansion.getCopies()[one->copy];
    if (std::optional<llvm::json::Object> where = snapshot.locationOf(use.place))
      places.push_back(related(std::move(*where), "copied here"));
    one = &texts[use.from];
  }
  return places;
}

void addPresentation(llvm::json::Object &published, int number) {
  if (std::string uri = explanationUri(number); !uri.empty())
    published["codeDescription"] = llvm::json::Object{{"href", std::move(uri)}};
  if (llvm::json::Array tags = tagsOf(number); !tags.empty())
    published["tags"] = std::move(tags);
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
  llvm::json::Object result{{"range", snapshot.rangeOf(use.place)},
                            {"severity", static_cast<int>(severityOf(copied.worst))},
                            {"code", first.number},
                            {"source", "tarka"},
                            {"message", std::move(message)},
                            {"relatedInformation", std::move(places)},
                            {"data", llvm::json::Object{{"copybook", use.name}}}};
  addPresentation(result, first.number);
  return result;
}

} // namespace

llvm::json::Object publishedDiagnostic(Snapshot &snapshot, const Diagnostic &diagnostic) {
  llvm::json::Object result{{"range", snapshot.rangeOf(diagnostic.place)},
                            {"severity", static_cast<int>(severityOf(diagnostic.severity))},
                            {"code", diagnostic.number},
                            {"source", "tarka"},
                            {"message", diagnostic.getMessage()}};
  addPresentation(result, diagnostic.number);
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
