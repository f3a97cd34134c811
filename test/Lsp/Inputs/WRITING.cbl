       IDENTIFICATION DIVISION.
       PROGRAM-ID. WRITING.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
      *> tarka: off 3310 (nothing is wrong here)
       01  WS-HEX                  PIC X(2) VALUE X'C1F1'.
           88  WS-EMPTY            VALUE SPACES.
       01  WS-TEXT                 PIC X(80) VALUE 'IT''S CONTIN
      -    'UED'.
       01  WS-NUMBER               PIC S9(5)V99 COMP-3.
       COPY TOTALS.
       PROCEDURE DIVISION.
       MAIN-LINE.
           CALL 'LOOKUP' USING WS-TEXT WS-NUMBER
           COMPUTE WS-NUMBER =
               FUNCTION MAX (1, FUNCTION MOD (7 2) 3.25)
           MOVE SPACES TO WS-TEXT
           PERFORM UNTIL WS-EMPTY AND WS-NUMBER IS GREATER THAN 100
               ADD 1 TO WS-NUMBER
               ADD 2 TO WS-NUMBER
               ADD 3 TO WS-NUMBER
               ADD 4 TO WS-NUMBER
               ADD 5 TO WS-NUMBER
               ADD 6 TO WS-NUMBER
               ADD 7 TO WS-NUMBER
               ADD 8 TO WS-NUMBER
               ADD 9 TO WS-NUMBER
               SET WS-EMPTY TO TRUE
           END-PERFORM
           GOBACK.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. LOOKUP.
       DATA DIVISION.
       LINKAGE SECTION.
       01  LK-KEY.
           05  LK-AREA             PIC XX.
           05  LK-NUMBER           PIC 9(6).
       01  LK-RESULT               PIC S9(5)V99 COMP-3.
       PROCEDURE DIVISION USING LK-KEY BY REFERENCE LK-RESULT.
           MOVE LK-NUMBER TO LK-RESULT
           GOBACK.
       END PROGRAM LOOKUP.
       END PROGRAM WRITING.
