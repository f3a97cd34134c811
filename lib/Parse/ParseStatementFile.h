//===- ParseStatementFile.h - READ, WRITE, SORT ... -------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESTATEMENTFILE_H
#define TARKA_LIB_PARSE_PARSESTATEMENTFILE_H

#include "Parse/ParseStatement.h"

namespace tarka {

class FileStatements : public StatementParser {
public:
  using StatementParser::StatementParser;

  // Each with its verb next.
  StatementResult parseClose();
  StatementResult parseDelete();
  StatementResult parseMerge();
  StatementResult parseOpen();
  StatementResult parseRead();
  StatementResult parseRelease();
  StatementResult parseReturn();
  StatementResult parseRewrite();
  StatementResult parseSort();
  StatementResult parseStart();
  StatementResult parseWrite();

private:
  bool atTableToSort();
  StatementResult parseSortTable(const SourceRange &begin);
  OpenFile *parseOpenFile();
  CloseFile *parseCloseFile();
  std::optional<RelationalConditionType> parseStartRelation();
  bool parseFromPhrase(IdentifierExpression *&from);
  bool parseWriteAdvancing(WriteStatement &write);
  bool atSortKey();
  SortKey *parseSortKey();
  bool parseDuplicates();
  bool parseCollatingSequence(Word *&alphabet);
  SortIO *parseSortIO(Keyword filesWord, Keyword procedureWord);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESTATEMENTFILE_H
