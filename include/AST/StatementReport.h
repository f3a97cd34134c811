//===- StatementReport.h - report writer statements -------------*- C++ -*-===//
//
// GENERATE, INITIATE, TERMINATE and SUPPRESS.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENTREPORT_H
#define TARKA_AST_STATEMENTREPORT_H

#include "AST/StatementBase.h"

namespace tarka {

/// GENERATE {report-name | detail-group}
class RwGenerateStatement : public StatementOf<StatementType::RwGenerate> {
public:
  RwGenerateStatement(const Node *at, IdentifierExpression *name)
      : StatementOf(at), fileName(name) {}

  /// What is generated: a ReportIdentifierExpression for a name without qualifiers, a
  /// DataIdentifierExpression for a qualified one.
  TARKA_FIELD(IdentifierExpression *, fileName, FileName)

private:
  IdentifierExpression *fileName = nullptr;
};

/// INITIATE report-name...
class RwInitiateStatement : public StatementOf<StatementType::RwInitiate> {
public:
  explicit RwInitiateStatement(const Node *at) : StatementOf(at) {}

  TARKA_LIST_ADD(ReportIdentifierExpression, names, InitiateNameList, InitiateName)

private:
  NodeList<ReportIdentifierExpression> names;
};

/// TERMINATE report-name...
class RwTerminateStatement : public StatementOf<StatementType::RwTerminate> {
public:
  explicit RwTerminateStatement(const Node *at) : StatementOf(at) {}

  TARKA_LIST_ADD(ReportIdentifierExpression, names, TerminateNameList, TerminateName)

private:
  NodeList<ReportIdentifierExpression> names;
};

/// SUPPRESS PRINTING
class RwSuppressStatement : public StatementOf<StatementType::RwSuppress> {
public:
  explicit RwSuppressStatement(const Node *at) : StatementOf(at) {}
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTREPORT_H
