//===- Consequences.cpp - one message for one mistake ---------------------===//

#include "Report/Consequences.h"
#include "AST/DataTree.h"
#include "AST/ExpressionVisitor.h"
#include "AST/Program.h"
#include "AST/Scope.h"
#include "AST/Spelling.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/raw_ostream.h"
#include <map>

namespace tarka {

namespace {

/// The columns of fixed form that hold no program text are the first ones and those from here on.
constexpr unsigned sequenceArea = 6;
constexpr unsigned areaB = 12;
constexpr unsigned maxColumn = 72;
/// How many wrong names of files are compared with one another.
constexpr std::size_t maxFiles = 100;
/// As far as this a place is extended to the spaces around it.
constexpr unsigned maxRun = 30;
/// The front end's message about a reserved word in the place of something else.
constexpr int reservedWord = 201;
/// How many names the message of a missing copybook has.
constexpr std::size_t maxNames = 5;

bool isFrontEnd(const Diagnostic &diagnostic) {
  return diagnostic.number < 1000;
}

/// The front end's messages about COPY: text is missing of which not even the names are known.
bool isAboutCopy(int number) {
  return 40 <= number && number <= 49;
}

/// Numbers that say that nothing has a name.
bool isAboutMissingName(int number) {
  return number == 3310 || number == 3150 || number == 3324 || number == 3403;
}

/// Numbers of references that cannot be understood.
bool isAboutReference(int number) {
  return 3310 <= number && number <= 3316;
}

/// Those after which a whole copybook is missing, but the text around it is as it should be.
bool isMissingCopybook(int number) {
  return 43 <= number && number <= 49;
}

bool isWrongPicture(int number) {
  return number == 3242;
}

/// Numbers that say that a procedure-name means nothing, or more than one procedure.
bool isAboutProcedure(int number) {
  return 3401 <= number && number <= 3403;
}

/// Numbers that say that the SELECT and FD entries and the uses of a file do not go together.
bool isAboutFile(int number) {
  return number == 3150 || number == 3324 || number == 5021;
}

/// Numbers that say that nothing, or more than one thing, has a name.
bool isAboutName(int number) {
  return number == 3310 || number == 3311 || number == 3312 || isAboutFile(number) ||
         isAboutProcedure(number);
}

/// The name that the diagnostic is about, without qualifiers.
llvm::StringRef nameIn(const Diagnostic &diagnostic) {
  return llvm::StringRef(diagnostic.subject).split(" OF ").first;
}

/// Whether \p name could be a slip of the pen for \p meant: one slip within a part between hyphens
/// that has four letters or more. The names of one record often differ in a short part or a number,
/// which is no sign of a mistake.
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
    if (!isLong || llvm::any_of(part, llvm::isDigit) || llvm::any_of(meantPart, llvm::isDigit) ||
        spellingDistance(part.upper(), meantPart.upper(), 1) > 1)
      return false;
    ++different;
  }
  return different == 1;
}

/// \p line without a sequence number and what is behind column 72.
llvm::StringRef programText(llvm::StringRef line) {
  const bool isNumbered =
      line.size() > sequenceArea && llvm::all_of(line.take_front(sequenceArea), llvm::isDigit);
  return line.take_front(maxColumn).drop_front(isNumbered ? sequenceArea : 0);
}

bool isTopLevel(const DataDescription &entry) {
  return entry.getLevelNum() == 1 || entry.getLevelNum() == 77;
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

  bool isEmpty() const { return entries.empty() && files.empty(); }
  llvm::ArrayRef<const DataDescription *> getEntries() const { return entries; }
  llvm::ArrayRef<const FileDescription *> getFiles() const { return files; }

private:
  llvm::SmallVector<const DataDescription *, 4> entries;
  llvm::SmallVector<const FileDescription *, 2> files;
};

/// Decides for each diagnostic whether it follows from another.
class ConsequenceFinder {
public:
  ConsequenceFinder(std::vector<Diagnostic> &report, Program &program, const DamagedText &damage,
                    LineLookup lookup)
      : diagnostics(report), damagedText(damage), lineOf(lookup), causes(report.size(), none) {
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

  /// The SELECT or the FD entry of a file.
  struct FilePart {
    SourceRange range;
    const FileDescription *file;
  };

  static Position beginOf(const SourceRange &range) { return {range.beginLine, range.beginColumn}; }

  void enterUnit(SourceUnit &unit);
  void enterFile(FileDescription &file);
  void enterRecord(DataDescription *record);
  const DataDescription *entryAt(const SourceRange &place) const;
  const FileDescription *fileAt(const SourceRange &place) const;
  bool isInProcedures(const SourceRange &place) const;
  bool beginsLine(const SourceRange &place) const;
  void noteDamage(std::size_t index);
  void noteDamage(const DataDescription *entry, std::size_t index);
  void noteDamage(const FileDescription *file, std::size_t index);
  void noteDamagedText();
  void noteLostDeclaration(std::size_t index);
  void noteLostLevel(std::size_t index);
  bool isNameKnown(const SourceRange &place) const;
  void noteFilesWithoutRecords();
  SourceRange runAround(const SourceRange &place) const;
  bool isTornFrom(const SourceRange &first, const SourceRange &second) const;
  bool isUnknown(llvm::StringRef name, const SourceUnit *unit) const;
  std::size_t damagedDeclarationOf(llvm::StringRef name, bool isProcedure);
  std::size_t takeLostName(const Diagnostic &diagnostic, const std::string &key);
  std::size_t nearestFrontEndError(const SourceRange &place) const;
  std::size_t causeOf(std::size_t index);
  std::size_t causeOfPlace(const Diagnostic &diagnostic) const;
  std::size_t damageAt(const SourceRange &place) const;
  std::size_t causeOfName(std::size_t index);
  std::size_t causeOfItem(std::size_t index);
  std::size_t damageOf(const DataDescription *entry, std::size_t except) const;
  std::size_t damageOf(const FileDescription *file, std::size_t except) const;
  std::size_t missingCopybookOf(const Diagnostic &diagnostic) const;
  std::string missingName(const Diagnostic &diagnostic) const;
  std::string keyOf(const Diagnostic &diagnostic, llvm::StringRef name) const;
  bool isName(const Diagnostic &diagnostic) const;
  std::size_t rootOf(std::size_t index) const;
  void describeCauses();
  void describeCause(std::size_t index, llvm::ArrayRef<std::size_t> consequences);

  std::vector<Diagnostic> &diagnostics;
  const DamagedText &damagedText;
  LineLookup lineOf;
  /// By diagnostic the one that it follows from.
  std::vector<std::size_t> causes;
  std::map<unsigned, std::vector<const DataDescription *>> entries;
  std::map<std::pair<unsigned, Position>, FilePart> fileParts;
  /// Where in a file the procedures of a unit begin (true), or a unit (false).
  std::map<std::pair<unsigned, Position>, bool> parts;
  /// The errors of the front end, by file and position.
  std::map<std::pair<unsigned, Position>, std::size_t> frontEndErrors;

  // By what has an error, the diagnostic that says so first.
  llvm::DenseMap<const DataDescription *, std::size_t> damaged;
  llvm::DenseMap<const DataDescription *, std::size_t> damagedInside;
  llvm::DenseMap<const FileDescription *, std::size_t> damagedFiles;
  llvm::DenseMap<const Node *, std::size_t> damagedOperands;
  /// Errors behind which text of unknown content is missing.
  std::vector<std::size_t> missingCopybooks;
  /// Errors each of which leaves one declaration without its name, of data, files and procedures,
  /// and the undeclared names that they were taken for.
  std::vector<std::size_t> lostNames;
  std::vector<std::size_t> lostFiles;
  std::vector<std::size_t> lostProcedures;
  llvm::StringMap<std::size_t> foundNames;
  /// Answers of damagedDeclarationOf().
  llvm::StringMap<std::size_t> damagedNames;
  llvm::StringMap<std::size_t> damagedProcedures;
  /// The entries behind one whose level is not known.
  llvm::DenseSet<const DataDescription *> inDoubt;

  llvm::StringMap<std::size_t> reported;
  std::map<std::pair<const SourceUnit *, std::string>, std::size_t> reportedNames;
  std::vector<std::size_t> reportedFiles;
};

void ConsequenceFinder::enterUnit(SourceUnit &unit) {
  const SourceRange &whole = unit.getRange();
  parts.try_emplace({whole.file, beginOf(whole)}, false);
  if (const ProcedureDivision *procedures = unit.getProcDivision())
    parts[{procedures->getRange().file, beginOf(procedures->getRange())}] = true;
  if (DataDivision *division = unit.getDataDivision()) {
    for (FileDescription *file : division->getFileSectionElements()) {
      enterFile(*file);
      for (DataDescription *record : file->getRecordDescElements())
        enterRecord(record);
    }
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

void ConsequenceFinder::enterFile(FileDescription &file) {
  auto add = [&](const SourceRange &range) {
    fileParts.try_emplace({range.file, beginOf(range)}, FilePart{range, &file});
  };
  add(file.getRange());
  if (const ParaFileControl *select = file.getFileControl())
    add(select->getRange());
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

/// The file whose SELECT or FD entry \p place begins in; null elsewhere.
const FileDescription *ConsequenceFinder::fileAt(const SourceRange &place) const {
  auto next = fileParts.upper_bound({place.file, beginOf(place)});
  if (next == fileParts.begin())
    return nullptr;
  const auto &[position, part] = *std::prev(next);
  const bool isInside = position.first == place.file && place.beginLine <= part.range.endLine;
  return isInside ? part.file : nullptr;
}

bool ConsequenceFinder::isInProcedures(const SourceRange &place) const {
  auto next = parts.upper_bound({place.file, beginOf(place)});
  return next != parts.begin() && std::prev(next)->first.first == place.file &&
         std::prev(next)->second;
}

/// Whether no other word stands before \p place in its line.
bool ConsequenceFinder::beginsLine(const SourceRange &place) const {
  const llvm::StringRef before =
      sliceColumns(lineOf(place.file, place.beginLine), 1, place.beginColumn - 1);
  return llvm::none_of(programText(before), llvm::isAlnum);
}

/// Notes what the error makes unreliable.
void ConsequenceFinder::noteDamage(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  if (isFrontEnd(diagnostic))
    return;
  damagedOperands.try_emplace(diagnostic.node, index);
  const auto *item = dynamic_cast<const DataDescription *>(diagnostic.node);
  noteDamage(item && item->isWritten() ? item : entryAt(diagnostic.place), index);
  noteDamage(fileAt(diagnostic.place), index);
}

void ConsequenceFinder::noteDamage(const DataDescription *entry, std::size_t index) {
  if (!entry || !damaged.try_emplace(entry, index).second)
    return;
  for (const DataDescription *group = entry->getOwner(); group; group = group->getOwner())
    if (!damagedInside.try_emplace(group, index).second)
      break;
}

void ConsequenceFinder::noteDamage(const FileDescription *file, std::size_t index) {
  if (file)
    damagedFiles.try_emplace(file, index);
}

/// Notes the entries and files that the front end could not read as meant, and the declarations
/// that are not in the tree because of it.
void ConsequenceFinder::noteDamagedText() {
  for (std::size_t i = 0; i < diagnostics.size(); ++i) {
    const Diagnostic &diagnostic = diagnostics[i];
    if (!isFrontEnd(diagnostic) || !isError(diagnostic.severity))
      continue;
    if (diagnostic.place.beginLine != 0)
      frontEndErrors.try_emplace({diagnostic.place.file, beginOf(diagnostic.place)}, i);
    if (isAboutCopy(diagnostic.number))
      missingCopybooks.push_back(i);
  }
  if (frontEndErrors.empty())
    return;
  for (const auto &[file, ofFile] : entries)
    for (const DataDescription *entry : ofFile)
      if (const std::size_t cause = damageAt(entry->getRange()); cause != none)
        noteDamage(entry, cause);
  for (const auto &[position, part] : fileParts)
    if (const std::size_t cause = damageAt(part.range); cause != none)
      noteDamage(part.file, cause);
  // What a damaged COPY would copy is missing as well.
  for (const char *verb : {"COPY", "INCLUDE"})
    for (const SourceRange &place : damagedText.findName(verb))
      if (const std::size_t index = nearestFrontEndError(place);
          beginOf(diagnostics[index].place) <= beginOf(place))
        missingCopybooks.push_back(index);
  for (const auto &[position, index] : frontEndErrors)
    if (!isAboutCopy(diagnostics[index].number))
      noteLostDeclaration(index);
  noteFilesWithoutRecords();
}

/// The records of a file may be in the text that is missing.
void ConsequenceFinder::noteFilesWithoutRecords() {
  for (const std::size_t index : missingCopybooks) {
    const SourceRange &place = diagnostics[index].place;
    auto next = fileParts.upper_bound({place.file, beginOf(place)});
    if (next != fileParts.begin() && std::prev(next)->first.first == place.file &&
        std::prev(next)->second.file->getRecordDescSize() == 0)
      noteDamage(std::prev(next)->second.file, index);
  }
}

/// Where the front end found no entry, or no procedure header, one declaration may be missing with
/// its name.
void ConsequenceFinder::noteLostDeclaration(std::size_t index) {
  const SourceRange &place = diagnostics[index].place;
  const llvm::StringRef line = lineOf(place.file, place.beginLine);
  if (isInProcedures(place)) {
    const std::size_t margin = line.find_first_not_of(' ', sequenceArea);
    if (sequenceArea < margin && margin < areaB - 1)
      lostProcedures.push_back(index);
    return;
  }
  const DataDescription *entry = entryAt(place);
  const bool isLevelKnown = entry && beginOf(entry->getRange()) < beginOf(place) &&
                            (place.beginLine < entry->getRange().endLine ||
                             place.beginColumn <= entry->getRange().endColumn + 1);
  if (!isNameKnown(place)) {
    // A reserved word in the place of a name was meant to be the name, but for a clause.
    const std::string word = sliceColumns(line, place.beginColumn, place.endColumn).upper();
    const bool isReserved = diagnostics[index].number == reservedWord && word != "VALUE" &&
                            word != "VALUES" && word != "ASSIGN";
    const llvm::StringRef first = programText(line).ltrim().split(' ').first;
    const bool isOfFile = first.equals_insensitive("SELECT") || first.equals_insensitive("FD") ||
                          first.equals_insensitive("SD");
    if (!isReserved)
      (isOfFile ? lostFiles : lostNames).push_back(index);
  }
  if (!isLevelKnown)
    noteLostLevel(index);
}

/// Whether the entry that the error at \p place concerns is in the tree with its name: the one that
/// \p place is in, or that begins behind it in the line.
bool ConsequenceFinder::isNameKnown(const SourceRange &place) const {
  auto hasName = [](const DataDescription &entry) {
    return entry.getDataName() && !entry.getDataName()->getSpelling().empty();
  };
  const DataDescription *entry = entryAt(place);
  if (entry && (place.beginLine < entry->getRange().endLine ||
                place.beginColumn <= entry->getRange().endColumn + 1))
    return hasName(*entry);
  SourceRange lineEnd = place;
  lineEnd.beginColumn = maxColumn;
  const DataDescription *last = entryAt(lineEnd);
  return last && last != entry && hasName(*last);
}

/// The level of an entry is not known, or there is none.
void ConsequenceFinder::noteLostLevel(std::size_t index) {
  const SourceRange &place = diagnostics[index].place;
  // A word or two alone were meant to copy text, most likely.
  llvm::SmallVector<llvm::StringRef, 4> words;
  llvm::SplitString(programText(lineOf(place.file, place.beginLine)), words);
  if (words.size() <= 2 && !words.empty() && words.back().ends_with(".") &&
      llvm::any_of(words.front(), llvm::isAlpha))
    missingCopybooks.push_back(index);
  const auto ofFile = entries.find(place.file);
  if (ofFile == entries.end())
    return;
  auto next = llvm::lower_bound(ofFile->second, beginOf(place),
                                [](const DataDescription *one, const Position &position) {
                                  return beginOf(one->getRange()) < position;
                                });
  // The group before it may be empty for want of it, and the entries behind it up to the next
  // record may belong to another group.
  if (next != ofFile->second.begin())
    if (const DataDescription *before = *std::prev(next);
        before->getChildrenSize() == 0 && !before->getPicture())
      noteDamage(before, index);
  for (; next != ofFile->second.end(); ++next) {
    const bool isNextRecord = isTopLevel(**next) && beginOf(place) < beginOf((*next)->getRange());
    if (isNextRecord || !inDoubt.insert(*next).second)
      break;
    noteDamage(*next, index);
  }
}

/// The error of the front end that damage at \p place comes from: the last one that begins before
/// the end of it, else the next one.
std::size_t ConsequenceFinder::nearestFrontEndError(const SourceRange &place) const {
  if (frontEndErrors.empty())
    return none;
  auto next = frontEndErrors.upper_bound({place.file, {place.endLine, place.endColumn}});
  if (next != frontEndErrors.begin() && std::prev(next)->first.first == place.file)
    return std::prev(next)->second;
  return next != frontEndErrors.end() ? next->second : frontEndErrors.begin()->second;
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
  if (isFrontEnd(diagnostic))
    return none;
  if (const std::size_t cause = causeOfPlace(diagnostic); cause != none)
    return cause;
  if (const std::size_t cause = causeOfItem(index); cause != none)
    return cause;
  return causeOfName(index);
}

/// The error of the front end that the diagnostic stands in the text of. A statement of several
/// lines can hold others, so only its beginning counts.
std::size_t ConsequenceFinder::causeOfPlace(const Diagnostic &diagnostic) const {
  SourceRange place = diagnostic.place;
  if (place.beginLine != place.endLine && !dynamic_cast<const DataDescription *>(diagnostic.node)) {
    place.endLine = place.beginLine;
    place.endColumn = place.beginColumn;
  }
  return damageAt(place);
}

/// The error because of which text at \p place is damaged; none where no text is.
std::size_t ConsequenceFinder::damageAt(const SourceRange &place) const {
  if (!damagedText.contains(place))
    return none;
  const std::size_t cause = nearestFrontEndError(place);
  return cause == none || isMissingCopybook(diagnostics[cause].number) ? none : cause;
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

/// The error because of which a declaration of \p name is not in the tree as meant: the damaged
/// text has the name where one can be declared.
std::size_t ConsequenceFinder::damagedDeclarationOf(llvm::StringRef name, bool isProcedure) {
  auto &known = isProcedure ? damagedProcedures : damagedNames;
  const auto [answer, isNew] = known.try_emplace(name.upper(), none);
  if (isNew)
    for (const SourceRange &place : damagedText.findName(name))
      if (isInProcedures(place) ? isProcedure && beginsLine(place) : !isProcedure) {
        answer->second = nearestFrontEndError(place);
        break;
      }
  return answer->second;
}

/// The error that leaves a declaration without a name which may be this one. Each stands for one
/// name only.
std::size_t ConsequenceFinder::takeLostName(const Diagnostic &diagnostic, const std::string &key) {
  if (const auto known = foundNames.find(key); known != foundNames.end())
    return known->second;
  auto &lost = isAboutProcedure(diagnostic.number) ? lostProcedures
               : isAboutFile(diagnostic.number)    ? lostFiles
                                                   : lostNames;
  if (lost.empty())
    return none;
  const std::size_t cause = lost.front();
  lost.erase(lost.begin());
  foundNames[key] = cause;
  return cause;
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
    if (const std::size_t cause = damageAt(runAround(place)); cause != none)
      return cause;
  if (const std::size_t cause = damagedDeclarationOf(name, isProcedure); cause != none)
    return cause;
  if (!isAbout)
    return none;
  if (!diagnostic.suggestion.empty())
    if (const std::size_t cause = damagedDeclarationOf(diagnostic.suggestion, isProcedure);
        cause != none)
      return cause;

  const std::string key = keyOf(diagnostic, name);
  const auto first = reportedNames.find({diagnostic.unit, key});
  if (first != reportedNames.end())
    return first->second;
  // Of a file, the SELECT or FD entry or the use is misspelt.
  if (isAboutFile(diagnostic.number))
    for (const std::size_t cause : reportedFiles)
      if (diagnostics[cause].unit == diagnostic.unit && isSlip(name, nameIn(diagnostics[cause])))
        return cause;
  const bool isMisspelling = !diagnostic.suggestion.empty() && isSlip(name, diagnostic.suggestion);
  if (!isMisspelling) {
    if (const std::size_t copybook = missingCopybookOf(diagnostic); copybook != none)
      return copybook;
    if (isAboutMissingName(diagnostic.number))
      if (const std::size_t lost = takeLostName(diagnostic, key); lost != none)
        return lost;
  }
  // One name that was torn in two.
  if (!isMisspelling && index > 0 && isAboutName(diagnostics[index - 1].number) &&
      isTornFrom(diagnostics[index - 1].place, place))
    return index - 1;
  reportedNames[{diagnostic.unit, key}] = index;
  if (isAboutFile(diagnostic.number) && reportedFiles.size() < maxFiles)
    reportedFiles.push_back(index);
  return none;
}

/// Whether one character stands between the two places, which is no space.
bool ConsequenceFinder::isTornFrom(const SourceRange &first, const SourceRange &second) const {
  if (first.file != second.file || first.endLine != second.beginLine ||
      first.endColumn + 2 != second.beginColumn)
    return false;
  const unsigned between = first.endColumn + 1;
  return sliceColumns(lineOf(first.file, first.endLine), between, between) != " ";
}

/// Equal for diagnostics that say the same of the same name.
std::string ConsequenceFinder::keyOf(const Diagnostic &diagnostic, llvm::StringRef name) const {
  if (isAboutFile(diagnostic.number))
    return "FILE " + name.str();
  if (name != nameIn(diagnostic).upper())
    return "QUALIFIER " + name.str();
  return std::to_string(diagnostic.number) + ' ' + llvm::StringRef(diagnostic.subject).upper();
}

/// Whether the subject is a name that nothing has, or is declared in an entry of its own.
bool ConsequenceFinder::isName(const Diagnostic &diagnostic) const {
  if (dynamic_cast<const FileDescription *>(diagnostic.node))
    return true;
  const std::string name = nameIn(diagnostic).upper();
  return llvm::any_of(name, llvm::isAlpha) &&
         llvm::all_of(name, [](char c) { return llvm::isAlnum(c) || c == '-' || c == '_'; }) &&
         isUnknown(name, diagnostic.unit);
}

/// The name that is not declared, in upper case: the one that the diagnostic is about or the first
/// of its qualifiers that nothing has.
std::string ConsequenceFinder::missingName(const Diagnostic &diagnostic) const {
  llvm::SmallVector<llvm::StringRef, 4> names;
  llvm::StringRef(diagnostic.subject).split(names, " OF ");
  for (llvm::StringRef qualifier : llvm::drop_begin(names))
    if (std::string name = qualifier.upper(); isUnknown(name, diagnostic.unit))
      return name;
  return nameIn(diagnostic).upper();
}

/// The error of an item or a file that the diagnostic involves.
std::size_t ConsequenceFinder::causeOfItem(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  if (!diagnostic.node)
    return none;
  // Of the errors of one entry all are shown, unless its picture is wrong or text inside of it
  // could not be read.
  if (const DataDescription *entry = entryAt(diagnostic.place)) {
    for (const auto *map : {&damaged, &damagedInside}) {
      const auto own = map->find(entry);
      if (own == map->end() || own->second == index)
        continue;
      const int number = diagnostics[own->second].number;
      if (isFrontEnd(diagnostics[own->second]) || (map == &damaged && isWrongPicture(number)))
        return own->second;
    }
    if (const DataDescription *variable = entry->getCondNameParent())
      if (const std::size_t cause = damageOf(variable, index); cause != none)
        return cause;
  }
  if (const auto other = damagedOperands.find(diagnostic.otherNode);
      diagnostic.otherNode && other != damagedOperands.end() && other->second < index)
    return other->second;
  if (const auto *name = dynamic_cast<const Word *>(diagnostic.otherNode))
    if (const std::size_t cause = damagedDeclarationOf(name->getWordData(), false); cause != none)
      return cause;
  // An operand that is wrong as a reference has one message.
  if (const auto same = damagedOperands.find(diagnostic.node);
      same != damagedOperands.end() && same->second < index &&
      isAboutReference(diagnostics[same->second].number))
    return same->second;
  Involved involved;
  involved.enter(diagnostic.node);
  if (involved.isEmpty() && !entryAt(diagnostic.place))
    involved.enter(Scope(diagnostic.unit).findItems(&internString(nameIn(diagnostic).upper())));
  involved.enter(diagnostic.otherNode);
  for (const DataDescription *item : involved.getEntries())
    if (const std::size_t cause = damageOf(item, index); cause != none)
      return cause;
  for (const FileDescription *file : involved.getFiles())
    if (const std::size_t cause = damageOf(file, index); cause != none)
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

/// The error of the SELECT or FD entry of \p file, or of its records, other than \p except.
std::size_t ConsequenceFinder::damageOf(const FileDescription *file, std::size_t except) const {
  if (auto found = damagedFiles.find(file); found != damagedFiles.end() && found->second != except)
    return found->second;
  for (const DataDescription *record : file->getRecordDescElements())
    if (const std::size_t cause = damageOf(record, except); cause != none)
      return cause;
  return none;
}

/// The missing copybook that may declare the name: one that is copied among the procedures for the
/// name of a procedure, else one that is copied before them, in the unit or one around it.
std::size_t ConsequenceFinder::missingCopybookOf(const Diagnostic &diagnostic) const {
  for (const std::size_t index : missingCopybooks) {
    const SourceRange &copy = diagnostics[index].place;
    if (isInProcedures(copy) != isAboutProcedure(diagnostic.number))
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
  noteDamagedText();
  for (std::size_t i = 0; i < diagnostics.size(); ++i)
    if (isError(diagnostics[i].severity))
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
  for (const std::size_t consequence : consequences) {
    const Diagnostic &one = diagnostics[consequence];
    const bool isRepeated = one.number == cause.number && one.place.file == cause.place.file &&
                            beginOf(one.place) == beginOf(cause.place);
    if (isRepeated)
      continue;
    // The same name in another place.
    if (isAboutName(cause.number) && isAboutName(one.number)) {
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
  if (isAboutCopy(cause.number) && !names.empty()) {
    const std::size_t total = names.size();
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
  if (llvm::count_if(diagnostics,
                     [](const Diagnostic &diagnostic) { return isError(diagnostic.severity); }) > 1)
    ConsequenceFinder(diagnostics, program, damage, lineOf).remove();
}

} // namespace tarka
