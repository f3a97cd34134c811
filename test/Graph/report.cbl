*> RUN: %tarka cfg --enable-rw %s | FileCheck %s --match-full-lines
*>
*> Report declaratives are a function of their own; the exception ones stay with the program.
IDENTIFICATION DIVISION.
PROGRAM-ID. REPORTS.
ENVIRONMENT DIVISION.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT P-FILE ASSIGN TO PFILE.
DATA DIVISION.
FILE SECTION.
FD  P-FILE REPORT IS SALES.
WORKING-STORAGE SECTION.
01  AMOUNT                  PIC 9(5).
REPORT SECTION.
RD  SALES CONTROL IS FINAL PAGE LIMIT IS 60 LINES.
01  HEAD TYPE IS PAGE HEADING.
    05  LINE 1 COLUMN 1     PIC X(5) VALUE "SALES".
01  DETAIL-1 TYPE IS DETAIL.
    05  LINE PLUS 1 COLUMN 1 PIC Z(5) SOURCE IS AMOUNT.
01  TOTAL TYPE IS CONTROL FOOTING FINAL.
    05  LINE PLUS 2 COLUMN 1 PIC Z(5) SUM AMOUNT.
PROCEDURE DIVISION.
DECLARATIVES.
BEFORE-HEAD SECTION.
    USE BEFORE REPORTING HEAD.
    DISPLAY "HEAD".
HEAD-1.
    IF AMOUNT = 0
        SUPPRESS PRINTING
    END-IF.
BEFORE-TOTAL SECTION.
    USE BEFORE REPORTING TOTAL.
    DISPLAY "TOTAL".
P-ERROR SECTION.
    USE AFTER ERROR PROCEDURE ON P-FILE.
    DISPLAY "ERROR".
END DECLARATIVES.
MAIN SECTION.
MAIN-1.
    OPEN OUTPUT P-FILE
    INITIATE SALES
    GENERATE DETAIL-1
    TERMINATE SALES
    CLOSE P-FILE
    STOP RUN.
*> CHECK:      function REPORTS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:          12 file P-FILE
*> CHECK-NEXT:          16 report SALES
*> CHECK-NEXT:        -> falls into 1 tkdummy_register_use
*> CHECK-NEXT:     1: tkdummy_register_use
*> CHECK-NEXT:          35 register declarative P-ERROR
*> CHECK-NEXT:        -> falls into 2 tkdummy_declaratives
*> CHECK-NEXT:     2: tkdummy_declaratives [terminator]
*> CHECK-NEXT:          0 branch to declarative
*> CHECK-NEXT:        -> successor 6 tkdummy_end_declaratives
*> CHECK-NEXT:   section P-ERROR
*> CHECK-NEXT:     3: P-ERROR
*> CHECK-NEXT:          37 DISPLAY
*> CHECK-NEXT:        -> successor 4 P-ERROR_exit
*> CHECK-NEXT:     4: P-ERROR_exit [terminator]
*> CHECK-NEXT:          35 return to performer of P-ERROR
*> CHECK-NEXT:        -> successor 5 P-ERROR_exit_after
*> CHECK-NEXT:     5: P-ERROR_exit_after
*> CHECK-NEXT:     6: tkdummy_end_declaratives
*> CHECK-NEXT:        -> falls into 7 MAIN
*> CHECK-NEXT:   section MAIN
*> CHECK-NEXT:     7: MAIN [procedure]
*> CHECK-NEXT:        -> falls into 8 MAIN-1
*> CHECK-NEXT:   paragraph MAIN-1
*> CHECK-NEXT:     8: MAIN-1 [procedure]
*> CHECK-NEXT:          41 OPEN
*> CHECK-NEXT:          42 INITIATE
*> CHECK-NEXT:          43 GENERATE
*> CHECK-NEXT:          44 TERMINATE
*> CHECK-NEXT:          45 CLOSE
*> CHECK-NEXT:          46 STOP
*>
*> CHECK:      function tkdummy_rpt_decl_func
*> CHECK-NEXT:     0: tkdummy_rpt_declaratives [terminator]
*> CHECK-NEXT:        -> successor 6 tkdummy_rpt_declaratives_end, end 6 tkdummy_rpt_declaratives_end
*> CHECK-NEXT:   section BEFORE-HEAD
*> CHECK-NEXT:     1: BEFORE-HEAD
*> CHECK-NEXT:          27 DISPLAY
*> CHECK-NEXT:        -> falls into 2 HEAD-1
*> CHECK-NEXT:   paragraph HEAD-1
*> CHECK-NEXT:     2: HEAD-1 [procedure] [terminator]
*> CHECK-NEXT:          29 IF
*> CHECK-NEXT:        -> then 3 tkdummy_then, end 4 tkdummy_endif
*> CHECK-NEXT:     3: tkdummy_then
*> CHECK-NEXT:          30 SUPPRESS
*> CHECK-NEXT:        -> successor 4 tkdummy_endif
*> CHECK-NEXT:     4: tkdummy_endif
*> CHECK-NEXT:        -> successor 6 tkdummy_rpt_declaratives_end
*> CHECK-NEXT:   section BEFORE-TOTAL
*> CHECK-NEXT:     5: BEFORE-TOTAL
*> CHECK-NEXT:          34 DISPLAY
*> CHECK-NEXT:        -> successor 6 tkdummy_rpt_declaratives_end
*> CHECK-NEXT:     6: tkdummy_rpt_declaratives_end [terminator]
