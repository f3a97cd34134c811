      *> A misspelt word after a list of names begins the next clause.
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
      *> A misspelt word is read as the intended one: nothing else is reported.
           05 E PICTRE 9(4). *> expect: 224
           05 F PCI 9(5).9(2). *> expect: 224
           05 G PIC 9(3) USAGE COMPP-3. *> expect: 224
           05 H PIC PIC X(3) VALUE "ABC". *> expect: 200:21-23
           05 I OCURS 5 PIC X. *> expect: 224
           05 J PIC. *> expect: 26
       PROCEDURE DIVISION.
           MOVE E TO G
           MOVE H TO I (2)
           MOVE F TOO H *> expect: 200:19-21
           PERFORM VARYING E FROM 1 BY 1 UNITL E = 5 *> expect: 200
               DISPLAY E
           END-PERFORM
           GOBACK.
