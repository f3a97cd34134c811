*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> Exception declaratives are registered, debugging ones are not; a section without USE belongs to
*> those before it, and a section of the main line that a declarative performs is copied.
IDENTIFICATION DIVISION.
PROGRAM-ID. DECLS.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT A-FILE ASSIGN TO AFILE.
    SELECT B-FILE ASSIGN TO BFILE.
DATA DIVISION.
FILE SECTION.
FD  A-FILE.
01  A-REC                   PIC X(80).
FD  B-FILE.
01  B-REC                   PIC X(80).
PROCEDURE DIVISION.
DECLARATIVES.
A-ERROR SECTION.
    USE AFTER STANDARD ERROR PROCEDURE ON A-FILE.
    DISPLAY "A".
A-MORE.
    DISPLAY "A AGAIN".
OUT-ERROR SECTION.
    USE AFTER EXCEPTION PROCEDURE ON OUTPUT.
    PERFORM SHARED.
TRACING SECTION.
    USE FOR DEBUGGING ON ALL PROCEDURES.
    DISPLAY "TRACE".
HELP SECTION.
HELP-1.
    DISPLAY "HELP".
END DECLARATIVES.
MAIN SECTION.
BEGIN-IT.
    OPEN INPUT A-FILE OUTPUT B-FILE.
    READ A-FILE.
    READ A-FILE AT END DISPLAY "END".
    WRITE B-REC FROM A-REC.
    CLOSE A-FILE B-FILE.
    STOP RUN.
SHARED SECTION.
    DISPLAY "SHARED".
*> CHECK:      function DECLS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:          14 file A-FILE
*> CHECK-NEXT:          16 file B-FILE
*> CHECK-NEXT:        -> falls into 1 tkdummy_register_use
*> CHECK-NEXT:     1: tkdummy_register_use
*> CHECK-NEXT:          20 register declarative A-ERROR
*> CHECK-NEXT:          25 register declarative OUT-ERROR
*> CHECK-NEXT:        -> falls into 2 tkdummy_declaratives
*> CHECK-NEXT:     2: tkdummy_declaratives [terminator]
*> CHECK-NEXT:          0 branch to declarative
*> CHECK-NEXT:        -> successor 21 tkdummy_end_declaratives
*> CHECK-NEXT:   section A-ERROR
*> CHECK-NEXT:     3: A-ERROR
*> CHECK-NEXT:          22 DISPLAY
*> CHECK-NEXT:        -> falls into 4 A-MORE
*> CHECK-NEXT:   paragraph A-MORE
*> CHECK-NEXT:     4: A-MORE [procedure]
*> CHECK-NEXT:          24 DISPLAY
*> CHECK-NEXT:        -> successor 5 A-ERROR_exit
*> CHECK-NEXT:   section A-ERROR
*> CHECK-NEXT:     5: A-ERROR_exit [terminator]
*> CHECK-NEXT:          20 return to performer of A-ERROR
*> CHECK-NEXT:        -> successor 6 A-ERROR_exit_after
*> CHECK-NEXT:     6: A-ERROR_exit_after
*> CHECK-NEXT:   section OUT-ERROR
*> CHECK-NEXT:     7: OUT-ERROR [terminator]
*> CHECK-NEXT:          27 PERFORM SHARED_tkcopy
*> CHECK-NEXT:        -> successor 8 tkdummy_perform_27_line_after, after 8 tkdummy_perform_27_line_after, return 8 tkdummy_perform_27_line_after
*> CHECK-NEXT:     8: tkdummy_perform_27_line_after
*> CHECK-NEXT:        -> successor 9 OUT-ERROR_exit
*> CHECK-NEXT:     9: OUT-ERROR_exit [terminator]
*> CHECK-NEXT:          25 return to performer of OUT-ERROR
*> CHECK-NEXT:        -> successor 10 OUT-ERROR_exit_after
*> CHECK-NEXT:    10: OUT-ERROR_exit_after
*> CHECK-NEXT:   section TRACING
*> CHECK-NEXT:    11: TRACING
*> CHECK-NEXT:          30 DISPLAY
*> CHECK-NEXT:        -> successor 12 TRACING_exit
*> CHECK-NEXT:    12: TRACING_exit [terminator]
*> CHECK-NEXT:          28 return to performer of TRACING
*> CHECK-NEXT:        -> successor 13 TRACING_exit_after
*> CHECK-NEXT:    13: TRACING_exit_after
*> CHECK-NEXT:   section HELP [not reached]
*> CHECK-NEXT:    14: HELP
*> CHECK-NEXT:   paragraph HELP-1 [not reached]
*> CHECK-NEXT:    15: HELP-1 [procedure]
*> CHECK-NEXT:          33 DISPLAY [not reached]
*> CHECK-NEXT:        -> successor 16 HELP_exit
*> CHECK-NEXT:   section HELP [not reached]
*> CHECK-NEXT:    16: HELP_exit [terminator]
*> CHECK-NEXT:          31 return to performer of HELP
*> CHECK-NEXT:        -> successor 17 HELP_exit_after
*> CHECK-NEXT:    17: HELP_exit_after
*> CHECK-NEXT:   section SHARED_tkcopy
*> CHECK-NEXT:    18: SHARED_tkcopy
*> CHECK-NEXT:          44 DISPLAY
*> CHECK-NEXT:        -> successor 19 SHARED_tkcopy_exit
*> CHECK-NEXT:    19: SHARED_tkcopy_exit [terminator]
*> CHECK-NEXT:          43 return to performer of SHARED_tkcopy
*> CHECK-NEXT:        -> successor 20 SHARED_tkcopy_exit_after
*> CHECK-NEXT:    20: SHARED_tkcopy_exit_after
*> CHECK-NEXT:    21: tkdummy_end_declaratives
*> CHECK-NEXT:        -> falls into 22 MAIN
*> CHECK-NEXT:   section MAIN
*> CHECK-NEXT:    22: MAIN [procedure]
*> CHECK-NEXT:        -> falls into 23 BEGIN-IT
*> CHECK-NEXT:   paragraph BEGIN-IT
*> CHECK-NEXT:    23: BEGIN-IT [procedure] [terminator]
*> CHECK-NEXT:          37 OPEN
*> CHECK-NEXT:          38 READ
*> CHECK-NEXT:        -> successor 24 tkdummy_declarative_after, after 24 tkdummy_declarative_after, return 24 tkdummy_declarative_after
*> CHECK-NEXT:    24: tkdummy_declarative_after [terminator]
*> CHECK-NEXT:          39 READ
*> CHECK-NEXT:        -> then 25 tkdummy_read_exception, end 26 tkdummy_read_end
*> CHECK-NEXT:    25: tkdummy_read_exception
*> CHECK-NEXT:          39 DISPLAY
*> CHECK-NEXT:        -> successor 26 tkdummy_read_end
*> CHECK-NEXT:    26: tkdummy_read_end [terminator]
*> CHECK-NEXT:          40 WRITE
*> CHECK-NEXT:        -> successor 27 tkdummy_declarative_after, after 27 tkdummy_declarative_after, return 27 tkdummy_declarative_after
*> CHECK-NEXT:    27: tkdummy_declarative_after
*> CHECK-NEXT:          41 CLOSE
*> CHECK-NEXT:          42 STOP
*> CHECK-NEXT:   section SHARED [not reached]
*> CHECK-NEXT:    28: SHARED [procedure]
*> CHECK-NEXT:          44 DISPLAY [not reached]
