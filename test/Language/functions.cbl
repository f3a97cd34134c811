      *> RUN: %tarka check --verify %s
       identification division.
       program-id. functions.
       data division.
       working-storage section.
       1 n pic 9(9).
       1 d pic s9(5)v99.
       1 f comp-2.
       1 x pic x(5).
       1 nat pic n(5) usage national.
       1 tab.
        2 e pic 9 occurs 5.
       procedure division.
      *> The ends of the domains.
           compute f = function acos(1) + function asin(-1)
               + function sqrt(0) + function log(0.1)
               + function random(0)
               + function factorial(29) + function annuity(0 1)
               + function present-value(-0.9 1 2)
           compute f = function acos(1.01) *> expect: 5049
           compute f = function asin(- 2) *> expect: 5049
           compute f = function sqrt(-.5) *> expect: 5049
           compute f = function log(0) + function log10(0.0) *> expect: 5049:37 5049:57
           compute f = function factorial(30) *> expect: 5049
           compute f = function annuity(-1 0) *> expect: 5049:41 5049:44
           compute n = function mod(n 0) + function rem(d 00) *> expect: 5049:39 5049:59
           move function char(257) to x *> expect: 5049
           compute n = function year-to-yyyy(100 50) *> expect: 5049
      *> Dates.
           compute n = function integer-of-date(20240229)
               + function integer-of-date(16010101)
               + function integer-of-day(2024366)
               + function integer-of-date(20230229) *> expect: 5049
               + function integer-of-date(20241301) *> expect: 5049
               + function integer-of-date(20240431) *> expect: 5049
               + function integer-of-date(16001231) *> expect: 5049
               + function integer-of-date(240101) *> expect: 5049
               + function integer-of-day(2023366) *> expect: 5049
               + function integer-of-day(2024000) *> expect: 5049
           compute n = function date-of-integer(3067671)
               + function day-of-integer(3067672) *> expect: 5049
      *> Integers.
           compute n = function mod(d, 7) *> expect: 5050
               + function mod(function integer(d) 7)
               + function mod(d / 2, 7)
               + function date-of-integer(f) *> expect: 5050
               + function factorial(2.5) *> expect: 5050
               + function rem(d, 2.5)
      *> Classes and lengths.
           move function national-of(nat) to nat *> expect: 5051
           move function national-of(x 1208) to nat
           move function display-of(x) to x *> expect: 5051
           move function display-of(nat) to x
           compute n = function ord(x) + function ord("AB") *> expect: 5052:37 5052:55
               + function ord(x(2:1)) + function ord("A")
           move function current-date(17:5) to x
           move function current-date(20:3) to x *> expect: 5004
           goback.
