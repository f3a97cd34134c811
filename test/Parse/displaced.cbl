      *> RUN: %tarka check --syntax-only --verify %s
      *>
      *> Headers that are damaged, missing or in the wrong place, and parts of statements that a
      *> misplaced period cuts off: one message each, and what follows is read as it was meant.
       OF DIVISION. *> expect: 233
       PROGRAM-ID. P.
       ENVIRONMENT TO. *> expect: 200:20
       ( SECTION. *> expect: 233
       FILE-CONTROL.
           FILE STATUS IS FS. *> expect: 200
           SELECT G ASSIGN TO GG.
       DATA D.VISION. *> expect: 200
       FILE SECTION.
       FD  RECORDING MODE F. *> expect: 201
       01  F-REC PIC X.
       FD  G.
       01  G-REC PIC X.
       WORKING-STORA E SECTION. *> expect: 233
       01  . PIC X(4). *> expect: 200:12
       10  1 PIC X. *> expect: 200
       01  FS PIC XX.
           88 OK VALUE . *> expect: 200
       MAIN-LINE. *> expect: 231
           OPEN INPUT F
           IF FS = SPACES
               MOVE FS TO . *> expect: 200
               CONTINUE
           ELSE
               DISPLAY F-REC
           END-IF.
           PERFORM UNTIL FS = "10". *> expect: 200
               CONTINUE
           END-PERFORM.
           AT END *> expect: 427
           SEARCH FS
               SET OK TO TRUE
           END-SEARCH.
           CICS RETURN TRANSID("A") END-EXEC. *> expect: 200
           GOBACK.
       END PROGRAM P.

       IDENTIFICATION DIVISION.
       PROGRAM-ID. Q.
       ENVIRONMENT DIVISION.
       FILE-CONTROL. *> expect: 231
       INPUT-OUTPUT SECTION.
           SELECT F ASSIGN TO FF.
       WORKING-STORAGE SECTION. *> expect: 231
       DATA DIVISION.
       01  A PIC X.
       PROCEDURE DIVISION.
           MOVE A TO A.
       END PROGRAM Q.

       IDENTIFICATION DIVISION.
       PROGRAM-ID. R.
       DATA DIVISION.
       DATA DIVISION. *> expect: 213
       WORKING-STORAGE SECTION.
       01  A PIC X.
           IF  B PIC X. *> expect: 200
       PROCEDURE DIVISION.
           MOVE A TO A.
