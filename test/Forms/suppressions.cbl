      *> RUN: %tarka check --verify %s
      * What comments turn off: one line, the next one, a region; in lines of COBOL 85 too. The
      * numbers that are expected are those that are left.
       identification division.
       program-id. suppressions.
       procedure division.
           perform nowhere
      *> expect@-1: 3403
           add 1 to c. *> tarka: off 3310 it comes later
      *> tarka: off 3310 the next line

      * A comment between.
           add 1 to d
           perform nowhere
      *> expect@-1: 3403
      * tarka: off 3301-3320 cobol generated code
           add 1 to e
           perform nowhere
      * tarka: on cobol
           perform nowhere
      *> expect@-1: 3403
           add 1 to f
      * tarka: on
           add 1 to g
      *> expect@-1: 3310
      *> One that turns nothing off, in a line and in a region; mistakes in the comment itself.
           continue  *> tarka: off 3311
      *> expect@-1: 8
      *> tarka: off 3400-3499
      *> expect@-1: 8
           continue
      *> tarka: of 3310
      *> expect@-1: 9
      *> tarka: off everything
      *> expect@-1: 9
           goback.
