//===- SqlRules.h - the rules of EXEC SQL -----------------------*- C++ -*-===//

#ifndef TARKA_LIB_ANALYZER_SQLRULES_H
#define TARKA_LIB_ANALYZER_SQLRULES_H

#include "AST/Embedded.h"
#include "LanguageReport.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringSet.h"
#include <vector>

namespace tarka {

/// Checks the statements of SQL of one compilation. The names of cursors and prepared statements
/// are those of the whole source file, and need not stand in order.
class SqlCheck {
public:
  explicit SqlCheck(LanguageReport &languageReport) : report(languageReport) {}

  /// Checks a statement by itself and notes the names that it declares and uses.
  void check(SqlCommand &command);
  /// Checks the names, when all statements have been given.
  void finish();

private:
  void checkHostVariables(SqlCommand &command);
  void checkCursor(SqlCommand &command);
  void checkPrepared(SqlCommand &command);
  void checkCount(SqlCommand &command, unsigned columns, llvm::StringRef what);

  LanguageReport &report;
  std::vector<std::pair<SqlCommand *, SourceUnit *>> statements;
  /// What declares each cursor, and what prepares each statement.
  llvm::StringMap<SqlCommand *> cursors, prepared;
  /// The names that have been reported to be missing: once each.
  llvm::StringSet<> reportedCursors, reportedStatements;
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_SQLRULES_H
