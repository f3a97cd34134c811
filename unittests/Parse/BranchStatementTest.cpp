//===- BranchStatementTest.cpp - statements that direct control -----------===//

#include "ProcedureTest.h"

namespace tarka {
namespace {

class BranchStatementTest : public ProcedureTest {
protected:
  /// Each text is read as the tree beside it, without a message.
  void expectTrees(std::initializer_list<std::pair<const char *, const char *>> cases) {
    for (const auto &[text, expected] : cases) {
      EXPECT_EQ(statement(text), expected) << text;
      EXPECT_EQ(reported(), "") << text;
    }
  }
  /// Each text has exactly the messages beside it.
  void expectMessages(std::initializer_list<std::pair<const char *, const char *>> cases) {
    for (const auto &[text, expected] : cases) {
      parse(text);
      EXPECT_EQ(reported(), expected) << text << "\n  " << message();
    }
  }
};

TEST_F(BranchStatementTest, If) {
  expectTrees({
      {"IF A = B THEN CONTINUE ELSE GOBACK END-IF", "(if (= A B) {continue} else {goback})"},
      {"IF A = B NEXT SENTENCE ELSE IF C = D STOP RUN ELSE EXIT END-IF DISPLAY A END-IF GOBACK",
       "(if (= A B) {next-sentence} else {(if (= C D) {stop-run} else {exit}) display}) goback"},
      // The second ELSE belongs to the outer IF.
      {"IF A = B IF C = D CONTINUE ELSE EXIT ELSE GOBACK",
       "(if (= A B) {(if (= C D) {continue} else {exit})} else {goback})"},
  });
  options.osvs = true;
  expectTrees({{"IF A = B CONTINUE OTHERWISE GOBACK", "(if (= A B) {continue} else {goback})"},
               {"ON 1 AND EVERY 2 UNTIL N CONTINUE ELSE GOBACK",
                "(on 1 every 2 until N {continue} else {goback})"},
               {"ADD A TO B ON SIZE ERROR ON 3 CONTINUE", "#2"}});
}

TEST_F(BranchStatementTest, Evaluate) {
  expectTrees({
      {"EVALUATE A ALSO TRUE WHEN 1 ALSO B = C WHEN NOT 2 THRU 3 + D ALSO FALSE CONTINUE "
       "WHEN ANY ALSO ANY WHEN OTHER GOBACK END-EVALUATE EXIT",
       "(evaluate A true when 1 ?(= B C) when !2..(+ 3 D) false {continue} "
       "when any any other {goback}) exit"},
      {"EVALUATE TRUE WHEN EOF CONTINUE WHEN NOT EOF AND A = 1 OR 2 GOBACK",
       "(evaluate true when ?name:EOF {continue} "
       "when ?(or (and (not name:EOF) (= A 1)) (_ = 2)) {goback})"},
      {"EVALUATE A + 1 ALSO (B > C) WHEN 'x' THROUGH 'y' ALSO FALSE CONTINUE END-EVALUATE",
       "(evaluate (+ A 1) ?(> B C) when 'x'..'y' false {continue})"},
      {"EVALUATE A WHEN (1) THRU (B + C) * 2 CONTINUE WHEN D CONTINUE",
       "(evaluate A when 1..(* (+ B C) 2) {continue} when D {continue})"},
      {"EVALUATE A WHEN 1 IF B = C CONTINUE WHEN 2 GOBACK",
       "(evaluate A when 1 {(if (= B C) {continue})} when 2 {goback})"},
  });
}

TEST_F(BranchStatementTest, PerformOutOfLine) {
  expectTrees({
      {"PERFORM P", "(perform P)"},
      {"PERFORM P OF S THRU 100-END OF S", "(perform P.S thru 100-END.S)"},
      {"PERFORM 100 THROUGH 200", "(perform 100 thru 200)"},
      {"PERFORM P 5 TIMES", "(perform P times 5)"},
      {"PERFORM P THRU Q N OF G TIMES GOBACK", "(perform P thru Q times N.G) goback"},
      {"PERFORM 100 3 TIMES", "(perform 100 times 3)"},
      {"PERFORM P T(I, FUNCTION MAX(J K)) TIMES", "(perform P times T(I MAX{J K}))"},
      {"PERFORM P LENGTH OF X TIMES", "(perform P times %LENGTH X)"},
      {"PERFORM P UNTIL A = B OR C", "(perform P until (or (= A B) (_ = C)))"},
      {"PERFORM P WITH TEST AFTER UNTIL EOF", "(perform P test-after until name:EOF)"},
      {"PERFORM P TEST BEFORE VARYING I FROM 1 BY -1 UNTIL I < 0 AFTER T(J) FROM K BY 2 UNTIL J > "
       "9 GOBACK",
       "(perform P test-before varying I 1 -1 (< I 0) varying T(J) K 2 (> J 9)) goback"},
  });
}

TEST_F(BranchStatementTest, PerformInline) {
  expectTrees({
      {"PERFORM CONTINUE END-PERFORM", "(perform {continue})"},
      {"PERFORM END-PERFORM", "(perform {})"},
      {"PERFORM 5 TIMES EXIT PERFORM CYCLE END-PERFORM", "(perform times 5 {exit-cycle})"},
      {"PERFORM N OF G IN H TIMES EXIT PERFORM END-PERFORM",
       "(perform times N.G.H {exit-perform})"},
      {"PERFORM T (I) TIMES GOBACK END-PERFORM", "(perform times T(I) {goback})"},
      {"PERFORM RETURN-CODE TIMES CONTINUE END-PERFORM", "(perform times RETURN-CODE {continue})"},
      {"PERFORM UNTIL A = B IF C = D CONTINUE END-PERFORM GOBACK",
       "(perform until (= A B) {(if (= C D) {continue})}) goback"},
      {"PERFORM WITH TEST AFTER VARYING I FROM J BY K UNTIL I > L PERFORM P END-PERFORM",
       "(perform test-after varying I J K (> I L) {(perform P)})"},
  });
  expectMessages({{"PERFORM 5 TIMES CONTINUE.", "200@1:25"},
                  {"PERFORM VARYING I FROM 1 UNTIL A = B CONTINUE END-PERFORM GOBACK.", "200@1:26"},
                  {"PERFORM P WITH TEST UNTIL A = B GOBACK.", "200@1:21"},
                  {"PERFORM P TEST AFTER GOBACK.", "200@1:22"}});
}

TEST_F(BranchStatementTest, GotoAlterExitStop) {
  expectTrees({
      {"GO TO P", "(go P)"},
      {"GO", "(go)"},
      {"IF A = B GO TO 10 ELSE GO TO", "(if (= A B) {(go 10)} else {(go)})"},
      {"GO P Q OF S 30 DEPENDING ON T(I)", "(go P Q.S 30 depending T(I))"},
      {"ALTER P TO Q R TO PROCEED TO S OF T", "(alter P->Q R->S.T)"},
      {"EXIT PROGRAM", "exit-program"},
      {"EXIT PARAGRAPH EXIT SECTION EXIT", "exit-paragraph exit-section exit"},
      {"STOP RUN", "stop-run"},
      {"STOP 'wait' STOP 7", "(stop 'wait') (stop 7)"},
      {"READY TRACE RESET TRACE", "ready-trace reset-trace"},
  });
  expectMessages({{"GO TO P Q GOBACK.", "200@1:11"},
                  {"GO TO 'P'.", "200@1:7"},
                  {"ALTER P Q.", "200@1:9"},
                  {"STOP WHENEVER.", "200@1:6"},
                  {"EXIT METHOD.", "423@1:6"}});
}

TEST_F(BranchStatementTest, CallCancelEntry) {
  before = "IDENTIFICATION DIVISION. PROGRAM-ID. P. ENVIRONMENT DIVISION. INPUT-OUTPUT SECTION. "
           "FILE-CONTROL. SELECT F ASSIGN TO F. DATA DIVISION. FILE SECTION. FD F. 01 R PIC X. ";
  expectTrees({
      {"CALL 'X'", "(call 'X')"},
      {"CALL X OF G (1) USING A F BY CONTENT B LENGTH OF C 'lit' BY VALUE 5 -1 REFERENCE OMITTED "
       "ADDRESS OF D RETURNING E ON EXCEPTION CONTINUE NOT ON EXCEPTION GOBACK END-CALL EXIT",
       "(call X.G(1) ref A ref file:F content B content %LENGTH C content 'lit' value 5 value -1 "
       "ref omitted ref %ADDRESS D returning E exception {continue} not-exception {goback}) exit"},
      {"CALL 'X' OVERFLOW GOBACK", "(call 'X' overflow {goback})"},
      {"CANCEL 'X' Y", "(cancel 'X' Y)"},
      {"ENTRY 'E' USING A BY VALUE B C BY REFERENCE D", "(entry 'E' ref A value B value C ref D)"},
  });
  expectMessages({{"CALL 'X' USING BY SOMETHING A.", "200@1:19"}, {"CALL.", "200@1:5"}});
}

TEST_F(BranchStatementTest, Search) {
  expectTrees({
      {"SEARCH T VARYING I AT END GOBACK WHEN T(I) = A OR B CONTINUE WHEN EOF NEXT SENTENCE "
       "END-SEARCH EXIT",
       "(search T varying I at-end {goback} when (or (= T(I) A) (_ = B)) {continue} "
       "when name:EOF {next-sentence}) exit"},
      {"SEARCH ALL T END CONTINUE WHEN T(I) = 1 AND U(I) = 2 GOBACK",
       "(search-all T at-end {continue} when (and (= T(I) 1) (= U(I) 2)) {goback})"},
      {"EVALUATE A WHEN 1 SEARCH T WHEN B = C CONTINUE END-SEARCH WHEN 2 GOBACK",
       "(evaluate A when 1 {(search T when (= B C) {continue})} when 2 {goback})"},
  });
  expectMessages(
      {{"SEARCH T DISPLAY A GOBACK.", "200@1:10"},
       {"SEARCH T AT END CONTINUE WHEN A = GOBACK WHEN C = D EXIT END-SEARCH.", "201@1:35"}});
}

TEST_F(BranchStatementTest, EmbeddedBlocks) {
  expectTrees({
      {"EXEC SQL SELECT A INTO :B END-EXEC", "(exec2 SELECT A INTO :B)"},
      {"EXEC CICS RETURN END-EXEC IF A = B EXEC DLI X END-EXEC ELSE EXEC OTHER Y. END-EXEC END-IF",
       "(exec1 RETURN) (if (= A B) {(exec3 X)} else {(exec4 Y.)})"},
  });
}

TEST_F(BranchStatementTest, ExceptionPhrasesBelongToTheInnermostStatementThatHasThem) {
  expectTrees({
      {"READ F AT END ADD A TO B ON SIZE ERROR CONTINUE NOT AT END GOBACK END-READ",
       "(read at-end {#2} not-at-end {goback})"},
      {"READ F NOT END GOBACK END CONTINUE", "(read not-at-end {goback} at-end {continue})"},
      {"READ F INVALID KEY CONTINUE NOT INVALID GOBACK",
       "(read invalid-key {continue} not-invalid-key {goback})"},
      // Given once already, so it is the outer statement's.
      {"READ F INVALID READ G AT END CONTINUE AT END GOBACK",
       "(read invalid-key {(read at-end {continue})} at-end {goback})"},
  });
}

} // namespace
} // namespace tarka
