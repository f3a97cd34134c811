      *> RUN: %tarka cfg --format=dot %s | FileCheck %s
      *> RUN: %tarka cfg --format=dot --paragraph step-1 %s | FileCheck %s --check-prefix=ONE
      *> RUN: %tarka cfg --format=dot --collapse %s | FileCheck %s --check-prefix=SMALL
      *>
      *> Statements are shown as they are written, in one line and without the columns of fixed form. What
      *> cannot be reached and holds nothing is left out.
       IDENTIFICATION DIVISION.                                         00000000
       PROGRAM-ID. PICTURE-1.                                           00000000
       DATA DIVISION.                                                   00000000
       WORKING-STORAGE SECTION.                                         00000000
       01  N                 PIC 9.                                     00000000
       PROCEDURE DIVISION.                                              00000000
       MAIN.                                                            00000000
           PERFORM STEP-1 THRU STEP-2.                                  00000000
           GO TO LAST-STEP.                                             00000000
       STEP-1.                                                          00000000
           IF N < 3 AND                                                 00000000
      *  A comment in between.                                          00000000
              N > 1                                                     00000000
               DISPLAY   "A  <B>"   N                                   00000000
           ELSE                                                         00000000
               EXIT PARAGRAPH.                                          00000000
           EVALUATE N ALSO TRUE                                         00000000
               WHEN 1 ALSO ANY                                          00000000
               WHEN 2 ALSO N = 3                                        00000000
                   ADD 1 TO N                                           00000000
                       ON SIZE ERROR NEXT SENTENCE                      00000000
                   END-ADD                                              00000000
           END-EVALUATE.                                                00000000
       STEP-2.                                                          00000000
           EXIT.                                                        00000000
       LAST-STEP.                                                       00000000
           STOP RUN.                                                    00000000
      *> CHECK:     subgraph cluster_f0 {
      *> CHECK-NEXT: <b>PICTURE-1</b>
      *> CHECK:     >14 PERFORM STEP-1 THRU STEP-2<
      *> CHECK:     >15 GO TO LAST-STEP<
      *> CHECK-NOT: tkdummy_after_goto
      *> CHECK:     >17 IF N &lt; 3 AND N &gt; 1<br align="left"/>>];
      *> CHECK:     >20 DISPLAY &quot;A  &lt;B&gt;&quot; N<
      *> CHECK:     >23 EVALUATE N ALSO TRUE<br align="left"/>24 WHEN 1 ALSO ANY<br align="left"/>25 WHEN 2 ALSO N = 3<
      *> CHECK:     >26 ADD 1 TO N ON SIZE ERROR<
      *> CHECK:     f0b1 -> f0b4 [label="perform", style=dashed
      *> CHECK-NEXT: f0b1 -> f0b2 [label=""]
      *> CHECK-NEXT: f0b2 -> f0b18 [label="go to"
      *> CHECK-NEXT: f0b4 -> f0b5 [label="true"]
      *> CHECK-NEXT: f0b4 -> f0b6 [label="false"]
      *> CHECK-NEXT: f0b5 -> f0b8 [label=""]
      *> CHECK-NEXT: f0b6 -> f0b15 [label="falls into"
      *> CHECK:     f0b9 -> f0b10 [label="size error"]
      *>
      *> ONE-NOT:  LAST-STEP
      *> ONE:      f0g1 [{{.*}}label="MAIN"
      *> ONE-NEXT: f0g3 [{{.*}}label="STEP-2"
      *> ONE-NEXT: f0g1 -> f0b4 [label="perform"
      *> ONE:      f0b8 -> f0g3 [label="false"
      *> ONE-NOT:  LAST-STEP
      *>
      *> SMALL-NOT: f0b
      *> SMALL:     f0g2 [{{.*}}<b>STEP-1</b>{{.*}}6 statements
      *> SMALL:     f0g0 -> f0g1 [label=""]
      *> SMALL-NEXT: f0g1 -> f0g2 [label="perform"
      *> SMALL-NEXT: f0g1 -> f0g4 [label="go to"
      *> SMALL-NEXT: f0g2 -> f0g3 [label="falls into"
