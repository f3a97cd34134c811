//===- SCStmtArithmetic.cpp - the arithmetic statements -------------------===//
//
// ADD, SUBTRACT, MULTIPLY, DIVIDE and COMPUTE. What they calculate with is a
// number; what they calculate in place is one too, while the receiver of GIVING
// and of COMPUTE may also be an item that edits the number.
//
//===----------------------------------------------------------------------===//

#include "AST/Statement.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

namespace {

/// The diagnostics of one statement for a wrong operand.
struct ArithmeticMessages {
  ErrorCode notNumeric; ///< an identifier that is not a number
  ErrorCode group;      ///< a group where one number must stand
  ErrorCode result;     ///< a receiver of a result that can neither hold nor edit a number
  ErrorCode statement;  ///< an operand of a kind that the statement does not accept
};

constexpr ArithmeticMessages addMessages = {
    ErrorCode::AddOperandNotNumeric, ErrorCode::AddOperandNotElementary,
    ErrorCode::AddGivingNotNumeric, ErrorCode::AddStatementInvalid};
constexpr ArithmeticMessages subtractMessages = {
    ErrorCode::SubtractOperandNotNumeric, ErrorCode::SubtractOperandNotNumeric,
    ErrorCode::ReceivingItemInvalid, ErrorCode::SubtractStatementInvalid};
constexpr ArithmeticMessages multiplyMessages = {
    ErrorCode::MultiplyOperandNotNumeric, ErrorCode::MultiplyOperandNotNumeric,
    ErrorCode::ReceivingItemInvalid, ErrorCode::MultiplyStatementInvalid};
constexpr ArithmeticMessages divideMessages = {
    ErrorCode::DivideOperandNotNumeric, ErrorCode::DivideOperandNotNumeric,
    ErrorCode::ReceivingItemInvalid, ErrorCode::DivideStatementInvalid};
constexpr ArithmeticMessages computeMessages = {
    ErrorCode::ComputeStatementInvalid, ErrorCode::ComputeStatementInvalid,
    ErrorCode::ComputeReceiverNotElementaryNumeric, ErrorCode::ComputeStatementInvalid};

/// The name of a data item or register, for the message that takes one.
const char *nameOf(const Expression &operand) {
  if (const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&operand))
    return (*identifier->getQualifiedWord()->getNamesBegin())->getWordData().c_str();
  if (const auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&operand))
    return special->getRegisterWord()->getWordData().c_str();
  return "";
}

/// Checks the operands of one statement one after the other and keeps the result of all. Null
/// operands, of phrases that are not written, are ok.
class ArithmeticCheck {
public:
  ArithmeticCheck(SemanticChecker &theChecker, const ArithmeticMessages &theMessages)
      : checker(theChecker), messages(theMessages) {}

  ArithmeticCheck &sender(Expression *operand);
  ArithmeticCheck &senders(const NodeList<Expression> &operands) {
    for (Expression *operand : operands)
      sender(operand);
    return *this;
  }
  /// The operands that are calculated in place.
  ArithmeticCheck &receivers(const NodeList<RoundedOperand> &operands);
  /// The operands that a result is stored in.
  ArithmeticCheck &results(const NodeList<RoundedOperand> &operands);
  ArithmeticCheck &corresponding(Expression *from, RoundedOperand *to, ErrorCode notGroup);
  ArithmeticCheck &remainder(Expression *operand);
  ArithmeticCheck &noFloat(Expression *operand, ErrorCode message);
  ArithmeticCheck &handlers(const ArithmeticStatement &statement) {
    for (ExceptionHandler *handler : statement.getSizeErrorHandlerElements())
      ok &= checker.semanticCheck(*handler);
    return *this;
  }
  operator bool() const { return ok; }

private:
  void report(ErrorCode code, Expression *operand) {
    ok = checker.report(code, operand, nameOf(*operand));
  }
  /// Binds the operand; false when it needs no further check.
  bool bind(Expression *operand) {
    bool bound = operand && checker.semanticCheck(*operand);
    ok &= bound || !operand;
    return bound && !isUnknown(*operand);
  }
  bool bindReceiver(Expression *operand);

  SemanticChecker &checker;
  const ArithmeticMessages &messages;
  bool ok = true;
};

/// Numeric items, functions and registers, numeric literals and ZERO.
ArithmeticCheck &ArithmeticCheck::sender(Expression *operand) {
  if (!bind(operand) || isNumber(*operand))
    return *this;
  if (!llvm::isa<IdentifierExpression>(operand))
    report(messages.statement, operand);
  else
    report(isGroupItem(*operand) ? messages.group : messages.notNumeric, operand);
  return *this;
}

/// Binds an operand that is to be set; false when it cannot be, or was not found.
bool ArithmeticCheck::bindReceiver(Expression *operand) {
  if (!bind(operand))
    return false;
  if (llvm::isa<FunctionIdentifierExpression>(operand))
    report(ErrorCode::FunctionInReceivingArea, operand);
  else if (!llvm::isa<IdentifierExpression>(operand) || isReadOnlyRegister(*operand))
    report(ErrorCode::ReceivingItemInvalid, operand);
  else
    return true;
  return false;
}

ArithmeticCheck &ArithmeticCheck::receivers(const NodeList<RoundedOperand> &operands) {
  for (RoundedOperand *receiver : operands)
    if (Expression *operand = receiver->first; bindReceiver(operand) && !isNumber(*operand))
      report(isGroupItem(*operand) ? messages.group : messages.notNumeric, operand);
  return *this;
}

ArithmeticCheck &ArithmeticCheck::results(const NodeList<RoundedOperand> &operands) {
  for (RoundedOperand *receiver : operands)
    if (Expression *operand = receiver->first; bindReceiver(operand) && !isNumberOrEdited(*operand))
      report(messages.result, operand);
  return *this;
}

/// Both operands of CORRESPONDING are whole groups, alphanumeric or national. Groups without
/// corresponding items are valid.
ArithmeticCheck &ArithmeticCheck::corresponding(Expression *from, RoundedOperand *to,
                                                ErrorCode notGroup) {
  for (Expression *operand : {from, to ? to->first : nullptr})
    if (bind(operand) && !isGroupItem(*operand))
      report(notGroup, operand);
  return *this;
}

ArithmeticCheck &ArithmeticCheck::remainder(Expression *operand) {
  if (bindReceiver(operand) && !isNumberOrEdited(*operand))
    report(ErrorCode::DivideRemainderInvalid, operand);
  return *this;
}

ArithmeticCheck &ArithmeticCheck::noFloat(Expression *operand, ErrorCode message) {
  if (operand && isFloat(*operand))
    report(message, operand);
  return *this;
}

} // namespace

bool SemanticChecker::semanticCheck(AddStatement &statement) {
  return ArithmeticCheck(*this, addMessages)
      .senders(statement.getOperandListElements())
      .sender(statement.getToOperand())
      .receivers(statement.getToListElements())
      .results(statement.getGivingListElements())
      .corresponding(statement.getCorrespondingExpr(), statement.getToRoundExpr(),
                     ErrorCode::AddCorrespondingNotGroup)
      .handlers(statement);
}

bool SemanticChecker::semanticCheck(SubtractStatement &statement) {
  return ArithmeticCheck(*this, subtractMessages)
      .senders(statement.getOperandListElements())
      .sender(statement.getFromExpr())
      .receivers(statement.getFromListElements())
      .results(statement.getGivingListElements())
      .corresponding(statement.getCorrExpr(), statement.getFromRoundExpr(),
                     ErrorCode::SubtractCorrespondingNotGroup)
      .handlers(statement);
}

bool SemanticChecker::semanticCheck(MultiplyStatement &statement) {
  return ArithmeticCheck(*this, multiplyMessages)
      .sender(statement.getOperand())
      .sender(statement.getByOperand())
      .receivers(statement.getByListElements())
      .results(statement.getGivingListElements())
      .handlers(statement);
}

bool SemanticChecker::semanticCheck(DivideStatement &statement) {
  ArithmeticCheck check(*this, divideMessages);
  check.sender(statement.getOperand())
      .sender(statement.getIntoExpr())
      .sender(statement.getByExpr())
      .receivers(statement.getToListElements())
      .results(statement.getGivingListElements())
      .remainder(statement.getRemainderExpr());
  // A quotient in floating point leaves no remainder.
  if (statement.getRemainderExpr()) {
    for (Expression *operand :
         {statement.getOperand(), statement.getIntoExpr(), statement.getByExpr()})
      check.noFloat(operand, ErrorCode::DivideStatementInvalid);
    for (RoundedOperand *quotient : statement.getGivingListElements())
      check.noFloat(quotient->first, ErrorCode::DivideStatementInvalid);
    check.noFloat(statement.getRemainderExpr(), ErrorCode::DivideRemainderInvalid);
  }
  return check.handlers(statement);
}

/// The operands of an operator are checked by its own check; an expression may also be one
/// operand alone.
bool SemanticChecker::semanticCheck(ComputeStatement &statement) {
  return ArithmeticCheck(*this, computeMessages)
      .results(statement.getOperandListElements())
      .sender(statement.getArithmeticExpression())
      .handlers(statement);
}

} // namespace tarka
