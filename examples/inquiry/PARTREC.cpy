      *----------------------------------------------------------------*
      * PARTREC   PART MASTER, INDEXED BY PART NUMBER, 100 BYTES       *
      *----------------------------------------------------------------*
       01  PART-RECORD.
           05  PART-NUMBER                 PIC X(10).
           05  PART-NAME                   PIC X(30).
           05  PART-SUPPLIER               PIC X(08).
           05  PART-STOCK.
               10  PART-ON-HAND            PIC S9(07)     COMP-3.
               10  PART-ON-ORDER           PIC S9(07)     COMP-3.
               10  PART-REORDER-POINT      PIC S9(07)     COMP-3.
           05  PART-PRICE                  PIC S9(07)V99  COMP-3.
           05  PART-CLASS                  PIC X(01).
               88  PART-CLASS-VALID        VALUE 'A' THRU 'F'.
               88  PART-OBSOLETE           VALUE 'X'.
           05  FILLER                      PIC X(34).
