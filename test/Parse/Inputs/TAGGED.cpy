       01  :TAG:-RECORD.
           05  :TAG:-NUMBER PIC 9(5).
           05  :TAG:-NAME PIC X(20).
