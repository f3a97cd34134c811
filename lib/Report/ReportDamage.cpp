//===- ReportDamage.cpp - what errors make unreliable ---------------------===//

#include "ReportDamage.h"
#include "AST/Program.h"
#include "NumberClasses.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

namespace {

/// The columns of fixed form that hold no program text are the first ones and those from here on.
constexpr unsigned sequenceArea = 6;
constexpr unsigned areaB = 12;
constexpr unsigned maxColumn = 72;
/// A column behind that of any text.
constexpr unsigned maxLineLength = SourceRange::maxColumn;

/// \p line without a sequence number and what is behind column 72.
llvm::StringRef programText(llvm::StringRef line) {
  const bool isNumbered =
      line.size() > sequenceArea && llvm::all_of(line.take_front(sequenceArea), llvm::isDigit);
  return line.take_front(maxColumn).drop_front(isNumbered ? sequenceArea : 0);
}

bool startsWithDigit(llvm::StringRef text) {
  return !text.empty() && llvm::isDigit(text.front());
}

bool isInAreaA(llvm::StringRef line) {
  const std::size_t margin = line.find_first_not_of(' ', sequenceArea);
  return sequenceArea < margin && margin < areaB - 1;
}

/// The file in whose records \p entry is; null for none.
const FileDescription *fileOf(const DataDescription *entry) {
  while (entry && entry->getOwner())
    entry = entry->getOwner();
  return entry ? entry->getFileDescription() : nullptr;
}

/// The file that \p node is or names; null for none.
const FileDescription *fileNamedBy(const Node *node) {
  if (const auto *name = dynamic_cast<const FileIdentifierExpression *>(node))
    return name->getFileDescription();
  return dynamic_cast<const FileDescription *>(node);
}

/// Whether \p line begins with a word of a SELECT, FD or SD entry.
bool isInFileEntry(llvm::StringRef line) {
  static constexpr llvm::StringLiteral words[] = {
      "SELECT", "FD", "SD", "BLOCK", "CODE-SET", "DATA", "LABEL", "LINAGE", "RECORD", "RECORDING"};
  return llvm::is_contained(words, programText(line).ltrim().split(' ').first.upper());
}

bool isTopLevel(const DataDescription &entry) {
  return entry.getLevelNum() == 1 || entry.getLevelNum() == 77;
}

} // namespace

ReportDamage::ReportDamage(const std::vector<Diagnostic> &report,
                           const ProgramPlaces &programPlaces, const DamagedText &damage,
                           LineLookup lookup)
    : diagnostics(report), places(programPlaces), damagedText(damage), lineOf(lookup) {
  noteText();
  for (std::size_t i = 0; i < diagnostics.size(); ++i)
    if (isError(diagnostics[i].severity))
      note(i);
  noteMissingLines();
}

/// Notes the errors of items that have the members of another entry, which is missing.
void ReportDamage::noteMissingLines() {
  for (const auto &[item, index] : entries) {
    const int number = diagnostics[index].number;
    const bool isMissing =
        isMissingLine(number) || (isPictureAgainstUsage(number) && groupWithUsage(*item) != item);
    if (isMissing && ofEmptyGroupBefore(item) == noDiagnostic &&
        places.entryAt(diagnostics[index].place) == item)
      lostNames.push_back(index);
  }
  llvm::sort(lostNames);
  // A FILE STATUS group of the wrong size may have the members of another record.
  for (std::size_t i = 0; i < diagnostics.size(); ++i)
    if (isInFileSection(diagnostics[i].number))
      if (const auto *name = dynamic_cast<const DataIdentifierExpression *>(diagnostics[i].node))
        note(name->getDataDescription(), i);
}

const DataDescription *groupWithUsage(const DataDescription &entry) {
  const DataDescription *group = &entry;
  while (group && !group->getUsage())
    group = group->getOwner();
  return group ? group : &entry;
}

/// Notes what the error makes unreliable.
void ReportDamage::note(std::size_t index) {
  const Diagnostic &diagnostic = diagnostics[index];
  if (isOfFrontEnd(diagnostic.number))
    return;
  operands.try_emplace(diagnostic.node, index);
  if (isAboutCurrencySign(diagnostic.number))
    currencySigns.try_emplace(diagnostic.unit, index);
  if (isFileWithoutRecords(diagnostic.number) && fileWithoutRecords == noDiagnostic)
    fileWithoutRecords = index;
  const auto *item = dynamic_cast<const DataDescription *>(diagnostic.node);
  if (!item || !item->isWritten())
    item = places.entryAt(diagnostic.place);
  // A group that the front end left empty lacks nothing else.
  if (item && isEmptyGroup(diagnostic.number) && !entries.contains(item))
    missingTexts.push_back({index, item->getRange()});
  note(item, index);
  if (item && isGroupWithPicture(diagnostic.number))
    noteRecordBehind(*item, index);
  if (isInFileSection(diagnostic.number))
    if (const auto *name = dynamic_cast<const DataIdentifierExpression *>(diagnostic.node))
      note(fileOf(name->getDataDescription()), index);
  // It may be the one that an FD entry describes by another name.
  if (isSelectOnly(diagnostic.number))
    lostFiles.push_back(index);
  if (isAboutFile(diagnostic.number))
    undescribedFiles.try_emplace(diagnostic.unit, index);
  if (const FileDescription *file = fileNamedBy(diagnostic.node);
      file && isFileWithoutRecords(diagnostic.number))
    missingTexts.push_back({index, file->getRange()});
  note(places.fileAt(diagnostic.place), index);
}

void ReportDamage::note(const DataDescription *entry, std::size_t index) {
  if (!entry)
    return;
  // A wrong picture explains what else is wrong with the entry.
  const auto [first, isNew] = entries.try_emplace(entry, index);
  if (!isNew) {
    const int known = diagnostics[first->second].number;
    if (isWrongShape(diagnostics[index].number) && !isOfFrontEnd(known) && !isWrongShape(known))
      first->second = index;
    return;
  }
  // A wrong value of a condition-name does no harm to its conditional variable.
  if (entry->getLevelNum() == 88 && !isOfFrontEnd(diagnostics[index].number) &&
      !isWrongLevel(diagnostics[index].number))
    return;
  for (const DataDescription *group = entry->getOwner(); group; group = group->getOwner())
    if (!groups.try_emplace(group, index).second)
      break;
}

/// Members that an elementary entry has were meant for the record behind it, most likely.
void ReportDamage::noteRecordBehind(const DataDescription &entry, std::size_t index) {
  const llvm::ArrayRef<const DataDescription *> ofFile = places.entriesOf(entry.getRange().file);
  const auto *next = llvm::find_if(ofFile, [&](const DataDescription *one) {
    return isTopLevel(*one) && beginOf(entry.getRange()) < beginOf(one->getRange());
  });
  if (next != ofFile.end())
    note(*next, index);
}

void ReportDamage::note(const FileDescription *file, std::size_t index) {
  if (file)
    files.try_emplace(file, index);
}

/// Notes the entries and files that the front end could not read as meant, and the declarations
/// that are not in the tree because of it.
void ReportDamage::noteText() {
  for (std::size_t i = 0; i < diagnostics.size(); ++i) {
    const Diagnostic &diagnostic = diagnostics[i];
    if (!isOfFrontEnd(diagnostic.number) ||
        !(isError(diagnostic.severity) || isCutLine(diagnostic.number)))
      continue;
    if (diagnostic.place.beginLine != 0)
      frontEndErrors.try_emplace({diagnostic.place.file, beginOf(diagnostic.place)}, i);
    if (isAboutCopy(diagnostic.number))
      missingTexts.push_back({i, diagnostic.place});
    if (isMissingPeriod(diagnostic.number) && diagnostic.place.beginLine > 1) {
      const llvm::StringRef line = lineOf(diagnostic.place.file, diagnostic.place.beginLine - 1);
      const llvm::StringRef word = programText(line).rtrim().rsplit(' ').second;
      wordsWithoutPeriod.emplace_back(word.upper(), i);
    }
  }
  if (frontEndErrors.empty())
    return;
  for (const auto &[file, ofFile] : places.getEntries())
    for (const DataDescription *entry : ofFile)
      if (const std::size_t cause = at(entry->getRange()); cause != noDiagnostic)
        note(entry, cause);
  for (const auto &[position, part] : places.getFileParts())
    if (const std::size_t cause = at(part.range); cause != noDiagnostic)
      note(part.file, cause);
  for (const auto &[position, index] : frontEndErrors) {
    noteFileBefore(index);
    noteFileBehind(index);
  }
  // What a damaged COPY would copy is missing as well.
  for (const char *verb : {"COPY", "INCLUDE"})
    for (const SourceRange &place : damagedText.findName(verb))
      if (const std::size_t index = nearestFrontEndError(place);
          beginOf(diagnostics[index].place) <= beginOf(place))
        missingTexts.push_back({index, diagnostics[index].place});
  for (const auto &[position, index] : frontEndErrors)
    if (!isAboutCopy(diagnostics[index].number))
      noteLostDeclaration(index);
  noteFilesWithoutRecords();
}

/// Behind the entry of a file, the error means that clauses of the entry are in another line, or
/// that records behind the error belong to something else.
void ReportDamage::noteFileBefore(std::size_t index) {
  constexpr unsigned near = 2;
  const SourceRange &place = diagnostics[index].place;
  const ProgramPlaces::FilePart *part = places.filePartBefore(place);
  if (!part || isMissingCopybook(diagnostics[index].number))
    return;
  const bool hasRecordBehind =
      llvm::any_of(part->file->getRecordDescElements(), [&](const DataDescription *record) {
        return record->getRange().file == place.file &&
               beginOf(place) < beginOf(record->getRange());
      });
  if (hasRecordBehind || place.beginLine <= part->range.endLine + near)
    note(part->file, index);
}

/// The first line of the entry of a file may have come behind the second one, where the error is.
void ReportDamage::noteFileBehind(std::size_t index) {
  const SourceRange &place = diagnostics[index].place;
  const auto next = places.getFileParts().lower_bound({place.file, beginOf(place)});
  if (next != places.getFileParts().end() && next->first.first == place.file &&
      next->second.range.beginLine == place.beginLine + 1)
    note(next->second.file, index);
}

/// The records of a file may be in the text that is missing.
void ReportDamage::noteFilesWithoutRecords() {
  for (const MissingText &text : missingTexts) {
    const ProgramPlaces::FilePart *part = places.filePartBefore(text.place);
    if (part && part->file->getRecordDescSize() == 0)
      note(part->file, text.error);
  }
}

/// Where the front end found no entry, or no procedure header, one declaration may be missing with
/// its name.
void ReportDamage::noteLostDeclaration(std::size_t index) {
  const SourceRange &place = diagnostics[index].place;
  const llvm::StringRef line = lineOf(place.file, place.beginLine);
  if (places.isInProcedures(place)) {
    // Where the period of a header is missing, the next line is wrong.
    if (isInAreaA(line) || isInAreaA(damagedLineBefore(place)))
      lostProcedures.push_back(index);
    // An entry among the procedures belongs to the last record before them.
    if (startsWithDigit(line.ltrim()))
      note(entryBefore(place), index);
    return;
  }
  if (isBeforeData(place)) {
    if (isInFileEntry(line) && !isNameReserved(index))
      lostFiles.push_back(index);
    return;
  }
  const DataDescription *entry = places.entryAt(place);
  const bool isLevelKnown = entry && beginOf(entry->getRange()) < beginOf(place) &&
                            (place.beginLine < entry->getRange().endLine ||
                             place.beginColumn <= entry->getRange().endColumn + 1U);
  // The index-names of a table can be in a line that is missing.
  const bool isOfIndex =
      line.contains_insensitive(" INDEXED ") ||
      (place.beginLine > 1 &&
       lineOf(place.file, place.beginLine - 1).contains_insensitive(" INDEXED ")) ||
      (isMissingPeriod(diagnostics[index].number) && entryBefore(place) &&
       entryBefore(place)->getOccurs());
  if (!isNameKnown(place) || isOfIndex || isMissingRecord(diagnostics[index].number)) {
    if (!isNameReserved(index))
      (isInFileEntry(line) ? lostFiles : lostNames).push_back(index);
  }
  if (!isLevelKnown)
    noteLostLevel(index);
}

/// Whether the error is a reserved word that was meant to be a name, and not the beginning of a
/// clause or a word that is no name in any language.
bool ReportDamage::isNameReserved(std::size_t index) const {
  static constexpr llvm::StringLiteral noNames[] = {
      "AND", "ASSIGN", "BY", "ELSE",   "IF",   "IN", "IS",    "MOVE",
      "NOT", "OF",     "OR", "STATUS", "THEN", "TO", "VALUE", "VALUES"};
  const SourceRange &place = diagnostics[index].place;
  const std::string word =
      sliceColumns(lineOf(place.file, place.beginLine), place.beginColumn, place.endColumn).upper();
  return isReservedWord(diagnostics[index].number) && !beginsLine(place) &&
         !llvm::is_contained(noNames, word) && !llvm::StringRef(word).starts_with("END-");
}

/// Whether \p place is before the data division of its unit, where no data is declared.
bool ReportDamage::isBeforeData(const SourceRange &place) const {
  const SourceUnit *unit = places.unitAt(place);
  const DataDivision *data = unit ? unit->getDataDivision() : nullptr;
  return data && data->getRange().file == place.file && beginOf(place) < beginOf(data->getRange());
}

/// The entry that begins last before \p place.
const DataDescription *ReportDamage::entryBefore(const SourceRange &place) const {
  const llvm::ArrayRef<const DataDescription *> ofFile = places.entriesOf(place.file);
  const auto *next = llvm::lower_bound(
      ofFile, beginOf(place), [](const DataDescription *one, const SourcePosition &position) {
        return beginOf(one->getRange()) < position;
      });
  return next == ofFile.begin() ? nullptr : *std::prev(next);
}

/// Whether the entry that the error at \p place concerns is in the tree with its name: the one that
/// \p place is in, or that begins behind it in the line.
bool ReportDamage::isNameKnown(const SourceRange &place) const {
  // A word that begins with digits can be a level number with the name that was meant.
  auto hasName = [](const DataDescription &entry) {
    const Word *name = entry.getDataName();
    return name && !name->getSpelling().empty() && !llvm::isDigit(name->getSpelling().front());
  };
  const DataDescription *entry = places.entryAt(place);
  if (entry && (place.beginLine < entry->getRange().endLine ||
                place.beginColumn <= entry->getRange().endColumn + 1U))
    return hasName(*entry);
  SourceRange lineEnd = place;
  lineEnd.beginColumn = maxColumn;
  const DataDescription *last = places.entryAt(lineEnd);
  return last && last != entry && hasName(*last);
}

/// The level of an entry is not known, or there is none.
void ReportDamage::noteLostLevel(std::size_t index) {
  const SourceRange &place = diagnostics[index].place;
  // A word or two alone were meant to copy text, most likely.
  llvm::SmallVector<llvm::StringRef, 4> words;
  llvm::SplitString(programText(lineOf(place.file, place.beginLine)), words);
  llvm::erase_if(words, [](llvm::StringRef word) { return llvm::none_of(word, llvm::isAlnum); });
  if (words.size() <= 2 && !words.empty() && words.back().ends_with(".") &&
      llvm::any_of(words.front(), llvm::isAlpha))
    missingTexts.push_back({index, place});
  const llvm::ArrayRef<const DataDescription *> ofFile = places.entriesOf(place.file);
  const auto *next = llvm::lower_bound(
      ofFile, beginOf(place), [](const DataDescription *one, const SourcePosition &position) {
        return beginOf(one->getRange()) < position;
      });
  // The group before it may be empty for want of it, and the entries behind it up to the next
  // record may belong to another group.
  if (next != ofFile.begin())
    if (const DataDescription *before = *std::prev(next);
        before->getChildrenSize() == 0 && !before->getPicture())
      note(before, index);
  for (; next != ofFile.end(); ++next) {
    const bool isNextRecord = isTopLevel(**next) && beginOf(place) < beginOf((*next)->getRange());
    if (isNextRecord || !inDoubt.insert(*next).second)
      break;
    note(*next, index);
  }
}

/// The line before \p place, comments left out, where its text is damaged; else empty.
llvm::StringRef ReportDamage::damagedLineBefore(const SourceRange &place) const {
  constexpr unsigned maxLines = 5;
  for (unsigned n = 1; n <= maxLines && n < place.beginLine; ++n) {
    const unsigned number = place.beginLine - n;
    const llvm::StringRef line = lineOf(place.file, number);
    const bool isComment = line.size() > sequenceArea && line[sequenceArea] == '*';
    if (programText(line).trim().empty() || isComment)
      continue;
    return damagedText.contains({place.file, number, 1, number, maxColumn}) ? line : "";
  }
  return "";
}

/// Whether no other word stands before \p place in its line.
bool ReportDamage::beginsLine(const SourceRange &place) const {
  const llvm::StringRef before =
      sliceColumns(lineOf(place.file, place.beginLine), 1, place.beginColumn - 1);
  return llvm::none_of(programText(before), llvm::isAlnum);
}

/// Whether a level number alone stands before \p place in its line: an entry, wherever it is.
bool ReportDamage::isBehindLevel(const SourceRange &place) const {
  const llvm::StringRef before =
      sliceColumns(lineOf(place.file, place.beginLine), 1, place.beginColumn - 1);
  const llvm::StringRef level = programText(before).trim();
  return !level.empty() && level.size() <= 2 && llvm::all_of(level, llvm::isDigit);
}

/// The error of the front end that damage at \p place comes from: the last one that begins before
/// the end of it, else the next one.
std::size_t ReportDamage::nearestFrontEndError(const SourceRange &place) const {
  if (frontEndErrors.empty())
    return noDiagnostic;
  auto next = frontEndErrors.upper_bound({place.file, {place.endLine, place.endColumn}});
  if (next != frontEndErrors.begin() && std::prev(next)->first.first == place.file)
    return std::prev(next)->second;
  return next != frontEndErrors.end() ? next->second : frontEndErrors.begin()->second;
}

std::size_t ReportDamage::at(const SourceRange &place) const {
  if (!damagedText.contains(place))
    return noDiagnostic;
  const std::size_t cause = nearestFrontEndError(place);
  return cause == noDiagnostic || isMissingCopybook(diagnostics[cause].number) ? noDiagnostic
                                                                               : cause;
}

std::size_t ReportDamage::between(const SourceRange &begin, const SourceRange &end) const {
  for (auto next = frontEndErrors.lower_bound({begin.file, beginOf(begin)});
       next != frontEndErrors.end() && next->first.first == begin.file &&
       next->first.second <= SourcePosition(end.endLine, end.endColumn);
       ++next)
    if (!isMissingCopybook(diagnostics[next->second].number))
      return next->second;
  return noDiagnostic;
}

std::size_t ReportDamage::inLineOf(const SourceRange &place) const {
  const SourceRange line(place.file, place.beginLine, 1, place.beginLine, maxLineLength);
  const std::size_t cause = between(line, line);
  if (cause == noDiagnostic)
    return noDiagnostic;
  // Another sentence of the line is a statement of its own.
  const llvm::StringRef text = sliceColumns(
      lineOf(place.file, place.beginLine), diagnostics[cause].place.beginColumn, place.beginColumn);
  return text.contains(". ") ? noDiagnostic : cause;
}

std::size_t ReportDamage::ofCutWord(const SourceRange &place) const {
  if (place.endColumn != maxColumn)
    return noDiagnostic;
  const SourceRange line(place.file, place.beginLine, 1, place.beginLine, maxLineLength);
  const llvm::StringRef behind =
      sliceColumns(lineOf(place.file, place.beginLine), maxColumn + 1, maxColumn + 1);
  return behind.trim().empty() ? noDiagnostic : between(line, line);
}

std::size_t ReportDamage::ofSpecialNames(const SourceUnit *unit) const {
  for (; unit; unit = unit->getParent()) {
    const InputOutputSection *behind = unit->getInputOutputSection();
    const std::size_t copybook = missingCopybookWhere([&](const SourceRange &place) {
      return places.unitAt(place) == unit && isBeforeData(place) &&
             !(behind && beginOf(behind->getRange()) < beginOf(place));
    });
    if (copybook != noDiagnostic)
      return copybook;
    const EnvironmentDivision *division = unit->getEnvironmentDivision();
    const ConfigurationSection *section = division ? division->getConfigurationSection() : nullptr;
    const ParaSpecialNames *names = section ? section->getSpecialNames() : nullptr;
    // Without the paragraph its header may be what could not be read.
    if (!names && !division)
      continue;
    const SourceRange &range = names ? names->getRange() : division->getRange();
    // The paragraph may have ended too early.
    SourceRange end(range.file, range.endLine, 1, range.endLine + 1, maxLineLength);
    if (!names && behind)
      end = SourceRange(range.file, 1, 1, behind->getRange().beginLine, 1);
    if (const std::size_t cause = between(range, end); cause != noDiagnostic)
      return cause;
  }
  return noDiagnostic;
}

std::size_t ReportDamage::ofProcedureHeader(const SourceUnit *caller) const {
  for (const auto &[position, index] : frontEndErrors) {
    const SourceRange &place = diagnostics[index].place;
    const llvm::StringRef line = programText(lineOf(place.file, place.beginLine));
    // An entry among the procedures: its line and that of the header are exchanged.
    const bool isEntry = places.isInProcedures(place) && startsWithDigit(line.ltrim());
    const bool isOfHeader = line.contains_insensitive("PROCEDURE DIVISION") ||
                            line.ltrim().upper().starts_with("PROCEDURE") || isEntry ||
                            (isMissingHeader(diagnostics[index].number) &&
                             llvm::StringRef(diagnostics[index].text).contains("PROCEDURE"));
    if (isOfHeader && places.unitAt(place) != caller)
      return index;
  }
  return noDiagnostic;
}

/// The first error of a missing copybook whose place \p isMeant.
std::size_t
ReportDamage::missingCopybookWhere(llvm::function_ref<bool(const SourceRange &)> isMeant) const {
  for (const MissingText &text : missingTexts)
    if (isMissingCopybook(diagnostics[text.error].number) && isMeant(text.place))
      return text.error;
  return noDiagnostic;
}

std::size_t ReportDamage::ofMissingCopybookIn(const DataDescription *entry) const {
  if (missingTexts.empty() || !entry->isWritten())
    return noDiagnostic;
  const SourceRange &range = entry->getRange();
  const DataDescription *previous = entryBefore(range);
  // A group without an entry of its own begins at its first member; the copybook is before that.
  SourcePosition begin = beginOf(range);
  const auto &members = entry->getChildrenElements();
  if (!members.empty() && beginOf(members.front()->getRange()) == begin)
    begin = previous ? beginOf(previous->getRange()) : SourcePosition();
  const llvm::ArrayRef<const DataDescription *> ofFile = places.entriesOf(range.file);
  const auto *next = llvm::upper_bound(
      ofFile, beginOf(range), [](const SourcePosition &place, const DataDescription *other) {
        return place < beginOf(other->getRange());
      });
  next = std::find_if(next, ofFile.end(), [&](const DataDescription *other) {
    return other->getLevelNum() <= entry->getLevelNum() || other->getLevelNum() == 77;
  });
  return missingCopybookWhere([&](const SourceRange &place) {
    return place.file == range.file && begin < beginOf(place) &&
           places.unitAt(place) == places.unitAt(range) && !places.isInProcedures(place) &&
           (next == ofFile.end() || beginOf(place) < beginOf((*next)->getRange()));
  });
}

std::size_t ReportDamage::ofMissingCopybookIn(const SourceRange &range) const {
  return missingCopybookWhere([&](const SourceRange &place) {
    return place.file == range.file && range.beginLine <= place.beginLine &&
           place.endLine <= range.endLine;
  });
}

std::size_t ReportDamage::ofMissingCopybookIn(const FileDescription *file) const {
  return missingCopybookWhere([&](const SourceRange &place) {
    const ProgramPlaces::FilePart *part = places.filePartBefore(place);
    return part && part->file == file && !isBeforeData(place) &&
           places.unitAt(place) == places.unitAt(part->range);
  });
}

std::size_t ReportDamage::ofOperand(const Node *node) const {
  const auto found = operands.find(node);
  return node && found != operands.end() ? found->second : noDiagnostic;
}

std::size_t ReportDamage::withinEntry(const DataDescription *entry, std::size_t index) const {
  for (const auto *map : {&entries, &groups}) {
    const auto own = map->find(entry);
    if (own == map->end() || own->second == index)
      continue;
    const int number = diagnostics[own->second].number;
    if (isOfFrontEnd(number) ||
        (map == &entries && (isWrongShape(number) || isWrongLevel(number))) ||
        (isWrongRedefinition(number) && isEmptyGroup(diagnostics[index].number)) ||
        (map == &groups && isWrongLevel(number) && isWrongHierarchy(diagnostics[index].number)))
      return own->second;
  }
  return noDiagnostic;
}

std::size_t ReportDamage::ofGroupWithPicture(const DataDescription *entry) const {
  for (const DataDescription *group = entry->getOwner(); group; group = group->getOwner())
    if (const auto found = entries.find(group);
        found != entries.end() && isWrongShape(diagnostics[found->second].number))
      return found->second;
  return noDiagnostic;
}

std::size_t ReportDamage::ofEmptyGroupBefore(const DataDescription *entry) const {
  const auto found = entries.find(entryBefore(entry->getRange()));
  const bool isEmpty = found != entries.end() && isEmptyGroup(diagnostics[found->second].number);
  return isEmpty ? found->second : noDiagnostic;
}

std::size_t ReportDamage::ofDamagedEntryBefore(const DataDescription *entry) const {
  const DataDescription *before = entryBefore(entry->getRange());
  return before ? between(before->getRange(), entry->getRange()) : noDiagnostic;
}

std::size_t ReportDamage::ofRecordNear(const DataDescription *entry) const {
  constexpr unsigned near = 3;
  SourceRange around = entry->getRange();
  around.beginLine = std::max(around.beginLine, 2U) - 1;
  around.beginColumn = 1;
  around.endLine = around.endLine + near;
  const std::size_t cause = between(around, around);
  return cause != noDiagnostic && isMissingRecord(diagnostics[cause].number) ? cause : noDiagnostic;
}

std::size_t ReportDamage::ofGroupWithPictureBefore(const DataDescription *entry) const {
  const DataDescription *before = entryBefore(entry->getRange());
  return before ? ofGroupWithPicture(before) : noDiagnostic;
}

/// Whether the word at \p place goes on past column 72, as it does where two lines were joined.
static bool isPastMargin(const SourceRange &place) {
  return place.beginColumn <= maxColumn && maxColumn <= place.endColumn;
}

std::size_t ReportDamage::ofDeclaration(llvm::StringRef name, bool isProcedure) {
  auto &known = isProcedure ? damagedProcedures : damagedNames;
  const auto [answer, isNew] = known.try_emplace(name.upper(), noDiagnostic);
  if (isNew)
    for (const SourceRange &place : damagedText.findName(name))
      if (places.isInProcedures(place)
              ? (isProcedure ? beginsLine(place) || isPastMargin(place) : isBehindLevel(place))
              : !isProcedure) {
        answer->second = nearestFrontEndError(place);
        break;
      }
  return answer->second;
}

/// The name in the key of an undeclared name.
static llvm::StringRef nameOfKey(llvm::StringRef key) {
  return key.split(' ').second;
}

std::size_t ReportDamage::takeLostName(const Diagnostic &diagnostic, const std::string &key) {
  if (const auto known = foundNames.find(key); known != foundNames.end())
    return known->second;
  for (const auto &[word, index] : wordsWithoutPeriod)
    if (const llvm::StringRef name = nameOfKey(key);
        !name.empty() && (word.starts_with(name) || (word.size() > 3 && name.starts_with(word))))
      return index;
  auto &lost = isAboutProcedure(diagnostic.number) ? lostProcedures
               : isAboutFile(diagnostic.number)    ? lostFiles
                                                   : lostNames;
  if (lost.empty())
    return noDiagnostic;
  const std::size_t cause = lost.front();
  lost.erase(lost.begin());
  foundNames[key] = cause;
  return cause;
}

std::size_t ReportDamage::of(const DataDescription *entry, std::size_t except) const {
  const auto inside = groups.find(entry);
  return inside != groups.end() && inside->second != except ? inside->second
                                                            : ofEntryOrGroup(entry, except);
}

std::size_t ReportDamage::ofEntryOrGroup(const DataDescription *entry, std::size_t except) const {
  for (; entry; entry = entry->getOwner())
    if (const auto found = entries.find(entry); found != entries.end() && found->second != except)
      return found->second;
  return noDiagnostic;
}

std::size_t ReportDamage::ofUndescribedFile(const SourceUnit *unit) const {
  for (; unit; unit = unit->getParent())
    if (const auto found = undescribedFiles.find(unit); found != undescribedFiles.end())
      return found->second;
  return noDiagnostic;
}

std::size_t ReportDamage::ofCurrencySigns(const SourceUnit *unit) const {
  for (; unit; unit = unit->getParent())
    if (const auto found = currencySigns.find(unit); found != currencySigns.end())
      return found->second;
  return noDiagnostic;
}

std::size_t ReportDamage::of(const FileDescription *file, std::size_t except) const {
  if (auto found = files.find(file); found != files.end() && found->second != except)
    return found->second;
  for (const DataDescription *record : file->getRecordDescElements())
    if (const std::size_t cause = of(record, except); cause != noDiagnostic)
      return cause;
  if (file->getRecordDescSize() != 0)
    return noDiagnostic;
  // Its records may have come to another file.
  constexpr unsigned near = 3;
  SourceRange behind = file->getRange();
  behind.endLine = behind.endLine + near;
  return between(file->getRange(), behind);
}

std::size_t ReportDamage::missingTextFor(const Diagnostic &diagnostic) const {
  for (const auto &[index, place] : missingTexts) {
    if (places.isInProcedures(place) != isAboutProcedure(diagnostic.number))
      continue;
    // A record or a group has no files.
    if (isAboutFile(diagnostic.number) && !isOfFrontEnd(diagnostics[index].number))
      continue;
    // Of a copybook within another one it is not known what copies it.
    for (const SourceUnit *unit = diagnostic.unit; unit; unit = unit->getParent())
      if (place.file != unit->getRange().file || places.isInUnit(place, *unit))
        return index;
  }
  return noDiagnostic;
}

} // namespace tarka
