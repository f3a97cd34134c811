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
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/SmallVector.h"
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
  /// Pushes a warning at \p node. A warning does not fail the check.
  void warn(ErrorCode code, Node *node) { errorHandler->PushWarn(code, node, nullptr); }
  ErrorHandler *getErrorHandler() const { return errorHandler; }

  /// The listener that receives the result of every part; null, the default, for none.
  CheckListener *getListener() const { return listener; }
  void setListener(CheckListener *newListener) { listener = newListener; }

  //===--------------------------------------------------------------------===//
  // State of the walk
  //===--------------------------------------------------------------------===//

  /// The section whose statements are being checked, or null.
  Section *getOuterSection() const { return outerSection; }
  void setOuterSection(Section *section) { outerSection = section; }

  /// Set while the USE statement of a declarative is checked.
  bool getIsDeclaratives() const { return isDeclaratives; }
  void setIsDeclaratives(bool on) { isDeclaratives = on; }

  /// Set while the section of a declarative is checked.
  bool getInDeclaratives() const { return inDeclaratives; }
  void setInDeclaratives(bool on) { inDeclaratives = on; }

  /// The report whose description, or whose USE BEFORE REPORTING declarative, is being checked.
  ReportDescription *getCurrentRD() const { return currentRD; }
  void setCurrentRD(ReportDescription *report) { currentRD = report; }
  /// True when \p report is the current report, or there is none.
  bool checkCurrentRD(const ReportDescription *report) const {
    return !currentRD || currentRD == report;
  }

  /// The report items that have a SOURCE clause. Begin and End may only be asked for when there is
  /// one.
  void addUsedSrc(ReportDataDescription *item);
  std::list<ReportDataDescription *>::iterator getUsedSrcListBegin();
  std::list<ReportDataDescription *>::iterator getUsedSrcListEnd();
  std::size_t getUsedSrcListSize() const { return usedSrcList ? usedSrcList->size() : 0; }

  /// The largest item, in bytes, that an XML PARSE of the current source unit reads; 1 when there
  /// is no such statement.
  std::uint64_t getXmlTextSize() const { return xmlTextSize; }
  void setXmlTextSize(std::uint64_t bytes) { xmlTextSize = bytes; }
  /// The XML-TEXT register of the current source unit; null when it has none of its own.
  DataDescription *getXmlTextRegister() const { return xmlTextRegister; }
  void setXmlTextRegister(DataDescription *entry) { xmlTextRegister = entry; }

  /// Notes an index name that was given a parent; freeIndex() takes the parents away again when
  /// the program has been checked, so that no later stage takes the entry for a child.
  void addIndexFreeList(DataDescription *entry);
  void freeIndex();

  /// What the rules remember across the compilation, one object for each family that needs it.
  /// Only the library sees inside: lib/Analyzer/CheckerState.h.
  struct State;
  State &getState() const { return *state; }

  /// The names of the ENTRY statements met so far. Names are the same when their texts are.
  void addEntryName(LiteralExpression *name);
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
  bool semanticCheck(DataDivision &division);
  bool semanticCheck(ProcedureDivision &division);
  bool semanticCheck(Declaratives &declarative);
  bool semanticCheck(UseStatement &use);
  bool semanticCheck(Section &section);
  /// \p section is the one around the paragraph or sentence, null outside of sections.
  bool semanticCheck(Paragraph &paragraph, Section *section);
  bool semanticCheck(Sentence &sentence, Section *section);
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
  bool semanticCheck(ParaSourceComputer &paragraph);
  bool semanticCheck(ParaObjectComputer &paragraph);
  bool semanticCheck(ParaSpecialNames &paragraph);
  bool semanticCheck(ParaFileControl &entry);
  bool semanticCheck(ParaIOControl &entry);

  // Each of these checks one clause or phrase of SPECIAL-NAMES.
  bool checkClauseEnvName(ClauseEnvName &clause);
  /// A literal of ALPHABET: unsigned integer, plain alphanumeric literal or figurative constant.
  bool checkLiteralValue(LiteralExpression *literal);
  bool checkClauseAlphabet(ClauseAlphabet &clause);
  bool checkPhraseSymbolic(PhrsSymbolic &phrase);
  bool checkClauseSymbolic(ClauseSymbolic &clause);
  bool checkPhraseClass(PhrsClass &phrase);
  bool checkClauseClass(ClauseClass &clause);
  bool checkClauseCurrency(ClauseCurrency &clause);

  // Each of these checks one clause of a FILE-CONTROL entry, which the entry must have.
  bool checkClauseAssign(ParaFileControl &entry);
  bool checkClauseReserve(ParaFileControl &entry);
  bool checkClauseOrganization(ParaFileControl &entry);
  bool checkClausePadding(ParaFileControl &entry);
  bool checkClauseRecordDelimiter(ParaFileControl &entry);
  bool checkClauseAccess(ParaFileControl &entry);
  bool checkClauseStatus(ParaFileControl &entry);
  bool checkClauseRecordKey(ParaFileControl &entry);
  bool checkClauseRelativeKey(ParaFileControl &entry);
  bool checkClauseAlternateList(ParaFileControl &entry);

  // Each of these checks one clause of an I-O-CONTROL entry, which the entry must have.
  bool checkClauseRerun(ParaIOControl &entry);
  bool checkClauseSame(ParaIOControl &entry);
  bool checkClauseMultipleFile(ParaIOControl &entry);
  bool checkClauseApplyWriteOnly(ParaIOControl &entry);

  //===--------------------------------------------------------------------===//
  // Data description entries: Data/SCData*.cpp
  //===--------------------------------------------------------------------===//

  /// Checks one entry and everything below it.
  bool semanticCheck(DataDescription &entry);
  bool checkLevelNumber(DataDescription &entry);
  /// Moves the condition names among the children of \p entry to a list of their own.
  bool check88LevelDataDescription(DataDescription &entry);
  // From here on each checks one clause, which the entry must have.
  bool checkClauseBlank(DataDescription &entry);
  bool checkClauseExternal(DataDescription &entry);
  bool checkClauseGlobal(DataDescription &entry);
  bool checkClauseJustified(DataDescription &entry);
  bool checkClauseGroupUsage(DataDescription &entry);
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
  bool checkDataRenames(DataDescription *renamed);
  bool checkClauseSign(DataDescription &entry);
  bool checkSignElement(DataDescription *item, ClauseSign *inherited);

  /// Links the entry with the one that it redefines; reports the Redefines... diagnostics.
  bool checkClauseRedifines(DataDescription &entry);
  bool checkClauseDateFormat(DataDescription &entry);

  //===--------------------------------------------------------------------===//
  // File description entries: Data/SCFileDescription.cpp
  //===--------------------------------------------------------------------===//

  /// Checks an FD or SD entry with its records.
  bool semanticCheck(FileDescription &file);
  // Each of these checks one clause, which the entry must have.
  bool checkClauseGlobalFile(FileDescription &file);
  bool checkClauseExternalFile(FileDescription &file);
  bool checkClauseBlock(FileDescription &file);
  bool checkClauseRecord(FileDescription &file);
  bool checkClauseLabel(FileDescription &file);
  bool checkClauseValueOf(FileDescription &file);
  bool checkClauseDataRecord(FileDescription &file);
  bool checkClauseLinage(FileDescription &file);
  bool checkClauseRecordingMode(FileDescription &file);
  bool checkClauseCodeSet(FileDescription &file);
  bool checkClauseReport(FileDescription &file);
  bool checkUnsigendInteger(Expression *expression);
  /// Widens the record lengths of \p file for a record of variable length.
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
  bool semanticCheck(LiteralExpression &literal);
  bool semanticCheck(IdentifierExpression &identifier);
  /// Binds a data reference to its entry. \p silentIfUndefined: a name that is not found is no
  /// error, the caller decides. \p preferReportItem: of an item of the report section and another
  /// of the same name the former is meant.
  bool semanticCheck(DataIdentifierExpression &identifier, bool silentIfUndefined = false,
                     bool preferReportItem = false);
  bool checkSubscriptModifier(DataIdentifierExpression &identifier);
  bool checkReferenceModifier(Expression &expression);
  /// Notes how a report declarative uses the item.
  bool checkDataAccessWayForRptDecl(DataIdentifierExpression &identifier);
  /// True when the SOURCE of \p item is subscripted by \p entry.
  bool findUsedSrc(DataDescription *entry, ReportDataDescription *item);
  /// Makes the MOVE of \p source to the report item \p target that no statement writes.
  void addDummyStmtForReportDeclaratives(DataIdentifierExpression *source, DataDescription *target);

  bool semanticCheck(NumericLiteralExpression &literal);
  bool semanticCheck(NonNumericLiteralExpression &literal);
  bool semanticCheck(FigurativeLiteralExpression &literal);

  bool semanticCheck(FunctionIdentifierExpression &function);
  bool checkAllowArgument(FunctionIdentifierExpression &function);
  bool checkFunctionNumval(FunctionIdentifierExpression &function);

  bool semanticCheck(FileIdentifierExpression &file);
  bool semanticCheck(SpecialRegisterIdentifierExpression &specialRegister);
  bool semanticCheck(ReportIdentifierExpression &identifier);
  /// The report of that name: one of the current source unit, or a GLOBAL one of a unit around it;
  /// null when there is none.
  ReportDescription *findReport(const std::string &name);

  bool semanticCheck(ArithmeticExpression &expression);
  bool semanticCheck(AbbrRelationCombinedExpression &expression);

  //===--------------------------------------------------------------------===//
  // Conditions: SCCondition.cpp
  //===--------------------------------------------------------------------===//

  /// Checks a condition of any kind and binds its names.
  bool semanticCheck(Condition &condition);
  bool semanticCheck(ConditionNameCondition &condition);
  bool semanticCheck(SwitchCondition &condition);
  bool semanticCheck(RelationalCondition &condition);
  bool semanticCheck(ClassCondition &condition);
  bool semanticCheck(SignCondition &condition);
  bool semanticCheck(NegatedCondition &condition);
  bool semanticCheck(CombinedCondition &condition);
  bool semanticCheck(AbbrRelationalCondition &condition);
  bool checkCompareable(Expression *left, Expression *right, RelationalConditionType relation);
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
  bool semanticCheck(AcceptStatement &statement);
  bool semanticCheck(AddStatement &statement);
  bool semanticCheck(AlterStatement &statement);
  bool semanticCheck(CallStatement &statement);
  bool semanticCheck(CancelStatement &statement);
  bool semanticCheck(CloseStatement &statement);
  bool semanticCheck(ComputeStatement &statement);
  bool semanticCheck(ContinueStatement &statement);
  bool semanticCheck(DeleteStatement &statement);
  bool semanticCheck(DisplayStatement &statement);
  bool semanticCheck(DivideStatement &statement);
  bool semanticCheck(EntryStatement &statement);
  bool semanticCheck(EvaluateStatement &statement);
  /// Binds the operands of the block's command. Reports nothing.
  bool semanticCheck(ExecStatement &statement);
  bool semanticCheck(ExamineStatement &statement);
  bool semanticCheck(ExhibitStatement &statement);
  bool semanticCheck(GobackStatement &statement);
  bool semanticCheck(GotoStatement &statement);
  bool semanticCheck(IfStatement &statement);
  bool semanticCheck(InitializeStatement &statement);
  bool semanticCheck(InspectStatement &statement);
  bool semanticCheck(MergeStatement &statement);
  bool semanticCheck(MoveStatement &statement);
  bool semanticCheck(MultiplyStatement &statement);
  bool semanticCheck(OnStatement &statement);
  bool semanticCheck(OpenStatement &statement);
  bool semanticCheck(PerformStatement &statement);
  bool semanticCheck(ReadStatement &statement);
  bool semanticCheck(ReleaseStatement &statement);
  bool semanticCheck(ReturnStatement &statement);
  bool semanticCheck(RewriteStatement &statement);
  bool semanticCheck(RwGenerateStatement &statement);
  bool semanticCheck(RwInitiateStatement &statement);
  bool semanticCheck(RwSuppressStatement &statement);
  bool semanticCheck(RwTerminateStatement &statement);
  bool semanticCheck(SearchStatement &statement);
  bool semanticCheck(SetStatement &statement);
  bool semanticCheck(SortStatement &statement);
  bool semanticCheck(StartStatement &statement);
  bool semanticCheck(StopStatement &statement);
  bool semanticCheck(StringStatement &statement);
  bool semanticCheck(SubtractStatement &statement);
  bool semanticCheck(TransformStatement &statement);
  bool semanticCheck(UnstringStatement &statement);
  bool semanticCheck(WriteStatement &statement);
  bool semanticCheck(XMLGenerateStatement &statement);
  bool semanticCheck(XMLParseStatement &statement);

  /// A USING item of ENTRY.
  bool semanticCheck(Parameter *parameter);

  /// The section that \p name means, or null; a name that no section has is not an error.
  /// \p statement is the referring statement, which may be null.
  Section *findSectionFromQualWord(QualifiedWord *name, Statement *statement);
  /// The paragraph that \p name means; null, with a diagnostic, when there is none.
  Paragraph *findParagraphFromQualWord(QualifiedWord *name, Statement *statement);

private:
  std::list<LiteralExpression *> *entryNames = nullptr;
  ErrorHandler *errorHandler;
  CheckListener *listener = nullptr;
  std::list<DataDescription *> *indexFreeList = nullptr;
  Section *outerSection = nullptr;
  bool isDeclaratives = false;
  bool inDeclaratives = false;
  ReportDescription *currentRD = nullptr;
  std::list<ReportDataDescription *> *usedSrcList = nullptr;
  std::uint64_t xmlTextSize = 1;
  DataDescription *xmlTextRegister = nullptr;
  std::unique_ptr<State> state;
};

} // namespace tarka

#endif // TARKA_ANALYZER_SEMANTICCHECKER_H
