//===- SCStmt.cpp - the dispatch of statements ----------------------------===//
//
// Every statement of every sentence is checked through the dispatch here.
//
//===----------------------------------------------------------------------===//

#include "AST/Statement.h"
#include "AST/StatementVisitor.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/PartCheck.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "llvm/Support/SaveAndRestore.h"
#include <concepts>

namespace tarka {

//===----------------------------------------------------------------------===//
// Dispatch
//===----------------------------------------------------------------------===//

namespace {

/// Whether there is a check for the statements of \p Class. Statements without operands have none.
template <typename Class>
concept HasCheck =
    requires { static_cast<bool (SemanticChecker::*)(Class &)>(&SemanticChecker::semanticCheck); };

/// Hands a statement to the check of its class.
class StatementCheck : public StatementVisitor<StatementCheck, bool> {
public:
  explicit StatementCheck(SemanticChecker &semanticChecker) : checker(semanticChecker) {}

#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  bool visit##Class(Class &statement) { return check(statement); }
#define TARKA_OTHER_STATEMENT(Kind, Number, Class, Verb)
#include "AST/Statements.def"

  /// Statements that are not allowed in a sentence.
  bool visitStatement(Statement &statement) {
    return checker.report(ErrorCode::StatementInvalid, &statement);
  }

private:
  template <typename Class> bool check(Class &statement) {
    if constexpr (HasCheck<Class>)
      return checker.semanticCheck(statement);
    else if constexpr (std::derived_from<Class, OperandStatement>)
      return checker.semanticCheck(static_cast<OperandStatement &>(statement));
    else
      return true;
  }

  SemanticChecker &checker;
};

} // namespace

bool SemanticChecker::semanticCheck(Statement &statement) {
  const PartCheck part(*this, CheckedPart::Statement, statement);
  const llvm::SaveAndRestore outer(state->hasPlainOperands, true);
  const bool ok = StatementCheck(*this).visit(statement);
  statement.setHasPlainOperands(state->hasPlainOperands);
  return part.done(ok);
}

bool SemanticChecker::semanticCheck(ExceptionHandler &handler) {
  if (handler.getImperStmtListSize() == 0)
    return report(ErrorCode::ExceptionHandlerInvalid, &handler);
  bool ok = true;
  for (Statement *statement : handler.getImperStmtListElements())
    ok &= semanticCheck(*statement);
  return ok;
}

bool SemanticChecker::semanticCheck(OperandStatement &statement) {
  return OperandCheck(*this)
      .all(statement.getSourceListElements())
      .all(statement.getReceiverListElements())
      .all(statement.getPartListElements())
      .all(statement.getExceptHandlerElements());
}

bool SemanticChecker::semanticCheck(ContinueStatement &) {
  return true;
}

bool SemanticChecker::semanticCheck(GobackStatement &) {
  return true;
}

} // namespace tarka
