//===- SCStmtMove.cpp - MOVE ----------------------------------------------===//
//
// The MOVE statement, and what the checks report about a move. MoveRules.h has the
// rules themselves.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/Statement/MoveRules.h"

namespace tarka {

/// Reports a move once for each of its faults; with --enterprise, once. \p sender is null where
/// only its category is known.
static void reportFaults(SemanticChecker &checker, const MoveVerdict &verdict,
                         const Expression *sender, IdentifierExpression &receiver) {
  for ([[maybe_unused]] MoveFault fault : verdict.faults) {
    checker.report(ErrorCode::MoveInvalid, &receiver);
    checker.getErrorHandler()->lastEntry().setOtherOperand(sender);
    if (followsEnterprise(EnterpriseRule::OneMessagePerMove))
      return;
  }
}

MoveVerdict checkMove(SemanticChecker &checker, const Expression &sender,
                      IdentifierExpression &receiver) {
  MoveVerdict verdict = decideMove(sender, receiver);
  reportFaults(checker, verdict, &sender, receiver);
  return verdict;
}

MoveRule SemanticChecker::getMoveRule(DataCategory sender, IdentifierExpression *receiver) {
  const MoveVerdict verdict = decideMove(sender, *receiver);
  reportFaults(*this, verdict, nullptr, *receiver);
  return verdict.rule;
}

MoveRule SemanticChecker::getMoveRule(Expression *sender, IdentifierExpression *receiver) {
  return checkMove(*this, *sender, *receiver).rule;
}

/// In OS/VS COBOL, CURRENT-DATE and TIME-OF-DAY can be senders. Special registers stand for them.
static void replaceOsvsSender(MoveStatement &statement) {
  auto *sender = llvm::dyn_cast_if_present<DataIdentifierExpression>(statement.getSource());
  if (!sender || !sender->getQualifiedWord())
    return;
  const std::string &name = (*sender->getQualifiedWord()->getNamesBegin())->getWordData();
  bool isDate = name == "CURRENT-DATE";
  if (!isDate && name != "TIME-OF-DAY")
    return;
  Node at(sender);
  Word *word =
      generate<Word>(&at, isDate ? "TARKA-OSVS-CURRENT-DATE" : "TARKA-OSVS-TIME-OF-DAY", "");
  statement.setSource(generate<SpecialRegisterIdentifierExpression>(
      &at, isDate ? SpecialRegisterType::OsvsCurrentDate : SpecialRegisterType::OsvsTimeOfDay,
      nullptr, word, nullptr, nullptr, nullptr, nullptr));
}

bool SemanticChecker::semanticCheck(MoveStatement &statement) {
  bool ok = true;
  if (!statement.getSource())
    ok = report(ErrorCode::IdentifierRequired, &statement);
  if (CompileOption::getCompileOptionInstance()->isOptionEnableOsvs())
    replaceOsvsSender(statement);
  if (statement.getSource())
    ok &= semanticCheck(*statement.getSource());
  if (statement.getTargetListSize() == 0)
    ok = report(ErrorCode::IdentifierRequired, &statement);

  // After the first error the remaining receivers are checked, but get no rule.
  llvm::SmallVector<MoveRule, 8> rules;
  for (IdentifierExpression *receiver : statement.getTargetListElements()) {
    if (llvm::isa<FunctionIdentifierExpression>(receiver)) {
      ok = report(ErrorCode::FunctionInReceivingArea, &statement);
      continue;
    }
    ok &= semanticCheck(*receiver);
    if (ok)
      rules.push_back(getMoveRule(statement.getSource(), receiver));
  }
  statement.setMoveRules(rules);
  return ok;
}

} // namespace tarka
