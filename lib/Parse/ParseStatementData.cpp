//===- ParseStatementData.cpp - ACCEPT, DISPLAY, MOVE, SET, INITIALIZE ----===//

#include "Parse/ParseStatementData.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// ACCEPT and DISPLAY
//===----------------------------------------------------------------------===//

/// FROM {mnemonic-name | environment-name | DATE [YYYYMMDD] | DAY [YYYYDDD] | DAY-OF-WEEK | TIME}
AcceptFrom *DataStatements::parseAcceptFrom() {
  SourceRange begin = here();
  accept(Keyword::From);
  if (accept(Keyword::Date))
    return make<AcceptFrom>(begin, accept(Keyword::Yyyymmdd) ? AcceptFromType::DateYyyymmdd
                                                             : AcceptFromType::Date);
  if (accept(Keyword::Day))
    return make<AcceptFrom>(begin, accept(Keyword::Yyyyddd) ? AcceptFromType::DayYyyyddd
                                                            : AcceptFromType::Day);
  if (accept(Keyword::DayOfWeek))
    return make<AcceptFrom>(begin, AcceptFromType::DayOfWeek);
  if (accept(Keyword::Time))
    return make<AcceptFrom>(begin, AcceptFromType::Time);
  Word *name = parseUserWord("a mnemonic-name, DATE, DAY, DAY-OF-WEEK or TIME");
  return name ? make<AcceptFrom>(begin, AcceptFromType::Device, name) : nullptr;
}

/// ACCEPT identifier [FROM source] [END-ACCEPT]
StatementResult DataStatements::parseAccept() {
  SourceRange begin = here();
  accept(Keyword::Accept);
  IdentifierExpression *receiver = parseIdentifier();
  if (!receiver)
    return nullptr;
  if (at(Keyword::Message))
    return error(DiagnosticId::UnsupportedStatement, begin, "ACCEPT MESSAGE COUNT");
  auto *statement = make<AcceptStatement>(begin, receiver);
  if (at(Keyword::From)) {
    statement->setFromType(parseAcceptFrom());
    if (!statement->getFromType())
      return nullptr;
  }
  return finish(statement);
}

/// DISPLAY operand... [UPON {mnemonic-name | environment-name}] [[WITH] NO ADVANCING] [END-DISPLAY]
StatementResult DataStatements::parseDisplay() {
  SourceRange begin = here();
  accept(Keyword::Display);
  auto *display = make<DisplayStatement>(begin);
  // END-DISPLAY is not a reserved word, so it could name an operand.
  auto parse = [this] { return parseOperand(); };
  auto atAnother = [this] { return atOperand() && !at(Keyword::EndDisplay); };
  if (!parseSeries(*display, &DisplayStatement::addIdenLiter, parse, atAnother))
    return nullptr;
  if (accept(Keyword::Upon)) {
    display->setUponName(parseUserWord("a mnemonic-name or an environment-name"));
    if (!display->getUponName())
      return nullptr;
  }
  if (at(Keyword::With, Keyword::No)) {
    accept(Keyword::With);
    if (!expect(Keyword::No))
      return nullptr;
    accept(Keyword::Advancing);
    display->setIsNoAdvancing(true);
  }
  return finish(display);
}

//===----------------------------------------------------------------------===//
// MOVE
//===----------------------------------------------------------------------===//

/// MOVE [CORRESPONDING | CORR] operand TO identifier...
StatementResult DataStatements::parseMove() {
  SourceRange begin = here();
  accept(Keyword::Move);
  bool corresponding = acceptAny(Keyword::Corresponding, Keyword::Corr);
  Expression *sender = parseOperand();
  if (!sender || !expect(Keyword::To))
    return nullptr;
  auto *move = make<MoveStatement>(begin, sender, nullptr, corresponding);
  if (!parseIdentifiers(*move, &MoveStatement::addTarget))
    return nullptr;
  return complete(move);
}

//===----------------------------------------------------------------------===//
// SET
//===----------------------------------------------------------------------===//

/// What TO gives: operand, ENTRY operand, NULL, ON, OFF, TRUE or FALSE.
SetToValue *DataStatements::parseSetToValue() {
  SourceRange begin = here();
  if (acceptAny(Keyword::Null, Keyword::Nulls))
    return make<SetToValue>(begin, SetToValueType::Null);
  if (accept(Keyword::On))
    return make<SetToValue>(begin, SetToValueType::On);
  if (accept(Keyword::Off))
    return make<SetToValue>(begin, SetToValueType::Off);
  if (accept(Keyword::True))
    return make<SetToValue>(begin, SetToValueType::True);
  if (accept(Keyword::False))
    return make<SetToValue>(begin, SetToValueType::False);
  SetToValueType type = accept(Keyword::Entry) ? SetToValueType::Entry : SetToValueType::Expression;
  Expression *value = parseOperand();
  return value ? make<SetToValue>(begin, type, value) : nullptr;
}

/// The format that the words around the value make of a SET.
static SetItemType formatOf(SetToValueType value) {
  switch (value) {
  case SetToValueType::On:
  case SetToValueType::Off:
    return SetItemType::Switch;
  case SetToValueType::True:
  case SetToValueType::False:
    return SetItemType::Condition;
  case SetToValueType::Expression:
  case SetToValueType::Null:
  case SetToValueType::Entry:
    return SetItemType::To;
  }
  llvm_unreachable("not a value of SET");
}

/// receiver... {TO value | UP BY operand | DOWN BY operand}
///
/// A receiving operand is an identifier, ADDRESS OF identifier, a switch or a condition-name; which
/// of them, only the words after the list decide.
SetItem *DataStatements::parseSetItem() {
  auto *item = make<SetItem>(here(), SetItemType::To);
  NodeList<Expression> receivers;
  do {
    Expression *receiver = parseOperand("an identifier");
    if (!receiver)
      return nullptr;
    receivers.push_back(receiver);
  } while (atOperand());

  if (at(Keyword::Up, Keyword::Down)) {
    item->setType(at(Keyword::Up) ? SetItemType::UpBy : SetItemType::DownBy);
    acceptAny(Keyword::Up, Keyword::Down);
    if (!expect(Keyword::By))
      return nullptr;
    SourceRange begin = here();
    Expression *amount = parseOperand();
    if (!amount)
      return nullptr;
    item->setToValue(make<SetToValue>(begin, SetToValueType::Expression, amount));
  } else if (accept(Keyword::To)) {
    SetToValue *value = parseSetToValue();
    if (!value)
      return nullptr;
    item->setToValue(value);
    item->setType(formatOf(value->getType()));
  } else {
    return expected("TO, UP BY or DOWN BY");
  }

  for (Expression *receiver : receivers) {
    if (item->getType() != SetItemType::Condition) {
      item->addSet(receiver);
      continue;
    }
    auto *name = llvm::dyn_cast<DataIdentifierExpression>(receiver);
    if (!name)
      return error(DiagnosticId::ConditionNameForTrue, receiver->getRange());
    item->addCond(makeAt<ConditionNameCondition>(name->getRange(), name));
  }
  return complete(item);
}

/// SET {receiver... {TO value | UP BY operand | DOWN BY operand}}...
StatementResult DataStatements::parseSet() {
  SourceRange begin = here();
  accept(Keyword::Set);
  auto *set = make<SetStatement>(begin);
  return parseSeries(*set, &SetStatement::addItem, &DataStatements::parseSetItem,
                     &DataStatements::atOperand)
             ? complete(set)
             : nullptr;
}

//===----------------------------------------------------------------------===//
// INITIALIZE
//===----------------------------------------------------------------------===//

/// The category of data that \p keyword names in INITIALIZE, if it names one.
static std::optional<InitializeReplacingType> categoryOf(Keyword keyword) {
  switch (keyword) {
  case Keyword::Alphabetic:
    return InitializeReplacingType::Alphabetic;
  case Keyword::Alphanumeric:
    return InitializeReplacingType::Alphanumeric;
  case Keyword::Numeric:
    return InitializeReplacingType::Numeric;
  case Keyword::AlphanumericEdited:
    return InitializeReplacingType::AlphanumericEdited;
  case Keyword::NumericEdited:
    return InitializeReplacingType::NumericEdited;
  case Keyword::National:
    return InitializeReplacingType::National;
  case Keyword::NationalEdited:
    return InitializeReplacingType::NationalEdited;
  case Keyword::Dbcs:
  case Keyword::Egcs:
    return InitializeReplacingType::Dbcs;
  default:
    return std::nullopt;
  }
}

/// {ALL | category...} [TO] VALUE
bool DataStatements::parseInitializeToValue(InitializeStatement &initialize) {
  if (accept(Keyword::All))
    initialize.setIsAllToValue(true);
  else
    while (auto category = categoryOf(peek().keyword)) {
      initialize.addValueCategory(*category);
      stream.skip();
    }
  accept(Keyword::To);
  return expect(Keyword::Value);
}

/// {category [DATA] BY operand}...
bool DataStatements::parseInitializeReplacing(InitializeStatement &initialize) {
  auto category = categoryOf(peek().keyword);
  if (!category)
    return expected("a category of data");
  for (; category; category = categoryOf(peek().keyword)) {
    SourceRange begin = here();
    stream.skip();
    accept(Keyword::Data);
    Expression *value = expect(Keyword::By) ? parseOperand() : nullptr;
    if (!value)
      return false;
    initialize.addReplacing(make<InitializeReplacingItem>(begin, *category, value));
  }
  return true;
}

/// INITIALIZE identifier... [[WITH] FILLER] [{ALL | category...} [TO] VALUE]
///   [[THEN] REPLACING {category [DATA] BY operand}...] [[THEN] TO DEFAULT]
StatementResult DataStatements::parseInitialize() {
  SourceRange begin = here();
  accept(Keyword::Initialize);
  auto *initialize = make<InitializeStatement>(begin);
  if (!parseIdentifiers(*initialize, &InitializeStatement::addIdentifier))
    return nullptr;

  if (at(Keyword::With, Keyword::Filler)) {
    accept(Keyword::With);
    if (!expect(Keyword::Filler))
      return nullptr;
    initialize->setIsFiller(true);
  }
  if (at(Keyword::All) || categoryOf(peek().keyword))
    if (!parseInitializeToValue(*initialize))
      return nullptr;
  bool then = accept(Keyword::Then);
  if (accept(Keyword::Replacing)) {
    if (!parseInitializeReplacing(*initialize))
      return nullptr;
    then = accept(Keyword::Then);
  }
  if (then || at(Keyword::To)) {
    accept(Keyword::To);
    if (!expect(Keyword::Default))
      return nullptr;
    initialize->setIsToDefault(true);
  }
  return complete(initialize);
}

//===----------------------------------------------------------------------===//
// ALLOCATE and FREE
//===----------------------------------------------------------------------===//

/// ALLOCATE {expression CHARACTERS | data-name} [INITIALIZED] [LOC integer]
///   [RETURNING identifier]
StatementResult DataStatements::parseAllocate() {
  SourceRange begin = here();
  accept(Keyword::Allocate);
  auto *allocate = make<AllocateStatement>(begin);
  Expression *size = parseArithmeticExpression();
  if (!size)
    return nullptr;
  if (accept(Keyword::Characters))
    allocate->addSource(size);
  else
    allocate->addPart(size);
  accept(Keyword::Initialized);
  if (accept(Keyword::Loc) && !parseNumericLiteral())
    return nullptr;
  if (accept(Keyword::Returning)) {
    IdentifierExpression *address = parseIdentifier();
    if (!address)
      return nullptr;
    allocate->addReceiver(address);
  }
  return complete(allocate);
}

/// FREE identifier...
StatementResult DataStatements::parseFree() {
  SourceRange begin = here();
  accept(Keyword::Free);
  auto *free = make<FreeStatement>(begin);
  do {
    IdentifierExpression *address = parseIdentifier();
    if (!address)
      return nullptr;
    free->addReceiver(address);
  } while (atIdentifier());
  return complete(free);
}

} // namespace tarka
