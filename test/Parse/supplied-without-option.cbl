      *> What the options --cics and --sql supply is not there without
      *> them, and messages name the option.
      *> RUN: %tarka check --verify %s
      *> RUN: not %tarka check %s 2>&1 | FileCheck %s
      *> CHECK: SQLCA was not found; the option --sql supplies it
      *> CHECK: dfhaid was not found; the option --cics supplies it
      *> CHECK: DFHRESP(NORMAL) is a CICS constant; the option --cics provides it
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
           EXEC SQL INCLUDE SQLCA END-EXEC. *> expect: 48
           COPY dfhaid. *> expect: 48
       01  N PIC 9(4).
       PROCEDURE DIVISION.
           EXEC CICS RETURN END-EXEC
           IF N = DFHRESP(NORMAL) *> expect: 50
               DISPLAY EIBCALEN. *> expect: 3310
