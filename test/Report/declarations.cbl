*> One wrong declaration, one message, whatever refers to it.
*> RUN: not %tarka check --format=gcc %s 2>&1 | FileCheck %s --implicit-check-not="error:"
*> RUN: not %tarka check --format=json %s | %python -c "import json, sys; print([one['line'] for d in json.load(sys.stdin)['diagnostics'] if d.get('subject') == 'CUST-NAME' for one in d['furtherPlaces']])" | FileCheck %s --check-prefix=JSON
*> JSON: [50, 50]
IDENTIFICATION DIVISION.
PROGRAM-ID. ONCE.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
*> The SELECT or the FD is misspelt; the file is reported where the two are compared.
    SELECT ORDER-FILE ASSIGN TO ORDERS.
    SELECT STOCK ASSIGN TO STOCK
        ORGANIZATION IS INDEXED ACCESS IS DYNAMIC
*> CHECK-DAG: [[#@LINE+1]]:{{.*}}error: {{.*}}, but KEY
        RECORD IS KEY STOCK-KEY.
DATA DIVISION.
FILE SECTION.
*> CHECK-DAG: [[#@LINE+1]]:{{.*}}error: The File name must be specified the same as in the SELECT clause {{.*}}: 'ORDRE-FILE'
FD  ORDRE-FILE.
01  ORDER-RECORD PIC X(80).
FD  STOCK.
01  STOCK-RECORD.
    05 STOCK-KEY PIC X(8).
WORKING-STORAGE SECTION.
01  CUST-NMAE PIC X(9).
*> A level number that is missing leaves a group empty and an item without its table.
01  RATES.
    05 RATE-ROW OCCURS 3.
*> CHECK-DAG: [[#@LINE+1]]:{{.*}}error: a level number is expected here
       RATE PIC 9(3).
01  NUM PIC 9(3).
*> CHECK-DAG: [[#@LINE+1]]:{{.*}}error: Invalid PICTURE string: 'COUNTER' (PIC 9(3)B(
01  COUNTER PIC 9(3)B(.
*> CHECK-DAG: [[#@LINE+1]]:{{.*}}error: a condition-name is expected here
    88 VALUE 5.
01  LIST-1.
    05 ELEMENT PIC X OCCURS 1 TO 9 DEPENDING ON COUNTER.
PROCEDURE DIVISION.
MAIN-1.
    OPEN INPUT ORDER-FILE.
    READ ORDER-FILE.
    READ STOCK KEY IS STOCK-KEY.
    MOVE RATE (1) TO NUM.
    MOVE COUNTER TO NUM.
    IF COUNTER = NUM DISPLAY "EQUAL".
    ADD COUNTER TO NUM.
    IF NO-NAME-ANYWHERE DISPLAY "LOST".
*> CHECK-DAG: [[#@LINE+1]]:{{.*}}error: Undefined identifier. {{.*}}: 'CUST-NAME'; was CUST-NMAE meant?; used in 2 more places [3310]
    MOVE "X" TO CUST-NAME.
    MOVE CUST-NAME TO CUST-NAME.
*> CHECK-DAG: [[#@LINE+1]]:{{.*}}error: Undefined identifier. {{.*}}: 'TURE' [3310]
    EVALUATE TURE
    WHEN NUM = 1 DISPLAY "ONE"
    WHEN NUM = 2 DISPLAY "TWO"
    END-EVALUATE.
    GOBACK.
