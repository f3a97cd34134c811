*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> EXIT PARAGRAPH and EXIT SECTION lead to the end of the procedure, in front of its exit.
IDENTIFICATION DIVISION.
PROGRAM-ID. EXITS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  N                       PIC 9.
PROCEDURE DIVISION.
MAIN SECTION.
    PERFORM WORK
    PERFORM STEP-1
    STOP RUN.
WORK SECTION.
    IF N = 1 EXIT SECTION END-IF.
STEP-1.
    EXIT PARAGRAPH.
    EVALUATE N
        WHEN 1 EXIT PARAGRAPH
        WHEN 2 EXIT SECTION
    END-EVALUATE.
    DISPLAY "STEP".
PLAIN.
    EXIT.
*> CHECK:      function EXITS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 MAIN
*> CHECK-NEXT:   section MAIN
*> CHECK-NEXT:     1: MAIN [procedure] [terminator]
*> CHECK-NEXT:          11 PERFORM WORK
*> CHECK-NEXT:        -> successor 2 tkdummy_perform_11_line_after, after 2 tkdummy_perform_11_line_after, return 2 tkdummy_perform_11_line_after
*> CHECK-NEXT:     2: tkdummy_perform_11_line_after [terminator]
*> CHECK-NEXT:          12 PERFORM STEP-1
*> CHECK-NEXT:        -> successor 3 tkdummy_perform_12_line_after, after 3 tkdummy_perform_12_line_after, return 3 tkdummy_perform_12_line_after
*> CHECK-NEXT:     3: tkdummy_perform_12_line_after
*> CHECK-NEXT:          13 STOP
*> CHECK-NEXT:   section WORK
*> CHECK-NEXT:     4: WORK [procedure] [terminator]
*> CHECK-NEXT:          15 IF
*> CHECK-NEXT:        -> then 5 tkdummy_then, end 7 tkdummy_endif
*> CHECK-NEXT:     5: tkdummy_then [terminator]
*> CHECK-NEXT:          15 EXIT SECTION
*> CHECK-NEXT:        -> after 20 tkdummy_end_section
*> CHECK-NEXT:     6: tkdummy_after_exit_section
*> CHECK-NEXT:        -> successor 7 tkdummy_endif
*> CHECK-NEXT:     7: tkdummy_endif
*> CHECK-NEXT:        -> falls into 8 STEP-1
*> CHECK-NEXT:   paragraph STEP-1
*> CHECK-NEXT:     8: STEP-1 [procedure] [terminator]
*> CHECK-NEXT:          17 EXIT PARAGRAPH
*> CHECK-NEXT:        -> after 16 tkdummy_end_paragraph
*> CHECK-NEXT:     9: tkdummy_after_exit_paragraph [terminator]
*> CHECK-NEXT:          18 when [not reached]
*> CHECK-NEXT:        -> successor 12 tkdummy_evaluate_when_cond, then 10 tkdummy_evaluate_when_body, else 12 tkdummy_evaluate_when_cond, end 15 tkdummy_evaluate_end
*> CHECK-NEXT:    10: tkdummy_evaluate_when_body [terminator]
*> CHECK-NEXT:          19 EXIT PARAGRAPH [not reached]
*> CHECK-NEXT:        -> after 16 tkdummy_end_paragraph
*> CHECK-NEXT:    11: tkdummy_after_exit_paragraph
*> CHECK-NEXT:        -> successor 15 tkdummy_evaluate_end, then 15 tkdummy_evaluate_end
*> CHECK-NEXT:    12: tkdummy_evaluate_when_cond [terminator]
*> CHECK-NEXT:          18 when [not reached]
*> CHECK-NEXT:        -> successor 15 tkdummy_evaluate_end, then 13 tkdummy_evaluate_when_body, else 15 tkdummy_evaluate_end, end 15 tkdummy_evaluate_end
*> CHECK-NEXT:    13: tkdummy_evaluate_when_body [terminator]
*> CHECK-NEXT:          20 EXIT SECTION [not reached]
*> CHECK-NEXT:        -> after 20 tkdummy_end_section
*> CHECK-NEXT:    14: tkdummy_after_exit_section
*> CHECK-NEXT:        -> successor 15 tkdummy_evaluate_end, then 15 tkdummy_evaluate_end
*> CHECK-NEXT:    15: tkdummy_evaluate_end
*> CHECK-NEXT:          22 DISPLAY [not reached]
*> CHECK-NEXT:        -> successor 16 tkdummy_end_paragraph
*> CHECK-NEXT:    16: tkdummy_end_paragraph
*> CHECK-NEXT:        -> successor 17 STEP-1_exit
*> CHECK-NEXT:    17: STEP-1_exit [terminator]
*> CHECK-NEXT:          16 return to performer of STEP-1
*> CHECK-NEXT:        -> successor 18 STEP-1_exit_after
*> CHECK-NEXT:    18: STEP-1_exit_after
*> CHECK-NEXT:        -> falls into 19 PLAIN
*> CHECK-NEXT:   paragraph PLAIN
*> CHECK-NEXT:    19: PLAIN [procedure]
*> CHECK-NEXT:          24 EXIT
*> CHECK-NEXT:        -> successor 20 tkdummy_end_section
*> CHECK-NEXT:   section WORK
*> CHECK-NEXT:    20: tkdummy_end_section
*> CHECK-NEXT:        -> successor 21 WORK_exit
*> CHECK-NEXT:    21: WORK_exit [terminator]
*> CHECK-NEXT:          14 return to performer of WORK
*> CHECK-NEXT:        -> successor 22 WORK_exit_after
*> CHECK-NEXT:    22: WORK_exit_after
