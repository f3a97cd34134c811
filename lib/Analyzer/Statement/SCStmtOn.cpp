//===- SCStmtOn.cpp - ON of OS/VS COBOL -----------------------------------===//
//
// ON runs statements the first times that control reaches it, or every so many
// times: a counter and an IF.
//
//===----------------------------------------------------------------------===//

#include "AST/Statement.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "Analyzer/Statement/OsvsMaker.h"

namespace tarka {

/// The counts of ON are positive integers.
static bool checkCount(SemanticChecker &checker, Expression *count) {
  if (!count)
    return true;
  if (!checker.semanticCheck(*count))
    return false;
  if (isUnknown(*count))
    return true;
  const auto *literal = llvm::dyn_cast<NumericLiteralExpression>(count);
  if (!isNumber(*count) || !count->isInteger() || (literal && !literal->isPositive()))
    return checker.report(ErrorCode::IntegerExpressionInvalid, count);
  return true;
}

/// The condition under which the statements run: from the first count on, every so many times, up
/// to the last count. The first count alone means that count only.
static Condition *makeCountCondition(OsvsMaker &make, OnStatement &statement,
                                     llvm::StringRef counter) {
  Expression *first = statement.getOnExpr();
  Expression *every = statement.getEveryExpr();
  Expression *until = statement.getUntilExpr();
  if (!every && !until)
    return make.compare(RelationalConditionType::Equal, make.reference(counter), first);

  Condition *condition =
      make.compare(RelationalConditionType::NotLess, make.reference(counter), first);
  if (until)
    condition = make.combine(
        CombinedOperatorType::And, condition,
        make.compare(RelationalConditionType::NotGreater, make.reference(counter), until));
  if (!every)
    return condition;

  auto *since =
      generate<ArithmeticExpression>(make.place(), ArithmeticExprType::Subtract,
                                     make.reference(counter), first, /*parenthesised=*/false);
  auto *rest = generate<FunctionIdentifierExpression>(make.place(), IntrinsicType::Mod,
                                                      generate<Word>(make.place(), "MOD", ""));
  rest->addFunctionArg(since);
  rest->addFunctionArg(every);
  rest->setDataCategory(DataCategory::Numeric);
  return make.combine(CombinedOperatorType::And, condition,
                      make.compare(RelationalConditionType::Equal, rest, make.zero()));
}

/// Each ON has its own counter, which is incremented every time control reaches the statement.
bool SemanticChecker::semanticCheck(OnStatement &statement) {
  bool ok = checkCount(*this, statement.getOnExpr());
  ok &= checkCount(*this, statement.getEveryExpr());
  ok &= checkCount(*this, statement.getUntilExpr());

  OsvsMaker make(*this, statement);
  llvm::StringRef counter =
      make.keep("TKDUMMY-ON-", make.item("9(8)", UsageType::Binary), make.zero());
  auto *count = generate<AddStatement>(&statement, AddStmtType::To);
  count->addOperand(make.number("1"));
  count->addTo(makeRoundedOperand(make.reference(counter), nullptr));
  statement.setAddStmt(count);
  statement.setCondition(makeCountCondition(make, statement, counter));

  return OperandCheck(*this)
             .all(statement.getUntilStmtListElements())
             .all(statement.getElseStmtListElements()) &&
         ok;
}

} // namespace tarka
