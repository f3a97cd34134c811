//===- ParseReport.h - data division, report section ------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSEREPORT_H
#define TARKA_LIB_PARSE_PARSEREPORT_H

#include "AST/ReportDescription.h"
#include "Parse/ParseData.h"

namespace tarka {

/// The clauses of an entry of a report group.
extern const ClauseSet groupClauses;

class ReportParser : public DataParser {
public:
  using DataParser::DataParser;

  /// With the entries of the report section next; adds the reports to \p division.
  void parseReportSection(DataDivision &division);

private:
  /// Parses report groups; \p report may be null.
  void parseReportGroups(ReportDescription *report);
  /// One entry of a report group, with its level number next.
  DataDescription *parseReportGroupEntry(unsigned assumedLevel);
  ReportDescription *parseReportDescription();
  bool parseReportDescriptionClause(ReportDescription &report);
  ClauseAllow *parseAllow();
  ClauseCode *parseCode();
  ClauseControl *parseControl();
  ClauseLineLimit *parseLineLimit();
  ClauseOverflow *parseOverflow();
  ClausePageLimit *parsePageLimit();
  bool parsePageRegion(ClausePageLimit &page);
  ClauseStyle *parseStyle();

  bool atNameIn(const ClauseSet &clauses);
  /// \p choice is the condition read last, for what the item shows under it.
  bool parseReportGroupClause(ReportDataDescription &entry, PresentContents *&choice);
  ClauseType *parseType();
  ReportGroupType parseGroupType();
  bool parseTypeControls(ClauseType &type);
  ClauseLine *parseLine();
  bool acceptPlus();
  void acceptNumber();
  bool atLineOrColumn(std::size_t count);
  ClauseColumn *parseColumn();
  ClauseNextGroup *parseNextGroup();
  ClauseGroupLimit *parseGroupLimit();
  ClauseReportOccurs *parseReportOccurs();
  std::list<VaryingPhrase *> *parseVarying();
  ClauseRepeated *parseRepeated();
  ClauseMultiple *parseMultiple();
  ClauseWrap *parseWrap();
  bool parseReportContents(ReportDataDescription &entry, PresentContents *&choice);
  ClauseSource *parseSource();
  SourceClauseExpr *parseSourceOperand();
  SumClauseExpr *parseSum();
  ClauseSum *parseSumClause();
  ClauseCount *parseCount();
  ClauseFunction *parseFunctionClause();
  ClauseReportSign *parseReportSign();
  bool parsePresent(ReportDataDescription &entry, PresentContents *&choice);
  ClausePresentWhen *parsePresentWhen(const SourceRange &begin, bool isAbsent);
  ClausePresentAfter *parsePresentAfter(const SourceRange &begin);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSEREPORT_H
