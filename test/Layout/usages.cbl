      *> Every usage with the bytes that it takes, and how a sign and editing count.
      *> RUN: %tarka layout %s | FileCheck %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. USAGES.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
      *> CHECK-LABEL: WORKING-STORAGE SECTION
       01  BINARIES.
      *> CHECK: 8 01 BINARIES 0 0000 40 group
           05  B4      PIC S9(4)  BINARY.
      *> CHECK-NEXT: 05 B4 0 0000 2 PIC S9(4) BINARY, numeric
           05  C5      PIC 9(5)   COMP.
      *> CHECK-NEXT: 05 C5 2 0002 4 PIC 9(5) COMP, numeric
           05  D9      PIC S9(9)  COMP-4.
      *> CHECK-NEXT: 05 D9 6 0006 4 PIC S9(9) COMP-4, numeric
           05  E10     PIC S9(10) COMP-5.
      *> CHECK-NEXT: 05 E10 10 000A 8 PIC S9(10) COMP-5, numeric
           05  F18     PIC 9(18)  BINARY.
      *> CHECK-NEXT: 05 F18 18 0012 8 PIC 9(18) BINARY, numeric
      *> Scaling positions are not stored: 99PPP has two digits.
           05  GP      PIC 99PPP  BINARY.
      *> CHECK-NEXT: 05 GP 26 001A 2 PIC 99PPP BINARY, numeric
           05  F1      COMP-1.
      *> CHECK-NEXT: 05 F1 28 001C 4 COMP-1, internal-float
           05  F2      COMP-2.
      *> CHECK-NEXT: 05 F2 32 0020 8 COMP-2, internal-float
       01  DECIMALS.
      *> CHECK-NEXT: 01 DECIMALS 0 0000 37 group
           05  P4      PIC 9(4)      PACKED-DECIMAL.
      *> CHECK-NEXT: 05 P4 0 0000 3 PIC 9(4) PACKED-DECIMAL, numeric
           05  P5      PIC S9(3)V99  COMP-3.
      *> CHECK-NEXT: 05 P5 3 0003 3 PIC S9(3)V99 COMP-3, numeric
           05  Z3      PIC S9(3).
      *> CHECK-NEXT: 05 Z3 6 0006 3 PIC S9(3) DISPLAY, numeric
           05  ZS      PIC S9(3) SIGN TRAILING SEPARATE.
      *> CHECK-NEXT: 05 ZS 9 0009 4 PIC S9(3) DISPLAY, numeric, SIGN TRAILING SEPARATE
      *> The sign of a group holds for the items in it.
           05  ZG SIGN LEADING SEPARATE.
      *> CHECK-NEXT: 05 ZG 13 000D 8 group
               10  ZG1 PIC S99.
      *> CHECK-NEXT: 10 ZG1 13 000D 3 PIC S99 DISPLAY, numeric, SIGN LEADING SEPARATE
               10  ZG2 PIC S9V9 SIGN LEADING.
      *> CHECK-NEXT: 10 ZG2 16 0010 2 PIC S9V9 DISPLAY, numeric, SIGN LEADING
               10  ZG3 PIC S9(2).
      *> CHECK-NEXT: 10 ZG3 18 0012 3 PIC S9(2) DISPLAY, numeric, SIGN LEADING SEPARATE
           05  ED      PIC ZZ9.99CR BLANK WHEN ZERO.
      *> CHECK-NEXT: 05 ED 21 0015 8 PIC ZZ9.99CR DISPLAY, numeric-edited, BLANK WHEN ZERO
           05  EX      PIC +9.9E+99.
      *> CHECK-NEXT: 05 EX 29 001D 8 PIC +9.9E+99 DISPLAY, external-float
       01  OTHERS.
      *> CHECK-NEXT: 01 OTHERS 0 0000 50 group
           05  AB      PIC A(3) JUSTIFIED RIGHT.
      *> CHECK-NEXT: 05 AB 0 0000 3 PIC A(3) DISPLAY, alphabetic, JUSTIFIED
           05  AE      PIC XX/BX(2).
      *> CHECK-NEXT: 05 AE 3 0003 6 PIC XX/BX(2) DISPLAY, alphanumeric-edited
           05  NA      PIC N(3) NATIONAL.
      *> CHECK-NEXT: 05 NA 9 0009 6 PIC N(3) NATIONAL{{$}}
           05  NN      PIC 9(3) NATIONAL.
      *> CHECK-NEXT: 05 NN 15 000F 6 PIC 9(3) NATIONAL, numeric
           05  DB      PIC G(2) DISPLAY-1.
      *> CHECK-NEXT: 05 DB 21 0015 4 PIC G(2) DISPLAY-1, dbcs
           05  IX      INDEX.
      *> CHECK-NEXT: 05 IX 25 0019 4 INDEX
           05  PT      POINTER.
      *> CHECK-NEXT: 05 PT 29 001D 4 POINTER
           05  PP      PROCEDURE-POINTER.
      *> CHECK-NEXT: 05 PP 33 0021 8 PROCEDURE-POINTER, pointer
           05  FP      FUNCTION-POINTER.
      *> CHECK-NEXT: 05 FP 41 0029 4 FUNCTION-POINTER, pointer
      *> The usage of a group goes to what is in it.
           05  PG      COMP-3.
      *> CHECK-NEXT: 05 PG 45 002D 5 group
               10  PG1 PIC S9(5).
      *> CHECK-NEXT: 10 PG1 45 002D 3 PIC S9(5) COMP-3, numeric
               10  PG2 PIC 9(2).
      *> CHECK-NEXT: 10 PG2 48 0030 2 PIC 9(2) COMP-3, numeric
       PROCEDURE DIVISION.
           GOBACK.
