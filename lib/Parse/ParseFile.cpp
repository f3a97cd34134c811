//===- ParseFile.cpp - data division, file section ------------------------===//

#include "Parse/ParseFile.h"
#include "llvm/ADT/StringSwitch.h"

namespace tarka {

static constexpr Keyword fileKeywords[] = {Keyword::Block,    Keyword::CodeSet,  Keyword::Data,
                                           Keyword::External, Keyword::Global,   Keyword::Label,
                                           Keyword::Linage,   Keyword::Record,   Keyword::Report,
                                           Keyword::Value,    Keyword::Recording};
static constexpr Keyword fileSynonyms[] = {Keyword::Reports, Keyword::Totaled, Keyword::Totaling};
static constexpr Keyword fileInnerWords[] = {Keyword::Record};
static constexpr ClauseSet fileClauses{
    "a file description entry", fileKeywords, fileSynonyms, fileInnerWords,
    /*beginsWithName=*/false,
    /*endsAtLevelNumber=*/true};

void FileSectionParser::parseFileSection(DataDivision &division) {
  // One message for records without a file, however many there are.
  bool isReported = false;
  for (Progress progress(stream);; progress.ensure()) {
    if (at(Keyword::Fd, Keyword::Sd)) {
      parseFile(division);
    } else if (at(TokenKind::IntegerLiteral)) {
      const auto &files = division.getFileSectionElements();
      if (isHeaderDisplaced(Keyword::File) && !files.empty()) {
        FileDescription *file = files.back();
        parseFileRecords([file](DataDescription *record) { file->addRecordDesc(record); });
        continue;
      }
      if (!isReported)
        error(DiagnosticId::RecordWithoutFile, here());
      isReported = true;
      parseNamelessRecords(here(), FileDescType::File);
      context.namelessFiles.back().isWithoutEntry = division.getFileSectionElements().empty();
    } else if (accept(TokenKind::Period) || skipEmbeddedBlock()) {
      continue;
    } else if (atEntryBoundary(fileClauses) || atStrayProcedures()) {
      nameFiles(division);
      return;
    } else if (isRestOfEntry()) {
      noteMistake();
      skipToEntry(fileClauses);
    } else {
      expected("FD or SD");
      isReported = true;
      if (const std::optional<unsigned> name = nameOfTornEntry()) {
        for (unsigned n = 0; n < *name; ++n)
          stream.skip();
        parseFile(division);
        continue;
      }
      stream.skip();
      skipToEntry(fileClauses);
    }
  }
}

/// Where the name of a file is in a line that begins with it or with another word instead of FD or
/// SD: how many tokens on.
std::optional<unsigned> FileSectionParser::nameOfTornEntry() {
  auto isFileAt = [this](unsigned n) {
    return peek(n).isUserWord() && scope().isFileName(peek(n).getInternedText());
  };
  if (isFileAt(0))
    return 0;
  const bool isBehindWord = !peek(1).isFirstOnLine() && isFileAt(1);
  return isBehindWord ? std::optional(1U) : std::nullopt;
}

/// The records of a file, which end at its successor also where the FD or SD of that is damaged or
/// missing: a line begins with a clause that only files have, or has the name of a file.
void FileSectionParser::parseFileRecords(AddRecord add) {
  const SourceRange before = context.previousEntry;
  parseDataRecords(StorageType::File, add, [&] {
    if (at(Keyword::Fd, Keyword::Sd))
      return true;
    const bool isClause =
        fileClauses.contains(peek().keyword) && !dataClauses.contains(peek().keyword);
    // Before the first record, clauses can be the rest of the entry.
    const bool hasRecord = before.beginLine != context.previousEntry.beginLine;
    return peek().isFirstOnLine() && hasRecord && (isClause || nameOfTornEntry());
  });
}

/// A file with its records.
void FileSectionParser::parseFile(DataDivision &division) {
  const SourceRange begin = here();
  const FileDescType type = at(Keyword::Sd) ? FileDescType::SortMerge : FileDescType::File;
  FileDescription *file = parseFileDescription();
  if (!file)
    return parseNamelessRecords(from(begin).getRange(), type);
  division.addFileSection(file);
  parseFileRecords([file](DataDescription *record) { file->addRecordDesc(record); });
}

/// The records of a file whose entry, at \p place, has no name.
void FileSectionParser::parseNamelessRecords(const SourceRange &place, FileDescType type) {
  NamelessFile file{place, type, {}, /*isWithoutEntry=*/false};
  parseFileRecords([&](DataDescription *record) { file.records.push_back(record); });
  context.namelessFiles.push_back(std::move(file));
}

/// Gives names to the entries whose names could not be read: an FD gets that of a SELECT entry
/// which has none, and the other way around, in their order. Otherwise each of them would cost a
/// message wherever the file is used.
void FileSectionParser::nameFiles(DataDivision &division) {
  auto &files = context.namelessFiles;
  if (InputOutputSection *section = context.unit->getInputOutputSection())
    nameFiles(division, *section);
  // Records that no file is left for: they are known all the same.
  for (const NamelessFile &file : files)
    for (DataDescription *record : file.records) {
      record->setStorageType(StorageType::WorkingStorage);
      division.addWorkSection(record);
    }
  files.clear();
}

void FileSectionParser::nameFiles(DataDivision &division, InputOutputSection &section) {
  auto &files = context.namelessFiles;
  // Records before the first entry belong to it where it has none: the lines are exchanged.
  if (!files.empty() && !division.getFileSectionElements().empty()) {
    NamelessFile &first = files.front();
    FileDescription *file = division.getFileSectionElements().front();
    if (first.isWithoutEntry && file->getRecordDescSize() == 0) {
      for (DataDescription *record : first.records)
        file->addRecordDesc(record);
      files.erase(files.begin());
    }
  }
  std::reverse(files.begin(), files.end());
  for (ParaFileControl *entry : section.getFileControlListElements()) {
    Word *name = entry->getFileName();
    if (files.empty() || !division.findFiles(name->getWordData()).empty())
      continue;
    auto *file = makeAt<FileDescription>(files.back().place, files.back().type, name);
    for (DataDescription *record : files.back().records)
      file->addRecordDesc(record);
    division.addFileSection(file);
    files.pop_back();
  }
  auto &selects = context.namelessSelects;
  std::reverse(selects.begin(), selects.end());
  for (FileDescription *file : division.getFileSectionElements()) {
    if (selects.empty() || section.findFileControlByName(*file->getFileName()))
      continue;
    const SourceRange place = selects.pop_back_val();
    auto *entry = makeAt<ParaFileControl>(place, file->getFileName());
    auto *assign = makeAt<ClauseAssign>(place);
    assign->addAssignment(file->getFileName());
    entry->setAssign(assign);
    section.addFileControl(entry);
  }
}

/// {FD | SD} file-name clauses. Null when the entry has no name.
FileDescription *FileSectionParser::parseFileDescription() {
  SourceRange begin = here();
  recovery.resumeReporting();
  Recovery::ConstructScope construct(recovery);
  FileDescType type = at(Keyword::Sd) ? FileDescType::SortMerge : FileDescType::File;
  acceptAny(Keyword::Fd, Keyword::Sd);
  Word *name = parseDeclaredWord("a file-name");
  if (!name) {
    skipToEntry(fileClauses);
    return nullptr;
  }
  auto *file = makeAt<FileDescription>(begin, type, name);
  // NAME FD, the words exchanged.
  if (!peek().isFirstOnLine())
    acceptAny(Keyword::Fd, Keyword::Sd);
  file->setRange(parseClauses(begin, fileClauses, [&] { return parseFileClause(*file); }));
  return file;
}

bool FileSectionParser::parseFileClause(FileDescription &file) {
  using File = FileDescription;
  switch (peek().keyword) {
  case Keyword::Block:
    return parseOnce(file, &File::getBlock, &File::setBlock, &FileSectionParser::parseBlock);
  case Keyword::Record:
    return parseOnce(file, &File::getRecord, &File::setRecord, &FileSectionParser::parseRecord);
  case Keyword::Label:
    return parseOnce(file, &File::getLabel, &File::setLabel, &FileSectionParser::parseLabel);
  case Keyword::Value:
    return parseOnce(file, &File::getValueOf, &File::setValueOf, &FileSectionParser::parseValueOf);
  case Keyword::Data:
    return parseOnce(file, &File::getDataRecord, &File::setDataRecord,
                     &FileSectionParser::parseDataRecord);
  case Keyword::Linage:
    return parseOnce(file, &File::getLinage, &File::setLinage, &FileSectionParser::parseLinage);
  case Keyword::Recording:
    return parseOnce(file, &File::getRecordingMode, &File::setRecordingMode,
                     &FileSectionParser::parseRecordingMode);
  case Keyword::CodeSet:
    return parseOnce(file, &File::getCodeSet, &File::setCodeSet, &FileSectionParser::parseCodeSet);
  case Keyword::Report:
  case Keyword::Reports:
    return parseOnce(file, &File::getReport, &File::setReport,
                     &FileSectionParser::parseReportClause);
  case Keyword::External:
    return parseOnce(file, &File::getExternal, &File::setExternal,
                     &FileSectionParser::parseBareClause<ClauseExternal>);
  case Keyword::Global:
    return parseOnce(file, &File::getGlobal, &File::setGlobal,
                     &FileSectionParser::parseBareClause<ClauseGlobal>);
  case Keyword::Is:
    // IS EXTERNAL, IS GLOBAL
    if (!peek(1).isOneOf(Keyword::External, Keyword::Global))
      return unknownClause(fileClauses);
    stream.skip();
    return true;
  case Keyword::Totaled:
  case Keyword::Totaling:
    error(DiagnosticId::NoEffect, here(), textOf(peek().keyword));
    stream.skip();
    skipToClause(fileClauses);
    return true;
  default:
    return unknownClause(fileClauses);
  }
}

/// A data-name. A function or a register is parsed as well: the checker reports that it will not
/// do.
IdentifierExpression *FileSectionParser::parseItemName(llvm::StringRef what) {
  return peek().isUserWord() ? parseDataName(what) : parseIdentifier(what);
}

/// BLOCK [CONTAINS] [n TO] m [CHARACTERS | RECORDS]
ClauseBlock *FileSectionParser::parseBlock() {
  SourceRange begin = here();
  accept(Keyword::Block);
  accept(Keyword::Contains);
  NumericLiteralExpression *min = nullptr;
  NumericLiteralExpression *max = parseNumericLiteral();
  if (!max)
    return nullptr;
  if (accept(Keyword::To)) {
    min = max;
    max = parseNumericLiteral();
    if (!max)
      return nullptr;
  }
  BlockUnit blockUnit = BlockUnit::Characters;
  // RECORD may also begin the RECORD clause.
  bool isRecord = at(Keyword::Record) &&
                  !peek(1).isOneOf(Keyword::Contains, Keyword::Is, Keyword::Varying) &&
                  !peek(1).isNumber();
  if (isRecord || at(Keyword::Records)) {
    stream.skip();
    blockUnit = BlockUnit::Records;
  } else {
    acceptAny(Keyword::Characters, Keyword::Character);
  }
  return make<ClauseBlock>(begin, min, max, blockUnit);
}

/// RECORD [CONTAINS] n [TO m] [CHARACTERS], or
/// RECORD [IS] VARYING [IN] [SIZE] [[FROM] n] [TO m] [CHARACTERS] [DEPENDING [ON] data-name]
ClauseRecord *FileSectionParser::parseRecord() {
  SourceRange begin = here();
  accept(Keyword::Record);
  acceptAny(Keyword::Contains, Keyword::Is);
  bool isVarying = accept(Keyword::Varying);
  if (isVarying) {
    accept(Keyword::In);
    accept(Keyword::Size);
  }
  NumericLiteralExpression *min = nullptr;
  NumericLiteralExpression *max = nullptr;
  if (!isVarying || accept(Keyword::From) || atNumericLiteral()) {
    min = parseNumericLiteral();
    if (!min)
      return nullptr;
  }
  if (accept(Keyword::To)) {
    max = parseNumericLiteral();
    if (!max)
      return nullptr;
  }
  acceptAny(Keyword::Characters, Keyword::Character);
  IdentifierExpression *size = nullptr;
  if (accept(Keyword::Depending)) {
    accept(Keyword::On);
    size = parseItemName();
    if (!size)
      return nullptr;
  }
  return make<ClauseRecord>(begin, min, max, isVarying, size);
}

/// LABEL {RECORD | RECORDS} [IS | ARE] {STANDARD | OMITTED | data-name ...}
ClauseLabel *FileSectionParser::parseLabel() {
  SourceRange begin = here();
  accept(Keyword::Label);
  acceptAny(Keyword::Record, Keyword::Records);
  acceptAny(Keyword::Is, Keyword::Are);
  LabelType type = LabelType::DataName;
  if (accept(Keyword::Standard))
    type = LabelType::Standard;
  else if (accept(Keyword::Omitted))
    type = LabelType::Omitted;
  auto *clause = makeAt<ClauseLabel>(begin, type);
  if (type == LabelType::DataName) {
    do {
      IdentifierExpression *name = parseItemName("STANDARD, OMITTED or a data-name");
      if (!name)
        return nullptr;
      clause->addDataName(name);
    } while (peek().isUserWord());
  }
  return complete(clause);
}

/// VALUE OF {system-name [[IS] {data-name | literal}]} ...
ClauseValueOf *FileSectionParser::parseValueOf() {
  SourceRange begin = here();
  accept(Keyword::Value);
  if (!expect(Keyword::Of))
    return nullptr;
  auto *clause = makeAt<ClauseValueOf>(begin);
  do {
    ValueOfElem *element = parseValueOfElement();
    if (!element)
      return nullptr;
    clause->addFileValueOfElem(element);
  } while (peek().isUserWord());
  return complete(clause);
}

ValueOfElem *FileSectionParser::parseValueOfElement() {
  SourceRange begin = here();
  // ID and IDENTIFICATION are fields of the labels of some systems.
  Word *name = at(Keyword::Id, Keyword::Identification)
                   ? takeWord()
                   : parseUserWord("the name of a label field");
  if (!name)
    return nullptr;
  Expression *value = nullptr;
  bool hasIs = accept(Keyword::Is);
  if (atLiteral())
    value = parseLiteral();
  else if (hasIs || peek().isUserWord())
    value = parseItemName("a data-name or a literal");
  if (hasIs && !value)
    return nullptr;
  return make<ValueOfElem>(begin, name, value);
}

/// DATA {RECORD | RECORDS} [IS | ARE] data-name ...
ClauseDataRecord *FileSectionParser::parseDataRecord() {
  SourceRange begin = here();
  accept(Keyword::Data);
  if (!acceptAny(Keyword::Record, Keyword::Records))
    return expected("RECORD or RECORDS");
  acceptAny(Keyword::Is, Keyword::Are);
  auto *clause = makeAt<ClauseDataRecord>(begin);
  do {
    Word *name = parseUserWord("a data-name");
    if (!name)
      return nullptr;
    clause->addName(name);
  } while (peek().isUserWord());
  return complete(clause);
}

/// LINAGE [IS] n [LINES] [[WITH] FOOTING [AT] n] [[LINES] [AT] TOP n] [[LINES] [AT] BOTTOM n]
ClauseLinage *FileSectionParser::parseLinage() {
  constexpr llvm::StringLiteral number = "a number of lines or a data-name";
  SourceRange begin = here();
  accept(Keyword::Linage);
  accept(Keyword::Is);
  auto *clause = makeAt<ClauseLinage>(begin);
  Expression *lines = parseNumberOrDataName(number);
  if (!lines)
    return nullptr;
  clause->setNumOfLines(lines);
  accept(Keyword::Lines);
  while (at(Keyword::With, Keyword::Footing, Keyword::Lines, Keyword::At, Keyword::Top,
            Keyword::Bottom)) {
    acceptAny(Keyword::With, Keyword::Lines);
    accept(Keyword::At);
    Expression *(ClauseLinage::*get)() const = nullptr;
    void (ClauseLinage::*set)(Expression *) = nullptr;
    if (at(Keyword::Footing)) {
      get = &ClauseLinage::getWithFootingAt;
      set = &ClauseLinage::setWithFootingAt;
    } else if (at(Keyword::Top)) {
      get = &ClauseLinage::getLineAtTop;
      set = &ClauseLinage::setLineAtTop;
    } else if (at(Keyword::Bottom)) {
      get = &ClauseLinage::getLineAtBottom;
      set = &ClauseLinage::setLineAtBottom;
    } else {
      return expected("FOOTING, TOP or BOTTOM");
    }
    bool isSecond = (clause->*get)() != nullptr;
    if (isSecond)
      error(DiagnosticId::ClauseTwice, here(), describe(peek()));
    stream.skip();
    accept(Keyword::At);
    Expression *count = parseNumberOrDataName(number);
    if (!count)
      return nullptr;
    if (!isSecond)
      (clause->*set)(count);
  }
  return complete(clause);
}

/// RECORDING [MODE] [IS] mode
ClauseRecordingMode *FileSectionParser::parseRecordingMode() {
  SourceRange begin = here();
  accept(Keyword::Recording);
  accept(Keyword::Mode);
  accept(Keyword::Is);
  auto mode = llvm::StringSwitch<RecordingModeType>(peek().isWord() ? peek().text : "")
                  .Cases("F", "FIXED", RecordingModeType::Fixed)
                  .Cases("V", "VARIABLE", RecordingModeType::Variable)
                  .Cases("S", "SPANNED", RecordingModeType::Spanned)
                  .Cases("U", "UNDEFINED", RecordingModeType::Undefined)
                  .Default(RecordingModeType::NotGiven);
  if (mode == RecordingModeType::NotGiven)
    return expected("F, V, S or U");
  stream.skip();
  return make<ClauseRecordingMode>(begin, mode);
}

/// CODE-SET [IS] alphabet-name
ClauseCodeSet *FileSectionParser::parseCodeSet() {
  SourceRange begin = here();
  accept(Keyword::CodeSet);
  accept(Keyword::Is);
  Word *alphabet = parseUserWord("an alphabet-name");
  if (!alphabet)
    return nullptr;
  return make<ClauseCodeSet>(begin, alphabet);
}

/// {REPORT | REPORTS} [IS | ARE] report-name ...
ClauseReport *FileSectionParser::parseReportClause() {
  SourceRange begin = here();
  stream.skip();
  acceptAny(Keyword::Is, Keyword::Are);
  auto *clause = makeAt<ClauseReport>(begin);
  do {
    ReportIdentifierExpression *name = parseReportName();
    if (!name)
      return nullptr;
    clause->addReportName(name);
  } while (peek().isUserWord());
  return complete(clause);
}

} // namespace tarka
