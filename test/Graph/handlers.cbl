      *> RUN: %tarka cfg %s | FileCheck %s
      *> RUN: %tarka cfg --format=dot %s | FileCheck %s --check-prefix=DOT
      *>
      *> Ways that no statement of the language shows: labels of HANDLE and of WHENEVER, a USE procedure
      *> that a statement with phrases enters, a task that ends.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. HANDLERS.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT F ASSIGN TO F.
       DATA DIVISION.
       FILE SECTION.
       FD  F.
       01  R                 PIC X.
       PROCEDURE DIVISION.
       DECLARATIVES.
       ON-OUTPUT SECTION.
           USE AFTER ERROR PROCEDURE ON OUTPUT.
       ON-OUTPUT-1.
           DISPLAY 'OUTPUT'.
       END DECLARATIVES.
       MAIN SECTION.
       FIRST-ONE.
           EXEC CICS HANDLE CONDITION NOTFND(NOT-FOUND) END-EXEC
           EXEC SQL WHENEVER SQLERROR GO TO SQL-FAILED END-EXEC
           OPEN OUTPUT F
           READ F AT END
               DISPLAY 'END'
           NOT AT END
               DISPLAY 'MORE'
           END-READ
           EXEC CICS READ FILE('F') INTO(R) RIDFLD(R) END-EXEC
           EXEC SQL DELETE FROM T END-EXEC
           EXEC CICS RETURN END-EXEC.
       NEVER.
           CONTINUE.
       NOT-FOUND.
           EXEC CICS XCTL PROGRAM('P') NOHANDLE END-EXEC.
       AFTER-FAILURE.
           EXEC CICS ABEND END-EXEC.
       SQL-FAILED.
           GOBACK.
      *> CHECK-NOT: not reached
      *> CHECK:     section ON-OUTPUT
      *> CHECK:     paragraph FIRST-ONE
      *> CHECK-NOT: falls into
      *> CHECK:     paragraph NEVER [not reached]
      *> CHECK:     paragraph NOT-FOUND
      *> CHECK:     falls into {{[0-9]+}} AFTER-FAILURE
      *> CHECK-NOT: not reached
      *>
      *> DOT:       [[READ:f0b[0-9]+]] {{.*}}READ F AT END
      *> DOT-DAG:   [[READ]] -> f0b{{[0-9]+}} [label="declarative"
      *> DOT-DAG:   [[READ]] -> f0b{{[0-9]+}} [label="at end"]
      *> DOT-DAG:   [[READ]] -> f0b{{[0-9]+}} [label="exception"]
      *> DOT-DAG:   -> f0b{{[0-9]+}} [label="handler"
