       01  PARTREC.
           05  PART-NUMBER         PIC X(8).
           05  PART-NAME           PIC X(20).
           05  ON-HAND             PIC S9(5) COMP-3.
           05  FILLER              PIC X(49).
