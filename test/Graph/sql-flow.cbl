      *> RUN: %tarka flow --sql --item WS-DEPT %s | FileCheck %s --check-prefix=CURSOR
      *> RUN: %tarka flow --sql --item SQLCODE %s | FileCheck %s --check-prefix=CODE
      *> RUN: %tarka cfg --sql --format=json %s | %python %S/edges.py handler \
      *> RUN:   | FileCheck %s --match-full-lines
      *>
      *> WHENEVER holds in the order of the text, and NOT FOUND for statements that look for rows. The
      *> items in the query of a cursor are read when it is opened.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. SQLFLOW.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
           EXEC SQL INCLUDE SQLCA END-EXEC.
       01  WS-DEPT             PIC X(3) VALUE 'A00'.
       01  WS-NO               PIC X(6).
       01  WS-PAY              PIC S9(7)V99 COMP-3.
       01  WS-PAY-IND          PIC S9(4) COMP.
       01  WS-TEXT             PIC X(80).
           EXEC SQL DECLARE C1 CURSOR FOR
               SELECT NO, PAY FROM EMP WHERE DEPT = :WS-DEPT
           END-EXEC.
       PROCEDURE DIVISION.
       MAIN.
           EXEC SQL WHENEVER SQLERROR GO TO FAILED END-EXEC
           EXEC SQL WHENEVER NOT FOUND GO TO NO-MORE END-EXEC
           MOVE 'B00' TO WS-DEPT
           EXEC SQL OPEN C1 END-EXEC
           MOVE 'C00' TO WS-DEPT.
       AGAIN.
           EXEC SQL FETCH C1 INTO :WS-NO, :WS-PAY:WS-PAY-IND END-EXEC
           IF WS-PAY-IND < 0
               EXEC SQL WHENEVER SQLERROR CONTINUE END-EXEC
               EXEC SQL DELETE FROM EMP WHERE CURRENT OF C1 END-EXEC
           ELSE
               EXEC SQL UPDATE EMP SET PAY = :WS-PAY + 1
                   WHERE CURRENT OF C1 END-EXEC
           END-IF
           GO TO AGAIN.
       NO-MORE.
           EXEC SQL WHENEVER NOT FOUND CONTINUE END-EXEC
           EXEC SQL CLOSE C1 END-EXEC
           EXEC SQL PREPARE S1 FROM :WS-TEXT END-EXEC
           EXEC SQL EXECUTE S1 USING :WS-NO END-EXEC
           GOBACK.
       FAILED.
           DISPLAY SQLCODE
           GOBACK.
      *> CHECK:       26 EXEC SQL OPEN -> 44 FAILED: handler
      *> CHECK-NEXT:  29 EXEC SQL FETCH -> 38 NO-MORE: handler
      *> CHECK-NEXT:  29 EXEC SQL FETCH -> 44 FAILED: handler
      *> CHECK-NEXT:  32 EXEC SQL DELETE -> 38 NO-MORE: handler
      *> CHECK-NEXT:  34 EXEC SQL UPDATE -> 38 NO-MORE: handler
      *> CHECK-NOT:  {{.}}
      *>
      *> CURSOR:      25 MOVE: read in 26
      *> CURSOR-NEXT: 27 MOVE: never read
      *> CURSOR:      26 EXEC SQL OPEN: written in 25
      *>
      *> CODE:        EXEC SQL OPEN by way of SQLCA: read in 45
      *> CODE:        EXEC SQL UPDATE by way of SQLCA: never read
