//===- SemanticTokens.cpp - what each word is -----------------------------===//

#include "Parse/Keywords.h"
#include "lsp/features/Handlers.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka::lsp {

namespace {

/// The places of the types in the legend, which Features.cpp gives to the editor.
enum TokenType : unsigned {
  Keyword,
  Variable,
  EnumMember,
  Function,
  Namespace,
  Class,
  String,
  Number,
  Macro,
};
enum TokenModifier : unsigned { NoModifier = 0, Declaration = 1, Modification = 2, Library = 4 };

struct ColoredWord {
  SourceRange place;
  TokenType type;
  unsigned modifiers;
  bool isName = false;
};

TokenType typeOf(SymbolKind kind) {
  switch (kind) {
  case SymbolKind::Item:
  case SymbolKind::IndexName:
  case SymbolKind::SpecialRegister:
    return Variable;
  case SymbolKind::ConditionName:
  case SymbolKind::SpecialName:
    return EnumMember;
  case SymbolKind::File:
  case SymbolKind::Report:
    return Class;
  case SymbolKind::Section:
  case SymbolKind::Program:
    return Namespace;
  case SymbolKind::Paragraph:
    return Function;
  }
  llvm_unreachable("not a kind of symbol");
}

unsigned modifiersOf(const Occurrence &occurrence, const Symbol &symbol) {
  unsigned modifiers = occurrence.use == Use::Declaration ? Declaration : NoModifier;
  if (occurrence.use == Use::Write || occurrence.use == Use::ReadWrite)
    modifiers |= Modification;
  if (symbol.kind == SymbolKind::SpecialRegister)
    modifiers |= Library;
  return modifiers;
}

std::pair<unsigned, unsigned> beginOf(const SourceRange &place) {
  return {place.beginLine, place.beginColumn};
}

/// The words of \p file that are not names.
void addOtherWords(Snapshot &snapshot, unsigned file, std::vector<ColoredWord> &words) {
  WordTable table(snapshot.getRequest().parse.osvs);
  for (const ExpandedWord &word : snapshot.getCompilation().getExpansion().getWords()) {
    if (word.place.file != file || word.isReplacement || word.text.empty())
      continue;
    const llvm::StringRef text = word.text;
    if (text.back() == '\'' || text.back() == '"')
      words.push_back({word.place, String, NoModifier});
    else if (llvm::isDigit(text.front()) && llvm::none_of(text, llvm::isAlpha))
      words.push_back({word.place, Number, NoModifier});
    else if (llvm::isAlpha(text.front()) && text.size() <= 30 &&
             table.lookup(text).keyword != tarka::Keyword::None)
      words.push_back({word.place, Keyword, NoModifier});
  }
}

} // namespace

llvm::Error semanticTokens(Snapshot &snapshot, const Parameters &parameters,
                           llvm::json::OStream &out) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  if (!file) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  std::vector<ColoredWord> words;
  for (const Occurrence &occurrence : snapshot.getIndex().inFile(*file))
    if (!occurrence.isReplaced) {
      const Symbol &symbol = snapshot.getIndex().getSymbol(occurrence.symbol);
      words.push_back(
          {occurrence.getPlace(), typeOf(symbol.kind), modifiersOf(occurrence, symbol), true});
    }
  for (const CopyUse &use : snapshot.getCompilation().getExpansion().getCopies())
    if (use.place.file == *file)
      words.push_back({use.place, Macro, NoModifier});
  addOtherWords(snapshot, *file, words);
  // Names come first at their place; text that is copied twice has each of its words twice.
  llvm::sort(words, [](const ColoredWord &left, const ColoredWord &right) {
    return std::pair(beginOf(left.place), !left.isName) <
           std::pair(beginOf(right.place), !right.isName);
  });

  out.objectBegin();
  out.attributeArray("data", [&] {
    mlir::lsp::Position last(0, 0);
    const SourceRange *before = nullptr;
    for (const ColoredWord &word : words) {
      if (word.place.beginLine != word.place.endLine ||
          (before && beginOf(*before) == beginOf(word.place)) || snapshot.isEdited(word.place))
        continue;
      before = &word.place;
      const mlir::lsp::Range range = snapshot.rangeOf(word.place);
      const bool isSameLine = range.start.line == last.line;
      out.value(range.start.line - last.line);
      out.value(isSameLine ? range.start.character - last.character : range.start.character);
      out.value(range.end.character - range.start.character);
      out.value(static_cast<unsigned>(word.type));
      out.value(word.modifiers);
      last = range.start;
    }
  });
  out.objectEnd();
  return llvm::Error::success();
}

} // namespace tarka::lsp
