//===- ParseStatementString.h - STRING, INSPECT ... -------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESTATEMENTSTRING_H
#define TARKA_LIB_PARSE_PARSESTATEMENTSTRING_H

#include "Parse/ParseStatement.h"

namespace tarka {

class StringStatements : public StatementParser {
public:
  using StatementParser::StatementParser;

  // Each with its verb next.
  StatementResult parseExamine();
  StatementResult parseExhibit();
  StatementResult parseInspect();
  StatementResult parseString();
  StatementResult parseTransform();
  StatementResult parseUnstring();

private:
  StringItem *parseStringItem();
  bool parsePointerPhrase(IdentifierExpression *&pointer);
  bool parseUnstringDelimiters(UnstringStatement &unstring);
  UnstringIntoItem *parseUnstringInto();
  bool parseInspectRegions(NodeList<InspectRegion> &regions);
  bool atInspectMode();
  bool atTallyingCounter();
  TallyingItemFor *parseTallyingFor();
  TallyingItem *parseTallyingItem();
  ReplacingItem *parseReplacingItem();
  ConvertingItem *parseConvertingItem();
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESTATEMENTSTRING_H
