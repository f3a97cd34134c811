*> RUN: %tarka cfg --enable-osvs %s | FileCheck %s
*>
*> The statements of OS/VS COBOL are replaced by those that the checks generate.
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
    EXHIBIT CHANGED A "AND" N
    ON 2 AND EVERY 3 UNTIL 9
        DISPLAY "ON"
    ELSE
        DISPLAY "OFF"
    MOVE 1 TO N.
*> CHECK:      MAIN [procedure] [terminator]
*> CHECK-NEXT: 12 MOVE
*> CHECK-NEXT: 12 INSPECT
*> CHECK-NEXT: 13 INSPECT
*> CHECK-NEXT: 14 INSPECT
*> CHECK-NEXT: 15 DISPLAY
*> CHECK-NEXT: 16 IF
*> CHECK-NEXT: -> then [[#]] tkdummy_then, end [[#]] tkdummy_endif
*> CHECK-NEXT: tkdummy_then
*> CHECK-NEXT: 16 DISPLAY
*> CHECK-NEXT: 16 MOVE
*> CHECK-NEXT: -> successor
*> CHECK-NEXT: tkdummy_endif [terminator]
*> CHECK-NEXT: 16 DISPLAY
*> CHECK-NEXT: 16 IF
*> CHECK-NEXT: -> then {{.*}} tkdummy_endif
*> CHECK-NEXT: tkdummy_then
*> CHECK-NEXT: 16 DISPLAY
*> CHECK-NEXT: 16 MOVE
*> CHECK-NEXT: -> successor
*> CHECK-NEXT: tkdummy_endif [terminator]
*> CHECK-NEXT: 16 MOVE
*> CHECK-NEXT: 17 ADD
*> CHECK-NEXT: -> successor {{.*}} tkdummy_end_on_size, end [[#ON:]] tkdummy_end_on_size
*> CHECK-NEXT: [[#ON]]: tkdummy_end_on_size [terminator]
*> CHECK-NEXT: 17 ON
*> CHECK-NEXT: -> then [[#THEN:]] tkdummy_then, else {{.*}} tkdummy_else, end {{.*}} tkdummy_endon
*> CHECK-NEXT: [[#THEN]]: tkdummy_then
*> CHECK-NEXT: 18 DISPLAY
*> CHECK-NEXT: -> successor [[#THEN+2]] tkdummy_endon
*> CHECK-NEXT: [[#THEN+1]]: tkdummy_else
*> CHECK-NEXT: 20 DISPLAY
*> CHECK-NEXT: 21 MOVE
*> CHECK-NEXT: -> successor [[#THEN+2]] tkdummy_endon
*> CHECK-NEXT: [[#THEN+2]]: tkdummy_endon
