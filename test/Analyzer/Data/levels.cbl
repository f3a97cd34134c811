*> RUN: %tarka check --verify %s
*>
*> Level numbers, condition names, and entries without anything below them.
IDENTIFICATION DIVISION.
PROGRAM-ID. LEVELS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  LEVELS.
    05  INNER-GROUP.
        50  LEVEL-50            PIC X. *> expect: 3201 *> expect-pass
        49  LEVEL-49            PIC X.
    05  NOTHING-BELOW.                 *> expect: 3575 *> expect-pass
    05  PIC X(3).
    05  FILLER                  PIC X(3).
    66  RIGHT-66                RENAMES INNER-GROUP.
    66  WITH-PICTURE            RENAMES INNER-GROUP PIC X. *> expect: 3202 3240
    66  WITH-TWO                RENAMES INNER-GROUP JUST OCCURS 2. *> expect: 3202 3218 3219
    66  WITH-CONDITION          RENAMES INNER-GROUP. *> expect: 3203 *> expect-pass
        88  OF-LEVEL-66         VALUE "AB".
*> An item that has only condition-names is not a group.
01  ITEM-WITH-CONDITIONS        PIC X.
    88  IS-A                    VALUE "A".
    88  IS-B-TO-D               VALUE "B" THRU "D".
    88  IS-OTHER                VALUE "X" "Y" "Z".
01  CONDITIONS-ONLY.            *> expect: 3575 *> expect-pass
    88  OF-NOTHING              VALUE 1. *> expect: 3295
*> One wrong condition name keeps all of them among the children.
01  WRONG-CONDITIONS            PIC X. *> expect: 3241
    88  WITHOUT-VALUE.          *> expect: 3205 3206 *> expect-pass
    88  STILL-RIGHT             VALUE "A".
    88  PICTURED                PIC X VALUE "A". *> expect: 3205 3206 *> expect-pass
77  STANDALONE                  PIC X.
PROCEDURE DIVISION.
    GOBACK.
