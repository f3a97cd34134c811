      *> RUN: %tarka check --verify %s
      *> RUN: %tarka check --verify %S/Inputs/tags.cbl
      *>
      *> Mistakes whose text goes on: a word in the place of another one, a period within an entry or
      *> a word, lines that are exchanged, words that belong to another language. Each has one
      *> message, and a second mistake nearby has its own.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
      *> SPECIAL-NAMES without its header.
           CLASS VOWEL IS 'A' 'E'. *> expect: 231
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT F ASSIGN TO FF
               ORGANIZ.TION IS INDEXED *> expect: 223
               ACCESS IS RANDOM
               RECORD KEY IS F-KEY.
       DATA DIVISION.
       FILE SECTION.
       01  F-RECORD. *> expect: 254
           05 F-KEY PIC X(8).
       FD  F.
       WORKING-STORAGE SECTI,ON. *> expect: 200
       01  Z PIC X.
       EXEC-SQL DECLARE C1 CURSOR FOR SELECT A FROM T END-EXEC. *> expect: 421
       01  A . IS GLOBAL. *> expect: 200:16
           05 B PIC 9.
              88 B-IS-1 VALUE 1.
           05 OCCURS T 3 TIMES *> expect: 200:22
              INDEXED BY I PIC X.
           05 C PIC X
           05 D PIC X *> expect: 220
              VALUE SPACE.
                 VALUE SPACE.
           05 E PIC X.
       PROCEDURE DIVISION.
           COMPUTE B = IF 10 *> expect: 201
               ON SIZE ERROR CONTINUE
           END-COMPUTE
           MOVE B TO
           DISPLAY C. *> expect: 201
           MOVE B TO
           MOVE C *> expect: 201
               D TO E
           READ F INVALID KEY
               IF B = 1
               NOT INVALID KEY *> expect: 200
                   CONTINUE
               END-IF
           END-READ.
           ADD B
           MOVE B TO B-TYPO. *> expect: 200 3310
           DISPLAY C.PO. *> expect: 400
           PERFORM UNTIL NO-.ORE-ROWS *> expect: 200
               CONTINUE
           END-PERFORM
           EXEC SLQ SELECT A INTO :B FROM T END-EXEC *> expect: 200
           GOBACK.
       END TO P. *> expect: 200
       IDENTIFICATION DIVISION.
       PROGRAM-ID. Q.
       PROCEDURE DIVISION USING MOVE. *> expect: 201
           GOBACK.
       END PROGRAM Q.
