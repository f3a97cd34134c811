//===- ParseStatementXml.h - XML --------------------------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESTATEMENTXML_H
#define TARKA_LIB_PARSE_PARSESTATEMENTXML_H

#include "Parse/ParseStatement.h"

namespace tarka {

class XmlStatements : public StatementParser {
public:
  using StatementParser::StatementParser;

  // Each with its verb next.
  StatementResult parseXml();

protected:
  bool acceptWith(Keyword keyword);
  bool atXmlSuppressItem();
  XMLSuppressItem *parseXmlSuppressItem();

private:
  bool atWith(Keyword keyword);
  StatementResult parseXmlGenerate(const SourceRange &begin);
  StatementResult parseXmlParse(const SourceRange &begin);
  bool parseXmlNamespace(XMLGenerateStatement &generate);
  XMLNameItem *parseXmlNameItem();
  XmlNodeType acceptXmlNodeType();
  XMLTypeItem *parseXmlTypeItem();
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESTATEMENTXML_H
