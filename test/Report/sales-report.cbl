      *> RUN: %tarka check --enable-rw %s 2>&1 | FileCheck --allow-empty --implicit-check-not={{.}} %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID.    SALESRPT.
      ******************************************************************
      *  ANNUAL SALES REPORT BY REGION, BRANCH AND MONTH.              *
      *  EVERY CLAUSE OF THE REPORT WRITER THAT A REPORT CAN HAVE.     *
      ******************************************************************
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SPECIAL-NAMES.
           SYMBOLIC CHARACTERS STAR IS 43
           CONSOLE IS SYSTEM-CONSOLE.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT SALES-FILE ASSIGN TO SALES.
           SELECT PRINT-FILE ASSIGN TO PRT.
       DATA DIVISION.
       FILE SECTION.
       FD  SALES-FILE.
       01  SALES-RECORD.
           05  REGION                  PIC X(2).
           05  BRANCH                  PIC X(4).
           05  SALES-MONTH             PIC 9(2).
           05  SALESMAN                PIC X(20).
           05  AMOUNT                  PIC S9(7)V99 COMP-3.
           05  RETURNED                PIC S9(5)V99.
           05  GRADE                   PIC X.
               88  IS-NEW              VALUE "N".
           05  WEEKS                   PIC 9.
           05  WEEK-SALES              PIC 9(5) OCCURS 5 TIMES.
       FD  PRINT-FILE
           RECORD CONTAINS 133 CHARACTERS
           REPORTS ARE SALES-REPORT EXCEPTIONS.
       WORKING-STORAGE SECTION.
       77  END-SWITCH                  PIC X VALUE "N".
           88  END-OF-SALES            VALUE "Y".
       77  CODE-ITEM                   PIC X(2).
       77  LINES-OF-PAGE               PIC 99 VALUE 60.
       77  GAP                         PIC 9 VALUE 2.
       01  TOTALS.
           05  YEAR-TO-DATE            PIC S9(9)V99 COMP-3.
       REPORT SECTION.
       RD  SALES-REPORT IS GLOBAL
           WITH CODE IS CODE-ITEM
           CONTROLS ARE FINAL REGION OF SALES-RECORD BRANCH
           PAGE LIMITS ARE LINES-OF-PAGE LINES 132 COLUMNS
               HEADING 1
               FIRST DETAIL 6
               LAST CONTROL HEADING 50
               LAST DETAIL 54
               FOOTING 58
           LINE LIMIT IS 132.
       01  TITLE-PAGE TYPE IS REPORT HEADING NEXT GROUP NEXT PAGE.
           05  LINE 20 COLUMN CENTER 66 PIC X(30)
               VALUE "ANNUAL SALES".
           05  LINES ARE 22 23 24.
               10  COLUMN 50 PIC X(12)
                   VALUES ARE "HEAD OFFICE" "1 HIGH ST" "LEEDS".
       01  PAGE-TOP TYPE PH.
           05  LINE 1.
               10  COL 1               PIC X(12) VALUE "SALES REPORT".
               10  COL 40              VALUE "BY BRANCH".
               10  COL 60              PIC X(8) SOURCE CURRENT-DATE.
               10  COL 70              PIC X(8) SOURCE TIME-OF-DAY.
               10  COL 120             PIC X(5) VALUE "PAGE"
                                       USAGE DISPLAY.
               10  COL 126             PIC ZZ9 SOURCE PAGE-COUNTER.
           05  LINE 3 USAGE DISPLAY.
               10  COL 1               VALUE "SALESMAN".
               10  COLS 30 40 50 60 70 PIC X(6)
                   VALUES "WEEK 1" "WEEK 2" "WEEK 3" "WEEK 4" "WEEK 5".
           05  LINE PLUS 0.
               10  COL 1               PIC X(60) VALUE ALL "_".
           05  LINE + 1.
       01  REGION-HEAD TYPE CH REGION OF SALES-RECORD OR PAGE.
           05  LINE PLUS 2.
               10  COL 1               PIC X(7) VALUE "REGION".
               10  COL 9               PIC X(2) SOURCE REGION.
       01  TYPE CONTROL HEADING FOR BRANCH LINE PLUS 1.
           05  COL 3                   PIC X(4) SOURCE IS BRANCH.
       01  SALE TYPE IS DETAIL.
           05  LINE PLUS 1.
               10  COL 1 GROUP INDICATE PIC X(4) SOURCE BRANCH.
               10  COL + 2             PIC X(20) SOURCE SALESMAN
                                       JUSTIFIED RIGHT.
               10  OCCURS 0 TO 5 TIMES DEPENDING ON WEEKS STEP 10
                   VARYING WEEK-NO FROM 1 BY 1 WEEK-BACK FROM 5 BY -1.
                   15  WEEK-ITEM COL 30 PIC ZZ,ZZ9
                       SOURCE IS WEEK-SALES (WEEK-NO)
                       BLANK WHEN ZERO.
                   15  PIC 9(5) SOURCE WEEK-SALES (WEEK-BACK).
               10  AMOUNT-ITEM COL 90  PIC Z,ZZZ,ZZ9.99- SOURCE AMOUNT.
               10  COL 105             PIC ZZ,ZZ9.99
                   SOURCE AMOUNT - RETURNED ROUNDED.
               10  COL 118             PIC X(3) VALUE "NEW"
                   PRESENT WHEN IS-NEW AND AMOUNT > 0.
               10  COL 122             PIC X(8)
                   VALUE "NONE" WHEN AMOUNT = 0
                   VALUE STAR   WHEN AMOUNT > 50000
                   SOURCE SALESMAN WHEN OTHER.
           05  LINE PLUS GAP ABSENT WHEN RETURNED = ZERO.
               10  COL 90              PIC S9(5)
                                       SIGN TRAILING SEPARATE
                   SOURCE RETURNED.
               10  COL 99              PIC X(8) VALUE "RETURNED"
                   PRESENT AFTER NEW PAGE.
               10  COL 108             PIC X VALUE "*"
                   ABSENT AFTER BRANCH OR PAGE.
       01  COUNTED-ONLY TYPE DE.
       01  BRANCH-FOOT TYPE IS CONTROL FOOTING BRANCH
           NEXT GROUP PLUS 1.
           05  LINE PLUS 2.
               10  COL 1               PIC X(6) VALUE "BRANCH".
               10  BRANCH-SALES COL 70 PIC ZZ9 COUNT OF SALE.
               10  BRANCH-TOTAL COL 88 PIC ZZ,ZZZ,ZZ9.99-
                   SUM AMOUNT UPON SALE.
               10  PIC S9(9)V99 SUM RETURNED.
       01  TYPE CF REGION OF SALES-RECORD GROUP LIMIT 55.
           05  LINE PLUS 1.
               10  COL 1               PIC X(6) VALUE "REGION".
               10  REGION-TOTAL COL 86 PIC ZZZ,ZZZ,ZZ9.99-
                   SUM OF BRANCH-TOTAL.
               10  COL 110             PIC ZZZ,ZZZ,ZZ9.99-
                   SUM AMOUNT UPON SALE OF SALES-REPORT
                   RESET ON FINAL.
       01  TYPE CONTROL FOOTING ALL.
           05  LINE PLUS 1 COL 1 PIC X(20) VALUE ALL "-".
       01  LAST-TOTAL TYPE CF FINAL.
           05  LINE PLUS 3.
               10  COL 1               PIC X(5) VALUE "TOTAL".
               10  GRAND-TOTAL COL 84  PIC Z,ZZZ,ZZZ,ZZ9.99-
                   SUM REGION-TOTAL SUM AMOUNT UPON COUNTED-ONLY
                   ROUNDED.
               10  COL 110             PIC 9(5) COUNT SALE COUNTED-ONLY.
       01  TYPE PAGE FOOTING.
           05  LINE 60.
               10  COL RIGHT 132       PIC ZZ9 SOURCE LINE-COUNTER.
       01  TYPE RF LINE NEXT PAGE.
           05  COL 1                   PIC X(13) VALUE "END OF REPORT".
       RD  EXCEPTIONS
           CODE IS SYSTEM-CONSOLE
           CONTROL IS BRANCH.
      *> One control needs no name, and a name of the other report is
      *> no reason to qualify one's own.
       01  SALE TYPE DE LINE PLUS 1.
           05  COL 1                   PIC X(20) SOURCE SALESMAN.
           05  COL 30                  PIC Z(6)9.99 SOURCE AMOUNT.
       01  TYPE CF LINE PLUS 1.
           05  COL 30                  PIC Z(6)9.99
                                       SUM AMOUNT UPON SALE.
           05  COL 50                  PIC ZZ9 COUNT OF SALE.
       PROCEDURE DIVISION.
       DECLARATIVES.
       BEFORE-BRANCH SECTION.
           USE BEFORE REPORTING BRANCH-FOOT.
       BEFORE-BRANCH-1.
           IF BRANCH-TOTAL = 0
               SUPPRESS PRINTING
           END-IF.
           ADD BRANCH-TOTAL TO YEAR-TO-DATE.
           IF LINE-COUNTER > 40
               MOVE 1 TO PRINT-SWITCH.
       BEFORE-TITLE SECTION.
           USE BEFORE REPORTING TITLE-PAGE.
       BEFORE-TITLE-1.
           SUPPRESS.
       END DECLARATIVES.
       MAIN-LINE SECTION.
       MAIN-1.
           OPEN INPUT SALES-FILE OUTPUT PRINT-FILE.
           INITIATE SALES-REPORT EXCEPTIONS.
           PERFORM UNTIL END-OF-SALES
               READ SALES-FILE
                   AT END
                       SET END-OF-SALES TO TRUE
                   NOT AT END
                       GENERATE SALE OF SALES-REPORT
                       IF AMOUNT < 0
                           GENERATE SALE OF EXCEPTIONS
                       END-IF
               END-READ
           END-PERFORM.
           GENERATE COUNTED-ONLY.
           GENERATE SALES-REPORT.
           MOVE 1 TO PAGE-COUNTER OF SALES-REPORT.
           DISPLAY LINE-COUNTER IN EXCEPTIONS.
           TERMINATE SALES-REPORT, EXCEPTIONS.
           CLOSE SALES-FILE PRINT-FILE.
           STOP RUN.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. CORRECTION.
       PROCEDURE DIVISION.
      *> The groups of a GLOBAL report are known here as well.
       CORRECTION-1.
           GENERATE COUNTED-ONLY.
           GENERATE SALE OF SALES-REPORT.
           ADD GRAND-TOTAL OF SALES-REPORT TO PRINT-SWITCH.
           IF LINE-COUNTER > 50
               ADD 1 TO PAGE-COUNTER OF SALES-REPORT.
           TERMINATE SALES-REPORT.
           GOBACK.
       END PROGRAM CORRECTION.
       END PROGRAM SALESRPT.
