*> RUN: %tarka check --verify %s
*>
*> Which categories compare with which, each line one category on the left with all others in turn:
*> alphabetic, alphanumeric, numeric, alphanumeric-edited, numeric-edited, national,
*> national-edited, DBCS, external float, internal float, pointer, index.
IDENTIFICATION DIVISION.
PROGRAM-ID. COMPARE.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  AB                          PIC A(5).
77  AN                          PIC X(5).
77  NU                          PIC S9(5)V99 COMP-3.
77  AE                          PIC XXBXX.
77  NE                          PIC ZZ9.99.
77  NA                          PIC N(5) NATIONAL.
77  NN                          PIC NNBNN NATIONAL.
77  DB                          PIC G(5) DISPLAY-1.
77  EF                          PIC +9.99E+99.
77  FL                          COMP-2.
77  PT                          POINTER.
77  IX                          INDEX.
77  PT-2                        POINTER.
77  PP                          PROCEDURE-POINTER.
01  GR.
    05  GR-1                    PIC 9(5) COMP.
PROCEDURE DIVISION.
    *> AB: itself, AN, AE and NA.
    IF AB = AB OR AB = AN OR AB = AE OR AB = NA CONTINUE.
    IF AB = NU OR AB = NE OR AB = NN OR AB = DB CONTINUE. *> expect: 3335:8-9 3335:19-20 3335 3335
    IF AB = EF OR AB = FL OR AB = PT OR AB = IX CONTINUE. *> expect: 3335 3335 3335 3335

    *> AN: all that is written in characters.
    IF AN = AB OR AN = AN OR AN = NU OR AN = AE OR AN = NE OR AN = NA CONTINUE.
    IF AN = NN OR AN = DB OR AN = EF OR AN = FL CONTINUE. *> expect: 3335 3335 3335 3335
    IF AN = PT OR AN = IX CONTINUE. *> expect: 3335 3335

    *> NU: numbers, and characters that can hold one.
    IF NU = AN OR NU = NU OR NU = NE OR NU = NA OR NU = EF OR NU = FL OR NU = IX CONTINUE.
    IF NU = AB OR NU = AE OR NU = NN OR NU = DB OR NU = PT CONTINUE. *> expect: 3335 3335 3335 3335 3335

    *> AE: not with another one.
    IF AE = AB OR AE = AN OR AE = NE CONTINUE.
    IF AE = AE OR AE = NU OR AE = NA OR AE = NN CONTINUE. *> expect: 3335 3335 3335 3335
    IF AE = DB OR AE = EF OR AE = FL OR AE = PT OR AE = IX CONTINUE. *> expect: 3335 3335 3335 3335 3335

    IF NE = AN OR NE = NU OR NE = AE OR NE = NE CONTINUE.
    IF NE = AB OR NE = NA OR NE = NN OR NE = DB CONTINUE. *> expect: 3335 3335 3335 3335
    IF NE = EF OR NE = FL OR NE = PT OR NE = IX CONTINUE. *> expect: 3335 3335 3335 3335

    IF NA = AB OR NA = AN OR NA = NU OR NA = NA OR NA = DB CONTINUE.
    IF NA = AE OR NA = NE OR NA = NN OR NA = EF CONTINUE. *> expect: 3335 3335 3335 3335
    IF NA = FL OR NA = PT OR NA = IX CONTINUE. *> expect: 3335 3335 3335

    *> NN: with nothing.
    IF NN = AB OR NN = AN OR NN = NU OR NN = AE CONTINUE. *> expect: 3335 3335 3335 3335
    IF NN = NE OR NN = NA OR NN = NN OR NN = DB CONTINUE. *> expect: 3335 3335 3335 3335
    IF NN = EF OR NN = FL OR NN = PT OR NN = IX CONTINUE. *> expect: 3335 3335 3335 3335

    IF DB = NA OR DB = DB CONTINUE.
    IF DB = AB OR DB = AN OR DB = NU OR DB = AE CONTINUE. *> expect: 3335 3335 3335 3335
    IF DB = NE OR DB = NN OR DB = EF OR DB = FL CONTINUE. *> expect: 3335 3335 3335 3335
    IF DB = PT OR DB = IX CONTINUE. *> expect: 3335 3335

    *> Floating point: numbers only.
    IF EF = NU OR EF = EF OR EF = FL OR FL = NU OR FL = EF OR FL = FL CONTINUE.
    IF EF = AB OR EF = AN OR EF = AE OR EF = NE CONTINUE. *> expect: 3335 3335 3335 3335
    IF EF = NA OR EF = NN OR EF = DB OR EF = PT OR EF = IX CONTINUE. *> expect: 3335 3335 3335 3335 3335
    IF FL = AB OR FL = AN OR FL = AE OR FL = NE CONTINUE. *> expect: 3335 3335 3335 3335
    IF FL = NA OR FL = NN OR FL = DB OR FL = PT OR FL = IX CONTINUE. *> expect: 3335 3335 3335 3335 3335

    *> IX: integers and indexes.
    IF IX = NU OR IX = IX CONTINUE.
    IF IX = AB OR IX = AN OR IX = AE OR IX = NE CONTINUE. *> expect: 3335 3335 3335 3335
    IF IX = NA OR IX = NN OR IX = DB OR IX = EF CONTINUE. *> expect: 3335 3335 3335 3335
    IF IX = FL OR IX = PT CONTINUE. *> expect: 3335 3335

    *> PT: pointers of its kind, for equality only.
    IF PT = AB OR PT = AN OR PT = NU OR PT = AE CONTINUE. *> expect: 3335 3335 3335 3335
    IF PT = NE OR PT = NA OR PT = NN OR PT = DB CONTINUE. *> expect: 3335 3335 3335 3335
    IF PT = EF OR PT = FL OR PT = IX CONTINUE. *> expect: 3335 3335 3335
    IF PT = PT-2 OR PT NOT = PT-2 OR PT = NULL OR ADDRESS OF GR NOT EQUAL PT CONTINUE.
    IF PP = NULL OR NULL = PT CONTINUE.
    IF PT > PT-2 OR PT <= NULL CONTINUE. *> expect: 3334:8-9 3334:21-22
    IF PT = PP OR PP NOT = PT CONTINUE. *> expect: 3335 3335
    IF PP < PT CONTINUE. *> expect: 3334 3335
    IF PT = ZERO CONTINUE. *> expect: 3335

    *> Groups are alphanumeric; literals and constants as what they hold.
    IF GR = AN OR GR = NE OR GR = GR OR GR = NA OR GR = 5 CONTINUE.
    IF GR = FL CONTINUE. *> expect: 3335
    IF AN = "A" OR AB = "A" OR AE = SPACE OR NE = "1" OR NA = N"A" OR NA = SPACE CONTINUE.
    IF NU = ZERO OR NU = "12" OR NU = 5.5 OR FL = 1.5E3 OR IX = 1 OR AN = 12 CONTINUE.
    IF DB = G"A" OR DB = NA CONTINUE.
    IF AB = ZERO OR AB = 5 CONTINUE. *> expect: 3335 3335
    IF FL = SPACE OR FL = "1" OR IX = "1" CONTINUE. *> expect: 3335 3335 3335
    IF DB = SPACE CONTINUE. *> expect: 3335
    IF AE = 5 OR AE = ZERO CONTINUE. *> expect: 3335 3335
    IF AN (1:2) = DB OR NA (1:1) = AN CONTINUE. *> expect: 3335

    *> The expression on either side is a number.
    IF NU + 1 = AN OR NU * 2 > FL + 1 CONTINUE.
    IF NU + 1 = AB CONTINUE. *> expect: 3335
    IF AN + 1 = NU CONTINUE. *> expect: 3322

    *> Both operands are checked, and their own faults are reported first.
    IF NOWHERE = NEITHER CONTINUE. *> expect: 3310:8-14 3310:18-24
    IF NOWHERE = AE CONTINUE. *> expect: 3310

    *> The objects that follow in an abbreviated relation are bound, but not compared.
    IF AB = AN OR NU OR NA CONTINUE.
    IF AB > AN AND < NOWHERE OR NEITHER CONTINUE. *> expect: 3310:22-28 3310:33-39
    IF NU = (5 OR 6) CONTINUE.
    IF NU = (NE OR > NOWHERE) CONTINUE. *> expect: 3310
    IF AB = (NU OR AB) CONTINUE. *> expect: 3335
    STOP RUN.
