*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> The statements with AT END, INVALID KEY and END-OF-PAGE phrases; without one they split nothing.
IDENTIFICATION DIVISION.
PROGRAM-ID. INOUT.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT IX-FILE ASSIGN TO IXFILE
        ORGANIZATION IS INDEXED ACCESS MODE IS DYNAMIC RECORD KEY IS IX-KEY.
    SELECT PR-FILE ASSIGN TO PRFILE.
DATA DIVISION.
FILE SECTION.
FD  IX-FILE.
01  IX-REC.
    05  IX-KEY              PIC X(8).
    05  IX-DATA             PIC X(8).
FD  PR-FILE LINAGE IS 60 LINES WITH FOOTING AT 55.
01  PR-REC                  PIC X(80).
PROCEDURE DIVISION.
NONE.
    READ IX-FILE
    WRITE IX-REC
    REWRITE IX-REC
    START IX-FILE
    DELETE IX-FILE.
READS.
    READ IX-FILE NEXT
        AT END DISPLAY "END"
        NOT AT END DISPLAY "MORE"
    END-READ
    READ IX-FILE
        NOT INVALID KEY DISPLAY "FOUND"
    END-READ.
WRITES.
    WRITE IX-REC
        INVALID KEY DISPLAY "DOUBLE"
        NOT INVALID KEY DISPLAY "NEW"
    END-WRITE
    WRITE PR-REC AFTER ADVANCING 1 LINE
        AT END-OF-PAGE DISPLAY "PAGE"
    END-WRITE.
OTHERS.
    START IX-FILE KEY IS NOT LESS THAN IX-KEY
        INVALID KEY DISPLAY "NONE"
        NOT INVALID KEY DISPLAY "SOME"
    END-START
    REWRITE IX-REC
        INVALID KEY DISPLAY "GONE"
        NOT INVALID KEY DISPLAY "DONE"
    END-REWRITE.
DELETES.
*>  Both branches bear the same name.
    DELETE IX-FILE
        INVALID KEY DISPLAY "GONE"
        NOT INVALID KEY DISPLAY "DONE"
    END-DELETE.
*> CHECK:      function INOUT
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:          14 file IX-FILE
*> CHECK-NEXT:          18 file PR-FILE
*> CHECK-NEXT:        -> falls into 1 NONE
*> CHECK-NEXT:   paragraph NONE
*> CHECK-NEXT:     1: NONE [procedure]
*> CHECK-NEXT:          22 READ
*> CHECK-NEXT:          23 WRITE
*> CHECK-NEXT:          24 REWRITE
*> CHECK-NEXT:          25 START
*> CHECK-NEXT:          26 DELETE
*> CHECK-NEXT:        -> falls into 2 READS
*> CHECK-NEXT:   paragraph READS
*> CHECK-NEXT:     2: READS [procedure] [terminator]
*> CHECK-NEXT:          28 READ
*> CHECK-NEXT:        -> then 3 tkdummy_read_exception, else 4 tkdummy_read_notexception, end 5 tkdummy_read_end
*> CHECK-NEXT:     3: tkdummy_read_exception
*> CHECK-NEXT:          29 DISPLAY
*> CHECK-NEXT:        -> successor 5 tkdummy_read_end
*> CHECK-NEXT:     4: tkdummy_read_notexception
*> CHECK-NEXT:          30 DISPLAY
*> CHECK-NEXT:        -> successor 5 tkdummy_read_end
*> CHECK-NEXT:     5: tkdummy_read_end [terminator]
*> CHECK-NEXT:          32 READ
*> CHECK-NEXT:        -> else 6 tkdummy_read_notexception, end 7 tkdummy_read_end
*> CHECK-NEXT:     6: tkdummy_read_notexception
*> CHECK-NEXT:          33 DISPLAY
*> CHECK-NEXT:        -> successor 7 tkdummy_read_end
*> CHECK-NEXT:     7: tkdummy_read_end
*> CHECK-NEXT:        -> falls into 8 WRITES
*> CHECK-NEXT:   paragraph WRITES
*> CHECK-NEXT:     8: WRITES [procedure] [terminator]
*> CHECK-NEXT:          36 WRITE
*> CHECK-NEXT:        -> then 9 tkdummy_write_exception, else 10 tkdummy_write_notexception, end 11 tkdummy_write_end
*> CHECK-NEXT:     9: tkdummy_write_exception
*> CHECK-NEXT:          37 DISPLAY
*> CHECK-NEXT:        -> successor 11 tkdummy_write_end
*> CHECK-NEXT:    10: tkdummy_write_notexception
*> CHECK-NEXT:          38 DISPLAY
*> CHECK-NEXT:        -> successor 11 tkdummy_write_end
*> CHECK-NEXT:    11: tkdummy_write_end [terminator]
*> CHECK-NEXT:          40 WRITE
*> CHECK-NEXT:        -> then 12 tkdummy_write_exception, end 13 tkdummy_write_end
*> CHECK-NEXT:    12: tkdummy_write_exception
*> CHECK-NEXT:          41 DISPLAY
*> CHECK-NEXT:        -> successor 13 tkdummy_write_end
*> CHECK-NEXT:    13: tkdummy_write_end
*> CHECK-NEXT:        -> falls into 14 OTHERS
*> CHECK-NEXT:   paragraph OTHERS
*> CHECK-NEXT:    14: OTHERS [procedure] [terminator]
*> CHECK-NEXT:          44 START
*> CHECK-NEXT:        -> then 15 tkdummy_start_exception, else 16 tkdummy_start_notexception, end 17 tkdummy_start_end
*> CHECK-NEXT:    15: tkdummy_start_exception
*> CHECK-NEXT:          45 DISPLAY
*> CHECK-NEXT:        -> successor 17 tkdummy_start_end
*> CHECK-NEXT:    16: tkdummy_start_notexception
*> CHECK-NEXT:          46 DISPLAY
*> CHECK-NEXT:        -> successor 17 tkdummy_start_end
*> CHECK-NEXT:    17: tkdummy_start_end [terminator]
*> CHECK-NEXT:          48 REWRITE
*> CHECK-NEXT:        -> then 18 tkdummy_rewrite_exception, else 19 tkdummy_rewrite_notexception, end 20 tkdummy_rewrite_end
*> CHECK-NEXT:    18: tkdummy_rewrite_exception
*> CHECK-NEXT:          49 DISPLAY
*> CHECK-NEXT:        -> successor 20 tkdummy_rewrite_end
*> CHECK-NEXT:    19: tkdummy_rewrite_notexception
*> CHECK-NEXT:          50 DISPLAY
*> CHECK-NEXT:        -> successor 20 tkdummy_rewrite_end
*> CHECK-NEXT:    20: tkdummy_rewrite_end
*> CHECK-NEXT:        -> falls into 21 DELETES
*> CHECK-NEXT:   paragraph DELETES
*> CHECK-NEXT:    21: DELETES [procedure] [terminator]
*> CHECK-NEXT:          54 DELETE
*> CHECK-NEXT:        -> then 22 tkdummy_delete_exception, else 23 tkdummy_delete_exception, end 24 tkdummy_delete_end
*> CHECK-NEXT:    22: tkdummy_delete_exception
*> CHECK-NEXT:          55 DISPLAY
*> CHECK-NEXT:        -> successor 24 tkdummy_delete_end
*> CHECK-NEXT:    23: tkdummy_delete_exception
*> CHECK-NEXT:          56 DISPLAY
*> CHECK-NEXT:        -> successor 24 tkdummy_delete_end
*> CHECK-NEXT:    24: tkdummy_delete_end
