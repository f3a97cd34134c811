//===- ParseStatementData.h - ACCEPT, MOVE, SET ... -------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESTATEMENTDATA_H
#define TARKA_LIB_PARSE_PARSESTATEMENTDATA_H

#include "Parse/ParseStatement.h"

namespace tarka {

class DataStatements : public StatementParser {
public:
  using StatementParser::StatementParser;

  // Each with its verb next.
  StatementResult parseAccept();
  StatementResult parseAllocate();
  StatementResult parseDisplay();
  StatementResult parseFree();
  StatementResult parseInitialize();
  StatementResult parseMove();
  StatementResult parseSet();

private:
  AcceptFrom *parseAcceptFrom();
  SetItem *parseSetItem();
  SetToValue *parseSetToValue();
  bool parseInitializeToValue(InitializeStatement &initialize);
  bool parseInitializeReplacing(InitializeStatement &initialize);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESTATEMENTDATA_H
