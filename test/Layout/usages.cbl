      *> Every usage with the bytes that it takes, and how a sign and editing count.
      *> RUN: %tarka layout %s | FileCheck %s --match-full-lines --strict-whitespace
       IDENTIFICATION DIVISION.
       PROGRAM-ID. USAGES.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
      *> Line numbers are not what this is about: each row stands below its entry.
      *> CHECK-LABEL:WORKING-STORAGE SECTION
      *> CHECK-NEXT:Line  Item           Offset   Hex  Bytes  Description
      *> CHECK-NEXT:{{--.*usages.cbl --}}
       01  BINARIES.
      *> CHECK-NEXT:{{ *[0-9]+}}  01 BINARIES         0  0000     40  group
           05  B4      PIC S9(4)  BINARY.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 B4             0  0000      2  PIC S9(4) BINARY, numeric
           05  C5      PIC 9(5)   COMP.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 C5             2  0002      4  PIC 9(5) COMP, numeric
           05  D9      PIC S9(9)  COMP-4.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 D9             6  0006      4  PIC S9(9) COMP-4, numeric
           05  E10     PIC S9(10) COMP-5.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 E10           10  000A      8  PIC S9(10) COMP-5, numeric
           05  F18     PIC 9(18)  BINARY.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 F18           18  0012      8  PIC 9(18) BINARY, numeric
      *> Scaling positions are not stored: 99PPP has two digits.
           05  GP      PIC 99PPP  BINARY.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 GP            26  001A      2  PIC 99PPP BINARY, numeric
           05  F1      COMP-1.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 F1            28  001C      4  COMP-1, internal-float
           05  F2      COMP-2.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 F2            32  0020      8  COMP-2, internal-float
       01  DECIMALS.
      *> CHECK-NEXT:{{ *[0-9]+}}  01 DECIMALS         0  0000     37  group
           05  P4      PIC 9(4)      PACKED-DECIMAL.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 P4             0  0000      3  PIC 9(4) PACKED-DECIMAL, numeric
           05  P5      PIC S9(3)V99  COMP-3.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 P5             3  0003      3  PIC S9(3)V99 COMP-3, numeric
           05  Z3      PIC S9(3).
      *> CHECK-NEXT:{{ *[0-9]+}}    05 Z3             6  0006      3  PIC S9(3) DISPLAY, numeric
           05  ZS      PIC S9(3) SIGN TRAILING SEPARATE.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 ZS             9  0009      4  PIC S9(3) DISPLAY, numeric, SIGN TRAILING SEPARATE
      *> The sign of a group holds for the signed items in it, and for no others.
           05  ZG SIGN LEADING SEPARATE.
      *> CHECK-NEXT:{{ *[0-9]+}}    05 ZG            13  000D     11  group
               10  ZG1 PIC S99.
      *> CHECK-NEXT:{{ *[0-9]+}}      10 ZG1         13  000D      3  PIC S99 DISPLAY, numeric,
      *> CHECK-NEXT:                                            SIGN LEADING SEPARATE
               10  ZG2 PIC 99.
      *> CHECK-NEXT:{{ *[0-9]+}}      10 ZG2         16  0010      2  PIC 99 DISPLAY, numeric
               10  ZG3 PIC X(6).
      *> CHECK-NEXT:{{ *[0-9]+}}      10 ZG3         18  0012      6  PIC X(6) DISPLAY, alphanumeric
           05  ED      PIC -(3)9.99CR BLANK WHEN ZERO.
           05  EX      PIC +9.9E+99.
       01  OTHERS.
      *> CHECK:{{ *[0-9]+}}  01 OTHERS
           05  AB      PIC A(3).
           05  AE      PIC XX/BX(2) JUSTIFIED RIGHT.
           05  NA      PIC N(3) NATIONAL.
           05  NN      PIC 9(3) NATIONAL.
           05  DB      PIC G(2) DISPLAY-1.
           05  IX      INDEX.
           05  PT      POINTER.
           05  PP      PROCEDURE-POINTER.
           05  FP      FUNCTION-POINTER.
       PROCEDURE DIVISION.
           GOBACK.
