//===- SCDataDateFormat.cpp - DATE FORMAT -------------------------------===//
//
// The known patterns of windowed and expanded dates.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"
#include <iterator>

namespace tarka {

/// In the order of PattenType, from 1.
static constexpr llvm::StringLiteral datePatterns[] = {
    "YY",      "YYX",      "YYXX",    "YYXXX", "YYXXXX", "YYYY",     "YYYYX", "YYYYXX",
    "YYYYXXX", "YYYYXXXX", "X",       "XYY",   "XYYYY",  "XX",       "XXYY",  "XXYYYY",
    "XXX",     "XXXYY",    "XXXYYYY", "XXXX",  "XXXXYY", "XXXXYYYY",
};
static_assert(std::size(datePatterns) == static_cast<std::size_t>(PattenType::XXXXYYYY));

/// Without date processing the clause has no effect and is removed. An unknown pattern keeps its
/// type and is not reported: later stages decide what to do with it.
bool SemanticChecker::checkClauseDateFormat(DataDescription &entry) {
  if (!CompileOption::getCompileOptionInstance()->isOptionDateproc()) {
    entry.setDateFormat(nullptr);
    return true;
  }
  ClauseDateFormat *format = entry.getDateFormat();
  const auto *pattern = llvm::find(datePatterns, format->getPatten()->getWordData());
  if (pattern != std::end(datePatterns))
    format->setPattenType(static_cast<PattenType>(pattern - std::begin(datePatterns) + 1));
  return true;
}

} // namespace tarka
