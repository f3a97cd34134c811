      *> RUN: %tarka check --verify %s
      *> Functions that REPOSITORY names need no FUNCTION, in the program and those nested in it.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. ALL-FUNCTIONS.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       REPOSITORY.
           FUNCTION ALL INTRINSIC.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A PIC X(10).
       01  N PIC 9(5).
       PROCEDURE DIVISION.
           MOVE TRIM(A) TO A
           MOVE LENGTH(A) TO N
           MOVE LENGTH OF A TO N
           COMPUTE N = MAX(1 2 3) + SUM(1 2) - RANDOM * PI + RANDOM(1)
           DISPLAY CURRENT-DATE (1:8) UPPER-CASE(A) WHEN-COMPILED
           IF NUMVAL(A) > 3 AND LENGTH(TRIM(A)) = 2 DISPLAY A END-IF
           EVALUATE LENGTH(A) WHEN 3 CONTINUE END-EVALUATE
           GOBACK.

       IDENTIFICATION DIVISION.
       PROGRAM-ID. NESTED.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A PIC X(10).
       PROCEDURE DIVISION.
           DISPLAY REVERSE(A).
       END PROGRAM NESTED.
       END PROGRAM ALL-FUNCTIONS.

       IDENTIFICATION DIVISION.
       PROGRAM-ID. SOME-FUNCTIONS.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       REPOSITORY.
           CLASS BASE IS "java.lang.Object"       *> expect: 221
           FUNCTION TRIM LENGTH INTRINSIC
           FUNCTION OF-OUR-OWN                    *> expect: 221
           FUNCTION MIN TRIMM INTRINSIC.          *> expect: 451
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A PIC X(10).
       01  MAX PIC 9(5) OCCURS 3.
       PROCEDURE DIVISION.
           MOVE TRIM(A) TO A
           MOVE MAX(1) TO MAX(2)
           MOVE MAXIMUM(1) TO MAX(2).             *> expect: 3310
       END PROGRAM SOME-FUNCTIONS.
