*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> ON OVERFLOW.
IDENTIFICATION DIVISION.
PROGRAM-ID. STRINGS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  A                       PIC X(10).
01  B                       PIC X(10).
PROCEDURE DIVISION.
NONE.
    STRING A DELIMITED BY SIZE INTO B
    UNSTRING A INTO B
    DISPLAY B.
BOTH.
    UNSTRING A INTO B
        ON OVERFLOW DISPLAY "OVER"
        NOT ON OVERFLOW DISPLAY "OK"
    END-UNSTRING.
ONE.
    STRING A DELIMITED BY SPACE INTO B
        NOT ON OVERFLOW DISPLAY "OK"
    END-STRING
    STRING A DELIMITED BY SPACE INTO B
        ON OVERFLOW IF A = B DISPLAY "SAME" END-IF
    END-STRING.
*> CHECK:      function STRINGS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 NONE
*> CHECK-NEXT:   paragraph NONE
*> CHECK-NEXT:     1: NONE [procedure]
*> CHECK-NEXT:          12 STRING
*> CHECK-NEXT:          13 UNSTRING
*> CHECK-NEXT:          14 DISPLAY
*> CHECK-NEXT:        -> falls into 2 BOTH
*> CHECK-NEXT:   paragraph BOTH
*> CHECK-NEXT:     2: BOTH [procedure] [terminator]
*> CHECK-NEXT:          16 UNSTRING
*> CHECK-NEXT:        -> then 3 tkdummy_overflow, else 4 tkdummy_not_overflow, end 5 tkdummy_end
*> CHECK-NEXT:     3: tkdummy_overflow
*> CHECK-NEXT:          17 DISPLAY
*> CHECK-NEXT:        -> successor 5 tkdummy_end
*> CHECK-NEXT:     4: tkdummy_not_overflow
*> CHECK-NEXT:          18 DISPLAY
*> CHECK-NEXT:        -> successor 5 tkdummy_end
*> CHECK-NEXT:     5: tkdummy_end
*> CHECK-NEXT:        -> falls into 6 ONE
*> CHECK-NEXT:   paragraph ONE
*> CHECK-NEXT:     6: ONE [procedure] [terminator]
*> CHECK-NEXT:          21 STRING
*> CHECK-NEXT:        -> else 7 tkdummy_not_overflow, end 8 tkdummy_end
*> CHECK-NEXT:     7: tkdummy_not_overflow
*> CHECK-NEXT:          22 DISPLAY
*> CHECK-NEXT:        -> successor 8 tkdummy_end
*> CHECK-NEXT:     8: tkdummy_end [terminator]
*> CHECK-NEXT:          24 STRING
*> CHECK-NEXT:        -> then 9 tkdummy_overflow, end 12 tkdummy_end
*> CHECK-NEXT:     9: tkdummy_overflow [terminator]
*> CHECK-NEXT:          25 IF
*> CHECK-NEXT:        -> then 10 tkdummy_then, end 11 tkdummy_endif
*> CHECK-NEXT:    10: tkdummy_then
*> CHECK-NEXT:          25 DISPLAY
*> CHECK-NEXT:        -> successor 11 tkdummy_endif
*> CHECK-NEXT:    11: tkdummy_endif
*> CHECK-NEXT:        -> successor 12 tkdummy_end
*> CHECK-NEXT:    12: tkdummy_end
