*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> Sentences outside of procedures, paragraphs, and the exits of performed ranges.
IDENTIFICATION DIVISION.
PROGRAM-ID. "Procs".
DATA DIVISION.
WORKING-STORAGE SECTION.
01  N                       PIC 9.
LOCAL-STORAGE SECTION.
01  PLACE                   PIC X.
LINKAGE SECTION.
01  GIVEN                   PIC X.
01  ANSWER                  PIC 9.
PROCEDURE DIVISION USING GIVEN RETURNING ANSWER.
    DISPLAY "BEFORE".
    MOVE 1 TO N.
EMPTY-FIRST.
FIRST-STEP.
    MOVE 2 TO N.
    PERFORM FIRST-STEP THRU LAST-STEP.
LAST-STEP.
    IF N = 1
        MOVE 3 TO N.
EMPTY-LAST.
*> CHECK:      function Procs
*> CHECK-NEXT:   parameters 1
*> CHECK-NEXT:   returning
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:          10 data PLACE
*> CHECK-NEXT:          12 data GIVEN
*> CHECK-NEXT:          13 data ANSWER
*> CHECK-NEXT:        -> falls into 1 tkdummy_unnamed_sentence
*> CHECK-NEXT:     1: tkdummy_unnamed_sentence
*> CHECK-NEXT:          15 DISPLAY
*> CHECK-NEXT:          16 MOVE
*> CHECK-NEXT:        -> falls into 2 EMPTY-FIRST
*> CHECK-NEXT:   paragraph EMPTY-FIRST
*> CHECK-NEXT:     2: EMPTY-FIRST [procedure]
*> CHECK-NEXT:        -> falls into 3 FIRST-STEP
*> CHECK-NEXT:   paragraph FIRST-STEP
*> CHECK-NEXT:     3: FIRST-STEP [procedure] [terminator]
*> CHECK-NEXT:          19 MOVE
*> CHECK-NEXT:          20 PERFORM FIRST-STEP THRU LAST-STEP
*> CHECK-NEXT:        -> successor 4 tkdummy_perform_20_line_after, after 4 tkdummy_perform_20_line_after, return 4 tkdummy_perform_20_line_after
*> CHECK-NEXT:     4: tkdummy_perform_20_line_after
*> CHECK-NEXT:   paragraph LAST-STEP [not reached]
*> CHECK-NEXT:     5: LAST-STEP [procedure] [terminator]
*> CHECK-NEXT:          22 IF [not reached]
*> CHECK-NEXT:        -> then 6 tkdummy_then, end 7 tkdummy_endif
*> CHECK-NEXT:     6: tkdummy_then
*> CHECK-NEXT:          23 MOVE [not reached]
*> CHECK-NEXT:        -> successor 7 tkdummy_endif
*> CHECK-NEXT:     7: tkdummy_endif
*> CHECK-NEXT:        -> successor 8 LAST-STEP_exit
*> CHECK-NEXT:     8: LAST-STEP_exit [terminator]
*> CHECK-NEXT:          21 return to performer of LAST-STEP
*> CHECK-NEXT:        -> successor 9 LAST-STEP_exit_after
*> CHECK-NEXT:     9: LAST-STEP_exit_after
*> CHECK-NEXT:   paragraph EMPTY-LAST [not reached]
*> CHECK-NEXT:    10: EMPTY-LAST [procedure]
