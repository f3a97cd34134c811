*> RUN: %tarka check --verify %s
*>
*> BLANK WHEN ZERO, EXTERNAL, GLOBAL and JUSTIFIED.
IDENTIFICATION DIVISION.
PROGRAM-ID. CLAUSES.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  BLANK-WHEN-ZERO.
    05  BLANK-NUMERIC           PIC 9(3) BLANK WHEN ZERO.
    05  BLANK-EDITED            PIC ZZ9.99 BLANK ZERO.
    05  BLANK-SIGNED            PIC S9(3) BLANK WHEN ZERO. *> expect: 3210
    05  BLANK-ASTERISKS         PIC **9 BLANK WHEN ZERO. *> expect: 3210
    05  BLANK-BINARY            PIC 9(3) COMP BLANK WHEN ZERO. *> expect: 3207
    05  BLANK-TEXT              PIC X(3) BLANK WHEN ZERO. *> expect: 3211
    05  BLANK-FLOAT             COMP-1 BLANK WHEN ZERO. *> expect: 3207 3211 3209
    05  BLANK-GROUP             BLANK WHEN ZERO. *> expect: 3208 3211 3209
        10  BLANK-ITEM          PIC 9.

01  EXTERNAL-RECORD             PIC X EXTERNAL.
77  EXTERNAL-77                 PIC X EXTERNAL. *> expect: 3212
01  EXTERNAL-GROUP.
    05  EXTERNAL-ITEM           PIC X IS EXTERNAL. *> expect: 3212

*> Every namesake that is GLOBAL reports each of them.
01  SAME-NAME                   PIC X GLOBAL. *> expect: 3215 3215
01  SAME-NAME                   PIC X IS GLOBAL. *> expect: 3215 3215
01  NAMESAKES.
    05  SAME-NAME               PIC X.
    05  GLOBAL-ITEM             PIC X GLOBAL. *> expect: 3214
*> The items of a GLOBAL record are GLOBAL without a word.
01  GLOBAL-RECORD               GLOBAL.
    05  GLOBAL-GROUP.
        10  GLOBAL-LEAF         PIC X.

01  JUSTIFIED-ITEMS.
    05  JUST-LETTERS            PIC A(4) JUST.
    05  JUST-TEXT               PIC X(4) JUSTIFIED RIGHT.
    05  JUST-NATIONAL           PIC N(4) USAGE NATIONAL JUST.
    05  JUST-DBCS               PIC G(4) USAGE DISPLAY-1 JUST.
    05  JUST-NUMERIC            PIC 9(4) JUST. *> expect: 3217
    05  JUST-EDITED             PIC XBX JUST. *> expect: 3217
    05  JUST-POINTER            POINTER JUST. *> expect: 3217
    05  JUST-GROUP              JUST. *> expect: 3216
        10  JUST-ITEM           PIC X.
LINKAGE SECTION.
01  EXTERNAL-LINKAGE            PIC X EXTERNAL. *> expect: 3213
PROCEDURE DIVISION.
    GOBACK.
