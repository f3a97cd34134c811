      *----------------------------------------------------------------*
      * RATETAB   RATES BY AGE AND RISK CLASS, IN ORDER OF AGE         *
      *----------------------------------------------------------------*
       01  RATE-VALUES.
           05  FILLER              PIC X(17) VALUE '02500950115021000'.
           05  FILLER              PIC X(17) VALUE '03501020125023000'.
           05  FILLER              PIC X(17) VALUE '04501180149027500'.
           05  FILLER              PIC X(17) VALUE '05501500185036000'.
           05  FILLER              PIC X(17) VALUE '06502100260049000'.
           05  FILLER              PIC X(17) VALUE '99903900450081000'.
       01  RATE-TABLE REDEFINES RATE-VALUES.
           05  RATE-ROW                OCCURS 6 TIMES
                                       ASCENDING KEY IS RATE-AGE-UP-TO
                                       INDEXED BY RATE-IX.
               10  RATE-AGE-UP-TO      PIC 9(03).
               10  RATE-BY-CLASS       OCCURS 3 TIMES
                                       INDEXED BY CLASS-IX.
                   15  RATE-PER-MILLE  PIC 9(02)V9(02).
               10  FILLER              PIC X(02).
