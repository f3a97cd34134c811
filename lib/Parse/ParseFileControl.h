//===- ParseFileControl.h - environment division, input-output --*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSEFILECONTROL_H
#define TARKA_LIB_PARSE_PARSEFILECONTROL_H

#include "AST/Environment.h"
#include "Parse/ParseClauses.h"

namespace tarka {

class FileControlParser : public ClauseParser {
public:
  using ClauseParser::ClauseParser;

  /// With the header of the paragraph next.
  void parseFileControl(InputOutputSection &section);
  /// Parses the SELECT entries that are next and adds them to \p section.
  void parseFileEntries(InputOutputSection &section);
  void parseIOControl(InputOutputSection &section);

private:
  ParaFileControl *parseSelect();
  bool parseSelectClause(ParaFileControl &file);
  ClauseAssign *parseAssign();
  bool atMisspeltSelectClause();
  ClauseReserve *parseReserve();
  ClauseOrganization *parseOrganization();
  ClausePadding *parsePadding();
  ClauseRecordDelimiter *parseRecordDelimiter();
  ClauseAccess *parseAccess();
  ClauseStatus *parseFileStatus();
  ClausePassWord *parsePassword();
  ClauseRecordKey *parseRecordKey();
  ClauseRelativeKey *parseRelativeKey();
  ClauseAlternate *parseAlternateKey();
  bool parseIOControlClause(InputOutputSection &section);
  ClauseRerun *parseRerun();
  ClauseSame *parseSame();
  ClauseMultipleFile *parseMultipleFile();
  ClauseApplyWriteOnly *parseApplyWriteOnly();
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSEFILECONTROL_H
