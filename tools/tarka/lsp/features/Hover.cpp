//===- Hover.cpp - what stands under the pointer --------------------------===//

#include "AST/IntrinsicFunctions.h"
#include "Explanations.h"
#include "Parse/Keywords.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/Meanings.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka::lsp {

namespace {

bool contains(const SourceRange &place, const SourcePoint &point) {
  return place.file == point.file &&
         std::tuple(place.beginLine, place.beginColumn) <= std::tuple(point.line, point.column) &&
         std::tuple(point.line, point.column) <= std::tuple(place.endLine, place.endColumn + 1);
}

/// The rules that the diagnostics at the place tell of.
std::string rulesAt(Snapshot &snapshot, const SourcePoint &point) {
  std::string text;
  for (const Diagnostic &diagnostic : snapshot.getDiagnostics())
    if (contains(diagnostic.place, point))
      if (const DiagnosticRow *row = findDiagnosticRow(static_cast<unsigned>(diagnostic.number)))
        if (std::optional<Explanation> explanation = explanationOf(row->name))
          text += "\n\n**" + std::to_string(diagnostic.number) + "** " + explanation->rule;
  return text;
}

/// What a copybook is for the program.
std::string describeCopy(Snapshot &snapshot, const CopyUse &use) {
  switch (use.outcome) {
  case CopyUse::Outcome::File:
    return "copybook " + snapshot.pathOf(internFileName(use.file));
  case CopyUse::Outcome::Supplied:
    return "copybook, supplied by the option that names its system";
  case CopyUse::Outcome::Map:
    return "symbolic map of " + snapshot.pathOf(internFileName(use.file));
  case CopyUse::Outcome::Missing: {
    std::string text = "copybook, not found in:";
    for (const std::string &directory : use.searched)
      text += "\n- " + directory;
    return text;
  }
  }
  llvm_unreachable("not an outcome");
}

/// The word at \p point, in upper case.
std::string wordAt(Snapshot &snapshot, const SourcePoint &point) {
  const llvm::StringRef line = snapshot.lineOf(point.file, point.line);
  auto isPart = [](char c) { return llvm::isAlnum(c) || c == '-'; };
  std::size_t begin = sliceColumns(line, 1, point.column - 1).size();
  std::size_t end = begin;
  while (begin > 0 && isPart(line[begin - 1]))
    --begin;
  while (end < line.size() && isPart(line[end]))
    ++end;
  return line.slice(begin, end).upper();
}

} // namespace

Answer hover(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point)
    return nullptr;
  std::string text;
  for (SymbolId symbol : snapshot.symbolsAt(*point)) {
    const std::string one = describeAtLength(snapshot, symbol);
    if (!llvm::StringRef(text).contains(one))
      text += (text.empty() ? "" : "\n\n") + one;
  }
  if (const CopyUse *use = text.empty() ? snapshot.copyAt(*point) : nullptr)
    text = describeCopy(snapshot, *use);
  if (text.empty())
    text = meaningOf(wordAt(snapshot, *point));
  text += rulesAt(snapshot, *point);
  if (text.empty())
    return nullptr;
  return llvm::json::Object{
      {"contents",
       llvm::json::Object{{"kind", "markdown"}, {"value", llvm::StringRef(text).ltrim().str()}}}};
}

} // namespace tarka::lsp
