*> RUN: %tarka check --verify %s
*>
*> Bounds, keys and index names of tables, and the object of DEPENDING ON.
IDENTIFICATION DIVISION.
PROGRAM-ID. TABLES.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  TABLE-77                    PIC X OCCURS 2. *> expect: 3219
01  BOUNDS.
    05  ONCE                    PIC X OCCURS 1 TIMES.
    05  NEVER                   PIC X OCCURS 0. *> expect: 3221
    05  FRACTION                PIC X OCCURS 1.5. *> expect: 3220
    05  NOTHING-TO-NOTHING      PIC X OCCURS 0 TO 0 DEPENDING ON SMALL. *> expect: 3221 3224
    05  FIVE-TO-FIVE            PIC X OCCURS 5 TO 5 DEPENDING ON SMALL. *> expect: 3224
    05  NONE-TO-FIVE            PIC X OCCURS 0 TO 5 DEPENDING ON SMALL.
    05  NEGATIVE-TO-FIVE        PIC X OCCURS -1 TO 5 DEPENDING ON SMALL. *> expect: 3223
77  SMALL                       PIC 9(3).
77  LETTERS                     PIC X(3).
77  WITH-DECIMALS               PIC 9V9.
77  GLOBAL-NUMBER               PIC 9(3) COMP GLOBAL. *> expect: 3214
01  OUTSIDE.
    05  OUTSIDE-KEY             PIC X.

*> Keys are the table itself or items below it, and no table lies on the way.
01  KEYED.
    05  NUMBERS                 PIC 9(4) OCCURS 5 ASCENDING KEY NUMBERS
                                INDEXED BY NUMBER-X.
    05  ROWS                    OCCURS 5 ASCENDING KEY IS ROW-NAME
                                DESCENDING KEY IS ROW-NUMBER OF ROWS
                                INDEXED BY ROW-X ROW-Y.
        10  ROW-NAME            PIC X.
        10  ROW-PLACE.
            15  ROW-NUMBER      PIC 9.
    05  BAD-KEY-OUTSIDE         OCCURS 5 *> expect: 3225
                                ASCENDING KEY OUTSIDE-KEY OF OUTSIDE
                                DEPENDING ON NO-SUCH-NAME
                                INDEXED BY NEVER-X.
        10  PIC X.
    05  BAD-KEY-UNKNOWN         OCCURS 5
                                ASCENDING KEY OUTSIDE-KEY. *> expect: 3312 3496
        10  PIC X.
    05  BAD-KEY-TABLE           OCCURS 5 ASCENDING KEY COLUMN-KEY. *> expect: 3227
        10  COLUMN-KEY          PIC X OCCURS 3.
    05  BAD-KEY-IN-TABLE        OCCURS 5 ASCENDING KEY CELL-KEY. *> expect: 3227
        10  CELLS               OCCURS 3.
            15  CELL-KEY        PIC X.
    05  BAD-KEY-BOTH            OCCURS 5 ASCENDING KEY LEAF-KEY. *> expect: 3227 3227
        10  LEAVES              OCCURS 3.
            15  LEAF-KEY        PIC X OCCURS 2.
    05  BAD-KEY-USAGE           OCCURS 5 ASCENDING KEY POINTER-KEY. *> expect: 3228
        10  POINTER-KEY         POINTER.
    05  TOO-MANY-KEYS           OCCURS 5 *> expect: 3232 3232
                                ASCENDING KEY K1 K2 K3 K4 K5 K6 K7
                                DESCENDING KEY K1 K2 K3 K4 K5 K6
                                ASCENDING KEY K1.
        10  K1                  PIC X.
        10  K2                  PIC X.
        10  K3                  PIC X.
        10  K4                  PIC X.
        10  K5                  PIC X.
        10  K6                  PIC X.
        10  K7                  PIC X.
01  KEYED-TWO.
    05  .
        10  ROWS                OCCURS 5 ASCENDING KEY IS ROW-NAME.
            15  ROW-NAME        PIC X.

01  DEPENDING-TABLES.
    05  LENGTH-HERE             PIC 9(3).
    05  ON-LETTERS              PIC X OCCURS 1 TO 10 DEPENDING ON LETTERS. *> expect: 3230
    05  ON-DECIMALS             PIC X OCCURS 1 TO 10 DEPENDING ON WITH-DECIMALS. *> expect: 3230
    05  ON-NOTHING              PIC X OCCURS 1 TO 10
                                DEPENDING ON NO-SUCH-NAME. *> expect: 3310
    05  ON-ITSELF               PIC 9 OCCURS 1 TO 10 DEPENDING ON ON-ITSELF. *> expect: 3231
    05  ON-INSIDE               OCCURS 1 TO 10 DEPENDING ON INSIDE. *> expect: 3231
        10  INSIDE              PIC 9.
    05  ON-RIGHT                PIC X OCCURS 1 TO 10 DEPENDING ON LENGTH-HERE.
01  GLOBAL-TABLES               GLOBAL.
    05  ON-GLOBAL               PIC X OCCURS 2 TO 4 DEPENDING ON GLOBAL-NUMBER.
    05  ON-LOCAL                PIC X OCCURS 2 TO 4
                                DEPENDING ON SMALL. *> expect: 3229
LINKAGE SECTION.
01  PASSED-TABLE.
    05  PASSED                  PIC X OCCURS 9 INDEXED BY PASSED-X.
PROCEDURE DIVISION USING PASSED-TABLE.
    SET NUMBER-X ROW-X ROW-Y PASSED-X TO 1.
    GOBACK.
