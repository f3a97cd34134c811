*> RUN: %tarka check --verify %s
*>
*> The literals of STOP, and the parameters that are passed by value.
IDENTIFICATION DIVISION.
PROGRAM-ID. STOPS.
ENVIRONMENT DIVISION.
CONFIGURATION SECTION.
SPECIAL-NAMES.
    SYMBOLIC CHARACTERS BELL IS 8.
DATA DIVISION.
LINKAGE SECTION.
01  B                           PIC S9(4) COMP.
01  B5                          PIC 9(9) COMP-5.
01  F1                          COMP-1.
01  F2                          COMP-2.
01  PT                          POINTER.
01  PP                          PROCEDURE-POINTER.
01  FP                          FUNCTION-POINTER.
01  X1                          PIC X.
01  A1                          PIC A.
01  N1                          PIC N.
01  ANY-WAY                     PIC X(80).
01  X2                          PIC XX.
01  N2                          PIC NN.
01  D1                          PIC 9.
01  P1                          PIC 9 COMP-3.
01  G1                          PIC G DISPLAY-1.
01  IX                          INDEX.
01  GR.
    05  PIC X.
PROCEDURE DIVISION USING BY VALUE B B5 F1 F2 PT PP FP X1 A1 N1 BY REFERENCE ANY-WAY
        BY VALUE X2 N2 D1 P1 G1 IX GR BY REFERENCE IX. *> expect: 3008:18-19 3008:21-22 3008:24-25 3008:27-28 3008:30-31 3008:33-34 3008:36-37 *> expect: 5017
MAIN.
    STOP "WAIT" STOP 'A' STOP X"41" STOP Z"A" STOP 1 STOP -1.5 STOP ZERO STOP ALL SPACES STOP BELL.
    STOP 1.5E3. *> expect: 3007:10-14
    STOP ALL "A". *> expect: 3007:10-16
    STOP NULL. *> expect: 3007
    STOP N"A". *> expect: 3007
    STOP G"A". *> expect: 3007
    STOP RUN.
