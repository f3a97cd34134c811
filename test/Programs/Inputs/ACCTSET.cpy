      *> The symbolic map of the account panel.
       01  ACCTMI.
           02  FILLER PIC X(12).
           02  ACCTNOL    COMP PIC S9(4).
           02  ACCTNOF    PIC X.
           02  FILLER REDEFINES ACCTNOF.
             03 ACCTNOA   PIC X.
           02  FILLER     PIC X(2).
           02  ACCTNOI    PIC X(8).
           02  BALANCEL   COMP PIC S9(4).
           02  BALANCEF   PIC X.
           02  FILLER REDEFINES BALANCEF.
             03 BALANCEA  PIC X.
           02  FILLER     PIC X(2).
           02  BALANCEI   PIC X(14).
           02  MSGL       COMP PIC S9(4).
           02  MSGF       PIC X.
           02  FILLER REDEFINES MSGF.
             03 MSGA      PIC X.
           02  FILLER     PIC X(2).
           02  MSGI       PIC X(60).
       01  ACCTMO REDEFINES ACCTMI.
           02  FILLER PIC X(12).
           02  FILLER     PIC X(3).
           02  ACCTNOC    PIC X.
           02  ACCTNOH    PIC X.
           02  ACCTNOO    PIC X(8).
           02  FILLER     PIC X(3).
           02  BALANCEC   PIC X.
           02  BALANCEH   PIC X.
           02  BALANCEO   PIC ZZ,ZZZ,ZZ9.99-.
           02  FILLER     PIC X(3).
           02  MSGC       PIC X.
           02  MSGH       PIC X.
           02  MSGO       PIC X(60).
