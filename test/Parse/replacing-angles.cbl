      *> RUN: %tarka check --verify -I %S/Inputs %s
      *> Before the == that closes pseudo-text, < and > are text; =
      *> behind them that closes nothing makes them an operator.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
           COPY ANGLES REPLACING ==<<S>>== BY ==S==
               ==>== BY ==T== ==B<== BY ==B==.
       01  N PIC 9.
       REPLACE ==@ >=== BY ==N <===.
       PROCEDURE DIVISION.
           IF @ >= 3 DISPLAY S-A T-B B.
           GOBACK.
