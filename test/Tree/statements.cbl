*> RUN: not %tarka ast --keep-going %s 2>/dev/null | FileCheck %s
*>
*> How operands, conditions and phrases are grouped where the words alone do not show it. Nothing is
*> declared, so that the tree is what the parser made.
IDENTIFICATION DIVISION.
PROGRAM-ID. STATEMENTS.
PROCEDURE DIVISION.
    COMPUTE A = B -1 - - C ** 2 * (D + -2.5) / T (I -1, -1).
    IF A = B OR C AND > D CONTINUE.
    IF NOT (A NOT > B AND C AND NOT D) CONTINUE.
    IF A NOT = (B AND (C + 1) * 2) OR D CONTINUE.
    IF A = B AND IS NOT < C OR D CONTINUE.
    INSPECT A TALLYING N FOR ALL 'a' AFTER INITIAL 'b' BEFORE 'c' B LEADING SPACE
        M OF G (I (1) 2) FOR ALL 'd' 'e' REPLACING FIRST 'f' BY 'g' B BY ALL 'h' ALL 'i' BY SPACE.
    PERFORM P THRU Q N OF G TIMES GOBACK.
    EVALUATE A ALSO TRUE WHEN 1 ALSO B = C WHEN NOT 2 THRU 3 + D ALSO FALSE CONTINUE
        WHEN ANY ALSO ANY WHEN OTHER GOBACK END-EVALUATE EXIT.
    READ F INVALID READ G AT END CONTINUE AT END CONTINUE.
    SET I J UP BY 1 K DOWN BY N P TO NULL C-1 C-2 (3) TO TRUE ADDRESS OF L R TO P.
P. GOBACK.

*> CHECK:      ComputeStatement
*> CHECK-NEXT:   receiver: DataIdentifierExpression {{.*}} name=A
*> CHECK-NEXT:   value: ArithmeticExpression {{.*}} category=numeric{{$}}
*> CHECK-NEXT:     first: DataIdentifierExpression {{.*}} name=B
*> CHECK-NEXT:     -: NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT:     -: ArithmeticExpression {{.*}} category=numeric{{$}}
*> CHECK-NEXT:       first: ArithmeticExpression {{.*}} category=numeric{{$}}
*> CHECK-NEXT:         -: DataIdentifierExpression {{.*}} name=C
*> CHECK-NEXT:       **: NumericLiteralExpression {{.*}} value=2
*> CHECK-NEXT:       *: ArithmeticExpression {{.*}} parenthesised
*> CHECK-NEXT:         first: DataIdentifierExpression {{.*}} name=D
*> CHECK-NEXT:         +: NumericLiteralExpression {{.*}} value=-2.5
*> CHECK-NEXT:       /: DataIdentifierExpression {{.*}} name=T
*> CHECK-NEXT:         subscript: ArithmeticExpression {{.*}} category=numeric{{$}}
*> CHECK-NEXT:           first: DataIdentifierExpression {{.*}} name=I
*> CHECK-NEXT:           -: NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT:         subscript: NumericLiteralExpression {{.*}} value=-1

*> CHECK:      IfStatement
*> CHECK-NEXT:   condition: CombinedCondition
*> CHECK-NEXT:     first: RelationalCondition {{.*}} relation=={{$}}
*> CHECK-NEXT:       left: DataIdentifierExpression {{.*}} name=A
*> CHECK-NEXT:       right: DataIdentifierExpression {{.*}} name=B
*> CHECK-NEXT:     OR: CombinedCondition
*> CHECK-NEXT:       first: AbbrRelationalCondition {{.*}} relation== takenOver
*> CHECK-NEXT:         right: DataIdentifierExpression {{.*}} name=C
*> CHECK-NEXT:       AND: AbbrRelationalCondition {{.*}} relation=>{{$}}
*> CHECK-NEXT:         right: DataIdentifierExpression {{.*}} name=D
*> CHECK-NEXT:   then: ContinueStatement

*> CHECK:      IfStatement
*> CHECK-NEXT:   condition: NegatedCondition
*> CHECK-NEXT:     operand: CombinedCondition
*> CHECK-NEXT:       first: RelationalCondition {{.*}} relation=NOT >{{$}}
*> CHECK-NEXT:         left: DataIdentifierExpression {{.*}} name=A
*> CHECK-NEXT:         right: DataIdentifierExpression {{.*}} name=B
*> CHECK-NEXT:       AND: AbbrRelationalCondition {{.*}} relation=NOT > takenOver
*> CHECK-NEXT:         right: DataIdentifierExpression {{.*}} name=C
*> CHECK-NEXT:       AND: AbbrRelationalCondition {{.*}} relation=> takenOver
*> CHECK-NEXT:         right: DataIdentifierExpression {{.*}} name=D
*> CHECK-NEXT:   then: ContinueStatement

*> CHECK:      IfStatement
*> CHECK-NEXT:   condition: CombinedCondition
*> CHECK-NEXT:     first: RelationalCondition {{.*}} relation=NOT ={{$}}
*> CHECK-NEXT:       left: DataIdentifierExpression {{.*}} name=A
*> CHECK-NEXT:       right: AbbrRelationCombinedExpression
*> CHECK-NEXT:         left: DataIdentifierExpression {{.*}} name=B
*> CHECK-NEXT:         right: AbbrRelationItem {{.*}} operator=AND
*> CHECK-NEXT:           condition: AbbrRelationalCondition {{.*}} relation=NOT = takenOver
*> CHECK-NEXT:             right: ArithmeticExpression {{.*}} category=numeric{{$}}
*> CHECK-NEXT:               first: DataIdentifierExpression {{.*}} name=C
*> CHECK-NEXT:               +: NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT:               *: NumericLiteralExpression {{.*}} value=2
*> CHECK-NEXT:     OR: AbbrRelationalCondition {{.*}} relation=NOT = takenOver
*> CHECK-NEXT:       right: DataIdentifierExpression {{.*}} name=D
*> CHECK-NEXT:   then: ContinueStatement

*> CHECK:      IfStatement
*> CHECK-NEXT:   condition: CombinedCondition
*> CHECK-NEXT:     first: RelationalCondition {{.*}} relation=={{$}}
*> CHECK-NEXT:       left: DataIdentifierExpression {{.*}} name=A
*> CHECK-NEXT:       right: DataIdentifierExpression {{.*}} name=B
*> CHECK-NEXT:     AND: AbbrRelationalCondition {{.*}} relation=NOT <{{$}}
*> CHECK-NEXT:       right: DataIdentifierExpression {{.*}} name=C
*> CHECK-NEXT:     OR: AbbrRelationalCondition {{.*}} relation=NOT < takenOver
*> CHECK-NEXT:       right: DataIdentifierExpression {{.*}} name=D
*> CHECK-NEXT:   then: ContinueStatement

*> CHECK:      InspectStatement
*> CHECK-NEXT:   inspected: DataIdentifierExpression {{.*}} name=A
*> CHECK-NEXT:   tallying: TallyingItem
*> CHECK-NEXT:     counter: DataIdentifierExpression {{.*}} name=N
*> CHECK-NEXT:     for: TallyingItemFor {{.*}} which=ALL
*> CHECK-NEXT:       TallyingRegion
*> CHECK-NEXT:         NonNumericLiteralExpression {{.*}} value="a"
*> CHECK-NEXT:         InspectRegion {{.*}} side=AFTER
*> CHECK-NEXT:           NonNumericLiteralExpression {{.*}} value="b"
*> CHECK-NEXT:         InspectRegion {{.*}} side=BEFORE
*> CHECK-NEXT:           NonNumericLiteralExpression {{.*}} value="c"
*> CHECK-NEXT:       TallyingRegion
*> CHECK-NEXT:         DataIdentifierExpression {{.*}} name=B
*> CHECK-NEXT:     for: TallyingItemFor {{.*}} which=LEADING
*> CHECK-NEXT:       TallyingRegion
*> CHECK-NEXT:         FigurativeLiteralExpression {{.*}} value=SPACE
*> CHECK-NEXT:   tallying: TallyingItem
*> CHECK-NEXT:     counter: DataIdentifierExpression {{.*}} name=M OF G
*> CHECK-NEXT:       subscript: DataIdentifierExpression {{.*}} name=I
*> CHECK-NEXT:         subscript: NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT:       subscript: NumericLiteralExpression {{.*}} value=2
*> CHECK-NEXT:     for: TallyingItemFor {{.*}} which=ALL
*> CHECK-NEXT:       TallyingRegion
*> CHECK-NEXT:         NonNumericLiteralExpression {{.*}} value="d"
*> CHECK-NEXT:       TallyingRegion
*> CHECK-NEXT:         NonNumericLiteralExpression {{.*}} value="e"
*> CHECK-NEXT:   replacing: ReplacingItem {{.*}} which=FIRST
*> CHECK-NEXT:     ReplacingRegion
*> CHECK-NEXT:       NonNumericLiteralExpression {{.*}} value="f"
*> CHECK-NEXT:       by: NonNumericLiteralExpression {{.*}} value="g"
*> CHECK-NEXT:     ReplacingRegion
*> CHECK-NEXT:       DataIdentifierExpression {{.*}} name=B
*> CHECK-NEXT:       by: FigurativeLiteralExpression {{.*}} value=ALL "h"
*> CHECK-NEXT:   replacing: ReplacingItem {{.*}} which=ALL
*> CHECK-NEXT:     ReplacingRegion
*> CHECK-NEXT:       NonNumericLiteralExpression {{.*}} value="i"
*> CHECK-NEXT:       by: FigurativeLiteralExpression {{.*}} value=SPACE

*> CHECK:      PerformStatement
*> CHECK-NEXT:   procedure: QualifiedWord {{.*}} name=P
*> CHECK-NEXT:   thru: QualifiedWord {{.*}} name=Q
*> CHECK-NEXT:   times: DataIdentifierExpression {{.*}} name=N OF G
*> CHECK-NEXT: GobackStatement

*> CHECK:      EvaluateStatement
*> CHECK-NEXT:   subject: EvaluateSubject {{.*}} is=operand{{$}}
*> CHECK-NEXT:     DataIdentifierExpression {{.*}} name=A
*> CHECK-NEXT:   subject: EvaluateSubject {{.*}} is=TRUE{{$}}
*> CHECK-NEXT:   EvaluateCase
*> CHECK-NEXT:     when: EvaluateWhen <{{[^>]*}}>{{$}}
*> CHECK-NEXT:       EvaluateObject {{.*}} is=operand{{$}}
*> CHECK-NEXT:         NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT:       EvaluateObject {{.*}} is=condition{{$}}
*> CHECK-NEXT:         RelationalCondition {{.*}} relation=={{$}}
*> CHECK-NEXT:           left: DataIdentifierExpression {{.*}} name=B
*> CHECK-NEXT:           right: DataIdentifierExpression {{.*}} name=C
*> CHECK-NEXT:     when: EvaluateWhen <{{[^>]*}}>{{$}}
*> CHECK-NEXT:       EvaluateObject {{.*}} is=range not
*> CHECK-NEXT:         NumericLiteralExpression {{.*}} value=2
*> CHECK-NEXT:         thru: ArithmeticExpression {{.*}} category=numeric{{$}}
*> CHECK-NEXT:           first: NumericLiteralExpression {{.*}} value=3
*> CHECK-NEXT:           +: DataIdentifierExpression {{.*}} name=D
*> CHECK-NEXT:       EvaluateObject {{.*}} is=FALSE{{$}}
*> CHECK-NEXT:     ContinueStatement
*> CHECK-NEXT:   EvaluateCase
*> CHECK-NEXT:     when: EvaluateWhen <{{[^>]*}}>{{$}}
*> CHECK-NEXT:       EvaluateObject {{.*}} is=ANY{{$}}
*> CHECK-NEXT:       EvaluateObject {{.*}} is=ANY{{$}}
*> CHECK-NEXT:     when: EvaluateWhen {{.*}} other
*> CHECK-NEXT:     GobackStatement
*> CHECK-NEXT: ExitStatement

*> CHECK:      ReadStatement
*> CHECK-NEXT:   file: FileIdentifierExpression {{.*}} name=F
*> CHECK-NEXT:   ExceptionHandler {{.*}} phrase=INVALID KEY
*> CHECK-NEXT:     ReadStatement
*> CHECK-NEXT:       file: FileIdentifierExpression {{.*}} name=G
*> CHECK-NEXT:       ExceptionHandler {{.*}} phrase=AT END
*> CHECK-NEXT:         ContinueStatement
*> CHECK-NEXT:   ExceptionHandler {{.*}} phrase=AT END
*> CHECK-NEXT:     ContinueStatement

*> CHECK:      SetStatement
*> CHECK-NEXT:   SetItem {{.*}} format=UP BY value=operand
*> CHECK-NEXT:     receiver: DataIdentifierExpression {{.*}} name=I
*> CHECK-NEXT:     receiver: DataIdentifierExpression {{.*}} name=J
*> CHECK-NEXT:     to: NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT:   SetItem {{.*}} format=DOWN BY value=operand
*> CHECK-NEXT:     receiver: DataIdentifierExpression {{.*}} name=K
*> CHECK-NEXT:     to: DataIdentifierExpression {{.*}} name=N
*> CHECK-NEXT:   SetItem {{.*}} format=TO value=NULL
*> CHECK-NEXT:     receiver: DataIdentifierExpression {{.*}} name=P
*> CHECK-NEXT:   SetItem {{.*}} format=conditionName value=TRUE
*> CHECK-NEXT:     receiver: ConditionNameCondition
*> CHECK-NEXT:       name: DataIdentifierExpression {{.*}} name=C-1
*> CHECK-NEXT:     receiver: ConditionNameCondition
*> CHECK-NEXT:       name: DataIdentifierExpression {{.*}} name=C-2
*> CHECK-NEXT:         subscript: NumericLiteralExpression {{.*}} value=3
*> CHECK-NEXT:   SetItem {{.*}} format=TO value=operand
*> CHECK-NEXT:     receiver: SpecialRegisterIdentifierExpression {{.*}} name=ADDRESS OF
*> CHECK-NEXT:       operand: DataIdentifierExpression {{.*}} name=L
*> CHECK-NEXT:     receiver: DataIdentifierExpression {{.*}} name=R
*> CHECK-NEXT:     to: DataIdentifierExpression {{.*}} name=P
