       01  :P:-MONEY.
           05  :P:-AMOUNT          PIC S9(7)V99 COMP-3.
           05  CURRENCY-CODE       PIC X(3).
