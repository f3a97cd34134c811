      *> RUN: %tarka check --verify --enable-rw %s
      *> What the entries of a report show. Lines that repeat supply subscripts of their own.
       identification division.
       program-id. listing.
       environment division.
       input-output section.
       file-control.
           select f assign to f.
       data division.
       file section.
       fd f report is r record contains 133.
       working-storage section.
       1 tab.
        2 e pic 9(3) occurs 5.
       1 a pic x(5).
       report section.
       rd r control is a page limit 60.
       1 shown type detail line plus 1.
        2 column 1 pic 9(3) source e (5).
        2 column 5 pic 9(3) source e (6). *> expect: 5001:36
        2 column 9 pic x(3) source a (4:3). *> expect: 5004:36
       1 type cf a line plus 1.
        2 column 1 pic 9(5) sum e (7). *> expect: 5001:33
       procedure division.
       main.
           open output f initiate r generate shown terminate r close f
           stop run.
