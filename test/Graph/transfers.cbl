*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> NEXT SENTENCE, GO TO in its forms, EXIT PROGRAM, GOBACK, STOP.
IDENTIFICATION DIVISION.
PROGRAM-ID. TRANSFERS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  N                       PIC 9.
PROCEDURE DIVISION.
SENTENCES.
*>  One block after the sentence for both statements.
    IF N = 1
        NEXT SENTENCE
    ELSE
        IF N = 2
            NEXT SENTENCE
        ELSE
            MOVE 3 TO N.
    MOVE 4 TO N.
*>  The block after it belongs to the first block of the sentence, not to that of the IF.
    ADD 1 TO N
    IF N = 5 NEXT SENTENCE END-IF
    MOVE 6 TO N.
JUMPS.
    GO TO LABELS.
    GO TO SENTENCES JUMPS LABELS DEPENDING ON N.
    MOVE 7 TO N.
LABELS.
    EXIT PROGRAM.
    STOP RUN.
    GOBACK.
*> CHECK:      function TRANSFERS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 SENTENCES
*> CHECK-NEXT:   paragraph SENTENCES
*> CHECK-NEXT:     1: SENTENCES [procedure] [terminator]
*> CHECK-NEXT:          12 IF
*> CHECK-NEXT:        -> then 2 tkdummy_then, else 3 tkdummy_else, end 7 tkdummy_endif, next 8 tkdummy_end_sentence
*> CHECK-NEXT:     2: tkdummy_then [terminator]
*> CHECK-NEXT:          13 NEXT SENTENCE
*> CHECK-NEXT:        -> successor 7 tkdummy_endif
*> CHECK-NEXT:     3: tkdummy_else [terminator]
*> CHECK-NEXT:          15 IF
*> CHECK-NEXT:        -> then 4 tkdummy_then, else 5 tkdummy_else, end 6 tkdummy_endif
*> CHECK-NEXT:     4: tkdummy_then [terminator]
*> CHECK-NEXT:          16 NEXT SENTENCE
*> CHECK-NEXT:        -> successor 6 tkdummy_endif
*> CHECK-NEXT:     5: tkdummy_else
*> CHECK-NEXT:          18 MOVE
*> CHECK-NEXT:        -> successor 6 tkdummy_endif
*> CHECK-NEXT:     6: tkdummy_endif
*> CHECK-NEXT:        -> successor 7 tkdummy_endif
*> CHECK-NEXT:     7: tkdummy_endif
*> CHECK-NEXT:        -> successor 8 tkdummy_end_sentence
*> CHECK-NEXT:     8: tkdummy_end_sentence [terminator]
*> CHECK-NEXT:          19 MOVE
*> CHECK-NEXT:          21 ADD
*> CHECK-NEXT:        -> successor 9 tkdummy_end_on_size, end 9 tkdummy_end_on_size, next 12 tkdummy_end_sentence
*> CHECK-NEXT:     9: tkdummy_end_on_size [terminator]
*> CHECK-NEXT:          22 IF
*> CHECK-NEXT:        -> then 10 tkdummy_then, end 11 tkdummy_endif
*> CHECK-NEXT:    10: tkdummy_then [terminator]
*> CHECK-NEXT:          22 NEXT SENTENCE
*> CHECK-NEXT:        -> successor 11 tkdummy_endif
*> CHECK-NEXT:    11: tkdummy_endif
*> CHECK-NEXT:          23 MOVE
*> CHECK-NEXT:        -> successor 12 tkdummy_end_sentence
*> CHECK-NEXT:    12: tkdummy_end_sentence
*> CHECK-NEXT:        -> falls into 13 JUMPS
*> CHECK-NEXT:   paragraph JUMPS
*> CHECK-NEXT:    13: JUMPS [procedure] [terminator]
*> CHECK-NEXT:          25 GO TO LABELS
*> CHECK-NEXT:        -> successor 14 tkdummy_after_goto
*> CHECK-NEXT:    14: tkdummy_after_goto [terminator]
*> CHECK-NEXT:          26 GO TO SENTENCES JUMPS LABELS [not reached]
*> CHECK-NEXT:        -> successor 15 tkdummy_after_goto, end 15 tkdummy_after_goto
*> CHECK-NEXT:    15: tkdummy_after_goto
*> CHECK-NEXT:          27 MOVE [not reached]
*> CHECK-NEXT:   paragraph LABELS
*> CHECK-NEXT:    16: LABELS [procedure] [terminator]
*> CHECK-NEXT:          29 EXIT PROGRAM
*> CHECK-NEXT:    17: tkdummy_after_exit_program [terminator]
*> CHECK-NEXT:          30 STOP
*> CHECK-NEXT:          31 GOBACK [not reached]
*> CHECK-NEXT:    18: tkdummy_after_goback
