      *> The JSON form: subordinate entries are within their entry, and what does not apply is omitted.
      *> RUN: %tarka layout --format=json %s > %t
      *> RUN: python3 -m json.tool %t > %t.tool
      *> RUN: FileCheck %s < %t
      *> RUN: %tarka layout --format=json --record=r --all %s | FileCheck %s --check-prefix=ONE
       IDENTIFICATION DIVISION.
       PROGRAM-ID. JSON-OUTER.
      *> CHECK:      "name": "json.cbl",
      *> CHECK:      "name": "JSON-OUTER",
      *> CHECK-NEXT: "file": "{{.*}}json.cbl",
      *> CHECK-NEXT: "line": [[#@LINE-5]],
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT Stock ASSIGN TO STOCK.
       DATA DIVISION.
       FILE SECTION.
      *> CHECK:      "name": "FILE",
      *> CHECK-NEXT: "bytes": 12,
       FD  Stock GLOBAL RECORD CONTAINS 3 TO 12 LINAGE 50.
      *> CHECK:      "kind": "FD",
      *> CHECK-NEXT: "name": "Stock",
      *> CHECK:      "recordingMode": "V",
      *> CHECK-NEXT: "recordMin": 3,
      *> CHECK-NEXT: "recordMax": 12,
      *> CHECK-NEXT: "global": true,
       01  STOCK-1 PIC X(12).
      *> CHECK:      "name": "STOCK-1",
      *> CHECK:      "offset": 0,
      *> CHECK-NEXT: "bytes": 12,
      *> CHECK-NEXT: "picture": "X(12)",
      *> CHECK-NEXT: "usage": "DISPLAY",
      *> CHECK-NEXT: "category": "alphanumeric",
      *> CHECK-NEXT: "global": true
      *> CHECK-NEXT: }
       01  STOCK-2 PIC X(3).
      *> CHECK:      "redefines": "STOCK-1",
      *> CHECK-NEXT: "implicitRedefinition": true,
       WORKING-STORAGE SECTION.
      *> CHECK:      "name": "WORKING-STORAGE",
      *> CHECK-NEXT: "bytes": 34,
       01  R.
      *> CHECK:      "name": "R",
      *> CHECK:      "bytes": 28,
      *> CHECK-NEXT: "minBytes": 20,
           05  N PIC S9(2) SIGN LEADING SEPARATE.
      *> CHECK:      "sign": {
      *> CHECK-NEXT:   "leading": true,
      *> CHECK-NEXT:   "separate": true
      *> CHECK-NEXT: },
               88  SMALL VALUES -5 THRU 5, 7 FALSE 9.
      *> CHECK-NEXT: "conditionNames": [
      *> CHECK:      "values": [
      *> CHECK-NEXT: {
      *> CHECK-NEXT:   "from": "-5",
      *> CHECK-NEXT:   "through": "5"
      *> CHECK-NEXT: },
      *> CHECK-NEXT: {
      *> CHECK-NEXT:   "from": "7"
      *> CHECK-NEXT: }
      *> CHECK-NEXT: ],
      *> CHECK-NEXT: "falseValue": "9"
           05  K PIC X(3) JUSTIFIED.
      *> CHECK:      "justified": true
               88  QUOTED VALUE 'Ä"'.
      *> CHECK:      "from": "'Ä\"'"
           05  Z PIC ZZ9 BLANK WHEN ZERO.
      *> CHECK:      "category": "numeric-edited",
      *> CHECK-NEXT: "blankWhenZero": true
      *> CHECK:      "name": "SLACK-BYTES",
      *> CHECK-NEXT: "compilerMade": true,
           05  T OCCURS 2 TO 4 DEPENDING ON N OF R INDEXED BY IX.
      *> CHECK:      "occurs": {
      *> CHECK-NEXT:   "min": 2,
      *> CHECK-NEXT:   "max": 4,
      *> CHECK-NEXT:   "dependingOn": "N OF R",
      *> CHECK-NEXT:   "minBytes": 8,
      *> CHECK-NEXT:   "bytes": 16,
      *> CHECK-NEXT:   "indexes": [
      *> CHECK-NEXT:     "IX"
               10  B PIC S9(9) COMP SYNC.
      *> CHECK:      "synchronized": true
       66  RN RENAMES N THRU K.
      *> CHECK:      "renames": {
      *> CHECK-NEXT:   "from": "N",
      *> CHECK-NEXT:   "through": "K"
      *> CHECK:      "name": "IX",
      *> CHECK-NEXT: "file":
      *> CHECK-NEXT: "line":
      *> CHECK-NEXT: "compilerMade": true,
      *> CHECK:      "name": "LINAGE-COUNTER",
      *> CHECK-NEXT: "compilerMade": true,
      *> CHECK-NEXT: "forFile": "Stock",
      *> CHECK:      "specialRegisters": {
      *> CHECK-NEXT:   "count": 15,
      *> ONE:        "name": "R",
      *> ONE-NOT:    "level": 1,
       PROCEDURE DIVISION.
           GOBACK.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. JSON-INNER.
      *> CHECK:      "name": "JSON-INNER",
      *> CHECK-NEXT: "nestedIn": "JSON-OUTER",
      *> CHECK:      "sections": []
       PROCEDURE DIVISION.
           GOBACK.
       END PROGRAM JSON-INNER.
       END PROGRAM JSON-OUTER.
