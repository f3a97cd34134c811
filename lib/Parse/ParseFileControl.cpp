//===- ParseFileControl.cpp - environment division, input-output ----------===//

#include "Parse/ParseFileControl.h"
#include "Parse/MisspeltWords.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// FILE-CONTROL
//===----------------------------------------------------------------------===//

static constexpr Keyword selectKeywords[] = {
    Keyword::Access,  Keyword::Alternate, Keyword::Assign,   Keyword::File,   Keyword::Organization,
    Keyword::Padding, Keyword::Record,    Keyword::Relative, Keyword::Reserve};
static constexpr Keyword selectSynonyms[] = {
    Keyword::Indexed,    Keyword::Line,    Keyword::Password,  Keyword::Processing,
    Keyword::Sequential, Keyword::Status,  Keyword::Actual,    Keyword::FileLimit,
    Keyword::FileLimits, Keyword::Nominal, Keyword::TrackArea, Keyword::TrackLimit};

static constexpr Keyword selectInnerWords[] = {Keyword::Password, Keyword::Record,
                                               Keyword::Sequential};
static constexpr ClauseSet selectClauses{"a SELECT entry", selectKeywords, selectSynonyms,
                                         selectInnerWords};

void FileControlParser::parseFileControl(InputOutputSection &section) {
  takeParagraphHeader();
  parseFileEntries(section);
}

void FileControlParser::parseFileEntries(InputOutputSection &section) {
  bool previousIsWrong = false;
  ParaFileControl *previous = nullptr;
  auto addEntry = [&] {
    Recovery::ConstructScope construct(recovery);
    previous = parseSelect();
    if (previous)
      section.addFileControl(previous);
    previousIsWrong = construct.hasMistake();
  };
  for (Progress progress(stream); !atPartHeader() && !atDataSection(); progress.ensure()) {
    if (accept(TokenKind::Period))
      continue;
    if (at(Keyword::Select)) {
      addEntry();
      continue;
    }
    // A period within the entry, of which the rest follows in the same line.
    if (previous && !peek().isFirstOnLine()) {
      unknownClause(selectClauses);
      context.diagnostics.getDamage().add(previous->getRange());
      previous->setRange(parseClauses(previous->getRange(), selectClauses,
                                      [&] { return parseSelectClause(*previous); }));
      previousIsWrong = true;
      continue;
    }
    // The rest of an entry that was cut in two.
    if ((previousIsWrong && selectClauses.contains(peek().keyword)) || isRestOfEntry()) {
      noteMistake();
      skipToEntry(selectClauses);
      continue;
    }
    expected("SELECT");
    // Only the word is missing.
    if (peek().isUserWord() && peek(1).is(Keyword::Assign)) {
      if (ParaFileControl *file = parseSelect())
        section.addFileControl(file);
      continue;
    }
    if (peek().isUserWord() && nearestKeyword(peek().text, Keyword::Select) != Keyword::None) {
      stream.correct(Keyword::Select);
      addEntry();
      continue;
    }
    // The clauses of an entry whose first line is not there.
    if (selectClauses.contains(peek().keyword)) {
      context.namelessSelects.push_back(here());
      skipToEntry(selectClauses);
      continue;
    }
    stream.skip();
    skipToEntry(selectClauses);
  }
}

/// SELECT [OPTIONAL] file-name clauses.
ParaFileControl *FileControlParser::parseSelect() {
  SourceRange begin = here();
  if (at(Keyword::Select))
    recovery.resumeReporting();
  Recovery::ConstructScope construct(recovery);
  accept(Keyword::Select);
  bool isOptional = accept(Keyword::Optional);
  Word *name = parseDeclaredWord("a file-name");
  if (!name) {
    context.namelessSelects.push_back(begin);
    skipToEntry(selectClauses);
    return nullptr;
  }
  auto *file = makeAt<ParaFileControl>(begin, name);
  file->setIsOptional(isOptional);
  file->setRange(parseClauses(begin, selectClauses, [&] { return parseSelectClause(*file); }));
  if (!file->getAssign() && !construct.hasMistake())
    error(DiagnosticId::ClauseMissing, name->getRange(), "SELECT", "ASSIGN");
  return file;
}

bool FileControlParser::parseSelectClause(ParaFileControl &file) {
  using File = ParaFileControl;
  switch (peek().keyword) {
  case Keyword::Assign:
    return parseOnce(file, &File::getAssign, &File::setAssign, &FileControlParser::parseAssign);
  case Keyword::Reserve:
    return parseOnce(file, &File::getReserve, &File::setReserve, &FileControlParser::parseReserve);
  case Keyword::Relative:
    if (peek(1).isOneOf(Keyword::Key, Keyword::Is) || peek(1).isUserWord())
      return parseOnce(file, &File::getRelativeKey, &File::setRelativeKey,
                       &FileControlParser::parseRelativeKey);
    [[fallthrough]];
  case Keyword::Organization:
  case Keyword::Sequential:
  case Keyword::Indexed:
  case Keyword::Line:
    return parseOnce(file, &File::getOrganization, &File::setOrganization,
                     &FileControlParser::parseOrganization);
  case Keyword::Padding:
    return parseOnce(file, &File::getPadding, &File::setPadding, &FileControlParser::parsePadding);
  case Keyword::Record:
    if (peek(1).is(Keyword::Delimiter))
      return parseOnce(file, &File::getRecordDelimiter, &File::setRecordDelimiter,
                       &FileControlParser::parseRecordDelimiter);
    return parseOnce(file, &File::getRecordKey, &File::setRecordKey,
                     &FileControlParser::parseRecordKey);
  case Keyword::Alternate:
    if (ClauseAlternate *key = parseAlternateKey()) {
      file.addAlternate(key);
      return true;
    }
    return false;
  case Keyword::Access:
    return parseOnce(file, &File::getAccess, &File::setAccess, &FileControlParser::parseAccess);
  case Keyword::Password:
    return parseOnce(file, &File::getPassWord, &File::setPassWord,
                     &FileControlParser::parsePassword);
  case Keyword::File:
  case Keyword::Status:
    return parseOnce(file, &File::getStatus, &File::setStatus, &FileControlParser::parseFileStatus);
  case Keyword::Processing:
  case Keyword::FileLimit:
  case Keyword::FileLimits:
  case Keyword::Actual:
  case Keyword::Nominal:
  case Keyword::TrackArea:
  case Keyword::TrackLimit:
    error(DiagnosticId::NoEffect, here(), textOf(peek().keyword));
    stream.skip();
    // PROCESSING MODE IS SEQUENTIAL has the word of another clause in it.
    accept(Keyword::Mode);
    acceptAny(Keyword::Is, Keyword::Are);
    accept(Keyword::Sequential);
    skipToClause(selectClauses);
    return true;
  default:
    return unknownClause(selectClauses);
  }
}

/// Whether a word after an assignment-name is not another one but a misspelt keyword of a clause:
/// IS follows it, or it comes near to a long keyword. Short words come near to each other too
/// often.
bool FileControlParser::atMisspeltSelectClause() {
  const Token word = peek();
  if (peek(1).is(Keyword::Is))
    return true;
  return word.text.size() > 5 && !peek(1).is(TokenKind::Period) &&
         llvm::none_of(word.text, llvm::isDigit) &&
         nearestKeyword(word.text, selectKeywords) != Keyword::None;
}

/// ASSIGN [TO] {[integer] name | literal} ... [FOR MULTIPLE {REEL | UNIT}]
ClauseAssign *FileControlParser::parseAssign() {
  SourceRange begin = here();
  accept(Keyword::Assign);
  accept(Keyword::To);
  auto *clause = makeAt<ClauseAssign>(begin);
  do {
    if (at(TokenKind::AlphanumericLiteral)) {
      clause->addAssignment(parseNonNumericLiteral());
    } else if (at(TokenKind::IntegerLiteral)) {
      clause->addAssignment(parseNumericLiteral());
    } else {
      Word *name = parseUserWord("an assignment-name");
      if (!name)
        return nullptr;
      clause->addAssignment(name);
    }
  } while ((peek().isUserWord() && !atMisspeltSelectClause()) ||
           at(TokenKind::AlphanumericLiteral, TokenKind::IntegerLiteral));
  if (accept(Keyword::For)) {
    if (!expect(Keyword::Multiple))
      return nullptr;
    if (!acceptAny(Keyword::Reel, Keyword::Unit))
      return expected("REEL or UNIT");
  }
  return complete(clause);
}

/// RESERVE {integer | NO} [ALTERNATE] [AREA | AREAS]
ClauseReserve *FileControlParser::parseReserve() {
  SourceRange begin = here();
  accept(Keyword::Reserve);
  NumericLiteralExpression *count = nullptr;
  if (!accept(Keyword::No)) {
    count = parseNumericLiteral();
    if (!count)
      return nullptr;
  }
  // ALTERNATE alone begins the next clause.
  if (at(Keyword::Alternate) && peek(1).isOneOf(Keyword::Area, Keyword::Areas))
    accept(Keyword::Alternate);
  acceptAny(Keyword::Area, Keyword::Areas);
  return make<ClauseReserve>(begin, count);
}

/// [ORGANIZATION [IS]] {SEQUENTIAL | INDEXED | RELATIVE | LINE SEQUENTIAL}
ClauseOrganization *FileControlParser::parseOrganization() {
  SourceRange begin = here();
  if (accept(Keyword::Organization))
    accept(Keyword::Is);
  OrganizationType type = OrganizationType::LineSequential;
  if (accept(Keyword::Line)) {
    if (!expect(Keyword::Sequential))
      return nullptr;
  } else if (accept(Keyword::Sequential)) {
    type = OrganizationType::Sequential;
  } else if (accept(Keyword::Indexed)) {
    type = OrganizationType::Indexed;
  } else if (accept(Keyword::Relative)) {
    type = OrganizationType::Relative;
  } else {
    return expected("SEQUENTIAL, INDEXED, RELATIVE or LINE SEQUENTIAL");
  }
  return make<ClauseOrganization>(begin, type);
}

/// PADDING [CHARACTER] [IS] {data-name | literal}
ClausePadding *FileControlParser::parsePadding() {
  SourceRange begin = here();
  accept(Keyword::Padding);
  accept(Keyword::Character);
  accept(Keyword::Is);
  Expression *character = nullptr;
  if (atLiteral())
    character = parseLiteral();
  else
    character = parseDataName("a data-name or a literal");
  if (!character)
    return nullptr;
  return make<ClausePadding>(begin, character);
}

/// RECORD DELIMITER [IS] {STANDARD-1 | assignment-name}
ClauseRecordDelimiter *FileControlParser::parseRecordDelimiter() {
  SourceRange begin = here();
  accept(Keyword::Record);
  accept(Keyword::Delimiter);
  accept(Keyword::Is);
  Word *name = at(Keyword::Standard1) ? takeWord() : parseUserWord("STANDARD-1 or a name");
  if (!name)
    return nullptr;
  return make<ClauseRecordDelimiter>(begin, name);
}

/// ACCESS [MODE] [IS] {SEQUENTIAL | RANDOM | DYNAMIC}
ClauseAccess *FileControlParser::parseAccess() {
  SourceRange begin = here();
  accept(Keyword::Access);
  accept(Keyword::Mode);
  accept(Keyword::Is);
  AccessType type = AccessType::None;
  if (accept(Keyword::Sequential))
    type = AccessType::Sequential;
  else if (accept(Keyword::Random))
    type = AccessType::Random;
  else if (accept(Keyword::Dynamic))
    type = AccessType::Dynamic;
  else
    return expected("SEQUENTIAL, RANDOM or DYNAMIC");
  return make<ClauseAccess>(begin, type);
}

/// [FILE] STATUS [IS] data-name [data-name]
ClauseStatus *FileControlParser::parseFileStatus() {
  SourceRange begin = here();
  accept(Keyword::File);
  if (!expect(Keyword::Status))
    return nullptr;
  accept(Keyword::Is);
  DataIdentifierExpression *first = parseDataName();
  if (!first)
    return nullptr;
  DataIdentifierExpression *second = nullptr;
  // A name before IS is a clause with a misspelt keyword.
  if (peek().isUserWord() && !peek(1).is(Keyword::Is)) {
    second = parseDataName();
    if (!second)
      return nullptr;
  }
  return make<ClauseStatus>(begin, first, second);
}

/// PASSWORD [IS] data-name
ClausePassWord *FileControlParser::parsePassword() {
  SourceRange begin = here();
  accept(Keyword::Password);
  accept(Keyword::Is);
  DataIdentifierExpression *name = parseDataName();
  if (!name)
    return nullptr;
  return make<ClausePassWord>(begin, name);
}

/// RECORD [KEY] [IS] data-name [PASSWORD [IS] data-name]
ClauseRecordKey *FileControlParser::parseRecordKey() {
  SourceRange begin = here();
  accept(Keyword::Record);
  accept(Keyword::Key);
  accept(Keyword::Is);
  DataIdentifierExpression *name = parseDataName();
  if (!name)
    return nullptr;
  ClausePassWord *password = nullptr;
  if (at(Keyword::Password)) {
    password = parsePassword();
    if (!password)
      return nullptr;
  }
  auto *clause = make<ClauseRecordKey>(begin, name);
  clause->setPassWord(password);
  return clause;
}

/// RELATIVE [KEY] [IS] data-name
ClauseRelativeKey *FileControlParser::parseRelativeKey() {
  SourceRange begin = here();
  accept(Keyword::Relative);
  accept(Keyword::Key);
  accept(Keyword::Is);
  DataIdentifierExpression *name = parseDataName();
  if (!name)
    return nullptr;
  return make<ClauseRelativeKey>(begin, name);
}

/// ALTERNATE [RECORD] [KEY] [IS] data-name [PASSWORD [IS] data-name] [[WITH] DUPLICATES]
ClauseAlternate *FileControlParser::parseAlternateKey() {
  SourceRange begin = here();
  accept(Keyword::Alternate);
  accept(Keyword::Record);
  accept(Keyword::Key);
  accept(Keyword::Is);
  DataIdentifierExpression *name = parseDataName();
  if (!name)
    return nullptr;
  auto *clause = makeAt<ClauseAlternate>(begin, name);
  if (at(Keyword::Password)) {
    ClausePassWord *password = parsePassword();
    if (!password)
      return nullptr;
    clause->setPassWord(password);
  }
  if (accept(Keyword::With)) {
    if (!expect(Keyword::Duplicates))
      return nullptr;
    clause->setIsDuplicates(true);
  } else {
    clause->setIsDuplicates(accept(Keyword::Duplicates));
  }
  return complete(clause);
}

//===----------------------------------------------------------------------===//
// I-O-CONTROL
//===----------------------------------------------------------------------===//

static constexpr Keyword ioControlKeywords[] = {Keyword::Apply, Keyword::Multiple, Keyword::Rerun,
                                                Keyword::Same};
static constexpr ClauseSet ioControlClauses{"I-O-CONTROL", ioControlKeywords, {}};

void FileControlParser::parseIOControl(InputOutputSection &section) {
  takeParagraphHeader();
  parseParagraphClauses(ioControlClauses, [&] { return parseIOControlClause(section); });
}

/// Every clause is an entry of its own in the tree.
bool FileControlParser::parseIOControlClause(InputOutputSection &section) {
  Node place(here());
  ParaIOControl entry(&place);
  bool isRead = false;
  switch (peek().keyword) {
  case Keyword::Rerun:
    entry.setRerun(parseRerun());
    isRead = entry.getRerun();
    break;
  case Keyword::Same:
    entry.setSame(parseSame());
    isRead = entry.getSame();
    break;
  case Keyword::Multiple:
    entry.setMultipleFile(parseMultipleFile());
    isRead = entry.getMultipleFile();
    break;
  case Keyword::Apply:
    if (!peek(1).is(Keyword::WriteOnly) && peek(1).isWord()) {
      // The other techniques were hints for access methods of the past.
      error(DiagnosticId::NoEffect, here(), "APPLY " + peek(1).spelling.str());
      stream.skip();
      skipToClause(ioControlClauses);
      return true;
    }
    entry.setApplyWriteOnly(parseApplyWriteOnly());
    isRead = entry.getApplyWriteOnly();
    break;
  default:
    return unknownClause(ioControlClauses);
  }
  if (!isRead)
    return false;
  entry.setRange(from(place.getRange()).getRange());
  section.addIOControl(new ParaIOControl(entry));
  return true;
}

/// RERUN [ON name] [EVERY {integer RECORDS | [END [OF]] {REEL | UNIT}} [OF] file-name]
ClauseRerun *FileControlParser::parseRerun() {
  SourceRange begin = here();
  auto *clause = makeAt<ClauseRerun>(begin);
  accept(Keyword::Rerun);
  if (accept(Keyword::On)) {
    // Whether it is a file or an assignment-name is for the checker to find out.
    Word *name = parseUserWord("a file-name or an assignment-name");
    if (!name)
      return nullptr;
    clause->setFileName(makeAt<FileIdentifierExpression>(name->getRange(), name));
  }
  if (accept(Keyword::Every)) {
    if (atNumericLiteral()) {
      clause->setRecordCount(parseNumericLiteral());
      if (!expect(Keyword::Records))
        return nullptr;
    } else {
      accept(Keyword::End);
      accept(Keyword::Of);
      if (!acceptAny(Keyword::Reel, Keyword::Unit))
        return expected("a number of records, END OF REEL or END OF UNIT");
      clause->setIsEndOfReel(true);
    }
    accept(Keyword::Of);
    FileIdentifierExpression *file = parseFileName();
    if (!file)
      return nullptr;
    clause->setEveryFileName(file);
  }
  return complete(clause);
}

/// SAME [RECORD | SORT | SORT-MERGE] [AREA] [FOR] file-name ...
ClauseSame *FileControlParser::parseSame() {
  SourceRange begin = here();
  accept(Keyword::Same);
  SameType type = SameType::None;
  if (accept(Keyword::Record))
    type = SameType::Record;
  else if (accept(Keyword::Sort))
    type = SameType::Sort;
  else if (accept(Keyword::SortMerge))
    type = SameType::SortMerge;
  acceptAny(Keyword::Area, Keyword::Areas);
  accept(Keyword::For);
  auto *clause = makeAt<ClauseSame>(begin, type);
  // That the list must not be empty is a rule of the checker, here and below.
  while (peek().isUserWord() && !atProcedureHeader())
    clause->addFileName(parseFileName());
  return complete(clause);
}

/// MULTIPLE FILE [TAPE] [CONTAINS] {file-name [POSITION [IS] integer]} ...
ClauseMultipleFile *FileControlParser::parseMultipleFile() {
  SourceRange begin = here();
  accept(Keyword::Multiple);
  if (!expect(Keyword::File))
    return nullptr;
  accept(Keyword::Tape);
  accept(Keyword::Contains);
  auto *clause = makeAt<ClauseMultipleFile>(begin);
  while (peek().isUserWord() && !atProcedureHeader()) {
    SourceRange phrase = here();
    FileIdentifierExpression *file = parseFileName();
    NumericLiteralExpression *position = nullptr;
    if (accept(Keyword::Position)) {
      accept(Keyword::Is);
      position = parseNumericLiteral();
      if (!position)
        return nullptr;
    }
    clause->addMultipleFile(make<PrsMultipleFile>(phrase, file, position));
  }
  return complete(clause);
}

/// APPLY WRITE-ONLY [ON] file-name ...
ClauseApplyWriteOnly *FileControlParser::parseApplyWriteOnly() {
  SourceRange begin = here();
  accept(Keyword::Apply);
  if (!expect(Keyword::WriteOnly))
    return nullptr;
  accept(Keyword::On);
  auto *clause = makeAt<ClauseApplyWriteOnly>(begin);
  while (peek().isUserWord() && !atProcedureHeader())
    clause->addFileName(parseFileName());
  return complete(clause);
}

} // namespace tarka
