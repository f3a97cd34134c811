//===- ParseStatementArithmetic.cpp - ADD to COMPUTE ----------------------===//
//
// The arithmetic statements. What may receive a result is for the checker to
// say, so receiving operands are read as any operands: ADD 1 TO 5 has a tree.
//
//===----------------------------------------------------------------------===//

#include "Parse/ParseStatementArithmetic.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// What the arithmetic statements share
//===----------------------------------------------------------------------===//

/// receiver [ROUNDED]
RoundedOperand *ArithmeticStatements::parseReceiver() {
  Expression *receiver = parseOperand("an identifier");
  if (!receiver)
    return nullptr;
  Word *rounded = at(Keyword::Rounded) ? takeWord() : nullptr;
  return makeRoundedOperand(receiver, rounded);
}

/// {receiver [ROUNDED]}...
bool ArithmeticStatements::parseReceivers(NodeList<RoundedOperand> &receivers) {
  do {
    RoundedOperand *receiver = parseReceiver();
    if (!receiver)
      return false;
    receivers.push_back(receiver);
  } while (atOperand());
  return true;
}

/// The one operand before GIVING, which was parsed as a receiving operand. Null after a message.
Expression *ArithmeticStatements::soleOperand(const NodeList<RoundedOperand> &operands) {
  if (operands.size() > 1)
    return error(DiagnosticId::OneOperandBeforeGiving,
                 (*std::next(operands.begin()))->first->getRange());
  if (Word *rounded = operands.front()->second)
    return error(DiagnosticId::RoundedBeforeGiving, rounded->getRange());
  return operands.front()->first;
}

//===----------------------------------------------------------------------===//
// ADD and SUBTRACT
//===----------------------------------------------------------------------===//

/// ADD operand... TO {receiver [ROUNDED]}...
/// ADD operand... [TO operand] GIVING {receiver [ROUNDED]}...
/// ADD {CORRESPONDING | CORR} group TO group [ROUNDED]
///   [[NOT] ON SIZE ERROR statements]... [END-ADD]
StatementResult ArithmeticStatements::parseAdd() {
  SourceRange begin = here();
  accept(Keyword::Add);
  auto *add = make<AddStatement>(begin, AddStmtType::To);

  if (acceptAny(Keyword::Corresponding, Keyword::Corr)) {
    add->setType(AddStmtType::Corresponding);
    add->setCorrespondingExpr(parseOperand("the group to be added"));
    if (!add->getCorrespondingExpr() || !expect(Keyword::To))
      return nullptr;
    add->setToRoundExpr(parseReceiver());
    if (!add->getToRoundExpr())
      return nullptr;
    return finish(add, &AddStatement::addSizeErrorHandler);
  }

  if (!parseOperands(*add, &AddStatement::addOperand))
    return nullptr;
  NodeList<RoundedOperand> receivers;
  if (accept(Keyword::To)) {
    if (!parseReceivers(receivers))
      return nullptr;
  } else if (!at(Keyword::Giving)) {
    return expected("TO or GIVING");
  }
  if (accept(Keyword::Giving)) {
    add->setType(AddStmtType::Giving);
    if (!receivers.empty()) {
      add->setToOperand(soleOperand(receivers));
      if (!add->getToOperand())
        return nullptr;
    }
    if (!parseReceivers(*add, &AddStatement::addGiving))
      return nullptr;
  } else {
    add->setToList(&receivers);
  }
  return finish(add, &AddStatement::addSizeErrorHandler);
}

/// SUBTRACT operand... FROM {receiver [ROUNDED]}...
/// SUBTRACT operand... FROM operand GIVING {receiver [ROUNDED]}...
/// SUBTRACT {CORRESPONDING | CORR} group FROM group [ROUNDED]
///   [[NOT] ON SIZE ERROR statements]... [END-SUBTRACT]
StatementResult ArithmeticStatements::parseSubtract() {
  SourceRange begin = here();
  accept(Keyword::Subtract);
  auto *subtract = make<SubtractStatement>(begin, SubtractStmtType::From);

  if (acceptAny(Keyword::Corresponding, Keyword::Corr)) {
    subtract->setType(SubtractStmtType::Corresponding);
    subtract->setCorrExpr(parseOperand("the group to be subtracted"));
    if (!subtract->getCorrExpr() || !expect(Keyword::From))
      return nullptr;
    subtract->setFromRoundExpr(parseReceiver());
    if (!subtract->getFromRoundExpr())
      return nullptr;
    return finish(subtract, &SubtractStatement::addSizeErrorHandler);
  }

  if (!parseOperands(*subtract, &SubtractStatement::addOperand) || !expect(Keyword::From))
    return nullptr;
  NodeList<RoundedOperand> receivers;
  if (!parseReceivers(receivers))
    return nullptr;
  if (accept(Keyword::Giving)) {
    subtract->setType(SubtractStmtType::Giving);
    subtract->setFromExpr(soleOperand(receivers));
    if (!subtract->getFromExpr() || !parseReceivers(*subtract, &SubtractStatement::addGiving))
      return nullptr;
  } else {
    subtract->setFromList(&receivers);
  }
  return finish(subtract, &SubtractStatement::addSizeErrorHandler);
}

//===----------------------------------------------------------------------===//
// MULTIPLY and DIVIDE
//===----------------------------------------------------------------------===//

/// MULTIPLY operand BY {receiver [ROUNDED]}...
/// MULTIPLY operand BY operand GIVING {receiver [ROUNDED]}...
///   [[NOT] ON SIZE ERROR statements]... [END-MULTIPLY]
StatementResult ArithmeticStatements::parseMultiply() {
  SourceRange begin = here();
  accept(Keyword::Multiply);
  Expression *multiplicand = parseOperand();
  NodeList<RoundedOperand> receivers;
  if (!multiplicand || !expect(Keyword::By) || !parseReceivers(receivers))
    return nullptr;

  auto *multiply = make<MultiplyStatement>(begin, MultiplyStmtType::By, multiplicand);
  if (accept(Keyword::Giving)) {
    multiply->setType(MultiplyStmtType::Giving);
    multiply->setByOperand(soleOperand(receivers));
    if (!multiply->getByOperand() || !parseReceivers(*multiply, &MultiplyStatement::addGiving))
      return nullptr;
  } else {
    multiply->setByList(&receivers);
  }
  return finish(multiply, &MultiplyStatement::addSizeErrorHandler);
}

/// DIVIDE operand INTO {receiver [ROUNDED]}...
/// DIVIDE operand {INTO | BY} operand GIVING {receiver [ROUNDED]}...
/// DIVIDE operand {INTO | BY} operand GIVING receiver [ROUNDED] REMAINDER receiver
///   [[NOT] ON SIZE ERROR statements]... [END-DIVIDE]
StatementResult ArithmeticStatements::parseDivide() {
  SourceRange begin = here();
  accept(Keyword::Divide);
  Expression *first = parseOperand();
  if (!first)
    return nullptr;
  bool isBy = at(Keyword::By);
  if (!acceptAny(Keyword::Into, Keyword::By))
    return expected("INTO or BY");
  NodeList<RoundedOperand> receivers;
  if (!parseReceivers(receivers))
    return nullptr;

  auto *divide = make<DivideStatement>(begin, DivideStmtType::Into, first);
  if (accept(Keyword::Giving)) {
    divide->setType(isBy ? DivideStmtType::ByGiving : DivideStmtType::IntoGiving);
    Expression *second = soleOperand(receivers);
    if (!second || !parseReceivers(*divide, &DivideStatement::addGiving))
      return nullptr;
    if (isBy)
      divide->setByExpr(second);
    else
      divide->setIntoExpr(second);
  } else if (isBy) {
    return expected("GIVING");
  } else {
    divide->setToList(&receivers);
  }

  if (at(Keyword::Remainder)) {
    // A remainder needs one quotient, which only GIVING provides.
    if (divide->getGivingListSize() != 1)
      return error(DiagnosticId::RemainderNeedsOneQuotient, here());
    accept(Keyword::Remainder);
    divide->setType(isBy ? DivideStmtType::ByGivingRemainder : DivideStmtType::IntoGivingRemainder);
    divide->setRemainderExpr(parseOperand("an identifier"));
    if (!divide->getRemainderExpr())
      return nullptr;
  }
  return finish(divide, &DivideStatement::addSizeErrorHandler);
}

//===----------------------------------------------------------------------===//
// COMPUTE
//===----------------------------------------------------------------------===//

/// COMPUTE {receiver [ROUNDED]}... {= | EQUAL} arithmetic-expression
///   [[NOT] ON SIZE ERROR statements]... [END-COMPUTE]
StatementResult ArithmeticStatements::parseCompute() {
  SourceRange begin = here();
  accept(Keyword::Compute);
  auto *compute = make<ComputeStatement>(begin);
  if (!parseReceivers(*compute, &ComputeStatement::addOperand))
    return nullptr;
  if (!accept(TokenKind::Equal) && !accept(Keyword::Equal))
    return expected("'='");
  compute->setArithmeticExpression(parseArithmeticExpression());
  if (!compute->getArithmeticExpression())
    return nullptr;
  return finish(compute, &ComputeStatement::addSizeErrorHandler);
}

} // namespace tarka
