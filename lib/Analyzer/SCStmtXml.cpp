//===- SCStmtXml.cpp - XML GENERATE and XML PARSE -------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"
#include <algorithm>
#include <cstdint>

namespace tarka {

bool SemanticChecker::semanticCheck(XMLGenerateStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getGenIdent())
      .one(statement.getFromIdent())
      .one(statement.getCountIdent())
      .one(statement.getCodePage())
      .one(statement.getNameSpaceExpr())
      .one(statement.getPrefixExpr())
      .all(statement.getOnExcpHandlerElements());
}

/// The processing procedure is run like a performed range. The register XML-TEXT will have to hold
/// the largest document that the source unit parses.
bool SemanticChecker::semanticCheck(XMLParseStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getParseIdent())
      .one(statement.getCodePage())
      .one(statement.getValidatingIdent());
  if (DataDescription *document =
          statement.getParseIdent() ? statement.getParseIdent()->getDataDescription() : nullptr)
    setXmlTextSize(std::max<std::uint64_t>(getXmlTextSize(), document->getAllocSize()));
  bool result = check;
  result &= resolveRange(statement, statement.getParseProcedure(), statement.getThruProcedure(),
                         statement);
  return OperandCheck(*this).all(statement.getOnExcpHandlerElements()) && result;
}

} // namespace tarka
