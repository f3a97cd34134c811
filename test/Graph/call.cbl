*> RUN: %tarka cfg %s | FileCheck %s --match-full-lines --check-prefixes=CHECK,PLAIN
*> RUN: %tarka cfg --debug %s | FileCheck %s --match-full-lines --check-prefixes=CHECK,DEBUG
*>
*> A program named by a literal is looked for twice, one named by an item once. With --debug the
*> debugger's hook splits nothing.
IDENTIFICATION DIVISION.
PROGRAM-ID. CALLS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  P                       PIC X(8).
PROCEDURE DIVISION.
LITERALS.
    CALL "PROG"
    CALL "PROG"
        ON EXCEPTION DISPLAY "NONE"
        NOT ON EXCEPTION DISPLAY "SOME"
    END-CALL
    CALL "PROG" NOT ON EXCEPTION DISPLAY "SOME" END-CALL
    CALL "PROG" ON OVERFLOW DISPLAY "NONE" END-CALL.
IDENTIFIERS.
    CALL P
    CALL P ON EXCEPTION DISPLAY "NONE" END-CALL
    CALL P NOT ON EXCEPTION DISPLAY "SOME" END-CALL.
HOOKS.
    CALL "TKDEBUG_START_IT"
    DISPLAY "HOOKED".
*> CHECK:      function CALLS
*> CHECK-NEXT:     0: entry
*> CHECK-NEXT:        -> falls into 1 LITERALS
*> CHECK-NEXT:   paragraph LITERALS
*> CHECK-NEXT:     1: LITERALS [procedure] [terminator]
*> CHECK-NEXT:          13 CALL
*> CHECK-NEXT:        -> then 2 tkdummy_when_find, else 3 tkdummy_not_find, end 6 tkdummy_call_end
*> CHECK-NEXT:     2: tkdummy_when_find
*> CHECK-NEXT:        -> successor 6 tkdummy_call_end
*> CHECK-NEXT:     3: tkdummy_not_find [terminator]
*> CHECK-NEXT:        -> then 4 tkdummy_when_2find, else 5 tkdummy_not_2find
*> CHECK-NEXT:     4: tkdummy_when_2find
*> CHECK-NEXT:        -> successor 6 tkdummy_call_end
*> CHECK-NEXT:     5: tkdummy_not_2find [terminator]
*> CHECK-NEXT:        -> successor 6 tkdummy_call_end
*> CHECK-NEXT:     6: tkdummy_call_end [terminator]
*> CHECK-NEXT:          14 CALL
*> CHECK-NEXT:        -> then 7 tkdummy_when_find, else 8 tkdummy_not_find, end 13 tkdummy_call_end
*> CHECK-NEXT:     7: tkdummy_when_find
*> CHECK-NEXT:        -> successor 12 tkdummy_call_not_exception
*> CHECK-NEXT:     8: tkdummy_not_find [terminator]
*> CHECK-NEXT:        -> then 9 tkdummy_when_2find, else 10 tkdummy_not_2find
*> CHECK-NEXT:     9: tkdummy_when_2find
*> CHECK-NEXT:        -> successor 12 tkdummy_call_not_exception
*> CHECK-NEXT:    10: tkdummy_not_2find
*> CHECK-NEXT:        -> successor 11 tkdummy_call_exception
*> CHECK-NEXT:    11: tkdummy_call_exception
*> CHECK-NEXT:          15 DISPLAY
*> CHECK-NEXT:        -> successor 13 tkdummy_call_end
*> CHECK-NEXT:    12: tkdummy_call_not_exception
*> CHECK-NEXT:          16 DISPLAY
*> CHECK-NEXT:        -> successor 13 tkdummy_call_end
*> CHECK-NEXT:    13: tkdummy_call_end [terminator]
*> CHECK-NEXT:          18 CALL
*> CHECK-NEXT:        -> then 14 tkdummy_when_find, else 15 tkdummy_not_find, end 19 tkdummy_call_end
*> CHECK-NEXT:    14: tkdummy_when_find
*> CHECK-NEXT:        -> successor 18 tkdummy_call_not_exception
*> CHECK-NEXT:    15: tkdummy_not_find [terminator]
*> CHECK-NEXT:        -> then 16 tkdummy_when_2find, else 17 tkdummy_not_2find
*> CHECK-NEXT:    16: tkdummy_when_2find
*> CHECK-NEXT:        -> successor 18 tkdummy_call_not_exception
*> CHECK-NEXT:    17: tkdummy_not_2find
*> CHECK-NEXT:        -> successor 19 tkdummy_call_end
*> CHECK-NEXT:    18: tkdummy_call_not_exception
*> CHECK-NEXT:          18 DISPLAY
*> CHECK-NEXT:        -> successor 19 tkdummy_call_end
*> CHECK-NEXT:    19: tkdummy_call_end [terminator]
*> CHECK-NEXT:          19 CALL
*> CHECK-NEXT:        -> then 20 tkdummy_when_find, else 21 tkdummy_not_find, end 25 tkdummy_call_end
*> CHECK-NEXT:    20: tkdummy_when_find
*> CHECK-NEXT:        -> successor 25 tkdummy_call_end
*> CHECK-NEXT:    21: tkdummy_not_find [terminator]
*> CHECK-NEXT:        -> then 22 tkdummy_when_2find, else 23 tkdummy_not_2find
*> CHECK-NEXT:    22: tkdummy_when_2find
*> CHECK-NEXT:        -> successor 25 tkdummy_call_end
*> CHECK-NEXT:    23: tkdummy_not_2find
*> CHECK-NEXT:        -> successor 24 tkdummy_call_exception
*> CHECK-NEXT:    24: tkdummy_call_exception
*> CHECK-NEXT:          19 DISPLAY
*> CHECK-NEXT:        -> successor 25 tkdummy_call_end
*> CHECK-NEXT:    25: tkdummy_call_end
*> CHECK-NEXT:        -> falls into 26 IDENTIFIERS
*> CHECK-NEXT:   paragraph IDENTIFIERS
*> CHECK-NEXT:    26: IDENTIFIERS [procedure] [terminator]
*> CHECK-NEXT:          21 CALL
*> CHECK-NEXT:        -> then 27 tkdummy_call_find, else 28 tkdummy_call_find_not, end 29 tkdummy_call_end
*> CHECK-NEXT:    27: tkdummy_call_find
*> CHECK-NEXT:        -> successor 29 tkdummy_call_end
*> CHECK-NEXT:    28: tkdummy_call_find_not [terminator]
*> CHECK-NEXT:        -> successor 29 tkdummy_call_end
*> CHECK-NEXT:    29: tkdummy_call_end [terminator]
*> CHECK-NEXT:          22 CALL
*> CHECK-NEXT:        -> then 30 tkdummy_call_find, else 31 tkdummy_call_find_not, end 33 tkdummy_call_end
*> CHECK-NEXT:    30: tkdummy_call_find
*> CHECK-NEXT:        -> successor 33 tkdummy_call_end
*> CHECK-NEXT:    31: tkdummy_call_find_not
*> CHECK-NEXT:        -> successor 32 tkdummy_call_exception
*> CHECK-NEXT:    32: tkdummy_call_exception
*> CHECK-NEXT:          22 DISPLAY
*> CHECK-NEXT:        -> successor 33 tkdummy_call_end
*> CHECK-NEXT:    33: tkdummy_call_end [terminator]
*> CHECK-NEXT:          23 CALL
*> CHECK-NEXT:        -> then 34 tkdummy_call_find, else 35 tkdummy_call_find_not, end 37 tkdummy_call_end
*> CHECK-NEXT:    34: tkdummy_call_find
*> CHECK-NEXT:        -> successor 36 tkdummy_call_not_exception
*> CHECK-NEXT:    35: tkdummy_call_find_not
*> CHECK-NEXT:        -> successor 37 tkdummy_call_end
*> CHECK-NEXT:    36: tkdummy_call_not_exception
*> CHECK-NEXT:          23 DISPLAY
*> CHECK-NEXT:        -> successor 37 tkdummy_call_end
*> CHECK-NEXT:    37: tkdummy_call_end
*> CHECK-NEXT:        -> falls into 38 HOOKS
*> CHECK-NEXT:   paragraph HOOKS
*> PLAIN-NEXT:    38: HOOKS [procedure] [terminator]
*> PLAIN-NEXT:          25 CALL
*> PLAIN-NEXT:        -> then 39 tkdummy_when_find, else 40 tkdummy_not_find, end 43 tkdummy_call_end
*> PLAIN-NEXT:    39: tkdummy_when_find
*> PLAIN-NEXT:        -> successor 43 tkdummy_call_end
*> PLAIN-NEXT:    40: tkdummy_not_find [terminator]
*> PLAIN-NEXT:        -> then 41 tkdummy_when_2find, else 42 tkdummy_not_2find
*> PLAIN-NEXT:    41: tkdummy_when_2find
*> PLAIN-NEXT:        -> successor 43 tkdummy_call_end
*> PLAIN-NEXT:    42: tkdummy_not_2find [terminator]
*> PLAIN-NEXT:        -> successor 43 tkdummy_call_end
*> PLAIN-NEXT:    43: tkdummy_call_end
*> PLAIN-NEXT:          26 DISPLAY
*> DEBUG-NEXT:    38: HOOKS [procedure]
*> DEBUG-NEXT:          25 CALL
*> DEBUG-NEXT:          26 DISPLAY
*> DEBUG-NOT:  {{.}}
