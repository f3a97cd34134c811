       IDENTIFICATION DIVISION.
       PROGRAM-ID. HELLO.
      * Greets a few times and counts the greetings.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  GREETING.
           05  GREETING-TEXT       PIC X(12) VALUE "Hello, world".
           05  GREETING-NUMBER     PIC 9(3)  VALUE ZERO.
       01  TIMES-WANTED            PIC 9(3)  VALUE 3.
       PROCEDURE DIVISION.
       MAIN-PARAGRAPH.
           PERFORM GREET UNTIL GREETING-NUMBER = TIMES-WANTED.
           IF GREETING-NUMBER > 2
               DISPLAY "That was a warm welcome"
           ELSE
               DISPLAY "That was short"
           END-IF.
           STOP RUN.
       GREET.
           ADD 1 TO GREETING-NUMBER.
           DISPLAY GREETING-TEXT.
