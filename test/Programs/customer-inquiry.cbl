      *> RUN: %tarka check %s 2>&1 | FileCheck --allow-empty --implicit-check-not={{.}} %s
      *> RUN: %tarka cfg %s | FileCheck --check-prefix=GRAPH %s
      *> GRAPH: CUSTINQ
       ID DIVISION.
       PROGRAM-ID. CUSTINQ.
      *----------------------------------------------------------------*
      * CUSTOMER INQUIRY AND UPDATE, PSEUDO-CONVERSATIONAL.            *
      *----------------------------------------------------------------*
       ENVIRONMENT DIVISION.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  WS-PROGRAM-INFO.
           03  WS-PGM-NAME             PIC X(8)  VALUE 'CUSTINQ'.
           03  WS-TRANID               PIC X(4)  VALUE 'CINQ'.
           03  WS-VERSION              PIC X(5)  VALUE '01.07'.
       01  WS-RESP                     PIC S9(8) COMP.
       01  WS-RESP2                    PIC S9(8) COMP.
       01  WS-RESP-SHOWN               PIC 9(8).
       01  WS-ABSTIME                  PIC S9(15) COMP-3.
       01  WS-COMM-LENGTH              PIC S9(4) COMP.
       01  WS-MESSAGE-AREA.
           03  WS-MESSAGE              PIC X(79) VALUE SPACES.
           03  WS-MSG-SEVERITY         PIC X     VALUE 'I'.
               88  MSG-INFO                      VALUE 'I'.
               88  MSG-WARNING                   VALUE 'W'.
               88  MSG-SEVERE                    VALUE 'E' 'S'.
       01  WS-EDIT-FIELDS.
           03  WS-AMOUNT-ED            PIC -ZZ,ZZZ,ZZ9.99.
           03  WS-DATE-ED              PIC 9999/99/99.
           03  WS-PHONE-ED             PIC X(3)BX(3)BX(4).
           03  WS-STATUS-TEXT          PIC X(10).
       01  WS-FLAGS.
           03  WS-VALID-FLAG           PIC 9     VALUE 1.
               88  INPUT-VALID                   VALUE 1.
               88  INPUT-INVALID                 VALUE 0.
           03  WS-FIRST-FLAG           PIC 9     VALUE 0.
               88  FIRST-TIME                    VALUE 0.
               88  RETURN-TIME                   VALUE 1 THRU 9.
       01  WS-COMMAREA.
           03  CA-STATE                PIC X(2).
               88  CA-NEW                        VALUE LOW-VALUES.
               88  CA-SHOWN                      VALUE 'SH'.
               88  CA-UPDATING                   VALUE 'UP'.
           03  CA-CUSTOMER             PIC X(10).
           03  CA-RECORD.
               05  CA-CUST-NAME        PIC X(30).
               05  CA-CUST-BALANCE     PIC S9(9)V99 COMP-3.
               05  CA-CUST-PHONE       PIC X(10).
               05  CA-CUST-OPENED      PIC 9(8).
           03  CA-HISTORY OCCURS 10 TIMES
                   INDEXED BY CA-HX.
               05  CA-H-DATE           PIC 9(8).
               05  CA-H-AMOUNT         PIC S9(7)V99 COMP-3.
               05  CA-H-CODE           PIC XX.
       01  WS-KEY-WORK.
           03  WS-KEY-CHAR             PIC X OCCURS 10 TIMES.
       01  WS-KEY-TEXT REDEFINES WS-KEY-WORK
                                       PIC X(10).
       01  WS-COUNTERS COMP.
           03  WS-I                    PIC S9(4).
           03  WS-J                    PIC S9(4).
           03  WS-DIGITS               PIC S9(4).
       01  CUSTMAPI.
           02  FILLER                  PIC X(12).
           02  CUSTNOL                 COMP PIC S9(4).
           02  CUSTNOF                 PICTURE X.
           02  FILLER REDEFINES CUSTNOF.
               03  CUSTNOA             PICTURE X.
           02  CUSTNOI                 PIC X(10).
           02  CUSTNML                 COMP PIC S9(4).
           02  CUSTNMF                 PICTURE X.
           02  FILLER REDEFINES CUSTNMF.
               03  CUSTNMA             PICTURE X.
           02  CUSTNMI                 PIC X(30).
           02  BALANCEL                COMP PIC S9(4).
           02  BALANCEF                PICTURE X.
           02  FILLER REDEFINES BALANCEF.
               03  BALANCEA            PICTURE X.
           02  BALANCEI                PIC X(14).
           02  MESSAGEL                COMP PIC S9(4).
           02  MESSAGEF                PICTURE X.
           02  FILLER REDEFINES MESSAGEF.
               03  MESSAGEA            PICTURE X.
           02  MESSAGEI                PIC X(79).
       01  CUSTMAPO REDEFINES CUSTMAPI.
           02  FILLER                  PIC X(12).
           02  FILLER                  PICTURE X(3).
           02  CUSTNOO                 PIC X(10).
           02  FILLER                  PICTURE X(3).
           02  CUSTNMO                 PIC X(30).
           02  FILLER                  PICTURE X(3).
           02  BALANCEO                PIC -ZZ,ZZZ,ZZ9.99.
           02  FILLER                  PICTURE X(3).
           02  MESSAGEO                PIC X(79).
       01  WS-AID-TABLE.
           03  FILLER                  PIC X(7) VALUE QUOTE.
           03  WS-NULLS                PIC X(3) VALUE ALL X'00'.
       LOCAL-STORAGE SECTION.
       01  LS-WORK.
           03  LS-POINTER              USAGE POINTER.
           03  LS-LENGTH               PIC 9(9) BINARY.
           03  LS-ELAPSED              COMP-2.
       LINKAGE SECTION.
       01  DFHCOMMAREA.
           03  LK-DATA                 PIC X
               OCCURS 1 TO 4096 TIMES DEPENDING ON WS-COMM-LENGTH.
       01  LK-CUSTOMER-RECORD.
           03  LK-CUST-KEY             PIC X(10).
           03  LK-CUST-BODY            PIC X(54).
           03  LK-NEXT                 POINTER.
       01  LK-INTERFACE.
           03  LK-AID                  PIC X.
               88  LK-ENTER                      VALUE ''''.
               88  LK-PF3                        VALUE '3'.
               88  LK-PF7                        VALUE '7'.
               88  LK-PF8                        VALUE '8'.
               88  LK-CLEAR                      VALUE '_'.
           03  LK-COMM-LEN             PIC S9(4) COMP.
       PROCEDURE DIVISION USING LK-INTERFACE DFHCOMMAREA.
       0000-CONTROL.
           EVALUATE TRUE
               WHEN LK-COMM-LEN = 0
                   MOVE LOW-VALUES TO CUSTMAPO
                   SET FIRST-TIME TO TRUE
                   PERFORM 1000-SEND-INITIAL
               WHEN LK-CLEAR
               WHEN LK-PF3
                   PERFORM 8000-GOODBYE
                   GO TO 0000-RETURN
               WHEN LK-ENTER
                   MOVE LK-COMM-LEN TO WS-COMM-LENGTH
                   MOVE DFHCOMMAREA TO WS-COMMAREA
                   PERFORM 2000-PROCESS-INPUT
               WHEN LK-PF7 OR LK-PF8
                   PERFORM 3000-SCROLL
               WHEN OTHER
                   MOVE 'INVALID KEY PRESSED' TO WS-MESSAGE
                   SET MSG-WARNING TO TRUE
                   PERFORM 7000-SEND-MESSAGE
           END-EVALUATE.
       0000-RETURN.
           EXEC CICS RETURN
               TRANSID(WS-TRANID)
               COMMAREA(WS-COMMAREA)
               LENGTH(LENGTH OF WS-COMMAREA)
           END-EXEC.
           GOBACK.

       1000-SEND-INITIAL.
           MOVE SPACES TO WS-COMMAREA.
           SET CA-NEW TO TRUE.
           MOVE -1 TO CUSTNOL.
           MOVE 'ENTER A CUSTOMER NUMBER' TO MESSAGEO.
           EXEC CICS SEND MAP('CUSTMAP') MAPSET('CUSTSET')
               FROM(CUSTMAPO) ERASE CURSOR FREEKB
           END-EXEC.

       2000-PROCESS-INPUT.
           EXEC CICS RECEIVE MAP('CUSTMAP') MAPSET('CUSTSET')
               INTO(CUSTMAPI) RESP(WS-RESP) RESP2(WS-RESP2)
           END-EXEC.
           IF WS-RESP NOT = ZERO
               MOVE WS-RESP TO WS-RESP-SHOWN
               STRING 'MAP FAILURE, RESPONSE ' WS-RESP-SHOWN
                      DELIMITED BY SIZE INTO WS-MESSAGE
               SET MSG-SEVERE TO TRUE
               PERFORM 7000-SEND-MESSAGE
           ELSE
               PERFORM 2100-EDIT-INPUT
               IF INPUT-VALID
                   PERFORM 2200-READ-CUSTOMER
               ELSE
                   PERFORM 7000-SEND-MESSAGE
               END-IF
           END-IF.

       2100-EDIT-INPUT.
           SET INPUT-VALID TO TRUE.
           MOVE CUSTNOI TO WS-KEY-TEXT.
           INSPECT WS-KEY-TEXT REPLACING ALL LOW-VALUES BY SPACES
                                         ALL '_' BY SPACE.
           INSPECT WS-KEY-TEXT CONVERTING
               'abcdefghijklmnopqrstuvwxyz' TO
               'ABCDEFGHIJKLMNOPQRSTUVWXYZ'.
           IF WS-KEY-TEXT = SPACES OR CUSTNOL = 0
               SET INPUT-INVALID TO TRUE
               MOVE 'CUSTOMER NUMBER IS REQUIRED' TO WS-MESSAGE
           ELSE
               MOVE ZERO TO WS-DIGITS
               PERFORM VARYING WS-I FROM 1 BY 1
                         UNTIL WS-I > 10
                            OR WS-KEY-CHAR (WS-I) = SPACE
                   IF WS-KEY-CHAR (WS-I) IS NUMERIC
                       ADD 1 TO WS-DIGITS
                   ELSE
                       IF WS-KEY-CHAR (WS-I) IS NOT ALPHABETIC-UPPER
                           SET INPUT-INVALID TO TRUE
                       END-IF
                   END-IF
               END-PERFORM
               IF WS-DIGITS < 4 AND INPUT-VALID
                   SET INPUT-INVALID TO TRUE
                   MOVE 'AT LEAST FOUR DIGITS PLEASE' TO WS-MESSAGE
               END-IF
           END-IF.

       2200-READ-CUSTOMER.
           MOVE WS-KEY-TEXT TO CA-CUSTOMER.
           EXEC CICS READ FILE('CUSTFILE')
               SET(ADDRESS OF LK-CUSTOMER-RECORD)
               RIDFLD(CA-CUSTOMER)
               LENGTH(WS-COMM-LENGTH)
               RESP(WS-RESP)
           END-EXEC.
           EVALUATE WS-RESP
               WHEN 0
                   MOVE LK-CUST-BODY TO CA-RECORD
                   PERFORM 2300-BUILD-SCREEN
               WHEN 13
                   MOVE 'CUSTOMER NOT FOUND' TO WS-MESSAGE
                   SET MSG-INFO TO TRUE
               WHEN 14 THRU 19
                   MOVE 'FILE NOT AVAILABLE' TO WS-MESSAGE
                   SET MSG-SEVERE TO TRUE
               WHEN OTHER
                   PERFORM 9999-ABEND
           END-EVALUATE.
           PERFORM 7000-SEND-MESSAGE.

       2300-BUILD-SCREEN.
           MOVE CA-CUST-NAME    TO CUSTNMO.
           MOVE CA-CUST-BALANCE TO BALANCEO WS-AMOUNT-ED.
           MOVE CA-CUST-OPENED  TO WS-DATE-ED.
           MOVE CA-CUST-PHONE   TO WS-PHONE-ED.
           MOVE SPACES TO WS-MESSAGE.
           MOVE 1 TO WS-J.
           STRING 'OPENED '     DELIMITED BY SIZE
                  WS-DATE-ED    DELIMITED BY SIZE
                  ' TELEPHONE ' DELIMITED BY SIZE
                  WS-PHONE-ED   DELIMITED BY '  '
               INTO WS-MESSAGE WITH POINTER WS-J
               ON OVERFLOW
                   MOVE 'TOO LONG' TO WS-MESSAGE (70:8)
               NOT ON OVERFLOW
                   MOVE '.' TO WS-MESSAGE (WS-J:1)
           END-STRING.
           SET CA-SHOWN TO TRUE.
           IF CA-CUST-BALANCE IS NEGATIVE
               MOVE X'C8' TO CUSTNMA
               MOVE 'OVERDRAWN' TO WS-STATUS-TEXT
           ELSE IF CA-CUST-BALANCE = ZERO
               MOVE 'NIL' TO WS-STATUS-TEXT
           ELSE
               MOVE 'CREDIT' TO WS-STATUS-TEXT.

       3000-SCROLL.
           IF LK-PF7
               PERFORM 3100-BACKWARD
           ELSE
               PERFORM 3200-FORWARD
           END-IF.

       3100-BACKWARD.
           SET CA-HX TO 10.
           PERFORM WITH TEST AFTER
                   VARYING CA-HX FROM 10 BY -1 UNTIL CA-HX = 1
               IF CA-H-AMOUNT (CA-HX) NOT = ZERO
                   MOVE CA-H-AMOUNT (CA-HX) TO WS-AMOUNT-ED
               END-IF
           END-PERFORM.

       3200-FORWARD.
           SET CA-HX TO 1.
           SEARCH CA-HISTORY
               AT END
                   MOVE 'NO MORE HISTORY' TO WS-MESSAGE
               WHEN CA-H-CODE (CA-HX) = 'CR' OR 'DR'
                   MOVE CA-H-AMOUNT (CA-HX) TO WS-AMOUNT-ED
               WHEN CA-H-DATE (CA-HX) > 20240101
                    AND < 20241231
                   NEXT SENTENCE
           END-SEARCH.
           SET CA-HX UP BY 1.
           MOVE CA-H-DATE (CA-HX + 1) TO WS-DATE-ED.

       7000-SEND-MESSAGE.
           MOVE WS-MESSAGE TO MESSAGEO.
           EXEC CICS SEND MAP('CUSTMAP') MAPSET('CUSTSET')
               FROM(CUSTMAPO) DATAONLY
           END-EXEC.

       8000-GOODBYE.
           EXEC CICS ASKTIME ABSTIME(WS-ABSTIME) END-EXEC.
           EXEC CICS SEND TEXT FROM(WS-PROGRAM-INFO) ERASE END-EXEC.

       9999-ABEND.
           SET LS-POINTER TO ADDRESS OF LK-CUSTOMER-RECORD.
           IF LS-POINTER = NULL OR LK-NEXT NOT = NULLS
               SET ADDRESS OF LK-CUSTOMER-RECORD TO LS-POINTER
               SET LK-NEXT TO NULL
           END-IF.
           MOVE LENGTH OF WS-COMMAREA TO LS-LENGTH.
           EXEC CICS ABEND ABCODE('CINQ') END-EXEC.
