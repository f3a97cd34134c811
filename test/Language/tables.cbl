      *> RUN: %tarka check --verify %s
       identification division.
       program-id. tables.
       data division.
       working-storage section.
       1 n pic 99.
         88 n-on value 1.
       1 x pic x(5).
       1 decimals pic 9v9.
       1 nat pic n(5) usage national.
       1 tab.
        2 e occurs 5 indexed ix iw pic 9.
          88 e-on value 1.
        2 g occurs 3.
         3 h occurs 4 indexed iy pic x(3).
       1 odo.
        2 o occurs 1 to 5 depending on n pic x.
       1 wrong-odo.
        2 wo occurs 1 to 5 depending on n-on pic x. *> expect: 5005:41
       1 slots.
        2 filler occurs 2.
         3 slot pic x.
       procedure division.
       main.
           move e(5) to x
           move e(6) to x *> expect: 5001:17
           move e(-1) to x *> expect: 5001
           move e(2 + 4) to x *> expect: 5001
           move e(0) to x *> expect: 3528
           move e(decimals) to x(n:1) *> expect: 5010:19
           move e(ix + 4) to x
           move e(ix + 5) to x *> expect: 5001
           move e(ix - 5) to x
           move e(ix - 6) to x *> expect: 5001
           move e(n + 9) to x
           move h(3 4) to x
           move h(4 1) to x *> expect: 5001
           move h(1 5) to x *> expect: 5001
           move o(5) to x
           move o(6) to x *> expect: 5001
           move slot(3) to x *> expect: 5001
           move e(e(6)) to x *> expect: 5001:19
      *> The length of an item is known, that of a table depends on what is meant.
           move e(length of x) to x
           move e(length of x + 1) to x *> expect: 5001
           move e(2 * length of x - 4) to x *> expect: 5001
           move e(function length(nat)) to x
           move e(length of nat) to x *> expect: 5001
           move e(length of odo + 5) to x
           move e(length of e(1) + 5) to x
           move x(length of x:1) to x
           move x(length of x:2) to x *> expect: 5004
           move x(1:length of nat / 2) to x
           move x(1:length of nat) to x *> expect: 5004
      *> How many there are.
           move e to x *> expect: 5002
           move h(1) to x *> expect: 5002
           move h(1 2 3) to x *> expect: 5002
           move g(1) to x
           initialize e *> expect: 5002
           initialize tab
           move x(1) to x *> expect: 3316 *> expect-pass
           if e-on display x. *> expect: 5002
           if e-on(1) and not e-on(6) display x. *> expect: 5001:31
           set e-on(6) to true *> expect: 5001
           set ix to 3
           search e varying iw when e(ix) = 1 display x end-search
           evaluate true when e(9) = 1 or e(2) display x *> expect: 5001
             when n-on display x
           end-evaluate
           perform varying e(6) from 1 by 1 until e(7) = 5 *> expect: 5001:28 5001:51
             display e(1)
           end-perform
           string h(1) delimited by size into x *> expect: 5002
           call "q" using g(4) by content e(1) *> expect: 5001
      *> Where a table is meant as a whole.
           compute n = length of e + function length(h)
           compute n = length of e(6) *> expect: 5001
           move function max(e(all)) to n
           move function sum(e(1) e(all)) to n
           move function max(h(1 1) h(all 5)) to x *> expect: 5001
           move function max(e) to n *> expect: 5002
           move e(all) to n *> expect: 5003
      *> Parts.
           move x(3:3) to x(1:)
           move x(3:4) to x *> expect: 5004:17
           move x(0:1) to x *> expect: 5004
           move x(6:) to x *> expect: 5004
           move x(n:6) to x *> expect: 5004
           move x(1:0) to x *> expect: 5004
           move x(n:5) to x(n:n)
           move nat(5:1) to nat
           move nat(6:1) to nat *> expect: 5004
           move tab(1:41) to x
           move tab(42:1) to x *> expect: 5004
           move e(2)(1:1) to x
           move h(1 1)(2:3) to x *> expect: 5004
      *> Condition-names are no numbers.
           move x(n-on:1) to x *> expect: 5005
           move e(n-on) to x *> expect: 5005
           move function max(n-on n) to n *> expect: 5005
      *> Arguments.
           move function mod(n) to n *> expect: 5014
           move function mod(n 2 3) to n *> expect: 5014
           move function pi(n) to n *> expect: 5014
           move function random to n
           move function random(1) to n
           move function year-to-yyyy(n 50) to n
           move function mod(e(all)) to n
           compute n = function sum(n x 1) + function abs(zero) *> expect: 5015:39
           compute n = function present-value(1 n x) *> expect: 5015:51
           move function trim(x leading) to x
           evaluate n-on when true display x end-evaluate
           stop run.
