//===- ParseStatementJson.h - JSON ------------------------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESTATEMENTJSON_H
#define TARKA_LIB_PARSE_PARSESTATEMENTJSON_H

#include "Parse/ParseStatementXml.h"

namespace tarka {

class JsonStatements : public XmlStatements {
public:
  using XmlStatements::XmlStatements;

  // With its verb next.
  StatementResult parseJson();

private:
  StatementResult parseJsonGenerate(const SourceRange &begin);
  StatementResult parseJsonParse(const SourceRange &begin);
  bool parsePhrases(OperandStatement &statement);
  bool parseNames(OperandStatement &statement);
  bool parseSuppressions(OperandStatement &statement);
  bool parseJsonValues();
  bool parseConversion();
  bool parseIndication();
  bool parseIgnored();
  bool parseListed(bool (JsonStatements::*parseOne)());
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESTATEMENTJSON_H
