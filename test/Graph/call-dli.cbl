*> RUN: %tarka cfg --enable-cbltdli %s | FileCheck %s --match-full-lines
*> RUN: %tarka cfg --enable-cbltdli --enable-aertdli %s | FileCheck %s --match-full-lines --check-prefixes=CHECK,BOTH
*> RUN: %tarka cfg %s | FileCheck %s --check-prefix=NONE
*> RUN: %tarka ast --enable-cbltdli %s | FileCheck %s --check-prefix=TREE
*>
*> A call of a DL/I interface is given the number of its arguments by a MOVE in front of it, from a
*> nested program too; with both interfaces enabled the MOVE stands there twice.
*> NONE-NOT: MOVE
IDENTIFICATION DIVISION.
PROGRAM-ID. DLI.
PROCEDURE DIVISION.
    GOBACK.

IDENTIFICATION DIVISION.
PROGRAM-ID. READER.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  GET-UNIQUE                  PIC X(4) VALUE "GU  ".
01  HOW-MANY                    PIC S9(5) COMP-5 VALUE 3.
LINKAGE SECTION.
01  PCB                         PIC X(100).
01  AREA-1                      PIC X(100).
PROCEDURE DIVISION USING PCB AREA-1.
FIRST-PART.
    CALL "CBLTDLI" USING GET-UNIQUE, PCB, AREA-1.
    CALL "cbltdli" USING HOW-MANY, GET-UNIQUE, PCB, AREA-1.
    EXIT PROGRAM.
*> CHECK:      function READER [not called]
*> CHECK:        paragraph FIRST-PART
*> CHECK-NEXT:     1: FIRST-PART [procedure] [terminator]
*> CHECK-NEXT:          25 MOVE
*> BOTH-NEXT:           25 MOVE
*> CHECK-NEXT:          25 CALL
*> CHECK:               26 CALL
*> TREE:      CallStatement <25:5-25:48>
*> TREE-NEXT:   program: NonNumericLiteralExpression
*> TREE-NEXT:   using: Argument <25:5-25:48> by=reference
*> TREE-NEXT:     DataIdentifierExpression <25:5-25:48> name=KORVALINE-CBLTDLI-PC
*> TREE-NEXT:   using: Argument <25:26-25:35> by=reference
*> TREE:        generated: MoveStatement <25:5-25:48> rules=[numericConversion]
*> TREE-NEXT:     source: NumericLiteralExpression <25:5-25:48> value=3
*> TREE-NEXT:     to: DataIdentifierExpression <25:5-25:48> name=KORVALINE-CBLTDLI-PC
*> TREE:      CallStatement <26:5-26:58>
*> TREE-NEXT:   program: NonNumericLiteralExpression
*> TREE-NEXT:   using: Argument <26:26-26:33>
*> TREE-NOT:    generated:
*> TREE:      Sentence
END PROGRAM READER.
END PROGRAM DLI.
