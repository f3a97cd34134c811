//===- SemanticChecker.h - the checks of the language -----------*- C++ -*-===//
//
// The walk over a program and every check on it, grouped by the file in
// lib/Analyzer that holds them. How a family of rules does its work, and what it
// remembers, is in its files there.
//
// Every check returns true when nothing is wrong below its node. A failed child
// makes the result false but never stops the walk of its siblings. The checks
// also complete the tree in place: they bind names, fill in clauses and add
// entries and statements.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_SEMANTICCHECKER_H
#define TARKA_ANALYZER_SEMANTICCHECKER_H

#include "AST/Forward.h"
#include "AST/Kinds.h"
#include "Analyzer/ErrorHandler.h"
#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>

namespace tarka {

// The environment division.
class ClauseCurrency;
class ClauseSymbolic;
class EnvironmentDivision;
class ParaIOControl;
class ParaObjectComputer;
class ParaSourceComputer;
class ParaSpecialNames;
class PhrsClass;
class PhrsSymbolic;

// The data division.
class ClausePicture;
class ClauseSign;
class ClauseValue;

// Conditions.
class AbbrRelationalCondition;
class ClassCondition;
class CombinedCondition;
class ConditionNameCondition;
class NegatedCondition;
class RelationalCondition;
class SignCondition;
class SwitchCondition;

// The procedure division.
class ExceptionHandler;
class Parameter;
class Returning;
class AcceptStatement;
class AddStatement;
class AlterStatement;
class CallStatement;
class CancelStatement;
class CloseStatement;
class ComputeStatement;
class ContinueStatement;
class DeleteStatement;
class DisplayStatement;
class DivideStatement;
class EntryStatement;
class EvaluateStatement;
class ExecStatement;
class ExamineStatement;
class ExhibitStatement;
class GobackStatement;
class GotoStatement;
class IfStatement;
class InitializeStatement;
class InspectStatement;
class MergeStatement;
class MoveStatement;
class MultiplyStatement;
class OnStatement;
class OpenStatement;
class PerformStatement;
class ReadStatement;
class ReleaseStatement;
class ReturnStatement;
class RewriteStatement;
class RwGenerateStatement;
class OperandStatement;
class RwInitiateStatement;
class RwSuppressStatement;
class RwTerminateStatement;
class SearchStatement;
class SetStatement;
class SortStatement;
class StartStatement;
class StopStatement;
class StringStatement;
class SubtractStatement;
class TransformStatement;
class UnstringStatement;
class UseStatement;
class WriteStatement;
class XMLGenerateStatement;
class XMLParseStatement;

class CheckListener;

/// Checks one compilation. Diagnostics go to the error handler that the checker is made with.
class SemanticChecker {
public:
  /// \p handler receives every diagnostic; it is not null and must outlive the checker.
  explicit SemanticChecker(ErrorHandler *handler);
  ~SemanticChecker();
  SemanticChecker(const SemanticChecker &) = delete;
  SemanticChecker &operator=(const SemanticChecker &) = delete;

  //===--------------------------------------------------------------------===//
  // Reporting
  //===--------------------------------------------------------------------===//

  /// Pushes an error at \p node and returns false, the result of the check that failed. \p text is
  /// for the few messages that take one.
  bool report(ErrorCode code, Node *node, const char *text = nullptr) {
    errorHandler->PushError(code, node, text);
    return false;
  }
  /// The same for two operands that do not fit together; \p other is the one that the message does
  /// not point at.
  bool report(ErrorCode code, Node *node, const Node &other) {
    report(code, node);
    errorHandler->lastEntry().setOtherOperand(&other);
    return false;
  }
  /// The same for \p operand, one of those that \p node, at which the message points, is made of.
  bool reportOperand(ErrorCode code, Node *node, const Node &operand) {
    report(code, node);
    errorHandler->lastEntry().setOperand(&operand);
    return false;
  }
  /// Pushes a warning at \p node. A warning does not fail the check.
  void warn(ErrorCode code, Node *node) { errorHandler->PushWarn(code, node, nullptr); }
  /// The error handler that the checker was made with; never null.
  ErrorHandler *getErrorHandler() const { return errorHandler; }

  /// The listener that receives the result of every part; null, the default, for none.
  CheckListener *getListener() const { return listener; }
  void setListener(CheckListener *newListener) { listener = newListener; }

  //===--------------------------------------------------------------------===//
  // State of the walk
  //===--------------------------------------------------------------------===//

  /// The section whose statements are being checked; null outside of sections.
  Section *getOuterSection() const;
  void setOuterSection(Section *section);

  /// Set while the USE statement of a declarative is checked.
  bool getIsDeclaratives() const;
  void setIsDeclaratives(bool on);

  /// Set while the section of a declarative is checked.
  bool getInDeclaratives() const;
  void setInDeclaratives(bool on);

  /// The report whose description, or whose USE BEFORE REPORTING declarative, is being checked.
  ReportDescription *getCurrentRD() const;
  void setCurrentRD(ReportDescription *report);
  /// Whether \p report is the current report, or there is no current report.
  bool checkCurrentRD(const ReportDescription *report) const;

  /// The report items that have a SOURCE clause. Begin and End may only be asked for when there is
  /// one.
  void addUsedSrc(ReportDataDescription *item);
  NodeList<ReportDataDescription>::iterator getUsedSrcListBegin();
  NodeList<ReportDataDescription>::iterator getUsedSrcListEnd();
  std::size_t getUsedSrcListSize() const;

  /// Remembers an index name that was given a parent.
  void addIndexFreeList(DataDescription *entry);
  /// Removes the parents of those index names. It runs when the compilation has been checked, so
  /// that no later stage takes an index name for a child.
  void freeIndex();

  /// What the rules remember during the compilation, one object for each family that needs it. It
  /// is defined in lib/Analyzer/CheckerState.h, which is not installed.
  struct State;
  State &getState() const { return *state; }

  /// Adds the name of an ENTRY statement, an alphanumeric literal.
  void addEntryName(LiteralExpression *name);
  /// Whether an ENTRY statement with the text of \p name was added; case and spaces count.
  bool findEntryNames(LiteralExpression *name);

  //===--------------------------------------------------------------------===//
  // Programs, divisions and procedures: SemanticChecker.cpp, SCProcedureDivision.cpp,
  // SCDeclaratives.cpp
  //===--------------------------------------------------------------------===//

  /// Checks one compilation. The analysis begins here.
  bool semanticCheck(Program &program);
  /// Checks a program and the programs nested in it.
  bool semanticCheck(SourceUnit &unit);
  /// Makes the program \p name callable from \p unit and everything nested in it.
  bool setCallableSource(SourceUnit &unit, std::string name);
  /// Checks the sections of the division in the order of the source.
  bool semanticCheck(DataDivision &division);
  /// Checks USING and RETURNING, the declaratives, then the procedures; reports UsingItem... and
  /// ReturningInNestedProgram.
  bool semanticCheck(ProcedureDivision &division);
  /// Checks a USE statement and the section that it belongs to.
  bool semanticCheck(Declaratives &declarative);
  /// Binds the files, procedures or the report group of a USE statement; reports the Use...
  /// diagnostics.
  bool semanticCheck(UseStatement &use);
  /// Checks the priority number (PriorityNumberRange) and everything in the section.
  bool semanticCheck(Section &section);
  /// Checks the sentences of a paragraph. \p section is the one around it, null outside of
  /// sections.
  bool semanticCheck(Paragraph &paragraph, Section *section);
  /// Checks the statements of a sentence. \p section is the one around it, null outside of
  /// sections.
  bool semanticCheck(Sentence &sentence, Section *section);
  /// The item of RETURNING; reports UsingItemNotLinkageRecord.
  bool semanticCheck(Returning &returning);

  //===--------------------------------------------------------------------===//
  // Special registers: SpecialRegisters.cpp
  //===--------------------------------------------------------------------===//

  /// Appends an entry for every special register to \p list and remembers XML-TEXT.
  void createSpecialRegister(std::list<DataDescription *> *list);

  //===--------------------------------------------------------------------===//
  // Environment division: Environment/SC*.cpp
  //===--------------------------------------------------------------------===//

  /// Checks the sections of the division, each if present.
  bool semanticCheck(EnvironmentDivision &division);
  /// SOURCE-COMPUTER has no rules: always true.
  bool semanticCheck(ParaSourceComputer &paragraph);
  /// MEMORY SIZE, the collating sequence, SEGMENT-LIMIT.
  bool semanticCheck(ParaObjectComputer &paragraph);
  /// The clauses of SPECIAL-NAMES, and that mnemonic and alphabet names are unique.
  bool semanticCheck(ParaSpecialNames &paragraph);
  /// A SELECT entry: each of its clauses, and PASSWORD.
  bool semanticCheck(ParaFileControl &entry);
  /// An I-O-CONTROL entry: each of its clauses.
  bool semanticCheck(ParaIOControl &entry);

  // Each of these checks one clause or phrase of SPECIAL-NAMES.

  /// The environment name, and the conditions of a UPSI switch.
  bool checkClauseEnvName(ClauseEnvName &clause);
  /// A literal of ALPHABET: unsigned integer, plain alphanumeric literal or figurative constant.
  bool checkLiteralValue(LiteralExpression *literal);
  /// ALPHABET; fills in the collating table of the clause.
  bool checkClauseAlphabet(ClauseAlphabet &clause);
  /// One list of SYMBOLIC CHARACTERS: as many integers as names.
  bool checkPhraseSymbolic(PhrsSymbolic &phrase);
  /// The lists of SYMBOLIC CHARACTERS, and the alphabet that they refer to.
  bool checkClauseSymbolic(ClauseSymbolic &clause);
  /// One literal or range of CLASS.
  bool checkPhraseClass(PhrsClass &phrase);
  /// The literals and ranges of CLASS.
  bool checkClauseClass(ClauseClass &clause);
  /// CURRENCY SIGN; reports CurrencySignNotSingleCharacter and CurrencySignInvalidCharacter.
  bool checkClauseCurrency(ClauseCurrency &clause);

  // Each of these checks one clause of a FILE-CONTROL entry, which the entry must have.

  /// ASSIGN has no rules: always true.
  bool checkClauseAssign(ParaFileControl &entry);
  /// RESERVE: the number is an integer.
  bool checkClauseReserve(ParaFileControl &entry);
  /// ORGANIZATION has no rules: always true.
  bool checkClauseOrganization(ParaFileControl &entry);
  /// PADDING CHARACTER: one character, and an item outside the file section.
  bool checkClausePadding(ParaFileControl &entry);
  /// RECORD DELIMITER has no rules: always true.
  bool checkClauseRecordDelimiter(ParaFileControl &entry);
  /// ACCESS MODE has no rules: always true.
  bool checkClauseAccess(ParaFileControl &entry);
  /// FILE STATUS; reports the FileStatus... diagnostics.
  bool checkClauseStatus(ParaFileControl &entry);
  /// RECORD KEY with its PASSWORD. The key must be an item of the file section.
  bool checkClauseRecordKey(ParaFileControl &entry);
  /// RELATIVE KEY: an unsigned integer.
  bool checkClauseRelativeKey(ParaFileControl &entry);
  /// Binds the names of the ALTERNATE RECORD KEY clauses, with their PASSWORDs.
  bool checkClauseAlternateList(ParaFileControl &entry);

  // Each of these checks one clause of an I-O-CONTROL entry, which the entry must have.

  /// RERUN: the file that it counts is sequential.
  bool checkClauseRerun(ParaIOControl &entry);
  /// SAME AREA, SAME RECORD AREA, SAME SORT AREA.
  bool checkClauseSame(ParaIOControl &entry);
  /// MULTIPLE FILE TAPE: names of files.
  bool checkClauseMultipleFile(ParaIOControl &entry);
  /// APPLY WRITE-ONLY: names of sequential files.
  bool checkClauseApplyWriteOnly(ParaIOControl &entry);

  //===--------------------------------------------------------------------===//
  // Data description entries: Data/SCData*.cpp
  //===--------------------------------------------------------------------===//

  /// Checks one entry and everything below it.
  bool semanticCheck(DataDescription &entry);
  /// The level number, and the clauses that levels 66 and 88 can have; reports the Level...
  /// diagnostics.
  bool checkLevelNumber(DataDescription &entry);
  /// Moves the condition names among the children of \p entry to a list of their own.
  bool check88LevelDataDescription(DataDescription &entry);

  // From here on each checks one clause, which the entry must have.

  /// BLANK WHEN ZERO; reports the BlankZero... diagnostics.
  bool checkClauseBlank(DataDescription &entry);
  /// EXTERNAL; reports the External... diagnostics.
  bool checkClauseExternal(DataDescription &entry);
  /// GLOBAL, which the items directly below inherit; reports the Global... diagnostics.
  bool checkClauseGlobal(DataDescription &entry);
  /// JUSTIFIED; reports the Justified... diagnostics.
  bool checkClauseJustified(DataDescription &entry);
  /// Passes the USAGE of a group on to the entries directly below it; reports
  /// UsageDiffersFromGroup.
  bool checkClauseGroupUsage(DataDescription &entry);
  /// USAGE of an elementary item; reports the Usage... diagnostics.
  bool checkClauseUsage(DataDescription &entry);

  /// The character string, its length, and whether it fits the usage: PictureStringInvalid,
  /// PictureTooManyDigits, PictureEditedTooLong, PictureUsageMismatch and others.
  bool checkClausePicture(DataDescription &entry);
  /// Applies one CURRENCY SIGN clause to a picture; true when the picture uses its symbol.
  bool convertCurrencyString(ClausePicture *picture, ClauseCurrency *currency);
  /// True when \p symbol may be a currency symbol; diagnostics point at \p literal.
  bool checkValidString(char symbol, Expression *literal);

  /// The level, the numbers of occurrences, the object of DEPENDING ON and the keys; reports the
  /// Occurs... diagnostics.
  bool checkClauseOccurs(DataDescription &entry);

  /// Reports SynchronizedUsage for an item that cannot be aligned.
  bool checkClauseSynchronized(DataDescription &entry);
  /// The boundary in bytes that SYNCHRONIZED requires; 0 for a usage that cannot be aligned.
  int getSlackDivisor(DataDescription *entry);
  /// The entry that fills up to the boundary of \p item from \p offset; null when none is needed.
  DataDescription *createSlackBytes(DataDescription *item, std::int64_t offset);
  /// The boundary that one occurrence of a table needs.
  int getMaxOccursSyncSize(DataDescription *group);
  /// Fills the occurrences of a table up to that boundary.
  bool addOccursSlackBytes(DataDescription &entry);
  /// Adds the sizes of the elementary items below \p node and before \p target to \p bytes; true
  /// when \p target was met.
  bool getSyncAllocBytes(DataDescription *node, int *bytes, DataDescription *target);

  /// The values of an item, a group or a condition-name; reports ValueDoesNotFitPicture, the
  /// GroupValue... diagnostics and others.
  bool checkClauseValue(DataDescription &entry);
  /// The values of a clause that belongs to no entry: symbolic characters become literals, and
  /// every literal is checked.
  bool checkClauseValue(ClauseValue *clause);
  /// The rules for the items below a group with VALUE.
  bool checkGroupValue(DataDescription *subordinate);
  /// Checks the initial value of \p entry against its category and size, and notes that the entry
  /// and the groups around it have one.
  bool checkLiteralValue(DataDescription *entry, LiteralExpression *literal);
  /// Pointers may only be NULL, and nothing else may.
  bool checkHaveNullValue(const DataDescription *entry, LiteralExpression *literal);
  /// The figurative constant that a symbolic character stands for; null, with a diagnostic, when
  /// \p name is not a symbolic character.
  LiteralExpression *convertSymbolicValue(Word *name);
  /// Records that an entry without VALUE still gets an initial value.
  bool checkInitSpace(DataDescription &entry);

  /// Binds the names of RENAMES and checks their range; reports the Renames... diagnostics.
  bool checkClauseRenames(DataDescription &entry);
  /// An item at one end of the range of RENAMES: its level, and that it is not in a table.
  bool checkDataRenames(DataDescription *renamed);
  /// The SIGN clause of an item, or of a group, whose items inherit it; reports the Sign...
  /// diagnostics.
  bool checkClauseSign(DataDescription &entry);
  /// Gives \p inherited, the SIGN of a group, to the items at and below \p item that have none of
  /// their own, or checks the item's own clause when it is null. True when an item can have the
  /// clause.
  bool checkSignElement(DataDescription *item, ClauseSign *inherited);

  /// Links the entry with the one that it redefines; reports the Redefines... diagnostics. The
  /// spelling of the name is part of the interface.
  bool checkClauseRedifines(DataDescription &entry);
  /// Decodes the pattern of DATE FORMAT; without date processing the clause is removed.
  bool checkClauseDateFormat(DataDescription &entry);

  //===--------------------------------------------------------------------===//
  // File description entries: Data/SCFileDescription.cpp
  //===--------------------------------------------------------------------===//

  /// Checks an FD or SD entry with its records.
  bool semanticCheck(FileDescription &file);
  // Each of these checks one clause, which the entry must have.

  /// GLOBAL, which the records of the file inherit.
  bool checkClauseGlobalFile(FileDescription &file);
  /// EXTERNAL has no rules: always true.
  bool checkClauseExternalFile(FileDescription &file);
  /// BLOCK CONTAINS; reports BlockContainsNotNonzeroUnsigned.
  bool checkClauseBlock(FileDescription &file);
  /// RECORD CONTAINS and RECORD VARYING; reports the Record... diagnostics.
  bool checkClauseRecord(FileDescription &file);
  /// LABEL RECORDS; reports LabelNotDataItem.
  bool checkClauseLabel(FileDescription &file);
  /// VALUE OF; reports the ValueOf... diagnostics.
  bool checkClauseValueOf(FileDescription &file);
  /// DATA RECORDS has no rules: always true.
  bool checkClauseDataRecord(FileDescription &file);
  /// LINAGE; reports the Linage... diagnostics.
  bool checkClauseLinage(FileDescription &file);
  /// RECORDING MODE by itself has no rules: always true.
  bool checkClauseRecordingMode(FileDescription &file);
  /// CODE-SET: the alphabet is defined.
  bool checkClauseCodeSet(FileDescription &file);
  /// REPORT; links each report with the file.
  bool checkClauseReport(FileDescription &file);
  /// Whether an operand of LINAGE is an unsigned integer; reports LinageNotUnsigned and
  /// LinageNotInteger. The spelling of the name is part of the interface.
  bool checkUnsigendInteger(Expression *expression);
  /// Adjusts the record lengths of \p file to \p record, which has a variable length.
  void determineRecordingModeV(DataDescription &record, FileDescription &file);

  //===--------------------------------------------------------------------===//
  // Report description entries: Report/SCReport*.cpp
  //===--------------------------------------------------------------------===//

  /// Checks one RD entry and its report groups.
  bool semanticCheck(ReportDescription &report);

  //===--------------------------------------------------------------------===//
  // Operands: SCExpr.cpp, SCLiteral.cpp, SCFunction.cpp
  //===--------------------------------------------------------------------===//

  /// Checks an operand of any kind and binds its names.
  bool semanticCheck(Expression &expression);
  /// Checks a literal of any kind.
  bool semanticCheck(LiteralExpression &literal);
  /// Checks an identifier of any kind and binds its names.
  bool semanticCheck(IdentifierExpression &identifier);
  /// Binds a data reference to its entry. \p silentIfUndefined: a name that is not found is no
  /// error, the caller decides. \p preferReportItem: of an item of the report section and another
  /// of the same name the former is meant.
  bool semanticCheck(DataIdentifierExpression &identifier, bool silentIfUndefined = false,
                     bool preferReportItem = false);
  /// The subscripts of a reference: which operands they can be, and that only a table has them.
  bool checkSubscriptModifier(DataIdentifierExpression &identifier);
  /// The reference modifier of a data item or function.
  bool checkReferenceModifier(Expression &expression);
  /// Notes how a report declarative uses the item.
  bool checkDataAccessWayForRptDecl(DataIdentifierExpression &identifier);
  /// True when the SOURCE of \p item is subscripted by \p entry.
  bool findUsedSrc(DataDescription *entry, ReportDataDescription *item);
  /// Makes the MOVE of \p source to the report item \p target that no statement writes.
  void addDummyStmtForReportDeclaratives(DataIdentifierExpression *source, DataDescription *target);

  /// The number of digits, and the exponent of a floating-point literal.
  bool semanticCheck(NumericLiteralExpression &literal);
  /// The digits of a hexadecimal literal.
  bool semanticCheck(NonNumericLiteralExpression &literal);
  /// Resolves symbolic characters and ALL literal; reports the All... diagnostics.
  bool semanticCheck(FigurativeLiteralExpression &literal);

  /// An intrinsic function with its arguments and reference modifier.
  bool semanticCheck(FunctionIdentifierExpression &function);
  /// The rules for the arguments of particular functions; today those of NUMVAL.
  bool checkAllowArgument(FunctionIdentifierExpression &function);
  /// The arguments of NUMVAL, which cannot be numbers.
  bool checkFunctionNumval(FunctionIdentifierExpression &function);

  /// Binds a file-name to its description.
  bool semanticCheck(FileIdentifierExpression &file);
  /// Binds a special register to its entry, with its operand where it has one.
  bool semanticCheck(SpecialRegisterIdentifierExpression &specialRegister);
  /// Binds the name of a report.
  bool semanticCheck(ReportIdentifierExpression &identifier);
  /// The report of that name: one of the current source unit, or a GLOBAL one of a unit around it;
  /// null when there is none.
  ReportDescription *findReport(const std::string &name);

  /// Checks the operands of an arithmetic expression, whose values must be numbers.
  bool semanticCheck(ArithmeticExpression &expression);
  /// Checks the operands of an abbreviated combined relation.
  bool semanticCheck(AbbrRelationCombinedExpression &expression);

  //===--------------------------------------------------------------------===//
  // Conditions: SCCondition.cpp
  //===--------------------------------------------------------------------===//

  /// Checks a condition of any kind and binds its names.
  bool semanticCheck(Condition &condition);
  /// A condition-name with its subscripts.
  bool semanticCheck(ConditionNameCondition &condition);
  /// Binds the name of a UPSI switch condition.
  bool semanticCheck(SwitchCondition &condition);
  /// Checks both operands and whether they can be compared.
  bool semanticCheck(RelationalCondition &condition);
  /// Checks the operand and binds a class-name to its definition in SPECIAL-NAMES.
  bool semanticCheck(ClassCondition &condition);
  /// Checks the operand, which must be a number.
  bool semanticCheck(SignCondition &condition);
  /// Checks the condition after NOT.
  bool semanticCheck(NegatedCondition &condition);
  /// Checks the conditions that AND and OR combine, in the order of the source.
  bool semanticCheck(CombinedCondition &condition);
  /// Checks the comparisons that an abbreviated condition stands for.
  bool semanticCheck(AbbrRelationalCondition &condition);
  /// Whether the categories of two bound operands can be compared with \p relation. The spelling of
  /// the name is part of the interface.
  bool checkCompareable(Expression *left, Expression *right, RelationalConditionType relation);
  /// Marks a figurative constant that is compared with a national operand as national; always true.
  bool checkNationalCmpFiguExpr(Expression *left, Expression *right);
  /// True when two groups have the same shape and elementary items of the same kinds and sizes.
  bool checkSameGroup(DataDescription *left, DataDescription *right);

  //===--------------------------------------------------------------------===//
  // Statements: SCStmt*.cpp
  //===--------------------------------------------------------------------===//

  /// Checks a statement of any kind.
  bool semanticCheck(Statement &statement);
  /// Checks the imperative statements of a phrase such as ON SIZE ERROR.
  bool semanticCheck(ExceptionHandler &handler);

  /// How a MOVE of a sender to \p receiver is done; MoveRule::Illegal, with a diagnostic, when it
  /// may not be.
  MoveRule getMoveRule(DataCategory sender, IdentifierExpression *receiver);
  MoveRule getMoveRule(Expression *sender, IdentifierExpression *receiver);

  // One function for each kind of statement, called by the one above.

  /// ACCEPT; the mnemonic-name after FROM is replaced by its device. Reports the Accept...
  /// diagnostics.
  bool semanticCheck(AcceptStatement &statement);
  /// ADD in all three formats: numeric operands, receivers that are items, CORRESPONDING.
  bool semanticCheck(AddStatement &statement);
  /// ALTER. Always false: a program whose branches change at run time must not reach later stages.
  bool semanticCheck(AlterStatement &statement);
  /// CALL: the name, the arguments, the parameters of a called program of the compilation. Reports
  /// the Call... diagnostics.
  bool semanticCheck(CallStatement &statement);
  /// CANCEL; reports the Cancel... diagnostics.
  bool semanticCheck(CancelStatement &statement);
  /// CLOSE: binds the files.
  bool semanticCheck(CloseStatement &statement);
  /// COMPUTE: the expression, and receivers that are numbers.
  bool semanticCheck(ComputeStatement &statement);
  /// CONTINUE has no operands: always true.
  bool semanticCheck(ContinueStatement &statement);
  /// DELETE: binds the file; the phrases.
  bool semanticCheck(DeleteStatement &statement);
  /// DISPLAY; the mnemonic-name after UPON is replaced by its device. Reports the Display...
  /// diagnostics.
  bool semanticCheck(DisplayStatement &statement);
  /// DIVIDE in all formats, with REMAINDER.
  bool semanticCheck(DivideStatement &statement);
  /// ENTRY; reports the Entry... and UsingItem... diagnostics.
  bool semanticCheck(EntryStatement &statement);
  /// EVALUATE: subjects and objects, and that they can be compared.
  bool semanticCheck(EvaluateStatement &statement);
  /// Binds the operands of the block's command. Reports nothing.
  bool semanticCheck(ExecStatement &statement);
  /// EXAMINE, whose count goes to TALLY.
  bool semanticCheck(ExamineStatement &statement);
  /// EXHIBIT, which is converted to DISPLAY, IF and MOVE statements.
  bool semanticCheck(ExhibitStatement &statement);
  /// GOBACK has no operands: always true.
  bool semanticCheck(GobackStatement &statement);
  /// GO TO: resolves the procedure-names; the item of DEPENDING ON.
  bool semanticCheck(GotoStatement &statement);
  /// IF: the condition and both branches.
  bool semanticCheck(IfStatement &statement);
  /// INITIALIZE; reports the Initialize... diagnostics.
  bool semanticCheck(InitializeStatement &statement);
  /// INSPECT; reports the Inspect... diagnostics.
  bool semanticCheck(InspectStatement &statement);
  /// MERGE: the files, the keys, the output procedure. Reports the Sort... diagnostics.
  bool semanticCheck(MergeStatement &statement);
  /// MOVE: records the MoveRule of each receiver; reports the Move... diagnostics.
  bool semanticCheck(MoveStatement &statement);
  /// MULTIPLY in both formats.
  bool semanticCheck(MultiplyStatement &statement);
  /// ON, which is converted to a counter and a condition.
  bool semanticCheck(OnStatement &statement);
  /// OPEN; reports the Open... diagnostics.
  bool semanticCheck(OpenStatement &statement);
  /// PERFORM: resolves the procedure-names; TIMES, UNTIL, VARYING; the statements in the body.
  bool semanticCheck(PerformStatement &statement);
  /// READ: binds the file; INTO, KEY, the phrases.
  bool semanticCheck(ReadStatement &statement);
  /// RELEASE: a record of a sort file; FROM.
  bool semanticCheck(ReleaseStatement &statement);
  /// RETURN: binds the sort file; INTO, the phrases.
  bool semanticCheck(ReturnStatement &statement);
  /// REWRITE: binds the record; FROM, the phrases.
  bool semanticCheck(RewriteStatement &statement);
  /// GENERATE: binds the report or its detail group.
  bool semanticCheck(RwGenerateStatement &statement);
  /// INITIATE: binds the reports.
  bool semanticCheck(RwInitiateStatement &statement);
  /// SUPPRESS, which must be in a procedure of USE BEFORE REPORTING.
  bool semanticCheck(RwSuppressStatement &statement);
  /// TERMINATE: binds the reports.
  bool semanticCheck(RwTerminateStatement &statement);
  /// SEARCH and SEARCH ALL; reports the Search... diagnostics.
  bool semanticCheck(SearchStatement &statement);
  /// SET in all formats; reports the Set... diagnostics.
  bool semanticCheck(SetStatement &statement);
  /// SORT: the files, the keys, the procedures. Reports the Sort... diagnostics.
  bool semanticCheck(SortStatement &statement);
  /// START: binds the file; KEY, the phrases.
  bool semanticCheck(StartStatement &statement);
  /// STOP; reports StopLiteralKind.
  bool semanticCheck(StopStatement &statement);
  /// STRING; reports the String... diagnostics.
  bool semanticCheck(StringStatement &statement);
  /// SUBTRACT in all three formats, CORRESPONDING included.
  bool semanticCheck(SubtractStatement &statement);
  /// TRANSFORM, which is converted to INSPECT.
  bool semanticCheck(TransformStatement &statement);
  /// Binds the names of a statement that has no rules of its own.
  bool semanticCheck(OperandStatement &statement);
  /// UNSTRING; reports the Unstring... diagnostics.
  bool semanticCheck(UnstringStatement &statement);
  /// WRITE: binds the record; FROM, ADVANCING, the phrases. Reports the Write... diagnostics.
  bool semanticCheck(WriteStatement &statement);
  /// XML GENERATE: the receiver, the source and the phrases.
  bool semanticCheck(XMLGenerateStatement &statement);
  /// XML PARSE: resolves the processing procedure; enlarges XML-TEXT to the document.
  bool semanticCheck(XMLParseStatement &statement);

  /// A USING item of ENTRY.
  bool semanticCheck(Parameter *parameter);

  /// The section that \p name means, or null; a name that no section has is not an error.
  /// \p statement is the referring statement, which may be null.
  Section *findSectionFromQualWord(QualifiedWord *name, Statement *statement);
  /// The paragraph that \p name means; null, with a diagnostic, when there is none.
  Paragraph *findParagraphFromQualWord(QualifiedWord *name, Statement *statement);

private:
  ErrorHandler *errorHandler;
  CheckListener *listener = nullptr;
  std::unique_ptr<State> state;
};

} // namespace tarka

#endif // TARKA_ANALYZER_SEMANTICCHECKER_H
