//===- SCStmt.cpp - the door of all statements, and MOVE ------------------===//
//
// Every statement of every sentence is checked through the dispatch here. The
// rules of MOVE decide for a sending and a receiving operand whether data may be
// moved between them, and which kind of move it is; other statements that move
// data ask for them too.
//
//===----------------------------------------------------------------------===//

#include "AST/ClausePicture.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "AST/StatementVisitor.h"
#include "AST/Usage.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/PartCheck.h"
#include "Analyzer/SemanticChecker.h"
#include <initializer_list>
#include <optional>

namespace tarka {

//===----------------------------------------------------------------------===//
// Dispatch
//===----------------------------------------------------------------------===//

namespace {

/// Whether there is a check for the statements of \p Class. Statements without operands have none.
template <typename Class>
concept HasCheck =
    requires { static_cast<bool (SemanticChecker::*)(Class &)>(&SemanticChecker::semanticCheck); };

/// Hands a statement to the check of its class.
class StatementCheck : public StatementVisitor<StatementCheck, bool> {
public:
  explicit StatementCheck(SemanticChecker &semanticChecker) : checker(semanticChecker) {}

#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  bool visit##Class(Class &statement) { return check(statement); }
#define TARKA_OTHER_STATEMENT(Kind, Number, Class, Verb)
#include "AST/Statements.def"

  /// What never stands in a sentence.
  bool visitStatement(Statement &statement) {
    return checker.report(ErrorCode::StatementInvalid, &statement);
  }

private:
  template <typename Class> bool check(Class &statement) {
    if constexpr (HasCheck<Class>)
      return checker.semanticCheck(statement);
    else
      return true;
  }

  SemanticChecker &checker;
};

} // namespace

bool SemanticChecker::semanticCheck(Statement &statement) {
  const PartCheck part(*this, CheckedPart::Statement, statement);
  return part.done(StatementCheck(*this).visit(statement));
}

bool SemanticChecker::semanticCheck(ExceptionHandler &handler) {
  if (handler.getImperStmtListSize() == 0)
    return report(ErrorCode::ExceptionHandlerInvalid, &handler);
  bool result = true;
  for (Statement *statement : handler.getImperStmtListElements())
    result &= semanticCheck(*statement);
  return result;
}

bool SemanticChecker::semanticCheck(ContinueStatement &) {
  return true;
}

bool SemanticChecker::semanticCheck(GobackStatement &) {
  return true;
}

//===----------------------------------------------------------------------===//
// The rule of a MOVE by category alone
//===----------------------------------------------------------------------===//

namespace {

/// A set of data categories.
class Categories {
public:
  constexpr Categories(std::initializer_list<DataCategory> members) {
    for (DataCategory member : members)
      bits |= 1u << static_cast<unsigned>(member);
  }
  constexpr bool contain(DataCategory category) const {
    return bits >> static_cast<unsigned>(category) & 1;
  }

private:
  unsigned bits = 0;
};

using enum DataCategory;

constexpr Categories anyCharacters{Alphabetic, Alphanumeric, AlphanumericEdited};
constexpr Categories plainCharacters{Alphanumeric, AlphanumericEdited};
constexpr Categories anyNational{National, NationalEdited};
constexpr Categories dbcsAndNational{National, NationalEdited, Dbcs};
constexpr Categories anyFloat{ExternalFloat, InternalFloat};
constexpr Categories editedNumbers{NumericEdited, ExternalFloat, InternalFloat};
constexpr Categories numbers{Numeric, NumericEdited, ExternalFloat, InternalFloat};
constexpr Categories numbersAndIndexes{Numeric, NumericEdited, ExternalFloat, InternalFloat, Index};
constexpr Categories none{};

/// One line of the table of MOVE by category: which receivers are moved to by which rule.
struct CategoryMove {
  Categories senders;
  Categories characterMove;
  Categories numericConversion;
  Categories nationalMove;
};

/// Alphabetic and alphanumeric-edited senders may go to an alphabetic receiver; numeric, index,
/// numeric-edited and national ones may not, and only numeric and index senders may go to an index.
constexpr CategoryMove categoryMoves[] = {
    {{Alphabetic, AlphanumericEdited}, anyCharacters, none, anyNational},
    {{Alphanumeric}, anyCharacters, numbers, anyNational},
    {{Numeric, Index}, plainCharacters, numbersAndIndexes, anyNational},
    {{NumericEdited}, plainCharacters, numbers, anyNational},
    {{National, NationalEdited}, plainCharacters, none, anyNational},
    {{Dbcs}, dbcsAndNational, none, none},
    {{ExternalFloat, InternalFloat}, none, numbers, none},
};

bool isGroup(const DataDescription *entry) {
  return entry && entry->getChildrenSize() > 0;
}

} // namespace

MoveRule SemanticChecker::getMoveRule(DataCategory sender, IdentifierExpression *receiver) {
  if (isGroup(entryOfDataIdentifier(*receiver)))
    return MoveRule::Character;
  DataCategory category = receiver->getDataCategory();
  for (const CategoryMove &move : categoryMoves) {
    if (!move.senders.contain(sender))
      continue;
    if (move.characterMove.contain(category))
      return MoveRule::Character;
    if (move.numericConversion.contain(category))
      return MoveRule::NumericConversion;
    if (move.nationalMove.contain(category))
      return MoveRule::National;
  }
  report(ErrorCode::MoveInvalid, receiver);
  return MoveRule::Illegal;
}

//===----------------------------------------------------------------------===//
// The rule of a MOVE between two operands
//===----------------------------------------------------------------------===//

namespace {

/// Finds the rule for one sending and one receiving operand.
///
/// Each category of the sender has a function that gives its rule, or nothing when the receiver is
/// none for it. Then the move is reported and the next category in the order of `attempts` decides:
/// an illegal move may be reported several times and still have a rule, and later stages rely on
/// it.
class MoveRuleFinder {
public:
  MoveRuleFinder(SemanticChecker &checker, Expression &sender, IdentifierExpression &receiver)
      : checker(checker), sender(sender), receiver(receiver),
        senderEntry(entryOfDataIdentifier(sender)), receiverEntry(entryOfDataIdentifier(receiver)),
        receiverCategory(receiver.getDataCategory()) {}

  MoveRule find();

private:
  using Rule = std::optional<MoveRule>;

  struct Attempt {
    Categories senders;
    Rule (MoveRuleFinder::*rule)();
  };
  static const Attempt attempts[];

  void reject() { checker.report(ErrorCode::MoveInvalid, &receiver); }
  bool isReceiver(const Categories &categories) const {
    return categories.contain(receiverCategory);
  }
  bool receiverIsDataIdentifier() const { return llvm::isa<DataIdentifierExpression>(receiver); }
  UsageType receiverUsage() const { return receiverEntry->getUsageType(); }

  MoveRule fromReferenceModified();
  Rule fromAlphabeticOrEdited();
  Rule fromAlphanumeric();
  MoveRule fromAlphanumericToNumeric();
  Rule fromNumeric();
  MoveRule fromNumericToNumeric();
  Rule fromNumericEdited();
  Rule fromFloat();
  Rule fromDbcs();
  Rule fromNational();
  Rule fromNationalEdited();

  SemanticChecker &checker;
  Expression &sender;
  IdentifierExpression &receiver;
  DataDescription *senderEntry;
  DataDescription *receiverEntry;
  DataCategory receiverCategory;
};

const MoveRuleFinder::Attempt MoveRuleFinder::attempts[] = {
    {{Alphabetic, AlphanumericEdited}, &MoveRuleFinder::fromAlphabeticOrEdited},
    {{Alphanumeric}, &MoveRuleFinder::fromAlphanumeric},
    {{Numeric}, &MoveRuleFinder::fromNumeric},
    {{NumericEdited}, &MoveRuleFinder::fromNumericEdited},
    {anyFloat, &MoveRuleFinder::fromFloat},
    {{Dbcs}, &MoveRuleFinder::fromDbcs},
    {{National}, &MoveRuleFinder::fromNational},
    {{NationalEdited}, &MoveRuleFinder::fromNationalEdited},
};

MoveRule MoveRuleFinder::find() {
  // The name of a condition has the category of its conditional variable, but is no data item.
  if (isConditionName(sender) || isConditionName(receiver)) {
    reject();
    return MoveRule::Illegal;
  }

  // A date may only go to a date.
  if (senderEntry && senderEntry->getDateFormat() &&
      !(receiverEntry && receiverEntry->getDateFormat()))
    reject();

  // Of the figurative constants only ZERO is a floating-point number.
  if (auto *figurative = llvm::dyn_cast<FigurativeLiteralExpression>(&sender);
      figurative && isReceiver(anyFloat) && figurative->getFigurativeType() != FigurativeType::Zero)
    reject();

  if (isGroup(receiverEntry))
    return MoveRule::Group;
  if (senderEntry) {
    if (isReferenceModified(sender))
      return fromReferenceModified();
    if (isGroup(senderEntry))
      return MoveRule::Group;
  }

  DataCategory category = sender.getDataCategory();
  if (category == Unclassified || category > InternalFloat) {
    reject();
    return MoveRule::Illegal;
  }
  bool reached = false;
  for (const Attempt &attempt : attempts) {
    reached |= attempt.senders.contain(category);
    if (!reached)
      continue;
    if (Rule rule = (this->*attempt.rule)())
      return *rule;
    reject();
  }
  return MoveRule::Illegal;
}

MoveRule MoveRuleFinder::fromReferenceModified() {
  if (!receiverEntry || receiverCategory != Numeric || isReferenceModified(receiver))
    return MoveRule::Character;
  if (receiverUsage() == UsageType::Display)
    return MoveRule::AlphanumericToDisplay;
  return isPackedDecimal(receiverUsage()) ? MoveRule::DisplayToPacked : MoveRule::NumericConversion;
}

MoveRuleFinder::Rule MoveRuleFinder::fromAlphabeticOrEdited() {
  if (isReceiver(anyCharacters))
    return MoveRule::Character;
  if (isReceiver(anyNational))
    return MoveRule::National;
  return std::nullopt;
}

MoveRuleFinder::Rule MoveRuleFinder::fromAlphanumeric() {
  if (isReceiver(anyCharacters))
    return MoveRule::Character;
  if (isReceiver(editedNumbers))
    return MoveRule::NumericConversion;
  if (isReceiver(anyNational))
    return MoveRule::National;
  if (receiverCategory == Numeric)
    return fromAlphanumericToNumeric();
  return std::nullopt;
}

/// Characters become a number when all of them are digits; of a literal that is known here.
MoveRule MoveRuleFinder::fromAlphanumericToNumeric() {
  auto allDigits = [](const std::string &text) {
    return text.find_first_not_of("0123456789") == std::string::npos;
  };
  if (auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(&sender)) {
    if (!allDigits(literal->getData()))
      reject();
    return MoveRule::NumericConversion;
  }
  if (auto *figurative = llvm::dyn_cast<FigurativeLiteralExpression>(&sender)) {
    if (figurative->getFigurativeType() != FigurativeType::AllLiteral)
      reject();
    else if (auto *number =
                 llvm::dyn_cast_if_present<NumericLiteralExpression>(figurative->getLiteral());
             number && !allDigits(number->getData()))
      reject();
    return MoveRule::NumericConversion;
  }
  if (!receiverEntry)
    return MoveRule::NumericConversion;
  if (receiverUsage() != UsageType::Display)
    return isPackedDecimal(receiverUsage()) ? MoveRule::DisplayToPacked
                                            : MoveRule::NumericConversion;
  return isReferenceModified(receiver) ? MoveRule::Character : MoveRule::AlphanumericToDisplay;
}

/// A number with decimal places has no place among characters.
MoveRuleFinder::Rule MoveRuleFinder::fromNumeric() {
  if (receiverCategory == Numeric)
    return fromNumericToNumeric();
  if (isReceiver(editedNumbers))
    return MoveRule::NumericConversion;
  if (sender.isInteger()) {
    if (isReceiver(plainCharacters))
      return MoveRule::Character;
    if (isReceiver(anyNational))
      return MoveRule::National;
  }
  return std::nullopt;
}

MoveRule MoveRuleFinder::fromNumericToNumeric() {
  if (!senderEntry)
    return MoveRule::NumericConversion;
  if (isPackedDecimal(senderEntry->getUsageType()))
    return receiverEntry && isPackedDecimal(receiverUsage()) ? MoveRule::PackedToPacked
                                                             : MoveRule::NumericConversion;
  if (senderEntry->getUsageType() != UsageType::Display || !receiverEntry)
    return MoveRule::NumericConversion;
  if (isPackedDecimal(receiverUsage())) {
    ClausePicture *picture = senderEntry->getPicture();
    return picture && picture->isSigned() ? MoveRule::NumericConversion : MoveRule::DisplayToPacked;
  }
  if (receiverUsage() != UsageType::Display)
    return MoveRule::NumericConversion;
  return senderEntry->getSign() || receiverEntry->getSign() ? MoveRule::NumericConversion
                                                            : MoveRule::DisplayToDisplay;
}

MoveRuleFinder::Rule MoveRuleFinder::fromNumericEdited() {
  if (isReceiver(numbers))
    return MoveRule::NumericConversion;
  if (isReceiver(plainCharacters))
    return MoveRule::Character;
  if (isReceiver(anyNational))
    return MoveRule::National;
  return std::nullopt;
}

MoveRuleFinder::Rule MoveRuleFinder::fromFloat() {
  if (isReceiver(numbers))
    return MoveRule::NumericConversion;
  // An alphanumeric receiver would have to be a group, and groups have had their rule before.
  return std::nullopt;
}

MoveRuleFinder::Rule MoveRuleFinder::fromDbcs() {
  if (isReceiver(dbcsAndNational))
    return MoveRule::Character;
  return std::nullopt;
}

MoveRuleFinder::Rule MoveRuleFinder::fromNational() {
  if (isReceiver(numbers))
    return MoveRule::NumericConversion;
  if (isReceiver(plainCharacters))
    return MoveRule::Character;
  if (isReceiver(anyNational))
    return MoveRule::National;
  return std::nullopt;
}

MoveRuleFinder::Rule MoveRuleFinder::fromNationalEdited() {
  if (isReceiver(anyNational))
    return MoveRule::National;
  return std::nullopt;
}

} // namespace

MoveRule SemanticChecker::getMoveRule(Expression *sender, IdentifierExpression *receiver) {
  return MoveRuleFinder(*this, *sender, *receiver).find();
}

//===----------------------------------------------------------------------===//
// MOVE
//===----------------------------------------------------------------------===//

/// OS/VS COBOL has CURRENT-DATE and TIME-OF-DAY as senders; registers of ours stand for them.
static void replaceOsvsSender(MoveStatement &statement) {
  auto *sender = llvm::dyn_cast_if_present<DataIdentifierExpression>(statement.getSource());
  if (!sender || !sender->getQualifiedWord())
    return;
  const std::string &name = (*sender->getQualifiedWord()->getNamesBegin())->getWordData();
  bool isDate = name == "CURRENT-DATE";
  if (!isDate && name != "TIME-OF-DAY")
    return;
  Node at(sender);
  Word *word =
      generate<Word>(&at, isDate ? "TARKA-OSVS-CURRENT-DATE" : "TARKA-OSVS-TIME-OF-DAY", "");
  statement.setSource(generate<SpecialRegisterIdentifierExpression>(
      &at, isDate ? SpecialRegisterType::OsvsCurrentDate : SpecialRegisterType::OsvsTimeOfDay,
      nullptr, word, nullptr, nullptr, nullptr, nullptr));
}

bool SemanticChecker::semanticCheck(MoveStatement &statement) {
  bool result = true;
  if (!statement.getSource())
    result = report(ErrorCode::IdentifierRequired, &statement);
  if (CompileOption::getCompileOptionInstance()->isOptionEnableOsvs())
    replaceOsvsSender(statement);
  if (statement.getSource())
    result &= semanticCheck(*statement.getSource());
  if (statement.getTargetListSize() == 0)
    result = report(ErrorCode::IdentifierRequired, &statement);

  // After the first error the remaining receivers are checked, but get no rule.
  auto *rules = makeList<MoveRule>();
  for (IdentifierExpression *receiver : statement.getTargetListElements()) {
    if (llvm::isa<FunctionIdentifierExpression>(receiver)) {
      result = report(ErrorCode::FunctionInReceivingArea, &statement);
      continue;
    }
    result &= semanticCheck(*receiver);
    if (result)
      rules->push_back(getMoveRule(statement.getSource(), receiver));
  }
  statement.setMoveRuleList(rules);
  return result;
}

} // namespace tarka
