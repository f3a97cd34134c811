      *> RUN: %tarka check %s 2>&1 | FileCheck --allow-empty --implicit-check-not={{.}} %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID.    PAYRPT01.
       AUTHOR.        J HARGREAVES.
       INSTALLATION.  HEAD OFFICE.
       DATE-WRITTEN.  03/11/1987.
      ******************************************************************
      *  WEEKLY PAYROLL REGISTER.                                      *
      *  READS THE TIME CARD FILE IN DEPARTMENT AND EMPLOYEE ORDER,    *
      *  LOOKS UP THE RATE TABLE, COMPUTES GROSS, TAX AND NET PAY AND  *
      *  PRINTS THE REGISTER WITH DEPARTMENT AND FINAL TOTALS.         *
      ******************************************************************
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SOURCE-COMPUTER. IBM-370.
       OBJECT-COMPUTER. IBM-370.
       SPECIAL-NAMES.
           C01 IS TOP-OF-FORM
           UPSI-0 IS TEST-SWITCH
               ON STATUS IS TEST-RUN
               OFF STATUS IS LIVE-RUN
           CLASS VALID-GRADE IS "A" THRU "H".
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT TIME-CARDS ASSIGN TO UT-S-TIMECARD
               ORGANIZATION IS SEQUENTIAL
               ACCESS MODE IS SEQUENTIAL
               FILE STATUS IS WS-CARD-STATUS.
           SELECT RATE-FILE ASSIGN TO RATES
               ORGANIZATION IS INDEXED
               ACCESS MODE IS DYNAMIC
               RECORD KEY IS RT-KEY
               FILE STATUS IS WS-RATE-STATUS.
           SELECT REGISTER-FILE ASSIGN TO UT-S-REGISTER.
       DATA DIVISION.
       FILE SECTION.
       FD  TIME-CARDS
           LABEL RECORDS ARE STANDARD
           RECORDING MODE IS F
           BLOCK CONTAINS 0 RECORDS
           RECORD CONTAINS 80 CHARACTERS
           DATA RECORD IS TIME-CARD.
       01  TIME-CARD.
           05  TC-DEPT                 PIC X(4).
           05  TC-EMPLOYEE.
               10  TC-EMP-NO           PIC 9(6).
               10  TC-EMP-NAME         PIC X(25).
           05  TC-GRADE                PIC X.
               88  TC-SALARIED             VALUE "A" "B".
               88  TC-HOURLY               VALUES ARE "C" THRU "H".
           05  TC-HOURS                PIC 9(3)V9 OCCURS 7 TIMES.
           05  TC-ADJUSTMENT           PIC S9(5)V99
                                       SIGN IS TRAILING SEPARATE.
           05  FILLER                  PIC X(8).

       FD  RATE-FILE.
       01  RATE-RECORD.
           05  RT-KEY.
               10  RT-GRADE            PIC X.
               10  RT-STEP             PIC 99.
           05  RT-RATE                 PIC S9(3)V9(4) COMP-3.
           05  RT-EFFECTIVE            PIC 9(8).

       FD  REGISTER-FILE
           LABEL RECORDS ARE OMITTED
           RECORDING MODE IS F
           LINAGE IS 60 LINES
               WITH FOOTING AT 56
               LINES AT TOP 3
               LINES AT BOTTOM 3.
       01  PRINT-LINE                  PIC X(133).

       WORKING-STORAGE SECTION.
       77  WS-CARD-STATUS              PIC XX          VALUE SPACES.
       77  WS-RATE-STATUS              PIC XX          VALUE SPACES.
       77  WS-SUB                      PIC S9(4) COMP  VALUE ZERO.
       77  WS-PAGE-NO                  PIC S9(3) COMP-3 VALUE +0.
       01  WS-SWITCHES.
           05  WS-EOF-SW               PIC X           VALUE "N".
               88  END-OF-CARDS                        VALUE "Y".
           05  WS-RATES-SW             PIC X           VALUE "N".
               88  END-OF-RATES                        VALUE "Y"
                   FALSE "N".
       01  WS-RUN-DATE.
           05  WS-RUN-YY               PIC 99.
           05  WS-RUN-MM               PIC 99.
           05  WS-RUN-DD               PIC 99.
       01  WS-RUN-DATE-N REDEFINES WS-RUN-DATE
                                       PIC 9(6).
       01  RATE-TABLE.
           05  RATE-COUNT              PIC S9(4) COMP VALUE 0.
           05  RATE-ENTRY OCCURS 1 TO 200 TIMES
                   DEPENDING ON RATE-COUNT
                   ASCENDING KEY IS RE-GRADE RE-STEP
                   INDEXED BY RATE-IX.
               10  RE-GRADE            PIC X.
               10  RE-STEP             PIC 99.
               10  RE-RATE             PIC S9(3)V9(4) COMP-3.
       01  MONTH-NAMES.
           05  FILLER PIC X(9) VALUE "JANUARY".
           05  FILLER PIC X(9) VALUE "FEBRUARY".
           05  FILLER PIC X(9) VALUE "MARCH".
           05  FILLER PIC X(9) VALUE "APRIL".
           05  FILLER PIC X(9) VALUE "MAY".
           05  FILLER PIC X(9) VALUE "JUNE".
           05  FILLER PIC X(9) VALUE "JULY".
           05  FILLER PIC X(9) VALUE "AUGUST".
           05  FILLER PIC X(9) VALUE "SEPTEMBER".
           05  FILLER PIC X(9) VALUE "OCTOBER".
           05  FILLER PIC X(9) VALUE "NOVEMBER".
           05  FILLER PIC X(9) VALUE "DECEMBER".
       01  MONTH-TABLE REDEFINES MONTH-NAMES.
           05  MONTH-NAME              PIC X(9) OCCURS 12 TIMES.
       01  TAX-BANDS.
           05  TAX-BAND OCCURS 5 TIMES INDEXED BY TAX-IX.
               10  TAX-LIMIT           PIC S9(7)V99 COMP-3.
               10  TAX-PERCENT         PIC S9(3)V99 COMP-3.
       01  WS-PAY-FIELDS.
           05  WS-HOURS-TOTAL          PIC S9(5)V9     COMP-3.
           05  WS-OVERTIME             PIC S9(5)V9     COMP-3.
           05  WS-RATE                 PIC S9(3)V9(4)  COMP-3.
           05  WS-GROSS                PIC S9(7)V99    COMP-3.
           05  WS-TAX                  PIC S9(7)V99    COMP-3.
           05  WS-NET                  PIC S9(7)V99    COMP-3.
           05  WS-REMAINING            PIC S9(7)V99    COMP-3.
       01  WS-TOTALS COMP-3.
           05  DEPT-TOTALS.
               10  DT-GROSS            PIC S9(9)V99.
               10  DT-TAX              PIC S9(9)V99.
               10  DT-NET              PIC S9(9)V99.
               10  DT-COUNT            PIC S9(5).
           05  FINAL-TOTALS.
               10  FT-GROSS            PIC S9(9)V99.
               10  FT-TAX              PIC S9(9)V99.
               10  FT-NET              PIC S9(9)V99.
               10  FT-COUNT            PIC S9(5).
       01  WS-LAST-DEPT                PIC X(4) VALUE LOW-VALUES.
       01  HEADING-1.
           05  FILLER                  PIC X     VALUE SPACE.
           05  FILLER                  PIC X(20)
                                       VALUE "PAYROLL REGISTER".
           05  H1-MONTH                PIC X(9).
           05  FILLER                  PIC X     VALUE SPACE.
           05  H1-DATE                 PIC 99/99/99.
           05  FILLER                  PIC X(60) VALUE SPACES.
           05  FILLER                  PIC X(5)  VALUE "PAGE".
           05  H1-PAGE                 PIC ZZ9.
       01  DETAIL-LINE.
           05  FILLER                  PIC X.
           05  DL-DEPT                 PIC X(4)BB.
           05  DL-EMP-NO               PIC 9(6).
           05  FILLER                  PIC XX.
           05  DL-NAME                 PIC X(25).
           05  DL-HOURS                PIC ZZ,ZZ9.9.
           05  DL-RATE                 PIC ZZ9.9999.
           05  DL-GROSS                PIC $$,$$$,$$9.99-.
           05  DL-TAX                  PIC Z,ZZZ,ZZ9.99CR.
           05  DL-NET                  PIC **,***,**9.99.
           05  DL-NOTE                 PIC X(20).
       01  TOTAL-LINE.
           05  FILLER                  PIC X.
           05  TL-CAPTION              PIC X(30).
           05  TL-COUNT                PIC ZZ,ZZ9.
           05  TL-GROSS                PIC $$$$,$$$,$$9.99-.
           05  TL-TAX                  PIC $$$$,$$$,$$9.99-.
           05  TL-NET                  PIC $$$$,$$$,$$9.99-.

       PROCEDURE DIVISION.
       DECLARATIVES.
       CARD-ERROR SECTION.
           USE AFTER STANDARD ERROR PROCEDURE ON TIME-CARDS.
       CARD-ERROR-1.
           DISPLAY "I/O ERROR ON TIME CARDS, STATUS " WS-CARD-STATUS
               UPON CONSOLE.
           MOVE "Y" TO WS-EOF-SW.
       END DECLARATIVES.

       MAIN-LINE SECTION.
       0000-MAIN.
           PERFORM 1000-INITIALIZE THRU 1000-EXIT.
           PERFORM 2000-PROCESS-CARD THRU 2000-EXIT
               UNTIL END-OF-CARDS.
           PERFORM 3000-DEPT-BREAK THRU 3000-EXIT.
           PERFORM 4000-FINAL-TOTALS.
           PERFORM 9000-TERMINATE.
           STOP RUN.

       1000-INITIALIZE.
           ACCEPT WS-RUN-DATE-N FROM DATE.
           OPEN INPUT  TIME-CARDS
                       RATE-FILE
                OUTPUT REGISTER-FILE.
           IF WS-CARD-STATUS NOT = "00" AND NOT = "97"
               DISPLAY "OPEN FAILED " WS-CARD-STATUS
               MOVE 16 TO RETURN-CODE
               STOP RUN
           END-IF.
           INITIALIZE WS-TOTALS WS-PAY-FIELDS.
           PERFORM 1100-LOAD-TAX.
           PERFORM 1200-LOAD-RATES UNTIL END-OF-RATES
                                      OR RATE-COUNT = 200.
           IF RATE-COUNT IS ZERO
               GO TO 1000-EXIT.
           MOVE MONTH-NAME (WS-RUN-MM) TO H1-MONTH.
           PERFORM 5000-READ-CARD.
           PERFORM 6000-HEADINGS.
       1000-EXIT.
           EXIT.

       1100-LOAD-TAX.
           MOVE 100.00  TO TAX-LIMIT (1).
           MOVE 0       TO TAX-PERCENT (1).
           MOVE 500     TO TAX-LIMIT (2).
           MOVE 12.5    TO TAX-PERCENT (2).
           MOVE 1000.00 TO TAX-LIMIT (3).
           MOVE 22.5    TO TAX-PERCENT (3).
           MOVE 5000    TO TAX-LIMIT (4).
           MOVE 33.33   TO TAX-PERCENT (4).
           MOVE 9999999.99 TO TAX-LIMIT (5).
           MOVE 40      TO TAX-PERCENT (5).

       1200-LOAD-RATES.
           READ RATE-FILE NEXT RECORD
               AT END
                   SET END-OF-RATES TO TRUE
               NOT AT END
                   ADD 1 TO RATE-COUNT
                   SET RATE-IX TO RATE-COUNT
                   MOVE RT-GRADE TO RE-GRADE (RATE-IX)
                   MOVE RT-STEP  TO RE-STEP (RATE-IX)
                   MOVE RT-RATE  TO RE-RATE (RATE-IX)
           END-READ.

       2000-PROCESS-CARD.
           IF TC-DEPT NOT EQUAL TO WS-LAST-DEPT
               IF WS-LAST-DEPT NOT = LOW-VALUES
                   PERFORM 3000-DEPT-BREAK THRU 3000-EXIT
               END-IF
               MOVE TC-DEPT TO WS-LAST-DEPT
           END-IF.
           IF TC-GRADE IS NOT VALID-GRADE OR TC-EMP-NO NOT NUMERIC
               MOVE "BAD CARD" TO DL-NOTE
               GO TO 2000-NEXT
           END-IF.
           MOVE ZERO TO WS-HOURS-TOTAL WS-OVERTIME.
           PERFORM VARYING WS-SUB FROM 1 BY 1 UNTIL WS-SUB > 7
               ADD TC-HOURS (WS-SUB) TO WS-HOURS-TOTAL
           END-PERFORM.
           PERFORM 2100-FIND-RATE.
           EVALUATE TRUE ALSO WS-HOURS-TOTAL
               WHEN TC-SALARIED ALSO ANY
                   COMPUTE WS-GROSS ROUNDED = WS-RATE * 40
               WHEN TC-HOURLY ALSO 0 THRU 40
                   MULTIPLY WS-RATE BY WS-HOURS-TOTAL
                       GIVING WS-GROSS ROUNDED
               WHEN TC-HOURLY ALSO 40.1 THRU 168
                   SUBTRACT 40 FROM WS-HOURS-TOTAL GIVING WS-OVERTIME
                   COMPUTE WS-GROSS ROUNDED =
                       WS-RATE * (40 + WS-OVERTIME * 1.5)
                       ON SIZE ERROR
                           MOVE "PAY TOO LARGE" TO DL-NOTE
                   END-COMPUTE
               WHEN OTHER
                   MOVE ZERO TO WS-GROSS
                   MOVE "CHECK HOURS" TO DL-NOTE
           END-EVALUATE.
           ADD TC-ADJUSTMENT TO WS-GROSS.
           PERFORM 2200-COMPUTE-TAX.
           SUBTRACT WS-TAX FROM WS-GROSS GIVING WS-NET.
           ADD WS-GROSS TO DT-GROSS FT-GROSS.
           ADD WS-TAX   TO DT-TAX   FT-TAX.
           ADD WS-NET   TO DT-NET   FT-NET.
           ADD 1        TO DT-COUNT FT-COUNT.
       2000-NEXT.
           PERFORM 2300-PRINT-DETAIL.
           PERFORM 5000-READ-CARD.
       2000-EXIT.
           EXIT.

       2100-FIND-RATE.
           SET RATE-IX TO 1.
           SEARCH ALL RATE-ENTRY
               AT END
                   MOVE ZERO TO WS-RATE
                   MOVE "NO RATE" TO DL-NOTE
               WHEN RE-GRADE (RATE-IX) = TC-GRADE
                AND RE-STEP (RATE-IX) = 1
                   MOVE RE-RATE (RATE-IX) TO WS-RATE
           END-SEARCH.

       2200-COMPUTE-TAX.
           MOVE ZERO TO WS-TAX.
           MOVE WS-GROSS TO WS-REMAINING.
           SET TAX-IX TO 1.
           SEARCH TAX-BAND VARYING TAX-IX
               AT END
                   DISPLAY "NO TAX BAND FOR " TC-EMP-NO
               WHEN WS-REMAINING NOT > TAX-LIMIT (TAX-IX)
                   COMPUTE WS-TAX ROUNDED =
                       WS-REMAINING * TAX-PERCENT (TAX-IX) / 100
           END-SEARCH.
           IF WS-TAX NEGATIVE
               MOVE 0 TO WS-TAX.

       2300-PRINT-DETAIL.
           MOVE TC-DEPT        TO DL-DEPT.
           MOVE TC-EMP-NO      TO DL-EMP-NO.
           MOVE TC-EMP-NAME    TO DL-NAME.
           MOVE WS-HOURS-TOTAL TO DL-HOURS.
           MOVE WS-RATE        TO DL-RATE.
           MOVE WS-GROSS       TO DL-GROSS.
           MOVE WS-TAX         TO DL-TAX.
           MOVE WS-NET         TO DL-NET.
           WRITE PRINT-LINE FROM DETAIL-LINE
               AFTER ADVANCING 1 LINE
               AT END-OF-PAGE
                   PERFORM 6000-HEADINGS
           END-WRITE.
           MOVE SPACES TO DL-NOTE.

       3000-DEPT-BREAK.
           IF DT-COUNT = ZERO
               GO TO 3000-EXIT.
           STRING "DEPARTMENT " DELIMITED BY SIZE
                  WS-LAST-DEPT  DELIMITED BY SPACE
                  " TOTAL"      DELIMITED BY SIZE
               INTO TL-CAPTION
           END-STRING.
           MOVE DT-COUNT TO TL-COUNT.
           MOVE DT-GROSS TO TL-GROSS.
           MOVE DT-TAX   TO TL-TAX.
           MOVE DT-NET   TO TL-NET.
           WRITE PRINT-LINE FROM TOTAL-LINE AFTER ADVANCING 2 LINES.
           MOVE ZEROS TO DT-GROSS, DT-TAX, DT-NET, DT-COUNT.
       3000-EXIT.
           EXIT.

       4000-FINAL-TOTALS.
           MOVE "FINAL TOTAL" TO TL-CAPTION.
           MOVE FT-COUNT TO TL-COUNT.
           MOVE FT-GROSS TO TL-GROSS.
           MOVE FT-TAX   TO TL-TAX.
           MOVE FT-NET   TO TL-NET.
           WRITE PRINT-LINE FROM TOTAL-LINE AFTER ADVANCING 3.
           IF TEST-RUN
               DISPLAY "TEST RUN, LINAGE COUNTER IS " LINAGE-COUNTER.

       5000-READ-CARD.
           READ TIME-CARDS
               AT END SET END-OF-CARDS TO TRUE.

       6000-HEADINGS.
           ADD 1 TO WS-PAGE-NO.
           MOVE WS-PAGE-NO    TO H1-PAGE.
           MOVE WS-RUN-DATE-N TO H1-DATE.
           WRITE PRINT-LINE FROM HEADING-1
               AFTER ADVANCING PAGE.
           MOVE SPACES TO PRINT-LINE.
           WRITE PRINT-LINE AFTER ADVANCING 1.

       9000-TERMINATE.
           CLOSE TIME-CARDS RATE-FILE REGISTER-FILE.
           IF RETURN-CODE > 4 AND LIVE-RUN
               CALL "ABENDPGM" USING BY REFERENCE WS-CARD-STATUS
                   ON EXCEPTION DISPLAY "NO ABEND PROGRAM"
               END-CALL
           END-IF.
