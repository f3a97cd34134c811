      *----------------------------------------------------------------*
      * TRANREC   ONE TRANSACTION OF THE DAY, 40 BYTES                 *
      *----------------------------------------------------------------*
       01  TRAN-RECORD.
           05  TRAN-KEY.
               10  TRAN-REGION             PIC X(03).
               10  TRAN-NUMBER             PIC 9(07).
           05  TRAN-CODE                   PIC X(02).
               88  TRAN-IS-INVOICE         VALUE 'IN'.
               88  TRAN-IS-PAYMENT         VALUE 'PY'.
               88  TRAN-IS-HOLD            VALUE 'HD'.
               88  TRAN-IS-RELEASE         VALUE 'RL'.
               88  TRAN-IS-KNOWN           VALUE 'IN' 'PY' 'HD' 'RL'.
           05  TRAN-AMOUNT                 PIC S9(07)V99.
           05  TRAN-DATE                   PIC 9(08).
           05  TRAN-DATE-PARTS REDEFINES TRAN-DATE.
               10  TRAN-YEAR               PIC 9(04).
               10  TRAN-MONTH              PIC 9(02).
               10  TRAN-DAY                PIC 9(02).
           05  FILLER                      PIC X(11).
