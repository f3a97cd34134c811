*> RUN: %tarka check --verify %s
*>
*> The objects of EVALUATE are as many as its subjects, and of their types.
IDENTIFICATION DIVISION.
PROGRAM-ID. EVALUATES.
ENVIRONMENT DIVISION.
CONFIGURATION SECTION.
SPECIAL-NAMES.
    UPSI-0 IS SWITCH-0 ON STATUS IS SWITCHED.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  WRONG                       PIC 9X9V9V9. *> expect: 3242
77  N                           PIC S9(4)V9.
    88  N-IS-ONE                VALUE 1.
77  X                           PIC X(4).
77  AB                          PIC A(4).
77  E                           PIC Z(3)9.
77  NA                          PIC N(4).
77  DB                          PIC G(4) DISPLAY-1.
77  F                           COMP-1.
77  PT                          POINTER.
77  FP                          FUNCTION-POINTER.
01  G.
    05  T                       PIC 9(3) OCCURS 5 INDEXED BY IX.
PROCEDURE DIVISION.
MAIN.
    EVALUATE N
        WHEN 1
        WHEN ZERO
        WHEN ANY
        WHEN NOT 5
        WHEN N + 1 THRU F * 2
        WHEN NOT -5 THROUGH T (1)
        WHEN ZERO THRU FUNCTION MAX (N 5)
        WHEN LENGTH OF G
        WHEN E
        WHEN X
            CONTINUE
        WHEN OTHER
            CONTINUE
    END-EVALUATE
    EVALUATE TRUE ALSO N > 5 ALSO FALSE ALSO N-IS-ONE
        WHEN N = 1 ALSO TRUE ALSO N-IS-ONE ALSO ANY
        WHEN FALSE ALSO NOT N IS POSITIVE ALSO SWITCHED ALSO FALSE
        WHEN X IS NUMERIC OR AB = X ALSO ANY ALSO (N = 1) ALSO X = "A"
            CONTINUE
    END-EVALUATE
    EVALUATE X ALSO NA ALSO PT ALSO IX ALSO DB
        WHEN "A" THRU "Z" ALSO N"A" THRU SPACES ALSO NULL ALSO 1 ALSO G"A"
        WHEN LOW-VALUES THRU X ALSO "A" ALSO PT ALSO IX ALSO NA
        WHEN ZERO THRU "9" ALSO HIGH-VALUES ALSO ADDRESS OF G ALSO IX THRU 5 ALSO ANY
        WHEN SPACE THRU HIGH-VALUES ALSO ALL N"A" ALSO ANY ALSO N ALSO DB THRU DB
        WHEN 5 ALSO NA ALSO ANY ALSO ANY ALSO ANY
        WHEN FUNCTION UPPER-CASE (X) THRU E ALSO ANY ALSO ANY ALSO ANY ALSO ANY
            CONTINUE
    END-EVALUATE
    EVALUATE 1 ALSO "A" ALSO N + 1 ALSO G
        WHEN N ALSO X ALSO 5 ALSO SPACES
            CONTINUE
    END-EVALUATE

    *> The number of objects is reported at each WHEN; the objects that have a subject are checked.
    EVALUATE N ALSO X
        WHEN 1                         *> expect: 3430:9-14
        WHEN 1 ALSO "A" ALSO 5         *> expect: 3430
        WHEN TRUE                      *> expect: 3430 3432:14-17
        WHEN ANY ALSO ANY
        WHEN 1 ALSO 2 ALSO NOWHERE     *> expect: 3430 3310
            CONTINUE
        WHEN OTHER
            CONTINUE
    END-EVALUATE

    *> A truth value beside an operand.
    EVALUATE N
        WHEN TRUE                      *> expect: 3432:14-17
        WHEN FALSE                     *> expect: 3432
        WHEN N > 5                     *> expect: 3432:14-18
        WHEN N-IS-ONE                  *> expect: 3432
        WHEN N = NOWHERE               *> expect: 3310 3432
            CONTINUE
    END-EVALUATE

    *> An operand beside a truth value. A name alone is looked for among the condition-names.
    EVALUATE TRUE ALSO N > 5 ALSO N-IS-ONE
        WHEN 5 ALSO "A" THRU "B" ALSO N + 1 *> expect: 3432:14-14 3432:21-32 3432:39-43
        WHEN LENGTH OF N ALSO N THRU 5 ALSO N *> expect: 3432:14-24 3432:31-38 3330:45-45
            CONTINUE
    END-EVALUATE

    *> What cannot be compared. Of a range one message is enough.
    EVALUATE N ALSO AB ALSO PT ALSO DB
        WHEN AB ALSO 1 ALSO N ALSO "A"         *> expect: 3432:14-15 3432:22-22 3432:29-29 3432:36-38
        WHEN AB THRU AB ALSO ANY ALSO FP ALSO ANY  *> expect: 3432:14-15 3432:39-40
        WHEN NULL ALSO ANY ALSO PT THRU PT ALSO DB THRU N"A" *> expect: 3432:14-17 3432:33-34 3431:57-60
            CONTINUE
    END-EVALUATE

    *> A range of two classes.
    EVALUATE X
        WHEN "0" THRU 9                *> expect: 3431:23-23
        WHEN 1 THRU "9"                *> expect: 3431:21-23
        WHEN 1 THRU HIGH-VALUES        *> expect: 3431:21-31
        WHEN SPACE THRU N              *> expect: 3431
        WHEN "A" THRU N"Z"             *> expect: 3431
        WHEN AB THRU "Z"               *> expect: 3431
        WHEN "A" THRU NOWHERE          *> expect: 3310:23-29
            CONTINUE
    END-EVALUATE

    *> An undefined subject is not compared; the statements are checked too.
    EVALUATE NOWHERE ALSO X            *> expect: 3310
        WHEN "A" ALSO NULL             *> expect: 3432
            DISPLAY NEITHER            *> expect: 3310
    END-EVALUATE
    EVALUATE WRONG ALSO X
        WHEN 1 THRU WRONG ALSO WRONG
            CONTINUE
    END-EVALUATE
    GOBACK.
