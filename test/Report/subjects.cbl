*> RUN: not %tarka check %s --format=classic 2>&1 | FileCheck %s --implicit-check-not=error
*>
*> What a message names: both operands with what they are, and the name that was meant. A fault that
*> several checks find is reported once, two faults of one kind are two.
IDENTIFICATION DIVISION.
PROGRAM-ID. SUBJECTS.
ENVIRONMENT DIVISION.
CONFIGURATION SECTION.
SPECIAL-NAMES.
    ALPHABET BACKWARDS IS "Z" THRU "A"
    CLASS VOWEL IS "A" "E" "I" "O" "U"
*> CHECK: [[#@LINE+1]]:{{.*}}error 3116 : {{.*}}: "EU"{{$}}
    CURRENCY SIGN IS "EU" WITH PICTURE SYMBOL "U".
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT CODED ASSIGN TO CODED.
DATA DIVISION.
FILE SECTION.
*> CHECK: [[#@LINE+1]]:{{.*}}error 3102 : {{.*}}: 'BACKWARD'; was BACKWARDS meant?
FD  CODED CODE-SET IS BACKWARD.
01  CODED-RECORD PIC X(10).
WORKING-STORAGE SECTION.
01  PRICE PIC UU9.
*> CHECK: [[#@LINE+1]]:{{.*}}error 3293 : {{.*}}: 'AB' for 'COUNTER' (PIC 9(3)){{$}}
01  COUNTER PIC 9(3) VALUE 'AB'.
01  LETTERS PIC N(4).
*> CHECK: [[#@LINE+1]]:{{.*}}error 3295 : {{.*}}: 'NO-LETTERS' (a condition-name of LETTERS, PIC N(4) NATIONAL) and 'SPACES'
    88  NO-LETTERS VALUE SPACES.
*> CHECK: [[#@LINE+1]]:{{.*}}error 3294 : {{.*}} and "B"{{$}}
    88  FIRST-LETTERS VALUE N"A" THRU "B".
*> CHECK: [[#@LINE+1]]:{{.*}}error 3208 : {{.*}}: 'AMOUNTS' (a group)
01  AMOUNTS BLANK WHEN ZERO.
    05  AMOUNT PIC 9(3).
01  TEXTS SIGN LEADING SEPARATE.
*> CHECK: [[#@LINE+1]]:{{.*}}error 3270 : {{.*}}: 'TEXT-1' (PIC X(3))
    05  TEXT-1 PIC X(3).
    05  NUMBER-1 PIC S9(3).
    05  NUMBER-2 PIC 9(3).
01  STOCK.
*> CHECK: [[#@LINE+1]]:{{.*}}error 3312 : {{.*}}: 'SHELF OF STOCK-ITEM OF STOCK'{{$}}
    05  STOCK-ITEM OCCURS 5 ASCENDING KEY SHELF INDEXED BY I.
        10  ITEM-CODE PIC X(4).
    05  SHELF PIC X.
01  CUST-REC.
    05  CUST-NAME PIC X(20).
    05  STREET PIC X(20).
01  OTHER-REC.
    05  CUST-NAME PIC X(20).
    05  STREETS PIC X(20).
    05  DISTANCE PIC 9(3).
01  LEVELS.
    05  TOWN PIC X(20).
*> CHECK: [[#@LINE+1]]:{{.*}}error 3201 : {{.*}}: 'COUNTRY' (PIC X(20))
    055 COUNTRY PIC X(20).
01  STATE PIC X.
*> CHECK: [[#@LINE+1]]:{{.*}}error 3205 : {{.*}}: 'IS-OPEN' (a condition-name)
    88  IS-OPEN.
PROCEDURE DIVISION.
    MOVE ZERO TO PRICE COUNTER
*> CHECK: [[#@LINE+1]]:{{.*}}error 3312 : {{.*}}: 'CUST-NAME OF CUST-RCE'; was CUST-REC meant?
    MOVE CUST-NAME OF CUST-RCE TO STREET
*> CHECK: [[#@LINE+1]]:{{.*}}error 3312 : {{.*}}: 'STREETS OF CUST-REC'; was STREET meant?
    MOVE STREETS OF CUST-REC TO STREET
*> CHECK: [[#@LINE+1]]:{{.*}}error 3468 : {{.*}}: '1.5' to 'STREET' (PIC X(20))
    MOVE 1.5 TO STREET
*> CHECK: [[#@LINE+1]]:{{.*}}error 3337 : {{.*}}: 'VOWLE'; was VOWEL meant?
    IF STREET IS VOWLE MOVE "A" TO STREET.
    GOBACK.
