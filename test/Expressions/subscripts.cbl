*> RUN: %tarka check --verify %s
*>
*> Subscripts and reference modifiers: where they may stand, and what they may be.
*> expect-pass: 3301 3310 3314 3316
IDENTIFICATION DIVISION.
PROGRAM-ID. MODIFIERS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  TABLES.
    05  ROWS                    OCCURS 5 INDEXED BY ROW-X.
        10  ROW-NAME            PIC X(10).
            88  ROW-EMPTY       VALUE SPACES.
        10  CELLS               PIC S9(4) COMP OCCURS 4 INDEXED BY CELL-X.
    05  NO-TABLE                PIC X(10).
        88  NOT-IN-TABLE        VALUE SPACES.
77  N                           PIC 9(4).
77  WITH-SCALE                  PIC 9V9.
77  TEXT-ITEM                   PIC X(4).
77  EDITED                      PIC Z9.
77  IX                          USAGE INDEX.
77  BINARY-ITEM                 PIC 9(4) COMP.
77  PACKED-ITEM                 PIC 9(4) COMP-3.
77  FLOAT-ITEM                  COMP-1.
77  NATIONAL-ITEM               PIC N(10) NATIONAL.
77  DBCS-ITEM                   PIC G(10) DISPLAY-1.
01  BINARY-GROUP                COMP.
    05  PIC 9(4).
PROCEDURE DIVISION.
    *> Literals, items, indexes, relative subscripts.
    DISPLAY ROW-NAME (1) ROW-NAME (N) ROW-NAME (ROW-X) ROW-NAME (IX).
    DISPLAY ROW-NAME (N + 1) ROW-NAME (ROW-X - 1) CELLS (1, N) CELLS (ROW-X CELL-X + 2).
    DISPLAY ROW-NAME (BINARY-ITEM) CELLS (ROW-X, ROW-NAME (1)). *> expect: 3301:36-62

    *> Zero is treated as one.
    DISPLAY ROW-NAME (0). *> expect: 3528
    DISPLAY CELLS (0, 0). *> expect: 3528 3528
    DISPLAY ROW-NAME (-1). *> expect: 5001

    *> An item with decimal places is accepted as a numeric item, with a warning.
    DISPLAY ROW-NAME (WITH-SCALE) ROW-NAME (ZERO). *> expect: 5010
    DISPLAY ROW-NAME (1.5). *> expect: 3301
    DISPLAY ROW-NAME (TEXT-ITEM). *> expect: 3301
    DISPLAY ROW-NAME (EDITED). *> expect: 3301
    DISPLAY ROW-NAME (FLOAT-ITEM). *> expect: 3301

    *> An undefined subscript is reported for itself only.
    DISPLAY ROW-NAME (NOWHERE). *> expect: 3310:23-29
    DISPLAY ROW-NAME (NOWHERE + 1). *> expect: 3310:23-29

    *> Only tables and what they hold have subscripts.
    DISPLAY NO-TABLE (1). *> expect: 3316
    DISPLAY N (TEXT-ITEM). *> expect: 3316 3301
    DISPLAY CELLS (1) ROWS (2). *> expect: 5002
    IF ROW-EMPTY (1) CONTINUE.
    IF NOT-IN-TABLE (1) CONTINUE. *> expect: 3316

    *> Reference modifiers need characters.
    DISPLAY NO-TABLE (1:) NO-TABLE (2:1) NO-TABLE (N:N + 1) ROW-NAME (1) (2:3).
    *> A group consists of characters, whatever it contains.
    DISPLAY BINARY-GROUP (1:1).
    DISPLAY TABLES (1:10) EDITED (1:1) N (1:2) NATIONAL-ITEM (1:2) DBCS-ITEM (2:).
    DISPLAY BINARY-ITEM (1:1). *> expect: 3316
    DISPLAY PACKED-ITEM (1:1) FLOAT-ITEM (1:1). *> expect: 3316 3316
    DISPLAY NO-TABLE (1.5:2). *> expect: 3314
    DISPLAY NO-TABLE (1:1.5). *> expect: 3314
    DISPLAY NO-TABLE (TEXT-ITEM:TEXT-ITEM). *> expect: 3314 3314
    DISPLAY NO-TABLE (WITH-SCALE:1). *> expect: 3314
    DISPLAY BINARY-ITEM (1:TEXT-ITEM). *> expect: 3316 3314
    DISPLAY NO-TABLE (NOWHERE:1). *> expect: 3310 3314
    DISPLAY NO-TABLE (11:5). *> expect: 5004

    *> Of a wrong modifier the statement still goes on: a modified receiver is characters.
    MOVE NO-TABLE (1:2) TO NO-TABLE (3:2) ROW-NAME (0) (1:1). *> expect: 3528
    STOP RUN.
