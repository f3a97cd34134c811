//===- ProcedureName.h - ranges of procedures -------------------*- C++ -*-===//
//
// What PERFORM, and the procedures of SORT and MERGE, run: the procedures from one
// name to another.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_PROCEDURENAME_H
#define TARKA_LIB_ANALYZER_PROCEDURENAME_H

#include "AST/Statement.h"

namespace tarka {

class SemanticChecker;

/// Finds the procedures that \p statement runs, from \p begin to \p thru or, when that is null, the
/// one named \p begin; stores them in \p range, and marks the last one as the end of a range. Of
/// several statements whose ranges end at one procedure, the last one leaves its line there. False,
/// with a diagnostic, when a name means no procedure.
bool resolveRange(SemanticChecker &checker, ProcedureRange &range, QualifiedWord *begin,
                  QualifiedWord *thru, Statement &statement);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_PROCEDURENAME_H
