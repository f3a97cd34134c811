       01  COPIED.
           05  COPIED-ITEM PIC X.
