      *> RUN: %tarka cfg --format=json %s | %python %S/edges.py handler | FileCheck %s --match-full-lines
      *>
      *> A label of HANDLE is entered from the commands that run while the HANDLE holds: behind it in the
      *> order of control, not of the text, until another one names the same condition.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. HANDLERS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  R                 PIC X.
       PROCEDURE DIVISION.
       MAIN.
           EXEC CICS READ FILE('BEFORE') INTO(R) END-EXEC
           PERFORM SET-UP
           EXEC CICS READ FILE('AFTER') INTO(R) END-EXEC
           IF R = 'X'
               EXEC CICS HANDLE CONDITION NOTFND(L2) END-EXEC
           END-IF
           EXEC CICS READ FILE('EITHER') INTO(R) END-EXEC
           EXEC CICS PUSH HANDLE END-EXEC
           EXEC CICS READ FILE('PUSHED') INTO(R) END-EXEC
           EXEC CICS POP HANDLE END-EXEC
           EXEC CICS HANDLE CONDITION NOTFND END-EXEC
           EXEC CICS READ FILE('DEFAULT') INTO(R) END-EXEC
           EXEC CICS HANDLE ABEND LABEL(L3) END-EXEC
           EXEC CICS READ FILE('ABEND') INTO(R) END-EXEC
           EXEC CICS HANDLE ABEND CANCEL END-EXEC
           EXEC CICS HANDLE CONDITION DUPREC(L4) MAPFAIL(L4) END-EXEC
           EXEC CICS READ FILE('OTHER') INTO(R) END-EXEC
           EXEC CICS WRITE FILE('DUP') FROM(R) RIDFLD(R) END-EXEC
           EXEC CICS IGNORE CONDITION PGMIDERR END-EXEC
           EXEC CICS XCTL PROGRAM('P') END-EXEC
           EXEC CICS RETURN END-EXEC.
       SET-UP.
           EXEC CICS HANDLE CONDITION NOTFND(L1) END-EXEC.
       L1.
           GOBACK.
       L2.
           GOBACK.
       L3.
           EXEC CICS DUMP TRANSACTION DUMPCODE('L3') END-EXEC
           GOBACK.
       L4.
           STOP RUN.
       NEVER.
           EXEC CICS HANDLE CONDITION NOTFND(NEVER) END-EXEC.
      *> An abend within the abend exit does not enter it again, XCTL goes on where its failure is
      *> ignored, and a READ does not find a record twice.
      *> CHECK:      14 EXEC CICS READ -> handler: handler
      *> CHECK-NEXT: 18 EXEC CICS READ -> handler: handler
      *> CHECK-NEXT: 25 EXEC CICS READ -> handler: handler
      *> CHECK-NEXT: 29 EXEC CICS WRITE -> handler: handler
      *> CHECK-NEXT: handler -> 35 L1: handler
      *> CHECK-NEXT: handler -> 35 L1: handler
      *> CHECK-NEXT: handler -> 37 L2: handler
      *> CHECK-NEXT: handler -> 39 L3: handler
      *> CHECK-NEXT: handler -> 42 L4: handler
      *> CHECK-NOT: {{.}}
