      *> Areas with several names: REDEFINES, RENAMES, condition names, independent items, nested
      *> programs.
      *> RUN: %tarka layout %s | FileCheck %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. 'Sharing'.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
      *> CHECK: PROGRAM Sharing{{$}}
       77  Counter PIC 9(3) COMP-3.
      *> CHECK: 77 Counter 0 0000 2 PIC 9(3) COMP-3, numeric
       01  BASE.
      *> CHECK-NEXT: 01 BASE 0 0000 20 group{{$}}
           05  DATE-8      PIC 9(8).
      *> CHECK-NEXT: 05 DATE-8 0 0000 8 PIC
           05  DATE-PARTS REDEFINES DATE-8.
      *> CHECK-NEXT: 05 DATE-PARTS 0 0000 8 group, REDEFINES DATE-8
               10  YEAR    PIC 9(4).
      *> CHECK-NEXT: 10 YEAR 0 0000 4
               10  MONTH   PIC 9(2).
      *> CHECK-NEXT: 10 MONTH 4 0004 2
      *> Conditions are indented below the item that they are about.
                   88  SUMMER  VALUES 6 THRU 8.
      *> CHECK-NEXT: 22 88 SUMMER VALUE 6 THRU 8{{$}}
                   88  HOLIDAY VALUE 1 4 7 THROUGH 8, 12.
      *> CHECK-NEXT: 88 HOLIDAY VALUE 1 4 7 THRU 8 12
               10  DAY-NUM PIC 9(2).
      *> CHECK-NEXT: 10 DAY-NUM 6 0006 2
      *> A second redefinition, which is longer than what it redefines.
           05  DATE-TEXT REDEFINES DATE-8 PIC X(10).
      *> CHECK-NEXT: 05 DATE-TEXT 0 0000 10
           05  KIND        PIC X(3).
      *> CHECK-NEXT: 05 KIND 10 000A 3
               88  NONE       VALUE SPACES.
      *> CHECK-NEXT: 88 NONE VALUE SPACE
               88  QUOTED     VALUE 'a"b' "a'b" 'd''e' FALSE ALL "*".
      *> CHECK-NEXT: 88 QUOTED VALUE 'a"b' "a'b" "d'e", FALSE ALL "*"
               88  HEXES      VALUE X'C1C2C3' HIGH-VALUE.
      *> CHECK-NEXT: 88 HEXES VALUE X"C1C2C3" HIGH-VALUE
           05              PIC X(7).
      *> CHECK-NEXT: 05 FILLER 13 000D 7
       66  DATE-AND-KIND RENAMES DATE-8 THRU KIND.
      *> CHECK-NEXT: 66 DATE-AND-KIND 0 0000 13 RENAMES DATE-8 THRU KIND
       66  JUST-KIND RENAMES KIND OF BASE.
      *> CHECK-NEXT: 66 JUST-KIND 10 000A 3 RENAMES KIND OF BASE{{$}}
      *> The total counts an area once, as long as its longest description.
       01  OVER REDEFINES BASE PIC X(30).
      *> CHECK-NEXT: 01 OVER 0 0000 30 PIC X(30) DISPLAY, alphanumeric, REDEFINES BASE
       01  OUTSIDE PIC X(5) EXTERNAL GLOBAL.
      *> CHECK-NEXT: 01 OUTSIDE 0 0000 5 PIC X(5) DISPLAY, alphanumeric, EXTERNAL, GLOBAL
       LOCAL-STORAGE SECTION.
      *> CHECK: LOCAL-STORAGE SECTION
       01  EACH-CALL PIC X(9).
      *> CHECK: 01 EACH-CALL 0 0000 9
       PROCEDURE DIVISION.
           GOBACK.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. INNER.
      *> CHECK: PROGRAM INNER in Sharing
       DATA DIVISION.
       LINKAGE SECTION.
      *> CHECK: LINKAGE SECTION
       01  PASSED PIC X(8).
      *> CHECK: 01 PASSED 0 0000 8
       PROCEDURE DIVISION USING PASSED.
           GOBACK.
       END PROGRAM INNER.
       END PROGRAM 'Sharing'.
      *> CHECK: OVERVIEW
      *> CHECK-NEXT: Program Section Records Bytes
      *> CHECK-NEXT: Sharing WORKING-STORAGE SECTION 4 37
      *> CHECK-NEXT: Sharing special registers 15 93 shown with --all
      *> CHECK-NEXT: Sharing LOCAL-STORAGE SECTION 1 9
      *> CHECK-NEXT: INNER LINKAGE SECTION 1 8 not allocated here
