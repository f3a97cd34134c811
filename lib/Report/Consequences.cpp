//===- Consequences.cpp - one message for one mistake ---------------------===//

#include "Report/Consequences.h"
#include "AST/ExpressionVisitor.h"
#include "AST/IntrinsicFunctions.h"
#include "AST/Program.h"
#include "AST/Scope.h"
#include "AST/Spelling.h"
#include "NumberClasses.h"
#include "ReportDamage.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/raw_ostream.h"
#include <map>

namespace tarka {

namespace {

bool isNameCharacter(char c) {
  return llvm::isAlnum(c) || c == '-' || c == '_';
}

/// How many wrong names of files are compared with one another.
constexpr std::size_t maxFiles = 100;
/// A column behind that of any text.
constexpr unsigned maxLineLength = SourceRange::maxColumn;
/// As far as this a place is extended to the spaces around it.
constexpr unsigned maxRun = 30;
/// How many names the message of a missing copybook has.
constexpr std::size_t maxNames = 5;
/// With this the names begin that the copybooks of CICS declare.
constexpr llvm::StringLiteral suppliedPrefix = "DFH";

bool isOfSuppliedText(llvm::StringRef name) {
  return name.starts_with(suppliedPrefix);
}

/// The name that the diagnostic is about, without qualifiers.
llvm::StringRef nameIn(const Diagnostic &diagnostic) {
  // The subject is the condition, which ends with the name of the class.
  if (isAboutClassName(diagnostic.number))
    return llvm::StringRef(diagnostic.subject).rsplit(' ').second;
  return llvm::StringRef(diagnostic.subject).split(" OF ").first;
}

/// Whether two letters next to each other are exchanged in \p part. It has three letters or more.
bool isExchange(llvm::StringRef part, llvm::StringRef meant) {
  if (part.size() != meant.size() || part.size() < 3)
    return false;
  std::size_t at = 0;
  while (at < part.size() && part[at] == meant[at])
    ++at;
  return at + 1 < part.size() && part[at] == meant[at + 1] && part[at + 1] == meant[at] &&
         part.substr(at + 2) == meant.substr(at + 2);
}

/// Whether \p name could be a slip of the pen for \p meant: one slip within a part between hyphens
/// that has four letters or more, or two letters exchanged. The names of one record often differ in
/// a short part or a number, which is no sign of a mistake.
bool isSlip(llvm::StringRef name, llvm::StringRef meant) {
  llvm::SmallVector<llvm::StringRef, 8> parts;
  llvm::SmallVector<llvm::StringRef, 8> meantParts;
  name.split(parts, '-');
  meant.split(meantParts, '-');
  if (parts.size() != meantParts.size())
    return spellingDistance(name.upper(), meant.upper(), 1) == 1;
  unsigned different = 0;
  for (const auto &[part, meantPart] : llvm::zip(parts, meantParts)) {
    if (part.equals_insensitive(meantPart))
      continue;
    const bool isLong = std::min(part.size(), meantPart.size()) >= 4;
    if (isExchange(part.upper(), meantPart.upper())) {
      ++different;
      continue;
    }
    if (!isLong || llvm::any_of(part, llvm::isDigit) || llvm::any_of(meantPart, llvm::isDigit) ||
        spellingDistance(part.upper(), meantPart.upper(), 1) > 1)
      return false;
    ++different;
  }
  return different == 1;
}

/// Whether the two names of files, in upper case, may be one: files are few, and their names differ
/// in more than a character or two.
bool isNearFileName(llvm::StringRef name, llvm::StringRef other) {
  return spellingDistance(name, other, spellingTolerance(name)) <= spellingTolerance(name);
}

/// Collects the entries and files that a diagnostic involves, subscripts included.
class Involved : public ExpressionVisitor<Involved> {
public:
  void visitDataIdentifierExpression(DataIdentifierExpression &name) {
    if (const DataDescription *entry = name.getDataDescription())
      entries.push_back(entry);
    if (const SubscriptModifier *modifier = name.getSubscriptMod())
      for (Expression *subscript : modifier->getSubscriptElements())
        enter(subscript);
    if (const ReferenceModifier *modifier = name.getReferenceMod()) {
      enter(modifier->getFromExpr());
      enter(modifier->getCountExpr());
    }
  }
  void visitFileIdentifierExpression(FileIdentifierExpression &name) {
    if (const FileDescription *file = name.getFileDescription())
      files.push_back(file);
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

  /// \p node may be null.
  void enter(const Node *node) {
    if (const auto *expression = dynamic_cast<const Expression *>(node))
      visit(const_cast<Expression &>(*expression));
    else if (const auto *file = dynamic_cast<const FileDescription *>(node))
      files.push_back(file);
  }

  void enter(const Homonyms &homonyms) {
    if (homonyms)
      entries.append(homonyms.entries->begin(), homonyms.entries->end());
  }

  /// Whether nothing is known of what it involves: a name that means nothing is bound to an entry
  /// that is not written.
  bool isEmpty() const {
    return llvm::none_of(entries, [](const DataDescription *one) { return one->isWritten(); }) &&
           files.empty();
  }
  llvm::ArrayRef<const DataDescription *> getEntries() const { return entries; }
  llvm::ArrayRef<const FileDescription *> getFiles() const { return files; }

private:
  llvm::SmallVector<const DataDescription *, 4> entries;
  llvm::SmallVector<const FileDescription *, 2> files;
};

/// Of an error about SIGN, USAGE or VALUE the group that the clause is written for, or the item
/// that the condition-name belongs to; else \p entry.
const DataDescription *clauseOwner(const DataDescription &entry, int number) {
  if (isPictureAgainstUsage(number))
    return groupWithUsage(entry);
  if (isAboutConditionType(number))
    return entry.getCondNameParent() ? entry.getCondNameParent() : &entry;
  auto hasClause = [number](const DataDescription &group) {
    return (isAboutSign(number) && group.getSign()) ||
           (isAboutGroupValue(number) && group.getValue());
  };
  const DataDescription *owner = &entry;
  for (const DataDescription *group = entry.getOwner(); group; group = group->getOwner())
    if (hasClause(*group))
      owner = group;
  return owner;
}

/// Whether the USAGE clause of \p entry is that of a group around it, which the checks have handed
/// down.
bool hasUsageOfGroup(const DataDescription &entry) {
  return entry.getOwner() && entry.getUsage() &&
         beginOf(entry.getUsage()->getRange()) < beginOf(entry.getRange());
}

/// How the names of one copybook or record begin: up to the first hyphen, that included. Empty for
/// other names.
llvm::StringRef prefixOf(llvm::StringRef name) {
  const std::size_t hyphen = name.find('-');
  return hyphen == llvm::StringRef::npos || hyphen < 2 ? llvm::StringRef()
                                                       : name.take_front(hyphen + 1);
}

/// A field of a symbolic map is the name of a field in the map and one of these letters.
constexpr llvm::StringLiteral mapSuffixes = "ACFHILOPV";

/// Decides for each diagnostic whether it follows from another.
class ConsequenceFinder {
public:
  ConsequenceFinder(std::vector<Diagnostic> &report, Program &program,
                    const DamagedText &damagedText, LineLookup lookup)
      : diagnostics(report), lineOf(lookup), places(program),
        damage(report, places, damagedText, lookup), causes(report.size(), none) {
    for (std::size_t i = 0; i < report.size(); ++i) {
      const SourceRange &place = report[i].place;
      if (isUnreadText(report[i].number))
        unreadTexts.try_emplace({place.file, beginOf(place)}, i);
      if (isUndefined(report[i].number) || isAmbiguous(report[i].number))
        nameErrors.try_emplace({place.file, beginOf(place)}, i);
      if (isUnknownDevice(report[i].number))
        noteUnknownDevice(i);
      if (isStrayDirective(report[i].number))
        strayDirectives.try_emplace({place.file, place.beginLine}, i);
      noteStrayWord(i);
      noteMissingProcedure(i);
      noteSubscripts(i);
    }
    countFamilies();
  }

  void remove();

private:
  static constexpr std::size_t none = noDiagnostic;

  SourceRange runAround(const SourceRange &place) const;
  bool isTornInTwo(const Diagnostic &diagnostic) const;
  bool isTornFrom(const Diagnostic &left, const Diagnostic &right) const;
  std::size_t causeOfOuterName(std::size_t index, llvm::StringRef name);
  bool isWritten(const SourceRange &place) const;
  std::size_t unreadTextIn(const SourceRange &place) const;
  std::size_t causeOfMnemonicName(const Diagnostic &diagnostic) const;
  void noteUnknownDevice(std::size_t index);
  bool isUnknown(llvm::StringRef name, const SourceUnit *unit) const;
  std::size_t causeOf(std::size_t index);
  std::size_t causeOfFault(std::size_t index);
  std::size_t causeOfPlace(const Diagnostic &diagnostic) const;
  std::size_t causeOfKind(std::size_t index);
  std::size_t causeOfFamily(std::size_t index, llvm::StringRef name);
  void countFamilies();
  void noteMapNames(llvm::ArrayRef<std::string> names);
  bool isMapName(llvm::StringRef name) const;
  llvm::StringRef familyOf(llvm::StringRef name) const;
  std::string nameOfFamily(llvm::StringRef name) const;
  std::size_t nameErrorNear(const SourceRange &place) const;
  std::size_t causeOfRecordArea(std::size_t index) const;
  std::size_t causeOfProcedures(const Diagnostic &diagnostic);
  std::size_t causeOfAlteredParagraph(const Diagnostic &diagnostic);
  std::size_t causeOfSectionLimits(std::size_t index) const;
  void noteMissingProcedure(std::size_t index);
  void noteSubscripts(std::size_t index);
  std::size_t causeOfIndex(std::size_t index, llvm::StringRef name) const;
  bool isUsedAsIndex(const SourceRange &place) const;
  void noteStrayWord(std::size_t index);
  std::size_t causeOfUse(std::size_t index);
  std::size_t causeOfStrayEnd(const Diagnostic &diagnostic) const;
  std::size_t causeOfUnselectedText(const Diagnostic &diagnostic) const;
  const std::string &repeatedTextOf(llvm::StringRef name, const SourceUnit *unit);
  std::string findRepeatedText(llvm::StringRef name, const SourceUnit *unit) const;
  std::size_t causeOfOtherName(std::size_t index);
  std::size_t causeOfLineItems(std::size_t index) const;
  std::size_t causeOfItemOrFile(const DataDescription *item, std::size_t index) const;
  std::size_t causeWithin(std::size_t index) const;
  std::size_t causeOfUndeclared(std::size_t index, const std::string &name);
  const SourceUnit *reachOf(const Diagnostic &diagnostic, llvm::StringRef name) const;
  std::size_t causeOfName(std::size_t index);
  std::size_t causeOfItem(std::size_t index);
  std::string missingName(const Diagnostic &diagnostic) const;
  std::string keyOf(const Diagnostic &diagnostic, llvm::StringRef name);
  bool isName(const Diagnostic &diagnostic) const;
  bool isHeaderOf(llvm::StringRef name, const SourceRange &place) const;
  std::size_t rootOf(std::size_t index) const;
  void describeCauses();
  void describeCause(std::size_t index, llvm::ArrayRef<std::size_t> consequences);

  std::vector<Diagnostic> &diagnostics;
  LineLookup lineOf;
  ProgramPlaces places;
  ReportDamage damage;
  /// By diagnostic the one that it follows from.
  std::vector<std::size_t> causes;

  llvm::StringMap<std::size_t> reported;
  /// By what has a fault, see faultOf(), the first error that says so.
  std::map<std::pair<const Node *, int>, std::size_t> faults;
  std::map<std::pair<const SourceUnit *, std::string>, std::size_t> reportedNames;
  std::vector<std::size_t> reportedFiles;
  /// The errors about embedded text that could not be read, by file and position.
  std::map<std::pair<unsigned, SourcePosition>, std::size_t> unreadTexts;
  /// The errors about data-names that nothing has, or more than one item.
  std::map<std::pair<unsigned, SourcePosition>, std::size_t> nameErrors;
  llvm::StringMap<std::size_t> namesOfUnknownDevices;
  /// The directives without the beginning of their conditional, by file and line.
  std::map<std::pair<unsigned, unsigned>, std::size_t> strayDirectives;
  /// The undeclared names by the family that they belong to, and the first error about each family.
  llvm::StringMap<llvm::StringSet<>> families;
  llvm::StringMap<std::size_t> reportedFamilies;
  static constexpr llvm::StringLiteral mapFamily = "*";
  bool hasMapNames = false;
  /// The errors about procedure-names that nothing has.
  llvm::StringMap<std::size_t> unknownProcedures;
  /// By unit the first error about a procedure-name that nothing has or comes near to.
  llvm::DenseMap<const SourceUnit *, std::size_t> missingProcedures;
  /// The words that are subscripts of undeclared tables, and the error about the table.
  llvm::StringMap<std::size_t> subscriptsOfUnknown;
  /// By unit the first error about a table that is not declared.
  llvm::DenseMap<const SourceUnit *, std::size_t> missingTables;
  /// The words in upper case that begin no statement: names where they are meant to be operands.
  llvm::StringMap<std::size_t> strayWords;
  /// Answers of repeatedTextOf().
  std::map<std::pair<const SourceUnit *, std::string>, std::string> repeatedTexts;
  /// The records and files of outer programs of which an item was reported that a nested one does
  /// not see.
  llvm::DenseMap<const Node *, std::size_t> hiddenRecords;
};

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
  if (isStrayEnd(diagnostic.number) && diagnostic.text.starts_with("END-PERFORM"))
    return causeOfStrayEnd(diagnostic);
  if (isOfFrontEnd(diagnostic.number))
    return causeOfUnselectedText(diagnostic);
  if (const std::size_t cause = causeOfFault(index); cause != none)
    return cause;
  if (const std::size_t cause = damage.inLineOf(place); cause != none)
    return cause;
  if (const std::size_t cause = damage.ofCutWord(place); cause != none)
    return cause;
  if (const std::size_t cause = causeOfPlace(diagnostic); cause != none)
    return cause;
  // A parenthesis out of its place makes other operands of the text before it.
  if (isAboutEmbedded(diagnostic.number) && !isUnreadText(diagnostic.number)) {
    SourceRange line = place;
    line.endLine = place.beginLine;
    line.endColumn = maxLineLength;
    if (const std::size_t cause = unreadTextIn(line); cause != none)
      return cause;
  }
  if (const std::size_t cause = causeOfProcedures(diagnostic); cause != none)
    return cause;
  if (isAboutSectionLimits(diagnostic.number))
    if (const std::size_t cause = causeOfSectionLimits(index); cause != none)
      return cause;
  if (isRecordOfNoFile(diagnostic.number) ||
      (isUndefined(diagnostic.number) && isWritten(diagnostic.place)))
    if (const std::size_t cause = damage.ofFileWithoutRecords(); cause != none)
      return cause;
  if (isAboutRecordArea(diagnostic.number))
    if (const std::size_t cause = causeOfRecordArea(index); cause != none)
      return cause;
  // A SEARCH finds no index because the name of the index, in it or in the SET before it, is not
  // declared.
  if (isAboutSearchedTable(diagnostic.number))
    if (const std::size_t cause = nameErrorNear(place); cause != none)
      return cause;
  if (isAboutMnemonicName(diagnostic.number))
    if (const std::size_t cause = causeOfMnemonicName(diagnostic); cause != none)
      return cause;
  if (isAboutSpecialRegister(diagnostic.number))
    if (const std::size_t cause = damage.missingTextFor(diagnostic); cause != none)
      return cause;
  if (const std::size_t cause = causeOfUse(index); cause != none)
    return cause;
  if (const std::size_t cause = causeOfItem(index); cause != none)
    return cause;
  if (dependsOnSpecialNames(diagnostic.number))
    if (const std::size_t cause = damage.ofSpecialNames(diagnostic.unit); cause != none)
      return cause;
  if (const std::size_t cause = causeOfOtherName(index); cause != none)
    return cause;
  if (const std::size_t cause = causeWithin(index); cause != none)
    return cause;
  if (isAboutKind(diagnostic.number)) {
    const std::size_t cause = damage.ofDeclaration(nameIn(diagnostic), false);
    return cause != none ? cause : causeOfKind(index);
  }
  if (const std::size_t cause = causeOfName(index); cause != none)
    return cause;
  return isAboutName(diagnostic.number) ? none : causeOfLineItems(index);
}

/// The error about a data-name that means nothing in the lines of \p place or near them.
std::size_t ConsequenceFinder::nameErrorNear(const SourceRange &place) const {
  constexpr unsigned near = 3;
  const unsigned first = std::max(place.beginLine, near + 1) - near;
  const auto name = nameErrors.lower_bound({place.file, {first, 1}});
  const bool isNear = name != nameErrors.end() && name->first.first == place.file &&
                      name->first.second.first <= place.endLine + near;
  return isNear ? name->second : none;
}

/// Why a record or a statement does not go with its file: the records of another file are its own
/// because the entry of that is missing, or the header of the next section is.
std::size_t ConsequenceFinder::causeOfRecordArea(std::size_t index) const {
  const Diagnostic &diagnostic = diagnostics[index];
  if (!isInFileSection(diagnostic.number)) {
    if (const std::size_t cause = damage.ofUndescribedFile(diagnostic.unit); cause != none)
      return cause;
    if (const std::size_t cause = damage.ofFileWithoutRecords(); cause != none)
      return cause;
  }
  Involved involved;
  involved.enter(diagnostic.node);
  involved.enter(diagnostic.otherNode);
  for (const DataDescription *item : involved.getEntries())
    if (const std::size_t cause = causeOfItemOrFile(item, index); cause != none)
      return cause;
  for (const FileDescription *file : involved.getFiles())
    if (const std::size_t cause = damage.of(file, index); cause != none)
      return cause;
  return none;
}

/// The error about a name within what the diagnostic points at: an operand of a clause or of a
/// reference.
std::size_t ConsequenceFinder::causeWithin(std::size_t index) const {
  const SourceRange &place = diagnostics[index].place;
  const auto first = nameErrors.lower_bound({place.file, beginOf(place)});
  const std::pair end(place.file, SourcePosition(place.endLine, place.endColumn));
  return place.beginLine == place.endLine && first != nameErrors.end() && first->first <= end &&
                 first->second != index
             ? first->second
             : none;
}

/// The family of \p name: its prefix, or for one that can be in a symbolic map all such names.
llvm::StringRef ConsequenceFinder::familyOf(llvm::StringRef name) const {
  return isMapName(name) ? llvm::StringRef(mapFamily) : prefixOf(name);
}

std::string ConsequenceFinder::nameOfFamily(llvm::StringRef name) const {
  return isMapName(name) ? "that look like fields of a map"
                         : ("that begin with " + prefixOf(name)).str();
}

/// Whether \p name can be that of a field in a symbolic map, and of the undeclared names others can
/// be fields of the same map.
bool ConsequenceFinder::isMapName(llvm::StringRef name) const {
  return hasMapNames && name.size() > 1 && !name.contains('-') && mapSuffixes.contains(name.back());
}

/// Notes whether two undeclared names differ in the letter at their ends alone, as the fields of a
/// symbolic map do.
void ConsequenceFinder::noteMapNames(llvm::ArrayRef<std::string> names) {
  llvm::StringMap<std::string> stems;
  for (const std::string &name : names) {
    const llvm::StringRef text = name;
    if (text.size() < 2 || text.contains('-') || !mapSuffixes.contains(text.back()))
      continue;
    const auto [first, isNew] = stems.try_emplace(text.drop_back(), name);
    hasMapNames |= !isNew && first->second != name;
  }
}

/// Notes which families of undeclared names are so large that their copybook or record is missing,
/// most likely, and not each of them wrong: several names, and none that is declared.
void ConsequenceFinder::countFamilies() {
  constexpr unsigned fewest = 3;
  std::vector<std::string> names;
  for (const Diagnostic &diagnostic : diagnostics)
    if (isAboutMissingName(diagnostic.number) && !isAboutProcedure(diagnostic.number) &&
        !isAboutFile(diagnostic.number))
      names.push_back(missingName(diagnostic));
  noteMapNames(names);
  for (const std::string &name : names)
    if (!familyOf(name).empty())
      families[familyOf(name)].insert(name);
  llvm::StringSet<> small;
  for (const auto &family : families)
    if (family.second.size() < fewest)
      small.insert(family.getKey());
  for (const auto &family : small)
    families.erase(family.getKey());
  if (families.empty())
    return;
  for (const auto &[file, entries] : places.getEntries())
    for (const DataDescription *entry : entries)
      if (const Word *name = entry->getDataName())
        families.erase(prefixOf(name->getWordData()));
}

/// The first error about the family of \p name.
std::size_t ConsequenceFinder::causeOfFamily(std::size_t index, llvm::StringRef name) {
  const llvm::StringRef family = familyOf(name);
  if (family.empty() || !isAboutMissingName(diagnostics[index].number) ||
      !families.contains(family))
    return none;
  const auto [first, isNew] = reportedFamilies.try_emplace(family, index);
  return isNew ? none : first->second;
}

/// The error that says the same of another use of the name.
std::size_t ConsequenceFinder::causeOfKind(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  const int number = isAboutMnemonicName(diagnostic.number) ? 0 : diagnostic.number;
  const std::string key = std::to_string(number) + ' ' + diagnostic.subject;
  // A program has the mnemonic-names of those around it.
  const SourceUnit *unit = diagnostic.unit;
  while (number == 0 && unit && unit->getParent())
    unit = unit->getParent();
  const auto [first, isNew] = reportedNames.try_emplace({unit, key}, index);
  return isNew ? none : first->second;
}

/// Why a check of the procedures does not find the header, the USE sentence or the GO TO that it
/// needs.
std::size_t ConsequenceFinder::causeOfProcedures(const Diagnostic &diagnostic) {
  const SourceUnit *unit = diagnostic.unit;
  const ProcedureDivision *procedures = unit ? unit->getProcDivision() : nullptr;
  if (isAboutArgument(diagnostic.number))
    return damage.ofProcedureHeader(unit);
  if (!procedures)
    return none;
  if (isMissingFromCommand(diagnostic.number)) {
    constexpr unsigned near = 2;
    SourceRange before = diagnostic.place;
    before.beginLine = std::max(before.beginLine, near + 1) - near;
    before.beginColumn = 1;
    SourceRange behind = diagnostic.place;
    behind.endLine = behind.endLine + near;
    return damage.between(before, behind);
  }
  // The statements of a phrase may stand behind it, with the period that they need before them.
  if (isAboutPhrase(diagnostic.number)) {
    constexpr unsigned near = 4;
    SourceRange behind = diagnostic.place;
    behind.endLine = behind.endLine + near;
    return damage.between(diagnostic.place, behind);
  }
  if (isInvalidStatement(diagnostic.number))
    for (const Declaratives *declarative : procedures->getDeclElements())
      if (const SourceRange &range = declarative->getRange();
          range.file == diagnostic.place.file && range.beginLine <= diagnostic.place.beginLine &&
          diagnostic.place.endLine <= range.endLine)
        if (const std::size_t cause = damage.between(range, diagnostic.place); cause != none)
          return cause;
  // The end of the declaratives may stand one line too early.
  if (isInvalidStatement(diagnostic.number)) {
    SourceRange before = diagnostic.place;
    before.beginLine = std::max(before.beginLine, 2U) - 1;
    before.beginColumn = 1;
    return damage.between(before, diagnostic.place);
  }
  return isAboutAlteredParagraph(diagnostic.number) ? causeOfAlteredParagraph(diagnostic) : none;
}

/// Notes an error about a procedure-name that nothing has or comes near to: its header is missing.
void ConsequenceFinder::noteMissingProcedure(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  if (isAboutProcedure(diagnostic.number) && isAboutMissingName(diagnostic.number) &&
      !isSlip(nameIn(diagnostic), diagnostic.suggestion))
    missingProcedures.try_emplace(diagnostic.unit, index);
}

/// Why a section has two paragraphs of one name, or an EXIT SECTION is in none: the header of a
/// section is missing, or could not be read.
std::size_t ConsequenceFinder::causeOfSectionLimits(std::size_t index) const {
  const auto found = missingProcedures.find(diagnostics[index].unit);
  return found != missingProcedures.end() ? found->second : damage.ofLostProcedure();
}

/// Why the paragraph that ALTER changes does not exist, or is not a GO TO alone.
std::size_t ConsequenceFinder::causeOfAlteredParagraph(const Diagnostic &diagnostic) {
  const std::string name = llvm::StringRef(diagnostic.subject).upper();
  if (const auto found = unknownProcedures.find(name); found != unknownProcedures.end())
    return found->second;
  ProcedureDivision *procedures = diagnostic.unit->getProcDivision();
  llvm::SmallVector<Paragraph *, 2> paragraphs(procedures->findParagraphs(name));
  for (const auto &inSection : procedures->findSectionParagraphs(name))
    paragraphs.push_back(inSection.paragraph);
  for (const Paragraph *paragraph : paragraphs) {
    const SourceRange &range = paragraph->getRange();
    SourceRange behind = range;
    behind.endLine = range.endLine + 1;
    if (const std::size_t cause = damage.between(range, behind); cause != none)
      return cause;
    if (const std::size_t cause = damage.ofMissingCopybookIn(behind); cause != none)
      return cause;
    for (const auto &[procedure, index] : unknownProcedures) {
      const SourceRange &place = diagnostics[index].place;
      if (place.file == range.file && range.beginLine <= place.beginLine &&
          place.endLine <= range.endLine)
        return index;
    }
  }
  return none;
}

/// The PERFORM whose procedure-name does not exist where an END-PERFORM is left over: it may have
/// been one with statements of its own.
std::size_t ConsequenceFinder::causeOfStrayEnd(const Diagnostic &diagnostic) const {
  constexpr unsigned maxLines = 60;
  std::size_t nearest = none;
  for (std::size_t i = 0; i < diagnostics.size(); ++i) {
    const SourceRange &place = diagnostics[i].place;
    const bool isBefore = place.file == diagnostic.place.file &&
                          place.beginLine < diagnostic.place.beginLine &&
                          diagnostic.place.beginLine <= place.beginLine + maxLines;
    if (isAboutProcedure(diagnostics[i].number) && isBefore &&
        sliceColumns(lineOf(place.file, place.beginLine), 1, place.beginColumn)
            .contains_insensitive("PERFORM "))
      nearest = i;
  }
  return nearest;
}

/// The end of a conditional close behind the error, where nothing begins the conditional: the text
/// may be meant to be left out.
std::size_t ConsequenceFinder::causeOfUnselectedText(const Diagnostic &diagnostic) const {
  constexpr unsigned maxLines = 10;
  for (const auto &[line, index] : strayDirectives)
    if (line.first == diagnostic.place.file && diagnostic.place.beginLine < line.second &&
        line.second <= diagnostic.place.beginLine + maxLines)
      return index;
  return none;
}

/// Why the other name that the diagnostic has, such as that after REDEFINES, is not declared.
std::size_t ConsequenceFinder::causeOfOtherName(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  const auto *word = dynamic_cast<const Word *>(diagnostic.otherNode);
  if (!word)
    return none;
  const std::string name = llvm::StringRef(word->getWordData()).upper();
  if (!isUnknown(name, diagnostic.unit))
    return none;
  if (const std::size_t cause = causeOfUndeclared(index, name); cause != none)
    return cause;
  reportedNames.try_emplace({reachOf(diagnostic, name), "NAME " + name}, index);
  return none;
}

/// The error about the undeclared \p name, or about the declaration that may be meant for it.
std::size_t ConsequenceFinder::causeOfUndeclared(std::size_t index, const std::string &name) {
  const Diagnostic &diagnostic = diagnostics[index];
  const std::string key = "NAME " + name;
  if (const auto first = reportedNames.find({reachOf(diagnostic, name), key});
      first != reportedNames.end())
    return first->second;
  if (const std::size_t copybook = damage.missingTextFor(diagnostic); copybook != none)
    return copybook;
  return damage.takeLostName(diagnostic, key);
}

/// Where a name that nothing has means the same: in a program and all that are nested in it.
const SourceUnit *ConsequenceFinder::reachOf(const Diagnostic &diagnostic,
                                             llvm::StringRef name) const {
  const SourceUnit *unit = diagnostic.unit;
  if (!isAboutProcedure(diagnostic.number) && isUnknown(name, unit))
    while (unit && unit->getParent())
      unit = unit->getParent();
  // A name that is there twice in an outer program is so in all that see it.
  if (isAmbiguous(diagnostic.number)) {
    auto entryFor = [&](const SourceUnit *one) -> const DataDescription * {
      const Homonyms items = Scope(const_cast<SourceUnit *>(one)).findItems(&internString(name));
      return items ? items.entries->front() : nullptr;
    };
    while (unit && unit->getParent() && entryFor(unit) &&
           entryFor(unit) == entryFor(unit->getParent()))
      unit = unit->getParent();
  }
  return unit;
}

/// The error of \p item or of the file that it is in the record of.
std::size_t ConsequenceFinder::causeOfItemOrFile(const DataDescription *item,
                                                 std::size_t index) const {
  // The entry of an index-name is that of its table.
  if (item->getIsCompilerMade() && item->getDataName())
    if (const DataDescription *table = places.entryAt(item->getDataName()->getRange()))
      item = table;
  if (const std::size_t cause = damage.of(item, index); cause != none)
    return cause;
  while (item->getOwner())
    item = item->getOwner();
  const FileDescription *file = item->getFileDescription();
  return file ? damage.of(file, index) : none;
}

/// The error of an item or a file that the line of the diagnostic names.
std::size_t ConsequenceFinder::causeOfLineItems(std::size_t index) const {
  const Diagnostic &diagnostic = diagnostics[index];
  if (!places.isInProcedures(diagnostic.place))
    return none;
  const Scope scope(diagnostic.unit);
  llvm::StringRef text = lineOf(diagnostic.place.file, diagnostic.place.beginLine);
  while (!text.empty()) {
    text = text.drop_until(llvm::isAlnum);
    const llvm::StringRef word = text.take_while(isNameCharacter);
    text = text.drop_front(word.size());
    if (llvm::none_of(word, llvm::isAlpha))
      continue;
    const std::string *name = &internString(word.upper());
    if (const Homonyms items = scope.findItems(name))
      for (const DataDescription *item : *items.entries)
        if (const std::size_t cause = causeOfItemOrFile(item, index); cause != none)
          return cause;
    for (const FileDescription *file : scope.findFiles(name))
      if (const std::size_t cause = damage.of(file, index); cause != none && cause != index)
        return cause;
  }
  return none;
}

/// The error about text within an embedded block at \p place that could not be read.
std::size_t ConsequenceFinder::unreadTextIn(const SourceRange &place) const {
  const auto first = unreadTexts.lower_bound({place.file, beginOf(place)});
  const std::pair end(place.file, SourcePosition(place.endLine, place.endColumn));
  return first != unreadTexts.end() && first->first <= end ? first->second : none;
}

/// Notes an undeclared name that is a table, with its subscripts.
void ConsequenceFinder::noteSubscripts(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  if (!isUndefined(diagnostic.number) && !isMissingFromScope(diagnostic.number))
    return;
  const SourceRange &place = diagnostic.place;
  const llvm::StringRef before =
      sliceColumns(lineOf(place.file, place.beginLine), 1, place.beginColumn - 1).rtrim();
  llvm::StringRef text =
      sliceColumns(lineOf(place.file, place.endLine), place.endColumn + 1, maxLineLength).ltrim();
  const bool isSearched =
      before.ends_with_insensitive("SEARCH") || before.ends_with_insensitive("SEARCH ALL");
  const bool isTable = text.consume_front("(");
  if ((isSearched || isTable) && !isSlip(nameIn(diagnostic), diagnostic.suggestion))
    missingTables.try_emplace(diagnostic.unit, index);
  if (!isTable)
    return;
  llvm::SmallVector<llvm::StringRef, 4> words;
  llvm::SplitString(text.take_until([](char c) { return c == ')' || c == ':'; }), words, " ,+-*/");
  for (llvm::StringRef word : words)
    subscriptsOfUnknown.try_emplace(word.upper(), index);
}

/// Notes a word that begins no statement.
void ConsequenceFinder::noteStrayWord(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  const SourceRange &place = diagnostic.place;
  if (isStrayWord(diagnostic.number) && place.beginLine == place.endLine)
    strayWords.try_emplace(
        sliceColumns(lineOf(place.file, place.beginLine), place.beginColumn, place.endColumn)
            .upper(),
        index);
}

/// Whether the name at \p place is a subscript, or what SET or SEARCH changes.
bool ConsequenceFinder::isUsedAsIndex(const SourceRange &place) const {
  const llvm::StringRef before =
      sliceColumns(lineOf(place.file, place.beginLine), 1, place.beginColumn - 1).rtrim();
  return before.count('(') > before.count(')') || before.ends_with_insensitive(" VARYING") ||
         before.ends_with_insensitive(" SET");
}

/// The error about an undeclared table that \p name is an index of, most likely: index-names are
/// declared in the entry of the table.
std::size_t ConsequenceFinder::causeOfIndex(std::size_t index, llvm::StringRef name) const {
  const Diagnostic &diagnostic = diagnostics[index];
  if (!isUndefined(diagnostic.number))
    return none;
  if (const auto found = subscriptsOfUnknown.find(name); found != subscriptsOfUnknown.end())
    return found->second;
  const auto table = missingTables.find(diagnostic.unit);
  return table != missingTables.end() && table->second != index && isUsedAsIndex(diagnostic.place)
             ? table->second
             : none;
}

/// The file that the diagnostic involves, where its SELECT entry names keys and no organization, or
/// no access mode; null for other files.
static const FileDescription *fileWithoutOrganization(const Diagnostic &diagnostic) {
  Involved involved;
  involved.enter(diagnostic.node);
  involved.enter(diagnostic.otherNode);
  for (const FileDescription *file : involved.getFiles())
    if (const ParaFileControl *control = file->getFileControl();
        control &&
        (!control->getAccess() ||
         (!control->getOrganization() && (control->getRecordKey() || control->getRelativeKey()))))
      return file;
  return nullptr;
}

/// The error that says of another statement what this one says, or what also follows from a clause
/// that is missing: a statement does not go with the organization or access mode that its file has
/// only because SELECT names none, with the records of a sort file, or with a record that is not in
/// the linkage section where there is no such section.
std::size_t ConsequenceFinder::causeOfUse(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  std::string key;
  if (isAboutLinkage(diagnostic.number)) {
    const DataDivision *data = diagnostic.unit ? diagnostic.unit->getDataDivision() : nullptr;
    if (data && llvm::none_of(data->getLinkSectionElements(),
                              [](const DataDescription *record) { return record->isWritten(); }))
      key = "LINKAGE";
  } else if (isAboutSortRecord(diagnostic.number)) {
    // The record of the sort file is the same for all files of the statement.
    const SourceRange &place = diagnostic.place;
    const std::size_t name = nameErrorNear(place);
    if (name != none)
      return name;
    key = "SORT " + std::to_string(place.file) + ' ' + std::to_string(place.beginLine);
  } else if (isAboutRecordArea(diagnostic.number) || isAboutKeyOfFile(diagnostic.number)) {
    if (const FileDescription *file = fileWithoutOrganization(diagnostic))
      key = "ORGANIZATION " + file->getFileName()->getDisplayName();
  }
  if (key.empty())
    return none;
  const auto [first, isNew] = reportedNames.try_emplace({diagnostic.unit, key}, index);
  return isNew ? none : first->second;
}

/// The error that says of the same operand, entry or CURRENCY SIGN clause that it is wrong.
std::size_t ConsequenceFinder::causeOfFault(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  if (isAboutCurrencySymbol(diagnostic.number)) {
    const std::size_t cause = damage.ofCurrencySigns(diagnostic.unit);
    return cause != none ? cause : damage.ofSpecialNames(diagnostic.unit);
  }
  const int fault = faultOf(diagnostic.number);
  if (fault == 0)
    return none;
  const Node *place = diagnostic.node;
  const auto *entry = dynamic_cast<const DataDescription *>(place);
  if (!entry && isPictureAgainstUsage(diagnostic.number))
    entry = places.entryAt(diagnostic.place);
  if (entry)
    place = isWrongHierarchy(fault) ? entry->getOwner() : clauseOwner(*entry, diagnostic.number);
  const auto [first, isNew] = faults.try_emplace({place, fault}, index);
  return isNew ? none : first->second;
}

/// Whether the name at \p place is that of a record that is written.
bool ConsequenceFinder::isWritten(const SourceRange &place) const {
  const llvm::StringRef before =
      sliceColumns(lineOf(place.file, place.beginLine), 1, place.beginColumn - 1);
  const llvm::StringRef verb = before.rtrim().rsplit(' ').second;
  return verb.equals_insensitive("WRITE") || verb.equals_insensitive("REWRITE") ||
         verb.equals_insensitive("RELEASE");
}

/// The error of the device in the line that declares the mnemonic-name.
std::size_t ConsequenceFinder::causeOfMnemonicName(const Diagnostic &diagnostic) const {
  const auto found = namesOfUnknownDevices.find(llvm::StringRef(diagnostic.subject).upper());
  return found == namesOfUnknownDevices.end() ? none : found->second;
}

/// Notes the words in the line of an unknown device: one of them is the mnemonic-name.
void ConsequenceFinder::noteUnknownDevice(std::size_t index) {
  const SourceRange &place = diagnostics[index].place;
  llvm::SmallVector<llvm::StringRef, 8> words;
  llvm::SplitString(lineOf(place.file, place.beginLine), words, " .,;");
  for (llvm::StringRef word : words)
    namesOfUnknownDevices.try_emplace(word.upper(), index);
}

/// The error of the front end that the diagnostic stands in the text of. A statement of several
/// lines can hold others, so only its beginning counts.
std::size_t ConsequenceFinder::causeOfPlace(const Diagnostic &diagnostic) const {
  SourceRange place = diagnostic.place;
  if (place.beginLine != place.endLine && !dynamic_cast<const DataDescription *>(diagnostic.node)) {
    place.endLine = place.beginLine;
    place.endColumn = place.beginColumn;
  }
  return damage.at(place);
}

/// \p place, which is in one line, with the characters around it up to the next spaces.
SourceRange ConsequenceFinder::runAround(const SourceRange &place) const {
  SourceRange run = place;
  const llvm::StringRef line = lineOf(place.file, place.beginLine);
  auto isText = [&](unsigned column) { return !sliceColumns(line, column, column).trim().empty(); };
  for (unsigned n = 0; n < maxRun && run.beginColumn > 1 && isText(run.beginColumn - 1); ++n)
    run.beginColumn = run.beginColumn - 1;
  for (unsigned n = 0; n < maxRun && isText(run.endColumn + 1); ++n)
    run.endColumn = run.endColumn + 1;
  return run;
}

/// Whether nothing that \p unit can see has the name, which is in upper case.
bool ConsequenceFinder::isUnknown(llvm::StringRef name, const SourceUnit *unit) const {
  const Scope scope(const_cast<SourceUnit *>(unit));
  const std::string *text = &internString(name);
  return !scope.isDeclared(text) && scope.findFiles(text).empty() && !scope.findReport(text);
}

/// Why the name that the diagnostic is about has no meaning.
std::size_t ConsequenceFinder::causeOfName(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  const std::string name = missingName(diagnostic);
  const bool isAbout = isAboutName(diagnostic.number);
  if (name.empty() || (!isAbout && !isName(diagnostic)))
    return none;
  const bool isProcedure = isAboutProcedure(diagnostic.number);
  const SourceRange &place = diagnostic.place;
  if (place.beginLine == place.endLine)
    if (const std::size_t cause = damage.at(runAround(place)); cause != none)
      return cause;
  if (const std::size_t cause = damage.ofDeclaration(name, isProcedure); cause != none)
    return cause;
  if (!isAbout)
    return none;
  if (!diagnostic.suggestion.empty())
    if (const std::size_t cause = damage.ofDeclaration(diagnostic.suggestion, isProcedure);
        cause != none)
      return cause;

  // A function stands without FUNCTION by the REPOSITORY paragraph, which could not be read.
  if (findIntrinsicFunction(llvm::StringRef(name).take_while(isNameCharacter)))
    for (const SourceUnit *unit = diagnostic.unit; unit; unit = unit->getParent())
      if (const EnvironmentDivision *division = unit->getEnvironmentDivision())
        if (const std::size_t cause = damage.between(division->getRange(), division->getRange());
            cause != none)
          return cause;

  // An entry that qualifies is wrong.
  for (llvm::StringRef qualifier : llvm::drop_begin(llvm::split(diagnostic.subject, " OF ")))
    if (const Homonyms items = Scope(diagnostic.unit).findItems(&internString(qualifier.upper())))
      if (const std::size_t cause = damage.of(items.entries->front(), index); cause != none)
        return cause;

  const std::string key = keyOf(diagnostic, name);
  const SourceUnit *reach = reachOf(diagnostic, name);
  const auto first = reportedNames.find({reach, key});
  if (first != reportedNames.end())
    return first->second;
  // A file of an outer program is not GLOBAL because its entry could not be read.
  if (isAboutFile(diagnostic.number))
    for (const SourceUnit *unit = diagnostic.unit ? diagnostic.unit->getParent() : nullptr; unit;
         unit = unit->getParent())
      for (const FileDescription *file :
           Scope(const_cast<SourceUnit *>(unit)).findFiles(&internString(name)))
        if (const std::size_t cause = damage.of(file, index); cause != none)
          return cause;
  // Of a file, the SELECT or FD entry or the use is misspelt.
  if (isAboutFile(diagnostic.number))
    for (const std::size_t cause : reportedFiles)
      if (diagnostics[cause].unit == diagnostic.unit &&
          (isNearFileName(name, nameIn(diagnostics[cause]).upper()) ||
           nameIn(diagnostics[cause]).equals_insensitive(diagnostic.suggestion)))
        return cause;
  const bool isMisspelling =
      (!diagnostic.suggestion.empty() && isSlip(name, diagnostic.suggestion)) ||
      isTornInTwo(diagnostic);
  if (!isMisspelling) {
    if (const std::size_t copybook = damage.missingTextFor(diagnostic); copybook != none)
      return copybook;
    if (isAboutMissingName(diagnostic.number))
      if (const std::size_t lost = damage.takeLostName(diagnostic, key); lost != none)
        return lost;
  }
  if (isProcedure)
    for (const auto &[position, cause] : unreadTexts)
      if (isHeaderOf(name, diagnostics[cause].place))
        return cause;
  // One name that was torn in two.
  if (index > 0 && isAboutName(diagnostics[index - 1].number) &&
      isTornFrom(diagnostics[index - 1], diagnostic))
    return index - 1;
  if (const std::size_t cause = causeOfOuterName(index, name); cause != none)
    return cause;
  if (const std::size_t cause = causeOfIndex(index, name); cause != none)
    return cause;
  if (const auto found = strayWords.find(name); found != strayWords.end())
    return found->second;
  if (const std::size_t cause = causeOfFamily(index, name); cause != none)
    return cause;
  reportedNames[{reach, key}] = index;
  if (isProcedure)
    unknownProcedures.try_emplace(name, index);
  if (isAboutFile(diagnostic.number) && reportedFiles.size() < maxFiles)
    reportedFiles.push_back(index);
  return none;
}

/// Whether the name and the word behind it are a declared name with a space in the place of a
/// hyphen.
bool ConsequenceFinder::isTornInTwo(const Diagnostic &diagnostic) const {
  const SourceRange &place = diagnostic.place;
  const llvm::StringRef line = lineOf(place.file, place.endLine);
  const llvm::StringRef behind = sliceColumns(line, place.endColumn + 2, maxLineLength);
  const llvm::StringRef rest = behind.take_while(isNameCharacter);
  const std::string whole = (nameIn(diagnostic) + "-" + rest).str();
  return !rest.empty() && sliceColumns(line, place.endColumn + 1, place.endColumn + 1) == " " &&
         !isUnknown(llvm::StringRef(whole).upper(), diagnostic.unit);
}

/// Whether one character between the names of the two makes them one. A space may stand in the
/// place of a character of a declared name.
bool ConsequenceFinder::isTornFrom(const Diagnostic &left, const Diagnostic &right) const {
  const SourceRange &first = left.place;
  const SourceRange &second = right.place;
  if (first.file != second.file || first.endLine != second.beginLine ||
      first.endColumn + 2U != second.beginColumn)
    return false;
  const unsigned between = first.endColumn + 1;
  if (sliceColumns(lineOf(first.file, first.endLine), between, between) != " ")
    return right.suggestion.empty() || !isSlip(nameIn(right), right.suggestion);
  std::string whole = (nameIn(left) + " " + nameIn(right)).str();
  for (const char c : llvm::StringRef("-ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789")) {
    whole[nameIn(left).size()] = c;
    if (!isUnknown(llvm::StringRef(whole).upper(), left.unit))
      return true;
  }
  return false;
}

/// Why a nested program does not see an item of an outer one: its record, which is not GLOBAL, has
/// an error, or was reported for another of its items.
std::size_t ConsequenceFinder::causeOfOuterName(std::size_t index, llvm::StringRef name) {
  const SourceUnit *inner = diagnostics[index].unit;
  if (!inner || !isUnknown(name, inner))
    return none;
  for (const SourceUnit *unit = inner->getParent(); unit; unit = unit->getParent()) {
    const Homonyms items = Scope(const_cast<SourceUnit *>(unit)).findItems(&internString(name));
    if (!items)
      continue;
    const DataDescription *record = items.entries->front();
    if (const std::size_t cause = causeOfItemOrFile(record, index); cause != none)
      return cause;
    while (record->getOwner())
      record = record->getOwner();
    const FileDescription *file = record->getFileDescription();
    const Node *owner = file ? static_cast<const Node *>(file) : record;
    const auto [first, isNew] = hiddenRecords.try_emplace(owner, index);
    // The record that is GLOBAL may be another one, whose line is missing.
    if (isNew)
      damage.addLostName(index);
    return isNew ? none : first->second;
  }
  return none;
}

/// Equal for diagnostics that say the same of the same name.
std::string ConsequenceFinder::keyOf(const Diagnostic &diagnostic, llvm::StringRef name) {
  if (isAboutFile(diagnostic.number))
    return "FILE " + name.str();
  if (isAmbiguous(diagnostic.number))
    if (const std::string &text = repeatedTextOf(name, diagnostic.unit); !text.empty())
      return "TWICE " + text;
  if (isAboutProcedure(diagnostic.number) && isAboutMissingName(diagnostic.number))
    return "PROCEDURE " + name.str();
  // REPOSITORY lets functions stand without FUNCTION, all of them most of the time.
  if (findIntrinsicFunction(name) && isUnknown(name, diagnostic.unit))
    return "FUNCTION";
  if (!isAboutProcedure(diagnostic.number) && isUnknown(name, diagnostic.unit))
    return (isOfSuppliedText(name) ? "SUPPLIED " : "NAME ") +
           (isOfSuppliedText(name) ? name.take_front(suppliedPrefix.size()) : name).str();
  return std::to_string(withoutLanguage(diagnostic.number)) + ' ' +
         llvm::StringRef(diagnostic.subject).upper();
}

/// The text that is there twice, so that all names that it declares are ambiguous, \p name among
/// them: a copybook, a line, or a record, by its name. Empty where the entries of that name have
/// nothing else in common.
const std::string &ConsequenceFinder::repeatedTextOf(llvm::StringRef name, const SourceUnit *unit) {
  const auto [known, isNew] = repeatedTexts.try_emplace({unit, name.str()});
  if (isNew)
    known->second = findRepeatedText(name, unit);
  return known->second;
}

std::string ConsequenceFinder::findRepeatedText(llvm::StringRef name,
                                                const SourceUnit *unit) const {
  const Homonyms items = Scope(const_cast<SourceUnit *>(unit)).findItems(&internString(name));
  if (!items || items.entries->size() < 2)
    return "";
  auto recordOf = [](const DataDescription *entry) -> llvm::StringRef {
    while (entry->getOwner())
      entry = entry->getOwner();
    return entry->getDataName() ? entry->getDataName()->getWordData() : llvm::StringRef();
  };
  auto placeOf = [](const DataDescription *entry) {
    return entry->getDataName() ? entry->getDataName()->getRange() : SourceRange();
  };
  auto all = [&](auto condition) { return llvm::all_of(*items.entries, condition); };
  const SourceRange first = placeOf(items.entries->front());
  if (all([&](const DataDescription *entry) {
        const SourceRange place = placeOf(entry);
        return place.file == first.file && place.beginLine != 0 && beginOf(place) == beginOf(first);
      }))
    return "COPY";
  const llvm::StringRef line = lineOf(first.file, first.beginLine).trim();
  if (all([&](const DataDescription *entry) {
        const SourceRange place = placeOf(entry);
        return place.beginLine != 0 && lineOf(place.file, place.beginLine).trim() == line;
      }))
    return ("LINE " + line).str();
  const llvm::StringRef record = recordOf(items.entries->front());
  return all([&](const DataDescription *entry) { return recordOf(entry) == record; }) ? record.str()
                                                                                      : "";
}

/// Whether the line of \p place is the header of the paragraph \p name.
bool ConsequenceFinder::isHeaderOf(llvm::StringRef name, const SourceRange &place) const {
  return lineOf(place.file, place.beginLine).trim().rtrim('.').equals_insensitive(name);
}

/// Whether the subject is a name that nothing has, or is declared in an entry of its own.
bool ConsequenceFinder::isName(const Diagnostic &diagnostic) const {
  if (dynamic_cast<const FileDescription *>(diagnostic.node))
    return true;
  const std::string name = nameIn(diagnostic).upper();
  return llvm::any_of(name, llvm::isAlpha) && llvm::all_of(name, isNameCharacter) &&
         isUnknown(name, diagnostic.unit);
}

/// The name that is not declared, in upper case: the one that the diagnostic is about or the first
/// of its qualifiers that nothing has.
std::string ConsequenceFinder::missingName(const Diagnostic &diagnostic) const {
  llvm::SmallVector<llvm::StringRef, 4> names;
  llvm::StringRef(diagnostic.subject).split(names, " OF ");
  ProcedureDivision *procedures = isAboutProcedure(diagnostic.number) && diagnostic.unit
                                      ? diagnostic.unit->getProcDivision()
                                      : nullptr;
  for (llvm::StringRef qualifier : llvm::drop_begin(names)) {
    std::string name = qualifier.upper();
    if (procedures ? procedures->findSections(name).empty() : isUnknown(name, diagnostic.unit))
      return name;
  }
  // Of an item that is not unique the message has the name; its operand can be a group around it.
  if (isAmbiguous(diagnostic.number) && diagnostic.number < 5000)
    if (const auto [before, name] = llvm::StringRef(diagnostic.text).split('\''); !name.empty())
      return name.split('\'').first.split(" OF ").first.upper();
  return nameIn(diagnostic).upper();
}

/// The error of an item or a file that the diagnostic involves.
std::size_t ConsequenceFinder::causeOfItem(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  if (!diagnostic.node)
    return none;
  // Of the errors of one entry all are shown, unless its picture is wrong or text inside of it
  // could not be read.
  if (const DataDescription *entry = places.entryAt(diagnostic.place)) {
    if (const std::size_t cause = damage.withinEntry(entry, index); cause != none)
      return cause;
    // A wrong condition-name is what makes a group of its item.
    if (entry->getLevelNum() != 88)
      if (const std::size_t cause = damage.ofGroupWithPicture(entry); cause != none)
        return cause;
    if (isGroupWithPicture(diagnostic.number))
      if (const std::size_t cause = damage.ofEmptyGroupBefore(entry); cause != none)
        return cause;
    if (isWrongHierarchy(diagnostic.number))
      if (const std::size_t cause = damage.ofDamagedEntryBefore(entry); cause != none)
        return cause;
    if (isEmptyGroup(diagnostic.number))
      if (const std::size_t cause = damage.ofRecordNear(entry); cause != none)
        return cause;
    if (isEmptyGroup(diagnostic.number))
      if (const std::size_t cause = damage.ofGroupWithPictureBefore(entry); cause != none)
        return cause;
    if (isAboutMembers(diagnostic.number)) {
      // An entry that its group cannot have may belong to another one, in the missing text.
      const bool isOfGroup =
          isDifferentUsage(diagnostic.number) || isWrongMember(diagnostic.number);
      const DataDescription *known = isOfGroup && entry->getOwner() ? entry->getOwner() : entry;
      if (entry->getCondNameParent())
        known = entry->getCondNameParent();
      if (const std::size_t cause = damage.ofMissingCopybookIn(known); cause != none)
        return cause;
    }
    if (isPictureAgainstUsage(diagnostic.number) && hasUsageOfGroup(*entry))
      if (const std::size_t cause = damage.ofMissingCopybookIn(entry->getOwner()); cause != none)
        return cause;
    // Another condition-name of the variable can be wrong as well.
    if (const DataDescription *variable = entry->getCondNameParent())
      if (const std::size_t cause = damage.ofEntryOrGroup(variable, index); cause != none)
        return cause;
  }
  if (const std::size_t cause = damage.ofOperand(diagnostic.otherNode);
      cause != none && cause < index)
    return cause;
  if (const auto *name = dynamic_cast<const Word *>(diagnostic.otherNode))
    if (const std::size_t cause = damage.ofDeclaration(name->getWordData(), false); cause != none)
      return cause;
  // An operand that is wrong as a reference has one message.
  if (const std::size_t cause = damage.ofOperand(diagnostic.node);
      cause != none && cause < index && isAboutReference(diagnostics[cause].number))
    return cause;
  Involved involved;
  involved.enter(diagnostic.node);
  if (involved.isEmpty() && !places.entryAt(diagnostic.place))
    involved.enter(Scope(diagnostic.unit).findItems(&internString(nameIn(diagnostic).upper())));
  involved.enter(diagnostic.otherNode);
  if (const auto *other = dynamic_cast<const DataDescription *>(diagnostic.otherNode))
    if (const std::size_t cause = damage.of(other, index); cause != none)
      return cause;
  for (const DataDescription *item : involved.getEntries())
    if (const std::size_t cause = damage.of(item, index); cause != none)
      return cause;
  // The members of a group are not all known.
  for (const DataDescription *item : involved.getEntries()) {
    const DataDescription *known = item->getCondNameParent() ? item->getCondNameParent() : item;
    // Tables around an item may be missing as well.
    while (isAboutSubscripts(diagnostic.number) && known->getOwner())
      known = known->getOwner();
    if (known != item || item->isGroupItem())
      if (const std::size_t cause = damage.ofMissingCopybookIn(known); cause != none)
        return cause;
  }
  for (const FileDescription *file : involved.getFiles())
    if (const std::size_t cause = damage.of(file, index); cause != none)
      return cause;
  if (isAboutRecordArea(diagnostic.number))
    for (const FileDescription *file : involved.getFiles())
      if (const std::size_t cause = damage.ofMissingCopybookIn(file); cause != none)
        return cause;
  return none;
}

std::size_t ConsequenceFinder::rootOf(std::size_t index) const {
  while (causes[index] != none)
    index = causes[index];
  return index;
}

void ConsequenceFinder::remove() {
  for (std::size_t i = 0; i < diagnostics.size(); ++i) {
    // A warning about an embedded block says nothing where the block could not be read.
    if (isAboutEmbedded(diagnostics[i].number) && diagnostics[i].severity == Severity::Warning) {
      causes[i] = causeOfPlace(diagnostics[i]);
      if (causes[i] == none)
        causes[i] = unreadTextIn(diagnostics[i].place);
      if (causes[i] == none)
        causes[i] = causeOfLineItems(i);
    }
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

void ConsequenceFinder::describeCauses() {
  std::map<std::size_t, std::vector<std::size_t>> byCause;
  for (std::size_t i = 0; i < diagnostics.size(); ++i)
    if (causes[i] != none)
      byCause[rootOf(i)].push_back(i);
  for (const auto &[index, consequences] : byCause)
    describeCause(index, consequences);
}

/// Adds to the cause number \p index how much follows from it.
void ConsequenceFinder::describeCause(std::size_t index, llvm::ArrayRef<std::size_t> consequences) {
  Diagnostic &cause = diagnostics[index];
  std::vector<std::string> names;
  llvm::StringSet<> known;
  const Diagnostic *first = nullptr;
  unsigned count = 0;
  const std::string nameOfCause = missingName(cause);
  for (const std::size_t consequence : consequences) {
    const Diagnostic &one = diagnostics[consequence];
    const bool isRepeated = one.number == cause.number && one.place.file == cause.place.file &&
                            beginOf(one.place) == beginOf(cause.place);
    if (isRepeated)
      continue;
    // The same name in another place.
    const bool isOneKind = isAboutKind(cause.number) && one.number == cause.number;
    const bool isOneName =
        isAboutName(cause.number) && isAboutName(one.number) &&
        !(reportedFamilies.contains(familyOf(nameOfCause)) && nameIn(one).upper() != nameOfCause);
    if (isOneName || isOneKind) {
      cause.furtherPlaces.push_back(one.place);
      continue;
    }
    ++count;
    if (!first)
      first = &one;
    if (isAboutName(one.number) && known.insert(nameIn(one).upper()).second)
      names.push_back(nameIn(one).str());
  }
  if (!first)
    return;
  const std::size_t total = names.size();
  if (isAboutName(cause.number) && total > 1) {
    cause.notes.push_back({std::to_string(total) + " more names " + nameOfFamily(nameOfCause) +
                               " are not declared either, first here: the COPY or the record that "
                               "declares them may be missing; --all shows them",
                           first->place, first->line});
    return;
  }
  if (isAboutCopy(cause.number) && !names.empty()) {
    names.resize(std::min(total, maxNames));
    cause.text += "; " + std::to_string(total) + (total == 1 ? " name is" : " names are") +
                  " probably undefined because of it: " + llvm::join(names, ", ") +
                  (total > maxNames ? " ..." : "");
  }
  cause.notes.push_back(
      {std::to_string(count) +
           (count == 1 ? " more error follows from this one, here; --all shows it"
                       : " more errors follow from this one, first here; --all shows them"),
       first->place, first->line});
}

} // namespace

void removeConsequences(std::vector<Diagnostic> &diagnostics, Program &program,
                        const DamagedText &damage, LineLookup lineOf) {
  if (diagnostics.size() > 1 && llvm::any_of(diagnostics, [](const Diagnostic &diagnostic) {
        return isError(diagnostic.severity);
      }))
    ConsequenceFinder(diagnostics, program, damage, lineOf).remove();
}

} // namespace tarka
