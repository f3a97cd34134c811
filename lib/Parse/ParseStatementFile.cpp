//===- ParseStatementFile.cpp - input-output, SORT and MERGE --------------===//

#include "Parse/ParseStatementFile.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// OPEN and CLOSE
//===----------------------------------------------------------------------===//

/// file-name [REVERSED | [WITH] NO REWIND]
OpenFile *FileStatements::parseOpenFile() {
  SourceRange begin = here();
  FileIdentifierExpression *name = parseFileName();
  if (!name)
    return nullptr;
  auto *file = make<OpenFile>(begin, name);
  if (accept(Keyword::Reversed)) {
    file->setOption(OpenOption::Reversed);
  } else if (at(Keyword::With, Keyword::No)) {
    accept(Keyword::With);
    if (!expect(Keyword::No) || !expect(Keyword::Rewind))
      return nullptr;
    file->setOption(OpenOption::NoRewind);
  }
  // How OS/VS leaves a tape between its volumes; nothing depends on it.
  acceptAny(Keyword::Leave, Keyword::Reread, Keyword::Disp);
  return complete(file);
}

/// The mode in which OPEN opens the files after \p keyword.
static std::optional<OpenType> openModeOf(Keyword keyword) {
  switch (keyword) {
  case Keyword::Input:
    return OpenType::Input;
  case Keyword::Output:
    return OpenType::Output;
  case Keyword::IO:
    return OpenType::InputOutput;
  case Keyword::Extend:
    return OpenType::Extend;
  default:
    return std::nullopt;
  }
}

/// OPEN {{INPUT | OUTPUT | I-O | EXTEND} {file-name [REVERSED | [WITH] NO REWIND]}...}...
StatementResult FileStatements::parseOpen() {
  SourceRange begin = here();
  accept(Keyword::Open);
  auto *open = make<OpenStatement>(begin);
  auto mode = openModeOf(peek().keyword);
  if (!mode)
    return expected("INPUT, OUTPUT, I-O or EXTEND");
  for (; mode; mode = openModeOf(peek().keyword)) {
    auto *item = make<OpenItem>(here(), *mode);
    stream.skip();
    if (!parseSeries(*item, &OpenItem::addFile, &FileStatements::parseOpenFile,
                     &FileStatements::atFileName))
      return nullptr;
    open->addItem(complete(item));
  }
  return complete(open);
}

/// file-name [{REEL | UNIT} [[FOR] REMOVAL | [WITH] NO REWIND] | [WITH] {NO REWIND | LOCK}]
CloseFile *FileStatements::parseCloseFile() {
  SourceRange begin = here();
  FileIdentifierExpression *name = parseFileName();
  if (!name)
    return nullptr;
  auto *file = make<CloseFile>(begin, name);
  bool isReel = acceptAny(Keyword::Reel, Keyword::Unit);
  if (isReel)
    file->setOption(CloseOption::Reel);

  if (isReel && at(Keyword::For, Keyword::Removal)) {
    accept(Keyword::For);
    if (!expect(Keyword::Removal))
      return nullptr;
    file->setOption(CloseOption::ReelRemoval);
    return complete(file);
  }
  bool with = accept(Keyword::With);
  if (accept(Keyword::No)) {
    if (!expect(Keyword::Rewind))
      return nullptr;
    file->setOption(isReel ? CloseOption::ReelNoRewind : CloseOption::NoRewind);
  } else if (!isReel && accept(Keyword::Lock)) {
    file->setOption(CloseOption::Lock);
  } else if (!acceptAny(Keyword::Positioning, Keyword::Disp) && with) {
    // The two words are of OS/VS and say how to leave a tape; nothing depends on them.
    return expected(isReel ? "NO REWIND" : "NO REWIND or LOCK");
  }
  return complete(file);
}

/// CLOSE {file-name [option]}...
StatementResult FileStatements::parseClose() {
  SourceRange begin = here();
  accept(Keyword::Close);
  auto *close = make<CloseStatement>(begin);
  return parseSeries(*close, &CloseStatement::addCloseFile, &FileStatements::parseCloseFile,
                     &FileStatements::atFileName)
             ? complete(close)
             : nullptr;
}

//===----------------------------------------------------------------------===//
// READ and START
//===----------------------------------------------------------------------===//

/// READ file-name [NEXT] [RECORD] [INTO identifier] [KEY [IS] data-name]
///   [[NOT] AT END statements]... [[NOT] INVALID KEY statements]... [END-READ]
StatementResult FileStatements::parseRead() {
  SourceRange begin = here();
  accept(Keyword::Read);
  FileIdentifierExpression *file = parseFileName();
  if (!file)
    return nullptr;
  auto *read = make<ReadStatement>(begin, file);
  read->setIsNextRecord(accept(Keyword::Next));
  if (atWord("PREVIOUS"))
    return error(DiagnosticId::UnsupportedStatement, here(), "READ PREVIOUS");
  accept(Keyword::Record);
  if (accept(Keyword::Into)) {
    read->setIntoIdentifier(parseIdentifier());
    if (!read->getIntoIdentifier())
      return nullptr;
  }
  if (accept(Keyword::Key)) {
    accept(Keyword::Is);
    read->setKeyName(parseIdentifier("the data-name of the key"));
    if (!read->getKeyName())
      return nullptr;
  }
  return finish(read, &ReadStatement::addError);
}

/// EQUAL [TO], =, GREATER [THAN], >, NOT LESS [THAN], NOT <, GREATER [THAN] OR EQUAL [TO] or >=:
/// the relations that can place a file. Empty after a message.
std::optional<RelationalConditionType> FileStatements::parseStartRelation() {
  if (accept(TokenKind::Equal))
    return RelationalConditionType::Equal;
  if (accept(TokenKind::GreaterEqual))
    return RelationalConditionType::GreaterOrEqual;
  if (accept(Keyword::Equal)) {
    accept(Keyword::To);
    return RelationalConditionType::Equal;
  }
  if (accept(TokenKind::Greater) || accept(Keyword::Greater)) {
    accept(Keyword::Than);
    if (!accept(Keyword::Or))
      return RelationalConditionType::Greater;
    if (!accept(TokenKind::Equal) && !expect(Keyword::Equal))
      return std::nullopt;
    accept(Keyword::To);
    return RelationalConditionType::GreaterOrEqual;
  }
  if (accept(Keyword::Not)) {
    if (!accept(TokenKind::Less) && !expect(Keyword::Less))
      return std::nullopt;
    accept(Keyword::Than);
    return RelationalConditionType::NotLess;
  }
  expected("EQUAL, GREATER, NOT LESS or GREATER OR EQUAL");
  return std::nullopt;
}

/// START file-name [KEY [IS] relation data-name] [[NOT] INVALID KEY statements]... [END-START]
StatementResult FileStatements::parseStart() {
  SourceRange begin = here();
  accept(Keyword::Start);
  FileIdentifierExpression *file = parseFileName();
  if (!file)
    return nullptr;
  auto *start = make<StartStatement>(begin, file);
  if (at(Keyword::Using))
    return error(DiagnosticId::UnsupportedStatement, here(), "START USING KEY");
  if (at(Keyword::Key)) {
    SourceRange keyBegin = here();
    accept(Keyword::Key);
    accept(Keyword::Is);
    auto relation = parseStartRelation();
    if (!relation)
      return nullptr;
    IdentifierExpression *name = parseIdentifier("the data-name of the key");
    if (!name)
      return nullptr;
    start->setKey(make<StartKey>(keyBegin, *relation, name));
  }
  return finish(start, &StartStatement::addInvalidKeyHandler);
}

//===----------------------------------------------------------------------===//
// WRITE, REWRITE and DELETE
//===----------------------------------------------------------------------===//

/// FROM identifier, if it is next. False after a message.
bool FileStatements::parseFromPhrase(IdentifierExpression *&from) {
  if (!accept(Keyword::From))
    return true;
  from = parseIdentifier();
  return from;
}

/// {BEFORE | AFTER} [ADVANCING] {operand [LINE | LINES] | mnemonic-name | PAGE}
/// AFTER POSITIONING operand [LINE | LINES]
bool FileStatements::parseWriteAdvancing(WriteStatement &write) {
  SourceRange begin = here();
  bool isBefore = at(Keyword::Before);
  acceptAny(Keyword::Before, Keyword::After);
  if (!isBefore && accept(Keyword::Positioning)) {
    Expression *amount = parseOperand();
    if (!amount)
      return false;
    acceptAny(Keyword::Line, Keyword::Lines);
    write.setPositioning(make<WritePositioning>(begin, amount));
    return true;
  }
  // Without the option of OS/VS COBOL the word may name a data item.
  if (!context.options.osvs && peek().text == textOf(Keyword::Positioning) &&
      (peek(1).isNumber() || peek(1).isUserWord()))
    return error(DiagnosticId::OsvsStatement, here(), peek().text);
  accept(Keyword::Advancing);
  if (accept(Keyword::Page)) {
    write.setAdvancing(make<WriteAdvancing>(begin, WriteAdvType::Page, nullptr, isBefore));
    return true;
  }
  // Only the lookup of the name distinguishes a mnemonic-name from a data-name.
  Expression *amount = parseOperand("a number of lines, a mnemonic-name or PAGE");
  if (!amount)
    return false;
  acceptAny(Keyword::Line, Keyword::Lines);
  write.setAdvancing(make<WriteAdvancing>(begin, WriteAdvType::Lines, amount, isBefore));
  return true;
}

/// WRITE record-name [FROM identifier] [ADVANCING phrase | POSITIONING phrase]
///   [[NOT] AT END-OF-PAGE statements]... [[NOT] INVALID KEY statements]... [END-WRITE]
StatementResult FileStatements::parseWrite() {
  SourceRange begin = here();
  accept(Keyword::Write);
  IdentifierExpression *record = parseIdentifier("a record-name");
  if (!record)
    return nullptr;
  auto *write = make<WriteStatement>(begin, record);
  IdentifierExpression *from = nullptr;
  if (!parseFromPhrase(from))
    return nullptr;
  write->setFromIdentifier(from);
  if (at(Keyword::Before, Keyword::After) && !parseWriteAdvancing(*write))
    return nullptr;
  return finish(write, &WriteStatement::addExceptionHandler);
}

/// REWRITE record-name [FROM identifier] [[NOT] INVALID KEY statements]... [END-REWRITE]
StatementResult FileStatements::parseRewrite() {
  SourceRange begin = here();
  accept(Keyword::Rewrite);
  IdentifierExpression *record = parseIdentifier("a record-name");
  if (!record)
    return nullptr;
  auto *rewrite = make<RewriteStatement>(begin, record);
  IdentifierExpression *from = nullptr;
  if (!parseFromPhrase(from))
    return nullptr;
  rewrite->setFromIdentifier(from);
  return finish(rewrite, &RewriteStatement::addInvalidKeyHandler);
}

/// DELETE file-name [RECORD] [[NOT] INVALID KEY statements]... [END-DELETE]
StatementResult FileStatements::parseDelete() {
  SourceRange begin = here();
  accept(Keyword::Delete);
  FileIdentifierExpression *file = parseFileName();
  if (!file)
    return nullptr;
  auto *statement = make<DeleteStatement>(begin, file);
  accept(Keyword::Record);
  return finish(statement, &DeleteStatement::addInvalidKeyHandler);
}

//===----------------------------------------------------------------------===//
// RETURN and RELEASE
//===----------------------------------------------------------------------===//

/// RETURN file-name [RECORD] [INTO identifier] [AT] END statements [NOT [AT] END statements]
///   [END-RETURN]
StatementResult FileStatements::parseReturn() {
  SourceRange begin = here();
  accept(Keyword::Return);
  FileIdentifierExpression *file = parseFileName();
  if (!file)
    return nullptr;
  auto *statement = make<ReturnStatement>(begin, file);
  accept(Keyword::Record);
  if (accept(Keyword::Into)) {
    statement->setIntoIdentifier(parseIdentifier());
    if (!statement->getIntoIdentifier())
      return nullptr;
  }
  // Only AT END can detect that the last record was returned.
  if (!at(Keyword::At, Keyword::End, Keyword::Not))
    return expected("AT END");
  return finish(statement, &ReturnStatement::addEndHandler);
}

/// RELEASE record-name [FROM identifier]
StatementResult FileStatements::parseRelease() {
  SourceRange begin = here();
  accept(Keyword::Release);
  IdentifierExpression *record = parseIdentifier("a record-name");
  if (!record)
    return nullptr;
  auto *release = make<ReleaseStatement>(begin, record);
  IdentifierExpression *from = nullptr;
  if (!parseFromPhrase(from))
    return nullptr;
  release->setFromIdentifier(from);
  return complete(release);
}

//===----------------------------------------------------------------------===//
// SORT and MERGE
//===----------------------------------------------------------------------===//

/// Whether [ON] {ASCENDING | DESCENDING} is next.
bool FileStatements::atSortKey() {
  return peek(at(Keyword::On) ? 1 : 0).isOneOf(Keyword::Ascending, Keyword::Descending);
}

/// [ON] {ASCENDING | DESCENDING} [KEY] data-name...
SortKey *FileStatements::parseSortKey() {
  SourceRange begin = here();
  accept(Keyword::On);
  SortOrder order = at(Keyword::Descending) ? SortOrder::Descending : SortOrder::Ascending;
  if (!acceptAny(Keyword::Ascending, Keyword::Descending))
    return expected("ASCENDING or DESCENDING");
  accept(Keyword::Key);
  auto *key = make<SortKey>(begin, order);
  return parseIdentifiers(*key, &SortKey::addKeyName) ? complete(key) : nullptr;
}

/// [WITH] DUPLICATES [IN] [ORDER]
bool FileStatements::parseDuplicates() {
  accept(Keyword::With);
  if (!expect(Keyword::Duplicates))
    return false;
  accept(Keyword::In);
  accept(Keyword::Order);
  return true;
}

/// [[COLLATING] SEQUENCE [IS] alphabet-name], if it is next. False after a message.
bool FileStatements::parseCollatingSequence(Word *&alphabet) {
  if (!at(Keyword::Collating, Keyword::Sequence))
    return true;
  accept(Keyword::Collating);
  if (!expect(Keyword::Sequence))
    return false;
  accept(Keyword::Is);
  alphabet = parseUserWord("an alphabet-name");
  return alphabet;
}

/// {USING | GIVING} file-name...
/// {INPUT | OUTPUT} PROCEDURE [IS] procedure-name [{THROUGH | THRU} procedure-name]
SortIO *FileStatements::parseSortIO(Keyword filesWord, Keyword procedureWord) {
  SourceRange begin = here();
  if (accept(filesWord)) {
    auto *files = make<SortIO>(begin, SortIOType::Files);
    return parseFileNames(*files, &SortIO::addFileName) ? complete(files) : nullptr;
  }
  accept(procedureWord);
  if (!expect(Keyword::Procedure))
    return nullptr;
  accept(Keyword::Is);
  auto *procedure = make<SortIO>(begin, SortIOType::Procedure);
  procedure->setFromProcedureName(parseProcedureName());
  if (!procedure->getFromProcedureName())
    return nullptr;
  if (acceptAny(Keyword::Through, Keyword::Thru)) {
    procedure->setToProcedureName(parseProcedureName());
    if (!procedure->getToProcedureName())
      return nullptr;
  }
  return complete(procedure);
}

/// Whether the operand of SORT is a table, which can be qualified and subscripted.
bool FileStatements::atTableToSort() {
  if (!peek().isUserWord())
    return false;
  if (peek(1).isOneOf(Keyword::Of, Keyword::In, TokenKind::LParen))
    return true;
  if (scope().isFileName(peek().getInternedText()))
    return false;
  if (isItem(peek().text))
    return true;
  // Of a name that is not declared, the records of a sort file come from files or a procedure.
  constexpr unsigned longest = 30;
  for (unsigned n = 1; n < longest; ++n) {
    if (peek(n).isOneOf(Keyword::Using, Keyword::Input))
      return false;
    if (peek(n).isOneOf(TokenKind::Period, TokenKind::EndOfFile) || peek(n).isVerb())
      return true;
  }
  return false;
}

/// table {[ON] {ASCENDING | DESCENDING} [KEY] [data-name...]}...
///   [[WITH] DUPLICATES [IN] [ORDER]] [[COLLATING] SEQUENCE [IS] alphabet-name]
StatementResult FileStatements::parseSortTable(const SourceRange &begin) {
  auto *sort = make<SortTableStatement>(begin);
  IdentifierExpression *table = parseIdentifier();
  if (!table)
    return nullptr;
  sort->addPart(table);
  sort->setIsOrdered(atSortKey());
  while (atSortKey()) {
    accept(Keyword::On);
    acceptAny(Keyword::Ascending, Keyword::Descending);
    accept(Keyword::Key);
    accept(Keyword::Is);
    while (atIdentifier()) {
      IdentifierExpression *key = parseIdentifier();
      if (!key)
        return nullptr;
      sort->addPart(key);
    }
  }
  if (at(Keyword::With, Keyword::Duplicates) && !parseDuplicates())
    return nullptr;
  Word *alphabet = nullptr;
  return parseCollatingSequence(alphabet) ? complete(sort) : nullptr;
}

/// SORT file-name {[ON] {ASCENDING | DESCENDING} [KEY] data-name...}...
///   [[WITH] DUPLICATES [IN] [ORDER]] [[COLLATING] SEQUENCE [IS] alphabet-name]
///   {USING file-name... | INPUT PROCEDURE ...} {GIVING file-name... | OUTPUT PROCEDURE ...}
StatementResult FileStatements::parseSort() {
  SourceRange begin = here();
  accept(Keyword::Sort);
  if (atTableToSort())
    return parseSortTable(begin);
  FileIdentifierExpression *file = parseFileName();
  if (!file)
    return nullptr;
  auto *sort = make<SortStatement>(begin, file);
  if (!parseSeries(*sort, &SortStatement::addKey, &FileStatements::parseSortKey,
                   &FileStatements::atSortKey))
    return nullptr;

  if (at(Keyword::With, Keyword::Duplicates)) {
    if (!parseDuplicates())
      return nullptr;
    sort->setIsDuplicates(true);
  }
  Word *alphabet = nullptr;
  if (!parseCollatingSequence(alphabet))
    return nullptr;
  sort->setSeqAlphaName(alphabet);

  if (!at(Keyword::Using, Keyword::Input))
    return expected("USING or INPUT PROCEDURE");
  sort->setInput(parseSortIO(Keyword::Using, Keyword::Input));
  if (!sort->getInput())
    return nullptr;
  if (!at(Keyword::Giving, Keyword::Output))
    return expected("GIVING or OUTPUT PROCEDURE");
  sort->setOutput(parseSortIO(Keyword::Giving, Keyword::Output));
  return sort->getOutput() ? complete(sort) : nullptr;
}

/// MERGE file-name {[ON] {ASCENDING | DESCENDING} [KEY] data-name...}...
///   [[COLLATING] SEQUENCE [IS] alphabet-name] USING file-name file-name...
///   {GIVING file-name... | OUTPUT PROCEDURE ...}
StatementResult FileStatements::parseMerge() {
  SourceRange begin = here();
  accept(Keyword::Merge);
  FileIdentifierExpression *file = parseFileName();
  if (!file)
    return nullptr;
  auto *merge = make<MergeStatement>(begin, file);
  if (!parseSeries(*merge, &MergeStatement::addKeySeq, &FileStatements::parseSortKey,
                   &FileStatements::atSortKey))
    return nullptr;
  Word *alphabet = nullptr;
  if (!parseCollatingSequence(alphabet))
    return nullptr;
  merge->setSeqAlphaName(alphabet);

  if (!at(Keyword::Using))
    return expected("USING");
  merge->setInput(parseSortIO(Keyword::Using, Keyword::Using));
  if (!merge->getInput())
    return nullptr;
  if (merge->getInput()->getFileNameListSize() < 2)
    return expected("the second file of the merge");
  if (!at(Keyword::Giving, Keyword::Output))
    return expected("GIVING or OUTPUT PROCEDURE");
  merge->setOutput(parseSortIO(Keyword::Giving, Keyword::Output));
  return merge->getOutput() ? complete(merge) : nullptr;
}

} // namespace tarka
