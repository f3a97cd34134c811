      *> RUN: %tarka check --verify --cics %s
      *>
      *> Files: direct access, browsing, updates with and without tokens, records by address, remote
      *> systems; queues of temporary storage and transient data.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. FILES.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  WS-RESP             PIC S9(8) COMP.
       01  WS-RESP2            PIC S9(8) COMP-5.
       01  WS-TOKEN            PIC S9(8) COMP.
       01  WS-LENGTH           PIC S9(4) COMP VALUE 80.
       01  WS-KEYLENGTH        PIC S9(4) COMP.
       01  WS-NUMREC           PIC S9(4) COMP.
       01  WS-ITEM             PIC S9(4) COMP.
       01  WS-REQID            PIC S9(4) COMP.
       01  WS-RBA              PIC S9(8) COMP.
       01  WS-XRBA             PIC X(8).
       01  WS-FILE             PIC X(8) VALUE 'CUSTFILE'.
       01  WS-QUEUE            PIC X(8).
       01  WS-LONG-QUEUE       PIC X(16).
       01  WS-SYSTEM           PIC X(4).
       01  WS-RECORD.
           05  WS-KEY.
               10  WS-BRANCH   PIC X(3).
               10  WS-NUMBER   PIC 9(5).
           05  WS-DATA         PIC X(72).
       01  WS-MESSAGE          PIC X(40).
       LINKAGE SECTION.
       01  LK-RECORD.
           05  LK-KEY          PIC X(8).
           05  LK-DATA         PIC X(72).
       PROCEDURE DIVISION.
       MAIN SECTION.
       DIRECT.
           EXEC CICS READ FILE('CUSTFILE') INTO(WS-RECORD)
               LENGTH(WS-LENGTH) RIDFLD(WS-KEY) EQUAL
               RESP(WS-RESP) RESP2(WS-RESP2)
           END-EXEC
           EVALUATE WS-RESP
               WHEN DFHRESP(NORMAL) CONTINUE
               WHEN DFHRESP(NOTFND)
               WHEN DFHRESP(LENGERR)
                   MOVE 'NOT FOUND' TO WS-MESSAGE
               WHEN OTHER
                   IF EIBRESP = DFHRESP(DISABLED) AND EIBRESP2 NOT = 0
                       MOVE EIBRSRCE TO WS-MESSAGE
                   END-IF
           END-EVALUATE
           EXEC CICS READ FILE(WS-FILE) SET(ADDRESS OF LK-RECORD)
               LENGTH(WS-LENGTH) RIDFLD(WS-BRANCH) KEYLENGTH(3)
               GENERIC GTEQ NOHANDLE END-EXEC
           EXEC CICS READ FILE(WS-FILE) INTO(WS-RECORD)
               RIDFLD(WS-KEY) UPDATE TOKEN(WS-TOKEN) END-EXEC
           EXEC CICS REWRITE FILE(WS-FILE) FROM(WS-RECORD)
               LENGTH(LENGTH OF WS-RECORD) TOKEN(WS-TOKEN) END-EXEC
           EXEC CICS READ DATASET(WS-FILE) INTO(WS-RECORD)
               RIDFLD(WS-RBA) RBA UPDATE END-EXEC
           EXEC CICS UNLOCK FILE(WS-FILE) TOKEN(WS-TOKEN) END-EXEC
           EXEC CICS DELETE FILE(WS-FILE) END-EXEC
           EXEC CICS DELETE FILE(WS-FILE) RIDFLD(WS-BRANCH)
               KEYLENGTH(LENGTH OF WS-BRANCH) GENERIC NUMREC(WS-NUMREC)
               END-EXEC
           EXEC CICS WRITE FILE('CUSTFILE') FROM(WS-RECORD)
               RIDFLD(WS-KEY) KEYLENGTH(8) LENGTH(80) MASSINSERT
               END-EXEC
           EXEC CICS WRITE FILE('ESDSFILE') FROM(WS-RECORD)
               RIDFLD(WS-XRBA) XRBA SYSID(WS-SYSTEM) LENGTH(80)
               END-EXEC.
       BROWSING.
           EXEC CICS STARTBR FILE(WS-FILE) RIDFLD(WS-KEY)
               REQID(WS-REQID) GTEQ END-EXEC
           EXEC CICS READNEXT FILE(WS-FILE) INTO(WS-RECORD)
               LENGTH(WS-LENGTH) RIDFLD(WS-KEY) REQID(WS-REQID)
               UPDATE TOKEN(WS-TOKEN) NOSUSPEND END-EXEC
           EXEC CICS READPREV FILE(WS-FILE) INTO(WS-RECORD)
               RIDFLD(WS-KEY) REQID(1) REPEATABLE END-EXEC
           EXEC CICS RESETBR FILE(WS-FILE) RIDFLD(WS-KEY) EQUAL
               REQID(WS-REQID) END-EXEC
           EXEC CICS ENDBR FILE(WS-FILE) REQID(WS-REQID) END-EXEC.
       QUEUES.
           EXEC CICS WRITEQ TS QUEUE(WS-QUEUE) FROM(WS-RECORD)
               LENGTH(LENGTH OF WS-RECORD) NUMITEMS(WS-ITEM)
               AUXILIARY NOSUSPEND END-EXEC
           EXEC CICS WRITEQ TS QNAME(WS-LONG-QUEUE) FROM(WS-RECORD)
               ITEM(WS-ITEM) REWRITE MAIN END-EXEC
           EXEC CICS READQ TS QUEUE('Q' ) INTO(WS-RECORD)
               LENGTH(WS-LENGTH) ITEM(1) NUMITEMS(WS-NUMREC) END-EXEC
           EXEC CICS READQ TS QUEUE(EIBTRMID) NEXT
               SET(ADDRESS OF LK-RECORD) LENGTH(WS-LENGTH) END-EXEC
           EXEC CICS DELETEQ TS QNAME(WS-LONG-QUEUE) END-EXEC
           EXEC CICS WRITEQ TD QUEUE('CSMT') FROM(WS-MESSAGE)
               LENGTH(40) END-EXEC
           EXEC CICS READQ TD QUEUE('L001') INTO(WS-RECORD)
               LENGTH(WS-LENGTH) NOSUSPEND RESP(WS-RESP) END-EXEC
           EXEC CICS DELETEQ TD QUEUE('L001') END-EXEC
           EXEC CICS RETURN END-EXEC.
      *> One mistake, one message.
       MISTAKES.
           EXEC CICS READ FILE('A') INTO(WS-RECORD)      *> expect: 5217
               END-EXEC
           EXEC CICS READ FILE('A') INTO(WS-RECORD)
               SET(ADDRESS OF LK-RECORD)                 *> expect: 5216
               RIDFLD(WS-KEY) END-EXEC
           EXEC CICS READ FILE('A') INTO(WS-RECORD)
               RIDFLD(WS-KEY)
               TOKEN(WS-LENGTH) UPDATE END-EXEC          *> expect: 5222
           EXEC CICS REWRITE FILE('A') FROM(WS-RECORD)
               LENGTH(81) END-EXEC                       *> expect: 5224
           EXEC CICS DELETE FILE('A') RIDFLD(WS-KEY)
               GENERIC END-EXEC                          *> expect: 5218
           EXEC CICS STARTBR FILE('A') RIDFLD(WS-KEY)
               GTEQ EQUAL END-EXEC                       *> expect: 5216
           EXEC CICS READNEXT FILE('A') INTO(WS-RECORD)
               RIDFLD('00001')                           *> expect: 5221
               END-EXEC
           EXEC CICS READQ TS QUEUE(WS-QEUE)             *> expect: 5201
               INTO(WS-RECORD) END-EXEC
           EXEC CICS WRITEQ TS QUEUE(WS-QUEUE) FROM(WS-RECORD)
               REWRITE END-EXEC                          *> expect: 5218
           EXEC CICS WRITEQ TS QUEUE(WS-QUEUE) FROM(WS-RECORD)
               NUMITEMS(WS-RESP) END-EXEC                *> expect: 5223
           EXEC CICS RAEDQ TD QUEUE('A') INTO(WS-RECORD) *> expect: 5212
               END-EXEC.
