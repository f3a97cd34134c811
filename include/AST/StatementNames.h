//===- StatementNames.h - what statements are called ------------*- C++ -*-===//
//
// Names of the kinds of statements, for printers and messages.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENTNAMES_H
#define TARKA_AST_STATEMENTNAMES_H

#include "AST/Kinds.h"
#include "llvm/ADT/StringRef.h"

namespace tarka {

/// The class of the statements of \p kind, such as "IfStatement"; "Statement" for a kind that has
/// none.
llvm::StringRef classNameOf(StatementType kind);

/// What the programmer wrote, such as "IF" or "EXIT PERFORM". For the statements that the graph
/// builder makes, lower-case words that say what they do; empty for a kind without a class.
llvm::StringRef verbOf(StatementType kind);

} // namespace tarka

#endif // TARKA_AST_STATEMENTNAMES_H
