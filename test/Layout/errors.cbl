      *> A mistake in the procedure division does not keep the records and the tree from being
      *> shown; the report and the status tell of it.
      *> RUN: sh -c '%tarka layout %s 2> %t; echo status $?' | FileCheck %s --check-prefix=LAYOUT
      *> RUN: FileCheck %s --check-prefix=REPORT < %t
      *> RUN: sh -c '%tarka ast %s 2> %t; echo status $?' | FileCheck %s --check-prefix=TREE
      *> RUN: FileCheck %s --check-prefix=REPORT < %t
      *> LAYOUT: 01 ITEM 0 0000 3
      *> LAYOUT: status 1
      *> TREE: MoveStatement
      *> TREE: status 1
      *> REPORT: error 3310
      *> REPORT-NOT: tarka:
       IDENTIFICATION DIVISION.
       PROGRAM-ID. ERRORS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  ITEM PIC X(3).
       PROCEDURE DIVISION.
           MOVE NOWHERE TO ITEM.
