//===- Kinds.h - the enumerations of the tree -------------------*- C++ -*-===//
//
// Every enumeration that the nodes carry. The values are part of the interface:
// checks, later stages and the JSON output rely on them.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_KINDS_H
#define TARKA_AST_KINDS_H

#include <cstdint>

namespace tarka {

/// What kind of data an entry or an operand holds.
enum class DataCategory : std::uint8_t {
  Unclassified = 0,
  Alphabetic = 1,
  Alphanumeric = 2,
  Numeric = 3,
  AlphanumericEdited = 4,
  NumericEdited = 5,
  National = 6,
  NationalEdited = 7,
  Dbcs = 8,
  ExternalFloat = 9,
  InternalFloat = 10,
  Pointer = 11,
  Index = 12,
};

/// USAGE. COMP-3 and PACKED-DECIMAL are one representation under two values, as are BINARY, COMP
/// and COMP-4; the value tells which word the programmer wrote.
enum class UsageType : std::uint8_t {
  None = 0,
  Binary = 1,
  Comp = 2,
  Comp1 = 3,
  Comp2 = 4,
  Comp3 = 5,
  Comp4 = 6,
  Comp5 = 7,
  Display = 8,
  Display1 = 9,
  Index = 10,
  National = 11,
  PackedDecimal = 12,
  Pointer = 13,
  ProcedurePointer = 14,
  FunctionPointer = 15,
};

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

/// Expressions. A report identifier is no operand of its own; statements ask for it directly.
enum class ExpressionType : std::uint8_t {
  NumericLiteral = 1,
  NonNumericLiteral = 2,
  FigurativeConstant = 3,
  Arithmetic = 4,
  DataIdentifier = 5,
  FileIdentifier = 6,
  FunctionIdentifier = 7,
  SpecialRegister = 8,
  AbbrRelationCombined = 9,
  ReportIdentifier = 10,
};

enum class NumericLiteralType : std::uint8_t {
  Unclassified = 0,
  Integer = 1,
  FixedPoint = 2,
  FloatingPoint = 3,
};

enum class NonNumericLiteralType : std::uint8_t {
  Alphanumeric = 1,        ///< "text" or 'text'
  Hexadecimal = 2,         ///< X"..."
  NullTerminated = 3,      ///< Z"..."
  Dbcs = 4,                ///< G"..."
  National = 5,            ///< N"..."
  NationalHexadecimal = 6, ///< NX"..."
};

enum class FigurativeType : std::uint8_t {
  None = 0,
  Zero = 1,
  Space = 2,
  HighValue = 3,
  LowValue = 4,
  Quote = 5,
  AllLiteral = 6,
  Null = 7,
  SymbolicCharacter = 8,
};

/// The operator of an arithmetic expression; the unary ones have no second operand.
enum class ArithmeticExprType : std::uint8_t {
  Add = 1,
  Subtract = 2,
  Multiply = 3,
  Divide = 4,
  Power = 5,
  UnaryPlus = 6,
  UnaryMinus = 7,
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

/// The intrinsic functions, see IntrinsicFunctions.h. The result is numeric unless noted. The
/// numbers are taken up to 72; functions that came to the language later share the three "other"
/// numbers, by what they give.
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
  OtherNumeric = 27, ///< the numeric functions without a number of their own, told by name
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

enum class ConditionType : std::uint8_t {
  ConditionName = 1,
  Switch = 2,
  Relational = 3,
  Class = 4,
  Sign = 5,
  Negated = 6,
  Combined = 7,
  AbbrRelational = 8,
};

enum class RelationalConditionType : std::uint8_t {
  Greater = 1,
  Less = 2,
  Equal = 3,
  NotGreater = 4,
  NotLess = 5,
  NotEqual = 6,
  GreaterOrEqual = 7,
  LessOrEqual = 8,
};

/// IS [NOT] class. The NOT form of a class is its value plus 8.
enum class ClassConditionType : std::uint8_t {
  Alphabetic = 1,
  AlphabeticLower = 2,
  AlphabeticUpper = 3,
  Dbcs = 4,
  Kanji = 5,
  Numeric = 6,
  ClassName = 8,
  NotAlphabetic = 9,
  NotAlphabeticLower = 10,
  NotAlphabeticUpper = 11,
  NotDbcs = 12,
  NotKanji = 13,
  NotNumeric = 14,
  NotClassName = 16,
};

/// IS [NOT] POSITIVE, NEGATIVE or ZERO.
enum class SignConditionType : std::uint8_t {
  Positive = 1,
  Negative = 2,
  Zero = 3,
  NotPositive = 4,
  NotNegative = 5,
  NotZero = 6,
};

enum class CombinedOperatorType : std::uint8_t { And = 1, Or = 2 };

/// Statements. The values without an enumerator belong to no statement of the language; a node
/// that carries one is refused by the checker.
enum class StatementType : std::uint8_t {
  Accept = 1,
  Add = 2,
  Alter = 3,
  Call = 4,
  Cancel = 5,
  Close = 6,
  Compute = 7,
  Continue = 8,
  Delete = 9,
  Display = 10,
  Divide = 11,
  Entry = 13,
  Evaluate = 14,
  Exit = 17,        ///< EXIT alone, the end point of a procedure
  ExitProgram = 18, ///< EXIT PROGRAM
  Goto = 19,
  Goback = 20,
  If = 21,
  Initialize = 22,
  Inspect = 23,
  Merge = 24,
  Move = 25,
  Multiply = 26,
  Open = 27,
  Perform = 28,
  Read = 29,
  Release = 30,
  Return = 31,
  Rewrite = 32,
  Search = 33,
  Set = 34,
  Sort = 35,
  Start = 36,
  Stop = 37,
  String = 38,
  Subtract = 39,
  Unstring = 40,
  Use = 41,
  Write = 42,
  XmlGenerate = 43,
  XmlParse = 44,
  NextSentence = 45,
  ExitParagraph = 46, ///< EXIT PARAGRAPH
  ExitSection = 47,   ///< EXIT SECTION
  // Statements that the graph builder makes.
  InnerBranch = 48,
  InnerExit = 49,
  InnerRegisterException = 50,
  InnerWhen = 51,
  InnerSearchWhen = 52,
  Exec = 53,  ///< EXEC ... END-EXEC, an embedded block of another language
  Trace = 54, ///< READY TRACE and RESET TRACE
  RwGenerate = 55,
  RwInitiate = 56,
  RwTerminate = 57,
  RwSuppress = 58,
  ExitPerform = 60, ///< EXIT PERFORM and EXIT PERFORM CYCLE
  On = 61,
  Transform = 62,
  Examine = 63,
  Exhibit = 64,
};

/// The phrases that hold imperative statements. The NOT form is a flag of the phrase.
enum class ExceptionHandlerType : std::uint8_t {
  OnException = 1,
  AtEnd = 2,
  SizeError = 3,
  InvalidKey = 4,
  Overflow = 5,
  EndOfPage = 6,
};

enum class AcceptFromType : std::uint8_t {
  None = 0,         ///< no FROM phrase
  Device = 1,       ///< FROM a mnemonic name or an environment name
  Date = 2,         ///< FROM DATE
  DateYyyymmdd = 3, ///< FROM DATE YYYYMMDD
  Day = 4,          ///< FROM DAY
  DayYyyyddd = 5,   ///< FROM DAY YYYYDDD
  DayOfWeek = 6,    ///< FROM DAY-OF-WEEK
  Time = 7,         ///< FROM TIME
};

/// The formats of ADD and SUBTRACT.
enum class AddStmtType : std::uint8_t { To = 1, Giving = 2, Corresponding = 3 };
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

enum class ArgType : std::uint8_t { Reference = 1, Content = 2, Value = 3 };
/// How a USING item of PROCEDURE DIVISION or ENTRY is passed.
enum class ParameterType : std::uint8_t { Reference = 1, Value = 2 };

enum class EvalSubjectType : std::uint8_t { Expression = 1, Condition = 2, True = 3, False = 4 };
enum class EvalObjectType : std::uint8_t {
  Any = 1,
  Condition = 2,
  True = 3,
  False = 4,
  Expression = 5, ///< [NOT] operand
  Range = 6,      ///< [NOT] operand THROUGH operand
};
enum class EvalWhenType : std::uint8_t { When = 1, Other = 2 };

/// What follows BY in INITIALIZE ... REPLACING; the values are those of the categories.
enum class InitializeReplacingType : std::uint8_t {
  Alphabetic = 1,
  Alphanumeric = 2,
  Numeric = 3,
  AlphanumericEdited = 4,
  NumericEdited = 5,
  National = 6,
  NationalEdited = 7,
  Dbcs = 8,
};

/// BEFORE and AFTER INITIAL.
enum class InspRegType : std::uint8_t { Before = 1, After = 2 };
/// TALLYING ... FOR.
enum class InspTailType : std::uint8_t { Characters = 1, All = 2, Leading = 3 };
/// REPLACING.
enum class InspReplType : std::uint8_t { Characters = 1, All = 2, Leading = 3, First = 4 };

/// What EXAMINE does, and which occurrences it looks at.
enum class ExamineType : std::uint8_t { Tallying = 1, Replacing = 2, TallyingReplacing = 3 };
enum class ExamineOptionType : std::uint8_t { All = 1, Leading = 2, First = 3, UntilFirst = 4 };
enum class ExhibitType : std::uint8_t { Named = 1, Changed = 2, ChangedNamed = 3 };
enum class TraceType : std::uint8_t { Ready = 1, Reset = 2 };
/// The language of an EXEC block.
enum class ExecType : std::uint8_t { Cics = 1, Sql = 2, Dli = 3, Other = 4 };

/// The kind of move that a MOVE rule asks for.
enum class MoveRule : std::uint8_t {
  Illegal = 0,
  Character = 1,
  NumericConversion = 2,
  PackedToPacked = 3,
  AlphanumericToDisplay = 4,
  DisplayToDisplay = 5,
  DisplayToPacked = 6,
  Group = 7,
  National = 8,
};

enum class OpenType : std::uint8_t { Input = 1, Output = 2, InputOutput = 3, Extend = 4 };
enum class OpenOption : std::uint8_t { None = 0, Reversed = 1, NoRewind = 2 };
enum class CloseOption : std::uint8_t {
  None = 0,
  NoRewind = 1,
  Lock = 2,
  Reel = 3,
  ReelRemoval = 4,
  ReelNoRewind = 5,
};

enum class PerformStmtType : std::uint8_t { Simple = 1, Times = 2, Until = 3, Varying = 4 };
/// WITH TEST.
enum class PerformTestType : std::uint8_t { Before = 1, After = 2 };

enum class SearchType : std::uint8_t { Serial = 1, Binary = 2 };

enum class SetItemType : std::uint8_t {
  To = 1,        ///< SET ... TO value
  UpBy = 2,      ///< SET ... UP BY
  DownBy = 3,    ///< SET ... DOWN BY
  Switch = 4,    ///< SET mnemonic-name TO ON or OFF
  Condition = 5, ///< SET condition-name TO TRUE or FALSE
};
enum class SetToValueType : std::uint8_t {
  Expression = 1,
  On = 2,
  Off = 3,
  True = 4,
  Null = 5,
  Entry = 6, ///< SET procedure-pointer TO ENTRY
  False = 7,
};

enum class SortIOType : std::uint8_t { Files = 1, Procedure = 2 };
enum class SortOrder : std::uint8_t { Ascending = 1, Descending = 2 };

enum class StopType : std::uint8_t { Run = 1, Literal = 2 };

/// DELIMITED BY of STRING.
enum class StringDelimiterType : std::uint8_t { None = 0, Size = 1, Operand = 2 };

enum class WriteAdvType : std::uint8_t {
  Lines = 1,    ///< ADVANCING operand LINES
  Page = 2,     ///< ADVANCING PAGE
  Mnemonic = 3, ///< ADVANCING mnemonic-name
};

/// When a USE procedure runs. Only exception declaratives are registered at run time.
enum class UseTimingType : std::uint8_t {
  None = 0,
  AfterException = 1,
  AfterLabel = 2,
  BeforeLabel = 3,
  KeyConversion = 4,
  ForDebugging = 5,
  BeforeReporting = 6,
};
/// The open modes of USE AFTER EXCEPTION ON INPUT and the like.
enum class UseFileMode : std::uint8_t {
  None = 0,
  Input = 1,
  Output = 2,
  InputOutput = 3,
  Extend = 4,
};
/// The LABEL declaratives.
enum class UseLabelType : std::uint8_t { None = 0, File = 1, Reel = 2, Unit = 3 };

/// The LABEL declaratives that say which label they handle.
enum class UseLabelPosition : std::uint8_t { None = 0, Beginning = 1, Ending = 2 };

/// What an item becomes in the document of XML GENERATE.
enum class XmlNodeType : std::uint8_t { None = 0, Attribute = 1, Element = 2, Content = 3 };
/// The items that EVERY of XML GENERATE ... SUPPRESS speaks of.
enum class XmlSuppressClass : std::uint8_t { All = 0, Numeric = 1, NonNumeric = 2 };

/// PROGRAM-ID attributes. INITIAL and RECURSIVE beside COMMON are flags of the paragraph.
enum class ProgramIdType : std::uint8_t { None = 0, Initial = 1, Common = 2, Recursive = 3 };

enum class AlphabetType : std::uint8_t {
  Unknown = 0,
  Standard1 = 1,
  Standard2 = 2,
  Native = 3,
  Ebcdic = 4,
  User = 5,
};

enum class OrganizationType : std::uint8_t {
  None = 0,
  Sequential = 1,
  Indexed = 2,
  Relative = 3,
  LineSequential = 4,
};
enum class AccessType : std::uint8_t { None = 0, Sequential = 1, Random = 2, Dynamic = 3 };

enum class FileDescType : std::uint8_t { File = 1, SortMerge = 2 };
enum class LabelType : std::uint8_t { None = 0, Standard = 1, Omitted = 2, DataName = 3 };
enum class RecordingModeType : std::uint8_t {
  NotGiven = 0,
  Fixed = 1,
  Variable = 2,
  Spanned = 3,
  Undefined = 4,
};
enum class BlockUnit : std::uint8_t { Records = 1, Characters = 2 };

/// The kind of a SAME clause of I-O-CONTROL.
enum class SameType : std::uint8_t { None = 0, Record = 1, Sort = 2, SortMerge = 3 };

/// The environment names of SPECIAL-NAMES.
enum class EnvNameType : std::uint8_t { Unknown = 0, Device = 1, Switch = 2, Carriage = 3 };

/// LEFT and RIGHT of SYNCHRONIZED.
enum class SynchronizedType : std::uint8_t { None = 0, Left = 1, Right = 2 };

/// The patterns of DATE FORMAT.
enum class PattenType : std::uint8_t {
  None = 0,
  YY = 1,
  YYX = 2,
  YYXX = 3,
  YYXXX = 4,
  YYXXXX = 5,
  YYYY = 6,
  YYYYX = 7,
  YYYYXX = 8,
  YYYYXXX = 9,
  YYYYXXXX = 10,
  X = 11,
  XYY = 12,
  XYYYY = 13,
  XX = 14,
  XXYY = 15,
  XXYYYY = 16,
  XXX = 17,
  XXXYY = 18,
  XXXYYYY = 19,
  XXXX = 20,
  XXXXYY = 21,
  XXXXYYYY = 22,
};

// The report section.

enum class ReportGroupType : std::uint8_t {
  None = 0,
  ReportHeading = 1,
  PageHeading = 2,
  ControlHeading = 3,
  Detail = 4,
  ControlFooting = 5,
  PageFooting = 6,
  ReportFooting = 7,
};
enum class SourceExprType : std::uint8_t { Identifier = 1, Arithmetic = 2, Sum = 3, Literal = 4 };
enum class PresentType : std::uint8_t {
  None = 0,
  Condition = 1,     ///< PRESENT WHEN condition
  NewPage = 2,       ///< PRESENT AFTER NEW PAGE
  Control = 3,       ///< PRESENT AFTER control-id
  ControlOrPage = 4, ///< PRESENT AFTER control-id OR PAGE
  PageOrControl = 5,
};
enum class NextGroupType : std::uint8_t { None = 0, Line = 1, Plus = 2, NextPage = 3 };
/// What CONTROL names beside its data items.
enum class ControlOption : std::uint8_t { None = 0, Final = 1 };
/// Which part of a report item stands in the column that COLUMN gives.
enum class ColumnAlignment : std::uint8_t { Left = 1, Center = 2, Right = 3 };
enum class ResetType : std::uint8_t { None = 0, Final = 1, Identifier = 2 };

/// What a data item's accesses mean to the report writer's code generator.
enum class AccessWay : std::uint8_t { None = 0, Used = 1, Moved = 2 };

} // namespace tarka

#endif // TARKA_AST_KINDS_H
