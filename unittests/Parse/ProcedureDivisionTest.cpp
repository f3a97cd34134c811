//===- ProcedureDivisionTest.cpp - sections, paragraphs, declaratives -----===//

#include "ProcedureTest.h"

namespace tarka {
namespace {

using ProcedureDivisionTest = ProcedureTest;

TEST_F(ProcedureDivisionTest, SentencesParagraphsSections) {
  EXPECT_EQ(tree("CONTINUE. GOBACK EXIT.\n"
                 "P.\n CONTINUE.\n\n"
                 "100. Q. EXIT. EXIT.\n"
                 "S1 SECTION 50. CONTINUE.\n"
                 "P. GOBACK..\n"
                 "200 SECTION.\n"
                 "EMPTY.\n"
                 "LAST-ONE."),
            "[continue]\n[goback exit]\n"
            "P: [continue]\n100:\nQ: [exit] [exit]\n"
            "S1 SECTION 50 [continue] P: [goback]\n"
            "200 SECTION EMPTY: LAST-ONE:");
  EXPECT_EQ(reported(), "");
}

TEST_F(ProcedureDivisionTest, Places) {
  ProcedureDivision &division = parse("\n"
                                      "P.\n"
                                      "    CONTINUE. EXIT\n"
                                      "  .\n"
                                      "S SECTION.\n"
                                      "Q. GOBACK.\n");
  auto lines = [](const Node *node) {
    return std::make_pair(node->getBeginLineNo(), node->getEndLineNo());
  };
  Paragraph *p = division.getParaElements().front();
  EXPECT_EQ(lines(p), std::make_pair(2, 4));
  EXPECT_EQ(p->getEndCharPos(), 3);
  EXPECT_EQ(p->getSentElements().front()->getBeginCharPos(), 5);
  EXPECT_EQ(p->getSentElements().front()->getEndCharPos(), 13);
  EXPECT_EQ(lines(p->getSentElements().back()), std::make_pair(3, 4));
  Section *s = division.getSectElements().front();
  EXPECT_EQ(lines(s), std::make_pair(5, 6));
  EXPECT_EQ(s->getEndCharPos(), 10);
  EXPECT_EQ(lines(&division), std::make_pair(1, 6));
}

TEST_F(ProcedureDivisionTest, Header) {
  auto header = [&](const std::string &text) {
    ProcedureDivision &division =
        *parseFile(before + "PROCEDURE DIVISION" + text).getProcDivision();
    return textOf(division);
  };
  EXPECT_EQ(header(" USING A BY VALUE B C BY REFERENCE D RETURNING E. GOBACK."),
            "using ref A value B value C ref D\nreturning E\n[goback]");
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(header(" USING. GOBACK."), "[goback]");
  EXPECT_EQ(diagnostics.getEntries().size(), 1u);
  EXPECT_EQ(header(" GIVING A. P. GOBACK."), "P: [goback]");
  EXPECT_EQ(diagnostics.getEntries().size(), 1u);
  EXPECT_EQ(header(" USING A GOBACK."), "using ref A\n[goback]");
  EXPECT_EQ(diagnostics.getEntries().size(), 1u);
}

TEST_F(ProcedureDivisionTest, Declaratives) {
  EXPECT_EQ(tree("\nDECLARATIVES.\n"
                 "D1 SECTION. USE GLOBAL AFTER STANDARD EXCEPTION PROCEDURE ON F1 F2.\n"
                 "P1. CONTINUE.\n"
                 "D2 SECTION. USE AFTER ERROR PROCEDURE I-O. EXIT.\n"
                 "D3 SECTION. USE BEFORE REPORTING GROUP-1.\n"
                 "D4 SECTION. USE FOR DEBUGGING ON ALL PROCEDURES.\n"
                 "D5 SECTION. USE DEBUGGING P1 100.\n"
                 "D6 SECTION. USE AFTER STANDARD BEGINNING REEL LABEL PROCEDURE ON OUTPUT.\n"
                 "D7 SECTION. USE BEFORE STANDARD ENDING LABEL PROCEDURE F1.\n"
                 "D8 SECTION 3. P2. GOBACK.\n"
                 "END DECLARATIVES.\n"
                 "MAIN. GOBACK."),
            "declare (use1 global file:F1 file:F2) D1 SECTION P1: [continue]\n"
            "declare (use1 mode3) D2 SECTION [exit]\n"
            "declare (use6 GROUP-1) D3 SECTION\n"
            "declare (use5 all) D4 SECTION\n"
            "declare (use5 P1 100) D5 SECTION\n"
            "declare (use2 label2 position1 mode2) D6 SECTION\n"
            "declare (use3 position2 file:F1) D7 SECTION\n"
            "declare D8 SECTION 3 P2: [goback]\n"
            "MAIN: [goback]");
  EXPECT_EQ(reported(), "");
}

TEST_F(ProcedureDivisionTest, MistakesInDeclaratives) {
  tree("\nDECLARATIVES.\nP. EXIT.\nD SECTION. USE AFTER FIRE PROCEDURE ON INPUT. EXIT.\n"
       "END DECLARATIVES.\nMAIN. USE AFTER ERROR PROCEDURE ON INPUT.\nEND DECLARATIVES.\n"
       "DECLARATIVES.\nE SECTION. EXIT.");
  EXPECT_EQ(reported(), "200@3:1 200@4:22 404@6:7 403@7:1 401@8:1 402@8:1");
  tree("\nDECLARATIVES.\nD SECTION. USE BEFORE DINNER.\nDECLARATIVES. EXIT.\n"
       "E SECTION. USE FOR DEBUGGING ON ALL OF THEM. USE. END DECLARATIVES.");
  EXPECT_EQ(reported(), "200@3:23 401@4:1 200@5:37 404@5:46");
  tree("\nDECLARATIVES.\nD SECTION. USE FOR DEBUGGING ON ALL REFERENCES OF A, B. EXIT.\n"
       "END DECLARATIVES.");
  EXPECT_EQ(reported(), "221@3:37");
  tree("\nDECLARATIVES. EXIT SECTION. D SECTION. EXIT. END DECLARATIVES.");
  EXPECT_EQ(reported(), "200@2:15");
}

/// In fixed form the area tells names of procedures from verbs.
TEST_F(ProcedureDivisionTest, NamesInFixedForm) {
  options.format = SourceFormat::Fixed;
  before = "       IDENTIFICATION DIVISION.\n       PROGRAM-ID. P.\n       ";
  EXPECT_EQ(tree("\n"
                 "       P1.\n"                   // 4
                 "           DISPLAY 'A'\n"       // 5: the period is missing
                 "       P2.\n"                   // 6
                 "           GOBAK.\n"            // 7: a verb misspelt
                 "           FLARP.\n"            // 8: a name in area B
                 "           EXIT.\n"             // 9
                 "       P3\n"                    // 10: a header without its period
                 "           MOVE A TO\n"         // 11
                 "       B.\n"                    // 12: a name, not an operand
                 "           S SECTION.\n"        // 13: a name in area B
                 "       INPUT.\n"                // 14: reserved
                 "       500. EXIT. 600. EXIT.\n" // 15: 600 is in area B
                 "           GOBACK."),
            "P1: [display]\nP2:\nFLARP: [exit]\nP3:\nB:\n"
            "S SECTION INPUT: 500: [exit] 600: [exit] [goback]");
  EXPECT_EQ(reported(), "200@6:8 421@7:12 400@8:12 200@11:12 200@12:8 400@13:12 "
                        "201@14:8 400@15:19");
}

TEST_F(ProcedureDivisionTest, FormsOfOsvsCobol) {
  EXPECT_EQ(tree("\nP. EXAMINE A TALLYING ALL 'x'. GOBACK.\nQ. NOTE anything. EXIT."),
            "P: [goback]\nQ: [exit]");
  EXPECT_EQ(reported(), "422@2:4 422@3:4");
  EXPECT_EQ(tree("IF A = B EXIT OTHERWISE GOBACK END-IF ON 3 GOBACK."),
            "[(if (= A B) {exit goback}) goback]");
  EXPECT_EQ(diagnostics.getEntries().size(), 2u) << reported();
  options.osvs = true;
  EXPECT_EQ(tree("\nP. GOBACK. NOTE MOVE IF. EXIT.\nQ SECTION. NOTE (. EXIT."),
            "P: [goback] [exit]\nQ SECTION [exit]");
  EXPECT_EQ(reported(), "");
}

} // namespace
} // namespace tarka
