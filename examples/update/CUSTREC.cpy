      *----------------------------------------------------------------*
      * CUSTREC   CUSTOMER MASTER RECORD, 120 BYTES                    *
      *           :TAG: IS THE PREFIX OF THE NAMES                     *
      *----------------------------------------------------------------*
       01  :TAG:-RECORD.
           05  :TAG:-KEY.
               10  :TAG:-REGION            PIC X(03).
               10  :TAG:-NUMBER            PIC 9(07).
           05  :TAG:-NAME                  PIC X(30).
           05  :TAG:-ADDRESS.
               10  :TAG:-STREET            PIC X(25).
               10  :TAG:-CITY              PIC X(20).
               10  :TAG:-POSTCODE          PIC X(08).
           05  :TAG:-BALANCE               PIC S9(09)V99  COMP-3.
           05  :TAG:-CREDIT-LIMIT          PIC S9(07)V99  COMP-3.
           05  :TAG:-LAST-PAID.
               10  :TAG:-PAID-YEAR         PIC 9(04).
               10  :TAG:-PAID-MONTH        PIC 9(02).
               10  :TAG:-PAID-DAY          PIC 9(02).
           05  :TAG:-STATUS                PIC X(01).
               88  :TAG:-ACTIVE            VALUE 'A'.
               88  :TAG:-ON-HOLD           VALUE 'H'.
               88  :TAG:-CLOSED            VALUE 'C' 'X'.
           05  FILLER                      PIC X(07).
