*> RUN: %tarka ast %s | FileCheck %s
*>
*> What the checks leave in the statements of files: which READ goes to the next record, which names
*> are mnemonic ones, the alphabets and ranges of SORT and MERGE, and what may run a USE procedure,
*> phrases or not.
IDENTIFICATION DIVISION.
PROGRAM-ID. FILES.
ENVIRONMENT DIVISION.
CONFIGURATION SECTION.
SPECIAL-NAMES.
    C01 IS TOP-OF-FORM
    ALPHABET LATIN IS STANDARD-1.
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT S-FILE ASSIGN TO SFILE.
    SELECT IX-FILE ASSIGN TO IXFILE
        ORGANIZATION IS INDEXED ACCESS MODE IS DYNAMIC RECORD KEY IS IX-KEY.
    SELECT RL-FILE ASSIGN TO RLFILE
        ORGANIZATION IS RELATIVE ACCESS MODE IS RANDOM RELATIVE KEY IS RL-KEY.
    SELECT W-FILE ASSIGN TO WFILE.
DATA DIVISION.
FILE SECTION.
FD  S-FILE.
01  S-REC                   PIC X(80).
FD  IX-FILE.
01  IX-REC.
    05  IX-KEY              PIC X(8).
    05  PIC X(72).
FD  RL-FILE.
01  RL-REC                  PIC X(80).
SD  W-FILE.
01  W-REC                   PIC X(80).
WORKING-STORAGE SECTION.
01  RL-KEY                  PIC 9(4).
PROCEDURE DIVISION.
DECLARATIVES.
IX-ERROR SECTION.
    USE AFTER ERROR PROCEDURE ON IX-FILE.
END DECLARATIVES.
MAIN SECTION.
*> CHECK-LABEL: Section <{{.*}}name=MAIN
    READ S-FILE.
*> CHECK:       ReadStatement <[[#@LINE-1]]:{{[^>]*}}> next
    READ IX-FILE.
*> CHECK:       ReadStatement <[[#@LINE-1]]:{{[^>]*}}> mayRunDeclaratives{{$}}
    READ IX-FILE INVALID KEY CONTINUE.
*> CHECK:       ReadStatement <[[#@LINE-1]]:{{[^>]*}}> mayRunDeclaratives{{$}}
    READ IX-FILE AT END CONTINUE.
*> CHECK:       ReadStatement <[[#@LINE-1]]:{{[^>]*}}> mayRunDeclaratives next
    READ RL-FILE.
*> CHECK:       ReadStatement <[[#@LINE-1]]:{{[^>]*}}>{{$}}
    REWRITE IX-REC NOT INVALID KEY CONTINUE.
*> CHECK:       RewriteStatement <[[#@LINE-1]]:{{[^>]*}}> mayRunDeclaratives
    WRITE S-REC AFTER ADVANCING TOP-OF-FORM.
*> CHECK:       WriteStatement <[[#@LINE-1]]:{{[^>]*}}>{{$}}
*> CHECK:       WriteAdvancing <{{.*}}> side=AFTER mnemonicName=TOP-OF-FORM
    SORT W-FILE ASCENDING W-REC SEQUENCE LATIN
        INPUT PROCEDURE FILL THRU FILL-END OUTPUT PROCEDURE DRAIN.
*> CHECK:       SortStatement <{{.*}}> sequence=LATIN alphabet=LATIN@12:5
*> CHECK:       SortIO <{{.*}}> begins=FILL@65:1 ends=FILL-END@67:1
*> CHECK:       SortIO <{{.*}}> begins=DRAIN@69:1 ends=DRAIN@69:1
    MERGE W-FILE ASCENDING W-REC SEQUENCE LATIN USING S-FILE RL-FILE GIVING S-FILE.
*> CHECK:       MergeStatement <{{.*}}> sequence=LATIN alphabet=LATIN@12:5
    STOP RUN.
FILL SECTION.
    RELEASE W-REC.
FILL-END SECTION.
    EXIT.
DRAIN SECTION.
    RETURN W-FILE AT END CONTINUE.
