       IDENTIFICATION DIVISION.
       PROGRAM-ID. TAGS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  :TAG:-RECORD. *> expect: 67
           05 :TAG:-A PIC X.
           05 :TAG:-B PIC X.
       01  A PIC X.
       PROCEDURE DIVISION.
           MOVE :TAG:-A TO A
           GOBACK.
