*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> The five arithmetic statements with no size phrase, either, and both.
IDENTIFICATION DIVISION.
PROGRAM-ID. ARITH.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  A                       PIC 9(4).
01  B                       PIC 9(4).
PROCEDURE DIVISION.
NONE.
    ADD 1 TO A
    DISPLAY A.
BOTH.
    SUBTRACT 1 FROM A
        ON SIZE ERROR DISPLAY "BIG"
        NOT ON SIZE ERROR DISPLAY "OK"
    END-SUBTRACT.
ONLY-NOT.
    MULTIPLY A BY B
        NOT ON SIZE ERROR DISPLAY "OK"
    END-MULTIPLY.
NESTED.
    DIVIDE A INTO B
        ON SIZE ERROR
            COMPUTE A = B + 1
                ON SIZE ERROR DISPLAY "BIG"
            END-COMPUTE
    END-DIVIDE.
ADD-PHRASE.
    ADD A TO B NOT ON SIZE ERROR CONTINUE END-ADD.
*> CHECK:      function ARITH
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 NONE
*> CHECK-NEXT:   paragraph NONE
*> CHECK-NEXT:     1: NONE [procedure] [terminator]
*> CHECK-NEXT:          12 ADD
*> CHECK-NEXT:        -> successor 2 tkdummy_end_on_size, end 2 tkdummy_end_on_size
*> CHECK-NEXT:     2: tkdummy_end_on_size
*> CHECK-NEXT:          13 DISPLAY
*> CHECK-NEXT:        -> falls into 3 BOTH
*> CHECK-NEXT:   paragraph BOTH
*> CHECK-NEXT:     3: BOTH [procedure] [terminator]
*> CHECK-NEXT:          15 SUBTRACT
*> CHECK-NEXT:        -> end 6 tkdummy_end_on_size, onSize 4 tkdummy_on_size, notOnSize 5 tkdummy_not_on_size
*> CHECK-NEXT:     4: tkdummy_on_size
*> CHECK-NEXT:          16 DISPLAY
*> CHECK-NEXT:        -> successor 6 tkdummy_end_on_size
*> CHECK-NEXT:     5: tkdummy_not_on_size
*> CHECK-NEXT:          17 DISPLAY
*> CHECK-NEXT:        -> successor 6 tkdummy_end_on_size
*> CHECK-NEXT:     6: tkdummy_end_on_size
*> CHECK-NEXT:        -> falls into 7 ONLY-NOT
*> CHECK-NEXT:   paragraph ONLY-NOT
*> CHECK-NEXT:     7: ONLY-NOT [procedure] [terminator]
*> CHECK-NEXT:          20 MULTIPLY
*> CHECK-NEXT:        -> end 9 tkdummy_end_on_size, notOnSize 8 tkdummy_not_on_size
*> CHECK-NEXT:     8: tkdummy_not_on_size
*> CHECK-NEXT:          21 DISPLAY
*> CHECK-NEXT:        -> successor 9 tkdummy_end_on_size
*> CHECK-NEXT:     9: tkdummy_end_on_size
*> CHECK-NEXT:        -> falls into 10 NESTED
*> CHECK-NEXT:   paragraph NESTED
*> CHECK-NEXT:    10: NESTED [procedure] [terminator]
*> CHECK-NEXT:          24 DIVIDE
*> CHECK-NEXT:        -> end 14 tkdummy_end_on_size, onSize 11 tkdummy_on_size
*> CHECK-NEXT:    11: tkdummy_on_size [terminator]
*> CHECK-NEXT:          26 COMPUTE
*> CHECK-NEXT:        -> end 13 tkdummy_end_on_size, onSize 12 tkdummy_on_size
*> CHECK-NEXT:    12: tkdummy_on_size
*> CHECK-NEXT:          27 DISPLAY
*> CHECK-NEXT:        -> successor 13 tkdummy_end_on_size
*> CHECK-NEXT:    13: tkdummy_end_on_size
*> CHECK-NEXT:        -> successor 14 tkdummy_end_on_size
*> CHECK-NEXT:    14: tkdummy_end_on_size
*> CHECK-NEXT:        -> falls into 15 ADD-PHRASE
*> CHECK-NEXT:   paragraph ADD-PHRASE
*> CHECK-NEXT:    15: ADD-PHRASE [procedure] [terminator]
*> CHECK-NEXT:          31 ADD
*> CHECK-NEXT:        -> end 17 tkdummy_end_on_size, notOnSize 16 tkdummy_not_on_size
*> CHECK-NEXT:    16: tkdummy_not_on_size
*> CHECK-NEXT:          31 CONTINUE
*> CHECK-NEXT:        -> successor 17 tkdummy_end_on_size
*> CHECK-NEXT:    17: tkdummy_end_on_size
