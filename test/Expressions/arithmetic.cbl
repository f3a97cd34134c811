*> RUN: %tarka check --verify %s
*>
*> Operands of arithmetic expressions must be numbers.
IDENTIFICATION DIVISION.
PROGRAM-ID. ARITHMETIC.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  N                           PIC S9(5)V99 COMP-3.
77  BINARY-ITEM                 PIC S9(4) COMP.
77  FLOAT-1                     COMP-1.
77  EXTERNAL-FLOAT              PIC +9.99E+99.
77  TEXT-ITEM                   PIC X(4).
77  EDITED                      PIC Z9.99.
77  IX                          USAGE INDEX.
01  A-GROUP.
    05  PIC 9(4).
PROCEDURE DIVISION.
    COMPUTE N = (BINARY-ITEM + FLOAT-1) * 2 ** EXTERNAL-FLOAT - ZERO / LENGTH OF A-GROUP.
    COMPUTE N = - N + (- 5).

    *> Of a literal both its kind and its category are wrong, of an item only the category.
    COMPUTE N = BINARY-ITEM + "5". *> expect: 3322:17-33 3322:17-33
    COMPUTE N = BINARY-ITEM + TEXT-ITEM. *> expect: 3322
    COMPUTE N = EDITED * 2. *> expect: 3322
    COMPUTE N = A-GROUP - 1. *> expect: 3322
    COMPUTE N = IX + 1. *> expect: 3322
    COMPUTE N = TEXT-ITEM + EDITED. *> expect: 3322 3322
    COMPUTE N = SPACE + 1. *> expect: 3322

    *> The first operand that is wrong by itself ends the check of the expression.
    COMPUTE N = NOWHERE + NEITHER. *> expect: 3310:17-23
    COMPUTE N = N + NEITHER. *> expect: 3310
    COMPUTE N = TEXT-ITEM + NEITHER. *> expect: 3322 3310
    COMPUTE N = TEXT-ITEM * 2 + TEXT-ITEM. *> expect: 3322:17-29
    COMPUTE N = 2 * TEXT-ITEM + NEITHER * TEXT-ITEM. *> expect: 3322
    COMPUTE N = N + N * TEXT-ITEM. *> expect: 3322:21-33
    STOP RUN.
