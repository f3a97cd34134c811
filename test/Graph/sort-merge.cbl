*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> The procedures of SORT and MERGE run like performed ranges.
IDENTIFICATION DIVISION.
PROGRAM-ID. SORTS.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT W-FILE ASSIGN TO WFILE.
    SELECT A-FILE ASSIGN TO AFILE.
    SELECT B-FILE ASSIGN TO BFILE.
    SELECT C-FILE ASSIGN TO CFILE.
DATA DIVISION.
FILE SECTION.
SD  W-FILE.
01  W-REC.
    05  W-KEY               PIC X(8).
FD  A-FILE.
01  A-REC                   PIC X(8).
FD  B-FILE.
01  B-REC                   PIC X(8).
FD  C-FILE.
01  C-REC                   PIC X(8).
PROCEDURE DIVISION.
MAIN.
    SORT W-FILE ON ASCENDING KEY W-KEY USING A-FILE GIVING B-FILE
    SORT W-FILE ON ASCENDING KEY W-KEY
        INPUT PROCEDURE IS FILL THRU FILL-END
        OUTPUT PROCEDURE IS DRAIN
    MERGE W-FILE ON ASCENDING KEY W-KEY USING A-FILE B-FILE GIVING C-FILE
    MERGE W-FILE ON ASCENDING KEY W-KEY USING A-FILE B-FILE OUTPUT PROCEDURE IS DRAIN
    GOBACK.
FILL.
    RELEASE W-REC FROM A-REC.
FILL-END.
    EXIT.
DRAIN.
    RETURN W-FILE
        AT END DISPLAY "END"
        NOT AT END DISPLAY "MORE"
    END-RETURN
    RETURN W-FILE AT END CONTINUE.
*> CHECK:      function SORTS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:          15 file W-FILE
*> CHECK-NEXT:          18 file A-FILE
*> CHECK-NEXT:          20 file B-FILE
*> CHECK-NEXT:          22 file C-FILE
*> CHECK-NEXT:        -> falls into 1 MAIN
*> CHECK-NEXT:   paragraph MAIN
*> CHECK-NEXT:     1: MAIN [procedure] [terminator]
*> CHECK-NEXT:          26 SORT
*> CHECK-NEXT:        -> else 2 tkdummy_sort_after_input, end 4 tkdummy_endsort
*> CHECK-NEXT:     2: tkdummy_sort_after_input [terminator]
*> CHECK-NEXT:        -> then 3 tkdummy_sort_start, else 3 tkdummy_sort_start
*> CHECK-NEXT:     3: tkdummy_sort_start [terminator]
*> CHECK-NEXT:        -> then 4 tkdummy_endsort
*> CHECK-NEXT:     4: tkdummy_endsort [terminator]
*> CHECK-NEXT:          27 SORT
*> CHECK-NEXT:        -> then 5 tkdummy_sort_input, else 7 tkdummy_sort_after_input, end 11 tkdummy_endsort
*> CHECK-NEXT:     5: tkdummy_sort_input [terminator]
*> CHECK-NEXT:          27 PERFORM FILL THRU FILL-END
*> CHECK-NEXT:        -> successor 6 tkdummy_perform_27_line_after, after 6 tkdummy_perform_27_line_after, return 6 tkdummy_perform_27_line_after
*> CHECK-NEXT:     6: tkdummy_perform_27_line_after
*> CHECK-NEXT:        -> successor 7 tkdummy_sort_after_input, end 7 tkdummy_sort_after_input
*> CHECK-NEXT:     7: tkdummy_sort_after_input [terminator]
*> CHECK-NEXT:        -> then 8 tkdummy_sort_output, else 10 tkdummy_sort_start
*> CHECK-NEXT:     8: tkdummy_sort_output [terminator]
*> CHECK-NEXT:          27 PERFORM DRAIN
*> CHECK-NEXT:        -> successor 9 tkdummy_perform_27_line_after, after 9 tkdummy_perform_27_line_after, return 9 tkdummy_perform_27_line_after
*> CHECK-NEXT:     9: tkdummy_perform_27_line_after
*> CHECK-NEXT:        -> successor 10 tkdummy_sort_start
*> CHECK-NEXT:    10: tkdummy_sort_start [terminator]
*> CHECK-NEXT:        -> then 11 tkdummy_endsort
*> CHECK-NEXT:    11: tkdummy_endsort [terminator]
*> CHECK-NEXT:          30 MERGE
*> CHECK-NEXT:        -> then 12 tkdummy_merge_start, else 12 tkdummy_merge_start, end 13 tkdummy_endmerge
*> CHECK-NEXT:    12: tkdummy_merge_start [terminator]
*> CHECK-NEXT:        -> then 13 tkdummy_endmerge
*> CHECK-NEXT:    13: tkdummy_endmerge [terminator]
*> CHECK-NEXT:          31 MERGE
*> CHECK-NEXT:        -> then 14 tkdummy_merge_then, else 16 tkdummy_merge_start, end 17 tkdummy_endmerge
*> CHECK-NEXT:    14: tkdummy_merge_then [terminator]
*> CHECK-NEXT:          31 PERFORM DRAIN
*> CHECK-NEXT:        -> successor 15 tkdummy_perform_31_line_after, after 15 tkdummy_perform_31_line_after, return 15 tkdummy_perform_31_line_after
*> CHECK-NEXT:    15: tkdummy_perform_31_line_after
*> CHECK-NEXT:        -> successor 16 tkdummy_merge_start
*> CHECK-NEXT:    16: tkdummy_merge_start [terminator]
*> CHECK-NEXT:        -> then 17 tkdummy_endmerge
*> CHECK-NEXT:    17: tkdummy_endmerge [terminator]
*> CHECK-NEXT:          32 GOBACK
*> CHECK-NEXT:    18: tkdummy_after_goback
*> CHECK-NEXT:   paragraph FILL
*> CHECK-NEXT:    19: FILL [procedure]
*> CHECK-NEXT:          34 RELEASE
*> CHECK-NEXT:        -> falls into 20 FILL-END
*> CHECK-NEXT:   paragraph FILL-END
*> CHECK-NEXT:    20: FILL-END [procedure]
*> CHECK-NEXT:          36 EXIT
*> CHECK-NEXT:        -> successor 21 FILL-END_exit
*> CHECK-NEXT:    21: FILL-END_exit [terminator]
*> CHECK-NEXT:          35 return to performer of FILL-END
*> CHECK-NEXT:        -> successor 22 FILL-END_exit_after
*> CHECK-NEXT:    22: FILL-END_exit_after
*> CHECK-NEXT:   paragraph DRAIN
*> CHECK-NEXT:    23: DRAIN [procedure] [terminator]
*> CHECK-NEXT:          38 RETURN
*> CHECK-NEXT:        -> then 24 tkdummy_return_exception, else 25 tkdummy_return_notexception, end 26 tkdummy_return_end
*> CHECK-NEXT:    24: tkdummy_return_exception
*> CHECK-NEXT:          39 DISPLAY
*> CHECK-NEXT:        -> successor 26 tkdummy_return_end
*> CHECK-NEXT:    25: tkdummy_return_notexception
*> CHECK-NEXT:          40 DISPLAY
*> CHECK-NEXT:        -> successor 26 tkdummy_return_end
*> CHECK-NEXT:    26: tkdummy_return_end [terminator]
*> CHECK-NEXT:          42 RETURN
*> CHECK-NEXT:        -> then 27 tkdummy_return_exception, end 28 tkdummy_return_end
*> CHECK-NEXT:    27: tkdummy_return_exception
*> CHECK-NEXT:          42 CONTINUE
*> CHECK-NEXT:        -> successor 28 tkdummy_return_end
*> CHECK-NEXT:    28: tkdummy_return_end
*> CHECK-NEXT:        -> successor 29 DRAIN_exit
*> CHECK-NEXT:    29: DRAIN_exit [terminator]
*> CHECK-NEXT:          37 return to performer of DRAIN
*> CHECK-NEXT:        -> successor 30 DRAIN_exit_after
*> CHECK-NEXT:    30: DRAIN_exit_after
