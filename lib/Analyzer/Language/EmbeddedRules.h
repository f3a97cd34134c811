//===- EmbeddedRules.h - the rules of EXEC blocks ---------------*- C++ -*-===//

#ifndef TARKA_LIB_ANALYZER_EMBEDDEDRULES_H
#define TARKA_LIB_ANALYZER_EMBEDDEDRULES_H

#include "AST/Embedded.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "LanguageReport.h"
#include "SqlRules.h"
#include "llvm/ADT/DenseSet.h"

namespace tarka {

/// Checks the embedded blocks of a compilation, which it is given in source order.
class EmbeddedCheck {
public:
  explicit EmbeddedCheck(LanguageReport &languageReport)
      : report(languageReport), sql(languageReport) {}

  /// Checks a block of \p unit.
  void check(ExecStatement &block, SourceUnit &unit);
  /// Checks what depends on all blocks, when they have been given.
  void finish() { sql.finish(); }

private:
  void checkNames(EmbeddedCommand &command, SourceUnit &unit);
  void checkName(DataIdentifierExpression &name, SourceUnit &unit);
  void checkLabels(EmbeddedCommand &command, SourceUnit &unit);

  LanguageReport &report;
  SqlCheck sql;
  /// The undeclared names that have been reported, by their programs.
  llvm::DenseSet<std::pair<const SourceUnit *, const std::string *>> reportedNames;
};

/// The rules of one command of CICS, CicsRules.cpp.
void checkCicsCommand(CicsCommand &command, LanguageReport &report);

/// The function of EXEC DLI, and of a CALL of DL/I with a literal, DliRules.cpp.
void checkDliCommand(EmbeddedCommand &command, LanguageReport &report);
void checkDliCall(CallStatement &call, LanguageReport &report);

/// The text "; was X meant?" for a name that is near; empty without one.
std::string suggestion(llvm::StringRef nearest);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_EMBEDDEDRULES_H
