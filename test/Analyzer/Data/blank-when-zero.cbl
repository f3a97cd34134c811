      *> BLANK WHEN ZERO edits a number: its value and those of its condition-names may be characters.
      *> RUN: %tarka check --verify %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. BWZ.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A PIC 999 VALUE "000" BLANK WHEN ZERO.
           88  NONE VALUE "   ".
           88  FEW VALUE "001" THRU "009" 12 SPACE ZERO.
       01  B PIC 999 VALUE 0 BLANK WHEN ZERO.
       01  C PIC 9(3)V99 BLANK WHEN ZERO VALUE SPACES.
       01  D PIC ZZ9 VALUE "  0" BLANK WHEN ZERO.
       01  E PIC 999 VALUE "0000" BLANK WHEN ZERO. *> expect: 3292 *> expect-pass
       01  F PIC 999 VALUE 1000 BLANK WHEN ZERO. *> expect: 3292 *> expect-pass
       01  G PIC 999 VALUE "000". *> expect: 3293 *> expect-pass
           88  ONE VALUE "001". *> expect: 3295
       PROCEDURE DIVISION.
           IF NONE OR FEW ADD 1 TO B GIVING A.
