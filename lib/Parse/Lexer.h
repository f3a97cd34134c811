//===- Lexer.h - from lines of program text to tokens -----------*- C++ -*-===//
//
// There are two levels. The scanner makes tokens from the characters of one line
// and knows nothing about files. The lexer takes lines from a LineReader, gives
// tokens their places, and handles what depends on the words before: picture
// strings, embedded text, comment-entries, listing statements and directives.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_LEXER_H
#define TARKA_PARSE_LEXER_H

#include "Parse/Directives.h"
#include "Parse/Keywords.h"
#include "Parse/LineReader.h"
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

/// Makes tokens of a piece of text. It sets everything in a token but its place.
class Scanner {
public:
  /// Commas that separate nothing are tokens when \p keepsCommas.
  Scanner(WordTable &words, bool keepsCommas) : words(words), keepsCommas(keepsCommas) {}

  void setText(const char *begin, const char *end) {
    cursor = begin;
    textEnd = end;
    previous = TokenKind::EndOfFile;
  }
  void setKeepsCommas(bool on) { keepsCommas = on; }
  /// Takes tags like :PRE: for parts of words, as in a copybook that is read by itself.
  void setReadsTags(bool on) { readsTags = on; }
  void setDecimalPointIsComma(bool on) { decimalPoint = on ? ',' : '.'; }

  /// Makes the next token; false at the end of the text.
  bool scan(Token &token);

  const char *getCursor() const { return cursor; }
  const char *getEnd() const { return textEnd; }
  void setCursor(const char *at) { cursor = at; }
  /// Whether the literal scanned last had no closing quote.
  bool isLiteralOpen() const { return literalIsOpen; }

private:
  void finish(Token &token, TokenKind kind, const char *begin);
  void scanWord(Token &token, const char *begin);
  void scanNumber(Token &token, const char *begin);
  void scanLiteral(Token &token, const char *begin);
  void scanMark(Token &token, const char *begin);
  bool beginsFraction(bool afterSpace) const;
  const char *skipTag() const;

  WordTable &words;
  const char *cursor = nullptr;
  const char *textEnd = nullptr;
  TokenKind previous = TokenKind::EndOfFile;
  char decimalPoint = '.';
  bool keepsCommas;
  bool readsTags = false;
  bool literalIsOpen = false;
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

  /// Makes the next token. The end of the file repeats itself.
  void next(Token &token);

  SourceFormat getFormat() const { return lines.getFormat(); }
  /// Where the EXEC SQL INCLUDE stands that was read last, from EXEC to END-EXEC.
  const SourceRange &getIncludePlace() const { return includePlace; }

  /// Applies the context's decimal point, in the middle of a line too.
  void updateDecimalPoint() { scanner.setDecimalPointIsComma(context.decimalPointIsComma); }

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

  // Directives.
  struct Conditional {
    DirectiveOperand subject; ///< what an EVALUATE compares; a condition for IF
    SourceRange place;
    bool isEvaluate = false;
    bool wasTaken = false;   ///< a branch was read
    bool lastBranch = false; ///< ELSE or WHEN OTHER was seen
  };
  bool isDirective() const;
  bool obeyDirective();
  void obeyConditional(llvm::StringRef name, DirectiveText &text);
  void beginConditional(llvm::StringRef name, DirectiveText &text);
  bool belongsToOpen(llvm::StringRef name);
  bool takesBranch(llvm::StringRef name, DirectiveText &text);
  void skipBranches();
  void setSourceFormat(DirectiveText &text);
  SourceRange placeOfLine();

  LexerContext &context;
  LineReader lines;
  Scanner scanner;
  llvm::SmallVector<Conditional, 4> conditionals;
  State state = State::Plain;
  Keyword previousKeyword = Keyword::None;
  Token embedding; ///< the word after EXEC
  SourceRange includePlace;
  /// The tokens of an embedded block that were read after EXEC, in reverse order.
  llvm::SmallVector<Token, 3> block;
  bool atLineStart = false;
  bool inPseudoText = false;
  bool controlByteSeen = false;
  bool isBasis = false;
  bool isAtEnd = false;
};

} // namespace tarka

#endif // TARKA_PARSE_LEXER_H
