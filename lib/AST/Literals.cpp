//===- Literals.cpp - classifying and measuring literals ------------------===//

#include "AST/Expression.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/ADT/StringExtras.h"
#include <algorithm>
#include <limits>

namespace tarka {

//===----------------------------------------------------------------------===//
// Numeric literals
//===----------------------------------------------------------------------===//

NumericLiteralExpression::NumericLiteralExpression(const Node *at, llvm::StringRef text)
    : LiteralExpression(at, ExpressionType::NumericLiteral), data(&internString(text)) {
  measure('.');
}

void NumericLiteralExpression::setData(llvm::StringRef text) {
  data = &internString(text);
  measure('.');
}

void NumericLiteralExpression::convertDecimalPoint(const std::string &text) {
  data = &internString(text);
  measure(',');
}

bool NumericLiteralExpression::isSigned() const {
  return !data->empty() && (data->front() == '+' || data->front() == '-');
}

bool NumericLiteralExpression::isPositive() const {
  llvm::StringRef text = *data;
  return !text.starts_with("-") && text.take_until([](char c) {
                                         return c == 'E' || c == 'e';
                                       }).find_first_of("123456789") != llvm::StringRef::npos;
}

long long NumericLiteralExpression::getIntegerValue() const {
  llvm::StringRef text = *data;
  bool negative = text.consume_front("-");
  text.consume_front("+");
  long long value = 0;
  for (char c : text.take_while(llvm::isDigit))
    if (__builtin_mul_overflow(value, 10LL, &value) ||
        __builtin_add_overflow(value, static_cast<long long>(c - '0'), &value))
      return negative ? std::numeric_limits<long long>::min()
                      : std::numeric_limits<long long>::max();
  return negative ? -value : value;
}

/// Removes the digits at the front of \p text and returns their number.
static int takeDigits(llvm::StringRef &text) {
  llvm::StringRef digits = text.take_while(llvm::isDigit);
  text = text.drop_front(digits.size());
  return static_cast<int>(std::min<std::size_t>(digits.size(), std::numeric_limits<int>::max()));
}

/// [sign] digits [point digits] [E [sign] digits]; a text of any other form stays unclassified,
/// but its digits are still counted.
void NumericLiteralExpression::measure(char decimalPoint) {
  const char other = decimalPoint == '.' ? ',' : '.';
  digits = scale = exponent = 0;
  subtype = static_cast<std::uint8_t>(NumericLiteralType::Unclassified);

  llvm::StringRef text = *data;
  if (!text.consume_front("-"))
    text.consume_front("+");
  digits = takeDigits(text);
  bool hasPoint = text.consume_front(llvm::StringRef(&decimalPoint, 1));
  if (hasPoint) {
    scale = takeDigits(text);
    digits += scale;
  }
  if (digits == 0 || text.starts_with(llvm::StringRef(&other, 1)))
    return;
  if (text.empty()) {
    // A point at the end ends the sentence, so a literal cannot end with one.
    if (!hasPoint)
      subtype = static_cast<std::uint8_t>(NumericLiteralType::Integer);
    else if (scale > 0)
      subtype = static_cast<std::uint8_t>(NumericLiteralType::FixedPoint);
    return;
  }
  if (text.consume_front_insensitive("E")) {
    bool negative = text.consume_front("-");
    if (!negative)
      text.consume_front("+");
    constexpr int limit = 99999;
    if (text.empty() || !llvm::all_of(text, llvm::isDigit))
      return;
    if (text.getAsInteger(10, exponent) || exponent > limit)
      exponent = limit;
    if (negative)
      exponent = -exponent;
    subtype = static_cast<std::uint8_t>(NumericLiteralType::FloatingPoint);
    return;
  }
  // Further signs or points inside: not an integer; the checks report it.
  if (text.find_first_not_of("0123456789+-.,") == llvm::StringRef::npos) {
    digits = static_cast<int>(llvm::count_if(*data, llvm::isDigit));
    subtype = static_cast<std::uint8_t>(NumericLiteralType::FixedPoint);
  }
}

//===----------------------------------------------------------------------===//
// Nonnumeric literals
//===----------------------------------------------------------------------===//

namespace {

/// What a prefix before the quote determines about the literal.
struct LiteralPrefix {
  llvm::StringLiteral letters;
  NonNumericLiteralType type;
};

constexpr LiteralPrefix literalPrefixes[] = {
    {"NX", NonNumericLiteralType::NationalHexadecimal},
    {"X", NonNumericLiteralType::Hexadecimal},
    {"Z", NonNumericLiteralType::NullTerminated},
    {"G", NonNumericLiteralType::Dbcs},
    {"N", NonNumericLiteralType::National},
    {"", NonNumericLiteralType::Alphanumeric},
};

/// The contents between the quotes, doubled quotes reduced to one.
const std::string &contentsOf(llvm::StringRef quoted) {
  const char quote = quoted.front();
  llvm::StringRef inner = quoted.drop_front();
  if (inner.ends_with(llvm::StringRef(&quote, 1)))
    inner = inner.drop_back();
  if (!inner.contains(quote))
    return internString(inner);
  llvm::SmallString<128> contents;
  for (std::size_t i = 0; i < inner.size(); ++i) {
    contents.push_back(inner[i]);
    if (inner[i] == quote && i + 1 < inner.size() && inner[i + 1] == quote)
      ++i;
  }
  return internString(contents);
}

/// The number of characters of a UTF-8 text: its bytes without the continuation bytes. Between
/// shift codes are characters of two bytes. Text of DBCS or national characters counts these, and
/// the shift codes are not part of it; other text has a byte for each shift code and two for each
/// such character.
unsigned countCharacters(llvm::StringRef text, bool isDouble) {
  constexpr char shiftOut = '\x0E', shiftIn = '\x0F';
  unsigned count = 0;
  bool isShifted = false;
  for (char c : text) {
    if (c == shiftOut || c == shiftIn) {
      isShifted = c == shiftOut;
      count += !isDouble;
    } else if ((c & 0xC0) != 0x80) {
      count += isShifted && !isDouble && (c & 0x80) ? 2 : 1;
    }
  }
  return count;
}

} // namespace

NonNumericLiteralExpression::NonNumericLiteralExpression(const Node *at, llvm::StringRef text)
    : LiteralExpression(at, ExpressionType::NonNumericLiteral) {
  for (const LiteralPrefix &prefix : literalPrefixes) {
    llvm::StringRef rest = text;
    if (rest.consume_front_insensitive(prefix.letters) &&
        (rest.starts_with("\"") || rest.starts_with("'"))) {
      subtype = static_cast<std::uint8_t>(prefix.type);
      data = &contentsOf(rest);
      return;
    }
  }
  subtype = static_cast<std::uint8_t>(NonNumericLiteralType::Alphanumeric);
  data = &internString(text);
}

unsigned NonNumericLiteralExpression::getLength() const {
  switch (getNonNumericLiteralType()) {
  case NonNumericLiteralType::Hexadecimal:
    return (data->size() + 1) / 2;
  case NonNumericLiteralType::NationalHexadecimal:
    return (data->size() + 3) / 4;
  case NonNumericLiteralType::Dbcs:
  case NonNumericLiteralType::National:
    return countCharacters(*data, /*isDouble=*/true);
  default:
    return countCharacters(*data, /*isDouble=*/false);
  }
}

DataCategory NonNumericLiteralExpression::getDataCategory() const {
  switch (getNonNumericLiteralType()) {
  case NonNumericLiteralType::Dbcs:
    return DataCategory::Dbcs;
  case NonNumericLiteralType::National:
  case NonNumericLiteralType::NationalHexadecimal:
    return DataCategory::National;
  default:
    return DataCategory::Alphanumeric;
  }
}

//===----------------------------------------------------------------------===//
// Categories of literals
//===----------------------------------------------------------------------===//

DataCategory NumericLiteralExpression::getDataCategory() const {
  // A floating-point literal is of the category of an external floating-point item.
  return getLiteralType() == NumericLiteralType::FloatingPoint ? DataCategory::ExternalFloat
                                                               : DataCategory::Numeric;
}

DataCategory FigurativeLiteralExpression::getDataCategory() const {
  switch (getFigurativeType()) {
  case FigurativeType::Zero:
    return DataCategory::Numeric;
  case FigurativeType::Null:
    return DataCategory::Pointer;
  case FigurativeType::AllLiteral:
    return literal ? literal->getDataCategory() : DataCategory::Alphanumeric;
  default:
    return isNational() ? DataCategory::National : DataCategory::Alphanumeric;
  }
}

} // namespace tarka
