*> RUN: %tarka ast %s | FileCheck --match-full-lines --strict-whitespace %s
*> RUN: %tarka ast --format=json %s | FileCheck --check-prefix=JSON %s
*>
*> What the checks leave in the tree: what names are bound to, digits and scale, rules, ranges.
IDENTIFICATION DIVISION.
PROGRAM-ID. BINDINGS.
ENVIRONMENT DIVISION.
CONFIGURATION SECTION.
SPECIAL-NAMES.
    UPSI-0 IS SWITCH-0 OFF STATUS IS IS-OFF
    CLASS VOWEL IS "A" "E".
DATA DIVISION.
WORKING-STORAGE SECTION.
01  REC.
    05  AMOUNT                  PIC S9(5)V99 COMP-3.
        88  NOTHING             VALUE ZERO.
    05  CELL                    PIC X(4) OCCURS 3.
77  TOTAL                       PIC S9(9).
77  NATIONAL-ITEM               PIC N(4) NATIONAL.
PROCEDURE DIVISION.
MAIN-PART.
*>      CHECK:      Paragraph <[[#@LINE-1]]:1-{{.*}}> name=MAIN-PART
    MOVE CELL OF REC (1) TO TOTAL CELL (2) (1:1).
*> CHECK-NEXT:        Sentence <[[#@LINE-1]]:5-[[#@LINE-1]]:49>
*> CHECK-NEXT:          MoveStatement <[[#@LINE-2]]:5-[[#@LINE-2]]:48> rules=[alphanumericToDisplay, character]
*> CHECK-NEXT:            source: DataIdentifierExpression <[[#@LINE-3]]:10-[[#@LINE-3]]:24> name=CELL OF REC boundTo=CELL@17:5 category=alphanumeric
*> CHECK-NEXT:              subscript: NumericLiteralExpression <[[#@LINE-4]]:23-[[#@LINE-4]]:23> value=1 category=numeric digits=1 scale=0
*> CHECK-NEXT:            to: DataIdentifierExpression <[[#@LINE-5]]:29-[[#@LINE-5]]:33> name=TOTAL boundTo=TOTAL@18:1 category=numeric digits=9 scale=0
*> CHECK-NEXT:            to: DataIdentifierExpression <[[#@LINE-6]]:35-[[#@LINE-6]]:48> name=CELL boundTo=CELL@17:5 category=alphanumeric
*> CHECK-NEXT:              subscript: NumericLiteralExpression <[[#@LINE-7]]:41-[[#@LINE-7]]:41> value=2 category=numeric digits=1 scale=0
*> CHECK-NEXT:              part: ReferenceModifier <[[#@LINE-8]]:{{.*}}>
*> CHECK-NEXT:                from: NumericLiteralExpression <[[#@LINE-9]]:45-[[#@LINE-9]]:45> value=1 category=numeric digits=1 scale=0
*> CHECK-NEXT:                count: NumericLiteralExpression <[[#@LINE-10]]:47-[[#@LINE-10]]:47> value=1 category=numeric digits=1 scale=0

*> JSON:      "kind": "MoveStatement",
*> JSON-NEXT: "place": {
*> JSON-NEXT:   "line": 23,
*> JSON-NEXT:   "column": 5,
*> JSON-NEXT:   "endLine": 23,
*> JSON-NEXT:   "endColumn": 48
*> JSON-NEXT: },
*> JSON-NEXT: "rules": [
*> JSON-NEXT:   "alphanumericToDisplay",
*> JSON-NEXT:   "character"
*> JSON-NEXT: ],
*> JSON-NEXT: "children": [
*> JSON-NEXT:   {
*> JSON-NEXT:     "kind": "DataIdentifierExpression",
*> JSON-NEXT:     "role": "source",
*> JSON:          "name": "CELL OF REC",
*> JSON-NEXT:     "boundTo": {
*> JSON-NEXT:       "name": "CELL",
*> JSON-NEXT:       "line": 17,
*> JSON-NEXT:       "column": 5
*> JSON-NEXT:     },
*> JSON-NEXT:     "category": "alphanumeric",

    *> The whole chain is one node, worked in from the left; of a comparison both sides take the
    *> larger scale.
    IF TOTAL + AMOUNT * 1.125 - 3 > TOTAL AND IS-OFF OR NOTHING
*> CHECK-NEXT:        Sentence <[[#@LINE-1]]:5-{{.*}}>
*> CHECK-NEXT:          IfStatement <[[#@LINE-2]]:5-{{.*}}>
*> CHECK-NEXT:            condition: CombinedCondition <[[#@LINE-3]]:8-[[#@LINE-3]]:63>
*> CHECK-NEXT:              first: RelationalCondition <[[#@LINE-4]]:8-[[#@LINE-4]]:41> relation=>
*> CHECK-NEXT:                left: ArithmeticExpression <[[#@LINE-5]]:8-[[#@LINE-5]]:33> category=numeric digits=4 scale=3 stepDigits=[4, 4] stepScales=[3, 3]
*> CHECK-NEXT:                  first: DataIdentifierExpression <[[#@LINE-6]]:8-[[#@LINE-6]]:12> name=TOTAL boundTo=TOTAL@18:1 category=numeric digits=9 scale=0
*> CHECK-NEXT:                  +: ArithmeticExpression <[[#@LINE-7]]:16-[[#@LINE-7]]:29> category=numeric digits=4 scale=3
*> CHECK-NEXT:                    first: DataIdentifierExpression <[[#@LINE-8]]:16-[[#@LINE-8]]:21> name=AMOUNT {{.*}}
*> CHECK-NEXT:                    *: NumericLiteralExpression <[[#@LINE-9]]:25-[[#@LINE-9]]:29> value=1.125 category=numeric digits=4 scale=3
*> CHECK-NEXT:                  -: NumericLiteralExpression <[[#@LINE-10]]:33-[[#@LINE-10]]:33> value=3 category=numeric digits=1 scale=0
*> CHECK-NEXT:                right: DataIdentifierExpression <[[#@LINE-11]]:37-[[#@LINE-11]]:41> name=TOTAL boundTo=TOTAL@18:1 category=numeric digits=4 scale=3
*> CHECK-NEXT:              AND: SwitchCondition <[[#@LINE-12]]:47-[[#@LINE-12]]:52> name=IS-OFF mnemonicName=SWITCH-0 status=OFF clause=UPSI-0@10:5
*> CHECK-NEXT:              OR: ConditionNameCondition <[[#@LINE-13]]:57-[[#@LINE-13]]:63>
*> CHECK-NEXT:                name: DataIdentifierExpression <[[#@LINE-14]]:57-[[#@LINE-14]]:63> name=NOTHING boundTo=NOTHING@16:9 category=numeric
        EXIT PARAGRAPH
*> CHECK-NEXT:            then: ExitParagraphStatement <[[#@LINE-1]]:9-[[#@LINE-1]]:22>
    ELSE
        PERFORM FIRST-PART THRU LAST-PART 2 TIMES
*> CHECK-NEXT:            else: PerformStatement <[[#@LINE-1]]:9-[[#@LINE-1]]:49> begins=FIRST-PART@[[#@LINE+25]]:1 ends=LAST-PART@[[#@LINE+29]]:1
*> CHECK-NEXT:              procedure: QualifiedWord <[[#@LINE-2]]:17-[[#@LINE-2]]:26> name=FIRST-PART
*> CHECK-NEXT:              thru: QualifiedWord <[[#@LINE-3]]:33-[[#@LINE-3]]:41> name=LAST-PART
*> CHECK-NEXT:              times: NumericLiteralExpression <[[#@LINE-4]]:43-[[#@LINE-4]]:43> value=2 category=numeric digits=1 scale=0
    END-IF.
    IF NATIONAL-ITEM = SPACE OR CELL (1) IS NOT VOWEL GO TO LAST-PART.
*>      CHECK:            condition: CombinedCondition {{.*}}
*> CHECK-NEXT:              first: RelationalCondition {{.*}} relation==
*> CHECK-NEXT:                left: {{.*}} name=NATIONAL-ITEM {{.*}}
*> CHECK-NEXT:                right: FigurativeLiteralExpression {{.*}} value=SPACE category=national national
*> CHECK-NEXT:              OR: ClassCondition {{.*}} class=NOT class-name className=VOWEL clause=VOWEL@11:5
*> CHECK-NEXT:                operand: {{.*}} name=CELL {{.*}}
*>      CHECK:            then: GotoStatement {{.*}} targets=[LAST-PART@[[#@LINE+17]]:1]
    COMPUTE TOTAL ROUNDED AMOUNT = LENGTH OF REC
        ON SIZE ERROR CONTINUE
        NOT ON SIZE ERROR DISPLAY "FINE".
*>      CHECK:          ComputeStatement {{.*}}
*> CHECK-NEXT:            receiver rounded: {{.*}} name=TOTAL {{.*}}
*> CHECK-NEXT:            receiver: {{.*}} name=AMOUNT {{.*}}
*> CHECK-NEXT:            value: SpecialRegisterIdentifierExpression {{.*}} name=LENGTH OF boundTo=REC@14:1 category=numeric
*> CHECK-NEXT:              operand: {{.*}} name=REC boundTo=REC@14:1 category=alphanumeric
*> CHECK-NEXT:            ExceptionHandler {{.*}} phrase=ON SIZE ERROR
*> CHECK-NEXT:              ContinueStatement {{.*}}
*> CHECK-NEXT:            ExceptionHandler {{.*}} phrase=ON SIZE ERROR not
*> CHECK-NEXT:              DisplayStatement {{.*}}
FIRST-PART.
*>      CHECK:      Paragraph <[[#@LINE-1]]:1-{{.*}}> name=FIRST-PART
    CONTINUE.
*>  CHECK-NOT: FIRST-PART{{.*}}endOfPerformAt
LAST-PART.
*>      CHECK:      Paragraph <[[#@LINE-1]]:1-{{.*}}> name=LAST-PART endOfPerformAt=78
    STOP RUN.
