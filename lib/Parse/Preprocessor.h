//===- Preprocessor.h - the token stream that a parser reads ----*- C++ -*-===//
//
// The tokens of a compilation in the order in which the compiler is to see them:
// copybooks inserted, REPLACING and REPLACE applied, directives applied. Tokens
// are made on demand and are not kept.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_PREPROCESSOR_H
#define TARKA_PARSE_PREPROCESSOR_H

#include "Parse/Diagnostics.h"
#include "Parse/Keywords.h"
#include "Parse/SourceFile.h"
#include "Parse/Token.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/SmallVector.h"
#include <array>
#include <cassert>
#include <cstddef>
#include <memory>

namespace tarka {

class Expansion;
class OpenConstructs;
class Preprocessor;
class SourceDiagnostics;

/// The tokens of one compilation.
///
/// The stream handles by itself, so that look-ahead cannot interfere:
/// - The string after PIC or PICTURE [IS] is one PictureString.
/// - EXEC and EXECUTE come as EXEC, the word after it, one EmbeddedText, END-EXEC.
/// - A comment-entry (the text after the period of AUTHOR, DATE-WRITTEN ... in an
///   identification division) is left out.
/// - Separator commas and semicolons, comments, listing statements are left out.
class TokenStream {
public:
  /// How many tokens peek() can look at, the next one included.
  static constexpr unsigned lookAhead = 64;

  /// Reads \p main, and records what COPY and REPLACE make of it in \p record, if it is not null.
  /// \p files, \p diagnostics and \p record must outlive the stream.
  TokenStream(const SourceFile &main, SourceManager &files, FrontEndDiagnostics &diagnostics,
              Expansion *record = nullptr);
  /// A stream of the tokens that setTokens() gives it. \p enclosing, from which they come, must
  /// outlive it.
  explicit TokenStream(TokenStream &enclosing);
  ~TokenStream();

  /// Begins anew with \p tokens, which must live until the next ones are set.
  void setTokens(llvm::ArrayRef<Token> tokens);

  /// The next token; the end of the file repeats itself. The reference is valid until the next call
  /// of a function of the stream.
  const Token &peek() {
    if (current == end)
      addToken();
    return *current;
  }
  /// The token \p n tokens ahead, 0 the next one.
  const Token &peek(unsigned n) {
    assert(n < lookAhead && "looks too far ahead");
    if (end - current <= static_cast<std::ptrdiff_t>(n))
      fill(n + 1);
    return current[n];
  }

  /// Takes the next token off the stream.
  Token next() {
    Token token = peek();
    skip();
    return token;
  }

  /// Leaves the next token out.
  void skip() {
    if (current == end)
      addToken();
    ++current;
  }

  /// Makes the next token, a word, the keyword that it was meant to be.
  void correct(Keyword meant);

  bool atEnd() { return peek().is(TokenKind::EndOfFile); }

  /// The place of the token that was taken last: where a construct ends.
  const SourceRange &getLastPlace() const { return current[-1].place; }

  /// How many tokens were taken off the stream.
  uint64_t getTaken() const { return takenBefore + (current - 1 - buffer.data()); }

  /// Reads debugging lines from the next line on (WITH DEBUGGING MODE).
  void setDebuggingMode(bool on);
  /// Reads 1,5 as one number from the next token on that was not looked at yet.
  void setDecimalPointIsComma(bool on);

  /// Leaves tokens out up to the next paragraph, section or division header. The stream does this
  /// by itself after the comment paragraphs of an identification division; this is for text that
  /// stands where only a header may.
  void skipCommentEntry();
  /// Skips text that is not part of the program, up to its period, which is then next, or to a
  /// header.
  void skipRemark();

  /// The options given, and those that CBL and PROCESS lines turned on.
  const ParseOptions &getOptions() const;

  /// Adds to \p tokens those of \p text, the text of an embedded block, read as COBOL text.
  void scanEmbedded(llvm::StringRef text, const EmbeddedLines &places,
                    llvm::SmallVectorImpl<Token> &tokens);

  /// Reports the lines that are cut at column 72, when the parser has read everything.
  void reportCutLines();

  /// What is known about damage to the source text.
  const SourceDiagnostics &getSourceDiagnostics() const;
  /// The constructs being parsed, in which the stream notes the mistakes in the text.
  OpenConstructs &getOpenConstructs();

private:
  void addToken();
  void fill(unsigned wanted);
  void makeRoom();

  std::unique_ptr<Preprocessor> source; ///< null for a stream of given tokens
  TokenStream *outer = nullptr;         ///< of a stream of given tokens
  llvm::ArrayRef<Token> given;
  /// The token that was taken last, then those that were looked at, from the next one up to the
  /// end. They move to the front when there is no more room behind them.
  std::array<Token, std::size_t(2) * lookAhead> buffer;
  Token *current = buffer.data() + 1;
  Token *end = current;
  /// How many tokens were taken before those in the buffer.
  uint64_t takenBefore = 0;
};

} // namespace tarka

#endif // TARKA_PARSE_PREPROCESSOR_H
