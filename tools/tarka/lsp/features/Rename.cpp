//===- Rename.cpp - another name, where that is certain -------------------===//

#include "Parse/Keywords.h"
#include "Report/Fixes.h"
#include "lsp/features/CopiedNames.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/Writing.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Path.h"

namespace tarka::lsp {

namespace {

/// A user word has at most this many characters.
constexpr std::size_t maxWord = 30;

std::string placeInWords(Snapshot &snapshot, const SourceRange &place) {
  return llvm::sys::path::filename(snapshot.pathOf(place.file)).str() + ":" +
         std::to_string(place.beginLine);
}

/// Whether the name stands in a copybook.
bool isCopied(Snapshot &snapshot, SymbolId symbol) {
  return llvm::any_of(snapshot.getIndex().relatedOccurrences(symbol),
                      [&](const Occurrence &occurrence) {
                        return snapshot.pathOf(occurrence.file) != snapshot.getPath();
                      });
}

/// The symbol at \p point, if it is certain at which places its name stands.
llvm::Expected<SymbolId> renamedSymbol(Snapshot &snapshot, const SourcePoint &point) {
  const OccurrenceIndex &index = snapshot.getIndex();
  const llvm::SmallVector<SymbolId, 2> symbols = snapshot.symbolsAt(point);
  if (symbols.empty())
    return refuse("there is no name of the program here");
  const Symbol &symbol = index.getSymbol(symbols.front());
  if (symbol.kind == SymbolKind::SpecialRegister)
    return refuse(*symbol.name + " is supplied by the language");
  if (symbol.kind == SymbolKind::Program)
    return refuse("programs that are not open can call " + *symbol.spelling);
  const bool isInCopybook = isCopied(snapshot, symbols.front());
  for (const Occurrence &occurrence : index.relatedOccurrences(symbols.front())) {
    const SourceRange place = occurrence.getPlace();
    if (snapshot.pathOf(place.file).empty())
      return refuse(*symbol.spelling + " is used in a copybook that is supplied");
    if (isInCopybook)
      continue;
    const llvm::StringRef text = sliceColumns(snapshot.lineOf(place.file, place.beginLine),
                                              place.beginColumn, place.endColumn);
    if (occurrence.isReplaced || place.beginLine != place.endLine ||
        !text.equals_insensitive(*symbol.name))
      return refuse(*symbol.spelling + " is not written as such at " +
                    placeInWords(snapshot, place) + ", where REPLACE or a continued line makes it");
  }
  return symbols.front();
}

/// What is wrong with \p name as the new name of \p symbol; empty when nothing is.
std::string faultOf(Snapshot &snapshot, llvm::StringRef name, const Symbol &symbol) {
  const bool isProcedure =
      symbol.kind == SymbolKind::Section || symbol.kind == SymbolKind::Paragraph;
  const bool isWord =
      !name.empty() && name.size() <= maxWord && !name.starts_with("-") && !name.ends_with("-") &&
      llvm::all_of(name, [](char c) { return llvm::isAlnum(c) || c == '-' || c == '_'; }) &&
      (isProcedure || llvm::any_of(name, llvm::isAlpha));
  if (!isWord)
    return "'" + name.str() + "' is not a name of COBOL: letters, digits and hyphens, at most 30";
  WordTable words(snapshot.getRequest().parse.osvs);
  const WordLookup found = words.lookup(name);
  if (isReserved(found.keyword))
    return *found.interned + " is a reserved word";
  for (const Symbol &other : snapshot.getIndex().getSymbols())
    if (other.name == found.interned && other.name != symbol.name && other.place.beginLine)
      return *other.spelling + " is declared already, at " + placeInWords(snapshot, other.place);
  return "";
}

bool isFixedForm(Snapshot &snapshot) {
  return snapshot.getCompilation().getExpansion().getTexts().front().format == SourceFormat::Fixed;
}

/// A WorkspaceEdit.
void writeEdits(llvm::json::OStream &out, const FileEdits &files) {
  out.object([&] {
    out.attributeObject("changes", [&] {
      for (const auto &[uri, edits] : files)
        out.attributeArray(uri, [&, &lines = edits] {
          for (const LineEdit &edit : lines)
            writeEdit(out, edit.range, edit.newText);
        });
    });
  });
}

} // namespace

Answer prepareRename(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  if (!point)
    return nullptr;
  llvm::Expected<SymbolId> symbol = renamedSymbol(snapshot, *point);
  if (!symbol)
    return symbol.takeError();
  const Occurrence &here = snapshot.getIndex().at(point->file, point->line, point->column).front();
  return llvm::json::Object{{"range", snapshot.rangeOf(here.getPlace())},
                            {"placeholder", *snapshot.getIndex().getSymbol(*symbol).spelling}};
}

/// In fixed form a line must not become too long, and the text behind column 72 stays there, so
/// whole lines are replaced.
llvm::Error rename(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out) {
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  const std::optional<llvm::StringRef> name = parameters.getString("newName");
  if (!point || !name) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  llvm::Expected<SymbolId> symbol = renamedSymbol(snapshot, *point);
  if (!symbol)
    return symbol.takeError();
  const Symbol &old = snapshot.getIndex().getSymbol(*symbol);
  if (const std::string fault = faultOf(snapshot, *name, old); !fault.empty())
    return refuse(fault);

  if (isCopied(snapshot, *symbol)) {
    llvm::Expected<FileEdits> edits = renameCopied(snapshot, *symbol, *name);
    if (!edits)
      return edits.takeError();
    writeEdits(out, *edits);
    return llvm::Error::success();
  }

  const unsigned file = point->file;
  FixedSource source(snapshot.getCompilation().getLines().textOf(file), isFixedForm(snapshot));
  llvm::SmallVector<unsigned> lines;
  for (const Occurrence &occurrence : snapshot.getIndex().relatedOccurrences(*symbol)) {
    const TextEdit edit{occurrence.getPlace(), *old.name, name->str()};
    if (!source.apply(edit))
      return refuse("line " + llvm::Twine(occurrence.line) + " would become too long");
    if (lines.empty() || lines.back() != occurrence.line)
      lines.push_back(occurrence.line);
  }
  const std::string changed = source.getText();
  writeEdits(out,
             {{snapshot.uriOf(file), lineEdits(snapshot.getCompilation().getLines().textOf(file),
                                               changed, lines, snapshot.getEncoding())}});
  return llvm::Error::success();
}

} // namespace tarka::lsp
