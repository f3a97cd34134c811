      *> RUN: %tarka flow %s | FileCheck %s --match-full-lines
      *> RUN: %tarka flow --format=json %s | FileCheck %s --check-prefix=JSON
      *> RUN: %tarka cfg --format=dot %s | FileCheck %s --check-prefix=DOT
      *> RUN: not %tarka cfg --paragraph STEP-B %s 2>&1 | FileCheck %s --check-prefix=MISSING
      *> RUN: not %tarka cfg --function FLOWZ %s 2>&1 | FileCheck %s --check-prefix=FUNCTION
      *>
      *> Why procedures are dead, which ranges are in trouble, and what performs and calls what.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. FLOWS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  N                 PIC 9.
       01  PROGRAM-NAME      PIC X(8).
       PROCEDURE DIVISION.
       MAIN.
           PERFORM STEP-1 THRU STEP-2
           PERFORM STEP-2 THRU STEP-3 UNTIL N > 3
           PERFORM STEP-2 THRU STEP-1
           CALL 'INNER'
           CALL 'OUTSIDE'
           CALL PROGRAM-NAME
           PERFORM NEVER-BACK
           DISPLAY 'DEAD'.
       AFTER-IT.
           CONTINUE.
       STEP-1.
           IF N = 1
               GO TO STEP-3
           END-IF
           PERFORM 3 TIMES
               ADD 1 TO N
           END-PERFORM.
       STEP-2.
           IF N = 9
               PERFORM STEP-1 THRU STEP-2.
       STEP-3.
           EXIT.
       NEVER-BACK.
           STOP RUN.
       DEAD-BEHIND.
           GO TO DEAD-TOO.
       DEAD-TOO.
           EXIT.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. INNER.
       PROCEDURE DIVISION.
       INNER-MAIN.
           GOBACK.
       END PROGRAM INNER.
       END PROGRAM FLOWS.
      *> CHECK:      program FLOWS
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   procedures never reached
      *> CHECK-NEXT:     24 AFTER-IT: the PERFORM of line 22 never returns
      *> CHECK-NEXT:     40 DEAD-BEHIND: nothing names it, and control never goes on behind the STOP of line 39
      *> CHECK-NEXT:     42 DEAD-TOO: the GO TO of line 41 leads to it and is not reached
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   performed ranges in trouble
      *> CHECK-NEXT:     16 STEP-1 THRU STEP-2: it can be performed again before it has ended
      *> CHECK-NEXT:     16 STEP-1 THRU STEP-2: the GO TO of line 28 leaves it
      *> CHECK-NEXT:     16 STEP-1 THRU STEP-2: it overlaps with STEP-2 THRU STEP-3
      *> CHECK-NEXT:     18 STEP-2 THRU STEP-1: it ends before it begins
      *> CHECK-NEXT:     22 NEVER-BACK: it never returns
      *> CHECK-NEXT:     22 NEVER-BACK: STEP-3 falls into it
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   what performs and calls what
      *> CHECK-NEXT:     16 PERFORM STEP-1 THRU STEP-2
      *> CHECK-NEXT:       35 PERFORM STEP-1 THRU STEP-2 (see above)
      *> CHECK-NEXT:     17 PERFORM STEP-2 THRU STEP-3
      *> CHECK-NEXT:       35 PERFORM STEP-1 THRU STEP-2 (see above)
      *> CHECK-NEXT:     18 PERFORM STEP-2 THRU STEP-1
      *> CHECK-NEXT:     19 CALL INNER
      *> CHECK-NEXT:     20 CALL OUTSIDE
      *> CHECK-NEXT:     21 CALL PROGRAM-NAME (identifier)
      *> CHECK-NEXT:     22 PERFORM NEVER-BACK
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   procedures
      *> CHECK-NEXT:     statements complexity depth loops fan-in fan-out
      *> CHECK-NEXT:              8          2     0     1      0       6 MAIN
      *> CHECK-NEXT:              1          1     0     0      0       0 AFTER-IT
      *> CHECK-NEXT:              4          3     1     1      2       1 STEP-1
      *> CHECK-NEXT:              2          2     1     0      1       1 STEP-2
      *> CHECK-NEXT:              1          1     0     0      1       0 STEP-3
      *> CHECK-NEXT:              1          1     0     0      1       0 NEVER-BACK
      *> CHECK-NEXT:              1          1     0     0      0       1 DEAD-BEHIND
      *> CHECK-NEXT:              1          1     0     0      1       0 DEAD-TOO
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   calls
      *> CHECK-NEXT:     19 INNER: static, a nested program
      *> CHECK-NEXT:     20 OUTSIDE: static, another compilation
      *> CHECK-NEXT:     21 PROGRAM-NAME: dynamic
      *> CHECK-EMPTY:
      *> CHECK-NEXT: program INNER
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   procedures never reached
      *> CHECK-NEXT:     none
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   performed ranges in trouble
      *> CHECK-NEXT:     none
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   what performs and calls what
      *> CHECK-NEXT:     nothing
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   procedures
      *> CHECK-NEXT:     statements complexity depth loops fan-in fan-out
      *> CHECK-NEXT:              1          1     0     0      0       0 INNER-MAIN
      *> CHECK-EMPTY:
      *> CHECK-NEXT:   calls
      *> CHECK-NEXT:     none
      *>
      *> JSON:      "name": "FLOWS"
      *> JSON:      "name": "AFTER-IT"
      *> JSON:      "reached": false,
      *> JSON-NEXT: "reason": "range never ends",
      *> JSON-NEXT: "explanation": "the PERFORM of line 22 never returns"
      *> JSON:      "end": "STEP-1",
      *> JSON:      "it ends before it begins"
      *> JSON:      "program": "INNER"
      *> JSON:      "inCompilation": true
      *>
      *> DOT:       f0b{{[0-9]+}} [style=filled, fillcolor="#eeeeee", label={{.*}}(not reached){{.*}}DISPLAY
      *> DOT:       label=<<b>AFTER-IT</b> (not reached)>
      *> DOT:       -> f0b{{[0-9]+}} [label="loop"]
      *>
      *> MISSING:   flow.cbl: there is no paragraph or section STEP-B; similar: STEP-1, STEP-2, STEP-3
      *> FUNCTION:  flow.cbl: there is no function FLOWZ; similar: FLOWS
