//===- ParseStatementReport.cpp - statements of the report writer ---------===//

#include "Parse/ParseStatementReport.h"

namespace tarka {

/// INITIATE report-name...
StatementResult ReportStatements::parseInitiate() {
  SourceRange begin = here();
  accept(Keyword::Initiate);
  auto *initiate = make<RwInitiateStatement>(begin);
  return parseReportNames(*initiate, &RwInitiateStatement::addInitiateName) ? complete(initiate)
                                                                            : nullptr;
}

/// TERMINATE report-name...
StatementResult ReportStatements::parseTerminate() {
  SourceRange begin = here();
  accept(Keyword::Terminate);
  auto *terminate = make<RwTerminateStatement>(begin);
  return parseReportNames(*terminate, &RwTerminateStatement::addTerminateName) ? complete(terminate)
                                                                               : nullptr;
}

/// GENERATE {report-name | detail-group [{OF | IN} report-name]}
///
/// A name alone is a report or a group, which the check finds out; a qualified one is a group.
StatementResult ReportStatements::parseGenerate() {
  SourceRange begin = here();
  accept(Keyword::Generate);
  IdentifierExpression *name = nullptr;
  if (peek(1).isOneOf(Keyword::Of, Keyword::In))
    name = parseDataName("a report-name or the name of a detail group");
  else
    name = parseReportName();
  return name ? make<RwGenerateStatement>(begin, name) : nullptr;
}

/// SUPPRESS [PRINTING]
StatementResult ReportStatements::parseSuppress() {
  SourceRange begin = here();
  accept(Keyword::Suppress);
  accept(Keyword::Printing);
  return make<RwSuppressStatement>(begin);
}

} // namespace tarka
