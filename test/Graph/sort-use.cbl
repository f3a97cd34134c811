*> RUN: %tarka cfg --format=json %s | %python %S/edges.py declarative 'declarative end' | FileCheck %s --match-full-lines
*>
*> SORT reads the files of USING before the next phase, and writes those of GIVING in the last one. A
*> USE procedure comes back to what follows the phase in which the file failed.
IDENTIFICATION DIVISION.
PROGRAM-ID. P.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT W ASSIGN TO W.
    SELECT A ASSIGN TO A.
    SELECT B ASSIGN TO B.
DATA DIVISION.
FILE SECTION.
SD  W.
01  W-KEY PIC X.
FD  A.
01  A-REC PIC X.
FD  B.
01  B-REC PIC X.
PROCEDURE DIVISION.
DECLARATIVES.
A-USE SECTION.
    USE AFTER ERROR PROCEDURE ON A.
A-PARA.
    DISPLAY "A".
B-USE SECTION.
    USE AFTER ERROR PROCEDURE ON B.
B-PARA.
    DISPLAY "B".
END DECLARATIVES.
MAIN-LINE SECTION.
    SORT W ASCENDING W-KEY USING A OUTPUT PROCEDURE DRAIN
    SORT W ASCENDING W-KEY INPUT PROCEDURE FILL GIVING B
    GOBACK.
FILL.
    RELEASE W-KEY.
DRAIN.
    RETURN W AT END CONTINUE.
*> CHECK:      A-USE end -> 33 step: declarative end
*> CHECK-NEXT: A-USE end -> 34 SORT: declarative end
*> CHECK-NEXT: B-USE end -> 35 GOBACK: declarative end
*> CHECK-NEXT: 33 SORT -> 23 A-USE: declarative
*> CHECK-NEXT: 34 step -> 27 B-USE: declarative
*> CHECK-NOT:  {{.}}
