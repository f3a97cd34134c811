//===- ParseStatementReport.h - GENERATE, INITIATE ... ----------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESTATEMENTREPORT_H
#define TARKA_LIB_PARSE_PARSESTATEMENTREPORT_H

#include "Parse/ParseStatement.h"

namespace tarka {

class ReportStatements : public StatementParser {
public:
  using StatementParser::StatementParser;

  // Each with its verb next.
  StatementResult parseGenerate();
  StatementResult parseInitiate();
  StatementResult parseSuppress();
  StatementResult parseTerminate();
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESTATEMENTREPORT_H
