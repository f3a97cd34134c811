//===- ParseStatementArithmetic.h - ADD, COMPUTE ... ------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESTATEMENTARITHMETIC_H
#define TARKA_LIB_PARSE_PARSESTATEMENTARITHMETIC_H

#include "Parse/ParseStatement.h"

namespace tarka {

class ArithmeticStatements : public StatementParser {
public:
  using StatementParser::StatementParser;

  // Each with its verb next.
  StatementResult parseAdd();
  StatementResult parseCompute();
  StatementResult parseDivide();
  StatementResult parseMultiply();
  StatementResult parseSubtract();

private:
  RoundedOperand *parseReceiver();
  bool parseReceivers(NodeList<RoundedOperand> &receivers);
  Expression *soleOperand(const NodeList<RoundedOperand> &operands);

  template <typename Owner, typename Base>
  bool parseReceivers(Owner &owner, void (Base::*add)(RoundedOperand *)) {
    return parseSeries(owner, add, &ArithmeticStatements::parseReceiver,
                       &ArithmeticStatements::atOperand);
  }
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESTATEMENTARITHMETIC_H
