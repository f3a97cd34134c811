       IDENTIFICATION DIVISION.
       PROGRAM-ID. MAIN.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       COPY BOOK REPLACING ==:TAG:== BY ==NEW== LEADING ==OLD== BY
           ==MY== TRAILING ==REC== BY ==RECORD== 7 BY 8 'A' BY "B"
           A OF B (1) BY C.
       REPLACE ==PIC X== BY ==PIC 9== LEADING ==MY-== BY ====.
       COPY BOOK OF LIB SUPPRESS.
       COPY 'NEST'.
       REPLACE OFF.
       PROCEDURE DIVISION.
           COPY STMT REPLACING N BY ==M (1)==.
           STOP RUN.
@BOOK
       01  :TAG:-REC.
           05  OLD-ITEM-REC PIC X(7) VALUE 'A'.
           05  A OF B (1) PIC X.
@NEST
       COPY STMT.
       COPY BOOK REPLACING ==:TAG:== BY ==N==.
@STMT
           MOVE N TO
      -    'A CONTINUED LITERAL THAT GOES ON IN THE NEXT LINE OF THE SO
      -    'URCE'.
