       IDENTIFICATION DIVISION.
       PROGRAM-ID. MAIN.
       REPLACE ==PIC X== BY ==PIC PIC 9==.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A                       PIC X(80).
       01  B PICTRUE X(80),9
      -    99.9,9 VALUE 3.
       PROCEDURE DIVISION.
           STOP RUN.
