      *> A copybook of the shop's own wins over the supplied one.
       01  SHOPS-OWN PIC X.
           EXEC SQL INCLUDE NESTED END-EXEC *> expect: 45
