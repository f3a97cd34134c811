      *> What CICS and DB2 supply, and what they do not.
      *> RUN: %tarka check --verify --cics --sql -I %S/Inputs %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. OUTER.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
           EXEC SQL INCLUDE NESTED END-EXEC.
       01  N PIC 9(4).
       01  VALUES-OF. 05 DFHVALUE PIC 9(4) OCCURS 5.
       01  CLOB-AREA SQL TYPE IS XML AS CLOB(2 M).
      *> The names decide how long the lines are that are made of these.
       01  BIG SQL TYPE IS CLOB(1M).
       01  LOC-1 USAGE IS SQL TYPE IS CLOB-LOCATOR.
       01  NAME-FOR-A-FILE SQL TYPE IS CLOB-FILE.
       01  NO-TYPE SQL TYPE IS MAGIC. *> expect: 221
       PROCEDURE DIVISION.
           MOVE DFHRESP(NORMAL) TO N
           MOVE DFHRESP
               ( *> on lines of its own
               NOTFND
               ) TO DFHVALUE (2)
           MOVE DFHRESP(NOTFOUND) TO N *> expect: 51:17-33
           MOVE DFHVALUE(NOSUCHSTATE) TO N *> expect: 52
           MOVE SHOPS-OWN TO NESTED-AFTER
           MOVE CLOB-AREA-LENGTH TO N
           MOVE DIBSTAT TO N *> expect: 3310
           MOVE SQLSTATE TO N. *> expect: 3310
           EXEC SQL INCLUDE END-EXEC. *> expect: 40
           EXEC SQL INCLUDE NOWHERE END-EXEC. *> expect: 43
       IDENTIFICATION DIVISION.
       PROGRAM-ID. INNER.
       PROCEDURE DIVISION.
      *> The interface block is that of the outermost program, an SQLCA
      *> belongs to the program that it was made for.
           EXEC SQL COMMIT END-EXEC
           EXEC DLI TERM END-EXEC
           IF EIBCALEN = 0 AND SQLCODE = 0 AND DFHCOMMAREA = SPACE
               DISPLAY DIBSTAT.
       END PROGRAM INNER.
       END PROGRAM OUTER.
