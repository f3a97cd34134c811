      *> RUN: %tarka flow --cics %s | FileCheck %s
      *> RUN: %tarka flow --cics --format=json %s | FileCheck %s --check-prefix=JSON
      *> RUN: %tarka flow --cics --item WS-RECORD %s | FileCheck %s --check-prefix=RECORD
      *> RUN: %tarka flow --cics --item KEYI %s | FileCheck %s --check-prefix=MAP
      *> RUN: %tarka ast --cics %s | FileCheck %s --check-prefix=TREE
      *> RUN: %tarka cfg --cics --format=json %s \
      *> RUN:   | %python %S/edges.py handler "end of run" | FileCheck %s --check-prefix=EDGES
      *>
      *> A pseudoconversational program: conditions, keys and abends, programs and transactions that it
      *> names, and what its commands read and write.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. ONLINE1.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  WS-NEXT-PGM         PIC X(8) VALUE 'NEXTPGM'.
       01  WS-SUB-PGM          PIC X(8).
       01  WS-RESP             PIC S9(8) COMP.
       01  WS-KEY              PIC X(6).
       01  WS-RECORD           PIC X(80).
       01  WS-COMM.
           05  WS-STEP         PIC X.
           05  WS-LAST-KEY     PIC X(6).
       01  CUSTI.
           05  FILLER          PIC X(12).
           05  KEYL            PIC S9(4) COMP.
           05  KEYF            PIC X.
           05  KEYI            PIC X(6).
       01  CUSTO REDEFINES CUSTI.
           05  FILLER          PIC X(15).
           05  KEYO            PIC X(6).
       LINKAGE SECTION.
       01  DFHCOMMAREA         PIC X(7).
       PROCEDURE DIVISION.
       MAIN SECTION.
       MAIN-ENTRY.
           EXEC CICS HANDLE CONDITION
               MAPFAIL(NO-MAP) NOTFND(NOT-FOUND) ERROR(FAILED)
           END-EXEC
           EXEC CICS HANDLE AID PF3(LEAVE-IT) CLEAR(NO-MAP) END-EXEC
           EXEC CICS HANDLE ABEND LABEL(ABENDED) END-EXEC
           IF EIBCALEN = 0
               PERFORM SHOW-MAP
               EXEC CICS RETURN TRANSID('ONL1') COMMAREA(WS-COMM)
                   LENGTH(7) END-EXEC
           END-IF
           MOVE DFHCOMMAREA TO WS-COMM.
       GET-KEY.
           EXEC CICS RECEIVE MAP('CUST') MAPSET('CUSTSET') END-EXEC
           MOVE KEYI TO WS-KEY
           EXEC CICS READ FILE('CUSTF') INTO(WS-RECORD) RIDFLD(WS-KEY)
           END-EXEC
           EXEC CICS READ FILE('CUSTX') INTO(WS-RECORD) RIDFLD(WS-KEY)
               RESP(WS-RESP) END-EXEC
           IF WS-RESP = DFHRESP(NOTFND)
               EXEC CICS XCTL PROGRAM(WS-NEXT-PGM) COMMAREA(WS-COMM)
               END-EXEC
           END-IF
           MOVE 'SUBPGM' TO WS-SUB-PGM
           EXEC CICS LINK PROGRAM(WS-SUB-PGM) COMMAREA(WS-RECORD)
           END-EXEC
           EXEC CICS LINK PROGRAM('FIXED') COMMAREA(WS-RECORD)
           END-EXEC
           EXEC CICS START TRANSID('PRNT') FROM(WS-RECORD) END-EXEC
           PERFORM SHOW-MAP
           EXEC CICS RETURN TRANSID('ONL1') COMMAREA(WS-COMM) END-EXEC.
       NEVER-HERE.
           DISPLAY 'DEAD'.
       SHOW-MAP.
           MOVE WS-KEY TO KEYO
           EXEC CICS SEND MAP('CUST') MAPSET('CUSTSET') ERASE END-EXEC.
       NO-MAP.
           EXEC CICS SEND CONTROL ERASE FREEKB END-EXEC
           EXEC CICS RETURN END-EXEC.
       NOT-FOUND.
           MOVE WS-KEY TO WS-LAST-KEY
           PERFORM SHOW-MAP
           EXEC CICS RETURN TRANSID('ONL1') COMMAREA(WS-COMM) END-EXEC.
       LEAVE-IT.
           EXEC CICS XCTL PROGRAM('MENU') NOHANDLE END-EXEC
           EXEC CICS RETURN END-EXEC.
       FAILED.
           EXEC CICS HANDLE CONDITION ERROR END-EXEC
           EXEC CICS SYNCPOINT ROLLBACK END-EXEC
           EXEC CICS ABEND ABCODE('FAIL') END-EXEC.
       ABENDED.
           EXEC CICS DUMP TRANSACTION DUMPCODE('ABND') END-EXEC
           EXEC CICS ABEND CANCEL END-EXEC.
       AFTER-ABEND.
           STOP RUN.
      *> CHECK:      NEVER-HERE: nothing names it, and control never goes on behind the EXEC CICS RETURN
      *> CHECK:      AFTER-ABEND: nothing names it, and control never goes on behind the EXEC CICS ABEND
      *> CHECK-NOT:  : {{nothing|what}}
      *> CHECK:      XCTL WS-NEXT-PGM (identifier, NEXTPGM)
      *> CHECK:      calls
      *> CHECK-NEXT: ONL1: next transaction
      *> CHECK-NEXT: WS-NEXT-PGM: transferred to, dynamic, holds NEXTPGM
      *> CHECK-NEXT: WS-SUB-PGM: linked, dynamic{{$}}
      *> CHECK-NEXT: FIXED: linked
      *> CHECK-NEXT: PRNT: started transaction
      *>
      *> JSON:        "transaction": "ONL1"
      *> JSON-NEXT:   "kind": "return"
      *> JSON:        "identifier": "WS-NEXT-PGM"
      *> JSON-NEXT:   "value": "NEXTPGM"
      *> JSON-NEXT:   "kind": "xctl"
      *>
      *> RECORD:      EXEC CICS READ, perhaps or in part
      *> RECORD:      EXEC CICS LINK, perhaps or in part
      *> RECORD:      read
      *> RECORD:      EXEC CICS START: written before the program begins, in
      *>
      *> MAP:         EXEC CICS RECEIVE MAP by way of CUSTI, perhaps or in part: read in
      *> MAP:         EXEC CICS SEND MAP by way of CUSTO: written in
      *>
      *> TREE:        option=NOTFND effect=label name=NOT-FOUND paragraph=NOT-FOUND
      *>
      *> A command with a response of its own enters no label of a condition; a SEND raises no MAPFAIL.
      *> EDGES:       EXEC CICS RECEIVE MAP -> handler: handler
      *> EDGES:       EXEC CICS XCTL -> exit: end of run
      *> EDGES:       EXEC CICS ABEND -> exit: end of run
      *> EDGES:       handler -> {{[0-9]+}} NO-MAP: handler
      *> EDGES-NEXT:  handler -> {{[0-9]+}} LEAVE-IT: handler
      *> EDGES-NEXT:  handler -> {{[0-9]+}} FAILED: handler
      *> EDGES-NEXT:  handler -> {{[0-9]+}} ABENDED: handler
      *> EDGES-NEXT:  handler -> {{[0-9]+}} NOT-FOUND: handler
