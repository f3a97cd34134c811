      *> RUN: %tarka check --verify %s
       identification division.
       program-id. statements.
       data division.
       working-storage section.
       1 n pic 9(4).
       1 x pic x(8).
       1 f comp-2.
       1 p usage pointer.
       1 unkeyed.
        2 u pic x(4) occurs 5.
       1 text-1 pic x(80).
       1 nat pic n(80) usage national.
       1 edited pic z(9).
       1 group-1.
        2 e occurs 5 ascending key k indexed by ix.
         3 k pic x.
         3 v pic 9.
        2 outside pic x.
       linkage section.
       1 area-1.
        2 part-1 pic x(10).
       procedure division.
       main section.
       first-one.
           divide 0 into n *> expect: 5019
           divide n by zero giving n *> expect: 5019
           divide n by 0.0 giving n on size error continue end-divide
           divide 0 by n giving n
           compute f = n / 2 / 00 *> expect: 5019
           compute f = n * 0 / n / 0.1
           compute f = n / 0 on size error continue end-compute
           if n / (1 - 1) > 5 or n / -0 = 2 continue end-if *> expect: 5019:38
           sort e descending key v k
           sort e
           sort group-1 ascending key k *> expect: 5041
           sort e ascending key outside *> expect: 5042
           allocate area-1 returning p
           allocate part-1 *> expect: 5044
           allocate x *> expect: 5044
           allocate n * 2 characters *> expect: 5043
           allocate n characters returning x *> expect: 5045
           free p x address of area-1 *> expect: 5045
           perform varying ix from 1 by 0.5 until ix > 5 *> expect: 5046
               continue end-perform
           perform varying n from 1 by 0 until n > 5 *> expect: 5047
               continue end-perform
           perform varying f from 1 by -0.5 until f < 0
               continue end-perform
           sort u *> expect: 5057
           sort u descending
           sort e with duplicates in order
           json generate text-1 from group-1 count in n
             name e "e" k "k" group-1 "g" suppress v
           json generate nat(2:70) from x
           json generate edited from group-1 *> expect: 5054
             name unkeyed "u" suppress u when spaces *> expect: 5053:19 5053:40
           json generate unkeyed from group-1 count in f *> expect: 5055
           json parse n into group-1 suppress x *> expect: 5054:23 5053:47
           json parse text-1(1:40) into group-1 name group-1 omitted
           move x to shift-in xml-code xml-text *> expect: 5056:22 5056:40
             xml-namespace json-status return-code *> expect: 5056
           inspect x converting "abca" to "1234" *> expect: 5060
           inspect x converting "aA1" to x(1:3)
           accept n from date *> expect: 5061
           accept n from day-of-week
           accept x(1:4) from time
           accept edited from date yyyymmdd
           perform second-one through first-one *> expect: 5048
           perform second-one through third
           perform second-one through main
           perform third through first-one *> expect: 5048
           perform first-one through second-one.
       second-one.
           stop run.
       third section.
       last-one.
           perform second-one of main.
