      *> --record shows one record, or says why it cannot; --all shows the registers.
      *> RUN: %tarka layout --record=customer-record %s | FileCheck %s --check-prefix=ONE
      *> RUN: %tarka layout --record return-code %s | FileCheck %s --check-prefix=REGISTER
      *> RUN: %tarka layout --all %s | FileCheck %s --check-prefix=ALL
      *> RUN: not %tarka layout --record CUSTOMER-RECROD %s 2>&1 | FileCheck %s --check-prefix=NEAR
      *> RUN: not %tarka layout --record CUSTOMER-NAME %s 2>&1 | FileCheck %s --check-prefix=ITEM
      *> RUN: not %tarka layout --record XYZ %s 2>&1 | FileCheck %s --check-prefix=NONE
      *> RUN: sh -c '%tarka layout --record XYZ %s 2> %t; echo status $?' | FileCheck %s --check-prefix=STATUS
       IDENTIFICATION DIVISION.
       PROGRAM-ID. OUTER.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  CUSTOMER-RECORD.
           05  CUSTOMER-NAME PIC X(30).
       01  ORDER-RECORD PIC X(10).
       PROCEDURE DIVISION.
           GOBACK.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. MIDDLE.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  NO-CUSTOMER PIC X(10).
       PROCEDURE DIVISION.
           GOBACK.
       END PROGRAM MIDDLE.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. LAST-ONE.
       DATA DIVISION.
       LINKAGE SECTION.
       01  CUSTOMER-RECORD PIC X(40).
       01  ANOTHER PIC X.
       PROCEDURE DIVISION.
           GOBACK.
       END PROGRAM LAST-ONE.
       END PROGRAM OUTER.
      *> Records of the same name are shown from all programs, and nothing beside them.
      *> ONE: PROGRAM OUTER
      *> ONE-NOT: ORDER-RECORD
      *> ONE: 01 CUSTOMER-RECORD 0 0000 30 group
      *> ONE-NEXT: 05 CUSTOMER-NAME
      *> ONE-EMPTY:
      *> ONE-NEXT: PROGRAM LAST-ONE in OUTER
      *> ONE: 01 CUSTOMER-RECORD 0 0000 40
      *> ONE-NOT: {{01|OVERVIEW}}

      *> REGISTER: 01 RETURN-CODE 0 0000 2 PIC S9(4) BINARY, numeric, GLOBAL, compiler-made
      *> ALL: 01 RETURN-CODE
      *> ALL: 01 XML-TEXT
      *> ALL: OUTER WORKING-STORAGE SECTION 17 133
      *> ALL-NOT: special registers

      *> NEAR: record-option.cbl: there is no record CUSTOMER-RECROD; similar: CUSTOMER-RECORD{{$}}
      *> ITEM: there is no record CUSTOMER-NAME, but an item of this name in the record CUSTOMER-RECORD
      *> NONE: there is no record XYZ; there are CUSTOMER-RECORD, ORDER-RECORD, NO-CUSTOMER, ANOTHER{{$}}
      *> STATUS: status 2
