       IDENTIFICATION DIVISION.
       PROGRAM-ID. PARTINQX.
      *----------------------------------------------------------------*
      * INQUIRY ON THE PART MASTER, WITH MISTAKES IN IT. EACH COMMENT  *
      * SAYS WHAT THE NEXT LINE IS REPORTED FOR.                       *
      * INQUIRY ON THE PART MASTER. REQUESTS COME FROM SYSIN, ANSWERS  *
      * GO TO SYSOUT. THE PART IS READ BY KEY, OR ALL PARTS OF A       *
      * SUPPLIER BY THE ALTERNATE KEY. PRICES ARE CONVERTED BY THE     *
      * SUBPROGRAM PRICECNV; EDITING IS DONE BY PROGRAMS NESTED HERE.  *
      *----------------------------------------------------------------*
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SPECIAL-NAMES.
           SYSIN  IS REQUESTS
           SYSOUT IS ANSWERS.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT PART-MASTER
               ASSIGN TO PARTMST
               ORGANIZATION IS INDEXED
               ACCESS MODE IS DYNAMIC
               RECORD KEY IS PART-NUMBER
               ALTERNATE RECORD KEY IS PART-SUPPLIER
                   WITH DUPLICATES
               FILE STATUS IS MASTER-STATUS.
       DATA DIVISION.
       FILE SECTION.
       FD  PART-MASTER
           GLOBAL.
       COPY PARTREC.

       WORKING-STORAGE SECTION.
       77  MASTER-STATUS                   PIC X(02) VALUE SPACES.
           88  MASTER-OK                   VALUE '00' '02'.
           88  MASTER-AT-END               VALUE '10'.
           88  MASTER-NO-RECORD            VALUE '23'.
       COPY INQAREA.
       01  CONVERTED-PRICE                 PIC S9(09)V99  COMP-3.
       01  CONVERSION.
           05  CURRENCY-CODE               PIC X(03) VALUE 'EUR'.
           05  CONVERSION-PROGRAM          PIC X(08) VALUE 'PRICECNV'.
           05  CONVERSION-RESULT           PIC S9(04) COMP VALUE ZERO.
       01  ANSWER-LINE.
           05  ANSWER-NUMBER               PIC X(10).
           05  FILLER                      PIC X(01) VALUE SPACE.
           05  ANSWER-NAME                 PIC X(30).
           05  FILLER                      PIC X(01) VALUE SPACE.
           05  ANSWER-ON-HAND              PIC Z(06)9-.
           05  FILLER                      PIC X(01) VALUE SPACE.
           05  ANSWER-PRICE                PIC Z(06)9.99.
       01  REQUEST-CARD.
           05  CARD-REQUEST                PIC X(01).
           05  FILLER                      PIC X(01).
           05  CARD-KEY                    PIC X(10).
           05  FILLER                      PIC X(68).

       PROCEDURE DIVISION.
       MAIN-LINE.
           OPEN INPUT PART-MASTER.
      *> expect@+1: 3310:19-29
           IF NOT MASTER-OKAY
               DISPLAY 'PART MASTER NOT OPEN: ' MASTER-STATUS
                   UPON ANSWERS
               MOVE 12 TO RETURN-CODE
               GOBACK
           END-IF.
           PERFORM GET-REQUEST.
           PERFORM ANSWER-REQUEST UNTIL INQ-END.
           CLOSE PART-MASTER.
           GOBACK.

       GET-REQUEST.
           MOVE 'E' TO CARD-REQUEST.
           ACCEPT REQUEST-CARD FROM REQUESTS.
           MOVE CARD-REQUEST TO INQ-REQUEST.
           INSPECT CARD-KEY REPLACING ALL LOW-VALUE BY SPACE.

       ANSWER-REQUEST.
           MOVE ZERO TO INQ-RESULT INQ-COUNT INQ-VALUE.
           EVALUATE TRUE
               WHEN INQ-BY-NUMBER
                   MOVE CARD-KEY TO INQ-NUMBER
                   PERFORM READ-BY-NUMBER
               WHEN INQ-BY-SUPPLIER
                   MOVE CARD-KEY TO INQ-SUPPLIER
                   PERFORM READ-BY-SUPPLIER THRU READ-BY-SUPPLIER-EXIT
               WHEN OTHER
                   SET INQ-BAD-REQUEST TO TRUE
           END-EVALUATE.
           EVALUATE INQ-RESULT
               WHEN 0
                   CONTINUE
               WHEN 10
                   DISPLAY 'NOTHING FOUND FOR ' CARD-KEY UPON ANSWERS
               WHEN 20 THRU 29
                   DISPLAY 'BAD REQUEST ' REQUEST-CARD UPON ANSWERS
               WHEN OTHER
                   DISPLAY 'FILE STATUS ' MASTER-STATUS UPON ANSWERS
           END-EVALUATE.
           PERFORM GET-REQUEST.

       READ-BY-NUMBER.
           MOVE INQ-NUMBER TO PART-NUMBER.
           READ PART-MASTER
               INVALID KEY
                   SET INQ-NOT-FOUND TO TRUE
               NOT INVALID KEY
                   PERFORM SHOW-PART
           END-READ.
      *> expect@+1: 424:12-17
           END-IF.

       READ-BY-SUPPLIER.
           MOVE INQ-SUPPLIER TO PART-SUPPLIER.
           START PART-MASTER KEY IS EQUAL TO PART-SUPPLIER
               INVALID KEY
                   SET INQ-NOT-FOUND TO TRUE
                   GO TO READ-BY-SUPPLIER-EXIT
           END-START.
           PERFORM WITH TEST AFTER UNTIL MASTER-AT-END
                   OR PART-SUPPLIER NOT = INQ-SUPPLIER
               READ PART-MASTER NEXT RECORD
                   AT END
                       SET MASTER-AT-END TO TRUE
                   NOT AT END
                       IF PART-SUPPLIER = INQ-SUPPLIER
                           PERFORM SHOW-PART
                       END-IF
               END-READ
           END-PERFORM.
           DISPLAY 'PARTS ' INQ-COUNT ' VALUE ' INQ-VALUE UPON ANSWERS.
       READ-BY-SUPPLIER-EXIT.
           EXIT.

       SHOW-PART.
           ADD 1 TO INQ-COUNT.
           COMPUTE INQ-VALUE ROUNDED =
                   INQ-VALUE + PART-ON-HAND * PART-PRICE
               ON SIZE ERROR
                   DISPLAY 'VALUE TOO LARGE' UPON ANSWERS
           END-COMPUTE.
           CALL CONVERSION-PROGRAM USING BY CONTENT CURRENCY-CODE
                                         BY REFERENCE PART-PRICE
                                                      CONVERTED-PRICE
                                                      CONVERSION-RESULT
               ON EXCEPTION
                   MOVE PART-PRICE TO CONVERTED-PRICE
           END-CALL.
           CALL 'EDITPART' USING CONVERTED-PRICE.
           CALL 'WRITEANS'.

      *----------------------------------------------------------------*
      * EDITPART  FILLS THE ANSWER FROM THE PART                       *
      *----------------------------------------------------------------*
       IDENTIFICATION DIVISION.
       PROGRAM-ID. EDITPART.
       DATA DIVISION.
       LINKAGE SECTION.
       01  PRICE-TO-SHOW                   PIC S9(09)V99  COMP-3.
       PROCEDURE DIVISION USING PRICE-TO-SHOW.
       EDIT-PART.
      *> expect@+1: 3310:34-46
           MOVE PART-NUMBER   TO ANSWER-NUMBER.
      *> expect@+1: 3310:34-44
           MOVE PART-NAME     TO ANSWER-NAME.
      *> expect@+1: 3310:34-47
           MOVE PART-ON-HAND  TO ANSWER-ON-HAND.
      *> expect@+1: 3310:34-45
           MOVE PRICE-TO-SHOW TO ANSWER-PRICE.
           EXIT PROGRAM.
       END PROGRAM EDITPART.

      *----------------------------------------------------------------*
      * WRITEANS  WRITES THE ANSWER; ITS COUNTER LIVES ON BETWEEN CALLS*
      *----------------------------------------------------------------*
       IDENTIFICATION DIVISION.
       PROGRAM-ID. WRITEANS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  ANSWERS-WRITTEN                 PIC S9(08) COMP VALUE ZERO.
       PROCEDURE DIVISION.
       WRITE-ANSWER.
           ADD 1 TO ANSWERS-WRITTEN.
      *> expect@+1: 3310:40-50
           DISPLAY ANSWERS-WRITTEN ' ' ANSWER-LINE.
           EXIT PROGRAM.
       END PROGRAM WRITEANS.
      *> expect@+1: 212:20-26
       END PROGRAM PARTINQ.

      *----------------------------------------------------------------*
      * PRICECNV  CONVERTS A PRICE BY THE RATE OF ITS CURRENCY         *
      *----------------------------------------------------------------*
       IDENTIFICATION DIVISION.
       PROGRAM-ID. PRICECNV.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  RATE                            PIC 9(03)V9(06) COMP-3.
       LINKAGE SECTION.
       01  LK-CURRENCY                     PIC X(03).
       01  LK-PRICE                        PIC S9(07)V99  COMP-3.
       01  LK-CONVERTED                    PIC S9(09)V99  COMP-3.
       01  LK-RESULT                       PIC S9(04)     COMP.
       PROCEDURE DIVISION USING LK-CURRENCY LK-PRICE
                                LK-CONVERTED LK-RESULT.
       CONVERT-PRICE.
           MOVE ZERO TO LK-RESULT.
           EVALUATE LK-CURRENCY
               WHEN 'EUR' MOVE 1.082500 TO RATE
               WHEN 'GBP' MOVE 1.270000 TO RATE
               WHEN 'USD' MOVE 1 TO RATE
               WHEN OTHER
                   MOVE 1 TO RATE
                   MOVE 4 TO LK-RESULT
           END-EVALUATE.
           MULTIPLY LK-PRICE BY RATE GIVING LK-CONVERTED ROUNDED
               ON SIZE ERROR
                   MOVE LK-PRICE TO LK-CONVERTED
                   MOVE 8 TO LK-RESULT
           END-MULTIPLY.
           GOBACK.
       END PROGRAM PRICECNV.
