       01  SUB-TOTALS.
           05  AMOUNT              PIC S9(9)V99 COMP-3.
       01  GRAND-TOTALS.
           05  AMOUNT              PIC S9(11)V99 COMP-3.
