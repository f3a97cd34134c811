//===- Parser.h - the recursive-descent parser ------------------*- C++ -*-===//
//
// One class, its functions in one file for each division and, within the
// procedure division, for each family of statements.
//
// How the functions work together:
// - A function that parses a construct is called with its first token next, and
//   leaves the token behind the construct next. It gives the node, or null after
//   it has reported one message; then the caller gives null too, without another
//   message. Whoever owns a place to resume (a statement, an entry, a clause)
//   resumes there: see recoverToStatement() and its siblings.
// - A node's place runs from its first token to its last: take `begin = here()`
//   before the first token and make the node with `from(begin)` after the last.
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
#include "Parse/Preprocessor.h"
#include "llvm/ADT/StringSet.h"
#include <functional>
#include <initializer_list>
#include <optional>

namespace tarka {

class Parser {
public:
  Parser(TokenStream &tokens, FrontEndDiagnostics &diagnostics, const ParseOptions &options)
      : stream(tokens), diagnostics(diagnostics), options(options) {}

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
  std::nullptr_t expected(llvm::StringRef what);
  template <typename... Arguments>
  std::nullptr_t error(DiagnosticId id, const SourceRange &place, Arguments &&...arguments) {
    diagnostics.report(id, place, std::forward<Arguments>(arguments)...);
    return nullptr;
  }
  /// How a message shows the token to a person.
  static std::string describe(const Token &token);

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
  bool atDivision(Keyword which) { return peek().is(which) && peek(1).is(Keyword::Division); }
  /// Whether any division header, END PROGRAM or the end of the file is next.
  bool atUnitBoundary();
  void parseEndProgram(SourceUnit *unit);

  //===--------------------------------------------------------------------===//
  // Environment division (ParseEnvironment.cpp)
  //===--------------------------------------------------------------------===//

  /// With ENVIRONMENT DIVISION next. Never null.
  EnvironmentDivision *parseEnvironmentDivision();

  //===--------------------------------------------------------------------===//
  // Data division (ParseData.cpp, ParseFile.cpp, ParseReport.cpp)
  //===--------------------------------------------------------------------===//

  /// With DATA DIVISION next; fills the data division of the current unit. Never null.
  DataDivision *parseDataDivision();

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
  FileIdentifierExpression *parseFileName();
  ReportIdentifierExpression *parseReportName();

  //===--------------------------------------------------------------------===//
  // Conditions (ParseCondition.cpp)
  //===--------------------------------------------------------------------===//

  Condition *parseCondition();

  //===--------------------------------------------------------------------===//
  // Procedure division (ParseProcedure.cpp)
  //===--------------------------------------------------------------------===//

  /// With PROCEDURE DIVISION next. Never null.
  ProcedureDivision *parseProcedureDivision();
  /// Whether a statement begins with the next token.
  bool atStatement();
  /// The statement whose verb is next, its END- form included. Null after a message; then the
  /// tokens up to the next place to resume are gone, and with them the phrases and the END- word
  /// of the statement. A function that parses one statement need not recover by itself.
  Statement *parseStatement();
  /// Statements as long as verbs follow. What is no statement and ends none of the statements
  /// around is reported and skipped.
  void parseStatements(std::list<Statement *> &statements);
  /// The phrases of \p allowed in any order, with or without NOT, each with its statements:
  /// [ON] SIZE ERROR, [ON] OVERFLOW, [ON] EXCEPTION, [AT] END, INVALID [KEY],
  /// [AT] {END-OF-PAGE | EOP}. A phrase given twice is left for the statement around.
  /// False after a message; statements that could not be read within a phrase are no failure.
  bool parseExceptionPhrases(std::list<ExceptionHandler *> &handlers,
                             std::initializer_list<ExceptionHandlerType> allowed);
  /// The END- word of a statement, which may be left out.
  bool acceptScopeEnd(Keyword endWord) { return accept(endWord); }
  /// EXEC language text END-EXEC where no statement can stand, among data entries; the period
  /// after it is taken too. False when none is next.
  bool skipEmbeddedBlock();

  //===--------------------------------------------------------------------===//
  // Statements (ParseStatement*.cpp): each with its verb next
  //===--------------------------------------------------------------------===//

  Statement *parseAccept();
  Statement *parseAdd();
  Statement *parseAlter();
  Statement *parseCall();
  Statement *parseCancel();
  Statement *parseClose();
  Statement *parseCompute();
  Statement *parseContinue();
  Statement *parseDelete();
  Statement *parseDisplay();
  Statement *parseDivide();
  Statement *parseEntry();
  Statement *parseEvaluate();
  Statement *parseExamine();
  Statement *parseExec();
  Statement *parseExhibit();
  Statement *parseExit();
  Statement *parseGenerate();
  Statement *parseGoback();
  Statement *parseGoto();
  Statement *parseIf();
  Statement *parseInitialize();
  Statement *parseInitiate();
  Statement *parseInspect();
  Statement *parseMerge();
  Statement *parseMove();
  Statement *parseMultiply();
  Statement *parseNextSentence();
  Statement *parseOn();
  Statement *parseOpen();
  Statement *parsePerform();
  Statement *parseRead();
  Statement *parseRelease();
  Statement *parseReturn();
  Statement *parseRewrite();
  Statement *parseSearch();
  Statement *parseSet();
  Statement *parseSort();
  Statement *parseStart();
  Statement *parseStop();
  Statement *parseString();
  Statement *parseSubtract();
  Statement *parseSuppress();
  Statement *parseTerminate();
  Statement *parseTrace();
  Statement *parseTransform();
  Statement *parseUnstring();
  Statement *parseWrite();
  Statement *parseXml();
  UseStatement *parseUse();

  //===--------------------------------------------------------------------===//
  // Parts of statements
  //===--------------------------------------------------------------------===//

  /// Gives to \p owner one element after the other of those that \p parse reads, at least one and
  /// as long as \p atAnother tells of a further one. False after a message.
  template <typename Owner, typename Base, typename Element, typename Parse, typename AtAnother>
  bool parseSeries(Owner &owner, void (Base::*add)(Element *), Parse parse, AtAnother atAnother) {
    do {
      Element *element = std::invoke(parse, this);
      if (!element)
        return false;
      (owner.*add)(element);
    } while (std::invoke(atAnother, this));
    return true;
  }
  template <typename Owner, typename Base>
  bool parseOperands(Owner &owner, void (Base::*add)(Expression *)) {
    auto parse = [](Parser *parser) { return parser->parseOperand(); };
    return parseSeries(owner, add, parse, &Parser::atOperand);
  }
  template <typename Owner, typename Base>
  bool parseIdentifiers(Owner &owner, void (Base::*add)(IdentifierExpression *)) {
    auto parse = [](Parser *parser) { return parser->parseIdentifier(); };
    return parseSeries(owner, add, parse, &Parser::atIdentifier);
  }
  template <typename Owner, typename Base>
  bool parseFileNames(Owner &owner, void (Base::*add)(FileIdentifierExpression *)) {
    return parseSeries(owner, add, &Parser::parseFileName, &Parser::atName);
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
  bool atName() { return peek().isUserWord(); }

  /// The end of a statement: its END- word.
  template <typename T> T *finish(T *statement, Keyword endWord) {
    acceptScopeEnd(endWord);
    return complete(statement);
  }
  /// The end of a statement: its exception phrases and its END- word. Null after a message.
  template <typename T, typename Base>
  T *finish(T *statement, void (Base::*addHandler)(ExceptionHandler *),
            std::initializer_list<ExceptionHandlerType> allowed, Keyword endWord) {
    std::list<ExceptionHandler *> handlers;
    if (!parseExceptionPhrases(handlers, allowed))
      return nullptr;
    for (ExceptionHandler *handler : handlers)
      (statement->*addHandler)(handler);
    return finish(statement, endWord);
  }

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
  Statement *parseXmlGenerate(const SourceRange &begin);
  Statement *parseXmlParse(const SourceRange &begin);
  bool parseXmlNamespace(XMLGenerateStatement &generate);
  XMLNameItem *parseXmlNameItem();
  XmlNodeType acceptXmlNodeType();
  XMLTypeItem *parseXmlTypeItem();
  bool atXmlSuppressItem();
  XMLSuppressItem *parseXmlSuppressItem();

  //===--------------------------------------------------------------------===//
  // What the program declares (ParseProgram.cpp)
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
    explicit Depth(Parser &parser) : parser(parser) { ++parser.depth; }
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
  SourceUnit *unit = nullptr; ///< The unit being read, its divisions attached as they begin.
  unsigned depth = 0;
  bool decimalPointIsComma = false;
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSER_H
