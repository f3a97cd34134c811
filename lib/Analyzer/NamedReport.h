//===- NamedReport.h - a diagnostic about a name ----------------*- C++ -*-===//

#ifndef TARKA_LIB_ANALYZER_NAMEDREPORT_H
#define TARKA_LIB_ANALYZER_NAMEDREPORT_H

#include "AST/Expression.h"
#include "Analyzer/ErrorHandler.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// SemanticChecker::report() where \p node is more than the name that the message is about. A null
/// name, which cannot come from source, is left out.
inline bool reportName(SemanticChecker &checker, ErrorCode code, Node *node, const Word *name) {
  checker.report(code, node);
  if (name)
    checker.getErrorHandler()->lastEntry().setSubject(name->getDisplayName());
  return false;
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_NAMEDREPORT_H
