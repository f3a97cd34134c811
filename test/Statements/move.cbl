*> RUN: %tarka check --verify %s
*>
*> What may be moved where. An illegal move is reported once for every category in the order
*> alphabetic, alphanumeric, numeric, numeric-edited, floating point, DBCS, national,
*> national-edited, from that of the sender on, until one of them has a rule for the receiver.
*> expect-pass: 3468
IDENTIFICATION DIVISION.
PROGRAM-ID. MOVES.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  AB                          PIC A(5).
77  AN                          PIC X(5).
77  DI                          PIC S9(5).
77  DD                          PIC S9(5)V99.
77  BI                          PIC S9(4) COMP.
77  B5                          PIC S9(4)V9 COMP-5.
77  PI                          PIC S9(5) COMP-3.
77  PD                          PIC S9(5)V99 PACKED-DECIMAL.
77  F1                          COMP-1.
77  F2                          COMP-2.
77  EF                          PIC +9.99E+99.
77  AE                          PIC XXBXX.
77  NE                          PIC ZZ9.99.
77  NA                          PIC N(5) NATIONAL.
77  NN                          PIC NNBNN NATIONAL.
77  DB                          PIC G(5) DISPLAY-1.
77  PT                          POINTER.
77  IX                          INDEX.
01  GR.
    05  GR-ITEM                 PIC 9(5) COMP.
01  GR-2.
    05  PIC N(5) NATIONAL.
PROCEDURE DIVISION.
    *> Alphabetic and alphanumeric-edited: characters and national. To a number the alphanumeric
    *> sender that comes next has a rule, to DBCS the DBCS one, to an index or pointer none.
    MOVE AB TO AB AN AE NA NN GR.
    MOVE AE TO AB AN AE NA NN GR.
    MOVE AB TO DI BI PD NE F1 EF. *> expect: 3468:16-17 3468:19-20 3468:22-23 3468:25-26 3468:28-29 3468:31-32
    MOVE AE TO DI BI PD NE F1 EF. *> expect: 3468 3468 3468 3468 3468 3468
    MOVE AB TO DB. *> expect: 3468 3468 3468 3468 3468
    MOVE AB TO PT. *> expect: 3468 3468 3468 3468 3468 3468 3468 3468
    MOVE AE TO IX. *> expect: 3468 3468 3468 3468 3468 3468 3468 3468

    *> Alphanumeric: everything but DBCS.
    MOVE AN TO AB AN AE DI DD BI B5 PI PD NE F1 F2 EF NA NN GR.
    MOVE AN TO DB. *> expect: 3468 3468 3468 3468
    MOVE AN TO PT. *> expect: 3468 3468 3468 3468 3468 3468 3468
    MOVE AN TO IX. *> expect: 3468 3468 3468 3468 3468 3468 3468

    *> Integers: all but letters alone and DBCS. To letters nothing from there on has a rule.
    MOVE DI TO AN AE DI DD BI B5 PI PD NE F1 F2 EF NA NN GR.
    MOVE BI TO AN AE DI DD BI B5 PI PD NE F1 F2 EF NA NN GR.
    MOVE PI TO AN AE DI DD BI B5 PI PD NE F1 F2 EF NA NN GR.
    MOVE DI TO AB. *> expect: 3468 3468 3468 3468 3468 3468
    MOVE BI TO DB. *> expect: 3468 3468 3468
    MOVE PI TO IX. *> expect: 3468 3468 3468 3468 3468 3468

    *> With decimal places: numbers. To characters and national the numeric-edited sender has a rule.
    MOVE DD TO DI DD BI B5 PI PD NE F1 F2 EF GR.
    MOVE B5 TO DI DD BI B5 PI PD NE F1 F2 EF GR.
    MOVE PD TO DI DD BI B5 PI PD NE F1 F2 EF GR.
    MOVE DD TO AN AE NA NN. *> expect: 3468 3468 3468 3468
    MOVE PD TO AB. *> expect: 3468 3468 3468 3468 3468 3468

    MOVE NE TO DI DD BI PD NE F1 EF AN AE NA NN GR.
    MOVE NE TO AB. *> expect: 3468 3468 3468 3468 3468
    MOVE NE TO DB. *> expect: 3468 3468

    *> Floating point: numbers. To characters it is the national sender that has a rule.
    MOVE F1 TO DI DD BI PD NE F2 EF GR.
    MOVE EF TO DI DD BI PD NE F1 EF GR.
    MOVE F1 TO AN. *> expect: 3468 3468
    MOVE EF TO AE. *> expect: 3468 3468
    MOVE F2 TO NA. *> expect: 3468
    MOVE F2 TO AB. *> expect: 3468 3468 3468 3468

    MOVE DB TO DB NA NN GR.
    MOVE DB TO AN. *> expect: 3468
    MOVE DB TO DI. *> expect: 3468
    MOVE DB TO AB. *> expect: 3468 3468 3468

    MOVE NA TO NA NN AN AE DI PD NE F1 EF GR.
    MOVE NA TO AB. *> expect: 3468 3468
    MOVE NA TO DB. *> expect: 3468 3468
    MOVE NN TO NA NN GR.
    MOVE NN TO AN. *> expect: 3468
    MOVE NN TO DI. *> expect: 3468

    *> Indexes and pointers are set, not moved: once.
    MOVE IX TO DI. *> expect: 3468:16-17
    MOVE PT TO AN. *> expect: 3468
    MOVE PT TO PT. *> expect: 3468
    MOVE NULL TO AN. *> expect: 3468

    *> Groups take and give everything.
    MOVE GR TO AB AN AE DI PD NE F1 NA NN DB GR GR-2.
    MOVE IX TO GR.
    MOVE GR TO IX PT.

    *> Literals: digits alone can become a number.
    MOVE "123" TO DI PD NE F1 AN AB.
    MOVE "12A" TO DI. *> expect: 3468
    MOVE "1.5" TO PD. *> expect: 3468
    MOVE "12A" TO NE AN GR.
    MOVE 12 TO AN AE DI PD NE F1 NA GR.
    MOVE 12 TO AB. *> expect: 3468 3468 3468 3468 3468 3468
    MOVE 1.5 TO DI PD NE F1.
    MOVE 1.5 TO AN. *> expect: 3468
    MOVE 1.5E3 TO PD F1.
    MOVE 1.5E3 TO AN. *> expect: 3468 3468
    MOVE N"A" TO NA NN AN.
    MOVE G"A" TO DB NA.
    MOVE G"A" TO AN. *> expect: 3468

    *> Figurative constants: characters, but for ZERO and ALL of digits.
    MOVE SPACES TO AB AN AE NE NA NN GR.
    MOVE ZERO TO AN AE DI PD NE F1 EF NA GR.
    MOVE SPACE TO DI. *> expect: 3468
    MOVE HIGH-VALUES TO BI. *> expect: 3468
    MOVE ALL "1" TO DI PD AN.
    MOVE SPACE TO F1. *> expect: 3468
    MOVE ALL "1" TO F2. *> expect: 3468
    MOVE QUOTE TO DB. *> expect: 3468 3468 3468 3468

    *> A part of an item is characters, and goes anywhere.
    MOVE AN (1:2) TO DI BI PD NE F1 AB NA DB GR.
    MOVE DI (1:2) TO AN AB.
    MOVE DI TO AN (1:2) DD (1:2).
    MOVE DD TO AN (1:2). *> expect: 3468

    *> A receiver after an error is still bound, but its move is not judged.
    MOVE AN TO NOWHERE DB NEITHER. *> expect: 3310:16-22 3310:27-33
    MOVE NOWHERE TO DB. *> expect: 3310
    MOVE DB TO FUNCTION ABS (DI) AN NOWHERE. *> expect: 3504 3310
    MOVE DB TO AN FUNCTION ABS (DI). *> expect: 3468 3504
    STOP RUN.
