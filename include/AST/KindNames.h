//===- KindNames.h - the texts of the enumerations --------------*- C++ -*-===//
//
// How the kinds of the tree are written, for printers and messages.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_KINDNAMES_H
#define TARKA_AST_KINDNAMES_H

#include "AST/Kinds.h"
#include "llvm/ADT/StringRef.h"

namespace tarka {

// nameOf(value) for every enumeration of Enumerations.def: how the value is written, such as
// "NOT =" or "alphanumeric-edited"; empty for a value that has no text.
#define TARKA_ENUM(Type) llvm::StringRef nameOf(Type value);
#define TARKA_VALUE(Enumerator, Number, Text)
#define TARKA_END
#include "AST/Enumerations.def"

/// The class of the nodes of a kind, such as "IfStatement"; "Statement" and the like for a
/// number that is not a kind.
llvm::StringRef classNameOf(StatementType kind);
llvm::StringRef classNameOf(ExpressionType kind);
llvm::StringRef classNameOf(ConditionType kind);

/// What the programmer wrote, such as "IF" or "EXIT PERFORM". For the statements that the graph
/// builder makes, lower-case words that say what they do; empty for a number that is not a kind.
llvm::StringRef verbOf(StatementType kind);

} // namespace tarka

#endif // TARKA_AST_KINDNAMES_H
