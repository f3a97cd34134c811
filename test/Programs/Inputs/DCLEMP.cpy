      ******************************************************************
      * DCLGEN TABLE(HR.EMP)                                           *
      ******************************************************************
           EXEC SQL DECLARE HR.EMP TABLE
           ( EMPNO                          CHAR(6) NOT NULL,
             FIRSTNME                       VARCHAR(12) NOT NULL,
             WORKDEPT                       CHAR(3),
             SALARY                         DECIMAL(9, 2)
           ) END-EXEC.
       01  DCLEMP.
           10 EMPNO                PIC X(6).
           10 FIRSTNME.
              49 FIRSTNME-LEN      PIC S9(4) USAGE COMP.
              49 FIRSTNME-TEXT     PIC X(12).
           10 WORKDEPT             PIC X(3).
           10 SALARY               PIC S9(7)V9(2) USAGE COMP-3.
