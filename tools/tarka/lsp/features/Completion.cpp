//===- Completion.cpp - what can be written here --------------------------===//

#include "AST/DataDescription.h"
#include "AST/FileDescription.h"
#include "AST/IntrinsicFunctions.h"
#include "Parse/Keywords.h"
#include "Parse/SourceFile.h"
#include "Report/Excerpt.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/LineWords.h"
#include "lsp/features/Meanings.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/Path.h"

namespace tarka::lsp {

namespace {

/// An editor shows no more than a few; it asks again when more is typed.
constexpr std::size_t maxItems = 300;

struct PhraseRow {
  llvm::StringLiteral opener;
  llvm::StringLiteral phrases;
};
constexpr PhraseRow phraseTable[] = {
#define PHRASES(Opener, Phrases) {Opener, Phrases},
#include "lsp/features/Phrases.def"
};

/// The phrases of what \p opener, in upper case, begins; null when nothing is known.
const PhraseRow *phrasesOf(llvm::StringRef opener) {
  const PhraseRow *found =
      llvm::lower_bound(phraseTable, opener, [](const PhraseRow &row, llvm::StringRef wanted) {
        return row.opener < wanted;
      });
  return found != std::end(phraseTable) && found->opener == opener ? found : nullptr;
}

bool isLevelNumber(const LineWord &word) {
  unsigned level = 0;
  return word.text.size() <= 2 && !word.text.getAsInteger(10, level) &&
         ((level >= 1 && level <= 49) || level == 66 || level == 77 || level == 88);
}

class Completion {
public:
  Completion(Snapshot &of, const SourcePoint &at)
      : snapshot(of), before(textBefore(of, at)), prefix(before.prefix) {
    const LineWord last = before.last();
    if (last.kind == LineWord::OpenLiteral && last.line == at.line && prefix.empty()) {
      literal = last.text.drop_front(last.text.find_first_of("'\"") + 1);
      prefix = *literal;
    }
    isLower = llvm::any_of(prefix, llvm::isLower);
    range = snapshot.presentRangeBefore(
        at, static_cast<unsigned>(columnOfOffset(prefix, prefix.size())) - 1);
    findOpener();
  }

  llvm::json::Object make() {
    if (literal)
      addPrograms();
    else if (!addReplaced() && !addQualifiers())
      addByWords();
    return llvm::json::Object{{"isIncomplete", items.size() >= maxItems},
                              {"items", std::move(items)}};
  }

private:
  /// What the words before the place ask for.
  void addByWords() {
    const LineWord last = before.last();
    if (last.is("COPY") || (last.is("INCLUDE") && before.last(1).is("SQL")))
      addCopybooks();
    else if (last.isOneOf({"PERFORM", "THRU", "THROUGH"}) ||
             (last.isOneOf({"GO", "TO"}) && opener == "GO"))
      addSymbols({SymbolKind::Paragraph, SymbolKind::Section}, '1');
    else if (last.isOneOf({"INPUT", "OUTPUT", "I-O", "EXTEND", "READ", "CLOSE", "START", "RETURN"}))
      addSymbols({SymbolKind::File}, '1');
    else if (last.is("FUNCTION"))
      addFunctions();
    else if (opener == "01")
      addEntry();
    else
      addStatement();
  }

  enum Kind {
    Function = 3,
    Variable = 6,
    Module = 9,
    Keyword = 14,
    Snippet = 15,
    File = 17,
    Constant = 21,
  };

  /// Finds the statement or the entry that the place is in.
  void findOpener() {
    for (std::size_t at = before.words.size(); at-- > 0;) {
      const LineWord &word = before.words[at];
      if (word.kind == LineWord::Period)
        break;
      const bool isFirst = at == 0 || before.words[at - 1].kind == LineWord::Period;
      if (isFirst && word.isOneOf({"FD", "SD", "SELECT"})) {
        opener = word.is("SELECT") ? "SELECT" : "FD";
        return;
      }
      if (isFirst && isLevelNumber(word)) {
        opener = "01";
        isNamed = at + 1 < before.words.size();
        return;
      }
      if (!opener.empty() || !isVerb(word.keyword()) || isPartOfPhrase(at))
        continue;
      opener = word.upper();
    }
  }

  /// Words that are verbs elsewhere: SORT ... ON, EXIT PERFORM, DISPLAY as a usage.
  bool isPartOfPhrase(std::size_t at) const {
    const LineWord previous = at > 0 ? before.words[at - 1] : LineWord();
    return previous.isOneOf({"EXIT", "USAGE", "IS", "NOT"}) ||
           before.words[at].isOneOf({"ON", "USE", "NEXT", "START"});
  }

  bool fits(llvm::StringRef name) const {
    return items.size() < maxItems && name.starts_with_insensitive(prefix);
  }
  void add(std::string label, Kind kind, std::string detail, char order, std::string text = "",
           bool isSnippet = false) {
    if (!known.insert(label).second)
      return;
    llvm::json::Object item{
        {"label", label},
        {"kind", static_cast<int>(kind)},
        {"sortText", std::string(1, order) + label},
        {"filterText", label},
        {"textEdit",
         llvm::json::Object{{"range", range}, {"newText", text.empty() ? label : text}}}};
    if (!detail.empty())
      item["detail"] = std::move(detail);
    if (isSnippet)
      item["insertTextFormat"] = 2;
    items.push_back(std::move(item));
  }

  //===--------------------------------------------------------------------===//
  // Places
  //===--------------------------------------------------------------------===//

  /// A clause of a data description entry. What comes first is the name, which is new, except after
  /// these words.
  void addEntry() {
    if (before.last().isOneOf({"REDEFINES", "ON", "RENAMES", "THRU", "THROUGH", "OF", "KEY", "IS"}))
      addSymbols({SymbolKind::Item}, '1');
    if (isNamed)
      addPhrases("01", '1');
    else
      add(inCase("FILLER"), Keyword, "", '1');
  }

  void addStatement() {
    const LineWord last = before.last();
    const bool isCondition = last.isOneOf({"IF", "AND", "OR", "NOT", "UNTIL", "WHEN"});
    const bool isSet = opener == "SET" && !last.is("TO");
    const bool isBeginning = last.text.empty() || last.kind == LineWord::Period;
    if (!opener.empty())
      addPhrases(opener, '2');
    if (opener != "SELECT" && opener != "FD" && !isBeginning) {
      // Where a condition is expected, its names come first; nothing but SET changes them.
      addSymbols({SymbolKind::ConditionName}, isCondition || isSet ? '0' : '4');
      addSymbols({SymbolKind::Item, SymbolKind::IndexName, SymbolKind::File,
                  SymbolKind::SpecialName, SymbolKind::SpecialRegister},
                 '1');
    }
    if (!prefix.empty() || isBeginning) {
      addSnippets();
      if (prefix.empty())
        return;
      for (const WordMeaning &row : wordMeanings())
        if (fits(row.word) && llvm::isAlpha(row.word.front()))
          add(inCase(row.word), Keyword, row.meaning.str(), '5');
      for (const llvm::StringRef word : {
#define KEYWORD(Enumerator, Text, Flags) llvm::StringRef(Text),
#include "Parse/Keywords.def"
           })
        if (fits(word))
          add(inCase(word), Keyword, "", '6');
    }
  }

  void addPhrases(llvm::StringRef of, char order) {
    const PhraseRow *row = phrasesOf(of);
    llvm::SmallVector<llvm::StringRef> phrases;
    if (row)
      row->phrases.split(phrases, ',');
    for (llvm::StringRef phrase : phrases)
      if (fits(phrase))
        add(inCase(phrase), Keyword, "", order);
  }

  /// Behind a name and OF or IN: what qualifies the name.
  bool addQualifiers() {
    if (!before.last().isOneOf({"OF", "IN"}) || before.last(1).kind != LineWord::Word ||
        before.last(1).isOneOf({"LENGTH", "ADDRESS"}))
      return false;
    // The name is before its nearest qualifiers.
    std::size_t at = 1;
    while (before.last(at + 1).isOneOf({"OF", "IN"}) && before.last(at + 2).kind == LineWord::Word)
      at += 2;
    const std::string name = before.last(at).upper();
    const OccurrenceIndex &index = snapshot.getIndex();
    for (const Symbol &symbol : index.getSymbols()) {
      if (*symbol.name != name)
        continue;
      if (symbol.kind == SymbolKind::Paragraph && &index.getSymbol(symbol.around) != &symbol)
        addQualifier(*index.getSymbol(symbol.around).spelling, "section");
      if (symbol.kind != SymbolKind::Item && symbol.kind != SymbolKind::ConditionName)
        continue;
      const auto *entry = static_cast<const DataDescription *>(symbol.node);
      const DataDescription *last = entry;
      while (entry && (entry = entry->getOwner())) {
        last = entry;
        if (!entry->isFiller())
          addQualifier(entry->getDataName()->getDisplayName(), "group");
      }
      if (const FileDescription *file = last ? last->getFileDescription() : nullptr)
        addQualifier(file->getFileName()->getDisplayName(), "file");
    }
    return true;
  }
  void addQualifier(const std::string &qualifier, llvm::StringRef detail) {
    if (fits(qualifier))
      add(qualifier, Variable, detail.str(), '1');
  }

  /// Within the text that COPY ... REPLACING replaces: the words of the copybook.
  bool addReplaced() {
    std::size_t copy = before.words.size();
    while (copy > 0 && !before.words[copy - 1].is("COPY")) {
      if (before.words[copy - 1].kind == LineWord::Period)
        return false;
      --copy;
    }
    if (copy == 0 || copy >= before.words.size())
      return false;
    bool isReplacing = false, isInPseudoText = false, isReplaced = true;
    for (const LineWord &word : llvm::ArrayRef(before.words).drop_front(copy + 1)) {
      isReplacing |= word.is("REPLACING");
      isInPseudoText ^= word.text == "==";
      if (!isInPseudoText && word.is("BY"))
        isReplaced = false;
      else if (!isInPseudoText && (word.text == "==" || word.is("REPLACING")))
        isReplaced = true;
    }
    // The text behind BY, up to its end, is the programmer's own.
    if (!isReplacing || !isReplaced)
      return isReplacing;
    addWordsOf(copybookText(before.words[copy].text));
    return true;
  }

  /// The text of the copybook \p name; empty when it is not found.
  llvm::StringRef copybookText(llvm::StringRef name) {
    SourceLines &lines = snapshot.getCompilation().getLines();
    for (const CopyUse &use : snapshot.getCompilation().getExpansion().getCopies())
      if (name.equals_insensitive(use.name) && use.outcome == CopyUse::Outcome::File)
        return lines.textOf(internFileName(use.file));
    std::string found;
    forEachCopybook([&](const std::string &path) {
      if (llvm::sys::path::stem(path).equals_insensitive(name) && found.empty())
        found = path;
    });
    return found.empty() ? "" : lines.textOf(internFileName(found));
  }

  /// The words of \p text: first those that are there to be replaced, such as :TAG:.
  void addWordsOf(llvm::StringRef text) {
    auto isPart = [](char c) { return llvm::isAlnum(c) || c == '-' || c == '_' || c == ':'; };
    WordTable words(/*osvs=*/false);
    bool isPicture = false;
    while (!text.empty()) {
      const llvm::StringRef word = text.take_while(isPart);
      text = text.drop_front(std::max<std::size_t>(word.size(), 1));
      if (word.empty())
        continue;
      const tarka::Keyword keyword = words.lookup(word).keyword;
      // The character-string of a PICTURE can look like a word.
      if (std::exchange(isPicture,
                        keyword == tarka::Keyword::Pic || keyword == tarka::Keyword::Picture))
        continue;
      const std::size_t end = word.starts_with(":") ? word.find(':', 1) : llvm::StringRef::npos;
      if (end != llvm::StringRef::npos && fits(word.take_front(end + 1)))
        add(word.take_front(end + 1).str(), Constant, "replaced text", '0');
      else if (llvm::any_of(word, llvm::isAlpha) && !word.contains(':') &&
               keyword == tarka::Keyword::None && fits(word))
        add(word.str(), Variable, "of the copybook", '1');
    }
  }

  //===--------------------------------------------------------------------===//
  // Names
  //===--------------------------------------------------------------------===//

  void addSymbols(std::initializer_list<SymbolKind> kinds, char order) {
    const OccurrenceIndex &index = snapshot.getIndex();
    const llvm::ArrayRef<Symbol> symbols = index.getSymbols();
    for (SymbolId id = 0; id < symbols.size(); ++id)
      if (llvm::is_contained(kinds, symbols[id].kind) && fits(*symbols[id].spelling))
        add(qualifiedName(snapshot, id), kindOf(symbols[id].kind), describeInLine(snapshot, id),
            order);
  }

  static Kind kindOf(SymbolKind kind) {
    switch (kind) {
    case SymbolKind::Paragraph:
    case SymbolKind::Section:
      return Function;
    case SymbolKind::Program:
      return Module;
    case SymbolKind::File:
    case SymbolKind::Report:
      return File;
    case SymbolKind::ConditionName:
    case SymbolKind::SpecialName:
      return Constant;
    default:
      return Variable;
    }
  }

  /// In a literal behind CALL: the programs of the source and of the workspace.
  void addPrograms() {
    if (!before.last(1).isOneOf({"CALL", "CANCEL", "PROGRAM", "("}))
      return;
    addSymbols({SymbolKind::Program}, '1');
    const std::optional<llvm::json::Value> programs =
        snapshot.askWorkspace("programs", {}, patienceWhileTyping);
    for (const llvm::json::Value &program :
         programs && programs->getAsArray() ? *programs->getAsArray() : llvm::json::Array()) {
      const llvm::json::Object &item = *program.getAsObject()->getObject("item");
      const std::string name = item.getString("name").value_or("").trim("'\"").str();
      if (fits(name))
        add(name, Module, item.getString("detail").value_or("").str(), '1');
    }
  }

  /// A word of the language in the case in which the programmer writes.
  std::string inCase(llvm::StringRef word) const { return isLower ? word.lower() : word.str(); }

  void addSnippets() {
    for (const WordMeaning &row : wordMeanings())
      if (!row.snippet.empty() && fits(row.word))
        add(inCase(row.word), Snippet, row.meaning.str(), '3', snippetOf(row), /*isSnippet=*/true);
  }

  /// The places to fill in stay as they are.
  std::string snippetOf(const WordMeaning &row) const {
    if (!isLower)
      return row.snippet.str();
    std::string text;
    unsigned depth = 0;
    for (char c : row.snippet) {
      depth += c == '{';
      depth -= c == '}';
      text += depth ? c : llvm::toLower(c);
    }
    return text;
  }

  void addFunctions() {
    for (const IntrinsicFunction &function : intrinsicFunctions())
      if (const FunctionMeaning *row = functionMeaningOf(function.name); row && fits(row->name))
        add(inCase(row->name), Function, row->call() + ": " + row->meaning.str(), '1');
  }

  void forEachCopybook(llvm::function_ref<void(const std::string &path)> take) {
    std::vector<std::string> directories = snapshot.getRequest().parse.includeDirectories;
    directories.push_back(llvm::sys::path::parent_path(snapshot.getPath()).str());
    directories.push_back(".");
    llvm::vfs::FileSystem &files = *snapshot.getRequest().parse.fileSystem;
    for (const std::string &directory : directories) {
      std::error_code error;
      for (llvm::vfs::directory_iterator entry = files.dir_begin(directory, error), end;
           !error && entry != end; entry.increment(error))
        if (hasCopybookExtension(entry->path()))
          take(entry->path().str());
    }
  }

  void addCopybooks() {
    forEachCopybook([&](const std::string &path) {
      if (fits(llvm::sys::path::stem(path)))
        add(llvm::sys::path::stem(path).str(), File, llvm::sys::path::parent_path(path).str(), '1');
    });
  }

  Snapshot &snapshot;
  TextBefore before;
  /// What has been typed of the word.
  llvm::StringRef prefix;
  /// The same, where it is within quotation marks.
  std::optional<llvm::StringRef> literal;
  /// What begins the statement or entry, in upper case, see Phrases.def; empty where there is none.
  std::string opener;
  /// Of a data description entry: the level number is not the last word.
  bool isNamed = false;
  bool isLower = false;
  mlir::lsp::Range range;
  llvm::StringSet<> known;
  llvm::json::Array items;
};

} // namespace

Answer completion(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.presentPointOf(parameters);
  if (!point)
    return nullptr;
  return Completion(snapshot, *point).make();
}

} // namespace tarka::lsp
