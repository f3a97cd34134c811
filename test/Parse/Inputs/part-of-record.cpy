      *> The middle of a record, with tags that COPY REPLACING replaces and an object of DEPENDING ON
      *> that is declared elsewhere; the last period is the program's.
           05  :PRE:-ID               PIC 9(5).
           05  WS-:PRE:-NAME REDEFINES :PRE:-ID PIC X(5).
               88  :PRE:-NONE         VALUE SPACES.
           05  :PRE:-ITEM OCCURS 1 TO 5 DEPENDING ON :PRE:-COUNT
                   INDEXED BY :PRE:-IX PIC X
