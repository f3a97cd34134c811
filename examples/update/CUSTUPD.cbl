       IDENTIFICATION DIVISION.
       PROGRAM-ID.    CUSTUPD.
       AUTHOR.        ACCOUNTS RECEIVABLE.
       DATE-WRITTEN.  MARCH 1994.
      *----------------------------------------------------------------*
      * DAILY UPDATE OF THE CUSTOMER MASTER.                           *
      *   OLDMAST  THE MASTER OF YESTERDAY, IN ORDER OF REGION, NUMBER *
      *   TRANS    THE TRANSACTIONS OF THE DAY IN THE SAME ORDER       *
      *   NEWMAST  THE MASTER OF TODAY                                 *
      *   REPORT   WHAT WAS POSTED, WITH TOTALS BY CUSTOMER AND REGION *
      *----------------------------------------------------------------*
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SOURCE-COMPUTER. IBM-370.
       OBJECT-COMPUTER. IBM-370.
       SPECIAL-NAMES.
           C01 IS TOP-OF-FORM.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT OLD-MASTER   ASSIGN TO UT-S-OLDMAST
                               FILE STATUS IS WS-OLD-STATUS.
           SELECT TRANSACTIONS ASSIGN TO UT-S-TRANS
                               FILE STATUS IS WS-TRAN-STATUS.
           SELECT NEW-MASTER   ASSIGN TO UT-S-NEWMAST
                               FILE STATUS IS WS-NEW-STATUS.
           SELECT REPORT-FILE  ASSIGN TO UT-S-REPORT.
       DATA DIVISION.
       FILE SECTION.
       FD  OLD-MASTER
           RECORDING MODE IS F
           BLOCK CONTAINS 0 RECORDS
           LABEL RECORDS ARE STANDARD.
       COPY CUSTREC REPLACING ==:TAG:== BY ==OLD==.
       FD  TRANSACTIONS
           RECORDING MODE IS F
           BLOCK CONTAINS 0 RECORDS
           LABEL RECORDS ARE STANDARD.
       COPY TRANREC.
       FD  NEW-MASTER
           RECORDING MODE IS F
           BLOCK CONTAINS 0 RECORDS
           LABEL RECORDS ARE STANDARD.
       COPY CUSTREC REPLACING ==:TAG:== BY ==NEW==.
       FD  REPORT-FILE
           RECORDING MODE IS F
           LABEL RECORDS ARE STANDARD.
       01  REPORT-LINE                     PIC X(133).

       WORKING-STORAGE SECTION.
       01  WS-FILE-STATUS.
           05  WS-OLD-STATUS               PIC X(02) VALUE SPACES.
           05  WS-TRAN-STATUS              PIC X(02) VALUE SPACES.
           05  WS-NEW-STATUS               PIC X(02) VALUE SPACES.

       01  WS-SWITCHES.
           05  WS-OLD-SW                   PIC X(01) VALUE 'N'.
               88  OLD-AT-END              VALUE 'Y'.
           05  WS-TRAN-SW                  PIC X(01) VALUE 'N'.
               88  TRAN-AT-END             VALUE 'Y'.

       01  WS-KEYS.
           05  WS-LAST-REGION              PIC X(03) VALUE LOW-VALUES.
           05  WS-LAST-NUMBER              PIC 9(07) VALUE ZERO.

       01  WS-TOTALS.
           05  WS-CUSTOMER-TOTAL           PIC S9(09)V99 COMP-3
                                           VALUE ZERO.
           05  WS-REGION-TOTAL             PIC S9(09)V99 COMP-3
                                           VALUE ZERO.
           05  WS-GRAND-TOTAL              PIC S9(11)V99 COMP-3
                                           VALUE ZERO.

       01  WS-COUNTERS                     COMP.
           05  WS-READ-COUNT               PIC S9(08) VALUE ZERO.
           05  WS-WRITE-COUNT              PIC S9(08) VALUE ZERO.
           05  WS-REJECT-COUNT             PIC S9(08) VALUE ZERO.
           05  WS-LINE-COUNT               PIC S9(04) VALUE 99.
           05  WS-PAGE-COUNT               PIC S9(04) VALUE ZERO.

       01  WS-HEADING.
           05  FILLER                      PIC X(01) VALUE SPACE.
           05  FILLER                      PIC X(40)
               VALUE 'CUSTOMER MASTER UPDATE'.
           05  FILLER                      PIC X(05) VALUE 'PAGE '.
           05  WH-PAGE                     PIC ZZ9.

       01  WS-DETAIL.
           05  FILLER                      PIC X(01) VALUE SPACE.
           05  WD-REGION                   PIC X(03).
           05  FILLER                      PIC X(02) VALUE SPACES.
           05  WD-NUMBER                   PIC 9(07).
           05  FILLER                      PIC X(02) VALUE SPACES.
           05  WD-TEXT                     PIC X(30).
           05  WD-AMOUNT                   PIC Z,ZZZ,ZZZ,ZZ9.99-.

       PROCEDURE DIVISION.
       DECLARATIVES.
       OLD-MASTER-ERROR SECTION.
           USE AFTER STANDARD ERROR PROCEDURE ON OLD-MASTER.
       OLD-MASTER-ERROR-1.
           DISPLAY 'OLD MASTER CANNOT BE READ, STATUS ' WS-OLD-STATUS.
           MOVE 16 TO RETURN-CODE.
           SET OLD-AT-END TO TRUE.
       END DECLARATIVES.

       MAIN-LINE SECTION.
       0000-MAIN.
           PERFORM 1000-INITIALIZE THRU 1000-EXIT.
           PERFORM 2000-PROCESS-CUSTOMER THRU 2000-EXIT
               UNTIL OLD-AT-END.
           PERFORM 3000-REMAINING-TRANS
               UNTIL TRAN-AT-END.
           PERFORM 8000-FINISH THRU 8000-EXIT.
           STOP RUN.

       1000-INITIALIZE.
           OPEN INPUT  OLD-MASTER
                       TRANSACTIONS
                OUTPUT NEW-MASTER
                       REPORT-FILE.
           IF WS-TRAN-STATUS NOT = '00'
               DISPLAY 'TRANSACTIONS CANNOT BE OPENED, STATUS '
                       WS-TRAN-STATUS
               MOVE 16 TO RETURN-CODE
               GO TO 1000-EXIT.
           PERFORM 7000-READ-OLD.
           PERFORM 7100-READ-TRAN.
           IF NOT OLD-AT-END
               MOVE OLD-REGION TO WS-LAST-REGION
               MOVE OLD-NUMBER TO WS-LAST-NUMBER.
       1000-EXIT.
           EXIT.

      *----------------------------------------------------------------*
      * ONE CUSTOMER: REGION BREAK, TRANSACTIONS, NEW RECORD           *
      *----------------------------------------------------------------*
       2000-PROCESS-CUSTOMER.
           IF OLD-REGION NOT = WS-LAST-REGION
               PERFORM 4000-REGION-BREAK.
           MOVE OLD-RECORD TO NEW-RECORD.
           MOVE ZERO TO WS-CUSTOMER-TOTAL.
           MOVE OLD-NUMBER TO WS-LAST-NUMBER.
           PERFORM 3000-REMAINING-TRANS
               UNTIL TRAN-AT-END OR TRAN-KEY NOT < OLD-KEY.
           PERFORM 2100-POST-TRANSACTION THRU 2100-EXIT
               UNTIL TRAN-AT-END OR TRAN-KEY NOT = OLD-KEY.
           IF WS-CUSTOMER-TOTAL NOT = ZERO
               PERFORM 5000-CUSTOMER-TOTAL.
           WRITE NEW-RECORD.
           IF WS-NEW-STATUS NOT = '00'
               DISPLAY 'NEW MASTER CANNOT BE WRITTEN, STATUS '
                       WS-NEW-STATUS
               MOVE 16 TO RETURN-CODE
               SET OLD-AT-END TRAN-AT-END TO TRUE
               GO TO 2000-EXIT.
           ADD 1 TO WS-WRITE-COUNT.
           PERFORM 7000-READ-OLD.
       2000-EXIT.
           EXIT.

       2100-POST-TRANSACTION.
           IF NOT TRAN-IS-KNOWN
               PERFORM 6000-REJECT
               GO TO 2100-NEXT.
           IF NEW-CLOSED OR (NEW-ON-HOLD AND TRAN-IS-INVOICE)
               PERFORM 6000-REJECT
               GO TO 2100-NEXT.
           EVALUATE TRUE
               WHEN TRAN-IS-INVOICE
                   ADD TRAN-AMOUNT TO NEW-BALANCE
                       ON SIZE ERROR
                           PERFORM 6000-REJECT
                       NOT ON SIZE ERROR
                           ADD TRAN-AMOUNT TO WS-CUSTOMER-TOTAL
                               WS-REGION-TOTAL WS-GRAND-TOTAL
                           END-ADD
                   END-ADD
                   IF NEW-BALANCE > NEW-CREDIT-LIMIT
                       SET NEW-ON-HOLD TO TRUE
                   END-IF
               WHEN TRAN-IS-PAYMENT
                   SUBTRACT TRAN-AMOUNT FROM NEW-BALANCE
                   SUBTRACT TRAN-AMOUNT FROM WS-CUSTOMER-TOTAL
                                             WS-REGION-TOTAL
                                             WS-GRAND-TOTAL
                   MOVE TRAN-YEAR  TO NEW-PAID-YEAR
                   MOVE TRAN-MONTH TO NEW-PAID-MONTH
                   MOVE TRAN-DAY   TO NEW-PAID-DAY
               WHEN TRAN-IS-HOLD
                   SET NEW-ON-HOLD TO TRUE
               WHEN OTHER
                   SET NEW-ACTIVE TO TRUE
           END-EVALUATE.
       2100-NEXT.
           PERFORM 7100-READ-TRAN.
       2100-EXIT.
           EXIT.

       3000-REMAINING-TRANS.
           PERFORM 6000-REJECT.
           PERFORM 7100-READ-TRAN.

       4000-REGION-BREAK.
           MOVE WS-LAST-REGION     TO WD-REGION.
           MOVE ZERO               TO WD-NUMBER.
           MOVE 'TOTAL OF THE REGION' TO WD-TEXT.
           MOVE WS-REGION-TOTAL    TO WD-AMOUNT.
           PERFORM 7200-PRINT-DETAIL.
           MOVE ZERO               TO WS-REGION-TOTAL.
           MOVE OLD-REGION         TO WS-LAST-REGION.

       5000-CUSTOMER-TOTAL.
           MOVE OLD-REGION         TO WD-REGION.
           MOVE OLD-NUMBER         TO WD-NUMBER.
           MOVE OLD-NAME           TO WD-TEXT.
           MOVE WS-CUSTOMER-TOTAL  TO WD-AMOUNT.
           PERFORM 7200-PRINT-DETAIL.

       6000-REJECT.
           ADD 1 TO WS-REJECT-COUNT.
           MOVE TRAN-REGION        TO WD-REGION.
           MOVE TRAN-NUMBER        TO WD-NUMBER.
           MOVE 'REJECTED'         TO WD-TEXT.
           MOVE TRAN-AMOUNT        TO WD-AMOUNT.
           PERFORM 7200-PRINT-DETAIL.

       7000-READ-OLD.
           READ OLD-MASTER
               AT END SET OLD-AT-END TO TRUE.
           IF NOT OLD-AT-END
               ADD 1 TO WS-READ-COUNT.

       7100-READ-TRAN.
           READ TRANSACTIONS
               AT END
                   SET TRAN-AT-END TO TRUE
                   MOVE HIGH-VALUES TO TRAN-KEY.

       7200-PRINT-DETAIL.
           IF WS-LINE-COUNT > 55
               ADD 1 TO WS-PAGE-COUNT
               MOVE WS-PAGE-COUNT TO WH-PAGE
               WRITE REPORT-LINE FROM WS-HEADING
                   AFTER ADVANCING TOP-OF-FORM
               MOVE ZERO TO WS-LINE-COUNT.
           WRITE REPORT-LINE FROM WS-DETAIL
               AFTER ADVANCING 1 LINE.
           ADD 1 TO WS-LINE-COUNT.

       8000-FINISH.
           PERFORM 4000-REGION-BREAK.
           MOVE SPACES             TO WD-REGION.
           MOVE 'GRAND TOTAL'      TO WD-TEXT.
           MOVE WS-GRAND-TOTAL     TO WD-AMOUNT.
           PERFORM 7200-PRINT-DETAIL.
           CLOSE OLD-MASTER TRANSACTIONS NEW-MASTER REPORT-FILE.
           DISPLAY 'READ ' WS-READ-COUNT ' WRITTEN ' WS-WRITE-COUNT
                   ' REJECTED ' WS-REJECT-COUNT.
       8000-EXIT.
           EXIT.
