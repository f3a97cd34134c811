*> RUN: %tarka check --verify %s
*>
*> Which entry a name and its qualifiers mean.
IDENTIFICATION DIVISION.
PROGRAM-ID. QUALIFY.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT FILE-A ASSIGN TO A.
    SELECT FILE-B ASSIGN TO B.
DATA DIVISION.
FILE SECTION.
FD  FILE-A.
01  REC.
    05  KEY-PART                PIC X.
    05  SUB-GROUP.
        10  FIELD               PIC X.
            88  FIELD-IS-SET    VALUE "Y".
FD  FILE-B.
01  REC.
    05  KEY-PART                PIC X.
    05  FIELD                   PIC X.
01  ONLY-B                      PIC X.
WORKING-STORAGE SECTION.
01  OUTER.
    05  MIDDLE.
        10  INNER.
            15  LEAF            PIC 9.
    05  OTHER-MIDDLE.
        10  LEAF                PIC 9.
01  OUTER-2.
    05  MIDDLE.
        10  INNER.
            15  LEAF            PIC 9.
77  SINGLE                      PIC X.
01  TWIN                        PIC X.
01  TWIN                        PIC X.
01  ROUND.
    05  ROUND                   PIC X.
PROCEDURE DIVISION.
    *> The whole reference is marked, qualifiers and all.
    DISPLAY NOWHERE. *> expect: 3310:13-19
    DISPLAY NOWHERE OF OUTER. *> expect: 3310:13-28
    DISPLAY LEAF OF SINGLE. *> expect: 3312:13-26
    DISPLAY SINGLE OF SINGLE. *> expect: 3312

    *> Groups may be omitted, but those that are named must be in order.
    DISPLAY LEAF OF OTHER-MIDDLE.
    DISPLAY LEAF IN INNER OF MIDDLE IN OUTER.
    DISPLAY LEAF OF MIDDLE OF OUTER-2.
    DISPLAY LEAF OF INNER OF OUTER.
    DISPLAY LEAF OF OUTER-2.
    DISPLAY LEAF OF OUTER OF INNER. *> expect: 3312
    DISPLAY LEAF OF OUTER. *> expect: 3311
    DISPLAY LEAF OF INNER. *> expect: 3311
    DISPLAY LEAF. *> expect: 3311 *> expect-pass
    DISPLAY ROUND OF ROUND.

    *> The name of a file is the outermost qualifier of its records.
    DISPLAY REC OF FILE-A.
    DISPLAY REC OF FILE-B KEY-PART OF FILE-A KEY-PART OF REC OF FILE-B.
    DISPLAY KEY-PART OF REC. *> expect: 3311
    DISPLAY FIELD OF SUB-GROUP OF FILE-A FIELD OF FILE-B.
    DISPLAY FIELD OF SUB-GROUP OF FILE-B. *> expect: 3312
    DISPLAY ONLY-B OF FILE-A. *> expect: 3312
    DISPLAY REC OF OUTER. *> expect: 3312
    IF FIELD-IS-SET OF FIELD OF SUB-GROUP AND FIELD-IS-SET OF FILE-A
        CONTINUE.
    IF FIELD-IS-SET OF FILE-B CONTINUE. *> expect: 3312

    *> What follows the file name is not checked.
    DISPLAY KEY-PART OF FILE-A OF SINGLE.

    *> In conditions and as receivers names are looked up in the same way.
    MOVE SINGLE TO LEAF. *> expect: 3311 *> expect-pass
    ADD 1 TO UNHEARD-OF LEAF OF OTHER-MIDDLE. *> expect: 3310
    IF UNHEARD-OF = 1 OR LEAF OF OUTER = 1 CONTINUE. *> expect: 3310 3311
    STOP RUN.
