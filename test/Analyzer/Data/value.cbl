*> RUN: %tarka check --verify %s
*>
*> Initial values of items, by category.
*> expect-pass: 3284 3285 3291 3292 3296 3298 3299 3325 3576
IDENTIFICATION DIVISION.
PROGRAM-ID. INITIAL-VALUES.
ENVIRONMENT DIVISION.
CONFIGURATION SECTION.
SPECIAL-NAMES.
    SYMBOLIC CHARACTERS STAR IS 43 SLASH IS 48 NO-CHARACTER IS 257. *> expect: 5073
DATA DIVISION.
WORKING-STORAGE SECTION.
01  CHARACTERS-RIGHT.
    05  PIC X(3)                VALUE "ABC".
    05  PIC X(3)                VALUE 'A'.
    05  PIC X(3)                VALUE X"414243".
    05  PIC X(4)                VALUE Z"ABC".
    05  PIC X(3)                VALUE SPACES.
    05  PIC X(3)                VALUE ZERO.
    05  PIC X(3)                VALUE HIGH-VALUES.
    05  PIC X(3)                VALUE ALL "AB".
    05  PIC X(3)                VALUE ALL ZEROS.
    05  PIC X(3)                VALUE STAR.
    05  PIC X(3)                VALUE ALL SLASH.
    05  PIC A(3)                VALUE "ABC".
    05  PIC A(3)                VALUE SPACE.
    05  PIC XX/XX               VALUE "12/34".
    05  PIC ZZ9.99              VALUE "  1.50".
    05  PIC ZZ9.99              VALUE SPACES.
    05  PIC ZZ9.99              VALUE ZERO.
    05  PIC N(2)                VALUE N"AB".
    05  PIC N(2)                VALUE SPACES.
    05  PIC N(2)                VALUE ALL N"A".
    05  PIC G(2)                VALUE SPACE.
01  CHARACTERS-WRONG.
    05  PIC X(3)                VALUE "ABCD". *> expect: 3292:39-44
    05  PIC X(3)                VALUE Z"ABC". *> expect: 3292
    05  PIC X(3)                VALUE 123. *> expect: 3293 *> expect-pass
    05  PIC X(3)                VALUE N"ABC". *> expect: 3293 *> expect-pass
    05  PIC X(3)                VALUE NULL. *> expect: 3325
    05  PIC X(3)                VALUE ALL 5. *> expect: 3308 *> expect-pass
    05  PIC X(3)                VALUE NO-CHARACTER. *> expect: 3140
    05  PIC A(3)                VALUE ZERO. *> expect: 3296
    05  PIC A(3)                VALUE 1.5E3. *> expect: 3296
    05  PIC A(3)                VALUE 1. *> expect: 3293 *> expect-pass
    05  PIC ZZ9.99              VALUE 1.50. *> expect: 3293 *> expect-pass
    05  PIC ZZ9                 VALUE "   1". *> expect: 3292
    05  PIC N(2)                VALUE "AB". *> expect: 3576
    05  PIC N(2)                VALUE N"ABC". *> expect: 3292
    05  PIC N(2)                VALUE ALL "A". *> expect: 3576
    05  PIC 9(2) NATIONAL       VALUE 12.
    05  PIC G(2)                VALUE "AB". *> expect: 3284
    05  PIC G(2)                VALUE ZERO. *> expect: 3284

01  NUMBERS-RIGHT.
    05  PIC 9(3)                VALUE 123.
    05  PIC 9(3)                VALUE 0000123.
    05  PIC S9(3)               VALUE -123.
    05  PIC S9(3)               VALUE +123.
    05  PIC S9(3)               VALUE 123.
    05  PIC S9(3)V99            VALUE -123.45.
    05  PIC S9(3)V99            VALUE .4500.
    05  PIC 9(3)                VALUE ZEROES.
    05  PIC S9(4) COMP          VALUE 9999.
    05  PIC S9(4) COMP-3        VALUE -9999.
    05  PIC S9(4) COMP-5        VALUE -32768.
    05  PIC 9(4) COMP-5         VALUE 65535.
    05  PIC S9(9)V99 COMP-5     VALUE 92233720368547758.07.
    05  PIC 99PPP               VALUE 99000.
    05  PIC 99PPP               VALUE 0.
    05  PIC VPP99               VALUE .0099.
    05  PIC PP99                VALUE 0.0001.
    05  COMP-1                  VALUE 1.5E3.
    05  COMP-2                  VALUE 12.
    05  COMP-2                  VALUE ZERO.
    05  POINTER                 VALUE NULL.
    05  PROCEDURE-POINTER       VALUE NULLS.
01  NUMBERS-WRONG.
    05  PIC 9(3)                VALUE 1234. *> expect: 3292
    05  PIC 9(3)                VALUE 1.5. *> expect: 3292
    05  PIC V99                 VALUE 1. *> expect: 3292
    05  PIC 9(3)                VALUE -1. *> expect: 3291
    05  PIC 9(3)                VALUE +1234. *> expect: 3291 3292
    05  PIC 9(3)                VALUE "123". *> expect: 3293 *> expect-pass
    05  PIC 9(3)                VALUE 1.0E2. *> expect: 3293 *> expect-pass
    05  PIC 9(3)                VALUE SPACES. *> expect: 3325
    05  PIC 9(3)                VALUE ALL "0". *> expect: 3325
    05  PIC 9(3)                VALUE STAR. *> expect: 3325
    05  PIC S9(4) COMP-5        VALUE 32768. *> expect: 3292
    05  PIC S9(4) COMP-5        VALUE -32769. *> expect: 3292
    05  PIC 9(4) COMP-5         VALUE 65536. *> expect: 3292
    05  PIC 99PPP               VALUE 999. *> expect: 3299
    05  PIC 99PPP               VALUE 100000. *> expect: 3299
    05  PIC 99PPP               VALUE 12345. *> expect: 3298
    05  PIC 99PPP               VALUE 1000.5. *> expect: 3298
    05  PIC VPP99               VALUE .01. *> expect: 3299
    05  PIC VPP99               VALUE .00991. *> expect: 3298
    05  PIC VPP99               VALUE 1. *> expect: 3299
    05  COMP-1                  VALUE "1". *> expect: 3285
    05  COMP-2                  VALUE SPACE. *> expect: 3285
    05  POINTER                 VALUE ZERO. *> expect: 3325
    05  POINTER                 VALUE 0. *> expect: 3293 *> expect-pass
    05  PIC 9(31)               VALUE 12345678901234567890123456789012. *> expect: 3306 *> expect-pass
*> An item starts with one value; the others are for condition names.
01  ONE-VALUE.
    05  PIC X                   VALUE "A" "B". *> expect: 3293:43-45
    05  PIC X                   VALUE "A" THRU STAR. *> expect: 3293:48-51
    05  PIC X                   VALUE "A" FALSE "B". *> expect: 3293:49-51
    05  PIC X                   VALUE 1 "B" "C". *> expect: 3293:39-39 3293:41-43
01  RANGE-GROUP                 VALUE "A" THRU "C". *> expect: 3281
    05  PIC X.
01  SWITCH                      PIC X.
    88  SWITCH-ON               VALUE "1" "Y" WHEN SET TO FALSE "0".
    88  SWITCH-WRONG            VALUE "1" WHEN SET TO FALSE 0. *> expect: 3295
PROCEDURE DIVISION.
    GOBACK.
