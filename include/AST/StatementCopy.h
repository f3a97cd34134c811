//===- StatementCopy.h - statements of a copied section ---------*- C++ -*-===//

#ifndef TARKA_AST_STATEMENTCOPY_H
#define TARKA_AST_STATEMENTCOPY_H

#include "AST/Forward.h"

namespace tarka {

/// A statement that does the same as \p original but can be checked and lowered on its own: the
/// statements nested in it are copies too, and the procedures that it names are still to be found.
///
/// Operands and conditions are shared, since they mean the same data in either place.
Statement *copyStatement(Statement *original);

} // namespace tarka

#endif // TARKA_AST_STATEMENTCOPY_H
