       01  <<S>>-A PIC X.
       01  >-B     PIC X.
       01  B<      PIC X.
