//===- CharacterOperand.h - operands as characters and counters -*- C++ -*-===//
//
// Properties of an operand for the statements that work on characters (STRING,
// UNSTRING, INSPECT, XML): what its characters are, how many there are, and whether
// an item can hold a count.
//
// An operand that is not bound, or whose entry is in error, has been reported;
// for it every function returns the result that causes no further message.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_CHARACTEROPERAND_H
#define TARKA_LIB_ANALYZER_CHARACTEROPERAND_H

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "Analyzer/SemanticChecker.h"
#include <cstdint>
#include <optional>

namespace tarka {

/// What the characters of an operand are.
enum class CharacterKind : std::uint8_t {
  Unknown,  ///< the operand is in error
  None,     ///< it has no characters: numeric literals, binary items, indexes, pointers and so on
  Any,      ///< a figurative constant, which takes the kind of the operand it is used with
  Display,  ///< one byte each: USAGE DISPLAY, groups
  Dbcs,     ///< USAGE DISPLAY-1
  National, ///< USAGE NATIONAL, national groups
};

CharacterKind characterKindOf(const Expression &operand);

/// Whether characters of one kind can be used together with characters of the other.
bool areOfOneKind(CharacterKind left, CharacterKind right);

/// True for an item, a literal or a function that holds text: characters that are neither a number
/// nor edited like one. A figurative constant has no length of its own and is none.
bool isText(const Expression &operand);

/// True for ALL literal. A symbolic character and ALL before another figurative constant are none.
bool isAllLiteral(const Expression &operand);

/// Notes in a figurative constant that it stands for national characters, if \p kind says so.
void adaptFigurative(Expression &operand, CharacterKind kind);

/// The number of characters of an operand; nothing where it is not known before run time.
std::optional<std::int64_t> characterCountOf(const Expression &operand);

/// The item that an operand refers to: for a data identifier and for the registers that are items.
/// Null for everything else and for condition-names.
DataDescription *dataItemOf(const Expression &operand);

/// What keeps an operand from being an item that counts.
enum class CounterFault : std::uint8_t {
  None,
  NotNumeric, ///< not an elementary numeric item
  Scaled,     ///< its PICTURE has a P, so that it cannot hold every number
  NotInteger, ///< it has decimal places
};

CounterFault counterFaultOf(const Expression &operand);

/// The messages for an item that cannot count.
struct CounterMessages {
  ErrorCode notNumeric;
  ErrorCode scaled;
};

constexpr CounterMessages integerCounter = {ErrorCode::IntegerRequired,
                                            ErrorCode::IntegerWithScaledPicture};

/// Checks an item that a statement counts in; null, for a phrase that is not written, is ok.
/// Reports \p messages, IntegerRequired for an item with decimal places, and
/// FunctionInReceivingArea.
bool checkCounter(SemanticChecker &checker, IdentifierExpression *counter,
                  CounterMessages messages);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_CHARACTEROPERAND_H
