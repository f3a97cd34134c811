*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> IF and EVALUATE, alone and nested.
IDENTIFICATION DIVISION.
PROGRAM-ID. BRANCHES.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  N                       PIC 9.
01  M                       PIC 9.
PROCEDURE DIVISION.
WITHOUT-ELSE.
    IF N = 1
        MOVE 2 TO N
    END-IF
    MOVE 3 TO N.
NESTED.
    IF N = 1
        IF N = 2
            MOVE 3 TO N
        ELSE
            MOVE 4 TO N
        END-IF
    ELSE
        CONTINUE
    END-IF.
ONE-CASE.
    MOVE 1 TO M
    EVALUATE N
        WHEN 1 MOVE 2 TO M
    END-EVALUATE
    MOVE 3 TO M.
CASES.
    EVALUATE TRUE ALSO M
        WHEN N = 1 ALSO 2
        WHEN N = 3 ALSO ANY
            IF M = 1
                MOVE 2 TO M
            END-IF
        WHEN OTHER
            EVALUATE N
                WHEN 1 THRU 3 DISPLAY "INNER"
            END-EVALUATE
    END-EVALUATE.
*> CHECK:      function BRANCHES
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 WITHOUT-ELSE
*> CHECK-NEXT:   paragraph WITHOUT-ELSE
*> CHECK-NEXT:     1: WITHOUT-ELSE [procedure] [terminator]
*> CHECK-NEXT:          12 IF
*> CHECK-NEXT:        -> then 2 tkdummy_then, end 3 tkdummy_endif
*> CHECK-NEXT:     2: tkdummy_then
*> CHECK-NEXT:          13 MOVE
*> CHECK-NEXT:        -> successor 3 tkdummy_endif
*> CHECK-NEXT:     3: tkdummy_endif
*> CHECK-NEXT:          15 MOVE
*> CHECK-NEXT:        -> falls into 4 NESTED
*> CHECK-NEXT:   paragraph NESTED
*> CHECK-NEXT:     4: NESTED [procedure] [terminator]
*> CHECK-NEXT:          17 IF
*> CHECK-NEXT:        -> then 5 tkdummy_then, else 9 tkdummy_else, end 10 tkdummy_endif
*> CHECK-NEXT:     5: tkdummy_then [terminator]
*> CHECK-NEXT:          18 IF
*> CHECK-NEXT:        -> then 6 tkdummy_then, else 7 tkdummy_else, end 8 tkdummy_endif
*> CHECK-NEXT:     6: tkdummy_then
*> CHECK-NEXT:          19 MOVE
*> CHECK-NEXT:        -> successor 8 tkdummy_endif
*> CHECK-NEXT:     7: tkdummy_else
*> CHECK-NEXT:          21 MOVE
*> CHECK-NEXT:        -> successor 8 tkdummy_endif
*> CHECK-NEXT:     8: tkdummy_endif
*> CHECK-NEXT:        -> successor 10 tkdummy_endif
*> CHECK-NEXT:     9: tkdummy_else
*> CHECK-NEXT:          24 CONTINUE
*> CHECK-NEXT:        -> successor 10 tkdummy_endif
*> CHECK-NEXT:    10: tkdummy_endif
*> CHECK-NEXT:        -> falls into 11 ONE-CASE
*> CHECK-NEXT:   paragraph ONE-CASE
*> CHECK-NEXT:    11: ONE-CASE [procedure] [terminator]
*> CHECK-NEXT:          27 MOVE
*> CHECK-NEXT:          28 when
*> CHECK-NEXT:        -> successor 13 tkdummy_evaluate_end, then 12 tkdummy_evaluate_when_body, else 13 tkdummy_evaluate_end, end 13 tkdummy_evaluate_end
*> CHECK-NEXT:    12: tkdummy_evaluate_when_body
*> CHECK-NEXT:          29 MOVE
*> CHECK-NEXT:        -> successor 13 tkdummy_evaluate_end, then 13 tkdummy_evaluate_end
*> CHECK-NEXT:    13: tkdummy_evaluate_end
*> CHECK-NEXT:          31 MOVE
*> CHECK-NEXT:        -> falls into 14 CASES
*> CHECK-NEXT:   paragraph CASES
*> CHECK-NEXT:    14: CASES [procedure] [terminator]
*> CHECK-NEXT:          33 when
*> CHECK-NEXT:        -> successor 18 tkdummy_evaluate_when_cond, then 15 tkdummy_evaluate_when_body, else 18 tkdummy_evaluate_when_cond, end 22 tkdummy_evaluate_end
*> CHECK-NEXT:    15: tkdummy_evaluate_when_body [terminator]
*> CHECK-NEXT:          36 IF
*> CHECK-NEXT:        -> then 16 tkdummy_then, end 17 tkdummy_endif
*> CHECK-NEXT:    16: tkdummy_then
*> CHECK-NEXT:          37 MOVE
*> CHECK-NEXT:        -> successor 17 tkdummy_endif
*> CHECK-NEXT:    17: tkdummy_endif
*> CHECK-NEXT:        -> successor 22 tkdummy_evaluate_end, then 22 tkdummy_evaluate_end
*> CHECK-NEXT:    18: tkdummy_evaluate_when_cond [terminator]
*> CHECK-NEXT:          33 when
*> CHECK-NEXT:        -> successor 22 tkdummy_evaluate_end, then 19 tkdummy_evaluate_when_body, else 22 tkdummy_evaluate_end, end 22 tkdummy_evaluate_end
*> CHECK-NEXT:    19: tkdummy_evaluate_when_body [terminator]
*> CHECK-NEXT:          40 when
*> CHECK-NEXT:        -> successor 21 tkdummy_evaluate_end, then 20 tkdummy_evaluate_when_body, else 21 tkdummy_evaluate_end, end 21 tkdummy_evaluate_end
*> CHECK-NEXT:    20: tkdummy_evaluate_when_body
*> CHECK-NEXT:          41 DISPLAY
*> CHECK-NEXT:        -> successor 21 tkdummy_evaluate_end, then 21 tkdummy_evaluate_end
*> CHECK-NEXT:    21: tkdummy_evaluate_end
*> CHECK-NEXT:        -> successor 22 tkdummy_evaluate_end, then 22 tkdummy_evaluate_end
*> CHECK-NEXT:    22: tkdummy_evaluate_end
