       01  :P:-CUSTOMER.
           05  :P:-ID              PIC 9(8).
           05  :P:-NAME            PIC X(30).
