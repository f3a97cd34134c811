//===- ParseCondition.cpp - conditions ------------------------------------===//
//
// Whether a parenthesis opens an arithmetic expression or a condition is known
// only after its content, and whether a name is an operand or a condition-name
// only after the name. Everything is therefore read once, as a Comparand: a
// condition, or an expression that the text after it may still make a condition.
//
//===----------------------------------------------------------------------===//

#include "Parse/ParseCondition.h"
#include <optional>

namespace tarka {

//===----------------------------------------------------------------------===//
// Relational operators
//===----------------------------------------------------------------------===//

namespace {

RelationalConditionType negationOf(RelationalConditionType relation) {
  switch (relation) {
  case RelationalConditionType::Greater:
    return RelationalConditionType::NotGreater;
  case RelationalConditionType::Less:
    return RelationalConditionType::NotLess;
  case RelationalConditionType::Equal:
    return RelationalConditionType::NotEqual;
  case RelationalConditionType::NotGreater:
  case RelationalConditionType::LessOrEqual:
    return RelationalConditionType::Greater;
  case RelationalConditionType::NotLess:
  case RelationalConditionType::GreaterOrEqual:
    return RelationalConditionType::Less;
  case RelationalConditionType::NotEqual:
    return RelationalConditionType::Equal;
  }
  llvm_unreachable("not a relation");
}

bool isRelationalOperator(const Token &token) {
  switch (token.kind) {
  case TokenKind::Equal:
  case TokenKind::Less:
  case TokenKind::Greater:
  case TokenKind::LessEqual:
  case TokenKind::GreaterEqual:
  case TokenKind::PseudoText:
  case TokenKind::NotEqual:
    return true;
  default:
    return token.isOneOf(Keyword::Equal, Keyword::Greater, Keyword::Less, Keyword::Equals,
                         Keyword::Exceeds, Keyword::Unequal);
  }
}

/// The class that a word of the language names; none for every other token.
std::optional<ClassConditionType> classOf(Keyword keyword) {
  switch (keyword) {
  case Keyword::Alphabetic:
    return ClassConditionType::Alphabetic;
  case Keyword::AlphabeticLower:
    return ClassConditionType::AlphabeticLower;
  case Keyword::AlphabeticUpper:
    return ClassConditionType::AlphabeticUpper;
  case Keyword::Dbcs:
    return ClassConditionType::Dbcs;
  case Keyword::Kanji:
    return ClassConditionType::Kanji;
  case Keyword::Numeric:
    return ClassConditionType::Numeric;
  default:
    return std::nullopt;
  }
}

/// The NOT form of a class is 8 above it.
ClassConditionType classCondition(ClassConditionType kind, bool isNot) {
  constexpr unsigned notForm = static_cast<unsigned>(ClassConditionType::NotClassName) -
                               static_cast<unsigned>(ClassConditionType::ClassName);
  return static_cast<ClassConditionType>(static_cast<unsigned>(kind) + (isNot ? notForm : 0));
}

std::optional<SignConditionType> signOf(Keyword keyword, bool isNot) {
  switch (keyword) {
  case Keyword::Positive:
    return isNot ? SignConditionType::NotPositive : SignConditionType::Positive;
  case Keyword::Negative:
    return isNot ? SignConditionType::NotNegative : SignConditionType::Negative;
  case Keyword::Zero:
  case Keyword::Zeros:
  case Keyword::Zeroes:
    return isNot ? SignConditionType::NotZero : SignConditionType::Zero;
  default:
    return std::nullopt;
  }
}

} // namespace

/// With the operator next: =, EQUAL [TO], > , GREATER [THAN] [OR EQUAL [TO]], <> and so on.
RelationalConditionType ConditionParser::parseRelationalOperator(bool isNot) {
  RelationalConditionType relation = RelationalConditionType::Equal;
  const Token token = stream.next();
  switch (token.kind) {
  case TokenKind::Equal:
    break;
  case TokenKind::Less:
    relation = RelationalConditionType::Less;
    break;
  case TokenKind::Greater:
    relation = RelationalConditionType::Greater;
    break;
  case TokenKind::LessEqual:
    relation = RelationalConditionType::LessOrEqual;
    break;
  case TokenKind::GreaterEqual:
    relation = RelationalConditionType::GreaterOrEqual;
    break;
  case TokenKind::NotEqual:
    relation = RelationalConditionType::NotEqual;
    break;
  case TokenKind::PseudoText:
    // == of other languages.
    error(DiagnosticId::Expected, token.place, describe(TokenKind::Equal), describe(token));
    break;
  default:
    relation = parseRelationalWords(token.keyword);
  }
  return isNot ? negationOf(relation) : relation;
}

/// The rest of an operator in words, of which the first was taken.
RelationalConditionType ConditionParser::parseRelationalWords(Keyword first) {
  switch (first) {
  case Keyword::Greater:
  case Keyword::Less: {
    bool isGreater = first == Keyword::Greater;
    accept(Keyword::Than);
    if (!atSequence(Keyword::Or, Keyword::Equal))
      return isGreater ? RelationalConditionType::Greater : RelationalConditionType::Less;
    accept(Keyword::Or);
    accept(Keyword::Equal);
    accept(Keyword::To);
    return isGreater ? RelationalConditionType::GreaterOrEqual
                     : RelationalConditionType::LessOrEqual;
  }
  case Keyword::Exceeds:
    return RelationalConditionType::Greater;
  case Keyword::Unequal:
    accept(Keyword::To);
    return RelationalConditionType::NotEqual;
  default:
    accept(Keyword::To);
    return RelationalConditionType::Equal;
  }
}

//===----------------------------------------------------------------------===//
// Combined conditions
//===----------------------------------------------------------------------===//

Condition *ConditionParser::parseCondition() {
  Abbreviation abbreviation;
  SourceRange begin = here();
  Comparand whole = parseCombined(abbreviation);
  return whole.expression ? conditionOf(whole.expression, begin, abbreviation) : whole.condition;
}

ConditionParser::Comparand ConditionParser::parseConditionOrExpression() {
  Abbreviation abbreviation;
  Comparand whole = parseCombined(abbreviation);
  if (whole.expression && isNameOfCondition(whole.expression))
    return {namedCondition(llvm::cast<DataIdentifierExpression>(whole.expression)), nullptr};
  return whole;
}

/// Conditions joined by AND and OR, AND binding first; a single expression stays one. The loop
/// holds the alternatives that are complete and the conjunction that is being read, so that a
/// chain of any length needs no recursion.
ConditionParser::Comparand ConditionParser::parseCombined(Abbreviation &abbreviation) {
  SourceRange begin = here();
  Comparand first = parseTerm(abbreviation);
  if (!at(Keyword::And, Keyword::Or) || (!first.condition && !first.expression))
    return first;

  Condition *alternatives = nullptr;
  Condition *conjunction = nullptr;
  SourceRange conjunctionBegin = begin;
  Comparand term = first;
  SourceRange termBegin = begin;
  for (;;) {
    Condition *condition =
        term.expression ? conditionOf(term.expression, termBegin, abbreviation) : term.condition;
    if (!condition)
      return {};
    if (conjunction) {
      conjunction = make<CombinedCondition>(conjunctionBegin, CombinedOperatorType::And,
                                            conjunction, condition);
    } else {
      conjunction = condition;
      conjunctionBegin = termBegin;
    }
    if (!accept(Keyword::And)) {
      if (alternatives) {
        alternatives =
            make<CombinedCondition>(begin, CombinedOperatorType::Or, alternatives, conjunction);
      } else {
        alternatives = conjunction;
      }
      conjunction = nullptr;
      if (!accept(Keyword::Or))
        return {alternatives, nullptr};
    }
    termBegin = here();
    term = parseTerm(abbreviation);
    if (!term.condition && !term.expression)
      return {};
  }
}

/// One condition of a combined one, or an expression that no operator has made a condition yet.
ConditionParser::Comparand ConditionParser::parseTerm(Abbreviation &abbreviation) {
  SourceRange begin = here();
  // A > B OR = C, A > B OR NOT = C, A > B OR IS NOT = C: NOT is part of the operator and holds for
  // the objects that follow.
  if (abbreviation.subject) {
    unsigned length = at(Keyword::Is);
    bool isNot = peek(length).is(Keyword::Not);
    if (isRelationalOperator(peek(length + isNot))) {
      accept(Keyword::Is);
      accept(Keyword::Not);
      return {parseAbbreviated(begin, isNot, abbreviation), nullptr};
    }
  }
  if (at(Keyword::Not))
    return {parseNegated(abbreviation), nullptr};
  return parseSimple(abbreviation);
}

/// A NOT that is not part of an operator negates one condition.
Condition *ConditionParser::parseNegated(Abbreviation &abbreviation) {
  SourceRange begin = here();
  accept(Keyword::Not);
  if (at(Keyword::Not))
    return expected("a condition");

  Comparand operand = parseSimple(abbreviation);
  // NOT C after A > B means that A > C does not hold: the leaf takes the NOT, what follows is
  // compared with > again.
  if (operand.expression && abbreviation.subject && !isNameOfCondition(operand.expression)) {
    return make<AbbrRelationalCondition>(begin, negationOf(abbreviation.relation),
                                         /*written=*/false, operand.expression);
  }
  Condition *condition =
      operand.expression ? conditionOf(operand.expression, begin, abbreviation) : operand.condition;
  if (!condition)
    return nullptr;
  return make<NegatedCondition>(begin, condition);
}

/// A relation without its subject, with the operator next.
Condition *ConditionParser::parseAbbreviated(const SourceRange &begin, bool isNot,
                                             Abbreviation &abbreviation) {
  abbreviation.relation = parseRelationalOperator(isNot);
  Expression *object = parseRelationObject(abbreviation.relation);
  if (!object)
    return nullptr;
  return make<AbbrRelationalCondition>(begin, abbreviation.relation, /*written=*/true, object);
}

/// A condition without AND, OR and NOT around it, or an expression.
ConditionParser::Comparand ConditionParser::parseSimple(Abbreviation &abbreviation) {
  SourceRange begin = here();
  Expression *subject = nullptr;
  if (at(TokenKind::LParen)) {
    Comparand inner = parseParenthesised(abbreviation);
    if (!inner.expression)
      return inner;
    subject = continueArithmetic(inner.expression, begin);
  } else {
    if (!at(TokenKind::Plus, TokenKind::Minus) && !atOperand())
      return {expected("a condition"), nullptr};
    subject = parseArithmeticExpression();
  }
  if (!subject)
    return {};
  return parseRelation(subject, begin, abbreviation);
}

/// ( condition ) or ( expression ).
ConditionParser::Comparand ConditionParser::parseParenthesised(Abbreviation &abbreviation) {
  SourceRange begin = here();
  Depth level(*this);
  if (level.isTooDeep())
    return {error(DiagnosticId::NestedTooDeep, begin, maxDepth), nullptr};
  accept(TokenKind::LParen);
  // Objects in the parentheses may still be compared with the subject before them.
  Abbreviation inner = abbreviation;
  Comparand content = parseCombined(inner);
  if ((!content.condition && !content.expression) || !expect(TokenKind::RParen))
    return {};
  // A subject of the parentheses' own ends with them, and the one before them with it.
  if (inner.subject != abbreviation.subject)
    abbreviation.subject = nullptr;
  if (content.expression)
    content.expression = parenthesise(content.expression, begin);
  return content;
}

//===----------------------------------------------------------------------===//
// Simple conditions
//===----------------------------------------------------------------------===//

/// The rest of a relation, class or sign condition about \p subject; the subject itself where
/// nothing of that kind follows.
ConditionParser::Comparand ConditionParser::parseRelation(Expression *subject,
                                                          const SourceRange &begin,
                                                          Abbreviation &abbreviation) {
  bool isWritten = at(Keyword::Is, Keyword::Not);
  accept(Keyword::Is);
  bool isNot = accept(Keyword::Not);

  if (isRelationalOperator(peek())) {
    abbreviation = {subject, parseRelationalOperator(isNot)};
    Expression *object = parseRelationObject(abbreviation.relation);
    if (!object)
      return {};
    return {make<RelationalCondition>(begin, abbreviation.relation, subject, object), nullptr};
  }

  // A class or sign has no operator that a later object could take over.
  if (std::optional<ClassConditionType> kind = classOf(peek().keyword)) {
    abbreviation.subject = nullptr;
    stream.skip();
    return {make<ClassCondition>(begin, classCondition(*kind, isNot), subject, nullptr), nullptr};
  }
  if (std::optional<SignConditionType> sign = signOf(peek().keyword, isNot)) {
    abbreviation.subject = nullptr;
    stream.skip();
    return {make<SignCondition>(begin, *sign, subject), nullptr};
  }
  // Without IS or NOT, only a declared class-name is one: any other name begins what follows.
  if (peek().isUserWord() && !atProcedureHeader() &&
      (isWritten || scope().findClass(peek().getInternedText()))) {
    abbreviation.subject = nullptr;
    Word *name = takeWord();
    return {make<ClassCondition>(begin, classCondition(ClassConditionType::ClassName, isNot),
                                 subject, name),
            nullptr};
  }
  if (isWritten)
    return {expected("a relational operator, a class or a sign"), nullptr};
  return {nullptr, subject};
}

/// What a relation compares with; the objects in parentheses, B OR C, are compared one by one.
Expression *ConditionParser::parseRelationObject(RelationalConditionType relation) {
  if (!at(TokenKind::LParen))
    return parseArithmeticExpression();
  SourceRange begin = here();
  Depth level(*this);
  if (level.isTooDeep())
    return error(DiagnosticId::NestedTooDeep, begin, maxDepth);
  accept(TokenKind::LParen);
  Expression *first = parseRelationObject(relation);
  if (!first)
    return nullptr;
  if (!at(Keyword::And, Keyword::Or)) {
    if (!expect(TokenKind::RParen))
      return nullptr;
    if (llvm::isa<AbbrRelationCombinedExpression>(first))
      return first;
    return continueArithmetic(parenthesise(first, begin), begin);
  }
  auto *objects = makeAt<AbbrRelationCombinedExpression>(begin, first);
  while (at(Keyword::And, Keyword::Or)) {
    AbbrRelationItem *item = parseFurtherObject(relation);
    if (!item)
      return nullptr;
    objects->addRightAbbr(item);
  }
  if (!expect(TokenKind::RParen))
    return nullptr;
  return complete(objects);
}

/// {AND | OR} [NOT] [operator] object. A written operator applies to the objects after it.
AbbrRelationItem *ConditionParser::parseFurtherObject(RelationalConditionType &relation) {
  SourceRange begin = here();
  CombinedOperatorType op = at(Keyword::And) ? CombinedOperatorType::And : CombinedOperatorType::Or;
  stream.skip();
  SourceRange conditionBegin = here();
  bool isNot = accept(Keyword::Not);
  bool isWritten = isRelationalOperator(peek());
  if (isWritten) {
    relation = parseRelationalOperator(isNot);
    isNot = false;
  }
  Expression *object = parseRelationObject(relation);
  if (!object)
    return nullptr;
  // NOT before several objects negates what they say together, which no single relation does.
  bool isGroup = llvm::isa<AbbrRelationCombinedExpression>(object);
  Condition *condition = make<AbbrRelationalCondition>(
      conditionBegin, isNot && !isGroup ? negationOf(relation) : relation, isWritten, object);
  if (isNot && isGroup)
    condition = make<NegatedCondition>(conditionBegin, condition);
  return make<AbbrRelationItem>(begin, op, condition);
}

//===----------------------------------------------------------------------===//
// Operands that are conditions
//===----------------------------------------------------------------------===//

/// Whether the operand is the name of a condition or of a switch's status.
bool ConditionParser::isNameOfCondition(const Expression *operand) {
  auto *name = llvm::dyn_cast<DataIdentifierExpression>(operand);
  if (!name || name->getReferenceMod())
    return false;
  const std::string &text = (*name->getQualifiedWord()->getNamesBegin())->getWordData();
  return scope().isConditionName(&text) || scope().isSwitchName(&text);
}

/// The condition that a condition-name or the name of a switch status stands for.
Condition *ConditionParser::namedCondition(DataIdentifierExpression *name) {
  QualifiedWord *words = name->getQualifiedWord();
  const std::string &text = (*words->getNamesBegin())->getWordData();
  if (!name->getSubscriptMod() && scope().isSwitchName(&text) && !scope().isConditionName(&text))
    return makeAt<SwitchCondition>(name->getRange(), words);
  return makeAt<ConditionNameCondition>(name->getRange(), name);
}

/// The condition that an operand alone, which began at \p begin, is: a name of a condition, or
/// another object of the relation before it. Null after a message.
Condition *ConditionParser::conditionOf(Expression *operand, const SourceRange &begin,
                                        Abbreviation &abbreviation) {
  auto *name = llvm::dyn_cast<DataIdentifierExpression>(operand);
  bool isName = isNameOfCondition(operand);
  if (abbreviation.subject && !isName) {
    return make<AbbrRelationalCondition>(begin, abbreviation.relation, /*written=*/false, operand);
  }
  // A name that is not declared as a condition-name is taken for one too; the checker reports what
  // it is.
  if (name && !name->getReferenceMod()) {
    abbreviation.subject = nullptr;
    return namedCondition(name);
  }
  return expected("a relational operator");
}

} // namespace tarka
