*> RUN: %tarka check --verify %s
*>
*> RENAMES, and SIGN of groups and items.
IDENTIFICATION DIVISION.
PROGRAM-ID. RENAMING.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  COUNTER                     PIC 9.
01  RENAMED.
    05  A                       PIC X.
    05  B.
        10  B-1                 PIC X.
        10  B-2                 PIC X.
    05  C                       PIC X.
    05  ROWS                    OCCURS 2. *> expect: 3266
        10  CELLS               PIC X OCCURS 3. *> expect: 3266
    05  VARIABLE                PIC X *> expect: 3264 3264
                                OCCURS 1 TO 3 DEPENDING ON COUNTER.
    05  D                       PIC X.
    66  R-ONE                   RENAMES A.
    66  R-RANGE                 RENAMES A THRU C.
    66  R-INTO-GROUP            RENAMES A THROUGH B-1.
    66  R-BACKWARDS             RENAMES C THRU A. *> expect: 3262
    66  R-SAME                  RENAMES A THRU A. *> expect: 3263
    66  R-INSIDE                RENAMES B THRU B-2. *> expect: 3263
    66  R-VARIABLE              RENAMES A THRU D.
    66  R-VARIABLE-2            RENAMES C THRU D.
    66  R-CELL                  RENAMES CELLS. *> expect-pass
    66  R-UNKNOWN               RENAMES NO-SUCH-NAME. *> expect: 3310
    66  R-RENAMED               RENAMES R-ONE. *> expect@-10: 3265 *> expect-pass
01  RENAMED-RECORD. *> expect: 3265
    05  E                       PIC X.
    05  NOT-66                  RENAMES E. *> expect: 3261
    66  R-RECORD                RENAMES RENAMED-RECORD. *> expect-pass
01  SIGNS.
    05  S-RIGHT                 PIC S9(3) SIGN LEADING.
    05  S-SEPARATE              PIC S9(3) SIGN IS TRAILING SEPARATE CHARACTER.
    05  S-NATIONAL              PIC S9(3) NATIONAL SIGN LEADING.
    05  S-NATIONAL-SEPARATE     PIC S9 NATIONAL SIGN LEADING SEPARATE. *> expect: 3272 3269
    05  S-UNSIGNED              PIC 9(3) SIGN LEADING. *> expect: 3270 3269
    05  S-PACKED                PIC S9(3) COMP-3 SIGN LEADING. *> expect: 3271 3269
    05  S-NO-PICTURE            COMP-1 SIGN LEADING. *> expect: 3267 3269
01  SIGNED-GROUP                SIGN IS LEADING SEPARATE. *> expect-pass
    05  G-SIGNED                PIC S9(3).
    05  G-SUBGROUP.
        10  G-LEAF              PIC S9.
        10  G-TEXT              PIC X. *> expect: 3270
01  UNSIGNED-GROUP              SIGN IS TRAILING. *> expect: 3268
    05  U-NUMBER                PIC 9. *> expect: 3270
    05  U-TEXT                  PIC X. *> expect: 3270
*> An item with a clause of its own speaks for the group.
01  OWN-GROUP                   SIGN IS TRAILING. *> expect-pass
    05  O-NUMBER                PIC 9. *> expect: 3270
    05  O-OWN                   PIC S9 SIGN LEADING.
LINKAGE SECTION.
01  PASSED.
    05  P-1                     PIC X.
    05  P-2                     PIC X.
    66  P-BACKWARDS             RENAMES P-2 THRU P-1. *> expect: 3262
PROCEDURE DIVISION.
    GOBACK.
