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

/// Checks the functions of EXEC DLI, and those that DL/I is called with.
class DliCheck {
public:
  explicit DliCheck(LanguageReport &languageReport) : report(languageReport) {}

  void check(EmbeddedCommand &command);
  /// Checks a call of an interface module whose function is a literal, or an item with a VALUE.
  void check(CallStatement &call);
  /// Reports the items of \p program whose VALUE is no function and which nothing changes.
  void finish(Program &program);

private:
  void reportFunction(Expression &argument, llvm::StringRef function);

  LanguageReport &report;
  struct Suspect {
    Expression *argument;
    const DataDescription *item;
    SourceUnit *unit;
    std::string function;
  };
  std::vector<Suspect> suspects;
};

/// Checks the embedded blocks of a compilation, which it is given in source order.
class EmbeddedCheck {
public:
  explicit EmbeddedCheck(LanguageReport &languageReport)
      : report(languageReport), sql(languageReport), dli(languageReport) {}

  /// Checks a block of \p unit.
  void check(ExecStatement &block, SourceUnit &unit);
  /// Checks a call of DL/I.
  void check(CallStatement &call) { dli.check(call); }
  /// Checks what depends on all blocks of \p program, when they have been given.
  void finish(Program &program) {
    sql.finish();
    dli.finish(program);
  }

private:
  void checkNames(EmbeddedCommand &command, SourceUnit &unit);
  void checkName(DataIdentifierExpression &name, SourceUnit &unit);
  void checkLabels(EmbeddedCommand &command, SourceUnit &unit);

  LanguageReport &report;
  SqlCheck sql;
  DliCheck dli;
  /// The undeclared names that have been reported, by their programs.
  llvm::DenseSet<std::pair<const SourceUnit *, const std::string *>> reportedNames;
};

/// The rules of one command of CICS, see CicsRules.cpp.
void checkCicsCommand(CicsCommand &command, LanguageReport &report);

/// The text "; was X meant?" for a name that is near; empty without one.
std::string suggestion(llvm::StringRef nearest);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_EMBEDDEDRULES_H
