//===- ParseCondition.h - conditions ----------------------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSECONDITION_H
#define TARKA_LIB_PARSE_PARSECONDITION_H

#include "AST/Condition.h"
#include "Parse/ParseExpression.h"

namespace tarka {

class ConditionParser : public ExpressionParser {
public:
  using ExpressionParser::ExpressionParser;

  /// A condition with its abbreviated relations.
  Condition *parseCondition();

  /// What the text turned out to be; both are null after a failure.
  struct Comparand {
    Condition *condition = nullptr;
    Expression *expression = nullptr;

    explicit operator bool() const { return condition || expression; }
  };
  /// A condition, or an expression that no relation follows. A name of a condition is a condition.
  Comparand parseConditionOrExpression();

  /// A condition that is only a name.
  Condition *namedCondition(DataIdentifierExpression *name);

private:
  /// What a later object of a combined relation takes over from the relation before it.
  struct Abbreviation {
    Expression *subject = nullptr; ///< null where no relation comes before
    RelationalConditionType relation = RelationalConditionType::Equal;
  };
  Comparand parseCombined(Abbreviation &abbreviation);
  Comparand parseTerm(Abbreviation &abbreviation);
  Condition *parseNegated(Abbreviation &abbreviation);
  Condition *parseAbbreviated(const SourceRange &begin, bool isNot, Abbreviation &abbreviation);
  Comparand parseSimple(Abbreviation &abbreviation);
  Comparand parseParenthesised(Abbreviation &abbreviation);
  Comparand parseRelation(Expression *subject, const SourceRange &begin,
                          Abbreviation &abbreviation);
  RelationalConditionType parseRelationalOperator(bool isNot);
  RelationalConditionType parseRelationalWords(Keyword first);
  Expression *parseRelationObject(RelationalConditionType relation);
  AbbrRelationItem *parseFurtherObject(RelationalConditionType &relation);
  bool isNameOfCondition(const Expression *operand);
  Condition *conditionOf(Expression *operand, const SourceRange &begin, Abbreviation &abbreviation);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSECONDITION_H
