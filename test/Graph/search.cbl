*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines
*>
*> SEARCH through a table step by step, and by halves.
IDENTIFICATION DIVISION.
PROGRAM-ID. SEARCHES.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  T.
    05  E OCCURS 10 TIMES ASCENDING KEY IS K INDEXED BY X.
        10  K               PIC 99.
        10  V               PIC X.
01  N                       PIC 99.
PROCEDURE DIVISION.
SERIAL.
    SET X TO 1
    SEARCH E
        AT END DISPLAY "NONE"
        WHEN K(X) = 1 DISPLAY "ONE"
        WHEN V(X) = "A"
            IF N = 1 DISPLAY "A" END-IF
    END-SEARCH
    DISPLAY "BEHIND".
SERIAL-WITHOUT-END.
    SEARCH E VARYING N WHEN V(X) = "B" NEXT SENTENCE.
BINARY-WITH-END.
    SEARCH ALL E
        AT END DISPLAY "NONE"
        WHEN K(X) = N DISPLAY "FOUND"
    END-SEARCH.
BINARY-WITHOUT-END.
    SEARCH ALL E
        WHEN K(X) = N CONTINUE
    END-SEARCH.
*> CHECK:      function SEARCHES
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 SERIAL
*> CHECK-NEXT:   paragraph SERIAL
*> CHECK-NEXT:     1: SERIAL [procedure] [terminator]
*> CHECK-NEXT:          15 SET
*> CHECK-NEXT:          16 SEARCH
*> CHECK-NEXT:        -> successor 2 tkdummy_search_index_cmp, then 2 tkdummy_search_index_cmp, end 11 tkdummy_search_end
*> CHECK-NEXT:     2: tkdummy_search_index_cmp [terminator]
*> CHECK-NEXT:        -> then 3 tkdummy_search_when_cond, else 10 tkdummy_search_at_end
*> CHECK-NEXT:     3: tkdummy_search_when_cond [terminator]
*> CHECK-NEXT:          16 search when
*> CHECK-NEXT:        -> then 4 tkdummy_search_when_body, else 5 tkdummy_search_when_cond, end 11 tkdummy_search_end
*> CHECK-NEXT:     4: tkdummy_search_when_body
*> CHECK-NEXT:          18 DISPLAY
*> CHECK-NEXT:        -> successor 11 tkdummy_search_end
*> CHECK-NEXT:     5: tkdummy_search_when_cond [terminator]
*> CHECK-NEXT:          16 search when
*> CHECK-NEXT:        -> then 6 tkdummy_search_when_body, else 9 tkdummy_index_inc, end 11 tkdummy_search_end
*> CHECK-NEXT:     6: tkdummy_search_when_body [terminator]
*> CHECK-NEXT:          20 IF
*> CHECK-NEXT:        -> then 7 tkdummy_then, end 8 tkdummy_endif
*> CHECK-NEXT:     7: tkdummy_then
*> CHECK-NEXT:          20 DISPLAY
*> CHECK-NEXT:        -> successor 8 tkdummy_endif
*> CHECK-NEXT:     8: tkdummy_endif
*> CHECK-NEXT:        -> successor 11 tkdummy_search_end
*> CHECK-NEXT:     9: tkdummy_index_inc
*> CHECK-NEXT:        -> successor 2 tkdummy_search_index_cmp
*> CHECK-NEXT:    10: tkdummy_search_at_end
*> CHECK-NEXT:          17 DISPLAY
*> CHECK-NEXT:        -> successor 11 tkdummy_search_end
*> CHECK-NEXT:    11: tkdummy_search_end
*> CHECK-NEXT:          22 DISPLAY
*> CHECK-NEXT:        -> falls into 12 SERIAL-WITHOUT-END
*> CHECK-NEXT:   paragraph SERIAL-WITHOUT-END
*> CHECK-NEXT:    12: SERIAL-WITHOUT-END [procedure] [terminator]
*> CHECK-NEXT:          24 SEARCH
*> CHECK-NEXT:        -> successor 13 tkdummy_search_index_cmp, then 13 tkdummy_search_index_cmp, end 17 tkdummy_search_end, next 18 tkdummy_end_sentence
*> CHECK-NEXT:    13: tkdummy_search_index_cmp [terminator]
*> CHECK-NEXT:        -> then 14 tkdummy_search_when_cond, else 17 tkdummy_search_end
*> CHECK-NEXT:    14: tkdummy_search_when_cond [terminator]
*> CHECK-NEXT:          24 search when
*> CHECK-NEXT:        -> then 15 tkdummy_search_when_body, else 16 tkdummy_index_inc, end 17 tkdummy_search_end
*> CHECK-NEXT:    15: tkdummy_search_when_body [terminator]
*> CHECK-NEXT:          24 NEXT SENTENCE
*> CHECK-NEXT:        -> successor 17 tkdummy_search_end
*> CHECK-NEXT:    16: tkdummy_index_inc
*> CHECK-NEXT:        -> successor 13 tkdummy_search_index_cmp
*> CHECK-NEXT:    17: tkdummy_search_end
*> CHECK-NEXT:        -> successor 18 tkdummy_end_sentence
*> CHECK-NEXT:    18: tkdummy_end_sentence
*> CHECK-NEXT:        -> falls into 19 BINARY-WITH-END
*> CHECK-NEXT:   paragraph BINARY-WITH-END
*> CHECK-NEXT:    19: BINARY-WITH-END [procedure] [terminator]
*> CHECK-NEXT:          26 SEARCH
*> CHECK-NEXT:        -> successor 20 tkdummy_search_loop_cmp, then 20 tkdummy_search_loop_cmp, end 28 tkdummy_search_end
*> CHECK-NEXT:    20: tkdummy_search_loop_cmp [terminator]
*> CHECK-NEXT:        -> then 21 tkdummy_search_mid_index, else 27 tkdummy_search_at_end
*> CHECK-NEXT:    21: tkdummy_search_mid_index
*> CHECK-NEXT:        -> successor 22 tkdummy_search_when_cond
*> CHECK-NEXT:    22: tkdummy_search_when_cond [terminator]
*> CHECK-NEXT:          26 search when
*> CHECK-NEXT:        -> then 23 tkdummy_search_when_body, else 24 tkdummy_gt_cond, end 28 tkdummy_search_end
*> CHECK-NEXT:    23: tkdummy_search_when_body
*> CHECK-NEXT:          28 DISPLAY
*> CHECK-NEXT:        -> successor 28 tkdummy_search_end
*> CHECK-NEXT:    24: tkdummy_gt_cond [terminator]
*> CHECK-NEXT:        -> then 25 tkdummy_max_index_decrease, else 26 tkdummy_min_index_increase
*> CHECK-NEXT:    25: tkdummy_max_index_decrease
*> CHECK-NEXT:        -> successor 20 tkdummy_search_loop_cmp
*> CHECK-NEXT:    26: tkdummy_min_index_increase
*> CHECK-NEXT:        -> successor 20 tkdummy_search_loop_cmp
*> CHECK-NEXT:    27: tkdummy_search_at_end
*> CHECK-NEXT:          27 DISPLAY
*> CHECK-NEXT:        -> successor 28 tkdummy_search_end
*> CHECK-NEXT:    28: tkdummy_search_end
*> CHECK-NEXT:        -> falls into 29 BINARY-WITHOUT-END
*> CHECK-NEXT:   paragraph BINARY-WITHOUT-END
*> CHECK-NEXT:    29: BINARY-WITHOUT-END [procedure] [terminator]
*> CHECK-NEXT:          31 SEARCH
*> CHECK-NEXT:        -> successor 30 tkdummy_search_loop_cmp, then 30 tkdummy_search_loop_cmp, end 37 tkdummy_search_end
*> CHECK-NEXT:    30: tkdummy_search_loop_cmp [terminator]
*> CHECK-NEXT:        -> then 31 tkdummy_search_mid_index, else 37 tkdummy_search_end
*> CHECK-NEXT:    31: tkdummy_search_mid_index
*> CHECK-NEXT:        -> successor 32 tkdummy_search_when_cond
*> CHECK-NEXT:    32: tkdummy_search_when_cond [terminator]
*> CHECK-NEXT:          31 search when
*> CHECK-NEXT:        -> then 33 tkdummy_search_when_body, else 34 tkdummy_gt_cond, end 37 tkdummy_search_end
*> CHECK-NEXT:    33: tkdummy_search_when_body
*> CHECK-NEXT:          32 CONTINUE
*> CHECK-NEXT:        -> successor 37 tkdummy_search_end
*> CHECK-NEXT:    34: tkdummy_gt_cond [terminator]
*> CHECK-NEXT:        -> then 35 tkdummy_max_index_decrease, else 36 tkdummy_min_index_increase
*> CHECK-NEXT:    35: tkdummy_max_index_decrease
*> CHECK-NEXT:        -> successor 30 tkdummy_search_loop_cmp
*> CHECK-NEXT:    36: tkdummy_min_index_increase
*> CHECK-NEXT:        -> successor 30 tkdummy_search_loop_cmp
*> CHECK-NEXT:    37: tkdummy_search_end
