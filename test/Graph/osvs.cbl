*> RUN: %tarka cfg --enable-osvs %s | FileCheck %s
*>
*> The statements of OS/VS COBOL.
IDENTIFICATION DIVISION.
PROGRAM-ID. OSVS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  A                       PIC X(5).
01  N                       PIC 9.
PROCEDURE DIVISION.
MAIN.
    EXAMINE A TALLYING ALL "X"
    EXAMINE A REPLACING ALL "X" BY "Y"
    TRANSFORM A FROM "X" TO "Y"
    EXHIBIT NAMED A N
    ON 2 AND EVERY 3 UNTIL 9
        DISPLAY "ON"
    ELSE
        DISPLAY "OFF"
    MOVE 1 TO N.
*> CHECK:      [terminator]
*> CHECK:      16 ON
*> CHECK-NEXT: -> then [[#THEN:]] tkdummy_then, else {{.*}} tkdummy_else, end {{.*}} tkdummy_endon
*> CHECK-NEXT: [[#THEN]]: tkdummy_then
*> CHECK-NEXT: 17 DISPLAY
*> CHECK-NEXT: -> successor [[#THEN+2]] tkdummy_endon
*> CHECK-NEXT: [[#THEN+1]]: tkdummy_else
*> CHECK-NEXT: 19 DISPLAY
*> CHECK-NEXT: 20 MOVE
*> CHECK-NEXT: -> successor [[#THEN+2]] tkdummy_endon
*> CHECK-NEXT: [[#THEN+2]]: tkdummy_endon
