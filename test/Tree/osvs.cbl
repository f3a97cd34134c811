*> RUN: %tarka ast --enable-osvs %s | FileCheck %s
*>
*> What the statements of OS/VS COBOL are turned into: at the place of the statement, with the
*> operands as they are written.
IDENTIFICATION DIVISION.
PROGRAM-ID. OSVS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  A                       PIC X(5).
01  N                       PIC S9(4)V99.
01  B1                      PIC X.
PROCEDURE DIVISION.
MAIN.
    *> TALLY is cleared; a number is sought as characters.
    EXAMINE A TALLYING UNTIL FIRST "X" REPLACING BY 5.
*> CHECK:      generated: MoveStatement <[[#@LINE-1]]:5-[[#@LINE-1]]:53> rules=[numericConversion]
*> CHECK-NEXT: source: FigurativeLiteralExpression {{.*}} value=ZERO
*> CHECK-NEXT: to: DataIdentifierExpression {{.*}} boundTo=TALLY
*> CHECK-NEXT: generated: InspectStatement <[[#@LINE-4]]:5-[[#@LINE-4]]:53>
*> CHECK-NEXT: inspected: {{.*}} name=A
*> CHECK-NEXT: tallying: TallyingItem
*> CHECK-NEXT: counter: {{.*}} boundTo=TALLY
*> CHECK-NEXT: for: {{.*}} which=CHARACTERS
*> CHECK-NEXT: side=BEFORE
*> CHECK-NEXT: value="X"
*> CHECK-NEXT: replacing: {{.*}} which=CHARACTERS
*> CHECK-NEXT: by: {{.*}} value="5" category=alphanumeric
*> CHECK-NEXT: side=BEFORE
*> CHECK-NEXT: value="X"
    EXAMINE A REPLACING FIRST "X" BY "Y".
*> CHECK:      generated: InspectStatement
*> CHECK:      replacing: {{.*}} which=FIRST
    EXAMINE A TALLYING LEADING "X" REPLACING BY "Y".
*> CHECK:      for: {{.*}} which=LEADING
*> CHECK:      replacing: {{.*}} which=LEADING

    *> One character for several.
    TRANSFORM A FROM "ABC" TO "-".
*> CHECK:      converting: ConvertingItem
*> CHECK-NEXT: from: {{.*}} value="ABC"
*> CHECK-NEXT: to: {{.*}} value="---"
    TRANSFORM A FROM X"4142" TO X"43".
*> CHECK:      to: {{.*}} value=X"4343"
    TRANSFORM A FROM "AB" TO B1.
*> CHECK:      replacing: {{.*}} which=ALL
*> CHECK:      value="A"
*> CHECK-NEXT: by: {{.*}} name=B1
*> CHECK-NEXT: ReplacingRegion
*> CHECK-NEXT: value="B"
*> CHECK-NEXT: by: {{.*}} name=B1

    *> Shown at the first time and when it is another value than at the last time.
    EXHIBIT CHANGED NAMED N.
*> CHECK:      generated: IfStatement <[[#@LINE-1]]:5-[[#@LINE-1]]:27>
*> CHECK:      first: RelationalCondition {{.*}} relation==
*> CHECK-NEXT: left: {{.*}} boundTo=[[KNOWN:TKDUMMY-EXHIBIT-[0-9]+]]@
*> CHECK-NEXT: right: {{.*}} value=ZERO
*> CHECK-NEXT: OR: RelationalCondition {{.*}} relation=NOT =
*> CHECK-NEXT: left: {{.*}} name=N
*> CHECK-NEXT: right: {{.*}} boundTo=[[LAST:TKDUMMY-EXHIBIT-[0-9]+]]@{{.*}} category=numeric digits=6 scale=2
*> CHECK-NEXT: then: DisplayStatement
*> CHECK-NEXT: value="N = "
*> CHECK-NEXT: name=N
*> CHECK-NEXT: then: MoveStatement {{.*}} rules=[displayToDisplay]
*> CHECK-NEXT: source: {{.*}} name=N
*> CHECK-NEXT: to: {{.*}} boundTo=[[LAST]]@
*> CHECK-NEXT: generated: MoveStatement
*> CHECK-NEXT: source: {{.*}} value=1
*> CHECK-NEXT: to: {{.*}} boundTo=[[KNOWN]]@

    *> Each ON has a counter of its own.
    ON 1 DISPLAY A.
*> CHECK:      generated: AddStatement
*> CHECK-NEXT: value=1
*> CHECK-NEXT: to: {{.*}} boundTo=[[FIRST:TKDUMMY-ON-[0-9]+]]@
*> CHECK-NEXT: generated: RelationalCondition {{.*}} relation==
*> CHECK-NEXT: left: {{.*}} boundTo=[[FIRST]]@
*> CHECK-NEXT: right: {{.*}} value=1
    ON 2 AND EVERY 3 UNTIL 9 DISPLAY A.
*> CHECK:      generated: AddStatement
*> CHECK-NEXT: value=1
*> CHECK-NEXT: to: {{.*}} boundTo=[[COUNT:TKDUMMY-ON-[0-9]+]]@
*> CHECK-NEXT: generated: CombinedCondition
*> CHECK-NEXT: relation=NOT <
*> CHECK-NEXT: left: {{.*}} boundTo=[[COUNT]]@
*> CHECK-NEXT: right: {{.*}} value=2
*> CHECK-NEXT: AND: RelationalCondition {{.*}} relation=NOT >
*> CHECK-NEXT: left: {{.*}} boundTo=[[COUNT]]@
*> CHECK-NEXT: right: {{.*}} value=9
*> CHECK-NEXT: AND: RelationalCondition {{.*}} relation==
*> CHECK-NEXT: left: FunctionIdentifierExpression {{.*}} name=MOD category=numeric
*> CHECK-NEXT: argument: ArithmeticExpression
*> CHECK-NEXT: first: {{.*}} boundTo=[[COUNT]]@
*> CHECK-NEXT: -: {{.*}} value=2
*> CHECK-NEXT: argument: {{.*}} value=3
*> CHECK-NEXT: right: {{.*}} value=ZERO
