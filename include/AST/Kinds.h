//===- Kinds.h - the enumerations of the tree -------------------*- C++ -*-===//
//
// Every enumeration that the nodes carry. The values are part of the interface:
// checks, later stages and the JSON output rely on them. The kinds of statement,
// operand and condition, and the enumerations that are printed, are listed with
// their texts in the .def files; KindNames.h gives the texts.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_KINDS_H
#define TARKA_AST_KINDS_H

#include <cstdint>

namespace tarka {

// The enumerations that are printed.
#define TARKA_ENUM(Type) enum class Type : std::uint8_t {
#define TARKA_VALUE(Enumerator, Number, Text) Enumerator = Number,
#define TARKA_END                                                                                  \
  }                                                                                                \
  ;
#include "AST/Enumerations.def"

/// The section that an entry lives in.
enum class StorageType : std::uint8_t {
  None = 0,
  WorkingStorage = 1,
  LocalStorage = 2,
  File = 3,
  Linkage = 4,
  Report = 5,
};

/// What a data description entry describes. Report group entries need neither PICTURE nor USAGE.
enum class DescType : std::uint8_t { Data = 1, Report = 2 };

/// Operands. A report identifier is not an operand by itself; some statements ask for one directly.
enum class ExpressionType : std::uint8_t {
#define TARKA_EXPRESSION(Kind, Number, Class) Kind = Number,
#include "AST/Expressions.def"
};

/// The forms of numeric literals.
enum class NumericLiteralType : std::uint8_t {
  Unclassified = 0,
  Integer = 1,
  FixedPoint = 2,
  FloatingPoint = 3,
};

/// The special registers that can be named as an operand, and ADDRESS OF and LENGTH OF. Kinds 35
/// and 36 stand for the OS/VS words CURRENT-DATE and TIME-OF-DAY.
enum class SpecialRegisterType : std::uint8_t {
  None = 0,
  AddressOf = 1,
  LengthOf = 2,
  LinageCounter = 3,
  PageCounter = 4,
  LineCounter = 5,
  ReturnCode = 6,
  ShiftOut = 7,
  ShiftIn = 8,
  SortControl = 9,
  SortCoreSize = 10,
  SortFileSize = 11,
  SortMessage = 12,
  SortModeSize = 13,
  SortReturn = 14,
  Tally = 15,
  WhenCompiled = 16,
  XmlCode = 17,
  XmlEvent = 18,
  XmlInformation = 19,
  XmlText = 20,
  XmlNText = 21,
  XmlNamespace = 22,
  XmlNNamespace = 23,
  XmlNamespacePrefix = 24,
  XmlNNamespacePrefix = 25,
  DebugItem = 26,
  JnienvPtr = 27,
  JsonCode = 28,
  JsonStatus = 29,
  PrintSwitch = 30,
  CurrentDate = 33,
  TimeOfDay = 34,
  OsvsCurrentDate = 35,
  OsvsTimeOfDay = 36,
};

/// The intrinsic functions, see IntrinsicFunctions.h. The result is numeric unless noted. Functions
/// that were added to the language later share the three "other" numbers, by their results; their
/// names tell them apart.
enum class IntrinsicType : std::uint8_t {
  None = 0,
  Abs = 1,
  Char = 2, ///< alphanumeric
  Acos = 3,
  Annuity = 4,
  CurrentDate = 5, ///< alphanumeric
  Asin = 6,
  Atan = 7,
  DisplayOf = 8,            ///< alphanumeric
  FormattedCurrentDate = 9, ///< alphanumeric
  FormattedDate = 10,       ///< alphanumeric
  FormattedDatetime = 11,   ///< alphanumeric
  ByteLength = 12,
  FormattedTime = 13, ///< alphanumeric
  CombinedDatetime = 14,
  Cos = 15,
  DateOfInteger = 16,
  DateToYyyymmdd = 17,
  Dateval = 18,
  WhenCompiled = 19, ///< alphanumeric
  DayOfInteger = 20,
  DayToYyyyddd = 21,
  HexOf = 22, ///< alphanumeric
  E = 23,
  Exp = 24,
  Exp10 = 25,
  Factorial = 26,
  OtherNumeric = 27, ///< the numeric functions without a number of their own
  Integer = 28,
  IntegerOfDate = 29,
  IntegerOfDay = 30,
  IntegerOfFormattedDate = 31,
  IntegerPart = 32,
  Length = 33,
  Log = 34,
  Log10 = 35,
  Mean = 36,
  Median = 37,
  Midrange = 38,
  Mod = 39,
  Ord = 40,
  OrdMax = 41,
  OrdMin = 42,
  Pi = 43,
  Numval = 44,
  NumvalC = 45,
  NumvalF = 46,
  Max = 47, ///< the category of its arguments
  Min = 48, ///< the category of its arguments
  PresentValue = 49,
  Random = 50,
  Range = 51,
  Rem = 52,
  Sign = 53,
  Sin = 54,
  Sqrt = 55,
  StandardDeviation = 56,
  Sum = 57,
  Tan = 58,
  Variance = 59,
  YearToYyyy = 60,
  HexToChar = 61,         ///< alphanumeric
  BitOf = 62,             ///< alphanumeric
  BitToChar = 63,         ///< alphanumeric
  OtherAlphanumeric = 64, ///< the alphanumeric ones without a number of their own
  LowerCase = 65,         ///< the category of its arguments
  UpperCase = 66,         ///< the category of its arguments
  Reverse = 67,           ///< the category of its arguments
  Trim = 68,              ///< the category of its arguments
  Concatenate = 69,       ///< the category of its arguments
  Substitute = 70,        ///< the category of its arguments
  OtherOfArguments = 71,  ///< the others with the category of their arguments
  NationalOf = 72,        ///< national
};

/// Conditions.
enum class ConditionType : std::uint8_t {
#define TARKA_CONDITION(Kind, Number, Class) Kind = Number,
#include "AST/Conditions.def"
};

/// Statements. The checks reject a node whose value has no enumerator.
enum class StatementType : std::uint8_t {
#define TARKA_STATEMENT(Kind, Number, Class, Verb) Kind = Number,
#include "AST/Statements.def"
};

/// The formats of ADD.
enum class AddStmtType : std::uint8_t { To = 1, Giving = 2, Corresponding = 3 };
/// The formats of SUBTRACT.
enum class SubtractStmtType : std::uint8_t { From = 1, Giving = 2, Corresponding = 3 };
/// The formats of MULTIPLY.
enum class MultiplyStmtType : std::uint8_t { By = 1, Giving = 2 };
/// The formats of DIVIDE, in the order in which manuals number them.
enum class DivideStmtType : std::uint8_t {
  Into = 1,
  IntoGiving = 2,
  ByGiving = 3,
  IntoGivingRemainder = 4,
  ByGivingRemainder = 5,
};
/// The forms of WHEN in EVALUATE.
enum class EvalWhenType : std::uint8_t { When = 1, Other = 2 };

/// The formats of PERFORM.
enum class PerformStmtType : std::uint8_t { Simple = 1, Times = 2, Until = 3, Varying = 4 };

/// SEARCH and SEARCH ALL.
enum class SearchType : std::uint8_t { Serial = 1, Binary = 2 };

/// Where the records of SORT and MERGE come from or go to.
enum class SortIOType : std::uint8_t { Files = 1, Procedure = 2 };

/// The forms of STOP.
enum class StopType : std::uint8_t { Run = 1, Literal = 2 };

/// DELIMITED BY of STRING.
enum class StringDelimiterType : std::uint8_t { None = 0, Size = 1, Operand = 2 };

/// The forms of ADVANCING.
enum class WriteAdvType : std::uint8_t {
  Lines = 1,    ///< ADVANCING operand LINES
  Page = 2,     ///< ADVANCING PAGE
  Mnemonic = 3, ///< ADVANCING mnemonic-name
};

/// PROGRAM-ID attributes. INITIAL and RECURSIVE beside COMMON are flags of the paragraph.
enum class ProgramIdType : std::uint8_t { None = 0, Initial = 1, Common = 2, Recursive = 3 };

/// LEFT and RIGHT of SYNCHRONIZED.
enum class SynchronizedType : std::uint8_t { None = 0, Left = 1, Right = 2 };

/// The operands of SOURCE in the report section.
enum class SourceExprType : std::uint8_t { Identifier = 1, Arithmetic = 2, Sum = 3, Literal = 4 };
/// The forms of NEXT GROUP; None without the clause.
enum class NextGroupType : std::uint8_t { None = 0, Line = 1, Plus = 2, NextPage = 3 };
/// What CONTROL names beside its data items.
enum class ControlOption : std::uint8_t { None = 0, Final = 1 };
/// What RESET names; None without the phrase.
enum class ResetType : std::uint8_t { None = 0, Final = 1, Identifier = 2 };

/// How report declaratives use a data item, for the code generator of the report writer.
enum class AccessWay : std::uint8_t { None = 0, Used = 1, Moved = 2 };

} // namespace tarka

#endif // TARKA_AST_KINDS_H
