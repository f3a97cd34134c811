      *> RUN: %tarka check --verify --sql %s
      *> RUN: %tarka ast --sql %s | FileCheck %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. SQL-BLOCKS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
           EXEC SQL DECLARE EMP TABLE
               (EMPNO CHAR(6) NOT NULL, NAME VARCHAR(30),
                SALARY DECIMAL(9, 2)) END-EXEC.
      *> CHECK: SqlTableUse {{.*}} name=EMP access=declare
      *> CHECK-SAME: columns=[EMPNO, NAME, SALARY]
       01  EMP.
           05  EMPNO           PIC X(6).
           05  NAME.
               49  NAME-LEN    PIC S9(4) COMP.
               49  NAME-TEXT   PIC X(30).
           05  SALARY          PIC S9(7)V99 COMP-3.
       01  OTHER-EMP.
           05  EMPNO           PIC X(6).
       01  INDICATORS.
           05  SALARY-IND      PIC S9(4) COMP.
           05  NAME-IND        PIC S9(4) COMP OCCURS 3.
       01  WS-DEPT             PIC X(3).
       01  WS-COUNT            PIC S9(9) COMP.
       01  WS-EDITED           PIC ZZ9.
       01  WS-POINTER          POINTER.
       01  WS-TEXT             PIC X(200).
       01  WS-ROWS.
           05  WS-NUMBERS      PIC X(6) OCCURS 10.
       01  LOCATOR-1 SQL TYPE IS RESULT-SET-LOCATOR VARYING.
       01  HV-BIG              SQL TYPE IS CLOB(1M).
           EXEC SQL DECLARE C1 CURSOR WITH HOLD FOR
               SELECT E.EMPNO, MAX(SALARY * 2, 1), 'A,B'
               FROM EMP E, DEPT AS D
               WHERE D.NO = :WS-DEPT -- don't care: it isn't :THERE
               AND TRIM(LEADING FROM NAME) <> ':NOT'
               FOR UPDATE OF SALARY END-EXEC.
      *> CHECK: EmbeddedCommand {{.*}} name=DECLARE CURSOR columns=3
      *> CHECK-NEXT: name=EMP access=read
      *> CHECK-NEXT: name=DEPT access=read
           EXEC SQL DECLARE ROW-CURSOR CURSOR WITH ROWSET POSITIONING
               FOR SELECT EMPNO FROM EMP END-EXEC.
           EXEC SQL DECLARE DYN CURSOR FOR STMT1 END-EXEC.
           EXEC SQL DECLARE C1 CURSOR FOR SELECT 1 FROM X *> expect: 5244
               END-EXEC.
       PROCEDURE DIVISION.
       MAIN SECTION.
       FIRST-ONE.
           EXEC SQL WHENEVER SQLERROR GOTO :FAILED END-EXEC
           EXEC SQL WHENEVER NOT FOUND CONTINUE END-EXEC
           EXEC SQL SELECT EMPNO, NAME, SALARY INTO :EMP
               FROM EMP WHERE EMPNO = :OTHER-EMP.EMPNO END-EXEC
      *> CHECK: name=SELECT INTO columns=3
      *> CHECK: EmbeddedOperand {{.*}} option=INTO effect=written
           EXEC SQL SELECT SALARY, COUNT(*) INTO
               :SALARY :SALARY-IND, :WS-COUNT INDICATOR :NAME-IND
               FROM EMP GROUP BY SALARY END-EXEC
           EXEC SQL OPEN C1 END-EXEC
           EXEC SQL FETCH C1 INTO :EMP.EMPNO, :SALARY:SALARY-IND,
               :WS-DEPT END-EXEC
           EXEC SQL UPDATE EMP SET SALARY = :SALARY + 1, NAME = NULL
               WHERE CURRENT OF C1 END-EXEC
           EXEC SQL FETCH NEXT ROWSET FROM ROW-CURSOR FOR 10 ROWS
               INTO :WS-NUMBERS END-EXEC
           EXEC SQL INSERT INTO HR.EMP (EMPNO, SALARY)
               VALUES (:EMP.EMPNO, :SALARY) END-EXEC
      *> CHECK: name=HR.EMP access=insert columns=[EMPNO, SALARY]
           EXEC SQL PREPARE STMT1 FROM :WS-TEXT END-EXEC
           EXEC SQL DESCRIBE STMT1 INTO :SQLDA END-EXEC
           EXEC SQL OPEN DYN USING :WS-DEPT END-EXEC
           EXEC SQL EXECUTE IMMEDIATE :WS-TEXT END-EXEC
           EXEC SQL CALL PROC(:WS-DEPT, :WS-COUNT) END-EXEC
           EXEC SQL ASSOCIATE LOCATORS (:LOCATOR-1) WITH PROCEDURE PROC
               END-EXEC
           EXEC SQL ALLOCATE RESULTS CURSOR FOR RESULT SET :LOCATOR-1
               END-EXEC
           EXEC SQL FETCH RESULTS INTO :WS-COUNT END-EXEC
           EXEC SQL SET :WS-COUNT = LENGTH(:HV-BIG) END-EXEC
           EXEC SQL GET DIAGNOSTICS :WS-COUNT = ROW_COUNT END-EXEC
           EXEC SQL WITH T AS (SELECT 1 FROM EMP) SELECT COUNT(*)
               INTO :WS-COUNT FROM T END-EXEC
           EXEC SQL COMMIT END-EXEC
           GOBACK.
      *> One mistake, one message.
       MISTAKES.
           EXEC SQL OPEN C2 END-EXEC                  *> expect: 5243
           EXEC SQL SELECT 1 INTO :WS-CUONT           *> expect: 5201
               FROM EMP END-EXEC
           EXEC SQL SELECT 1 INTO :EMPNO              *> expect: 5202
               FROM EMP END-EXEC
           EXEC SQL SELECT 1 INTO :WS-EDITED          *> expect: 5241
               FROM EMP END-EXEC
           EXEC SQL SELECT 1 INTO :WS-POINTER         *> expect: 5241
               FROM EMP END-EXEC
           EXEC SQL SELECT 1
               INTO :WS-COUNT:WS-DEPT                 *> expect: 5242
               FROM EMP END-EXEC
           EXEC SQL FETCH C1 INTO :WS-COUNT END-EXEC  *> expect: 5245
           EXEC SQL SELECT 1, 2 INTO :WS-COUNT        *> expect: 5245
               FROM EMP END-EXEC
           EXEC SQL EXECUTE STMT2 END-EXEC            *> expect: 5246
           EXEC SQL DELETE FROM DEPT
               WHERE CURRENT OF ROW-CURSOR END-EXEC   *> expect: 5247
           EXEC SQL WHENEVER SQLWARNING
               GO TO NOWHERE END-EXEC                 *> expect: 5203
           EXEC SQL ROLLBACK END-EXEC.
       FAILED.
           GOBACK.
