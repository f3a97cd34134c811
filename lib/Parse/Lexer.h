//===- Lexer.h - from lines of program text to tokens -----------*- C++ -*-===//
//
// The lexer takes lines from a LineReader, lets a Scanner make tokens of them,
// gives the tokens their places, and handles what depends on the words before:
// picture strings, embedded text, comment-entries, listing statements and
// directives.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_LEXER_H
#define TARKA_PARSE_LEXER_H

#include "Parse/Directives.h"
#include "Parse/Keywords.h"
#include "Parse/LineReader.h"
#include "Parse/Scanner.h"
#include "Parse/Token.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringSet.h"

namespace tarka {

/// What all the lexers of one compilation share.
struct LexerContext {
  LexerContext(const ParseOptions &options, FrontEndDiagnostics &sink)
      : options(options), diagnostics(sink), words(options.osvs), variables(options.defines),
        debuggingMode(options.debuggingLines) {
    variables.defineDefaults();
    variables.defineLanguages(options);
  }

  /// The options given, and those that the source turns on by itself.
  ParseOptions options;
  SourceDiagnostics diagnostics;
  WordTable words;
  CompilationVariables variables;
  bool debuggingMode;
  /// The words that were reported to be too long.
  llvm::StringSet<> longWords;
  bool decimalPointIsComma = false;
  /// A program begins with its identification division, where comment-entries may stand.
  bool inIdentificationDivision = true;
};

/// The part of a blank-delimited string that is a picture character-string: a final period, comma
/// or semicolon is a separator.
llvm::StringRef pictureIn(llvm::StringRef text);

/// Reports, once for each file, that \p file is not text or not in its encoding: 3, 6, 7. Returns
/// true when the file cannot be read.
bool reportFault(const SourceFile &file, LexerContext &context);

/// The tokens of one file.
class Lexer {
public:
  Lexer(const SourceFile &file, SourceFormat format, LexerContext &context, bool isMain);

  /// Makes the next token. The end of the file repeats itself. True where the token is an ordinary
  /// one: not the end of the file, and no keyword that means something to the token stream.
  bool next(Token &token);

  SourceFormat getFormat() const { return lines.getFormat(); }
  /// Where the EXEC SQL INCLUDE stands that was read last, from EXEC to END-EXEC.
  const SourceRange &getIncludePlace() const { return includePlace; }

  /// Applies what the program says about its text: the decimal point at once, in the middle of a
  /// line too, and whether debugging lines are read from the next line on.
  void applySettings() {
    scanner.setDecimalPointIsComma(context.decimalPointIsComma);
    lines.setDebuggingMode(context.debuggingMode);
  }

  /// Says that pseudo-text is being read: it is taken as it is, keywords have no effect on it, and
  /// every comma counts.
  void setInPseudoText(bool on) {
    inPseudoText = on;
    scanner.setKeepsCommas(on);
  }

  /// Skips text up to the period that ends it, or to the next header.
  void skipRemark();
  /// Skips text up to the next paragraph, section or division header.
  void skipCommentEntry();

private:
  enum class State : uint8_t { Plain, Picture, EmbeddedWord, EmbeddedText, EmbeddedBlock };

  bool nextLine();
  bool readLine();
  bool scanNextLine(Token &token);
  bool takeSpecial(Token &token);
  bool isOrdinary(const Token &token) const;
  void obeyOptions(llvm::StringRef text);
  void setPlace(Token &token);
  bool checkToken(Token &token);
  bool actOnKeyword(Token &token);
  bool readPicture(Token &token);
  void readEmbeddedBlock(Token &exec);
  void readEmbeddedText(Token &token);
  size_t findMisspeltEnd(llvm::StringRef line) const;
  bool isAhead(char mark);
  void readCicsConstant(Token &token);
  void skipListingStatement(bool hasLiteral);
  void skipSourceUpdate(const Token &token);
  bool skipToLineEnd();
  void reportLongWord(const Token &token);
  void reportOpenLiteral(const Token &token);
  void reportNotText(const char *first, const char *last);
  bool isHeaderLine() const;
  bool isProgramLine() const;
  bool isStatementLine() const;

  // Directives.
  struct Conditional {
    DirectiveOperand subject; ///< what an EVALUATE compares; a condition for IF
    SourceRange place;
    bool isEvaluate = false;
    bool wasTaken = false;   ///< a branch was read
    bool lastBranch = false; ///< ELSE or WHEN OTHER was seen
    bool isDoubtful = false; ///< which branch is to be read is not known
  };
  /// Whether the line that was just read begins with >>, or is meant to.
  bool isDirective() const {
    return *lines.first() == '>' && lines.end() - lines.first() > 1 &&
           (lines.first()[1] == '>' || isTornDirective());
  }
  bool isTornDirective() const;
  bool obeyDirective();
  void obeyConditional(llvm::StringRef name, DirectiveText &text);
  void beginConditional(llvm::StringRef name, DirectiveText &text);
  bool belongsToOpen(llvm::StringRef name);
  void beginStrayBranch(llvm::StringRef name);
  void noteDoubt();
  void endConditional();
  bool takesBranch(llvm::StringRef name, DirectiveText &text);
  void skipBranches();
  void setSourceFormat(DirectiveText &text);
  SourceRange placeOfLine();

  LexerContext &context;
  LineReader lines;
  Scanner scanner;
  llvm::SmallVector<Conditional, 4> conditionals;
  /// Whether a branch of an IF, of an EVALUATE was reported that nothing begins and nothing ends.
  bool hasStrayBranch[2] = {false, false};
  State state = State::Plain;
  Keyword previousKeyword = Keyword::None;
  Token embedding; ///< the word after EXEC
  SourceRange includePlace;
  /// The tokens of an embedded block that were read after EXEC, in reverse order.
  llvm::SmallVector<Token, 3> block;
  bool atLineStart = false;
  uint8_t lineFlags = 0; ///< of all tokens of the line
  bool inPseudoText = false;
  bool controlByteSeen = false;
  bool isBasis = false;
  bool isAtEnd = false;
};

} // namespace tarka

#endif // TARKA_PARSE_LEXER_H
