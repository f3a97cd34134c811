//===- ConditionRules.cpp - conditions and the values of condition-names --===//
//
// What a class condition can test, which values of a condition-name its item never has, comparisons
// and WHEN phrases that are never true, and ranges that are empty.
//
//===----------------------------------------------------------------------===//

#include "AST/ClausePicture.h"
#include "AST/Condition.h"
#include "AST/DataClauses.h"
#include "AST/KindNames.h"
#include "AST/StatementBranch.h"
#include "AST/Usage.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringMap.h"
#include <cstdlib>
#include <optional>

namespace tarka {

namespace {

const std::string &nameOf(const DataIdentifierExpression &identifier) {
  return identifier.getQualifiedWord()->getNamesElements().front()->getDisplayName();
}

//===----------------------------------------------------------------------===//
// Class conditions
//===----------------------------------------------------------------------===//

/// Why an elementary item cannot be tested for a class; empty when it can be.
llvm::StringRef reasonAgainst(ClassConditionType type, const DataDescription &item) {
  const DataCategory category = item.getDataCategory();
  const UsageType usage = item.getUsageType();
  const bool isFloat =
      category == DataCategory::InternalFloat || category == DataCategory::ExternalFloat;
  switch (type) {
  case ClassConditionType::Alphabetic:
  case ClassConditionType::AlphabeticLower:
  case ClassConditionType::AlphabeticUpper:
  case ClassConditionType::NotAlphabetic:
  case ClassConditionType::NotAlphabeticLower:
  case ClassConditionType::NotAlphabeticUpper:
    return category == DataCategory::Numeric || isFloat ? "numeric" : "";
  case ClassConditionType::Numeric:
  case ClassConditionType::NotNumeric:
    if (category == DataCategory::Alphabetic)
      return "alphabetic";
    return isFloat ? "a floating-point item" : usage == UsageType::Display1 ? "a DBCS item" : "";
  case ClassConditionType::Dbcs:
  case ClassConditionType::Kanji:
  case ClassConditionType::NotDbcs:
  case ClassConditionType::NotKanji:
    return usage == UsageType::Display ? "not a DBCS item" : "";
  default:
    return "";
  }
}

//===----------------------------------------------------------------------===//
// The values of condition-names
//===----------------------------------------------------------------------===//

long double valueOf(const NumericLiteralExpression &literal) {
  return std::strtold(literal.getData().c_str(), nullptr);
}

/// Whether both characters are digits, small letters or capital letters: these are in the same
/// order in every collating sequence.
bool isSameKind(char left, char right) {
  return (llvm::isDigit(left) && llvm::isDigit(right)) ||
         (llvm::isLower(left) && llvm::isLower(right)) ||
         (llvm::isUpper(left) && llvm::isUpper(right));
}

/// Whether the range \p low THROUGH \p high holds nothing, whatever the collating sequence is.
bool isEmptyRange(const Expression &low, const Expression &high) {
  const auto *lowNumber = llvm::dyn_cast<NumericLiteralExpression>(&low);
  const auto *highNumber = llvm::dyn_cast<NumericLiteralExpression>(&high);
  if (lowNumber && highNumber)
    return valueOf(*lowNumber) > valueOf(*highNumber);
  const auto *lowText = llvm::dyn_cast<NonNumericLiteralExpression>(&low);
  const auto *highText = llvm::dyn_cast<NonNumericLiteralExpression>(&high);
  if (!lowText || !highText ||
      lowText->getNonNumericLiteralType() != NonNumericLiteralType::Alphanumeric ||
      highText->getNonNumericLiteralType() != NonNumericLiteralType::Alphanumeric)
    return false;
  const llvm::StringRef first = lowText->getData();
  const llvm::StringRef second = highText->getData();
  const std::size_t length = std::min(first.size(), second.size());
  for (std::size_t i = 0; i < length; ++i)
    if (first[i] != second[i])
      return isSameKind(first[i], second[i]) && first[i] > second[i];
  return false;
}

/// A literal as it is shown in a message.
std::string shown(const LiteralExpression &literal) {
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&literal))
    return number->getData();
  constexpr std::size_t longest = 20;
  const llvm::StringRef text = llvm::cast<NonNumericLiteralExpression>(literal).getData();
  return ("\"" + text.take_front(longest) + (text.size() > longest ? "..." : "") + "\"").str();
}

/// What keeps the numeric \p item from having the value \p number; empty when nothing does.
std::string obstacleTo(const NumericLiteralExpression &number, const DataDescription &item) {
  const ClausePicture *picture = item.getPicture();
  const UsageType usage = item.getUsageType();
  if (!picture || number.getLiteralType() == NumericLiteralType::FloatingPoint ||
      (usage != UsageType::Display && usage != UsageType::PackedDecimal &&
       usage != UsageType::Comp3))
    return "";
  if (!picture->isSigned() && valueOf(number) < 0)
    return "has no sign";
  // The digits of an item with P do not end at the decimal point.
  if (picture->getDigitNum() != picture->getStoredDigitNum())
    return "";
  auto [whole, fraction] = llvm::StringRef(number.getData()).split('.');
  whole = whole.ltrim("+-").ltrim('0');
  fraction = fraction.rtrim('0');
  const auto wholeDigits = static_cast<std::size_t>(picture->getDigitNum() - picture->getScale());
  if (whole.size() > wholeDigits)
    return "has " + countOf(static_cast<std::int64_t>(wholeDigits), "digit") +
           (picture->getScale() ? " before the decimal point" : "");
  if (fraction.size() > static_cast<std::size_t>(picture->getScale()))
    return "has " + (picture->getScale() ? countOf(picture->getScale(), "digit") : "no digits") +
           " after the decimal point";
  return "";
}

/// What keeps \p item, a group or an item of characters, from having the value \p text. Trailing
/// spaces do not count in a comparison.
std::string obstacleTo(const NonNumericLiteralExpression &text, const DataDescription &item) {
  const DataCategory category = item.getDataCategory();
  const bool isOfCharacters =
      category == DataCategory::Alphanumeric || category == DataCategory::Alphabetic;
  const llvm::StringRef characters = llvm::StringRef(text.getData()).rtrim(' ');
  const bool isComparable =
      isOfCharacters && item.getAllocSize() > 0 && !item.isTooLarge() &&
      text.getNonNumericLiteralType() == NonNumericLiteralType::Alphanumeric &&
      llvm::all_of(characters, [](char c) { return llvm::isASCII(c); });
  if (!isComparable || static_cast<std::int64_t>(characters.size()) <= item.getAllocSize())
    return "";
  return "has " + countOf(item.getAllocSize(), "character");
}

std::string obstacleTo(const LiteralExpression &value, const DataDescription &item) {
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&value))
    return item.getDataCategory() == DataCategory::Numeric ? obstacleTo(*number, item) : "";
  const auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(&value);
  return text ? obstacleTo(*text, item) : "";
}

/// Whether \p item can have the value of \p operand, if that is a literal.
void checkHeld(Expression &item, Expression &operand, LanguageReport &report) {
  auto *literal = llvm::dyn_cast<LiteralExpression>(&operand);
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&item);
  const DataDescription *entry = identifier ? identifier->getDataDescription() : nullptr;
  if (!literal || !entry || isConditionName(*entry) || isUnknown(item) ||
      isReferenceModified(item) || report.isReported(*entry))
    return;
  if (const std::string obstacle = obstacleTo(*literal, *entry); !obstacle.empty())
    report.report(LanguageRule::ValueNeverHeld, operand, nameOf(*identifier), shown(*literal),
                  obstacle);
}

//===----------------------------------------------------------------------===//
// WHEN
//===----------------------------------------------------------------------===//

/// What \p operand is in a comparison with other operands of the same statement: two operands with
/// the same text have the same value. Nothing where only the program knows.
std::optional<std::string> identityOf(const Expression &operand) {
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&operand)) {
    llvm::StringRef digits = number->getData();
    const bool isNegative = digits.consume_front("-");
    digits.consume_front("+");
    digits = digits.ltrim('0');
    if (digits.contains('.'))
      digits = digits.rtrim('0').rtrim('.');
    return (isNegative ? "-" : "+") + digits.str();
  }
  // Spaces at the end do not count in a comparison.
  if (const auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(&operand))
    return std::to_string(static_cast<int>(text->getNonNumericLiteralType())) + "\"" +
           llvm::StringRef(text->getData()).rtrim(' ').str() + "\"";
  const auto *item = llvm::dyn_cast<DataIdentifierExpression>(&operand);
  if (!item || !item->getDataDescription() || item->getSubscriptMod() || item->getReferenceMod())
    return std::nullopt;
  return llvm::formatv("{0}", static_cast<const void *>(item->getDataDescription())).str();
}

std::optional<std::string> identityOf(const Condition &condition) {
  if (const auto *name = llvm::dyn_cast<ConditionNameCondition>(&condition))
    return name->getConditionName() ? identityOf(*name->getConditionName()) : std::nullopt;
  const auto *relation = llvm::dyn_cast<RelationalCondition>(&condition);
  if (!relation)
    return std::nullopt;
  const std::optional<std::string> left = identityOf(*relation->getLeft());
  const std::optional<std::string> right = identityOf(*relation->getRight());
  if (!left || !right)
    return std::nullopt;
  return *left + nameOf(relation->getConditionType()).str() + *right;
}

std::optional<std::string> identityOf(const EvaluateObject &object) {
  const std::string negation = object.isNot() ? "NOT " : "";
  switch (object.getType()) {
  case EvalObjectType::Any:
  case EvalObjectType::True:
  case EvalObjectType::False:
    return nameOf(object.getType()).str();
  case EvalObjectType::Condition:
    return object.getCondition() ? identityOf(*object.getCondition()) : std::nullopt;
  case EvalObjectType::Expression:
  case EvalObjectType::Range: {
    std::optional<std::string> low = identityOf(*object.getFrontExpression());
    if (!low || !object.getRearExpression())
      return low ? std::optional(negation + *low) : std::nullopt;
    const std::optional<std::string> high = identityOf(*object.getRearExpression());
    return high ? std::optional(negation + *low + " THRU " + *high) : std::nullopt;
  }
  }
  return std::nullopt;
}

/// How an operand, an object and the objects of a WHEN are shown in a message.
std::string shown(const Expression &operand) {
  if (const auto *literal = llvm::dyn_cast<LiteralExpression>(&operand))
    return shown(*literal);
  const auto *item = llvm::dyn_cast<DataIdentifierExpression>(&operand);
  return item ? nameOf(*item) : "...";
}

std::string shown(const EvaluateObject &object) {
  if (const auto *name = llvm::dyn_cast_or_null<ConditionNameCondition>(object.getCondition()))
    return shown(*name->getConditionName());
  if (const auto *relation = llvm::dyn_cast_or_null<RelationalCondition>(object.getCondition()))
    return shown(*relation->getLeft()) + " " + nameOf(relation->getConditionType()).str() + " " +
           shown(*relation->getRight());
  if (!object.getFrontExpression())
    return nameOf(object.getType()).str();
  return (object.isNot() ? "NOT " : "") + shown(*object.getFrontExpression()) +
         (object.getRearExpression() ? " THRU " + shown(*object.getRearExpression()) : "");
}

std::string shown(const EvaluateWhen &phrase) {
  std::string text;
  for (const EvaluateObject *object : phrase.getWhenObjListElements())
    text += (text.empty() ? "" : " ALSO ") + shown(*object);
  return text;
}

/// Checks the WHEN phrases of one EVALUATE in their order.
class WhenCheck {
public:
  explicit WhenCheck(LanguageReport &languageReport) : report(languageReport) {}

  void check(EvaluateWhen &phrase, const EvaluateStatement &statement) {
    const auto &subjects = statement.getSubjectListElements();
    auto subject = subjects.begin();
    for (const EvaluateObject *object : phrase.getWhenObjListElements()) {
      check(*object, subject == subjects.end() ? nullptr : *subject);
      if (subject != subjects.end())
        ++subject;
    }
    checkRepeated(phrase);
  }

private:
  void check(const EvaluateObject &object, const EvaluateSubject *subject) {
    Expression *low = object.getFrontExpression();
    Expression *high = object.getRearExpression();
    if (low && high && isEmptyRange(*low, *high))
      report.report(LanguageRule::RangeEmpty, *low, "WHEN",
                    shown(llvm::cast<LiteralExpression>(*low)),
                    shown(llvm::cast<LiteralExpression>(*high)));
    else if (low && !high && !object.isNot() && subject && subject->getExpr())
      checkHeld(*subject->getExpr(), *low, report);
  }

  /// The first phrase of two that are equal is chosen always.
  void checkRepeated(EvaluateWhen &phrase) {
    std::string identity;
    for (const EvaluateObject *object : phrase.getWhenObjListElements()) {
      std::optional<std::string> one = identityOf(*object);
      if (!one)
        return;
      identity += *one + "\n";
    }
    auto [first, isNew] = phrases.try_emplace(identity, &phrase);
    if (isNew)
      return;
    if (ErrorEntry *entry = report.report(LanguageRule::WhenRepeated, phrase, shown(phrase)))
      entry->addNote("first written here", *first->second);
  }

  LanguageReport &report;
  llvm::StringMap<EvaluateWhen *> phrases;
};

} // namespace

void checkClassCondition(ClassCondition &condition, LanguageReport &report) {
  auto *operand = llvm::dyn_cast_or_null<DataIdentifierExpression>(condition.getLeft());
  const DataDescription *item = operand ? operand->getDataDescription() : nullptr;
  if (!item || item->hasSubordinateData() || isReferenceModified(*operand) || isUnknown(*operand) ||
      isConditionName(*item))
    return;
  if (const llvm::StringRef reason = reasonAgainst(condition.getClassType(), *item);
      !reason.empty())
    report.report(LanguageRule::ClassConditionOperand, *operand, nameOf(*operand), reason,
                  nameOf(condition.getClassType()));
}

void checkConditionValues(const DataDescription &name, LanguageReport &report) {
  const DataDescription *item = name.getCondNameParent();
  if (!item || !name.getValue() || !name.getDataName() || report.isReported(name) ||
      report.isReported(*item))
    return;
  const std::string &shownName = name.getDataName()->getDisplayName();
  for (const PhraseValue *value : name.getValue()->getPhraseValElements()) {
    LiteralExpression *first = value->getLiteral1();
    if (!first)
      continue;
    if (value->getLiteral2()) {
      if (isEmptyRange(*first, *value->getLiteral2()))
        report.report(LanguageRule::RangeEmpty, *first, shownName, shown(*first),
                      shown(*value->getLiteral2()));
      continue;
    }
    if (const std::string obstacle = obstacleTo(*first, *item); !obstacle.empty())
      report.report(LanguageRule::ConditionValueImpossible, *first, shownName, shown(*first),
                    item->getDataName() ? item->getDataName()->getDisplayName() : "FILLER",
                    obstacle);
  }
}

void checkWhens(EvaluateStatement &statement, LanguageReport &report) {
  WhenCheck check(report);
  for (const EvaluateCase *group : statement.getWhenCaseListElements())
    for (EvaluateWhen *phrase : group->getWhenListElements())
      if (phrase->getType() == EvalWhenType::When)
        check.check(*phrase, statement);
}

void checkEquality(RelationalCondition &condition, LanguageReport &report) {
  const RelationalConditionType relation = condition.getConditionType();
  if (relation != RelationalConditionType::Equal && relation != RelationalConditionType::NotEqual)
    return;
  checkHeld(*condition.getLeft(), *condition.getRight(), report);
  checkHeld(*condition.getRight(), *condition.getLeft(), report);
}

} // namespace tarka
