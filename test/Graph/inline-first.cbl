*> RUN: %tarka cfg --format=dot %s | FileCheck %s
*>
*> The statements that consist of a chain of blocks keep their way in where they stand first in an
*> inline PERFORM, which replaces the successor of its first block.
IDENTIFICATION DIVISION.
PROGRAM-ID. FIRST-IN.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  DOC                     PIC X(100).
01  N                       PIC 9.
PROCEDURE DIVISION.
MAIN.
    PERFORM 3 TIMES
        XML PARSE DOC PROCESSING PROCEDURE EVENTS
    END-PERFORM
    PERFORM
        ENTRY 'INSIDE'
        DISPLAY 'E'
    END-PERFORM
    PERFORM 2 TIMES
        GO TO EVENTS DEPENDING ON N
        DISPLAY 'F'
    END-PERFORM
    GOBACK.
EVENTS.
    DISPLAY 'EVENT'.
*> CHECK:     [[XML:f0b[0-9]+]] {{.*}}XML PARSE
*> CHECK:     [[PARSER:f0b[0-9]+]] {{.*}}tkdummy_xml_parser<
*> CHECK:     [[SECOND:f0b[0-9]+]] {{.*}}tkdummy_perform_13_line_after<
*> CHECK:     [[ENTRY:f0b[0-9]+]] {{.*}}INSIDE_entry<
*> CHECK:     [[JUMP:f0b[0-9]+]] {{.*}}GO TO EVENTS DEPENDING
*> CHECK:     [[BEHIND:f0b[0-9]+]] {{.*}}DISPLAY {{.*}}F
*> CHECK-NOT: not reached
*> CHECK:     [[XML]] -> [[PARSER]] [label=""]
*> CHECK:     [[SECOND]] -> [[ENTRY]] [label=""]
*> CHECK:     [[JUMP]] -> [[BEHIND]] [label=""]
