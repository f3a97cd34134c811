//===- Completion.cpp - what can be written here --------------------------===//

#include "AST/DataDescription.h"
#include "AST/IntrinsicFunctions.h"
#include "AST/Scope.h"
#include "Parse/Keywords.h"
#include "Parse/SourceFile.h"
#include "Report/Excerpt.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/Meanings.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/Path.h"

namespace tarka::lsp {

namespace {

/// An editor shows no more than a few; it asks again when more is typed.
constexpr std::size_t maxItems = 300;
/// How many lines before the place are looked at.
constexpr unsigned maxLines = 10;

bool isWordCharacter(char c) {
  return llvm::isAlnum(c) || c == '-' || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

/// What stands before the place.
struct Context {
  /// The beginning of the word that is being written.
  llvm::StringRef prefix;
  /// The words before it in upper case, the latest first; "." for a period, "'" for an open
  /// quotation.
  llvm::SmallVector<std::string, 16> words;

  llvm::StringRef last(std::size_t number = 0) const {
    return number < words.size() ? llvm::StringRef(words[number]) : "";
  }
  bool isAfter(std::initializer_list<llvm::StringRef> any) const {
    return llvm::is_contained(any, last());
  }
};

/// The program text of a line: without sequence number, indicator, comments and what is behind
/// column 72 in fixed form.
llvm::StringRef programText(llvm::StringRef line, bool isFixedForm) {
  constexpr std::size_t textBegin = 7, textEnd = 72;
  if (!isFixedForm)
    return line.split("*>").first;
  if (line.size() <= textBegin || line[textBegin - 1] == '*' || line[textBegin - 1] == '/')
    return "";
  return line.take_front(textEnd).drop_front(textBegin).split("*>").first;
}

/// The words of \p text, the latest first.
void addWords(llvm::StringRef text, llvm::SmallVectorImpl<std::string> &words) {
  llvm::SmallVector<std::string, 16> found;
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    if (isWordCharacter(c)) {
      const llvm::StringRef word = text.substr(at).take_while(isWordCharacter);
      found.push_back(word.upper());
      at += word.size();
    } else if (c == '\'' || c == '"') {
      const std::size_t end = text.find(c, at + 1);
      if (end == llvm::StringRef::npos) {
        found.push_back("'");
        break;
      }
      found.push_back("literal");
      at = end + 1;
    } else {
      if (!llvm::isSpace(c))
        found.push_back(std::string(1, c));
      ++at;
    }
  }
  words.append(found.rbegin(), found.rend());
}

Context contextAt(Snapshot &snapshot, const SourcePoint &point) {
  const bool isFixedForm = snapshot.isFixedForm(point.file);
  const llvm::StringRef line =
      sliceColumns(snapshot.presentLineOf(point.file, point.line), 1, point.column - 1);
  Context context;
  std::size_t begin = line.size();
  while (begin > 0 && isWordCharacter(line[begin - 1]))
    --begin;
  context.prefix = line.drop_front(begin);
  addWords(programText(line.take_front(begin), isFixedForm), context.words);
  for (unsigned before = 1; before < point.line && before <= maxLines; ++before)
    addWords(programText(snapshot.presentLineOf(point.file, point.line - before), isFixedForm),
             context.words);
  return context;
}

class Completion {
public:
  Completion(Snapshot &of, const SourcePoint &at)
      : snapshot(of), context(contextAt(of, at)),
        isLower(llvm::any_of(context.prefix, llvm::isLower)) {
    range = snapshot.presentRangeBefore(
        at, static_cast<unsigned>(columnOfOffset(context.prefix, context.prefix.size())) - 1);
  }

  llvm::json::Object make() {
    if (context.isAfter({"COPY"}))
      addCopybooks();
    else if (context.isAfter({"PERFORM", "THRU", "THROUGH", "GO"}) ||
             (context.isAfter({"TO"}) && context.last(1) == "GO"))
      addSymbols({SymbolKind::Paragraph, SymbolKind::Section});
    else if (context.isAfter({"'"}))
      addSymbols({SymbolKind::Program});
    else if (context.isAfter(
                 {"INPUT", "OUTPUT", "I-O", "EXTEND", "READ", "CLOSE", "START", "RETURN"}))
      addSymbols({SymbolKind::File});
    else if (context.isAfter({"FUNCTION"}))
      addFunctions();
    else {
      addSymbols({SymbolKind::Item, SymbolKind::ConditionName, SymbolKind::IndexName,
                  SymbolKind::File, SymbolKind::SpecialName, SymbolKind::SpecialRegister});
      addSnippets();
      addKeywords();
    }
    return llvm::json::Object{{"isIncomplete", items.size() >= maxItems},
                              {"items", std::move(items)}};
  }

private:
  enum Kind {
    Function = 3,
    Variable = 6,
    Module = 9,
    Keyword = 14,
    Snippet = 15,
    File = 17,
    Constant = 21,
    Struct = 22
  };

  bool fits(llvm::StringRef name) const {
    return items.size() < maxItems && name.starts_with_insensitive(context.prefix);
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

  void addSymbols(std::initializer_list<SymbolKind> kinds) {
    const OccurrenceIndex &index = snapshot.getIndex();
    const llvm::ArrayRef<Symbol> symbols = index.getSymbols();
    for (SymbolId id = 0; id < symbols.size(); ++id)
      if (llvm::is_contained(kinds, symbols[id].kind) && fits(*symbols[id].spelling))
        add(labelOf(symbols[id]), kindOf(symbols[id].kind), describeInLine(snapshot, id), '1');
  }

  /// A name that several items have is written with the group that it is in.
  static std::string labelOf(const Symbol &symbol) {
    const bool isData = symbol.kind == SymbolKind::Item || symbol.kind == SymbolKind::ConditionName;
    if (!isData || !symbol.node || Scope(symbol.unit).findOnlyOwnItem(symbol.name))
      return *symbol.spelling;
    const auto *entry = static_cast<const DataDescription *>(symbol.node)->getOwner();
    while (entry && entry->isFiller())
      entry = entry->getOwner();
    return entry ? *symbol.spelling + " OF " + entry->getDataName()->getDisplayName()
                 : *symbol.spelling;
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

  /// A word of the language in the case in which the programmer writes.
  std::string inCase(llvm::StringRef word) const { return isLower ? word.lower() : word.str(); }

  void addSnippets() {
    if (context.prefix.empty() && !context.isAfter({"."}))
      return;
    for (const WordMeaning &row : wordMeanings())
      if (!row.snippet.empty() && fits(row.word))
        add(inCase(row.word), Snippet, row.meaning.str(), '2', snippetOf(row), /*isSnippet=*/true);
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

  void addKeywords() {
    if (context.prefix.empty())
      return;
    for (const llvm::StringRef word : {
#define KEYWORD(Enumerator, Text, Flags) llvm::StringRef(Text),
#include "Parse/Keywords.def"
         })
      if (fits(word))
        add(inCase(word), Keyword, "", '3');
  }

  void addFunctions() {
    for (const IntrinsicFunction &function : intrinsicFunctions())
      if (fits(function.name))
        add(inCase(function.name), Function, "", '1');
  }

  void addCopybooks() {
    std::vector<std::string> directories = snapshot.getRequest().parse.includeDirectories;
    directories.push_back(llvm::sys::path::parent_path(snapshot.getPath()).str());
    directories.push_back(".");
    llvm::vfs::FileSystem &files = *snapshot.getRequest().parse.fileSystem;
    for (const std::string &directory : directories) {
      std::error_code error;
      for (llvm::vfs::directory_iterator entry = files.dir_begin(directory, error), end;
           !error && entry != end; entry.increment(error))
        if (hasCopybookExtension(entry->path()) && fits(llvm::sys::path::stem(entry->path())))
          add(llvm::sys::path::stem(entry->path()).str(), File, directory, '1');
    }
  }

  Snapshot &snapshot;
  Context context;
  bool isLower;
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
