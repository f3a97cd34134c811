//===- StatementCopy.h - statements of a copied section ---------*- C++ -*-===//

#ifndef TARKA_AST_STATEMENTCOPY_H
#define TARKA_AST_STATEMENTCOPY_H

#include "AST/Forward.h"

namespace tarka {

/// A copy of \p original that can be checked and lowered on its own: the statements nested in it
/// are copied too, and the procedures that it names are not resolved.
///
/// Operands and conditions are shared, since they refer to the same data in both places.
Statement *copyStatement(Statement *original);

} // namespace tarka

#endif // TARKA_AST_STATEMENTCOPY_H
