*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> Sections with and without paragraphs, performed as a whole and in part.
IDENTIFICATION DIVISION.
PROGRAM-ID. SECTS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  N                       PIC 9.
PROCEDURE DIVISION.
MAIN SECTION.
    PERFORM WORK.
    PERFORM STEP-1 IN WORK THRU STEP-2 IN WORK.
    PERFORM EMPTY-SECT.
    STOP RUN.
WORK SECTION.
    MOVE 1 TO N.
STEP-1.
    MOVE 2 TO N.
STEP-2.
    MOVE 3 TO N.
EMPTY-SECT SECTION.
*> CHECK:      function SECTS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 MAIN
*> CHECK-NEXT:   section MAIN
*> CHECK-NEXT:     1: MAIN [procedure] [terminator]
*> CHECK-NEXT:          11 PERFORM WORK
*> CHECK-NEXT:        -> successor 2 tkdummy_perform_11_line_after, after 2 tkdummy_perform_11_line_after, return 2 tkdummy_perform_11_line_after
*> CHECK-NEXT:     2: tkdummy_perform_11_line_after [terminator]
*> CHECK-NEXT:          12 PERFORM STEP-1 THRU STEP-2
*> CHECK-NEXT:        -> successor 3 tkdummy_perform_12_line_after, after 3 tkdummy_perform_12_line_after, return 3 tkdummy_perform_12_line_after
*> CHECK-NEXT:     3: tkdummy_perform_12_line_after [terminator]
*> CHECK-NEXT:          13 PERFORM EMPTY-SECT
*> CHECK-NEXT:        -> successor 4 tkdummy_perform_13_line_after, after 4 tkdummy_perform_13_line_after, return 4 tkdummy_perform_13_line_after
*> CHECK-NEXT:     4: tkdummy_perform_13_line_after
*> CHECK-NEXT:          14 STOP
*> CHECK-NEXT:   section WORK
*> CHECK-NEXT:     5: WORK [procedure]
*> CHECK-NEXT:          16 MOVE
*> CHECK-NEXT:        -> falls into 6 STEP-1
*> CHECK-NEXT:   paragraph STEP-1
*> CHECK-NEXT:     6: STEP-1 [procedure]
*> CHECK-NEXT:          18 MOVE
*> CHECK-NEXT:        -> falls into 7 STEP-2
*> CHECK-NEXT:   paragraph STEP-2
*> CHECK-NEXT:     7: STEP-2 [procedure]
*> CHECK-NEXT:          20 MOVE
*> CHECK-NEXT:        -> successor 8 STEP-2_exit
*> CHECK-NEXT:     8: STEP-2_exit [terminator]
*> CHECK-NEXT:          19 return to performer of STEP-2
*> CHECK-NEXT:        -> successor 9 STEP-2_exit_after
*> CHECK-NEXT:     9: STEP-2_exit_after
*> CHECK-NEXT:        -> successor 10 WORK_exit
*> CHECK-NEXT:   section WORK
*> CHECK-NEXT:    10: WORK_exit [terminator]
*> CHECK-NEXT:          15 return to performer of WORK
*> CHECK-NEXT:        -> successor 11 WORK_exit_after
*> CHECK-NEXT:    11: WORK_exit_after
*> CHECK-NEXT:   section EMPTY-SECT
*> CHECK-NEXT:    12: EMPTY-SECT [procedure]
*> CHECK-NEXT:        -> successor 13 EMPTY-SECT_exit
*> CHECK-NEXT:    13: EMPTY-SECT_exit [terminator]
*> CHECK-NEXT:          21 return to performer of EMPTY-SECT
*> CHECK-NEXT:        -> successor 14 EMPTY-SECT_exit_after
*> CHECK-NEXT:    14: EMPTY-SECT_exit_after
