//===- CodeActions.cpp - what can be done about a diagnostic --------------===//

#include "AST/DataDescription.h"
#include "AST/NestedStatements.h"
#include "Analyzer/LanguageChecker.h"
#include "Parse/Keywords.h"
#include "Report/Excerpt.h"
#include "lsp/PublishedDiagnostics.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/LineWords.h"
#include "lsp/features/Statements.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

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

/// The name that the diagnostic is about, with the range of its first word; none where something
/// else stands there.
std::optional<std::pair<std::string, SourceRange>> subjectOf(Snapshot &snapshot,
                                                             const Diagnostic &diagnostic) {
  const std::string name = llvm::StringRef(diagnostic.subject).split(' ').first.upper();
  const SourceRange &place = diagnostic.place;
  for (const LineWord &word : wordsOfLine(snapshot, place.file, place.beginLine)) {
    const unsigned column =
        columnOfOffset(snapshot.lineOf(place.file, place.beginLine), word.offset);
    if (column >= place.beginColumn && word.is(name) && !name.empty()) {
      const auto size = static_cast<unsigned>(name.size());
      return std::pair(word.text.str(), SourceRange(place.file, place.beginLine, column,
                                                    place.beginLine, column + size - 1));
    }
  }
  return std::nullopt;
}

bool is(const Diagnostic &diagnostic, std::initializer_list<tarka::ErrorCode> checks,
        LanguageRule rule) {
  const int number = diagnostic.number;
  return llvm::any_of(checks,
                      [&](tarka::ErrorCode check) { return number == errorInfo(check).number; }) ||
         number == languageRules()[static_cast<std::size_t>(rule)].number;
}

/// Whether \p more columns still fit on a line.
bool hasRoom(Snapshot &snapshot, const SourceRange &place, std::size_t more) {
  constexpr std::size_t lastColumn = 72;
  const llvm::StringRef line = snapshot.lineOf(place.file, place.beginLine).rtrim();
  return !snapshot.isFixedForm(place.file) || line.size() + more <= lastColumn;
}

/// One action for each item that an ambiguous name can mean.
void addQualified(Snapshot &snapshot, const Diagnostic &diagnostic, llvm::json::Array &actions) {
  if (!is(diagnostic, {tarka::ErrorCode::IdentifierNotUnique}, LanguageRule::EmbeddedNameNotUnique))
    return;
  const auto subject = subjectOf(snapshot, diagnostic);
  if (!subject)
    return;
  const std::string name = llvm::StringRef(subject->first).upper();
  const OccurrenceIndex &index = snapshot.getIndex();
  for (SymbolId id = 0; id < index.getSymbols().size(); ++id) {
    const Symbol &symbol = index.getSymbol(id);
    if (*symbol.name != name ||
        (symbol.kind != SymbolKind::Item && symbol.kind != SymbolKind::ConditionName))
      continue;
    const std::string qualified = qualifiedName(snapshot, id);
    if (qualified.size() > name.size() &&
        hasRoom(snapshot, subject->second, qualified.size() - name.size()))
      actions.push_back(
          action(snapshot, diagnostic, "Change to " + qualified,
                 llvm::json::Array{edit(snapshot.rangeOf(subject->second), qualified)},
                 /*isPreferred=*/false));
  }
}

//===----------------------------------------------------------------------===//
// What is missing
//===----------------------------------------------------------------------===//

bool isHeader(llvm::ArrayRef<LineWord> words, llvm::StringRef first, llvm::StringRef second) {
  return words.size() > 1 && (first.empty() || words[0].is(first)) && words[1].is(second);
}

unsigned lineCount(Snapshot &snapshot, unsigned file) {
  return static_cast<unsigned>(snapshot.getCompilation().getLines().textOf(file).count('\n')) + 1;
}

/// The line behind the last one with program text before the first one from \p begin on that
/// \p ends.
unsigned lineBefore(Snapshot &snapshot, unsigned file, unsigned begin,
                    llvm::function_ref<bool(llvm::ArrayRef<LineWord>)> ends) {
  unsigned last = begin - 1;
  const unsigned count = lineCount(snapshot, file);
  for (unsigned line = begin; line <= count; ++line) {
    const llvm::SmallVector<LineWord, 16> words = wordsOfLine(snapshot, file, line);
    if (ends(words))
      break;
    if (!words.empty())
      last = line;
  }
  return last + 1;
}

/// Where area A begins, as blanks.
std::string areaA(Snapshot &snapshot, unsigned file) {
  constexpr std::size_t fixedMargin = 7;
  return std::string(snapshot.isFixedForm(file) ? fixedMargin : 0, ' ');
}

llvm::json::Array insertion(unsigned line, std::string text) {
  const Position place(static_cast<int>(line) - 1, 0);
  return llvm::json::Array{edit(Range(place, place), std::move(text))};
}

/// An empty paragraph at the end of the section.
void addParagraph(Snapshot &snapshot, const Diagnostic &diagnostic, llvm::json::Array &actions) {
  if (!is(diagnostic, {tarka::ErrorCode::ProcedureNameUndefined},
          LanguageRule::EmbeddedLabelUndefined))
    return;
  const auto subject = subjectOf(snapshot, diagnostic);
  const unsigned file = diagnostic.place.file;
  if (!subject || snapshot.pathOf(file) != snapshot.getPath())
    return;
  const unsigned line = lineBefore(
      snapshot, file, diagnostic.place.beginLine + 1, [](llvm::ArrayRef<LineWord> words) {
        return isHeader(words, "", "SECTION") || isHeader(words, "", "DIVISION") ||
               isHeader(words, "END", "PROGRAM") || isHeader(words, "END", "DECLARATIVES");
      });
  const std::string margin = areaA(snapshot, file);
  actions.push_back(
      action(snapshot, diagnostic, "Create the paragraph " + subject->first,
             insertion(line, margin + subject->first + ".\n" + margin + "    CONTINUE.\n"),
             /*isPreferred=*/false));
}

/// The picture of what a name is moved, compared or added to.
std::string pictureLike(Snapshot &snapshot, const LineWord &partner) {
  if (partner.kind == LineWord::Literal)
    return "PIC X(" + std::to_string(std::max<std::size_t>(partner.text.size(), 3) - 2) + ")";
  if (partner.isNumber()) {
    const auto [whole, fraction] = partner.text.split('.');
    return "PIC S9(" + std::to_string(std::max<std::size_t>(whole.size(), 1)) + ")" +
           (fraction.empty() ? "" : "V9(" + std::to_string(fraction.size()) + ")");
  }
  const std::string name = partner.upper();
  for (const Symbol &symbol : snapshot.getIndex().getSymbols())
    if (*symbol.name == name && symbol.kind == SymbolKind::Item && symbol.node)
      return pictureOf(*static_cast<const DataDescription *>(symbol.node));
  return "";
}

/// A picture for the name at word \p at of a statement, by the use that is made of it.
std::string guessPicture(Snapshot &snapshot, llvm::ArrayRef<LineWord> words, std::size_t at) {
  auto word = [&](std::size_t number) {
    return number < words.size() ? words[number] : LineWord();
  };
  std::size_t verb = at;
  while (verb > 0 && !isVerb(words[verb].keyword()))
    --verb;
  std::string picture;
  if (words[verb].is("MOVE"))
    picture = pictureLike(snapshot, at == verb + 1 ? word(at + 2) : words[verb + 1]);
  else if (words[verb].isOneOf({"ADD", "SUBTRACT", "MULTIPLY", "DIVIDE", "COMPUTE", "PERFORM"}) &&
           !word(at - 1).isOneOf({"UNTIL", "AND", "OR", "NOT"}))
    picture = "PIC S9(9) COMP";
  else if (word(at + 1).isOneOf({"=", "<", ">"}))
    picture = pictureLike(snapshot, word(at + 2));
  else if (at > 1 && word(at - 1).isOneOf({"=", "<", ">"}))
    picture = pictureLike(snapshot, words[at - 2]);
  return picture.empty() ? "PIC X(10)" : picture;
}

/// An item at the end of the WORKING-STORAGE SECTION.
void addItem(Snapshot &snapshot, const Diagnostic &diagnostic, llvm::json::Array &actions) {
  if (!is(diagnostic, {tarka::ErrorCode::IdentifierUndefined},
          LanguageRule::EmbeddedNameUndeclared))
    return;
  const auto subject = subjectOf(snapshot, diagnostic);
  const SourceRange &place = diagnostic.place;
  if (!subject || snapshot.pathOf(place.file) != snapshot.getPath())
    return;
  unsigned header = place.beginLine;
  while (header > 0 &&
         !isHeader(wordsOfLine(snapshot, place.file, header), "WORKING-STORAGE", "SECTION"))
    --header;
  if (header == 0)
    return;
  llvm::SmallVector<LineWord, 32> words;
  constexpr unsigned around = 3;
  std::size_t at = 0;
  for (unsigned line = std::max(place.beginLine, around + 1) - around;
       line <= place.beginLine + around; ++line)
    for (const LineWord &word : wordsOfLine(snapshot, place.file, line)) {
      if (line == place.beginLine && word.text == subject->first && at == 0)
        at = words.size();
      words.push_back(word);
    }
  const unsigned line =
      lineBefore(snapshot, place.file, header + 1, [](llvm::ArrayRef<LineWord> text) {
        return isHeader(text, "", "SECTION") || isHeader(text, "", "DIVISION");
      });
  constexpr std::size_t nameWidth = 24;
  std::string name = subject->first;
  name.resize(std::max(name.size() + 1, nameWidth), ' ');
  actions.push_back(action(snapshot, diagnostic, "Create the item " + subject->first,
                           insertion(line, areaA(snapshot, place.file) + "01  " + name +
                                               guessPicture(snapshot, words, at) + ".\n"),
                           /*isPreferred=*/false));
}

/// The END- word of the statement that begins on the line, if it can have one and has none.
void addEndWord(Snapshot &snapshot, unsigned file, unsigned line, llvm::json::Array &actions) {
  WordTable table(/*osvs=*/false);
  forEachStatement(*snapshot.getProgram(), [&](Statement &statement) {
    const SourceRange &place = statement.getRange();
    if (place.file != file || place.beginLine != line)
      return;
    bool hasBody = false;
    forEachNestedList(statement,
                      [&](NodeRange<Statement> list) { hasBody |= list.begin() != list.end(); });
    const std::string verb = sliceColumns(snapshot.lineOf(file, line), place.beginColumn, ~0u - 1)
                                 .take_while([](char c) { return llvm::isAlnum(c) || c == '-'; })
                                 .upper();
    const std::string endWord = "END-" + verb;
    const llvm::StringRef last = snapshot.lineOf(file, place.endLine);
    if (!hasBody || !isScopeTerminator(table.lookup(endWord).keyword) ||
        sliceColumns(last, 1, place.endColumn).ends_with_insensitive(endWord))
      return;
    const Position end = snapshot.rangeOf(place).end;
    llvm::json::Object changes;
    changes[snapshot.uriOf(file)] = llvm::json::Array{
        edit(Range(end, end), "\n" + std::string(place.beginColumn - 1, ' ') + endWord)};
    actions.push_back(
        llvm::json::Object{{"title", "Add " + endWord},
                           {"kind", "refactor.rewrite"},
                           {"edit", llvm::json::Object{{"changes", std::move(changes)}}}});
  });
}

/// The explanation beside the source.
void addExplanation(Snapshot &snapshot, const Diagnostic &diagnostic, llvm::json::Array &actions) {
  const std::string title = "Explain " + std::to_string(diagnostic.number);
  actions.push_back(llvm::json::Object{
      {"title", title},
      {"kind", "quickfix"},
      {"diagnostics", llvm::json::Array{publishedDiagnostic(snapshot, diagnostic)}},
      {"command",
       llvm::json::Object{
           {"title", title},
           {"command", "tarka.explain"},
           {"arguments", llvm::json::Array{snapshot.uriOf(diagnostic.place.file),
                                           llvm::json::Object{{"number", diagnostic.number}}}}}}});
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
    addQualified(snapshot, diagnostic, actions);
    addParagraph(snapshot, diagnostic, actions);
    addItem(snapshot, diagnostic, actions);
    addSuppression(snapshot, diagnostic, actions);
    addExplanation(snapshot, diagnostic, actions);
  }
  addEndWord(snapshot, *file, static_cast<unsigned>(asked.start.line) + 1, actions);
  return actions;
}

} // namespace tarka::lsp
