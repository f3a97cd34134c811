      *> One mistake has one message, at the word that is wrong, and reading continues after it.
      *> RUN: %tarka check --syntax-only --verify -I %S/Inputs %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P1.
       ENVIRONMENT DIVISION.
       SECTION CONFIGURATION. *> expect: 200:8-14
       SPECIAL-NAMES.
           CONSOLE IS CRT.
       INPUT-OUTPUT .SECTION *> expect: 200
       FILE-CONTROL FILE-CONTROL. *> expect: 220
           SELECT F ASSIGN TO F1 ORGANIZTION INDEXED *> expect: 224
               ACCESS DYNAMIC RECORD KEY K.
           SELECT SPOOL ASSIGN TO DISKS UT-S-SPOOL, SPOOL2
               ACCESS SEQUENTIAL.
       DATA DIVISION.
       FILE SECTION.
       FD .F *> expect: 200
       FD  F.
       01  FR.
           05  K PIC X(5).
       COMMUNICATION SECTION. *> expect: 221
       CD  MESSAGES FOR INPUT
           SYMBOLIC QUEUE IS K.
       01  QUEUE-AREA.
           05  FILLER PIC X(87).
       CD  ANSWERS FOR OUTPUT.
       SECTION. *> expect: 200
       01  A PIC 9(4).
       01  B PIC 9(4).
       01  C C PIC 9(4). *> expect: 223
       01  D 9(5).9(2),9- COMP-3. *> expect: 223
       01  T.
           05  E OCCURS 5 TIME INDEXED BY IFX, WHENX. *> expect: 200:27-30
               10  E1 PIC 9.
           05  E3 PIC 9 VALUE. *> expect: 200
           05  E4 ZERO VALUE. *> expect: 223
       78  LEVEL-78 VALUE 5. *> expect: 221
       01  U PIC U(10) USAGE UTF-8. *> expect: 221
       01  W PIC X VOLATILE
           EXEC SQL DECLARE T TABLE (A INT) END-EXEC. *> expect: 220
       PROCEDURE .DIVISION *> expect: 200
       DECLARATIVS. *> expect: 233
       ON-INPUT SECTIN. *> expect: 200
           USE AFTER ERROR PROCEDURE ON INPUT.
       END END DECLARATIVES. *> expect: 200
       MAIN-1.
           A MOVE TO B. *> expect: 420:12
           INPUT OPEN F *> expect: 420
           ADD A TO. B *> expect: 200:20
           DISPLAY A
           MVOE A TO B *> expect: 421
           OPEN INPUT F
           RAED F AT END MOVE A TO B *> expect: 421
           SET IFX
               WHENX TO 1
           SEARCH E AT END DISPLAY "NONE"
               WHHEN E1 (IFX) = A DISPLAY "IT" *> expect: 421
           END-SEARCH
           IF A = B DISPLAY A ELES DISPLAY B END-IFF *> expect: 421 421
           PERFORM UNTIL A = 1
               DISPLAY A
                 B
           END-PERFROM *> expect: 421:12-22
           EXXEC SQL UPDATE HR.EMP *> expect: 421
               SET SALARY = SALARY + 1 END-EXEC
           ADD 1 TO A ON SIZE ERROR DISPLAY A .END-ADD *> expect: 424
       MAIN-2. *> three mistakes, three messages
           MOVE A TO
           MOVE TO B *> expect: 201:12 201:17
           COMPUTE A B. *> expect: 200
           CLOSE F REEL WITH LOCK. *> expect: 200
           READ F PREVIOUS RECORD AT END DISPLAY A END-READ. *> expect: 423
           START F USING KEY K. *> expect: 423
           ACCEPT MESSAGES MESSAGE COUNT *> expect: 423
      *> expect@+1: 80
       >>FROBNICATE
           IF A = B
               DISPLAY A
           END IF. *> expect: 200:12
           ADD A TOO B. *> expect: 200:18-20
           DISPLAY A UPNO CRT. *> expect: 421:22-25
           ACCEPT A FORM DATE. *> expect: 421:21-24
           PERFORM MAIN-1 UNTILL A = 1. *> expect: 421
           IF A EQUEL B DISPLAY A. *> expect: 421
           READ F AT ENDD DISPLAY A END-READ. *> expect: 200:22-25
           ADD 1 TO A ON SIZE ERRROR DISPLAY A. *> expect: 200:31-36
      * Each of the old statements is reported.
           EXAMINE A TALLYING ALL "A" *> expect: 422
           EXHIBIT A *> expect: 422
           TRANSFORM A FROM "A" TO "B". *> expect: 422
           DISPLAY "DONE *> expect: 24
           GOBACK.
       END  P1. *> expect: 200

       IDENTIFICATION DIVISION.
       PROGRAM-ID. .P2 *> expect: 200
       DATA .DIVISION *> expect: 200
       WORKING-STORAGE SECTION.
       01  A PIC X.
       PROCEDURE DIVISION.
       ON-ERROR SECTION. *> expect: 231
           USE AFTER ERROR PROCEDURE ON OUTPUT.
       DECLARATIVES END. *> expect: 200
       SECTION MAIN. *> expect: 200
           EXEC SQL COMMIT. *> expect: 27
           EXEC SQL ROLLBACK END-EXEC.
           GOBACK.
       END PROGARM P2. *> expect: 200

       CLASS-ID. C INHERITS BASE. *> expect: 221
       IDENTIFICATION DIVISION.
       METHOD-ID. "run".
       PROCEDURE DIVISION.
           EXIT METHOD.
       END METHOD "run".
       END CLASS C.

       ID DIVISION.
       PROGRAM-ID. P3
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       REPOSITORY.
           CLASS BASE IS "java.lang.Object".
       DATA DIVISION.
       WORKING-STORAGE SECTION.
      *> A copybook with a faulty REPLACING is not reported line by line.
       COPY TAGGED REPLACING ==:TAG:== ==NEW==. *> expect: 61
       COPY COPY TAGGED. *> expect: 40
      * The period may be the copybook's.
       01  A COPY NOWHERE. *> expect: 43
       PROCEDURE DIVISION.
           GOBACK.
