//===- IntrinsicFunctions.cpp - the intrinsic functions by name -----------===//

#include "AST/IntrinsicFunctions.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

/// Sorted by name.
constexpr IntrinsicFunction functions[] = {
    {"ABS", IntrinsicType::Abs, false},
    {"ACOS", IntrinsicType::Acos, false},
    {"ANNUITY", IntrinsicType::Annuity, false},
    {"ASIN", IntrinsicType::Asin, false},
    {"ATAN", IntrinsicType::Atan, false},
    {"BIT-OF", IntrinsicType::BitOf, false},
    {"BIT-TO-CHAR", IntrinsicType::BitToChar, false},
    {"BYTE-LENGTH", IntrinsicType::ByteLength, true},
    {"CHAR", IntrinsicType::Char, false},
    {"COMBINED-DATETIME", IntrinsicType::CombinedDatetime, false},
    {"CONCAT", IntrinsicType::OtherAlphanumeric, false},
    {"CONCATENATE", IntrinsicType::OtherAlphanumeric, false},
    {"COS", IntrinsicType::Cos, false},
    {"CURRENT-DATE", IntrinsicType::CurrentDate, false},
    {"DATE-OF-INTEGER", IntrinsicType::DateOfInteger, true},
    {"DATE-TO-YYYYMMDD", IntrinsicType::DateToYyyymmdd, true},
    {"DATEVAL", IntrinsicType::Dateval, true},
    {"DAY-OF-INTEGER", IntrinsicType::DayOfInteger, true},
    {"DAY-TO-YYYYDDD", IntrinsicType::DayToYyyyddd, true},
    {"DISPLAY-OF", IntrinsicType::DisplayOf, false},
    {"E", IntrinsicType::E, false},
    {"EXP", IntrinsicType::Exp, false},
    {"EXP10", IntrinsicType::Exp10, false},
    {"FACTORIAL", IntrinsicType::Factorial, true},
    {"FORMATTED-CURRENT-DATE", IntrinsicType::FormattedCurrentDate, false},
    {"FORMATTED-DATE", IntrinsicType::FormattedDate, false},
    {"FORMATTED-DATETIME", IntrinsicType::FormattedDatetime, false},
    {"FORMATTED-TIME", IntrinsicType::FormattedTime, false},
    {"FRACTION-PART", IntrinsicType::OtherNumeric, false},
    {"HEX-OF", IntrinsicType::HexOf, false},
    {"HEX-TO-CHAR", IntrinsicType::HexToChar, false},
    {"INTEGER", IntrinsicType::Integer, true},
    {"INTEGER-OF-DATE", IntrinsicType::IntegerOfDate, true},
    {"INTEGER-OF-DAY", IntrinsicType::IntegerOfDay, true},
    {"INTEGER-OF-FORMATTED-DATE", IntrinsicType::IntegerOfFormattedDate, true},
    {"INTEGER-PART", IntrinsicType::IntegerPart, true},
    {"LENGTH", IntrinsicType::Length, true},
    {"LOG", IntrinsicType::Log, false},
    {"LOG10", IntrinsicType::Log10, false},
    {"LOWER-CASE", IntrinsicType::LowerCase, false},
    {"MAX", IntrinsicType::Max, false},
    {"MEAN", IntrinsicType::Mean, false},
    {"MEDIAN", IntrinsicType::Median, false},
    {"MIDRANGE", IntrinsicType::Midrange, false},
    {"MIN", IntrinsicType::Min, false},
    {"MOD", IntrinsicType::Mod, true},
    {"NATIONAL-OF", IntrinsicType::NationalOf, false},
    {"NUMVAL", IntrinsicType::Numval, false},
    {"NUMVAL-C", IntrinsicType::NumvalC, false},
    {"NUMVAL-F", IntrinsicType::NumvalF, false},
    {"ORD", IntrinsicType::Ord, true},
    {"ORD-MAX", IntrinsicType::OrdMax, true},
    {"ORD-MIN", IntrinsicType::OrdMin, true},
    {"PI", IntrinsicType::Pi, false},
    {"PRESENT-VALUE", IntrinsicType::PresentValue, false},
    {"RANDOM", IntrinsicType::Random, false},
    {"RANGE", IntrinsicType::Range, false},
    {"REM", IntrinsicType::Rem, false},
    {"REVERSE", IntrinsicType::Reverse, false},
    {"SECONDS-FROM-FORMATTED-TIME", IntrinsicType::OtherNumeric, false},
    {"SECONDS-PAST-MIDNIGHT", IntrinsicType::OtherNumeric, false},
    {"SIGN", IntrinsicType::Sign, true},
    {"SIN", IntrinsicType::Sin, false},
    {"SQRT", IntrinsicType::Sqrt, false},
    {"STANDARD-DEVIATION", IntrinsicType::StandardDeviation, false},
    {"SUBSTITUTE", IntrinsicType::Substitute, false},
    {"SUM", IntrinsicType::Sum, false},
    {"TAN", IntrinsicType::Tan, false},
    {"TEST-DATE-YYYYMMDD", IntrinsicType::OtherNumeric, true},
    {"TEST-DAY-YYYYDDD", IntrinsicType::OtherNumeric, true},
    {"TEST-FORMATTED-DATETIME", IntrinsicType::OtherNumeric, true},
    {"TEST-NUMVAL", IntrinsicType::OtherNumeric, true},
    {"TEST-NUMVAL-C", IntrinsicType::OtherNumeric, true},
    {"TEST-NUMVAL-F", IntrinsicType::OtherNumeric, true},
    {"TRIM", IntrinsicType::Trim, false},
    {"ULENGTH", IntrinsicType::OtherNumeric, true},
    {"UNDATE", IntrinsicType::OtherNumeric, true},
    {"UPOS", IntrinsicType::OtherNumeric, true},
    {"UPPER-CASE", IntrinsicType::UpperCase, false},
    {"USUBSTR", IntrinsicType::OtherAlphanumeric, false},
    {"USUPPLEMENTARY", IntrinsicType::OtherNumeric, true},
    {"UUID4", IntrinsicType::OtherAlphanumeric, false},
    {"UVALID", IntrinsicType::OtherNumeric, true},
    {"UWIDTH", IntrinsicType::OtherNumeric, true},
    {"VARIANCE", IntrinsicType::Variance, false},
    {"WHEN-COMPILED", IntrinsicType::WhenCompiled, false},
    {"YEAR-TO-YYYY", IntrinsicType::YearToYyyy, true},
    {"YEARWINDOW", IntrinsicType::OtherNumeric, true},
};

} // namespace

llvm::ArrayRef<IntrinsicFunction> intrinsicFunctions() {
  return functions;
}

const IntrinsicFunction *findIntrinsicFunction(llvm::StringRef name) {
  const IntrinsicFunction *found =
      llvm::lower_bound(functions, name, [](const IntrinsicFunction &one, llvm::StringRef wanted) {
        return one.name < wanted;
      });
  return found != std::end(functions) && found->name == name ? found : nullptr;
}

} // namespace tarka
