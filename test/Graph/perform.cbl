*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> PERFORM in all forms; EXIT PERFORM leaves the innermost inline one.
IDENTIFICATION DIVISION.
PROGRAM-ID. PERFORMS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  I                       PIC 9.
01  J                       PIC 9.
PROCEDURE DIVISION.
OUT-OF-LINE.
    PERFORM WORK
    PERFORM WORK 3 TIMES
    PERFORM WORK UNTIL I > 3
    PERFORM WORK VARYING I FROM 1 BY 1 UNTIL I > 3 AFTER J FROM 1 BY 1 UNTIL J > 3.
SAME-LINE.
    PERFORM WORK PERFORM WORK.
INLINE.
    PERFORM
        MOVE 1 TO I
    END-PERFORM.
LOOPS.
    PERFORM VARYING I FROM 1 BY 1 UNTIL I > 3
        IF I = 2
            EXIT PERFORM
        END-IF
        PERFORM WITH TEST AFTER UNTIL J > 3
            EVALUATE J
                WHEN 1 EXIT PERFORM CYCLE
                WHEN 2 EXIT PERFORM
            END-EVALUATE
        END-PERFORM
        EXIT PERFORM CYCLE
    END-PERFORM.
*>  An empty body holds a CONTINUE.
EMPTY-BODY.
    PERFORM 3 TIMES END-PERFORM.
WORK.
    MOVE 1 TO I.
*> CHECK:      function PERFORMS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 OUT-OF-LINE
*> CHECK-NEXT:   paragraph OUT-OF-LINE
*> CHECK-NEXT:     1: OUT-OF-LINE [procedure] [terminator]
*> CHECK-NEXT:          12 PERFORM WORK
*> CHECK-NEXT:        -> successor 2 tkdummy_perform_12_line_after, after 2 tkdummy_perform_12_line_after, return 2 tkdummy_perform_12_line_after
*> CHECK-NEXT:     2: tkdummy_perform_12_line_after [terminator]
*> CHECK-NEXT:          13 PERFORM WORK
*> CHECK-NEXT:        -> successor 4 tkdummy_perform_13_line_after, after 4 tkdummy_perform_13_line_after, return 3 tkdummy_perform_13_line_return
*> CHECK-NEXT:     3: tkdummy_perform_13_line_return [terminator]
*> CHECK-NEXT:     4: tkdummy_perform_13_line_after [terminator]
*> CHECK-NEXT:          14 PERFORM WORK
*> CHECK-NEXT:        -> successor 6 tkdummy_perform_14_line_after, after 6 tkdummy_perform_14_line_after, return 5 tkdummy_perform_14_line_return
*> CHECK-NEXT:     5: tkdummy_perform_14_line_return [terminator]
*> CHECK-NEXT:     6: tkdummy_perform_14_line_after [terminator]
*> CHECK-NEXT:          15 PERFORM WORK
*> CHECK-NEXT:        -> successor 8 tkdummy_perform_15_line_after, after 8 tkdummy_perform_15_line_after, return 7 tkdummy_perform_15_line_return
*> CHECK-NEXT:     7: tkdummy_perform_15_line_return [terminator]
*> CHECK-NEXT:     8: tkdummy_perform_15_line_after
*> CHECK-NEXT:        -> falls into 9 SAME-LINE
*> CHECK-NEXT:   paragraph SAME-LINE
*> CHECK-NEXT:     9: SAME-LINE [procedure] [terminator]
*> CHECK-NEXT:          17 PERFORM WORK
*> CHECK-NEXT:        -> successor 10 tkdummy_perform_17_line_after, after 10 tkdummy_perform_17_line_after, return 10 tkdummy_perform_17_line_after
*> CHECK-NEXT:    10: tkdummy_perform_17_line_after [terminator]
*> CHECK-NEXT:          17 PERFORM WORK
*> CHECK-NEXT:        -> successor 11 tkdummy_perform_17_line_after, after 11 tkdummy_perform_17_line_after, return 11 tkdummy_perform_17_line_after
*> CHECK-NEXT:    11: tkdummy_perform_17_line_after
*> CHECK-NEXT:        -> falls into 12 INLINE
*> CHECK-NEXT:   paragraph INLINE
*> CHECK-NEXT:    12: INLINE [procedure] [terminator]
*> CHECK-NEXT:          19 PERFORM
*> CHECK-NEXT:        -> inline 13 tkdummy_perform_inline, after 14 tkdummy_perform_19_line_after, return 14 tkdummy_perform_19_line_after
*> CHECK-NEXT:    13: tkdummy_perform_inline [terminator]
*> CHECK-NEXT:          20 MOVE
*> CHECK-NEXT:          19 return to performer
*> CHECK-NEXT:        -> successor 14 tkdummy_perform_19_line_after
*> CHECK-NEXT:    14: tkdummy_perform_19_line_after
*> CHECK-NEXT:        -> falls into 15 LOOPS
*> CHECK-NEXT:   paragraph LOOPS
*> CHECK-NEXT:    15: LOOPS [procedure] [terminator]
*> CHECK-NEXT:          23 PERFORM
*> CHECK-NEXT:        -> inline 16 tkdummy_perform_inline, after 31 tkdummy_perform_23_line_after, return 17 tkdummy_perform_23_line_return
*> CHECK-NEXT:    16: tkdummy_perform_inline [terminator]
*> CHECK-NEXT:          24 IF
*> CHECK-NEXT:        -> successor 31 tkdummy_perform_23_line_after, then 18 tkdummy_then, end 20 tkdummy_endif
*> CHECK-NEXT:    17: tkdummy_perform_23_line_return [terminator]
*> CHECK-NEXT:    18: tkdummy_then [terminator]
*> CHECK-NEXT:          25 EXIT PERFORM to 31 tkdummy_perform_23_line_after
*> CHECK-NEXT:    19: tkdummy_after_exit_perform
*> CHECK-NEXT:        -> successor 20 tkdummy_endif
*> CHECK-NEXT:    20: tkdummy_endif [terminator]
*> CHECK-NEXT:          27 PERFORM
*> CHECK-NEXT:        -> inline 21 tkdummy_perform_inline, after 29 tkdummy_perform_27_line_after, return 22 tkdummy_perform_27_line_return
*> CHECK-NEXT:    21: tkdummy_perform_inline [terminator]
*> CHECK-NEXT:          28 when
*> CHECK-NEXT:        -> successor 29 tkdummy_perform_27_line_after, then 23 tkdummy_evaluate_when_body, else 25 tkdummy_evaluate_when_cond, end 28 tkdummy_evaluate_end
*> CHECK-NEXT:    22: tkdummy_perform_27_line_return [terminator]
*> CHECK-NEXT:    23: tkdummy_evaluate_when_body [terminator]
*> CHECK-NEXT:          29 EXIT PERFORM to 22 tkdummy_perform_27_line_return
*> CHECK-NEXT:    24: tkdummy_after_exit_perform
*> CHECK-NEXT:        -> successor 28 tkdummy_evaluate_end, then 28 tkdummy_evaluate_end
*> CHECK-NEXT:    25: tkdummy_evaluate_when_cond [terminator]
*> CHECK-NEXT:          28 when
*> CHECK-NEXT:        -> successor 28 tkdummy_evaluate_end, then 26 tkdummy_evaluate_when_body, else 28 tkdummy_evaluate_end, end 28 tkdummy_evaluate_end
*> CHECK-NEXT:    26: tkdummy_evaluate_when_body [terminator]
*> CHECK-NEXT:          30 EXIT PERFORM to 29 tkdummy_perform_27_line_after
*> CHECK-NEXT:    27: tkdummy_after_exit_perform
*> CHECK-NEXT:        -> successor 28 tkdummy_evaluate_end, then 28 tkdummy_evaluate_end
*> CHECK-NEXT:    28: tkdummy_evaluate_end [terminator]
*> CHECK-NEXT:          27 return to performer
*> CHECK-NEXT:        -> successor 29 tkdummy_perform_27_line_after
*> CHECK-NEXT:    29: tkdummy_perform_27_line_after [terminator]
*> CHECK-NEXT:          33 EXIT PERFORM to 17 tkdummy_perform_23_line_return
*> CHECK-NEXT:    30: tkdummy_after_exit_perform [terminator]
*> CHECK-NEXT:          23 return to performer
*> CHECK-NEXT:        -> successor 31 tkdummy_perform_23_line_after
*> CHECK-NEXT:    31: tkdummy_perform_23_line_after
*> CHECK-NEXT:        -> falls into 32 EMPTY-BODY
*> CHECK-NEXT:   paragraph EMPTY-BODY
*> CHECK-NEXT:    32: EMPTY-BODY [procedure] [terminator]
*> CHECK-NEXT:          37 PERFORM
*> CHECK-NEXT:        -> inline 33 tkdummy_perform_inline, after 35 tkdummy_perform_37_line_after, return 34 tkdummy_perform_37_line_return
*> CHECK-NEXT:    33: tkdummy_perform_inline [terminator]
*> CHECK-NEXT:          0 CONTINUE
*> CHECK-NEXT:          37 return to performer
*> CHECK-NEXT:        -> successor 35 tkdummy_perform_37_line_after
*> CHECK-NEXT:    34: tkdummy_perform_37_line_return [terminator]
*> CHECK-NEXT:    35: tkdummy_perform_37_line_after
*> CHECK-NEXT:        -> falls into 36 WORK
*> CHECK-NEXT:   paragraph WORK
*> CHECK-NEXT:    36: WORK [procedure]
*> CHECK-NEXT:          39 MOVE
*> CHECK-NEXT:        -> successor 37 WORK_exit
*> CHECK-NEXT:    37: WORK_exit [terminator]
*> CHECK-NEXT:          38 return to performer of WORK
*> CHECK-NEXT:        -> successor 38 WORK_exit_after
*> CHECK-NEXT:    38: WORK_exit_after
