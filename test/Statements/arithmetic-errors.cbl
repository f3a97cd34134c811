*> RUN: %tarka check --verify %s
*>
*> Operands that are not numbers, and receivers that cannot take one. An undefined name is not
*> reported again.
IDENTIFICATION DIVISION.
PROGRAM-ID. ARITHMETIC-ERRORS.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT PRINT-FILE ASSIGN TO PRINT1.
DATA DIVISION.
FILE SECTION.
FD  PRINT-FILE LINAGE 60.
01  PRINT-LINE                  PIC X(80).
WORKING-STORAGE SECTION.
77  WRONG                       PIC 9X9V9V9. *> expect: 3242
77  N                           PIC 9(4).
77  X                           PIC X(4).
77  E                           PIC Z(3)9.
77  NA                          PIC N(4).
77  F                           COMP-2.
77  IX                          INDEX.
77  PT                          POINTER.
01  G.
    05  A                       PIC 9(3).
        88  A-IS-ONE            VALUE 1.
    05  C                       PIC 9(3).
01  TAB.
    05  T                       PIC 9(3) OCCURS 5 INDEXED BY TX.
66  R                           RENAMES A THRU C.
PROCEDURE DIVISION.
MAIN.
    *> Every kind of operand that is not a number; the other operands are checked too.
    ADD X E NA IX TX PT A-IS-ONE N (1:2) TO N. *> expect: 3410:9-9 3410:11-11 3410:13-14 3410:16-17 3410:19-20 3410:22-23 3410:25-32 3410:34-40
    ADD G TAB R TO N. *> expect: 3411:9-9 3411:11-13 3410:15-15
    ADD "1" SPACE ALL "1" NULL N"1" TO N. *> expect: 3415:9-11 3415:13-17 3415:19-25 3415:27-30 3415:32-35
    ADD ADDRESS OF G FUNCTION CURRENT-DATE XML-EVENT TO N. *> expect: 3410:9-20 3410:22-42 3410:44-52
    ADD 1 TO X E G IX WHEN-COMPILED N (1:1). *> expect: 3410:14-14 3410:16-16 3411:18-18 3410:20-21 3410:23-35 3410:37-43
    ADD 1 TO 5 "A" LENGTH OF G ADDRESS OF G LINAGE-COUNTER. *> expect: 3413:14-14 3413:16-18 3413:20-30 3413:32-43 3413:45-58
    ADD 1 TO FUNCTION ABS (N). *> expect: 3504:14-29
    ADD 1 TO X GIVING E. *> expect: 3410
    ADD 1 N GIVING E X G NA 5. *> expect: 3412:22-22 3412:24-24 3412:26-27 3413:29-29
    ADD NOWHERE N TO X NEITHER. *> expect: 3310:9-15 3410:22-22 3310:24-30
    ADD CORRESPONDING N TO G. *> expect: 3414:23-23
    ADD CORRESPONDING G TO TAB (1:2). *> expect: 3414:28-36
    ADD CORRESPONDING R TO 5. *> expect: 3414:23-23 3414:28-28
    ADD CORRESPONDING NOWHERE TO G. *> expect: 3310

    *> A phrase is checked to its end, even if an operand is wrong.
    ADD X TO N ON SIZE ERROR MOVE 1 TO NOWHERE NOT ON SIZE ERROR ADD X TO N. *> expect: 3410:9-9 3310 3410:70-70

    SUBTRACT X G "1" FROM N X E. *> expect: 3422:14-14 3422:16-16 3421:18-20 3422:29-29 3422:31-31
    SUBTRACT 1 FROM X GIVING N. *> expect: 3422
    SUBTRACT 1 FROM "1" GIVING N. *> expect: 3421
    SUBTRACT 1 FROM 5 GIVING X G PT 5. *> expect: 3413:30-30 3413:32-32 3413:34-35 3413:37-37
    SUBTRACT CORRESPONDING G FROM A. *> expect: 3423:35-35

    MULTIPLY X BY N E 5. *> expect: 3420:14-14 3420:21-21 3413:23-23
    MULTIPLY "2" BY SPACES GIVING G. *> expect: 3419:14-16 3419:21-26 3413:35-35
    MULTIPLY 2 BY G GIVING N. *> expect: 3420

    DIVIDE X INTO N E. *> expect: 3417:12-12 3417:21-21
    DIVIDE "2" INTO G GIVING E X. *> expect: 3416:12-14 3417:21-21 3413:32-32
    DIVIDE N BY X GIVING N. *> expect: 3417:17-17
    DIVIDE N BY 2 GIVING N REMAINDER X. *> expect: 3418
    DIVIDE N BY 2 GIVING N REMAINDER G. *> expect: 3418
    DIVIDE N BY 2 GIVING N REMAINDER 5. *> expect: 3413
    *> Floating point has no remainder.
    DIVIDE F BY 1.5E0 GIVING F REMAINDER F. *> expect: 3416:12-12 3416:17-21 3416:30-30 3418:42-42
    DIVIDE F INTO N GIVING F.

    COMPUTE X N G OF NOWHERE = N + 1. *> expect: 3424:13-13 3312
    COMPUTE G IX PT = 1. *> expect: 3424:13-13 3424:15-16 3424:18-19
    COMPUTE 5 LENGTH OF G = 1. *> expect: 3413:13-13 3413:15-25
    COMPUTE N = X. *> expect: 3425:17-17
    COMPUTE N = G. *> expect: 3425
    COMPUTE N = "5". *> expect: 3425
    COMPUTE N = SPACES. *> expect: 3425
    COMPUTE N = IX. *> expect: 3425
    COMPUTE N = E. *> expect: 3425
    *> Within an expression the operator says it.
    COMPUTE N = X + 1. *> expect: 3322
    COMPUTE N = NOWHERE. *> expect: 3310

    *> Of an item whose description is in error nothing more is said.
    ADD WRONG TO WRONG GIVING WRONG.
    COMPUTE WRONG = WRONG.
    GOBACK.
