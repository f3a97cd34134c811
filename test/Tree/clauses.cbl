      *> RUN: %tarka ast %s | FileCheck %s
      *>
      *> The rarer clauses of files and data, what the checks note in data items, and the rarer
      *> phrases of statements.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. CLAUSES.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SPECIAL-NAMES.
           CONSOLE IS OPERATOR-DESK
           ALPHABET DIGITS-LAST IS "A" THRU "Z" "0" THRU "9"
           CURRENCY SIGN IS "#" WITH PICTURE SYMBOL "U".
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT STOCK ASSIGN TO STOCKFIL "STOCK2"
               ORGANIZATION INDEXED
               RECORD KEY ARTICLE PASSWORD PW1
               ALTERNATE RECORD KEY PLACE PASSWORD PW2.
           SELECT PAPER ASSIGN TO PRT.
       DATA DIVISION.
       FILE SECTION.
       FD  STOCK RECORD IS VARYING VALUE OF STAMP IS PW1.
       01  STOCK-RECORD.
           05  ARTICLE PIC X(8).
           05  PLACE   PIC X(4).
       FD  PAPER LINAGE IS 60 LINES.
       01  PAPER-LINE PIC X(80).
       WORKING-STORAGE SECTION.
       01  PW1 PIC X(8) VALUE "SESAME".
       01  PW2 PIC X(8).
       01  PRICE PIC U,UU9.99.
       01  T.
           05  C PIC X.
           05  ROW OCCURS 3.
               10  B PIC S9(4) COMP SYNC RIGHT.
           05  E PIC X.
           05  F PIC S9(4) COMP SYNC.
       01  A PIC S9(4)V9.
       01  R REDEFINES A PIC X(5).
       01  Q REDEFINES R PIC X(4).
       01  DOC PIC X(200).
       PROCEDURE DIVISION.
       DECLARATIVES.
       D SECTION.
           USE AFTER STANDARD ENDING REEL LABEL PROCEDURE ON STOCK.
       END DECLARATIVES.
       MAIN SECTION.
       M-1.
           COMPUTE A = (A + 1.25) * 2 - B (1) / 3.125
           DISPLAY LINAGE-COUNTER OF PAPER
           XML GENERATE DOC FROM T
               SUPPRESS EVERY NUMERIC ELEMENT WHEN ZERO
           STOP RUN.
      *> CHECK:      ClauseEnvName {{.*}} name=CONSOLE type=device mnemonicName=OPERATOR-DESK
      *> CHECK:      ClauseAlphabet {{.*}} name=DIGITS-LAST lowValue=65 highValue=255
      *> CHECK:      ParaFileControl {{.*}} name=STOCK
      *> CHECK-NEXT: ClauseAssign <15:25-15:51>
      *> CHECK-NEXT: Word <15:35-15:42> name=STOCKFIL
      *> CHECK-NEXT: NonNumericLiteralExpression {{.*}} value="STOCK2"
      *> CHECK-NEXT: recordKey: {{.*}} name=ARTICLE
      *> CHECK-NEXT: password: {{.*}} name=PW1 boundTo=PW1
      *> CHECK-NEXT: alternateKey: {{.*}} name=PLACE
      *> CHECK-NEXT: password: {{.*}} name=PW2 boundTo=PW2
      *> CHECK:      FileDescription {{.*}} name=STOCK recordingMode=V fileControl=STOCK@15:12
      *> CHECK-NEXT: ClauseValueOf
      *> CHECK-NEXT: ValueOfElem {{.*}} name=STAMP
      *> CHECK-NEXT: is: {{.*}} boundTo=PW1
      *> CHECK:      FileDescription {{.*}} name=PAPER {{.*}} linageCounter=LINAGE-COUNTER
      *> CHECK:      name=PRICE {{.*}} currencySign="#"
      *> CHECK:      name=ROW {{.*}} offset=2 synchronizedTable
      *> CHECK:      name=B {{.*}} synchronized synchronizedSide=RIGHT offset=2
      *> What a redefinition redefines, and the name that it is written with.
      *> CHECK:      name=Q {{.*}} redefines=A@
      *> CHECK-NEXT: redefines: DataIdentifierExpression {{.*}} name=R
      *> CHECK:      UseStatement {{.*}} timing=AFTER LABEL labelPosition=ENDING label=REEL
      *> CHECK:      value: ArithmeticExpression {{.*}} digits=4 scale=3 stepDigits=[3, 3, 4] stepScales=[2, 2, 3]
      *> CHECK:      XMLSuppressItem {{.*}} class=NUMERIC type=ELEMENT
      *> Slack bytes are not part of the document.
      *> CHECK-NEXT: when:
      *> CHECK-NEXT: contents: {{.*}} boundTo=C@
      *> CHECK-NEXT: contents: {{.*}} boundTo=B@
      *> CHECK-NEXT: contents: {{.*}} boundTo=E@
      *> CHECK-NEXT: contents: {{.*}} boundTo=F@
      *> CHECK-NEXT: StopStatement
