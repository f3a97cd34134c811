//===- Consequences.cpp - one message for one mistake ---------------------===//

#include "Report/Consequences.h"
#include "AST/DataTree.h"
#include "AST/ExpressionVisitor.h"
#include "AST/NestedStatements.h"
#include "AST/Program.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/raw_ostream.h"
#include <map>

namespace tarka {

namespace {

/// An entry whose first or last line is further away from an error is not looked for.
constexpr unsigned maxEntryLines = 20;
/// How many names the message of a missing copybook has.
constexpr std::size_t maxNames = 5;

bool isFrontEnd(const Diagnostic &diagnostic) {
  return diagnostic.number < 1000;
}

bool isMissingCopybook(int number) {
  return number == 40 || number == 43 || number == 44 || number == 48;
}

bool isWrongPicture(int number) {
  return number == 3242;
}

bool isUndefinedProcedure(int number) {
  return number == 3403;
}

/// Numbers that say that nothing, or more than one thing, has a name.
bool isAboutName(int number) {
  return number == 3310 || number == 3311 || number == 3312 || number == 3324 ||
         isUndefinedProcedure(number);
}

/// The name that the diagnostic is about, in upper case without qualifiers.
std::string nameIn(const Diagnostic &diagnostic) {
  return llvm::StringRef(diagnostic.subject).split(" OF ").first.upper();
}

/// Calls \p use for each name in the text of \p line.
template <typename Use> void forEachName(llvm::StringRef line, Use use) {
  auto isPart = [](char c) { return llvm::isAlnum(c) || c == '-' || c == '_'; };
  while (!line.empty()) {
    line = line.drop_until(isPart);
    const llvm::StringRef word = line.take_while(isPart);
    if (!word.empty())
      use(word.upper());
    line = line.drop_front(word.size());
  }
}

/// Collects the entries that an operand refers to, subscripts included.
class ReferencedEntries : public ExpressionVisitor<ReferencedEntries> {
public:
  explicit ReferencedEntries(llvm::SmallVectorImpl<const DataDescription *> &list)
      : entries(list) {}

  void visitDataIdentifierExpression(DataIdentifierExpression &name) {
    add(name.getDataDescription());
    if (const SubscriptModifier *modifier = name.getSubscriptMod())
      for (Expression *subscript : modifier->getSubscriptElements())
        enter(subscript);
    if (const ReferenceModifier *modifier = name.getReferenceMod()) {
      enter(modifier->getFromExpr());
      enter(modifier->getCountExpr());
    }
  }
  void visitFunctionIdentifierExpression(FunctionIdentifierExpression &function) {
    for (Expression *argument : function.getFunctionArgListElements())
      enter(argument);
  }
  void visitSpecialRegisterIdentifierExpression(SpecialRegisterIdentifierExpression &name) {
    enter(name.getIdent());
  }
  void visitArithmeticExpression(ArithmeticExpression &expression) {
    enter(expression.getOperand1());
    enter(expression.getOperand2());
  }

  void enter(Expression *expression) {
    if (expression)
      visit(*expression);
  }
  void add(const DataDescription *entry) {
    if (entry)
      entries.push_back(entry);
  }

private:
  llvm::SmallVectorImpl<const DataDescription *> &entries;
};

/// Finds the other operand of those diagnostics that are reported at one of two: the sender for the
/// receiver of MOVE, the right side of a comparison for its left side.
class Partners {
public:
  explicit Partners(SourceUnit &unit) { enterUnit(unit); }

  Expression *of(const Node *operand) const { return partners.lookup(operand); }

private:
  void enterUnit(SourceUnit &unit) {
    if (ProcedureDivision *division = unit.getProcDivision()) {
      for (Paragraph *paragraph : division->getParaElements())
        enterSentences(paragraph->getSentElements());
      for (Section *section : division->getSectElements())
        enterSection(*section);
      for (const Declaratives *declaratives : division->getDeclElements())
        if (Section *section = declaratives->getSection())
          enterSection(*section);
    }
  }
  void enterSection(Section &section) {
    enterSentences(section.getSentElements());
    for (Paragraph *paragraph : section.getParaElements())
      enterSentences(paragraph->getSentElements());
  }
  void enterSentences(const std::list<Sentence *> &sentences) {
    for (Sentence *sentence : sentences)
      for (Statement *statement : sentence->getStmtElements())
        enter(*statement);
  }
  void enter(Statement &statement) {
    if (auto *move = llvm::dyn_cast<MoveStatement>(&statement))
      for (IdentifierExpression *target : move->getTargetListElements())
        partners[target] = move->getSource();
    if (auto *test = llvm::dyn_cast<IfStatement>(&statement))
      enter(test->getCondition());
    if (auto *loop = llvm::dyn_cast<PerformStatement>(&statement))
      enter(loop->getUntilCondition());
    forEachNestedList(statement, [&](NodeRange<Statement> statements) {
      for (Statement *nested : statements)
        enter(*nested);
    });
  }
  void enter(Condition *condition) {
    if (!condition)
      return;
    if (auto *relation = llvm::dyn_cast<RelationalCondition>(condition)) {
      partners[relation->getLeft()] = relation->getRight();
    } else if (auto *negated = llvm::dyn_cast<NegatedCondition>(condition)) {
      enter(negated->getOperand());
    } else if (auto *combined = llvm::dyn_cast<CombinedCondition>(condition)) {
      enter(combined->getLeft());
      enter(combined->getRight());
    }
  }

  llvm::DenseMap<const Node *, Expression *> partners;
};

/// Decides for each diagnostic whether it follows from another.
class ConsequenceFinder {
public:
  ConsequenceFinder(std::vector<Diagnostic> &report, Program &program, LineLookup lookup)
      : diagnostics(report), lineOf(lookup), causes(report.size(), none) {
    for (SourceUnit *unit : program.getSourceUnitListElements())
      enterUnit(*unit);
    for (auto &[file, ofFile] : entries)
      llvm::sort(ofFile, [](const DataDescription *left, const DataDescription *right) {
        return std::pair(beginOf(left->getRange()), left->getSourceOrder()) <
               std::pair(beginOf(right->getRange()), right->getSourceOrder());
      });
  }

  void remove();

private:
  static constexpr std::size_t none = ~std::size_t(0);
  using Position = std::pair<unsigned, unsigned>;

  static Position beginOf(const SourceRange &range) { return {range.beginLine, range.beginColumn}; }

  void enterUnit(SourceUnit &unit);
  void enterRecord(DataDescription *record);
  const DataDescription *entryAt(const SourceRange &place) const;
  bool isInProcedures(const SourceRange &place) const;
  void noteDamage(std::size_t index);
  void noteUnreadText(std::size_t index);
  std::size_t causeOf(std::size_t index);
  std::size_t causeOfName(std::size_t index, bool isUndefined);
  std::size_t causeOfItem(std::size_t index);
  std::size_t damageOf(const DataDescription *entry, std::size_t except) const;
  std::size_t missingCopybookOf(const Diagnostic &diagnostic) const;
  std::size_t rootOf(std::size_t index) const;
  void describeCauses();

  std::vector<Diagnostic> &diagnostics;
  LineLookup lineOf;
  /// By diagnostic the one that it follows from.
  std::vector<std::size_t> causes;
  std::map<unsigned, std::vector<const DataDescription *>> entries;
  /// Where in a file the procedures of a unit begin (true), or a unit (false).
  std::map<std::pair<unsigned, Position>, bool> parts;

  // By what has an error, the diagnostic that says so first.
  llvm::DenseMap<const DataDescription *, std::size_t> damaged;
  llvm::DenseMap<const DataDescription *, std::size_t> damagedInside;
  llvm::DenseMap<std::pair<unsigned, unsigned>, std::size_t> unreadLines;
  llvm::StringMap<std::size_t> unreadNames;
  llvm::StringMap<std::size_t> unreadProcedures;
  std::vector<std::size_t> missingCopybooks;

  llvm::StringMap<std::size_t> reported;
  std::map<std::pair<const SourceUnit *, std::string>, std::size_t> reportedNames;
  std::map<const SourceUnit *, Partners> partners;
};

void ConsequenceFinder::enterUnit(SourceUnit &unit) {
  const SourceRange &whole = unit.getRange();
  parts.try_emplace({whole.file, beginOf(whole)}, false);
  if (const ProcedureDivision *procedures = unit.getProcDivision())
    parts[{procedures->getRange().file, beginOf(procedures->getRange())}] = true;
  if (DataDivision *division = unit.getDataDivision()) {
    for (FileDescription *file : division->getFileSectionElements())
      for (DataDescription *record : file->getRecordDescElements())
        enterRecord(record);
    if (const auto *records = division->getWorkSection())
      for (DataDescription *record : *records)
        enterRecord(record);
    for (DataDescription *record : division->getLocalSectionElements())
      enterRecord(record);
    for (DataDescription *record : division->getLinkSectionElements())
      enterRecord(record);
  }
  for (SourceUnit *nested : unit.getNestedListElements())
    enterUnit(*nested);
}

void ConsequenceFinder::enterRecord(DataDescription *record) {
  forEachEntry(record, [&](const DataDescription *entry) {
    if (entry->isWritten())
      entries[entry->getRange().file].push_back(entry);
  });
}

/// The entry that \p place begins in; null outside of the data division.
const DataDescription *ConsequenceFinder::entryAt(const SourceRange &place) const {
  auto ofFile = entries.find(place.file);
  if (ofFile == entries.end())
    return nullptr;
  auto next = llvm::upper_bound(ofFile->second, beginOf(place),
                                [](const Position &position, const DataDescription *entry) {
                                  return position < beginOf(entry->getRange());
                                });
  if (next == ofFile->second.begin())
    return nullptr;
  const DataDescription *entry = *std::prev(next);
  const SourceRange &range = entry->getRange();
  // The period that ends the entry belongs to its last line too.
  return place.beginLine <= range.endLine ? entry : nullptr;
}

bool ConsequenceFinder::isInProcedures(const SourceRange &place) const {
  auto next = parts.upper_bound({place.file, beginOf(place)});
  return next != parts.begin() && std::prev(next)->first.first == place.file &&
         std::prev(next)->second;
}

/// Notes what the error makes unreliable.
void ConsequenceFinder::noteDamage(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  if (isFrontEnd(diagnostic)) {
    if (isMissingCopybook(diagnostic.number))
      missingCopybooks.push_back(index);
    else
      noteUnreadText(index);
  }
  const auto *item = dynamic_cast<const DataDescription *>(diagnostic.node);
  const DataDescription *entry = item && item->isWritten() ? item : entryAt(diagnostic.place);
  if (!entry || !damaged.try_emplace(entry, index).second)
    return;
  for (const DataDescription *group = entry->getOwner(); group; group = group->getOwner())
    if (!damagedInside.try_emplace(group, index).second)
      break;
}

/// The names of an entry that was not read are probably those that are missing later. Of procedures
/// it is the name of the paragraph or section.
void ConsequenceFinder::noteUnreadText(std::size_t index) {
  const SourceRange &place = diagnostics[index].place;
  if (place.beginLine == 0)
    return;
  unreadLines.try_emplace({place.file, place.beginLine}, index);
  if (isInProcedures(place)) {
    bool isFirst = true;
    forEachName(lineOf(place.file, place.beginLine), [&](const std::string &name) {
      if (std::exchange(isFirst, false))
        unreadProcedures.try_emplace(name, index);
    });
    return;
  }
  auto endsEntry = [&](unsigned line) {
    return lineOf(place.file, line).take_front(72).rtrim().ends_with(".");
  };
  unsigned first = place.beginLine;
  while (first > 1 && place.beginLine - first < maxEntryLines && !endsEntry(first - 1))
    --first;
  unsigned last = place.beginLine;
  while (last - place.beginLine < maxEntryLines && !endsEntry(last))
    ++last;
  for (unsigned line = first; line <= last; ++line)
    forEachName(lineOf(place.file, line),
                [&](const std::string &name) { unreadNames.try_emplace(name, index); });
}

/// The diagnostic that number \p index repeats or follows from; none for a cause.
std::size_t ConsequenceFinder::causeOf(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  const SourceRange &place = diagnostic.place;
  std::string key;
  llvm::raw_string_ostream(key) << place.file << ' ' << place.beginLine << ' ' << place.beginColumn
                                << ' ' << place.endLine << ' ' << place.endColumn << ' '
                                << diagnostic.number << ' ' << diagnostic.getMessage();
  if (auto [same, isNew] = reported.try_emplace(key, index); !isNew)
    return same->second;
  if (auto unread = unreadLines.find({place.file, place.beginLine});
      unread != unreadLines.end() && unread->second < index)
    return unread->second;
  if (isFrontEnd(diagnostic))
    return none;
  if (const std::size_t cause = causeOfItem(index); cause != none)
    return cause;
  const auto *reference = dynamic_cast<const DataIdentifierExpression *>(diagnostic.node);
  const bool isBound = dynamic_cast<const DataDescription *>(diagnostic.node) ||
                       (reference && reference->getDataDescription());
  return isBound ? none : causeOfName(index, isAboutName(diagnostic.number));
}

/// Why the name that the diagnostic is about has no meaning.
std::size_t ConsequenceFinder::causeOfName(std::size_t index, bool isUndefined) {
  const Diagnostic &diagnostic = diagnostics[index];
  const std::string name = nameIn(diagnostic);
  const auto &unread = isUndefinedProcedure(diagnostic.number) ? unreadProcedures : unreadNames;
  if (auto declaration = unread.find(name); declaration != unread.end())
    return declaration->second;
  if (!isUndefined || name.empty())
    return none;
  if (const std::size_t copybook = missingCopybookOf(diagnostic); copybook != none)
    return copybook;
  auto [first, isNew] = reportedNames.try_emplace(
      {diagnostic.unit, std::to_string(diagnostic.number) + ' ' + diagnostic.subject}, index);
  return isNew ? none : first->second;
}

/// The error of an item that the diagnostic involves.
std::size_t ConsequenceFinder::causeOfItem(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  if (!diagnostic.node || damaged.empty())
    return none;
  // Of the errors of one entry all are shown, unless it could not be read or its picture is wrong.
  if (const DataDescription *entry = entryAt(diagnostic.place)) {
    const auto own = damaged.find(entry);
    if (own != damaged.end() && own->second < index &&
        (isFrontEnd(diagnostics[own->second]) || isWrongPicture(diagnostics[own->second].number)))
      return own->second;
    if (const DataDescription *variable = entry->getCondNameParent())
      if (const std::size_t cause = damageOf(variable, index); cause != none)
        return cause;
  }
  llvm::SmallVector<const DataDescription *, 4> items;
  ReferencedEntries references(items);
  if (const auto *operand = dynamic_cast<const Expression *>(diagnostic.node)) {
    references.enter(const_cast<Expression *>(operand));
    if (diagnostic.unit) {
      auto ofUnit = partners.try_emplace(diagnostic.unit, *diagnostic.unit).first;
      references.enter(ofUnit->second.of(operand));
    }
  }
  for (const DataDescription *item : items)
    if (const std::size_t cause = damageOf(item, index); cause != none)
      return cause;
  return none;
}

/// The error of \p entry, of a group that it belongs to, or of what belongs to it, other than
/// \p except.
std::size_t ConsequenceFinder::damageOf(const DataDescription *entry, std::size_t except) const {
  auto find = [&](const auto &map, const DataDescription *key) {
    auto found = map.find(key);
    return found != map.end() && found->second != except ? found->second : none;
  };
  if (const std::size_t inside = find(damagedInside, entry); inside != none)
    return inside;
  for (; entry; entry = entry->getOwner())
    if (const std::size_t cause = find(damaged, entry); cause != none)
      return cause;
  return none;
}

/// The missing copybook that may declare the name: one that is copied among the procedures for the
/// name of a procedure, else one that is copied before them, in the unit or one around it.
std::size_t ConsequenceFinder::missingCopybookOf(const Diagnostic &diagnostic) const {
  for (const std::size_t index : missingCopybooks) {
    const SourceRange &copy = diagnostics[index].place;
    if (isInProcedures(copy) != isUndefinedProcedure(diagnostic.number))
      continue;
    for (const SourceUnit *unit = diagnostic.unit; unit; unit = unit->getParent()) {
      const SourceRange &whole = unit->getRange();
      if (copy.file != whole.file ||
          (whole.beginLine <= copy.beginLine && copy.beginLine <= whole.endLine))
        return index;
    }
  }
  return none;
}

std::size_t ConsequenceFinder::rootOf(std::size_t index) const {
  while (causes[index] != none)
    index = causes[index];
  return index;
}

void ConsequenceFinder::remove() {
  auto counts = [&](const Diagnostic &diagnostic) { return isError(diagnostic.severity); };
  for (std::size_t i = 0; i < diagnostics.size(); ++i)
    if (counts(diagnostics[i]))
      noteDamage(i);
  for (std::size_t i = 0; i < diagnostics.size(); ++i) {
    if (diagnostics[i].severity != Severity::Error || !diagnostics[i].fix.empty())
      continue;
    // Two errors that could each follow from the other must not both go.
    const std::size_t cause = causeOf(i);
    if (cause != none && rootOf(cause) != i)
      causes[i] = rootOf(cause);
  }
  describeCauses();
  std::size_t next = 0;
  llvm::erase_if(diagnostics, [&](const Diagnostic &) { return causes[next++] != none; });
}

/// Adds to each cause how much follows from it.
void ConsequenceFinder::describeCauses() {
  std::map<std::size_t, std::vector<std::size_t>> byCause;
  for (std::size_t i = 0; i < diagnostics.size(); ++i)
    if (causes[i] != none)
      byCause[rootOf(i)].push_back(i);
  for (const auto &[index, consequences] : byCause) {
    Diagnostic &cause = diagnostics[index];
    std::vector<std::string> names;
    llvm::StringSet<> known;
    const Diagnostic *first = nullptr;
    unsigned count = 0;
    for (const std::size_t consequence : consequences) {
      const Diagnostic &one = diagnostics[consequence];
      const bool isRepeated = one.number == cause.number && one.place.file == cause.place.file &&
                              beginOf(one.place) == beginOf(cause.place);
      if (isRepeated)
        continue;
      ++count;
      if (!first)
        first = &one;
      if (isAboutName(one.number) && known.insert(nameIn(one)).second)
        names.push_back(llvm::StringRef(one.subject).split(" OF ").first.str());
    }
    if (!first)
      continue;
    if (isMissingCopybook(cause.number) && !names.empty()) {
      const std::size_t total = names.size();
      names.resize(std::min(total, maxNames));
      cause.text += "; " + std::to_string(total) + (total == 1 ? " name is" : " names are") +
                    " probably undefined because of it: " + llvm::join(names, ", ") +
                    (total > maxNames ? " ..." : "");
    }
    const bool isSame = first->number == cause.number && isAboutName(cause.number);
    std::string text =
        isSame ? "and in " + std::to_string(count) + " more " + (count == 1 ? "place" : "places")
               : std::to_string(count) + " more " +
                     (count == 1 ? "error follows" : "errors follow") + " from this one";
    text += count == 1 ? ", here; --all shows it" : ", first here; --all shows them";
    cause.notes.push_back({std::move(text), first->place, first->line});
  }
}

} // namespace

void removeConsequences(std::vector<Diagnostic> &diagnostics, Program &program, LineLookup lineOf) {
  if (llvm::count_if(diagnostics,
                     [](const Diagnostic &diagnostic) { return isError(diagnostic.severity); }) > 1)
    ConsequenceFinder(diagnostics, program, lineOf).remove();
}

} // namespace tarka
