*> RUN: %tarka flow --item COUNTER %s | FileCheck %s --match-full-lines --check-prefix=COUNTER
*> RUN: %tarka flow --item "T2 of REC" %s | FileCheck %s --match-full-lines --check-prefix=T2
*> RUN: %tarka flow --item OUT-REC %s | FileCheck %s --match-full-lines --check-prefix=RECORD
*> RUN: %tarka flow --item SHARED %s | FileCheck %s --match-full-lines --check-prefix=SHARED
*> RUN: %tarka flow --item HOST %s | FileCheck %s --match-full-lines --check-prefix=HOST
*> RUN: not %tarka flow --item CONTER %s 2>&1 | FileCheck %s --check-prefix=MISSING
*>
*> What statements do to items beside their operands, and by way of others that share the storage.
IDENTIFICATION DIVISION.
PROGRAM-ID. OUTER.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT OUT-FILE ASSIGN TO OUTF FILE STATUS IS FS.
    SELECT IN-FILE ASSIGN TO INF.
I-O-CONTROL.
    SAME RECORD AREA FOR OUT-FILE IN-FILE.
DATA DIVISION.
FILE SECTION.
FD  OUT-FILE.
01  OUT-REC             PIC X(8).
FD  IN-FILE.
01  IN-REC              PIC X(8).
WORKING-STORAGE SECTION.
01  FS                  PIC XX.
01  COUNTER             PIC 9(4).
01  SHARED              PIC X GLOBAL.
01  HOST                PIC X(4).
01  REC.
    05  ROW             OCCURS 9 INDEXED BY IX.
        10  T1          PIC X(3).
        10  T2          PIC X(5).
01  ALIAS REDEFINES REC.
    05  FIRST-ROW       PIC X(8).
    05  SECOND-T1       PIC X(3).
    05  SECOND-T2       PIC X(5).
PROCEDURE DIVISION.
MAIN.
    PERFORM VARYING COUNTER FROM 1 BY 1 UNTIL COUNTER > 9
        MOVE SPACE TO T2 (COUNTER)
    END-PERFORM
    MOVE "X" TO SECOND-T1
    MOVE "Y" TO SECOND-T2
    MOVE ALL "Z" TO T1 (1)
    DISPLAY T2 (3) T2 (2)
    MOVE "1" TO SHARED
    CALL "INNER"
    DISPLAY SHARED
    OPEN OUTPUT OUT-FILE INPUT IN-FILE
    READ IN-FILE AT END STOP RUN END-READ
    WRITE OUT-REC
    WRITE OUT-REC FROM HOST
    EXEC SQL SELECT A INTO :HOST FROM T WHERE B = :COUNTER END-EXEC
    INITIALIZE COUNTER
    STOP RUN.
*> The test of the loop comes behind the step; INITIALIZE at the end is for nobody.
*> COUNTER:      COUNTER, line [[#]]: bytes 1-4 of COUNTER, in program OUTER
*> COUNTER:        written
*> COUNTER-NEXT:     39 PERFORM: read in 39, 40, 53
*> COUNTER-NEXT:     39 PERFORM (loop test): read in 39, 40, 53
*> COUNTER-NEXT:     54 INITIALIZE: never read
*> COUNTER:        read
*> COUNTER-NEXT:     40 MOVE: written in 39
*> COUNTER-NEXT:     39 PERFORM (loop test): written in 39
*> COUNTER-NEXT:     53 EXEC SQL SELECT INTO: written in 39
*>
*> A constant subscript means one element, and what redefines another one is apart from it.
*> T2:           T2, line [[#]]: bytes 4-8 and 8 more elements of REC, in program OUTER
*> T2:             written
*> T2-NEXT:          before the program begins: read in 45
*> T2-NEXT:          40 MOVE, perhaps or in part: read in 45
*> T2-NEXT:          43 MOVE by way of SECOND-T2, perhaps or in part: read in 45
*> T2:             read
*> T2-NEXT:          45 DISPLAY: written before the program begins, in 40
*> T2-NEXT:          45 DISPLAY: written in 43
*>
*> The two files have one record area.
*> RECORD:       OUT-REC, line [[#]]: bytes 1-8 of OUT-REC, in program OUTER
*> RECORD:         written
*> RECORD-NEXT:      before the program begins: read in 51
*> RECORD-NEXT:      50 READ by way of IN-REC, perhaps or in part: read in 51
*> RECORD-NEXT:      52 WRITE: read by itself
*> RECORD:         read
*> RECORD-NEXT:      51 WRITE: written before the program begins, in 50
*>
*> What a called program does to a global item happens at the CALL.
*> SHARED:       SHARED, line [[#]]: byte 1 of SHARED, in program OUTER
*> SHARED:         written
*> SHARED-NEXT:      46 MOVE: read in 47, 48
*> SHARED-NEXT:      47 CALL, in another program, perhaps or in part: read in 48
*> SHARED:         read
*> SHARED-NEXT:      47 CALL, in another program: written in 46
*> SHARED-NEXT:      48 DISPLAY: written in 46, 47
*> SHARED:       SHARED, line [[#]]: byte 1 of SHARED, in program INNER
*> SHARED:         read
*> SHARED-NEXT:      {{[0-9]+}} DISPLAY: written before the program begins, in {{[0-9]+}}
*>
*> HOST:           read
*> HOST-NEXT:        52 WRITE: written before the program begins
*>
*> MISSING: there is no item CONTER; similar: COUNTER
IDENTIFICATION DIVISION.
PROGRAM-ID. INNER.
PROCEDURE DIVISION.
    DISPLAY SHARED
    MOVE "2" TO SHARED.
END PROGRAM INNER.
END PROGRAM OUTER.
