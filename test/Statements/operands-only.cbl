      *> RUN: %tarka check --verify %s
      *> RUN: sed -e 's/NO-SUCH/W-DOC/g' %s > %t.cbl
      *> RUN: %tarka cfg %t.cbl | FileCheck %s
      *>
      *> Statements of which the tree has the operands only: every form is read, each name is bound,
      *> and their phrases are branches.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  W-DOC PIC X(100).
       01  W-LEN PIC 9(9) BINARY.
       01  W-PTR POINTER.
       01  W-PTR32 USAGE POINTER-32.
       01  W-OBJ USAGE OBJECT REFERENCE.
       01  W-DYN PIC X DYNAMIC LENGTH LIMIT IS 100.
       01  W-ORDER.
           05 W-ID PIC 9(5).
           05 W-PAID PIC X.
              88 W-IS-PAID VALUE 'Y'.
           05 W-LINE OCCURS 3.
              10 W-NAME PIC X(8).
              10 W-QTY PIC 9(3).
       LINKAGE SECTION.
       01  L-AREA PIC X(8).
       PROCEDURE DIVISION.
       MAIN-LINE.
           JSON GENERATE W-DOC FROM W-ORDER COUNT IN W-LEN
               WITH ENCODING 1208
               NAME OF W-ORDER IS 'order' W-ID OMITTED
               SUPPRESS W-NAME WHEN SPACES EVERY NUMERIC WHEN ZERO
               CONVERTING W-PAID TO JSON BOOLEAN USING 'Y'
               ON EXCEPTION DISPLAY JSON-CODE
               NOT ON EXCEPTION DISPLAY W-LEN
           END-JSON
      *> CHECK: JSON GENERATE
      *> CHECK: tkdummy_on_exception
      *> CHECK: tkdummy_on_not_exception
      *> CHECK: tkdummy_exception_end
           JSON PARSE W-DOC INTO W-ORDER WITH DETAIL
               NAME W-ID 'id' SUPPRESS W-QTY
               ON EXCEPTION DISPLAY JSON-STATUS
           END-JSON
           JSON GENERATE W-DOC FROM W-ORDER
               INDICATING W-ID IS JSON NULL USING 'Y' IN W-PAID
                 ALSO W-LINE IS JSON NULL USING W-IS-PAID
               ENCODING 1140 NAME OF W-ID 'id'
               CONVERTING W-PAID TO JSON BOOL USING W-IS-PAID
                 ALSO W-NAME TO JSON NULL USING SPACES
           END-JSON
           JSON PARSE W-DOC INTO W-ORDER ENCODING 1208 FROM CODEPAGE
               IGNORING JSON NULL FOR W-ID ALSO JSON NULL FOR ALL
               INDICATING W-ID IS JSON NULL USING 'Y' AND 'N' IN W-PAID
               CONVERTING W-PAID FROM JSON BOOLEAN USING 'Y' AND 'N'
           END-JSON
           SORT W-LINE ON DESCENDING KEY W-QTY
               ON ASCENDING KEY W-NAME WITH DUPLICATES IN ORDER
           SORT W-LINE OF W-ORDER DESCENDING
           ALLOCATE W-LEN * 2 CHARACTERS INITIALIZED RETURNING W-PTR
           ALLOCATE L-AREA RETURNING W-PTR
           FREE W-PTR W-PTR32
           INVOKE W-OBJ 'add' USING BY VALUE W-LEN RETURNING W-PTR
           INVOKE SomeClass NEW RETURNING W-OBJ
           INVOKE SELF W-DOC USING W-LEN ON EXCEPTION CONTINUE
           END-INVOKE
           PERFORM UNTIL EXIT
               IF W-LEN = 1
                   EXIT PERFORM
               END-IF
           END-PERFORM
           JSON PARSE NO-SUCH INTO W-ORDER. *> expect: 3310
           FREE NO-SUCH. *> expect: 3310
           SORT W-LINE ASCENDING NO-SUCH. *> expect: 3310
           GOBACK.
       END PROGRAM P.
