*> RUN: %tarka layout --enterprise %s | FileCheck %s
*>
*> The slack bytes of Enterprise COBOL.
IDENTIFICATION DIVISION.
PROGRAM-ID. SLACK.
DATA DIVISION.
WORKING-STORAGE SECTION.
*> They follow the elementary item before the synchronized one, and belong to its group.
01  AFTER-ITEM.
    05  AI-GROUP.
        10  AI-TEXT PIC X(5).
    05  AI-NEXT.
        10  AI-FIRST.
            15  AI-BINARY PIC S9(6) COMP SYNC.
*> CHECK:      01 AFTER-ITEM 0 0000 12
*> CHECK-NEXT: 05 AI-GROUP 0 0000 8
*> CHECK-NEXT: 10 AI-TEXT 0 0000 5
*> CHECK-NEXT: 10 SLACK-BYTES 5 0005 3
*> CHECK-NEXT: 05 AI-NEXT 8 0008 4
*> CHECK-NEXT: 10 AI-FIRST 8 0008 4
*> CHECK-NEXT: 15 AI-BINARY 8 0008 4
*> Not to a table, whose occurrences would repeat them, and not to redefined storage.
01  AFTER-TABLE.
    05  AT-TABLE OCCURS 3.
        10  AT-TEXT PIC X.
    05  AT-BINARY PIC S9(4) COMP SYNC.
    05  AT-GROUP.
        10  AT-ITEM PIC X.
    05  AT-VIEW REDEFINES AT-GROUP.
        10  AT-OTHER PIC X.
    05  AT-FLOAT COMP-2 SYNC.
*> CHECK:      01 AFTER-TABLE 0 0000 16
*> CHECK:      05 SLACK-BYTES 3 0003 1
*> CHECK-NEXT: 05 AT-BINARY 4 0004 2
*> CHECK:      05 SLACK-BYTES 7 0007 1
*> CHECK-NEXT: 05 AT-FLOAT 8 0008 8
*> Occurrences are padded for the largest boundary in them, wherever it is.
01  PADDED.
    05  PD-CODE PIC X.
    05  PD-TABLE OCCURS 10.
        10  PD-TYPE PIC X.
        10  PD-PAY PIC S9(4)V99 COMP SYNC.
        10  PD-HOURS PIC S9(3) COMP SYNC.
        10  PD-INNER.
            15  PD-SMALL PIC S9(4) COMP SYNC.
            15  PD-NAME PIC X(5).
*> CHECK:      01 PADDED 0 0000 201
*> CHECK:      05 PD-TABLE 1 0001 20 x10
*> CHECK:      10 SLACK-BYTES 2 0002 2
*> CHECK:      10 PD-PAY 4 0004 4
*> CHECK:      10 SLACK-BYTES 17
*> SYNC of a record is that of every elementary item.
01  WHOLE-RECORD SYNC.
    05  WR-TEXT PIC X.
    05  WR-GROUP.
        10  WR-BINARY PIC S9(9) COMP.
        10  WR-PACKED PIC S9(3) COMP-3.
    05  WR-INDEX INDEX.
*> CHECK:      01 WHOLE-RECORD 0 0000 16
*> CHECK:      05 SLACK-BYTES 1 0001 3
*> CHECK:      10 WR-BINARY 4 0004 4
*> CHECK:      05 WR-INDEX 12 000c 4
*> A redefinition starts where its object does; inside, items are aligned.
01  REDEFINED.
    05  RD-TEXT PIC X.
    05  RD-AREA PIC X(12).
    05  RD-ITEM REDEFINES RD-AREA PIC S9(9) COMP SYNC.
    05  RD-VIEW REDEFINES RD-AREA.
        10  RD-FIRST PIC S9(9) COMP SYNC.
        10  RD-CODE PIC X.
        10  RD-NUMBER PIC S9(9) COMP SYNC.
*> CHECK:      05 RD-ITEM 1 0001 4
*> CHECK:      05 RD-VIEW 1 0001 11
*> CHECK-NEXT: 10 RD-FIRST 1 0001 4
*> CHECK-NEXT: 10 RD-CODE 5 0005 1
*> CHECK-NEXT: 10 SLACK-BYTES 6 0006 2
*> CHECK-NEXT: 10 RD-NUMBER 8 0008 4
*> Redefined groups in tables.
01  TABLE-OF-VIEWS.
    05  TV-ROW OCCURS 2.
        10  TV-CODE PIC X.
        10  TV-AREA.
            15  TV-NUMBER PIC S9(9) COMP SYNC.
        10  TV-VIEW REDEFINES TV-AREA.
            15  TV-HALF PIC S9(4) COMP SYNC.
            15  TV-REST PIC X(2).
        10  TV-LAST PIC X.
*> CHECK:      01 TABLE-OF-VIEWS 0 0000 24
*> CHECK:      05 TV-ROW 0 0000 12 x2
*> CHECK-NEXT: 10 TV-CODE 0 0000 1
*> CHECK-NEXT: 10 SLACK-BYTES 1 0001 3
*> CHECK-NEXT: 10 TV-AREA 4 0004 4
*> CHECK:      10 TV-LAST 8 0008 1
*> CHECK-NEXT: 10 SLACK-BYTES 9 0009 3
*> The sign of a group is separate before its items are placed.
01  SIGNED-RECORD SIGN TRAILING SEPARATE.
    05  SR-NUMBER PIC S9(3).
    05  SR-BINARY PIC S9(9) COMP SYNC.
*> CHECK:      01 SIGNED-RECORD 0 0000 8
*> CHECK:      05 SR-BINARY 4 0004 4
PROCEDURE DIVISION.
    GOBACK.
