//===- SCStmtOsvs.cpp - the statements of OS/VS COBOL ---------------------===//
//
// ON, TRANSFORM, EXAMINE and EXHIBIT have no place in later stages: the checks
// make statements of today's language that do their work, at the place of the
// statement, and the graph holds those.
//
// The operands of the program stand in several of these statements, or several
// times in one. They are checked once, in a statement that holds each of them
// once, so that what is wrong with one of them is said once.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "llvm/ADT/Twine.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// What the compiler makes
//===----------------------------------------------------------------------===//

namespace {

/// \p copies times \p contents as a literal is written, behind the prefix of its kind.
std::string quoted(llvm::StringRef contents, llvm::StringRef prefix = "", std::int64_t copies = 1) {
  std::string text = prefix.str() + '"';
  for (; copies > 0; --copies)
    for (char c : contents)
      text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

/// Makes the parts of the statements that stand for one statement, all of them at its place.
class Maker {
public:
  Maker(SemanticChecker &theChecker, Statement &statement) : checker(theChecker), at(&statement) {}

  const Node *place() const { return at; }

  NumericLiteralExpression *number(llvm::StringRef text) {
    auto *literal = generate<NumericLiteralExpression>(at, text);
    checker.semanticCheck(*literal);
    return literal;
  }
  Expression *zero() {
    return generate<FigurativeLiteralExpression>(at, FigurativeType::Zero, nullptr);
  }
  Expression *text(llvm::StringRef contents) {
    return generate<NonNumericLiteralExpression>(at, quoted(contents));
  }

  /// A bound reference to an item of that name.
  DataIdentifierExpression *reference(llvm::StringRef name) {
    auto *words = generate<QualifiedWord>(at);
    words->addNames(generate<Word>(at, name, ""));
    auto *identifier = generate<DataIdentifierExpression>(at, words, nullptr, nullptr);
    checker.semanticCheck(*identifier);
    return identifier;
  }

  DataDescription *item(const char *picture, UsageType usage);
  llvm::StringRef keep(llvm::StringRef prefix, DataDescription *item, Expression *value);

  Condition *compare(RelationalConditionType relation, Expression *left, Expression *right) {
    return generate<RelationalCondition>(at, relation, left, right);
  }
  Condition *combine(CombinedOperatorType op, Condition *left, Condition *right) {
    return generate<CombinedCondition>(at, op, left, right);
  }

  /// A MOVE whose sender needs no further check.
  Statement *move(Expression *sender, IdentifierExpression *receiver) {
    std::list<IdentifierExpression *> receivers{receiver};
    auto *statement = generate<MoveStatement>(at, sender, &receivers, /*isCorresponding=*/false);
    statement->setMoveRuleList(makeList<MoveRule>());
    statement->getMoveRuleList()->push_back(checker.getMoveRule(sender, receiver));
    return statement;
  }

private:
  SemanticChecker &checker;
  const Node *at;
};

/// An entry with that PICTURE; without one when it is null.
DataDescription *Maker::item(const char *picture, UsageType usage) {
  auto *entry = generate<DataDescription>(at);
  entry->setLevelNum(1);
  if (picture)
    entry->setPicture(generate<ClausePicture>(at, generate<Word>(at, picture, "")));
  entry->setUsage(generate<ClauseUsage>(at, usage));
  return entry;
}

/// Adds \p item to working-storage, so that it keeps its value from one run of the statement to the
/// next, and gives its name: the place there tells it from others of the same prefix.
llvm::StringRef Maker::keep(llvm::StringRef prefix, DataDescription *item, Expression *value) {
  SourceUnit &unit = *currentUnit();
  if (!unit.getDataDivision())
    unit.setDataDivision(generate<DataDivision>(at));
  DataDivision &division = *unit.getDataDivision();
  auto *name =
      generate<Word>(at, (prefix + llvm::Twine(division.getWorkSectionSize() + 1)).str(), "");
  item->setDataName(name);
  if (value) {
    auto *phrase = generate<PhraseValue>(at);
    phrase->setLiteral1(llvm::cast<LiteralExpression>(value));
    auto *clause = generate<ClauseValue>(at);
    clause->addPhraseValue(phrase);
    item->setValue(clause);
  }
  division.addWorkSection(item);
  checker.semanticCheck(*item);
  return name->getWordData();
}

} // namespace

//===----------------------------------------------------------------------===//
// ON
//===----------------------------------------------------------------------===//

/// The counts of ON are positive integers.
static bool checkCount(SemanticChecker &checker, Expression *count) {
  if (!count)
    return true;
  if (!checker.semanticCheck(*count))
    return false;
  if (isUnknown(*count))
    return true;
  const auto *literal = llvm::dyn_cast<NumericLiteralExpression>(count);
  if (!isNumber(*count) || !count->isInteger() || (literal && !literal->isPositive()))
    return checker.report(ErrorCode::IntegerExpressionInvalid, count);
  return true;
}

/// The count from which on, and every so many times, up to which, the statements are run: equal to
/// the first count where it is written alone.
static Condition *makeCountCondition(Maker &make, OnStatement &statement, llvm::StringRef counter) {
  Expression *first = statement.getOnExpr();
  Expression *every = statement.getEveryExpr();
  Expression *until = statement.getUntilExpr();
  if (!every && !until)
    return make.compare(RelationalConditionType::Equal, make.reference(counter), first);

  Condition *condition =
      make.compare(RelationalConditionType::NotLess, make.reference(counter), first);
  if (until)
    condition = make.combine(
        CombinedOperatorType::And, condition,
        make.compare(RelationalConditionType::NotGreater, make.reference(counter), until));
  if (!every)
    return condition;

  auto *since =
      generate<ArithmeticExpression>(make.place(), ArithmeticExprType::Subtract,
                                     make.reference(counter), first, /*parenthesised=*/false);
  auto *rest = generate<FunctionIdentifierExpression>(make.place(), IntrinsicType::Mod,
                                                      generate<Word>(make.place(), "MOD", ""));
  rest->addFunctionArg(since);
  rest->addFunctionArg(every);
  rest->setDataCategory(DataCategory::Numeric);
  return make.combine(CombinedOperatorType::And, condition,
                      make.compare(RelationalConditionType::Equal, rest, make.zero()));
}

/// Each ON has a counter of its own, to which 1 is added whenever control comes to it.
bool SemanticChecker::semanticCheck(OnStatement &statement) {
  bool ok = checkCount(*this, statement.getOnExpr());
  ok &= checkCount(*this, statement.getEveryExpr());
  ok &= checkCount(*this, statement.getUntilExpr());

  Maker make(*this, statement);
  llvm::StringRef counter =
      make.keep("TKDUMMY-ON-", make.item("9(8)", UsageType::Binary), make.zero());
  auto *count = generate<AddStatement>(&statement, AddStmtType::To);
  count->addOperand(make.number("1"));
  count->addTo(makeRoundedOperand(make.reference(counter), nullptr));
  statement.setAddStmt(count);
  statement.setCondition(makeCountCondition(make, statement, counter));

  return OperandCheck(*this)
             .all(statement.getUntilStmtListElements())
             .all(statement.getElseStmtListElements()) &&
         ok;
}

//===----------------------------------------------------------------------===//
// TRANSFORM
//===----------------------------------------------------------------------===//

namespace {

/// Checks an operand where nobody hears of it, for what has to be known before its check.
template <typename Part> void checkUnheard(Part &part) {
  ErrorHandler unheard;
  SemanticChecker(&unheard).semanticCheck(part);
}

/// The number of characters of an operand that is not checked yet; 0 where it is not known or there
/// are none. A subscript does not matter.
std::int64_t countCharacters(const Expression &operand) {
  const auto *name = llvm::dyn_cast<DataIdentifierExpression>(&operand);
  if (!name)
    return characterCountOf(operand).value_or(0);
  DataIdentifierExpression whole(name, name->getQualifiedWord(), nullptr, name->getReferenceMod());
  checkUnheard(whole);
  if (characterKindOf(whole) == CharacterKind::None)
    return 0;
  return characterCountOf(whole).value_or(0);
}

/// \p copies times the contents of \p literal, as a literal of its kind.
LiteralExpression *repeat(const NonNumericLiteralExpression &literal, std::int64_t copies) {
  static constexpr const char *prefixes[] = {"", "", "X", "Z", "G", "N", "NX"};
  auto kind = static_cast<int>(literal.getNonNumericLiteralType());
  return generate<NonNumericLiteralExpression>(&literal,
                                               quoted(literal.getData(), prefixes[kind], copies));
}

/// The characters of \p operand one by one, from the first to the last of \p count; none where
/// there is no way to write them.
std::list<Expression *> splitCharacters(const Expression &operand, std::int64_t count) {
  std::list<Expression *> characters;
  if (const auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(&operand)) {
    if (literal->getNonNumericLiteralType() == NonNumericLiteralType::Alphanumeric)
      for (char c : literal->getData())
        characters.push_back(
            generate<NonNumericLiteralExpression>(literal, quoted(llvm::StringRef(&c, 1))));
  } else if (const auto *item = llvm::dyn_cast<DataIdentifierExpression>(&operand);
             item && !item->getReferenceMod()) {
    for (std::int64_t position = 1; position <= count; ++position)
      characters.push_back(generate<DataIdentifierExpression>(
          item, item->getQualifiedWord(), item->getSubscriptMod(),
          generate<ReferenceModifier>(
              item, generate<NumericLiteralExpression>(item, std::to_string(position)),
              generate<NumericLiteralExpression>(item, "1"))));
  }
  return characters;
}

} // namespace

/// One character, held in an item, replaces several: REPLACING says so of each of them.
static InspectStatement *replaceEach(const Node *at, IdentifierExpression *subject,
                                     const std::list<Expression *> &characters, Expression *by) {
  auto *inspect = generate<InspectStatement>(at, subject, nullptr, nullptr, nullptr);
  auto *item = generate<ReplacingItem>(at, InspReplType::All, nullptr, nullptr, nullptr);
  inspect->addReplacing(item);
  for (Expression *character : characters)
    item->addReplacingRegion(generate<ReplacingRegion>(at, character, by, nullptr));
  return inspect;
}

/// TRANSFORM is INSPECT CONVERTING, but for one thing: one character may stand for all that are
/// replaced, where INSPECT wants one for each.
bool SemanticChecker::semanticCheck(TransformStatement &statement) {
  auto *subject = llvm::dyn_cast<IdentifierExpression>(statement.getTransformExpr());
  if (!subject)
    return report(ErrorCode::InspectIdentifierType, statement.getTransformExpr());
  Expression *from = statement.getFromExpr();
  Expression *to = statement.getToExpr();
  if (std::int64_t count = countCharacters(*from); count > 1 && countCharacters(*to) == 1) {
    if (auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(to)) {
      to = repeat(*literal, count);
    } else if (llvm::isa<IdentifierExpression>(to)) {
      std::list<Expression *> characters = splitCharacters(*from, count);
      if (!characters.empty()) {
        InspectStatement *inspect = replaceEach(&statement, subject, characters, to);
        statement.setInspectStmt(inspect);
        // What is wrong with one of the characters is wrong with all.
        bool ok = semanticCheck(*replaceEach(&statement, subject, {characters.front()}, to));
        checkUnheard(*inspect);
        return ok;
      }
    }
  }
  auto *converting = generate<ConvertingItem>(&statement, from, to, nullptr);
  auto *inspect = generate<InspectStatement>(&statement, subject, nullptr, nullptr, converting);
  statement.setInspectStmt(inspect);
  return semanticCheck(*inspect);
}

//===----------------------------------------------------------------------===//
// EXAMINE
//===----------------------------------------------------------------------===//

namespace {

/// EXAMINE writes the digits of a number as a number, INSPECT as characters.
Expression *asCharacters(Expression *operand) {
  auto *number = llvm::dyn_cast_if_present<NumericLiteralExpression>(operand);
  if (!number || !number->isInteger() || number->isSigned())
    return operand;
  return generate<NonNumericLiteralExpression>(number, quoted(number->getData()));
}

/// The INSPECT that does what EXAMINE says; \p counter is null where nothing is counted.
class ExamineConverter {
public:
  explicit ExamineConverter(ExamineStatement &theStatement)
      : statement(theStatement),
        subject(llvm::cast<IdentifierExpression>(statement.getExamineExpr())),
        sought(asCharacters(statement.getOptExpr())), by(asCharacters(statement.getByExpr())) {}

  InspectStatement *make(IdentifierExpression *counter, bool replaces) {
    auto *inspect = generate<InspectStatement>(&statement, subject, nullptr, nullptr, nullptr);
    if (counter)
      inspect->addTallying(tallying(counter));
    if (replaces)
      inspect->addReplacing(replacing());
    return inspect;
  }

private:
  bool isUntilFirst() const { return statement.getOptionType() == ExamineOptionType::UntilFirst; }
  bool isLeading() const { return statement.getOptionType() == ExamineOptionType::Leading; }

  /// Everything before the first one: UNTIL FIRST.
  std::list<InspectRegion *> *untilFirst() {
    auto *regions = makeList<InspectRegion *>();
    regions->push_back(generate<InspectRegion>(&statement, InspRegType::Before, sought));
    return regions;
  }

  TallyingItem *tallying(IdentifierExpression *counter) {
    TallyingItemFor *phrase = nullptr;
    if (isUntilFirst()) {
      phrase =
          generate<TallyingItemFor>(&statement, InspTailType::Characters, untilFirst(), nullptr);
    } else {
      phrase = generate<TallyingItemFor>(
          &statement, isLeading() ? InspTailType::Leading : InspTailType::All, nullptr, nullptr);
      phrase->addTallyingRegion(generate<TallyingRegion>(&statement, sought, nullptr));
    }
    std::list<TallyingItemFor *> phrases{phrase};
    return generate<TallyingItem>(&statement, counter, &phrases);
  }

  ReplacingItem *replacing() {
    if (isUntilFirst())
      return generate<ReplacingItem>(&statement, InspReplType::Characters, by, untilFirst(),
                                     nullptr);
    InspReplType which = isLeading() ? InspReplType::Leading : InspReplType::All;
    if (statement.getOptionType() == ExamineOptionType::First)
      which = InspReplType::First;
    auto *item = generate<ReplacingItem>(&statement, which, nullptr, nullptr, nullptr);
    item->addReplacingRegion(generate<ReplacingRegion>(&statement, sought, by, nullptr));
    return item;
  }

  ExamineStatement &statement;
  IdentifierExpression *subject;
  Expression *sought;
  Expression *by;
};

} // namespace

/// EXAMINE counts in TALLY, from zero on.
bool SemanticChecker::semanticCheck(ExamineStatement &statement) {
  if (!llvm::isa<IdentifierExpression>(statement.getExamineExpr()))
    return report(ErrorCode::InspectIdentifierType, statement.getExamineExpr());
  Maker make(*this, statement);
  ExamineConverter convert(statement);
  bool counts = statement.getExamType() != ExamineType::Replacing;
  bool replaces = statement.getExamType() != ExamineType::Tallying;
  if (counts)
    statement.setMoveStmt(make.move(make.zero(), make.reference("TALLY")));
  statement.setInspectStmt(convert.make(counts ? make.reference("TALLY") : nullptr, replaces));

  // Replacing names every operand, and counting only some of them again.
  IdentifierExpression *counter = replaces ? nullptr : make.reference("TALLY");
  return semanticCheck(*convert.make(counter, replaces));
}

//===----------------------------------------------------------------------===//
// EXHIBIT
//===----------------------------------------------------------------------===//

namespace {

/// The name of an operand as EXHIBIT NAMED shows it.
std::string exhibitedName(const Expression &operand) {
  std::string name;
  if (const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&operand)) {
    for (const Word *word : identifier->getQualifiedWord()->getNamesElements())
      name += (name.empty() ? "" : " OF ") + word->getWordData();
  } else if (const auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&operand)) {
    name = special->getRegisterWord()->getWordData();
  }
  return name;
}

/// Makes what EXHIBIT is turned into.
class ExhibitConverter {
public:
  ExhibitConverter(SemanticChecker &checker, ExhibitStatement &theStatement)
      : statement(theStatement), make(checker, theStatement),
        isNamed(statement.getExhibitType() != ExhibitType::Changed) {}

  DisplayStatement *displayAll();
  void addChangedDisplays(Word *device);

private:
  void addExhibited(DisplayStatement &display, Expression *operand);
  DataDescription *makeCopy(const Expression &operand);

  ExhibitStatement &statement;
  Maker make;
  bool isNamed;
};

void ExhibitConverter::addExhibited(DisplayStatement &display, Expression *operand) {
  if (isNamed)
    if (std::string name = exhibitedName(*operand); !name.empty())
      display.addIdenLiter(make.text(name + " = "));
  display.addIdenLiter(operand);
}

/// One DISPLAY of all operands, with blanks between them.
DisplayStatement *ExhibitConverter::displayAll() {
  auto *display = generate<DisplayStatement>(&statement);
  display->setUponName(statement.getUponName());
  for (Expression *operand : statement.getExhibitExprListElements()) {
    if (display->getIdenLiterListSize() != 0)
      display->addIdenLiter(make.text(" "));
    addExhibited(*display, operand);
  }
  return display;
}

/// An item that the value of \p operand can be moved to and compared with later: of the same kind
/// for numbers, of as many characters for all others. Null where there is nothing to keep.
DataDescription *ExhibitConverter::makeCopy(const Expression &operand) {
  const DataDescription *item = entryOf(operand);
  if (!item)
    return nullptr;
  auto characters = [&](const char *symbol, std::int64_t size, UsageType usage) {
    std::string picture = (symbol + llvm::Twine('(') + llvm::Twine(size) + ")").str();
    return make.item(picture.c_str(), usage);
  };
  DataDescription *copy = nullptr;
  switch (operand.getDataCategory()) {
  case DataCategory::Numeric:
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat: {
    const ClausePicture *picture = item->getPicture();
    copy = make.item(picture ? picture->getCharStringWord()->getWordData().c_str() : nullptr,
                     item->getUsageType());
    break;
  }
  case DataCategory::National:
  case DataCategory::NationalEdited:
    copy = characters("N", item->getAllocSize() / 2, UsageType::National);
    break;
  case DataCategory::Dbcs:
    copy = characters("G", item->getAllocSize() / 2, UsageType::Display1);
    break;
  case DataCategory::Unclassified:
  case DataCategory::Pointer:
  case DataCategory::Index:
    return nullptr;
  default:
    copy = characters("X", item->getAllocSize(), UsageType::Display);
  }
  // A date is only moved to a date.
  copy->setDateFormat(item->getDateFormat());
  return copy;
}

/// Displays each operand whose value is another one than at the last time, and all of them at the
/// first time. What has no value to be kept is always displayed.
void ExhibitConverter::addChangedDisplays(Word *device) {
  std::string known =
      make.keep("TKDUMMY-EXHIBIT-", make.item("9", UsageType::Display), make.zero()).str();
  for (Expression *operand : statement.getExhibitExprListElements()) {
    auto *display = generate<DisplayStatement>(&statement);
    display->setUponName(device);
    addExhibited(*display, operand);
    DataDescription *copy = makeCopy(*operand);
    if (!copy) {
      statement.addConvertStmt(display);
      continue;
    }
    std::string last = make.keep("TKDUMMY-EXHIBIT-", copy, nullptr).str();
    Condition *isChanged = make.combine(
        CombinedOperatorType::Or,
        make.compare(RelationalConditionType::Equal, make.reference(known), make.zero()),
        make.compare(RelationalConditionType::NotEqual, operand, make.reference(last)));
    std::list<Statement *> show{display, make.move(operand, make.reference(last))};
    statement.addConvertStmt(generate<IfStatement>(&statement, isChanged, &show, nullptr));
  }
  statement.addConvertStmt(make.move(make.number("1"), make.reference(known)));
}

} // namespace

bool SemanticChecker::semanticCheck(ExhibitStatement &statement) {
  ExhibitConverter convert(*this, statement);
  DisplayStatement *all = convert.displayAll();
  if (statement.getExhibitType() == ExhibitType::Named)
    statement.addConvertStmt(all);
  if (!semanticCheck(*all))
    return false;
  if (statement.getExhibitType() != ExhibitType::Named)
    convert.addChangedDisplays(all->getUponName());
  return true;
}

} // namespace tarka
