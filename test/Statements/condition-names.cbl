*> RUN: %tarka check --verify %s
*>
*> A condition-name has the category of its conditional variable, and yet is neither a number nor
*> characters: no statement takes it for a data item.
*> expect-pass: 3468
IDENTIFICATION DIVISION.
PROGRAM-ID. NOITEMS.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  DIGIT                       PIC 9.
    88  IS-ONE                  VALUE 1.
77  LETTER                      PIC X.
    88  IS-A                    VALUE "A".
77  N                           PIC 9(4).
77  X                           PIC X(4).
01  TAB.
    05  E                       PIC 9 OCCURS 3 INDEXED BY I.
        88  E-IS-ONE            VALUE 1.
PROCEDURE DIVISION.
MAIN.
    MOVE IS-A TO X. *> expect: 3468:18-18
    MOVE X TO IS-A N. *> expect: 3468:15-18
    MOVE IS-ONE TO N. *> expect: 3468
    ADD IS-ONE TO N. *> expect: 3410
    COMPUTE N = IS-ONE + 1. *> expect: 3322
    COMPUTE IS-ONE = 1. *> expect: 3424
    IF IS-A = "A" CONTINUE END-IF. *> expect: 3335:8-11
    IF "A" = IS-A CONTINUE END-IF. *> expect: 3335:8-10
    IF E-IS-ONE (I) > N CONTINUE END-IF. *> expect: 3335
    IF IS-ONE POSITIVE CONTINUE END-IF. *> expect: 3338
    EVALUATE N
        WHEN IS-ONE CONTINUE *> expect: 3432
    END-EVALUATE.
    PERFORM IS-ONE TIMES CONTINUE END-PERFORM. *> expect: 3434:13-18
    PERFORM VARYING IS-ONE FROM E-IS-ONE (1) BY 1 UNTIL IS-ONE *> expect: 3437:21-26 3437:33-44
        CONTINUE
    END-PERFORM.
    GO TO MAIN DEPENDING ON IS-ONE. *> expect: 3433:29-34
    SET I TO IS-ONE. *> expect: 3483:14-19
    SET I UP BY IS-ONE. *> expect: 3477
    SET IS-ONE TO I. *> expect: 3474
    CALL IS-A USING IS-A. *> expect: 3441 3440
    CANCEL IS-A. *> expect: 3456
    ACCEPT IS-A. *> expect: 3407
    DISPLAY IS-A. *> expect: 3408
    INITIALIZE IS-A. *> expect: 3508
    STRING IS-A DELIMITED BY IS-A INTO IS-A POINTER IS-ONE. *> expect: 3513 3513 3516 3518
    UNSTRING IS-A DELIMITED BY IS-A INTO IS-A COUNT IN IS-ONE. *> expect: 3520 3521 3523 3526
    INSPECT IS-A TALLYING IS-ONE FOR ALL IS-A. *> expect: 3528 3529 3531
    SEARCH E VARYING IS-ONE WHEN E-IS-ONE (I) CONTINUE END-SEARCH. *> expect: 3499
    STOP RUN.
