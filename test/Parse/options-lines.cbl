       CBL LIB,CICS('SP'),APOST
       PROCESS RENT TEST(NONE) SQL("VERSION(AUTO)")
      *> RUN: %tarka check --verify %s
      *>
      *> The options of the compiler that a program brings along say what CICS and DB2 add to it.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. SCREENS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  WS-RESP PIC S9(8) COMP.
       COPY DFHAID.
       PROCEDURE DIVISION.
           EXEC CICS RECEIVE MAP('M') RESP(WS-RESP) END-EXEC
           EXEC SQL COMMIT END-EXEC
           IF WS-RESP = DFHRESP(MAPFAIL) OR EIBAID = DFHCLEAR
               OR SQLCODE NOT = 0
               STOP RUN
           END-IF
           GOBACK.
