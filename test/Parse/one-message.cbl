      *> RUN: %tarka check --verify %s
      *> One message for one mistake: entries that can be made out are declared all the same, a
      *> block without END-EXEC ends with its period, and text cut at column 72 is the cause of what
      *> is missing behind it.
       identification division.
       program-id. p.
       data division.
       working-storage section.
       record-1.                           *> expect: 200
           05 05 a pic x.                  *> expect: 200
           o5 b pic x.                     *> expect: 200
           c 05 pic 9(4).                  *> expect: 200
           05 d pic s9(4 4) comp.          *> expect: 228
           05 t occurs 3 value space indexed by i pic x.  *> expect: 227
              88 is-x value 'X'.
           is-y value 'Y'.                 *> expect: 200
      *> expect@+1: 29
       01  an-entry-of-some-length                         pic x(20) value 'Y'.
       01  e pic x.
       procedure division.
           set i to 1
           if a == b                       *> expect: 200
               move a to b t (i) e
               perform until is-x (1) or is-y (2)
                   exec sql open c1 end1exec  *> expect: 27
                   add 1 to c d
                   exec sql close c1.         *> expect: 27
           display record-1 an-entry-of-some-length
           goback.
