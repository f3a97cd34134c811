//===- Features.cpp - the requests that a snapshot answers ----------------===//

#include "lsp/Features.h"
#include "lsp/features/Handlers.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka::lsp {

namespace {

constexpr llvm::StringLiteral on = "true";

// clang-format off
constexpr Feature table[] = {
    {"textDocument/definition", "definitionProvider", on, definition},
    {"textDocument/declaration", "declarationProvider", on, declaration},
    {"textDocument/typeDefinition", "typeDefinitionProvider", on, typeDefinition},
    {"textDocument/references", "referencesProvider", on, references},
    {"textDocument/documentHighlight", "documentHighlightProvider", on, documentHighlight},
    {"textDocument/prepareRename", "", "", prepareRename, TextNeeded::Present},
    {"textDocument/rename", "renameProvider", R"({"prepareProvider":true})", rename, TextNeeded::All},
    {"textDocument/hover", "hoverProvider", on, hover},
    {"textDocument/completion", "completionProvider", R"({"triggerCharacters":["-","'","\"","="]})", completion},
    {"textDocument/signatureHelp", "signatureHelpProvider",
     R"({"triggerCharacters":["("," ",","]})", signatureHelp},
    {"textDocument/moniker", "monikerProvider", on, moniker},
    {"textDocument/prepareCallHierarchy", "callHierarchyProvider", on, prepareCallHierarchy},
    {"callHierarchy/incomingCalls", "", "", incomingCalls},
    {"callHierarchy/outgoingCalls", "", "", outgoingCalls},
    {"textDocument/documentSymbol", "documentSymbolProvider", on, documentSymbol},
    {"textDocument/documentLink", "documentLinkProvider", "{}", documentLink},
    {"textDocument/foldingRange", "foldingRangeProvider", on, foldingRange},
    {"textDocument/semanticTokens/full", "semanticTokensProvider",
     R"({"legend":{"tokenTypes":["keyword","variable","enumMember","function","namespace","class",
         "string","number","macro"],"tokenModifiers":["declaration","modification",
         "defaultLibrary"]},"full":true})",
     semanticTokens},
    {"textDocument/selectionRange", "selectionRangeProvider", on, selectionRange},
    {"textDocument/inlayHint", "inlayHintProvider", on, inlayHint},
    {"textDocument/codeAction", "codeActionProvider", R"({"codeActionKinds":["quickfix","refactor.rewrite"]})",
     codeAction, TextNeeded::Present},
    {"textDocument/codeLens", "codeLensProvider", "{}", codeLens},
    {"textDocument/formatting", "documentFormattingProvider", on, format, TextNeeded::Present},
    {"textDocument/rangeFormatting", "documentRangeFormattingProvider", on, format, TextNeeded::Present},
    // Commands, see workspace/executeCommand.
    {"tarka.explain", "", "", explain},
    {"tarka.showExpanded", "", "", showExpanded},
    {"tarka.showFlow", "", "", showFlow},
    {"tarka.showLayout", "", "", showLayout},
};
// clang-format on

} // namespace

llvm::Error Handler::answer(Snapshot &snapshot, const Parameters &parameters,
                            llvm::json::OStream &out) const {
  if (write)
    return write(snapshot, parameters, out);
  llvm::Expected<llvm::json::Value> result = make(snapshot, parameters);
  if (!result)
    return result.takeError();
  out.value(*result);
  return llvm::Error::success();
}

llvm::ArrayRef<Feature> allFeatures() {
  return table;
}

const Feature *findFeature(llvm::StringRef method) {
  const Feature *found =
      llvm::find_if(table, [&](const Feature &feature) { return feature.method == method; });
  return found == std::end(table) ? nullptr : found;
}

llvm::Error refuse(const llvm::Twine &reason) {
  return llvm::createStringError(llvm::inconvertibleErrorCode(), reason);
}

} // namespace tarka::lsp
