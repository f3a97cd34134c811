       01  DCLTAB.
           05  TAB-COLUMN PIC X.
