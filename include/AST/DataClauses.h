//===- DataClauses.h - clauses of data description entries ------*- C++ -*-===//
//
// The clauses that a data description entry can carry, except PICTURE, which
// has a header of its own. An entry points at its clauses; groups may share a
// clause object with their subordinates.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_DATACLAUSES_H
#define TARKA_AST_DATACLAUSES_H

#include "AST/ClausePicture.h"
#include "AST/Forward.h"
#include "AST/Kinds.h"
#include "AST/Names.h"

namespace tarka {

/// Defines a clause without operands.
#define TARKA_BARE_CLAUSE(Class)                                                                   \
  class Class : public Node {                                                                      \
  public:                                                                                          \
    explicit Class(const Node *at) : Node(at) {}                                                   \
  }

/// BLANK WHEN ZERO.
TARKA_BARE_CLAUSE(ClauseBlankZero);
/// EXTERNAL, of a data item or of a file.
TARKA_BARE_CLAUSE(ClauseExternal);
/// GLOBAL, of a data item, a file or a report.
TARKA_BARE_CLAUSE(ClauseGlobal);
/// JUSTIFIED RIGHT.
TARKA_BARE_CLAUSE(ClauseJustified);
/// GROUP-USAGE NATIONAL.
TARKA_BARE_CLAUSE(ClauseGroupUsage);
/// VOLATILE.
TARKA_BARE_CLAUSE(ClauseVolatile);

/// USAGE.
class ClauseUsage : public Node {
public:
  ClauseUsage(const Node *at, UsageType usage) : Node(at), type(usage) {}

  UsageType getType() const { return type; }

private:
  UsageType type;
};

/// One KEY phrase of OCCURS: ASCENDING or DESCENDING KEY IS data-name ...
class Key : public Node {
public:
  Key(const Node *at, SortOrder keyOrder) : Node(at), order(keyOrder) {}

  SortOrder getOrder() const { return order; }

  TARKA_LIST_ADD(Expression, dataList, DataList, Data)

private:
  NodeList<Expression> dataList;
  SortOrder order;
};

/// OCCURS.
class ClauseOccurs : public Node {
public:
  explicit ClauseOccurs(const Node *at) : Node(at) {}

  /// The number of occurrences, the second number of OCCURS n TO m; 0 when it is not written. A
  /// fractional literal counts with the digits before its point.
  std::int64_t getMax() const;
  /// The first number of OCCURS n TO m; 0 when it is not written.
  std::int64_t getMin() const;
  /// How often the item occurs at most and at least. A number that is wrong is reported by the
  /// checks; at most the item occurs once or more. OCCURS m DEPENDING ON stands for OCCURS 1 TO m
  /// DEPENDING ON; without DEPENDING ON the two are equal.
  std::int64_t getMostOccurrences() const;
  std::int64_t getLeastOccurrences() const;
  /// OCCURS ... DEPENDING ON.
  bool isVariableTable() const { return odoName != nullptr; }

  /// The literal of OCCURS n, or m of OCCURS n TO m. Null when it is missing.
  TARKA_FIELD(NumericLiteralExpression *, maxExpr, MaxExpr)
  /// The literal n of OCCURS n TO m, null in OCCURS n.
  TARKA_FIELD(NumericLiteralExpression *, minExpr, MinExpr)
  /// The object of DEPENDING ON, null when there is none.
  TARKA_FIELD(Expression *, odoName, OdoName)
  /// The KEY phrases, in order of their significance.
  TARKA_LIST_ADD(Key, keys, Keys, Key)
  /// The names of INDEXED BY, each unqualified.
  TARKA_LIST_ADD(DataIdentifierExpression, indexList, IndexList, Index)

private:
  NumericLiteralExpression *maxExpr = nullptr;
  NumericLiteralExpression *minExpr = nullptr;
  Expression *odoName = nullptr;
  NodeList<Key> keys;
  NodeList<DataIdentifierExpression> indexList;
};

/// One value of a VALUE clause: literal [THROUGH literal]. A value that is written as a word (a
/// symbolic character) stands in the word until the checks know its literal.
class PhraseValue : public Node {
public:
  PhraseValue() = default;
  explicit PhraseValue(const Node *at) : Node(at) {}

  TARKA_FIELD(LiteralExpression *, literal1, Literal1)
  /// What follows THROUGH; null for a single value.
  TARKA_FIELD(LiteralExpression *, literal2, Literal2)
  TARKA_FIELD(Word *, word1, Word1)
  TARKA_FIELD(Word *, word2, Word2)

private:
  LiteralExpression *literal1 = nullptr;
  LiteralExpression *literal2 = nullptr;
  Word *word1 = nullptr;
  Word *word2 = nullptr;
};

/// VALUE.
class ClauseValue : public Node {
public:
  explicit ClauseValue(const Node *at) : Node(at) {}
  /// Takes over the phrases of \p values, which may be null.
  ClauseValue(const Node *at, GivenList<PhraseValue> values) : Node(at), phrases(values.take()) {}

  /// More than one value, as only a condition name or a report item may have.
  bool isListValue() const { return phrases.size() > 1; }

  /// What WHEN SET TO FALSE IS gives for a condition name; null when the phrase is absent.
  TARKA_FIELD(LiteralExpression *, falseValue, FalseValue)
  TARKA_LIST_ADD(PhraseValue, phrases, PhraseVal, PhraseValue)

private:
  LiteralExpression *falseValue = nullptr;
  NodeList<PhraseValue> phrases;
};

/// REDEFINES.
class ClauseRedefines : public Node {
public:
  ClauseRedefines(const Node *at, IdentifierExpression *object) : Node(at), data(object) {}

  /// The redefined item; null when no name follows the word.
  IdentifierExpression *getData() const { return data; }

private:
  IdentifierExpression *data;
};

/// RENAMES.
class ClauseRenames : public Node {
public:
  /// \p thru is null without THROUGH.
  ClauseRenames(const Node *at, Expression *from, Expression *thru)
      : Node(at), fromData(from), toData(thru) {}

  Expression *getFromData() const { return fromData; }
  /// Null without THROUGH.
  Expression *getToData() const { return toData; }

private:
  Expression *fromData;
  Expression *toData;
};

/// SIGN.
class ClauseSign : public Node {
public:
  ClauseSign(const Node *at, bool isLeadingSign, bool isSeparateSign)
      : Node(at), leading(isLeadingSign), separate(isSeparateSign) {}

  /// LEADING; otherwise TRAILING.
  bool isLeading() const { return leading; }
  /// SEPARATE CHARACTER: the sign has a position of its own.
  bool isSeperate() const { return separate; }

private:
  bool leading;
  bool separate;
};

/// SYNCHRONIZED.
class ClauseSynchronized : public Node {
public:
  /// \p leftOrRight is the word LEFT or RIGHT, null when neither is written.
  ClauseSynchronized(const Node *at, Word *leftOrRight) : Node(at), word(leftOrRight) {}

  Word *getWord() const { return word; }
  SynchronizedType getType() const {
    if (!word)
      return SynchronizedType::None;
    return word->getWordData() == "LEFT" ? SynchronizedType::Left : SynchronizedType::Right;
  }

private:
  Word *word;
};

/// DATE FORMAT.
class ClauseDateFormat : public Node {
public:
  ClauseDateFormat(const Node *at, Word *pattern) : Node(at), patten(pattern) {}

  /// The pattern as written, such as YYYYXX.
  Word *getPatten() const { return patten; }

  TARKA_FIELD(PattenType, pattenType, PattenType)

private:
  PattenType pattenType = PattenType::None;
  Word *patten;
};

} // namespace tarka

#endif // TARKA_AST_DATACLAUSES_H
