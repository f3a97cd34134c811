//===- ParseData.cpp - data division, sections and entries ----------------===//

#include "Parse/ParseData.h"
#include "Parse/Expansion.h"
#include "Parse/ParseFile.h"
#include "Parse/ParseReport.h"
#include "Parse/SourceDiagnostics.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// The division and its sections
//===----------------------------------------------------------------------===//

/// The division is attached to the tree before it is parsed, because conditions in the report
/// section look up condition-names in it.
DataDivision *DataParser::parseDataDivision() {
  SourceRange begin = here();
  DataDivision *division = context.unit->getDataDivision();
  if (!division) {
    division = makeAt<DataDivision>(begin);
    context.unit->setDataDivision(division);
  }
  if (atDivision(Keyword::Data)) {
    takeDivisionHeader(Keyword::Data);
    expectPeriod();
  }
  std::bitset<sectionKinds> seen;
  for (Progress progress(stream); !atUnitBoundary() && !atStrayProcedures(); progress.ensure()) {
    if (accept(TokenKind::Period) || skipEmbeddedBlock())
      continue;
    if (atDataSection()) {
      parseDataSection(*division, seen);
      continue;
    }
    if (peek(1).is(Keyword::Section)) {
      skipForeignSection();
      continue;
    }
    expected("a section of the data division");
    recovery.noteStrayLine();
    Skipping skipping(*this);
    do
      stream.skip();
    while (!atUnitBoundary() && !atDataSection() && !atStrayProcedures() &&
           !peek(1).is(Keyword::Section));
  }
  return complete(division);
}

/// A section that does not belong here is skipped with all its entries.
void DataParser::skipForeignSection() {
  if (at(Keyword::Communication) || atWord("SCREEN"))
    error(DiagnosticId::NotSupported, here(), peek().text + " SECTION");
  else
    error(DiagnosticId::HeaderNotHere, here(), describe(peek()), "data division");
  Skipping skipping(*this);
  do
    stream.skip();
  while (!atUnitBoundary() &&
         (!peek().isFirstOnLine() || (!at(Keyword::Section) && !peek(1).is(Keyword::Section))));
}

/// The section that is next. The sections may come in any order.
void DataParser::parseDataSection(DataDivision &division, std::bitset<sectionKinds> &seen) {
  struct SectionInfo {
    Keyword header;
    StorageType storage;
    llvm::StringLiteral text;
  };
  static constexpr SectionInfo sections[] = {
      {Keyword::WorkingStorage, StorageType::WorkingStorage, "WORKING-STORAGE SECTION"},
      {Keyword::LocalStorage, StorageType::LocalStorage, "LOCAL-STORAGE SECTION"},
      {Keyword::Linkage, StorageType::Linkage, "LINKAGE SECTION"},
      {Keyword::File, StorageType::File, "FILE SECTION"},
      {Keyword::Report, StorageType::Report, "REPORT SECTION"},
  };
  Keyword header = dataSectionAt();
  const SectionInfo &section =
      *llvm::find_if(sections, [&](const SectionInfo &one) { return one.header == header; });

  unsigned kind = static_cast<unsigned>(section.storage);
  const bool isLevel = at(TokenKind::IntegerLiteral) && !peek(1).is(Keyword::Section);
  if (isLevel || at(Keyword::Fd, Keyword::Sd, Keyword::Rd)) {
    // After a DATA DIVISION in the wrong place the section before it goes on.
    if (!isHeaderDisplaced(Keyword::Data))
      missingHeader(header, section.text);
  } else {
    if (!at(header) && !at(Keyword::Section)) {
      error(DiagnosticId::MisspeltHeader, here(), describe(peek()), textOf(header));
      while (!peek(1).is(Keyword::Section))
        stream.skip();
    } else if (at(header) && seen.test(kind) && !isHeaderDisplaced(header)) {
      error(DiagnosticId::HeaderTwice, here(), section.text);
    }
    takeSectionHeader(header);
  }
  seen.set(kind);

  switch (section.storage) {
  case StorageType::File:
    FileSectionParser(context).parseFileSection(division);
    return;
  case StorageType::Report:
    ReportParser(context).parseReportSection(division);
    return;
  case StorageType::LocalStorage:
    parseDataRecords(section.storage,
                     [&](DataDescription *record) { division.addLocalSection(record); });
    return;
  case StorageType::Linkage:
    parseDataRecords(section.storage,
                     [&](DataDescription *record) { division.addLinkSection(record); });
    return;
  default:
    parseDataRecords(section.storage,
                     [&](DataDescription *record) { division.addWorkSection(record); });
  }
}

//===----------------------------------------------------------------------===//
// Records
//===----------------------------------------------------------------------===//

namespace {

/// Builds records from entries by their level numbers: an entry belongs to the nearest one before
/// it that has a lower level. Wrong levels (00, 50 ...) and wrong orders of right ones take the
/// place that their number gives them; the checker reports them.
class RecordBuilder {
public:
  RecordBuilder(DataParser &theParser, DataParser::AddRecord addRecord)
      : parser(theParser), give(addRecord), isTextMissing(theParser.isCopybook()) {}
  ~RecordBuilder() {
    completeUnsound();
    finish();
  }
  RecordBuilder(const RecordBuilder &) = delete;
  RecordBuilder &operator=(const RecordBuilder &) = delete;

  /// Takes the next entry; \p isSound says whether it was parsed without a mistake, and
  /// \p isBehindMissingCopybook whether a copybook that was not found stands before it.
  void add(DataDescription *entry, bool isSound, bool isBehindMissingCopybook) {
    if (entry->getLevelNum() == 1 || entry->getLevelNum() == 77)
      isTextMissing = parser.isCopybook();
    isTextMissing |= isBehindMissingCopybook;
    place(entry, isBehindMissingCopybook);
    completeUnsound();
    if (!isSound)
      unsound = entry;
  }

  /// An entry could not be parsed, perhaps the one that begins a record: a missing beginning of the
  /// record is not reported then.
  void noteLostEntry() { isMisplaced = true; }

  /// The most likely level of an entry whose number is missing: that of the entry before it. Only
  /// where that is a condition-name, an entry that begins with VALUE is another one.
  /// Behind a group without members, an entry has the level of the one after it, \p nextLevel.
  unsigned getAssumedLevel(bool beginsWithValue, unsigned nextLevel) const {
    if (!item || item->getLevelNum() == 66 || item->getLevelNum() == 77)
      return 1;
    const bool isEmptyGroup =
        !item->getPicture() && !item->getUsage() && item->getChildrenSize() == 0;
    if (isEmptyGroup && nextLevel > item->getLevelNum() && nextLevel < 50)
      return nextLevel;
    return beginsWithValue && lastIsCondition ? 88 : item->getLevelNum();
  }

private:
  void place(DataDescription *entry, bool isBehindMissingCopybook) {
    lastIsCondition = entry->getLevelNum() == 88;
    switch (entry->getLevelNum()) {
    case 88:
      addConditionName(entry);
      return;
    case 66:
      addRenames(entry);
      return;
    case 1:
    case 77:
      isMisplaced = false;
      begin(entry);
      return;
    default:
      addSubordinate(entry, isBehindMissingCopybook);
    }
  }

  /// What could not be parsed of an entry may have been its PICTURE. An elementary entry gets one,
  /// so that the checker does not report a missing PICTURE as well.
  void completeUnsound() {
    if (unsound && !unsound->isGroupItem() && !unsound->getPicture() && !unsound->getUsage() &&
        unsound->getLevelNum() != 66 && unsound->getLevelNum() != 88)
      unsound->setPicture(ParserBase::makeAt<ClausePicture>(
          unsound->getRange(), ParserBase::makeAt<Word>(unsound->getRange(), "X", "X")));
    // Without VALUE a condition-name is not a condition-name to the checker.
    if (unsound && unsound->getLevelNum() == 88 && !unsound->getValue()) {
      const SourceRange &place = unsound->getRange();
      auto *phrase = ParserBase::makeAt<PhraseValue>(place);
      phrase->setLiteral1(
          ParserBase::makeAt<FigurativeLiteralExpression>(place, FigurativeType::Zero, nullptr));
      auto *value = ParserBase::makeAt<ClauseValue>(place);
      value->addPhraseValue(phrase);
      unsound->setValue(value);
    }
    unsound = nullptr;
  }

  /// A condition-name belongs to the item that it follows.
  void addConditionName(DataDescription *entry) {
    if (item)
      item->addChildren(entry);
    else if (!isTextMissing)
      parser.rejectCondition(*entry, /*isFirst=*/!std::exchange(hasStrayCondition, true));
  }

  /// Level 66 follows the last item of its record.
  void addRenames(DataDescription *entry) {
    if (!record || record->getLevelNum() == 77) {
      if (!isTextMissing)
        parser.error(DiagnosticId::RenamesWithoutRecord, entry->getRange());
      return;
    }
    record->addChildren(entry);
    item = entry;
    isRenamed = true;
  }

  /// The level by which \p entry takes its place. One that does not exist is most likely that of a
  /// member of the group before it, or of an item like the one before it.
  unsigned levelOf(const DataDescription &entry) const {
    const unsigned level = entry.getLevelNum();
    if ((level > 0 && level < 50) || !item)
      return level;
    const bool isElementary = item->getPicture() || item->getUsage();
    return item->getLevelNum() + (isElementary ? 0 : 1);
  }

  void addSubordinate(DataDescription *entry, bool isBehindMissingCopybook) {
    unsigned level = levelOf(*entry);
    while (!open.empty() && open.back()->getLevelNum() >= level)
      open.pop_back();
    // An elementary item has no members: the group that they belong to is in the missing text.
    if (isBehindMissingCopybook && !open.empty() && !open.back()->hasSubordinateData() &&
        (open.back()->getPicture() || open.back()->getUsage()))
      open.clear();
    if (open.empty() && isTextMissing && level > 1 && level < 50) {
      // The group is in the copybook that was not found, or stands before the COPY of this one.
      const SourceRange &place = entry->getRange();
      DataDescription *group = llvm::isa<ReportDataDescription>(entry)
                                   ? ParserBase::makeAt<ReportDataDescription>(place)
                                   : ParserBase::makeAt<DataDescription>(place);
      group->setLevelNum(1);
      begin(group);
    }
    if (open.empty()) {
      // One message for a record without its beginning, however many items there are in it.
      if (level > 1 && level < 50 && !isMisplaced) {
        parser.reportWithoutRecord(*entry);
        isMisplaced = true;
      }
      begin(entry);
      return;
    }
    if (isRenamed)
      parser.error(DiagnosticId::LevelAfterRenames, entry->getRange(), level);
    isRenamed = false;
    open.back()->addChildren(entry);
    open.push_back(entry);
    item = entry;
  }

  void begin(DataDescription *entry) {
    finish();
    record = item = entry;
    open.assign(1, entry);
    isRenamed = false;
  }

  /// Hands the record over, which is complete.
  void finish() {
    if (record)
      give(record);
    record = nullptr;
  }

  DataParser &parser;
  DataParser::AddRecord give;
  /// Whether entries of the record may be in text that is not there: before a copybook that is read
  /// by itself, or in one that was not found.
  bool isTextMissing;
  DataDescription *record = nullptr;
  /// The last entry that is not a condition-name.
  DataDescription *item = nullptr;
  /// The last entry, if it was parsed with a mistake.
  DataDescription *unsound = nullptr;
  /// The entries that the next one may be subordinate to, of ascending levels.
  llvm::SmallVector<DataDescription *, 16> open;
  bool isMisplaced = false;
  bool isRenamed = false;
  bool lastIsCondition = false;
  bool hasStrayCondition = false;
};

} // namespace

void DataParser::parseRecords(const ClauseSet &clauses, ParseEntry parseEntry, AddRecord add,
                              llvm::function_ref<bool()> atEnd) {
  RecordBuilder records(*this, add);
  // How many entries were read since a wrong one: of lines that are exchanged, the end of that
  // entry may follow the next one.
  constexpr unsigned maxSound = 1;
  unsigned soundEntries = maxSound + 1;
  DataDescription *previous = nullptr;
  for (Progress progress(stream);; progress.ensure()) {
    // What is reported before the first token does not concern the entry.
    SourceRange begin = here();
    const bool isBehindMissingCopybook =
        stream.getSourceDiagnostics().isCopybookMissing(stream.getLastPlace(), begin);
    Recovery::ConstructScope construct(recovery);
    auto addEntry = [&](unsigned assumedLevel) {
      DataDescription *entry = parseEntry(assumedLevel);
      if (construct.hasMistake())
        context.diagnostics.getDamage().add(from(begin).getRange());
      soundEntries = construct.hasMistake() ? 0 : soundEntries + 1;
      previous = entry;
      if (!entry)
        return;
      records.add(entry, !construct.hasMistake(), isBehindMissingCopybook);
      context.previousEntry = entry->getRange();
    };
    // A number may stand for the damaged name in a header.
    const bool isHeader = peek(1).isOneOf(Keyword::Division, Keyword::Section) &&
                          peek(2).isOneOf(TokenKind::Period, TokenKind::EndOfFile);
    if (at(TokenKind::IntegerLiteral) && !isHeader) {
      if (peek().isFirstOnLine() && !recovery.hasReportedHere())
        recovery.resumeReporting();
      addEntry(/*assumedLevel=*/0);
    } else if (accept(TokenKind::Period) || skipEmbeddedBlock()) {
      continue;
    } else if (atEntryBoundary(clauses) || atStrayProcedures() || (atEnd && atEnd())) {
      return;
    } else if (at(Keyword::EndExec) && context.diagnostics.hasErrors()) {
      // Of a block that was reported.
      stream.skip();
    } else if (soundEntries <= maxSound && peek().isFirstOnLine() &&
               clauses.contains(peek().keyword)) {
      // The rest of the entry, which was cut in two.
      skipToEntry(clauses);
    } else if (previous && &clauses == &dataClauses && !peek().isFirstOnLine() &&
               (clauses.contains(peek().keyword) || at(Keyword::Is))) {
      // A period within the entry, of which the rest follows in the same line.
      expected("a level number");
      context.diagnostics.getDamage().add(previous->getRange());
      previous->setRange(
          parseClauses(previous->getRange(), clauses, [&] { return parseDataClause(*previous); }));
      soundEntries = 0;
    } else if (isRestOfEntry()) {
      noteMistake();
      skipToEntry(clauses);
      soundEntries = 0;
    } else {
      expected("a level number");
      recovery.noteStrayLine();
      bool isRecord = peek().isInAreaA() && peek().isInFixedForm();
      if (skipToEntryName(clauses)) {
        const bool beginsWithValue = peek(1).isOneOf(Keyword::Value, Keyword::Values);
        addEntry(isRecord ? 1 : records.getAssumedLevel(beginsWithValue, nextLevel()));
        continue;
      }
      records.noteLostEntry();
      stream.skip();
      skipToEntry(clauses);
    }
  }
}

/// A subordinate entry without its record: the entry before it may have been meant for the record.
void DataParser::reportWithoutRecord(const DataDescription &entry) {
  error(DiagnosticId::LevelWithoutRecord, entry.getRange(), entry.getLevelNum());
  context.diagnostics.getDamage().add(context.previousEntry);
}

/// A condition-name without its item: its name, and the entry before it, which may stand in the
/// wrong place, are not as meant. \p isFirst tells whether it is the first one of the item.
void DataParser::rejectCondition(const DataDescription &entry, bool isFirst) {
  if (isFirst)
    error(DiagnosticId::ConditionWithoutItem, entry.getRange());
  context.diagnostics.getDamage().add(entry.getRange());
  context.diagnostics.getDamage().add(context.previousEntry);
}

void DataParser::parseDataRecords(StorageType storage, AddRecord add,
                                  llvm::function_ref<bool()> atEnd) {
  parseRecords(
      dataClauses, [this](unsigned level) { return parseDataEntry(level); },
      [&](DataDescription *record) {
        record->setStorageType(storage);
        add(record);
      },
      atEnd);
}

//===----------------------------------------------------------------------===//
// Entries
//===----------------------------------------------------------------------===//

/// level-number [data-name | FILLER] clauses.
DataDescription *DataParser::parseDataEntry(unsigned assumedLevel) {
  SourceRange begin = here();
  unsigned level = parseLevelNumber(assumedLevel);
  if (level == 78) {
    error(DiagnosticId::NotSupported, begin, "level 78");
    skipToEntry(dataClauses);
    return nullptr;
  }
  auto *entry = makeAt<DataDescription>(begin);
  entry->setLevelNum(level);

  Word *name = nullptr;
  if (level == 66 || level == 88) {
    // These are nothing without their names.
    name = parseDeclaredWord(level == 88 ? "a condition-name" : "a data-name");
    if (!name) {
      skipToEntry(dataClauses);
      return nullptr;
    }
  } else {
    name = parseEntryName(dataClauses);
    // NAME 01, the words exchanged.
    if (assumedLevel != 0)
      accept(TokenKind::IntegerLiteral);
    // 01 . NAME PIC X: the period is not the end.
    const Token following = peek(1);
    if (!name && at(TokenKind::Period) && !following.isFirstOnLine() &&
        (following.isUserWord() || dataClauses.contains(following.keyword))) {
      expected("a data-name");
      stream.skip();
      name = parseEntryName(dataClauses);
    }
  }
  if (name)
    entry->setDataName(name);
  if (name && context.options.osvs)
    skipCopiedEntryName(level, *name);

  entry->setRange(parseClauses(begin, dataClauses, [&] { return parseDataClause(*entry); }));
  const ClauseOccurs *occurs = entry->getOccurs();
  if (occurs && occurs->getMinExpr() && !occurs->getOdoName() && !recovery.isConstructDamaged())
    error(DiagnosticId::DependingMissing, occurs->getRange());
  return entry;
}

/// The level number that begins the next line that has one; 0 where none is near.
unsigned DataParser::nextLevel() {
  constexpr unsigned maxTokens = 30;
  unsigned level = 0;
  for (unsigned n = 1; n < maxTokens; ++n)
    if (peek(n).isFirstOnLine() && peek(n).is(TokenKind::IntegerLiteral) &&
        !peek(n).spelling.getAsInteger(10, level))
      return level;
  return 0;
}

/// NAME PIC X, FOO NAME PIC X and NAME 01 PIC X are taken for entries. After the name there is a
/// clause, or nothing more.
bool DataParser::skipToEntryName(const ClauseSet &clauses) {
  auto isNameAt = [&](unsigned n) {
    if (!peek(n).isUserWord() && !peek(n).is(Keyword::Filler))
      return false;
    const Token next = peek(n + 1);
    return next.isOneOf(TokenKind::Period, Keyword::Is) || clauses.contains(next.keyword);
  };
  if (isNameAt(0))
    return true;
  if (peek().isUserWord() && peek(1).is(TokenKind::IntegerLiteral) && !peek(1).isFirstOnLine() &&
      clauses.contains(peek(2).keyword)) {
    // The words are exchanged; the name is kept by dropping the number.
    return true;
  }
  if (peek(1).isFirstOnLine() || !isNameAt(1))
    return false;
  stream.skip();
  return true;
}

/// 01 A COPY B: in OS/VS COBOL the text of B may be a whole record, and A takes the place of the
/// name that the record has there.
void DataParser::skipCopiedEntryName(unsigned level, const Word &name) {
  unsigned copiedLevel = 0;
  bool isCopied = at(TokenKind::IntegerLiteral) && here().file != name.getRange().file;
  if (!isCopied || peek().text.getAsInteger(10, copiedLevel) || copiedLevel != level ||
      !peek(1).isUserWord())
    return;
  for (unsigned word = 0; word < 2; ++word) {
    if (context.expansion)
      context.expansion->drop(here());
    stream.skip();
  }
}

/// Levels that the language does not have are the checker's to report. Past two digits they are
/// all the same.
unsigned DataParser::parseLevelNumber(unsigned assumedLevel) {
  constexpr unsigned beyond = 100;
  unsigned level = 0;
  if (assumedLevel != 0)
    return assumedLevel;
  const Token following = peek(1);
  const bool isDoubled = following.is(TokenKind::IntegerLiteral) && !following.isFirstOnLine() &&
                         peek(2).isWord() && !peek(2).isFirstOnLine();
  if (peek().text.getAsInteger(10, level) || level > beyond)
    level = beyond;
  stream.skip();
  if (isDoubled) {
    expected("a data-name");
    stream.skip();
  }
  return level;
}

/// Whether the clause that begins with the keyword needs more words, so that another clause or a
/// period cannot follow at once.
static bool needsOperand(Keyword keyword) {
  switch (keyword) {
  case Keyword::Blank:
  case Keyword::Col:
  case Keyword::Cols:
  case Keyword::Columns:
  case Keyword::Date:
  case Keyword::GroupUsage:
  case Keyword::Occurs:
  case Keyword::Redefines:
  case Keyword::Renames:
  case Keyword::Sign:
  case Keyword::Source:
  case Keyword::Style:
  case Keyword::Sum:
  case Keyword::Type:
  case Keyword::Usage:
  case Keyword::Value:
  case Keyword::Values:
    return true;
  default:
    return false;
  }
}

/// A keyword where the name of the entry may stand begins a clause of an entry without a name. It
/// is taken for the name when there is no such clause, or when the clause would have no operand.
Word *DataParser::parseEntryName(const ClauseSet &clauses) {
  if (!peek().isWord())
    return nullptr;
  if (peek().keyword == Keyword::None || at(Keyword::Filler))
    return takeWord();
  bool isClause = clauses.contains(peek().keyword) || at(Keyword::Is);
  if (isClause && needsOperand(peek().keyword))
    isClause = !peek(1).isOneOf(Keyword::Pic, Keyword::Picture) && !peek(1).is(TokenKind::Period);
  if (isClause)
    return nullptr;
  if (peek().isUserWord())
    return takeWord();
  rejectDeclaredWord("a data-name");
  stream.skip();
  // The name may follow a superfluous word.
  return peek().keyword == Keyword::None && peek().isWord() ? takeWord() : nullptr;
}

} // namespace tarka
