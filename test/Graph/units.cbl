*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> Nested and consecutive programs; a quoted name; a program of data alone; entries.
IDENTIFICATION DIVISION.
PROGRAM-ID. 'quoted'.
DATA DIVISION.
LINKAGE SECTION.
01  ONE                     PIC X.
01  TWO                     PIC X.
PROCEDURE DIVISION USING ONE.
MAIN.
    DISPLAY "MAIN".
    ENTRY "SECOND" USING ONE TWO.
    DISPLAY "SECOND".
    GOBACK.
    ENTRY "Third".
LAST-ONE.
    GOBACK.
IDENTIFICATION DIVISION.
PROGRAM-ID. CHILD.
PROCEDURE DIVISION.
    EXIT PROGRAM.
    DISPLAY "BEHIND".
IDENTIFICATION DIVISION.
PROGRAM-ID. GRANDCHILD.
PROCEDURE DIVISION.
    GOBACK.
END PROGRAM GRANDCHILD.
END PROGRAM CHILD.
IDENTIFICATION DIVISION.
PROGRAM-ID. SIBLING.
PROCEDURE DIVISION.
    GOBACK.
END PROGRAM SIBLING.
END PROGRAM 'quoted'.
IDENTIFICATION DIVISION.
PROGRAM-ID. DATA-ONLY.
DATA DIVISION.
LOCAL-STORAGE SECTION.
01  L                       PIC X.
END PROGRAM DATA-ONLY.
*> CHECK:      function quoted
*> CHECK-NEXT:   parameters 1
*> CHECK-NEXT:   entry 1 SECOND at 2
*> CHECK-NEXT:   entry 2 Third at 4
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:          8 data ONE
*> CHECK-NEXT:          9 data TWO
*> CHECK-NEXT:        -> falls into 1 MAIN
*> CHECK-NEXT:   paragraph MAIN
*> CHECK-NEXT:     1: MAIN [procedure]
*> CHECK-NEXT:          12 DISPLAY
*> CHECK-NEXT:        -> successor 2 SECOND_entry
*> CHECK-NEXT:     2: SECOND_entry [terminator]
*> CHECK-NEXT:          14 DISPLAY
*> CHECK-NEXT:          15 GOBACK
*> CHECK-NEXT:     3: tkdummy_after_goback
*> CHECK-NEXT:        -> successor 4 Third_entry
*> CHECK-NEXT:     4: Third_entry
*> CHECK-NEXT:        -> falls into 5 LAST-ONE
*> CHECK-NEXT:   paragraph LAST-ONE
*> CHECK-NEXT:     5: LAST-ONE [procedure] [terminator]
*> CHECK-NEXT:          18 GOBACK
*> CHECK-NEXT:     6: tkdummy_after_goback
*>
*> CHECK:      function CHILD [not called]
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 tkdummy_unnamed_sentence
*> CHECK-NEXT:     1: tkdummy_unnamed_sentence [terminator]
*> CHECK-NEXT:          22 EXIT PROGRAM
*> CHECK-NEXT:     2: tkdummy_after_exit_program
*> CHECK-NEXT:          23 DISPLAY [not reached]
*>
*> CHECK:      function GRANDCHILD [not called]
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 tkdummy_unnamed_sentence
*> CHECK-NEXT:     1: tkdummy_unnamed_sentence [terminator]
*> CHECK-NEXT:          27 GOBACK
*> CHECK-NEXT:     2: tkdummy_after_goback
*>
*> CHECK:      function SIBLING [not called]
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 tkdummy_unnamed_sentence
*> CHECK-NEXT:     1: tkdummy_unnamed_sentence [terminator]
*> CHECK-NEXT:          33 GOBACK
*> CHECK-NEXT:     2: tkdummy_after_goback
*>
*> CHECK:      function DATA-ONLY
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:          40 data L
