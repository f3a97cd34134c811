      *> RUN: %tarka ast %s | FileCheck %s
      * A section that a declarative performs is copied into the
      * declaratives, and the copy stays within itself: what it performs
      * and goes to are its own paragraphs. The original knows nothing
      * of it.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. D.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT F ASSIGN TO F.
       DATA DIVISION.
       FILE SECTION.
       FD  F.
       01  R PIC X(10).
       WORKING-STORAGE SECTION.
       01  N PIC 9(3).
       PROCEDURE DIVISION.
       DECLARATIVES.
       ERR SECTION.
           USE AFTER ERROR PROCEDURE ON F.
       ERR-1.
           PERFORM WORK.
       END DECLARATIVES.
       MAIN SECTION.
       M1.
           OPEN INPUT F.
           PERFORM WORK.
           STOP RUN.
       WORK SECTION.
       W1.
           PERFORM W2 3 TIMES.
           IF N > 5 GO TO W3.
       W2.
           ADD 1 TO N ON SIZE ERROR GO TO W3.
       W3.
           EXIT.
      *> CHECK: name=ERR
      *> CHECK: PerformStatement {{.*}} begins=WORK_tkcopy@30
      *> CHECK: name=WORK_tkcopy endOfPerformAt=23
      *> CHECK: PerformStatement {{.*}} begins=W2@34:8 ends=W2@34:8
      *> CHECK: GotoStatement {{.*}} targets=[W3@36:8]
      *> CHECK: GotoStatement {{.*}} targets=[W3@36:8]
      *> CHECK: name=MAIN
      *> CHECK: PerformStatement {{.*}} begins=WORK@30
      *> CHECK: name=WORK endOfPerformAt=28
      *> CHECK: PerformStatement {{.*}} begins=W2@34:8 ends=W2@34:8
      *> CHECK: GotoStatement {{.*}} targets=[W3@36:8]
      *> CHECK: GotoStatement {{.*}} targets=[W3@36:8]
