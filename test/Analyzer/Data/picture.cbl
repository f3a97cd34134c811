*> RUN: %tarka check --verify %s
*>
*> Pictures against their usage, and the limits of their size.
IDENTIFICATION DIVISION.
PROGRAM-ID. PICTURES.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  USAGES.
    05  LETTERS                 PIC A(3).
    05  LETTERS-BINARY          PIC A(3) COMP. *> expect: 3243
    05  TEXT-BINARY             PIC X(3) COMP. *> expect: 3242
    05  TEXT-EDITED-PACKED      PIC XX/XX COMP-3. *> expect: 3242
    05  NUMBER-EDITED           PIC Z,ZZ9.99CR.
    05  NUMBER-EDITED-NATIONAL  PIC Z,ZZ9.99 USAGE NATIONAL.
    05  NUMBER-EDITED-PACKED    PIC ZZ9 PACKED-DECIMAL. *> expect: 3242
    05  NATIONAL-BINARY         PIC N(3) BINARY. *> expect: 3242
    05  NUMBERS.
        10  NUMBER-BINARY       PIC S9(9) BINARY.
        10  NUMBER-COMP-4       PIC S9(9) COMP-4.
        10  NUMBER-COMP-5       PIC S9(9) COMP-5.
        10  NUMBER-COMP-3       PIC S9(9) COMP-3.
        10  NUMBER-SCALED       PIC S9(5)PPP COMP-3.
    05  UNCLASSIFIED            PIC XV9. *> expect: 3242
    05  GROUP-WITH-PICTURE      PIC X. *> expect: 3241
        10  GROUP-ITEM          PIC X.
01  SIZES.
    05  DIGITS-31               PIC S9(31).
    05  DIGITS-32               PIC S9(32). *> expect: 3244
    05  DIGITS-32-EDITED        PIC Z(31)9. *> expect: 3244
    05  POSITIONS-249           PIC Z(30)9B(218).
    05  POSITIONS-250           PIC Z(30)9B(219). *> expect: 3245
    05  BOTH-TOO-MANY           PIC Z(31)9B(218). *> expect: 3244 3245
    05  STRING-OF-50            PIC
        XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX.
    05  STRING-OF-51 PIC *> expect: 3242
        XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX.
01  EXTERNAL-FLOATS.
    05  FLOAT-RIGHT             PIC +9.9(5)E+99.
    05  FLOAT-TWO-CLAUSES       PIC -9V9E-99 SIGN LEADING SYNC.
    05  FLOAT-VALUE             PIC +9.9E+99 VALUE ZERO. *> expect: 3515 3289
    05  FLOAT-PACKED            PIC +9.9E+99 COMP-3. *> expect: 3242
*> A symbol other than the currency sign needs SPECIAL-NAMES.
01  PRICE                       PIC #,##9.99. *> expect: 3246
PROCEDURE DIVISION.
    GOBACK.
