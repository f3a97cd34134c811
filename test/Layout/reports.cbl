      *> The report section: lines and columns of paper, in text and in JSON.
      *> RUN: %tarka layout %s | FileCheck %s --strict-whitespace --check-prefix=TEXT
      *> RUN: %tarka layout --format=json %s > %t
      *> RUN: python3 -m json.tool %t > %t.tool
      *> RUN: FileCheck %s < %t
       IDENTIFICATION DIVISION.
       PROGRAM-ID. PAPER.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT PRINT-FILE ASSIGN TO PRT.
       DATA DIVISION.
       FILE SECTION.
       FD  PRINT-FILE REPORT IS SALES.
       WORKING-STORAGE SECTION.
       01  BRANCH PIC X(4).
       01  AMOUNT PIC S9(5)V99.
       01  SIZES.
           05  WEEK-SALES PIC 9(3) OCCURS 5.
           05  GAP PIC 9.
       REPORT SECTION.
       RD  SALES CONTROLS ARE FINAL BRANCH
           PAGE LIMIT IS 60 LINES HEADING 1 FIRST DETAIL 5
           LAST DETAIL 50 FOOTING 58.
      *> CHECK:      "reports": [
      *> CHECK:      "name": "SALES",
      *> CHECK:      "page": {
      *> CHECK-NEXT:   "lines": 60,
      *> CHECK-NEXT:   "heading": 1,
      *> CHECK-NEXT:   "firstDetail": 5,
      *> CHECK-NEXT:   "lastDetail": 50,
      *> CHECK-NEXT:   "footing": 58
       01  PAGE-TOP TYPE PAGE HEADING.
      *> CHECK:      "name": "PAGE-TOP",
      *> CHECK:      "type": "PAGE HEADING",
           05  LINE 1 NEXT PAGE.
               10  COL 1 PIC X(5) VALUE "SALES".
               10  COL + 2 PIC ZZ9 SOURCE PAGE-COUNTER.
      *> CHECK:      "column": {
      *> CHECK:      "relative": true
      *> CHECK:      "columns": [
      *> CHECK-NEXT: {
      *> CHECK-NEXT:   "first": 7,
      *> CHECK-NEXT:   "last": 9
               10  COLS RIGHT 20 30 PIC S9(4) SIGN TRAILING SEPARATE
                   SOURCES AMOUNT AMOUNT.
               10  COL + 1 VALUE "X".
           05  LINES 3 4.
               10  COL CENTER 40 PIC X(5) VALUES "ONE" "TWO".
       01  SALE TYPE DETAIL LINE PLUS 1.
           05  OCCURS 5 STEP 10 VARYING WEEK FROM 1.
               10  COL 1 PIC ZZ9 SOURCE WEEK-SALES (WEEK).
           05  COL + 1 PIC X SOURCE BRANCH GROUP INDICATE.
           05  COL GAP PIC X SOURCE BRANCH PRESENT WHEN AMOUNT > 0.
       01  TYPE CF ALL LINE PLUS 2.
      *> CHECK:      "final": true,
      *> CHECK-NEXT: "controls": [
      *> CHECK-NEXT:   "BRANCH"
           05  COL 60 PIC Z(5)9.99 SUM AMOUNT UPON SALE.
           05  COL 80 PIC ZZ9 COUNT OF SALE.
      *> TEXT:      REPORT SECTION
      *> TEXT-NEXT: Line  Item               On line      Columns  Description
      *> TEXT-NEXT:   22  RD SALES                                 lines of a page 60, heading from 1,
      *> TEXT-NEXT:                                                first detail from 5, last detail to 50, footing to 58
      *> TEXT-NEXT:   33  01 PAGE-TOP                              PAGE HEADING
      *> TEXT-NEXT:   36    05 FILLER    1 next page
      *> TEXT-NEXT:   37      10 FILLER                       1-5  PIC X(5), VALUE "SALES"
      *> TEXT-NEXT:   38      10 FILLER                       7-9  PIC ZZ9, SOURCE PAGE-COUNTER
      *> TEXT-NEXT:   45      10 FILLER               16-20 26-30  PIC S9(4), SOURCE AMOUNT AMOUNT
      *> TEXT-NEXT:   47      10 FILLER                        31  VALUE "X"
      *> TEXT-NEXT:   48    05 FILLER            3 4
      *> TEXT-NEXT:   49      10 FILLER                     38-42  PIC X(5), VALUE "ONE" "TWO"
      *> TEXT-NEXT:   50  01 SALE                 +1               DETAIL
      *> TEXT-NEXT:   51    05 FILLER                              OCCURS 5 STEP 10
      *> TEXT-NEXT:   52      10 FILLER                       1-3  PIC ZZ9, SOURCE WEEK-SALES
      *> TEXT-NEXT:   53    05 FILLER                          +1  PIC X, SOURCE BRANCH, GROUP INDICATE
      *> TEXT-NEXT:   54    05 FILLER                         GAP  PIC X, SOURCE BRANCH, conditional
      *> TEXT-NEXT:   55  01 FILLER               +2               CONTROL FOOTING FOR FINAL, BRANCH
      *> TEXT-NEXT:   59    05 FILLER                       60-68  PIC Z(5)9.99, SUM AMOUNT UPON SALE
      *> TEXT-NEXT:   60    05 FILLER                       80-82  PIC ZZ9, COUNT OF SALE
       PROCEDURE DIVISION.
           STOP RUN.
