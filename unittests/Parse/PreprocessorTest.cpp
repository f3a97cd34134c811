//===- PreprocessorTest.cpp - COPY, REPLACE, directives -------------------===//

#include "StreamTest.h"

namespace tarka {
namespace {

class PreprocessorTest : public StreamTest {
protected:
  PreprocessorTest() { options.format = SourceFormat::Free; }

  /// The tokens of \p pairs applied to \p copybook by COPY REPLACING.
  std::string replaced(llvm::StringRef copybook, llvm::StringRef pairs) {
    memory = new llvm::vfs::InMemoryFileSystem;
    options.fileSystem = memory;
    addFile("BOOK", copybook);
    return tokens(("COPY BOOK REPLACING " + pairs + ".").str());
  }
};

TEST_F(PreprocessorTest, CopyAnywhereAWordMayStand) {
  addFile("rec.cpy", "05 A PIC X.\n  05 B COPY inner. .\n");
  addFile("INNER", "PIC 9");
  TokenStream &stream = open("01 R.\ncopy rec. 77 C COPY 'INNER'. .");
  EXPECT_EQ(stream.peek(3).place.beginLine, 1u);
  EXPECT_EQ(fileNameOf(stream.peek(2).place.file), "MAIN.CBL");
  EXPECT_EQ(fileNameOf(stream.peek(3).place.file), "rec.cpy");
  EXPECT_EQ(stream.peek(3).text, "05");
  EXPECT_EQ(fileNameOf(stream.peek(11).place.file), "INNER");
  EXPECT_EQ(rest(), "01 R . 05 A PIC X . 05 B PIC 9 . 77 C PIC 9 .");
  EXPECT_EQ(reported(), "");
}

TEST_F(PreprocessorTest, WhereCopybooksAreFound) {
  options.includeDirectories = {"inc", "more"};
  addFile("inc/a.CPY", "in-inc");
  addFile("more/A", "in-more");
  addFile("more/lib/b.cbl", "in-lib");
  addFile("c.inc", "here");
  addFile("more/deep.cpy", "copy beside.");
  addFile("more/BESIDE.COPY", "neighbour");
  addFile("more/d/d.x", "by-path");
  EXPECT_EQ(
      tokens("COPY A. COPY b OF LIB SUPPRESS. COPY C. COPY Deep. COPY 'd/d.x'. COPY A IN lib."),
      "IN-INC IN-LIB HERE NEIGHBOUR BY-PATH IN-INC");
  EXPECT_EQ(reported(), "");
}

TEST_F(PreprocessorTest, NamesOfMembersHoldMoreThanWords) {
  addFile("A#B", "A");
  addFile("@1$", "B");
  EXPECT_EQ(tokens("COPY A#B. COPY @1$ SUPPRESS. COPY A # B."), "A B");
  EXPECT_EQ(reported(), "43@1");
}

TEST_F(PreprocessorTest, MissingCopybookNamesTheDirectories) {
  options.includeDirectories = {"inc"};
  EXPECT_EQ(tokens("A\n  COPY NONE OF LIB. B COPY. C COPY X OF. D"), "A B C D");
  EXPECT_EQ(reported(), "43@2 40@2 41@2");
  EXPECT_EQ(diagnostics.getEntries()[0].message,
            "the copybook NONE of LIB was not found; searched: inc/LIB, inc/lib, LIB, lib, inc, .");
  EXPECT_EQ(show(diagnostics.getEntries()[0].place), "2:8-2:11");
}

TEST_F(PreprocessorTest, MissingPeriodIsMended) {
  addFile("BOOK", "X");
  EXPECT_EQ(tokens("COPY BOOK\nMOVE A"), "X MOVE A");
  EXPECT_EQ(reported(), "42@1");
}

TEST_F(PreprocessorTest, CopyThatComesBackToItself) {
  addFile("A.cpy", "A1 COPY B. A2");
  addFile("B.cpy", "B1 COPY A. B2");
  EXPECT_EQ(tokens("COPY A. END"), "A1 B1 B2 A2 END");
  ASSERT_EQ(reported(), "45@1");
  EXPECT_EQ(diagnostics.getEntries()[0].message,
            "the copybook copies itself: A.cpy -> B.cpy -> A.cpy");
  EXPECT_EQ(fileNameOf(diagnostics.getEntries()[0].place.file), "B.cpy");
}

TEST_F(PreprocessorTest, CopyingIsBounded) {
  for (unsigned i = 0; i < 60; ++i)
    addFile(llvm::formatv("D{0}", i).str(), llvm::formatv("COPY D{0}. COPY D{0}.", i + 1).str());
  addFile("D60", "X");
  options.limits.copyExpansions = 1000;
  tokens("COPY D0.");
  EXPECT_EQ(reported(), "47@1");
  diagnostics = FrontEndDiagnostics();
  options.limits.copiedMegabytes = 1;
  addFile("BIG", std::string(600'000, ' ') + "X");
  EXPECT_EQ(tokens("COPY BIG. COPY BIG. COPY BIG."), "X");
  EXPECT_EQ(reported(), "49@1");
  diagnostics = FrontEndDiagnostics();
  options.limits.copyDepth = 20;
  EXPECT_EQ(tokens("A COPY D0. B"), "A");
  EXPECT_EQ(reported(), "46@1");
}

TEST_F(PreprocessorTest, ReplacingWords) {
  EXPECT_EQ(replaced("a b(1) 'a' 5 A-B a.", "A BY X 5 BY -7 'a' BY \"q\" B(1) BY c of d(2)"),
            "X C OF D ( 2 ) \"q\" - 7 A-B X .");
  EXPECT_EQ(replaced("A B C A B", "==a b== BY ==C D E== C BY F"), "C D E F C D E");
  EXPECT_EQ(replaced("A , B; C", "==A B C== BY ==X=="), "X");
  EXPECT_EQ(replaced("A B A C", "==A B== BY ==1== A BY 2"), "1 2 C");
  EXPECT_EQ(replaced("A VALUE 1, 2. B.", "==VALUE 1, 2== BY ===="), "A . B .");
  EXPECT_EQ(reported(), "");
}

TEST_F(PreprocessorTest, ReplacingPartsOfWords) {
  EXPECT_EQ(
      replaced("01 :TAG:-REC. 05 WS-:TAG:-NO-:TAG: PIC X(:TAG::TAG:).", "==:TAG:== BY ==cust=="),
      "01 CUST-REC . 05 WS-CUST-NO-CUST PIC X(custcust) .");
  EXPECT_EQ(replaced("(P)-A. (P)B. 'P'-C", "==(P)== BY ==Q== =='P'== BY =='R'=="),
            "Q-A . QB . 'R' - C");
  EXPECT_EQ(replaced("PRE-A A-PRE PRE PRE-", "LEADING ==PRE== BY ==POST=="),
            "POST-A A-PRE POST POST -");
  EXPECT_EQ(replaced("pre-a a-sfx x", "LEADING ==PRE-== BY ==== TRAILING ==-SFX== BY ==-END=="),
            "A A-END X");
  EXPECT_EQ(replaced(":T:.5 9:T:", "==:T:== BY ==1=="), "1.5 91");
  EXPECT_EQ(reported(), "");
}

TEST_F(PreprocessorTest, ReplacingInPictures) {
  EXPECT_EQ(replaced("A PIC X(10). B PICTURE IS S9(:N:)V99, C",
                     "==X(10)== BY ==9(5).99== ==:N:== BY ==7=="),
            "A PIC 9(5).99 . B PICTURE IS S9(7)V99 C");
  EXPECT_EQ(replaced("A PIC X(10). B PIC X(10).", "==A PIC X(10)== BY ==A PIC $$,$$9.99=="),
            "A PIC $$,$$9.99 . B PIC X(10) .");
  EXPECT_EQ(replaced("A PIC 9,99. B :PIC: X", "==:PIC:== BY ==PIC Z,ZZ9 USAGE=="),
            "A PIC 9,99 . B PIC Z,ZZ9 USAGE X");
  open("");
  EXPECT_EQ(reported(), "");
}

TEST_F(PreprocessorTest, ReplacedTextStandsWhereItReplaces) {
  addFile("BOOK", "01 :T:-X.\n  A\nB PIC X(:T:).");
  open("COPY BOOK REPLACING ==:T:== BY ==N==\n  ==A B== BY ==C D==.");
  EXPECT_EQ(placeOf(stream->peek(1)), "1:4-1:8");
  EXPECT_TRUE(stream->peek(1).isFromReplacement());
  EXPECT_EQ(placeOf(stream->peek(2)), "1:9-1:9");
  EXPECT_EQ(placeOf(stream->peek(3)), "2:3-3:1");
  EXPECT_EQ(placeOf(stream->peek(4)), "2:3-3:1");
  EXPECT_TRUE(stream->peek(3).isFirstOnLine());
  EXPECT_FALSE(stream->peek(4).isFirstOnLine());
  EXPECT_EQ(stream->peek(6).text, "X(N)");
  EXPECT_EQ(placeOf(stream->peek(6)), "3:7-3:12");
  EXPECT_EQ(fileNameOf(stream->peek(6).place.file), "BOOK");
}

TEST_F(PreprocessorTest, NestedReplacing) {
  addFile("OUTER", "A COPY INNER REPLACING B BY A. B");
  addFile("INNER", "A B C");
  EXPECT_EQ(tokens("COPY OUTER REPLACING A BY X ==B== BY ==Y==. A"), "X X X C Y A");
  EXPECT_EQ(reported(), "");
}

TEST_F(PreprocessorTest, ReplaceStatement) {
  addFile("BOOK", "A ==B");
  addFile("CHANGE", "REPLACE ==A== BY ==3==.");
  addFile("PLAIN", "A");
  EXPECT_EQ(tokens("A REPLACE ==A== BY ==1 2== LEADING ==P-== BY ==Q-==. A P-X.\n"
                   "COPY PLAIN. REPLACE ==A== BY ==B==. A REPLACE OFF. A\n"
                   "COPY CHANGE. A"),
            "A 1 2 Q-X . 1 2 B A 3");
  EXPECT_EQ(reported(), "");
}

TEST_F(PreprocessorTest, FaultsOfReplacing) {
  EXPECT_EQ(replaced("A", "A TO B. X"), "A X .");
  EXPECT_EQ(replaced("A", "==== BY B"), "A");
  EXPECT_EQ(replaced("A", "A BY . X"), "A X .");
  EXPECT_EQ(replaced("A", "LEADING ==A B== BY C"), "A");
  EXPECT_EQ(replaced("A", "A BY == X Y. Z"), "A");
  EXPECT_EQ(reported(), "61@1 63@1 62@1 64@1 25@1");
}

class ReplacementBoundTest : public PreprocessorTest,
                             public testing::WithParamInterface<llvm::StringRef> {};

TEST_P(ReplacementBoundTest, StopsWhatMultiplies) {
  options.limits.replacementTokens = 500;
  addFile("D0", ("COPY D1 REPLACING A BY ==" + GetParam() + "==.").str());
  addFile("D1", "COPY D2 REPLACING A BY ==A A A A A A A A A A==.");
  addFile("D2", "COPY D3 REPLACING A BY ==A A A A A A A A A A==.");
  addFile("D3", "A A A A A A A A A A A A A A");
  tokens("COPY D0. B");
  EXPECT_EQ(reported(), "66@1");
}

// Also where nothing of it is seen in the end.
INSTANTIATE_TEST_SUITE_P(Preprocessor, ReplacementBoundTest, testing::Values("A A", "A", ""));

TEST_F(PreprocessorTest, LookAheadReachesFar) {
  std::string text;
  for (unsigned i = 0; i < 200; ++i)
    text += llvm::formatv("W{0} ", i);
  open(text);
  for (unsigned i = 0; i < 130; ++i) {
    EXPECT_EQ(stream->peek(TokenStream::lookAhead - 1).text, llvm::formatv("W{0}", i + 63).str());
    EXPECT_EQ(stream->next().text, llvm::formatv("W{0}", i).str());
  }
  EXPECT_EQ(stream->getLastPlace().beginColumn, text.find("W129") + 1);
}

TEST_F(PreprocessorTest, FormsMayDiffer) {
  options.format = SourceFormat::Auto;
  addFile("FIXED", "000010     05 A PIC X(\n      -    3)." + std::string(60, ' ') + "IGNORED\n");
  addFile("FREE", "05 B PIC X. *> free\n05 C PIC X.\n");
  EXPECT_EQ(tokens("       01 R.\n           COPY FREE.\n           COPY FIXED.\n      * end\n"),
            "01 R . 05 B PIC X . 05 C PIC X . 05 A PIC X(3) .");
  options.format = SourceFormat::Fixed;
  EXPECT_EQ(tokens("       A\n       >>SOURCE FORMAT IS FREE\nB\n>>source fixed\nnumber C\n"),
            "A B C");
  EXPECT_EQ(tokens(">>SOURCE FREE\nA\n"), "A");
  EXPECT_EQ(reported(), "");
}

TEST_F(PreprocessorTest, ConditionalCompilation) {
  options.defines = {{"MODE", "2"}, {"Site", "north"}, {"FLAG", ""}};
  auto chosen = [&](llvm::StringRef condition) {
    return tokens((">>IF " + condition + "\nYES\n>>ELSE\nNO 'open\n>>END-IF\n").str());
  };
  for (llvm::StringRef holds :
       {"MODE = 2", "mode IS DEFINED", "NONE IS NOT DEFINED", "FLAG", "NOT MODE < 2 AND MODE <> 3",
        "SITE = 'north'", "(MODE + 1) * 2 = 6", "MODE GREATER THAN OR EQUAL TO 2 *> so",
        "(MODE = 1 OR (SITE = \"north\"))", "B'1'"})
    EXPECT_EQ(chosen(holds), "YES") << holds.str();
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(chosen("MODE = 1"), "NO 'open");
  EXPECT_EQ(chosen("MODE = 'x'"), "NO 'open");
  EXPECT_EQ(chosen("UNKNOWN = 1"), "NO 'open");
  EXPECT_EQ(chosen("MODE / 0 = 1"), "NO 'open");
  EXPECT_EQ(reported(), "24@4 84@1 24@4 85@1 24@4 84@1 24@4");
}

TEST_F(PreprocessorTest, NestedConditionalsAndDefinitions) {
  EXPECT_EQ(tokens(">>DEFINE A AS 1\n"
                   ">>DEFINE B 'x'\n"
                   ">>IF A = 2\n"
                   ">>IF B DEFINED\nWRONG\n>>ELSE\nWRONG\n>>END-IF\n"
                   ">>ELIF A = 1\nONE\n>>IF A = 1\nTWO\n>>END-IF\n"
                   ">>ELSE\nWRONG\n>>END-IF\n"
                   ">>EVALUATE A\n>>WHEN 3\nWRONG\n>>WHEN 0 THRU 2\nTHREE\n>>WHEN OTHER\nWRONG\n"
                   ">>END-EVALUATE\n"
                   ">>EVALUATE TRUE\n>>WHEN A = 7\nWRONG\n>>WHEN OTHER\nFOUR\n>>END-EVALUATE\n"
                   ">>DEFINE A AS 2 OVERRIDE\n>>IF A = 2\nFIVE\n>>END-IF\n"
                   ">>DEFINE A OFF\n>>IF A DEFINED\nWRONG\n>>END-IF\n>>PAGE\nSIX"),
            "ONE TWO THREE FOUR FIVE SIX");
  EXPECT_EQ(reported(), "");
}

TEST_F(PreprocessorTest, FaultsOfDirectives) {
  EXPECT_EQ(tokens(">>ELSE\n>>END-EVALUATE\n>>NONSENSE\n>>DEFINE A 1\n>>DEFINE A 2\n"
                   ">>SOURCE FORMAT COBOL\n>>IF A = 1\nX\n>>WHEN 1\n>>IF A = 2\nlost"),
            "X");
  EXPECT_EQ(reported(), "82@1 82@2 80@3 86@5 81@6 82@9 83@7 83@10");
  diagnostics = FrontEndDiagnostics();
  std::string text;
  for (unsigned i = 0; i < 10'000; ++i)
    text += ">>IF B'1'\n";
  tokens(text + "X");
  EXPECT_EQ(diagnostics.getEntries()[0].id, DiagnosticId::DirectivesTooDeep);
  EXPECT_EQ(tokens(">>IF " + std::string(100'000, '(') + "\nA\n>>END-IF"), "");
}

} // namespace
} // namespace tarka
