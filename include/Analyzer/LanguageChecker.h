//===- LanguageChecker.h - the second pass over a checked tree --*- C++ -*-===//
//
// Rules of the language that SemanticChecker does not enforce: subscripts and
// parts that are certainly outside of their item, statements that do not fit the
// organization of a file, and similar rules. They have diagnostics of their own, and
// change nothing in the tree.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_LANGUAGECHECKER_H
#define TARKA_ANALYZER_LANGUAGECHECKER_H

#include "Analyzer/ErrorHandler.h"
#include "llvm/ADT/ArrayRef.h"
#include <vector>

namespace tarka {

class Program;

/// A rule of the second pass. The value is its place in the table.
enum class LanguageRule : int {
#define LANGUAGE_RULE(name, number, severity, format) name,
#include "Analyzer/LanguageRules.def"
};

/// One row of the table.
struct LanguageRuleInfo {
  int number;
  /// The enumerator.
  const char *name;
  Severity severity;
  /// The llvm::formatv format of the message.
  const char *format;
};

/// All rows, in the order of LanguageRule.
llvm::ArrayRef<LanguageRuleInfo> languageRules();

/// What the passes before this one have reported.
struct EarlierDiagnostics {
  /// The places of all their diagnostics. At these the second pass stays silent.
  std::vector<SourceRange> places;
  /// False when the front end has reported an error: then parts of the source may be missing in the
  /// tree, and nothing is reported for being absent.
  bool isTreeComplete = true;
};

/// Checks \p program, which SemanticChecker::semanticCheck() has completed, and returns the
/// diagnostics: in each program first those of files, then of data, then of statements in source
/// order. Names that could not be bound are ignored.
std::vector<ErrorEntry> checkLanguage(Program &program, const EarlierDiagnostics &earlier);

} // namespace tarka

#endif // TARKA_ANALYZER_LANGUAGECHECKER_H
