//===- SpecialRegisters.cpp - the special registers as data entries -------===//
//
// The special registers of the language become level-01 entries of
// working-storage, so that later stages treat them like what the programmer
// declares.
//
//===----------------------------------------------------------------------===//

#include "Analyzer/SpecialRegisters.h"
#include "AST/Expression.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

namespace {

enum class Initial { None, Zero, Space, NonNumeric, Numeric };

using Option = bool (CompileOption::*)() const;

constexpr Option Always = nullptr;
constexpr Option ReportWriter = &CompileOption::isOptionEnableRw;
constexpr Option Osvs = &CompileOption::isOptionEnableOsvs;
constexpr Option Cbltdli = &CompileOption::isOptionEnableCbltdli;
constexpr Option Aertdli = &CompileOption::isOptionEnableAertdli;

constexpr bool Global = true;
constexpr bool Local = false;

struct SpecialRegister {
  const char *name;
  bool isGlobal;
  const char *picture;
  UsageType usage; ///< None: no USAGE clause
  Initial initial;
  const char *value; ///< the text of a NonNumeric or Numeric value
  Option option;     ///< the option that the register depends on
};

/// In the order in which they stand in working-storage. Later stages rely on the details: which
/// ones are GLOBAL, that XML-EVENT has no USAGE, that the XML registers start from the literal 0
/// and the others from ZERO, and the order of the two OS/VS registers.
constexpr SpecialRegister Registers[] = {
    // clang-format off
    {"RETURN-CODE",             Global, "S9(4)", UsageType::Binary,  Initial::Zero,       nullptr,          Always},
    {"SHIFT-OUT",               Global, "X(1)",  UsageType::Display, Initial::NonNumeric, "X\"0E\"",        Always},
    {"SHIFT-IN",                Global, "X(1)",  UsageType::Display, Initial::NonNumeric, "X\"0F\"",        Always},
    {"SORT-CONTROL",            Global, "X(8)",  UsageType::Display, Initial::NonNumeric, "\"IGZSRTCD\"",   Always},
    {"SORT-CORE-SIZE",          Global, "S9(8)", UsageType::Binary,  Initial::Zero,       nullptr,          Always},
    {"SORT-FILE-SIZE",          Global, "S9(8)", UsageType::Binary,  Initial::Zero,       nullptr,          Always},
    {"SORT-MESSAGE",            Global, "X(8)",  UsageType::Display, Initial::NonNumeric, "\"SYSOUT\"",     Always},
    {"SORT-MODE-SIZE",          Global, "S9(5)", UsageType::Binary,  Initial::Zero,       nullptr,          Always},
    {"SORT-RETURN",             Global, "S9(4)", UsageType::Binary,  Initial::Zero,       nullptr,          Always},
    {"TALLY",                   Global, "9(5)",  UsageType::Binary,  Initial::Zero,       nullptr,          Always},
    {"WHEN-COMPILED",           Global, "X(16)", UsageType::Display, Initial::None,       nullptr,          Always},
    {"XML-CODE",                Local,  "S9(9)", UsageType::Binary,  Initial::Numeric,    "0",              Always},
    {"XML-EVENT",               Local,  "X(30)", UsageType::None,    Initial::Space,      nullptr,          Always},
    {"XML-INFORMATION",         Local,  "S9(9)", UsageType::Binary,  Initial::Numeric,    "0",              Always},
    {"XML-TEXT",                Local,  "X(1)",  UsageType::Display, Initial::None,       nullptr,          Always},
    {"PRINT-SWITCH",            Global, "9(9)",  UsageType::Binary,  Initial::Zero,       nullptr,          ReportWriter},
    {"TARKA-CURRENT-DATE",      Local,  "X(8)",  UsageType::Display, Initial::None,       nullptr,          ReportWriter},
    {"TARKA-TIME-OF-DAY",       Local,  "X(8)",  UsageType::Display, Initial::None,       nullptr,          ReportWriter},
    {"TARKA-OSVS-TIME-OF-DAY",  Local,  "X(6)",  UsageType::Display, Initial::None,       nullptr,          Osvs},
    {"TARKA-OSVS-CURRENT-DATE", Local,  "X(8)",  UsageType::Display, Initial::None,       nullptr,          Osvs},
    {"KORVALINE-CBLTDLI-PC",    Local,  "S9(9)", UsageType::Binary,  Initial::None,       nullptr,          Cbltdli},
    {"KORVALINE-AERTDLI-PC",    Local,  "S9(9)", UsageType::Binary,  Initial::None,       nullptr,          Aertdli},
    // clang-format on
};

LiteralExpression *makeInitialValue(const SpecialRegister &from) {
  switch (from.initial) {
  case Initial::None:
    return nullptr;
  case Initial::Zero:
    return generate<FigurativeLiteralExpression>(nullptr, FigurativeType::Zero, nullptr);
  case Initial::Space:
    return generate<FigurativeLiteralExpression>(nullptr, FigurativeType::Space, nullptr);
  case Initial::NonNumeric:
    return generate<NonNumericLiteralExpression>(nullptr, from.value);
  case Initial::Numeric:
    return generate<NumericLiteralExpression>(nullptr, from.value);
  }
  return nullptr;
}

bool isGlobal(const SpecialRegister &from) {
  return from.isGlobal || (llvm::StringRef(from.name).starts_with("XML-") &&
                           followsEnterprise(EnterpriseRule::GlobalXmlRegisters));
}

DataDescription *makeEntry(const SpecialRegister &from) {
  auto *entry = generate<DataDescription>(nullptr);
  entry->setOrigin(Origin::Supplied);
  entry->setLevelNum(1);
  entry->setDataName(generate<Word>(nullptr, from.name, ""));
  if (isGlobal(from))
    entry->setGlobal(generate<ClauseGlobal>(nullptr));
  entry->setPicture(generate<ClausePicture>(nullptr, generate<Word>(nullptr, from.picture, "")));
  if (from.usage != UsageType::None)
    entry->setUsage(generate<ClauseUsage>(nullptr, from.usage));
  if (LiteralExpression *initial = makeInitialValue(from)) {
    auto *phrase = generate<PhraseValue>(nullptr);
    phrase->setLiteral1(initial);
    auto *value = generate<ClauseValue>(nullptr);
    value->addPhraseValue(phrase);
    entry->setValue(value);
  }
  return entry;
}

} // namespace

bool isXmlTextRegister(const DataDescription &entry) {
  return entry.getOrigin() == Origin::Supplied && entry.getDataName()->getWordData() == "XML-TEXT";
}

void SemanticChecker::createSpecialRegister(std::list<DataDescription *> *list) {
  const CompileOption &options = *CompileOption::getCompileOptionInstance();
  for (const SpecialRegister &from : Registers) {
    if (from.option != Always && !(options.*from.option)())
      continue;
    list->push_back(makeEntry(from));
    if (isXmlTextRegister(*list->back()))
      state->xmlText.entry = list->back();
  }
}

} // namespace tarka
