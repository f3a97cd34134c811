      *> The table stays within 100 columns and loses nothing of what it shows. The columns are part of
      *> what is checked here.
      *> RUN: %tarka layout -I %S/Inputs %s > %t
      *> RUN: FileCheck %s --strict-whitespace --match-full-lines < %t
      *> RUN: not grep -E '^.{101}' %t
       IDENTIFICATION DIVISION.
       PROGRAM-ID. WIDTH.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A-NAME-OF-THIRTY-CHARACTERS-01.
           05  B-NAME-OF-THIRTY-CHARACTERS-01.
               10  C-NAME-OF-THIRTY-CHARACTERS-01.
                   15  D-NAME-OF-THIRTY-CHARACTERS-01
                       PIC +++,+++,+++,+++,+++,+++,+++,++9.99.
       COPY WIDTHREC.
       01  LONG-LITERALS PIC X(120).
           88  ONE-OF-MANY VALUES "AAAAAAAAAAAAAAAAAAAAAAAAAAAAA
      -    "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA BBBBBBBBBB" "C".
       01  HUGE.
           05  HUGE-TABLE PIC X(1000) OCCURS 100000 TIMES.
           05  BEHIND PIC X.
       PROCEDURE DIVISION.
           GOBACK.
      *>CHECK:WORKING-STORAGE SECTION
      *>CHECK-NEXT:Line  Item                                     Offset      Hex      Bytes  Description
      *>CHECK-NEXT:-- {{.*}}width.cbl --
      *>CHECK-NEXT:  10  01 A-NAME-OF-THIRTY-CHARACTERS-01             0     0000         34  group
      *>CHECK-NEXT:  11    05 B-NAME-OF-THIRTY-CHARACTERS-01           0     0000         34  group
      *>CHECK-NEXT:  12      10 C-NAME-OF-THIRTY-CHARACTERS-01
      *>CHECK-NEXT:                                                    0     0000         34  group
      *>CHECK-NEXT:  13        15 D-NAME-OF-THIRTY-CHARACTERS-01
      *>CHECK-NEXT:                                                    0     0000         34
      *>CHECK-NEXT:                                                              PIC +++,+++,+++,+++,+++,+++,+++,++9.99
      *>CHECK-NEXT:                                                                           DISPLAY, numeric-edited
      *>CHECK-NEXT:-- {{.*}}WIDTHREC.cpy --
      *>CHECK-NEXT:   1  01 COPIED                                     0     0000          1  group
      *>CHECK-NEXT:   2    05 COPIED-ITEM                              0     0000          1  PIC X DISPLAY,
      *>CHECK-NEXT:                                                                           alphanumeric
      *>CHECK-NEXT:-- {{.*}}width.cbl --
      *>CHECK-NEXT:  16  01 LONG-LITERALS                              0     0000        120  PIC X(120) DISPLAY,
      *>CHECK-NEXT:                                                                           alphanumeric
      *>CHECK-NEXT:  17    88 ONE-OF-MANY                                                     VALUE
      *>CHECK-NEXT:                 "AAAAAAAAAAAAAAAAAAAAAAAAAAAAA        AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA BBBBBBBBBB"
      *>CHECK-NEXT:                                                                           "C"
      *>CHECK-NEXT:  19  01 HUGE                                       0     0000  100000001  group
      *>CHECK-NEXT:  20    05 HUGE-TABLE                               0     0000       1000  PIC X(1000) DISPLAY,
      *>CHECK-NEXT:                                                                           alphanumeric,
      *>CHECK-NEXT:                                                                           OCCURS 100000,
      *>CHECK-NEXT:                                                                           100000000 bytes in all
      *>CHECK-NEXT:  21    05 BEHIND                           100000000  5F5E100          1  PIC X DISPLAY,
      *>CHECK-NEXT:                                                                           alphanumeric
      *>CHECK-EMPTY:
      *>CHECK-NEXT:OVERVIEW
      *>CHECK-NEXT:Program  Section                  Records      Bytes
      *>CHECK-NEXT:WIDTH    WORKING-STORAGE SECTION        4  100000156
      *>CHECK-NEXT:WIDTH    special registers             15         93  shown with --all
