//===- Scope.cpp - which names a program can see --------------------------===//

#include "AST/Scope.h"
#include "AST/DataTree.h"
#include "llvm/ADT/STLExtras.h"
#include <algorithm>
#include <iterator>

namespace tarka {

//===----------------------------------------------------------------------===//
// Data items
//===----------------------------------------------------------------------===//

static bool isConditionName(const DataDescription &entry) {
  return entry.getLevelNum() == 88;
}

bool isGlobal(const DataDescription &entry) {
  // The checks move condition-names from the children of an item to a list of their own.
  const DataDescription *item = isConditionName(entry) ? entry.getOwner() : &entry;
  if (!item)
    return false;
  if (item->getRootDesc()->getGlobal())
    return true;
  const FileDescription *file = item->getFileDescription();
  const ReportDescription *report = item->getReportDescription();
  return (file && file->getGlobal()) || (report && report->getGlobal());
}

/// The first entry of the name that the program itself declares; null when it declares none.
static DataDescription *firstItemOf(const SourceUnit &unit, const std::string *name) {
  DataDivision *division = unit.getDataDivision();
  return division ? division->findFirstItemByInternedName(name) : nullptr;
}

/// Whether \p unit declares entries of the name that the asking program can see; \p isOuter when
/// the asking program is nested in \p unit.
static bool declaresItem(const SourceUnit &unit, const std::string *name, bool isOuter) {
  const DataDescription *first = firstItemOf(unit, name);
  return first && (!isOuter || isGlobal(*first));
}

const SourceUnit *Scope::declarerOf(const std::string *name) const {
  const SourceUnit *one = unit;
  while (one && !declaresItem(*one, name, one != unit))
    one = one->getParent();
  return one;
}

Homonyms Scope::findItems(const std::string *name) const {
  const SourceUnit *declarer = declarerOf(name);
  if (!declarer)
    return {};
  DataDivision *division = declarer->getDataDivision();
  return {division, division->findItemByInternedName(name)};
}

DataDescription *Scope::findReferenced(const NodeList<Word> &words) const {
  const Homonyms homonyms = findItems(&words.front()->getWordData());
  if (!homonyms)
    return nullptr;
  if (words.size() == 1)
    return matchUnqualified(homonyms, /*prefersReportItem=*/false).entry;
  const auto matches = matchQualified(homonyms, words);
  return matches.empty() ? nullptr : matches.back().entry;
}

bool Scope::isConditionName(const std::string *name) const {
  if (const DataDescription *only = findOnlyOwnItem(name))
    return tarka::isConditionName(*only);
  Homonyms found = findItems(name);
  return found && llvm::any_of(*found.entries, [](const DataDescription *entry) {
           return tarka::isConditionName(*entry);
         });
}

DataDescription *Scope::findRegister(const std::string *name) const {
  for (const SourceUnit *one = unit; one; one = one->getParent())
    if (DataDescription *found = firstItemOf(*one, name))
      return found;
  return nullptr;
}

//===----------------------------------------------------------------------===//
// Files and reports
//===----------------------------------------------------------------------===//

namespace {

template <typename Description> using Found = llvm::SmallVector<Description *, 2>;

/// Those of \p all that the asking program can see and \p isWanted accepts.
template <typename Description, typename Range, typename Predicate>
Found<Description> visibleOf(Range &&all, bool isOuter, Predicate isWanted) {
  Found<Description> found;
  for (Description *one : all)
    if ((!isOuter || one->getGlobal()) && isWanted(*one))
      found.push_back(one);
  return found;
}

Found<FileDescription> visibleFilesOf(const SourceUnit &unit, const std::string *name,
                                      bool isOuter) {
  DataDivision *division = unit.getDataDivision();
  if (!division)
    return {};
  return visibleOf<FileDescription>(division->findFiles(*name), isOuter,
                                    [](const FileDescription &) { return true; });
}

} // namespace

llvm::SmallVector<FileDescription *, 2> Scope::findFiles(const std::string *name) const {
  for (const SourceUnit *one = unit; one; one = one->getParent())
    if (auto found = visibleFilesOf(*one, name, one != unit); !found.empty())
      return found;
  return {};
}

bool Scope::isFileName(const std::string *name) const {
  for (const SourceUnit *one = unit; one; one = one->getParent()) {
    const bool isOuter = one != unit;
    const InputOutputSection *io = isOuter ? nullptr : one->getInputOutputSection();
    if (io && io->findFileControlByName(Word(SourceRange(), name, name)))
      return true;
    if (!visibleFilesOf(*one, name, isOuter).empty())
      return true;
    if (declaresItem(*one, name, isOuter))
      return false;
  }
  return false;
}

llvm::SmallVector<FileDescription *, 2> Scope::findFilesWithLinage() const {
  auto hasLinage = [](const FileDescription &file) { return file.getLinage() != nullptr; };
  for (const SourceUnit *one = unit; one; one = one->getParent())
    if (DataDivision *division = one->getDataDivision())
      if (auto found = visibleOf<FileDescription>(division->getFileSectionElements(), one != unit,
                                                  hasLinage);
          !found.empty())
        return found;
  return {};
}

ReportDescription *Scope::findReport(const std::string *name) const {
  for (const SourceUnit *one = unit; one; one = one->getParent())
    if (DataDivision *division = one->getDataDivision())
      for (ReportDescription *report : division->findReports(*name))
        if (one == unit || report->getGlobal())
          return report;
  return nullptr;
}

llvm::SmallVector<ReportDescription *, 2> Scope::findReports() const {
  for (const SourceUnit *one = unit; one; one = one->getParent())
    if (DataDivision *division = one->getDataDivision())
      if (auto found =
              visibleOf<ReportDescription>(division->getReportSectionElements(), one != unit,
                                           [](const ReportDescription &) { return true; });
          !found.empty())
        return found;
  return {};
}

//===----------------------------------------------------------------------===//
// SPECIAL-NAMES
//===----------------------------------------------------------------------===//

static bool isFound(const void *clause) {
  return clause;
}

static bool isFound(const NodeList<ClauseEnvName> &clauses) {
  return !clauses.empty();
}

/// What \p find gives for \p name in the nearest program that has a clause for it, and that
/// program; both empty when there is none. The parser calls this for every operand, mostly in
/// programs without SPECIAL-NAMES.
template <typename Clause>
std::pair<Clause, SourceUnit *>
Scope::findSpecialName(const std::string *name,
                       Clause (ParaSpecialNames::*find)(const Word *name) const) const {
  for (SourceUnit *one = unit; one; one = one->getParent()) {
    const ParaSpecialNames *specialNames = one->getSpecialNames();
    if (!specialNames)
      continue;
    const Word word(SourceRange(), name, name);
    if (Clause found = (specialNames->*find)(&word); isFound(found))
      return {found, one};
  }
  return {};
}

ClauseAlphabet *Scope::findAlphabet(const std::string *name) const {
  return findSpecialName(name, &ParaSpecialNames::findClauseAlphabetByWord).first;
}

ClauseClass *Scope::findClass(const std::string *name) const {
  return findSpecialName(name, &ParaSpecialNames::findClauseClassByWord).first;
}

ClauseEnvName *Scope::findMnemonicName(const std::string *name) const {
  return findSpecialName(name, &ParaSpecialNames::findClauseEnvNameByWord).first;
}

ClauseSymbolic *Scope::findSymbolicCharacter(const std::string *name) const {
  return findSpecialName(name, &ParaSpecialNames::findClauseSymbolicByWord).first;
}

/// Whether an item of a program between the asking one and \p declaring hides the name.
bool Scope::isHiddenIn(const SourceUnit *declaring, const std::string *name) const {
  for (const SourceUnit *one = unit; one != declaring; one = one->getParent())
    if (declaresItem(*one, name, one != unit))
      return true;
  return false;
}

bool Scope::isSymbolicCharacter(const std::string *name) const {
  auto [clause, declaring] = findSpecialName(name, &ParaSpecialNames::findClauseSymbolicByWord);
  return clause && !isHiddenIn(declaring, name);
}

bool Scope::isSwitchName(const std::string *name) const {
  auto [clauses, declaring] = findSpecialName(name, &ParaSpecialNames::findClauseEnvNameByCondName);
  return !clauses.empty() && !isHiddenIn(declaring, name);
}

//===----------------------------------------------------------------------===//
// All names
//===----------------------------------------------------------------------===//

bool Scope::isDeclared(const std::string *name) const {
  return isItem(name) || isFileName(name) || findMnemonicName(name) || isSwitchName(name) ||
         isSymbolicCharacter(name) || findReport(name);
}

/// Calls \p visit for the records of every section, in the order of the index of names.
template <typename Visitor> static void forEachRecord(DataDivision &division, Visitor visit) {
  for (FileDescription *file : division.getFileSectionElements())
    llvm::for_each(file->getRecordDescElements(), visit);
  if (std::list<DataDescription *> *records = division.getWorkSection())
    llvm::for_each(*records, visit);
  llvm::for_each(division.getLocalSectionElements(), visit);
  llvm::for_each(division.getLinkSectionElements(), visit);
  for (ReportDescription *report : division.getReportSectionElements())
    llvm::for_each(report->getRecordListElements(), visit);
}

void Scope::forEachItem(llvm::function_ref<void(DataDescription *)> visit) const {
  for (const SourceUnit *one = unit; one; one = one->getParent()) {
    DataDivision *division = one->getDataDivision();
    if (!division)
      continue;
    forEachRecord(*division, [&](DataDescription *record) {
      forEachEntry(record, [&](DataDescription *entry) {
        const Word *name = entry->getDataName();
        if (name && declarerOf(&name->getWordData()) == one)
          visit(entry);
      });
    });
  }
}

void Scope::forEachFile(llvm::function_ref<void(FileDescription *)> visit) const {
  for (const SourceUnit *one = unit; one; one = one->getParent())
    if (DataDivision *division = one->getDataDivision())
      for (FileDescription *file : division->getFileSectionElements())
        if (llvm::is_contained(findFiles(&file->getFileName()->getWordData()), file))
          visit(file);
}

void Scope::forEachSpecialName(llvm::function_ref<void(const Word *)> visit) const {
  auto visitAny = [&](const Word *name) {
    if (name)
      visit(name);
  };
  for (const SourceUnit *one = unit; one; one = one->getParent()) {
    const ParaSpecialNames *names = one->getSpecialNames();
    if (!names)
      continue;
    for (const ClauseEnvName *clause : names->getEnvNameListElements()) {
      visitAny(clause->getMnemonicName());
      visitAny(clause->getOnCondition());
      visitAny(clause->getOffCondition());
    }
    for (const ClauseAlphabet *clause : names->getAlphabetListElements())
      visitAny(clause->getAlphabetName());
    for (const ClauseClass *clause : names->getClassListElements())
      visitAny(clause->getClassName());
    for (const ClauseSymbolic *clause : names->getSymbolicListElements())
      for (const PhrsSymbolic *phrase : clause->getSymbolicListElements())
        for (const Word *name : phrase->getSourceListElements())
          visitAny(name);
  }
}

//===----------------------------------------------------------------------===//
// Qualified names
//===----------------------------------------------------------------------===//

namespace {

/// The entries that the qualifiers in \p words can fit: of many, those that are below the
/// qualifier that has the fewest of them below it.
llvm::SmallVector<DataDescription *, 8> narrow(const Homonyms &homonyms,
                                               const NodeList<Word> &words) {
  constexpr std::size_t few = 8;
  if (homonyms.entries->size() <= few)
    return {homonyms.entries->begin(), homonyms.entries->end()};
  DataDivision &division = *homonyms.division;
  llvm::ArrayRef<DataDescription *> best;
  for (auto qualifier = std::next(words.begin()); qualifier != words.end(); ++qualifier) {
    const std::string &text = (*qualifier)->getWordData();
    llvm::ArrayRef<DataDescription *> below =
        division.findItemByQualifiedName(words.front()->getWordData(), text);
    if (qualifier == std::next(words.begin()) || below.size() < best.size())
      best = below;
    // What follows the name of a file or report need not fit.
    if (division.isFileOrReportName(text))
      break;
  }
  return {best.begin(), best.end()};
}

/// The name of the FD or RD that a record of the file or report section can be qualified by; null
/// for entries of other sections.
const std::string *ownerName(const DataDescription &entry) {
  switch (entry.getStorageType()) {
  case StorageType::File:
    return &entry.getFileDescription()->getFileName()->getWordData();
  case StorageType::Report:
    return &entry.getReportDescription()->getReportName()->getWordData();
  default:
    return nullptr;
  }
}

/// How an entry fits the qualifiers of a reference.
enum class Fit {
  None,
  Ancestors,   ///< they name groups around it
  Owner,       ///< groups, and in the end the file or report
  RecordOwner, ///< a record, whose first qualifier is the file or report
};

using WordIterator = NodeList<Word>::const_iterator;

/// How \p entry fits the qualifiers in [\p qualifier, \p end), nearest first.
Fit fit(const DataDescription &entry, WordIterator qualifier, WordIterator end) {
  const bool isCondition = isConditionName(entry);
  const DataDescription *group = isCondition ? entry.getCondNameParent() : entry.getParent();
  if (!group && !isCondition)
    if (const std::string *owner = ownerName(entry))
      return (*qualifier)->getWordData() == *owner ? Fit::RecordOwner : Fit::None;
  for (; group; group = group->getParent()) {
    if (group->getDataName() && group->getDataName()->getWordData() == (*qualifier)->getWordData())
      if (++qualifier == end)
        return Fit::Ancestors;
  }
  const std::string *owner = ownerName(entry);
  return owner && (*qualifier)->getWordData() == *owner ? Fit::Owner : Fit::None;
}

bool isReportItem(const DataDescription *entry) {
  return entry->getStorageType() == StorageType::Report;
}

} // namespace

llvm::SmallVector<QualifiedMatch, 2> matchQualified(const Homonyms &homonyms,
                                                    const NodeList<Word> &words) {
  llvm::SmallVector<QualifiedMatch, 2> matches;
  for (DataDescription *entry : narrow(homonyms, words)) {
    const Fit how = fit(*entry, std::next(words.begin()), words.end());
    if (how == Fit::None)
      continue;
    matches.push_back({entry, how != Fit::Ancestors});
    if (how == Fit::RecordOwner)
      break;
  }
  return matches;
}

//===----------------------------------------------------------------------===//
// Unqualified names
//===----------------------------------------------------------------------===//

UnqualifiedMatch matchUnqualified(const Homonyms &homonyms, bool prefersReportItem) {
  const std::list<DataDescription *> &entries = *homonyms.entries;
  if (entries.size() == 1)
    return {entries.front(), true};

  const auto end = entries.end();
  const auto firstOther = std::find_if_not(entries.begin(), end, isReportItem);
  if (firstOther == end)
    return {entries.back(), true};

  // Of many entries most references look at two.
  const auto firstReportItem = prefersReportItem ? llvm::find_if(entries, isReportItem) : end;
  const bool takesReportItem = firstReportItem != end;
  const auto chosen = takesReportItem ? firstReportItem : firstOther;
  const bool isUnique = std::none_of(std::next(chosen), end, [&](const DataDescription *entry) {
    return isReportItem(entry) == takesReportItem;
  });
  return {*chosen, isUnique};
}

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

namespace {

/// The name as it is looked up: without the quotes of a literal, in upper case.
const std::string *programKey(llvm::StringRef name) {
  return &internString(withoutQuotes(name).upper());
}

bool isCommon(const SourceUnit &unit) {
  return unit.getIDDivision()->getProgramIDPara()->getType() == ProgramIdType::Common;
}

} // namespace

ProgramNames::ProgramNames(const Program &program) {
  llvm::SmallVector<SourceUnit *, 16> units;
  llvm::append_range(units, program.getSourceUnitListElements());
  for (std::size_t next = 0; next < units.size(); ++next) {
    SourceUnit *unit = units[next];
    add(*unit);
    llvm::append_range(units, unit->getNestedListElements());
  }
}

void ProgramNames::add(SourceUnit &unit) {
  programs.try_emplace({unit.getParent(), programKey(unit.getSourceUnitName())}, &unit);
}

SourceUnit *ProgramNames::find(const SourceUnit *caller, llvm::StringRef name) const {
  const std::string *key = programKey(name);
  for (const SourceUnit *around = caller; around; around = around->getParent())
    if (SourceUnit *found = programs.lookup({around, key});
        found && (around == caller || isCommon(*found)))
      return found;
  return programs.lookup({nullptr, key});
}

} // namespace tarka
