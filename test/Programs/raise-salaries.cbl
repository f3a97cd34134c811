      *> RUN: %tarka check --verify --sql -I %S/Inputs %s
      *> RUN: %tarka layout --sql -I %S/Inputs --record SQLCA %s \
      *> RUN:   | FileCheck --check-prefix=SQLCA %s
      *> SQLCA: <supplied>/SQLCA
      *> SQLCA: 01 SQLCA {{.*}} 136 group
       IDENTIFICATION DIVISION.
       PROGRAM-ID. RAISE.
      *----------------------------------------------------------------*
      * RAISE THE SALARIES OF A DEPARTMENT.                            *
      *----------------------------------------------------------------*
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT PRINT-FILE ASSIGN TO PRTOUT.
       DATA DIVISION.
       FILE SECTION.
       FD  PRINT-FILE RECORDING MODE F.
       01  PRINT-LINE          PIC X(80).
       WORKING-STORAGE SECTION.
           EXEC SQL INCLUDE SQLCA END-EXEC.
           EXEC SQL
               INCLUDE DCLEMP
           END-EXEC.
           EXEC SQL INCLUDE SQLDA END-EXEC
           EXEC SQL BEGIN DECLARE SECTION END-EXEC.
       01  HV-DEPT             PIC X(3).
       01  HV-PERCENT          PIC S9(3)V9(2) COMP-3.
       77  HV-IND              PIC S9(4) COMP.
       01  HV-PICTURE          USAGE IS SQL TYPE IS BLOB(64K).
       01  HV-NOTES            SQL TYPE IS CLOB-LOCATOR.
       01  HV-LONG-NAMES.
           05  HV-ROW          USAGE SQL TYPE IS ROWID OCCURS 3.
           EXEC SQL END DECLARE SECTION END-EXEC.
       01  WS-SQLCODE          PIC -(9)9.
       01  WS-ROWS             PIC S9(9) COMP VALUE 0.
       01  WS-SWITCH           PIC X VALUE 'N'.
           88  NO-MORE-ROWS    VALUE 'Y'.
           EXEC SQL DECLARE C1 CURSOR FOR
               SELECT EMPNO, FIRSTNME, SALARY
               FROM HR.EMP
               WHERE WORKDEPT = :HV-DEPT
               FOR UPDATE OF SALARY
           END-EXEC.
       LINKAGE SECTION.
       01  LK-PARM.
           05  LK-LENGTH       PIC S9(4) COMP.
           05  LK-DEPT         PIC X(3).
       PROCEDURE DIVISION USING LK-PARM.
           EXEC SQL WHENEVER SQLERROR GO TO 9000-SQL-ERROR END-EXEC.
       0000-MAIN.
           MOVE LK-DEPT TO HV-DEPT.
           MOVE 3.5 TO HV-PERCENT.
           OPEN OUTPUT PRINT-FILE.
           EXEC SQL OPEN C1 END-EXEC.
           PERFORM UNTIL NO-MORE-ROWS
               EXEC SQL
                   FETCH C1 INTO :EMPNO, :FIRSTNME, :SALARY:HV-IND
               END-EXEC
               IF SQLCODE = 100
                   SET NO-MORE-ROWS TO TRUE
               ELSE
                   IF SQLWARN0 = 'W' OR HV-IND < 0 CONTINUE
                   ELSE PERFORM 1000-RAISE END-IF
               END-IF
           END-PERFORM
           EXEC SQL CLOSE C1 END-EXEC
           EXEC SQL COMMIT END-EXEC
           CLOSE PRINT-FILE
           GOBACK.
       1000-RAISE.
           EXEC SQL UPDATE HR.EMP
               SET SALARY = SALARY * (1 + :HV-PERCENT / 100)
               WHERE CURRENT OF C1
           END-EXEC
           ADD SQLERRD (3) TO WS-ROWS
           STRING EMPNO DELIMITED BY SIZE
                  FIRSTNME-TEXT (1:FIRSTNME-LEN) DELIMITED BY SIZE
               INTO PRINT-LINE
           WRITE PRINT-LINE
           MOVE HV-PICTURE-DATA (1:HV-PICTURE-LENGTH) TO PRINT-LINE
           MOVE HV-ROW-DATA (2) TO PRINT-LINE
           MOVE HV-NOTES TO WS-ROWS.
           EXEC SQL INCLUDE SQLERR END-EXEC.
