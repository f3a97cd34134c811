       IDENTIFICATION DIVISION.
       PROGRAM-ID. PREMIUMX.
      *----------------------------------------------------------------*
      * ANNUAL PREMIUM OF A LIFE POLICY, WITH MISTAKES IN IT. EACH     *
      * COMMENT SAYS WHAT THE NEXT LINE IS REPORTED FOR.               *
      *   CALL 'PREMIUM' USING POLICY RESULT                           *
      * RATES ARE LOOKED UP BY AGE AND RISK CLASS; LOADINGS ARE ADDED  *
      * FOR EACH RIDER; THE RESULT IS ROUNDED TO CENTS AND SPLIT INTO  *
      * INSTALMENTS.                                                   *
      *----------------------------------------------------------------*
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SPECIAL-NAMES.
           UPSI-0 IS TRACE-SWITCH
               ON STATUS IS TRACE-WANTED
               OFF STATUS IS TRACE-NOT-WANTED
           CLASS RIDER-LETTER IS 'A' THRU 'H'.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       COPY RATETAB.

       01  CLASS-NAMES.
           05  FILLER                  PIC X(11) VALUE 'NNON-SMOKER'.
           05  FILLER                  PIC X(11) VALUE 'SSMOKER    '.
           05  FILLER                  PIC X(11) VALUE 'HHAZARDOUS '.
       01  CLASS-TABLE REDEFINES CLASS-NAMES.
           05  CLASS-ROW               OCCURS 3 TIMES
                                       INDEXED BY NAME-IX.
               10  CLASS-LETTER        PIC X(01).
               10  CLASS-TEXT          PIC X(10).

       01  RIDER-LOADINGS.
           05  RIDER-LOADING           PIC 9V9(04) COMP-3
                                       OCCURS 8 TIMES.

       01  WORK-AREA.
           05  RATE-FOUND              PIC 9(02)V9(02).
           05  LOADING-TOTAL           PIC 9(02)V9(04) COMP-3.
           05  BASE-PREMIUM            PIC S9(09)V9(04) COMP-3.
           05  RIDER-NUMBER            PIC S9(04) COMP.
      *> expect@+1: 3244:12-54
           05  INSTALMENT-NUMBER       PIC S9(33) COMP.
           05  REMAINING-AMOUNT        PIC S9(09)V99 COMP-3.
           05  FIRST-CALL-SW           PIC X(01) VALUE 'Y'.
               88  FIRST-CALL          VALUE 'Y'.

       LINKAGE SECTION.
       01  POLICY.
           05  POLICY-NUMBER           PIC X(12).
           05  INSURED-AGE             PIC 9(03).
           05  INSURED-CLASS           PIC X(01).
           05  SUM-INSURED             PIC S9(09)V99 COMP-3.
           05  RIDER-COUNT             PIC 9(02).
           05  INSTALMENTS             PIC 9(02).
           05  RIDERS.
               10  RIDER               PIC X(01)
                                       OCCURS 0 TO 8 TIMES
                                       DEPENDING ON RIDER-COUNT.
       01  PREMIUM-RESULT.
           05  RESULT-CODE             PIC 9(02).
               88  RESULT-OK           VALUE 0.
               88  RESULT-BAD-AGE      VALUE 10.
               88  RESULT-BAD-CLASS    VALUE 11.
               88  RESULT-BAD-RIDER    VALUE 12.
               88  RESULT-TOO-LARGE    VALUE 13.
           05  ANNUAL-PREMIUM          PIC S9(09)V99 COMP-3.
           05  INSTALMENT-AMOUNT       PIC S9(09)V99 COMP-3
                                       OCCURS 12 TIMES.

       PROCEDURE DIVISION USING POLICY PREMIUM-RESULT.
       MAIN-LINE.
           IF FIRST-CALL
               PERFORM LOAD-LOADINGS
                   VARYING RIDER-NUMBER FROM 1 BY 1
                   UNTIL RIDER-NUMBER > 8
               MOVE 'N' TO FIRST-CALL-SW
           END-IF.
           MOVE ZERO TO RESULT-CODE ANNUAL-PREMIUM.
           PERFORM FIND-CLASS.
           IF RESULT-OK
               PERFORM FIND-RATE.
           IF RESULT-OK
               PERFORM ADD-UP-LOADINGS.
           IF RESULT-OK
               PERFORM COMPUTE-PREMIUM.
           IF RESULT-OK
               PERFORM SPLIT-PREMIUM.
      *> expect@+1: 3310:15-26
           IF TRACE-WANTID
               DISPLAY POLICY-NUMBER ' ' RESULT-CODE ' ' BASE-PREMIUM.
           GOBACK.

       LOAD-LOADINGS.
           COMPUTE RIDER-LOADING (RIDER-NUMBER) ROUNDED =
               0.0125 * RIDER-NUMBER + 0.005.

       FIND-CLASS.
           SET NAME-IX TO 1.
           SEARCH CLASS-ROW
               AT END
                   SET RESULT-BAD-CLASS TO TRUE
               WHEN CLASS-LETTER (NAME-IX) = INSURED-CLASS
                   SET CLASS-IX TO NAME-IX
           END-SEARCH.

       FIND-RATE.
           SET RATE-IX TO 1.
           SEARCH RATE-ROW
               AT END
                   SET RESULT-BAD-AGE TO TRUE
               WHEN INSURED-AGE IS NOT GREATER THAN
                       RATE-AGE-UP-TO (RATE-IX)
                   MOVE RATE-PER-MILLE (RATE-IX, CLASS-IX)
                     TO RATE-FOUND
           END-SEARCH.
      *> expect@+1: 3316:15-29
           IF INSURED-AGE (1) < 18 *> expect-pass
               SET RESULT-BAD-AGE TO TRUE.

       ADD-UP-LOADINGS.
      *> expect@+1: 3316:25-41 3528:25-41
           MOVE ZERO TO LOADING-TOTAL (0). *> expect-pass
           PERFORM VARYING RIDER-NUMBER FROM 1 BY 1
                   UNTIL RIDER-NUMBER > RIDER-COUNT
                      OR NOT RESULT-OK
      *> expect@+1: 3337:19-55
               IF RIDER (RIDER-NUMBER) IS RIDER-LETTERS
                   ADD RIDER-LOADING (RIDER-NUMBER) TO LOADING-TOTAL
                       ON SIZE ERROR
                           SET RESULT-TOO-LARGE TO TRUE
                   END-ADD
               ELSE
                   SET RESULT-BAD-RIDER TO TRUE
               END-IF
           END-PERFORM.

       COMPUTE-PREMIUM.
           COMPUTE BASE-PREMIUM = SUM-INSURED / 1000 * RATE-FOUND
               ON SIZE ERROR
                   SET RESULT-TOO-LARGE TO TRUE
           END-COMPUTE.
           IF RESULT-OK
               COMPUTE ANNUAL-PREMIUM ROUNDED =
                       BASE-PREMIUM * (1 + LOADING-TOTAL)
                   ON SIZE ERROR
                       SET RESULT-TOO-LARGE TO TRUE
               END-COMPUTE
           END-IF.

       SPLIT-PREMIUM.
           IF INSTALMENTS = 0 OR > 12
               MOVE 1 TO INSTALMENTS.
           MOVE ANNUAL-PREMIUM TO REMAINING-AMOUNT.
           PERFORM VARYING INSTALMENT-NUMBER FROM 1 BY 1
                   UNTIL INSTALMENT-NUMBER >= INSTALMENTS
               DIVIDE ANNUAL-PREMIUM BY INSTALMENTS
                   GIVING INSTALMENT-AMOUNT (INSTALMENT-NUMBER)
               SUBTRACT INSTALMENT-AMOUNT (INSTALMENT-NUMBER)
                   FROM REMAINING-AMOUNT
           END-PERFORM.
      *    WHAT ROUNDING LEFT OVER GOES INTO THE LAST INSTALMENT
           MOVE REMAINING-AMOUNT TO INSTALMENT-AMOUNT (INSTALMENTS).
