      *> RUN: %tarka check --enable-rw %s 2>&1 | FileCheck --allow-empty --implicit-check-not={{.}} %s
000100 IDENTIFICATION DIVISION.                                         MATCH001
000200 PROGRAM-ID. MATCHSRT.                                            MATCH001
000300*REMARKS. SORTS THE TRANSACTIONS, MATCHES THEM WITH THE MASTER,   MATCH001
000400*         WRITES A NEW MASTER, AN ERROR FILE AND A REPORT.        MATCH001
000500 ENVIRONMENT DIVISION.                                            MATCH001
000600 INPUT-OUTPUT SECTION.                                            MATCH001
000700 FILE-CONTROL.                                                    MATCH001
000800     SELECT TRANS-FILE    ASSIGN TO TRANSIN.                      MATCH001
000900     SELECT OLD-MASTER    ASSIGN TO OLDMAST                       MATCH001
001000         FILE STATUS OLD-STATUS.                                  MATCH001
001100     SELECT NEW-MASTER    ASSIGN TO NEWMAST                       MATCH001
001200         FILE STATUS NEW-STATUS.                                  MATCH001
001300     SELECT SORT-FILE     ASSIGN TO SORTWK01.                     MATCH001
001400     SELECT MERGE-FILE    ASSIGN TO SORTWK02.                     MATCH001
001500     SELECT BRANCH-A      ASSIGN TO BRANCHA.                      MATCH001
001600     SELECT BRANCH-B      ASSIGN TO BRANCHB.                      MATCH001
001700     SELECT OPTIONAL ERROR-FILE ASSIGN TO ERRFILE                 MATCH001
001800         ORGANIZATION RELATIVE ACCESS RANDOM                      MATCH001
001900         RELATIVE KEY IS ERROR-NUMBER                             MATCH001
002000         FILE STATUS ERROR-STATUS.                                MATCH001
002100     SELECT PRINT-FILE    ASSIGN TO REPORT1.                      MATCH001
002200 I-O-CONTROL.                                                     MATCH001
002300     SAME RECORD AREA FOR OLD-MASTER NEW-MASTER.                  MATCH001
       DATA DIVISION.
       FILE SECTION.
       FD  TRANS-FILE
           RECORD IS VARYING IN SIZE FROM 20 TO 60 CHARACTERS
               DEPENDING ON TRANS-LENGTH.
       01  TRANS-RECORD.
           05  TR-KEY              PIC X(8).
           05  TR-CODE             PIC X.
           05  TR-AMOUNT           PIC S9(7)V99.
           05  FILLER              PIC X(2).
           05  TR-NAME             PIC X(40).
       01  TRANS-SHORT             PIC X(20).
       FD  OLD-MASTER RECORDING MODE F BLOCK 0 RECORDS.
       01  OLD-RECORD.
           05  MASTER-KEY          PIC X(8).
           05  MASTER-NAME         PIC X(40).
           05  MASTER-BALANCE      PIC S9(9)V99 COMP-3.
           05  MASTER-LAST         PIC 9(6).
       FD  NEW-MASTER RECORDING MODE F BLOCK 0 RECORDS.
       01  NEW-RECORD.
           05  MASTER-KEY          PIC X(8).
           05  MASTER-NAME         PIC X(40).
           05  MASTER-BALANCE      PIC S9(9)V99 COMP-3.
           05  MASTER-LAST         PIC 9(6).
       SD  SORT-FILE.
       01  SORT-RECORD.
           05  SR-KEY              PIC X(8).
           05  SR-CODE             PIC X.
               88  SR-ADD              VALUE "A".
               88  SR-CHANGE           VALUE "C".
               88  SR-DELETE           VALUE "D".
           05  SR-AMOUNT           PIC S9(7)V99.
           05  SR-SEQUENCE         PIC 9(7) COMP.
           05  SR-NAME             PIC X(40).
       SD  MERGE-FILE.
       01  MERGE-RECORD.
           05  MG-KEY              PIC X(8).
           05  MG-REST             PIC X(52).
       FD  BRANCH-A.
       01  BRANCH-A-RECORD         PIC X(60).
       FD  BRANCH-B.
       01  BRANCH-B-RECORD         PIC X(60).
       FD  ERROR-FILE.
       01  ERROR-RECORD.
           05  ER-TEXT             PIC X(30).
           05  ER-DATA             PIC X(65).
       FD  PRINT-FILE
           LABEL RECORDS OMITTED
           REPORT IS CHANGE-REPORT.
       WORKING-STORAGE SECTION.
       01  FILE-STATUSES.
           05  OLD-STATUS          PIC 99.
           05  NEW-STATUS          PIC 99.
           05  ERROR-STATUS        PIC XX.
       01  WORK-FIELDS.
           05  TRANS-LENGTH        PIC 9(4) COMP.
           05  ERROR-NUMBER        PIC 9(8) COMP.
           05  SEQUENCE-NO         PIC 9(7) COMP VALUE 0.
           05  LOW-KEY             PIC X(8).
           05  TRANS-EOF           PIC 9 VALUE 0.
               88  NO-MORE-TRANS   VALUE 1.
           05  MASTER-EOF          PIC 9 VALUE 0.
               88  NO-MORE-MASTER  VALUE 1.
       01  HELD-MASTER.
           05  MASTER-KEY          PIC X(8) VALUE HIGH-VALUES.
           05  MASTER-NAME         PIC X(40).
           05  MASTER-BALANCE      PIC S9(9)V99 COMP-3.
           05  MASTER-LAST         PIC 9(6).
       01  COUNTS COMP-3.
           05  ADDED               PIC S9(5) VALUE 0.
           05  CHANGED             PIC S9(5) VALUE 0.
           05  DELETED             PIC S9(5) VALUE 0.
           05  REJECTED            PIC S9(5) VALUE 0.
       01  REPORT-FIELDS.
           05  RF-REGION           PIC XX.
           05  RF-ACTION           PIC X(8).
           05  RF-OLD              PIC S9(9)V99 COMP-3.
           05  RF-NEW              PIC S9(9)V99 COMP-3.
       REPORT SECTION.
       RD  CHANGE-REPORT
           CONTROLS ARE FINAL RF-REGION
           PAGE LIMIT IS 60 LINES
           HEADING 1 FIRST DETAIL 5 LAST DETAIL 52 FOOTING 56.
       01  TYPE IS PAGE HEADING.
           05  LINE 1.
               10  COLUMN 1        PIC X(30)
                                   VALUE "MASTER FILE CHANGES".
               10  COLUMN 60       PIC ZZ9 SOURCE PAGE-COUNTER.
           05  LINE PLUS 2.
               10  COLUMN 1        PIC X(10) VALUE "CUSTOMER".
       01  CHANGE-LINE TYPE DETAIL.
           05  LINE PLUS 1.
               10  COLUMN 1 GROUP INDICATE PIC XX SOURCE RF-REGION.
               10  COLUMN 5        PIC X(8)
                                   SOURCE MASTER-KEY OF HELD-MASTER.
               10  COLUMN 15       PIC X(8) SOURCE RF-ACTION.
               10  COLUMN 25       PIC -(9)9.99 SOURCE RF-OLD.
               10  CL-NEW COLUMN 40 PIC -(9)9.99 SOURCE RF-NEW.
       01  TYPE CONTROL FOOTING RF-REGION.
           05  LINE PLUS 2.
               10  COLUMN 5        PIC X(12) VALUE "REGION TOTAL".
               10  COLUMN 40       PIC -(9)9.99 SUM RF-NEW.
       01  TYPE CONTROL FOOTING FINAL.
           05  LINE PLUS 2.
               10  COLUMN 40       PIC -(9)9.99 SUM RF-NEW.
       PROCEDURE DIVISION.
       MAIN SECTION.
       START-UP.
           MERGE MERGE-FILE ON ASCENDING KEY MG-KEY
               USING BRANCH-A BRANCH-B
               GIVING TRANS-FILE.
           SORT SORT-FILE
               ON ASCENDING KEY SR-KEY
                  DESCENDING KEY SR-CODE
                  ASCENDING KEY SR-SEQUENCE
               WITH DUPLICATES IN ORDER
               INPUT PROCEDURE IS SELECT-TRANS
               OUTPUT PROCEDURE IS UPDATE-MASTER THRU UPDATE-END.
           IF SORT-RETURN NOT = 0
               DISPLAY "SORT FAILED, RETURN CODE " SORT-RETURN
               MOVE SORT-RETURN TO RETURN-CODE.
           DISPLAY "ADDED " ADDED " CHANGED " CHANGED
                   " DELETED " DELETED " REJECTED " REJECTED.
           STOP RUN.
       SELECT-TRANS SECTION.
       OPEN-TRANS.
           OPEN INPUT TRANS-FILE.
           PERFORM UNTIL NO-MORE-TRANS
               READ TRANS-FILE
                   AT END SET NO-MORE-TRANS TO TRUE
                   NOT AT END PERFORM RELEASE-ONE
               END-READ
           END-PERFORM.
           CLOSE TRANS-FILE.
           MOVE 0 TO TRANS-EOF.
           GO TO SELECT-END.
       RELEASE-ONE.
           IF TR-AMOUNT IS NUMERIC
               ADD 1 TO SEQUENCE-NO
               MOVE TR-KEY      TO SR-KEY
               MOVE TR-CODE     TO SR-CODE
               MOVE TR-AMOUNT   TO SR-AMOUNT
               MOVE TR-NAME     TO SR-NAME
               MOVE SEQUENCE-NO TO SR-SEQUENCE
               RELEASE SORT-RECORD
           ELSE
               PERFORM REJECT-TRANS.
       REJECT-TRANS.
           ADD 1 TO REJECTED.
           MOVE REJECTED TO ERROR-NUMBER.
           MOVE "AMOUNT NOT NUMERIC" TO ER-TEXT.
           MOVE TRANS-RECORD TO ER-DATA.
           OPEN I-O ERROR-FILE.
           WRITE ERROR-RECORD
               INVALID KEY
                   REWRITE ERROR-RECORD
                       INVALID KEY DISPLAY "ERROR FILE " ERROR-STATUS
                   END-REWRITE
           END-WRITE.
           CLOSE ERROR-FILE WITH LOCK.
       SELECT-END.
           EXIT.
       UPDATE-MASTER SECTION.
       OPEN-MASTERS.
           OPEN INPUT OLD-MASTER OUTPUT NEW-MASTER PRINT-FILE.
           INITIATE CHANGE-REPORT.
           PERFORM NEXT-TRANS.
           PERFORM NEXT-MASTER.
           PERFORM MATCH UNTIL NO-MORE-TRANS AND NO-MORE-MASTER.
           TERMINATE CHANGE-REPORT.
           CLOSE OLD-MASTER NEW-MASTER, PRINT-FILE.
           GO TO UPDATE-END.
       MATCH.
           IF MASTER-KEY OF OLD-RECORD < SR-KEY
               MOVE OLD-RECORD TO HELD-MASTER
               PERFORM WRITE-MASTER
               PERFORM NEXT-MASTER
           ELSE
               IF MASTER-KEY OF OLD-RECORD = SR-KEY
                   MOVE CORRESPONDING OLD-RECORD TO HELD-MASTER
                   PERFORM NEXT-MASTER
                   PERFORM APPLY-IT UNTIL SR-KEY NOT =
                       MASTER-KEY IN HELD-MASTER OR NO-MORE-TRANS
                   PERFORM WRITE-MASTER
               ELSE
                   IF SR-ADD
                       MOVE SR-KEY    TO MASTER-KEY OF HELD-MASTER
                       MOVE SR-NAME   TO MASTER-NAME OF HELD-MASTER
                       MOVE SR-AMOUNT TO MASTER-BALANCE OF HELD-MASTER
                       ADD 1 TO ADDED
                       MOVE "ADDED" TO RF-ACTION
                       GENERATE CHANGE-LINE
                       PERFORM WRITE-MASTER
                       PERFORM NEXT-TRANS
                   ELSE
                       ADD 1 TO REJECTED
                       PERFORM NEXT-TRANS.
       APPLY-IT.
           MOVE MASTER-BALANCE OF HELD-MASTER TO RF-OLD.
           EVALUATE TRUE
               WHEN SR-CHANGE
                   ADD SR-AMOUNT TO MASTER-BALANCE OF HELD-MASTER
                       ON SIZE ERROR ADD 1 TO REJECTED
                       NOT ON SIZE ERROR ADD 1 TO CHANGED
                   END-ADD
                   MOVE "CHANGED" TO RF-ACTION
               WHEN SR-DELETE
                   MOVE HIGH-VALUES TO MASTER-KEY OF HELD-MASTER
                   ADD 1 TO DELETED
                   MOVE "DELETED" TO RF-ACTION
               WHEN OTHER
                   ADD 1 TO REJECTED
           END-EVALUATE.
           MOVE MASTER-BALANCE OF HELD-MASTER TO RF-NEW.
           GENERATE CHANGE-LINE.
           PERFORM NEXT-TRANS.
       WRITE-MASTER.
           IF MASTER-KEY OF HELD-MASTER NOT = HIGH-VALUES
               WRITE NEW-RECORD FROM HELD-MASTER
               IF NEW-STATUS > 9
                   DISPLAY "NEW MASTER " NEW-STATUS.
       NEXT-TRANS.
           RETURN SORT-FILE RECORD
               AT END
                   MOVE HIGH-VALUES TO SR-KEY
                   SET NO-MORE-TRANS TO TRUE
           END-RETURN.
       NEXT-MASTER.
           READ OLD-MASTER
               AT END
                   MOVE HIGH-VALUES TO MASTER-KEY OF OLD-RECORD
                   MOVE 1 TO MASTER-EOF
           END-READ.
       UPDATE-END SECTION.
       UPDATE-EXIT.
           EXIT.
