//===- SCDataDateFormat.cpp - DATE FORMAT -------------------------------===//
//
// The patterns of windowed and expanded dates.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/KindNames.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/SemanticChecker.h"
#include <optional>

namespace tarka {

/// The pattern with the text \p word; nothing when it is unknown.
static std::optional<PattenType> findPattern(llvm::StringRef word) {
  constexpr auto last = static_cast<unsigned>(PattenType::XXXXYYYY);
  for (unsigned number = 1; number <= last; ++number)
    if (const auto pattern = static_cast<PattenType>(number); nameOf(pattern) == word)
      return pattern;
  return std::nullopt;
}

/// Without date processing the clause has no effect and is removed. An unknown pattern keeps its
/// type and is not reported: later stages decide what to do with it.
bool SemanticChecker::checkClauseDateFormat(DataDescription &entry) {
  if (!CompileOption::getCompileOptionInstance()->isOptionDateproc()) {
    entry.setDateFormat(nullptr);
    return true;
  }
  ClauseDateFormat *format = entry.getDateFormat();
  if (const auto pattern = findPattern(format->getPatten()->getWordData()))
    format->setPattenType(*pattern);
  return true;
}

} // namespace tarka
