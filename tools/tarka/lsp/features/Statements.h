//===- Statements.h - all statements of a program ---------------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_FEATURES_STATEMENTS_H
#define TARKA_TOOLS_LSP_FEATURES_STATEMENTS_H

#include "AST/Program.h"
#include "AST/Statement.h"
#include "llvm/ADT/STLFunctionalExtras.h"

namespace tarka::lsp {

/// Calls \p visit for every statement of every program, a statement before those nested in it.
void forEachStatement(Program &program, llvm::function_ref<void(Statement &)> visit);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_STATEMENTS_H
