*> RUN: %tarka check --verify %s
*> RUN: not %tarka cfg --keep-going %s 2>/dev/null | FileCheck %s
*>
*> What has no place in a graph. With errors it has holes, but it is built on request.
IDENTIFICATION DIVISION.
PROGRAM-ID. REFUSED.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  N                       PIC 9.
PROCEDURE DIVISION.
MAIN.
    EXIT PERFORM. *> expect: 429
    PERFORM MAIN VARYING N FROM 1 BY 1 UNTIL N = 5.
    IF N = 1 EXIT PERFORM CYCLE ELSE CONTINUE. *> expect: 429
    PERFORM NOWHERE. *> expect: 3403
*> CHECK:      1: MAIN
*> CHECK-NEXT: 13 PERFORM MAIN
*> CHECK:      14 IF
*> CHECK:      15 PERFORM
*> CHECK-NEXT: -> successor [[#AFTER:]] tkdummy_perform_15_line_after
