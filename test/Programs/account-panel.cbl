      *> RUN: %tarka check --verify --cics -I %S/Inputs %s
      *> RUN: %tarka layout --cics -I %S/Inputs --record DFHEIBLK %s \
      *> RUN:   | FileCheck --check-prefix=EIB %s
      *> RUN: %tarka cfg --cics -I %S/Inputs %s \
      *> RUN:   | FileCheck --check-prefix=GRAPH %s
      *> EIB: <supplied>/DFHEIBLK
      *> EIB: 01 DFHEIBLK {{.*}} 85 group
      *> EIB: EIBCALEN 24
      *> EIB: EIBRESP 76
      *> GRAPH: ACCTPNL
       IDENTIFICATION DIVISION.
       PROGRAM-ID. ACCTPNL.
      *----------------------------------------------------------------*
      * DISPLAY AN ACCOUNT, PSEUDO-CONVERSATIONAL.                     *
      *----------------------------------------------------------------*
       ENVIRONMENT DIVISION.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  WS-RESP              PIC S9(8) COMP VALUE ZERO.
       01  WS-RESP2             PIC S9(8) COMP VALUE ZERO.
       01  WS-SWITCHES.
           05  WS-VALID-SW      PIC X     VALUE 'Y'.
               88  DATA-VALID             VALUE 'Y'.
           05  WS-SEND-FLAG     PIC X     VALUE '1'.
               88  SEND-ERASE             VALUE '1'.
               88  SEND-DATAONLY          VALUE '2'.
               88  SEND-ALARM             VALUE '3'.
       01  WS-COMMAREA.
           05  WS-ACCOUNT       PIC X(8).
       01  WS-ACCOUNT-RECORD.
           05  AR-NUMBER        PIC X(8).
           05  AR-BALANCE       PIC S9(7)V99 COMP-3.
           05  FILLER           PIC X(50).
       01  WS-RETRIES           PIC 9     COMP.
       COPY DFHAID.
       COPY DFHBMSCA.
       COPY ACCTSET.
       LINKAGE SECTION.
       01  DFHCOMMAREA          PIC X(8).
       PROCEDURE DIVISION.
       0000-MAIN.
           EXEC CICS HANDLE ABEND LABEL(9900-ABEND) END-EXEC
           IF EIBCALEN > 0
               MOVE DFHCOMMAREA TO WS-COMMAREA
           END-IF
           EVALUATE TRUE
               WHEN EIBCALEN = 0
                   MOVE LOW-VALUES TO ACCTMO
                   MOVE -1 TO ACCTNOL
                   SET SEND-ERASE TO TRUE
                   PERFORM 1000-SEND-MAP
               WHEN EIBAID = DFHCLEAR OR DFHPA1 OR DFHPA2 OR DFHPA3
                   SET SEND-ERASE TO TRUE
                   PERFORM 1000-SEND-MAP
               WHEN EIBAID = DFHPF3 OR DFHPF12
                   EXEC CICS XCTL PROGRAM('MENU') END-EXEC
               WHEN EIBAID = DFHENTER
                   PERFORM 2000-PROCESS
               WHEN OTHER
                   MOVE 'INVALID KEY' TO MSGO
                   SET SEND-ALARM TO TRUE
                   PERFORM 1000-SEND-MAP
           END-EVALUATE
           EXEC CICS
               RETURN TRANSID(EIBTRNID)
                      COMMAREA(WS-COMMAREA)
                      LENGTH(LENGTH OF WS-COMMAREA)
           END-EXEC.

       1000-SEND-MAP.
           MOVE DFHBMBRY TO BALANCEA
           MOVE DFHRED   TO MSGC
           MOVE DFHREVRS TO MSGH
           EVALUATE TRUE
               WHEN SEND-ERASE
                   EXEC CICS SEND MAP('ACCTM') MAPSET('ACCTSET')
                       FROM(ACCTMO) ERASE CURSOR
                   END-EXEC
               WHEN SEND-DATAONLY
                   EXEC CICS SEND MAP('ACCTM') MAPSET('ACCTSET')
                       FROM(ACCTMO) DATAONLY CURSOR
                   END-EXEC
               WHEN OTHER
                   EXEC CICS SEND MAP('ACCTM') MAPSET('ACCTSET')
                       FROM(ACCTMO) DATAONLY ALARM CURSOR END-EXEC
           END-EVALUATE.

       2000-PROCESS.
           EXEC CICS RECEIVE MAP('ACCTM') MAPSET('ACCTSET')
               INTO(ACCTMI) RESP(WS-RESP) RESP2(WS-RESP2)
           END-EXEC.
           IF WS-RESP NOT = DFHRESP(NORMAL) AND DFHRESP(MAPFAIL)
               GO TO 9900-ABEND.
           IF ACCTNOL = ZERO OR ACCTNOF = DFHBMEOF
                   OR ACCTNOI = SPACES OR LOW-VALUES
               MOVE 'N' TO WS-VALID-SW
               MOVE 'ENTER AN ACCOUNT' TO MSGO
           ELSE
               EXEC CICS READ FILE('ACCOUNT') INTO(WS-ACCOUNT-RECORD)
                   RIDFLD(ACCTNOI) RESP(WS-RESP)
               END-EXEC
               EVALUATE WS-RESP
                   WHEN DFHRESP(NORMAL)
                       MOVE AR-BALANCE TO BALANCEO
                       MOVE AR-NUMBER  TO WS-ACCOUNT
                   WHEN DFHRESP(NOTFND)
                       MOVE 'NO SUCH ACCOUNT' TO MSGO
                   WHEN DFHRESP(SYSBUSY) THRU dfhresp( SESSBUSY )
                       ADD 1 TO WS-RETRIES
                   WHEN DFHRESP(ERROR)
                   WHEN OTHER
                       COMPUTE WS-RESP2 =
                           EIBRESP2 + DFHRESP(INVREQ) * DFHVALUE(OPEN)
                       PERFORM 9900-ABEND
               END-EVALUATE
           END-IF
           SET SEND-DATAONLY TO TRUE
           PERFORM 1000-SEND-MAP.

       9900-ABEND.
           MOVE EIBRSRCE TO MSGO
           EXEC CICS ABEND ABCODE('ACCT') NODUMP END-EXEC
           GOBACK.
