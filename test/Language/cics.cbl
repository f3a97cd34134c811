      *> RUN: %tarka check --verify --cics %s
      *> RUN: %tarka ast --cics %s | FileCheck %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. CICS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  WS-RESP             PIC S9(8) COMP.
       01  WS-CODE             PIC 9(4).
       01  WS-LENGTH           PIC S9(4) COMP.
       01  WS-LONG             PIC S9(8) COMP.
       01  WS-ITEM             PIC S9(4) COMP VALUE 1.
       01  WS-RECORD.
           05  WS-KEY          PIC X(8).
           05  WS-REST         PIC X(72).
       01  WS-TABLE.
           05  WS-ROW          PIC X(20) OCCURS 5.
       01  WS-TIME             PIC S9(15) COMP-3.
       01  WS-TEXT             PIC X(10).
       01  WS-POINTER          POINTER.
       01  WS-TOKEN            PIC X(8).
       LINKAGE SECTION.
       01  LK-RECORD           PIC X(80).
       PROCEDURE DIVISION.
       MAIN SECTION.
       FIRST-ONE.
      *> A literal may hold END-EXEC, a command may run over lines and hold comments.
      *> CHECK:      EmbeddedCommand <31:22-35:27> name=SEND TEXT
      *> CHECK:      EmbeddedOperand <32:16-32:29> option=FROM effect=read
      *> CHECK-NEXT: argument: DataIdentifier{{.*}} <32:22-32:28>
      *> CHECK:      EmbeddedOperand <34:16-34:41> option=LENGTH effect=read
           EXEC CICS SEND TEXT
               FROM (WS-TEXT)
      *        a comment line
               LENGTH (LENGTH OF WS-TEXT) *> and one behind text
               ERASE FREEKB
           END-EXEC
           EXEC CICS WRITE OPERATOR TEXT('IT''S END-EXEC') END-EXEC
           EXEC CICS HANDLE CONDITION NOTFND(NOT-THERE) LENGERR
               ERROR(FAILED) END-EXEC
           EXEC CICS HANDLE AID PF3(FAILED) ANYKEY END-EXEC
           EXEC CICS HANDLE ABEND LABEL(FAILED) END-EXEC
           EXEC CICS READ DATASET('CUST') INTO(WS-RECORD)
               RIDFLD(WS-KEY OF WS-RECORD) LENGTH(WS-LENGTH) UPDATE
               RESP(WS-RESP) RESP2(WS-LONG) END-EXEC
           EXEC CICS READ FILE('CUST') SET(ADDRESS OF LK-RECORD)
               RIDFLD(WS-ROW(WS-ITEM)(1:8)) KEYLENGTH(3) GENERIC GTEQ
               NOHANDLE END-EXEC
           EXEC CICS WRITEQ TS QUEUE('Q') FROM(WS-ROW(2)) ITEM(WS-ITEM)
               REWRITE MAIN END-EXEC
           EXEC CICS WRITEQ QUEUE(WS-TOKEN) FROM(WS-RECORD) TS END-EXEC
           EXEC CICS DELETEQ TD QUEUE('LOGX') END-EXEC
           EXEC CICS ASKTIME ABSTIME(WS-TIME) END-EXEC
           EXEC CICS FORMATTIME ABSTIME(WS-TIME) YYYYMMDD(WS-TOKEN)
               DATESEP('-') TIME(WS-TOKEN) TIMESEP END-EXEC
           EXEC CICS START TRANSID('NEXT') INTERVAL(010000) REQID('R1')
               FROM(WS-RECORD) LENGTH(80) TERMID(EIBTRMID) END-EXEC
           EXEC CICS START TRANSID('NEXT') AFTER SECONDS(5) END-EXEC
           EXEC CICS PUT CONTAINER('IN') CHANNEL('CH') FROM(WS-RECORD)
               FLENGTH(LENGTH OF WS-RECORD) CHAR END-EXEC
           EXEC CICS WEB OPEN HOST('A.COM') HOSTLENGTH(5) HTTP
               SESSTOKEN(WS-TOKEN) END-EXEC
           EXEC CICS INQUIRE FILE('CUST') OPENSTATUS(WS-LONG) END-EXEC
      *> CHECK: name=INQUIRE
      *> CHECK: option=FILE effect=read
      *> CHECK: option=OPENSTATUS effect=written
           IF WS-LONG = DFHVALUE(UCTRAN) OR DFHVALUE(IMMEDIATE)
               OR DFHVALUE(HTTP) CONTINUE END-IF
           EXEC CICS LINK PROGRAM('SUB') COMMAREA(WS-RECORD)
               LENGTH(LENGTH OF WS-RECORD) END-EXEC
           EXEC CICS GETMAIN SET(WS-POINTER) FLENGTH(100)
               INITIMG(WS-TEXT) END-EXEC
           EXEC CICS ISSUE DISCONNECT END-EXEC
           EXEC CICS RETURN TRANSID('NEXT') COMMAREA(WS-RECORD)
               LENGTH(80) END-EXEC.
      *> One mistake, one message.
       MISTAKES.
           EXEC CICS SNED MAP('M') END-EXEC           *> expect: 5212
           EXEC CICS FROBNICATE FILE('X') END-EXEC    *> expect: 5211
           EXEC CICS READ FILE('CUST') INTO(WS-RECRD) *> expect: 5201
               RIDFLD(WS-KEY) END-EXEC
           EXEC CICS READ FILE('CUST') INTO(WS-RECORD)
               RIDFLD(WS-KEY) RESP(WS-CODE) END-EXEC  *> expect: 5222
           EXEC CICS READ FILE('CUST') INTO('RECORD') *> expect: 5221
               RIDFLD(WS-KEY) END-EXEC
           EXEC CICS READ FILE('CUST') INTO(WS-RECORD)
               LENGTH(WS-LONG) RIDFLD(WS-KEY)         *> expect: 5223
               END-EXEC
           EXEC CICS READ FILE('CUST') INTO(WS-RECORD)
               LENGTH(81) RIDFLD(WS-KEY) END-EXEC     *> expect: 5224
           EXEC CICS WRITE FILE('C') RIDFLD(WS-KEY)   *> expect: 5217
               END-EXEC
           EXEC CICS READ FILE('C') DATASET('D')      *> expect: 5216
               INTO(WS-RECORD) RIDFLD(WS-KEY) END-EXEC
           EXEC CICS READ FILE('CUST') INTO(WS-RECORD)
               RIDFLD(WS-KEY) GENERIC END-EXEC        *> expect: 5218
           EXEC CICS XCTL PROGRAM END-EXEC            *> expect: 5219
           EXEC CICS SYNCPOINT
               ROLLBACK(WS-KEY) END-EXEC              *> expect: 5220
           EXEC CICS XCTL PROGRAM('A')
               PROGRAM('B') END-EXEC                  *> expect: 5215
           EXEC CICS XCTL PORGRAM('A') END-EXEC       *> expect: 5214
           EXEC CICS SUSPEND GENTLY END-EXEC          *> expect: 5213
           EXEC CICS XCTL PROGRAM('A' END-EXEC        *> expect: 5204
           EXEC CICS HANDLE CONDITION
               NOTFUND(FAILED)                        *> expect: 5225
               ERROR(FALIED) END-EXEC                 *> expect: 5203
           EXEC CICS SEND TEXT FROM(WS-ROW) END-EXEC. *> expect: 5002
       NOT-THERE.
           GOBACK.
       FAILED.
           EXEC CICS ABEND ABCODE('FAIL') END-EXEC.
