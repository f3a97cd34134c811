//===- LexerTest.cpp - source formats, continuation, tokens ---------------===//

#include "StreamTest.h"

namespace tarka {
namespace {

using LexerTest = StreamTest;

TEST_F(LexerTest, FixedFormHasColumns) {
  TokenStream &stream =
      open("000100 IDENTIFICATION DIVISION.                                         "
           "PGM00010\n"
           "CHANGE*    a comment\n"
           "      /    a page\n"
           "          *> another comment\n"
           "000200 P1.\n"
           "      D    DISPLAY 'off'.\n"
           "           MOVE Alpha-1 TO b.  *> rest\n"
           "\n"
           "000300");
  Token token = stream.next();
  EXPECT_EQ(token.keyword, Keyword::Identification);
  EXPECT_EQ(placeOf(token), "1:8-1:21");
  EXPECT_TRUE(token.isInAreaA() && token.isFirstOnLine() && token.isPrecededBySpace());
  token = stream.next();
  EXPECT_EQ(token.keyword, Keyword::Division);
  EXPECT_FALSE(token.isInAreaA());
  EXPECT_EQ(placeOf(stream.next()), "1:31-1:31");
  token = stream.next();
  EXPECT_EQ(token.text, "P1");
  EXPECT_TRUE(token.isInAreaA() && token.isUserWord());
  EXPECT_FALSE(stream.next().isPrecededBySpace());
  token = stream.next();
  EXPECT_EQ(token.text, "MOVE");
  EXPECT_TRUE(token.isVerb() && token.isFirstOnLine() && !token.isInAreaA());
  token = stream.next();
  EXPECT_EQ(token.text, "ALPHA-1");
  EXPECT_EQ(token.spelling, "Alpha-1");
  EXPECT_EQ(*token.getInternedText(), "ALPHA-1");
  EXPECT_EQ(*token.getInternedSpelling(), "Alpha-1");
  EXPECT_EQ(placeOf(token), "7:17-7:23");
  EXPECT_EQ(rest(), "TO B .");
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(stream.next().kind, TokenKind::EndOfFile);
  EXPECT_EQ(stream.next().kind, TokenKind::EndOfFile);
}

TEST_F(LexerTest, DebuggingLinesAreReadOnDemand) {
  llvm::StringRef text = "       A.\n"
                         "      D    B.\n"
                         "       C.\n"
                         "      d    D.\n"
                         "       E.\n";
  EXPECT_EQ(tokens(text), "A . C . E .");
  open(text);
  stream->skip();
  stream->setDebuggingMode(true);
  EXPECT_EQ(rest(), ". B . C . D . E .");
  options.debuggingLines = true;
  EXPECT_EQ(tokens(text), "A . B . C . D . E .");
}

// Every kind of token goes on in the next line as if the lines were one.
TEST_F(LexerTest, ContinuationOfEveryTokenKind) {
  TokenStream &stream = open("           MOVE ALPHA-\n"
                             "      * a comment may stand between\n"
                             "\n"
                             "      -    BETA TO 123\n"
                             "      -    45.5 \"Hel\n"
                             "      -    \"lo\" PIC S9(\n"
                             "      -    5)V99.\n"
                             "           X'0A\n"
                             "      -    '0B' *\n"
                             "      -    * END\n");
  stream.skip();
  Token word = stream.next();
  EXPECT_EQ(word.text, "ALPHA-BETA");
  EXPECT_EQ(placeOf(word), "1:17-4:15");
  EXPECT_TRUE(word.has(Token::Continued));
  Token to = stream.next();
  EXPECT_EQ(placeOf(to), "4:17-4:18");
  EXPECT_FALSE(to.has(Token::Continued));
  Token number = stream.next();
  EXPECT_EQ(number.kind, TokenKind::NumericLiteral);
  EXPECT_EQ(number.text, "12345.5");
  Token literal = stream.next();
  // The open literal has all the columns up to 72.
  EXPECT_EQ(literal.text, "\"Hel" + std::string(72 - 20, ' ') + "lo\"");
  EXPECT_EQ(placeOf(literal), "5:17-6:15");
  EXPECT_EQ(stream.next().keyword, Keyword::Pic);
  Token picture = stream.next();
  EXPECT_EQ(picture.kind, TokenKind::PictureString);
  EXPECT_EQ(picture.text, "S9(5)V99");
  EXPECT_EQ(placeOf(picture), "6:21-7:16");
  EXPECT_EQ(stream.next().kind, TokenKind::Period);
  EXPECT_EQ(stream.next().text, "X'0A" + std::string(72 - 15, ' ') + "0B'");
  EXPECT_EQ(stream.next().kind, TokenKind::Power);
  EXPECT_EQ(placeOf(stream.next()), "10:14-10:16");
  EXPECT_EQ(reported(), "");
}

TEST_F(LexerTest, ContinuedLiteralKeepsItsQuotes) {
  // The literal ends in column 72, and two quotes on the next line make one inside it.
  std::string first = "           DISPLAY '" + std::string(51, 'a') + "'";
  ASSERT_EQ(first.size(), 72u);
  EXPECT_EQ(tokens(first + "IGNORED\n      -    ''b'.\n"),
            "DISPLAY '" + std::string(51, 'a') + "''b' .");
  EXPECT_EQ(reported(), "");
}

TEST_F(LexerTest, FaultsOfContinuation) {
  EXPECT_EQ(tokens("      -    LOST\n"
                   "           'abc\n"
                   "      -    def'\n"
                   "           'open\n"
                   "           NEXT\n"
                   "           A\n"
                   "      -   B\n"
                   "      xMOVE\n"),
            "LOST 'abc" + std::string(72 - 15, ' ') + "def' 'open NEXT AB XMOVE");
  EXPECT_EQ(reported(), "21@1 22@3 24@4 23@7 20@8");
  EXPECT_EQ(show(diagnostics.getEntries()[2].place), "4:12-4:16");
}

TEST_F(LexerTest, FreeForm) {
  options.format = SourceFormat::Free;
  TokenStream &stream = open("identification division.\n"
                             "   *> comment\n"
                             "move \"it's\" to x *> more\n" +
                             std::string(300, ' ') +
                             "y.\n"
                             "- 'never closed\n"
                             ">>D display 'off'\n"
                             "z");
  EXPECT_TRUE(stream.peek().isInAreaA());
  EXPECT_FALSE(stream.peek(1).isInAreaA());
  EXPECT_EQ(stream.peek(4).text, "\"it's\"");
  EXPECT_EQ(placeOf(stream.peek(7)), "4:301-4:301");
  EXPECT_EQ(rest(), "IDENTIFICATION DIVISION . MOVE \"it's\" TO X Y . - 'never closed Z");
  EXPECT_EQ(reported(), "24@5");
}

TEST_F(LexerTest, LinesMayEndInAnyWay) {
  EXPECT_EQ(tokens("       A\r\n       B\r       C\n\r\n       D\x1A"), "A B C D");
  open("       A\r\n       B\r       C\n\r\n       D");
  EXPECT_EQ(placeOf(stream->peek(1)), "2:8-2:8");
  EXPECT_EQ(placeOf(stream->peek(2)), "3:8-3:8");
  EXPECT_EQ(placeOf(stream->peek(3)), "5:8-5:8");
  EXPECT_EQ(reported(), "");
}

TEST_F(LexerTest, ColumnsCountCharacters) {
  // A tab is one character of the file, but goes on to the next tab stop of the form.
  open("\xEF\xBB\xBF"
       "\tA\n"
       "       B 'd\xC3\xBCnn' C\n"
       "\t   " +
       std::string(60, ' ') + "D E\n");
  EXPECT_EQ(placeOf(stream->peek(0)), "1:2-1:2");
  EXPECT_TRUE(stream->peek(0).isInAreaA());
  EXPECT_EQ(placeOf(stream->peek(2)), "2:10-2:15");
  EXPECT_EQ(placeOf(stream->peek(3)), "2:17-2:17");
  // Tab, 3 and 60 spaces: D stands in column 72, and E is beyond the text.
  EXPECT_EQ(placeOf(stream->peek(4)), "3:65-3:65");
  EXPECT_EQ(rest(), "A B 'd\xC3\xBCnn' C D");
}

TEST_F(LexerTest, SignsAndNumbers) {
  TokenStream &stream = open("           A-1 A - 1 (A -1) +5 -5.25 .5 1.5E-3 1ST-P 10-20 5. -.5");
  std::string kinds;
  for (; !stream.atEnd(); stream.skip()) {
    const Token &token = stream.peek();
    kinds += token.text;
    if (token.isJoinedToNext())
      kinds += '~';
    kinds += token.is(TokenKind::Word)             ? 'w'
             : token.is(TokenKind::IntegerLiteral) ? 'i'
             : token.is(TokenKind::NumericLiteral) ? 'n'
                                                   : ' ';
  }
  EXPECT_EQ(kinds, "A-1wAw- 1i( Aw-~ 1i) +~ 5i-~ 5.25n.5n1.5E-3n1ST-Pw10-20w5i. -~ .5n");
}

TEST_F(LexerTest, CommaAsDecimalPoint) {
  llvm::StringRef text = "           A 1,5 B(1,2), C;\n           1,5 1.5 ,5 .\n";
  EXPECT_EQ(tokens(text), "A 1 5 B ( 1 2 ) C 1 5 1.5 5 .");
  open(text);
  stream->skip();
  stream->setDecimalPointIsComma(true);
  EXPECT_EQ(rest(), "1,5 B ( 1,2 ) C 1,5 1 . 5 ,5 .");
}

TEST_F(LexerTest, MarksAndLiterals) {
  TokenStream &stream = open("           ( ) : + - * / ** = < > <= >= <> &\n"
                             "           'a''b' x\"0E\" N'x' G\"y\" nx'00' z'q' #");
  TokenKind kinds[] = {TokenKind::LParen,       TokenKind::RParen,   TokenKind::Colon,
                       TokenKind::Plus,         TokenKind::Minus,    TokenKind::Star,
                       TokenKind::Slash,        TokenKind::Power,    TokenKind::Equal,
                       TokenKind::Less,         TokenKind::Greater,  TokenKind::LessEqual,
                       TokenKind::GreaterEqual, TokenKind::NotEqual, TokenKind::Ampersand};
  for (TokenKind kind : kinds)
    EXPECT_EQ(stream.next().kind, kind);
  for (llvm::StringRef literal : {"'a''b'", "x\"0E\"", "N'x'", "G\"y\"", "nx'00'", "z'q'"}) {
    Token token = stream.next();
    EXPECT_EQ(token.kind, TokenKind::AlphanumericLiteral);
    EXPECT_EQ(token.text, literal);
  }
  EXPECT_EQ(stream.next().kind, TokenKind::Other);
  EXPECT_EQ(reported(), "");
}

TEST_F(LexerTest, PictureStrings) {
  EXPECT_EQ(
      tokens("           PIC X(5). PICTURE IS $$,$$9.99-, PIC\n"
             "           IS\n"
             "           9.9; PICTURE SYMBOL '$' PIC ***,**9.99. PIC .\n"),
      "PIC X(5) . PICTURE IS $$,$$9.99- PIC IS 9.9 PICTURE SYMBOL '$' PIC ***,**9.99 . PIC .");
  EXPECT_EQ(reported(), "");
  open("           PIC IS X.\n");
  EXPECT_EQ(stream->peek(2).kind, TokenKind::PictureString);
  EXPECT_EQ(placeOf(stream->peek(2)), "1:19-1:19");
}

TEST_F(LexerTest, KeywordsByOption) {
  open("           EXAMINE YYYYMMDD TALLY ZEROES END-IF PARAGRAPH");
  EXPECT_TRUE(stream->peek(0).isUserWord());
  EXPECT_TRUE(stream->peek(1).isUserWord() && stream->peek(1).is(Keyword::Yyyymmdd));
  EXPECT_TRUE(isSpecialRegister(stream->peek(2).keyword));
  EXPECT_TRUE(stream->peek(3).isFigurativeConstant());
  EXPECT_TRUE(isScopeTerminator(stream->peek(4).keyword));
  options.osvs = true;
  open("           EXAMINE");
  EXPECT_TRUE(stream->peek().isVerb() && !stream->peek().isUserWord());
}

TEST_F(LexerTest, CommentEntriesAreLeftOut) {
  llvm::StringRef fixed = "       ID DIVISION.\n"
                          "       PROGRAM-ID. X.\n"
                          "       AUTHOR. Pat O'Brien, PIC of EXEC.\n"
                          "           COPY nothing. 'still his\n"
                          "       DATE-WRITTEN.   today.\n"
                          "       SECURITY.\n"
                          "           none.\n"
                          "       DATA DIVISION.\n"
                          "       SECURITY. A.\n";
  EXPECT_EQ(tokens(fixed), "ID DIVISION . PROGRAM-ID . X . AUTHOR . DATE-WRITTEN . SECURITY . "
                           "DATA DIVISION . SECURITY . A .");
  options.format = SourceFormat::Free;
  EXPECT_EQ(tokens("identification division.\n"
                   "author. me.\n"
                   "data processing's department.\n"
                   "installation. here\n"
                   "environment division."),
            "IDENTIFICATION DIVISION . AUTHOR . INSTALLATION . ENVIRONMENT DIVISION .");
  EXPECT_EQ(reported(), "");
}

TEST_F(LexerTest, SkippingACommentEntryOnRequest) {
  open("       A. b c\n           d.\n       DATA DIVISION.\n");
  stream->skip();
  stream->peek(2);
  stream->skipCommentEntry();
  EXPECT_EQ(rest(), "DATA DIVISION .");
  // What was skipped already is not skipped twice.
  open("       AUTHOR. b c\n           d.\n       DATA DIVISION.\n");
  stream->skip();
  stream->skip();
  stream->skipCommentEntry();
  EXPECT_EQ(rest(), "DATA DIVISION .");
}

TEST_F(LexerTest, EmbeddedText) {
  TokenStream &stream = open("           EXEC SQL\n"
                             "             SELECT 'it''s' -- PIC\n"
                             "      * comment\n"
                             "               INTO :A\n"
                             "           END-EXEC.\n"
                             "           EXECUTE CICS RETURN END-EXECX end-exec\n"
                             "           EXEC DLI END-EXEC\n"
                             "           EXEC SQL open");
  EXPECT_EQ(stream.next().keyword, Keyword::Exec);
  EXPECT_EQ(stream.next().text, "SQL");
  Token text = stream.next();
  EXPECT_EQ(text.kind, TokenKind::EmbeddedText);
  EXPECT_EQ(text.text, "SELECT 'it''s' -- PIC\n        INTO :A");
  EXPECT_EQ(placeOf(text), "2:14-4:22");
  EXPECT_EQ(stream.next().keyword, Keyword::EndExec);
  EXPECT_EQ(stream.next().kind, TokenKind::Period);
  EXPECT_EQ(rest(), "EXECUTE CICS RETURN END-EXECX END-EXEC EXEC DLI  END-EXEC EXEC SQL open");
  EXPECT_EQ(reported(), "27@8");
}

TEST_F(LexerTest, ListingStatementsAndOptions) {
  EXPECT_EQ(tokens("CBL APOST,RENT\n"
                   "000100 PROCESS X\n"
                   "       A.\n"
                   "           EJECT\n"
                   "           SKIP1.\n"
                   "           SKIP2\n"
                   "           TITLE 'page one'.\n"
                   "      *CBL NOLIST\n"
                   "           *CONTROL SOURCE\n"
                   "           BASIS OLDPROG\n"
                   "           DELETE 1-5\n"
                   "           INSERT 7\n"
                   "       END PROGRAM B.\n"
                   "PROCESS RENT\n"
                   "       C.\n"),
            "A . END PROGRAM B . C .");
  EXPECT_EQ(reported(), "88@10 88@11 88@12");
}

TEST_F(LexerTest, BytesThatAreNoText) {
  std::string text(200, ' ');
  EXPECT_EQ(tokens("       A\x01 \x02 B \xC3\xA4 'x\x03y' '\x0E..\x0F'." + text),
            "A B 'x\x03y' '\x0E..\x0F' .");
  // One message for control bytes, one for each stretch of foreign characters.
  EXPECT_EQ(reported(), "4@1 5@1");
  EXPECT_EQ(show(diagnostics.getEntries()[0].place), "1:9-1:9");
  EXPECT_EQ(show(diagnostics.getEntries()[1].place), "1:15-1:15");

  diagnostics = FrontEndDiagnostics();
  std::string binary = "\x7F"
                       "ELF\n";
  for (unsigned i = 0; i < 5000; ++i)
    binary += static_cast<char>(i * 7);
  EXPECT_EQ(tokens(binary), "");
  EXPECT_EQ(reported(), "3@2");
}

TEST_F(LexerTest, NothingToCompile) {
  for (llvm::StringRef text : {"", "\n\n", "      * only a comment\n"}) {
    diagnostics = FrontEndDiagnostics();
    EXPECT_EQ(tokens(text), "");
    ASSERT_EQ(diagnostics.getEntries().size(), 1u);
    EXPECT_EQ(diagnostics.getEntries()[0].id, DiagnosticId::NothingToCompile);
  }
}

TEST_F(LexerTest, MegabyteLine) {
  options.format = SourceFormat::Free;
  std::string line;
  while (line.size() < 1'000'000)
    line += "ab '\xC3\xBC' ";
  open(line);
  unsigned count = 0;
  Token last;
  for (; !stream->atEnd(); ++count)
    last = stream->next();
  EXPECT_EQ(count % 2, 0u);
  EXPECT_EQ(last.place.endColumn, count / 2 * 7 - 1);
}

TEST_F(LexerTest, FormatIsFoundOut) {
  auto detect = [](llvm::StringRef text) { return detectSourceFormat(text); };
  EXPECT_EQ(detect("000100 IDENTIFICATION DIVISION.\n"), SourceFormat::Fixed);
  EXPECT_EQ(detect("       IDENTIFICATION DIVISION.\n      * x\n"), SourceFormat::Fixed);
  EXPECT_EQ(detect("IDENTIFICATION DIVISION.\nPROGRAM-ID. X.\n"), SourceFormat::Free);
  EXPECT_EQ(detect("*> free\n       MOVE A TO B\n"), SourceFormat::Free);
  EXPECT_EQ(detect("       >>SOURCE FORMAT IS FREE\nX"), SourceFormat::Free);
  EXPECT_EQ(detect("CBL RENT\n       ID DIVISION.\n"), SourceFormat::Fixed);
  EXPECT_EQ(detectSourceFormat("           05 A PIC X.\n", SourceFormat::Free), SourceFormat::Free);
}

TEST_F(LexerTest, ErrorsAreBounded) {
  std::string text;
  for (unsigned i = 0; i < 3000; ++i)
    text += "           'open\n";
  tokens(text);
  EXPECT_EQ(diagnostics.getEntries().size(), FrontEndDiagnostics::maxErrors + 1);
  EXPECT_EQ(diagnostics.getEntries().back().id, DiagnosticId::TooManyErrors);
}

} // namespace
} // namespace tarka
