      *> RUN: %tarka check --verify %s
       identification division.
       program-id. conditions.
       environment division.
       configuration section.
       special-names.
           class hexd "0" thru "9" "A" thru "F".
       data division.
       working-storage section.
      *> Values that the item cannot have.
       1 c pic xx.
        88 c-1 value "AB " "ABC". *> expect: 5008:28
        88 c-2 value X"C1C2C3".
        88 c-3 value "ABC" thru "XYZ".
        88 c-4 value spaces all "ABC".
       1 n pic 99v9.
        88 n-1 value 99.9 0099 1.50.
        88 n-2 value 100. *> expect: 5008
        88 n-3 value 1.55. *> expect: 5008
        88 n-4 value -1. *> expect: 5008
        88 n-5 value 0 thru 999.
       1 s pic s9 comp-3.
        88 s-1 value -9 thru +9, -1.
        88 s-2 value 10. *> expect: 5008
       1 b pic 99 comp.
        88 b-1 value 100.
       1 scaled pic 99ppp.
        88 scaled-1 value 99000.
       1 g.
        88 g-1 value "ABCD".
        88 g-2 value "ABCDE". *> expect: 5008
        2 g-item pic x(4).
      *> Ranges.
       1 r pic x.
        88 r-1 value "A" thru "Z" "z" thru "a". *> expect: 5009:35
        88 r-2 value "9" thru "A" "A" thru "9".
        88 r-3 value "A" thru "A".
       1 t pic s99.
        88 t-1 value -5 thru 5 10 thru 9.9. *> expect: 5009:32
       1 num-x pic 9(4).
       1 alf pic a(4).
       1 dec pic s9(4) comp-3.
       1 bin pic s9(4) comp.
       1 flt comp-1.
       1 edt pic zz9.
       1 dbc pic g(4) display-1.
       1 nat pic n(4) national.
       1 tab.
        2 e pic x occurs 5 indexed by ix.
       procedure division.
       main.
      *> Classes.
           if num-x alphabetic or dec not alphabetic-upper *> expect: 5018:15 5018:35
               continue end-if
           if flt alphabetic-lower continue end-if *> expect: 5018
           if alf numeric or flt is not numeric *> expect: 5018:15 5018:30
               continue end-if
           if num-x kanji or c dbcs continue end-if *> expect: 5018:15 5018:30
           if c alphabetic and c numeric and num-x numeric and g numeric
              and nat alphabetic and dbc is dbcs and dec is numeric
              and num-x(1:2) alphabetic and edt numeric and bin numeric
              and alf alphabetic-lower and c hexd and tab alphabetic
               continue end-if
           evaluate num-x when 1 thru 5 when 9 thru 6 continue *> expect: 5009:46
             when num-x thru 5 when 5 thru num-x when other continue
           end-evaluate
      *> Values that the item never has; spaces and zeros at the ends do not count.
           if num-x = 12345 or -1 = num-x *> expect: 5059:23 5059:32
              or dec = 00001.50 or dec = -1.00 *> expect: 5059:24
              or num-x < 12345 or bin = 99999 or flt = 123456789.5
              or num-x(1:2) = 99999
               continue end-if
           if c not = "ABCDEF" or alf = "ABCD  " or g = "ABCDE" *> expect: 5059:23 5059:57
              or c > "ABCDEF" or e (1) = "AB" or c(1:2) = "ABCDEF" *> expect: 5059:42
               continue end-if
           perform until num-x = 10000 continue end-perform *> expect: 5059
      *> WHEN phrases.
           evaluate c also num-x
             when "A" also 1 continue
             when "A" also any continue
             when "A " also 01.0 continue *> expect: 5058
             when not "A" also 1 thru 5 continue
             when not "A" also 1 thru 6 continue
             when e (1) also 1 when e (2) also 1 continue
             when not "A" also 1 thru 5 continue *> expect: 5058
             when "ABCDEFG" also not 99999 continue *> expect: 5059
           end-evaluate
           evaluate true
             when g-1 continue
             when num-x = 5 or c = "X" when num-x = 5 continue
             when num-x > 5 continue
             when num-x = 5 or c = "X" continue
             when g-1 when num-x = 5 continue *> expect: 5058:14 5058:23
             when other continue
           end-evaluate
           stop run.
