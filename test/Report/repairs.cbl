*> Of several messages one is left where one small change of the source does without the others.
*> RUN: rm -rf %t && mkdir %t && %tarka check %s
*> RUN: sed '/^   perform p/{h;d};/^     item-3 delimited/{G}' %s > %t/lines.cbl
*> RUN: not %tarka check --format=gcc %t/lines.cbl 2>&1 | FileCheck %s --check-prefixes=ONE,LINES
*> RUN: sed 's/evaluate true when/evaluate when true/' %s > %t/words.cbl
*> RUN: not %tarka check --format=gcc %t/words.cbl 2>&1 | FileCheck %s --check-prefixes=ONE,WORDS
*> RUN: sed '/^special-names/p' %s > %t/doubled.cbl
*> RUN: not %tarka check --format=gcc %t/doubled.cbl 2>&1 | FileCheck %s --check-prefixes=ONE,DOUBLED
*> ONE: error:
*> ONE-NOT: error:
*> LINES: note: lines {{[0-9]+}} and {{[0-9]+}} may be exchanged: in the other order this and 2 more errors are gone; --all shows them
*> WORDS: note: 'when' and 'true' may be exchanged: in the other order this and 1 more error are gone; --all shows it
*> DOUBLED: note: line {{[0-9]+}} is line {{[0-9]+}} again: without it this and 1 more error are gone; --all shows it
*> ONE-NOT: error:
*> A mistake of another kind has a message of its own.
*> RUN: sed 's/from input-1/from input-2/;s/evaluate true when/evaluate when true/' %s > %t/two.cbl
*> RUN: not %tarka check --format=gcc %t/two.cbl 2>&1 | FileCheck %s --check-prefix=TWO --implicit-check-not=error:
*> TWO: error: a condition is expected
*> TWO: 'when' and 'true' may be exchanged
*> TWO: error: {{.*}}'input-2'
identification division.
program-id. repairs.
environment division.
configuration section.
special-names. console is screen-1
  sysin is input-1
  decimal-point is comma.
data division.
working-storage section.
1 item-1 pic 9(5)v99. 1 item-2 pic 9(5). 1 item-3 pic x(5).
77 total pic 9(7). 77 rest pic 9(7).
procedure division.
f. compute total = item-1 + 2,5 * item-2.
   divide total by 3 giving total remainder rest
     on size error display item-3 upon screen-1 not on size error
     continue end-divide.
   perform p varying item-2 from 1 by 1 until item-2 > 5. string
     item-3 delimited by size "x" delimited by space into item-3. inspect
     item-3 replacing all "a" by "b" characters by "c" before "d".
   evaluate true when item-1 > 5 display item-3
     end-display when other move 1 to item-1 end-evaluate.
   goback.
p. accept item-3 from input-1.
