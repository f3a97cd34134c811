*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> XML GENERATE, and the loop of XML PARSE over the events of a document.
IDENTIFICATION DIVISION.
PROGRAM-ID. XMLS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  DOC                     PIC X(500).
01  REC.
    05  NAME                PIC X(8).
01  N                       PIC 9(4).
PROCEDURE DIVISION.
NONE.
    XML GENERATE DOC FROM REC COUNT IN N
    DISPLAY DOC.
ONLY-NOT.
    XML GENERATE DOC FROM REC
        NOT ON EXCEPTION DISPLAY "OK"
    END-XML.
BOTH.
    XML GENERATE DOC FROM REC
        ON EXCEPTION DISPLAY "BAD"
        NOT ON EXCEPTION DISPLAY "OK"
    END-XML.
PARSE-NONE.
    XML PARSE DOC PROCESSING PROCEDURE EVENTS
    DISPLAY "PARSED".
PARSE-BOTH.
    XML PARSE DOC PROCESSING PROCEDURE EVENTS THRU EVENTS-END
        ON EXCEPTION DISPLAY "BAD"
        NOT ON EXCEPTION DISPLAY "OK"
    END-XML
    GOBACK.
EVENTS.
    DISPLAY XML-EVENT.
EVENTS-END.
    EXIT.
*> CHECK:      function XMLS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 NONE
*> CHECK-NEXT:   paragraph NONE
*> CHECK-NEXT:     1: NONE [procedure] [terminator]
*> CHECK-NEXT:          14 XML GENERATE
*> CHECK-NEXT:        -> successor 2 tkdummy_xml_generate_end, end 2 tkdummy_xml_generate_end
*> CHECK-NEXT:     2: tkdummy_xml_generate_end
*> CHECK-NEXT:          15 DISPLAY
*> CHECK-NEXT:        -> falls into 3 ONLY-NOT
*> CHECK-NEXT:   paragraph ONLY-NOT
*> CHECK-NEXT:     3: ONLY-NOT [procedure] [terminator]
*> CHECK-NEXT:          17 XML GENERATE
*> CHECK-NEXT:        -> else 4 tkdummy_xml_on_not_exception, end 5 tkdummy_xml_generate_end
*> CHECK-NEXT:     4: tkdummy_xml_on_not_exception
*> CHECK-NEXT:          18 DISPLAY
*> CHECK-NEXT:        -> successor 5 tkdummy_xml_generate_end
*> CHECK-NEXT:     5: tkdummy_xml_generate_end
*> CHECK-NEXT:        -> falls into 6 BOTH
*> CHECK-NEXT:   paragraph BOTH
*> CHECK-NEXT:     6: BOTH [procedure] [terminator]
*> CHECK-NEXT:          21 XML GENERATE
*> CHECK-NEXT:        -> then 7 tkdummy_xml_on_exception, else 8 tkdummy_xml_on_not_exception, end 9 tkdummy_xml_generate_end
*> CHECK-NEXT:     7: tkdummy_xml_on_exception
*> CHECK-NEXT:          22 DISPLAY
*> CHECK-NEXT:        -> successor 9 tkdummy_xml_generate_end
*> CHECK-NEXT:     8: tkdummy_xml_on_not_exception
*> CHECK-NEXT:          23 DISPLAY
*> CHECK-NEXT:        -> successor 9 tkdummy_xml_generate_end
*> CHECK-NEXT:     9: tkdummy_xml_generate_end
*> CHECK-NEXT:        -> falls into 10 PARSE-NONE
*> CHECK-NEXT:   paragraph PARSE-NONE
*> CHECK-NEXT:    10: PARSE-NONE [procedure] [terminator]
*> CHECK-NEXT:          26 XML PARSE
*> CHECK-NEXT:        -> successor 11 tkdummy_xml_parser, then 11 tkdummy_xml_parser, end 17 tkdummy_xml_parse_end
*> CHECK-NEXT:    11: tkdummy_xml_parser [terminator]
*> CHECK-NEXT:        -> then 12 tkdummy_xml_proc, else 16 tkdummy_26_line_xml_exception_cond
*> CHECK-NEXT:    12: tkdummy_xml_proc [terminator]
*> CHECK-NEXT:          26 PERFORM EVENTS
*> CHECK-NEXT:        -> successor 13 tkdummy_perform_26_line_after, after 13 tkdummy_perform_26_line_after, return 13 tkdummy_perform_26_line_after
*> CHECK-NEXT:    13: tkdummy_perform_26_line_after
*> CHECK-NEXT:        -> successor 14 tkdummy_xml_proc_after
*> CHECK-NEXT:    14: tkdummy_xml_proc_after
*> CHECK-NEXT:        -> successor 15 tarkka_xml_parse_result_cond
*> CHECK-NEXT:    15: tarkka_xml_parse_result_cond [terminator]
*> CHECK-NEXT:        -> then 11 tkdummy_xml_parser, else 16 tkdummy_26_line_xml_exception_cond
*> CHECK-NEXT:    16: tkdummy_26_line_xml_exception_cond [terminator]
*> CHECK-NEXT:        -> then 17 tkdummy_xml_parse_end, else 17 tkdummy_xml_parse_end, end 17 tkdummy_xml_parse_end
*> CHECK-NEXT:    17: tkdummy_xml_parse_end
*> CHECK-NEXT:          27 DISPLAY
*> CHECK-NEXT:        -> falls into 18 PARSE-BOTH
*> CHECK-NEXT:   paragraph PARSE-BOTH
*> CHECK-NEXT:    18: PARSE-BOTH [procedure] [terminator]
*> CHECK-NEXT:          29 XML PARSE
*> CHECK-NEXT:        -> successor 19 tkdummy_xml_parser, then 19 tkdummy_xml_parser, end 27 tkdummy_xml_parse_end
*> CHECK-NEXT:    19: tkdummy_xml_parser [terminator]
*> CHECK-NEXT:        -> then 20 tkdummy_xml_proc, else 24 tkdummy_29_line_xml_exception_cond
*> CHECK-NEXT:    20: tkdummy_xml_proc [terminator]
*> CHECK-NEXT:          29 PERFORM EVENTS THRU EVENTS-END
*> CHECK-NEXT:        -> successor 21 tkdummy_perform_29_line_after, after 21 tkdummy_perform_29_line_after, return 21 tkdummy_perform_29_line_after
*> CHECK-NEXT:    21: tkdummy_perform_29_line_after
*> CHECK-NEXT:        -> successor 22 tkdummy_xml_proc_after
*> CHECK-NEXT:    22: tkdummy_xml_proc_after
*> CHECK-NEXT:        -> successor 23 tarkka_xml_parse_result_cond
*> CHECK-NEXT:    23: tarkka_xml_parse_result_cond [terminator]
*> CHECK-NEXT:        -> then 19 tkdummy_xml_parser, else 24 tkdummy_29_line_xml_exception_cond
*> CHECK-NEXT:    24: tkdummy_29_line_xml_exception_cond [terminator]
*> CHECK-NEXT:        -> then 25 tkdummy_xml_parse_on_exception, else 26 tkdummy_xml_parse_on_not_exception, end 27 tkdummy_xml_parse_end
*> CHECK-NEXT:    25: tkdummy_xml_parse_on_exception
*> CHECK-NEXT:          30 DISPLAY
*> CHECK-NEXT:        -> successor 27 tkdummy_xml_parse_end
*> CHECK-NEXT:    26: tkdummy_xml_parse_on_not_exception
*> CHECK-NEXT:          31 DISPLAY
*> CHECK-NEXT:        -> successor 27 tkdummy_xml_parse_end
*> CHECK-NEXT:    27: tkdummy_xml_parse_end [terminator]
*> CHECK-NEXT:          33 GOBACK
*> CHECK-NEXT:    28: tkdummy_after_goback
*> CHECK-NEXT:   paragraph EVENTS
*> CHECK-NEXT:    29: EVENTS [procedure]
*> CHECK-NEXT:          35 DISPLAY
*> CHECK-NEXT:        -> successor 30 EVENTS_exit
*> CHECK-NEXT:    30: EVENTS_exit [terminator]
*> CHECK-NEXT:          34 return to performer of EVENTS
*> CHECK-NEXT:        -> successor 31 EVENTS_exit_after
*> CHECK-NEXT:    31: EVENTS_exit_after
*> CHECK-NEXT:        -> falls into 32 EVENTS-END
*> CHECK-NEXT:   paragraph EVENTS-END
*> CHECK-NEXT:    32: EVENTS-END [procedure]
*> CHECK-NEXT:          37 EXIT
*> CHECK-NEXT:        -> successor 33 EVENTS-END_exit
*> CHECK-NEXT:    33: EVENTS-END_exit [terminator]
*> CHECK-NEXT:          36 return to performer of EVENTS-END
*> CHECK-NEXT:        -> successor 34 EVENTS-END_exit_after
*> CHECK-NEXT:    34: EVENTS-END_exit_after
