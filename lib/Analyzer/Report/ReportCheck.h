//===- ReportCheck.h - what the checks of the report section share --------===//
//
// The description as a whole, with its groups and lines, is checked in
// SCReportDescription.cpp, what an entry shows in SCReportEntry.cpp.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_REPORTCHECK_H
#define TARKA_LIB_ANALYZER_REPORTCHECK_H

#include "AST/ReportDescription.h"
#include "Analyzer/SemanticChecker.h"
#include <list>

namespace tarka {

/// Checks a number of lines, columns or times; null, for a phrase that is absent, passes. A
/// relative number may be zero: LINE PLUS 0 overprints the line before.
bool checkReportNumber(SemanticChecker &checker, Expression *number, bool isRelative = false);

/// Binds the name of a control, which is a data item.
bool checkControlName(SemanticChecker &checker, IdentifierExpression &name);

/// Checks the bounds of the counters of VARYING; \p phrases may be null.
bool checkVarying(SemanticChecker &checker, const std::list<VaryingPhrase *> *phrases);

/// Checks what an entry of a report group shows, where and how often. The entry has passed the
/// checks of data description entries.
bool checkReportEntry(SemanticChecker &checker, ReportDataDescription &entry);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_REPORTCHECK_H
