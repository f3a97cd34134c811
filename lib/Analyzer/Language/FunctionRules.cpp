//===- FunctionRules.cpp - the arguments of intrinsic functions -----------===//

#include "AST/IntrinsicFunctions.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/STLExtras.h"

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
  for (auto [number, argument] : llvm::enumerate(arguments))
    if (info->takesNumber(number) && isText(*argument) && !isEntryReported(*argument))
      report.report(LanguageRule::FunctionArgumentNotNumber, *argument, nameOf(*argument),
                    number + 1, name);
}

} // namespace tarka
