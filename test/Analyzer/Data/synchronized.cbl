*> RUN: %tarka check --verify %s
*>
*> SYNCHRONIZED is ignored where there is no boundary, except within a table, whose items need one.
IDENTIFICATION DIVISION.
PROGRAM-ID. SYNCHRONIZATION.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  ALIGNED                     SYNCHRONIZED.
    05  PIC X.
    05  PIC S9(4) COMP.
01  ALIGNED-ITEMS.
    05  PIC X.
    05  PIC S9(4) COMP          SYNC.
    05  PIC S9(4) COMP-3        SYNC LEFT.
    05  PIC X                   SYNC RIGHT.
    05  POINTER                 SYNC.
77  ALIGNED-77                  PIC 9(9) BINARY SYNC.
01  TABLES.
    05  OCCURS 3. *> expect-pass
        10  PIC X               SYNC. *> expect: 3275
        10  PIC S9(9) COMP      SYNC.
    05  OCCURS 3. *> expect-pass
        10  OCCURS 3. *> expect-pass
            15  PIC X           SYNC. *> expect: 3275 3275
*> A redefinition starts where its object does, regardless of its boundary.
01  REDEFINING.
    05  PIC X.
    05  OBJECT-ITEM             PIC X(4).
    05  REDEFINES OBJECT-ITEM   PIC 9(9) COMP SYNC.
PROCEDURE DIVISION.
    GOBACK.
