*> RUN: %tarka check --verify %s
*>
*> Where VALUE can stand: groups, redefinitions, other sections, condition names.
IDENTIFICATION DIVISION.
PROGRAM-ID. VALUE-PLACES.
ENVIRONMENT DIVISION.
CONFIGURATION SECTION.
SPECIAL-NAMES.
    SYMBOLIC CHARACTERS STAR IS 43.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  GROUP-RIGHT                 VALUE "ABCD".
    05  PIC X(2).
    05  PIC 9(2).
01  GROUP-NUMBER                VALUE 5. *> expect: 3281
    05  PIC X(2).
01  GROUP-NULL                  VALUE NULL. *> expect: 3281
    05  PIC X(2).
01  GROUP-TOO-SHORT             VALUE "ABC". *> expect: 3292 *> expect-pass
    05  PIC X(2).
01  GROUP-OVER-VALUES           VALUE SPACES.
    05  PIC X VALUE "A".        *> expect: 3283
    05  SUBGROUP.
        10  PIC 9(4) COMP.      *> expect: 3286
        10  PIC X(2) JUST.      *> expect: 3282
        10  PIC 9(4) COMP-3 SYNC VALUE 1. *> expect: 3282 3286 3283

*> Redefined storage has its value already, and EXTERNAL storage has none.
01  REDEFINED                   PIC X(4) VALUE "ABCD".
01  REDEFINING                  REDEFINES REDEFINED.
    05  PIC X(4)                VALUE "TOO LONG".
01  EXTERNAL-ITEM               PIC X EXTERNAL VALUE "A". *> expect: 3290
01  EXTERNAL-GROUP              EXTERNAL.
    05  SUBGROUP.
        10  PIC X               VALUE "A". *> expect: 3290

01  CONDITIONS.
    05  TEXT-VARIABLE           PIC X(3).
        88  TEXT-LITERALS       VALUE "A" THRU "C" "X".
        88  TEXT-CONSTANTS      VALUE SPACES ZERO LOW-VALUES THRU "A".
        88  TEXT-SYMBOL         VALUE STAR.
        88  TEXT-NUMBER         VALUE 1. *> expect: 3295
        88  TEXT-RANGE          VALUE "A" THRU 5. *> expect: 3294
        88  TEXT-NULL           VALUE NULL. *> expect: 3295
    05  LETTER-VARIABLE         PIC A.
        88  LETTER              VALUE "A".
        88  LETTER-ZERO         VALUE ZERO. *> expect: 3295
    05  NUMBER-VARIABLE         PIC 9(3).
        88  NUMBER-LITERALS     VALUE 1 THRU 5 ZERO.
        88  NUMBER-TEXT         VALUE "1". *> expect: 3295
        88  NUMBER-SPACES       VALUE SPACES. *> expect: 3295
        88  NUMBER-BAD-LITERAL  VALUE 12345678901234567890123456789012 *> expect@+0: 3306
                                      "never looked at".
    05  EDITED-VARIABLE         PIC ZZ9.
        88  EDITED-TEXT         VALUE "  1".
        88  EDITED-NUMBER       VALUE 1.
    05  GROUP-VARIABLE.
        88  GROUP-TEXT          VALUE "AB".
        88  GROUP-NUMBER-TOO    VALUE 12. *> expect: 3295
        10  PIC 9(2).
    05  FLOAT-VARIABLE          PIC +9.9E+99.
        88  FLOAT-LITERAL       VALUE 1.5E3.
LINKAGE SECTION.
01  PASSED                      PIC X(3) VALUE "ABC".
    88  PASSED-CONDITION        VALUE 1.
01  PASSED-WRONG                PIC X(3) VALUE "ABCD". *> expect: 3292 *> expect-pass
PROCEDURE DIVISION.
    GOBACK.
