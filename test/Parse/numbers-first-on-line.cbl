      *> A number that a clause expects is not a level number, although it begins a line.
      *> RUN: %tarka check --verify %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. NUMBERS.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT F ASSIGN F.
           SELECT G ASSIGN G RESERVE
           5.
       DATA DIVISION.
       FILE SECTION.
       FD  F REPORT R.
       FD  G BLOCK CONTAINS
           10 RECORDS RECORD
           80 LINAGE
           60 FOOTING
           50 TOP
           5 BOTTOM
           5.
       01  G-RECORD PIC X(80).
       WORKING-STORAGE SECTION.
       01  A.
           05 B PIC X OCCURS
           5 INDEXED BY I.
           05 C PIC 99 VALUE
           5 COMP.
              88 C-ODD VALUES
           1 THRU
           3
           5
           7 THRU
           9 11.
           05 D OCCURS
           1 TO
           5 DEPENDING ON C PIC X.
       REPORT SECTION.
       RD  R PAGE LIMIT IS
           60 LAST DETAIL
           50 FOOTING
           55.
       01  TYPE RH LINE NUMBER IS
           5 NEXT GROUP
           10.
           05 COLUMN
           10 PIC X(3) VALUE "ABC".
           05 COLUMN PLUS
           2 PIC Z9 SOURCE PAGE-COUNTER.
       PROCEDURE DIVISION.
           GOBACK.
