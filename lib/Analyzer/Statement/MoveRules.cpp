//===- MoveRules.cpp - which kind of move fits two operands ---------------===//

#include "Analyzer/Statement/MoveRules.h"
#include "AST/ClausePicture.h"
#include "AST/DataDescription.h"
#include "AST/Usage.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/Expression/OperandKinds.h"
#include <initializer_list>
#include <optional>

namespace tarka {

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

bool isSpace(const Expression &operand) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&operand);
  return constant && constant->getFigurativeType() == FigurativeType::Space;
}

} // namespace

MoveVerdict decideMove(DataCategory sender, const IdentifierExpression &receiver) {
  if (isGroup(entryOfDataIdentifier(receiver)))
    return {MoveRule::Character, {}};
  const DataCategory category = receiver.getDataCategory();
  for (const CategoryMove &move : categoryMoves) {
    if (!move.senders.contain(sender))
      continue;
    if (move.characterMove.contain(category))
      return {MoveRule::Character, {}};
    if (move.numericConversion.contain(category))
      return {MoveRule::NumericConversion, {}};
    if (move.nationalMove.contain(category))
      return {MoveRule::National, {}};
  }
  return {MoveRule::Illegal, {MoveFault::ReceiverCategory}};
}

//===----------------------------------------------------------------------===//
// The rule of a MOVE between two operands
//===----------------------------------------------------------------------===//

namespace {

/// Decides about one sending and one receiving operand.
///
/// Each category of the sender has a function that gives its rule, or nothing when it has no move
/// to the receiver. That is a fault, and the next category in the order of `attempts` decides: a
/// move may have several faults and still a rule, which later stages rely on.
class MoveDecision {
public:
  MoveDecision(const Expression &from, const IdentifierExpression &to)
      : sender(from), receiver(to), senderEntry(entryOfDataIdentifier(from)),
        receiverEntry(entryOfDataIdentifier(to)), receiverCategory(to.getDataCategory()) {}

  MoveVerdict decide() {
    verdict.rule = findRule();
    return verdict;
  }

private:
  using Rule = std::optional<MoveRule>;

  struct Attempt {
    Categories senders;
    Rule (MoveDecision::*rule)();
  };
  static const Attempt attempts[];

  void reject(MoveFault fault) { verdict.faults.push_back(fault); }
  bool isReceiver(const Categories &categories) const {
    return categories.contain(receiverCategory);
  }
  UsageType receiverUsage() const { return receiverEntry->getUsageType(); }

  MoveRule findRule();
  MoveRule fromReferenceModified();
  Rule fromAlphabeticOrEdited();
  Rule fromAlphanumeric();
  MoveRule fromAlphanumericToNumeric();
  Rule fromNumeric();
  MoveRule fromNumericToNumeric();
  Rule fromNumericEditedOrNational();
  Rule fromFloat();
  Rule fromDbcs();
  Rule fromNationalEdited();

  const Expression &sender;
  const IdentifierExpression &receiver;
  const DataDescription *senderEntry;
  const DataDescription *receiverEntry;
  DataCategory receiverCategory;
  MoveVerdict verdict;
};

const MoveDecision::Attempt MoveDecision::attempts[] = {
    {{Alphabetic, AlphanumericEdited}, &MoveDecision::fromAlphabeticOrEdited},
    {{Alphanumeric}, &MoveDecision::fromAlphanumeric},
    {{Numeric}, &MoveDecision::fromNumeric},
    {{NumericEdited}, &MoveDecision::fromNumericEditedOrNational},
    {anyFloat, &MoveDecision::fromFloat},
    {{Dbcs}, &MoveDecision::fromDbcs},
    {{National}, &MoveDecision::fromNumericEditedOrNational},
    {{NationalEdited}, &MoveDecision::fromNationalEdited},
};

MoveRule MoveDecision::findRule() {
  // A condition-name has the category of its conditional variable, but is not a data item.
  if (isConditionName(sender) || isConditionName(receiver)) {
    reject(MoveFault::ConditionName);
    return MoveRule::Illegal;
  }

  // A date may only go to a date.
  if (senderEntry && senderEntry->getDateFormat() &&
      !(receiverEntry && receiverEntry->getDateFormat()))
    reject(MoveFault::DateToOther);

  // Of the figurative constants only ZERO is a floating-point number.
  if (const auto *figurative = llvm::dyn_cast<FigurativeLiteralExpression>(&sender);
      figurative && isReceiver(anyFloat) && figurative->getFigurativeType() != FigurativeType::Zero)
    reject(MoveFault::ConstantToFloat);

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
    reject(MoveFault::SenderCategory);
    return MoveRule::Illegal;
  }
  bool reached = false;
  for (const Attempt &attempt : attempts) {
    reached |= attempt.senders.contain(category);
    if (!reached)
      continue;
    if (Rule rule = (this->*attempt.rule)())
      return *rule;
    reject(MoveFault::ReceiverCategory);
  }
  return MoveRule::Illegal;
}

MoveRule MoveDecision::fromReferenceModified() {
  if (!receiverEntry || receiverCategory != Numeric || isReferenceModified(receiver))
    return MoveRule::Character;
  if (receiverUsage() == UsageType::Display)
    return MoveRule::AlphanumericToDisplay;
  return isPackedDecimal(receiverUsage()) ? MoveRule::DisplayToPacked : MoveRule::NumericConversion;
}

MoveDecision::Rule MoveDecision::fromAlphabeticOrEdited() {
  if (isReceiver(anyCharacters))
    return MoveRule::Character;
  if (isReceiver(anyNational))
    return MoveRule::National;
  return std::nullopt;
}

MoveDecision::Rule MoveDecision::fromAlphanumeric() {
  if (isReceiver(anyCharacters))
    return MoveRule::Character;
  if (isReceiver(editedNumbers))
    return MoveRule::NumericConversion;
  if (isReceiver(anyNational))
    return MoveRule::National;
  if (receiverCategory == Numeric)
    return fromAlphanumericToNumeric();
  if (receiverCategory == Dbcs && isSpace(sender) && followsEnterprise(EnterpriseRule::SpaceToDbcs))
    return MoveRule::Character;
  return std::nullopt;
}

/// Characters become a number when all of them are digits, which is known here of literals only.
MoveRule MoveDecision::fromAlphanumericToNumeric() {
  auto allDigits = [](const std::string &text) {
    return text.find_first_not_of("0123456789") == std::string::npos;
  };
  if (const auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(&sender)) {
    if (!allDigits(literal->getData()))
      reject(MoveFault::NotDigits);
    return MoveRule::NumericConversion;
  }
  if (const auto *figurative = llvm::dyn_cast<FigurativeLiteralExpression>(&sender)) {
    if (figurative->getFigurativeType() != FigurativeType::AllLiteral)
      reject(MoveFault::NotALiteral);
    else if (const auto *number =
                 llvm::dyn_cast_if_present<NumericLiteralExpression>(figurative->getLiteral());
             number && !allDigits(number->getData()))
      reject(MoveFault::NotDigits);
    return MoveRule::NumericConversion;
  }
  if (!receiverEntry)
    return MoveRule::NumericConversion;
  if (receiverUsage() != UsageType::Display)
    return isPackedDecimal(receiverUsage()) ? MoveRule::DisplayToPacked
                                            : MoveRule::NumericConversion;
  return isReferenceModified(receiver) ? MoveRule::Character : MoveRule::AlphanumericToDisplay;
}

/// A number with decimal places cannot be moved to characters.
MoveDecision::Rule MoveDecision::fromNumeric() {
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

MoveRule MoveDecision::fromNumericToNumeric() {
  if (!senderEntry)
    return MoveRule::NumericConversion;
  if (isPackedDecimal(senderEntry->getUsageType()))
    return receiverEntry && isPackedDecimal(receiverUsage()) ? MoveRule::PackedToPacked
                                                             : MoveRule::NumericConversion;
  if (senderEntry->getUsageType() != UsageType::Display || !receiverEntry)
    return MoveRule::NumericConversion;
  if (isPackedDecimal(receiverUsage())) {
    const ClausePicture *picture = senderEntry->getPicture();
    return picture && picture->isSigned() ? MoveRule::NumericConversion : MoveRule::DisplayToPacked;
  }
  if (receiverUsage() != UsageType::Display)
    return MoveRule::NumericConversion;
  return senderEntry->getSign() || receiverEntry->getSign() ? MoveRule::NumericConversion
                                                            : MoveRule::DisplayToDisplay;
}

MoveDecision::Rule MoveDecision::fromNumericEditedOrNational() {
  if (isReceiver(numbers))
    return MoveRule::NumericConversion;
  if (isReceiver(plainCharacters))
    return MoveRule::Character;
  if (isReceiver(anyNational))
    return MoveRule::National;
  return std::nullopt;
}

MoveDecision::Rule MoveDecision::fromFloat() {
  if (isReceiver(numbers))
    return MoveRule::NumericConversion;
  // An alphanumeric receiver would have to be a group, and groups have their rule already.
  return std::nullopt;
}

MoveDecision::Rule MoveDecision::fromDbcs() {
  if (isReceiver(dbcsAndNational))
    return MoveRule::Character;
  return std::nullopt;
}

MoveDecision::Rule MoveDecision::fromNationalEdited() {
  if (isReceiver(anyNational))
    return MoveRule::National;
  return std::nullopt;
}

} // namespace

MoveVerdict decideMove(const Expression &sender, const IdentifierExpression &receiver) {
  return MoveDecision(sender, receiver).decide();
}

} // namespace tarka
