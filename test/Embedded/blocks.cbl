      *> RUN: %tarka check --verify --cics --sql -I %S/Inputs %s
      *>
      *> Blocks wherever a statement may stand, without periods, in nested programs, out of copybooks
      *> and under REPLACE; literals and comments that hold what ends a block elsewhere.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. BLOCKS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
           EXEC SQL INCLUDE SQLCA END-EXEC.
       01  WS-A                PIC X(8).
       01  WS-N                PIC S9(8) COMP.
       COPY BLOCKDATA.
           EXEC SQL DECLARE C1 CURSOR FOR SELECT A FROM T
               WHERE B = 'END-EXEC' AND C = :WS-A END-EXEC
       01  WS-LAST             PIC X.
       LOCAL-STORAGE SECTION.
           EXEC SQL BEGIN DECLARE SECTION END-EXEC.
       01  LS-A                PIC X(8).
           EXEC SQL END DECLARE SECTION END-EXEC.
       LINKAGE SECTION.
       01  DFHCOMMAREA         PIC X(10).
       PROCEDURE DIVISION.
       MAIN SECTION.
           EXEC SQL OPEN C1 END-EXEC.
       FIRST-ONE.
           IF WS-N = 1
               EXEC SQL FETCH C1 INTO :WS-A END-EXEC
           ELSE
               EXEC CICS WRITEQ TD QUEUE('CSMT')
                   FROM(WS-A) END-EXEC
               IF WS-N = 2 EXEC CICS ASKTIME END-EXEC ELSE
                   EXEC SQL COMMIT END-EXEC END-IF
           END-IF
           EVALUATE WS-N
               WHEN 1 EXEC SQL CLOSE C1 END-EXEC
               WHEN OTHER
                   EXEC CICS SEND TEXT FROM('IT''S END-EXEC "')
                       LENGTH(14) END-EXEC
           END-EVALUATE
           PERFORM VARYING WS-N FROM 1 BY 1 UNTIL WS-N > 3
               EXEC SQL INSERT INTO T VALUES(:WS-A, 'a''b', "X") -- no
      *            EXEC CICS RETURN END-EXEC
                   /* it's over */ END-EXEC
           END-PERFORM
           COMPUTE WS-N = WS-N + 1
               ON SIZE ERROR EXEC CICS ABEND END-EXEC
               NOT ON SIZE ERROR EXEC CICS SUSPEND END-EXEC
           END-COMPUTE
           CALL 'SUB' ON EXCEPTION EXEC SQL ROLLBACK END-EXEC
           END-CALL
           COPY BLOCKCODE REPLACING ==:FILE:== BY =='CUST'==.
           REPLACE ==THE-QUEUE== BY =='Q1'==.
           EXEC CICS READQ TS QUEUE(WS-A) INTO(WS-A) END-EXEC
           REPLACE OFF.
           EXEC   CICS
             RETURN
           END-EXEC
           EXEC IDMS BIND RUN-UNIT END-EXEC
           EXEC CICS RETURN END-EXEC. EXEC CICS RETURN END-EXEC
           .
       LAST-ONE.
           EXEC SQL UPDATE T SET A = :WS-B
               WHERE CURRENT OF C1 END-EXEC                *> expect@-1: 5201
           EXEC CICS LINK PROGRAM(LS-A) COMMAREA(DFHCOMMAREA)
               LENGTH(EIBCALEN) RESP(WS-N) END-EXEC.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. INNER.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  IN-A                PIC X(8).
       PROCEDURE DIVISION.
           EXEC SQL FETCH C1 INTO :IN-A END-EXEC
           EXEC SQL FETCH C1 INTO :WS-A END-EXEC           *> expect: 5201
           IF IN-A = SPACES
               EXEC CICS RETURN END-EXEC
           ELSE EXEC CICS DELAY INTERVAL(1) END-EXEC.
       END PROGRAM INNER.
       END PROGRAM BLOCKS.
