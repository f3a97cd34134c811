//===- Statement.h - all statements -----------------------------*- C++ -*-===//
//
// Includes every statement class, family by family.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENT_H
#define TARKA_AST_STATEMENT_H

#include "AST/StatementArithmetic.h" // IWYU pragma: export
#include "AST/StatementBase.h"       // IWYU pragma: export
#include "AST/StatementBranch.h"     // IWYU pragma: export
#include "AST/StatementData.h"       // IWYU pragma: export
#include "AST/StatementFile.h"       // IWYU pragma: export
#include "AST/StatementInner.h"      // IWYU pragma: export
#include "AST/StatementReport.h"     // IWYU pragma: export
#include "AST/StatementXml.h"        // IWYU pragma: export

#endif // TARKA_AST_STATEMENT_H
