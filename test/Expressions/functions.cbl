*> RUN: %tarka check --verify %s
*>
*> References to functions: their arguments, and the category of what they give.
IDENTIFICATION DIVISION.
PROGRAM-ID. FUNCTIONS.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  N                           PIC S9(9) COMP.
77  D                           PIC 9(5)V99.
77  TEXT-ITEM                   PIC X(20).
77  LETTERS                     PIC A(20).
77  EDITED                      PIC ZZZ9.99.
77  NATIONAL-ITEM               PIC N(20) NATIONAL.
PROCEDURE DIVISION.
    *> What a function gives decides where it may stand.
    COMPUTE N = FUNCTION LENGTH (TEXT-ITEM) + FUNCTION MAX (1 N D).
    COMPUTE N = FUNCTION UPPER-CASE (TEXT-ITEM) + 1. *> expect: 3322
    COMPUTE N = FUNCTION MAX ("A" TEXT-ITEM) + 1. *> expect: 3322
    MOVE FUNCTION CURRENT-DATE TO TEXT-ITEM.
    MOVE FUNCTION CURRENT-DATE (1:8) TO TEXT-ITEM.
    MOVE FUNCTION NATIONAL-OF (TEXT-ITEM) TO NATIONAL-ITEM.
    IF FUNCTION LOWER-CASE (TEXT-ITEM) = "yes" OR FUNCTION ABS (N) > 5 CONTINUE.
    IF FUNCTION CURRENT-DATE = 5.5 OR FUNCTION SQRT (N) = TEXT-ITEM CONTINUE.
    IF FUNCTION NATIONAL-OF (TEXT-ITEM) = EDITED CONTINUE. *> expect: 3335

    *> Where the arguments decide, they must agree; the message comes for each that does not.
    DISPLAY FUNCTION MAX (TEXT-ITEM N TEXT-ITEM). *> expect: 3318:13-48
    DISPLAY FUNCTION MIN (N TEXT-ITEM "A" 5). *> expect: 3318 3318
    DISPLAY FUNCTION MAX (LETTERS TEXT-ITEM). *> expect: 3318
    DISPLAY FUNCTION MAX (N D 5 FUNCTION MIN (1 2)).
    DISPLAY FUNCTION USUBSTR (TEXT-ITEM 1 N).

    *> NUMVAL reads characters.
    COMPUTE N = FUNCTION NUMVAL (TEXT-ITEM) + FUNCTION NUMVAL (LETTERS).
    COMPUTE N = FUNCTION NUMVAL (EDITED) + FUNCTION NUMVAL (" -12 ").
    COMPUTE N = FUNCTION NUMVAL (D). *> expect: 3527:17-35
    COMPUTE N = FUNCTION NUMVAL (12). *> expect: 3527

    *> Undefined arguments are reported for themselves.
    DISPLAY FUNCTION ABS (NOWHERE). *> expect: 3310:27-33
    COMPUTE N = FUNCTION NUMVAL (NOWHERE). *> expect: 3310

    *> Only characters can be modified.
    MOVE FUNCTION REVERSE (TEXT-ITEM) (1:3) TO TEXT-ITEM.
    MOVE FUNCTION CURRENT-DATE (1.5:2) TO TEXT-ITEM. *> expect: 3314 *> expect-pass
    MOVE FUNCTION ABS (N) (1:2) TO N. *> expect: 3315 *> expect-pass
    MOVE FUNCTION ABS (N) (D:D) TO N. *> expect: 3315 3314 3314 *> expect-pass

    *> A function receives nothing.
    MOVE 1 TO FUNCTION ABS (N). *> expect: 3504:5-30
    STOP RUN.
