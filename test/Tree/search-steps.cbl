*> RUN: %tarka ast %s | FileCheck %s
*>
*> The conditions that SEARCH ALL steps by: one of them holds when the entry comes after the one
*> that is sought, in the order of the keys whatever order they are tested in.
IDENTIFICATION DIVISION.
PROGRAM-ID. STEPS.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  T.
    05  E OCCURS 10 ASCENDING KEY K1 DESCENDING KEY K2 ASCENDING KEY K3 INDEXED BY X.
        10  K1                  PIC X.
        10  K2                  PIC 99V9.
            88  K2-HALF         VALUE 0.5.
        10  K3                  PIC X.
PROCEDURE DIVISION.
    SEARCH ALL E WHEN K3 (X) = "C" AND K1 (X) = "A" AND K2-HALF (X) CONTINUE END-SEARCH
    SEARCH E WHEN K1 (X) = "A" CONTINUE END-SEARCH.
*> CHECK:      SearchStatement {{.*}} all
*> CHECK:        generated: RelationalCondition <[[#@LINE-3]]:40-{{.*}}> relation=>
*> CHECK-NEXT:     left: {{.*}} boundTo=K1@
*> CHECK:          right: {{.*}} value="A"
*> CHECK-NEXT:   generated: CombinedCondition
*> CHECK-NEXT:     first: RelationalCondition {{.*}} relation==
*> CHECK-NEXT:       left: {{.*}} boundTo=K1@
*> CHECK:          AND: RelationalCondition {{.*}} relation=<
*> CHECK-NEXT:       left: {{.*}} boundTo=K2@{{.*}} digits=3 scale=1
*> CHECK-NEXT:         subscript: {{.*}} boundTo=X@
*> CHECK-NEXT:       right: {{.*}} value=0.5
*> CHECK-NEXT:   generated: CombinedCondition
*> CHECK-NEXT:     first: RelationalCondition {{.*}} relation==
*> CHECK-NEXT:       left: {{.*}} boundTo=K1@
*> CHECK:          AND: ConditionNameCondition
*> CHECK:          AND: RelationalCondition {{.*}} relation=>
*> CHECK-NEXT:       left: {{.*}} boundTo=K3@
*> CHECK:      SearchStatement
*> CHECK-NOT:  generated
