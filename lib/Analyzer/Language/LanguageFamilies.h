//===- LanguageFamilies.h - the families of rules of the second pass -*- C++ -*-===//

#ifndef TARKA_LIB_ANALYZER_LANGUAGEFAMILIES_H
#define TARKA_LIB_ANALYZER_LANGUAGEFAMILIES_H

#include "AST/Condition.h"
#include "AST/Expression.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "FileUsage.h"
#include "LanguageReport.h"

namespace tarka {

/// SELECT and FD entries and what statements do with files, FileRules.cpp.
void checkFileDescriptions(DataDivision &division, LanguageReport &report);
void checkFileControl(SourceUnit &unit, LanguageReport &report);
/// Adds what \p statement does with files to \p usage.
void checkFileStatement(Statement &statement, FileUsage &usage, LanguageReport &report);

/// CLASS, ALPHABET and SYMBOLIC CHARACTERS, SpecialNamesRules.cpp.
void checkSpecialNames(const ParaSpecialNames &paragraph, LanguageReport &report);

/// Subscripts and reference modifiers, TableRules.cpp.
void checkRecords(DataDivision &division, LanguageReport &report);
void checkVariableTables(DataDivision &division, LanguageReport &report);
void checkReportEntries(DataDivision &division, LanguageReport &report);
void checkOperands(Statement &statement, LanguageReport &report);

/// Conditions, and the values of a condition-name, ConditionRules.cpp.
void checkClassCondition(ClassCondition &condition, LanguageReport &report);
void checkConditionValues(const DataDescription &name, LanguageReport &report);
/// What follows WHEN: values, ranges and conditions.
void checkWhens(EvaluateStatement &statement, LanguageReport &report);
/// Whether the operands of = and NOT = can be equal.
void checkEquality(RelationalCondition &condition, LanguageReport &report);

/// The arguments of a function, FunctionRules.cpp.
void checkArguments(FunctionIdentifierExpression &function, LanguageReport &report);

/// The procedure that a statement stands in.
struct StatementContext {
  bool inSection = false;
  bool inParagraph = false;
};

/// USING and RETURNING of a procedure division, StatementRules.cpp.
void checkParameters(ProcedureDivision &division, LanguageReport &report);

/// What a number is divided by, StatementRules.cpp.
void checkDivisor(Expression &divisor, LanguageReport &report);

/// Other rules of one statement, StatementRules.cpp.
void checkStatement(Statement &statement, const StatementContext &context, LanguageReport &report);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_LANGUAGEFAMILIES_H
