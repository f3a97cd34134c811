*> RUN: %tarka ast --keep-going %s 2>/dev/null | FileCheck %s
*>
*> Where one subscript ends and the next begins. A sign that is set apart from what is before it and
*> joined to the number behind it begins a subscript, unless it is the offset of a name.
IDENTIFICATION DIVISION.
PROGRAM-ID. P.
DATA DIVISION.
WORKING-STORAGE SECTION.
1 I PIC 9.
1 X PIC X(9).
1. 2 OCCURS 3. 3 C PIC 9 OCCURS 3.
PROCEDURE DIVISION.
    DISPLAY C (I + 1 +2) C (1 -1) C (+1 +2) C (I -1 +2) C (I -1 I) C (I + 1 + 2)
        C (I+1+2) C (I * 2 -1) X (I + 1 -1 : 2) X (1 +1 : (I)).
*> CHECK: DisplayStatement
*> CHECK: name=C boundTo{{.*}}
*> CHECK-NEXT: subscript: ArithmeticExpression
*> CHECK-NEXT: first: {{.*}} name=I
*> CHECK-NEXT: +: NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT: subscript: NumericLiteralExpression {{.*}} value=+2

*> CHECK-NEXT: name=C boundTo{{.*}}
*> CHECK-NEXT: subscript: NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT: subscript: NumericLiteralExpression {{.*}} value=-1

*> CHECK-NEXT: name=C boundTo{{.*}}
*> CHECK-NEXT: subscript: NumericLiteralExpression {{.*}} value=+1
*> CHECK-NEXT: subscript: NumericLiteralExpression {{.*}} value=+2

*> CHECK-NEXT: name=C boundTo{{.*}}
*> CHECK-NEXT: subscript: ArithmeticExpression
*> CHECK-NEXT: first: {{.*}} name=I
*> CHECK-NEXT: -: NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT: subscript: NumericLiteralExpression {{.*}} value=+2

*> CHECK-NEXT: name=C boundTo{{.*}}
*> CHECK-NEXT: subscript: ArithmeticExpression
*> CHECK-NEXT: first: {{.*}} name=I
*> CHECK-NEXT: -: NumericLiteralExpression {{.*}} value=1
*> CHECK-NEXT: subscript: {{.*}} name=I

*> CHECK-COUNT-3: subscript: ArithmeticExpression
*> CHECK-NOT: subscript
*> CHECK: ReferenceModifier
*> CHECK-NOT: subscript
*> CHECK: ReferenceModifier
*> CHECK-NOT: subscript
