      *> A misspelt word behind a list of names begins the next clause.
      *> RUN: %tarka check --verify %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A.
           05 B OCCURS 3 INDEXED BY IX VALEU 5 PIC 9. *> expect: 224:40-44
           05 C OCCURS 3 INDEXED BY IY, IZ PIC X.
           05 D PIC 9 OCCURS 3 INDEXED BY JY JZ
              VALUE 5.
       PROCEDURE DIVISION.
           GOBACK.
