//===- SCStmtSearch.cpp - SEARCH ------------------------------------------===//
//
// A serial SEARCH steps an index through a table; its conditions can be any.
// SEARCH ALL is a binary search of a sorted table, so its conditions must test the
// keys for equality. From them the check makes the conditions by which later stages
// choose the half to continue in.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// The table and what is varied
//===----------------------------------------------------------------------===//

namespace {

/// Every table around the one that is searched has an index that selects which of its occurrences
/// is meant.
bool checkOuterTables(SemanticChecker &checker, IdentifierExpression &name,
                      const DataDescription &table) {
  bool ok = true;
  for (const DataDescription *group = table.getParent(); group; group = group->getParent())
    if (group->getOccurs() && group->getOccurs()->getIndexListSize() == 0)
      ok = checker.report(ErrorCode::SearchOuterTableNotIndexed, &name);
  return ok;
}

/// The table is named as a whole: without subscripts, although it has occurrences.
bool checkTable(SemanticChecker &checker, SearchStatement &statement) {
  IdentifierExpression &name = *statement.getSearchIdentifier();
  if (!checker.semanticCheck(name))
    return false;
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&name);
  if (!identifier)
    return checker.report(ErrorCode::SearchNotDataItem, &name);
  const DataDescription &table = *identifier->getDataDescription();
  const ClauseOccurs *occurs = table.getOccurs();
  if (!occurs)
    return checker.report(ErrorCode::SearchNeedsOccurs, &name);

  bool ok = true;
  if (identifier->getSubscriptMod() || identifier->getReferenceMod())
    ok = checker.report(ErrorCode::SearchSubscriptedOrModified, &name);
  if (occurs->getIndexListSize() == 0)
    ok = checker.report(ErrorCode::SearchStatementInvalid, &name);
  ok &= checkOuterTables(checker, name, table);
  if (statement.getType() == SearchType::Binary && occurs->getKeysSize() == 0)
    ok = checker.report(ErrorCode::SearchAllNeedsKey, &name);
  return ok;
}

/// VARYING: an index or an integer item, which is stepped together with the index of the table. The
/// steps of SEARCH ALL are not visible to the program.
bool checkVarying(SemanticChecker &checker, SearchStatement &statement) {
  IdentifierExpression *varying = statement.getVaryingIdentifier();
  if (!varying)
    return true;
  if (!checker.semanticCheck(*varying))
    return false;
  if (statement.getType() == SearchType::Binary)
    return checker.report(ErrorCode::SearchStatementInvalid, varying);
  if (!llvm::isa<DataIdentifierExpression>(varying) && !dataItemOf(*varying))
    return checker.report(ErrorCode::SearchVaryingNotDataItem, varying);
  if (varying->getDataCategory() == DataCategory::Index)
    return true;
  switch (counterFaultOf(*varying)) {
  case CounterFault::NotNumeric:
  case CounterFault::NotInteger:
    return checker.report(ErrorCode::SearchVaryingNotInteger, varying);
  default:
    return true;
  }
}

//===----------------------------------------------------------------------===//
// The conditions of SEARCH ALL
//===----------------------------------------------------------------------===//

/// Checks the WHEN phrase of one SEARCH ALL: key = value AND key = value ..., where a
/// condition-name says key = value as well.
class BinarySearchCheck {
public:
  BinarySearchCheck(SemanticChecker &checkerOfAll, SearchStatement &search)
      : checker(checkerOfAll), statement(search) {
    collectKeys();
  }

  bool check(Condition &condition);
  /// False when a key of the table is in error: then the conditions cannot be checked.
  bool areKeysKnown() const {
    return llvm::all_of(keys, [](const SearchKey &key) { return key.item != nullptr; });
  }

private:
  /// A key of the table, the most significant one first, with the test for its value.
  struct SearchKey {
    const DataDescription *item;
    SortOrder order;
    Condition *equal = nullptr;
    Expression *operand = nullptr;
    Expression *value = nullptr;
  };

  void collectKeys();
  bool checkTest(Condition &test);
  bool checkRelation(RelationalCondition &relation);
  bool checkConditionName(ConditionNameCondition &condition);
  bool checkKey(Condition &test, DataIdentifierExpression &operand, const DataDescription *item,
                Expression &value);
  bool checkValue(Expression &value);
  bool checkPrefix();
  void makeSteps();

  SearchKey *findKey(const DataDescription *item) {
    auto *key = llvm::find_if(keys, [&](const SearchKey &one) { return one.item == item; });
    return key == keys.end() ? nullptr : key;
  }
  bool isFirstIndex(const Expression *subscript) const;
  bool isSubscriptedByFirstIndex(const DataIdentifierExpression &operand) const;

  SemanticChecker &checker;
  SearchStatement &statement;
  llvm::SmallVector<SearchKey, 4> keys;
  /// The first name of INDEXED BY, which the search steps.
  const DataDescription *firstIndex = nullptr;
};

void BinarySearchCheck::collectKeys() {
  const ClauseOccurs &occurs = *statement.getSearchIdentifier()->getDataDescription()->getOccurs();
  firstIndex = occurs.getIndexListElements().front()->getDataDescription();
  for (const Key *phrase : occurs.getKeysElements())
    for (Expression *name : phrase->getDataListElements())
      if (auto *key = llvm::dyn_cast<DataIdentifierExpression>(name))
        keys.push_back({key->getDataDescription(), phrase->getOrder()});
}

bool BinarySearchCheck::check(Condition &condition) {
  // Long chains of AND lean to the left; the tests are still visited in the order written.
  bool ok = true;
  llvm::SmallVector<Condition *, 8> pending{&condition};
  while (!pending.empty()) {
    Condition *test = pending.pop_back_val();
    auto *both = llvm::dyn_cast<CombinedCondition>(test);
    if (both && both->getOpTy() == CombinedOperatorType::And) {
      pending.push_back(both->getRight());
      pending.push_back(both->getLeft());
    } else {
      ok &= checkTest(*test);
    }
  }
  if (!ok || !checkPrefix())
    return false;
  makeSteps();
  return true;
}

bool BinarySearchCheck::checkTest(Condition &test) {
  if (auto *relation = llvm::dyn_cast<RelationalCondition>(&test))
    return checkRelation(*relation);
  if (auto *conditionName = llvm::dyn_cast<ConditionNameCondition>(&test))
    return checkConditionName(*conditionName);
  return checker.report(ErrorCode::SearchAllConditionKind, &test);
}

bool BinarySearchCheck::checkRelation(RelationalCondition &relation) {
  Expression &left = *relation.getLeft();
  if (relation.getConditionType() != RelationalConditionType::Equal ||
      llvm::isa<AbbrRelationCombinedExpression>(relation.getRight()))
    return checker.report(ErrorCode::SearchAllConditionKind, &relation);
  switch (left.getDataCategory()) {
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat:
    return checker.report(ErrorCode::SearchAllFloatOperand, &left);
  case DataCategory::Pointer:
    return checker.report(ErrorCode::SearchAllPointerOperand, &left);
  default:
    break;
  }
  auto *key = llvm::dyn_cast<DataIdentifierExpression>(&left);
  if (!key)
    return checker.report(ErrorCode::SearchStatementInvalid, &left);
  return checkKey(relation, *key, key->getDataDescription(), *relation.getRight()) &&
         checkValue(*relation.getRight());
}

/// The value of the condition-name is the one that its conditional variable is to have.
bool BinarySearchCheck::checkConditionName(ConditionNameCondition &condition) {
  DataIdentifierExpression &name = *condition.getConditionName();
  const DataDescription &entry = *name.getDataDescription();
  const ClauseValue *clause = entry.getValue();
  DataDescription *variable = entry.getCondNameParent();
  // Without them the entry has been reported.
  if (!clause || clause->getPhraseValSize() == 0 || !variable)
    return false;
  const PhraseValue &value = *clause->getPhraseValElements().front();
  if (clause->isListValue() || value.getLiteral2())
    return checker.report(ErrorCode::SearchAllConditionNameValues, &condition);
  if (!value.getLiteral1())
    return false;

  auto *words = generate<QualifiedWord>(&name);
  words->addNames(variable->getDataName());
  auto *operand = generate<DataIdentifierExpression>(&name, words, name.getSubscriptMod(), nullptr);
  operand->setDataDescription(variable);
  if (const ClausePicture *picture = variable->getPicture()) {
    operand->setSrcDigitNum(static_cast<unsigned>(picture->getDigitNum()));
    operand->setSrcScale(static_cast<unsigned>(picture->getScale()));
  }
  return checkKey(condition, *operand, variable, *value.getLiteral1());
}

/// A key of the table, in the occurrence that the index of the search stands at.
bool BinarySearchCheck::checkKey(Condition &test, DataIdentifierExpression &operand,
                                 const DataDescription *item, Expression &value) {
  SearchKey *key = findKey(item);
  if (!key || operand.getReferenceMod() || !isSubscriptedByFirstIndex(operand))
    return checker.report(ErrorCode::SearchStatementInvalid, &operand);
  if (!key->equal) {
    key->equal = &test;
    key->operand = &operand;
    key->value = &value;
  }
  return true;
}

bool BinarySearchCheck::isFirstIndex(const Expression *subscript) const {
  const auto *index = llvm::dyn_cast<DataIdentifierExpression>(subscript);
  return index && index->getDataDescription() == firstIndex;
}

/// The table that is searched is the innermost one around the key, so its subscript is the last.
bool BinarySearchCheck::isSubscriptedByFirstIndex(const DataIdentifierExpression &operand) const {
  const SubscriptModifier *subscripts = operand.getSubscriptMod();
  return subscripts && isFirstIndex(subscripts->getSubscriptElements().back());
}

/// What a key is compared with stays the same during the search: it is neither a key of the table
/// nor steps with its index.
bool BinarySearchCheck::checkValue(Expression &value) {
  if (auto *arithmetic = llvm::dyn_cast<ArithmeticExpression>(&value)) {
    bool ok = checkValue(*arithmetic->getOperand1());
    return (!arithmetic->getOperand2() || checkValue(*arithmetic->getOperand2())) && ok;
  }
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&value);
  if (!identifier)
    return true;
  const SubscriptModifier *subscripts = identifier->getSubscriptMod();
  auto isIndex = [this](const Expression *subscript) { return isFirstIndex(subscript); };
  if (findKey(identifier->getDataDescription()) ||
      (subscripts && llvm::any_of(subscripts->getSubscriptElements(), isIndex)))
    return checker.report(ErrorCode::SearchStatementInvalid, &value);
  return true;
}

/// The table is sorted by a key only among the entries that agree in all keys before it.
bool BinarySearchCheck::checkPrefix() {
  const SearchKey *missing = nullptr;
  for (const SearchKey &key : keys) {
    if (!key.equal && !missing)
      missing = &key;
    else if (key.equal && missing)
      return checker.report(ErrorCode::SearchStatementInvalid, key.operand);
  }
  return true;
}

/// Makes the conditions under which the entry comes after the one sought: it agrees in the first
/// keys, and the next key is past its value. If none holds, the entry comes before it.
void BinarySearchCheck::makeSteps() {
  Condition *agrees = nullptr;
  auto andThen = [&](Condition *next) -> Condition * {
    if (!agrees)
      return next;
    return generate<CombinedCondition>(next, CombinedOperatorType::And, agrees, next);
  };
  for (const SearchKey &key : keys) {
    if (!key.equal)
      break;
    const RelationalConditionType past = key.order == SortOrder::Ascending
                                             ? RelationalConditionType::Greater
                                             : RelationalConditionType::Less;
    statement.addCondList(
        andThen(generate<RelationalCondition>(key.equal, past, key.operand, key.value)));
    agrees = andThen(key.equal);
  }
}

} // namespace

//===----------------------------------------------------------------------===//
// The statement
//===----------------------------------------------------------------------===//

static bool checkBinarySearch(SemanticChecker &checker, SearchStatement &statement,
                              Condition &condition) {
  BinarySearchCheck check(checker, statement);
  return !check.areKeysKnown() || check.check(condition);
}

/// AT END has no NOT form.
static bool checkAtEnd(SemanticChecker &checker, SearchStatement &statement) {
  bool ok = true;
  for (ExceptionHandler *phrase : statement.getAtHandlerElements()) {
    if (phrase->isNotOn())
      ok = checker.report(ErrorCode::SearchStatementInvalid, phrase);
    ok &= checker.semanticCheck(*phrase);
  }
  return ok;
}

bool SemanticChecker::semanticCheck(SearchStatement &statement) {
  const bool tableOk = checkTable(*this, statement);
  bool ok = tableOk;
  ok &= checkVarying(*this, statement);
  ok &= checkAtEnd(*this, statement);

  const bool isBinary = statement.getType() == SearchType::Binary;
  for (SearchWhen *when : statement.getWhenListElements()) {
    // A sorted table is searched for one entry.
    if (isBinary && when != statement.getWhenListElements().front())
      ok = report(ErrorCode::SearchStatementInvalid, when);
    else if (!semanticCheck(*when->getCondition()))
      ok = false;
    else if (isBinary && tableOk)
      ok &= checkBinarySearch(*this, statement, *when->getCondition());
    ok &= OperandCheck(*this).all(when->getStatementListElements());
  }
  return ok;
}

} // namespace tarka
