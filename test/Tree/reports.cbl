      *> RUN: %tarka ast --enable-rw %s | FileCheck %s
      *> RUN: %tarka ast --enable-rw --format=json %s | %python -m json.tool | FileCheck --check-prefix=JSON %s
      *>
      *> The clauses of reports, and how the checks lay out the page.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. REPORTS.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT PAPER ASSIGN TO PRT.
       DATA DIVISION.
       FILE SECTION.
       FD  PAPER REPORT IS LIST-OF-STOCK.
       WORKING-STORAGE SECTION.
       01  ARTICLE PIC X(8).
       01  PLACE   PIC X(4).
       01  PIECES  PIC 9(4).
       REPORT SECTION.
       RD  LIST-OF-STOCK CONTROLS ARE FINAL PLACE
           PAGE LIMIT 60 LINES HEADING 1 FIRST DETAIL 5
           ALLOW NO SOURCE SUM CORR
           OVERFLOW PROCEDURE IS "*"
           STYLE IS BOLD UNDERLINE
           LINE LIMIT 132.
       01  PAGE-TOP TYPE CONTROL HEADING PLACE OR PAGE.
           05  LINE 1 COLUMN CENTER 60 PIC X(5) VALUE "STOCK".
       01  ROW TYPE DETAIL REPEATED 2 TIMES EVERY 40 COLUMNS
           MULTIPLE PAGES.
           05  LINE PLUS 1 WRAP AFTER COLUMN 30 TO COLUMN 5.
               10  COLUMN 1 PIC X(8) SOURCE ARTICLE STYLE HIGHLIGHT.
               10  COLUMN 10 PIC X(3) FUNCTION IS MYDATE (PIECES)
                   ABSENT AFTER PLACE OR PAGE.
               10  COLUMN 20 PIC S9(4) SIGN LEADING SEPARATE
                   SOURCE PIECES.
           05  LINES PLUS 1 1 VARYING ROW-NO FROM 2 BY 3.
               10  COLUMN 1 PIC 9 SOURCE ROW-NO.
       01  TYPE CONTROL FOOTING ALL GROUP LIMIT 50.
           05  LINE PLUS 1.
               10  COLUMN 1 PIC 9(5) COUNT OF ROW.
               10  COLUMN 9 PIC 9(5) SUM PIECES.
       PROCEDURE DIVISION.
       DECLARATIVES.
       D SECTION. USE BEFORE REPORTING ROW.
       D-1.
           SUPPRESS PRINTING.
       END DECLARATIVES.
       MAIN SECTION.
       M-1.
           STOP RUN.
      *> CHECK:      ReportDescription <19:8-24:25> name=LIST-OF-STOCK writtenTo=PAPER@13:8 styles=[BOLD, UNDERLINE] reportingProcedures=1 controlHeadings=[PAGE-TOP@25:8] details=[ROW@
      *> CHECK:      ClauseAllow <21:12-21:35> not
      *> CHECK:      lineLimit: {{.*}} value=132
      *> CHECK:      ClauseOverflow <22:12-22:36>
      *> CHECK-NEXT: NonNumericLiteralExpression {{.*}} value="*"
      *> CHECK:      ClauseType {{.*}} type=CONTROL HEADING orPage
      *> CHECK:      ClauseColumn {{.*}} alignment=CENTER
      *> CHECK:      ReportDataDescription {{.*}} name=ROW {{.*}} multiplePages reportingProcedure=1 lines=[FILLER@{{[0-9]+}}:12, FILLER@{{[0-9]+}}:12] counted=1
      *> CHECK:      ClauseRepeated
      *> CHECK-NEXT: times: {{.*}} value=2
      *> CHECK-NEXT: every: {{.*}} value=40
      *> CHECK:      ReportDataDescription {{.*}} lineItems=[FILLER@{{[0-9]+}}:16, FILLER@{{[0-9]+}}:16, FILLER@{{[0-9]+}}:16]
      *> CHECK:      ClauseWrap
      *> CHECK-NEXT: after: {{.*}} value=30
      *> CHECK-NEXT: to: {{.*}} value=5
      *> CHECK:      ReportDataDescription {{.*}} styles=[HIGHLIGHT]
      *> CHECK:      ClauseFunction {{.*}} name=MYDATE
      *> CHECK-NEXT: argument: {{.*}} name=PIECES
      *> CHECK:      ClausePresentAfter {{.*}} after=control OR PAGE absent
      *> CHECK-NEXT: control: {{.*}} name=PLACE
      *> CHECK:      picture=S9(4) digits=4 scale=0 sign=LEADING separateSign
      *> CHECK:      ReportDataDescription {{.*}} headBefore=FILLER@
      *> CHECK:      varying: VaryingPhrase {{.*}} name=ROW-NO
      *> CHECK-NEXT: from: {{.*}} value=2
      *> CHECK-NEXT: by: {{.*}} value=3
      *> CHECK:      ClauseType {{.*}} type=CONTROL FOOTING final all
      *> CHECK:      groupLimit: {{.*}} value=50
      *> CHECK:      ClauseCount
      *> CHECK-NEXT: CountClauseExpr
      *> CHECK-NEXT: {{.*}} boundTo=ROW@
      *> CHECK:      ClauseSum
      *> CHECK:      generated: DataDescription level=77 {{.*}} usage=PACKED-DECIMAL picture=S9(5) digits=5
      *> JSON:      "kind": "ReportDescription"
      *> JSON:      "styles": [
      *> JSON-NEXT:   "BOLD",
      *> JSON:      "details": [
      *> JSON-NEXT:   {
      *> JSON-NEXT:     "name": "ROW",
      *> JSON:      "multiplePages": true
      *> JSON:      "kind": "ClauseRepeated"
