      *> RUN: %tarka check --verify %s
      *>
      *> IMS: EXEC DLI in batch and online programs, and calls of the interface modules, whose function
      *> is a literal or an item that holds it.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. IMSBATCH.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  FUNCTIONS.
           05  GET-UNIQUE      PIC X(4) VALUE 'GU  '.
           05  GET-HOLD-NEXT   PIC X(4) VALUE 'GHN '.
           05  REPLACE-IT      PIC X(4) VALUE 'REPL'.
           05  INSERT-IT       PIC X(4) VALUE 'ISRT'.
           05  DELETE-IT       PIC X(4) VALUE 'DELT'.
           05  CHECKPOINT      PIC X(4) VALUE 'CHKP'.
       77  FUNCTION-CODE       PIC X(4) VALUE 'XXXX'.
       77  PARAMETERS          PIC S9(5) COMP VALUE 4.
       01  PART-AREA           PIC X(80).
       01  PART-KEY            PIC X(8).
       01  SEGMENT-NAME        PIC X(8).
       01  FEEDBACK            PIC X(50).
       01  PCB-NUMBER          PIC S9(4) COMP.
       01  LENGTH-OF-KEY       PIC S9(4) COMP VALUE 8.
       01  CHECKPOINT-ID       PIC X(8).
       01  PART-SSA.
           05  FILLER          PIC X(9) VALUE 'PART    ('.
           05  FILLER          PIC X(10) VALUE 'PARTNO  ='.
           05  SSA-KEY         PIC X(8).
           05  FILLER          PIC X VALUE ')'.
       01  UNQUALIFIED-SSA     PIC X(9) VALUE 'STOCK   '.
       01  APPLICATION-BLOCK.
           05  AIBID           PIC X(8) VALUE 'DFSAIB'.
           05  AIBLEN          PIC 9(9) COMP VALUE 128.
           05  AIBSFUNC        PIC X(8).
           05  AIBRSNM1        PIC X(8) VALUE 'PARTPCB'.
           05  FILLER          PIC X(16).
           05  AIBOALEN        PIC 9(9) COMP.
           05  AIBOAUSE        PIC 9(9) COMP.
           05  FILLER          PIC X(76).
       LINKAGE SECTION.
       01  IO-PCB              PIC X(32).
       01  PART-PCB.
           05  DBD-NAME        PIC X(8).
           05  SEG-LEVEL       PIC XX.
           05  STATUS-CODE     PIC XX.
               88  NO-MORE     VALUE 'GE' 'GB'.
           05  PROC-OPTIONS    PIC X(4).
           05  FILLER          PIC S9(5) COMP.
           05  SEG-NAME        PIC X(8).
           05  KEY-LENGTH      PIC S9(5) COMP.
           05  SENSEGS         PIC S9(5) COMP.
           05  KEY-AREA        PIC X(50).
       PROCEDURE DIVISION USING IO-PCB PART-PCB.
       MAIN SECTION.
       CALLS.
           ENTRY 'DLITCBL' USING IO-PCB PART-PCB
           CALL 'CBLTDLI' USING GET-UNIQUE PART-PCB PART-AREA PART-SSA
           CALL 'CBLTDLI' USING PARAMETERS GET-HOLD-NEXT PART-PCB
               PART-AREA UNQUALIFIED-SSA
           CALL 'CBLTDLI' USING REPLACE-IT PART-PCB PART-AREA
           CALL 'CBLTDLI' USING CHECKPOINT IO-PCB CHECKPOINT-ID
           CALL 'CEETDLI' USING 'GHU ' PART-PCB PART-AREA PART-SSA
           CALL 'AIBTDLI' USING INSERT-IT APPLICATION-BLOCK PART-AREA
               UNQUALIFIED-SSA
           MOVE 'GN  ' TO FUNCTION-CODE
           CALL 'CBLTDLI' USING FUNCTION-CODE PART-PCB PART-AREA.
       COMMANDS.
           EXEC DLI GET UNIQUE USING PCB(1)
               SEGMENT(PART) WHERE(PARTNO=PART-KEY)
               SEGMENT(STOCK) INTO(PART-AREA) SEGLENGTH(80)
               WHERE(LOCATION>='A' AND COUNT > 10 OR COLOR = PART-KEY)
               FIELDLENGTH(8, 2, 8) END-EXEC
           EXEC DLI GN USING PCB(PCB-NUMBER) SEGMENT(PART) LOCKED
               INTO(PART-AREA) KEYFEEDBACK(FEEDBACK) FEEDBACKLEN(50)
               KEYS(FEEDBACK) KEYLENGTH(LENGTH-OF-KEY) END-EXEC
           EXEC DLI GNP SEGMENT((SEGMENT-NAME)) INTO(PART-AREA)
               FIRST SETPARENT END-EXEC
           EXEC DLI ISRT USING PCB(2) VARIABLE SEGMENT(PART)
               FROM(PART-AREA) SEGLENGTH(80) OFFSET(4) END-EXEC
           EXEC DLI REPL SEGMENT(PART) FROM(PART-AREA) END-EXEC
           EXEC DLI DLET SEGMENT(PART) FROM(PART-AREA) END-EXEC
           EXEC DLI CHKP ID(CHECKPOINT-ID) END-EXEC
           EXEC DLI SYMCHKP ID('CHKP001') AREA1(PART-AREA) LENGTH1(80)
               END-EXEC
           EXEC DLI XRST MAXLENGTH(80) ID(CHECKPOINT-ID) AREA1(FEEDBACK)
               END-EXEC
           EXEC DLI ROLB END-EXEC
           EXEC DLI SCHEDULE PSB((SEGMENT-NAME)) END-EXEC
           EXEC DLI SCHD PSB(PARTPSB) SYSSERVE NODHABEND END-EXEC
           EXEC DLI TERM END-EXEC
           EXEC DLI POS USING PCB(1) SEGMENT(PART) INTO(PART-AREA)
               KEYFEEDBACK(FEEDBACK) END-EXEC
           EXEC DLI QUERY USING PCB(1) END-EXEC
           EXEC DLI ACCEPT STATUSGROUP('A') END-EXEC
           IF NO-MORE GOBACK.
      *> One mistake, one message.
       MISTAKES.
           CALL 'CBLTDLI' USING
               DELETE-IT PART-PCB PART-AREA                *> expect: 5262
           CALL 'CEETDLI' USING
               'RPEL' PART-PCB PART-AREA                   *> expect: 5262
           CALL 'CBLTDLI' USING PARAMETERS
               'GHNQ' PART-PCB PART-AREA PART-SSA          *> expect: 5262
           EXEC DLI GNPP SEGMENT(PART) INTO(PART-AREA)     *> expect: 5261
               END-EXEC
           EXEC DLI GU SEGMENT(PART)
               WHERE(PARTNO=PARTKEY) END-EXEC              *> expect: 5201
           EXEC DLI GU SEGMENT((SEGMENT-NAMES))            *> expect: 5201
               INTO(PART-AREA) END-EXEC
           EXEC DLI GU SEGMENT(PART)
               INTO('PART') END-EXEC.                      *> expect: 5221
