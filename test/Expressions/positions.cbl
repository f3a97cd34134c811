      *> What can be a subscript or a bound of a reference modifier: whatever can be a whole number
      *> when the program runs.
      *> RUN: %tarka check --verify %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. POSITIONS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  X PIC X(40).
       01  N PIC 9(4) VALUE 4.
       01  P PIC 9(4)V99.
       01  TT. 05 T PIC X OCCURS 10.
       PROCEDURE DIVISION.
           MOVE X(1:LENGTH OF X / 2) TO X
           MOVE X(N / 2:N ** 2) TO X
           MOVE X(FUNCTION REM(N, 3):FUNCTION NUMVAL("12")) TO X
           MOVE X(1 + N / 2:P * 100 - 1) TO X
           MOVE FUNCTION TRIM(X)(N / 2:FUNCTION INTEGER(P)) TO X
           MOVE T(FUNCTION REM(N, 3)) TO T(FUNCTION NUMVAL("3"))
           MOVE X(P:1) TO X *> expect: 3314 *> expect-pass
           MOVE X(N / 2 + P:1) TO X *> expect: 3314 *> expect-pass
           MOVE X(N:1.5) TO X *> expect: 3314 *> expect-pass
           MOVE T(1.5) TO X *> expect: 3301 *> expect-pass
      *> A function that concatenates takes operands of all categories.
           MOVE FUNCTION CONCATENATE(X, N, "A") TO X
           MOVE FUNCTION MAX(X, N) TO X. *> expect: 3318
