*> RUN: %tarka cfg %s | FileCheck %s
*>
*> A statement may run the procedure of its file, of a mode that it works in, and the GLOBAL one of
*> a program around it. Phrases of its own keep it from that.
IDENTIFICATION DIVISION.
PROGRAM-ID. OUTER.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT IX-FILE ASSIGN TO IXFILE
        ORGANIZATION IS INDEXED ACCESS MODE IS DYNAMIC RECORD KEY IS IX-KEY.
    SELECT LOG-FILE ASSIGN TO LOGFILE.
DATA DIVISION.
FILE SECTION.
FD  IX-FILE IS GLOBAL.
01  IX-REC.
    05  IX-KEY              PIC X(8).
    05  IX-DATA             PIC X(8).
FD  LOG-FILE IS GLOBAL.
01  LOG-REC                 PIC X(80).
PROCEDURE DIVISION.
DECLARATIVES.
IO-ERROR SECTION.
    USE AFTER ERROR PROCEDURE ON I-O.
*>  Its own USE comes later than this statement.
    WRITE LOG-REC.
LOG-ERROR SECTION.
    USE GLOBAL AFTER ERROR PROCEDURE ON LOG-FILE.
    DISPLAY "LOG".
END DECLARATIVES.
MAIN SECTION.
ALL-OF-I-O.
    READ IX-FILE NEXT.
    WRITE IX-REC.
    REWRITE IX-REC.
    START IX-FILE.
    DELETE IX-FILE.
WITH-PHRASES.
    READ IX-FILE INVALID KEY CONTINUE.
    REWRITE IX-REC NOT INVALID KEY CONTINUE.
IDENTIFICATION DIVISION.
PROGRAM-ID. INNER.
PROCEDURE DIVISION.
MAIN.
*>  Only the procedure of LOG-FILE is GLOBAL.
    READ IX-FILE NEXT.
    WRITE LOG-REC.
    GOBACK.
IDENTIFICATION DIVISION.
PROGRAM-ID. INNERMOST.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT LOG-FILE ASSIGN TO OWNLOG.
DATA DIVISION.
FILE SECTION.
FD  LOG-FILE.
01  OWN-REC                 PIC X(80).
PROCEDURE DIVISION.
MAIN.
*>  Another file of the same name.
    WRITE OWN-REC.
    GOBACK.
END PROGRAM INNERMOST.
END PROGRAM INNER.
END PROGRAM OUTER.
*> CHECK:      function OUTER
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:          15 file IX-FILE
*> CHECK-NEXT:          19 file LOG-FILE
*> CHECK-NEXT:        -> falls into 1 tkdummy_register_use
*> CHECK-NEXT:     1: tkdummy_register_use
*> CHECK-NEXT:          23 register declarative IO-ERROR
*> CHECK-NEXT:          27 register declarative LOG-ERROR
*> CHECK-NEXT:        -> falls into 2 tkdummy_declaratives
*> CHECK-NEXT:     2: tkdummy_declaratives [terminator]
*> CHECK-NEXT:          0 branch to declarative
*> CHECK-NEXT:        -> successor 10 tkdummy_end_declaratives
*> CHECK-NEXT:   section IO-ERROR
*> CHECK-NEXT:     3: IO-ERROR [terminator]
*> CHECK-NEXT:          26 WRITE
*> CHECK-NEXT:        -> successor 4 tkdummy_declarative_after, after 4 tkdummy_declarative_after, return 4 tkdummy_declarative_after
*> CHECK-NEXT:     4: tkdummy_declarative_after
*> CHECK-NEXT:        -> successor 5 IO-ERROR_exit
*> CHECK-NEXT:     5: IO-ERROR_exit [terminator]
*> CHECK-NEXT:          23 return to performer of IO-ERROR
*> CHECK-NEXT:        -> successor 6 IO-ERROR_exit_after
*> CHECK-NEXT:     6: IO-ERROR_exit_after
*> CHECK-NEXT:   section LOG-ERROR
*> CHECK-NEXT:     7: LOG-ERROR
*> CHECK-NEXT:          29 DISPLAY
*> CHECK-NEXT:        -> successor 8 LOG-ERROR_exit
*> CHECK-NEXT:     8: LOG-ERROR_exit [terminator]
*> CHECK-NEXT:          27 return to performer of LOG-ERROR
*> CHECK-NEXT:        -> successor 9 LOG-ERROR_exit_after
*> CHECK-NEXT:     9: LOG-ERROR_exit_after
*> CHECK-NEXT:    10: tkdummy_end_declaratives
*> CHECK-NEXT:        -> falls into 11 MAIN
*> CHECK-NEXT:   section MAIN
*> CHECK-NEXT:    11: MAIN [procedure]
*> CHECK-NEXT:        -> falls into 12 ALL-OF-I-O
*> CHECK-NEXT:   paragraph ALL-OF-I-O
*> CHECK-NEXT:    12: ALL-OF-I-O [procedure] [terminator]
*> CHECK-NEXT:          33 READ
*> CHECK-NEXT:        -> successor 13 tkdummy_declarative_after, after 13 tkdummy_declarative_after, return 13 tkdummy_declarative_after
*> CHECK-NEXT:    13: tkdummy_declarative_after [terminator]
*> CHECK-NEXT:          34 WRITE
*> CHECK-NEXT:        -> successor 14 tkdummy_declarative_after, after 14 tkdummy_declarative_after, return 14 tkdummy_declarative_after
*> CHECK-NEXT:    14: tkdummy_declarative_after [terminator]
*> CHECK-NEXT:          35 REWRITE
*> CHECK-NEXT:        -> successor 15 tkdummy_declarative_after, after 15 tkdummy_declarative_after, return 15 tkdummy_declarative_after
*> CHECK-NEXT:    15: tkdummy_declarative_after [terminator]
*> CHECK-NEXT:          36 START
*> CHECK-NEXT:        -> successor 16 tkdummy_declarative_after, after 16 tkdummy_declarative_after, return 16 tkdummy_declarative_after
*> CHECK-NEXT:    16: tkdummy_declarative_after [terminator]
*> CHECK-NEXT:          37 DELETE
*> CHECK-NEXT:        -> successor 17 tkdummy_declarative_after, after 17 tkdummy_declarative_after, return 17 tkdummy_declarative_after
*> CHECK-NEXT:    17: tkdummy_declarative_after
*> CHECK-NEXT:        -> falls into 18 WITH-PHRASES
*> CHECK-NEXT:   paragraph WITH-PHRASES
*> CHECK-NEXT:    18: WITH-PHRASES [procedure] [terminator]
*> CHECK-NEXT:          39 READ
*> CHECK-NEXT:        -> then 19 tkdummy_read_exception, end 20 tkdummy_read_end
*> CHECK-NEXT:    19: tkdummy_read_exception
*> CHECK-NEXT:          39 CONTINUE
*> CHECK-NEXT:        -> successor 20 tkdummy_read_end
*> CHECK-NEXT:    20: tkdummy_read_end [terminator]
*> CHECK-NEXT:          40 REWRITE
*> CHECK-NEXT:        -> else 21 tkdummy_rewrite_notexception, end 22 tkdummy_rewrite_end
*> CHECK-NEXT:    21: tkdummy_rewrite_notexception
*> CHECK-NEXT:          40 CONTINUE
*> CHECK-NEXT:        -> successor 22 tkdummy_rewrite_end
*> CHECK-NEXT:    22: tkdummy_rewrite_end
*>
*> CHECK:      function INNER [not called]
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 MAIN
*> CHECK-NEXT:   paragraph MAIN
*> CHECK-NEXT:     1: MAIN [procedure] [terminator]
*> CHECK-NEXT:          46 READ
*> CHECK-NEXT:          47 WRITE
*> CHECK-NEXT:        -> successor 2 tkdummy_declarative_after, after 2 tkdummy_declarative_after, return 2 tkdummy_declarative_after
*> CHECK-NEXT:     2: tkdummy_declarative_after [terminator]
*> CHECK-NEXT:          48 GOBACK
*> CHECK-NEXT:     3: tkdummy_after_goback
*>
*> CHECK:      function INNERMOST [not called]
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:          57 file LOG-FILE
*> CHECK-NEXT:        -> falls into 1 MAIN
*> CHECK-NEXT:   paragraph MAIN
*> CHECK-NEXT:     1: MAIN [procedure] [terminator]
*> CHECK-NEXT:          62 WRITE
*> CHECK-NEXT:          63 GOBACK
*> CHECK-NEXT:     2: tkdummy_after_goback
