*> One mistake, one message: what follows from it is counted and shown by --all.
*> RUN: not %tarka check --format=gcc %s 2>&1 | FileCheck %s --implicit-check-not="error:"
*> RUN: not %tarka check --all %s 2>&1 | grep -c " error " | FileCheck %s --check-prefix=ALL
*> A cause that is turned off hides nothing.
*> RUN: not %tarka check --off=43 %s 2>&1 | FileCheck %s --check-prefix=OFF
*> ALL: 12
*> OFF: error 3310 {{.*}}'MEMBER-A'
IDENTIFICATION DIVISION.
PROGRAM-ID. FOLLOWS.
DATA DIVISION.
WORKING-STORAGE SECTION.
*> The member that is not there declares what is undefined later.
*> CHECK: [[#@LINE+1]]:{{.*}}NOMEMBER was not found; {{.*}}; 2 names are probably undefined because of it: MEMBER-A, MEMBER-B
COPY NOMEMBER.
01  GOOD PIC 9(4).
01  GOOD-TEXT PIC A(4).
*> The front end cannot read the picture: what uses the item is not reported.
*> CHECK: [[#@LINE+1]]:{{.*}}error: a picture character-string contains no spaces
01  BROKEN PIC S9(8 8) COMP.
*> CHECK: [[#@LINE+1]]:{{.*}}error: Invalid Picture string
01  WRONG PIC Q(3).
    88  WRONG-YES VALUE "Y".
PROCEDURE DIVISION.
MAIN-1.
    MOVE MEMBER-A TO GOOD.
    MOVE MEMBER-A TO MEMBER-B.
    IF BROKEN = GOOD DISPLAY "1".
    MOVE WRONG TO GOOD.
*> What involves no wrong item is still an error, once where the checks say it twice.
*> CHECK: [[#@LINE+1]]:{{.*}}error: Invalid move operation
    MOVE GOOD-TEXT TO GOOD.
*> CHECK: [[#@LINE+1]]:{{.*}}error: Procedure name does not exist {{.*}}: 'NOWHERE'; used in 1 more place [3403]
    PERFORM NOWHERE.
    PERFORM NOWHERE.
*> What is misspelt is not in the missing member.
*> CHECK: [[#@LINE+1]]:{{.*}}error: Undefined identifier. {{.*}}: 'GOOD-TXET'; was GOOD-TEXT meant? [3310]
    DISPLAY GOOD-TXET.
*> Another statement of a line that the front end reports.
*> CHECK: [[#@LINE+2]]:{{.*}}error: a statement cannot begin with 'DISPLY'
*> CHECK: [[#@LINE+1]]:{{.*}}error: Invalid move operation: 'GOOD-TEXT' (PIC A(4)) to 'GOOD' (PIC 9(4)) [3468]
    DISPLY GOOD. MOVE GOOD-TEXT TO GOOD.
    GOBACK.
