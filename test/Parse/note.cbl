      *> RUN: %tarka check --verify --enable-osvs %s
      *>
      *> The text of NOTE is not program text, even if it looks like it.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. NOTES.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A PIC X.
       PROCEDURE DIVISION.
       REMARK.
           NOTE THE OPERATOR'S CARD. IT ISN'T READ (SEE 'B).
           DON'T MOVE PIC TO EXEC SQL OR COPY IT, ELSE.
       WORK.
           MOVE A TO A.
           NOTE WHAT'S MOVED HERE,
               PIC 9.5 AND COPY WHAT.
           MOVE B TO A. *> expect: 3310
           MOVE A TO A. NOTE "AND THE END.
       LAST-ONE.
           STOP RUN.
