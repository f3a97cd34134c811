*> A copybook that is not found may hold anything: the record of the entries behind it, the members
*> of the group before it, a header, the statements of a branch. Nothing is reported but the copybook.
*> RUN: not %tarka check --format=gcc %s 2>&1 | FileCheck %s --implicit-check-not="error:"
*> CHECK: error: the copybook SELECTS was not found
*> CHECK: error: the copybook FDENTRY was not found
*> CHECK: error: the copybook RECORD1 was not found
*> CHECK: error: the copybook GROUP1 was not found
*> CHECK: error: the copybook GROUP2 was not found
*> CHECK: error: the copybook CODES was not found
*> CHECK: error: the copybook COUNTS was not found
*> CHECK: error: the copybook TABLE1 was not found
*> CHECK: error: the copybook BRANCH was not found
IDENTIFICATION DIVISION.
PROGRAM-ID. MEMBERS.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
COPY SELECTS.
    SELECT LISTING ASSIGN TO LISTDD.
DATA DIVISION.
FILE SECTION.
COPY FDENTRY.
01  IN-RECORD PIC X(80).
FD  LISTING.
01  LINE-1 PIC X(80).
WORKING-STORAGE SECTION.
COPY RECORD1.
    05  IN-RECORD1 PIC X.
        88  IS-FIRST VALUE "F".
    05  MORE PIC 9.
01  TEXT-1 PIC X(5).
COPY GROUP1.
    05  IN-GROUP1 PIC 9(5).
01  NUMBERS COMP.
    05  ONE PIC 9(4).
COPY GROUP2.
    05  IN-GROUP2 PIC X(4).
    05  EDITED PIC ZZ9.
01  STATE PIC 9.
COPY CODES.
    88  IS-OPEN VALUE "OPEN".
01  COUNTERS COMP.
COPY COUNTS.
COPY TABLE1.
        10  CELL PIC 9.
PROCEDURE DIVISION.
MAIN-1.
    MOVE CELL (1 2) TO IN-GROUP1.
    IF IS-OPEN COPY BRANCH. ELSE MOVE 1 TO ONE.
    DISPLAY IN-GROUP2 EDITED TEXT-1 LINAGE-COUNTER.
    GOBACK.
END PROGRAM MEMBERS.
*> What is wrong in a record with a missing copybook, but not because of that, is still reported.
*> CHECK: error: the copybook PART1 was not found
IDENTIFICATION DIVISION.
PROGRAM-ID. OTHERS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  RECORD-2.
    05  KNOWN PIC X(5).
COPY PART1.
*> CHECK: [[#@LINE+1]]:{{.*}}error: Invalid Picture string
    05  WRONG PIC Q(3).
*> CHECK: [[#@LINE+1]]:{{.*}}error: The group item can not contain a PICTURE clause: 'OWNER'
    05  OWNER PIC X(4).
        10  MEMBER PIC X.
PROCEDURE DIVISION.
MAIN-1.
    DISPLAY KNOWN.
    GOBACK.
END PROGRAM OTHERS.
*> A reserved word as the name of a declaration is one mistake, however often it is used.
IDENTIFICATION DIVISION.
PROGRAM-ID. RESERVED.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
*> CHECK: [[#@LINE+1]]:{{.*}}error: a file-name is expected here, but TITLE is a reserved word
    SELECT TITLE ASSIGN TO TITLEDD.
DATA DIVISION.
FILE SECTION.
FD  TITLE.
01  TITLE-RECORD PIC X(80).
WORKING-STORAGE SECTION.
01  TOTALS.
*> CHECK: [[#@LINE+1]]:{{.*}}error: a data-name is expected here, but COUNT is a reserved word
    05  COUNT PIC 9(5).
PROCEDURE DIVISION.
MAIN-1.
    OPEN INPUT TITLE.
    READ TITLE.
    ADD 1 TO COUNT.
    IF COUNT = 5 MOVE COUNT TO TITLE-RECORD.
    CLOSE TITLE.
    GOBACK.
END PROGRAM RESERVED.
