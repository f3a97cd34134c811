      *> Tables: sizes of one occurrence and of all, of variable ones the smallest and the largest.
      *> RUN: %tarka layout %s | FileCheck %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. TABLES.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
      *> CHECK-LABEL: WORKING-STORAGE SECTION
       01  COUNTS.
           05  N1      PIC 9(2).
           05  N2      PIC 9(4) BINARY.
       01  FIXED.
      *> CHECK: 01 FIXED 0 0000 167 group{{$}}
           05  ROW OCCURS 5 TIMES INDEXED BY RX RY.
      *> CHECK-NEXT: 05 ROW 0 0000 33 group, OCCURS 5 INDEXED BY RX RY, 165 bytes in all
               10  CELL OCCURS 10 TIMES.
      *> CHECK-NEXT: 10 CELL 0 0000 3 group, OCCURS 10, 30 bytes in all
                   15  KEY1   PIC X.
      *> CHECK-NEXT: 15 KEY1 0 0000 1
                   15  AMOUNT PIC S9(3) COMP-3.
      *> CHECK-NEXT: 15 AMOUNT 1 0001 2
               10  SUBTOTAL  PIC S9(5) COMP-3.
      *> CHECK-NEXT: 10 SUBTOTAL 30 001E 3
      *> After a table the offset is that after its last occurrence.
           05  LAST-ITEM PIC XX.
      *> CHECK-NEXT: 05 LAST-ITEM 165 00A5 2

       01  VARYING-RECORD.
      *> CHECK-NEXT: 01 VARYING-RECORD 0 0000 255 group, 16 to 255 bytes
           05  HEAD    PIC X(15).
      *> CHECK-NEXT: 05 HEAD 0 0000 15
           05  ENTRIES OCCURS 1 TO 20 DEPENDING ON N1 OF COUNTS
                       INDEXED BY EX.
      *> CHECK-NEXT: 05 ENTRIES 15 000F 12 group, 1 to 12 bytes, OCCURS 1 TO 20 DEPENDING ON N1
      *> CHECK-NEXT: OF COUNTS INDEXED BY EX, 1 to 240 bytes in all
               10  FIRST-BYTE PIC X.
      *> CHECK-NEXT: 10 FIRST-BYTE 15 000F 1
      *> The table may be empty.
               10  INNER PIC X OCCURS 0 TO 11 DEPENDING ON N2.
      *> CHECK-NEXT: 10 INNER 16 0010 1 PIC X DISPLAY, alphanumeric,
      *> CHECK-NEXT: OCCURS 0 TO 11 DEPENDING ON N2, 0 to 11 bytes in all

      *> Index names belong to the compiler but come from the programmer.
      *> CHECK-NEXT: 13 01 RX 0 0000 4 INDEX, compiler-made
      *> CHECK-NEXT: 13 01 RY
      *> CHECK-NEXT: 01 EX
      *> CHECK-EMPTY:
      *> CHECK: TABLES WORKING-STORAGE SECTION 6 438
       PROCEDURE DIVISION.
           GOBACK.
