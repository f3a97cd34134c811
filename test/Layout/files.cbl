      *> Files: records that share one area, what the checks settle where the source is silent, and
      *> the entries that they make.
      *> RUN: %tarka layout %s | FileCheck %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. FILES.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT MASTER ASSIGN TO MASTER.
           SELECT SORTED ASSIGN TO SORTED.
           SELECT VARIED ASSIGN TO VARIED.
           SELECT OWN-RANGE ASSIGN TO OWNRANGE.
           SELECT TOLD ASSIGN TO TOLD.
           SELECT FITTING ASSIGN TO FITTING.
           SELECT SPANNING ASSIGN TO SPANNING.
           SELECT RANGE ASSIGN TO RANGE.
           SELECT VARYING-1 ASSIGN TO VARYING1.
           SELECT BLOCKED ASSIGN TO BLOCKED.
           SELECT PRINTER ASSIGN TO PRINTER.
           SELECT SCREEN-FILE ASSIGN TO SCREEN.
           SELECT REPORT-1 ASSIGN TO REPORT1.
           SELECT REPORT-2 ASSIGN TO REPORT2.
           SELECT REPORT-3 ASSIGN TO REPORT3.
       DATA DIVISION.
       FILE SECTION.
      *> CHECK-LABEL: FILE SECTION
      *> Records of different lengths share an area of the longest one.
       FD  MASTER RECORD CONTAINS 80.
      *> CHECK: [[#@LINE-1]] FD MASTER 90 records of 80 bytes{{$}}
       01  MASTER-1 PIC X(80).
      *> CHECK-NEXT: 01 MASTER-1 0 0000 80 PIC X(80) DISPLAY, alphanumeric{{$}}
       01  MASTER-2.
      *> CHECK-NEXT: 01 MASTER-2 0 0000 70 group, REDEFINES MASTER-1 (implicit)
           05  MASTER-KEY PIC X(70).
      *> CHECK-NEXT: 05 MASTER-KEY 0 0000 70
       01  PIC X(90).
      *> CHECK-NEXT: 01 FILLER 0 0000 90 PIC X(90) DISPLAY, alphanumeric,
      *> CHECK-NEXT: REDEFINES MASTER-1 (implicit)
       SD  SORTED.
      *> CHECK-NEXT: SD SORTED 6{{$}}
       01  PIC X(6).
      *> CHECK-NEXT: 01 FILLER 0 0000 6
       01  PIC X(6).
      *> CHECK-NEXT: 01 FILLER 0 0000 6 PIC X(6) DISPLAY, alphanumeric,
      *> CHECK-NEXT: REDEFINES FILLER (implicit)

      *> Lengths of 10 to 50 and of 5 to 30 bytes are 5 to 50 together.
       FD  VARIED.
      *> CHECK-NEXT: FD VARIED 50 recording mode V, records of 5 to 50 bytes
       01  VARIED-1.
      *> CHECK-NEXT: 01 VARIED-1 0 0000 50 group, 10 to 50 bytes{{$}}
           05  PIC X(2) OCCURS 5 TO 25 DEPENDING ON COUNT-1.
      *> CHECK-NEXT: 05 FILLER 0 0000 2
      *> CHECK-NEXT: OCCURS 5 TO 25 DEPENDING ON COUNT-1,
      *> CHECK-NEXT: 10 to 50 bytes in all
       01  VARIED-2.
      *> CHECK-NEXT: 01 VARIED-2 0 0000 30 group, 5 to 30 bytes, REDEFINES VARIED-1
           05  PIC X(5) OCCURS 1 TO 6 DEPENDING ON COUNT-1.
      *> Lengths that are written apply to the first variable record, not to those after it.
       FD  OWN-RANGE RECORD CONTAINS 20 TO 40.
      *> CHECK: FD OWN-RANGE 90 recording mode V, records of 1 to 45 bytes
       01  OWN-1.
           05  PIC X OCCURS 1 TO 90 DEPENDING ON COUNT-1.
       01  OWN-2.
           05  PIC X OCCURS 1 TO 45 DEPENDING ON COUNT-1.
       FD  TOLD RECORDING MODE IS U RECORD CONTAINS 5 TO 10.
      *> CHECK: FD TOLD 10 recording mode U, records of 5 to 10 bytes
       01  TOLD-1 PIC X(10).

      *> A record of fixed length goes into a block, or spans several.
       FD  FITTING RECORD CONTAINS 80 BLOCK CONTAINS 80 CHARACTERS.
      *> CHECK: FD FITTING 80 recording mode F, records of 80 bytes
       01  FITTING-1 PIC X(80).
       FD  SPANNING RECORD CONTAINS 80 BLOCK CONTAINS 40 CHARACTERS.
      *> CHECK: FD SPANNING 80 recording mode S
       01  SPANNING-1 PIC X(80).
       FD  RANGE RECORD CONTAINS 20 TO 80.
      *> CHECK: FD RANGE 80 recording mode V
       01  RANGE-1 PIC X(80).
       FD  VARYING-1 RECORD IS VARYING IN SIZE.
      *> CHECK: FD VARYING-1 80 recording mode V{{$}}
       01  VARYING-1-R PIC X(80).
      *> What a BLOCK clause alone leaves open stays open.
       FD  BLOCKED BLOCK CONTAINS 800 CHARACTERS.
      *> CHECK: FD BLOCKED 80{{$}}
       01  BLOCKED-1 PIC X(80).

       FD  PRINTER LINAGE IS PAGE-SIZE LINES.
       01  PRINTER-1 PIC X(132).
       FD  SCREEN-FILE LINAGE IS 24.
       01  SCREEN-1 PIC X(80).

      *> A report file without records gets one.
       FD  REPORT-1 REPORT IS REP-1.
      *> CHECK: FD REPORT-1 240{{$}}
      *> CHECK-NEXT: {{^}} 01 TKDUMMY-FILE-VAR 0 0000 240 PIC X(240) DISPLAY, alphanumeric, compiler-made
       FD  REPORT-2 REPORT IS REP-2 RECORD CONTAINS 60 TO 133.
      *> CHECK-NEXT: FD REPORT-2 133 recording mode V, records of 60 to 133 bytes
      *> CHECK-NEXT: 01 TKDUMMY-FILE-VAR 0 0000 133
       FD  REPORT-3 REPORT IS REP-1 RECORD CONTAINS 55.
      *> CHECK-NEXT: FD REPORT-3 55 records of 55 bytes
      *> CHECK-NEXT: 01 TKDUMMY-FILE-VAR 0 0000 55
       WORKING-STORAGE SECTION.
      *> CHECK-LABEL: WORKING-STORAGE SECTION
       01  COUNT-1 PIC 99.
       01  PAGE-SIZE PIC 9(3) COMP-3.
      *> The counter is like the item that gives the number of lines, or as long as the number.
      *> CHECK: 01 PAGE-SIZE
      *> CHECK-NEXT: {{^}} 01 LINAGE-COUNTER 0 0000 2 PIC 9(3) COMP-3, numeric, GLOBAL,
      *> CHECK-NEXT: compiler-made for PRINTER
      *> CHECK-NEXT: {{^}} 01 LINAGE-COUNTER 0 0000 2 PIC 9(2) BINARY, numeric, GLOBAL,
      *> CHECK-NEXT: compiler-made for SCREEN-FILE
      *> CHECK: FILES FILE SECTION 20 1286
       REPORT SECTION.
       RD  REP-1.
       01  TYPE DETAIL LINE PLUS 1.
           05  COLUMN 1 PIC X VALUE "X".
       RD  REP-2.
       01  TYPE DETAIL LINE PLUS 1.
           05  COLUMN 1 PIC X VALUE "X".
       PROCEDURE DIVISION.
           GOBACK.
