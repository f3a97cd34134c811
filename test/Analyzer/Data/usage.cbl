*> RUN: %tarka check --verify %s
*>
*> USAGE of groups and of items.
IDENTIFICATION DIVISION.
PROGRAM-ID. USAGES.
DATA DIVISION.
WORKING-STORAGE SECTION.
*> The usage of a group is that of all items below it, at any depth.
01  BINARY-GROUP                COMP.
    05  BINARY-ITEM             PIC S9(4).
    05  BINARY-SUBGROUP.
        10  BINARY-LEAF         PIC 9(9).
        10  BINARY-AGAIN        PIC 9(9) COMP.
01  FLOAT-GROUP                 COMP-2.
    05  FLOAT-ITEM.
        88  FLOAT-NULL          VALUE 0.0E0. *> expect: 3295
01  MIXED-GROUP                 COMP. *> expect: 3279
    05  MIXED-BINARY            PIC 9.
    05  MIXED-PACKED            PIC 9 COMP-3.
01  USAGES.
    05  TEXT-DISPLAY            PIC X USAGE DISPLAY.
    05  NATIONAL-DISPLAY        PIC N(2) USAGE DISPLAY. *> expect: 3278
    05  NATIONAL-ITEM           PIC N(2).
    05  NATIONAL-NUMBER         PIC 9(2) USAGE NATIONAL.
    05  DBCS-ITEM               PIC G(2).
    05  DBCS-TEXT               PIC X USAGE DISPLAY-1. *> expect: 3242 3278
    05  DBCS-DISPLAY            PIC G(2) USAGE DISPLAY. *> expect: 3242 3278
    05  INDEX-ITEM              INDEX.
    05  INDEX-PICTURE           INDEX PIC 9(4). *> expect: 3240 3242 3278
    05  INDEX-VALUE             INDEX VALUE 1. *> expect: 3278 3288
    05  POINTERS.
        10  DATA-POINTER        POINTER.
        10  PROGRAM-POINTER     PROCEDURE-POINTER.
        10  FUNCTION-PTR        FUNCTION-POINTER.
        10  PICTURED-POINTER    POINTER PIC X(4). *> expect: 3240 3242
    05  FLOATS.
        10  SHORT-FLOAT         COMP-1.
        10  LONG-FLOAT          COMP-2.
        10  PICTURED-FLOAT      COMP-1 PIC 9(4). *> expect: 3240 3242
    05  BINARY-NO-PICTURE       COMP. *> expect: 3340
    05  DISPLAY-NO-PICTURE      USAGE DISPLAY. *> expect: 3278 3340
    66  RENAMED-USAGE           RENAMES TEXT-DISPLAY USAGE DISPLAY. *> expect: 3202 3277 3340
PROCEDURE DIVISION.
    GOBACK.
