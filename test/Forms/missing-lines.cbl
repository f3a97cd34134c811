      *> RUN: not %tarka check --format=classic %s 2>&1 | FileCheck %s --implicit-check-not=error
      *> RUN: not %tarka check --format=gcc %s 2>&1 | FileCheck %s --check-prefix=NOTE
      *>
      *> A line that is missing or in the wrong place has one message, also where much follows from
      *> it: the header of the environment division, the line of a FD, the period before a header, a
      *> COPY. A mistake of another kind has its own.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       CONFIGURATION SECTION.
      *> CHECK: 9:{{.*}} error 231 {{.*}}ENVIRONMENT DIVISION
       SPECIAL-NAMES.
           C01 IS NEW-PAGE.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT F ASSIGN TO FF.
           SELECT G ASSIGN TO GG ORGANIZATION INDEXED RECORD KEY G-KEY.
       DATA DIVISION.
       FILE SECTION.
       FD  F.
       01  F-RECORD PIC X(80).
           RECORD CONTAINS 20 CHARACTERS.
      *> CHECK: 21:{{.*}} error 200 {{.*}}FD or SD
       01  G-RECORD.
           05 G-KEY PIC X(8).
           05 G-REST PIC X(12).
       WORKING-STORAGE SECTION.
       01  WANTED PIC X(8).
       PROCEDURE DIVISION.
       MAIN-LINE.
           OPEN OUTPUT F I-O G
           MOVE WANTED TO G-KEY
           REWRITE G-RECORD INVALID KEY DISPLAY WANTED END-REWRITE
           WRITE F-RECORD AFTER ADVANCING NEW-PAGE
           MOVE CU-NAME TO F-RECORD
      *> CHECK: 34:{{.*}} error 3310 {{.*}}'CU-NAME'
      *> NOTE: 2 more names that begin with CU- are not declared either
           MOVE CU-STREET TO F-RECORD
           MOVE CU-TOWN TO F-RECORD
           MOVE WANTDE TO G-KEY
      *> CHECK: 39:{{.*}} error 3310 {{.*}}WANTED meant
           GOBACK.
