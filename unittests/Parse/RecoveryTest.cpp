//===- RecoveryTest.cpp - what happens after a mistake --------------------===//

#include "ProcedureTest.h"

namespace tarka {
namespace {

class RecoveryTest : public ProcedureTest {
protected:
  /// \p text has exactly the messages \p messages and leaves the tree \p rest.
  void expectRest(const std::string &text, const std::string &messages, const std::string &rest) {
    EXPECT_EQ(tree(text), rest) << text;
    EXPECT_EQ(reported(), messages) << text << "\n  " << message();
  }
};

TEST_F(RecoveryTest, SeparateMistakesHaveAMessageEach) {
  expectRest("\n"
             "P.\n"
             "    MOVE A B.\n"
             "    IF A = THEN CONTINUE ELSE MVOE A TO B END-IF\n"
             "    GOBACK.\n"
             "Q.\n"
             "    COMPUTE A = B +.\n"
             "    EXIT.",
             "200@3:12 201@4:12 421@4:31 200@7:20", "P: [goback]\nQ: [exit]");
}

TEST_F(RecoveryTest, AStatementIsLeftOutWithItsPhrasesAndItsEnd) {
  expectRest("READ 5 AT END CONTINUE NOT AT END EXIT END-READ GOBACK.", "200@1:6", "[goback]");
  expectRest("ADD A TO B (ON SIZE ERROR CONTINUE NOT SIZE ERROR EXIT END-ADD GOBACK.", "201@1:13",
             "[goback]");
  expectRest("ADD A TO B ) ON SIZE ERROR CONTINUE NOT SIZE ERROR EXIT END-ADD GOBACK.", "200@1:12",
             "[goback]");
  // The END- word comes behind what the statement would have held.
  expectRest("COMPUTE A = ( DISPLAY B END-COMPUTE GOBACK.", "201@1:15", "[display goback]");
  expectRest("IF A = B READ 5 CONTINUE END-READ EXIT END-IF GOBACK.", "200@1:15",
             "[(if (= A B) {continue exit}) goback]");
  expectRest("IF A = ( THEN CONTINUE ELSE IF B = CONTINUE ELSE EXIT END-IF EXIT END-IF GOBACK.",
             "201@1:10 201@1:36", "[goback]");
  expectRest("EVALUATE A + WHEN 1 CONTINUE WHEN OTHER EXIT END-EVALUATE GOBACK.", "201@1:14",
             "[goback]");
  expectRest("EVALUATE A WHEN ( CONTINUE WHEN 2 ALSO ALSO EXIT END-EVALUATE GOBACK.",
             "200@1:19 200@1:40", "[goback]");
  expectRest("EVALUATE A CONTINUE WHEN OTHER EXIT WHEN 3 EXIT END-EVALUATE GOBACK.",
             "200@1:12 428@1:37", "[goback]");
  expectRest("PERFORM UNTIL A B CONTINUE END-PERFORM GOBACK.", "420@1:17",
             "[(perform until name:A {continue}) goback]");
  expectRest("SEARCH 5 AT END EXIT WHEN A = B CONTINUE END-SEARCH GOBACK.", "200@1:8", "[goback]");
  expectRest("CALL USING A ON EXCEPTION EXIT NOT ON EXCEPTION EXIT END-CALL GOBACK.", "201@1:6",
             "[goback]");
}

TEST_F(RecoveryTest, WordsWithoutTheirStatement) {
  expectRest("CONTINUE END-IF GOBACK.", "424@1:10", "[continue goback]");
  EXPECT_EQ(message(), "END-IF without IF");
  expectRest("ELSE CONTINUE. EXIT ELSE GOBACK.", "425@1:1 425@1:21", "[continue]\n[exit goback]");
  expectRest("IF A = B EXIT ELSE EXIT ELSE GOBACK.", "425@1:25",
             "[(if (= A B) {exit} else {exit goback})]");
  expectRest("CONTINUE WHEN A = B GOBACK.", "426@1:10", "[continue goback]");
  expectRest("MOVE A TO B AT END GOBACK. NOT ON SIZE ERROR EXIT.", "427@1:13 427@1:28",
             "[#25 goback]\n[exit]");
  // Further parts belong to the same statement, most likely, and so does its END- word.
  expectRest("CONTINUE WHEN 1 EXIT WHEN 2 EXIT END-EVALUATE END-IF GOBACK.", "426@1:10 424@1:47",
             "[continue exit exit goback]");
  expectRest("ELSE EXIT END-IF END-IF GOBACK.", "425@1:1 424@1:18", "[exit goback]");
  expectRest("NOT AT END EXIT AT END EXIT END-READ GOBACK. END-READ.", "427@1:1 424@1:46",
             "[exit exit goback]");
  expectRest("PERFORM UNTIL A = B END-IF CONTINUE END-PERFORM.", "424@1:21",
             "[(perform until (= A B) {continue})]");
  expectRest("IF A = B END-IF GOBACK.", "200@1:10", "[goback]");
}

TEST_F(RecoveryTest, WordsThatBeginNothing) {
  expectRest("DISPLA A UPON B GOBACK.", "421@1:1", "[goback]");
  EXPECT_EQ(message(), "a statement cannot begin with 'DISPLA'; was DISPLAY meant?");
  expectRest("FROBNICATE A B. GOBACK.", "420@1:1", "[goback]");
  expectRest("TO A. 5 GOBACK. ( EXIT.", "420@1:1 200@1:7 200@1:17", "[goback]\n[exit]");
  // Is it a verb or a remainder? A name that begins a line leaves the statement before it alone.
  expectRest("CONTINUE\nFROBNICATE A. EXIT PROCEED A. GOBACK.", "420@2:1 420@2:20",
             "[continue]\n[goback]");
}

TEST_F(RecoveryTest, AMisspeltVerbTakesWhatBelongsToItsStatement) {
  expectRest("IFF A = B CONTINUE ELSE EXIT END-IF GOBACK.", "421@1:1", "[goback]");
  expectRest("EVALUTE A WHEN 1 MVOE A WHEN 2 EXIT END-EVALUATE GOBACK.", "421@1:1 421@1:18",
             "[goback]");
  expectRest("PREFORM UNTIL A = B CONTINUE END-PERFORM GOBACK.", "421@1:1", "[goback]");
  expectRest("RAED F AT END CONTINUE NOT AT END EXIT END-READ GOBACK.", "421@1:1", "[goback]");
  expectRest("IF A = B IF C = D EXIT END-FI ELSE CONTINUE ENDIF GOBACK.", "421@1:24 421@1:45",
             "[(if (= A B) {(if (= C D) {exit})} else {continue}) goback]");
  EXPECT_EQ(message(), "a statement cannot begin with 'END-FI'; was END-IF meant?");
  expectRest("READ F AT END PERFORM IF A = B EXIT END-PREFORM END-RAED NOT AT END EXIT. GOBACK.",
             "421@1:37 421@1:49 427@1:58",
             "[(read at-end {(perform {(if (= A B) {exit})})}) exit]\n[goback]");
  // Of a word that means nothing, the phrases are its own that no other statement can have.
  expectRest("FROBNICATE F AT END EXIT NOT ON OVERFLOW EXIT END-READ GOBACK.", "420@1:1",
             "[goback]");
  expectRest("READ F AT END FROBNICATE F NOT AT END EXIT END-READ GOBACK.", "420@1:15",
             "[(read at-end {continue} not-at-end {exit}) goback]");
}

TEST_F(RecoveryTest, StatementsThatAreNotSupported) {
  expectRest(
      "JSON GENERATE A FROM B ON EXCEPTION EXIT END-JSON INVOKE C 'new' RETURNING D END-INVOKE "
      "ALLOCATE A FREE A GOBACK.",
      "423@1:1 423@1:51 423@1:89 423@1:100", "[goback]");
  expectRest("SEND A FROM B. RECEIVE C MESSAGE INTO D. PURGE E. ENABLE INPUT F. DISABLE G. GOBACK.",
             "423@1:1 423@1:16 423@1:42 423@1:51 423@1:67", "[goback]");
  expectRest("ENTER COBOL. SERVICE LABEL. SERVICE RELOAD A. GOBACK.", "",
             "[continue]\n[continue]\n[continue]\n[goback]");
}

TEST_F(RecoveryTest, TheSentenceEndsWithItsPeriodOrTheDivision) {
  expectRest("IF A = B PERFORM CONTINUE. GOBACK.", "200@1:26",
             "[(if (= A B) {continue})]\n[goback]");
  expectRest("MOVE A TO. MOVE TO B. GOBACK", "200@1:10 201@1:17 200@1:23", "[goback]");
  EXPECT_EQ(message(2), "a period is expected here, but the end of the file was found");
  expectRest("GOBACK\nEND PROGRAM P.", "200@2:1", "[goback]");
  expectRest("IF A = B GOBACK\nS SECTION. EXIT.", "200@2:1",
             "[(if (= A B) {goback})]\nS SECTION [exit]");
}

TEST_F(RecoveryTest, NestingTooDeepIsOneMessage) {
  const std::pair<const char *, const char *> nests[] = {
      {"IF A = B ", " END-IF"},
      {"PERFORM UNTIL A = B ", " END-PERFORM"},
      {"EVALUATE A WHEN 1 ", " END-EVALUATE"},
      {"READ F AT END ", " END-READ"},
      {"SEARCH T WHEN A = B ", " END-SEARCH"},
  };
  for (const auto &[open, close] : nests) {
    std::string text;
    for (int i = 0; i < 10000; ++i)
      text += open;
    text += "CONTINUE";
    for (int i = 0; i < 10000; ++i)
      text += close;
    EXPECT_EQ(tree(text + ".\nGOBACK. MVOE A TO B."), "[goback]") << open;
    ASSERT_EQ(diagnostics.getEntries().size(), 2u) << open;
    EXPECT_EQ(diagnostics.getEntries()[0].id, DiagnosticId::NestedTooDeep) << open;
    // The place is that of the statement that is one too many; the program is the first level.
    EXPECT_EQ(llvm::StringRef(reported()).split(' ').first.str(),
              DiagnosticId::NestedTooDeep +
                  "@1:" + std::to_string(999 * llvm::StringRef(open).size() + 1))
        << open;
  }
}

} // namespace
} // namespace tarka
