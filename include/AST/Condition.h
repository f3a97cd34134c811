//===- Condition.h - conditions ---------------------------------*- C++ -*-===//
//
// The conditions of IF, EVALUATE, PERFORM UNTIL, SEARCH WHEN and the like.
//
// An abbreviated combined relation without parentheses, A = B OR C AND > D, is
// a tree of CombinedCondition nodes over one RelationalCondition (A = B) and
// AbbrRelationalCondition leaves (= C, > D), so that AND binds before OR. Each
// leaf has the relation that applies to it, written or inherited.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_CONDITION_H
#define TARKA_AST_CONDITION_H

#include "AST/Expression.h"

namespace tarka {

/// A condition. The kind code identifies the class.
class Condition : public Node {
public:
  ConditionType getType() const { return type; }

protected:
  Condition(const Node *at, ConditionType kind) : Node(at), type(kind) {}

private:
  ConditionType type;

protected:
  /// A byte for the subclasses, which fits beside the kind code.
  std::uint8_t subtype = 0;
  bool flag = false;
};

/// A condition-name (level 88), possibly qualified and subscripted.
class ConditionNameCondition : public Condition {
public:
  /// \p name may be null.
  ConditionNameCondition(const Node *at, DataIdentifierExpression *name)
      : Condition(at, ConditionType::ConditionName), conditionName(name) {}

  DataIdentifierExpression *getConditionName() const { return conditionName; }

  static bool classof(const Condition *c) { return c->getType() == ConditionType::ConditionName; }

private:
  DataIdentifierExpression *conditionName;
};

/// The name of the ON or OFF status of an UPSI switch.
class SwitchCondition : public Condition {
public:
  SwitchCondition(const Node *at, QualifiedWord *name)
      : Condition(at, ConditionType::Switch), switchName(name) {}

  QualifiedWord *getSwitchName() const { return switchName; }
  /// The SPECIAL-NAMES clause that defines the switch, its mnemonic name, and whether the ON
  /// status was named: set by the check, null before.
  ClauseEnvName *getEnvClause() const { return envClause; }
  void setEnvClause(ClauseEnvName *clause) { envClause = clause; }
  Word *getMnemonicName() const { return mnemonicName; }
  void setMnemonicName(Word *name) { mnemonicName = name; }
  bool isOnCond() const { return flag; }
  void setOnCond(bool on) { flag = on; }

  static bool classof(const Condition *c) { return c->getType() == ConditionType::Switch; }

private:
  QualifiedWord *switchName;
  ClauseEnvName *envClause = nullptr;
  Word *mnemonicName = nullptr;
};

/// operand relation operand.
class RelationalCondition : public Condition {
public:
  RelationalCondition(const Node *at, RelationalConditionType relation, Expression *subject,
                      Expression *object)
      : Condition(at, ConditionType::Relational), left(subject), right(object) {
    subtype = static_cast<std::uint8_t>(relation);
  }

  RelationalConditionType getConditionType() const {
    return static_cast<RelationalConditionType>(subtype);
  }
  Expression *getLeft() const { return left; }
  Expression *getRight() const { return right; }
  /// Set for two groups of the same shape compared under an EBCDIC collating sequence.
  bool isSameGroup() const { return flag; }
  void setIsSameGroup(bool same) { flag = same; }

  static bool classof(const Condition *c) { return c->getType() == ConditionType::Relational; }

private:
  Expression *left;
  Expression *right;
};

/// operand IS [NOT] class.
class ClassCondition : public Condition {
public:
  /// \p name is the class-name of SPECIAL-NAMES, null for the classes of the language.
  ClassCondition(const Node *at, ClassConditionType kind, Expression *operand, Word *name)
      : Condition(at, ConditionType::Class), left(operand), className(name) {
    subtype = static_cast<std::uint8_t>(kind);
  }

  ClassConditionType getType() const { return static_cast<ClassConditionType>(subtype); }
  ClassConditionType getClassType() const { return getType(); }
  Expression *getLeft() const { return left; }
  Word *getClassName() const { return className; }
  ClauseClass *getClauseClass() const { return clauseClass; }
  void setClauseClass(ClauseClass *clause) { clauseClass = clause; }

  static bool classof(const Condition *c) {
    return c->Condition::getType() == ConditionType::Class;
  }

private:
  Expression *left;
  Word *className;
  ClauseClass *clauseClass = nullptr;
};

/// operand IS [NOT] POSITIVE, NEGATIVE or ZERO.
class SignCondition : public Condition {
public:
  SignCondition(const Node *at, SignConditionType kind, Expression *subject)
      : Condition(at, ConditionType::Sign), operand(subject) {
    subtype = static_cast<std::uint8_t>(kind);
  }

  SignConditionType getSignType() const { return static_cast<SignConditionType>(subtype); }
  Expression *getOperand() const { return operand; }

  static bool classof(const Condition *c) { return c->getType() == ConditionType::Sign; }

private:
  Expression *operand;
};

/// NOT condition.
class NegatedCondition : public Condition {
public:
  NegatedCondition(const Node *at, Condition *negated)
      : Condition(at, ConditionType::Negated), operand(negated) {}

  Condition *getOperand() const { return operand; }

  static bool classof(const Condition *c) { return c->getType() == ConditionType::Negated; }

private:
  Condition *operand;
};

/// condition AND condition, condition OR condition.
class CombinedCondition : public Condition {
public:
  CombinedCondition(const Node *at, CombinedOperatorType op, Condition *first, Condition *second)
      : Condition(at, ConditionType::Combined), left(first), right(second) {
    subtype = static_cast<std::uint8_t>(op);
  }

  CombinedOperatorType getOpTy() const { return static_cast<CombinedOperatorType>(subtype); }
  /// Either side may be null.
  Condition *getLeft() const { return left; }
  Condition *getRight() const { return right; }

  static bool classof(const Condition *c) { return c->getType() == ConditionType::Combined; }

private:
  Condition *left;
  Condition *right;
};

/// A relation without its subject, which is that of the relation before it.
class AbbrRelationalCondition : public Condition {
public:
  /// \p relation is the one that applies; \p written tells whether it is written or inherited.
  AbbrRelationalCondition(const Node *at, RelationalConditionType relation, bool written,
                          Expression *object)
      : Condition(at, ConditionType::AbbrRelational), right(object) {
    subtype = static_cast<std::uint8_t>(relation);
    flag = written;
  }

  RelationalConditionType getConditionType() const {
    return static_cast<RelationalConditionType>(subtype);
  }
  bool isRelationWritten() const { return flag; }
  /// May be null.
  Expression *getRight() const { return right; }

  static bool classof(const Condition *c) { return c->getType() == ConditionType::AbbrRelational; }

private:
  Expression *right;
};

} // namespace tarka

#endif // TARKA_AST_CONDITION_H
