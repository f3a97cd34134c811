//===- Parser.h - the recursive-descent parser ------------------*- C++ -*-===//
//
// One class, its functions in one file for each division and, within the
// procedure division, for each family of statements.
//
// The conventions for results are in ParseResult.h, error recovery is in
// Recovery.h. A node's place runs from its first token to its last: take
// `begin = here()` before the first token and make the node with
// `make<...>(begin, ...)` after the last.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_PARSER_H
#define TARKA_LIB_PARSE_PARSER_H

#include "AST/Condition.h"
#include "AST/Environment.h"
#include "AST/Expression.h"
#include "AST/FileDescription.h"
#include "AST/Program.h"
#include "AST/ReportDescription.h"
#include "AST/Statement.h"
#include "Parse/Diagnostics.h"
#include "Parse/ParseOptions.h"
#include "Parse/ParseResult.h"
#include "Parse/Preprocessor.h"
#include "Parse/Recovery.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include <algorithm>
#include <array>
#include <bitset>
#include <functional>
#include <initializer_list>
#include <optional>

namespace tarka {

/// The clauses of one kind of entry or paragraph: for the messages about them, and for the place
/// to go on at after a mistake.
struct ClauseSet {
  llvm::StringRef owner;                ///< "a data description entry"
  llvm::ArrayRef<Keyword> keywords;     ///< a word for each clause, as a message lists them
  llvm::ArrayRef<Keyword> synonyms;     ///< further words that a clause can begin with
  llvm::ArrayRef<Keyword> innerWords{}; ///< those of them that also stand within other clauses
  bool beginsWithName = false;          ///< environment names begin a clause too
  bool endsAtLevelNumber = false;       ///< entries with level numbers follow

  bool contains(Keyword keyword) const;
};

/// The usages of items that hold a value; like all usages they may stand without the word USAGE.
inline constexpr std::array valueUsages{
    Keyword::Binary,         Keyword::Comp,           Keyword::Comp1,
    Keyword::Comp2,          Keyword::Comp3,          Keyword::Comp4,
    Keyword::Comp5,          Keyword::Computational,  Keyword::Computational1,
    Keyword::Computational2, Keyword::Computational3, Keyword::Computational4,
    Keyword::Computational5, Keyword::Display,        Keyword::Display1,
    Keyword::National,       Keyword::PackedDecimal};

/// The keywords of both arrays, in their order.
template <std::size_t N, std::size_t M>
constexpr std::array<Keyword, N + M> joined(const std::array<Keyword, N> &first,
                                            const std::array<Keyword, M> &second) {
  std::array<Keyword, N + M> all{};
  std::copy(second.begin(), second.end(), std::copy(first.begin(), first.end(), all.begin()));
  return all;
}

/// The clauses of a data description entry.
extern const ClauseSet dataClauses;
/// The clauses of an entry of a report group.
extern const ClauseSet groupClauses;

class Parser {
public:
  Parser(TokenStream &tokens, FrontEndDiagnostics &messages, const ParseOptions &parseOptions)
      : stream(tokens), diagnostics(messages), options(parseOptions), recovery(tokens, messages) {}

  /// Reads the whole compilation. Never null.
  Program *parse(llvm::StringRef inputName);

private:
  //===--------------------------------------------------------------------===//
  // Tokens (Parser.cpp)
  //===--------------------------------------------------------------------===//

  const Token &peek(unsigned n = 0) { return stream.peek(n); }
  template <typename... Kinds> bool at(Kinds... kinds) { return peek().isOneOf(kinds...); }
  /// Whether the next tokens are the given keywords or kinds, in this order.
  template <typename... Kinds> bool atSequence(Kinds... kinds) {
    unsigned n = 0;
    return (peek(n++).is(kinds) && ...);
  }
  template <typename Kind> bool accept(Kind kind) {
    if (!peek().is(kind))
      return false;
    stream.skip();
    return true;
  }
  template <typename First, typename... Rest> bool acceptAny(First first, Rest... rest) {
    return accept(first) || (accept(rest) || ...);
  }
  /// Takes the keyword or token, or reports that it is missing.
  bool expect(Keyword keyword);
  bool expect(TokenKind kind);
  /// Reports that \p what is missing here, telling what stands here instead; gives null, so that
  /// it can be returned.
  Failure expected(llvm::StringRef what);
  template <typename... Arguments>
  Failure error(DiagnosticId id, const SourceRange &place, Arguments &&...arguments) {
    if (recovery.shouldReport(id, place))
      diagnostics.report(id, place, std::forward<Arguments>(arguments)...);
    return {};
  }
  /// The place of the next token.
  SourceRange here() { return peek().place; }
  /// The place from \p begin to the end of the last token taken, as the position of a new node.
  Node from(const SourceRange &begin);

  /// A new node from \p begin to the last token taken.
  template <typename T, typename... Arguments>
  T *make(const SourceRange &begin, Arguments &&...arguments) {
    Node place = from(begin);
    return new T(&place, std::forward<Arguments>(arguments)...);
  }
  /// Lets the place of \p node reach to the end of the last token taken.
  template <typename T> T *complete(T *node) {
    node->setRange(from(node->getRange()).getRange());
    return node;
  }

  /// Skips to behind the next period, or to the end of the file.
  void skipPastPeriod();
  std::string takeRun();
  /// The keyword with any of \p flags (KF_Verb ...) that \p word was most likely meant to be; empty
  /// when none is near.
  static llvm::StringRef suggestKeyword(llvm::StringRef word, uint16_t flags);

  //===--------------------------------------------------------------------===//
  // Names and literals (Parser.cpp)
  //===--------------------------------------------------------------------===//

  /// A word from the next token, whatever it is.
  Word *takeWord();
  /// A word that the programmer made up. \p what names it in the message: "a data-name". A reserved
  /// word is said to be one.
  Word *parseUserWord(llvm::StringRef what);
  /// The same, for the names of procedures, which may be all digits.
  Word *parseProcedureWord();
  /// name {OF | IN} name ...
  QualifiedWord *parseQualifiedWord(llvm::StringRef what);
  /// procedure-name {OF | IN} section-name
  QualifiedWord *parseProcedureName();

  /// Whether a numeric literal with or without its sign is next.
  bool atNumericLiteral();
  /// Whether a literal or a figurative constant is next.
  bool atLiteral();
  /// Any literal or figurative constant, ALL literal and symbolic characters included.
  LiteralExpression *parseLiteral();
  NumericLiteralExpression *parseNumericLiteral();
  NonNumericLiteralExpression *parseNonNumericLiteral();
  FigurativeLiteralExpression *parseFigurativeConstant();

  //===--------------------------------------------------------------------===//
  // Compilation, program, identification (ParseProgram.cpp)
  //===--------------------------------------------------------------------===//

  SourceUnit *parseSourceUnit(SourceUnit *outer);
  IdentificationDivision *parseIdentificationDivision();
  bool atDivision(Keyword which) { return divisionAt() == which; }
  Keyword divisionAt();
  Keyword namelessDivision();
  bool atMisspeltDivision(unsigned n);
  void takeDivisionHeader(Keyword division);
  /// Whether any division header, END PROGRAM or the end of the file is next.
  bool atUnitBoundary();
  bool atEndProgram();
  bool skipClassOrFunction();
  void parseEndProgram(SourceUnit *unit);

  //===--------------------------------------------------------------------===//
  // What CICS and DB2 add to a program (ParseSupplied.cpp)
  //===--------------------------------------------------------------------===//

  /// Gives the unit, whose own data division is read, what every program of CICS has.
  void supplyInterfaceBlock();
  /// Gives the header of the outermost program the parameters that CICS passes.
  void supplyParameters(ProcedureDivision &division, const SourceRange &header);
  /// Gives the unit, which is read, what its embedded blocks need and it does not declare.
  void supplyCommunicationAreas();
  void supplyRecords(llvm::StringRef copybook, StorageType storage);
  bool atSqlType();
  /// [USAGE [IS]] SQL [TYPE] [IS] type: the host variable that DB2 makes of it.
  bool parseSqlType(DataDescription &entry);
  bool isDeclared(llvm::StringRef name) { return isInternedDeclared(internString(name)); }
  bool isInternedDeclared(const std::string &name) const;

  //===--------------------------------------------------------------------===//
  // Entries and clauses of the environment and data division (ParseClauses.cpp)
  //===--------------------------------------------------------------------===//

  /// The one of \p candidates that \p word was most likely meant to be; None when none is near.
  static Keyword nearestKeyword(llvm::StringRef word, llvm::ArrayRef<Keyword> candidates);
  /// Whether a header of a paragraph, section or division is next, or the end of the file.
  bool atPartHeader();
  /// Whether something is next that cannot belong to an entry of \p clauses any more: a header, or
  /// the first word or level number of another entry at the beginning of a line.
  bool atEntryBoundary(const ClauseSet &clauses);
  /// Whether a number begins a line and is most likely a level number, before which a period is
  /// missing, and not a number that the clause before it needs.
  bool atLevelNumber();
  /// The period of an entry or header. A period that is missing is reported; then reading goes on
  /// as if it stood there.
  void expectPeriod();
  void missingPeriod();
  /// The header of a section that begins with \p header, with its first word next.
  void takeSectionHeader(Keyword header);
  /// Says that the next token begins no clause of \p clauses and skips to the next clause; gives
  /// false.
  bool unknownClause(const ClauseSet &clauses);
  /// Skips to a word that begins a clause of \p clauses, to a period or to the next entry. Of a
  /// clause that \p isUnknown any word may be a part, also such as begin a clause elsewhere.
  void recoverToClause(const ClauseSet &clauses, bool isUnknown = false);
  /// Skips to behind the next period or to the next entry.
  void recoverToEntry(const ClauseSet &clauses);
  /// Reads clauses with \p parseClause, which tells whether one could be read, up to the period
  /// that ends the entry, and that too. The place from \p begin to the last token before the
  /// period.
  Node parseClauses(const SourceRange &begin, const ClauseSet &clauses,
                    llvm::function_ref<bool()> parseClause);
  /// The same for a paragraph, in which every clause may have a period of its own.
  void parseParagraphClauses(const ClauseSet &clauses, llvm::function_ref<bool()> parseClause);
  /// Says that \p what is not supported and skips the clause that begins with the next token;
  /// gives true.
  bool unsupportedClause(llvm::StringRef what, const ClauseSet &clauses);

  /// Reads a clause that \p owner may have one of with \p parse and gives it to \p set. A second
  /// one is reported, read and dropped. False when the clause could not be read.
  template <typename Owner, typename Base, typename Clause>
  bool parseOnce(Owner &owner, Clause *(Base::*get)() const, void (Base::*set)(Clause *),
                 Clause *(Parser::*parse)()) {
    bool isSecond = (owner.*get)() != nullptr;
    if (isSecond)
      error(DiagnosticId::ClauseTwice, here(), describe(peek()));
    Clause *clause = (this->*parse)();
    if (clause && !isSecond)
      (owner.*set)(clause);
    return clause != nullptr;
  }
  /// A clause of one word.
  template <typename Clause> Clause *parseBareClause() {
    Node at(here());
    stream.skip();
    return new Clause(&at);
  }
  /// Whether a word is next that is no keyword but is one here.
  bool atWord(llvm::StringRef text) { return peek().isWord() && peek().text == text; }
  /// A numeric literal, or a data-name. \p what names it in the message.
  Expression *parseNumberOrDataName(llvm::StringRef what);

  //===--------------------------------------------------------------------===//
  // Environment division (ParseEnvironment.cpp, ParseFileControl.cpp)
  //===--------------------------------------------------------------------===//

  /// With ENVIRONMENT DIVISION next. Never null.
  EnvironmentDivision *parseEnvironmentDivision();
  ConfigurationSection &configurationSectionOf(EnvironmentDivision &division, bool hasHeader);
  InputOutputSection &inputOutputSectionOf(EnvironmentDivision &division, bool hasHeader);
  Keyword environmentSectionAt();
  Keyword misspeltHeader(llvm::ArrayRef<Keyword> headers);
  /// The section header or the paragraph that is next; \p header is its first word.
  void parseEnvironmentPart(EnvironmentDivision &division, Keyword header);
  /// The header of a paragraph and its period.
  void takeParagraphHeader();
  void parseRepository();
  bool parseRepositoryFunctions();
  void parseSourceComputer(ConfigurationSection &section);
  void parseObjectComputer(ConfigurationSection &section);
  ClauseMemorySize *parseMemorySize();
  ClauseSequence *parseCollatingSequence();
  ClauseSegmentLimit *parseSegmentLimit();
  void parseSpecialNames(ConfigurationSection &section);
  bool parseXmlSchema();
  bool parseSpecialNamesClause(ParaSpecialNames &names, const ClauseSet &clauses);
  bool atEnvironmentName();
  ClauseEnvName *parseEnvironmentName();
  bool atAlphabetWithoutKeyword();
  ClauseAlphabet *parseAlphabet();
  bool parseForAlphanumeric();
  PhrsAlphabet *parseAlphabetPhrase();
  ClauseSymbolic *parseSymbolicCharacters();
  bool atSymbolicPhrase();
  PhrsSymbolic *parseSymbolicPhrase();
  ClauseClass *parseClass();
  PhrsClass *parseClassPhrase();
  ClauseCurrency *parseCurrency();
  ClauseDecimalPoint *parseDecimalPoint();

  void parseFileControl(InputOutputSection &section);
  ParaFileControl *parseSelect();
  bool parseSelectClause(ParaFileControl &file);
  ClauseAssign *parseAssign();
  bool atMisspeltSelectClause();
  ClauseReserve *parseReserve();
  ClauseOrganization *parseOrganization();
  ClausePadding *parsePadding();
  ClauseRecordDelimiter *parseRecordDelimiter();
  ClauseAccess *parseAccess();
  ClauseStatus *parseFileStatus();
  ClausePassWord *parsePassword();
  ClauseRecordKey *parseRecordKey();
  ClauseRelativeKey *parseRelativeKey();
  ClauseAlternate *parseAlternateKey();
  void parseIOControl(InputOutputSection &section);
  bool parseIOControlClause(InputOutputSection &section);
  ClauseRerun *parseRerun();
  ClauseSame *parseSame();
  ClauseMultipleFile *parseMultipleFile();
  ClauseApplyWriteOnly *parseApplyWriteOnly();

  //===--------------------------------------------------------------------===//
  // Data division (ParseData.cpp, ParseDataClauses.cpp, ParseFile.cpp,
  // ParseReport.cpp, ParseReportGroup.cpp)
  //===--------------------------------------------------------------------===//

  /// With DATA DIVISION next; fills the data division of the current unit. Never null.
  DataDivision *parseDataDivision();
  /// The first word of the header of the section of the data division that is next, also where the
  /// header is misspelt or missing; None where no section is next.
  Keyword dataSectionAt();
  bool atDataSection() { return dataSectionAt() != Keyword::None; }
  void skipForeignSection();
  /// \p seen are the sections of the division that were there already.
  static constexpr unsigned sectionKinds = static_cast<unsigned>(StorageType::Report) + 1;
  void parseDataSection(DataDivision &division, std::bitset<sectionKinds> &seen);
  class RecordBuilder;
  using AddRecord = llvm::function_ref<void(DataDescription *)>;
  /// Reads entries with \p parseEntry as long as level numbers follow, puts them together to
  /// records, and gives each of these to \p add when it is complete.
  void parseRecords(const ClauseSet &clauses, DataDescription *(Parser::*parseEntry)(),
                    AddRecord add);
  void parseDataRecords(StorageType storage, AddRecord add);
  /// With a level number next. Null when the entry cannot stand in the tree.
  DataDescription *parseDataEntry();
  void skipCopiedEntryName(unsigned level, const Word &name);
  unsigned parseLevelNumber();
  /// The name of an entry or FILLER; null when the entry has none.
  Word *parseEntryName(const ClauseSet &clauses);
  bool parseDataClause(DataDescription &entry);
  ClausePicture *parsePicture();
  Word *parsePictureString();
  ClauseUsage *parseUsage();
  ClauseGroupUsage *parseGroupUsage();
  ClauseValue *parseValue();
  PhraseValue *parseValuePhrase();
  bool parseValueOperand(LiteralExpression *&literal, Word *&word);
  ClauseOccurs *parseOccurs();
  /// [n TO] m TIMES
  bool parseOccursBounds(ClauseOccurs &occurs);
  Key *parseOccursKey();
  bool parseIndexNames(ClauseOccurs &occurs);
  ClauseRedefines *parseRedefines();
  ClauseRenames *parseRenames();
  ClauseBlankZero *parseBlankZero();
  ClauseJustified *parseJustified();
  ClauseSign *parseSign();
  ClauseSynchronized *parseSynchronized();
  ClauseDateFormat *parseDateFormat();

  void parseFileSection(DataDivision &division);
  FileDescription *parseFileDescription();
  bool parseFileClause(FileDescription &file);
  ClauseBlock *parseBlock();
  ClauseRecord *parseRecord();
  ClauseLabel *parseLabel();
  ClauseValueOf *parseValueOf();
  ValueOfElem *parseValueOfElement();
  ClauseDataRecord *parseDataRecord();
  ClauseLinage *parseLinage();
  ClauseRecordingMode *parseRecordingMode();
  ClauseCodeSet *parseCodeSet();
  ClauseReport *parseReportClause();

  void parseReportSection(DataDivision &division);
  /// Reads report groups; \p report may be null.
  void parseReportGroups(ReportDescription *report);
  /// One entry of a report group, with its level number next.
  DataDescription *parseReportGroupEntry();
  ReportDescription *parseReportDescription();
  bool parseReportDescriptionClause(ReportDescription &report);
  ClauseAllow *parseAllow();
  ClauseCode *parseCode();
  ClauseControl *parseControl();
  ClauseLineLimit *parseLineLimit();
  ClauseOverflow *parseOverflow();
  ClausePageLimit *parsePageLimit();
  bool parsePageRegion(ClausePageLimit &page);
  ClauseStyle *parseStyle();

  bool atNameIn(const ClauseSet &clauses);
  /// \p choice is the condition read last, for what the item shows under it.
  bool parseReportGroupClause(ReportDataDescription &entry, PresentContents *&choice);
  ClauseType *parseType();
  ReportGroupType parseGroupType();
  bool parseTypeControls(ClauseType &type);
  ClauseLine *parseLine();
  bool acceptPlus();
  void acceptNumber();
  bool atLineOrColumn(std::size_t count);
  ClauseColumn *parseColumn();
  ClauseNextGroup *parseNextGroup();
  ClauseGroupLimit *parseGroupLimit();
  ClauseReportOccurs *parseReportOccurs();
  std::list<VaryingPhrase *> *parseVarying();
  ClauseRepeated *parseRepeated();
  ClauseMultiple *parseMultiple();
  ClauseWrap *parseWrap();
  bool parseReportContents(ReportDataDescription &entry, PresentContents *&choice);
  ClauseSource *parseSource();
  SourceClauseExpr *parseSourceOperand();
  SumClauseExpr *parseSum();
  ClauseSum *parseSumClause();
  ClauseCount *parseCount();
  ClauseFunction *parseFunctionClause();
  ClauseReportSign *parseReportSign();
  bool parsePresent(ReportDataDescription &entry, PresentContents *&choice);
  ClausePresentWhen *parsePresentWhen(const SourceRange &begin, bool isAbsent);
  ClausePresentAfter *parsePresentAfter(const SourceRange &begin);

  //===--------------------------------------------------------------------===//
  // Expressions (ParseExpression.cpp)
  //===--------------------------------------------------------------------===//

  /// An arithmetic expression; a single operand comes without a node around it.
  Expression *parseArithmeticExpression();
  /// An identifier or a literal. \p what names it in the message.
  Expression *parseOperand(llvm::StringRef what = "an identifier or a literal");
  /// Whether an operand can begin with the next token.
  bool atOperand();
  /// A data item with qualifiers, subscripts and reference modifier, a special register, ADDRESS
  /// OF, LENGTH OF or a function.
  IdentifierExpression *parseIdentifier(llvm::StringRef what = "an identifier");
  bool atIdentifier();
  /// Only a data item.
  DataIdentifierExpression *parseDataIdentifier(llvm::StringRef what = "a data-name");
  /// A data-name with qualifiers but without subscripts and reference modifier.
  DataIdentifierExpression *parseDataName(llvm::StringRef what = "a data-name");
  IdentifierExpression *parseItemName(llvm::StringRef what = "a data-name");
  FileIdentifierExpression *parseFileName();
  ReportIdentifierExpression *parseReportName();
  /// Whether the next word begins a paragraph or a section, so that it cannot be an operand.
  bool atProcedureHeader();

  QualifiedWord *parseDataQualifiedWord(llvm::StringRef what);
  bool atModifier();
  bool parseModifiers(SubscriptModifier *&subscripts, ReferenceModifier *&reference);
  Expression *parseSubscript();
  ReferenceModifier *parseReferenceModifier(const SourceRange &begin, Expression *position);
  IdentifierExpression *parseSpecialRegister();
  IdentifierExpression *parseAddressOrLength();
  bool atFunction();
  FunctionIdentifierExpression *parseFunction();
  bool parseFunctionArguments(FunctionIdentifierExpression &call, const SourceRange &open);
  Failure reportUnknownFunction(const Word &name);

  Expression *continueArithmetic(Expression *first, const SourceRange &begin);
  Expression *parseProduct(Expression *first, const SourceRange &begin);
  Expression *parsePower(Expression *first, const SourceRange &begin);
  Expression *parseSigned();
  Expression *parsePrimary();
  Expression *makeBinary(ArithmeticExprType op, const SourceRange &begin, Expression *left,
                         Expression *right);
  Expression *parenthesise(Expression *inner, const SourceRange &begin);

  //===--------------------------------------------------------------------===//
  // Conditions (ParseCondition.cpp)
  //===--------------------------------------------------------------------===//

  Condition *parseCondition();

  /// What the text turned out to be; both null after a message.
  struct Comparand {
    Condition *condition = nullptr;
    Expression *expression = nullptr;

    explicit operator bool() const { return condition || expression; }
  };
  /// A condition, or an expression that no relation follows. A name of a condition is a condition.
  Comparand parseConditionOrExpression();

  /// What a later object of a combined relation takes over from the relation before it.
  struct Abbreviation {
    Expression *subject = nullptr; ///< null where no relation comes before
    RelationalConditionType relation = RelationalConditionType::Equal;
  };
  Comparand parseCombined(Abbreviation &abbreviation);
  Comparand parseTerm(Abbreviation &abbreviation);
  Condition *parseNegated(Abbreviation &abbreviation);
  Condition *parseAbbreviated(const SourceRange &begin, bool isNot, Abbreviation &abbreviation);
  Comparand parseSimple(Abbreviation &abbreviation);
  Comparand parseParenthesised(Abbreviation &abbreviation);
  Comparand parseRelation(Expression *subject, const SourceRange &begin,
                          Abbreviation &abbreviation);
  RelationalConditionType parseRelationalOperator(bool isNot);
  RelationalConditionType parseRelationalWords(Keyword first);
  Expression *parseRelationObject(RelationalConditionType relation);
  AbbrRelationItem *parseFurtherObject(RelationalConditionType &relation);
  bool isNameOfCondition(const Expression *operand);
  Condition *namedCondition(DataIdentifierExpression *name);
  Condition *conditionOf(Expression *operand, const SourceRange &begin, Abbreviation &abbreviation);

  //===--------------------------------------------------------------------===//
  // Procedure division (ParseProcedure.cpp)
  //===--------------------------------------------------------------------===//

  /// With PROCEDURE DIVISION next. Never null.
  ProcedureDivision *parseProcedureDivision();
  void parseProcedureHeader(ProcedureDivision &division);
  /// The items of USING in the header or in ENTRY.
  bool parseParameters(std::list<Parameter *> &parameters);
  void parseDeclaratives(ProcedureDivision &division);
  void parseDeclarativeSection(ProcedureDivision &division);
  Section *parseSectionHeader();
  /// The paragraphs and sentences up to the next section or the end of the part.
  template <typename Owner> void parseParagraphs(Owner &owner);
  Paragraph *parseParagraph();
  /// A sentence with its period; null when nothing of it is left after its mistakes.
  Sentence *parseSentence();
  void skipNote(bool isWholeParagraph);
  enum class HeaderKind : uint8_t { None, Paragraph, Section };
  /// What begins with the next token where a sentence may begin.
  HeaderKind headerKind();
  bool atMisspeltSection();
  bool atDeclaratives();
  bool atEndDeclaratives();
  void takeEndDeclaratives();
  Word *parseHeaderName();
  void expectHeaderPeriod();
  bool atProcedureBody();
  bool rejectDeclaratives();
  UseStatement *parseUseException(const SourceRange &begin, bool isGlobal);
  UseStatement *parseUseLabel(const SourceRange &begin, bool isGlobal, UseTimingType timing);
  UseStatement *parseUseReporting(const SourceRange &begin, bool isGlobal);
  UseStatement *parseUseDebugging(const SourceRange &begin);
  bool parseUseFiles(UseStatement &use);

  //===--------------------------------------------------------------------===//
  // Statements in general (ParseStatement.cpp)
  //===--------------------------------------------------------------------===//
  /// Whether a statement begins with the next token.
  bool atStatement();
  /// The statement whose verb is next, its END- form included. Null after a message; then the
  /// tokens up to the next place to resume are gone, and with them the phrases and the END- word
  /// of the statement. A function that parses one statement need not recover by itself.
  Statement *parseStatement();
  /// Statements as long as verbs follow. What is no statement and ends none of the statements
  /// around is reported and skipped.
  Outcome parseStatements(std::list<Statement *> &statements);
  Statement *makePlaceholder(const SourceRange &begin);
  /// The phrases of \p allowed in any order, with or without NOT, each with its statements:
  /// [ON] SIZE ERROR, [ON] OVERFLOW, [ON] EXCEPTION, [AT] END, INVALID [KEY],
  /// [AT] {END-OF-PAGE | EOP}. A phrase given twice is left for the statement around.
  /// False after a message; statements that could not be read within a phrase are no failure.
  void parseExceptionPhrases(std::list<ExceptionHandler *> &handlers,
                             std::initializer_list<ExceptionHandlerType> allowed);
  /// EXEC language text END-EXEC where no statement can stand, among data entries; the period
  /// after it is taken too. False when none is next.
  bool skipEmbeddedBlock();
  void skipEmbeddedText();

  std::optional<PhraseStart> atExceptionPhrase();
  Statement *parseStatementOf(Keyword verb);
  StatementResult dispatchStatement(Keyword verb);
  StatementResult rejectStatement();
  StatementResult rejectUse();
  StatementResult parseEnter();
  StatementResult parseSeek();
  StatementResult parseService();
  /// What is remembered along a list of statements.
  struct StatementList {
    Keyword lastVerb = Keyword::None; ///< of the statement that was read last
    bool lastIsKept = false;          ///< it is in the list
    bool lastIsWrong = false;         ///< what follows it was not understood
  };
  /// Whether the next token ends a list of statements rightly; otherwise it is reported, skipped.
  bool endsStatements(StatementList &list);
  bool rejectWord(StatementList &list);
  bool rejectPhrase(const Token &first);
  Keyword misspeltKeyword();
  bool correctMisspelt();
  bool correctDividedEnd();
  /// Skips to where a statement begins or the statement around, or the sentence, goes on.
  void skipToStatement(bool passesWhen = false);
  bool atResumption(bool passesWhen);
  void skipRestOfStatement(Keyword verb);
  void abandonSentence();
  /// The statements of a branch, of which there must be one. False where there is none; the message
  /// about that is left to the caller unless \p isNeeded.
  bool parseBranch(std::list<Statement *> &statements, bool isNeeded = true);

  //===--------------------------------------------------------------------===//
  // Statements (ParseStatement*.cpp): each with its verb next
  //===--------------------------------------------------------------------===//

  StatementResult parseAccept();
  StatementResult parseAdd();
  StatementResult parseAlter();
  StatementResult parseCall();
  StatementResult parseCancel();
  StatementResult parseClose();
  StatementResult parseCompute();
  StatementResult parseContinue();
  StatementResult parseDelete();
  StatementResult parseDisplay();
  StatementResult parseDivide();
  StatementResult parseEntry();
  StatementResult parseEvaluate();
  StatementResult parseExamine();
  StatementResult parseExec();
  StatementResult parseExhibit();
  StatementResult parseExit();
  StatementResult parseGenerate();
  StatementResult parseGoback();
  StatementResult parseGoto();
  StatementResult parseIf();
  StatementResult parseInitialize();
  StatementResult parseInitiate();
  StatementResult parseInspect();
  StatementResult parseMerge();
  StatementResult parseMove();
  StatementResult parseMultiply();
  StatementResult parseNextSentence();
  StatementResult parseOn();
  StatementResult parseOpen();
  StatementResult parsePerform();
  StatementResult parseRead();
  StatementResult parseRelease();
  StatementResult parseReturn();
  StatementResult parseRewrite();
  StatementResult parseSearch();
  StatementResult parseSet();
  StatementResult parseSort();
  StatementResult parseStart();
  StatementResult parseStop();
  StatementResult parseString();
  StatementResult parseSubtract();
  StatementResult parseSuppress();
  StatementResult parseTerminate();
  StatementResult parseTrace();
  StatementResult parseTransform();
  StatementResult parseUnstring();
  StatementResult parseWrite();
  StatementResult parseXml();
  UseStatement *parseUse();

  //===--------------------------------------------------------------------===//
  // Parts of statements
  //===--------------------------------------------------------------------===//

  /// Gives to \p owner one element after the other of those that \p parseOne reads, at least one
  /// and as long as \p atAnother tells of a further one. False after a message.
  template <typename Owner, typename Base, typename Element, typename Parse, typename AtAnother>
  bool parseSeries(Owner &owner, void (Base::*add)(Element *), Parse parseOne,
                   AtAnother atAnother) {
    do {
      Element *element = std::invoke(parseOne, this);
      if (!element)
        return false;
      (owner.*add)(element);
    } while (std::invoke(atAnother, this));
    return true;
  }
  template <typename Owner, typename Base>
  bool parseOperands(Owner &owner, void (Base::*add)(Expression *)) {
    auto parseOne = [](Parser *parser) { return parser->parseOperand(); };
    return parseSeries(owner, add, parseOne, &Parser::atOperand);
  }
  template <typename Owner, typename Base>
  bool parseIdentifiers(Owner &owner, void (Base::*add)(IdentifierExpression *)) {
    auto parseOne = [](Parser *parser) { return parser->parseIdentifier(); };
    return parseSeries(owner, add, parseOne, &Parser::atIdentifier);
  }
  template <typename Owner, typename Base>
  bool parseFileNames(Owner &owner, void (Base::*add)(FileIdentifierExpression *)) {
    return parseSeries(owner, add, &Parser::parseFileName, &Parser::atFileName);
  }
  template <typename Owner, typename Base>
  bool parseReportNames(Owner &owner, void (Base::*add)(ReportIdentifierExpression *)) {
    return parseSeries(owner, add, &Parser::parseReportName, &Parser::atName);
  }
  template <typename Owner, typename Base>
  bool parseReceivers(Owner &owner, void (Base::*add)(RoundedOperand *)) {
    return parseSeries(owner, add, &Parser::parseReceiver, &Parser::atOperand);
  }
  /// Whether a name of the programmer's is next.
  bool atName() { return peek().isUserWord() && !atProcedureHeader(); }
  /// Whether one more name of a file is next, and not a verb that is misspelt.
  bool atFileName() { return atName() && misspeltKeyword() == Keyword::None; }

  /// The end of a statement: its END- word.
  template <typename T> T *finish(T *statement, Keyword endWord) {
    accept(endWord);
    return complete(statement);
  }
  /// The end of a statement: its exception phrases and its END- word. Null after a message.
  template <typename T, typename Base>
  T *finish(T *statement, void (Base::*addHandler)(ExceptionHandler *),
            std::initializer_list<ExceptionHandlerType> allowed, Keyword endWord) {
    std::list<ExceptionHandler *> handlers;
    parseExceptionPhrases(handlers, allowed);
    for (ExceptionHandler *handler : handlers)
      (statement->*addHandler)(handler);
    return finish(statement, endWord);
  }

  // Branches
  StatementResult parsePerformInline(PerformStatement *perform, bool isComplete);
  bool parsePerformPhrase(PerformStatement &perform);
  PerformVarying *parsePerformVarying();
  bool atTimesPhrase();
  bool atPerformPhrase();
  bool parseCallArguments(CallStatement &call);
  Argument *parseCallArgument(ArgType type, const SourceRange &begin);
  bool parseElse(std::list<Statement *> &statements);
  EvaluateSubject *parseEvaluateSubject();
  EvaluateCase *parseEvaluateCase(EvaluateStatement &evaluate, bool &isComplete);
  EvaluateWhen *parseEvaluateWhen(EvaluateStatement &evaluate);
  EvaluateObject *parseEvaluateObject(const EvaluateSubject *subject);
  EvaluateObject *parseEvaluateCondition(const SourceRange &begin, Condition *condition);
  EvaluateObject *parseEvaluateOperand(const SourceRange &begin, bool isTruthWanted);
  SearchWhen *parseSearchWhen();
  AlterItem *parseAlterItem();

  // Arithmetic
  RoundedOperand *parseReceiver();
  bool parseReceivers(std::list<RoundedOperand *> &receivers);
  Expression *soleOperand(const std::list<RoundedOperand *> &operands);
  template <typename T> T *finishArithmetic(T *statement, Keyword endWord);

  // Data
  AcceptFrom *parseAcceptFrom();
  SetItem *parseSetItem();
  SetToValue *parseSetToValue();
  bool parseInitializeToValue(InitializeStatement &initialize);
  bool parseInitializeReplacing(InitializeStatement &initialize);

  // Strings
  StringItem *parseStringItem();
  bool parsePointerPhrase(IdentifierExpression *&pointer);
  bool parseUnstringDelimiters(UnstringStatement &unstring);
  UnstringIntoItem *parseUnstringInto();
  bool parseInspectRegions(std::list<InspectRegion *> *&regions);
  bool atInspectMode();
  bool atTallyingCounter();
  TallyingItemFor *parseTallyingFor();
  TallyingItem *parseTallyingItem();
  ReplacingItem *parseReplacingItem();
  ConvertingItem *parseConvertingItem();

  // Input-output
  OpenFile *parseOpenFile();
  CloseFile *parseCloseFile();
  std::optional<RelationalConditionType> parseStartRelation();
  bool parseFromPhrase(IdentifierExpression *&from);
  bool parseWriteAdvancing(WriteStatement &write);
  bool atSortKey();
  SortKey *parseSortKey();
  bool parseCollatingSequence(Word *&alphabet);
  SortIO *parseSortIO(Keyword filesWord, Keyword procedureWord);

  // XML
  bool atWith(Keyword keyword);
  bool acceptWith(Keyword keyword);
  StatementResult parseXmlGenerate(const SourceRange &begin);
  StatementResult parseXmlParse(const SourceRange &begin);
  bool parseXmlNamespace(XMLGenerateStatement &generate);
  XMLNameItem *parseXmlNameItem();
  XmlNodeType acceptXmlNodeType();
  XMLTypeItem *parseXmlTypeItem();
  bool atXmlSuppressItem();
  XMLSuppressItem *parseXmlSuppressItem();

  //===--------------------------------------------------------------------===//
  // What the program declares (ParseProgram.cpp). The names are those of tokens, which are
  // interned.
  //===--------------------------------------------------------------------===//

  /// Whether the name is a condition-name (level 88) of this unit or of an outer one.
  bool isConditionName(const std::string &name) const;
  /// Whether the name is an ON or OFF condition of SPECIAL-NAMES of this unit or an outer one.
  bool isSwitchName(const std::string &name) const;
  /// Whether CLASS of SPECIAL-NAMES declares the name, in this unit or an outer one.
  bool isClassName(const std::string &name) const;
  /// Whether SYMBOLIC CHARACTERS declares the name, in this unit or an outer one.
  bool isSymbolicCharacter(const std::string &name) const;
  /// Whether the name is a mnemonic name of SPECIAL-NAMES of this unit or an outer one.
  bool isMnemonicName(const std::string &name) const;
  /// Whether the name is that of a file (FD, SD or SELECT) of this unit or an outer one.
  bool isFileName(const std::string &name) const;
  /// Whether the word is declared as anything that can be an operand.
  bool isNamed(const Token &word);
  /// Whether the name is that of a report (RD).
  bool isReportName(const std::string &name) const;

  //===--------------------------------------------------------------------===//
  // Nesting
  //===--------------------------------------------------------------------===//

  /// How deep constructs may nest: statements in statements, parentheses, programs.
  static constexpr unsigned maxDepth = 1000;

  /// Counts one level of nesting as long as it lives.
  class Depth {
  public:
    explicit Depth(Parser &owner) : parser(owner) { ++parser.depth; }
    ~Depth() { --parser.depth; }
    Depth(const Depth &) = delete;
    Depth &operator=(const Depth &) = delete;
    bool isTooDeep() const { return parser.depth > maxDepth; }

  private:
    Parser &parser;
  };

  TokenStream &stream;
  FrontEndDiagnostics &diagnostics;
  const ParseOptions &options;
  Recovery recovery;
  SourceUnit *unit = nullptr; ///< The unit being read, its divisions attached as they begin.
  unsigned depth = 0;
  bool decimalPointIsComma = false;
  /// The functions that REPOSITORY lets stand without FUNCTION, by their interned names.
  llvm::DenseSet<const std::string *> repositoryFunctions;

  /// The names behind INDEXED BY, which are no entries of the data division before the checks.
  llvm::DenseSet<const std::string *> indexNames;

  /// The languages of the embedded blocks that the unit has.
  std::bitset<static_cast<unsigned>(ExecType::Other) + 1> embeddedLanguages;
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSER_H
