*> RUN: %tarka check --verify --enable-osvs %s
*>
*> The statements of OS/VS COBOL: their operands, and that each is spoken of once although it
*> stands in several of the statements that are made.
IDENTIFICATION DIVISION.
PROGRAM-ID. OSVS.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  A                           PIC X(5).
77  N                           PIC S9(4)V99.
77  D                           PIC 9(4).
    88  D-IS-1                  VALUE 1.
77  E                           PIC Z(3)9.
77  B1                          PIC X.
77  NA                          PIC N(4).
77  NE                          PIC NNBN NATIONAL.
77  DB                          PIC G(4) DISPLAY-1.
77  AE                          PIC XBX.
77  P                           PIC S9(5) COMP-3.
77  F                           COMP-1.
77  EF                          PIC +9.9E+99.
77  PT                          POINTER.
77  FP                          FUNCTION-POINTER.
77  DATE-ITEM                   PIC X(6) DATE FORMAT YYXXXX.
01  G.
    05  T                       PIC X OCCURS 3 INDEXED BY IX.
    05  T9                      PIC 9 OCCURS 3.
01  NG                          GROUP-USAGE NATIONAL.
    05  PIC N(3).
PROCEDURE DIVISION.
MAIN.
    EXAMINE A TALLYING ALL "X"
    EXAMINE A TALLYING LEADING SPACE REPLACING BY "Y"
    EXAMINE A TALLYING UNTIL FIRST "X" REPLACING BY SPACE
    EXAMINE G REPLACING ALL "X" BY B1
    EXAMINE T (1) REPLACING LEADING ZERO BY "Y"
    EXAMINE A REPLACING FIRST "X" BY QUOTE
    EXAMINE D REPLACING UNTIL FIRST 0 BY 1
    EXAMINE D TALLYING ALL 0 REPLACING BY "5"
    EXAMINE NA REPLACING ALL N"A" BY N"B"

    TRANSFORM A FROM "X" TO "Y"
    TRANSFORM A CHARACTERS FROM "ABC" TO "XYZ"
    TRANSFORM A FROM "ABC" TO "Z"
    TRANSFORM A FROM "ABC" TO SPACE
    TRANSFORM A FROM "ABC" TO B1
    TRANSFORM A FROM A TO B1
    TRANSFORM A FROM A TO '"'
    TRANSFORM A FROM A TO AE OF A
        *> expect@-1: 3312
    TRANSFORM A FROM SPACE TO "-"
    TRANSFORM NA FROM NX"00410042" TO N"C"

    EXHIBIT NAMED A N "HELLO" T OF G (2) SPACES UPON CONSOLE
    EXHIBIT CHANGED A N D E B1 NA NE DB AE P F EF PT DATE-ITEM G NG T (2) TALLY
    EXHIBIT CHANGED NAMED A (1:2) N "HELLO" LENGTH OF A UPON SYSOUT

    ON 1 DISPLAY "FIRST".
    ON 2 AND EVERY 3 UNTIL 9 DISPLAY "ON" ELSE DISPLAY "OFF".
    ON D UNTIL T9 (1) NEXT SENTENCE OTHERWISE DISPLAY "OFF".

    EXAMINE P TALLYING ALL "X" REPLACING BY "Y". *> expect: 3528:13-13
    EXAMINE A TALLYING ALL N"X" REPLACING BY "Y". *> expect: 3531:28-31
    EXAMINE A TALLYING UNTIL FIRST 1.5 REPLACING BY PT. *> expect: 3531:53-54 3530:36-38
    EXAMINE A TALLYING ALL NOWHERE REPLACING BY NEITHER. *> expect: 3310:28-34 3310:49-55
    EXAMINE A REPLACING ALL "X" BY T ("A"). *> expect: 3301 *> expect-pass
    EXAMINE "ABC" TALLYING ALL "X". *> expect: 3528:13-17
    EXAMINE A TALLYING ALL P. *> expect: 3531

    TRANSFORM P FROM "X" TO "Y". *> expect: 3528:15-15
    TRANSFORM "A" FROM "X" TO "Y". *> expect: 3528:15-17
    TRANSFORM A FROM "ABC" TO "XY". *> expect: 3533
    TRANSFORM A FROM A TO NA. *> expect: 3531:27-28
    TRANSFORM NOWHERE FROM NEITHER TO NOBODY. *> expect: 3310 3310 3310
    TRANSFORM NA FROM "ABC" TO B1. *> expect: 3531:23-27 3531:32-33
    TRANSFORM A FROM G TO T ("A"). *> expect: 3301 *> expect-pass
    TRANSFORM A FROM P TO B1. *> expect: 3534:22-22

    EXHIBIT NAMED FP IX NOWHERE NULL. *> expect: 3505:19-20 3505:22-23 3310:25-31 3506:33-36
    EXHIBIT CHANGED NAMED FP IX NOWHERE A UPON PRINTER. *> expect: 3505 3505 3310 3507:48-54
    EXHIBIT CHANGED T ("A") A. *> expect: 3301 *> expect-pass

    ON 1.5 DISPLAY NOWHERE. *> expect: 3301:8-10 3310
    ON 0 AND EVERY A UNTIL -1 DISPLAY "A" ELSE DISPLAY NOWHERE. *> expect: 3301:8-8 3301:20-20 3301:28-29 3310
    ON N DISPLAY "A". *> expect: 3301
    ON D-IS-1 DISPLAY "A". *> expect: 3301
    ON IX DISPLAY "A". *> expect: 3301
    ON T9 ("A") AND EVERY 2 UNTIL 4 DISPLAY "A". *> expect: 3301 *> expect-pass
    GOBACK.
