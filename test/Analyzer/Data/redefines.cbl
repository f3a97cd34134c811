*> RUN: %tarka check --verify %s
*>
*> What REDEFINES means, and what may redefine what.
IDENTIFICATION DIVISION.
PROGRAM-ID. REDEFINITIONS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  FIRST-RECORD                REDEFINES NO-RECORD PIC X. *> expect: 3253
01  RUNS.
    05  A                       PIC X(4).
    05  A-AS-NUMBER             REDEFINES A PIC 9(4).
    05  A-AS-GROUP              REDEFINES A.
        10  A-FIRST             PIC X.
        10  A-REST              PIC X(9).
    05  A-THROUGH-ANOTHER       REDEFINES A-AS-NUMBER PIC X.
    05  B                       PIC X.
    05  A-TOO-LATE              REDEFINES A PIC X(4). *> expect: 3251
    05  B-TOO-LATE              REDEFINES B PIC X. *> expect: 3251
01  WRONG-OBJECTS.
    05  FIRST-ITEM              REDEFINES WRONG-OBJECTS PIC X. *> expect: 3253
    05  NOT-BESIDE              REDEFINES A PIC X. *> expect: 3251
    05  AFTERWARDS              REDEFINES BEHIND PIC X. *> expect: 3251
    05  BEHIND                  PIC X.
    05  A-TABLE                 PIC X OCCURS 4.
    05  TABLE-AS-TEXT           REDEFINES A-TABLE PIC X(4). *> expect: 3256
    05  SMALL                   PIC 9.
    05  SMALL-AS-TABLE          REDEFINES SMALL PIC X OCCURS 3.
    05  VARIABLE                PIC X(9).
    05  VARIABLE-TABLE          REDEFINES VARIABLE PIC X *> expect: 3256
                                OCCURS 1 TO 9 DEPENDING ON SMALL.
*> The nearest entry of the name is meant.
01  NAMESAKES.
    05  TWICE                   PIC X.
    05  TWICE                   PIC X(2).
    05  OF-SECOND               REDEFINES TWICE PIC X(2).
01  GLOBAL-RECORD               PIC X GLOBAL.
01  AS-GLOBAL                   REDEFINES GLOBAL-RECORD PIC X. *> expect: 3257
01  EXTERNAL-RECORD             PIC X(4) EXTERNAL.
01  AS-EXTERNAL                 REDEFINES EXTERNAL-RECORD PIC X(4).
01  LARGER-EXTERNAL             REDEFINES EXTERNAL-RECORD PIC X(5). *> expect: 3258
01  ITSELF-EXTERNAL             REDEFINES EXTERNAL-RECORD PIC X EXTERNAL. *> expect: 3255
LOCAL-STORAGE SECTION.
01  LOCAL-RECORD                PIC X.
01  AS-LOCAL                    REDEFINES LOCAL-RECORD PIC X.
01  NOT-LOCAL                   REDEFINES RUNS PIC X. *> expect: 3251
LINKAGE SECTION.
01  PASSED                      PIC X.
01  AS-PASSED                   REDEFINES PASSED PIC X.
PROCEDURE DIVISION.
    GOBACK.
