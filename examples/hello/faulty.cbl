       IDENTIFICATION DIVISION.
       PROGRAM-ID. HELLO2.
      * The same with two mistakes: a misspelt paragraph, a sum of letters.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  GREETING.
           05  GREETING-TEXT       PIC X(12) VALUE "Hello, world".
           05  GREETING-NUMBER     PIC 9(3)  VALUE ZERO.
       01  TIMES-WANTED            PIC 9(3)  VALUE 3.
       PROCEDURE DIVISION.
       MAIN-PARAGRAPH.
           PERFORM GRETE UNTIL GREETING-NUMBER = TIMES-WANTED.
           IF GREETING-NUMBER > 2
               DISPLAY "That was a warm welcome"
           ELSE
               DISPLAY "That was short"
           END-IF.
           STOP RUN.
       GREET.
           ADD 1 TO GREETING-TEXT.
           DISPLAY GREETING-TEXT.
