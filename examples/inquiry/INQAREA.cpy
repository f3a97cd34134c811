      *----------------------------------------------------------------*
      * INQAREA   WHAT INQUIRY PASSES TO ITS SUBPROGRAMS               *
      *----------------------------------------------------------------*
       01  INQUIRY-AREA.
           05  INQ-REQUEST                 PIC X(01).
               88  INQ-BY-NUMBER           VALUE 'N'.
               88  INQ-BY-SUPPLIER         VALUE 'S'.
               88  INQ-END                 VALUE 'E'.
           05  INQ-NUMBER                  PIC X(10).
           05  INQ-SUPPLIER                PIC X(08).
           05  INQ-RESULT                  PIC 9(02).
               88  INQ-FOUND               VALUE 0.
               88  INQ-NOT-FOUND           VALUE 10.
               88  INQ-BAD-REQUEST         VALUE 20.
           05  INQ-COUNT                   PIC S9(05)     COMP-3.
           05  INQ-VALUE                   PIC S9(11)V99  COMP-3.
