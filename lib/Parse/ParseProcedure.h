//===- ParseProcedure.h - procedure division --------------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSEPROCEDURE_H
#define TARKA_LIB_PARSE_PARSEPROCEDURE_H

#include "Parse/ParseStatement.h"

namespace tarka {

class ProcedureParser : public StatementParser {
public:
  using StatementParser::StatementParser;

  /// With PROCEDURE DIVISION next. Never null.
  ProcedureDivision *parseProcedureDivision();
  /// The header of the division after statements that stood before it, and what follows it.
  void resumeProcedureDivision(ProcedureDivision &division);
  /// Parses sections, paragraphs and sentences up to the end of the unit and adds them to
  /// \p division.
  void parseProcedures(ProcedureDivision &division);

private:
  void parseProcedureHeader(ProcedureDivision &division);
  bool takeDisplacedHeader(ProcedureDivision &division);
  Section *parseSectionHeader();
  Word *parseHeaderName();
  /// The paragraphs and sentences up to the next section or the end of the part.
  template <typename Owner> void parseParagraphs(Owner &owner);
  Paragraph *parseParagraph();
  /// A sentence with its period; null when nothing of it is left after its mistakes.
  Sentence *parseSentence();
  bool atProcedureBody();

  void parseDeclaratives(ProcedureDivision &division);
  void parseDeclarativeSection(ProcedureDivision &division);
  void takeEndDeclaratives();
  bool rejectDeclaratives();
  bool atMisspeltUse();
  void skipToEndOfUse(bool isRead);
  UseStatement *parseUse();
  UseStatement *parseUseException(const SourceRange &begin, bool isGlobal);
  UseStatement *parseUseLabel(const SourceRange &begin, bool isGlobal, UseTimingType timing);
  UseStatement *parseUseReporting(const SourceRange &begin, bool isGlobal);
  UseStatement *parseUseDebugging(const SourceRange &begin);
  bool parseUseFiles(UseStatement &use);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSEPROCEDURE_H
