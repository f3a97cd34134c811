       CBL DEFINE(LEVEL=2,FAST,NAME='a,(b',OFF=B'0'),LIB
      *> What the precompiler and the translator do, and what the options of the compiler tell them.
      *> RUN: %tarka check --verify --cics --sql -I %S/Inputs %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. MAIN-PROGRAM.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
      *> The precompiler makes SQLCA, whatever members there are; a table has a member of its own kind.
           EXEC SQL INCLUDE SQLCA END-EXEC.
           EXEC SQL INCLUDE TAB END-EXEC.
       01  X PIC X.
       PROCEDURE DIVISION.
           MOVE SQLERRMC TO TAB-COLUMN
      >>IF LEVEL = 2 AND FAST IS DEFINED AND NAME = 'a,(b' AND NOT OFF
           DISPLAY X
      >>ELSE
           DISPLAY NOT-DEFINED
      >>END-IF
      >>IF IGY-CICS AND IGY-SQL AND IGY-COMPILER-VRM >= 60200
           DISPLAY X
      >>ELSE
           DISPLAY NOT-DEFINED
      >>END-IF
           CALL "PLAIN" USING X X
           CALL "PLAIN" USING X
           CALL "PLAIN" USING X X X *> expect: 3439
           CALL "TRANSLATED" USING X *> expect: 3439
           CALL "INNER" USING X *> expect: 3439
           GOBACK.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. INNER.
       DATA DIVISION.
       LINKAGE SECTION.
       01  Y PIC X.
       01  Z PIC X.
       PROCEDURE DIVISION USING Y Z.
           GOBACK.
       END PROGRAM INNER.
       END PROGRAM MAIN-PROGRAM.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. PLAIN.
       DATA DIVISION.
       LINKAGE SECTION.
       01  Y PIC X.
       01  Z PIC X.
       PROCEDURE DIVISION USING Y Z.
           IF EIBCALEN = 0 GOBACK.
       END PROGRAM PLAIN.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. TRANSLATED.
       PROCEDURE DIVISION.
           EXEC CICS RETURN END-EXEC.
       END PROGRAM TRANSLATED.
