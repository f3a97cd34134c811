//===- FunctionRules.cpp - the arguments of intrinsic functions -----------===//

#include "AST/DataDescription.h"
#include "AST/IntrinsicFunctions.h"
#include "AST/KindNames.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/STLExtras.h"
#include <cstdlib>
#include <optional>

namespace tarka {

namespace {

/// Whether \p argument stands for all occurrences of a table, whose number can vary.
bool isRepeated(const Expression &argument) {
  const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&argument);
  const SubscriptModifier *subscripts = identifier ? identifier->getSubscriptMod() : nullptr;
  return subscripts && llvm::any_of(subscripts->getSubscriptElements(),
                                    [](const Expression *one) { return isAllSubscript(*one); });
}

/// Whether \p argument holds characters. Pointers and indexes have checks of their own.
bool isText(const Expression &argument) {
  switch (argument.getDataCategory()) {
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
  case DataCategory::AlphanumericEdited:
  case DataCategory::National:
  case DataCategory::NationalEdited:
  case DataCategory::Dbcs:
    return !llvm::isa<FigurativeLiteralExpression>(argument);
  default:
    return false;
  }
}

/// What \p argument is called in a message.
std::string nameOf(const Expression &argument) {
  if (const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&argument))
    return identifier->getQualifiedWord()->getNamesElements().front()->getDisplayName();
  if (const auto *function = llvm::dyn_cast<FunctionIdentifierExpression>(&argument))
    return "FUNCTION " + function->getFunctionName()->getDisplayName();
  return "The literal";
}

/// "1 argument", "1 to 3 arguments", "at least 2 arguments".
std::string describeCount(const IntrinsicFunction &function) {
  const std::size_t least = function.getLeastArguments();
  const std::optional<std::size_t> most = function.getMostArguments();
  if (!most)
    return "at least " + countOf(least, "argument");
  if (*most == 0)
    return "no arguments";
  return (least == *most ? "" : std::to_string(least) + " to ") + countOf(*most, "argument");
}

//===----------------------------------------------------------------------===//
// Values
//===----------------------------------------------------------------------===//

/// The value of a literal, with a sign before it or in it.
std::optional<long double> literalValueOf(const Expression &argument) {
  const auto *negated = llvm::dyn_cast<ArithmeticExpression>(&argument);
  const bool isNegated = negated && negated->getOperator() == ArithmeticExprType::UnaryMinus;
  const auto *number = llvm::dyn_cast_or_null<NumericLiteralExpression>(
      isNegated ? negated->getOperand1() : &argument);
  if (!number)
    return std::nullopt;
  const long double value = std::strtold(number->getData().c_str(), nullptr);
  return isNegated ? -value : value;
}

constexpr long double firstYear = 1601;
constexpr long double lastYear = 9999;

bool isLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// YYYYMMDD.
bool isDate(long double value) {
  if (value < firstYear * 10000 || value > lastYear * 10000 + 1231)
    return false;
  const int date = static_cast<int>(value);
  const int year = date / 10000;
  const int month = date / 100 % 100;
  const int day = date % 100;
  constexpr int daysOf[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12 || day < 1)
    return false;
  return day <= daysOf[month - 1] + (month == 2 && isLeapYear(year) ? 1 : 0);
}

/// YYYYDDD.
bool isDay(long double value) {
  if (value < firstYear * 1000 || value > lastYear * 1000 + 366)
    return false;
  const int date = static_cast<int>(value);
  return date % 1000 >= 1 && date % 1000 <= (isLeapYear(date / 1000) ? 366 : 365);
}

/// The number of the day from 1 January 1601 to 31 December 9999.
bool isDayNumber(long double value) {
  return value >= 1 && value <= 3'067'671;
}

/// The values that an argument can have.
struct Domain {
  IntrinsicType function;
  /// From 0.
  std::size_t argument;
  bool (*contains)(long double value);
  llvm::StringLiteral description;
};

constexpr Domain domains[] = {
    {IntrinsicType::Acos, 0, [](long double v) { return v >= -1 && v <= 1; }, "from -1 to 1"},
    {IntrinsicType::Asin, 0, [](long double v) { return v >= -1 && v <= 1; }, "from -1 to 1"},
    {IntrinsicType::Annuity, 0, [](long double v) { return v >= 0; }, "zero or more"},
    {IntrinsicType::Annuity, 1, [](long double v) { return v >= 1; }, "1 or more"},
    {IntrinsicType::Char, 0, [](long double v) { return v >= 1 && v <= 256; },
     "a place in the collating sequence, from 1 to 256"},
    {IntrinsicType::DateOfInteger, 0, isDayNumber, "a day number from 1 to 3067671"},
    {IntrinsicType::DayOfInteger, 0, isDayNumber, "a day number from 1 to 3067671"},
    {IntrinsicType::DateToYyyymmdd, 0, [](long double v) { return v >= 0 && v <= 999'999; },
     "a date YYMMDD"},
    {IntrinsicType::DayToYyyyddd, 0, [](long double v) { return v >= 0 && v <= 99'366; },
     "a date YYDDD"},
    {IntrinsicType::Factorial, 0, [](long double v) { return v >= 0 && v <= 29; }, "from 0 to 29"},
    {IntrinsicType::IntegerOfDate, 0, isDate, "a date YYYYMMDD from 16010101 on"},
    {IntrinsicType::IntegerOfDay, 0, isDay, "a date YYYYDDD from 1601001 on"},
    {IntrinsicType::Log, 0, [](long double v) { return v > 0; }, "greater than zero"},
    {IntrinsicType::Log10, 0, [](long double v) { return v > 0; }, "greater than zero"},
    {IntrinsicType::Mod, 1, [](long double v) { return v != 0; }, "other than zero"},
    {IntrinsicType::PresentValue, 0, [](long double v) { return v > -1; }, "greater than -1"},
    {IntrinsicType::Random, 0, [](long double v) { return v >= 0; }, "zero or more"},
    {IntrinsicType::Rem, 1, [](long double v) { return v != 0; }, "other than zero"},
    {IntrinsicType::Sqrt, 0, [](long double v) { return v >= 0; }, "zero or more"},
    {IntrinsicType::YearToYyyy, 0, [](long double v) { return v >= 0 && v <= 99; },
     "a year from 0 to 99"},
};

/// The text of a number as it is written, with the sign before it.
std::string shown(const Expression &argument) {
  if (const auto *negated = llvm::dyn_cast<ArithmeticExpression>(&argument))
    return "-" + shown(*negated->getOperand1());
  return llvm::cast<NumericLiteralExpression>(argument).getData();
}

//===----------------------------------------------------------------------===//
// Classes
//===----------------------------------------------------------------------===//

/// Whether \p argument is a number with decimals or a floating-point number. An arithmetic
/// expression has the value that the program calculates.
bool isFraction(const Expression &argument) {
  const bool isOperand = entryOfDataIdentifier(argument) || llvm::isa<LiteralExpression>(argument);
  return isOperand && isNumber(argument) && !argument.isInteger();
}

/// What keeps \p argument from being converted from or to national characters; empty when nothing
/// does.
llvm::StringRef obstacleTo(const IntrinsicFunction &function, const Expression &argument) {
  if (llvm::isa<FigurativeLiteralExpression>(argument))
    return "";
  const DataCategory category = argument.getDataCategory();
  if (function.type == IntrinsicType::NationalOf && category == DataCategory::National)
    return "not of class national";
  const bool isOneByte =
      category == DataCategory::Alphanumeric || category == DataCategory::Alphabetic;
  return function.type == IntrinsicType::DisplayOf && isOneByte ? "of class national" : "";
}

/// The number of characters of \p argument, where it is the same whenever the program runs.
std::optional<std::int64_t> lengthOf(const Expression &argument) {
  if (const auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(&argument))
    return literal->getLength();
  const DataDescription *entry = entryOfDataIdentifier(argument);
  const bool isKnown = entry && entry->getDataCategory() == DataCategory::Alphanumeric &&
                       !isReferenceModified(argument) && !isConditionName(*entry) &&
                       !entry->isTooLarge() && !entry->checkContainsOdo();
  return isKnown ? std::optional(entry->getAllocSize()) : std::nullopt;
}

void checkDomain(const IntrinsicFunction &function, std::size_t number, Expression &argument,
                 long double value, LanguageReport &report) {
  for (const Domain &domain : domains)
    if (domain.function == function.type && domain.argument == number && !domain.contains(value))
      report.report(LanguageRule::FunctionArgumentValue, argument, function.name, number + 1,
                    domain.description, shown(argument));
}

} // namespace

void checkArguments(FunctionIdentifierExpression &function, LanguageReport &report) {
  const IntrinsicFunction *info = findIntrinsicFunction(function.getFunctionName()->getWordData());
  if (!info)
    return;
  const auto &arguments = function.getFunctionArgListElements();
  const std::string name = function.getFunctionName()->getDisplayName();
  const std::size_t given = arguments.size();
  const std::optional<std::size_t> most = info->getMostArguments();
  if (llvm::none_of(arguments, [](const Expression *one) { return isRepeated(*one); }) &&
      (given < info->getLeastArguments() || (most && given > *most))) {
    report.report(LanguageRule::FunctionArgumentCount, function, name, describeCount(*info),
                  given ? std::to_string(given) : "none");
    return;
  }
  // The entry of an item may have lost its PICTURE to another mistake.
  auto isEntryReported = [&](const Expression &argument) {
    const DataDescription *entry = entryOfDataIdentifier(argument);
    return entry && report.isReported(*entry);
  };
  for (auto [number, argument] : llvm::enumerate(arguments)) {
    if (isUnknown(*argument) || isEntryReported(*argument))
      continue;
    if (info->takesNumber(number) && isText(*argument))
      report.report(LanguageRule::FunctionArgumentNotNumber, *argument, nameOf(*argument),
                    number + 1, name);
    else if (info->takesInteger(number) && isFraction(*argument))
      report.report(LanguageRule::FunctionArgumentNotInteger, *argument, nameOf(*argument),
                    number + 1, name);
    else if (const std::optional<long double> value = literalValueOf(*argument))
      checkDomain(*info, number, *argument, *value, report);
  }
  if (arguments.empty() || isUnknown(*arguments.front()))
    return;
  Expression &first = *arguments.front();
  if (const llvm::StringRef obstacle = obstacleTo(*info, first); !obstacle.empty())
    report.report(LanguageRule::FunctionArgumentClass, first, nameOf(first), name, obstacle);
  if (info->type == IntrinsicType::Ord)
    if (const std::optional<std::int64_t> length = lengthOf(first); length && *length > 1)
      report.report(LanguageRule::FunctionArgumentLength, first, nameOf(first),
                    countOf(*length, "character"), name);
}

} // namespace tarka
