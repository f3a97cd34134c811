       identification division.
       program-id. program.
      *> A comment, and the columns of what is not replaced, stay.
       data division.
       working-storage section.
       01  first-record.   copy record replacing ==:tag:== by ==WS==
               ==number== by ==WS-A-NAME-THAT-IS-LONG==.
       77  after-the-copy    pic x.
           copy free.
           copy nowhere.
       procedure division.
           replace ==N== by ==WS-A-NAME-THAT-IS-LONG==
                   ==S== by ==WS-NAME==.
           move 1 to N move "a literal that is then too far" to S.
           display "a literal that is continued itself and has ""quotes"
      -    "" in it, so that it is long" S
           replace off.
           goback.
