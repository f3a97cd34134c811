//===- Views.cpp - what commands show beside the source -------------------===//

#include "Analyzer/CFGBuilder.h"
#include "Explain.h"
#include "Flow/FlowGraph.h"
#include "Print/PrintExpansion.h"
#include "Print/PrintGraph.h"
#include "Print/PrintLayout.h"
#include "Report/Utf8.h"
#include "lsp/features/Handlers.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka::lsp {

namespace {

llvm::json::Value view(const llvm::Twine &title, llvm::StringRef kind, llvm::StringRef language,
                       llvm::StringRef content) {
  return llvm::json::Object{{"title", toUtf8(title.str())},
                            {"kind", kind},
                            {"language", language},
                            {"content", toUtf8(content)}};
}

llvm::StringRef fileNameOf(const Snapshot &snapshot) {
  return llvm::sys::path::filename(snapshot.getPath());
}

/// The procedure that \p point is in: the last one that begins before it. Null in front of the
/// first one.
const FlowProcedure *procedureAt(const FlowModule &flow, const SourcePoint &point) {
  const FlowProcedure *found = nullptr;
  for (const FlowProcedure &procedure : flow.procedures()) {
    const SourceRange &place = procedure.getRange();
    if (place.file == point.file && place.beginLine <= point.line &&
        (!found || place.beginLine >= found->getRange().beginLine))
      found = &procedure;
  }
  return found;
}

/// What of \p module is meant.
GraphView selectView(const CFGModule &module, Snapshot &snapshot,
                     const llvm::json::Object &parameters) {
  GraphView view;
  if (const std::optional<llvm::StringRef> name = parameters.getString("name")) {
    view.paragraph = name->str();
  } else if (const std::optional<SourcePoint> point = snapshot.pointOf(parameters)) {
    const std::unique_ptr<FlowModule> flow = createFlow(module);
    if (const FlowProcedure *procedure = procedureAt(*flow, *point)) {
      view.paragraph = procedure->getName()->getWordData();
      view.function = procedure->graph->getName();
    }
  }
  view.collapse = view.paragraph.empty();
  return view;
}

} // namespace

Answer showLayout(Snapshot &snapshot, const Parameters &parameters) {
  LayoutView wanted;
  wanted.record = parameters.getString("name").value_or("").str();
  if (!wanted.record.empty())
    if (auto missing = explainMissingRecord(*snapshot.getProgram(), wanted.record))
      return llvm::createStringError(*missing);
  std::string text;
  llvm::raw_string_ostream os(text);
  printLayoutText(os, *snapshot.getProgram(), wanted);
  return view("Layout of " + (wanted.record.empty() ? fileNameOf(snapshot) : wanted.record), "text",
              "plaintext", text);
}

Answer explain(Snapshot &, const Parameters &parameters) {
  const std::int64_t number = parameters.getInteger("number").value_or(0);
  const std::string page = explanationPage(static_cast<unsigned>(number));
  if (page.empty())
    return refuse("there is no diagnostic " + llvm::Twine(number));
  return view("Diagnostic " + llvm::Twine(number), "text", "markdown", page);
}

Answer showFlow(Snapshot &snapshot, const Parameters &parameters) {
  const CFGModule &module = snapshot.getGraph();
  GraphView wanted = selectView(module, snapshot, parameters);
  if (auto missing = explainMissingProcedure(module, wanted))
    return llvm::createStringError(*missing);
  std::string dot;
  llvm::raw_string_ostream os(dot);
  printGraphDot(os, module, wanted, snapshot.getRequest().parse);
  return view("Flow of " + (wanted.collapse ? fileNameOf(snapshot) : wanted.paragraph), "dot",
              "dot", dot);
}

Answer showExpanded(Snapshot &snapshot, const Parameters &) {
  std::string text;
  llvm::raw_string_ostream os(text);
  printExpansionText(os, snapshot.getCompilation().getExpansion(), {});
  return view(fileNameOf(snapshot) + " expanded", "text", "cobol", text);
}

} // namespace tarka::lsp
