*> RUN: not %tarka check --verify %s 2>&1 | FileCheck %s
*>
*> What --verify reports when expectations and results differ.
IDENTIFICATION DIVISION.
PROGRAM-ID. VERIFY.
DATA DIVISION.
WORKING-STORAGE SECTION.
77  A PIC X(3) VALUE 'ABCD'. *> expect: 3292
77  B PIC X(3) VALUE 'ABCD'. *> expect: 3292 *> expect-pass
PROCEDURE DIVISION.
    MOVE A TO UNKNOWN.
    MOVE A TO B. *> expect: 3310
    MOVE A TO UNKNOWN. *> expect: 3310:15-16
    MOVE A TO UNKNOWN. *> expect: 3310 *> expect-pass
    MOVE A TO B. *> expect-fail
    MOVE A TO B. *> expect-pass: 3468
    ALTER OLD TO NEW. *> expect: 5101
    ALTER OLD TO NEW. *> expect-fail *> expect: 5101
OLD.
    GO TO OLD.
NEW.
    GOBACK.
*> CHECK:      verify.cbl:12: 3310 was expected, but not reported
*> CHECK-NEXT: verify.cbl:13: 3310 in column 15 was expected, but not reported
*> CHECK-NEXT: verify.cbl:11:15-21: 3310 was reported, but not expected: Undefined identifier
*> CHECK-NEXT: verify.cbl:13:15-21: 3310 was reported, but not expected: Undefined identifier
*> CHECK-NEXT: verify.cbl:8: the check passed although an error was reported; mark an intended one with expect-pass
*> CHECK-NEXT: verify.cbl:17: the check failed without an error; mark an intended one with expect-fail
*> CHECK-NEXT: verify.cbl:14: expect-pass: no check passed although this was reported
*> CHECK-NEXT: verify.cbl:15: expect-fail: no check failed here without an error
*> CHECK-NEXT: verify.cbl:16: expect-pass: no check passed although this was reported
