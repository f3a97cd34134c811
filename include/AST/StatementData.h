//===- StatementData.h - statements that move data --------------*- C++ -*-===//
//
// ACCEPT, DISPLAY, MOVE, SET, INITIALIZE, INSPECT, STRING, UNSTRING, and the
// OS/VS statements TRANSFORM, EXAMINE and EXHIBIT.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENTDATA_H
#define TARKA_AST_STATEMENTDATA_H

#include "AST/StatementBase.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/SmallVector.h"
#include <algorithm>
#include <optional>

namespace tarka {

/// FROM {mnemonic-name | environment-name | DATE [YYYYMMDD] | DAY [YYYYDDD] | DAY-OF-WEEK | TIME}
class AcceptFrom : public Node {
public:
  /// \p name is null unless the source is a device.
  AcceptFrom(const Node *at, AcceptFromType which, Word *name = nullptr)
      : Node(at), type(which), fromName(name) {}

  TARKA_FIELD(AcceptFromType, type, Type)
  TARKA_FIELD(Word *, fromName, FromName)

private:
  AcceptFromType type = AcceptFromType::None;
  Word *fromName = nullptr;
};

/// ACCEPT identifier [FROM source]
class AcceptStatement : public StatementOf<StatementType::Accept> {
public:
  /// \p from is null without FROM.
  AcceptStatement(const Node *at, IdentifierExpression *receiver, AcceptFrom *from = nullptr)
      : StatementOf(at), variable(receiver), fromType(from) {}

  TARKA_FIELD(IdentifierExpression *, variable, Variable)
  TARKA_FIELD(AcceptFrom *, fromType, FromType)

private:
  IdentifierExpression *variable = nullptr;
  AcceptFrom *fromType = nullptr;
};

/// DISPLAY operand... [UPON name] [WITH NO ADVANCING]
class DisplayStatement : public StatementOf<StatementType::Display> {
public:
  explicit DisplayStatement(const Node *at, GivenList<Expression> items = nullptr)
      : StatementOf(at), operands(items.take()) {}

  TARKA_FLAG(noAdvancing, NoAdvancing)
  TARKA_LIST_ADD(Expression, operands, IdenLiterList, IdenLiter)
  /// Null without UPON.
  TARKA_FIELD(Word *, uponName, UponName)

private:
  bool noAdvancing = false;
  NodeList<Expression> operands;
  Word *uponName = nullptr;
};

/// MOVE [CORRESPONDING] operand TO identifier...
class MoveStatement : public StatementOf<StatementType::Move> {
public:
  MoveStatement(const Node *at, Expression *sender, GivenList<IdentifierExpression> receivers,
                bool isCorresponding)
      : StatementOf(at), corresponding(isCorresponding), source(sender), targets(receivers.take()) {
  }

  TARKA_FLAG(corresponding, Corresponding)
  TARKA_FIELD(Expression *, source, Source)
  TARKA_LIST_ADD(IdentifierExpression, targets, TargetList, Target)
  /// The rule of each receiving operand, in their order; none before the check. Shorter than the
  /// receiving list after an error.
  std::optional<llvm::ArrayRef<MoveRule>> getMoveRules() const {
    return moveRules ? std::optional(llvm::ArrayRef(moveRules, moveRuleCount)) : std::nullopt;
  }
  void setMoveRules(llvm::ArrayRef<MoveRule> rules) {
    // Even without rules there is a place: null is for a statement that has not been checked.
    void *copy = allocateForever(std::max<std::size_t>(1, sizeof(MoveRule) * rules.size()),
                                 alignof(MoveRule));
    moveRules = std::copy(rules.begin(), rules.end(), static_cast<MoveRule *>(copy)) - rules.size();
    moveRuleCount = static_cast<unsigned>(rules.size());
  }
  void setMoveRuleList(const std::list<MoveRule> *list) {
    setMoveRules(llvm::SmallVector<MoveRule, 8>(list->begin(), list->end()));
  }

private:
  bool corresponding = false;
  unsigned moveRuleCount = 0;
  Expression *source = nullptr;
  NodeList<IdentifierExpression> targets;
  const MoveRule *moveRules = nullptr;
};

//===----------------------------------------------------------------------===//
// SET
//===----------------------------------------------------------------------===//

/// The value after TO, UP BY or DOWN BY: operand, ENTRY operand, NULL, ON, OFF, TRUE or FALSE.
class SetToValue : public Node {
public:
  /// \p value is null for NULL, ON, OFF, TRUE and FALSE.
  SetToValue(const Node *at, SetToValueType which, Expression *value = nullptr)
      : Node(at), type(which), toExpr(value) {}

  TARKA_FIELD(SetToValueType, type, Type)
  TARKA_FIELD(Expression *, toExpr, ToExpr)

private:
  SetToValueType type = SetToValueType::Expression;
  Expression *toExpr = nullptr;
};

/// One receiving list of SET with its value:
///   {identifier | ADDRESS OF identifier}... {TO | UP BY | DOWN BY} value
///   mnemonic-name... TO {ON | OFF}
///   condition-name... TO {TRUE | FALSE}
class SetItem : public Node {
public:
  SetItem(const Node *at, SetItemType format) : Node(at), type(format) {}

  TARKA_FIELD(SetItemType, type, Type)
  TARKA_FIELD(SetToValue *, toValue, ToValue)
  /// The receiving operands, and the names of switches as they are written.
  TARKA_LIST_ADD(Expression, operands, SetList, Set)
  /// The condition-names, each a ConditionNameCondition.
  TARKA_LIST_ADD(Condition, conditions, CondList, Cond)
  /// The switches that the names of the switch format refer to; set by the check.
  TARKA_LIST_ADD(Word, mnemonicNames, MnemonicNameList, MnemonicName)

private:
  SetItemType type = SetItemType::To;
  SetToValue *toValue = nullptr;
  NodeList<Expression> operands;
  NodeList<Condition> conditions;
  NodeList<Word> mnemonicNames;
};

/// SET {receiver... TO value}...
class SetStatement : public StatementOf<StatementType::Set> {
public:
  explicit SetStatement(const Node *at) : StatementOf(at) {}

  TARKA_LIST_ADD(SetItem, items, ItemList, Item)

private:
  NodeList<SetItem> items;
};

//===----------------------------------------------------------------------===//
// INITIALIZE
//===----------------------------------------------------------------------===//

/// category DATA BY operand
class InitializeReplacingItem : public Node {
public:
  InitializeReplacingItem(const Node *at, InitializeReplacingType category, Expression *value)
      : Node(at), type(category), byExpr(value) {}

  TARKA_FIELD(InitializeReplacingType, type, Type)
  TARKA_FIELD(Expression *, byExpr, ByExpr)

private:
  InitializeReplacingType type = InitializeReplacingType::Alphanumeric;
  Expression *byExpr = nullptr;
};

/// INITIALIZE identifier... [WITH FILLER] [{ALL | category} TO VALUE]
///   [THEN REPLACING {category DATA BY operand}...] [THEN TO DEFAULT]
class InitializeStatement : public StatementOf<StatementType::Initialize> {
public:
  explicit InitializeStatement(const Node *at) : StatementOf(at) {}

  /// The categories that TO VALUE is written for.
  void addValueCategory(InitializeReplacingType category) {
    valueCategories |= std::uint16_t(1u << unsigned(category));
  }
  bool hasValueCategory(InitializeReplacingType category) const {
    return allToValue || (valueCategories >> unsigned(category) & 1) != 0;
  }

  TARKA_FLAG(filler, Filler)
  /// True for ALL TO VALUE.
  TARKA_FLAG(allToValue, AllToValue)
  /// True for THEN TO DEFAULT.
  TARKA_FLAG(toDefault, ToDefault)
  TARKA_LIST_ADD(IdentifierExpression, identifiers, IdentifierList, Identifier)
  TARKA_LIST_ADD(InitializeReplacingItem, replacing, ReplacingList, Replacing)

private:
  bool filler = false;
  bool allToValue = false;
  bool toDefault = false;
  NodeList<IdentifierExpression> identifiers;
  NodeList<InitializeReplacingItem> replacing;
  std::uint16_t valueCategories = 0;
};

//===----------------------------------------------------------------------===//
// INSPECT
//===----------------------------------------------------------------------===//

/// {BEFORE | AFTER} INITIAL operand
class InspectRegion : public Node {
public:
  InspectRegion(const Node *at, InspRegType side, Expression *limit)
      : Node(at), type(side), expr(limit) {}

  TARKA_FIELD(InspRegType, type, Type)
  TARKA_FIELD(Expression *, expr, Expr)

private:
  InspRegType type = InspRegType::Before;
  Expression *expr = nullptr;
};

/// What is counted after ALL or LEADING: operand [region]...
class TallyingRegion : public Node {
public:
  TallyingRegion(const Node *at, Expression *operand, GivenList<InspectRegion> limits)
      : Node(at), expr(operand), regions(limits.take()) {}

  TARKA_FIELD(Expression *, expr, Expr)
  TARKA_LIST_ADD(InspectRegion, regions, RegionPhraseList, RegionPhrase)

private:
  Expression *expr = nullptr;
  NodeList<InspectRegion> regions;
};

/// CHARACTERS [region]...
/// {ALL | LEADING} {operand [region]...}...
class TallyingItemFor : public Node {
public:
  /// The regions belong to CHARACTERS, the operands to ALL and LEADING; the other list is null.
  TallyingItemFor(const Node *at, InspTailType which, GivenList<InspectRegion> limits,
                  GivenList<TallyingRegion> operands)
      : Node(at), type(which), regions(limits.take()), tallied(operands.take()) {}

  TARKA_FIELD(InspTailType, type, Type)
  TARKA_LIST_ADD(InspectRegion, regions, InspectRegionList, InspectRegion)
  TARKA_LIST_ADD(TallyingRegion, tallied, TallyingRegionList, TallyingRegion)

private:
  InspTailType type = InspTailType::Characters;
  NodeList<InspectRegion> regions;
  NodeList<TallyingRegion> tallied;
};

/// identifier FOR item...
class TallyingItem : public Node {
public:
  TallyingItem(const Node *at, IdentifierExpression *counter, GivenList<TallyingItemFor> items)
      : Node(at), identifier(counter), tallyingFor(items.take()) {}

  TARKA_FIELD(IdentifierExpression *, identifier, Identifier)
  TARKA_LIST_ADD(TallyingItemFor, tallyingFor, TallyingForList, TallyingFor)

private:
  IdentifierExpression *identifier = nullptr;
  NodeList<TallyingItemFor> tallyingFor;
};

/// operand BY operand [region]...
class ReplacingRegion : public Node {
public:
  ReplacingRegion(const Node *at, Expression *operand, Expression *by,
                  GivenList<InspectRegion> limits)
      : Node(at), expr(operand), byExpr(by), regions(limits.take()) {}

  TARKA_FIELD(Expression *, expr, Expr)
  TARKA_FIELD(Expression *, byExpr, ByExpr)
  TARKA_LIST_ADD(InspectRegion, regions, RegionList, Region)

private:
  Expression *expr = nullptr;
  Expression *byExpr = nullptr;
  NodeList<InspectRegion> regions;
};

/// CHARACTERS BY operand [region]...
/// {ALL | LEADING | FIRST} {operand BY operand [region]...}...
class ReplacingItem : public Node {
public:
  /// The operand and the regions belong to CHARACTERS, the replacements to the other forms; what
  /// does not belong to the form is null.
  ReplacingItem(const Node *at, InspReplType which, Expression *by, GivenList<InspectRegion> limits,
                GivenList<ReplacingRegion> replacements)
      : Node(at), type(which), expr(by), regions(limits.take()), replaced(replacements.take()) {}

  TARKA_FIELD(InspReplType, type, Type)
  /// What CHARACTERS are replaced by; null in the other forms.
  TARKA_FIELD(Expression *, expr, Expr)
  TARKA_LIST_ADD(InspectRegion, regions, InspectRegionList, InspectRegion)
  TARKA_LIST_ADD(ReplacingRegion, replaced, ReplacingRegionList, ReplacingRegion)

private:
  InspReplType type = InspReplType::Characters;
  Expression *expr = nullptr;
  NodeList<InspectRegion> regions;
  NodeList<ReplacingRegion> replaced;
};

/// CONVERTING operand TO operand [region]...
class ConvertingItem : public Node {
public:
  ConvertingItem(const Node *at, Expression *from, Expression *to, GivenList<InspectRegion> limits)
      : Node(at), expr(from), toExpr(to), regions(limits.take()) {}

  TARKA_FIELD(Expression *, expr, Expr)
  TARKA_FIELD(Expression *, toExpr, ToExpr)
  TARKA_LIST_ADD(InspectRegion, regions, RegionList, Region)

private:
  Expression *expr = nullptr;
  Expression *toExpr = nullptr;
  NodeList<InspectRegion> regions;
};

/// INSPECT identifier [TALLYING item...] [REPLACING item...]
/// INSPECT identifier CONVERTING operand TO operand [region]...
class InspectStatement : public StatementOf<StatementType::Inspect> {
public:
  /// The phrases that are not written are null.
  InspectStatement(const Node *at, IdentifierExpression *inspected, GivenList<TallyingItem> tallies,
                   GivenList<ReplacingItem> replacements, ConvertingItem *conversion)
      : StatementOf(at), identifier(inspected), tallying(tallies.take()),
        replacing(replacements.take()), converting(conversion) {}

  TARKA_FIELD(IdentifierExpression *, identifier, Identifier)
  TARKA_LIST_ADD(TallyingItem, tallying, TallyingList, Tallying)
  TARKA_LIST_ADD(ReplacingItem, replacing, ReplacingList, Replacing)
  TARKA_FIELD(ConvertingItem *, converting, Converting)

private:
  IdentifierExpression *identifier = nullptr;
  NodeList<TallyingItem> tallying;
  NodeList<ReplacingItem> replacing;
  ConvertingItem *converting = nullptr;
};

//===----------------------------------------------------------------------===//
// STRING and UNSTRING
//===----------------------------------------------------------------------===//

/// operand... [DELIMITED BY {operand | SIZE}]
class StringItem : public Node {
public:
  explicit StringItem(const Node *at) : Node(at) {}

  TARKA_FIELD(StringDelimiterType, type, Type)
  TARKA_LIST_ADD(Expression, stringNames, StringNameList, StringName)
  /// Null unless an operand is the delimiter.
  TARKA_FIELD(Expression *, delimitedName, DelimitedName)

private:
  StringDelimiterType type = StringDelimiterType::None;
  NodeList<Expression> stringNames;
  Expression *delimitedName = nullptr;
};

/// STRING item... INTO identifier [WITH POINTER identifier] [[NOT] ON OVERFLOW statements]...
class StringStatement : public StatementOf<StatementType::String> {
public:
  explicit StringStatement(const Node *at) : StatementOf(at) {}

  TARKA_LIST_ADD(StringItem, items, ItemList, Item)
  TARKA_FIELD(IdentifierExpression *, intoIdentifier, IntoIdentifier)
  /// Null without POINTER.
  TARKA_FIELD(IdentifierExpression *, withPointer, WithPointerIdentifier)
  TARKA_LIST_ADD(ExceptionHandler, handlers, OverflowHandler, OverflowHandler)

private:
  NodeList<StringItem> items;
  IdentifierExpression *intoIdentifier = nullptr;
  IdentifierExpression *withPointer = nullptr;
  NodeList<ExceptionHandler> handlers;
};

/// [ALL] operand, after DELIMITED BY or OR
class UnstringDelimitedItem : public Node {
public:
  UnstringDelimitedItem(const Node *at, Expression *operand, bool isAll)
      : Node(at), all(isAll), delimiter(operand) {}

  TARKA_FLAG(all, All)
  TARKA_FIELD(Expression *, delimiter, Delimiter)

private:
  bool all = false;
  Expression *delimiter = nullptr;
};

/// identifier [DELIMITER IN identifier] [COUNT IN identifier]
class UnstringIntoItem : public Node {
public:
  UnstringIntoItem(const Node *at, IdentifierExpression *target)
      : Node(at), targetIdentifier(target) {}

  TARKA_FIELD(IdentifierExpression *, targetIdentifier, TargetIdentifier)
  /// Null without DELIMITER IN, COUNT IN.
  TARKA_FIELD(IdentifierExpression *, delimiter, Delimiter)
  TARKA_FIELD(IdentifierExpression *, countIdentifier, CountIdentifier)

private:
  IdentifierExpression *targetIdentifier = nullptr;
  IdentifierExpression *delimiter = nullptr;
  IdentifierExpression *countIdentifier = nullptr;
};

/// UNSTRING identifier [DELIMITED BY [ALL] operand [OR [ALL] operand]...] INTO item...
///   [WITH POINTER identifier] [TALLYING IN identifier] [[NOT] ON OVERFLOW statements]...
class UnstringStatement : public StatementOf<StatementType::Unstring> {
public:
  UnstringStatement(const Node *at, IdentifierExpression *source)
      : StatementOf(at), sourceIdentifier(source) {}

  TARKA_FIELD(IdentifierExpression *, sourceIdentifier, SourceIdentifier)
  TARKA_LIST_ADD(UnstringDelimitedItem, delimiters, DelimiterList, Delimiter)
  TARKA_LIST_ADD(UnstringIntoItem, intoItems, IntoList, Into)
  /// Null without POINTER, TALLYING.
  TARKA_FIELD(IdentifierExpression *, withPointerId, WithPointerId)
  TARKA_FIELD(IdentifierExpression *, tallyingId, TallyingId)
  TARKA_LIST_ADD(ExceptionHandler, handlers, OverflowHandler, OverflowHandler)

private:
  IdentifierExpression *sourceIdentifier = nullptr;
  NodeList<UnstringDelimitedItem> delimiters;
  NodeList<UnstringIntoItem> intoItems;
  IdentifierExpression *withPointerId = nullptr;
  IdentifierExpression *tallyingId = nullptr;
  NodeList<ExceptionHandler> handlers;
};

//===----------------------------------------------------------------------===//
// OS/VS
//===----------------------------------------------------------------------===//

/// TRANSFORM identifier CHARACTERS FROM operand TO operand
class TransformStatement : public StatementOf<StatementType::Transform> {
public:
  TransformStatement(const Node *at, Expression *transformed, Expression *from, Expression *to)
      : StatementOf(at), transformExpr(transformed), fromExpr(from), toExpr(to) {}

  TARKA_FIELD(Expression *, transformExpr, TransformExpr)
  TARKA_FIELD(Expression *, fromExpr, FromExpr)
  TARKA_FIELD(Expression *, toExpr, ToExpr)
  /// The INSPECT that the statement is converted to; null before the check.
  TARKA_FIELD(Statement *, inspectStmt, InspectStmt)

private:
  Expression *transformExpr = nullptr;
  Expression *fromExpr = nullptr;
  Expression *toExpr = nullptr;
  Statement *inspectStmt = nullptr;
};

/// EXAMINE identifier TALLYING {ALL | LEADING | UNTIL FIRST} operand [REPLACING BY operand]
/// EXAMINE identifier REPLACING {ALL | LEADING | [UNTIL] FIRST} operand BY operand
class ExamineStatement : public StatementOf<StatementType::Examine> {
public:
  ExamineStatement(const Node *at, ExamineType format, Expression *examined)
      : StatementOf(at), examType(format), examineExpr(examined) {}

  TARKA_FIELD(ExamineType, examType, ExamType)
  TARKA_FIELD(ExamineOptionType, optionType, OptionType)
  TARKA_FIELD(Expression *, examineExpr, ExamineExpr)
  /// The operand that is searched for.
  TARKA_FIELD(Expression *, optExpr, OptExpr)
  /// Null where nothing is replaced.
  TARKA_FIELD(Expression *, byExpr, ByExpr)
  /// The INSPECT that the statement is converted to, and the MOVE before it that clears TALLY. Null
  /// before the check; the MOVE also where nothing is counted.
  TARKA_FIELD(Statement *, inspectStmt, InspectStmt)
  TARKA_FIELD(Statement *, moveStmt, MoveStmt)

private:
  ExamineType examType = ExamineType::Tallying;
  ExamineOptionType optionType = ExamineOptionType::All;
  Expression *examineExpr = nullptr;
  Expression *optExpr = nullptr;
  Expression *byExpr = nullptr;
  Statement *inspectStmt = nullptr;
  Statement *moveStmt = nullptr;
};

/// EXHIBIT {NAMED | CHANGED | CHANGED NAMED} operand... [UPON name]
class ExhibitStatement : public StatementOf<StatementType::Exhibit> {
public:
  ExhibitStatement(const Node *at, ExhibitType format) : StatementOf(at), exhibitType(format) {}

  TARKA_FIELD(ExhibitType, exhibitType, ExhibitType)
  TARKA_LIST_ADD(Expression, operands, ExhibitExprList, ExhibitExpr)
  /// Null without UPON.
  TARKA_FIELD(Word *, uponName, UponName)
  /// The statements that the statement is converted to; set by the check.
  TARKA_LIST_ADD(Statement, convertStmts, ConvertStmtList, ConvertStmt)

private:
  ExhibitType exhibitType = ExhibitType::Named;
  NodeList<Expression> operands;
  Word *uponName = nullptr;
  NodeList<Statement> convertStmts;
};

//===----------------------------------------------------------------------===//
// Statements with operands only
//===----------------------------------------------------------------------===//

/// JSON GENERATE receiver FROM source [COUNT IN receiver] [NAME OF part...] [SUPPRESS part...]
class JsonGenerateStatement : public StatementOf<StatementType::JsonGenerate, OperandStatement> {
public:
  explicit JsonGenerateStatement(const Node *at) : StatementOf(at) {}
};

/// JSON PARSE source INTO receiver [NAME OF part...] [SUPPRESS part...] [CONVERTING part...]
class JsonParseStatement : public StatementOf<StatementType::JsonParse, OperandStatement> {
public:
  explicit JsonParseStatement(const Node *at) : StatementOf(at) {}
};

/// SORT table [ON {ASCENDING | DESCENDING} KEY part...]...; the table is the first part.
class SortTableStatement : public StatementOf<StatementType::SortTable, OperandStatement> {
public:
  explicit SortTableStatement(const Node *at) : StatementOf(at) {}

  /// True with ASCENDING or DESCENDING; without, the KEY phrases of the table say the order.
  TARKA_FLAG(ordered, Ordered)

private:
  bool ordered = false;
};

/// ALLOCATE {source CHARACTERS | part} [RETURNING receiver]
class AllocateStatement : public StatementOf<StatementType::Allocate, OperandStatement> {
public:
  explicit AllocateStatement(const Node *at) : StatementOf(at) {}
};

/// FREE receiver...
class FreeStatement : public StatementOf<StatementType::Free, OperandStatement> {
public:
  explicit FreeStatement(const Node *at) : StatementOf(at) {}
};

/// INVOKE source {literal | source | NEW} [USING source...] [RETURNING receiver]
class InvokeStatement : public StatementOf<StatementType::Invoke, OperandStatement> {
public:
  explicit InvokeStatement(const Node *at) : StatementOf(at) {}
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTDATA_H
