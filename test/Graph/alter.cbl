*> RUN: not %tarka cfg %s 2>&1 | FileCheck %s --check-prefix=REFUSED
*> RUN: not %tarka cfg --keep-going %s 2>/dev/null | FileCheck %s --match-full-lines
*>
*> ALTER makes the checks fail without a message; its graph is printed on request.
IDENTIFICATION DIVISION.
PROGRAM-ID. ALTERS.
PROCEDURE DIVISION.
SWITCH.
    GO TO FIRST-TIME.
FIRST-TIME.
    ALTER SWITCH TO PROCEED TO LATER.
    GO TO SWITCH.
LATER.
    STOP RUN.
*> REFUSED: no graph of {{.*}}alter.cbl is printed
*> CHECK:      function ALTERS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 SWITCH
*> CHECK-NEXT:   paragraph SWITCH
*> CHECK-NEXT:     1: SWITCH [procedure] [terminator]
*> CHECK-NEXT:          9 GO TO FIRST-TIME
*> CHECK-NEXT:        -> successor 2 tkdummy_after_goto
*> CHECK-NEXT:     2: tkdummy_after_goto
*> CHECK-NEXT:   paragraph FIRST-TIME
*> CHECK-NEXT:     3: FIRST-TIME [procedure] [terminator]
*> CHECK-NEXT:          11 ALTER
*> CHECK-NEXT:          12 GO TO SWITCH
*> CHECK-NEXT:        -> successor 4 tkdummy_after_goto
*> CHECK-NEXT:     4: tkdummy_after_goto
*> CHECK-NEXT:   paragraph LATER
*> CHECK-NEXT:     5: LATER [procedure]
*> CHECK-NEXT:          14 STOP
