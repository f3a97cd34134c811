      *> REPLACE ALSO adds to the pairs in effect, LAST OFF takes what
      *> was added last away, OFF all of them.
      *> RUN: %tarka check --verify %s
       REPLACE ==AA== BY ==BB==.
       REPLACE ALSO ==CC== BY ==DD== ==EE== BY ==AA==.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01 AA PIC X.
       01 CC PIC X.
       01 EE PIC X.
       PROCEDURE DIVISION.
           DISPLAY BB DD AA CC.
       REPLACE LAST OFF.
           DISPLAY AA CC. *> expect: 3310:23-24
       REPLACE LAST OFF.
           DISPLAY AA EE. *> expect: 3310:23-24
       REPLACE LAST ON. *> expect: 200
       REPLACE OFF.
           GOBACK.
