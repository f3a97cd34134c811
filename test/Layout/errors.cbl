      *> Errors prevent the layout, unless --keep-going is given.
      *> RUN: sh -c '%tarka layout %s 2> %t; echo status $?' | FileCheck %s --check-prefix=STOP
      *> RUN: FileCheck %s --check-prefix=WHY < %t
      *> RUN: sh -c '%tarka layout --keep-going %s 2> %t; echo status $?' | FileCheck %s --check-prefix=GO
      *> STOP-NOT: PROGRAM
      *> STOP: status 1
      *> WHY: error 3310
      *> WHY: no layout of {{.*}}errors.cbl is printed: the errors above come first; --keep-going
      *> GO: 01 ITEM 0 0000 3
      *> GO: status 1
       IDENTIFICATION DIVISION.
       PROGRAM-ID. ERRORS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  ITEM PIC X(3).
       PROCEDURE DIVISION.
           MOVE NOWHERE TO ITEM.
