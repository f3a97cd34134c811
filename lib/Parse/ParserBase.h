//===- ParserBase.h - what all parts of the parser share --------*- C++ -*-===//
//
// The parser is recursive descent in families, each a class with its header and
// source file: ParseExpression, ParseCondition, ParseClauses, ParseEnvironment,
// ParseFileControl, ParseData, ParseFile, ParseReport, ParseSupplied,
// ParseStatement and one for each family of statements, ParseProcedure,
// ParseProgram. The objects of these classes hold nothing of their own: all state
// is in the ParserContext, so a parser is made where it is needed, such as
// `DataParser(context).parseDataDivision()`.
//
// The conventions for results are in ParseResult.h, error recovery is in
// Recovery.h. A node's place runs from its first token to its last: take
// `begin = here()` before the first token and make the node with
// `make<...>(begin, ...)` after the last.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_PARSERBASE_H
#define TARKA_LIB_PARSE_PARSERBASE_H

#include "AST/Expression.h"
#include "AST/Program.h"
#include "AST/Scope.h"
#include "AST/Statement.h"
#include "Parse/Diagnostics.h"
#include "Parse/ParseOptions.h"
#include "Parse/ParseResult.h"
#include "Parse/Preprocessor.h"
#include "Parse/Recovery.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/SmallSet.h"
#include <bitset>
#include <memory>
#include <optional>
#include <utility>

namespace tarka {

class EmbeddedScratch;
class Expansion;

/// An FD or SD entry whose name could not be read.
struct NamelessFile {
  SourceRange place;
  FileDescType type;
  std::list<DataDescription *> records;
  bool isWithoutEntry; ///< the records come before the first entry
};

/// The state of parsing one stream of tokens.
struct ParserContext {
  ParserContext(TokenStream &tokens, FrontEndDiagnostics &messages,
                const ParseOptions &parseOptions)
      : stream(tokens), diagnostics(messages), options(parseOptions), recovery(tokens) {}

  TokenStream &stream;
  FrontEndDiagnostics &diagnostics;
  const ParseOptions &options;
  /// The record of what COPY and REPLACE do; may be null.
  Expansion *expansion = nullptr;
  Recovery recovery;
  /// The unit being parsed; its divisions are attached as they begin.
  SourceUnit *unit = nullptr;
  unsigned depth = 0; ///< of nested statements, parentheses, programs
  bool decimalPointIsComma = false;
  /// A unit has a clause SYMBOLIC CHARACTERS.
  bool hasSymbolicCharacters = false;
  /// The file is a copybook that is read by itself: what stands around it in a program is unknown.
  bool isCopybook = false;
  /// The functions that REPOSITORY lets stand without FUNCTION, by their interned names.
  llvm::DenseSet<const std::string *> repositoryFunctions;
  /// The names after INDEXED BY, which become entries of the data division only when it is checked.
  llvm::DenseSet<const std::string *> indexNames;
  /// The headers that were reported to be missing in the unit.
  llvm::SmallSet<Keyword, 4> missingHeaders;
  /// The entries of files whose names could not be read: the names are found by what is left over
  /// when the file section has been read.
  llvm::SmallVector<NamelessFile, 0> namelessFiles;
  llvm::SmallVector<SourceRange, 0> namelessSelects;
  /// The data description entry that was read last.
  SourceRange previousEntry;
  /// The file and line in which an error was reported last.
  std::pair<unsigned, unsigned> lastWrongLine;
  /// The tags that were reported not to be replaced, each with its file.
  llvm::SmallVector<std::pair<unsigned, std::string>, 0> unreplacedTags;
  /// The languages of the embedded blocks in the unit.
  std::bitset<static_cast<unsigned>(ExecType::Other) + 1> embeddedLanguages;
  /// The parser of their operands; null before the first one.
  std::shared_ptr<EmbeddedScratch> embeddedScratch;
  bool isInDeclaratives = false;
  /// The columns in which the last paragraph and the last statement begin that begin a line.
  unsigned paragraphColumn = 0;
  unsigned statementColumn = 0;
  /// An END PROGRAM has named another program than the one that ends with it: others may follow
  /// that have no program to end.
  bool isNestingUncertain = false;
  /// The unit around the one that an END PROGRAM with the name of the former has ended: it ends
  /// with it. Null at other times.
  SourceUnit *endedUnit = nullptr;
  /// The name of the program that ended last, and how many tokens were taken then.
  std::string lastEndedProgram;
  uint64_t lastProgramEnd = 0;
  /// Whether the translator of CICS reads the outermost program.
  bool isTranslated = false;
  /// The header of the procedure division that was read last.
  SourceRange procedureHeader;
};

class ParserBase {
public:
  explicit ParserBase(ParserContext &shared)
      : context(shared), stream(shared.stream), recovery(shared.recovery) {}

  //===--------------------------------------------------------------------===//
  // Tokens (ParserBase.cpp)
  //===--------------------------------------------------------------------===//

  const Token &peek() { return stream.peek(); }
  const Token &peek(unsigned n) { return stream.peek(n); }
  template <typename... Kinds> bool at(Kinds... kinds) { return peek().isOneOf(kinds...); }
  /// Whether the next tokens are the given keywords or kinds, in this order.
  template <typename... Kinds> bool atSequence(Kinds... kinds) {
    unsigned n = 0;
    return (peek(n++).is(kinds) && ...);
  }
  /// Whether \p text is next, a word that is a keyword only here.
  bool atWord(llvm::StringRef text) { return peek().isWord() && peek().text == text; }
  template <typename Kind> bool accept(Kind kind) {
    if (!peek().is(kind))
      return false;
    stream.skip();
    return true;
  }
  template <typename First, typename... Rest> bool acceptAny(First first, Rest... rest) {
    return accept(first) || (accept(rest) || ...);
  }
  /// Takes the keyword or token, or reports that it is missing. In the message, \p shown stands for
  /// the keyword unless it is empty.
  bool expect(Keyword keyword, llvm::StringRef shown = "");
  bool expect(TokenKind kind);
  /// Reports that \p what is missing here and what was found instead.
  Failure expected(llvm::StringRef what);
  /// Reports \p id at \p place with the values of its {0}, {1} ..., or keeps it as a consequence of
  /// an earlier mistake.
  template <typename... Arguments>
  Failure error(DiagnosticId id, const SourceRange &place, Arguments &&...arguments) {
    if (isToBeReported(id, place))
      context.diagnostics.report(id, place, std::forward<Arguments>(arguments)...);
    else
      context.diagnostics.suppress(id, place, std::forward<Arguments>(arguments)...);
    return {};
  }

  /// Notes that the next token is not what is needed, because of a mistake that has its message.
  void noteMistake();

  /// The place of the next token.
  SourceRange here() { return peek().place; }
  /// The place from \p begin to the end of the last token taken, as the position of a new node.
  Node from(const SourceRange &begin) {
    SourceRange range = begin;
    const SourceRange &last = stream.getLastPlace();
    // A construct that began in one file and ended in another (a copybook in its middle) is shown
    // with the file in which it began: its end is that of its first token.
    if (last.file == begin.file &&
        (last.endLine > begin.endLine ||
         (last.endLine == begin.endLine && last.endColumn > begin.endColumn))) {
      range.endLine = last.endLine;
      range.endColumn = last.endColumn;
    }
    return Node(range);
  }

  /// A new node from \p begin to the last token taken.
  template <typename T, typename... Arguments>
  T *make(const SourceRange &begin, Arguments &&...arguments) {
    Node place = from(begin);
    return new T(&place, std::forward<Arguments>(arguments)...);
  }
  /// A new node at \p place, whatever tokens were taken.
  template <typename T, typename... Arguments>
  static T *makeAt(const SourceRange &place, Arguments &&...arguments) {
    Node node(place);
    return new T(&node, std::forward<Arguments>(arguments)...);
  }
  /// Extends the place of \p node to the end of the last token taken.
  template <typename T> T *complete(T *node) {
    node->setRange(from(node->getRange()).getRange());
    return node;
  }

  /// For loops over the constructs of a part of a program: each iteration begins further on than
  /// the one before it. The branches of such a loop are meant to take tokens; where one takes none
  /// of damaged text, ensure() at the end of the iteration leaves one out.
  class Progress {
  public:
    explicit Progress(TokenStream &tokens) : stream(tokens) {}
    void ensure() {
      if (stream.getTaken() == taken)
        stream.skip();
      taken = stream.getTaken();
    }

  private:
    TokenStream &stream;
    uint64_t taken = stream.getTaken();
  };

  /// Marks the tokens taken while it lives as damaged text. It is for loops that skip to a token at
  /// which parsing can resume.
  class Skipping {
  public:
    explicit Skipping(ParserBase &owner) : parser(owner), begin(owner.here()) {}
    Skipping(ParserBase &owner, const SourceRange &first) : parser(owner), begin(first) {}
    ~Skipping() {
      if (parser.stream.getTaken() != takenBefore)
        parser.context.diagnostics.getDamage().add(parser.from(begin).getRange());
    }
    Skipping(const Skipping &) = delete;
    Skipping &operator=(const Skipping &) = delete;

  private:
    ParserBase &parser;
    SourceRange begin;
    uint64_t takenBefore = parser.stream.getTaken();
  };

  /// Whether a period is next that the characters of a word follow at once. After a mistake it is
  /// taken for part of the word.
  bool atPeriodInWord();

  /// Skips the next period and what comes before it, or to the end of the file.
  void skipPastPeriod();
  /// Takes the tokens up to the next space or separator period and returns their text.
  std::string takeRun();

  //===--------------------------------------------------------------------===//
  // Names and literals (ParserBase.cpp)
  //===--------------------------------------------------------------------===//

  /// A word from the next token, whatever it is.
  Word *takeWord();
  /// A user-defined word. \p what describes it in the message: "a data-name". For a reserved word
  /// the message says that it is one.
  Word *parseUserWord(llvm::StringRef what);
  /// The word that an entry declares. A reserved word is reported, but not its uses; where it was
  /// reported before, it is taken for the name.
  Word *parseDeclaredWord(llvm::StringRef what);
  /// Reports the next token, a reserved word, in the place of a word to be declared, but not its
  /// uses.
  void rejectDeclaredWord(llvm::StringRef what);
  /// A procedure-name, which may be all digits.
  Word *parseProcedureWord();
  /// name {OF | IN} name ...
  QualifiedWord *parseQualifiedWord(llvm::StringRef what);
  /// The same where \p name, which may be null, was taken.
  QualifiedWord *parseQualifiers(Word *name);
  /// procedure-name {OF | IN} section-name
  QualifiedWord *parseProcedureName();

  /// Whether a numeric literal, with or without a sign, is next.
  bool atNumericLiteral() {
    const Token &token = peek();
    return token.isNumber() || (token.isOneOf(TokenKind::Plus, TokenKind::Minus) &&
                                token.isJoinedToNext() && peek(1).isNumber());
  }
  /// Whether a literal or a figurative constant is next.
  bool atLiteral() {
    const Token &token = peek();
    if (token.isWord())
      return token.isFigurativeConstant() || (token.isUserWord() && isSymbolicCharacter(token));
    return token.is(TokenKind::AlphanumericLiteral) || atNumericLiteral();
  }
  /// Any literal or figurative constant, including ALL literal and symbolic characters.
  LiteralExpression *parseLiteral();
  NumericLiteralExpression *parseNumericLiteral();
  NonNumericLiteralExpression *parseNonNumericLiteral();
  void checkHexLiteral(const Token &token);
  FigurativeLiteralExpression *parseFigurativeConstant();

  //===--------------------------------------------------------------------===//
  // Where parts of a program begin (ParseHeaders.cpp)
  //===--------------------------------------------------------------------===//

  /// The division whose header is next; None where there is none.
  Keyword divisionAt();
  bool atDivision(Keyword which) { return divisionAt() == which; }
  /// Whether statements or paragraphs begin where entries are expected: PROCEDURE DIVISION is
  /// missing.
  bool atStrayProcedures();
  /// Reports that \p header, whose text is \p text, is missing before the next token.
  void missingHeader(Keyword header, llvm::StringRef text);
  /// Whether \p header was reported to be missing further up: here it only stands in the wrong
  /// place, which is not a second mistake.
  bool isHeaderDisplaced(Keyword header) const { return context.missingHeaders.contains(header); }
  /// Takes the header of \p division, which divisionAt() returned, up to its period.
  void takeDivisionHeader(Keyword division);
  /// Whether any division header, END PROGRAM or the end of the file is next.
  bool atUnitBoundary() {
    const Token &token = peek();
    const bool isPossible = token.is(TokenKind::EndOfFile) ||
                            (flagsOf(token.keyword) & KF_UnitHeader) ||
                            (token.isFirstOnLine() && (flagsOf(peek(1).keyword) & KF_UnitHeader));
    return isPossible && atUnitHeader();
  }
  bool atEndProgram();
  /// Whether the PROGRAM-ID paragraph is next, with which a program begins that has no division
  /// header before it.
  bool atProgramId();
  /// Whether a paragraph, section or division header of the environment or data division is next,
  /// or the end of the file.
  bool atPartHeader();
  /// The first word of the header of the section of the data division that is next, also where the
  /// header is misspelt or missing; None where no section is next.
  Keyword dataSectionAt();
  Keyword likelyStorage() const;
  /// Whether \p keyword names a paragraph of the environment division.
  static bool isEnvironmentParagraph(Keyword keyword);
  bool atDataSection() { return dataSectionAt() != Keyword::None; }
  /// Whether a number begins a line and is most likely a level number, before which a period is
  /// missing, and not a number that the clause before it needs.
  bool atLevelNumber();

  enum class HeaderKind : uint8_t { None, Paragraph, Section };
  /// What begins with the next token where a sentence may begin.
  HeaderKind headerKind() {
    const Token &name = peek();
    const bool isPossible =
        name.isWord() ? !name.isVerb() || atVerbAsName() : name.is(TokenKind::IntegerLiteral);
    return isPossible ? headerKindOfName() : HeaderKind::None;
  }
  /// Whether the next word begins a paragraph or a section, so that it cannot be an operand: a name
  /// in area A before a period, and any name before SECTION.
  ///
  /// Where the period of the sentence before it is missing, it must not be taken for an operand of
  /// that sentence. In free form every line begins in area A, which proves nothing: there a name
  /// counts that stands below the names of other paragraphs.
  bool atProcedureHeader() {
    const Token &name = peek();
    if (!name.isUserWord() && !name.is(TokenKind::IntegerLiteral))
      return false;
    const Token &next = peek(1);
    if (next.is(Keyword::Section))
      return true;
    if (!next.is(TokenKind::Period))
      return false;
    return name.isInFixedForm() ? name.isInAreaA() : isInParagraphColumn(name);
  }
  /// Whether \p name, of free form, begins a line in the column of the paragraphs before it, the
  /// statements are indented, and no data item has that name: operands can stand anywhere.
  bool isInParagraphColumn(const Token &name) const {
    return name.isUserWord() && name.isFirstOnLine() &&
           name.place.beginColumn == context.paragraphColumn &&
           name.place.beginColumn < context.statementColumn && !isNamed(name);
  }
  /// Whether a verb that needs operands stands in area A before a period: it is meant for the name
  /// of a paragraph.
  bool atVerbAsName() {
    const Token &verb = peek();
    return verb.isFirstOnLine() && verb.isInAreaA() && verb.isInFixedForm() &&
           peek(1).is(TokenKind::Period) && peek(2).isFirstOnLine() &&
           !verb.isOneOf(Keyword::Continue, Keyword::Exit, Keyword::Goback, Keyword::Note,
                         Keyword::Go, Keyword::Stop, Keyword::Sort, Keyword::Suppress);
  }
  bool atMisspeltSection();
  bool atDeclaratives();
  bool atEndDeclaratives() {
    return at(Keyword::End, Keyword::Declaratives) && atEndOfDeclaratives();
  }
  /// Whether a statement begins with the next token.
  bool atStatement() {
    const Token &token = peek();
    return token.isVerb() || (!token.is(Keyword::None) && atVerbOfTwoWords());
  }

  /// The period of an entry or header. A missing period is reported; then parsing goes on as if it
  /// were there.
  void expectPeriod();
  void missingPeriod();
  /// The period of a header in the procedure division. What stands there instead is skipped with
  /// the rest of its line.
  void expectHeaderPeriod();

  //===--------------------------------------------------------------------===//
  // Misspelt words (ParseMisspelt.cpp)
  //===--------------------------------------------------------------------===//

  /// The keyword that an undeclared word was most likely meant to be: one that an enclosing
  /// statement waits for, one that joins operands or, at the beginning of a line, a verb. None when
  /// there is no such keyword.
  Keyword misspeltKeyword();

  //===--------------------------------------------------------------------===//
  // Embedded languages (ParseEmbedded.cpp)
  //===--------------------------------------------------------------------===//

  /// EXEC language text END-EXEC
  ExecStatement *parseEmbeddedBlock();
  /// An embedded block where no statement can stand, among data entries, and the period after it.
  /// False when none is next.
  bool skipEmbeddedBlock();
  /// Skips the text of a block whose EXEC is misspelt, so that the stream has made tokens of it.
  void skipEmbeddedText();

  //===--------------------------------------------------------------------===//
  // What the program declares
  //===--------------------------------------------------------------------===//

  /// The names that the unit being read can see.
  Scope scope() const { return Scope(context.unit); }
  /// Whether the unit can see a data item of that name.
  bool isItem(llvm::StringRef name) const { return scope().isItem(&internString(name)); }
  /// Whether the word is a symbolic character that the unit can see.
  bool isSymbolicCharacter(const Token &word) const {
    return context.hasSymbolicCharacters && scope().isSymbolicCharacter(word.getInternedText());
  }
  /// Whether the word is declared as anything that can be an operand.
  bool isNamed(const Token &word) const {
    const std::string *name = word.getInternedText();
    return context.indexNames.contains(name) || scope().isDeclared(name);
  }

  /// Whether the source is a copybook that is read by itself.
  bool isCopybook() const { return context.isCopybook; }

protected:
  /// How deep constructs may nest: statements in statements, parentheses, programs.
  static constexpr unsigned maxDepth = 1000;

  /// Counts one level of nesting as long as it lives.
  class Depth {
  public:
    explicit Depth(ParserBase &parser) : context(parser.context) { ++context.depth; }
    ~Depth() { --context.depth; }
    Depth(const Depth &) = delete;
    Depth &operator=(const Depth &) = delete;
    bool isTooDeep() const { return context.depth > maxDepth; }

  private:
    ParserContext &context;
  };

  ParserContext &context;
  TokenStream &stream;
  Recovery &recovery;

private:
  bool isToBeReported(DiagnosticId id, const SourceRange &place);
  Keyword divisionBefore(unsigned n);
  bool atUnitHeader();
  HeaderKind headerKindOfName();
  bool atEndOfDeclaratives();
  bool atVerbOfTwoWords();
  Keyword namelessDivision(unsigned n);
  Keyword tornDivision();
  unsigned nextLineBegin(unsigned limit);
  bool isEntryLine();
  bool atUnreplacedTag();
  bool atDamagedSection();
  bool atMisspeltBlock();
  bool atMisspeltDivision(unsigned n);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSERBASE_H
