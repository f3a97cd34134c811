*> RUN: %tarka check --verify %s
*>
*> ENTRY: its name, its place, its parameters.
IDENTIFICATION DIVISION.
PROGRAM-ID. ENTRIES.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  OWN                         PIC X.
01  OWN-GROUP.
    05  OWN-PART                PIC X.
LINKAGE SECTION.
01  GIVEN.
    05  GIVEN-PART              PIC X.
77  GIVEN-77                    PIC 9(4).
PROCEDURE DIVISION USING GIVEN.
START-1.
    ENTRY "FIRST-WAY" USING GIVEN GIVEN-77.
    ENTRY "SECOND-WAY".
    *> The parameters of a duplicate name are not checked.
    ENTRY "FIRST-WAY" USING OWN-PART. *> expect: 3460:11-21
    *> Case and blanks count.
    ENTRY "first-way".
    ENTRY "FIRST-WAY ".
    ENTRY "THIRD-WAY" USING GIVEN-PART. *> expect: 3001:29-38
    ENTRY "FOURTH-WAY" USING OWN. *> expect: 3001
    ENTRY "FIFTH-WAY" USING OWN-PART GIVEN. *> expect: 3001:29-36 3001:29-36
    ENTRY "SIXTH-WAY" USING MISSING GIVEN-PART. *> expect: 3310 3001
    ENTRY 5. *> expect: 3459
    GOBACK.

IDENTIFICATION DIVISION.
PROGRAM-ID. NESTED-ONE.
DATA DIVISION.
LINKAGE SECTION.
77  BACK                        PIC S9(4) COMP.
PROCEDURE DIVISION RETURNING BACK. *> expect: 3002
    *> The name counts although the statement is not allowed here.
    ENTRY "NESTED-WAY". *> expect: 3462:5-22 3461:5-22
    ENTRY "NESTED-WAY". *> expect: 3462 3461 3460
    GOBACK.
END PROGRAM NESTED-ONE.
END PROGRAM ENTRIES.
