      *> RUN: not %tarka check --format=classic %s 2>&1 | FileCheck %s --implicit-check-not=error
      *>
      *> What follows from a mistake is not reported: a name that was torn in two, a line that is cut
      *> at column 72, exchanged lines, a device, a file without records, a header without its
      *> period. The second mistake in the program has its own message.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SPECIAL-NAMES.
           SYSNI IS REQUESTS.
      *> CHECK: 11:{{.*}} error 3104
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT F ASSIGN TO FF.
       DATA DIVISION.
       FILE SECTION.
       FD  F.
       WORKING-STORAGE SECTION.
       01  G.
           05 CUSTOMER-NUMBER PIC 9(4).
           05 AMOUNT PIC 9(4).
           05 CUSTOMER-AMOUNT PIC 9(4).
           05 INNER.
      *> CHECK: 24:{{.*}} error 3575
           05 PART PIC X(4) COMP-3.
              10 X PIC X(4).
       01  LONG-NAME PIC X.
       PROCEDURE DIVISION.
       MAIN-LINE.
           ACCEPT CUSTOMER-NUMBER FROM REQUESTS
           MOVE 1 TO CUSTOMER AMOUNT
      *> CHECK: 32:{{.*}} error 3310 {{.*}}'CUSTOMER'
           MOVE 1 TO AMUONT
      *> CHECK: 34:{{.*}} error 3310 {{.*}}AMUONT
           MOVE LONG-NAME TO PART OF INNER                         LONG-NAME OF-THIS-PROGRAM
      *> CHECK: 36:{{.*}} error 29
           OPEN OUTPUT F
      *> CHECK: 38:{{.*}} error 3529
           WRITE F-RECORD
           PERFORM SECOND-ONE
           GOBACK.
       SECOND-ONEEND-IF
           DISPLAY X.
      *> CHECK: 44:{{.*}} error 200
