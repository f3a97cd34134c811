//===- IntrinsicFunctions.cpp - the intrinsic functions by name -----------===//

#include "AST/IntrinsicFunctions.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

/// Sorted by name.
constexpr IntrinsicFunction functions[] = {
    {"ABS", IntrinsicType::Abs, false, "n"},
    {"ACOS", IntrinsicType::Acos, false, "n"},
    {"ANNUITY", IntrinsicType::Annuity, false, "ni"},
    {"ASIN", IntrinsicType::Asin, false, "n"},
    {"ATAN", IntrinsicType::Atan, false, "n"},
    {"BIT-OF", IntrinsicType::BitOf, false, "a"},
    {"BIT-TO-CHAR", IntrinsicType::BitToChar, false, "a"},
    {"BYTE-LENGTH", IntrinsicType::ByteLength, true, "a"},
    {"CHAR", IntrinsicType::Char, false, "i"},
    {"COMBINED-DATETIME", IntrinsicType::CombinedDatetime, false, "nn"},
    {"CONCAT", IntrinsicType::OtherAlphanumeric, false, "a+"},
    {"CONCATENATE", IntrinsicType::OtherAlphanumeric, false, "a+"},
    {"COS", IntrinsicType::Cos, false, "n"},
    {"CURRENT-DATE", IntrinsicType::CurrentDate, false, ""},
    {"DATE-OF-INTEGER", IntrinsicType::DateOfInteger, true, "i"},
    {"DATE-TO-YYYYMMDD", IntrinsicType::DateToYyyymmdd, true, "ii?i?"},
    {"DATEVAL", IntrinsicType::Dateval, true, "aa"},
    {"DAY-OF-INTEGER", IntrinsicType::DayOfInteger, true, "i"},
    {"DAY-TO-YYYYDDD", IntrinsicType::DayToYyyyddd, true, "ii?i?"},
    {"DISPLAY-OF", IntrinsicType::DisplayOf, false, "an?"},
    {"E", IntrinsicType::E, false, ""},
    {"EXP", IntrinsicType::Exp, false, "n"},
    {"EXP10", IntrinsicType::Exp10, false, "n"},
    {"FACTORIAL", IntrinsicType::Factorial, true, "i"},
    {"FORMATTED-CURRENT-DATE", IntrinsicType::FormattedCurrentDate, false, "a"},
    {"FORMATTED-DATE", IntrinsicType::FormattedDate, false, "an"},
    {"FORMATTED-DATETIME", IntrinsicType::FormattedDatetime, false, "annn?"},
    {"FORMATTED-TIME", IntrinsicType::FormattedTime, false, "ann?"},
    {"FRACTION-PART", IntrinsicType::OtherNumeric, false, "n"},
    {"HEX-OF", IntrinsicType::HexOf, false, "a"},
    {"HEX-TO-CHAR", IntrinsicType::HexToChar, false, "a"},
    {"INTEGER", IntrinsicType::Integer, true, "n"},
    {"INTEGER-OF-DATE", IntrinsicType::IntegerOfDate, true, "i"},
    {"INTEGER-OF-DAY", IntrinsicType::IntegerOfDay, true, "i"},
    {"INTEGER-OF-FORMATTED-DATE", IntrinsicType::IntegerOfFormattedDate, true, "aa"},
    {"INTEGER-PART", IntrinsicType::IntegerPart, true, "n"},
    {"LENGTH", IntrinsicType::Length, true, "a"},
    {"LOG", IntrinsicType::Log, false, "n"},
    {"LOG10", IntrinsicType::Log10, false, "n"},
    {"LOWER-CASE", IntrinsicType::LowerCase, false, "a"},
    {"MAX", IntrinsicType::Max, false, "a+"},
    {"MEAN", IntrinsicType::Mean, false, "n+"},
    {"MEDIAN", IntrinsicType::Median, false, "n+"},
    {"MIDRANGE", IntrinsicType::Midrange, false, "n+"},
    {"MIN", IntrinsicType::Min, false, "a+"},
    {"MOD", IntrinsicType::Mod, true, "ii"},
    {"NATIONAL-OF", IntrinsicType::NationalOf, false, "an?"},
    {"NUMVAL", IntrinsicType::Numval, false, "a"},
    {"NUMVAL-C", IntrinsicType::NumvalC, false, "aa?"},
    {"NUMVAL-F", IntrinsicType::NumvalF, false, "a"},
    {"ORD", IntrinsicType::Ord, true, "a"},
    {"ORD-MAX", IntrinsicType::OrdMax, true, "a+"},
    {"ORD-MIN", IntrinsicType::OrdMin, true, "a+"},
    {"PI", IntrinsicType::Pi, false, ""},
    {"PRESENT-VALUE", IntrinsicType::PresentValue, false, "nn+"},
    {"RANDOM", IntrinsicType::Random, false, "i?"},
    {"RANGE", IntrinsicType::Range, false, "n+"},
    {"REM", IntrinsicType::Rem, false, "nn"},
    {"REVERSE", IntrinsicType::Reverse, false, "a"},
    {"SECONDS-FROM-FORMATTED-TIME", IntrinsicType::OtherNumeric, false, "aa"},
    {"SECONDS-PAST-MIDNIGHT", IntrinsicType::OtherNumeric, false, ""},
    {"SIGN", IntrinsicType::Sign, true, "n"},
    {"SIN", IntrinsicType::Sin, false, "n"},
    {"SQRT", IntrinsicType::Sqrt, false, "n"},
    {"STANDARD-DEVIATION", IntrinsicType::StandardDeviation, false, "n+"},
    {"SUBSTITUTE", IntrinsicType::Substitute, false, "aaa+"},
    {"SUM", IntrinsicType::Sum, false, "n+"},
    {"TAN", IntrinsicType::Tan, false, "n"},
    {"TEST-DATE-YYYYMMDD", IntrinsicType::OtherNumeric, true, "n"},
    {"TEST-DAY-YYYYDDD", IntrinsicType::OtherNumeric, true, "n"},
    {"TEST-FORMATTED-DATETIME", IntrinsicType::OtherNumeric, true, "aa"},
    {"TEST-NUMVAL", IntrinsicType::OtherNumeric, true, "a"},
    {"TEST-NUMVAL-C", IntrinsicType::OtherNumeric, true, "aa?"},
    {"TEST-NUMVAL-F", IntrinsicType::OtherNumeric, true, "a"},
    {"TRIM", IntrinsicType::Trim, false, "a"},
    {"ULENGTH", IntrinsicType::OtherNumeric, true, "a"},
    {"UNDATE", IntrinsicType::OtherNumeric, true, "a"},
    {"UPOS", IntrinsicType::OtherNumeric, true, "an"},
    {"UPPER-CASE", IntrinsicType::UpperCase, false, "a"},
    {"USUBSTR", IntrinsicType::OtherAlphanumeric, false, "ann"},
    {"USUPPLEMENTARY", IntrinsicType::OtherNumeric, true, "a"},
    {"UUID4", IntrinsicType::OtherAlphanumeric, false, ""},
    {"UVALID", IntrinsicType::OtherNumeric, true, "a"},
    {"UWIDTH", IntrinsicType::OtherNumeric, true, "an"},
    {"VARIANCE", IntrinsicType::Variance, false, "n+"},
    {"WHEN-COMPILED", IntrinsicType::WhenCompiled, false, ""},
    {"YEAR-TO-YYYY", IntrinsicType::YearToYyyy, true, "ii?i?"},
    {"YEARWINDOW", IntrinsicType::OtherNumeric, true, ""},
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
